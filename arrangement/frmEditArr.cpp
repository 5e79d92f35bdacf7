#include "arrangement/frmEditArr.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "aids/api.h"
#include "arrangement/api.h"
#include "arrangement/editor_texts.h"
#include "arrangement/windows.h"
#include "base/panel_numbers.h"
#include "base/scoped_value.h"
#include "core/application.h"
#include "core/boxes.h"
#include "core/window_image.h"
#include "data/message_codes.h"
#include "data/names.h"
#include "midi/api.h"
#include "program/api.h"
#include "program/prg_format.h"
#include "record/field_text.h"

namespace zentaline {

namespace {

constexpr std::size_t kTitleNameLength = 10;
// The letter that a user program is shown with; a pick shows the window's own letter instead.
constexpr char kUserLetter[] = "F";

bool OfPart(const EditorRow& row) {
  return &row >= std::begin(arr_editor::kPartRows) && &row < std::end(arr_editor::kPartRows);
}

bool MovesPosition(int array) {
  return array == kCombo1 || array == kCombo2 || array == kHScroll1;
}

}  // namespace

const Bytes& frmEditArr::record() const {
  return app().arrangement.ArrEditRecord;
}

void frmEditArr::MarkChanged() {
  app().edits.Mark(kArrRecordUnderEdit, true);
}

bool frmEditArr::Unsaved() const {
  return app().arrangement.EditorChanged;
}

void frmEditArr::Put(std::size_t position, int value, const EditWords& words) {
  app().edits.PutByte(kArrRecordUnderEdit, position, value, words);
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

std::string frmEditArr::ValueText(const EditorControl& control, int shown) const {
  if (control.row->array == kEffCombo) return EffectText(control.row->index, CodedValue(control.field(), shown));
  return FieldText(control.field(), shown);
}

void frmEditArr::ShowSplitNote() {
  const EditorControl& split = RowOf(kHScroll1, 0);
  rows_.ShowLabel(split);
  ShowSplitNoteOnKeyboard(app(), RecordEditor::Shown(split));
}

void frmEditArr::Fill() {
  records_behind.clear();
  const ScopedValue filling(app().arrangement.EditorFilling, true);
  ShowTitle();
  ShowTexts();
  Combo1[kMapChooser].SetRow(0);
  // Effects and switches aren't stopped by the fill: the instrument follows the row without a dump.
  rows_.Fill();
  ShowSplitNote();
  for (int part = 0; part < kArrPartCount; ++part) ShowPart(part);
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
  name_shown_ = Text1[kNameBox].text();
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

void frmEditArr::Edit(EditorControl& control) {
  ArrangementState& state = app().arrangement;
  const EditorRow& row = *control.row;
  if (state.EditorFilling && !row.Has(kActsInFill)) return;
  if (row.array == kEffCombo && app().core.FormLoading) return;
  const int shown = RecordEditor::Shown(control);
  state.ArrSignFlag = CodedValue(control.field(), shown) < 0 ? 1 : 0;
  if (row.Has(kSendsShown)) Send(control, SentValue(row, shown));
  Store(control, shown);
  MarkChanged();
  if (!row.Has(kSendsShown)) Send(control, SentValue(row, shown));
  ClearNameHighlight();
  // A fill shows the rest by itself.
  if (state.EditorFilling) return;
  rows_.NoteShown(control);
  rows_.ShowLabel(control);
  if (control.control == &HScroll1[0]) ShowSplitNote();
}

void frmEditArr::Store(EditorControl& control, int shown) {
  ArrangementState& state = app().arrangement;
  // A fill shows the record, and leaves a byte that it can't show as it is.
  if (state.EditorFilling) return;
  if (control.row->Has(kStoresElsewhere)) {
    // Nothing has been written yet while it is 0.
    const auto position = static_cast<std::size_t>(state.ArrEditPos);
    if (position != 0) Put(position, shown, {control.field().name});
    return;
  }
  rows_.Store(control, shown);
  if (MovesPosition(control.row->array)) state.ArrEditPos = static_cast<int>(control.position());
}

// The value as it goes out, negative below zero.
void frmEditArr::Send(const EditorControl& control, int sent) {
  const EditorRow& row = *control.row;
  const EditMessage& message = row.message;
  const int value = row.Has(kSendsShown) ? sent : sent & control.field().place.mask;
  if (!message.IsSent() || value > message.greatest || message.SilentIn(control.block)) return;
  const int id = message.a + (OfPart(row) ? kPartIdStep * control.block : 0);
  SendArrParam(app(), 0, id, value, app().arrangement.ArrSignFlag);
}

// The list tells which of the four drum maps the bar shows, during a fill too; the next kick or snare then goes there.
void frmEditArr::ChooseVariation() {
  ArrangementState& state = app().arrangement;
  ClearNameHighlight();
  MarkChanged();
  state.ArrSignFlag = 0;
  drum_map_->block = Combo1[kMapChooser].row();
  drum_map_->start = ArrEditPosition(kDrumMapBlock.StartOf(drum_map_->block));
  state.ArrEditPos = static_cast<int>(drum_map_->position());
  rows_.Show(*drum_map_);
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
  app().edits.NoteShown(Text1[kNameBox], name_shown_, Text1[kNameBox].text());
  name_shown_ = Text1[kNameBox].text();
  ShowTitle();
  state.ArrNameChanged = true;
  MarkChanged();
}

}  // namespace zentaline
