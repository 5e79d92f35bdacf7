// The kinds of file that have windows.
#include <array>

#include "arrangement/api.h"
#include "arrangement/arr_format.h"
#include "core/application.h"
#include "core/main_window.h"
#include "core/window_image.h"
#include "files/api.h"
#include "files/dialogs.h"
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

ChooseResult ReadSty(Application& app, const std::string& path) {
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

// The template with its programs cleared.
ChooseResult ReadNewPrg(Application& app, const std::string& path) {
  const ChooseResult result = ReadPrg(app, path);
  if (result == kChosen) ClearNewProgramBank(app.program.ProgramFileBuffer);
  return result;
}

void OpenNewPrg(Application& app, int number, const std::string&, bool) {
  OpenNewPrgWindow(app, number);
}

constexpr std::array kKinds = {
    FileKind{kKindArr, 1, kFilterArr, MenuId::mnuApriArr, MenuId::mnuArrU, ArrSlot, ArrWindow, ReadArr, OpenArr},
    FileKind{kKindPrg, 3, kFilterPrg, MenuId::mnuApriPrg, MenuId::mnuPrgU, PrgSlot, PrgWindow, ReadPrg, OpenPrg},
    FileKind{kKindNewPrg, kNoType, kNoFilter, MenuId::mnuNuovoPrg, MenuId::kCount, PrgSlot, PrgWindow, ReadNewPrg,
             OpenNewPrg},
    FileKind{kKindSty, 2, kFilterSty, MenuId::mnuApriSty, MenuId::kCount, StySlot, StyWindow, ReadSty, OpenSty,
             kKindNewSty},
};

}  // namespace

std::span<const FileKind> FileKinds() {
  return kKinds;
}

const FileKind* FileKindOf(int kind) {
  for (const FileKind& row : kKinds) {
    if (row.kind == kind || (kind != 0 && row.new_kind == kind)) return &row;
  }
  return nullptr;
}

ChildWindow* WindowOf(const Application& app, const FileKind& kind, const std::string& base) {
  for (int number = 1; number <= kFileWindows; ++number) {
    ChildWindow* window = kind.window(app, number);
    if (window != nullptr && WindowPath(window->window_image()) == base) return window;
  }
  for (ui::Form* form : app.toolkit.forms()) {
    if (kind.new_kind == 0 || form->kind() != ui::FormKind::kChild) continue;
    auto* window = static_cast<ChildWindow*>(form);
    const Bytes& image = window->window_image();
    const bool saved = window->Kind() == kind.new_kind && ByteAt(image, kNeverSavedPosition) == 0;
    if (saved && WindowPath(image) == base) return window;
  }
  return nullptr;
}

int FreeWindow(Application& app, int kind) {
  const FileKind* row = FileKindOf(kind);
  for (int number = 1; row != nullptr && number <= kFileWindows; ++number) {
    if (row->slot(app, number).state == 0) return number;
  }
  return 0;
}

void RefreshOpenEntries(Application& app) {
  if (app.main == nullptr) return;
  for (const FileKind& row : kKinds) app.main->Menu(row.open_entry).SetEnabled(FreeWindow(app, row.kind) != 0);
}

}  // namespace zentaline
