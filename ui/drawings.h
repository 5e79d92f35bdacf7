// Small drawings that several windows use.
#pragma once

#include "ui/picture.h"

namespace zentaline::ui {

// A bar as long as the share of a count in the greatest one, from the left; none of nothing. What is no count at all
// shows as an empty bar, what is more than the greatest as a full one.
Drawing ShareDrawing(int count, int greatest);

// A bar from the middle to the left or right, for a value from -reach to reach.
Drawing SwingDrawing(int value, int reach);

}  // namespace zentaline::ui
