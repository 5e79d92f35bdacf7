#include "style/frmStyUN.h"

#include <string>
#include <utility>
#include <vector>

#include "arrangement/api.h"
#include "base/scoped_value.h"
#include "core/application.h"
#include "core/boxes.h"
#include "core/main_window.h"
#include "core/send_steps.h"
#include "core/undo.h"
#include "core/window_image.h"
#include "data/message_codes.h"
#include "data/texts.h"
#include "files/api.h"
#include "midi/api.h"
#include "style/api.h"
#include "style/windows.h"

namespace zentaline {

namespace {

// The step of TimerLoadStyGrp, which is its milliseconds too.
constexpr int kGroupDue = 11;

constexpr std::size_t kNumberLength = 2;            // of a row; what is no longer than that shows no style
constexpr int kRowsOfGroup = kStyGroupEntries + 1;  // with the blank one behind it

}  // namespace

frmStyUN::frmStyUN(Application& app, int number, Bytes image)
    : ChildWindow(app, "frmStyUN", (ByteAt(image, kKindPosition) == kKindNewSty ? "n" : "") + std::to_string(number)),
      number_(number) {
  app.edits.TakeImage(*this, std::move(image));
  CommLoadSty.SetCaption("Load &Styles");
  for (int group = 0; group < kStyGroupCount; ++group) {
    CommLoadStyGrp[group].SetCaption("Load Styles");
    const int first = group * kStyGroupEntries;
    LabelGroup[group].SetCaption(UserStyleNumber(first) + " - " + UserStyleNumber(first + kStyGroupEntries - 1));
  }
  CommClose.SetCaption(GetText(app, kTextClose));
  Connect();
  LayOut();
}

void frmStyUN::Connect() {
  List1.on_click = [this] { ClickRow(); };
  List1.on_key = [this](const ui::Key& key) { return KeyInList(key); };
  List1.on_context = on_context = [this] { PopupEditMenu(); };
  CommLoadSty.on_click = [this] { PressLoadSty(); };
  TimerTxSty[0].on_timer = TimerTxSty[1].on_timer = [this] { CommLoadSty.Press(); };
  for (int group = 0; group < kStyGroupCount; ++group) {
    CommLoadStyGrp[group].on_click = [this, group] { PressLoadStyGrp(group); };
    TimerLoadStyGrp[group].on_timer = [this, group] { CommLoadStyGrp[group].Press(); };
  }
  CommClose.on_click = [this] { Close(); };
}

// The rows and the boxes share one height in the same parts, so that each size stands beside its style, and each sum
// beside its group.
void frmStyUN::LayOut() {
  List1.multi_select = true;
  List1.fills_height = true;
  List1.least_characters = {22, 0};
  for (int entry = 0; entry < kStyEntryCount; ++entry) {
    Text1[entry].read_only = Text1[entry].right_aligned = Text1[entry].flat = true;
    Text1[entry].least_characters = {7, 1};
  }
  for (int group = 0; group < kStyGroupCount; ++group) {
    Text2[group].read_only = Text2[group].right_aligned = true;
    Text2[group].least_characters = {8, 1};
  }
  Text3.read_only = Text3.right_aligned = true;
  Text3.least_characters = {8, 1};

  std::vector<ui::Layout> groups;
  for (int group = 0; group < kStyGroupCount; ++group) {
    std::vector<ui::Layout> sizes;
    for (int entry = group * kStyGroupEntries; entry < (group + 1) * kStyGroupEntries; ++entry) {
      sizes.push_back(ui::Item(Text1[entry], 1));
    }
    ui::Layout sum =
        ui::Column({ui::Space(), ui::Row({ui::Item(LabelGroup[group]), ui::Space(), ui::Item(Text2[group])}),
                    ui::Item(CommLoadStyGrp[group]), ui::Space()});
    groups.push_back(ui::Row({ui::Tight(ui::Column(std::move(sizes))), std::move(sum)}, kStyGroupEntries));
    if (group + 1 < kStyGroupCount) groups.push_back(ui::Space());
  }
  ui::Layout table = ui::Row({ui::Item(List1, 1), ui::Tight(ui::Column(std::move(groups)))}, 1);
  ui::Layout foot = ui::Row(
      {ui::Item(CommLoadSty), ui::Space(), ui::Item(LabelTotal), ui::Item(Text3), ui::Space(), ui::Item(CommClose)});
  layout = ui::Column({std::move(table), std::move(foot)});
  layout.scrolls = true;
}

bool frmStyUN::IsNew() const {
  return Kind() == kKindNewSty;
}

ChildWindow*& frmStyUN::Slot() {
  auto& slots = IsNew() ? app().new_sty_windows : app().sty_windows;
  return slots[static_cast<std::size_t>(number_)];
}

// New files have slots of their own, which the configuration doesn't keep.
WindowRecord* frmStyUN::Record() {
  return IsNew() ? nullptr : &app().core.StyWindows[static_cast<std::size_t>(number_)];
}

// --- Opening ---

void frmStyUN::Load() {
  const ScopedValue loading(app().core.FormLoading, true);
  Slot() = this;
  ChildWindow::Load();
  ShowName();
  FillRows();
}

void frmStyUN::FillRows() {
  std::vector<std::string> rows;
  rows.reserve(kStyRowCount);
  for (int row = 0; row < kStyRowCount; ++row) rows.push_back(RowText(row));
  List1.SetRows(std::move(rows));
  ShowSizes();
}

void frmStyUN::ShowSizes() {
  for (int entry = 0; entry < kStyEntryCount; ++entry) {
    Text1[entry].SetText(std::to_string(StyEntrySize(entry, styles())) + " ");
  }
  for (int group = 0; group < kStyGroupCount; ++group) {
    const int sum = StyGroupSize(group * kStyGroupEntries, styles());
    Text2[group].SetText(std::to_string(sum));
    CommLoadStyGrp[group].SetEnabled(sum != 0);
  }
  Text3.SetText(std::to_string(styles().size()));
}

void frmStyUN::ShowItems(const ItemsShown&) {
  for (int row = 0; row < kStyRowCount; ++row) {
    std::string text = RowText(row);
    if (List1.RowText(row) != text) List1.SetRowText(row, std::move(text));
  }
  ShowSizes();
}

// And the first row that is another one now.
void frmStyUN::ShowStep(const EditStep& step) {
  std::vector<std::string> before;
  for (int row = 0; row < kStyRowCount; ++row) before.push_back(List1.RowText(row) + SizeText(row));
  ShowItems({});
  for (int row = 0; row < kStyRowCount && step.action.changes.front().target == ImageOf(*this); ++row) {
    if (List1.RowText(row) + SizeText(row) == before[static_cast<std::size_t>(row)]) continue;
    List1.ShowRow(row);
    break;
  }
  ForgetStylesSent(app(), CutText(BaseName(), kInstrumentNameLength));
}

std::string frmStyUN::SizeText(int row) const {
  const int entry = StyRowEntry(row);
  return entry < 0 ? std::string() : Text1[entry].text();
}

// Number and name; the number alone where there is no style, and a blank between two groups.
std::string frmStyUN::RowText(int row) const {
  const int entry = StyRowEntry(row);
  if (entry < 0) return " ";
  std::string text = UserStyleNumber(entry);
  if (StyEntryPos(entry, styles()) == 0 || StyEntrySize(entry, styles()) == 0) return text;
  return text + "  " + Utf8FromBytes(StyEntryName(entry, styles()));
}

void frmStyUN::ShowName() {
  const std::string number = " (" + std::to_string(number_) + ")";
  const std::string name = NeverSaved() ? GetText(app(), kTextUntitled) : ShownPath(BaseName());
  const std::string what = IsNew() ? GetText(app(), kTextNewStyle) : "File Sty";
  SetCaption(what + " - " + name + ".sty" + number + ReadOnlySuffix(app(), ReadOnly()));
}

// --- The list ---

void frmStyUN::ClickRow() {
  MainWindow* main = app().main;
  if (main == nullptr) return;
  main->RefreshMenus();
  const int row = List1.focus_row();
  if (row < 0) return;
  if (StyRowEntry(row) < 0) {
    main->Menu(MenuId::mnuLoadSty).SetEnabled(false);
  } else if (!IsNew()) {
    main->Menu(MenuId::mnuLoadSty).SetEnabled(List1.RowText(row).size() > kNumberLength);
  }
  // The editor takes it when it is open and waits for a style; a new file's styles have no place to be named by.
  if (Kind() == kKindSty) PickStyle(app(), window_image(), row, List1.RowText(row));
}

bool frmStyUN::KeyInList(const ui::Key& key) {
  if (key.name != ui::Key::kDelete) return false;
  if (!RefusesChanges() && app().main != nullptr) app().main->Menu(MenuId::mnuTaglia).UserPress();
  return true;
}

// --- Sending ---

void frmStyUN::PressLoadSty() {
  if (PressLoadStyles(app(), timers(), window_image(), StyUsedGroups(window_image()), BaseName()) !=
      StyleStep::kEnded) {
    return;
  }
  int first = 0;
  SelectArrangement(app(), first, kKindArr);
}

// A second press isn't held off: it sends at once, and the timer that still runs begins anew.
void frmStyUN::PressLoadStyGrp(int group) {
  ui::Timer& timer = TimerLoadStyGrp[group];
  if (!SendIsDue(timer)) return WaitForSend(app(), timer, kGroupDue, kWaitLoadingSty);
  timer.SetInterval(kSendIdle);
  SendStyleDump(app(), group, window_image());
  ShowWait(app(), 0);
}

bool frmStyUN::Sending() {
  for (int group = 0; group < kStyGroupCount; ++group) {
    if (SendIsDue(TimerLoadStyGrp[group])) return true;
  }
  return LoadingStyles(timers());
}

// --- The main window asks ---

// The group of the row that has the focus.
ui::Timer* frmStyUN::TimerOf(WindowFunction function) {
  const int row = List1.focus_row();
  if (function != WindowFunction::kLoadSty || row < 0) return nullptr;
  return &TimerLoadStyGrp[row / kRowsOfGroup];
}

bool frmStyUN::Offers(WindowFunction function) {
  const int row = List1.focus_row();
  if (function != WindowFunction::kLoadSty || List1.Row() < 0 || StyRowEntry(row) < 0) return false;
  if (!IsNew() && List1.RowText(row).size() <= kNumberLength) return false;
  return CommLoadStyGrp[row / kRowsOfGroup].enabled();
}

bool frmStyUN::CanSave() const {
  return NeverSaved() || ByteAt(window_image(), kStyChangedPosition) == 1;
}

// --- Closing ---

bool frmStyUN::QueryClose() {
  if (!CanSave()) return true;
  return SaveBeforeClosing(app(), *this);
}

void frmStyUN::Unload() {
  UnloadFile(Slot(), Sending(), NeverSaved() ? "" : std::string(WindowPath(window_image())) + ".sty");
  RefreshNewStyEntry(app());
}

}  // namespace zentaline
