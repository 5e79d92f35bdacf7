// What the arrangement windows tell each other; for this folder alone.
#pragma once

namespace zentaline {

class ChildWindow;

// Rewrites the name in a window's list row from its record; the label and the mark stay.
void ShowRecordName(ChildWindow& window, int index);

}  // namespace zentaline
