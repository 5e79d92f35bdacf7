// From a file that the user names to its window.
#include "arrangement/arr_format.h"
#include "core/application.h"
#include "core/boxes.h"
#include "core/child_window.h"
#include "core/main_window.h"
#include "core/window_image.h"
#include "files/api.h"
#include "files/dialogs.h"
#include "files/paths.h"

namespace zentaline {

namespace {

constexpr int kMessageOpenAlready = 16;
constexpr int kMessageFileNotFound = 27;
constexpr int kTypePrg = 3;
constexpr int kTypePgg = 4;

void ShowNamed(Application& app, int code, const std::string& path) {
  ShowMessage(app, code, ShownPath(FileBaseName(path)), {});
}

const FileKind* KindOfType(int type) {
  for (const FileKind& row : FileKinds()) {
    if (row.type == (type == kTypePgg ? kTypePrg : type)) return &row;
  }
  return nullptr;
}

// What the buffer holds gets its window, and its place among the recent files.
void ShowChosen(Application& app, const FileKind& kind, int number, const std::string& path, bool read_only) {
  kind.slot(app, number).state = 1;
  kind.open(app, number, JoinPath(app.files.CurrentFileDir, app.files.CurrentFileName), read_only);
  RefreshOpenEntries(app);
  AddRecentFile(app, path, read_only);
}

// A path that is known already, so no dialog is shown.
void OpenKnown(Application& app, const FileKind& kind, const std::string& path, bool read_only) {
  const int number = FreeWindow(app, kind.kind);
  if (number == 0 || !PathFits(app, path)) return;
  switch (ReadByFilter(app, kind.kind, kind.filter, path)) {
    case kChosen:
      RememberPlace(app, kind.filter, path);
      return ShowChosen(app, kind, number, path, read_only);
    case kChooseOpenAlready:
      return ShowNamed(app, kMessageOpenAlready, path);
    case kChooseEmpty:
      return ShowMessage(app, kMessageFileNotFound, app.core.OperationTitle, {});
    case kChooseFailed:
      return;
  }
}

}  // namespace

void OpenFile(Application& app, int kind) {
  const FileKind* row = FileKindOf(kind);
  const int number = FreeWindow(app, kind);
  if (number == 0) return;
  const ChooseResult result = OpenChooser(app, kind);
  const std::string path = app.files.ChosenPath;
  if (result == kChosen) return ShowChosen(app, *row, number, path, app.files.ReadOnlyAnswer);
  if (result == kChooseOpenAlready) return ShowNamed(app, kMessageOpenAlready, path);
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
  std::string path = recent.path + "." + std::string(ExtensionOf(recent.type));
  // Only programs may be found under the other extension, since a bank changes its own with what it holds.
  if (kind->type == kTypePrg && !app.disk.Exists(path)) {
    const std::string other = recent.path + "." + std::string(ExtensionOf(kTypePrg + kTypePgg - recent.type));
    if (app.disk.Exists(other)) path = other;
  }
  OpenKnown(app, *kind, path, recent.read_only);
}

bool CanOpenRecent(const Application& app, int i) {
  return KindOfType(app.core.RecentFiles[static_cast<std::size_t>(i)].type) != nullptr;
}

void ShowFile(Application& app, int kind, const std::string& path, bool read_only) {
  const FileKind* row = FileKindOf(kind);
  if (row == nullptr) return;
  const std::string base = WithoutExtension(path);
  for (int number = 1; number <= kFileWindows; ++number) {
    ChildWindow* window = row->window(app, number);
    if (window != nullptr && row->slot(app, number).path == base) return app.toolkit.Activate(*window);
  }
  OpenKnown(app, *row, path, read_only);
}

void OpenInstrumentFile(Application& app, int kind) {
  const FileKind* row = FileKindOf(kind);
  WindowRecord& slot = row->slot(app, kInstrumentWindow);
  const std::string path = slot.path + "." + std::string(ExtensionOf(slot.pgg == 1 ? kTypePgg : row->type));
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
  const std::string path = record.path + "." + std::string(ExtensionOf(record.pgg == 1 ? kTypePgg : row->type));
  if (app.disk.Exists(path) && row->read(app, path) == kChosen) {
    row->open(app, number, record.path, record.second == 1);
  } else {
    row->slot(app, number) = {};
  }
}

}  // namespace zentaline
