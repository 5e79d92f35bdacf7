// The menu bar of a form.
#pragma once

#include <QMenu>
#include <QMenuBar>

#include "ui/controls.h"
#include "ui/form.h"
#include "ui/qt/gate.h"

namespace zentaline::ui::qt {

// Fills the bar with the form's menus. Their views detach themselves when the bar dies, or by DetachMenus.
void BuildMenus(Form& form, Gate& gate, QMenuBar& bar);
void DetachMenus(Form& form);
// The entry as it is shown, and its menu when it has entries below it; null when there is none.
QAction* ActionOf(const MenuEntry& entry);
QMenu* MenuOf(const MenuEntry& entry);

}  // namespace zentaline::ui::qt
