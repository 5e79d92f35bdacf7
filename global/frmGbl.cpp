#include "global/frmGbl.h"

#include <string>

#include "base/scoped_value.h"
#include "core/application.h"
#include "core/boxes.h"
#include "core/edits.h"
#include "core/main_window.h"
#include "core/window_image.h"
#include "files/api.h"
#include "global/gbl_format.h"
#include "midi/api.h"

namespace zentaline {

namespace {

constexpr FieldPlace kDamperPlace = gbl_editor::kDamper.place;

}  // namespace

bool frmGbl::HasFile() const {
  return Kind() == kKindGbl;
}

// What has no file comes back at the next start, in the place that it had; a file's window keeps its place for the run.
WindowRecord* frmGbl::Record() {
  return HasFile() ? &app().core.GblWindows[1] : nullptr;
}

FormState* frmGbl::FormPlace() {
  return HasFile() ? nullptr : &app().core.FormStates[kKindGlobal];
}

void frmGbl::ShowName() {
  if (!HasFile()) return SetCaption(BaseName());
  SetCaption("File Gbl - " + ShownPath(BaseName()) + ".gbl (" + std::to_string(WindowNumber()) + ")" +
             ReadOnlySuffix(app(), ReadOnly()));
}

// --- Opening ---

void frmGbl::Load() {
  const ScopedValue loading(app().core.FormLoading, true);
  app().gbl_window = this;
  ChildWindow::Load();
  ShowToolTips();
  ShowName();
  FillGlobalWindow();
}

void frmGbl::FillGlobalWindow() {
  const ScopedValue loading(app().core.FormLoading, true);
  rows_.Keep();
  rows_.Show();
  const bool plus = ShownAt(gbl_editor::kDamper, window_image(), kWindowFilePosition) == 1;
  GblOption1[plus ? 0 : 1].SetValue(true);
}

// --- What the user does ---

void frmGbl::Edit(EditorControl& control) {
  if (app().core.FormLoading) return rows_.ShowLabel(control);
  const bool stored = !control.row->Has(kNotStored);
  if (stored) {
    rows_.Store(control, RecordEditor::Shown(control));
    MarkChanged();
  }
  CommLoadGbl.Press();
  if (stored) rows_.NoteShown(control);
  rows_.ShowLabel(control);
}

void frmGbl::ChooseDamper(bool plus) {
  if (app().core.FormLoading) return;
  const Field& field = gbl_editor::kDamper;
  const int raw = RawAt(field, window_image(), kWindowFilePosition);
  app().edits.Put(ImageOf(*this), kWindowFilePosition + kDamperPlace.offset,
                  RawBytes(field, RawAfter(field, raw, plus ? 1 : 0)), {field.name, field.group});
  MarkChanged();
  CommLoadGbl.Press();
}

// All twelve notes, and one block.
void frmGbl::ResetScale(int scale) {
  const std::size_t start = kWindowFilePosition + kUserScaleBlock.StartOf(scale);
  app().edits.Put(ImageOf(*this), start, Bytes(kNotesOfScale, '\0'),
                  {"Reset", kScaleNames[static_cast<std::size_t>(scale)]});
  MarkChanged();
  CommLoadGbl.Press();
  for (int note = 0; note < kNotesOfScale; ++note) {
    EditorControl& bar = *scale_bars_[static_cast<std::size_t>(kNotesOfScale * scale + note)];
    const int shown = bar.shown;
    rows_.Show(bar);
    app().edits.NoteShown(*bar.control, shown, bar.shown);
  }
}

void frmGbl::ShowItems(const ItemsShown&) {
  FillGlobalWindow();
}

void frmGbl::ShowStep(const EditStep& step) {
  if (step.action.kind == EditAction::Kind::kUser) Send();
  // What a crash had interrupted noted nothing that was shown.
  if (step.action.shown.empty()) FillGlobalWindow();
  for (const EditShown& each : step.action.shown) rows_.ShowAgain(*each.control, step.Shown(each));
  ShowDamper();
  ShowPlace(*this, step);
}

void frmGbl::ShowDamper() {
  const bool plus = ShownAt(gbl_editor::kDamper, window_image(), kWindowFilePosition) == 1;
  for (const int i : {0, 1}) GblOption1[i].ShowValue(plus == (i == 0));
}

void frmGbl::MarkChanged() {
  app().edits.Mark(*this, kChangedPosition, 1);
}

// What goes out is what the instrument holds from now on.
void frmGbl::Send() {
  if (app().core.FormLoading) return;
  SendGlobalDump(app(), window_image());
  app().core.settings.GlobalSetInInstrument = 1;
  app().edits.TakeGlobal(GlobalFileBytes(window_image()));
  if (app().main != nullptr) app().main->Menu(MenuId::mnuGlobalParam).SetEnabled(true);
}

// --- Saving and closing ---

// What had no file has one now: this window no longer comes back by itself at the next start.
void frmGbl::FileSaved() {
  rows_.Keep();
  FormState& state = app().core.FormStates[kKindGlobal];
  if (state.state == 0) return;
  state.state = 0;
  KeepPlacement(*Record(), placement());
}

bool frmGbl::Unsaved() const {
  return ByteAt(window_image(), kChangedPosition) != 0;
}

bool frmGbl::QueryClose() {
  return !Unsaved() || SaveBeforeClosing(app(), *this);
}

void frmGbl::Unload() {
  if (!app().core.Closing) app().core.GblWindows[1].state = 0;
  UnloadFile(app().gbl_window, false, HasFile() ? std::string(WindowPath(window_image())) + ".gbl" : "");
}

}  // namespace zentaline
