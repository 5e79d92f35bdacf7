// How the window's files reach the instrument, and the search that brings an arrangement up.
#include <utility>

#include "arrangement/api.h"
#include "arrangement/frmArrU.h"
#include "base/scoped_value.h"
#include "core/application.h"
#include "core/boxes.h"
#include "core/main_window.h"
#include "core/send_steps.h"
#include "core/window_image.h"
#include "data/message_codes.h"
#include "files/api.h"
#include "midi/api.h"
#include "program/api.h"
#include "program/prg_format.h"
#include "style/sty_format.h"
#include "style/transmission.h"

namespace zentaline {

namespace {

// The steps that the timers carry in their intervals, which are milliseconds too.
constexpr int kPauseBetweenGroups = 1000;  // the instrument stores a group meanwhile
constexpr int kPrgWindowWait = 9;
constexpr int kPrgWindowSend = 8;
constexpr int kPrgFileWait = 7;
constexpr int kPrgFileSend = 6;
constexpr int kFindStart = 10;
constexpr int kFindSty = 20;
constexpr int kFindPrg = 30;
constexpr int kFindAfterArr = 800;
constexpr int kFindAfterSty = 820;
constexpr int kFindAfterPrg = 40;

}  // namespace

void frmArrU::PressLoadArr() {
  if (!LoadArrIsDue(TimerLoadArr)) return;
  // The song mode makes the instrument leave the arrangement that it plays before the dump arrives.
  SendModeSongPlay(app());
  SendModeArrPlay(app());
  SendArrangements();
  // What has no file of its own leaves the instrument's entry as it is.
  if (number_ != kInstrumentWindow && HasOwnPath()) SlotTakeFile(app(), Path());
  ContinueSearch(kFindAfterArr);
  ContinueClick(kClickArrSent);
}

void frmArrU::PressLoadSty() {
  const StyleTimers timers{TimerTxSty0, TimerTxSty1, kPauseBetweenGroups};
  switch (PressLoadStyles(app(), timers, window_image(), StyGroupsToSend(window_image()), BaseName())) {
    case StyleStep::kNothingToSend:
      // Whoever waits for the end of the styles goes on without them.
      ContinueClick(kClickStySent);
      ContinueSearch(kFindPrg);
      return List1.SetFocus();
    case StyleStep::kUnderWay:
      return;
    case StyleStep::kEnded:
      break;
  }
  if (int row = List1.Row(); row >= 0) SelectArrangement(app(), row, kKindArr);
  ContinueClick(kClickStySent);
  ContinueSearch(kFindAfterSty);
  List1.SetFocus();
}

void frmArrU::PressLoadPrg() {
  TimerLoadPrg.Stop();
  switch (const int step = TakeSendStep(TimerLoadPrg); step) {
    case kPrgWindowWait:
    case kPrgFileWait:
      return WaitForSend(app(), TimerLoadPrg, step - 1, kWaitLoadingPrg);
    case kPrgWindowSend:
      // The window may have been closed meanwhile.
      if (const Bytes* image = FindOpenProgram(app(), Path())) SendPrograms(*image, ProgramExtension(*image) == "pgg");
      break;
    case kPrgFileSend:
      SendPrograms(programs_to_send_, pgg_to_send_);
      break;
    default:
      if (FindOpenProgram(app(), Path()) != nullptr) {
        return WaitForSend(app(), TimerLoadPrg, kPrgWindowWait, kWaitLoadingPrg);
      }
      const int result = ReadProgramByName(app(), Path());
      if (result != kPrgGood && result != kPggGood) {
        ContinueSearch(kFindAfterPrg);
        return List1.SetFocus();
      }
      pgg_to_send_ = result == kPggGood;
      programs_to_send_ = BuildPrgWindowImage(app().program.ProgramFileBuffer);
      return WaitForSend(app(), TimerLoadPrg, kPrgFileWait, kWaitLoadingPrg);
  }
  programs_to_send_.clear();
  ShowWait(app(), 0);
  ContinueSearch(kFindAfterPrg);
  List1.SetFocus();
}

void frmArrU::SendPrograms(const Bytes& image, bool pgg) {
  SendPrgBankDump(app(), image);
  TellPrgInInstrument(app(), ProgramsForInstrument(), pgg);
  SlotTakePrg(app(), Path(), pgg);
}

void frmArrU::PressAdd() {
  if (!std::exchange(adding_, !adding_)) {
    ShowWait(app(), kWaitUpdate, "i40DBArr");
    return TimerAdd.Start();
  }
  TimerAdd.Stop();
  SetCurrentFile(app(), Path());
  DBAddFile(app(), kKindArr, DBEntryBy::kUser);
  if (const int id = app().arrangement.ArrFileId; id > 0) {
    app().arrangement.WindowFileId[static_cast<std::size_t>(number_)] = id;
    ShowId({});
  }
  ShowWait(app(), 0);
  List1.SetFocus();
}

bool frmArrU::IsSearched() const {
  const ArrangementState& state = app().arrangement;
  return state.FindActive && number_ != kInstrumentWindow &&
         state.WindowFileId[static_cast<std::size_t>(number_)] == state.FindFileId;
}

// The search clicks the row itself, when all that it needs has been sent.
void frmArrU::BeginSearch() {
  ArrangementState& state = app().arrangement;
  EndSearch();
  NoteWhatTheSearchNeeds();
  searching_ = true;
  const ScopedValue busy(app().core.ListBusy, true);
  List1.SetRow(state.FindRow);
  TimerFindID.Start();
}

void frmArrU::EndSearch() {
  searching_ = false;
  TimerFindID.Stop();
  TimerFindID.SetInterval(kFindStart);
}

// The interval is the step of the search. A step that waits for a send ends, and the send's end starts the timer again.
void frmArrU::StepSearch() {
  ArrangementState& state = app().arrangement;
  const Settings& settings = app().core.settings;
  int step = TimerFindID.interval();
  if (step == kFindStart) {
    step = kFindSty;
    if (settings.CaricaArr && state.ArrInInstrument != NameForInstrument()) {
      TimerFindID.SetInterval(step);
      return CommLoadArr.Press();
    }
  }
  if (step == kFindSty || step == kFindAfterArr || step == kFindAfterSty) {
    step = kFindPrg;
    if (settings.CaricaSty && state.FindUserStyle && app().style.StyInInstrument != NameForInstrument()) {
      TimerFindID.SetInterval(step);
      return CommLoadSty.Press();
    }
  }
  if (step == kFindPrg) {
    step = kFindAfterPrg;
    if (settings.CaricaPrg && state.FindNeedsPrg && app().program.PrgInInstrument != ProgramsForInstrument()) {
      TimerFindID.SetInterval(step);
      return CommLoadPrg.Press();
    }
  }
  state.FindActive = false;
  EndSearch();
  if (List1.Row() < 0) ShowWait(app(), 0);
  List1.Click();
}

bool frmArrU::Sending() const {
  return adding_ || SendIsDue(TimerLoadArr) || SendIsDue(TimerTxSty0) || SendIsDue(TimerLoadPrg);
}

void frmArrU::ContinueSearch(int step) {
  if (!searching_ || !app().arrangement.FindActive) return;
  TimerFindID.SetInterval(step);
  TimerFindID.Start();
}

}  // namespace zentaline
