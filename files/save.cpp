// Saving by the kind of the window, and the save dialog.
#include <functional>

#include "arrangement/arr_format.h"
#include "core/application.h"
#include "core/boxes.h"
#include "core/child_window.h"
#include "core/file_reading.h"
#include "core/file_set.h"
#include "core/main_window.h"
#include "core/window_image.h"
#include "data/message_codes.h"
#include "data/texts.h"
#include "files/api.h"
#include "files/dialogs.h"
#include "files/paths.h"
#include "program/api.h"
#include "program/prg_format.h"
#include "style/sty_format.h"

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

// Writes the files of the image, and more, which then is as saving has left it; untouched when they weren't written.
FileSet::Saved SaveSet(Application& app, const FileSaving& saving, FileSet& set, Bytes& image,
                       const std::function<void()>& put_more = {}) {
  Bytes copy = image;
  saving.put(app, copy, set);
  if (put_more) put_more();
  const FileSet::Saved saved = set.Save(app);
  if (!saved.written) return saved;
  saving.saved(copy, saved.whole);
  image = std::move(copy);
  return saved;
}

// The image as it goes under another name.
Bytes ImageUnderName(const FileKind& kind, const ChildWindow& window, const std::string& base) {
  Bytes image = window.window_image();
  PutWindowPath(image, base);
  for (const std::size_t position : {kReadOnlyPosition, kNoFilePosition, kNeverSavedPosition})
    PutByte(image, position, 0);
  if (ByteAt(image, kKindPosition) == kind.unnamed_kind) PutByte(image, kKindPosition, kind.kind);
  if (kind.saving->has_parts && ByteAt(image, kStyStatePosition) == 2) PutByte(image, kStyChangedPosition, 1);
  return image;
}

bool HasPrograms(const FileSaving& saving, const Bytes& image) {
  return saving.has_parts && ByteAt(image, kPrgAttachedPosition) == 1;
}

// An empty file counts as absent.
bool Stands(Application& app, const std::string& path) {
  const std::string there = PathOnDisk(app.disk, path);
  FileMark mark;
  if (app.disk.Look(there, mark) != DiskResult::kOk) return app.disk.Exists(there);
  return mark.there && mark.length > 0;
}

bool ProgramsStand(Application& app, const std::string& base) {
  return Stands(app, base + ".prg") || Stands(app, base + ".pgg");
}

// The programs of arrangements go under the new name too, unless others stand there already.
void PutPrograms(Application& app, const FileSaving& saving, const Bytes& image, const std::string& base,
                 FileSet& set) {
  if (!HasPrograms(saving, image) || ProgramsStand(app, base)) return;
  const bool pgg = ByteAt(image, kPggPosition) == 1;
  set.WriteBeside(base + (pgg ? ".pgg" : ".prg"), Slice(image, kArrImageProgramPosition, kPrgFileLength));
  set.Remove(base + (pgg ? ".prg" : ".pgg"));  // an empty one
}

// Programs that stood under the new name already are the window's from now on, as if it had been opened there.
void TakePrograms(Application& app, Bytes& image, const std::string& base) {
  PutByte(image, kPrgAttachedPosition, 0);
  for (const bool pgg : {false, true}) {
    if (ReadProgramFile(app, base + (pgg ? ".pgg" : ".prg")) != kPrgGood) continue;
    return AttachPrograms(image, app.program.ProgramFileBuffer, pgg);
  }
}

// The window's file under another name, with all that belongs to it; on a failure the window keeps the old one.
bool SaveWholeAs(Application& app, const FileKind& kind, ChildWindow& window, const std::string& base) {
  const FileSaving& saving = *kind.saving;
  Bytes image = ImageUnderName(kind, window, base);
  const bool takes_programs = HasPrograms(saving, image) && ProgramsStand(app, base);
  FileSet set(app.disk, true);
  if (!SaveSet(app, saving, set, image, [&] { PutPrograms(app, saving, image, base, set); }).whole) {
    return false;
  }
  if (takes_programs) TakePrograms(app, image, base);
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
void PutPart(const Bytes& image, const std::string& base, int filter, FileSet& set) {
  if (filter == kSaveSty) {
    Bytes copy = image;
    return set.Write(base + ".sty", StyFileBytes(copy));
  }
  const int other = filter == kSavePgg ? kTypePrg : kTypePgg;
  set.Write(base + "." + std::string(ExtensionOf(filter)), Slice(image, kArrImageProgramPosition, kPrgFileLength));
  // One name never stands in both formats.
  set.Remove(base + "." + std::string(ExtensionOf(other)));
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
  return (filter == kSavePrg || filter == kSavePgg) && HasPrograms(saving, image);
}

// Whether the filter that was left selected is the window's own file.
bool IsWhole(int own_type, int filter) {
  const bool programs = own_type == kTypePrg || own_type == kTypePgg;
  return filter == kSaveAll || filter == own_type || (programs && (filter == kSavePrg || filter == kSavePgg));
}

// What the answer of the save dialog means; the selected filter decides what is written.
struct SaveAnswer {
  bool whole;
  int type;  // of the file that is written
  std::string base;
};
SaveAnswer AnswerOf(const FileSaving& saving, const Bytes& image, const std::string& path, int filter) {
  const bool whole = IsWhole(saving.type(image), filter);
  const int type = whole ? saving.type(image) : filter;
  const bool programs = type == kTypePrg || type == kTypePgg;
  return {whole, type, BasePath(path, type, programs ? kTypePrg + kTypePgg - type : type)};
}

// The files that an answer would replace or remove beside the one that it names.
std::vector<std::string> AlsoTouched(Application& app, const FileKind& kind, const ChildWindow& window,
                                     const std::string& path, int filter) {
  const FileSaving& saving = *kind.saving;
  const SaveAnswer answer = AnswerOf(saving, window.window_image(), path, filter);
  if (!CanKeep(answer.base) || FileBaseName(answer.base).empty()) return {};
  FileSet set(app.disk, true);
  if (answer.whole) {
    Bytes image = ImageUnderName(kind, window, answer.base);
    saving.put(app, image, set);
  } else if (HasPart(saving, window.window_image(), filter)) {
    PutPart(window.window_image(), answer.base, filter, set);
  }
  return set.Touched();
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
  FileSet set(app.disk);
  const FileSet::Saved saved = SaveSet(app, *kind->saving, set, image);
  // A save that has left every file as it was counts as none.
  if (saved.touched) app.edits.TakeSaved(window, std::move(image), saved.whole);
  if (saved.whole) window.FileSaved();
  if (app.main != nullptr) app.main->RefreshMenus();
  return saved.whole;
}

bool SaveFileAs(Application& app, ChildWindow& window) {
  const Bytes& image = window.window_image();
  const FileKind* kind = SavedKind(window);
  if (kind == nullptr) return false;
  const FileSaving& saving = *kind->saving;
  ui::FileDialogRequest request = SaveRequest(app, *kind, window);
  request.also_touched = [&](const std::string& path, int filter) {
    return AlsoTouched(app, *kind, window, path, filter);
  };
  const ui::FileDialogAnswer answer = AskForFile(app, request);
  if (answer.cancelled || answer.path.empty()) return false;
  const auto [whole, type, base] = AnswerOf(saving, image, answer.path, answer.filter);
  if (!CanKeep(base) || FileBaseName(base).empty() || (!whole && !HasPart(saving, image, answer.filter))) {
    ShowNameNotValid(app, answer.path);
    return false;
  }
  if (StylesTaken(app, saving, window, base, whole, type)) {
    ShowMessage(app, kMessageOpenAlready, ShownPath(FileBaseName(base + ".sty")), {});
    return false;
  }
  if (!whole) {
    FileSet set(app.disk, true);
    PutPart(image, base, answer.filter, set);
    set.Save(app);
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
