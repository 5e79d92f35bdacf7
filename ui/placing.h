// Where a window goes that has no place of its own.
#pragma once

#include "ui/types.h"

namespace zentaline::ui {

// Inside the area, where it covers least of the window that it belongs to; of such places one that hides least of that
// window's title, the nearest to its upper right corner. Where none leaves the title in reach, the window goes below it
// and is shortened for that, but not below `least_height`; 0: it isn't shortened. A window that is larger than the area
// begins in its corner, so that its own title can be reached. `belongs_to` is null where there is no such window. The
// state of both doesn't count.
Placement PlaceInArea(Size area, Size window, const Placement* belongs_to, int least_height = 0);

}  // namespace zentaline::ui
