// The open dialog, its checks, and the flow from a chosen file to its window.
#include "arrangement/api.h"
#include "arrangement/arr_format.h"
#include "core/application.h"
#include "core/boxes.h"
#include "core/file_reading.h"
#include "core/frmMain.h"
#include "core/window_image.h"
#include "files/api.h"
#include "files/dialogs.h"
#include "files/paths.h"
#include "program/prg_format.h"

namespace zentaline {

namespace {

constexpr int kTextOpenFile = 67;
constexpr int kTextNameNotValid = 48;
constexpr int kMessageText = 1;
constexpr int kMessageErrorReading = 4;
constexpr int kMessageOpenAlready = 16;
constexpr int kMessageFileNotFound = 27;
constexpr int kMessageDataFormat = 32;
constexpr int kTypeArr = 1;

// Filters of the open dialog, which count from 1.
enum OpenFilter : int { kFilterArr = 1, kFilterSty, kFilterPrg, kFilterGbl, kFilterBsq, kFilterPcg, kFilterAll };

constexpr std::string_view kOpenFilters =
    "Arrangements (*.arr)|*.arr|Style (*.sty)|*.sty|Programs (*.prg/pgg)|*.prg;*.pgg|Global (*.gbl)|*.gbl|"
    "Backing Sequence (*.bsq)|*.bsq|Programs (*.pcg)|*.pcg| All files (*.*)|*.*|";

// What a file must be when another filter than the caller's own was left selected. The caller isn't told of the choice:
// its window then opens on what its own buffer holds, and that is kept so.
struct OtherFormat {
  std::size_t largest;
  bool exact;  // the file is just so long, else at most
  std::string_view header;
};
constexpr OtherFormat kGblFormat = {448, true, {"KORG\x4D\x00\x06\x01", 8}};
constexpr OtherFormat kBsqFormat = {3 * 32200, false, {"KORG\x4D\x00\x05", 7}};
constexpr OtherFormat kPcgFormat = {1 << 20, false, {"KORG", 4}};

ChooseResult ReaderResult(int result) {
  return result == kFileRead ? kChosen : result == kFileAbsent ? kChooseEmpty : kChooseFailed;
}

ChooseResult RefuseData(Application& app, const std::string& path) {
  app.core.OperationTitle = ShownPath(FileBaseName(path));
  ShowMessage(app, kMessageDataFormat, app.core.OperationTitle, {});
  return kChooseFailed;
}

ChooseResult ReadOther(Application& app, const std::string& path, const OtherFormat& format) {
  Bytes file;
  const FileReadResult result = ReadDataFile(app, path, format.largest, file);
  if (result == kFileFailed || result == kFileAbsent) return ReaderResult(result);
  const bool good = result == kFileRead && (!format.exact || file.size() == format.largest) &&
                    std::string_view(file).starts_with(format.header);
  if (good) return kChosen;
  ShowMessage(app, kMessageErrorReading, app.core.OperationTitle, ShownPath(FileBaseName(path)));
  return kChooseFailed;
}

// Any program file but the kind of a program window goes to the reader of the earlier instrument's files.
ChooseResult ReadI30Program(Application& app, const std::string& path) {
  Bytes file;
  const FileReadResult result = ReadDataFile(app, path, kPrgFileLength, file);
  if (result == kFileFailed || result == kFileAbsent) return ReaderResult(result);
  if (result == kFileTooLarge || CheckI30ProgramFile(file) != kPrgGood) return RefuseData(app, path);
  app.program.ProgramFileBuffer = I30ProgramBank(file, 1);
  return kChosen;
}

bool HasExtension(const std::string& path, std::string_view extension) {
  return LowerCase(path).ends_with("." + std::string(extension));
}

template <std::size_t N>
bool OpenAlready(const std::array<WindowRecord, N>& slots, const std::string& path) {
  for (std::size_t i = 1; i <= kFileWindows; ++i) {
    if (slots[i].state != 0 && slots[i].path == path) return true;
  }
  return false;
}

int PresetFilter(int kind) {
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

// The preferred directory, or the other one where it isn't set.
const std::string& PresetDirectory(const FilesState& files, int filter) {
  const auto first_set = [](const std::string& a, const std::string& b) -> const std::string& {
    return a.empty() ? b : a;
  };
  switch (filter) {
    case kFilterPrg:
    case kFilterPcg:
      return first_set(files.LastPrgDirectory, files.LastArrDirectory);
    case kFilterGbl:
      return first_set(files.LastGblDirectory, files.LastArrDirectory);
    default:
      return first_set(files.LastArrDirectory, files.LastPrgDirectory);
  }
}

void RememberPlace(Application& app, int filter, const std::string& path) {
  FilesState& files = app.files;
  const std::string base = WithoutExtension(path);
  files.CurrentFileDir = FileDirectory(base);
  files.CurrentFileName = FileBaseName(base);
  switch (filter) {
    case kFilterArr:
    case kFilterSty:
    case kFilterBsq:
      files.LastArrDirectory = files.CurrentFileDir;
      files.LastArrName = files.CurrentFileName;
      return;
    case kFilterPrg:
    case kFilterPcg:
      files.LastPrgDirectory = files.CurrentFileDir;
      files.LastPrgName = files.CurrentFileName;
      return;
    case kFilterGbl:
      files.LastGblDirectory = files.CurrentFileDir;
      files.LastGblName = files.CurrentFileName;
      return;
    default:
      return;
  }
}

// The reader that the selected filter has for this kind.
ChooseResult ReadByFilter(Application& app, int kind, int filter, const std::string& path) {
  const std::string base = WithoutExtension(path);
  switch (filter) {
    case kFilterArr:
      if (OpenAlready(app.core.ArrWindows, base)) return kChooseOpenAlready;
      return kind == kKindArr ? ReaderResult(ReadArrFile(app, path)) : kChosen;
    case kFilterPrg:
      if (!HasExtension(path, "prg") && !HasExtension(path, "pgg")) return RefuseData(app, path);
      if (OpenAlready(app.core.PrgWindows, base)) return kChooseOpenAlready;
      return ReadI30Program(app, path);
    case kFilterGbl:
      return HasExtension(path, "gbl") ? ReadOther(app, path, kGblFormat) : RefuseData(app, path);
    case kFilterBsq:
      return ReadOther(app, path, kBsqFormat);
    case kFilterPcg:
      return HasExtension(path, "pcg") ? ReadOther(app, path, kPcgFormat) : RefuseData(app, path);
    case kFilterAll:
      if (HasExtension(path, "arr")) return ReadByFilter(app, kind, kFilterArr, path);
      if (HasExtension(path, "pcc") || HasExtension(path, "pcg")) return ReadByFilter(app, kind, kFilterPrg, path);
      return kChosen;
    default:
      return kChosen;
  }
}

bool PathFits(Application& app, const std::string& path) {
  if (WithoutExtension(path).size() <= kLongestPath) return true;
  ShowNameNotValid(app, path);
  return false;
}

void ShowNamed(Application& app, int code, const std::string& path) {
  ShowMessage(app, code, ShownPath(FileBaseName(path)), {});
}

// The file in ArrFileImage gets its window, and its place among the recent files.
void ShowChosenArr(Application& app, int number, const std::string& path, bool read_only) {
  OpenArrWindow(app, number, JoinPath(app.files.CurrentFileDir, app.files.CurrentFileName), read_only);
  RefreshOpenEntries(app);
  AddRecentFile(app, path, read_only);
}

// A path that is known already, so no dialog is shown.
void OpenKnownArr(Application& app, const std::string& path, bool read_only) {
  const int number = FreeArrWindow(app);
  if (number == 0 || !PathFits(app, path)) return;
  switch (ReadByFilter(app, kKindArr, kFilterArr, path)) {
    case kChosen:
      break;
    case kChooseOpenAlready:
      return ShowNamed(app, kMessageOpenAlready, path);
    case kChooseEmpty:
      return ShowMessage(app, kMessageFileNotFound, app.core.OperationTitle, {});
    case kChooseFailed:
      return;
  }
  RememberPlace(app, kFilterArr, path);
  ShowChosenArr(app, number, path, read_only);
}

}  // namespace

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
  ui::FileDialogRequest request;
  request.title = std::string(kDialogTitle) + "- " + GetText(app, kTextOpenFile);
  request.filters = ParseFilters(kOpenFilters);
  request.filter = PresetFilter(kind);
  request.directory = PresetDirectory(app.files, request.filter);
  request.read_only = app.core.settings.RdOnly;
  const ui::FileDialogAnswer answer = app.toolkit.FileDialog(request);
  if (answer.cancelled || answer.path.empty()) return kChooseFailed;
  app.files.ReadOnlyAnswer = answer.read_only;
  app.files.ChosenPath = answer.path;
  if (!PathFits(app, answer.path)) return kChooseFailed;
  const ChooseResult result = ReadByFilter(app, kind, answer.filter, answer.path);
  if (result == kChosen) {
    const bool arr_by_name = answer.filter == kFilterAll && HasExtension(answer.path, "arr");
    RememberPlace(app, arr_by_name ? static_cast<int>(kFilterArr) : answer.filter, answer.path);
  }
  return result;
}

void OpenArrFile(Application& app) {
  const int number = FreeArrWindow(app);
  if (number == 0) return;
  const ChooseResult result = OpenChooser(app, kKindArr);
  const std::string path = app.files.ChosenPath;
  if (result == kChosen) return ShowChosenArr(app, number, path, app.files.ReadOnlyAnswer);
  if (result == kChooseOpenAlready) return ShowNamed(app, kMessageOpenAlready, path);
  if (result == kChooseEmpty) return ShowNamed(app, kMessageFileNotFound, path);
}

void OpenPath(Application& app, const std::string& path) {
  if (FileType(path) == kTypeArr) {
    OpenKnownArr(app, path, app.core.settings.RdOnly);
  } else {
    RefuseData(app, path);
  }
}

void OpenRecentFile(Application& app, int i) {
  const RecentFile recent = app.core.RecentFiles[static_cast<std::size_t>(i)];
  if (recent.type == kTypeArr) OpenKnownArr(app, recent.path + ".arr", recent.read_only);
}

int FreeArrWindow(const Application& app) {
  for (int i = 1; i <= kFileWindows; ++i) {
    if (app.core.ArrWindows[static_cast<std::size_t>(i)].state == 0) return i;
  }
  return 0;
}

void RefreshOpenEntries(Application& app) {
  if (app.main != nullptr) app.main->Menu(MenuId::mnuApriArr).SetEnabled(FreeArrWindow(app) != 0);
}

}  // namespace zentaline
