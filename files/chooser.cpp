// The open dialog, and the readers of its filters.
#include "core/application.h"
#include "core/boxes.h"
#include "core/file_reading.h"
#include "core/window_image.h"
#include "data/message_codes.h"
#include "data/texts.h"
#include "files/api.h"
#include "files/dialogs.h"
#include "files/paths.h"

namespace zentaline {

namespace {

constexpr std::string_view kOpenFilters =
    "Arrangements (*.arr)|*.arr|Style (*.sty)|*.sty|Programs (*.prg/pgg)|*.prg;*.pgg|Global (*.gbl)|*.gbl|"
    "Backing Sequence (*.bsq)|*.bsq|Programs (*.pcg)|*.pcg| All files (*.*)|*.*|";

bool HasExtension(const std::string& path, std::string_view extension) {
  return LowerCase(path).ends_with("." + std::string(extension));
}

bool OpenAlready(Application& app, const FileKind& kind, const std::string& base) {
  for (int number = 1; number <= kind.windows; ++number) {
    const WindowRecord& slot = kind.slot(app, number);
    if (slot.state != 0 && slot.path == base) return true;
  }
  return WindowOf(app, kind, base) != nullptr;
}

ChooseResult ReadUnlessOpen(Application& app, const FileKind& kind, const std::string& path) {
  if (OpenAlready(app, kind, WithoutExtension(path))) return kChooseOpenAlready;
  return kind.read(app, path);
}

// Whether the filter that was left selected reads for this kind.
bool ReadsFor(int kind, int filter, const std::string& path) {
  const FileKind* row = FileKindOf(kind);
  if (row == nullptr) return true;
  return row->filter == filter || (filter == kFilterAll && row->filter == kFilterArr && HasExtension(path, "arr"));
}

// The reader of arrangement files: the import's that runs, or the kind's own; null for a kind that has none.
ChooseResult (*ArrReader(const Application& app, int kind))(Application& app, const std::string& path) {
  if (app.files.OldFormatWanted == OldFormat::kArr) return ReadOldArr;
  return kind == kKindI30Arr ? ReadI30Arr : nullptr;
}

int PresetFilter(int kind, OldFormat wanted) {
  if (wanted == OldFormat::kPrg && kind == kKindPrg) return kFilterPcg;
  switch (kind) {
    case kKindArrA:
    case kKindArrB:
    case kKindArr:
    case kKindI30Arr:
      return kFilterArr;
    case kKindPrg:
    case kKindI30Prg:
      return kFilterPrg;
    case kKindSty:
    case kKindI30Sty:
      return kFilterSty;
    case kKindGbl:
      return kFilterGbl;
    case kKindBsq:
      return kFilterBsq;
    case kKindPcg:
      return kFilterPcg;
    default:
      return kFilterAll;
  }
}

// What the dialog remembers by its filter; null where it remembers nothing.
const LastPlace* PlaceOf(int filter) {
  const int like = filter == kFilterPcg ? static_cast<int>(kFilterPrg) : filter;
  for (const FileKind& row : FileKinds()) {
    if (row.filter == like) return &row.place;
  }
  return nullptr;
}

// The filter's own directory; where it isn't set, or the filter has none, that of arrangements, and theirs is that of
// programs.
const std::string& PresetDirectory(const FilesState& files, int filter) {
  const LastPlace* place = PlaceOf(filter);
  const std::string& own = place == nullptr ? files.LastArrDirectory : files.*place->directory;
  if (!own.empty()) return own;
  return &own == &files.LastArrDirectory ? files.LastPrgDirectory : files.LastArrDirectory;
}

}  // namespace

ChooseResult ReaderResult(int result) {
  return result == kFileRead ? kChosen : result == kFileAbsent ? kChooseEmpty : kChooseFailed;
}

ChooseResult RefuseData(Application& app, const std::string& path) {
  app.core.OperationTitle = ShownPath(FileBaseName(path));
  ShowMessage(app, kMessageDataFormat, app.core.OperationTitle, {});
  return kChooseFailed;
}

void SetCurrentFile(Application& app, const std::string& path) {
  app.files.CurrentFileDir = FileDirectory(path);
  app.files.CurrentFileName = FileBaseName(path);
}

void RememberPlace(Application& app, int filter, const std::string& path) {
  FilesState& files = app.files;
  SetCurrentFile(app, WithoutExtension(path));
  if (const LastPlace* place = PlaceOf(filter)) {
    files.*place->directory = files.CurrentFileDir;
    files.*place->name = files.CurrentFileName;
  }
}

// The reader that the selected filter has for this kind. Where it has none, nothing is read, and that is success. The
// caller isn't told of another filter than its own: its window then opens on what its own buffer holds, and that is
// kept so.
ChooseResult ReadByFilter(Application& app, int kind, int filter, const std::string& path) {
  const std::string base = WithoutExtension(path);
  const FileKind* own = FileKindOf(kind);
  const bool is_own = own != nullptr && own->filter == filter;
  switch (filter) {
    case kFilterArr: {
      const auto import = ArrReader(app, kind);
      if (import == nullptr && is_own) return ReadUnlessOpen(app, *own, path);
      if (OpenAlready(app, *FileKindOf(kKindArr), base)) return kChooseOpenAlready;
      return import == nullptr ? kChosen : import(app, path);
    }
    case kFilterSty:
      return is_own ? ReadUnlessOpen(app, *own, path) : kChosen;
    case kFilterPrg:
      if (!HasExtension(path, "prg") && !HasExtension(path, "pgg")) return RefuseData(app, path);
      if (is_own) return ReadUnlessOpen(app, *own, path);
      return OpenAlready(app, *FileKindOf(kKindPrg), base) ? kChooseOpenAlready : ReadI30Prg(app, path);
    case kFilterGbl:
      if (!HasExtension(path, "gbl")) return RefuseData(app, path);
      return ReadUnlessOpen(app, *FileKindOf(kKindGbl), path);
    case kFilterBsq:
      return ReadUnlessOpen(app, *FileKindOf(kKindBsq), path);
    case kFilterPcg:
      return HasExtension(path, "pcg") ? ReadOldPrg(app, path) : RefuseData(app, path);
    case kFilterAll:
      if (HasExtension(path, "arr")) return ReadByFilter(app, kind, kFilterArr, path);
      if (HasExtension(path, "pcc") || HasExtension(path, "pcg")) return ReadByFilter(app, kind, kFilterPrg, path);
      return kChosen;
    default:
      return kChosen;
  }
}

bool CanKeep(std::string_view base) {
  return base.size() <= kPathLength && !base.ends_with(' ');
}

bool PathFits(Application& app, const std::string& path) {
  if (CanKeep(WithoutExtension(path))) return true;
  ShowNameNotValid(app, path);
  return false;
}

std::vector<ui::FileFilter> ParseFilters(std::string_view text) {
  std::vector<ui::FileFilter> filters;
  while (!text.empty()) {
    const std::size_t middle = text.find('|');
    const std::size_t end = text.find('|', middle + 1);
    filters.push_back(
        {std::string(text.substr(0, middle)), std::string(Trim(text.substr(middle + 1, end - middle - 1)))});
    text.remove_prefix(end + 1);
  }
  return filters;
}

void ShowNameNotValid(Application& app, const std::string& path) {
  ShowMessage(app, kMessageText, ShownPath(FileBaseName(path)), GetText(app, kTextNameNotValid));
}

ChooseResult OpenChooser(Application& app, int kind) {
  if (kind == kKindNewPrg) {
    // Nothing is asked: a new bank begins as the template.
    app.files.ChosenPath = app.core.InternalPrg;
    app.files.ChosenIsRead = true;
    return FileKindOf(kind)->read(app, app.core.InternalPrg);
  }
  ui::FileDialogRequest request;
  request.title = std::string(kDialogTitle) + "- " + GetText(app, kTextOpenFile);
  request.filters = ParseFilters(kOpenFilters);
  request.filter = PresetFilter(kind, app.files.OldFormatWanted);
  request.directory = PresetDirectory(app.files, request.filter);
  request.read_only = app.core.settings.RdOnly;
  const ui::FileDialogAnswer answer = AskForFile(app, request);
  if (answer.cancelled || answer.path.empty()) return kChooseFailed;
  app.files.ReadOnlyAnswer = answer.read_only;
  app.files.ChosenPath = answer.path;
  app.files.ChosenIsRead = ReadsFor(kind, answer.filter, answer.path);
  if (!PathFits(app, answer.path)) return kChooseFailed;
  const ChooseResult result = ReadByFilter(app, kind, answer.filter, answer.path);
  if (result == kChosen) {
    const bool arr_by_name = answer.filter == kFilterAll && HasExtension(answer.path, "arr");
    RememberPlace(app, arr_by_name ? static_cast<int>(kFilterArr) : answer.filter, answer.path);
  }
  return result;
}

}  // namespace zentaline
