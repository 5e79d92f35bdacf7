#include "core/main_window.h"

#include <optional>
#include <utility>

#include "arrangement/api.h"
#include "core/application.h"
#include "core/boxes.h"
#include "core/child_window.h"
#include "core/window_image.h"
#include "data/captions.h"
#include "data/tooltips.h"
#include "files/api.h"
#include "program/api.h"
#include "style/api.h"

namespace zentaline {

using enum MenuId;

namespace {

constexpr ui::Colour kMissingColour = 0x70D7FF;  // amber: the notes go nowhere

}  // namespace

MainWindow::MainWindow(Application& app)
    : Form(app.toolkit, ui::FormKind::kMain, "frmMain"), app_(app), welcome_(*this, app) {
  MakeMenus();
  for (ui::Label* label : {&LabelNomeAppl, &Label1, &LabelMode, &LabelArr, &LabelSty, &LabelPrg, &LabelPort}) {
    label->sunken = label->literal = true;
  }
  // In the least window each of them still shows something, and that there is no output is told whole.
  Label1.least_characters = {4, 1};
  LabelArr.least_characters = LabelSty.least_characters = LabelPrg.least_characters = {3, 1};
  LabelPort.least_characters = {15, 1};
  LabelMode.least_characters = {9, 1};
  LabelPort.on_mouse = [this](const ui::MouseEvent& event) {
    if (event.what == ui::MouseEvent::kUp && !event.right) PopupOutputs();
  };
  LabelPort.on_key = [this](const ui::Key& key) {
    if (key.name == ui::Key::kEnter) PopupOutputs();
    return key.name == ui::Key::kEnter;
  };
  layout = ui::Inside(Picture1,
                      ui::Row({ui::Item(LabelNomeAppl), ui::Item(Label1, 5), ui::Item(LabelMode), ui::Item(LabelArr, 3),
                               ui::Item(LabelSty, 3), ui::Item(LabelPrg, 3), ui::Item(LabelPort, 4)}));
  wait_field = &Label1;
  free_area = welcome_.LayOut();
}

void MainWindow::MakeMenus() {
  for (const MenuRow& row : MenuRows()) {
    ui::MenuEntry* parent = row.parent == kCount ? nullptr : menus_[static_cast<std::size_t>(row.parent)].get();
    menus_.push_back(std::make_unique<ui::MenuEntry>(*this, parent, row.name));
    ui::MenuEntry& entry = *menus_.back();
    entry.separator_before = row.separator_before;
    entry.shortcut = row.shortcut;
    if (row.id == mnuExit) {
      for (int i = 0; i < static_cast<int>(recent_files_.size()); ++i) {
        auto& recent = recent_files_[static_cast<std::size_t>(i)];
        recent = std::make_unique<ui::MenuEntry>(*this, &Menu(mnuFile), "mnuRecentFile", i);
        recent->separator_before = i == 0;
        recent->literal = true;
      }
    }
  }
  for (int i = 0; i < static_cast<int>(out_devices_.size()); ++i) {
    auto& out = out_devices_[static_cast<std::size_t>(i)];
    out = std::make_unique<ui::MenuEntry>(*this, &Menu(mnuMIDIOut), "mnuDevMIDIOut", i);
    auto& in = in_devices_[static_cast<std::size_t>(i)];
    in = std::make_unique<ui::MenuEntry>(*this, &Menu(mnuMIDIIn), "mnuDevMIDIIn", i);
    out->literal = in->literal = true;
  }
  for (int i = 0; i < kMostWindows; ++i) {
    auto& window = window_list_[static_cast<std::size_t>(i)];
    window = std::make_unique<ui::MenuEntry>(*this, &Menu(mnuWindow), "mnuWindowList", i);
    window->literal = window->numbered = true;
    window->separator_before = i == 0;
    window->SetVisible(false);
    window->on_click = [this, i] { ActivateListed(i); };
  }
  // They tell the name of a file too.
  Menu(mnuArrU).literal = Menu(mnuPrgU).literal = true;
}

ui::MenuEntry& MainWindow::mnuDevMIDIOut(int device) const {
  return *out_devices_[static_cast<std::size_t>(device) % out_devices_.size()];
}

ui::MenuEntry& MainWindow::mnuDevMIDIIn(int device) const {
  return *in_devices_[static_cast<std::size_t>(device) % in_devices_.size()];
}

ChildWindow* MainWindow::ActiveChild() const {
  return static_cast<ChildWindow*>(toolkit().active_child());
}

void MainWindow::ShowDeviceMenus() {
  const MidiState& midi = app_.midi;
  for (int i = 0; i < kMostMidiDevices; ++i) {
    const auto device = static_cast<std::size_t>(i);
    ui::MenuEntry& out = mnuDevMIDIOut(i);
    out.SetCaption(midi.MidiOutCaps[device].product_name);
    out.SetVisible(midi.MidiDeviceOk[kOutputRow][device] == 1);
    out.SetChecked(midi.MidiOutDevice == i);
    ui::MenuEntry& in = mnuDevMIDIIn(i);
    in.SetCaption(midi.MidiInCaps[device].product_name);
    in.SetVisible(midi.MidiDeviceOk[kInputRow][device] == 1);
    in.SetChecked(midi.MidiInDevice == i);
  }
  Menu(mnuMIDIOut).SetEnabled(midi.MidiOutCount > 0);
  Menu(mnuMIDIThru).SetEnabled(midi.OutputOpen && midi.InputOpen);
  Menu(mnuMIDIThru).SetChecked(midi.ThruOn);
}

std::string MainWindow::OutputWords(const char* words, const std::string& device) const {
  return WithName(Caption(name(), words, app_.Language()), device);
}

// After a failed send everything is dropped until the output is chosen again: one box is soon forgotten.
void MainWindow::ShowOutput() {
  const MidiState& midi = app_.midi;
  const bool fails = midi.OutputOpen && !(midi.LongOutputOk && midi.ShortOutputOk);
  const auto row = static_cast<std::size_t>(midi.MidiOutDevice) % midi.MidiOutCaps.size();
  const std::string device = midi.OutputOpen ? midi.MidiOutCaps[row].product_name : std::string();
  LabelPort.SetCaption(OutputWords(fails             ? "LabelPort.failed"
                                   : midi.OutputOpen ? "LabelPort.open"
                                                     : "LabelPort.none",
                                   device));
  LabelPort.SetBackColour(midi.OutputOpen && !fails ? std::nullopt : std::optional(kMissingColour));
  welcome_.ShowOutput(OutputWords(fails             ? "LabelWelcome.failed"
                                  : midi.OutputOpen ? "LabelWelcome.open"
                                                    : "LabelWelcome.none",
                                  device),
                      midi.MidiOutCount > 0);
}

void MainWindow::PopupOutputs() {
  if (Menu(mnuMIDIOut).Usable()) toolkit().PopupMenu(Menu(mnuMIDIOut));
}

void MainWindow::ForgetWhatWasSent() {
  ForgetArrInInstrument(app_);
  ForgetStyInInstrument(app_);
  ForgetPrgInInstrument(app_);
  for (ui::Label* label : {&LabelArr, &LabelSty, &LabelPrg}) label->SetCaption({});
}

void MainWindow::ChildrenChanged() {
  welcome_.Show();
}

void MainWindow::ShowToggles() {
  for (const Toggle& toggle : kToggles) Menu(toggle.entry).SetChecked(app_.core.settings.*toggle.flag);
  Picture1.SetVisible(app_.core.settings.VisBarraStato);
  Menu(mnuItaliano).SetChecked(app_.core.LanguageCode == 1);
  Menu(mnuInglese).SetChecked(app_.core.LanguageCode == 2);
}

void MainWindow::Settled() {
  for (ui::Form* form : toolkit().stacked_children()) form->SetModified(static_cast<ChildWindow*>(form)->Unsaved());
  if (toolkit().TakeWindowsChanged()) ShowWindowList();
}

void MainWindow::ShowWindowList() {
  int i = 0;
  for (const ui::Form* form : toolkit().forms()) {
    if (form->kind() != ui::FormKind::kChild || i == kMostWindows) continue;
    ui::MenuEntry& entry = mnuWindowList(i++);
    entry.SetCaption(form->caption());
    entry.SetChecked(form == toolkit().active_child());
    if (entry.tool_tip().empty()) entry.SetToolTip(std::string(ToolTip(name(), entry.name(), app_.Language())));
    entry.SetVisible(true);
  }
  for (; i < kMostWindows && mnuWindowList(i).visible(); ++i) {
    mnuWindowList(i).SetVisible(false);
    mnuWindowList(i).SetChecked(false);
    mnuWindowList(i).SetCaption({});
  }
}

void MainWindow::ActivateListed(int i) {
  for (ui::Form* form : toolkit().forms()) {
    if (form->kind() == ui::FormKind::kChild && i-- == 0) return toolkit().Activate(*form);
  }
}

void MainWindow::ShowRecentFiles() {
  for (int i = 0; i < static_cast<int>(recent_files_.size()); ++i) {
    const std::string caption = RecentCaption(app_, i);
    mnuRecentFile(i).SetCaption(caption);
    mnuRecentFile(i).SetVisible(!caption.empty());
    mnuRecentFile(i).SetEnabled(CanOpenRecent(app_, i));
  }
  welcome_.ShowRecentFiles();
}

void MainWindow::EnableDatabaseEntries(bool usable) {
  for (const MenuId id : {mnuWEditDBArr, mnuAggArr}) Menu(id).SetEnabled(usable);
  // Its window is there once; the entry is off while it is open.
  Menu(mnuWFindID).SetEnabled(usable && toolkit().FindForm("frmFindID") == nullptr);
}

// The entry's own name, with the file that it shows where it has one.
void MainWindow::ShowFileOf(MenuId id, const std::string& file) {
  std::string caption(Caption(name(), Menu(id).FullName(), app_.Language()));
  if (!file.empty()) caption += " (" + ShownPath(file) + ")";
  Menu(id).SetCaption(caption);
}

void MainWindow::ShowArrUEntry() {
  const WindowRecord& record = app_.core.ArrWindows[kInstrumentWindow];
  ShowFileOf(mnuArrU, record.path.empty() ? "" : std::string(FileBaseName(record.path)) + ".arr");
  Menu(mnuArrU).SetEnabled(!record.path.empty() && app_.arr_windows[kInstrumentWindow] == nullptr);
}

void MainWindow::ShowPrgUEntry() {
  const WindowRecord& record = app_.core.PrgWindows[kInstrumentWindow];
  const char* extension = record.pgg == 1 ? ".pgg" : ".prg";
  ShowFileOf(mnuPrgU, record.path.empty() ? "" : std::string(FileBaseName(record.path)) + extension);
  Menu(mnuPrgU).SetEnabled(!record.path.empty() && app_.prg_windows[kInstrumentWindow] == nullptr);
}

}  // namespace zentaline
