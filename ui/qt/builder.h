// Turns the layout value of any form into widgets.
#pragma once

#include <QWidget>
#include <vector>

#include "ui/form.h"
#include "ui/qt/gate.h"
#include "ui/qt/view.h"

namespace zentaline::ui::qt {

struct Built {
  QWidget* body = nullptr;
  std::vector<View*> views;
};

// The body of the form by its layout. Without a layout value all its controls stand in a column.
Built BuildBody(Form& form, Gate& gate, QWidget* parent);
// What the main window shows where no child window stands.
Built BuildFreeArea(Form& form, Gate& gate, QWidget* parent);

}  // namespace zentaline::ui::qt
