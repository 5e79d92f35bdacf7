// The widgets of text boxes, combo boxes and list boxes.
#pragma once

#include <QWidget>

#include "ui/controls.h"
#include "ui/qt/view.h"

namespace zentaline::ui::qt {

View* MakeTextBox(TextBox& box, Gate& gate, QWidget* parent);
View* MakeComboBox(ComboBox& box, Gate& gate, QWidget* parent);
View* MakeListBox(ListBox& box, Gate& gate, QWidget* parent);

}  // namespace zentaline::ui::qt
