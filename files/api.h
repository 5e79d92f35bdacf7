// Opening, saving and recent files, as the rest of the program uses them. Paths are the file system's bytes.
#pragma once

#include <array>
#include <span>
#include <string>

#include "base/bytes.h"
#include "core/menus.h"
#include "core/state.h"
#include "files/state.h"

namespace zentaline {

struct Application;
struct EditAction;
struct EditWords;
class ChildWindow;
class FileSet;

enum ChooseResult : int { kChosen = 0, kChooseFailed = 1, kChooseOpenAlready = 2, kChooseEmpty = 3 };

inline constexpr int kNoType = -1;

// What the dialogs remember of the file that was opened or saved last.
struct LastPlace {
  std::string FilesState::*directory;
  std::string FilesState::*name;  // without extension
};

// How the windows of a kind save their files.
struct FileSaving {
  // The type of the window's own file, 1 to 6; of programs it follows from the records.
  int (*type)(const Bytes& image);
  // The window's files as its image says, which may change with them; and what becomes of it when they are written:
  // the marks of what is saved are cleared, `whole` when nothing failed.
  void (*put)(const Application& app, Bytes& image, FileSet& set);
  void (*saved)(Bytes& image, bool whole);
  // What the save dialog proposes, without extension.
  std::string (*name)(const ChildWindow& window);
  bool beside_file = false;      // its dialog begins where the window's file is, not where the last one was
  bool has_parts = false;        // styles and programs are attached, which can be saved under names of their own
  bool keeps_read_only = false;  // a read-only file is not saved over
};

// A kind of file that has windows: where its slots are, how it is read, how its window opens, and how it is saved.
struct FileKind {
  int kind;         // a WindowKind
  int type;         // of the recent files, 1 to 6; programs have two, of which this is the first; kNoType for new files
  int filter;       // of the open dialog
  LastPlace place;  // opening and saving set it
  MenuId open_entry;                   // mnuApriArr and the like, mnuNuovoPrg for new files
  MenuId user_entry = MenuId::kCount;  // the entry of the instrument's own window; kCount where there is none
  int windows = kFileWindows;          // that can be open at once, numbered from 1
  WindowRecord& (*slot)(Application& app, int number);
  bool slot_keeps_read_only = false;  // in its second byte, by which the window comes back at the next start
  ChildWindow* (*window)(const Application& app, int number);
  // Reads the file, with its extension, into the kind's buffer.
  ChooseResult (*read)(Application& app, const std::string& path);
  // Shows what the buffer holds in window 1 to 9; `base` is the path without extension.
  void (*open)(Application& app, int number, const std::string& base, bool read_only);
  const FileSaving* saving = nullptr;   // null for a kind that isn't saved
  int new_kind = 0;                     // of the windows of new files, which have numbers of their own; 0 for none
  int unnamed_kind = 0;                 // of a window without a file, which saving makes one of this kind; 0 for none
  std::array<int, 2> saved_alike = {};  // other kinds of window that hold such a file
};

std::span<const FileKind> FileKinds();
// By its own kind, that of its new files, or one that is saved alike; null for a kind without files.
const FileKind* FileKindOf(int kind);

// The open dialog and the reader of the filter that was left selected. On success the file is in its format's buffer,
// and CurrentFileDir and CurrentFileName name it.
ChooseResult OpenChooser(Application& app, int kind);

// The whole flow of mnuApriArr and the like.
void OpenFile(Application& app, int kind);
// The whole flow of an entry of mnuImporta.
inline constexpr std::array kImportEntries = {MenuId::mnuImportaArri30, MenuId::mnuImportaStyi30,
                                              MenuId::mnuImportaPrgi30, MenuId::mnuImportaArri5,
                                              MenuId::mnuImportaPcgi5};
void ImportFile(Application& app, MenuId entry);
// The same with a path that is known, as of a file dropped on the window or named on the command line.
void OpenPath(Application& app, const std::string& path);
// The same for a caller that tells by itself when the file is open already or absent, and silent when no window is
// free.
ChooseResult OpenInWindow(Application& app, int kind, const std::string& path, bool read_only);
void OpenRecentFile(Application& app, int i);
// Whether the record's type has windows.
bool CanOpenRecent(const Application& app, int i);
// Brings the window of the file to the front, or opens the file; `path` has its extension.
void ShowFile(Application& app, int kind, const std::string& path, bool read_only);
// The window of what stands in the instrument, with the file of its entry, number 9.
void OpenInstrumentFile(Application& app, int kind);
// A file stands in the instrument now: slot 9 of its kind takes its path, and window 9, when it is open, shows it. The
// window in front stays in front.
void InstrumentTakes(Application& app, int kind, const std::string& path, bool pgg);
// Brings the window of the program file of this base name to the front, or opens the one of both formats that is there.
void ShowProgramFile(Application& app, const std::string& base, bool read_only);
// Brings the window of an entry back; the entry moves to a lower slot that is free, the instrument's own never does. A
// file that has gone leaves no window and no message.
void ReopenWindow(Application& app, int kind, int entry);

// Saves the window's files by its kind. False when something failed; the window then still counts as changed.
bool SaveFile(Application& app, ChildWindow& window);
// Asks for a name first. False when that was cancelled, or saving failed, or only a part was saved apart.
bool SaveFileAs(Application& app, ChildWindow& window);
// The question before a changed window closes; false keeps it open.
bool SaveBeforeClosing(Application& app, ChildWindow& window);

// --- Items on their way between windows ---

// Which of the entries Cut, Copy and Paste the window can serve, by its list, and by what was copied before.
struct ItemEntries {
  bool cut = false;
  bool copy = false;
  bool paste = false;
};
ItemEntries UsableItemEntries(const Application& app, ChildWindow& window);
// mnuCopia, mnuTaglia and mnuIncolla. They do nothing where their entry can't be used.
void CopySelected(Application& app, ChildWindow& window);
void CutSelected(Application& app, ChildWindow& window);
void PasteCopied(Application& app, ChildWindow& window);

// --- Windows that show the same styles: a style file's, and that of the arrangements of its name ---

// The window of this kind of file, kKindSty or kKindArr, in which the styles of this name stand; null when there is
// none. Arrangements have a style file attached; `base` is without extension. And the same when they aren't saved yet:
// a window that opens takes them from there, since the disk has older ones.
ChildWindow* StylesWindow(const Application& app, int kind, const std::string& base);
const ChildWindow* ChangedStyles(const Application& app, int kind, const std::string& base);

// The window that shows the same styles as this one; null when there is none. Neither may be what stands in the
// instrument, and the arrangements have a style file attached.
ChildWindow* SameStyles(const Application& app, const ChildWindow& window);

// The user has changed the styles of a window: the other one that shows them takes them over, by the same action. Both
// stay one file.
void KeepInStep(Application& app, const ChildWindow& window, ChildWindow& other, const EditWords& words);

// The styles of a window have gone a step back or forth: the window that shows the same ones goes along where the
// action didn't touch it, as when it opened later. One that has steps of its own is led by these. Gives the window that
// went along, null for none.
ChildWindow* FollowStyles(Application& app, ChildWindow& window, const EditAction& action);
// Shows where it went; it is changed where its file doesn't hold these styles.
void ShowFollowed(Application& app, ChildWindow& window);

// CurrentFileDir and CurrentFileName; `path` is without extension.
void SetCurrentFile(Application& app, const std::string& path);

// `path` with its extension.
void AddRecentFile(Application& app, const std::string& path, bool read_only);
// What mnuRecentFile(i) shows; empty for a free record.
std::string RecentCaption(const Application& app, int i);

// mnuStampaLista and mnuStampaTabella, and the kinds of window that have them.
bool PrintsList(int kind);
bool PrintsTable(int kind);
void PrintList(Application& app, const ChildWindow& window);
void PrintTable(Application& app, const ChildWindow& window);

// The first window number from 1 to 8 that is free, 0 when none is. And whether the open entries are enabled.
int FreeWindow(Application& app, int kind);
void RefreshOpenEntries(Application& app);

}  // namespace zentaline
