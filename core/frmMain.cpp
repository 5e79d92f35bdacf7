#include "core/frmMain.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "aids/api.h"
#include "arrangement/api.h"
#include "base/scoped_value.h"
#include "core/application.h"
#include "core/boxes.h"
#include "core/child_window.h"
#include "core/configuration.h"
#include "core/frmAbout.h"
#include "core/journal.h"
#include "core/window_image.h"
#include "data/message_codes.h"
#include "data/texts.h"
#include "files/api.h"
#include "files/recovery.h"
#include "global/api.h"
#include "midi/api.h"
#include "program/api.h"
#include "style/api.h"

namespace zentaline {

namespace {

using enum MenuId;

constexpr char kProgramName[] = "Zentaline";

constexpr int kCascadeStep = 28;

}  // namespace

frmMain::frmMain(Application& app) : MainWindow(app) {
  ConnectMenus();
  ConnectFileMenu();
  MakeReopeningTimers();
  TimerAggArr.on_timer = [this] {
    DBPurge(this->app());
    ShowWait(this->app(), 0);
  };
}

void frmMain::ConnectFileMenu() {
  for (const FileKind& kind : FileKinds()) {
    Menu(kind.open_entry).on_click = [this, kind = kind.kind] { OpenFile(app(), kind); };
    if (kind.user_entry != kCount) {
      Menu(kind.user_entry).on_click = [this, kind = kind.kind] { OpenInstrumentFile(app(), kind); };
    }
  }
  for (int i = 0; i < kRecentFiles; ++i) {
    mnuRecentFile(i).on_click = [this, i] { OpenRecentFile(app(), i); };
  }
  Menu(mnuChiudi).on_click = [this] {
    if (ChildWindow* child = ActiveChild()) child->Close();
  };
  Menu(mnuSalva).on_click = [this] {
    if (ChildWindow* child = ActiveChild()) SaveFile(app(), *child);
  };
  Menu(mnuSalvaAs).on_click = [this] {
    if (ChildWindow* child = ActiveChild()) SaveFileAs(app(), *child);
  };
  for (const MenuId entry : kImportEntries) {
    Menu(entry).on_click = [this, entry] { ImportFile(app(), entry); };
  }
  Menu(mnuStampaLista).on_click = [this] {
    if (const ChildWindow* child = ActiveChild()) PrintList(app(), *child);
  };
  Menu(mnuStampaTabella).on_click = [this] {
    if (const ChildWindow* child = ActiveChild()) PrintTable(app(), *child);
  };
  Menu(mnuExit).on_click = [this] { Close(); };
}

void frmMain::ConnectMenus() {
  for (int device = 0; device < kMostMidiDevices; ++device) {
    mnuDevMIDIOut(device).on_click = [this, device] { ChooseMidiOut(app(), device); };
    mnuDevMIDIIn(device).on_click = [this, device] { ChooseMidiIn(app(), device); };
  }
  app().undo.MakeCaptions(Menu(mnuAnnulla), Menu(mnuRipeti));
  Menu(mnuAnnulla).on_click = [this] { app().undo.TakeBack(); };
  Menu(mnuRipeti).on_click = [this] { app().undo.BringForth(); };
  Menu(mnuIngrandisci).on_click = [this] { Enlarge(); };
  using ItemsCommand = void (*)(Application&, ChildWindow&);
  for (const auto& [entry, command] : std::initializer_list<std::pair<MenuId, ItemsCommand>>{
           {mnuTaglia, CutSelected}, {mnuCopia, CopySelected}, {mnuIncolla, PasteCopied}}) {
    Menu(entry).on_click = [this, command = command] {
      if (ChildWindow* child = ActiveChild()) command(app(), *child);
    };
  }
  for (const ActiveEntry& row : kActiveEntries) {
    Menu(row.entry).on_click = [this, function = row.function] {
      ChildWindow* child = ActiveChild();
      if (ui::Timer* timer = child == nullptr ? nullptr : child->TimerOf(function)) timer->Start();
    };
  }
  // The one that acts at once.
  Menu(mnuEditPerf).on_click = [this] {
    if (ChildWindow* child = ActiveChild()) OpenPerfEditor(app(), *child);
  };
  Menu(mnuArrPlay).on_click = [this] { SendModeArrPlay(app()); };
  Menu(mnuSongPlay).on_click = [this] { SendModeSongPlay(app()); };
  Menu(mnuProgram).on_click = [this] { SendModeProgram(app()); };
  Menu(mnuBSq).on_click = [this] { SendModeBackSeq(app()); };
  Menu(mnuAggArr).on_click = [this] {
    ShowWait(app(), kWaitUpdate, "i40DBArr");
    TimerAggArr.Start();
  };
  Menu(mnuWFindID).on_click = [this] { ShowFindId(app()); };
  Menu(mnuWEditDBArr).on_click = [this] { ShowDatabase(app()); };
  Menu(mnuItaliano).on_click = [this] { ChooseLanguage(1); };
  Menu(mnuInglese).on_click = [this] { ChooseLanguage(2); };
  Menu(mnuMIDIThru).on_click = [this] { ToggleThru(app()); };
  for (const Toggle& toggle : kToggles) {
    Menu(toggle.entry).on_click = [this, toggle] {
      bool& flag = app().core.settings.*toggle.flag;
      flag = !flag;
      ShowToggles();
      ForEachChild([](ChildWindow& child) { child.SettingsChanged(); });
      RefreshMenus();
    };
  }
  Menu(mnuNuovoArr).on_click = [this] { NewArrWindow(app()); };
  Menu(mnuArrA).on_click = [this] { OpenArrBank(app(), kKindArrA); };
  Menu(mnuArrB).on_click = [this] { OpenArrBank(app(), kKindArrB); };
  Menu(mnuNuovoSty).on_click = [this] { NewStyFile(app()); };
  Menu(mnuStyA).on_click = [this] { OpenStyBank(app(), kKindStyA); };
  Menu(mnuStyB).on_click = [this] { OpenStyBank(app(), kKindStyB); };
  Menu(mnuMultisample).on_click = [this] { ShowMultisamples(app()); };
  Menu(mnuGlobalParam).on_click = [this] { ShowGlobalParameters(app()); };
  Menu(mnuMsgEx).on_click = [this] { ToggleMonitor(app()); };
  Menu(mnuTastiera).on_click = [this] { ShowKeyboard(app()); };
  Menu(mnuMIDI).on_click = [this] { ShowChannels(app()); };
  for (const ProgramBank& bank : ProgramBanks()) {
    Menu(bank.entry).on_click = [this, kind = bank.kind] { ShowProgramBank(app(), kind); };
  }
  Menu(mnuWCascade).on_click = [this] { Cascade(); };
  Menu(mnuWTile).on_click = [this] { Tile(); };
  Menu(mnuBloccoNote).on_click = [this] { ShowNotebook(app()); };
  Menu(mnuGuida).on_click = [this] { ShowGuide(app()); };
  Menu(mnuInfo).on_click = [this] { toolkit().OpenModal(std::make_unique<frmAbout>(app())); };
}

void frmMain::Load() {
  app().main = this;
  const ScopedValue loading(app().core.FormLoading, true);
  const FormState& place = app().core.FormStates[kMainFormState];
  if (place.width > 0 && place.height > 0) {
    SetPlacement(
        OnScreen(app(), {place.left, place.top, place.width, place.height, static_cast<ui::WindowState>(place.state)}));
  }
  for (const MenuRow& row : MenuRows()) {
    if (row.text != 0) Menu(row.id).SetCaption(GetText(app(), row.text));
  }
  LabelNomeAppl.SetCaption(kProgramName);
  LabelArr.SetCaption(ShownPath(app().arrangement.ArrInInstrument));
  LabelSty.SetCaption(ShownPath(app().style.StyInInstrument));
  LabelPrg.SetCaption(ShownPath(app().program.PrgInInstrument));
  DressForm(app(), *this);
  ShowDeviceMenus();
  ShowOutput();
  ShowToggles();
  ShowRecentFiles();
  ShowArrUEntry();
  ShowPrgUEntry();
  for (const MenuId entry : {mnuAnnulla, mnuRipeti}) Menu(entry).SetEnabled(false);
  Menu(mnuGlobalParam).SetEnabled(app().core.settings.GlobalSetInInstrument == 1);
  // The start is silent: where there is no database nothing is missing yet.
  EnableDatabaseEntries(DBCheckSilently(app()) == 0);
  if (app().disk.Exists(app().core.InternalSty)) StyFileRead(app(), app().core.InternalSty);
  app().core.OperationTitle = GetText(app(), kTextOpeningOut);
  SendStoredMode(app());
  toolkit().on_settled = [this] { Settled(); };
  app().reopening_chain = true;
  Timer0.Start();
  Timer2.Start();
  RefreshMenus();
  ChildrenChanged();
}

void frmMain::FilesDropped(const std::vector<std::string>& paths) {
  OpenWhenReady(paths);
}

void frmMain::ChooseLanguage(int code) {
  if (app().core.LanguageCode == code) return;
  app().core.LanguageCode = code;
  ShowToggles();
  ShowMessage(app(), kMessageNextStart, GetText(app(), kTextChangeLanguage), {});
}

// The size of the kind's entry, or back; a kind without one yet takes two thirds of the screen.
void frmMain::Enlarge() {
  ChildWindow* child = ActiveChild();
  if (child == nullptr) return;
  FormState& entry = app().core.FormStates[static_cast<std::size_t>(child->Kind()) % app().core.FormStates.size()];
  if (entry.large_width == 0 || entry.large_height == 0) {
    const ui::Size screen = toolkit().ScreenSize();
    entry.large_width = screen.width * 2 / 3;
    entry.large_height = screen.height * 2 / 3;
  }
  child->ToggleSize({entry.large_width, entry.large_height});
}

// Each window stands before the one above it, so that all their titles are seen. Many windows begin at the top again
// before they leave the main window, beside the first ones.
void frmMain::Cascade() {
  const int steps_down = std::max(inner_size().height / 2 / kCascadeStep, 1);
  int step = 0;
  for (Form* form : toolkit().stacked_children()) {
    auto& child = static_cast<ChildWindow&>(*form);
    ui::Placement placement = child.placement();
    placement.left = kCascadeStep * step;
    placement.top = kCascadeStep * (step % steps_down);
    placement.state = ui::WindowState::kNormal;
    child.SetPlacement(placement);
    child.Resized();
    ++step;
  }
}

// All windows beside each other, the one in front first; the last ones share the room that is left in their row.
void frmMain::Tile() {
  const std::vector<Form*> stacked = toolkit().stacked_children();
  const int count = static_cast<int>(stacked.size());
  if (count == 0) return;
  int columns = 1;
  while (columns * columns < count) ++columns;
  const int rows = (count + columns - 1) / columns;
  for (int i = 0; i < count; ++i) {
    const int row = i / columns;
    const int in_row = std::min(columns, count - row * columns);
    const int column = i % columns;
    const ui::Size room = inner_size();
    const int left = room.width * column / in_row;
    const int top = room.height * row / rows;
    auto& child = static_cast<ChildWindow&>(*stacked[static_cast<std::size_t>(count - 1 - i)]);
    child.SetPlacement({left, top, room.width * (column + 1) / in_row - left, room.height * (row + 1) / rows - top});
    child.Resized();
  }
}

void frmMain::ForEachChild(const std::function<void(ChildWindow&)>& action) {
  for (Form* form : toolkit().forms()) {
    if (form->kind() == ui::FormKind::kChild) action(static_cast<ChildWindow&>(*form));
  }
}

void frmMain::Resized() {
  FormState& state = app().core.FormStates[kMainFormState];
  state.state = static_cast<int>(placement().state);
  KeepNormalPlace(state, placement());
}

bool frmMain::QueryClose() {
  for (Form* form : toolkit().forms()) {
    if (form->kind() != ui::FormKind::kChild) continue;
    auto& child = static_cast<ChildWindow&>(*form);
    if (!child.GoesWithAnother() && !child.QueryClose()) return false;
  }
  return true;
}

void frmMain::Unload() {
  app().End();
  for (Form* form : toolkit().forms()) {
    if (form != this) form->CloseWithoutAsking();
  }
  toolkit().on_settled = nullptr;
  // All was saved or given up.
  if (app().journal != nullptr) app().journal->Discard();
  RemoveOldJournals(app());
  app().main = nullptr;
}

}  // namespace zentaline
