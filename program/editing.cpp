// The program under edit, as the windows around it share it.
#include <optional>
#include <utility>

#include "base/scoped_value.h"
#include "core/application.h"
#include "core/boxes.h"
#include "core/main_window.h"
#include "core/window_image.h"
#include "data/message_codes.h"
#include "data/multisample.h"
#include "midi/api.h"
#include "program/api.h"
#include "program/frmEditPrg.h"
#include "program/perf_tables.h"
#include "program/prg_format.h"
#include "program/windows.h"

namespace zentaline {

namespace {

constexpr char kEditorName[] = "frmEditPrg";
constexpr char kSoundListName[] = "frmMultisample";

constexpr int kMultisoundBoxes[] = {1, 2};

// The box that waits for a sound, and the other one.
constexpr ui::Colour kWaitingBack = 0xFFFF00;
constexpr ui::Colour kWaitingFore = 0x000000;
constexpr ui::Colour kOtherBack = 0x000000;
constexpr ui::Colour kOtherFore = 0x00FF00;

template <typename Control>
Control* EditorControl(Application& app, const std::string& name, int index) {
  const ChildWindow* editor = app.prg_editor;
  return editor == nullptr ? nullptr : static_cast<Control*>(editor->Find(name, index));
}

ui::TextBox* MultisoundBox(Application& app, int box) {
  return EditorControl<ui::TextBox>(app, "BasText", box);
}

}  // namespace

// --- The record ---

void LoadEditRecord(Application& app, const Bytes& image, int index) {
  app.edits.TakeRecord(kPrgRecordUnderEdit, MakeEditRecord(image, index));
  if (app.prg_editor != nullptr) static_cast<frmEditPrg*>(app.prg_editor)->records_behind.clear();
  TakePerfBase(app);
  RefreshPerf(app);
}

int CommitProgram(Application& app) {
  const Bytes& record = app.program.EditRecord;
  const int number = ByteAt(record, edit_record::kWindowNumber);
  if (number < 1 || number > kInstrumentWindow) return 2;
  ChildWindow* bank = app.prg_windows[static_cast<std::size_t>(number)];
  if (bank == nullptr) return 2;
  if (bank->ReadOnly()) {
    ShowMessage(app, kMessageReadOnlyFile, ShownPath(bank->BaseName()), {});
    return 1;
  }
  // As a row shows it: it ends at its first zero byte.
  const Bytes name = Slice(record, program_record::kName, program_record::kNameLength);
  app.edits.Change(ImageOf(*bank), {"Kept", {}, Utf8FromBytes(TrimRight(name.substr(0, name.find('\0'))))},
                   [&](Bytes& image) {
                     PutEditRecord(image, record);
                     PutByte(image, kPrgChangedPosition, 1);
                   });
  // What was done one by one is one action on the bank now.
  app.edits.ForgetRecord(kPrgRecordUnderEdit);
  app.edits.Mark(kPrgRecordUnderEdit, false);
  ProgramRecordKept(app);
  ShowProgramName(*bank, ByteAt(record, edit_record::kIndex));
  if (app.main != nullptr) app.main->RefreshMenus();
  return 0;
}

bool CloseProgramEditorsOf(Application& app, const ChildWindow& bank) {
  if (ByteAt(app.program.EditRecord, edit_record::kWindowNumber) != bank.WindowNumber()) return true;
  // One question for all of them, while all of them are still there.
  const ChildWindow* last = app.perf_editor != nullptr ? app.perf_editor : app.prg_editor;
  if (last != nullptr && !AskToSaveProgram(app, *last)) return false;
  if (app.prg_editor != nullptr && !app.prg_editor->Close()) return false;
  return app.perf_editor == nullptr || app.perf_editor->Close();
}

void AskToKeepProgram(Application& app, const ChildWindow& editor) {
  const bool keep =
      app.program.ProgramChanged && AskYesNo(app, kAskPrgKeep, {}, editor.caption()) == ui::BoxAnswer::kYes;
  if (keep) CommitProgram(app);
  app.edits.Mark(kPrgRecordUnderEdit, false);
}

bool AskToSaveProgram(Application& app, const ChildWindow& editor) {
  if (!app.program.ProgramChanged) return true;
  switch (AskYesNoCancel(app, kAskPrgSave, editor.caption())) {
    case ui::BoxAnswer::kYes:
      return CommitProgram(app) == 0;
    case ui::BoxAnswer::kNo:
      app.edits.Mark(kPrgRecordUnderEdit, false);
      return true;
    default:
      return false;
  }
}

std::string EditedProgramTitle(const Application& app) {
  const Bytes& record = app.program.EditRecord;
  const Bytes file(TrimRight(Slice(record, edit_record::kFileName, edit_record::kFileNameLength)));
  const std::string extension = ByteAt(record, edit_record::kFormat) == 0 ? ".prg" : ".pgg";
  return ShownPath(file) + extension + " / " +
         Utf8FromBytes(Slice(record, program_record::kName, program_record::kNameLength));
}

bool IsUnderEdit(const Application& app, const ChildWindow& bank, int index) {
  const Bytes& record = app.program.EditRecord;
  return ByteAt(record, edit_record::kKind) == bank.Kind() && ByteAt(record, edit_record::kIndex) == index &&
         ByteAt(record, edit_record::kWindowNumber) == bank.WindowNumber();
}

// --- The editor's controls ---

// Whoever put up the guard before takes it down.
void SelectOscillator(Application& app, int osc) {
  app.program.EditOsc = osc;
  const ScopedValue loading(app.core.FormLoading, true);
  ShowOscillator(app, osc);
  SendPrgParam(app, 2, 0, osc - 1);
}

// --- Multisounds ---

std::string MultisoundText(const Application& app, int n) {
  return Utf8FromBytes(MultisampleRecord(app.core.MultisampleImage, n));
}

int MultisoundNumber(const std::string& text) {
  int number = 0;
  for (const char character : text.substr(0, 3)) {
    if (character < '0' || character > '9') break;
    number = 10 * number + (character - '0');
  }
  return number;
}

int WantedMultisound(Application& app) {
  const int box = app.program.MultisoundTarget;
  const ui::TextBox* field = box == 0 ? nullptr : MultisoundBox(app, box);
  return field == nullptr ? -1 : MultisoundNumber(field->text());
}

void SetMultisoundText(Application& app, int box, const std::string& text) {
  if (ui::TextBox* field = MultisoundBox(app, box)) field->SetText(text);
}

void SetMultisoundTarget(Application& app, int box) {
  app.program.MultisoundTarget = box;
  if (box == 0) return RestoreMultisoundBoxes(app);
  for (const int i : kMultisoundBoxes) {
    ui::TextBox* field = MultisoundBox(app, i);
    if (field == nullptr) continue;
    field->SetBackColour(i == box ? kWaitingBack : kOtherBack);
    field->SetForeColour(i == box ? kWaitingFore : kOtherFore);
  }
}

void RestoreMultisoundBoxes(Application& app) {
  for (const int i : kMultisoundBoxes) {
    ui::TextBox* field = MultisoundBox(app, i);
    if (field == nullptr) continue;
    field->SetBackColour(std::nullopt);
    field->SetForeColour(std::nullopt);
  }
}

void ProgramEditorLeft(Application& app, const ChildWindow& front) {
  if (app.program.MultisoundTarget == 0 || front.name() == kEditorName || front.name() == kSoundListName) return;
  RestoreMultisoundBoxes(app);
}

// --- Performances ---

// Of the second half: oscillator 2's twins, and the copies beside the balances.
void TakePerfBase(Application& app) {
  const Bytes& record = app.program.EditRecord;
  for (int i = 0; i < kPerfParameters; ++i) {
    const auto entry = static_cast<std::size_t>(i);
    const PerfParameter& parameter = kPerfTable[entry];
    const std::size_t first = PerfPosition(parameter, 1);
    const std::size_t second = parameter.of_effect ? first + kSecondCopy : PerfPosition(parameter, 2);
    app.program.PerfBase[entry] = ByteAt(record, first);
    app.program.PerfBase[entry + kPerfParameters] = ByteAt(record, second);
  }
  app.program.PerfStepValue = {};
}

}  // namespace zentaline
