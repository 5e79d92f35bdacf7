// From a file that the user names to its window.
#include "arrangement/arr_format.h"
#include "core/application.h"
#include "core/boxes.h"
#include "core/child_window.h"
#include "core/file_reading.h"
#include "core/main_window.h"
#include "core/window_image.h"
#include "data/message_codes.h"
#include "files/api.h"
#include "files/dialogs.h"
#include "files/paths.h"
#include "program/api.h"
#include "program/prg_format.h"

namespace zentaline {

namespace {

void ShowNamed(Application& app, int code, const std::string& path) {
  ShowMessage(app, code, ShownPath(FileBaseName(path)), {});
}

const FileKind* KindOfType(int type) {
  for (const FileKind& row : FileKinds()) {
    if (row.type == (type == kTypePgg ? kTypePrg : type)) return &row;
  }
  return nullptr;
}

// The path with the extension of its type. Only programs may be found under the other extension, since a bank changes
// its own with what it holds.
std::string FoundPath(Application& app, const std::string& base, int type) {
  std::string path = PathOnDisk(app.disk, base + "." + std::string(ExtensionOf(type)));
  if ((type != kTypePrg && type != kTypePgg) || app.disk.Exists(path)) return path;
  const std::string other = PathOnDisk(app.disk, base + "." + std::string(ExtensionOf(kTypePrg + kTypePgg - type)));
  return app.disk.Exists(other) ? other : path;
}

std::string FoundPath(Application& app, const FileKind& kind, const WindowRecord& slot) {
  return FoundPath(app, slot.path, slot.pgg == 1 ? kTypePgg : kind.type);
}

// A setting that no menu entry changes brings the program file of an arrangement file along, unless it is open or there
// is no room for it. The arrangements stay in front.
void OpenSiblingPrograms(Application& app, ChildWindow& arrangements, const std::string& base, bool read_only) {
  const bool exists = app.disk.Exists(base + ".prg") || app.disk.Exists(base + ".pgg");
  if (!exists || WindowOf(app, *FileKindOf(kKindPrg), base) != nullptr) return;
  ShowProgramFile(app, base, read_only);
  app.toolkit.BringForward(arrangements);
}

// What the buffer holds gets its window, and its place among the recent files.
void ShowChosen(Application& app, const FileKind& kind, int number, const std::string& path, bool read_only) {
  // The window's image takes the state of a slot that has kept none yet.
  kind.slot(app, number).state = 0;
  const std::string base = JoinPath(app.files.CurrentFileDir, app.files.CurrentFileName);
  kind.open(app, number, base, read_only);
  kind.slot(app, number).state = 1;
  RefreshOpenEntries(app);
  AddRecentFile(app, path, read_only);
  if (kind.kind == kKindArr && app.core.settings.OpenPrgWithArr) {
    OpenSiblingPrograms(app, *kind.window(app, number), base, read_only);
  }
}

// The box, and then the window that shows the file. A dialog can have chosen a file of another kind than its own.
void ShowOpenAlready(Application& app, const FileKind& wanted, const std::string& path) {
  ShowNamed(app, kMessageOpenAlready, path);
  const FileKind* by_name = KindOfType(FileType(path));
  const FileKind& kind = by_name == nullptr ? wanted : *by_name;
  if (ChildWindow* window = WindowOf(app, kind, WithoutExtension(path))) app.toolkit.Activate(*window);
}

// A path that is known already, so no dialog is shown.
void OpenKnown(Application& app, const FileKind& kind, const std::string& path, bool read_only) {
  switch (OpenInWindow(app, kind.kind, path, read_only)) {
    case kChooseOpenAlready:
      return ShowOpenAlready(app, kind, path);
    case kChooseEmpty:
      return ShowMessage(app, kMessageFileNotFound, app.core.OperationTitle, {});
    default:
      return;
  }
}

}  // namespace

ChooseResult OpenInWindow(Application& app, int kind, const std::string& path, bool read_only) {
  const FileKind& row = *FileKindOf(kind);
  const int number = FreeWindow(app, kind);
  if (number == 0) return WindowOf(app, row, WithoutExtension(path)) == nullptr ? kChooseFailed : kChooseOpenAlready;
  if (!PathFits(app, path)) return kChooseFailed;
  const ChooseResult result = ReadByFilter(app, row.kind, row.filter, path);
  if (result != kChosen) return result;
  RememberPlace(app, row.filter, path);
  ShowChosen(app, row, number, path, read_only);
  return kChosen;
}

void OpenFile(Application& app, int kind) {
  const FileKind* row = FileKindOf(kind);
  const int number = FreeWindow(app, kind);
  if (number == 0) return;
  const ChooseResult result = OpenChooser(app, kind);
  const std::string path = app.files.ChosenPath;
  if (result == kChosen) {
    ShowChosen(app, *row, number, path, app.files.ReadOnlyAnswer);
    // What another file left in the buffer must not be saved over this one.
    if (ChildWindow* window = row->window(app, number); window != nullptr && !app.files.ChosenIsRead) {
      app.edits.SetAside(*window, kNoFilePosition, kMustSaveAs);
    }
    return;
  }
  if (result == kChooseOpenAlready) return ShowOpenAlready(app, *row, path);
  if (result == kChooseEmpty) return ShowNamed(app, kMessageFileNotFound, path);
}

void OpenPath(Application& app, const std::string& path) {
  if (const FileKind* kind = KindOfType(FileType(path))) {
    OpenKnown(app, *kind, path, app.core.settings.RdOnly);
  } else {
    RefuseData(app, path);
  }
}

void OpenRecentFile(Application& app, int i) {
  const RecentFile recent = app.core.RecentFiles[static_cast<std::size_t>(i)];
  const FileKind* kind = KindOfType(recent.type);
  if (kind == nullptr) return;
  OpenKnown(app, *kind, FoundPath(app, recent.path, recent.type), recent.read_only);
}

bool CanOpenRecent(const Application& app, int i) {
  return KindOfType(app.core.RecentFiles[static_cast<std::size_t>(i)].type) != nullptr;
}

void ShowFile(Application& app, int kind, const std::string& path, bool read_only) {
  const FileKind* row = FileKindOf(kind);
  if (row == nullptr) return;
  if (ChildWindow* window = WindowOf(app, *row, WithoutExtension(path))) return app.toolkit.Activate(*window);
  OpenKnown(app, *row, path, read_only);
}

void ShowProgramFile(Application& app, const std::string& base, bool read_only) {
  const FileKind& kind = *FileKindOf(kKindPrg);
  if (ChildWindow* window = WindowOf(app, kind, base)) return app.toolkit.Activate(*window);
  const int number = FreeWindow(app, kKindPrg);
  if (number == 0) return;
  const int result = ReadProgramByName(app, base);
  const std::string path = base + "." + app.program.ProgramExtension;
  if (result == kPrgAbsent) return ShowNamed(app, kMessageFileNotFound, path);
  if (result != kPrgGood && result != kPggGood) return;
  RememberPlace(app, kind.filter, path);
  ShowChosen(app, kind, number, path, read_only);
}

void OpenInstrumentFile(Application& app, int kind) {
  const FileKind* row = FileKindOf(kind);
  WindowRecord& slot = row->slot(app, kInstrumentWindow);
  const std::string path = FoundPath(app, *row, slot);
  switch (row->read(app, path)) {
    case kChosen:
      slot.state = 1;
      return row->open(app, kInstrumentWindow, slot.path, app.core.settings.RdOnly);
    case kChooseEmpty:
      return ShowNamed(app, kMessageFileNotFound, path);
    default:
      return;
  }
}

void InstrumentTakes(Application& app, int kind, const std::string& path, bool pgg) {
  const FileKind* row = FileKindOf(kind);
  ChildWindow* window = row->window(app, kInstrumentWindow);
  // A window that would rather keep its changes stays as it is.
  if (window != nullptr && !window->Close()) return;
  WindowRecord& slot = row->slot(app, kInstrumentWindow);
  slot.path = path;
  slot.pgg = pgg ? 1 : 0;
  if (window == nullptr) return;
  ui::Form* front = app.toolkit.active_child();
  OpenInstrumentFile(app, kind);
  if (front != nullptr) app.toolkit.BringForward(*front);
}

void ReopenWindow(Application& app, int kind, int entry) {
  const FileKind* row = FileKindOf(kind);
  if (row == nullptr) return;
  const WindowRecord record = row->slot(app, entry);
  if (record.state == 0) return;
  int number = entry;
  if (entry != kInstrumentWindow) {
    row->slot(app, entry) = {};
    number = FreeWindow(app, kind);
    row->slot(app, number) = record;
  }
  const std::string path = FoundPath(app, *row, record);
  if (app.disk.Exists(path) && row->read(app, path) == kChosen) {
    // What programs keep there is their kind of window; they come back as files open now.
    const bool read_only = row->slot_keeps_read_only ? record.second == 1 : app.core.settings.RdOnly;
    row->open(app, number, record.path, read_only);
  } else {
    row->slot(app, number) = {};
  }
}

}  // namespace zentaline
