// The program's icon, in the sizes that desktops ask for.
#pragma once

#include <QIcon>

namespace zentaline::ui::qt {

QIcon ProgramIcon();

}  // namespace zentaline::ui::qt
