// The program under edit when it goes a step back or forth, and the windows of banks.
#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "core/application.h"
#include "core/main_window.h"
#include "core/undo.h"
#include "core/window_image.h"
#include "midi/api.h"
#include "program/api.h"
#include "program/frmEditPerf.h"
#include "program/frmEditPrg.h"
#include "program/frmPrgUN.h"
#include "program/prg_format.h"
#include "program/windows.h"

namespace zentaline {

namespace {

namespace rec = program_record;

// --- The fields in the order of their tables ---

struct Sent {
  const EditorRow* row = nullptr;  // null for a sound
  int block = 0;
  std::size_t start = 1;
};

constexpr int kOscillators = 2;
constexpr std::size_t kCommonCount = std::size(prg_editor::kCommonRows);
constexpr std::size_t kOscCount = std::size(prg_editor::kOscRows);
constexpr std::size_t kPanCount = std::size(prg_editor::kPanRows);
constexpr std::size_t kReturnCount = std::size(prg_editor::kReturnRows);
constexpr std::size_t kPansAt =
    kCommonCount + kOscillators + kOscillators * kOscCount + std::size(prg_editor::kEffectRows);
constexpr std::size_t kSentCount = kPansAt + kPanCount + kReturnCount;

consteval std::array<Sent, kSentCount> SentFields() {
  std::array<Sent, kSentCount> fields;
  std::size_t at = 0;
  for (const EditorRow& row : prg_editor::kCommonRows) fields[at++] = {&row};
  for (int oscillator = 0; oscillator < kOscillators; ++oscillator) fields[at++] = {nullptr, oscillator};
  for (int block = 0; block < kOscillators; ++block) {
    for (const EditorRow& row : prg_editor::kOscRows) fields[at++] = {&row, block, 1 + kOscBlock.StartOf(block)};
  }
  for (const EditorRow& row : prg_editor::kEffectRows) fields[at++] = {&row};
  for (const EditorRow& row : prg_editor::kPanRows) fields[at++] = {&row};
  for (const EditorRow& row : prg_editor::kReturnRows) fields[at++] = {&row};
  return fields;
}
constexpr std::array<Sent, kSentCount> kSent = SentFields();

constexpr std::size_t kSoundPositions[] = {rec::kOsc1Multisound, rec::kOsc2Multisound};

constexpr std::size_t PositionOf(const Sent& sent) {
  return sent.row == nullptr ? kSoundPositions[sent.block] : sent.start + sent.row->field->place.offset;
}

// Which fields have bits in a byte: a few at most.
constexpr std::size_t kMostInByte = 4;
constexpr std::uint8_t kNoField = 0xFF;
using FieldsOfByte = std::array<std::uint8_t, kMostInByte>;

consteval std::array<FieldsOfByte, edit_record::kLength + 1> FieldsByPosition() {
  std::array<FieldsOfByte, edit_record::kLength + 1> table;
  for (FieldsOfByte& fields : table) fields.fill(kNoField);
  for (std::size_t i = 0; i < kSentCount; ++i) {
    const std::size_t width = kSent[i].row == nullptr ? 2 : kSent[i].row->field->Width();
    for (std::size_t byte = 0; byte < width; ++byte) {
      FieldsOfByte& fields = table[PositionOf(kSent[i]) + byte];
      std::size_t free = 0;
      while (fields[free] != kNoField) ++free;
      fields[free] = static_cast<std::uint8_t>(i);
    }
  }
  return table;
}
constexpr auto kByPosition = FieldsByPosition();
static_assert(kSentCount < kNoField);

bool OfOscillator(const EditorRow& row) {
  return row.array == kOscCombo || row.array == kOscCheck || row.array == kOscHScroll;
}

// The placement tells whether it is the pans that are heard or the returns.
bool IsHeard(std::size_t field, bool returns) {
  if (field < kPansAt) return true;
  return (field >= kPansAt + kPanCount) == returns;
}

int RawOf(const Sent& sent, std::string_view record) {
  if (sent.row == nullptr) return WordLowFirst(record, kSoundPositions[sent.block]);
  return RawAt(*sent.row->field, record, sent.start);
}

// What the field's control sends.
void Send(Application& app, const Sent& sent, int raw) {
  if (sent.row == nullptr) {
    SendModeProgram(app);
    return SendPrgParam(app, prg_editor::kMultisound.a, prg_editor::kMultisound.b, raw);
  }
  AnnounceProgramParam(app, *sent.row, sent.block);
  SendPrgParam(app, sent.row->message.a, sent.row->message.b, SentOfRaw(*sent.row, raw));
}

bool HasReturns(std::string_view record) {
  constexpr const Field& kPlacement = FieldOf(program_fields::kCommon, "placement");
  return ShownAt(kPlacement, record, 1) == prg_editor::kPlacementWithReturns;
}

void SendField(Application& app, std::size_t i, std::string_view before) {
  const Sent& sent = kSent[i];
  const Bytes& record = app.program.EditRecord;
  const int raw = RawOf(sent, record);
  const int raw_before = RawOf(sent, before);
  bool changed = sent.row == nullptr ? raw != raw_before : Differ(*sent.row->field, raw, raw_before);
  // Pans in place of returns, or the other way round, mean something else by the same bits.
  changed |= i >= kPansAt && HasReturns(record) != HasReturns(before);
  if (changed && IsHeard(i, HasReturns(record))) Send(app, sent, raw);
}

// Each field that the step has changed, once.
void SendChanged(Application& app, const EditAction& action, std::string_view before) {
  std::array<bool, kSentCount> due{};
  std::size_t first = kSentCount;
  std::size_t last = 0;
  for (const EditChange& change : action.changes) {
    if (change.target != kPrgRecordUnderEdit) continue;
    for (std::size_t i = 0; i < change.after.size() && change.position + i < kByPosition.size(); ++i) {
      for (const std::uint8_t field : kByPosition[change.position + i]) {
        if (field == kNoField) break;
        due[field] = true;
        first = std::min<std::size_t>(first, field);
        last = std::max<std::size_t>(last, field);
      }
    }
  }
  if (HasReturns(before) != HasReturns(app.program.EditRecord)) {
    std::fill(due.begin() + kPansAt, due.end(), true);
    last = kSentCount;
  }
  for (std::size_t i = first; i <= last && i < kSentCount; ++i) {
    if (due[i]) SendField(app, i, before);
  }
}

bool ShowsOf(const EditAction& action, const ui::Form* form) {
  return form != nullptr && std::any_of(action.shown.begin(), action.shown.end(),
                                        [&](const EditShown& shown) { return &shown.control->form() == form; });
}

}  // namespace

// The octaves stand on the common page. The performance editor has its own way, without a mode.
void AnnounceProgramParam(Application& app, const EditorRow& row, int block) {
  const bool of_effect = row.array == kEffCombo || row.array == kEffCheck || row.array == kEffHScroll;
  if (!of_effect && app.prg_editor != nullptr) SendModeProgram(app);
  if (OfOscillator(row)) SelectOscillator(app, block + 1);
  if (row.array == kBasCombo && row.index < 2) SelectOscillator(app, row.index + 1);
}

void ShowProgramStep(Application& app, const EditStep& step) {
  auto* performance = static_cast<frmEditPerf*>(app.perf_editor);
  const bool by_performance = ShowsOf(step.action, performance);
  // What it compares with no longer stands.
  if (performance != nullptr && !by_performance && app.prg_editor != nullptr) {
    ClosePerfEditor(app);
    performance = nullptr;
  }
  ChildWindow* front = by_performance || app.prg_editor == nullptr ? performance : app.prg_editor;
  if (front != nullptr) app.toolkit.Activate(*front);
  // The sound comes first.
  if (front != nullptr) SendChanged(app, step.action, step.record_before);
  if (performance != nullptr) performance->ShowStep(step);
  if (app.prg_editor != nullptr) app.prg_editor->ShowStep(step);
}

// --- Windows of banks ---

// Rows show what they showed; a row that was kept shows its record's name.
void frmPrgUN::ShowStep(const EditStep& step) {
  int first = kPrgRecordCount;
  for (const EditChange& change : step.action.changes) {
    if (change.target != ImageOf(*this) || change.position < kPrgImageRecordsPosition) continue;
    const auto row = static_cast<int>((change.position - kPrgImageRecordsPosition) / kPrgRecordLength);
    if (row < kPrgRecordCount) first = std::min(first, row);
  }
  // What a crash had interrupted noted nothing that was shown.
  for (int row = first; step.action.texts.empty() && row < kPrgRecordCount; ++row) {
    if (std::string text = RowText(row); text != List1.RowText(row)) List1.SetRowText(row, std::move(text));
  }
  for (const EditTextShown& shown : step.action.texts) {
    if (shown.control == &List1) ShowAgain(List1, step.Shown(shown), shown.row);
  }
  if (first < kPrgRecordCount) List1.ShowRow(first);
  ShowEditButton();
  ShowName();
  if (app().program.PrgInInstrument == NameForInstrument()) {
    app().program.PrgInInstrument.clear();
    if (app().main != nullptr) app().main->LabelPrg.SetCaption({});
  }
  TakeOverProgram(app(), *this, step);
}

void frmPrgUN::ShowRowText(int row, std::string text) {
  app().edits.NoteShown(List1, List1.RowText(row), text, row);
  List1.SetRowText(row, std::move(text));
}

// What is changed in the editors themselves stays there.
void TakeOverProgram(Application& app, const ChildWindow& bank, const EditStep& step) {
  const int index = ByteAt(app.program.EditRecord, edit_record::kIndex);
  if (app.prg_editor == nullptr && app.perf_editor == nullptr) return;
  if (!IsUnderEdit(app, bank, index)) return;
  const Bytes before = app.program.EditRecord;
  auto* const editor = static_cast<frmEditPrg*>(app.prg_editor);
  if (step.back && editor != nullptr) editor->records_behind[step.action.number] = before;
  if (app.program.ProgramChanged) return;
  Bytes taken = MakeEditRecord(bank.window_image(), index);
  if (!step.back && editor != nullptr) {
    const auto behind = editor->records_behind.find(step.action.number);
    if (behind != editor->records_behind.end()) taken = behind->second;
  }
  // A row that has been emptied is no record to show: the editors keep what they had, as at a cut.
  if (before == taken || ByteAt(taken, rec::kName) == 0) return;
  app.edits.TakeOver(kPrgRecordUnderEdit, std::move(taken));
  TakePerfBase(app);
  RefreshPerf(app);
  FillProgramEditor(app);
  for (std::size_t i = 0; i < kSentCount; ++i) SendField(app, i, before);
}

}  // namespace zentaline
