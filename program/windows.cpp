// How the program windows open, and what stands in the instrument.
#include <memory>

#include "core/application.h"
#include "core/boxes.h"
#include "core/main_window.h"
#include "core/window_image.h"
#include "data/texts.h"
#include "files/api.h"
#include "program/api.h"
#include "program/frmDrum.h"
#include "program/frmPcgAE.h"
#include "program/frmPrgUN.h"
#include "program/prg_format.h"
#include "program/windows.h"

namespace zentaline {

namespace {

using enum MenuId;

constexpr std::size_t kBlankStart = 10;  // of each record of a new bank

constexpr ProgramBank kBanks[] = {
    {kKindPrgA, mnuWProgA}, {kKindPrgB, mnuWProgB}, {kKindPrgC, mnuWProgC},     {kKindPrgD, mnuWProgD},
    {kKindPrgE, mnuWProgE}, {kKindDrum, mnuDrum},   {kKindPercussion, mnuPerc},
};

ChildWindow& ShowBank(Application& app, int number, Bytes image) {
  return static_cast<ChildWindow&>(app.toolkit.Open(std::make_unique<frmPrgUN>(app, number, std::move(image))));
}

// The image of a window of kind 21, whose slot takes the path.
Bytes FileImage(Application& app, int number, const Bytes& bank, const std::string& path, bool read_only) {
  WindowRecord& record = app.core.PrgWindows[static_cast<std::size_t>(number)];
  record.path = path;
  record.second = kKindPrg;
  Bytes image = BuildPrgWindowImage(bank);
  PutByte(image, kKindPosition, kKindPrg);
  PutByte(image, kReadOnlyPosition, read_only ? 1 : 0);
  PutByte(image, kWindowNumberPosition, number);
  PutByte(image, kSlotStatePosition, record.state);
  PutWindowPath(image, path);
  return image;
}

std::unique_ptr<ProgramListWindow> MakeBankWindow(Application& app, int kind) {
  if (kind >= kKindDrum) return std::make_unique<frmDrum>(app, kind);
  return std::make_unique<frmPcgAE>(app, kind);
}

}  // namespace

ChildWindow& OpenPrgWindow(Application& app, int number, const std::string& path, bool read_only) {
  return ShowBank(app, number, FileImage(app, number, app.program.ProgramFileBuffer, path, read_only));
}

ChildWindow& OpenImportedPrg(Application& app, int number, const Bytes& bank, const std::string& path, bool read_only,
                             int mark) {
  Bytes image = FileImage(app, number, bank, path, read_only);
  PutByte(image, kPrgChangedPosition, 1);
  PutByte(image, kNoFilePosition, mark);
  return ShowBank(app, number, std::move(image));
}

ChildWindow& OpenNewPrgWindow(Application& app, int number) {
  WindowRecord& record = app.core.PrgWindows[static_cast<std::size_t>(number)];
  record.path.clear();
  record.second = kKindNewPrg;
  Bytes image = BuildPrgWindowImage(app.program.ProgramFileBuffer);
  PutByte(image, kKindPosition, kKindNewPrg);
  PutByte(image, kWindowNumberPosition, number);
  PutByte(image, kSlotStatePosition, record.state);
  PutByte(image, kNeverSavedPosition, 1);
  PutByte(image, kPrgImageChannelPosition, 0);
  PutWindowPath(image, GetText(app, kTextUntitled));
  for (int n = 0; n < kPrgRecordCount; ++n) PutBytes(image, ProgramPosition(n), Bytes(kBlankStart, ' '));
  return ShowBank(app, number, std::move(image));
}

void ShowUserPrograms(Application& app, const std::string& path, bool pgg) {
  const ChildWindow* const& window = app.prg_windows[kInstrumentWindow];
  const WindowRecord& slot = app.core.PrgWindows[kInstrumentWindow];
  if (window == nullptr || slot.path != path) {
    SlotTakePrg(app, path, pgg);
    if (window == nullptr) OpenInstrumentFile(app, kKindPrg);
  }
  if (ChildWindow* shown = app.prg_windows[kInstrumentWindow]) app.toolkit.Activate(*shown);
}

int SelectedProgram(const ChildWindow& bank) {
  const auto* window = dynamic_cast<const frmPrgUN*>(&bank);
  return window == nullptr ? -1 : window->SelectedProgram();
}

void ShowProgramName(ChildWindow& bank, int row) {
  static_cast<frmPrgUN&>(bank).ShowProgramName(row);
}

void ProgramEditorClosed(Application& app) {
  for (ChildWindow* bank : app.prg_windows) {
    if (bank != nullptr) static_cast<frmPrgUN*>(bank)->ShowEditButton();
  }
}

std::span<const ProgramBank> ProgramBanks() {
  return kBanks;
}

MenuId ProgramBankEntry(int kind) {
  for (const ProgramBank& bank : kBanks) {
    if (bank.kind == kind) return bank.entry;
  }
  return kCount;
}

void ShowProgramBank(Application& app, int kind, int row) {
  const std::string name = (kind >= kKindDrum ? "frmDrum(" : "frmPcgAE(") + std::to_string(kind) + ")";
  ui::Form* window = app.toolkit.FindForm(name);
  if (window != nullptr) {
    app.toolkit.Activate(*window);
  } else {
    window = &app.toolkit.Open(MakeBankWindow(app, kind));
  }
  auto& list = static_cast<ProgramListWindow&>(*window);
  if (row >= 0 && row < list.List1.rows()) list.ShowRow(row);
}

void TellPrgInInstrument(Application& app, const std::string& base_name, bool pgg) {
  app.program.PrgInInstrument = base_name;
  if (app.main != nullptr) app.main->LabelPrg.SetCaption(ShownPath(base_name) + (pgg ? ".pgg" : ".prg"));
}

void ForgetPrgInInstrument(Application& app) {
  app.program.PrgInInstrument.clear();
}

void SlotTakePrg(Application& app, const std::string& path, bool pgg) {
  InstrumentTakes(app, kKindPrg, path, pgg);
  if (app.main != nullptr) app.main->ShowPrgUEntry();
}

}  // namespace zentaline
