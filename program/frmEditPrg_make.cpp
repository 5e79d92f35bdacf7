// The program editor's controls, made from the tables, and how they stand on the screen.
#include <optional>
#include <span>
#include <string>
#include <utility>

#include "core/application.h"
#include "data/captions.h"
#include "data/tooltips.h"
#include "program/api.h"
#include "program/frmEditPrg.h"
#include "program/prg_format.h"
#include "program/windows.h"

namespace zentaline {

namespace {

constexpr int kOscillators = 2;
constexpr std::size_t kSoundLength = 15;

bool OfOscillator(int array) {
  return array == kOscCombo || array == kOscCheck || array == kOscHScroll;
}

std::string_view OwnerOf(const EditorRow& row, int block) {
  if (!OfOscillator(row.array)) return row.field->group;
  return prg_editor::kOscOwners[static_cast<std::size_t>(&row - prg_editor::kOscRows)][static_cast<std::size_t>(block)];
}

// The frames of the groups, by the names of the instrument's own pages; in the order of GroupFrame.
enum GroupFrame {
  kProgramFrame,
  kOscillatorFrame,
  kPitchEgFrame,
  kVdfMgFrame,
  kAftertouchFrame,
  kJoystickFrame,
  kFx1Frame,
  kFx2Frame,
  kIoFrame,
};
enum OscGroupFrame {
  kPitchFrame,
  kPitchMgFrame,
  kMixFrame,
  kVdfFrame,
  kVdfEgFrame,
  kVdaFrame,
  kVdaEgFrame,
  kPolarityFrame,
  kTrackFrame,
  kOscFrameCount,
};
constexpr const char* kFrameCaptions[] = {"PROGRAM",  "OSCILLATOR", "PITCH EG", "VDF MG", "AFTERTOUCH",
                                          "JOYSTICK", "FX 1",       "FX 2",     "I/O"};
constexpr const char* kOscFrameCaptions[] = {"PITCH EG", "Pitch MG", "PANPOT, COLOR", "VDF",           "VDF EG",
                                             "VDA",      "VDA EG",   "EG polarity",   "Kbd Track Mode"};

constexpr int kOscFrames = static_cast<int>(std::size(kFrameCaptions));  // of oscillator 1 from here on

}  // namespace

frmEditPrg::frmEditPrg(Application& app)
    : ChildWindow(app, "frmEditPrg", {}), rows_(*this, *this, app.edits, kPrgRecordUnderEdit) {
  for (const char* caption : kFrameCaptions) {
    frames_.push_back(std::make_unique<ui::Frame>(*this, "Frame", static_cast<int>(frames_.size())));
    frames_.back()->SetCaption(caption);
  }
  for (int block = 0; block < kOscillators; ++block) {
    for (const char* caption : kOscFrameCaptions) {
      frames_.push_back(std::make_unique<ui::Frame>(*this, "Frame", static_cast<int>(frames_.size())));
      frames_.back()->SetCaption(caption);
    }
  }
  on_context = [this] { PopupEditMenu(); };
  MakeRows();
  MakePictures();
  ConnectTexts();
  ConnectOptions();
  LayOut();
}

void frmEditPrg::MakeRows() {
  for (const EditorRow& row : prg_editor::kCommonRows) AddRow(row, 0);
  for (int block = 0; block < kOscillators; ++block) {
    for (const EditorRow& row : prg_editor::kOscRows) AddRow(row, block);
  }
  for (const EditorRow& row : prg_editor::kEffectRows) AddRow(row, 0);
  for (const EditorRow& row : prg_editor::kPanRows) AddRow(row, 0);
  // The other two of the returns are those of the pans, which they take in turn.
  for (const EditorRow& row : prg_editor::kReturnRows) {
    if (row.index % 2 == 0) AddRow(row, 0);
  }
}

void frmEditPrg::MakePictures() {
  for (std::size_t i = 0; i < kEnvelopes.size(); ++i) {
    const EnvelopeBars& shown = kEnvelopes[i];
    std::vector<ui::ScrollBar*> bars;
    for (int index = shown.first; index <= shown.last; ++index) {
      const int at = index + (shown.block == 0 ? 0 : prg_editor::OscStep(shown.array));
      bars.push_back(static_cast<ui::ScrollBar*>(&ControlOf(shown.array, at)));
    }
    envelopes_.push_back(
        std::make_unique<EnvelopePicture>(EGPicture[static_cast<int>(i)], shown.envelope, std::move(bars)));
  }
}

void frmEditPrg::AddRow(const EditorRow& row, int block) {
  const int index = row.index + block * prg_editor::OscStep(row.array);
  const std::size_t start = 1 + (OfOscillator(row.array) ? kOscBlock.StartOf(block) : 0);
  EditorControl bound{&row, block, start, OwnerOf(row, block), &ControlOf(row.array, index), ValueOf(row.array, index)};
  if (row.array == kEffHScroll) bound.name = &EffLab1[index];
  rows_.Bind(bound);
}

ui::Control& frmEditPrg::ControlOf(int array, int index) const {
  switch (array) {
    case kBasCombo:
      return BasCombo[index];
    case kBasCheck:
      return BasCheck[index];
    case kBasHScroll:
      return BasHScroll[index];
    case kOscCombo:
      return OscCombo[index];
    case kOscCheck:
      return OscCheck[index];
    case kOscHScroll:
      return OscHScroll[index];
    case kEffCombo:
      return EffCombo[index];
    case kEffCheck:
      return EffCheck[index];
    default:
      return EffHScroll[index];
  }
}

ui::Label* frmEditPrg::ValueOf(int array, int index) const {
  if (array == kBasHScroll) return &BasLab[index];
  if (array == kOscHScroll) return &OscLab[index];
  return array == kEffHScroll ? &EffLab[index] : nullptr;
}

void frmEditPrg::ConnectTexts() {
  BasText[0].max_length = program_record::kNameLength;
  BasText[0].bytes_only = true;
  for (int box = 0; box <= kOscillators; ++box) BasText[box].of_record = true;
  BasText[0].on_change = [this] { TypeName(); };
  for (int oscillator : {1, 2}) {
    ui::TextBox& box = BasText[oscillator];
    box.max_length = kSoundLength;
    box.on_change = [this, oscillator] { TypeSound(oscillator); };
    box.on_mouse = [this, oscillator](const ui::MouseEvent& event) {
      if (event.what == ui::MouseEvent::kUp && !event.right) ClickSound(oscillator);
    };
    box.on_key = [this, oscillator](const ui::Key& key) {
      if (key.name == ui::Key::kEnter) ClickSound(oscillator);
      return false;
    };
    ui::ScrollBar& bar = BasVScroll[oscillator];
    bar.vertical = true;
    bar.SetRange(kLastMultisound, 0);
    bar.on_change = [this, oscillator] { MoveSound(oscillator); };
    bar.kept_value = [this, oscillator] {
      return std::optional(kept_sounds_[static_cast<std::size_t>(oscillator - 1)]);
    };
  }
}

void frmEditPrg::ConnectOptions() {
  const auto connect = [this](ui::OptionButton& option, int osc) {
    option.SetCaption("OSC &" + std::to_string(osc));
    option.on_click = [this, osc] {
      if (!Guarded()) SelectOscillator(app(), osc);
    };
  };
  for (int i = 0; i < kOscillators; ++i) {
    connect(BasOption[i], i + 1);
    connect(OscOption[i], i + 1);
    connect(OscOption[i + 2], i + 1);
  }
}

// The tips of oscillator 2 are those of oscillator 1, and a name has the tip of what it names.
void frmEditPrg::ShowToolTips() {
  const int language = app().Language();
  for (const EditorControl& bound : rows_.controls()) {
    const std::string name = bound.control->name() + "(" + std::to_string(bound.row->index) + ")";
    bound.control->SetToolTip(std::string(ToolTip(this->name(), name, language)));
    for (ui::Label* label : {bound.name, bound.value}) {
      if (label != nullptr) label->SetToolTip(bound.control->tool_tip());
    }
  }
  for (int i = 0; i < kOscillators; ++i) {
    const std::string tip(ToolTip(name(), "BasOption(" + std::to_string(i) + ")", language));
    OscOption[i].SetToolTip(tip);
    OscOption[i + 2].SetToolTip(tip);
  }
  for (int frame = 0; frame < kOscFrameCount; ++frame) {
    const std::string tip(ToolTip(name(), frames_[static_cast<std::size_t>(kOscFrames + frame)]->FullName(), language));
    frames_[static_cast<std::size_t>(kOscFrames + kOscFrameCount + frame)]->SetToolTip(tip);
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
constexpr ui::Size kWaveformSize = {16, 1};
constexpr ui::Size kSoundSize = {17, 1};
constexpr ui::Size kBarSize = {7, 1};
constexpr ui::Size kValueSize = {4, 1};
constexpr ui::Size kPictureSize = {24, 6};
constexpr ui::Size kRoutingSize = {50, 12};
constexpr ui::Size kPolaritySize = {4, 1};
constexpr ui::Size kEffectSize = {17, 1};

}  // namespace

ui::Label& frmEditPrg::MakeLabel(const std::string& caption) {
  labels_.push_back(std::make_unique<ui::Label>(*this, "LabelText", static_cast<int>(labels_.size())));
  labels_.back()->SetCaption(caption);
  return *labels_.back();
}

Layout frmEditPrg::Framed(int frame, Layout content, int stretch) {
  return Tight(Inside(*frames_[static_cast<std::size_t>(frame)], std::move(content), stretch));
}

Layout frmEditPrg::Named(int array, int index) {
  EditorControl& bound = RowOf(array, index);
  return Row({Item(*bound.name), Item(*bound.control, 1)});
}

// Name, bar and value of the bars from one index to another.
Layout frmEditPrg::Bars(int array, int first, int last) {
  std::vector<Layout> cells;
  for (int index = first; index <= last; ++index) {
    EditorControl& bound = RowOf(array, index);
    bound.control->least_characters = kBarSize;
    bound.value->least_characters = kValueSize;
    bound.value->right_aligned = true;
    cells.push_back(Item(*bound.name));
    cells.push_back(Item(*bound.control, 1));
    cells.push_back(Item(*bound.value));
  }
  return Tight(Grid(3, std::move(cells)));
}

Layout frmEditPrg::Pictured(int picture) {
  EGPicture[picture].least_characters = kPictureSize;
  return Item(EGPicture[picture]);
}

void frmEditPrg::LayOut() {
  FxPicture.least_characters = kRoutingSize;
  const int language = app().Language();
  const auto caption = [this, language](const std::string& control) {
    return std::string(Caption(name(), control, language));
  };
  SSTab1.captions = {caption("SSTab1(0)"), caption("SSTab1(1)"), caption("SSTab1(2)"), caption("SSTab1(3)")};
  std::vector<Layout> pages;
  pages.push_back(CommonPage());
  pages.push_back(OscPage(0));
  pages.push_back(OscPage(1));
  pages.push_back(EffectPage());
  for (Layout& page : pages) page.scrolls = true;
  layout = Column({ui::Pages(SSTab1, std::move(pages))});
}

Layout frmEditPrg::CommonPage() {
  BasText[0].least_characters = kNameSize;
  const auto sound = [this](int oscillator) {
    BasText[oscillator].least_characters = kSoundSize;
    return Row({Item(MakeLabel("OSC-" + std::to_string(oscillator) + " M/D SOUND")), Item(BasText[oscillator], 1),
                Item(BasVScroll[oscillator])});
  };
  BasCombo[8].least_characters = kWaveformSize;
  const auto lists = [this](std::initializer_list<int> indices) {
    std::vector<Layout> cells;
    for (const int index : indices) {
      EditorControl& bound = RowOf(kBasCombo, index);
      cells.push_back(Item(*bound.name));
      cells.push_back(Item(*bound.control, 1));
    }
    return Grid(2, std::move(cells));
  };
  Layout program = Column({Row({Item(MakeLabel("PROGRAM NAME")), Item(BasText[0], 1)}), lists({2, 3, 4}),
                           Row({Item(BasOption[0]), Item(BasOption[1]), Space()})});
  Layout oscillator = Column({sound(1), sound(2), lists({0, 1, 5}), Bars(kBasHScroll, 0, 1)});
  Layout sweep = Column({lists({8, 9}), Item(BasCheck[0]), Bars(kBasHScroll, 7, 9)});
  Layout pitch = Column({Pictured(0), Bars(kBasHScroll, 10, 17)});
  Layout touch = Column({lists({6}), Bars(kBasHScroll, 2, 4)});
  Layout joystick = Column({lists({7}), Bars(kBasHScroll, 5, 6)});
  return Row(
      {Column({Framed(kProgramFrame, std::move(program)), Framed(kOscillatorFrame, std::move(oscillator)), Space()}, 1),
       Column({Framed(kPitchEgFrame, std::move(pitch)), Framed(kVdfMgFrame, std::move(sweep)), Space()}, 1),
       Column({Framed(kAftertouchFrame, std::move(touch)), Framed(kJoystickFrame, std::move(joystick)), Space()}, 1)});
}

// The four tables of signs as a grid: a row for each time of the envelopes, a column for each table.
Layout frmEditPrg::Polarities(int block) {
  const std::string osc = std::to_string(block + 1);
  const int first = 5 + block * prg_editor::OscStep(kOscCombo);
  constexpr int kTables = 4;
  std::vector<Layout> cells;
  cells.push_back(Layout());
  for (const char* table : {"VDF EG%\nKbd Tr", "VDF EG%\nVelocity", "VDA EG%\nKbd Tr", "VDA EG%\nVelocity"}) {
    std::string caption = table;
    caption.replace(caption.find('%'), 1, osc);
    ui::Label& head = MakeLabel(caption);
    head.wraps = true;
    cells.push_back(Item(head));
  }
  for (int time = 0; time < kTables; ++time) {
    cells.push_back(Item(*RowOf(kOscCombo, first + time).name));
    for (int table = 0; table < kTables; ++table) {
      ui::ComboBox& list = OscCombo[first + table * kTables + time];
      list.least_characters = kPolaritySize;
      cells.push_back(Item(list, 1));
    }
  }
  return Tight(Grid(kTables + 1, std::move(cells)));
}

Layout frmEditPrg::OscPage(int block) {
  const int bar = block * prg_editor::OscStep(kOscHScroll);
  const int list = block * prg_editor::OscStep(kOscCombo);
  const int frame = kOscFrames + block * kOscFrameCount;
  ui::Label& silent = MakeLabel(std::string(Caption(name(), "LabelSilent", app().Language())));
  silent.SetVisible(false);
  silent_[static_cast<std::size_t>(block)] = &silent;
  const auto named = [this, list](int index) { return Named(kOscCombo, list + index); };

  Layout vibrato = Column({Row({Item(*RowOf(kOscCombo, list).name), Item(OscCombo[list], 1)}), Item(OscCheck[block]),
                           Bars(kOscHScroll, bar + 1, bar + 8)});
  Layout mix = Column({Bars(kOscHScroll, bar + 37, bar + 39), named(1), named(2)});
  RowOf(kOscCombo, list + 3).name->SetCaption("VDF-" + std::to_string(block + 1));
  RowOf(kOscCombo, list + 4).name->SetCaption("VDA-" + std::to_string(block + 1));
  Layout track = Column({named(3), named(4)});
  Layout options = Row({Item(OscOption[2 * block]), Item(OscOption[2 * block + 1]), Item(silent), Space()});
  // The grid stands under the vibrato, where the columns beside it are longer: so the page is whole in a small window.
  Layout columns = Row(
      {Column(
           {Framed(frame + kPitchFrame, Bars(kOscHScroll, bar, bar)), Framed(frame + kPitchMgFrame, std::move(vibrato)),
            Framed(frame + kPolarityFrame, Polarities(block)), Space()},
           1),
       Column({Framed(frame + kVdfFrame, Bars(kOscHScroll, bar + 9, bar + 15)),
               Framed(frame + kVdfEgFrame, Column({Pictured(1 + 2 * block), Bars(kOscHScroll, bar + 16, bar + 23)})),
               Space()},
              1),
       Column({Framed(frame + kVdaFrame, Bars(kOscHScroll, bar + 24, bar + 29)),
               Framed(frame + kVdaEgFrame, Column({Pictured(2 + 2 * block), Bars(kOscHScroll, bar + 30, bar + 36)})),
               Space()},
              1),
       Column({Framed(frame + kMixFrame, std::move(mix)), Framed(frame + kTrackFrame, std::move(track)), Space()}, 1)});
  return Column({std::move(options), std::move(columns)});
}

Layout frmEditPrg::EffectPage() {
  const auto effect = [this](int i) {
    EffCombo[2 * i].least_characters = kEffectSize;
    return Column({Named(kEffCombo, 2 * i), Item(EffCheck[i]), Bars(kEffHScroll, 2 * i, 2 * i),
                   Named(kEffCombo, 2 * i + 1), Bars(kEffHScroll, 2 * i + 1, 2 * i + 1)});
  };
  Layout outputs = Column({Named(kEffCombo, 4), Bars(kEffHScroll, 4, 7)});
  return Row({Column({Framed(kFx1Frame, effect(0)), Framed(kFx2Frame, effect(1)), Space()}, 1),
              Column({Item(FxPicture), Framed(kIoFrame, std::move(outputs)), Space()}, 1)});
}

}  // namespace zentaline
