#include "program/frmEditPrg.h"

#include <algorithm>
#include <memory>
#include <span>
#include <utility>

#include "base/scoped_value.h"
#include "core/application.h"
#include "core/boxes.h"
#include "core/main_window.h"
#include "core/window_image.h"
#include "data/message_codes.h"
#include "midi/api.h"
#include "program/api.h"
#include "program/effect_picture.h"
#include "program/prg_format.h"
#include "program/windows.h"

namespace zentaline {

namespace {

namespace rec = program_record;

constexpr std::size_t kImageLength = 200;

// What the outputs and the returns begin with when the placement changes.
constexpr int kNoPan = 0;
constexpr int kHalfReturn = 5;

constexpr std::size_t kSoundPositions[] = {0, rec::kOsc1Multisound, rec::kOsc2Multisound};
constexpr std::string_view kSoundNames[] = {"", "OSC-1 M/D SOUND", "OSC-2 M/D SOUND"};

bool IsDouble(std::string_view record) {
  return (ByteAt(record, rec::kMode) & 3) == 1;
}

}  // namespace

const Bytes& frmEditPrg::record() const {
  return app().program.EditRecord;
}

// The one place where the record is written.
void frmEditPrg::Put(std::size_t position, std::string_view bytes, std::string_view what, std::string_view of) {
  app().edits.Put(kPrgRecordUnderEdit, position, bytes, {what, of});
}

void frmEditPrg::MarkChanged() {
  app().edits.Mark(kPrgRecordUnderEdit, true);
}

void frmEditPrg::SetBar(int array, int index, int value) {
  static_cast<ui::ScrollBar&>(ControlOf(array, index)).SetValue(value);
}

EditorControl& frmEditPrg::RowOf(int array, int index) {
  return *rows_.Of(ControlOf(array, index));
}

// --- Opening and closing ---

void frmEditPrg::Load() {
  const ScopedValue loading(app().core.FormLoading, true);
  app().edits.TakeImage(*this, Bytes(kImageLength, static_cast<char>(kKindPrgEditor)));
  ChildWindow::Load();
  ShowToolTips();
  // On the screen alone; the instrument hears of an oscillator when one is edited.
  app().program.EditOsc = 1;
  app().program.PrgEditorOpen = true;
  app().prg_editor = this;
  ShowOscillator(app(), 1);
  Fill();
}

bool frmEditPrg::Unsaved() const {
  return app().program.ProgramChanged;
}

bool frmEditPrg::QueryClose() {
  return !open() || app().program.PerfOpen || AskToSaveProgram(app(), *this);
}

void frmEditPrg::Unload() {
  app().program.PrgEditorOpen = false;
  app().prg_editor = nullptr;
  if (app().perf_editor == nullptr) app().edits.ForgetRecord(kPrgRecordUnderEdit);
  app().program.MultisoundTarget = 0;
  CloseMultisamples(app());
  ProgramEditorClosed(app());
  ChildWindow::Unload();
}

FormState* frmEditPrg::FormPlace() {
  return &app().program.EditPrgPlace;
}

// --- Showing ---

void frmEditPrg::Fill() {
  const ScopedValue filling(app().program.ProgramFilling, true);
  SetCaption("Edit Program  " + EditedProgramTitle(app()));
  BasText[0].ShowText(Utf8FromBytes(TrimRight(Slice(record(), rec::kName, rec::kNameLength))));
  name_shown_ = BasText[0].text();
  for (int oscillator : {1, 2}) ShowSound(oscillator);
  Keep();
  rows_.Show();
  ShowPans();
  ShowEffects();
  ShowSilence();
  for (std::unique_ptr<EnvelopePicture>& envelope : envelopes_) envelope->Show(app().Language());
  ShowRouting();
}

void frmEditPrg::Keep() {
  rows_.Keep();
  for (int oscillator : {1, 2}) {
    kept_sounds_[static_cast<std::size_t>(oscillator - 1)] = WordLowFirst(record(), kSoundPositions[oscillator]);
  }
}

// A bar that stays where it is raises no event: its text is set beside it.
void frmEditPrg::ShowSound(int oscillator) {
  BasVScroll[oscillator].ShowValue(WordLowFirst(record(), kSoundPositions[oscillator]));
  BasText[oscillator].ShowText(MultisoundText(app(), BasVScroll[oscillator].value()));
}

// Without an effect there is nothing to balance or to move.
void frmEditPrg::ShowEffects() {
  for (int effect = 0; effect < 2; ++effect) {
    const bool on = CodedValue(RowOf(kEffCombo, 2 * effect).field(), EffCombo[2 * effect].row()) != 0;
    for (int bar = 2 * effect; bar < 2 * effect + 2; ++bar) {
      EffHScroll[bar].SetEnabled(on);
      EffLab[bar].SetEnabled(on);
      EffLab1[bar].SetEnabled(on);
    }
  }
}

// The outputs' pans, or in PARALLEL 3 the levels of the returns.
void frmEditPrg::ShowPans() {
  const bool returns = EffCombo[4].row() == prg_editor::kPlacementWithReturns;
  for (const EditorRow& row : prg_editor::kReturnRows) {
    const bool is_pan = row.index % 2 != 0;
    const EditorRow& pan = prg_editor::kPanRows[row.index / 2 - 2];
    rows_.Rebind(RowOf(kEffHScroll, row.index), returns || !is_pan ? row : pan, returns || is_pan);
  }
}

// The envelope that a bar belongs to.
void frmEditPrg::ShowPictureOf(const EditorRow& row, int block) {
  for (std::size_t i = 0; i < kEnvelopes.size(); ++i) {
    const EnvelopeBars& bars = kEnvelopes[i];
    if (bars.array != row.array || bars.block != block || row.index < bars.first || row.index > bars.last) continue;
    envelopes_[i]->Show(app().Language());
  }
}

void frmEditPrg::ShowRouting() {
  EffectRouting routing;
  routing.placement = static_cast<EffectPlacement>(std::max(EffCombo[4].row(), 0));
  for (int i = 0; i < 2; ++i) {
    const bool works = EffCheck[i].value() && EffHScroll[2 * i].enabled();
    routing.effects[static_cast<std::size_t>(i)] = {EffCombo[2 * i].text(), EffLab[2 * i].caption(), works};
  }
  for (int i = 0; i < 4; ++i) routing.outputs[static_cast<std::size_t>(i)] = EffLab[4 + i].caption();
  FxPicture.SetDrawing(EffectDrawing(routing, app().Language()));
}

void frmEditPrg::ShowSilence() {
  silent_[1]->SetVisible(!IsDouble(record()));
}

// --- Editing ---

bool frmEditPrg::Guarded() const {
  return app().program.ProgramFilling || app().core.FormLoading;
}

void frmEditPrg::Edit(EditorControl& control) {
  if (Guarded()) return rows_.ShowLabel(control);
  const EditorRow& row = *control.row;
  AnnounceProgramParam(app(), row, control.block);
  const int shown = RecordEditor::Shown(control);
  rows_.Store(control, shown);
  MarkChanged();
  SendPrgParam(app(), row.message.a, row.message.b, SentValue(row, shown));
  rows_.NoteShown(control);
  rows_.ShowLabel(control);
  AfterEdit(control);
  ClosePerformance();
}

void frmEditPrg::AfterEdit(const EditorControl& control) {
  if (control.control == &EffCombo[4]) ChoosePlacement();
  ShowPictureOf(*control.row, control.block);
  if (control.control == &EffCombo[0] || control.control == &EffCombo[2]) ShowEffects();
  if (control.row->array >= kEffCombo) ShowRouting();
  if (control.control == &BasCombo[2]) ShowSilence();
}

// The pans or the returns begin anew, and the instrument hears of each of them.
void frmEditPrg::ChoosePlacement() {
  const bool returns = EffCombo[4].row() == prg_editor::kPlacementWithReturns;
  for (std::size_t position : {rec::kOutputC, rec::kOutputD}) {
    const int value = returns ? kHalfReturn << 4 | kHalfReturn : kNoPan;
    Put(position, Bytes(1, static_cast<char>(value)), "Placement", "I/O");
  }
  const std::span<const EditorRow> rows =
      returns ? std::span<const EditorRow>(prg_editor::kReturnRows) : std::span<const EditorRow>(prg_editor::kPanRows);
  for (const EditorRow& row : rows) {
    SendPrgParam(app(), row.message.a, row.message.b, returns ? kHalfReturn : kNoPan);
  }
  ShowPans();
}

// --- Steps back and forth ---

void frmEditPrg::ShowStep(const EditStep& step) {
  const auto& shown = step.action.shown;
  // What another window has changed, or this one before it was opened anew, shows the record.
  std::vector<EditorControl*> touched = rows_.Changed(step.action, step.record_before);
  for (EditorControl* control : touched) rows_.Show(*control);
  // Other rows for the pans come before what they showed.
  const bool placed =
      std::any_of(shown.begin(), shown.end(), [&](const auto& each) { return each.control == &EffCombo[4]; });
  for (const EditShown& each : shown) {
    if (each.control != &EffCombo[4]) continue;
    rows_.ShowAgain(*each.control, step.Shown(each));
    ShowPans();
  }
  for (const EditShown& each : shown) {
    if (&each.control->form() != this || (placed && each.control == &EffCombo[4])) continue;
    if (!rows_.ShowAgain(*each.control, step.Shown(each))) ShowAgain(*each.control, step.Shown(each));
  }
  for (const EditTextShown& each : step.action.texts) {
    if (&each.control->form() == this) ShowAgain(*each.control, step.Shown(each), each.row);
  }
  name_shown_ = BasText[0].text();
  for (int oscillator : {1, 2}) {
    const std::size_t position = kSoundPositions[oscillator];
    if (WordLowFirst(record(), position) != WordLowFirst(step.record_before, position)) ShowSound(oscillator);
  }
  for (const EditShown& each : shown) {
    EditorControl* bound = rows_.Of(*each.control);
    if (bound != nullptr && std::find(touched.begin(), touched.end(), bound) == touched.end()) touched.push_back(bound);
  }
  ShowAround(step, touched);
}

// Pictures and what else follows the controls.
void frmEditPrg::ShowAround(const EditStep& step, const std::vector<EditorControl*>& touched) {
  bool of_effects = false;
  for (const EditorControl* bound : touched) {
    ShowPictureOf(*bound->row, bound->block);
    of_effects |= bound->row->array >= kEffCombo;
    if (bound->control == &BasCombo[2]) ShowSilence();
  }
  if (of_effects) {
    ShowEffects();
    ShowRouting();
  }
  for (int oscillator : {1, 2}) {
    const std::size_t position = kSoundPositions[oscillator];
    if (WordLowFirst(record(), position) == WordLowFirst(step.record_before, position)) continue;
    if (app().program.MultisoundTarget == oscillator) FollowMultisound(app());
    if (toolkit().active_child() == this) ShowPlace(BasText[oscillator]);
  }
  if (toolkit().active_child() == this) ShowPlace(*this, step);
}

// The instrument learns the name only with a bank.
void frmEditPrg::TypeName() {
  if (Guarded()) return;
  Bytes name;
  if (!BytesFromUtf8(BasText[0].text(), name)) return;
  Put(rec::kName, Padded(name, rec::kNameLength), "Program Name", {});
  app().edits.NoteShown(BasText[0], name_shown_, BasText[0].text());
  name_shown_ = BasText[0].text();
  MarkChanged();
  ClosePerformance();
}

void frmEditPrg::MoveSound(int oscillator) {
  BasText[oscillator].SetText(MultisoundText(app(), BasVScroll[oscillator].value()));
}

// The text's number counts. The bar follows it, and shows its name in turn, which is no second change.
void frmEditPrg::TypeSound(int oscillator) {
  if (Guarded()) return;
  ui::TextBox& box = BasText[oscillator];
  const int number = MultisoundNumber(box.text());
  if (number > kLastMultisound) return;
  ui::ScrollBar& bar = BasVScroll[oscillator];
  if (bar.value() != number) {
    bar.ShowValue(number);
    box.ShowText(MultisoundText(app(), number));
  }
  // The oscillator that is selected takes it: none is selected before.
  SendModeProgram(app());
  Bytes word(2, '\0');
  PutWordLowFirst(word, 1, number);
  Put(kSoundPositions[oscillator], word, kSoundNames[oscillator], "OSCILLATOR");
  MarkChanged();
  SendPrgParam(app(), prg_editor::kMultisound.a, prg_editor::kMultisound.b, number);
  if (app().program.MultisoundTarget == oscillator) FollowMultisound(app());
  ClosePerformance();
}

void frmEditPrg::ClickSound(int oscillator) {
  SetMultisoundTarget(app(), oscillator);
  ShowMultisamples(app());
}

// What the performance editor compares with no longer stands; it moves the controls here itself when it is in front.
void frmEditPrg::ClosePerformance() {
  if (app().toolkit.active_child() == this) ClosePerfEditor(app());
}

// --- What other windows ask ---

void FillProgramEditor(Application& app) {
  if (app.prg_editor != nullptr) static_cast<frmEditPrg*>(app.prg_editor)->Fill();
}

void ProgramRecordKept(Application& app) {
  if (app.prg_editor != nullptr) static_cast<frmEditPrg*>(app.prg_editor)->Keep();
}

void ShowOscillator(Application& app, int osc) {
  if (app.prg_editor == nullptr) return;
  const auto& editor = *static_cast<frmEditPrg*>(app.prg_editor);
  for (int i = 0; i < 2; ++i) {
    const bool on = i == osc - 1;
    editor.BasOption[i].ShowValue(on);
    editor.OscOption[i].ShowValue(on);
    editor.OscOption[i + 2].ShowValue(on);
  }
}

bool SetProgramBar(Application& app, PrgArray array, int index, int value) {
  if (app.prg_editor == nullptr) return false;
  static_cast<frmEditPrg*>(app.prg_editor)->SetBar(array, index, value);
  return true;
}

void OpenProgramEditor(Application& app, ChildWindow& bank, int index) {
  ChildWindow* editor = app.prg_editor;
  // A record under edit is never taken up again: its changes would go.
  const bool takes_up = editor == nullptr ? !app.program.PerfOpen : !IsUnderEdit(app, bank, index);
  if (takes_up) {
    if (editor != nullptr) AskToKeepProgram(app, *editor);
    app.edits.Mark(kPrgRecordUnderEdit, false);
    LoadEditRecord(app, bank.window_image(), index);
    SendModeProgram(app);
    FillProgramEditor(app);
  }
  if (editor != nullptr) {
    app.toolkit.Activate(*editor);
  } else {
    app.toolkit.Open(std::make_unique<frmEditPrg>(app));
  }
}

}  // namespace zentaline
