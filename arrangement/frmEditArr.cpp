#include "arrangement/frmEditArr.h"

#include <algorithm>
#include <utility>

#include "arrangement/api.h"
#include "arrangement/editor_texts.h"
#include "arrangement/windows.h"
#include "base/panel_numbers.h"
#include "core/application.h"
#include "core/boxes.h"
#include "core/window_image.h"
#include "data/message_codes.h"
#include "data/names.h"
#include "midi/api.h"
#include "program/api.h"
#include "program/prg_format.h"

namespace zentaline {

namespace {

constexpr std::size_t kTitleNameLength = 10;
// The letter that a user program is shown with; a pick shows the window's own letter instead.
constexpr char kUserLetter[] = "F";

bool WaitsForFill(const EditRow& row) {
  return row.array != kCheck1 && row.array != kEffCombo && row.store != EditStore::kNowhere;
}

bool MovesPosition(EditArray array) {
  return array == kCombo1 || array == kCombo2 || array == kHScroll1;
}

}  // namespace

const Bytes& frmEditArr::record() const {
  return app().arrangement.ArrEditRecord;
}

void frmEditArr::MarkChanged() {
  app().edits.Mark(kArrRecordUnderEdit, true);
}

void frmEditArr::Put(std::size_t position, int value, const EditWords& words) {
  app().edits.PutByte(kArrRecordUnderEdit, position, value, words);
}

EditWords frmEditArr::WordsOf(const Field& field) const {
  return {field.row.caption, PartName(field.part)};
}

std::size_t frmEditArr::NamePosition(int part) const {
  return arr_edit::kProgramNames + kArrNameLength * static_cast<std::size_t>(part);
}

// --- Opening and closing ---

void frmEditArr::Load() {
  ArrangementState& state = app().arrangement;
  app().edits.TakeImage(*this, {static_cast<char>(kKindArrEditor), '\0'});
  ChildWindow::Load();
  ShowToolTips();
  state.EditorOpen = true;
  app().edits.Mark(kArrRecordUnderEdit, false);
  state.ArrNameChanged = state.EditorCloseRefused = false;
  state.ArrSignFlag = 0;
  state.ArrEditPos = 0;
  state.PartMuted = state.PartSoloed = {};
  state.ArrPartSlots = {};
  state.ArrPartArmed = state.ArrStyleArmed = state.ArrNameArmed = false;
  for (int i = 0; i < kTextBoxes; ++i) {
    saved_colours_[static_cast<std::size_t>(i)] = {Text1[i].back_colour(), Text1[i].fore_colour()};
  }
  Fill();
}

bool frmEditArr::QueryClose() {
  ArrangementState& state = app().arrangement;
  state.EditorCloseRefused = false;
  if (!open() || !state.EditorChanged) return true;
  switch (AskYesNoCancel(app(), kAskArrSave, caption())) {
    case ui::BoxAnswer::kYes:
      StoreEditRecord(app());
      return true;
    case ui::BoxAnswer::kNo:
      return true;
    default:
      state.EditorCloseRefused = true;
      return false;
  }
}

void frmEditArr::Unload() {
  ClearNameHighlight();
  app().arrangement.EditorOpen = false;
  app().edits.Mark(kArrRecordUnderEdit, false);
  app().edits.ForgetRecord(kArrRecordUnderEdit);
  ArrEditorClosed(app());
  ChildWindow::Unload();
}

FormState* frmEditArr::FormPlace() {
  return &app().core.FormStates[kKindArrEditor];
}

// --- Showing ---

int frmEditArr::Shown(const Field& field) const {
  switch (field.control.kind()) {
    case ui::ControlKind::kScrollBar:
      return static_cast<ui::ScrollBar&>(field.control).value();
    case ui::ControlKind::kCheckBox:
      return static_cast<ui::CheckBox&>(field.control).value() ? 1 : 0;
    default:
      return static_cast<ui::ComboBox&>(field.control).row();
  }
}

void frmEditArr::Show(const Field& field) {
  const int shown = field.row.store == EditStore::kNowhere ? field.row.range.first
                                                           : ShownValue(field.row, ByteAt(record(), field.position));
  switch (field.control.kind()) {
    case ui::ControlKind::kScrollBar:
      static_cast<ui::ScrollBar&>(field.control).SetValue(shown);
      break;
    case ui::ControlKind::kCheckBox:
      static_cast<ui::CheckBox&>(field.control).SetValue(shown != 0);
      break;
    default:
      static_cast<ui::ComboBox&>(field.control).SetRow(shown);
  }
  ShowValue(field);
}

void frmEditArr::ShowValue(const Field& field) {
  const int shown = Shown(field);
  switch (field.row.label) {
    case EditLabel::kNone:
      break;
    case EditLabel::kNumber:
      field.value->SetCaption(std::to_string(shown));
      break;
    case EditLabel::kNote:
      ShowSplitNote(shown);
      break;
    case EditLabel::kPan:
      field.value->SetCaption(PanText(shown));
      break;
    case EditLabel::kEffect:
      field.value->SetCaption(EffectText(field.row.index, StoredValue(field.row, shown).stored));
      break;
  }
}

void frmEditArr::ShowSplitNote(int note) {
  FieldOf(kHScroll1, 0).value->SetCaption(SplitNoteName(note));
}

void frmEditArr::Fill() {
  ArrangementState& state = app().arrangement;
  state.EditorFilling = true;
  ShowTitle();
  ShowTexts();
  // Effects and switches aren't stopped by the fill: the instrument follows the row without a dump. The effects go out
  // first.
  for (const Field& field : fields_) {
    if (field.row.array != kCheck1) Show(field);
  }
  for (const Field& field : fields_) {
    if (field.row.array == kCheck1) Show(field);
  }
  for (int part = 0; part < kArrPartCount; ++part) ShowPart(part);
  state.EditorFilling = false;
  app().edits.Mark(kArrRecordUnderEdit, false);
}

void frmEditArr::ShowTitle() {
  const Bytes file(TrimRight(Slice(record(), arr_edit::kBaseName, arr_edit::kBaseNameLength)));
  SetCaption("Edit Arrangement  " + ShownPath(file) + ".arr / " +
             Utf8FromBytes(Slice(record(), arr_edit::kRecord, kTitleNameLength)));
}

void frmEditArr::ShowTexts() {
  const auto text_at = [this](std::size_t position) {
    return Utf8FromBytes(TrimRight(Slice(record(), position, kArrNameLength)));
  };
  Text1[kNameBox].SetText(text_at(arr_edit::kRecord));
  Text1[kStyleBox].SetText(text_at(arr_edit::kStyleName));
  Label[1].SetCaption(StyleText(ByteAt(record(), ArrEditPosition(arr_record::kStyleNumber)),
                                ByteAt(record(), ArrEditPosition(arr_record::kStyleLocation))));
}

void frmEditArr::ShowPart(int part) {
  const std::size_t block = ArrEditPosition(PartOffset(part));
  const int number = ByteAt(record(), block + part_block::kProgram);
  const int bank_code = ByteAt(record(), block + part_block::kBankCode);
  const bool user = bank_code == kUserBankCode;
  const Bytes name = user ? Bytes(TrimRight(Slice(record(), NamePosition(part), kArrNameLength)))
                          : InstrumentProgramName(bank_code, number);
  const ProgramPlace place = ProgramPlaceOf(bank_code, number);
  const int box = kFirstPartBox + 2 * part;
  Text1[box].SetText(Utf8FromBytes(name));
  Text1[box + 1].SetText(name.empty() ? std::string()
                                      : ProgramNumberText(user ? kUserLetter : place.letter, place.index));
}

// --- Editing ---

void frmEditArr::Edit(Field& field) {
  ArrangementState& state = app().arrangement;
  if (state.EditorFilling && WaitsForFill(field.row)) return;
  if (field.row.array == kEffCombo && app().core.FormLoading) return;
  ClearNameHighlight();
  MarkChanged();
  state.ArrSignFlag = 0;
  if (field.row.store == EditStore::kNowhere) return ChooseVariation(field);

  const int shown = Shown(field);
  const EditValue value = StoredValue(field.row, shown);
  state.ArrSignFlag = value.negative ? 1 : 0;
  if (field.row.sends_shown) Send(field, value, shown);
  Store(field, value.stored);
  ShowValue(field);
  if (!field.row.sends_shown) Send(field, value, shown);
}

void frmEditArr::Store(const Field& field, int stored) {
  ArrangementState& state = app().arrangement;
  // A fill shows the record, and leaves a byte that it can't show as it is.
  if (state.EditorFilling) return;
  if (field.row.store == EditStore::kLastPosition) {
    // Nothing has been written yet while it is 0.
    if (state.ArrEditPos != 0) Put(static_cast<std::size_t>(state.ArrEditPos), stored, WordsOf(field));
    return;
  }
  Put(field.position, StoredByte(field.row, ByteAt(record(), field.position), stored), WordsOf(field));
  if (MovesPosition(field.row.array)) state.ArrEditPos = static_cast<int>(field.position);
}

void frmEditArr::Send(const Field& field, EditValue value, int shown) {
  if (field.id == kNotSent || value.stored > field.row.sent_to) return;
  if (field.part != kGeneral && field.row.SilentIn(field.part)) return;
  SendArrParam(app(), 0, field.id, field.row.sends_shown ? shown : value.stored, app().arrangement.ArrSignFlag);
}

// The list tells which of the four drum maps the bar shows, during a fill too; the next kick or snare then goes there.
void frmEditArr::ChooseVariation(const Field& field) {
  ArrangementState& state = app().arrangement;
  drum_map_->position = field.position + static_cast<std::size_t>(Shown(field));
  state.ArrEditPos = static_cast<int>(drum_map_->position);
  const bool filling = std::exchange(state.EditorFilling, true);
  Show(*drum_map_);
  state.EditorFilling = filling;
}

// A typed text that is a row's, case ignored, selects that row.
void frmEditArr::TypeInList(ui::ComboBox& list) {
  const std::string wanted = LowerCase(list.text());
  for (int row = 0; row < list.rows(); ++row) {
    if (LowerCase(list.RowText(row)) != wanted) continue;
    // A text that is the row's letter by letter has put the list on it already.
    if (list.row() == row) return list.on_click();
    return list.SetRow(row);
  }
}

void frmEditArr::TypeName() {
  ArrangementState& state = app().arrangement;
  if (state.EditorFilling) return;
  Bytes name;
  if (!BytesFromUtf8(Text1[kNameBox].text(), name)) return;
  app().edits.Put(kArrRecordUnderEdit, arr_edit::kRecord, Padded(name, kArrNameLength), {"Name"});
  ShowTitle();
  state.ArrNameChanged = true;
  MarkChanged();
}

}  // namespace zentaline
