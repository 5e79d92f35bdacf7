#include "arrangement/frmArrAB.h"

#include <string>
#include <utility>

#include "arrangement/api.h"
#include "arrangement/arr_format.h"
#include "arrangement/windows.h"
#include "base/scoped_value.h"
#include "core/application.h"
#include "core/boxes.h"
#include "core/main_window.h"
#include "core/window_image.h"
#include "data/texts.h"
#include "files/api.h"
#include "midi/api.h"

namespace zentaline {

frmArrAB::frmArrAB(Application& app, int kind, Bytes image)
    : ArrListWindow(app, "frmArrAB", std::to_string(kind), std::move(image)), kind_(kind) {
  Label1.SetCaption("Style");
  CommArrPlay.SetCaption("&ARR PLAY");
  CommSongPlay.SetCaption("SO&NG PLAY");
  CommClose.SetCaption(GetText(app, kTextClose));
  List1.on_click = Timer.on_timer = [this] {
    ClickRow();
    RefreshMenus();
  };
  CommArrPlay.on_click = [this] {
    SetMonitorOn(this->app(), true);
    SendModeArrPlay(this->app());
    List1.SetFocus();
  };
  MakeModeButton(CommSongPlay, SendModeSongPlay, List1);
  CommClose.on_click = [this] { Close(); };
  LayOut();
}

void frmArrAB::LayOut() {
  Text1.read_only = true;
  Text1.least_characters = {8, 1};
  layout = ui::Row({ui::Item(List1, 1),
                    ui::Column({ui::Grid(2, {ui::Item(Label1), ui::Item(Combo1), ui::Item(LabelId), ui::Item(Text1)}),
                                ui::Inside(Frame1, ui::Row({ui::Item(CommArrPlay, 1), ui::Item(CommSongPlay, 1)})),
                                ui::Space(), ui::Row({ui::Space(), ui::Item(CommClose)})})});
}

FormState* frmArrAB::FormPlace() {
  return &app().core.FormStates[static_cast<std::size_t>(kind_)];
}

int frmArrAB::FileId() const {
  return ArrBankFileId(kind_);
}

void frmArrAB::ShowName() {
  SetCaption(kind_ == kKindArrA ? "Arrangements A" : "Arrangements B");
}

void frmArrAB::Load() {
  const ScopedValue loading(app().core.FormLoading, true);
  ChildWindow::Load();
  ShowName();
  FillRows();
  Text1.SetText(" " + std::to_string(FileId()));
  if (app().main != nullptr) app().main->Menu(ArrBankEntry(kind_)).SetEnabled(false);
  if (IsSearched()) Timer.Start();
}

bool frmArrAB::IsSearched() const {
  return app().arrangement.FindActive && app().arrangement.FindFileId == FileId();
}

void frmArrAB::GoToFoundRow() {
  List1.SetRow(app().arrangement.FindRow);
}

void frmArrAB::ClickRow() {
  ArrangementState& state = app().arrangement;
  if (app().core.ListBusy) return;
  if (IsSearched()) {
    // The row that it is put on raises the click anew.
    state.FindActive = false;
    return GoToFoundRow();
  }
  int row = List1.Row();
  if (row < 0) return;
  if (app().midi.CurrentMode != kModeArrPlay) SendModeArrPlay(app());
  if (IsEmptyRow(row)) return;
  Text1.SetText(std::to_string(FileId()) + RowLabel(row));
  ShowStyle(row);
  MonitorLog(app(), {});
  SelectArrangement(app(), row, kind_);
  MonitorLog(app(), app().midi.SysExBuffer);
}

bool frmArrAB::CanSave() const {
  return ByteAt(window_image(), kChangedPosition) == 1;
}

bool frmArrAB::QueryClose() {
  if (!CloseArrEditorOf(app(), *this)) return false;
  return !CanSave() || SaveBeforeClosing(app(), *this);
}

void frmArrAB::Unload() {
  if (IsSearched()) app().arrangement.FindActive = false;
  ChildWindow::Unload();
  if (app().main != nullptr) app().main->Menu(ArrBankEntry(kind_)).SetEnabled(true);
}

}  // namespace zentaline
