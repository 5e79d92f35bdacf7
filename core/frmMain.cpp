#include "core/frmMain.h"

#include <algorithm>
#include <utility>

#include "arrangement/api.h"
#include "core/application.h"
#include "core/boxes.h"
#include "core/child_window.h"
#include "core/configuration.h"
#include "core/frmAbout.h"
#include "core/window_image.h"
#include "data/captions.h"
#include "files/api.h"
#include "files/paths.h"
#include "midi/api.h"
#include "style/api.h"

namespace zentaline {

namespace {

using enum MenuId;

constexpr char kProgramName[] = "Zentaline";
constexpr int kWaitUpdate = 8;
constexpr int kTextOpeningOut = 113;
constexpr int kTextClosingOut = 114;
constexpr int kTextChangeLanguage = 84;
constexpr int kMessageNextStart = 24;
constexpr int kTypeArr = 1;

// A second tick would run the rest of the load twice: whichever of the two fires first stops the other.
constexpr int kFallbackInterval = 20;

constexpr int kCascadeStep = 28;

// The windows that TimerAuto brings back: its index, which is the form's too, and their menu entry.
struct AutoWindow {
  int index;
  MenuId entry;
};
constexpr AutoWindow kAutoWindows[] = {
    {2, mnuArrA},   {3, mnuArrB},   {4, mnuWProgA}, {5, mnuWProgB},       {6, mnuWProgC},
    {7, mnuWProgD}, {8, mnuWProgE}, {9, mnuDrum},   {10, mnuGlobalParam}, {11, mnuWFindID},
};

struct Toggle {
  MenuId entry;
  bool Settings::*flag;
};
constexpr Toggle kToggles[] = {
    {mnuCaricaArr, &Settings::CaricaArr},
    {mnuCaricaSty, &Settings::CaricaSty},
    {mnuCaricaStyNuovoArr, &Settings::CaricaStyNuovoArr},
    {mnuCaricaPrg, &Settings::CaricaPrg},
    {mnuAutoPrgSel, &Settings::AutoPrgSel},
    {mnuRdOnly, &Settings::RdOnly},
    {mnuVisBarraStato, &Settings::VisBarraStato},
    {mnuAddi40DBArr, &Settings::Add40DBArr},
};

// The entries that let the window in front do the work, as if its own button had been pressed.
struct ActiveEntry {
  MenuId entry;
  WindowFunction function;
};
constexpr ActiveEntry kActiveEntries[] = {
    {mnuLoadAll, WindowFunction::kLoadAll}, {mnuLoadArr, WindowFunction::kLoadArr},
    {mnuLoadSty, WindowFunction::kLoadSty}, {mnuShowSty, WindowFunction::kShowSty},
    {mnuLoadPrg, WindowFunction::kLoadPrg}, {mnuShowPrg, WindowFunction::kShowPrg},
    {mnuEdit, WindowFunction::kEdit},       {mnui40DBArr, WindowFunction::kAddToDatabase},
    {mnuCancella, WindowFunction::kDelete}, {mnuDBArrApri, WindowFunction::kOpen},
    {mnuAddAll, WindowFunction::kAddAll},
};

// What RefreshMenus turns off first.
constexpr MenuId kChildEntries[] = {
    mnuIngrandisci, mnuTaglia,        mnuIncolla,  mnuCopia,    mnuSalva,    mnuSalvaAs,   mnuStampa,
    mnuStampaLista, mnuStampaTabella, mnuLoadArr,  mnuLoadSty,  mnuLoadAll,  mnuShowSty,   mnuLoadPrg,
    mnuShowPrg,     mnuEdit,          mnuEditPerf, mnui40DBArr, mnuCancella, mnuDBArrApri, mnuAddAll,
};

}  // namespace

frmMain::frmMain(Application& app) : Form(app.toolkit, ui::FormKind::kMain, "frmMain"), app_(app) {
  MakeMenus();
  ConnectMenus();
  for (const AutoWindow& window : kAutoWindows) {
    TimerAuto.push_back(std::make_unique<ui::Timer>(*this, "TimerAuto", window.index));
  }
  for (int entry = 1; entry <= kInstrumentWindow; ++entry) {
    TimerArrU.push_back(std::make_unique<ui::Timer>(*this, "TimerArrU", entry));
    TimerArrU.back()->on_timer = [this, entry] { ReopenArrangement(entry); };
  }
  for (std::size_t i = 0; i < TimerAuto.size(); ++i) {
    TimerAuto[i]->on_timer = [this, i] { ReopenAuto(i); };
  }
  Timer0.on_timer = Timer2.on_timer = [this] { FinishLoad(); };
  TimerAggArr.on_timer = [this] {
    DBPurge(app_);
    ShowWait(app_, 0);
  };
  for (ui::Label* label : {&LabelNomeAppl, &Label1, &LabelMode, &LabelArr, &LabelSty, &LabelPrg}) label->sunken = true;
  Label1.least_characters = {30, 1};
  LabelMode.least_characters = {10, 1};
  layout = ui::Inside(Picture1, ui::Row({ui::Item(LabelNomeAppl), ui::Item(Label1, 2), ui::Item(LabelMode),
                                         ui::Item(LabelArr, 1), ui::Item(LabelSty, 1), ui::Item(LabelPrg, 1)}));
}

void frmMain::MakeMenus() {
  for (const MenuRow& row : MenuRows()) {
    ui::MenuEntry* parent = row.parent == kCount ? nullptr : menus_[static_cast<std::size_t>(row.parent)].get();
    menus_.push_back(std::make_unique<ui::MenuEntry>(*this, parent, row.name));
    ui::MenuEntry& entry = *menus_.back();
    entry.separator_before = row.separator_before;
    entry.shortcut = row.shortcut;
    if (row.waits_for_window) entry.SetEnabled(false);
    if (row.id == mnuExit) {
      for (int i = 0; i < static_cast<int>(recent_files_.size()); ++i) {
        auto& recent = recent_files_[static_cast<std::size_t>(i)];
        recent = std::make_unique<ui::MenuEntry>(*this, &Menu(mnuFile), "mnuRecentFile", i);
        recent->separator_before = i == 0;
        recent->on_click = [this, i] { OpenRecentFile(app_, i); };
      }
    }
  }
  for (int i = 0; i < static_cast<int>(out_devices_.size()); ++i) {
    auto& out = out_devices_[static_cast<std::size_t>(i)];
    out = std::make_unique<ui::MenuEntry>(*this, &Menu(mnuMIDIOut), "mnuDevMIDIOut", i);
    out->on_click = [this, i] { ChooseMidiOut(app_, i); };
    auto& in = in_devices_[static_cast<std::size_t>(i)];
    in = std::make_unique<ui::MenuEntry>(*this, &Menu(mnuMIDIIn), "mnuDevMIDIIn", i);
    in->on_click = [this, i] { ChooseMidiIn(app_, i); };
  }
}

ui::MenuEntry& frmMain::mnuDevMIDIOut(int device) const {
  return *out_devices_[static_cast<std::size_t>(device) % out_devices_.size()];
}

ui::MenuEntry& frmMain::mnuDevMIDIIn(int device) const {
  return *in_devices_[static_cast<std::size_t>(device) % in_devices_.size()];
}

void frmMain::ConnectMenus() {
  Menu(mnuApriArr).on_click = [this] { OpenArrFile(app_); };
  Menu(mnuChiudi).on_click = [this] {
    if (Form* child = toolkit().active_child()) child->Close();
  };
  const auto active = [this] { return static_cast<ChildWindow*>(toolkit().active_child()); };
  Menu(mnuSalva).on_click = [this, active] {
    if (ChildWindow* child = active()) SaveFile(app_, *child);
  };
  Menu(mnuSalvaAs).on_click = [this, active] {
    if (ChildWindow* child = active()) SaveFileAs(app_, *child);
  };
  Menu(mnuExit).on_click = [this] { Close(); };
  Menu(mnuIngrandisci).on_click = [this] { Enlarge(); };
  for (const ActiveEntry& row : kActiveEntries) {
    Menu(row.entry).on_click = [active, function = row.function] {
      ChildWindow* child = active();
      if (ui::Timer* timer = child == nullptr ? nullptr : child->TimerOf(function)) timer->Start();
    };
  }
  Menu(mnuArrPlay).on_click = [this] { SendModeArrPlay(app_); };
  Menu(mnuSongPlay).on_click = [this] { SendModeSongPlay(app_); };
  Menu(mnuProgram).on_click = [this] { SendModeProgram(app_); };
  Menu(mnuBSq).on_click = [this] { SendModeBackSeq(app_); };
  Menu(mnuAggArr).on_click = [this] {
    ShowWait(app_, kWaitUpdate, "i40DBArr");
    TimerAggArr.Start();
  };
  Menu(mnuArrU).on_click = [this] { OpenArrUser(app_); };
  Menu(mnuItaliano).on_click = [this] { ChooseLanguage(1); };
  Menu(mnuInglese).on_click = [this] { ChooseLanguage(2); };
  Menu(mnuMIDIThru).on_click = [this] { ToggleThru(app_); };
  for (const Toggle& toggle : kToggles) {
    Menu(toggle.entry).on_click = [this, toggle] {
      bool& flag = app_.core.settings.*toggle.flag;
      flag = !flag;
      ShowToggles();
      ForEachChild([](ChildWindow& child) { child.SettingsChanged(); });
      RefreshMenus();
    };
  }
  Menu(mnuWCascade).on_click = [this] { Cascade(); };
  Menu(mnuInfo).on_click = [this] { toolkit().OpenModal(std::make_unique<frmAbout>(app_)); };
}

void frmMain::Load() {
  app_.main = this;
  app_.core.FormLoading = true;
  const FormState& place = app_.core.FormStates[kMainFormState];
  if (place.width > 0 && place.height > 0) {
    WindowRecord record;
    record.left = place.left;
    record.top = place.top;
    record.width = place.width;
    record.height = place.height;
    record.window_state = place.state;
    SetPlacement(PlacementOf(app_, record));
  }
  for (const MenuRow& row : MenuRows()) {
    if (row.text != 0) Menu(row.id).SetCaption(GetText(app_, row.text));
  }
  LabelNomeAppl.SetCaption(kProgramName);
  LabelArr.SetCaption(ShownPath(app_.arrangement.ArrInInstrument));
  LabelSty.SetCaption(ShownPath(app_.style.StyInInstrument));
  LabelPrg.SetCaption(ShownPath(app_.program.PrgInInstrument));
  DressForm(app_, *this);
  ShowDeviceMenus();
  ShowToggles();
  ShowRecentFiles();
  ShowArrUEntry();
  ShowPrgUEntry();
  // The start is silent: where there is no database nothing is missing yet.
  app_.arrangement.SilentStart = true;
  EnableDatabaseEntries(DBCheck(app_) == 0);
  app_.arrangement.SilentStart = false;
  if (app_.disk.Exists(app_.core.InternalSty)) StyFileRead(app_, app_.core.InternalSty);
  app_.core.OperationTitle = GetText(app_, kTextOpeningOut);
  SendStoredMode();
  app_.core.FormLoading = false;
  app_.reopening_chain = true;
  Timer0.Start();
  Timer2.SetInterval(kFallbackInterval);
  Timer2.Start();
  RefreshMenus();
}

// The instrument is put in the remembered mode at each start, in Program mode too: what CurrentMode remembers was asked
// for in the last run.
void frmMain::SendStoredMode() {
  const int stored = app_.midi.CurrentMode;
  if (stored == kModeProgram) app_.midi.CurrentMode = kModeArrPlay;
  SendMode(app_, stored);
  ShowMode(app_);
}

void frmMain::ShowDeviceMenus() {
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

void frmMain::ShowToggles() {
  for (const Toggle& toggle : kToggles) Menu(toggle.entry).SetChecked(app_.core.settings.*toggle.flag);
  Picture1.SetVisible(app_.core.settings.VisBarraStato);
  Menu(mnuItaliano).SetChecked(app_.core.LanguageCode == 1);
  Menu(mnuInglese).SetChecked(app_.core.LanguageCode == 2);
}

void frmMain::ShowRecentFiles() {
  for (int i = 0; i < static_cast<int>(recent_files_.size()); ++i) {
    const std::string caption = RecentCaption(app_, i);
    mnuRecentFile(i).SetCaption(caption);
    mnuRecentFile(i).SetVisible(!caption.empty());
    mnuRecentFile(i).SetEnabled(app_.core.RecentFiles[static_cast<std::size_t>(i)].type == kTypeArr);
  }
}

void frmMain::EnableDatabaseEntries(bool usable) {
  for (const MenuId id : {mnuWEditDBArr, mnuAggArr, mnuWFindID}) {
    Menu(id).SetEnabled(usable && !MenuRows()[static_cast<std::size_t>(id)].waits_for_window);
  }
}

void frmMain::ShowArrUEntry() {
  const WindowRecord& record = app_.core.ArrWindows[kInstrumentWindow];
  if (!record.path.empty()) {
    Menu(mnuArrU).SetCaption("Arrangement User (" + ShownPath(FileBaseName(record.path)) + ".arr)");
  }
  Menu(mnuArrU).SetEnabled(!record.path.empty() && app_.arr_windows[kInstrumentWindow] == nullptr);
}

void frmMain::ShowPrgUEntry() {
  const WindowRecord& record = app_.core.PrgWindows[kInstrumentWindow];
  if (record.path.empty()) return;
  Menu(mnuPrgU).SetCaption("Program F/User (" + ShownPath(FileBaseName(record.path)) +
                           (record.pgg == 1 ? ".pgg)" : ".prg)"));
}

void frmMain::FinishLoad() {
  Timer0.Stop();
  Timer2.Stop();
  to_reopen_ =
      static_cast<int>(std::count_if(std::begin(kAutoWindows), std::end(kAutoWindows), [this](const auto& row) {
        return app_.core.FormStates[static_cast<std::size_t>(row.index)].state != 0 && Menu(row.entry).Usable();
      }));
  TimerAuto.front()->Start();
}

void frmMain::ReopenAuto(std::size_t i) {
  const AutoWindow& window = kAutoWindows[i];
  if (app_.core.FormStates[static_cast<std::size_t>(window.index)].state != 0 && Menu(window.entry).Usable()) {
    Menu(window.entry).Press();
    ++reopened_;
  }
  if (reopened_ >= to_reopen_ || i + 1 == TimerAuto.size()) {
    slots_used_ = {};
    app_.core.ReopeningFiles = true;
    TimerArrU.front()->Start();
  } else {
    TimerAuto[i + 1]->Start();
  }
}

// A file that has gone leaves no window and no message.
void frmMain::ReopenArrangement(int entry) {
  auto& records = app_.core.ArrWindows;
  WindowRecord record = records[static_cast<std::size_t>(entry)];
  if (record.state != 0) {
    int number = entry;
    if (entry != kInstrumentWindow) {
      number = 1;
      while (slots_used_[static_cast<std::size_t>(number)]) ++number;
      records[static_cast<std::size_t>(entry)] = {};
    }
    records[static_cast<std::size_t>(number)] = record;
    slots_used_[static_cast<std::size_t>(number)] = true;
    const std::string path = record.path + ".arr";
    if (app_.disk.Exists(path) && ReadArrFile(app_, path) == 0) {
      OpenArrWindow(app_, number, record.path, record.second == 1);
    } else {
      records[static_cast<std::size_t>(number)] = {};
      slots_used_[static_cast<std::size_t>(number)] = false;
    }
  }
  if (entry < kInstrumentWindow) {
    TimerArrU[static_cast<std::size_t>(entry)]->Start();
  } else {
    ChainEnded();
  }
}

void frmMain::ChainEnded() {
  app_.core.ReopeningFiles = false;
  app_.reopening_chain = false;
  RefreshOpenEntries(app_);
  ShowArrUEntry();
  RefreshMenus();
  OpenWhenReady(std::exchange(files_to_open_, {}));
}

void frmMain::OpenWhenReady(std::vector<std::string> paths) {
  if (app_.reopening_chain) {
    files_to_open_.insert(files_to_open_.end(), paths.begin(), paths.end());
    return;
  }
  for (const std::string& path : paths) OpenPath(app_, path);
}

void frmMain::FilesDropped(const std::vector<std::string>& paths) {
  OpenWhenReady(paths);
}

void frmMain::ChooseLanguage(int code) {
  if (app_.core.LanguageCode == code) return;
  app_.core.LanguageCode = code;
  ShowToggles();
  ShowMessage(app_, kMessageNextStart, GetText(app_, kTextChangeLanguage), {});
}

// The size of the kind's entry, or back; a kind without one yet takes two thirds of the screen.
void frmMain::Enlarge() {
  auto* child = static_cast<ChildWindow*>(toolkit().active_child());
  if (child == nullptr) return;
  FormState& entry = app_.core.FormStates[static_cast<std::size_t>(child->Kind()) % app_.core.FormStates.size()];
  if (entry.large_width == 0 || entry.large_height == 0) {
    const ui::Size screen = toolkit().ScreenSize();
    entry.large_width = screen.width * 2 / 3;
    entry.large_height = screen.height * 2 / 3;
  }
  child->ToggleSize({entry.large_width, entry.large_height});
}

void frmMain::Cascade() {
  int step = 0;
  ForEachChild([&step](ChildWindow& child) {
    ui::Placement placement = child.placement();
    placement.left = placement.top = kCascadeStep * step++;
    placement.state = ui::WindowState::kNormal;
    child.SetPlacement(placement);
    child.Resized();
  });
}

void frmMain::RefreshMenus() {
  if (app_.core.Closing) return;
  for (const MenuId id : kChildEntries) Menu(id).SetEnabled(false);
  const bool any = app_.core.OpenChildCount > 0;
  Menu(mnuWindow).SetEnabled(any);
  Menu(mnuChiudi).SetEnabled(any);
  if (auto* child = static_cast<ChildWindow*>(toolkit().active_child()); any && child != nullptr) EnableForKind(*child);
}

void frmMain::EnableForKind(ChildWindow& child) {
  const bool saves = child.CanSave();
  Menu(mnuSalva).SetEnabled(saves && !child.ReadOnly() && !app_.core.settings.RdOnly);
  Menu(mnuSalvaAs).SetEnabled(saves);
  Menu(mnuIngrandisci).SetEnabled(child.Kind() == kKindArr || child.Kind() == kKindNewArr);
  for (const ActiveEntry& row : kActiveEntries) {
    const ui::Button* button = child.ButtonOf(row.function);
    const bool on = button != nullptr && button->enabled() && button->visible();
    Menu(row.entry).SetEnabled(on && !MenuRows()[static_cast<std::size_t>(row.entry)].waits_for_window);
  }
}

void frmMain::ForEachChild(const std::function<void(ChildWindow&)>& action) {
  for (Form* form : toolkit().forms()) {
    if (form->kind() == ui::FormKind::kChild) action(static_cast<ChildWindow&>(*form));
  }
}

void frmMain::Resized() {
  FormState& state = app_.core.FormStates[kMainFormState];
  state.state = static_cast<int>(placement().state);
  if (placement().state != ui::WindowState::kNormal && state.width > 0) return;
  state.left = placement().left;
  state.top = placement().top;
  state.width = placement().width;
  state.height = placement().height;
}

bool frmMain::QueryClose() {
  for (Form* form : toolkit().forms()) {
    if (form->kind() == ui::FormKind::kChild && !form->QueryClose()) return false;
  }
  return true;
}

void frmMain::Unload() {
  app_.core.Closing = true;
  ForEachChild([](ChildWindow& child) { child.Resized(); });
  app_.core.OperationTitle = GetText(app_, kTextClosingOut);
  CloseMidi(app_);
  WriteConfiguration(app_);
  for (Form* form : toolkit().forms()) {
    if (form != this) form->CloseWithoutAsking();
  }
  app_.main = nullptr;
}

}  // namespace zentaline
