// Saving by the kind of the window, and the save dialog.
#include "arrangement/api.h"
#include "arrangement/arr_format.h"
#include "core/application.h"
#include "core/boxes.h"
#include "core/child_window.h"
#include "core/file_reading.h"
#include "core/main_window.h"
#include "core/window_image.h"
#include "data/message_codes.h"
#include "data/texts.h"
#include "files/api.h"
#include "files/dialogs.h"
#include "files/paths.h"
#include "program/api.h"
#include "program/prg_format.h"
#include "style/api.h"

namespace zentaline {

namespace {

constexpr std::string_view kUntitled = "Untitled";

// Filters of the save dialog, which count from 1. The first four are file types too.
enum SaveFilter : int { kSaveArr = 1, kSaveSty, kSavePrg, kSavePgg, kSaveGbl, kSaveAll };

constexpr std::string_view kSaveFilters =
    "Arrangements (*.arr)|*.arr| Styles (*.sty)|*.sty| Programs (*.prg)|*.prg| Programs (*.pgg)| *.pgg|"
    " Global (*.gbl)| *.gbl| All files (*.*)|*.*|";

// The kinds that are saved, by what they hold.
enum class Content { kArrangements, kPrograms, kStyles };

Content ContentOf(int kind) {
  switch (kind) {
    case kKindPrg:
    case kKindNewPrg:
    case kKindPcg:
      return Content::kPrograms;
    case kKindSty:
    case kKindNewSty:
      return Content::kStyles;
    default:
      return Content::kArrangements;
  }
}

// The type of the window's own file, which for programs follows from the records.
int OwnType(const Bytes& image) {
  switch (ContentOf(ByteAt(image, kKindPosition))) {
    case Content::kPrograms:
      return ByteAt(image, kPggPosition) == 0 ? kTypePrg : kTypePgg;
    case Content::kStyles:
      return kTypeSty;
    default:
      return kTypeArr;
  }
}

bool SaveContent(Application& app, Bytes& image) {
  switch (ContentOf(ByteAt(image, kKindPosition))) {
    case Content::kPrograms:
      return SavePrgFile(app, image);
    case Content::kStyles:
      return SaveStyFile(app, image);
    default:
      return SaveArrFile(app, image);
  }
}

ui::FileDialogRequest SaveRequest(const Application& app, const Bytes& image) {
  ui::FileDialogRequest request;
  request.save = true;
  request.title = GetText(app, kTextSaveAs);
  request.filters = ParseFilters(kSaveFilters);
  request.shows_read_only = false;
  request.filter = OwnType(image);
  request.default_extension = ExtensionOf(request.filter);
  const std::string ending = "." + request.default_extension;
  const bool is_new = ByteAt(image, kNeverSavedPosition) == 1;
  switch (ContentOf(ByteAt(image, kKindPosition))) {
    case Content::kPrograms:
      request.directory = is_new ? app.files.LastPrgDirectory : FileDirectory(WindowPath(image));
      request.name = std::string(is_new ? kUntitled : WindowBaseName(image)) + ending;
      break;
    case Content::kStyles:
      request.directory = app.files.LastArrDirectory;
      request.name = std::string(kUntitled) + ending;
      break;
    case Content::kArrangements:
      request.directory = app.files.LastArrDirectory;
      request.name = std::string(WindowPath(image)) + ending;
      break;
  }
  return request;
}

// The path without the extension of one of these types; any other ending belongs to the name.
std::string BasePath(const std::string& path, int type, int other_type) {
  const int found = FileType(path);
  return found == type || found == other_type ? WithoutExtension(path) : path;
}

bool OpenElsewhere(Application& app, const ChildWindow& window, const std::string& base) {
  const FileKind* kind = FileKindOf(window.Kind());
  const ChildWindow* other = kind == nullptr ? nullptr : WindowOf(app, *kind, base);
  return other != nullptr && other != &window;
}

// The window's file under another name, with all that belongs to it; on a failure the window keeps the old one.
bool SaveWholeAs(Application& app, ChildWindow& window, const std::string& base) {
  Bytes image = window.window_image();
  PutWindowPath(image, base);
  for (const std::size_t position : {kReadOnlyPosition, kNoFilePosition, kNeverSavedPosition})
    PutByte(image, position, 0);
  const bool arrangements = ContentOf(window.Kind()) == Content::kArrangements;
  if (arrangements && ByteAt(image, kStyStatePosition) == 2) PutByte(image, kStyChangedPosition, 1);
  if (!SaveContent(app, image)) return false;
  window.window_image() = std::move(image);
  window.TakePath(base);
  window.FileSaved();
  // An arrangement's slot keeps there whether it comes back read-only.
  if (const FileKind* kind = FileKindOf(window.Kind()); arrangements && kind != nullptr) {
    kind->slot(app, window.WindowNumber()).second = 0;
  }
  std::string& directory =
      ContentOf(window.Kind()) == Content::kPrograms ? app.files.LastPrgDirectory : app.files.LastArrDirectory;
  directory = FileDirectory(base);
  AddRecentFile(app, base + "." + std::string(ExtensionOf(OwnType(window.window_image()))), false);
  return true;
}

// The styles, or the programs, that are attached to an arrangement window, under a name of their own. The window stays
// as it is.
bool SavePart(Application& app, const Bytes& image, const std::string& base, int filter) {
  if (filter == kSaveSty) {
    Bytes copy = image;
    PutWindowPath(copy, base);
    return StyFileWrite(app, copy);
  }
  const int other = filter == kSavePgg ? kTypePrg : kTypePgg;
  const Bytes programs = Slice(image, kArrImageProgramPosition, kPrgFileLength);
  if (!WriteDataFile(app, base + "." + std::string(ExtensionOf(filter)), programs)) return false;
  // One name never stands in both formats.
  return RemoveDataFile(app, base + "." + std::string(ExtensionOf(other)));
}

bool HasPart(const Bytes& image, int filter) {
  if (ContentOf(ByteAt(image, kKindPosition)) != Content::kArrangements) return false;
  if (filter == kSaveSty) return ByteAt(image, kStyStatePosition) != 0;
  return (filter == kSavePrg || filter == kSavePgg) && ByteAt(image, kPrgAttachedPosition) == 1;
}

// Whether the filter that was left selected is the window's own file.
bool IsWhole(const Bytes& image, int filter) {
  const bool programs = ContentOf(ByteAt(image, kKindPosition)) == Content::kPrograms;
  return filter == kSaveAll || filter == OwnType(image) || (programs && (filter == kSavePrg || filter == kSavePgg));
}

}  // namespace

bool SaveFile(Application& app, ChildWindow& window) {
  if (ByteAt(window.window_image(), kNeverSavedPosition) == 1) return SaveFileAs(app, window);
  const bool saved = SaveContent(app, window.window_image());
  if (saved) {
    PutByte(window.window_image(), kNoFilePosition, 0);
    window.FileSaved();
  }
  if (app.main != nullptr) app.main->RefreshMenus();
  return saved;
}

bool SaveFileAs(Application& app, ChildWindow& window) {
  const Bytes& image = window.window_image();
  const ui::FileDialogAnswer answer = app.toolkit.FileDialog(SaveRequest(app, image));
  if (answer.cancelled || answer.path.empty()) return false;
  // The selected filter decides what is written.
  const bool whole = IsWhole(image, answer.filter);
  const int type = whole ? OwnType(image) : answer.filter;
  const bool programs = type == kTypePrg || type == kTypePgg;
  const std::string base = BasePath(answer.path, type, programs ? kTypePrg + kTypePgg - type : type);
  if (!CanKeep(base) || FileBaseName(base).empty() || (!whole && !HasPart(image, answer.filter))) {
    ShowNameNotValid(app, answer.path);
    return false;
  }
  if (!whole) {
    SavePart(app, image, base, answer.filter);
    // The window's own file isn't saved by that: it stays open, and changed.
    return false;
  }
  if (OpenElsewhere(app, window, base)) {
    ShowMessage(app, kMessageOpenAlready, ShownPath(FileBaseName(answer.path)), {});
    return false;
  }
  const bool saved = SaveWholeAs(app, window, base);
  if (app.main != nullptr) app.main->RefreshMenus();
  return saved;
}

bool SaveBeforeClosing(Application& app, ChildWindow& window) {
  const Bytes& image = window.window_image();
  switch (AskYesNoCancel(app, kAskFileSave, window.caption())) {
    case ui::BoxAnswer::kYes: {
      const bool has_file = ByteAt(image, kNoFilePosition) == 0 && ByteAt(image, kNeverSavedPosition) == 0;
      return has_file ? SaveFile(app, window) : SaveFileAs(app, window);
    }
    case ui::BoxAnswer::kNo:
      return true;
    default:
      return false;
  }
}

}  // namespace zentaline
