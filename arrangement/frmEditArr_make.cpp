// The arrangement editor's controls, made from the tables, and how they stand on the screen.
#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "arrangement/editor_texts.h"
#include "arrangement/frmEditArr.h"
#include "core/application.h"
#include "data/captions.h"
#include "data/tooltips.h"

namespace zentaline {

frmEditArr::frmEditArr(Application& app)
    : ChildWindow(app, "frmEditArr", {}), rows_(*this, *this, app.edits, kArrRecordUnderEdit) {
  Label[0].SetCaption("Arrangement");
  Text1[kStyleBox].SetSaid("Style");
  Frame1.SetCaption("Effects 1,2, On/Off");
  Frame2.SetCaption("Switches");
  Frame5.SetCaption("Ensemble");
  for (int part = 0; part < kArrPartCount; ++part) {
    const std::string name(PartName(part));
    PartFrame(part).SetCaption(name);
    Text1[kFirstPartBox + 2 * part].SetSaid("Program, " + name);
    Text1[kFirstPartBox + 2 * part + 1].SetSaid("Program number, " + name);
  }
  MakeRows();
  ConnectButtons();
  ConnectTextBoxes();

  // A press on the window's ground and on any control of the tables disarms.
  on_mouse = [this](const ui::MouseEvent& event) { PressGround(event); };
  for (ui::Control* control : controls()) {
    if (control->kind() == ui::ControlKind::kTextBox || control->kind() == ui::ControlKind::kLabel) continue;
    control->on_mouse = on_mouse;
  }
  SSTab1.on_change = [this] { ClearNameHighlight(); };
  LayOut();
}

void frmEditArr::PressGround(const ui::MouseEvent& event) {
  if (event.what == ui::MouseEvent::kDown) ClearNameHighlight();
}

void frmEditArr::MakeRows() {
  for (const EditorRow& row : arr_editor::kCommonRows) AddRow(row, kGeneral);
  for (int part = 0; part < kArrPartCount; ++part) {
    for (const EditorRow& row : arr_editor::kPartRows) AddRow(row, part);
  }
  // The drum map of the first variation is chosen from the start on.
  ui::ComboBox& chooser = Combo1[kMapChooser];
  chooser.SetRows({kMapVariations.begin(), kMapVariations.end()});
  chooser.SetRow(0);
  chooser.SetSaid("DDrumMap, Variation");
  chooser.editable = true;
  chooser.on_change = [this, &chooser] { TypeInList(chooser); };
  chooser.on_click = [this] { ChooseVariation(); };
}

void frmEditArr::AddRow(const EditorRow& row, int part) {
  const bool of_part = part != kGeneral;
  const bool of_map = row.array == kHScroll1 && row.index == 1;
  const std::size_t block = of_part ? kPartBlock.StartOf(part) : of_map ? kDrumMapBlock.StartOf(0) : 0;
  ui::Control& control = ControlOf(row.array, of_part ? row.index + IndexStep(row.array) * part : row.index);
  EditorControl bound{&row,     std::max(part, 0), ArrEditPosition(block), of_part ? PartName(part) : row.field->group,
                      &control, ValueOf(row, part)};
  // The effects' lists carry their names above them.
  EditorControl& kept = rows_.Bind(bound, row.array != kEffCombo);
  if (of_map) drum_map_ = &kept;
  if (control.kind() != ui::ControlKind::kComboBox || row.array == kEffCombo) return;
  // The effects' lists take no typed text.
  auto& list = static_cast<ui::ComboBox&>(control);
  list.editable = true;
  list.on_change = [this, &list] { TypeInList(list); };
}

// The label that shows a value.
ui::Label* frmEditArr::ValueOf(const EditorRow& row, int part) const {
  if (part != kGeneral) return row.array == kVScroll1 ? &Label2[row.index + kPartBarStep * part] : nullptr;
  if (row.array == kEffCombo) return &EffLab1[row.index];
  if (row.array == kVScroll1) return &Label1[0];
  if (row.array != kHScroll1) return nullptr;
  return row.index == 0 ? &Label1[3] : &Label1[4];
}

ui::Control& frmEditArr::ControlOf(int array, int index) const {
  switch (array) {
    case kVScroll1:
      return VScroll1[index];
    case kHScroll1:
      return HScroll1[index];
    case kCombo2:
      return Combo2[index];
    case kCheck1:
      return Check1[index];
    case kEffCombo:
      return EffCombo[index];
    default:
      break;
  }
  return Combo1[index];
}

EditorControl& frmEditArr::RowOf(int array, int index) {
  return *rows_.Of(ControlOf(array, index));
}

ui::Frame& frmEditArr::PartFrame(int part) {
  const std::array<ui::Frame*, kArrPartCount> frames = {&Drum,   &Percussion, &FrBass, &FrAcc1, &FrACC2,
                                                        &FrACC3, &UPPER1,     &UPPER2, &LOWER};
  return *frames[static_cast<std::size_t>(part)];
}

// The tips of the nine parts' controls are those of the first part, and a name has the tip of what it names.
void frmEditArr::ShowToolTips() {
  const int language = app().Language();
  const auto tip = [this, language](const ui::Control& control, int index) {
    return std::string(ToolTip(name(), control.name() + "(" + std::to_string(index) + ")", language));
  };
  for (const EditorControl& bound : rows_.controls()) {
    bound.control->SetToolTip(tip(*bound.control, bound.row->index));
    if (bound.name != nullptr) bound.name->SetToolTip(bound.control->tool_tip());
    if (bound.value != nullptr) bound.value->SetToolTip(bound.control->tool_tip());
  }
  for (int part = 0; part < kArrPartCount; ++part) {
    for (int box = kFirstPartBox; box < kFirstPartBox + 2; ++box) {
      Text1[box + 2 * part].SetToolTip(tip(Text1[box], box));
    }
  }
}

// --- On the screen ---

namespace {

using ui::Column;
using ui::Grid;
using ui::Inside;
using ui::Item;
using ui::Layout;
using ui::Row;
using ui::Space;
using ui::Tight;

constexpr ui::Size kNameSize = {18, 1};
constexpr ui::Size kProgramSize = {11, 1};
constexpr ui::Size kEffectSize = {16, 1};
constexpr ui::Size kPanSize = {10, 1};
constexpr ui::Size kNumberSize = {5, 1};
constexpr ui::Size kValueSize = {4, 1};

}  // namespace

void frmEditArr::LayOut() {
  Text1[kNameBox].least_characters = Text1[kStyleBox].least_characters = kNameSize;
  for (const EditorControl& bound : rows_.controls()) {
    if (bound.value != nullptr && bound.row->array != kEffCombo) bound.value->least_characters = kValueSize;
  }
  const int language = app().Language();
  EffCombo[0].least_characters = EffCombo[1].least_characters = kEffectSize;
  for (int effect = 0; effect < 2; ++effect) EffComm[effect].least_characters = kValueSize;
  SSTab1.captions = {"General", std::string(Caption(name(), "SSTab1(1)", language))};
  std::vector<Layout> strips;
  strips.reserve(kArrPartCount);
  for (int part = 0; part < kArrPartCount; ++part) strips.push_back(Strip(part));
  Layout desk = Row(std::move(strips), 1);
  desk.scrolls = true;
  Layout general = Inside(General, GeneralPage(), 1);
  general.scrolls = true;
  layout = Column({Row({Item(Label[0]), Item(Text1[kNameBox]), Item(Label[1]), Item(Text1[kStyleBox]), Space()}),
                   ui::Pages(SSTab1, {std::move(general), std::move(desk)})});
}

Layout frmEditArr::GeneralPage() {
  const auto name = [this](int array, int index) { return Item(*RowOf(array, index).name); };
  const auto list = [this](int index) { return Item(Combo1[index]); };
  const auto check = [this](int index) { return Item(Check1[index]); };
  const auto effect = [this](int i) {
    return Column({Item(EffLab1[i]), Row({Item(EffCombo[i], 1), Item(EffComm[i])})});
  };
  const Layout nothing;

  Layout play = Grid(3, {name(kVScroll1, 0), Item(VScroll1[0], 1), Item(Label1[0]),  //
                         name(kCombo1, 3), list(3), nothing,                         //
                         name(kCombo1, 1), list(1), nothing,                         //
                         name(kCombo1, 2), list(2), nothing});
  Layout keyboard = Grid(3, {name(kCombo1, 0), list(0), nothing,                                          //
                             name(kHScroll1, 0), Item(HScroll1[0], 1), Item(*RowOf(kHScroll1, 0).value),  //
                             name(kCombo1, 4), list(4), nothing});
  Layout drums = Grid(3, {name(kHScroll1, 1), list(5), nothing,                             //
                          nothing, Item(HScroll1[1], 1), Item(*RowOf(kHScroll1, 1).value),  //
                          name(kCombo1, 6), list(6), nothing,                               //
                          name(kCombo1, 7), list(7), nothing,                               //
                          name(kCombo1, 9), list(9), nothing});
  Layout ensemble = Grid(2, {name(kCombo1, 8), list(8), nothing, check(9)});
  Layout switches = Column({check(0), check(1), check(2), check(3), check(4), check(5), check(6), check(7), check(8)});
  Layout effects = Column({effect(0), effect(1)});
  return Row({Column({Inside(Frame3, std::move(play)), Inside(Frame4, std::move(keyboard)), Space()}),
              Column({Inside(Frame6, std::move(drums)), Inside(Frame5, std::move(ensemble)), Space()}),
              Column({Inside(Frame1, std::move(effects)), Inside(Frame2, std::move(switches)), Space()}), Space()});
}

Layout frmEditArr::Strip(int part) {
  const int volume = kFirstPartBar + kPartBarStep * part;
  const int pan = volume + 1;
  const int box = kFirstPartBox + 2 * part;
  Text1[box].least_characters = kProgramSize;
  Text1[box + 1].least_characters = kNumberSize;
  VScroll1[pan].least_characters = kPanSize;
  CommM[part].least_characters = CommS[part].least_characters = kValueSize;
  std::vector<Layout> strip = {
      Tight(Column({Item(Text1[box]), Item(Text1[box + 1])})),
      Tight(Column({Row({Item(*RowOf(kVScroll1, pan).name), Space(), Item(Label2[pan])}), Item(VScroll1[pan])})),
      Row({Item(VScroll1[volume]), Column({Item(*RowOf(kVScroll1, volume).name), Item(Label2[volume]), Space(),
                                           Item(CommM[part]), Item(CommS[part])})},
          1)};
  for (int list = kPartListStep * part; list < kPartListStep * (part + 1); ++list) {
    strip.push_back(Tight(Column({Item(*RowOf(kCombo2, list).name), Item(Combo2[list])})));
  }
  return Tight(Inside(PartFrame(part), Column(std::move(strip), 1)));
}

}  // namespace zentaline
