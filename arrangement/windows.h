// What the arrangement windows tell each other; for this folder alone.
#pragma once

namespace zentaline {

struct Application;
class ChildWindow;

// Rewrites the name in a window's list row from its record; the label and the mark stay.
void ShowRecordName(ChildWindow& window, int index);
// The editor has gone: a written record can be edited again.
void ArrEditorClosed(Application& app);

}  // namespace zentaline
