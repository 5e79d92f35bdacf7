// Alike controls that stand beside each other, as in the channel strips of a mixer.
#pragma once

#include "ui/form.h"

namespace zentaline::ui {

// The control that stands in the next strip (1) or the one before (-1) where this one stands in its own; null where
// there is none, or the user can't reach it. Strips are frames that stand in one row.
Control* InStripBeside(const Control& control, int way);

// Turns the form's pages by one, round at the ends; false when it has none.
bool TurnPage(Form& form, int way);

}  // namespace zentaline::ui
