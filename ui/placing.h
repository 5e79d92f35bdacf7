// Where a window goes that has no place of its own.
#pragma once

#include "ui/types.h"

namespace zentaline::ui {

// Inside the area, where it covers least of the window that it belongs to; of such places the nearest to that window's
// upper right corner. A window that is larger than the area begins in its corner, so that its title can be reached.
// `belongs_to` is null where there is no such window. The state of both doesn't count.
Placement PlaceInArea(Size area, Size window, const Placement* belongs_to);

}  // namespace zentaline::ui
