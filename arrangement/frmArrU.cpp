#include "arrangement/frmArrU.h"

#include <algorithm>
#include <utility>

#include "arrangement/api.h"
#include "arrangement/arr_format.h"
#include "base/panel_numbers.h"
#include "base/scoped_value.h"
#include "core/application.h"
#include "core/boxes.h"
#include "core/main_window.h"
#include "core/window_image.h"
#include "data/message_codes.h"
#include "data/names.h"
#include "data/texts.h"
#include "files/api.h"
#include "midi/api.h"
#include "program/api.h"
#include "program/prg_format.h"
#include "style/api.h"
#include "style/sty_format.h"

namespace zentaline {

namespace {

constexpr int kFirstBankPlaces = 64;

// The search looks for user programs in nine pairs that begin five bytes ahead of the part blocks; it is kept just so.
constexpr std::size_t kSearchPairs = 34;
constexpr std::size_t kSearchStep = 8;

}  // namespace

frmArrU::frmArrU(Application& app, int number, Bytes image)
    : ArrFileListWindow(app, "frmArrU", std::to_string(number), std::move(image)),
      number_(number),
      TimerLoadArr(MakeTimer("TimerLoadArr")),
      TimerLoadSty(MakeTimer("TimerLoadSty")),
      TimerLoadPrg(MakeTimer("TimerLoadPrg")),
      TimerTxSty0(MakeTimer("TimerTxSty", 0, [this] { CommLoadSty.Press(); })),
      TimerTxSty1(MakeTimer("TimerTxSty", 1, [this] { CommLoadSty.Press(); })),
      TimerList1(MakeTimer("TimerList1", -1, [this] { List1.Click(); })),
      TimerFindID(MakeTimer("TimerFindID", -1, [this] { StepSearch(); })),
      TimerAdd(MakeTimer("Timer", 4)),
      TimerEdit(MakeTimer("TimerEdit")),
      TimerShowSty(MakeTimer("TimerShowSty")),
      TimerShowPrg(MakeTimer("TimerShowPrg")) {
  Serve({{WindowFunction::kLoadArr, CommLoadArr, TimerLoadArr},
         {WindowFunction::kLoadSty, CommLoadSty, TimerLoadSty},
         {WindowFunction::kShowSty, CommShowSty, TimerShowSty},
         {WindowFunction::kLoadPrg, CommLoadPrg, TimerLoadPrg},
         {WindowFunction::kShowPrg, CommShowPrg, TimerShowPrg},
         {WindowFunction::kEdit, CommEdit, TimerEdit},
         {WindowFunction::kAddToDatabase, CommAdd, TimerAdd}});
  // Nothing here starts these: they press what the others press, for whoever starts them by their names.
  MakeTimer("TimerCaricaArr", -1, [this] { CommLoadArr.Press(); });
  MakeTimer("TimerCaricaSty", -1, [this] { CommLoadSty.Press(); });
  MakeTimer("TimerCaricaPrg", -1, [this] { CommLoadPrg.Press(); });
  MakeTimer("Timer", 0, [this] { List1.Click(); });
  MakeTimer("Timer", 2, [this] { CommLoadSty.Press(); });
  MakeTimer("Timer", 3, [this] { CommLoadPrg.Press(); });
  MakeTimer("Timer5", -1, [this] { CommClose.Press(); });

  CommLoadArr.SetCaption("&Load Arrang");
  CommLoadSty.SetCaption("Load &Styles");
  CommShowSty.SetCaption("Show Styles");
  CommLoadPrg.SetCaption("Load &Prog");
  CommShowPrg.SetCaption("Show Prog");
  CommEdit.SetCaption(GetText(app, kTextEdit));
  CommAdd.SetCaption("+ i40DBArr");
  CommArrPlay.SetCaption("&ARR PLAY");
  CommSongPlay.SetCaption("SO&NG PLAY");
  CommClose.SetCaption(GetText(app, kTextClose));
  Label1[0].SetCaption("User/UPPER1");
  Label1[1].SetCaption("Style");

  List1.on_click = [this] {
    ClickRow();
    RefreshMenus();
  };
  List1.on_key = [this](const ui::Key& key) { return PressKey(key); };
  CommLoadArr.on_click = [this] { PressLoadArr(); };
  CommLoadSty.on_click = [this] { PressLoadSty(); };
  CommShowSty.on_click = [this] { ShowFile(this->app(), kKindSty, Path() + ".sty", ReadOnly()); };
  CommLoadPrg.on_click = [this] { PressLoadPrg(); };
  CommShowPrg.on_click = [this] { ShowProgramFile(this->app(), Path(), ReadOnly()); };
  List1.on_double_click = CommEdit.on_click = [this] { PressEdit(); };
  CommAdd.on_click = [this] { PressAdd(); };
  MakeModeButton(CommArrPlay, SendModeArrPlay, List1);
  MakeModeButton(CommSongPlay, SendModeSongPlay, List1);
  CommClose.on_click = [this] { Close(); };
  LayOut();
}

ui::Timer& frmArrU::MakeTimer(const char* name, int index, ui::Handler handler) {
  timers_.push_back(std::make_unique<ui::Timer>(*this, name, index));
  timers_.back()->on_timer = std::move(handler);
  return *timers_.back();
}

void frmArrU::LayOut() {
  Text1.read_only = Text2.read_only = true;
  Text1.least_characters = {8, 1};
  Text2.least_characters = {20, 1};
  const auto buttons = [](ui::Frame& frame, std::vector<ui::Layout> items) {
    return ui::Inside(frame, ui::Column(std::move(items)));
  };
  layout =
      ui::Row({ui::Item(List1, 1),
               ui::Column({ui::Grid(2, {ui::Item(Label1[1]), ui::Item(Combo1), ui::Item(Label1[0]), ui::Item(Text2),
                                        ui::Item(LabelId), ui::Item(Text1)}),
                           ui::Row({ui::Column({buttons(Frame1[0], {ui::Item(CommLoadArr), ui::Item(CommLoadSty),
                                                                    ui::Item(CommLoadPrg)}),
                                                buttons(Frame1[3], {ui::Item(CommArrPlay), ui::Item(CommSongPlay)})},
                                               1),
                                    ui::Column({buttons(Frame1[1], {ui::Item(CommShowSty), ui::Item(CommShowPrg)}),
                                                buttons(Frame1[2], {ui::Item(CommEdit), ui::Item(CommAdd)})},
                                               1)}),
                           ui::Space(), ui::Row({ui::Space(), ui::Item(CommClose)})})});
}

std::string frmArrU::ProgramsForInstrument() const {
  return CutText(BaseName(), kProgramNameKept);
}

WindowRecord* frmArrU::Record() {
  return &app().core.ArrWindows[static_cast<std::size_t>(number_)];
}

// --- Opening ---

void frmArrU::Load() {
  ArrangementState& state = app().arrangement;
  const ScopedValue loading(app().core.FormLoading, true);
  app().arr_windows[static_cast<std::size_t>(number_)] = this;
  ChildWindow::Load();
  ShowName();
  if (number_ == kInstrumentWindow) {
    for (ui::Control* control :
         std::initializer_list<ui::Control*>{&Text1, &Label1[0], &Label1[1], &LabelId, &CommAdd}) {
      control->SetVisible(false);
    }
    if (app().main != nullptr) app().main->ShowArrUEntry();
  } else {
    LookUpId();
  }
  SettingsChanged();
  CommEdit.SetEnabled(false);
  CommLoadArr.SetEnabled(FillRows());
  const bool searched = IsSearched();
  // A search that goes on in another window keeps what it has found.
  if (!searched && !state.FindActive) NoteWhatTheSearchNeeds();
  AttachSiblingStyles();
  AttachSiblingPrograms();
  if (searched) BeginSearch();
}

// The file's number, which an option gives it first; a file that a search opens has one.
void frmArrU::LookUpId() {
  int& id = app().arrangement.WindowFileId[static_cast<std::size_t>(number_)];
  id = DBLookupId(app(), Path());
  if (app().core.settings.Add40DBArr && !IsSearched() && !app().core.ReopeningFiles) {
    SetCurrentFile(app(), Path());
    DBAddFile(app(), kKindArr, DBEntryBy::kProgram);
    id = DBLookupId(app(), Path());
  }
  ShowId({});
}

// What the row that the search wants needs on the instrument.
void frmArrU::NoteWhatTheSearchNeeds() {
  ArrangementState& state = app().arrangement;
  state.FindNeedsPrg = state.FindUserStyle = false;
  const int row = state.FindRow;
  if (row < 0 || row >= kArrRecordCount || record_byte(row, arr_record::kName) == 0) return;
  for (std::size_t pair = 0; pair < kArrPartCount; ++pair) {
    const std::size_t offset = kSearchPairs + kSearchStep * pair;
    const int number = record_byte(row, offset);
    if (number >= 64 && number <= 127 && record_byte(row, offset + 1) == 1) state.FindNeedsPrg = true;
  }
  state.FindUserStyle = UsesUserStyle(row);
}

void frmArrU::AttachSiblingStyles() {
  const auto attach = [this](const Bytes& styles, int state) {
    app().edits.Prepare(*this, [&](Bytes& image) { AttachStyles(image, styles, state); });
  };
  const Bytes& image = window_image();
  const ChildWindow* changed = number_ == kInstrumentWindow ? nullptr : ChangedStyles(app(), kKindSty, Path());
  if (changed != nullptr && HasOwnPath()) {
    // The disk has older ones.
    attach(Bytes(StylePart(changed->window_image())), 2);
    app().edits.SetAside(*this, kStyChangedPosition, 1);
  } else if (ByteAt(image, kNoFilePosition) != 1) {
    switch (StyFileRead(app(), Path() + ".sty")) {
      case kStyGood:
        attach(app().style.StyleImage, 2);
        break;
      case kStyWrong:
        ShowMessage(app(), kMessageErrorReading, app().core.OperationTitle, ShownPath(BaseName()));
        attach(app().style.EmptyStyleImage, 1);
        break;
      case kStyAbsent:
        attach(app().style.EmptyStyleImage, 1);
        break;
      default:
        break;
    }
  }
  const bool attached = EnableStyles();
  for (int entry = 0; attached && entry < kStyEntryCount; ++entry) {
    if (WindowStyEntrySize(entry, image) == 0) continue;
    Combo1.AddRow(Utf8FromBytes(WindowStyName(entry, image)) + " (" + UserStyleLabel(entry) + ")");
  }
}

// Without a file of the window's own there is no style file to show.
bool frmArrU::EnableStyles() {
  const bool attached = ByteAt(window_image(), kStyStatePosition) == 2;
  CommLoadSty.SetEnabled(attached);
  CommShowSty.SetEnabled(attached && HasOwnPath());
  return attached;
}

void frmArrU::AttachSiblingPrograms() {
  const auto attach = [this](bool pgg) {
    app().edits.Prepare(*this, [&](Bytes& image) { AttachPrograms(image, app().program.ProgramFileBuffer, pgg); });
  };
  const Bytes& image = window_image();
  if (ByteAt(image, kNoFilePosition) != 1) {
    if (ReadProgramFile(app(), Path() + ".prg") == kPrgGood) {
      attach(false);
    } else if (ReadProgramFile(app(), Path() + ".pgg") == kPrgGood) {
      attach(true);
    }
  }
  EnablePrograms();
}

void frmArrU::EnablePrograms() {
  const bool attached = ByteAt(window_image(), kPrgAttachedPosition) == 1;
  CommLoadPrg.SetEnabled(attached);
  CommShowPrg.SetEnabled(attached);
}

void frmArrU::ShowName() {
  const std::string name = ShownPath(BaseName()) + ".arr";
  const std::string caption =
      number_ == kInstrumentWindow ? "Arr User - " + name : "File Arr - " + name + " (" + std::to_string(number_) + ")";
  SetCaption(caption + ReadOnlySuffix(app(), ReadOnly()));
}

void frmArrU::FileSaved() {
  EnableStyles();
  EnablePrograms();
}

void frmArrU::SettingsChanged() {
  CommAdd.SetEnabled(!app().core.settings.Add40DBArr);
}

void frmArrU::RecordsChanged() {
  CommLoadArr.SetEnabled(FillRows());
  EnableStyles();
  if (const int row = List1.Row(); row >= 0 && IsEmptyRow(row)) EnableEdit(false);
}

// --- The list ---

void frmArrU::ShowNothing() {
  EnableEdit(false);
  Combo1.ShowText({});
  Text1.SetText({});
  Text2.SetText({});
}

void frmArrU::RowChosen(int row) {
  if (!app().arrangement.EditorOpen) return EnableEdit(true);
  AskAboutEdits();
  app().edits.TakeRecord(kArrRecordUnderEdit, PrepareEditRecord(window_image(), row, StyleName));
  FillArrEditor(app());
}

bool frmArrU::LoadsStylesOnClick() const {
  return app().core.settings.CaricaSty;
}

void frmArrU::SelectRow(int row) {
  SetMonitorOn(app(), true);
  SelectArrangement(app(), row, kKindArr);
}

void frmArrU::EnableEdit(bool enabled) {
  if (CommEdit.enabled() == enabled) return;
  CommEdit.SetEnabled(enabled);
  if (app().main != nullptr && toolkit().active_child() == this) app().main->RefreshMenus();
}

void frmArrU::PressEdit() {
  const int row = List1.Row();
  if (row < 0 || IsEmptyRow(row)) return EnableEdit(false);
  AskAboutEdits();
  EnableEdit(false);
  OpenArrEditor(app(), *this, row);
}

// A selected row that has an arrangement now can be edited, and an editor without changes of its own shows it.
void frmArrU::ShowItems(const ItemsShown& shown) {
  ArrListWindow::ShowItems(shown);
  if (!app().arrangement.EditorOpen) return EditorClosed();
  const Bytes& record = app().arrangement.ArrEditRecord;
  const int row = ByteAt(record, arr_edit::kIndex);
  const bool here = ByteAt(record, arr_edit::kKind) == kKindArr && ByteAt(record, arr_edit::kWindowNumber) == number_;
  const bool moved = std::find(shown.rows.begin(), shown.rows.end(), row) != shown.rows.end();
  if (!here || !moved || IsEmptyRow(row) || app().arrangement.EditorChanged) return;
  app().edits.TakeRecord(kArrRecordUnderEdit, PrepareEditRecord(window_image(), row, StyleName));
  FillArrEditor(app());
}

void frmArrU::EditorClosed() {
  if (const int row = List1.Row(); row >= 0 && !IsEmptyRow(row)) EnableEdit(true);
}

void frmArrU::ShowSelected(int row) {
  app().core.settings.LastListIndex = row;
  ShowId(RowLabel(row));
  std::string program;
  for (int part = 0; part < kArrPartCount && program.empty(); ++part) {
    const std::size_t block = PartOffset(part);
    if (record_byte(row, block + part_block::kBankCode) == kUserBankCode &&
        record_byte(row, block + part_block::kProgram) < kFirstBankPlaces) {
      program = "User";
    }
  }
  const std::size_t upper1 = PartOffset(kPartUpper1);
  if (program.empty()) {
    program =
        PrgLabel(record_byte(row, upper1 + part_block::kProgram), record_byte(row, upper1 + part_block::kBankCode));
  }
  Text2.SetText(program);
  ShowStyle(row);
}

// The file's id, followed by the row's label where there is one.
void frmArrU::ShowId(const std::string& row_label) {
  const int id = app().arrangement.WindowFileId[static_cast<std::size_t>(number_)];
  Text1.SetText(id > 0 ? std::to_string(id) + row_label : std::string());
}

bool frmArrU::PressKey(const ui::Key& key) {
  if (key.name != ui::Key::kSpace) return KeyInList(key);
  if (app().core.settings.AutoPrgSel && !app().arrangement.EditorOpen &&
      ByteAt(window_image(), kPrgAttachedPosition) == 1) {
    ShowUserPrograms(app(), Path(), ByteAt(window_image(), kPggPosition) == 1);
  }
  return true;
}

// --- The main window asks ---

bool frmArrU::CanSave() const {
  return ByteAt(window_image(), kChangedPosition) == 1 || ByteAt(window_image(), kStyChangedPosition) == 1;
}

// --- Closing ---

bool frmArrU::QueryClose() {
  if (!CloseArrEditorOf(app(), *this)) return false;
  if (!CanSave()) return true;
  return SaveBeforeClosing(app(), *this);
}

void frmArrU::Unload() {
  if (searching_) app().arrangement.FindActive = false;
  app().arrangement.WindowFileId[static_cast<std::size_t>(number_)] = 0;
  UnloadFile(app().arr_windows[static_cast<std::size_t>(number_)], Sending() || searching_, Path() + ".arr");
  if (app().main != nullptr) app().main->ShowArrUEntry();
}

}  // namespace zentaline
