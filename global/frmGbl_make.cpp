// The global window's controls, made from the tables, and how they stand on the screen.
#include <utility>

#include "core/application.h"
#include "core/boxes.h"
#include "core/edits.h"
#include "core/window_image.h"
#include "data/texts.h"
#include "global/frmGbl.h"
#include "global/pictures.h"
#include "midi/api.h"

namespace zentaline {

namespace {

using ui::Column;
using ui::Grid;
using ui::Inside;
using ui::Item;
using ui::Layout;
using ui::Row;
using ui::Space;
using ui::Tight;

constexpr ui::Size kBarSize = {24, 1};
constexpr ui::Size kUprightSize = {0, 8};
constexpr ui::Size kValueSize = {7, 1};
constexpr ui::Size kKeysSize = {0, 4};
constexpr ui::Size kCentsSize = {3, 1};

}  // namespace

frmGbl::frmGbl(Application& app, Bytes image)
    : ChildWindow(app, "frmGbl", {}), rows_(*this, *this, app.edits, ImageOf(*this)) {
  app.edits.TakeImage(*this, std::move(image));
  MakeRows();
  Connect();
  LayOut();
}

void frmGbl::MakeRows() {
  for (const EditorRow& row : gbl_editor::kRows) {
    rows_.Bind({&row, 0, kWindowFilePosition, row.field->group, &ControlOf(row, 0), ValueOf(row, 0)});
  }
  for (int scale = 0; scale < kUserScaleCount; ++scale) {
    const std::size_t start = kWindowFilePosition + kUserScaleBlock.StartOf(scale);
    for (const EditorRow& row : gbl_editor::kScaleRows) {
      auto& bar = static_cast<ui::ScrollBar&>(ControlOf(row, scale));
      scale_bars_[static_cast<std::size_t>(row.index + scale * kNotesOfScale)] = &rows_.Bind(
          {&row, scale, start, kScaleNames[static_cast<std::size_t>(scale)], &bar, ValueOf(row, scale)}, false);
      // The higher the note, the higher its bar.
      bar.vertical = true;
      bar.SetRange(row.field->range.high, row.field->range.low);
    }
  }
}

ui::Control& frmGbl::ControlOf(const EditorRow& row, int block) const {
  switch (row.array) {
    case kGblHScroll1:
      return GblHScroll1[row.index];
    case kGblCombo1:
      return GblCombo1[row.index];
    case kGblCheck1:
      return GblCheck1[row.index];
    case kCombo3:
      return Combo3[row.index];
    case kHScroll3:
      return HScroll3[row.index];
    case kVScroll2:
      return VScroll2[row.index + block * kNotesOfScale];
    default:
      return const_cast<ui::CheckBox&>(Check3);
  }
}

ui::Label* frmGbl::ValueOf(const EditorRow& row, int block) const {
  switch (row.array) {
    case kGblHScroll1:
      return &GblLab1[row.index];
    case kHScroll3:
      return &Lab3[row.index];
    case kVScroll2:
      return &Lab2[row.index + block * kNotesOfScale];
    default:
      return nullptr;
  }
}

void frmGbl::Connect() {
  LabelDamper.SetCaption(std::string(gbl_editor::kDamper.name));
  GblOption1[0].SetCaption("+");
  GblOption1[1].SetCaption("-");
  for (const int i : {0, 1}) GblOption1[i].on_click = [this, i] { ChooseDamper(i == 0); };
  for (int scale = 0; scale < kUserScaleCount; ++scale) {
    Frame1[scale].SetCaption(std::string(kScaleNames[static_cast<std::size_t>(scale)]));
    ScalePicture[scale].SetDrawing(OctaveDrawing());
    CommResetUS[scale].SetCaption("Reset US" + std::to_string(scale + 1));
    CommResetUS[scale].on_click = [this, scale] { ResetScale(scale); };
  }
  CommLoadGbl.SetCaption("&Load Gbl");
  CommLoadGbl.on_click = [this] { Send(); };
  CommGlobal.SetCaption("&GLOBAL");
  CommGlobal.on_click = [this] { SendModeGlobal(app()); };
  CommClose.SetCaption(GetText(app(), kTextClose));
  CommClose.on_click = [this] { Close(); };
  on_context = [this] { PopupEditMenu(); };
}

// A name and a value have the tip of what they belong to.
void frmGbl::ShowToolTips() {
  for (const EditorControl& bound : rows_.controls()) {
    for (ui::Label* label : {bound.name, bound.value}) {
      if (label != nullptr) label->SetToolTip(bound.control->tool_tip());
    }
  }
}

// --- On the screen ---

// Name, control and value of each, below each other; a box with its own caption takes the middle.
Layout frmGbl::Named(std::initializer_list<const ui::Control*> controls) {
  std::vector<Layout> cells;
  for (const ui::Control* control : controls) {
    const EditorControl& bound = *rows_.Of(*control);
    cells.push_back(bound.name == nullptr ? Layout() : Item(*bound.name));
    cells.push_back(Item(*bound.control, 1));
    cells.push_back(bound.value == nullptr ? Layout() : Item(*bound.value));
    if (bound.value == nullptr) continue;
    bound.control->least_characters = kBarSize;
    bound.value->least_characters = kValueSize;
    bound.value->right_aligned = true;
  }
  return Grid(3, std::move(cells));
}

void frmGbl::LayOut() {
  const auto page = [](Layout content) {
    Layout whole = Column({Row({std::move(content), Space()}), Space()});
    whole.scrolls = true;
    return whole;
  };
  std::vector<Layout> pages;
  pages.push_back(page(Named({&GblHScroll1[0], &GblCombo1[16], &GblCombo1[17], &GblCombo1[18], &GblCombo1[2],
                              &GblCombo1[3], &GblCombo1[5], &GblCheck1[0]})));
  pages.push_back(page(Named({&GblHScroll1[1], &GblCombo1[0], &GblCombo1[1], &GblCombo1[19]})));
  pages.push_back(page(Named({&GblCombo1[6], &GblCombo1[8], &GblCombo1[7], &GblCombo1[9]})));
  pages.push_back(page(Column(
      {Row({Item(LabelDamper), Item(GblOption1[0]), Item(GblOption1[1]), Space()}),
       Named({&GblCombo1[10], &GblCombo1[11], &GblCombo1[12], &GblCombo1[13], &GblCombo1[14], &GblCombo1[15]})})));
  for (int scale = 0; scale < kUserScaleCount; ++scale) pages.push_back(ScalePage(scale));
  pages.push_back(page(Named({&Combo3[0], &HScroll3[0], &HScroll3[1], &Combo3[1], &Combo3[2], &Combo3[3], &Check3,
                              &GblCheck1[1], &GblCheck1[2]})));
  SSTab1.captions = {"General", "Midi In", "Scales", "Pedals"};
  for (const std::string_view scale : kScaleNames) SSTab1.captions.emplace_back(scale);
  SSTab1.captions.emplace_back("Harmony");
  layout = Column(
      {ui::Pages(SSTab1, std::move(pages)), Row({Item(CommLoadGbl), Item(CommGlobal), Space(), Item(CommClose)})});
}

// Twelve bars side by side, each with its cents, over the keys of an octave.
Layout frmGbl::ScalePage(int scale) {
  std::vector<Layout> notes;
  for (int note = 0; note < kNotesOfScale; ++note) {
    const int i = kNotesOfScale * scale + note;
    Lab2[i].least_characters = kCentsSize;
    VScroll2[i].least_characters = kUprightSize;
    notes.push_back(Column({Item(Lab2[i]), Item(VScroll2[i], 1)}, 1));
  }
  ScalePicture[scale].least_characters = kKeysSize;
  Layout bars = Tight(Column({Tight(Row(std::move(notes), 1)), Item(ScalePicture[scale])}, 1));
  Layout content = Column({std::move(bars), Row({Space(), Item(CommResetUS[scale])})});
  Layout page = Column({Inside(Frame1[scale], std::move(content), 1)});
  page.scrolls = true;
  return page;
}

}  // namespace zentaline
