// What a journal has left is brought back into the windows of its files.
#pragma once

#include <functional>
#include <vector>

#include "core/journal_format.h"

namespace zentaline {

struct Application;
struct FileKind;
class ChildWindow;

// A window with changes, and the record of it that was under edit.
struct Lost {
  JournalLeft left;
  std::vector<JournalAction> actions;  // one by one; one of all where they don't lead from what is on the disk
  Bytes image;                         // as it is to be, with the record kept
};

// The kind of file that the window saves; null where such windows save none.
const FileKind* KindOfLost(const Lost& lost);

// Opens the files that are as they were then, where they aren't open, and does the actions again, each of which may
// have changed several windows: as steps that can be taken back one by one. What has no such file is rebuilt, in its
// turn. False when something couldn't be.
bool BringBack(Application& app, const std::vector<Lost>& all, const std::function<bool(const Lost&)>& rebuild);

// All rows of the window are other ones.
void ShowAllItems(Application& app, ChildWindow& window);

}  // namespace zentaline
