#include "program/frmPrgUN.h"

#include <utility>
#include <vector>

#include "base/panel_numbers.h"
#include "base/scoped_value.h"
#include "core/application.h"
#include "core/boxes.h"
#include "core/file_reading.h"
#include "core/main_window.h"
#include "core/send_steps.h"
#include "core/window_image.h"
#include "data/message_codes.h"
#include "data/texts.h"
#include "files/api.h"
#include "midi/api.h"
#include "program/api.h"
#include "program/prg_format.h"
#include "program/windows.h"

namespace zentaline {

namespace {

constexpr std::string_view kUntitled = "Untitled";

// The states that TimerList1 and TimerLoadPrg carry in their intervals, which are milliseconds too.
constexpr int kTimerDue = 9;

// Of a row's text; what is no longer than that has no name.
constexpr std::size_t kLabelLength = 2;

}  // namespace

frmPrgUN::frmPrgUN(Application& app, int number, Bytes image)
    : ProgramListWindow(app, "frmPrgUN", std::to_string(number), std::move(image)), number_(number) {
  CommLoad.SetCaption("&Load Prog");
  CommProgram.SetCaption("&PROGRAM");
  CommEdit.SetCaption(GetText(app, kTextEdit));
  List1.on_key = [this](const ui::Key& key) { return KeyInList(key); };
  CommLoad.on_click = [this] { PressLoad(); };
  List1.on_double_click = [this] {
    if (CommEdit.enabled()) PressEdit();
  };
  CommEdit.on_click = [this] { PressEdit(); };
  CommProgram.on_click = [this] { SendModeProgram(this->app()); };
  TimerList1.on_timer = [this] { List1.Click(); };
  Serve({{WindowFunction::kLoadPrg, CommLoad, TimerLoadPrg}, {WindowFunction::kEdit, CommEdit, TimerEdit}});
  LayOut();
}

void frmPrgUN::LayOut() {
  // Wide enough for a caption with a file's name.
  List1.least_characters = {32, 17};
  layout = ui::Row(
      {ui::Item(List1, 1), ui::Column({ui::Row({ui::Item(Label1), ui::Item(Combo1, 1)}),
                                       ui::Inside(Frame1[0], ui::Column({ui::Item(CommLoad), ui::Item(CommProgram)})),
                                       ui::Inside(Frame1[1], ui::Column({ui::Item(CommEdit)})), ui::Space(),
                                       ui::Row({ui::Space(), ui::Item(CommClose)})})});
}

WindowRecord* frmPrgUN::Record() {
  return &app().core.PrgWindows[static_cast<std::size_t>(number_)];
}

bool frmPrgUN::NeverSaved() const {
  return ByteAt(window_image(), kNeverSavedPosition) == 1;
}

std::string frmPrgUN::NameForInstrument() const {
  return CutText(BaseName(), kProgramNameKept);
}

// --- Opening ---

void frmPrgUN::Load() {
  const ScopedValue loading(app().core.FormLoading, true);
  app().prg_windows[static_cast<std::size_t>(number_)] = this;
  ChildWindow::Load();
  CommLoad.SetEnabled(false);
  CommEdit.SetEnabled(false);
  FillRows();
  ShowChannel();
  ShowName();
  if (number_ == kInstrumentWindow) {
    ShowRow(app().program.UserProgram);
    if (app().main != nullptr) app().main->ShowPrgUEntry();
  }
}

void frmPrgUN::FillRows() {
  std::vector<std::string> rows;
  rows.reserve(kPrgRecordCount);
  for (int row = 0; row < kPrgRecordCount; ++row) rows.push_back(NeverSaved() ? PanelNumberText(row) : RowText(row));
  List1.SetRows(std::move(rows));
}

// Number, mark, name. A name ends at its first zero byte.
std::string frmPrgUN::RowText(int row) const {
  const Bytes name = ProgramPlaceName(window_image(), row);
  return PanelNumberText(row) + (IsProgramLink(window_image(), row) ? " *" : "  ") +
         Utf8FromBytes(Padded(name.substr(0, name.find('\0')), name.size()));
}

// A row that lost its program keeps its number alone.
void frmPrgUN::ShowItems(const ItemsShown& shown) {
  for (const int row : shown.rows) ShowRowText(row, shown.cut ? PanelNumberText(row) : RowText(row));
  if (!shown.cut && !shown.rows.empty()) CommLoad.SetEnabled(true);
  ShowEditButton();
  ShowName();
}

// The file's format and its own button follow what the image has become.
void frmPrgUN::ShowName() {
  const std::string_view extension = ProgramExtension(window_image());
  const std::string file = ShownPath(BaseName()) + "." + std::string(extension);
  const std::string number = " (" + std::to_string(number_) + ")";
  std::string caption;
  if (number_ == kInstrumentWindow) {
    caption = "Prg F/User - " + file;
  } else if (Kind() == kKindNewPrg) {
    const std::string name = NeverSaved() ? std::string(kUntitled) : ShownPath(BaseName());
    caption = GetText(app(), kTextNewFileProgram) + " - " + name + number;
  } else {
    caption = "File Prg - " + file + number;
  }
  SetCaption(caption + ChannelSuffix() + ReadOnlySuffix(app(), ReadOnly()));
  Record()->pgg = extension == "pgg" ? 1 : 0;
  if (!NeverSaved()) CommLoad.SetEnabled(true);
}

// --- The list ---

bool frmPrgUN::IsEmptyRow(int row) const {
  return TrimRight(List1.RowText(row)).size() == kLabelLength;
}

void frmPrgUN::ClickRow() {
  const int row = ClickedRow();
  if (row < 0) return;
  ShowEditButton();
  if (IsEmptyRow(row)) return;
  const int state = TimerList1.interval();
  TimerList1.SetInterval(kSendIdle);
  if (state == kSendIdle && app().core.settings.AutoPrgSel && NameForInstrument() != app().program.PrgInInstrument) {
    TimerList1.SetInterval(kTimerDue);
    return CommLoad.Press();  // the end of the send comes back here
  }
  if (!IsProgramLink(window_image(), row)) TakeUp(row);
  if (app().arrangement.ArrPartArmed) {
    AssignRow(row);
  } else {
    HearRow(row);
  }
}

// An editor that is open asks about the program before, and goes over to this one.
void frmPrgUN::TakeUp(int row) {
  const ChildWindow* editor = app().prg_editor;
  if (editor != nullptr) SetMultisoundTarget(app(), 0);
  if (editor == nullptr) editor = app().perf_editor;
  if (editor != nullptr) AskToKeepProgram(app(), *editor);
  LoadEditRecord(app(), window_image(), row);
  FillProgramEditor(app());
}

void frmPrgUN::PressEdit() {
  const int row = SelectedProgram();
  if (row < 0) return;
  CommEdit.SetEnabled(false);
  OpenProgramEditor(app(), *this, row);
}

void frmPrgUN::ShowEditButton() {
  CommEdit.SetEnabled(SelectedProgram() >= 0);
}

int frmPrgUN::SelectedProgram() const {
  const int row = List1.Row();
  return row < 0 || IsEmptyRow(row) || IsProgramLink(window_image(), row) ? -1 : row;
}

bool frmPrgUN::KeyInList(const ui::Key& key) {
  const int row = List1.Row();
  switch (key.name) {
    case ui::Key::kDelete:
      if (!RefusesChanges() && app().main != nullptr) app().main->Menu(MenuId::mnuTaglia).UserPress();
      return true;
    case ui::Key::kEnter:
      List1.Click();
      if (CommEdit.enabled()) TimerEdit.Start();
      return true;
    case ui::Key::kSpace:
      if (row >= 0 && IsProgramLink(window_image(), row)) ShowLinked(row);
      return true;
    case ui::Key::kCharacter:
      if (number_ != kInstrumentWindow || LowerCase(key.character) != "p") return false;
      if (row >= 0) app().program.UserProgram = row;
      return true;
    default:
      return false;
  }
}

// The bank that the link points into, on its row. A link that points nowhere shows nothing.
void frmPrgUN::ShowLinked(int row) {
  const std::size_t record = ProgramPosition(row) - 1;
  const ProgramPlace place = ProgramPlaceOf(ByteAt(window_image(), record + program_link::kBankCode),
                                            ByteAt(window_image(), record + program_link::kNumber));
  if (place.kind != 0 && place.kind != kKindPrg) ShowProgramBank(app(), place.kind, place.index);
}

// --- The buttons ---

void frmPrgUN::PressLoad() {
  if (TakeSendStep(TimerLoadPrg) == kSendIdle) {
    ShowWait(app(), kWaitLoadingPrg);
    mode_before_ = app().midi.CurrentMode;
    if (mode_before_ != kModeArrPlay) SendModeArrPlay(app());
    TimerLoadPrg.SetInterval(kTimerDue);
    return TimerLoadPrg.Start();
  }
  SetMonitorOn(app(), true);
  SendPrgBankDump(app(), window_image());
  const bool pgg = ProgramExtension(window_image()) == "pgg";
  TellPrgInInstrument(app(), NameForInstrument(), pgg);
  // What has no file of its own leaves the instrument's entry as it is.
  const bool own = number_ != kInstrumentWindow && HasOwnPath();
  if (own) SlotTakePrg(app(), std::string(WindowPath(window_image())), pgg);
  SetMonitorOn(app(), false);
  if (mode_before_ != kModeArrPlay) SendMode(app(), mode_before_);
  ShowWait(app(), 0);
  if (TimerList1.interval() == kTimerDue) TimerList1.Start();
}

// A new bank is heard on the channel in its control bytes, and keeps it in its file's header as every bank does.
void frmPrgUN::KeepChannel(int channel) {
  app().edits.SetAside(*this, kPrgImageChannelPosition, channel);
  if (Kind() == kKindNewPrg) app().edits.SetAside(*this, kBankChannelPosition, channel);
  LeaveProgramEditing(app());
  channel_chosen_ = true;
  if (app().main != nullptr) app().main->RefreshMenus();
}

// --- The main window asks ---

bool frmPrgUN::Offers(WindowFunction function) {
  return function == WindowFunction::kEditPerf ? SelectedProgram() >= 0 : ChildWindow::Offers(function);
}

// A new file, and a channel that was chosen, can be saved, though nobody is asked about them.
bool frmPrgUN::CanSave() const {
  return Unsaved() || NeverSaved() || channel_chosen_;
}

bool frmPrgUN::Unsaved() const {
  return ByteAt(window_image(), kPrgChangedPosition) != 0;
}

// --- Closing ---

// Until it is saved, the file may stand under another extension than its records call for.
std::string frmPrgUN::FilePath() const {
  const std::string base(WindowPath(window_image()));
  const bool pgg = ProgramExtension(window_image()) == "pgg";
  const std::string own = base + (pgg ? ".pgg" : ".prg");
  const std::string other = base + (pgg ? ".prg" : ".pgg");
  Disk& disk = app().disk;
  return !disk.Exists(PathOnDisk(disk, own)) && disk.Exists(PathOnDisk(disk, other)) ? other : own;
}

// What was never saved can't come back at the next start.
void frmPrgUN::Resized() {
  ChildWindow::Resized();
  if (app().core.Closing && NeverSaved()) Record()->state = 0;
}

bool frmPrgUN::QueryClose() {
  if (!CloseProgramEditorsOf(app(), *this)) return false;
  if (!Unsaved()) return true;
  if (!SaveBeforeClosing(app(), *this)) return false;
  app().edits.Mark(*this, kPrgChangedPosition, 0);
  return true;
}

void frmPrgUN::Unload() {
  UnloadFile(app().prg_windows[static_cast<std::size_t>(number_)], SendIsDue(TimerLoadPrg),
             NeverSaved() ? "" : FilePath());
  if (app().main != nullptr) app().main->ShowPrgUEntry();
}

}  // namespace zentaline
