// Opening, saving and recent files, as the rest of the program uses them. Paths are the file system's bytes.
#pragma once

#include <string>

#include "core/bytes.h"

namespace zentaline {

struct Application;
class ChildWindow;

enum ChooseResult : int { kChosen = 0, kChooseFailed = 1, kChooseOpenAlready = 2, kChooseEmpty = 3 };

// The open dialog and the reader of the filter that was left selected. On success the file is in its format's buffer,
// and CurrentFileDir and CurrentFileName name it.
ChooseResult OpenChooser(Application& app, int kind);

// The whole flow of mnuApriArr.
void OpenArrFile(Application& app);
// The same with a path that is known, as of a file dropped on the window or named on the command line.
void OpenPath(Application& app, const std::string& path);
void OpenRecentFile(Application& app, int i);

// Saves the window's files by its kind. False when something failed; the window then still counts as changed.
bool SaveFile(Application& app, ChildWindow& window);
// Asks for a name first. False when that was cancelled, or saving failed.
bool SaveFileAs(Application& app, ChildWindow& window);

// `path` with its extension.
void AddRecentFile(Application& app, const std::string& path, bool read_only);
// What mnuRecentFile(i) shows; empty for a free record.
std::string RecentCaption(const Application& app, int i);

// The arrangement window numbers, 1 to 8: the first that is free, 0 when none is. And whether the open entry is
// enabled.
int FreeArrWindow(const Application& app);
void RefreshOpenEntries(Application& app);

}  // namespace zentaline
