// The program's icon, in the sizes that desktops ask for.
#pragma once

namespace zentaline::ui::qt {

// Gives it to the application and so to its top windows. Only the first call reads it, which takes its time.
void ShowProgramIcon();

}  // namespace zentaline::ui::qt
