// The arrangement editor when its record goes a step back or forth: the controls show what they showed at that step,
// and the instrument hears of each field that has changed.
#include <algorithm>
#include <iterator>
#include <utility>

#include "arrangement/api.h"
#include "arrangement/frmEditArr.h"
#include "arrangement/windows.h"
#include "base/scoped_value.h"
#include "core/application.h"
#include "core/window_image.h"
#include "data/names.h"
#include "midi/api.h"
#include "program/prg_format.h"

namespace zentaline {

namespace {

frmEditArr* Editor(const Application& app) {
  return app.arrangement.EditorOpen ? static_cast<frmEditArr*>(app.toolkit.FindForm("frmEditArr")) : nullptr;
}

bool Differs(std::string_view a, std::string_view b, std::size_t position, std::size_t length) {
  return a.substr(position - 1, length) != b.substr(position - 1, length);
}

}  // namespace

std::size_t frmEditArr::MapPosition(int variation) const {
  return ArrEditPosition(kDrumMapBlock.StartOf(variation)) + drum_map_->field().place.offset;
}

// --- A step of the record under edit ---

void frmEditArr::ShowStep(const EditStep& step) {
  toolkit().Activate(*this);
  ShowMapOf(step.action);
  // The sound comes first.
  SendChanged(rows_.Changed(step.action, step.record_before), step.record_before);
  for (const EditShown& each : step.action.shown) {
    if (!rows_.ShowAgain(*each.control, step.Shown(each))) ShowAgain(*each.control, step.Shown(each));
  }
  for (const EditTextShown& each : step.action.texts) ShowAgain(*each.control, step.Shown(each), each.row);
  name_shown_ = Text1[kNameBox].text();
  if (Differs(step.record_before, record(), arr_edit::kRecord, kArrNameLength)) ShowTitle();
  if (RowOf(kHScroll1, 0).position() == step.action.changes.front().position) ShowSplitNote();
  ShowPlace(*this, step);
}

// The bar of the drum maps goes to the variation that the step is about.
void frmEditArr::ShowMapOf(const EditAction& action) {
  for (int variation = 0; variation < Combo1[kMapChooser].rows(); ++variation) {
    const auto here = [&](const EditChange& change) { return change.position == MapPosition(variation); };
    if (std::none_of(action.changes.begin(), action.changes.end(), here)) continue;
    Combo1[kMapChooser].ShowRow(variation);
    drum_map_->block = variation;
    drum_map_->start = ArrEditPosition(kDrumMapBlock.StartOf(variation));
    return rows_.Show(*drum_map_);
  }
}

// --- What the instrument hears ---

void frmEditArr::SendChanged(const std::vector<EditorControl*>& changed, std::string_view before) {
  for (const EditorControl* control : changed) SendRecord(*control);
  constexpr std::size_t kPicked = 2;
  static_assert(part_block::kBankCode == part_block::kProgram + 1);
  for (int part = 0; part < kArrPartCount; ++part) {
    const std::size_t place = ArrEditPosition(PartOffset(part)) + part_block::kProgram;
    if (Differs(before, record(), place, kPicked)) SendPicked(part);
  }
}

void frmEditArr::SendRecord(const EditorControl& control) {
  const EditorRow& row = *control.row;
  const int sent = SentOfRaw(row, RawAt(control.field(), record(), control.start));
  app().arrangement.ArrSignFlag = sent < 0 ? 1 : 0;
  Send(control, sent);
}

// As picking it would: a user's program isn't heard.
void frmEditArr::SendPicked(int part) {
  const std::size_t block = ArrEditPosition(PartOffset(part));
  const ProgramPlace place =
      ProgramPlaceOf(ByteAt(record(), block + part_block::kBankCode), ByteAt(record(), block + part_block::kProgram));
  if (place.kind == 0 || place.kind == kKindPrg || !app().midi.OutputOpen) return;
  ArrangementState& state = app().arrangement;
  std::remove_cvref_t<decltype(state.ArrPartSlots)> slots{};
  slots[static_cast<std::size_t>(kFirstPartBox + 2 * part)] = 1;
  const ScopedValue armed(state.ArrPartArmed, true);
  const ScopedValue slot(state.ArrPartSlots, slots);
  SelectProgram(app(), Bytes(1, static_cast<char>(place.kind)), place.index);
}

// --- A record of the file that has changed ---

void frmEditArr::TakeOver(Bytes taken) {
  const Bytes before = record();
  app().edits.TakeOver(kArrRecordUnderEdit, std::move(taken));
  {
    const ScopedValue filling(app().arrangement.EditorFilling, true);
    ShowTitle();
    ShowTexts();
    rows_.Show();
    ShowSplitNote();
    for (int part = 0; part < kArrPartCount; ++part) ShowPart(part);
  }
  SendChanged(rows_.Changed(before), before);
}

// --- What other windows ask ---

void ShowArrEditorStep(Application& app, const EditStep& step) {
  // The controls that have changed are the editor's own.
  const auto& shown = step.action.shown;
  ui::Form* editor = shown.empty() ? Editor(app) : &shown.front().control->form();
  if (editor != nullptr) static_cast<frmEditArr*>(editor)->ShowStep(step);
}

// What is changed in the editor itself stays there.
void TakeOverArrRecord(Application& app, const ChildWindow& source, const EditStep& step) {
  frmEditArr* editor = Editor(app);
  const Bytes& record = app.arrangement.ArrEditRecord;
  if (editor == nullptr || ByteAt(record, arr_edit::kKind) != source.Kind() ||
      ByteAt(record, arr_edit::kWindowNumber) != source.WindowNumber()) {
    return;
  }
  if (step.back) editor->records_behind[step.action.number] = record;
  if (app.arrangement.EditorChanged) return;
  const auto behind = editor->records_behind.find(step.action.number);
  Bytes taken = !step.back && behind != editor->records_behind.end()
                    ? behind->second
                    : PrepareEditRecord(source.window_image(), ByteAt(record, arr_edit::kIndex), StyleName);
  // A row that has been emptied is no record to show: the editor keeps what it had, as at a cut.
  if (record != taken && ByteAt(taken, arr_edit::kRecord) != 0) editor->TakeOver(std::move(taken));
}

}  // namespace zentaline
