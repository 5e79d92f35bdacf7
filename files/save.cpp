// Saving by the kind of the window, and the save dialog.
#include "arrangement/api.h"
#include "arrangement/arr_format.h"
#include "core/application.h"
#include "core/boxes.h"
#include "core/child_window.h"
#include "core/file_reading.h"
#include "core/frmMain.h"
#include "core/window_image.h"
#include "files/api.h"
#include "files/dialogs.h"
#include "files/paths.h"
#include "program/prg_format.h"
#include "style/api.h"

namespace zentaline {

namespace {

constexpr int kTextSaveAs = 75;
constexpr int kMessageOpenAlready = 16;
constexpr int kTypePrg = 3;
constexpr int kTypePgg = 4;

// Filters of the save dialog, which count from 1. The first four are file types too.
enum SaveFilter : int { kSaveArr = 1, kSaveSty, kSavePrg, kSavePgg, kSaveGbl, kSaveAll };

constexpr std::string_view kSaveFilters =
    "Arrangements (*.arr)|*.arr| Styles (*.sty)|*.sty| Programs (*.prg)|*.prg| Programs (*.pgg)| *.pgg|"
    " Global (*.gbl)| *.gbl| All files (*.*)|*.*|";

// The path without the extension of this type; any other ending belongs to the name.
std::string BasePath(const std::string& path, int type) {
  return FileType(path) == type ? WithoutExtension(path) : path;
}

bool OpenElsewhere(const Application& app, const ChildWindow& window, const std::string& path) {
  for (std::size_t i = 1; i <= kFileWindows; ++i) {
    if (app.arr_windows[i] != nullptr && app.arr_windows[i] != &window && app.core.ArrWindows[i].path == path)
      return true;
  }
  return false;
}

// The window's file under another name, with all its styles; on a failure the window keeps the old one.
bool SaveArrAs(Application& app, ChildWindow& window, const std::string& base) {
  Bytes image = window.window_image();
  PutWindowPath(image, base);
  PutByte(image, kReadOnlyPosition, 0);
  PutByte(image, kNoFilePosition, 0);
  if (ByteAt(image, kStyStatePosition) == 2) PutByte(image, kStyChangedPosition, 1);
  if (!SaveArrFile(app, image)) return false;
  window.window_image() = std::move(image);
  const auto slot = static_cast<std::size_t>(window.WindowNumber());
  app.core.ArrWindows[slot].path = base;
  app.core.ArrWindows[slot].second = 0;
  app.files.LastArrDirectory = FileDirectory(base);
  app.files.LastArrName = FileBaseName(base);
  window.ShowName();
  AddRecentFile(app, base + ".arr", false);
  return true;
}

// The styles, or the programs, that are attached to the window, under a name of their own. The window stays as it is.
bool SavePart(Application& app, const Bytes& image, const std::string& base, int filter) {
  if (filter == kSaveSty) {
    Bytes copy = image;
    PutWindowPath(copy, base);
    return StyFileWrite(app, copy);
  }
  const bool pgg = filter == kSavePgg;
  const std::string_view extension = ExtensionOf(pgg ? kTypePgg : kTypePrg);
  const std::string_view other = ExtensionOf(pgg ? kTypePrg : kTypePgg);
  const Bytes programs = Slice(image, kArrImageProgramPosition, kPrgFileLength);
  if (!WriteDataFile(app, base + "." + std::string(extension), programs)) return false;
  // One name never stands in both formats.
  app.disk.Remove(base + "." + std::string(other));
  return true;
}

bool HasPart(const Bytes& image, int filter) {
  if (filter == kSaveSty) return ByteAt(image, kStyStatePosition) != 0;
  return (filter == kSavePrg || filter == kSavePgg) && ByteAt(image, kPrgAttachedPosition) == 1;
}

}  // namespace

bool SaveFile(Application& app, ChildWindow& window) {
  if (ByteAt(window.window_image(), kNeverSavedPosition) == 1) return SaveFileAs(app, window);
  const bool saved = SaveArrFile(app, window.window_image());
  if (saved) PutByte(window.window_image(), kNoFilePosition, 0);
  if (app.main != nullptr) app.main->RefreshMenus();
  return saved;
}

bool SaveFileAs(Application& app, ChildWindow& window) {
  const Bytes& image = window.window_image();
  ui::FileDialogRequest request;
  request.save = true;
  request.title = GetText(app, kTextSaveAs);
  request.filters = ParseFilters(kSaveFilters);
  request.filter = kSaveArr;
  request.directory = app.files.LastArrDirectory;
  request.default_extension = "arr";
  request.name = std::string(WindowPath(image)) + ".arr";
  request.shows_read_only = false;
  const ui::FileDialogAnswer answer = app.toolkit.FileDialog(request);
  if (answer.cancelled || answer.path.empty()) return false;
  // The selected filter decides what is written.
  const bool whole = answer.filter == kSaveArr || answer.filter == kSaveAll;
  const std::string base = BasePath(answer.path, whole ? static_cast<int>(kSaveArr) : answer.filter);
  if (base.size() > kLongestPath || (!whole && !HasPart(image, answer.filter))) {
    ShowNameNotValid(app, answer.path);
    return false;
  }
  if (!whole) return SavePart(app, image, base, answer.filter);
  if (OpenElsewhere(app, window, base)) {
    ShowMessage(app, kMessageOpenAlready, ShownPath(FileBaseName(answer.path)), {});
    return false;
  }
  const bool saved = SaveArrAs(app, window, base);
  if (app.main != nullptr) app.main->RefreshMenus();
  return saved;
}

}  // namespace zentaline
