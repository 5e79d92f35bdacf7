#include "program/list_window.h"

#include <utility>

#include "arrangement/api.h"
#include "base/scoped_value.h"
#include "core/application.h"
#include "core/boxes.h"
#include "data/texts.h"
#include "midi/api.h"

namespace zentaline {

namespace {

constexpr int kChannels = 16;
constexpr int kRowsOfADecade = 8;

}  // namespace

ProgramListWindow::ProgramListWindow(Application& app, std::string name, std::string number, Bytes image)
    : ChildWindow(app, std::move(name), std::move(number)) {
  app.edits.TakeImage(*this, std::move(image));
  Label1.SetCaption(GetText(app, kTextMidiChannel));
  CommClose.SetCaption(GetText(app, kTextClose));
  std::vector<std::string> channels;
  for (int channel = 1; channel <= kChannels; ++channel) channels.push_back(" " + std::to_string(channel));
  Combo1.SetRows(std::move(channels));
  Combo1.least_characters = {6, 1};
  List1.SetFont({.fixed_pitch = true});
  List1.multi_select = true;
  List1.group_rows = kRowsOfADecade;
  List1.least_characters = {24, 17};
  List1.on_click = [this] {
    ClickRow();
    RefreshMenus();
  };
  List1.on_context = on_context = [this] { PopupEditMenu(); };
  Combo1.on_click = [this] {
    if (this->app().core.FormLoading) return;
    KeepChannel(Combo1.row());
    ShowName();
  };
  CommClose.on_click = [this] { Close(); };
}

void ProgramListWindow::ShowRow(int row) {
  const ScopedValue busy(app().core.ListBusy, true);
  List1.SetRow(row);
}

void ProgramListWindow::ShowChannel() {
  const ScopedValue loading(app().core.FormLoading, true);
  const int channel = BankChannel(window_image());
  Combo1.SetRow(channel < kChannels ? channel : -1);
}

std::string ProgramListWindow::ChannelSuffix() const {
  return " - " + GetText(app(), kTextMidiChannel) + " " + std::to_string(BankChannel(window_image()) + 1);
}

int ProgramListWindow::ClickedRow() const {
  return app().core.ListBusy ? -1 : List1.Row();
}

// The monitor shows the eight bytes of the selection and then the last two again.
void ProgramListWindow::HearRow(int row) {
  if (!app().midi.OutputOpen) return;
  MonitorLog(app(), {});
  SelectProgram(app(), window_image(), row);
  MonitorLog(app(), app().midi.SysExBuffer);
}

void ProgramListWindow::AssignRow(int row) {
  PickProgram(app(), window_image(), row);
  app().edits.Mark(kArrRecordUnderEdit, true);
}

}  // namespace zentaline
