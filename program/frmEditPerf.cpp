#include "program/frmEditPerf.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/scoped_value.h"
#include "core/application.h"
#include "core/boxes.h"
#include "core/window_image.h"
#include "data/message_codes.h"
#include "midi/api.h"
#include "program/api.h"
#include "program/windows.h"

namespace zentaline {

namespace {

constexpr std::size_t kImageLength = 200;

constexpr int kModeBits = 3;
constexpr int kDouble = 1;

// A step is as wide as the bar's quarter is high.
ui::Drawing CountBar(int count) {
  constexpr double kMiddle = kPerfMost;
  constexpr double kHeight = 4;
  constexpr double kEdge = 0.5;
  ui::Drawing bar;
  bar.size = {2 * kMiddle, kHeight};
  bar.shapes.push_back(ui::Box({0, 0}, bar.size, ui::Ink::kPaper));
  for (const double x : {kMiddle / 2, kMiddle * 3 / 2}) {
    bar.shapes.push_back(ui::Line({{x, 0}, {x, kHeight}}, ui::Ink::kGrid));
  }
  if (count != 0) {
    bar.shapes.push_back(ui::Box({kMiddle, kEdge}, {kMiddle + count, kHeight - kEdge}, ui::Ink::kAccent));
  }
  bar.shapes.push_back(ui::Line({{kMiddle, 0}, {kMiddle, kHeight}}, ui::Ink::kZero));
  return bar;
}

}  // namespace

frmEditPerf::frmEditPerf(Application& app) : ChildWindow(app, "frmEditPerf", {}) {
  for (int row = 0; row < kPerfRows; ++row) {
    PerfLab1[row].SetCaption(std::string(kPerfRowTable[static_cast<std::size_t>(row)].caption));
    PerfLab[row].right_aligned = true;
    SetCount(row, 0);
    ShowBar(row);
    CommDown[row].SetCaption("-");
    CommUp[row].SetCaption("+");
    CommReset[row].SetCaption("Reset");
    CommDown[row].on_click = [this, row] { Press(row, -1); };
    CommUp[row].on_click = [this, row] { Press(row, 1); };
    CommReset[row].on_click = [this, row] { Reset(row); };
  }
  CommResetAll.on_click = [this] {
    for (int row = 0; row < kPerfRows; ++row) Reset(row);
  };
  on_context = [this] { PopupEditMenu(); };
  LayOut();
}

const Bytes& frmEditPerf::record() const {
  return app().program.EditRecord;
}

// --- Opening and closing ---

void frmEditPerf::Load() {
  // By the first byte the program editor knows that its changes come from here.
  Bytes image(kImageLength, ' ');
  PutByte(image, kKindPosition, kKindPerfEditor);
  app().edits.TakeImage(*this, std::move(image));
  ChildWindow::Load();
  app().perf_editor = this;
  Refresh();
  app().program.PerfOpen = true;
  if (!app().program.PrgEditorOpen) app().edits.Mark(kPrgRecordUnderEdit, false);
}

// With the program editor open the changes stay for its own closing.
bool frmEditPerf::Unsaved() const {
  return app().program.ProgramChanged;
}

bool frmEditPerf::QueryClose() {
  return app().program.PrgEditorOpen || AskToSaveProgram(app(), *this);
}

void frmEditPerf::Unload() {
  app().program.PerfOpen = false;
  app().perf_editor = nullptr;
  if (app().prg_editor == nullptr) app().edits.ForgetRecord(kPrgRecordUnderEdit);
  ChildWindow::Unload();
}

FormState* frmEditPerf::FormPlace() {
  return &app().program.EditPerfPlace;
}

// --- Showing ---

int frmEditPerf::Count(int row) const {
  return counts_[static_cast<std::size_t>(row)];
}

void frmEditPerf::SetCount(int row, int count) {
  counts_[static_cast<std::size_t>(row)] = count;
  PerfLab[row].SetCaption(std::to_string(count));
}

void frmEditPerf::ShowBar(int row) {
  PerfPicture[row].SetDrawing(CountBar(Count(row)));
}

void frmEditPerf::Refresh() {
  SetCaption("Performance Edit  " + EditedProgramTitle(app()));
  const ScopedValue silent(app().program.PerfSilent, true);
  for (int row = 0; row < kPerfRows; ++row) {
    SetCount(row, 0);
    CommUp[row].SetEnabled(true);
    CommDown[row].SetEnabled(true);
    Apply(row);
    ShowBar(row);
  }
}

// --- Pressing ---

void frmEditPerf::Press(int row, int way) {
  const RowShown before = ShownOf(row);
  SetCount(row, Count(row) + way);
  Apply(row);
  if (Count(row) >= kPerfMost) CommUp[row].SetEnabled(false);
  if (Count(row) <= -kPerfMost) CommDown[row].SetEnabled(false);
  ShowBar(row);
  NoteShown(row, before);
}

frmEditPerf::RowShown frmEditPerf::ShownOf(int row) const {
  return {Count(row), CommUp[row].enabled(), CommDown[row].enabled()};
}

void frmEditPerf::NoteShown(int row, const RowShown& before) {
  const RowShown now = ShownOf(row);
  Edits& edits = app().edits;
  edits.NoteShown(PerfLab[row], before.count, now.count);
  edits.NoteShown(CommUp[row], before.up, now.up);
  edits.NoteShown(CommDown[row], before.down, now.down);
}

// The program has gone a step back or forth, and the rows with it.
void frmEditPerf::ShowStep(const EditStep& step) {
  for (const EditShown& each : step.action.shown) {
    if (&each.control->form() != this) continue;
    const int value = step.Shown(each);
    if (each.control->kind() != ui::ControlKind::kLabel) {
      ShowAgain(*each.control, value);
      continue;
    }
    const int row = each.control->index();
    SetCount(row, value);
    app().program.PerfStepValue[static_cast<std::size_t>(row)] = value;
    ShowBar(row);
  }
}

void frmEditPerf::Reset(int row) {
  const RowShown before = ShownOf(row);
  const ScopedValue resetting(app().program.PerfResetting, true);
  SetCount(row, 0);
  CommUp[row].SetEnabled(true);
  CommDown[row].SetEnabled(true);
  Apply(row);
  ShowBar(row);
  NoteShown(row, before);
}

void frmEditPerf::Apply(int row) {
  ProgramState& state = app().program;
  const PerfRow& moved = kPerfRowTable[static_cast<std::size_t>(row)];
  const bool is_double = (ByteAt(record(), program_record::kMode) & kModeBits) == kDouble;
  const bool of_effects = kPerfTable[static_cast<std::size_t>(moved.first)].of_effect;
  const int oscillators = is_double && !of_effects ? 2 : 1;
  for (int osc = 1; osc <= oscillators; ++osc) {
    ApplyTo(row, moved.first, osc);
    if (moved.second != kNoParameter) ApplyTo(row, moved.second, osc);
  }
  state.PerfStepValue[static_cast<std::size_t>(row)] = Count(row);
  if (!state.PerfSilent) app().edits.Mark(kPrgRecordUnderEdit, true);
}

void frmEditPerf::ApplyTo(int row, int entry, int osc) {
  const ProgramState& state = app().program;
  const PerfParameter& parameter = kPerfTable[static_cast<std::size_t>(entry)];
  const std::size_t position = PerfPosition(parameter, osc);
  const int base = state.PerfBase[static_cast<std::size_t>(entry + (osc == 2 ? kPerfParameters : 0))];
  int value = 0;
  if (state.PerfResetting) {
    value = PerfValue(parameter, base);
    Limit(row, value, parameter.low, kPerfResetHigh);
  } else {
    value = Step(row, parameter, position);
  }
  if (state.PerfSilent) return;
  const int bar = parameter.index + (osc == 2 ? kOscBarStep : 0);
  const bool by_bar = SetProgramBar(app(), parameter.bar, bar, value);
  const EditWords words = {kPerfRowTable[static_cast<std::size_t>(row)].caption, PerfOwner(parameter, osc)};
  const auto store = [&] {
    // A reset brings back also what lies beyond the end of the bar.
    if (!by_bar || state.PerfResetting) Store(position, value, words);
    if (parameter.of_effect) CopyBalance(parameter, entry, words);
  };
  // An effect is stored before it is heard, an oscillator after.
  if (parameter.of_effect) store();
  if (!by_bar) {
    if (!parameter.of_effect) SelectOscillator(app(), osc);
    SendPrgParam(app(), parameter.a, parameter.b, value);
  }
  if (!parameter.of_effect) store();
}

// The value one step further. It may pass a bound: that stops further presses, not this one.
int frmEditPerf::Step(int row, const PerfParameter& parameter, std::size_t position) {
  const auto place = static_cast<std::size_t>(row);
  const int way = Count(row) - app().program.PerfStepValue[place];
  const int amount = kPerfRowTable[place].amount;
  const int delta = way > 0 ? amount : way < 0 ? -amount : 0;
  const int value = PerfValue(parameter, ByteAt(record(), position)) + delta;
  Limit(row, value, parameter.low, parameter.high);
  // Of several bytes the last one decides: without a step it enables "+" again, though one before it stood at its
  // limit; that is wanted.
  const bool inside = value >= parameter.low && value <= parameter.high;
  if (inside) (delta > 0 ? CommDown : CommUp)[row].SetEnabled(true);
  return value;
}

void frmEditPerf::Limit(int row, int value, int low, int high) {
  if (value < low) CommDown[row].SetEnabled(false);
  if (value > high) CommUp[row].SetEnabled(false);
}

// A press copies the balance; a reset brings back what the copy held.
void frmEditPerf::CopyBalance(const PerfParameter& parameter, int entry, const EditWords& words) {
  const std::size_t position = PerfPosition(parameter, 1);
  const int base = app().program.PerfBase[static_cast<std::size_t>(entry + kPerfParameters)];
  Store(position + kSecondCopy, app().program.PerfResetting ? base : ByteAt(record(), position), words);
}

void frmEditPerf::Store(std::size_t position, int value, const EditWords& words) {
  app().edits.PutByte(kPrgRecordUnderEdit, position, value, words);
}

// --- On the screen ---

void frmEditPerf::LayOut() {
  std::vector<ui::Layout> cells;
  for (int row = 0; row < kPerfRows; ++row) {
    PerfLab[row].least_characters = {4, 1};
    PerfPicture[row].least_characters = {10, 1};
    CommDown[row].least_characters = CommUp[row].least_characters = {3, 1};
    cells.push_back(ui::Item(PerfLab1[row]));
    cells.push_back(ui::Item(CommDown[row]));
    cells.push_back(ui::Item(PerfLab[row]));
    cells.push_back(ui::Item(PerfPicture[row], 1));
    cells.push_back(ui::Item(CommUp[row]));
    cells.push_back(ui::Item(CommReset[row]));
  }
  layout = ui::Column({ui::Grid(6, std::move(cells)), ui::Space(), ui::Row({ui::Space(), ui::Item(CommResetAll)})});
}

// --- What the other windows ask ---

void OpenPerfEditor(Application& app, ChildWindow& bank) {
  const int row = SelectedProgram(bank);
  if (row < 0) return;
  SendModeProgram(app);
  if (app.perf_editor != nullptr) return app.toolkit.Activate(*app.perf_editor);
  if (app.program.PrgEditorOpen) {
    TakePerfBase(app);
  } else {
    LoadEditRecord(app, bank.window_image(), row);
  }
  app.toolkit.Open(std::make_unique<frmEditPerf>(app));
}

void RefreshPerf(Application& app) {
  if (app.perf_editor != nullptr) static_cast<frmEditPerf*>(app.perf_editor)->Refresh();
}

void ClosePerfEditor(Application& app) {
  if (app.perf_editor != nullptr) app.perf_editor->Close();
}

}  // namespace zentaline
