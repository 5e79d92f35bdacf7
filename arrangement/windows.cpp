// The arrangement windows' slots.
#include "arrangement/windows.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "arrangement/api.h"
#include "arrangement/arr_format.h"
#include "arrangement/frmArrAB.h"
#include "arrangement/frmArrNew.h"
#include "arrangement/frmArrU.h"
#include "core/application.h"
#include "core/boxes.h"
#include "core/file_reading.h"
#include "core/main_window.h"
#include "core/window_image.h"
#include "data/message_codes.h"
#include "files/api.h"
#include "files/paths.h"

namespace zentaline {

namespace {

// A factory bank: its window's kind, its file, its number in the database, and what is told when the file is missing.
struct Bank {
  int kind;
  std::string CoreState::*file;
  MenuId entry;
  int file_id;
  int message;
};
constexpr Bank kBanks[] = {
    {kKindArrA, &CoreState::InternalArrA, MenuId::mnuArrA, 1, kMessageNoArrA},
    {kKindArrB, &CoreState::InternalArrB, MenuId::mnuArrB, 2, kMessageNoArrB},
};

const Bank& BankOf(int kind) {
  return kBanks[kind == kKindArrB ? 1 : 0];
}

frmArrAB* BankWindow(const Application& app, int kind) {
  return static_cast<frmArrAB*>(app.toolkit.FindForm("frmArrAB(" + std::to_string(kind) + ")"));
}

// 0 when all places are taken.
int FreeNewWindow(const Application& app) {
  const auto& slots = app.new_arr_windows;
  const auto free = std::find(slots.begin() + 1, slots.end(), nullptr);
  return free == slots.end() ? 0 : static_cast<int>(free - slots.begin());
}

ChildWindow& Show(Application& app, int number, const Bytes& file, const std::string& path, bool read_only,
                  bool in_memory) {
  WindowRecord& record = app.core.ArrWindows[static_cast<std::size_t>(number)];
  record.path = path;
  // The second byte brings a read-only window back as one.
  record.second = read_only ? 1 : 0;
  ArrImageOptions options;
  options.read_only = read_only;
  options.in_memory = in_memory;
  options.window_number = number;
  options.slot_state = record.state;
  Bytes image = BuildArrImage(kKindArr, file, path, options);
  return static_cast<ChildWindow&>(app.toolkit.Open(std::make_unique<frmArrU>(app, number, std::move(image))));
}

}  // namespace

ChildWindow& OpenArrWindow(Application& app, int number, const std::string& path, bool read_only) {
  return Show(app, number, app.arrangement.ArrFileImage, path, read_only, false);
}

ChildWindow& OpenImportedArr(Application& app, int number, const Bytes& file, const std::string& path, bool read_only) {
  return Show(app, number, file, path, read_only, true);
}

void SlotTakeFile(Application& app, const std::string& path) {
  InstrumentTakes(app, kKindArr, path, false);
  if (app.main != nullptr) app.main->ShowArrUEntry();
}

void ArrEditorClosed(Application& app) {
  for (ChildWindow* window : app.arr_windows) {
    if (window != nullptr) static_cast<frmArrU*>(window)->EditorClosed();
  }
}

void ShowRecordName(ChildWindow& window, int index) {
  static_cast<ArrListWindow&>(window).ShowRecordName(index);
}

void ArrRecordsChanged(ChildWindow& window) {
  static_cast<ArrListWindow&>(window).RecordsChanged();
}

// --- The factory banks ---

int ArrBankFileId(int kind) {
  return BankOf(kind).file_id;
}

MenuId ArrBankEntry(int kind) {
  return BankOf(kind).entry;
}

ChildWindow* ArrBankWindow(const Application& app, int kind) {
  return BankWindow(app, kind);
}

ChildWindow* OpenArrBank(Application& app, int kind) {
  app.arrangement.BankWanted = kind;
  if (frmArrAB* window = BankWindow(app, kind)) {
    app.toolkit.Activate(*window);
    return window;
  }
  const Bank& bank = BankOf(kind);
  const std::string& base = app.core.*bank.file;
  FormState& place = app.core.FormStates[static_cast<std::size_t>(kind)];
  const int result = ReadArrFile(app, PathOnDisk(app.disk, base + ".arr"));
  if (result == kArrAbsent) ShowMessage(app, bank.message, app.core.OperationTitle, {});
  if (result != kArrGood) {
    // It isn't asked for again at the next start.
    place.state = 0;
    return nullptr;
  }
  Bytes image = BuildArrImage(kind, app.arrangement.ArrFileImage, base, {.slot_state = place.state});
  return static_cast<ChildWindow*>(&app.toolkit.Open(std::make_unique<frmArrAB>(app, kind, std::move(image))));
}

// --- New files ---

void NewArrWindow(Application& app) {
  const int number = FreeNewWindow(app);
  if (number == 0) return;
  // A name in either language's program is the same.
  const std::string path = JoinPath(app.core.Directory, "Untitled" + std::to_string(number));
  Bytes image = BuildNewArrImage(NewArrFile(), app.style.EmptyStyleImage, path, number);
  app.toolkit.Open(std::make_unique<frmArrNew>(app, number, std::move(image)));
  RefreshNewArrEntry(app);
}

void RefreshNewArrEntry(Application& app) {
  if (app.main != nullptr) app.main->Menu(MenuId::mnuNuovoArr).SetEnabled(FreeNewWindow(app) != 0);
}

}  // namespace zentaline
