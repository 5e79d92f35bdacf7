#include "arrangement/file_list_window.h"

#include "arrangement/api.h"
#include "arrangement/arr_format.h"
#include "core/application.h"
#include "core/boxes.h"
#include "core/main_window.h"
#include "core/send_steps.h"
#include "data/message_codes.h"
#include "midi/api.h"

namespace zentaline {

namespace {

constexpr int kLoadArrDue = 9;  // milliseconds

}  // namespace

std::string ArrFileListWindow::NameForInstrument() const {
  return CutText(BaseName(), kInstrumentNameLength);
}

void ArrFileListWindow::ClickRow() {
  const int row = List1.Row();
  if (app().core.ListBusy || row < 0) return;
  if (IsEmptyRow(row)) {
    ShowNothing();
    return ShowWait(app(), 0);
  }
  const int state = ClickTimer().interval();
  ClickTimer().SetInterval(kClickFresh);
  if (state == kClickFresh && app().core.settings.CaricaArr &&
      NameForInstrument() != app().arrangement.ArrInInstrument) {
    ClickTimer().SetInterval(kClickArrSent);
    return ButtonOf(WindowFunction::kLoadArr)->Press();
  }
  if (state != kClickStySent) {
    RowChosen(row);
    if (app().midi.CurrentMode != kModeArrPlay) SendModeArrPlay(app());
    ShowSelected(row);
    if (UsesUserStyle(row) && LoadsStylesOnClick() && NameForInstrument() != app().style.StyInInstrument) {
      ClickTimer().SetInterval(kClickStySent);
      return ButtonOf(WindowFunction::kLoadSty)->Press();
    }
  }
  SelectRow(row);
  ShowWait(app(), 0);
}

bool ArrFileListWindow::LoadArrIsDue(ui::Timer& timer) {
  if (TakeSendStep(timer) != kSendIdle) return true;
  AskAboutEdits();
  // A click that waits for the file fills the editor anew and doesn't ask twice.
  if (ClickTimer().interval() == kClickArrSent) app().edits.Mark(kArrRecordUnderEdit, false);
  WaitForSend(app(), timer, kLoadArrDue, kWaitLoadingArr);
  return false;
}

void ArrFileListWindow::SendArrangements() {
  MonitorLog(app(), {});
  SendArrDump(app(), window_image());
  app().arrangement.ArrInInstrument = NameForInstrument();
  if (app().main != nullptr) app().main->LabelArr.SetCaption(ShownPath(NameForInstrument()));
  ShowWait(app(), 0);
}

void ForgetArrInInstrument(Application& app) {
  app.arrangement.ArrInInstrument.clear();
}

void ArrFileListWindow::ContinueClick(int state) {
  if (ClickTimer().interval() == state) ClickTimer().Start();
}

void ArrFileListWindow::AskAboutEdits() {
  ArrangementState& state = app().arrangement;
  if (!state.EditorOpen || !state.EditorChanged) return;
  if (AskYesNo(app(), kAskArrKeep) != ui::BoxAnswer::kYes) return;
  if (StoreEditRecord(app()) != kArrStored) return;
  app().edits.Mark(kArrRecordUnderEdit, false);
  ArrRecordKept(app());
}

bool ArrFileListWindow::KeyInList(const ui::Key& key) {
  if (key.name != ui::Key::kDelete) return false;
  if (!RefusesChanges() && app().main != nullptr) app().main->Menu(MenuId::mnuTaglia).UserPress();
  return true;
}

}  // namespace zentaline
