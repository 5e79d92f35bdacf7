// The arrangement editor's controls, made from the tables, and how they stand on the screen.
#include <string>
#include <utility>

#include "arrangement/editor_texts.h"
#include "arrangement/frmEditArr.h"
#include "core/application.h"
#include "data/captions.h"
#include "data/tooltips.h"

namespace zentaline {

namespace {

constexpr int kPartRowCount = static_cast<int>(std::size(kPartRows));
constexpr int kEditRowCount = static_cast<int>(std::size(kEditRows));
constexpr int kFields = kEditRowCount + kArrPartCount * kPartRowCount;

}  // namespace

frmEditArr::frmEditArr(Application& app) : ChildWindow(app, "frmEditArr", {}) {
  Label[0].SetCaption("Arrangement");
  Frame1.SetCaption("Effects 1,2, On/Off");
  Frame2.SetCaption("Switches");
  Frame5.SetCaption("Ensemble");
  for (int part = 0; part < kArrPartCount; ++part) {
    PartFrame(part).SetCaption(std::string(PartName(part)));
  }
  MakeFields();
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

void frmEditArr::MakeFields() {
  fields_.reserve(kFields);
  for (const EditRow& row : kEditRows) AddField(row, kGeneral);
  for (int part = 0; part < kArrPartCount; ++part) {
    for (const EditRow& row : kPartRows) AddField(row, part);
  }
}

void frmEditArr::AddField(const EditRow& row, int part) {
  const bool of_part = part != kGeneral;
  const int index = of_part ? row.index + IndexStep(row.array) * part : row.index;
  const std::size_t position = ArrEditPosition(row.field.offset + (of_part ? PartOffset(part) : 0));
  const int id = of_part ? row.id + kPartIdStep * part : row.id;
  fields_.push_back({row, part, position, id, ControlOf(row.array, index)});
  MakeLabels(fields_.back());
  SetUp(fields_.back());
}

void frmEditArr::MakeLabels(Field& field) {
  const EditRow& row = field.row;
  if (row.label == EditLabel::kEffect) {
    field.value = &EffLab1[row.label_index];
  } else if (row.label != EditLabel::kNone) {
    field.value =
        field.part == kGeneral ? &Label1[row.label_index] : &Label2[row.label_index + kPartBarStep * field.part];
  }
  const bool names_itself = row.array == kCheck1 || row.array == kEffCombo || row.caption.empty();
  if (names_itself) return;
  names_.push_back(std::make_unique<ui::Label>(*this, "LabelName", static_cast<int>(names_.size())));
  field.name = names_.back().get();
  field.name->SetCaption(std::string(row.caption));
}

ui::Control& frmEditArr::ControlOf(EditArray array, int index) const {
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
    case kCombo1:
      break;
  }
  return Combo1[index];
}

// One handler serves them all.
void frmEditArr::SetUp(Field& field) {
  const EditRow& row = field.row;
  const auto edit = [this, &field] { Edit(field); };
  switch (field.control.kind()) {
    case ui::ControlKind::kScrollBar: {
      auto& bar = static_cast<ui::ScrollBar&>(field.control);
      bar.SetRange(row.range.first, row.range.last, 1, row.range.page);
      // A volume stands upright, with its greatest value at the top.
      bar.vertical = row.range.first > row.range.last;
      bar.on_change = edit;
      break;
    }
    case ui::ControlKind::kCheckBox: {
      auto& box = static_cast<ui::CheckBox&>(field.control);
      box.SetCaption(std::string(row.caption));
      box.on_click = edit;
      break;
    }
    default: {
      auto& list = static_cast<ui::ComboBox&>(field.control);
      for (const std::string_view text : row.list) list.AddRow(std::string(text));
      // The effects' lists take no typed text.
      list.editable = row.array != kEffCombo;
      if (list.editable) list.on_change = [this, &list] { TypeInList(list); };
      // The drum map of the first variation is chosen from the start on.
      if (row.store == EditStore::kNowhere) list.SetRow(row.range.first);
      list.on_click = edit;
    }
  }
  if (row.array == kHScroll1 && row.field.offset == arr_record::kDrumMap) drum_map_ = &field;
}

const frmEditArr::Field& frmEditArr::FieldOf(EditArray array, int index) const {
  const ui::Control* control = &ControlOf(array, index);
  for (const Field& field : fields_) {
    if (&field.control == control) return field;
  }
  return fields_.front();
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
  for (const Field& field : fields_) {
    field.control.SetToolTip(tip(field.control, field.row.index));
    if (field.name != nullptr) field.name->SetToolTip(field.control.tool_tip());
    if (field.value != nullptr) field.value->SetToolTip(field.control.tool_tip());
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
  for (const Field& field : fields_) {
    if (field.value != nullptr && field.row.label != EditLabel::kEffect) field.value->least_characters = kValueSize;
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
  const auto name = [this](EditArray array, int index) { return Item(*FieldOf(array, index).name); };
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
  Layout keyboard = Grid(3, {name(kCombo1, 0), list(0), nothing,                                            //
                             name(kHScroll1, 0), Item(HScroll1[0], 1), Item(*FieldOf(kHScroll1, 0).value),  //
                             name(kCombo1, 4), list(4), nothing});
  Layout drums = Grid(3, {name(kHScroll1, 1), list(5), nothing,                               //
                          nothing, Item(HScroll1[1], 1), Item(*FieldOf(kHScroll1, 1).value),  //
                          name(kCombo1, 6), list(6), nothing,                                 //
                          name(kCombo1, 7), list(7), nothing,                                 //
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
      Tight(Column({Row({Item(*FieldOf(kVScroll1, pan).name), Space(), Item(Label2[pan])}), Item(VScroll1[pan])})),
      Row({Item(VScroll1[volume]), Column({Item(*FieldOf(kVScroll1, volume).name), Item(Label2[volume]), Space(),
                                           Item(CommM[part]), Item(CommS[part])})},
          1)};
  for (int list = kPartListStep * part; list < kPartListStep * (part + 1); ++list) {
    strip.push_back(Tight(Column({Item(*FieldOf(kCombo2, list).name), Item(Combo2[list])})));
  }
  return Tight(Inside(PartFrame(part), Column(std::move(strip), 1)));
}

}  // namespace zentaline
