#include "arrangement/frmArrNew.h"

#include <string>
#include <utility>

#include "arrangement/arr_format.h"
#include "arrangement/windows.h"
#include "base/scoped_value.h"
#include "core/application.h"
#include "core/boxes.h"
#include "core/main_window.h"
#include "core/send_steps.h"
#include "core/window_image.h"
#include "data/texts.h"
#include "files/api.h"
#include "midi/api.h"
#include "style/sty_format.h"

namespace zentaline {

frmArrNew::frmArrNew(Application& app, int number, Bytes image)
    : ArrFileListWindow(app, "frmArrNew", std::to_string(number), std::move(image)), number_(number) {
  Label1.SetCaption("Style");
  CommLoadArr.SetCaption("Load &Arr");
  CommLoadSty.SetCaption("Load &Styles");
  CommArrPlay.SetCaption("&ARR PLAY");
  CommClose.SetCaption(GetText(app, kTextClose));
  List1.on_click = [this] {
    ClickRow();
    RefreshMenus();
  };
  List1.on_key = [this](const ui::Key& key) { return KeyInList(key); };
  Timer.on_timer = TimerList1.on_timer = [this] { List1.Click(); };
  CommLoadArr.on_click = [this] { PressLoadArr(); };
  CommLoadSty.on_click = [this] { PressLoadSty(); };
  Serve({{WindowFunction::kLoadArr, CommLoadArr, TimerLoadArr}, {WindowFunction::kLoadSty, CommLoadSty, TimerLoadSty}});
  MakeModeButton(CommArrPlay, SendModeArrPlay, List1);
  CommClose.on_click = [this] { Close(); };
  LayOut();
}

void frmArrNew::LayOut() {
  layout = ui::Row({ui::Item(List1, 1),
                    ui::Column({ui::Row({ui::Item(Label1), ui::Item(Combo1, 1)}),
                                ui::Inside(Frame1[0], ui::Row({ui::Item(CommLoadArr, 1), ui::Item(CommLoadSty, 1)})),
                                ui::Inside(Frame1[1], ui::Item(CommArrPlay)), ui::Space(),
                                ui::Row({ui::Space(), ui::Item(CommClose)})})});
}

// New files have slots of their own, which the configuration doesn't keep.
ChildWindow*& frmArrNew::Slot() {
  return app().new_arr_windows[static_cast<std::size_t>(number_)];
}

void frmArrNew::Load() {
  const ScopedValue loading(app().core.FormLoading, true);
  Slot() = this;
  ChildWindow::Load();
  ShowName();
  RecordsChanged();
}

void frmArrNew::ShowName() {
  const std::string name = saved_ ? ShownPath(BaseName()) : GetText(app(), kTextUntitled);
  SetCaption(GetText(app(), kTextNewFileArr) + " - " + name + ".arr (" + std::to_string(number_) + ")");
}

void frmArrNew::FileSaved() {
  saved_ = true;
  ShowName();
}

void frmArrNew::RecordsChanged() {
  CommLoadArr.SetEnabled(FillRows());
  CommLoadSty.SetEnabled(ByteAt(window_image(), kStyStatePosition) == 2);
}

// --- The list ---

bool frmArrNew::LoadsStylesOnClick() const {
  return app().core.settings.CaricaSty || app().core.settings.CaricaStyNuovoArr;
}

void frmArrNew::ShowNothing() {
  Combo1.ShowText({});
}

void frmArrNew::ShowSelected(int row) {
  ShowStyle(row);
}

void frmArrNew::SelectRow(int row) {
  SelectArrangement(app(), row, kKindNewArr);
}

// --- Sending ---

// No modes go out in front of these arrangements.
void frmArrNew::PressLoadArr() {
  if (!LoadArrIsDue(TimerLoadArr)) return;
  SendArrangements();
  ContinueClick(kClickArrSent);
}

void frmArrNew::PressLoadSty() {
  const StyleStep step = PressLoadStyles(app(), timers(), window_image(), StyGroupsToSend(window_image()), BaseName());
  if (step == StyleStep::kUnderWay) return;
  if (int row = List1.Row(); step == StyleStep::kEnded && row >= 0) SelectArrangement(app(), row, kKindNewArr);
  // Without styles to send a click that waits for them goes on all the same.
  ContinueClick(kClickStySent);
}

// --- The main window asks ---

bool frmArrNew::CanSave() const {
  return ByteAt(window_image(), kChangedPosition) == 1;
}

// --- Closing ---

bool frmArrNew::HasRows() const {
  for (int row = 0; row < List1.rows(); ++row) {
    if (!IsEmptyRow(row)) return true;
  }
  return false;
}

// A list without rows has nothing that could get lost, whatever happened in it.
bool frmArrNew::QueryClose() {
  return !Unsaved() || SaveBeforeClosing(app(), *this);
}

void frmArrNew::Unload() {
  UnloadFile(Slot(), SendIsDue(TimerLoadArr) || LoadingStyles(timers()), saved_ ? Path() + ".arr" : "");
  RefreshNewArrEntry(app());
}

}  // namespace zentaline
