// The windows of the last run come back: a chain of timers, one window a tick, so that the main window appears first.
#include <algorithm>
#include <utility>

#include "core/application.h"
#include "core/frmMain.h"
#include "core/window_image.h"
#include "files/api.h"
#include "files/recovery.h"

namespace zentaline {

namespace {

using enum MenuId;

// The rest of the load must run once: whichever of the two timers fires first stops the other.
constexpr int kSecondTimer = 20;

// The windows that TimerAuto brings back: its index, the form whose state says that it was open, and its menu entry.
struct AutoWindow {
  int index;
  WindowKind form;
  MenuId entry;
};
constexpr AutoWindow kAutoWindows[] = {
    {2, kKindArrA, mnuArrA},
    {3, kKindArrB, mnuArrB},
    {4, kKindPrgA, mnuWProgA},
    {5, kKindPrgB, mnuWProgB},
    {6, kKindPrgC, mnuWProgC},
    {7, kKindPrgD, mnuWProgD},
    {8, kKindPrgE, mnuWProgE},
    {9, kKindDrum, mnuDrum},
    {10, kKindGlobal, mnuGlobalParam},
    {11, kKindFindId, mnuWFindID},
    {12, kKindPercussion, mnuPerc},
    {13, kKindMonitor, mnuMsgEx},
    {14, kKindStyA, mnuStyA},
    {15, kKindStyB, mnuStyB},
    {16, kKindDatabase, mnuWEditDBArr},
    {17, kKindNotebook, mnuBloccoNote},
    {18, kKindKeyboard, mnuTastiera},
};

// The tables of file windows in the order in which they come back.
struct FileTable {
  int kind;
  const char* timer;
  int entries;
};
constexpr FileTable kFileTables[] = {
    {kKindArr, "TimerArrU", kInstrumentWindow},
    {kKindPrg, "TimerPrgU", kInstrumentWindow},
    {kKindSty, "TimerStyU", kFileWindows},
};

}  // namespace

void frmMain::MakeReopeningTimers() {
  Timer2.SetInterval(kSecondTimer);
  Timer0.on_timer = Timer2.on_timer = [this] { FinishLoad(); };
  for (const AutoWindow& window : kAutoWindows) {
    const std::size_t i = TimerAuto.size();
    TimerAuto.push_back(std::make_unique<ui::Timer>(*this, "TimerAuto", window.index));
    TimerAuto.back()->on_timer = [this, i] { ReopenAuto(i); };
  }
  for (const FileTable& table : kFileTables) {
    for (int entry = 1; entry <= table.entries; ++entry) {
      const std::size_t i = file_timers_.size();
      file_timers_.push_back({table.kind, entry, std::make_unique<ui::Timer>(*this, table.timer, entry)});
      file_timers_.back().timer->on_timer = [this, i] { ReopenFile(i); };
    }
  }
}

// The entry's menu may be off, as mnuWindow is before the first window: the program presses it, not the user.
bool frmMain::ComesBack(WindowKind form, MenuId entry) const {
  return app().core.FormStates[static_cast<std::size_t>(form)].state != 0 && Menu(entry).enabled();
}

// Where nothing comes back the main window is ready at once, although the chain takes its time.
bool frmMain::Reopens() const {
  if (!app().reopening_chain) return false;
  const auto was_open = [](const WindowRecord& record) { return record.state != 0; };
  const CoreState& core = app().core;
  return std::any_of(std::begin(kAutoWindows), std::end(kAutoWindows),
                     [this](const auto& row) { return ComesBack(row.form, row.entry); }) ||
         std::any_of(core.ArrWindows.begin(), core.ArrWindows.end(), was_open) ||
         std::any_of(core.PrgWindows.begin(), core.PrgWindows.end(), was_open) ||
         std::any_of(core.StyWindows.begin(), core.StyWindows.end(), was_open);
}

void frmMain::FinishLoad() {
  Timer0.Stop();
  Timer2.Stop();
  if (!Reopens()) return ChainEnded();
  to_reopen_ = static_cast<int>(std::count_if(std::begin(kAutoWindows), std::end(kAutoWindows),
                                              [this](const auto& row) { return ComesBack(row.form, row.entry); }));
  TimerAuto.front()->Start();
}

void frmMain::ReopenAuto(std::size_t i) {
  const AutoWindow& window = kAutoWindows[i];
  if (ComesBack(window.form, window.entry)) {
    Menu(window.entry).Press();
    ++reopened_;
  }
  if (reopened_ >= to_reopen_ || i + 1 == TimerAuto.size()) {
    app().core.ReopeningFiles = true;
    file_timers_.front().timer->Start();
  } else {
    TimerAuto[i + 1]->Start();
  }
}

void frmMain::ReopenFile(std::size_t i) {
  ReopenWindow(app(), file_timers_[i].kind, file_timers_[i].entry);
  if (i + 1 < file_timers_.size()) {
    file_timers_[i + 1].timer->Start();
  } else {
    ChainEnded();
  }
}

void frmMain::ChainEnded() {
  app().core.ReopeningFiles = false;
  app().reopening_chain = false;
  RefreshOpenEntries(app());
  ShowArrUEntry();
  ShowPrgUEntry();
  RefreshMenus();
  OfferJournals(app());
  ChildrenChanged();
  OpenWhenReady(std::exchange(files_to_open_, {}));
}

void frmMain::OpenWhenReady(std::vector<std::string> paths) {
  if (app().reopening_chain) {
    files_to_open_.insert(files_to_open_.end(), paths.begin(), paths.end());
    return;
  }
  for (const std::string& path : paths) OpenPath(app(), path);
}

}  // namespace zentaline
