// The kinds of file that have windows.
#include <algorithm>
#include <array>

#include "arrangement/api.h"
#include "arrangement/arr_format.h"
#include "core/application.h"
#include "core/main_window.h"
#include "core/window_image.h"
#include "files/api.h"
#include "files/dialogs.h"
#include "files/paths.h"
#include "global/api.h"
#include "program/api.h"
#include "program/prg_format.h"
#include "style/api.h"
#include "style/sty_format.h"

namespace zentaline {

namespace {

WindowRecord& ArrSlot(Application& app, int number) {
  return app.core.ArrWindows[static_cast<std::size_t>(number)];
}

ChildWindow* ArrWindow(const Application& app, int number) {
  return app.arr_windows[static_cast<std::size_t>(number)];
}

ChooseResult ReadArr(Application& app, const std::string& path) {
  return ReaderResult(ReadArrFile(app, path));
}

void OpenArr(Application& app, int number, const std::string& base, bool read_only) {
  OpenArrWindow(app, number, base, read_only);
}

WindowRecord& StySlot(Application& app, int number) {
  return app.core.StyWindows[static_cast<std::size_t>(number)];
}

ChildWindow* StyWindow(const Application& app, int number) {
  return app.sty_windows[static_cast<std::size_t>(number)];
}

// What arrangements show of it and haven't saved yet is newer than the disk's.
ChooseResult ReadSty(Application& app, const std::string& path) {
  const std::string base = WithoutExtension(path);
  if (const ChildWindow* changed = ChangedStyles(app, kKindArr, base)) {
    TakeStyleFile(app, base, StylePart(changed->window_image()));
    return kChosen;
  }
  switch (StyFileRead(app, path)) {
    case kStyGood:
      return kChosen;
    case kStyAbsent:
      return kChooseEmpty;
    default:
      return kChooseFailed;
  }
}

void OpenSty(Application& app, int number, const std::string& base, bool read_only) {
  OpenStyWindow(app, number, base, read_only);
}

WindowRecord& PrgSlot(Application& app, int number) {
  return app.core.PrgWindows[static_cast<std::size_t>(number)];
}

ChildWindow* PrgWindow(const Application& app, int number) {
  return app.prg_windows[static_cast<std::size_t>(number)];
}

ChooseResult ReadPrg(Application& app, const std::string& path) {
  return ReaderResult(ReadProgramFile(app, path));
}

void OpenPrg(Application& app, int number, const std::string& base, bool read_only) {
  OpenPrgWindow(app, number, base, read_only);
}

WindowRecord& GblSlot(Application& app, int number) {
  return app.core.GblWindows[static_cast<std::size_t>(number)];
}

ChildWindow* GblWindow(const Application& app, int) {
  return app.gbl_window;
}

ChooseResult ReadGbl(Application& app, const std::string& path) {
  return ReaderResult(ReadGlobalFile(app, path));
}

void OpenGbl(Application& app, int, const std::string& base, bool read_only) {
  OpenGlobalWindow(app, base, read_only);
}

WindowRecord& BsqSlot(Application& app, int number) {
  return app.core.BsqWindows[static_cast<std::size_t>(number)];
}

ChildWindow* BsqWindow(const Application& app, int) {
  return app.bsq_window;
}

ChooseResult ReadBsq(Application& app, const std::string& path) {
  return ReaderResult(ReadBackSeqFile(app, path));
}

void OpenBsq(Application& app, int, const std::string& base, bool read_only) {
  OpenBackSeqWindow(app, base, read_only);
}

// The template with its programs cleared.
ChooseResult ReadNewPrg(Application& app, const std::string& path) {
  const ChooseResult result = ReadPrg(app, path);
  if (result == kChosen) ClearNewProgramBank(app.program.ProgramFileBuffer);
  return result;
}

void OpenNewPrg(Application& app, int number, const std::string&, bool) {
  OpenNewPrgWindow(app, number);
}

// --- Saving ---

constexpr char kUntitled[] = "Untitled";

int ArrType(const Bytes&) {
  return kTypeArr;
}

// A bank goes by the name of the instrument's file.
std::string ArrSaveName(const ChildWindow& window) {
  switch (window.Kind()) {
    case kKindArrA:
      return "i40ArrA";
    case kKindArrB:
      return "i40ArrB";
    case kKindNewArr:
      return window.NeverSaved() ? kUntitled : window.BaseName();
    default:
      return std::string(WindowPath(window.window_image()));
  }
}

int PrgType(const Bytes& image) {
  return ByteAt(image, kPggPosition) == 0 ? kTypePrg : kTypePgg;
}

std::string PrgSaveName(const ChildWindow& window) {
  return window.NeverSaved() ? kUntitled : window.BaseName();
}

int StyType(const Bytes&) {
  return kTypeSty;
}

// Whatever the file is called.
std::string StySaveName(const ChildWindow&) {
  return kUntitled;
}

constexpr FileSaving kArrSaving = {
    .type = ArrType, .put = PutArrFiles, .saved = ArrFilesSaved, .name = ArrSaveName, .has_parts = true};
constexpr FileSaving kPrgSaving = {
    .type = PrgType, .put = PutPrgFiles, .saved = PrgFilesSaved, .name = PrgSaveName, .beside_file = true};
int GblType(const Bytes&) {
  return kTypeGbl;
}

std::string GblSaveName(const ChildWindow& window) {
  return window.BaseName();
}

constexpr FileSaving kStySaving = {.type = StyType, .put = PutStyFiles, .saved = StyFilesSaved, .name = StySaveName};
constexpr FileSaving kGblSaving = {
    .type = GblType, .put = PutGblFiles, .saved = GblFilesSaved, .name = GblSaveName, .keeps_read_only = true};

constexpr LastPlace kArrPlace = {&FilesState::LastArrDirectory, &FilesState::LastArrName};
constexpr LastPlace kPrgPlace = {&FilesState::LastPrgDirectory, &FilesState::LastPrgName};
constexpr LastPlace kGblPlace = {&FilesState::LastGblDirectory, &FilesState::LastGblName};

// Styles and back sequences lie where the arrangements do.
constexpr std::array kKinds = {
    FileKind{.kind = kKindArr,
             .type = kTypeArr,
             .filter = kFilterArr,
             .place = kArrPlace,
             .open_entry = MenuId::mnuApriArr,
             .user_entry = MenuId::mnuArrU,
             .slot = ArrSlot,
             .slot_keeps_read_only = true,
             .window = ArrWindow,
             .read = ReadArr,
             .open = OpenArr,
             .saving = &kArrSaving,
             .new_kind = kKindNewArr,
             .saved_alike = {kKindArrA, kKindArrB}},
    FileKind{.kind = kKindPrg,
             .type = kTypePrg,
             .filter = kFilterPrg,
             .place = kPrgPlace,
             .open_entry = MenuId::mnuApriPrg,
             .user_entry = MenuId::mnuPrgU,
             .slot = PrgSlot,
             .window = PrgWindow,
             .read = ReadPrg,
             .open = OpenPrg,
             .saving = &kPrgSaving,
             .saved_alike = {kKindPcg}},
    FileKind{.kind = kKindNewPrg,
             .type = kNoType,
             .filter = kNoFilter,
             .place = kPrgPlace,
             .open_entry = MenuId::mnuNuovoPrg,
             .slot = PrgSlot,
             .window = PrgWindow,
             .read = ReadNewPrg,
             .open = OpenNewPrg,
             .saving = &kPrgSaving},
    FileKind{.kind = kKindSty,
             .type = kTypeSty,
             .filter = kFilterSty,
             .place = kArrPlace,
             .open_entry = MenuId::mnuApriSty,
             .slot = StySlot,
             .slot_keeps_read_only = true,
             .window = StyWindow,
             .read = ReadSty,
             .open = OpenSty,
             .saving = &kStySaving,
             .new_kind = kKindNewSty},
    FileKind{.kind = kKindGbl,
             .type = kTypeGbl,
             .filter = kFilterGbl,
             .place = kGblPlace,
             .open_entry = MenuId::mnuApriGbl,
             .windows = 1,
             .slot = GblSlot,
             .window = GblWindow,
             .read = ReadGbl,
             .open = OpenGbl,
             .saving = &kGblSaving,
             .unnamed_kind = kKindGlobal},
    FileKind{.kind = kKindBsq,
             .type = kTypeBsq,
             .filter = kFilterBsq,
             .place = kArrPlace,
             .open_entry = MenuId::mnuApriBSQ,
             .windows = 1,
             .slot = BsqSlot,
             .window = BsqWindow,
             .read = ReadBsq,
             .open = OpenBsq},
};

bool Holds(const FileKind& row, int kind) {
  return row.new_kind == kind || row.unnamed_kind == kind ||
         std::find(row.saved_alike.begin(), row.saved_alike.end(), kind) != row.saved_alike.end();
}

}  // namespace

std::span<const FileKind> FileKinds() {
  return kKinds;
}

const FileKind* FileKindOf(int kind) {
  for (const FileKind& row : kKinds) {
    if (row.kind == kind || (kind != 0 && Holds(row, kind))) return &row;
  }
  return nullptr;
}

namespace {

// The path of a window without a file of its own is another file's.
bool Shows(const ChildWindow& window, const std::string& base) {
  const Bytes& image = window.window_image();
  return ByteAt(image, kNoFilePosition) == 0 && WindowPath(image) == base;
}

}  // namespace

ChildWindow* WindowOf(const Application& app, const FileKind& kind, const std::string& base) {
  for (int number = 1; number <= kind.windows; ++number) {
    ChildWindow* window = kind.window(app, number);
    if (window != nullptr && Shows(*window, base)) return window;
  }
  for (ui::Form* form : app.toolkit.forms()) {
    if (kind.new_kind == 0 || form->kind() != ui::FormKind::kChild) continue;
    auto* window = static_cast<ChildWindow*>(form);
    const bool saved = window->Kind() == kind.new_kind && !window->NeverSaved();
    if (saved && Shows(*window, base)) return window;
  }
  return nullptr;
}

int FreeWindow(Application& app, int kind) {
  const FileKind* row = FileKindOf(kind);
  for (int number = 1; row != nullptr && number <= row->windows; ++number) {
    if (row->slot(app, number).state == 0) return number;
  }
  return 0;
}

void RefreshOpenEntries(Application& app) {
  if (app.main == nullptr) return;
  for (const FileKind& row : kKinds) app.main->Menu(row.open_entry).SetEnabled(FreeWindow(app, row.kind) != 0);
  RefreshImportEntries(app);
}

}  // namespace zentaline
