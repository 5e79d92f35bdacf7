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
#include "program/prg_format.h"
#include "style/api.h"

namespace zentaline {

namespace {

// Filters of the save dialog, which count from 1. The first four are file types too.
enum SaveFilter : int { kSaveArr = 1, kSaveSty, kSavePrg, kSavePgg, kSaveGbl, kSaveAll };

constexpr std::string_view kSaveFilters =
    "Arrangements (*.arr)|*.arr| Styles (*.sty)|*.sty| Programs (*.prg)|*.prg| Programs (*.pgg)| *.pgg|"
    " Global (*.gbl)| *.gbl| All files (*.*)|*.*|";

// Null for a window that isn't saved.
const FileKind* SavedKind(const ChildWindow& window) {
  const FileKind* kind = FileKindOf(window.Kind());
  return kind == nullptr || kind->saving == nullptr ? nullptr : kind;
}

ui::FileDialogRequest SaveRequest(const Application& app, const FileKind& kind, const ChildWindow& window) {
  const Bytes& image = window.window_image();
  const FileSaving& saving = *kind.saving;
  ui::FileDialogRequest request;
  request.save = true;
  request.title = GetText(app, kTextSaveAs);
  request.filters = ParseFilters(kSaveFilters);
  request.shows_read_only = false;
  request.filter = saving.type(image);
  request.default_extension = ExtensionOf(request.filter);
  const bool beside_file = saving.beside_file && !window.NeverSaved();
  request.directory = beside_file ? std::string(FileDirectory(WindowPath(image))) : app.files.*kind.place.directory;
  request.name = saving.name(window) + "." + request.default_extension;
  return request;
}

// The path without the extension of one of these types; any other ending belongs to the name.
std::string BasePath(const std::string& path, int type, int other_type) {
  const int found = FileType(path);
  return found == type || found == other_type ? WithoutExtension(path) : path;
}

bool OpenElsewhere(Application& app, const FileKind& kind, const ChildWindow& window, const std::string& base) {
  const ChildWindow* other = WindowOf(app, kind, base);
  return other != nullptr && other != &window;
}

// The window's file under another name, with all that belongs to it; on a failure the window keeps the old one.
bool SaveWholeAs(Application& app, const FileKind& kind, ChildWindow& window, const std::string& base) {
  const FileSaving& saving = *kind.saving;
  Bytes image = window.window_image();
  PutWindowPath(image, base);
  for (const std::size_t position : {kReadOnlyPosition, kNoFilePosition, kNeverSavedPosition})
    PutByte(image, position, 0);
  if (ByteAt(image, kKindPosition) == kind.unnamed_kind) PutByte(image, kKindPosition, kind.kind);
  if (saving.has_parts && ByteAt(image, kStyStatePosition) == 2) PutByte(image, kStyChangedPosition, 1);
  if (!saving.save(app, image)) return false;
  app.edits.TakeSaved(window, std::move(image), true);
  window.TakePath(base);
  window.FileSaved();
  // A file of one's own comes back so that it can be written; windows of new files have slots of their own.
  if (kind.slot_keeps_read_only && window.Kind() == kind.kind) kind.slot(app, window.WindowNumber()).second = 0;
  app.files.*kind.place.directory = FileDirectory(base);
  AddRecentFile(app, base + "." + std::string(ExtensionOf(saving.type(window.window_image()))), false);
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

// Whether styles would be written that stand in another window, or a file of them taken away.
bool StylesTaken(const Application& app, const FileSaving& saving, const ChildWindow& window, const std::string& base,
                 bool whole, int type) {
  const bool with_arrangements = whole && saving.has_parts && ByteAt(window.window_image(), kStyStatePosition) != 0;
  return (type == kTypeSty || with_arrangements) && StylesOpenElsewhere(app, window, base);
}

bool HasPart(const FileSaving& saving, const Bytes& image, int filter) {
  if (!saving.has_parts) return false;
  if (filter == kSaveSty) return ByteAt(image, kStyStatePosition) != 0;
  return (filter == kSavePrg || filter == kSavePgg) && ByteAt(image, kPrgAttachedPosition) == 1;
}

// Whether the filter that was left selected is the window's own file.
bool IsWhole(int own_type, int filter) {
  const bool programs = own_type == kTypePrg || own_type == kTypePgg;
  return filter == kSaveAll || filter == own_type || (programs && (filter == kSavePrg || filter == kSavePgg));
}

}  // namespace

bool SaveFile(Application& app, ChildWindow& window) {
  const FileKind* kind = SavedKind(window);
  if (kind == nullptr) return false;
  // The path of a window without a file of its own is another file's.
  if (!window.HasOwnPath()) return SaveFileAs(app, window);
  if (kind->saving->keeps_read_only && window.ReadOnly()) {
    ShowMessage(app, kMessageReadOnlyFile, ShownPath(window.BaseName()), {});
    return false;
  }
  Bytes image = window.window_image();
  const bool saved = kind->saving->save(app, image);
  app.edits.TakeSaved(window, std::move(image), saved);
  if (saved) window.FileSaved();
  if (app.main != nullptr) app.main->RefreshMenus();
  return saved;
}

bool SaveFileAs(Application& app, ChildWindow& window) {
  const Bytes& image = window.window_image();
  const FileKind* kind = SavedKind(window);
  if (kind == nullptr) return false;
  const FileSaving& saving = *kind->saving;
  const ui::FileDialogAnswer answer = AskForFile(app, SaveRequest(app, *kind, window));
  if (answer.cancelled || answer.path.empty()) return false;
  // The selected filter decides what is written.
  const bool whole = IsWhole(saving.type(image), answer.filter);
  const int type = whole ? saving.type(image) : answer.filter;
  const bool programs = type == kTypePrg || type == kTypePgg;
  const std::string base = BasePath(answer.path, type, programs ? kTypePrg + kTypePgg - type : type);
  if (!CanKeep(base) || FileBaseName(base).empty() || (!whole && !HasPart(saving, image, answer.filter))) {
    ShowNameNotValid(app, answer.path);
    return false;
  }
  if (StylesTaken(app, saving, window, base, whole, type)) {
    ShowMessage(app, kMessageOpenAlready, ShownPath(FileBaseName(base + ".sty")), {});
    return false;
  }
  if (!whole) {
    SavePart(app, image, base, answer.filter);
    // The window's own file isn't saved by that: it stays open, and changed.
    return false;
  }
  if (OpenElsewhere(app, *kind, window, base)) {
    ShowMessage(app, kMessageOpenAlready, ShownPath(FileBaseName(answer.path)), {});
    return false;
  }
  const bool saved = SaveWholeAs(app, *kind, window, base);
  if (saved) GiveStylesToArrangements(app, window);
  if (app.main != nullptr) app.main->RefreshMenus();
  return saved;
}

bool SaveBeforeClosing(Application& app, ChildWindow& window) {
  switch (AskYesNoCancel(app, kAskFileSave, window.caption())) {
    case ui::BoxAnswer::kYes:
      return SaveFile(app, window);
    case ui::BoxAnswer::kNo:
      return true;
    default:
      return false;
  }
}

}  // namespace zentaline
