// mnuImporta: files of the earlier instruments become new windows. The source isn't changed, and nothing is written but
// the three files of a style import.
#include <algorithm>
#include <utility>

#include "arrangement/api.h"
#include "core/application.h"
#include "core/boxes.h"
#include "core/child_window.h"
#include "core/file_reading.h"
#include "core/main_window.h"
#include "core/window_image.h"
#include "data/message_codes.h"
#include "files/api.h"
#include "files/dialogs.h"
#include "files/import_format.h"
#include "files/paths.h"
#include "program/api.h"
#include "program/prg_format.h"
#include "style/api.h"
#include "style/sty_format.h"

namespace zentaline {

namespace {

constexpr int kStyleParts = 3;

// Control byte 11 of the windows of programs.
constexpr int kFromI30Prg = 3;
constexpr int kFromOldPrg = 6;

struct ImportKind {
  MenuId entry;
  int asked;    // the kind that the open dialog is asked for
  int windows;  // the kind of the windows that come of it,
  int count;    // and how many of them must be free
  OldFormat old_format;
};
constexpr ImportKind kImports[] = {
    {MenuId::mnuImportaArri30, kKindI30Arr, kKindArr, 2, OldFormat::kNone},
    {MenuId::mnuImportaStyi30, kKindI30Sty, kKindSty, 1, OldFormat::kNone},
    {MenuId::mnuImportaPrgi30, kKindI30Prg, kKindPrg, 2, OldFormat::kNone},
    {MenuId::mnuImportaArri5, kKindArr, kKindArr, 1, OldFormat::kArr},
    {MenuId::mnuImportaPcgi5, kKindPrg, kKindPrg, 1, OldFormat::kPrg},
};

// The dialog asks for files of the old formats as long as this lives.
class OldFormatWanted {
 public:
  OldFormatWanted(Application& app, OldFormat format) : app_(app) { app_.files.OldFormatWanted = format; }
  ~OldFormatWanted() { app_.files.OldFormatWanted = OldFormat::kNone; }
  OldFormatWanted(const OldFormatWanted&) = delete;
  OldFormatWanted& operator=(const OldFormatWanted&) = delete;

 private:
  Application& app_;
};

int FreeWindows(Application& app, int kind) {
  const FileKind& row = *FileKindOf(kind);
  int count = 0;
  for (int number = 1; number <= row.windows; ++number) count += row.slot(app, number).state == 0 ? 1 : 0;
  return count;
}

void ShowNamed(Application& app, int code, const std::string& path) {
  ShowMessage(app, code, ShownPath(FileBaseName(path)), {});
}

// Reads a source whole; what `is_right` refuses is told of by the file's name.
ChooseResult ReadSource(Application& app, const std::string& path, bool (*is_right)(std::string_view), Bytes& file) {
  const FileReadResult result = ReadDataFile(app, path, kLargestDataFile, file);
  if (result == kFileFailed || result == kFileAbsent) return ReaderResult(result);
  if (result == kFileRead && is_right(file)) return kChosen;
  ShowMessage(app, kMessageErrorReading, app.core.OperationTitle, ShownPath(FileBaseName(path)));
  return kChooseFailed;
}

bool IsI30PrgFile(std::string_view file) {
  return CheckI30ProgramFile(file) == kPrgGood;
}

// What a bank of the old instruments doesn't have comes from the template.
ChooseResult ReadTemplate(Application& app, Bytes& bank) {
  const std::string& path = app.core.InternalPrg;
  switch (ReadDataFile(app, path, kPrgFileLength, bank)) {
    case kFileFailed:
      return kChooseFailed;
    case kFileAbsent:
      ShowMessage(app, kMessageNotFound, app.core.OperationTitle, ShownPath(FileBaseName(path)));
      return kChooseFailed;
    default:
      if (CheckProgramFile(bank) == kPrgGood) return kChosen;
      ShowMessage(app, kMessageDataFormat, app.core.OperationTitle, {});
      return kChooseFailed;
  }
}

// Shows a file in a free window that has none of its own yet: saving asks for a name.
void ShowImported(Application& app, const ImportKind& import, const Bytes& file, const std::string& base) {
  const FileKind& kind = *FileKindOf(import.windows);
  const int number = FreeWindow(app, import.windows);
  if (number == 0) return;
  const bool read_only = app.files.ReadOnlyAnswer;
  kind.slot(app, number).state = 0;
  if (import.windows == kKindArr) {
    OpenImportedArr(app, number, file, base, read_only);
  } else {
    const int mark = import.old_format == OldFormat::kPrg ? kFromOldPrg : kFromI30Prg;
    OpenImportedPrg(app, number, file, base, read_only, mark);
  }
  kind.slot(app, number).state = 1;
}

// Whether a window shows this file of styles.
bool StylesOpen(Application& app, const std::string& base) {
  return WindowOf(app, *FileKindOf(kKindSty), base) != nullptr || StylesWindow(app, kKindArr, base) != nullptr;
}

// False when there is no window left for it, or it can't be read.
bool OpenStyles(Application& app, const std::string& base) {
  const FileKind& kind = *FileKindOf(kKindSty);
  const int number = FreeWindow(app, kKindSty);
  if (number == 0 || StyFileRead(app, base + ".sty") != kStyGood) return false;
  kind.slot(app, number).state = 0;
  kind.open(app, number, base, app.files.ReadOnlyAnswer);
  kind.slot(app, number).state = 1;
  return true;
}

// All in one go: the three files are written beside the source, in place of what stands there, and opened as far as
// there are windows for them.
void ImportStyles(Application& app, const std::string& path) {
  std::string parts[kStyleParts];
  for (int i = 0; i < kStyleParts; ++i) {
    parts[i] = StylePartOfI30(path, i);
    if (!PathFits(app, parts[i] + ".sty")) return;
    if (StylesOpen(app, parts[i])) return ShowNamed(app, kMessageOpenAlready, parts[i] + ".sty");
  }
  ShowWait(app, kWaitStyi30);
  switch (StyImportI30(app, path)) {
    case kStyGood:
      for (const std::string& part : parts) {
        if (!OpenStyles(app, part)) break;
      }
      break;
    case kStyAbsent:
      ShowNamed(app, kMessageFileNotFound, path);
      break;
    default:
      break;
  }
  ShowWait(app, 0);
}

}  // namespace

ChooseResult ReadI30Arr(Application& app, const std::string& path) {
  Bytes file;
  const ChooseResult result = ReadSource(app, path, IsI30ArrFile, file);
  if (result == kChosen) app.files.ImportedArr = ArrFilesOfI30(file);
  return result;
}

ChooseResult ReadI30Prg(Application& app, const std::string& path) {
  Bytes file;
  const ChooseResult result = ReadSource(app, path, IsI30PrgFile, file);
  if (result == kChosen) app.files.ImportedPrg = PrgFilesOfI30(file);
  return result;
}

ChooseResult ReadOldArr(Application& app, const std::string& path) {
  Bytes file;
  const ChooseResult result = ReadSource(app, path, IsOldArrFile, file);
  if (result == kChosen) app.files.ImportedArr = {ArrFileOfOld(file)};
  return result;
}

ChooseResult ReadOldPrg(Application& app, const std::string& path) {
  Bytes file;
  const ChooseResult result = ReadSource(app, path, IsOldPrgFile, file);
  if (result != kChosen || app.files.OldFormatWanted != OldFormat::kPrg) return result;
  Bytes bank;
  if (ReadTemplate(app, bank) != kChosen) return kChooseFailed;
  app.files.ImportedPrg = {PrgFileOfOld(file, bank)};
  return kChosen;
}

void ImportFile(Application& app, MenuId entry) {
  const ImportKind& import =
      *std::find_if(std::begin(kImports), std::end(kImports), [entry](const auto& row) { return row.entry == entry; });
  if (FreeWindows(app, import.windows) < import.count) return;
  // Emptied first, so that a filter which reads nothing opens nothing.
  app.files.ImportedArr.clear();
  app.files.ImportedPrg.clear();
  const OldFormatWanted wanted(app, import.old_format);
  const ChooseResult result = OpenChooser(app, import.asked);
  const std::string path = app.files.ChosenPath;
  if (result == kChooseOpenAlready) return ShowNamed(app, kMessageOpenAlready, path);
  if (result == kChooseEmpty) return ShowNamed(app, kMessageFileNotFound, path);
  if (result != kChosen) return;
  if (import.windows == kKindSty) {
    ImportStyles(app, path);
  } else {
    std::vector<Bytes>& read = import.windows == kKindArr ? app.files.ImportedArr : app.files.ImportedPrg;
    const std::string base = JoinPath(app.files.CurrentFileDir, app.files.CurrentFileName);
    for (const Bytes& file : std::exchange(read, {})) ShowImported(app, import, file, base);
  }
  RefreshOpenEntries(app);
}

void RefreshImportEntries(Application& app) {
  if (app.main == nullptr) return;
  for (const ImportKind& import : kImports) {
    app.main->Menu(import.entry).SetEnabled(FreeWindows(app, import.windows) >= import.count);
  }
}

}  // namespace zentaline
