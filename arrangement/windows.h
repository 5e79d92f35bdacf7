// What the arrangement windows tell each other; for this folder alone.
#pragma once

#include "core/menus.h"

namespace zentaline {

struct Application;
class ChildWindow;
struct EditStep;

// Rewrites the name in a window's list row from its record; the label and the mark stay.
void ShowRecordName(ChildWindow& window, int index);
// The factory bank of a kind: its number in the database, 1 and 2, and its menu entry.
int ArrBankFileId(int kind);
MenuId ArrBankEntry(int kind);
// Whether there is a place for another new file.
void RefreshNewArrEntry(Application& app);
// Records of the window have changed by a step back or forth: the editor shows its own one as it is now, and the
// instrument hears of it. A step forth leads to what the editor held behind it, which a cut or a paste had left alone.
void TakeOverArrRecord(Application& app, const ChildWindow& source, const EditStep& step);
// The editor has gone: a written record can be edited again.
void ArrEditorClosed(Application& app);

}  // namespace zentaline
