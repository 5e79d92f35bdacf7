// What the open and the save flows share; for this folder alone.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "files/api.h"
#include "ui/types.h"

namespace zentaline {

inline constexpr std::string_view kDialogTitle = "Zentaline - Zentaline Console v 4.0 ";

// Filters of the open dialog, which count from 1.
inline constexpr int kNoFilter = 0;
enum OpenFilter : int { kFilterArr = 1, kFilterSty, kFilterPrg, kFilterGbl, kFilterBsq, kFilterPcg, kFilterAll };

// "text|patterns|" again and again.
std::vector<ui::FileFilter> ParseFilters(std::string_view text);

// Whether a path without its extension can be kept: at most 238 bytes, and without a blank at its end, since it is
// padded with blanks wherever it is stored. The box for one that can't, and both for a path with its extension.
bool CanKeep(std::string_view base);
void ShowNameNotValid(Application& app, const std::string& path);
bool PathFits(Application& app, const std::string& path);
// A file of another format than its name says; its box.
ChooseResult RefuseData(Application& app, const std::string& path);

// The open window 1 to 8 of the file, or that of a new file which was saved under this name; null when there is none.
ChildWindow* WindowOf(const Application& app, const FileKind& kind, const std::string& base);

// The window of the styles that belong to arrangements which have none attached yet; null when there is none.
ChildWindow* StylesToTake(const Application& app, const ChildWindow& arrangements);
// Whether styles that are saved under this name would take the place of others that a window shows.
bool StylesOpenElsewhere(const Application& app, const ChildWindow& window, const std::string& base);
// A style file that was saved under the name of arrangements without styles belongs to them.
void GiveStylesToArrangements(Application& app, const ChildWindow& window);

// The readers of the earlier instruments' files: what they read is in ImportedArr and ImportedPrg, as files of this
// instrument. That of .pcg files only looks at the file while no import of one runs.
ChooseResult ReadI30Arr(Application& app, const std::string& path);
ChooseResult ReadI30Prg(Application& app, const std::string& path);
ChooseResult ReadOldArr(Application& app, const std::string& path);
ChooseResult ReadOldPrg(Application& app, const std::string& path);
void RefreshImportEntries(Application& app);

// 0 read, 1 and 2 failed and shown, 3 absent or empty.
ChooseResult ReaderResult(int result);
// Reads a file whose kind, or path, is known, after asking whether it is open already. CurrentFileDir and
// CurrentFileName, and the kind's last directory and name, are its own afterwards.
ChooseResult ReadByFilter(Application& app, int kind, int filter, const std::string& path);
void RememberPlace(Application& app, int filter, const std::string& path);

}  // namespace zentaline
