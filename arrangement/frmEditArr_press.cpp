// The arrangement editor's buttons and text boxes: mute and solo, arming a part or the style, and what is picked for it
// in other windows.
#include <algorithm>
#include <memory>
#include <utility>

#include "arrangement/api.h"
#include "arrangement/editor_texts.h"
#include "arrangement/frmEditArr.h"
#include "core/application.h"
#include "core/window_image.h"
#include "data/names.h"
#include "midi/api.h"
#include "program/api.h"
#include "program/prg_format.h"
#include "style/sty_format.h"

namespace zentaline {

namespace {

constexpr ui::Colour kRestColour = ui::kWindowColour;
constexpr ui::Colour kMuteColour = 0x0000FF;   // red
constexpr ui::Colour kSoloColour = 0x00C8FF;   // amber
constexpr ui::Colour kArmedColour = 0x80F0FF;  // light yellow
constexpr ui::Colour kArmedText = 0x000000;

constexpr char kEffectOn[] = "On";
constexpr char kEffectOff[] = "Off";

// What a row of a style window stands for; user styles stand in groups of four with a blank row behind each.
struct StyleSource {
  int kind;
  int first;
  int location;
};
constexpr StyleSource kStyleSources[] = {{kKindStyA, 0, 0}, {kKindStyB, 64, 0}, {kKindSty, 0, kUserStyleLocation}};
constexpr int kStyleRows = 64;
constexpr std::size_t kStyleNameAt = 4;  // in the text of a list row

// What a pick puts into the record.
struct Picked {
  int number = 0;
  int bank_code = 0;
  Bytes name;
};

Picked PickedProgram(const ProgramSource& source, const Bytes& image, int row) {
  const int number = source.first + row;
  if (source.bank_code != kUserBankCode) {
    return {number, source.bank_code, InstrumentProgramName(source.bank_code, number)};
  }
  Picked picked{number, source.bank_code, Bytes(TrimRight(ProgramPlaceName(image, row)))};
  if (!IsProgramLink(image, row)) return picked;
  // The name that was copied into the link stands for a place that the instrument hasn't got.
  const std::size_t link = ProgramPosition(row) - 1;
  picked.bank_code = ByteAt(image, link + program_link::kBankCode);
  picked.number = ByteAt(image, link + program_link::kNumber);
  if (Bytes name = InstrumentProgramName(picked.bank_code, picked.number); !name.empty()) picked.name = std::move(name);
  return picked;
}

frmEditArr* Editor(const Application& app) {
  return app.arrangement.EditorOpen ? static_cast<frmEditArr*>(app.toolkit.FindForm("frmEditArr")) : nullptr;
}

}  // namespace

// --- Effects, mute and solo ---

void frmEditArr::ConnectButtons() {
  for (int effect = 0; effect < 2; ++effect) {
    EffComm[effect].SetSaid("Effect " + std::to_string(effect + 1) + ", On/Off");
    EffComm[effect].SetOn(true);
    EffComm[effect].SetCaption(kEffectOn);
    EffComm[effect].on_click = [this, effect] { PressEffectSwitch(effect); };
  }
  for (int part = 0; part < kArrPartCount; ++part) {
    const std::string of_part = ", " + std::string(PartName(part));
    CommM[part].SetSaid("Mute" + of_part);
    CommM[part].SetOn(false);
    CommS[part].SetSaid("Solo" + of_part);
    CommS[part].SetOn(false);
    CommM[part].SetCaption("M");
    CommM[part].SetBackColour(kRestColour);
    CommM[part].on_click = [this, part] { PressMute(part); };
    CommS[part].SetCaption("S");
    CommS[part].SetBackColour(kRestColour);
    CommS[part].on_click = [this, part] { PressSolo(part); };
  }
}

void frmEditArr::PressEffectSwitch(int effect) {
  ClearNameHighlight();
  app().arrangement.ArrSignFlag = 0;
  const bool on = EffComm[effect].caption() != kEffectOn;
  EffComm[effect].SetOn(on);
  EffComm[effect].SetCaption(on ? kEffectOn : kEffectOff);
  SendArrParam(app(), 0, kEffectSwitchIds[effect], on ? 1 : 0, app().arrangement.ArrSignFlag);
}

void frmEditArr::SetMuted(int part, bool muted) {
  app().arrangement.PartMuted[static_cast<std::size_t>(part)] = muted;
  CommM[part].SetOn(muted);
  CommM[part].SetBackColour(muted ? kMuteColour : kRestColour);
}

void frmEditArr::SetSoloed(int part, bool soloed) {
  app().arrangement.PartSoloed[static_cast<std::size_t>(part)] = soloed;
  CommS[part].SetOn(soloed);
  CommS[part].SetBackColour(soloed ? kSoloColour : kRestColour);
}

void frmEditArr::SendMute(int part) {
  const int value = app().arrangement.PartMuted[static_cast<std::size_t>(part)] ? 1 : 0;
  SendArrParam(app(), 0, kMuteId + kPartIdStep * part, value, app().arrangement.ArrSignFlag);
}

void frmEditArr::PressMute(int part) {
  ClearNameHighlight();
  app().arrangement.ArrSignFlag = 0;
  const bool muted = !app().arrangement.PartMuted[static_cast<std::size_t>(part)];
  if (muted && app().arrangement.PartSoloed[static_cast<std::size_t>(part)]) SetSoloed(part, false);
  SetMuted(part, muted);
  SendMute(part);
}

void frmEditArr::PressSolo(int part) {
  ClearNameHighlight();
  app().arrangement.ArrSignFlag = 0;
  const bool soloed = !app().arrangement.PartSoloed[static_cast<std::size_t>(part)];
  for (int each = 0; each < kArrPartCount; ++each) {
    if (soloed) SetSoloed(each, each == part);
    SetMuted(each, soloed && each != part);
  }
  if (!soloed) SetSoloed(part, false);
  for (int each = 0; each < kArrPartCount; ++each) SendMute(each);
}

// --- Arming ---

void frmEditArr::ConnectTextBoxes() {
  Text1[kNameBox].max_length = kArrNameLength;
  Text1[kNameBox].bytes_only = Text1[kNameBox].of_record = true;
  Text1[kNameBox].on_change = [this] { TypeName(); };
  for (int box = 0; box < kTextBoxes; ++box) {
    Text1[box].read_only = box != kNameBox;
    Text1[box].on_mouse = [this, box](const ui::MouseEvent& event) {
      if (event.what == ui::MouseEvent::kDown && !event.right) PressTextBox(box);
    };
    if (box == kNameBox) continue;
    Text1[box].on_key = [this, box](const ui::Key& key) {
      if (key.name == ui::Key::kSpace || key.name == ui::Key::kEnter) PressTextBox(box);
      return false;
    };
  }
}

void frmEditArr::PressTextBox(int index) {
  const bool is_number = index >= kFirstPartBox && (index - kFirstPartBox) % 2 != 0;
  if (is_number) return ClearNameHighlight();
  if (app().arrangement.ArrPartSlots[static_cast<std::size_t>(index)] == 1) return ClearNameHighlight();
  SetNameHighlight(index);
}

void frmEditArr::SetNameHighlight(int index) {
  ClearNameHighlight();
  ArrangementState& state = app().arrangement;
  state.ArrPartSlots[static_cast<std::size_t>(index)] = 1;
  state.ArrNameArmed = index == kNameBox;
  state.ArrStyleArmed = index == kStyleBox;
  state.ArrPartArmed = index >= kFirstPartBox;
  Text1[index].SetBackColour(kArmedColour);
  Text1[index].SetForeColour(kArmedText);
}

void frmEditArr::ClearNameHighlight() {
  ArrangementState& state = app().arrangement;
  if (!state.ArrNameArmed && !state.ArrStyleArmed && !state.ArrPartArmed) return;
  const auto armed = std::find(state.ArrPartSlots.begin(), state.ArrPartSlots.end(), 1);
  if (armed == state.ArrPartSlots.end()) return;
  *armed = 0;
  const auto index = static_cast<std::size_t>(armed - state.ArrPartSlots.begin());
  Text1[static_cast<int>(index)].SetBackColour(saved_colours_[index].back);
  Text1[static_cast<int>(index)].SetForeColour(saved_colours_[index].fore);
  state.ArrNameArmed = state.ArrStyleArmed = state.ArrPartArmed = false;
}

// --- Picking ---

void frmEditArr::PickProgram(const Bytes& image, int row) {
  ArrangementState& state = app().arrangement;
  const int part = ArmedPart(state.ArrPartSlots);
  const ProgramSource* source = ProgramSourceOf(ByteAt(image, kKindPosition));
  if (!state.ArrPartArmed || part < 0 || source == nullptr || row < 0 || row >= source->rows) return;
  const Picked picked = PickedProgram(*source, image, row);
  const ProgramPlace place = ProgramPlaceOf(picked.bank_code, picked.number);
  const std::size_t block = ArrEditPosition(PartOffset(part));
  const EditWords words{"Sound", PartName(part)};
  Put(block + part_block::kProgram, picked.number, words);
  Put(block + part_block::kBankCode, picked.bank_code, words);
  app().edits.Put(kArrRecordUnderEdit, NamePosition(part), Padded(picked.name, kArrNameLength), words);
  const int box = kFirstPartBox + 2 * part;
  ShowPicked(Text1[box], Utf8FromBytes(picked.name));
  ShowPicked(Text1[box + 1], ProgramNumberText(place.letter, place.index));
  MarkChanged();
}

void frmEditArr::ShowPicked(ui::TextBox& box, const std::string& text) {
  app().edits.NoteShown(box, box.text(), text);
  box.SetText(text);
}

void frmEditArr::PickStyle(const Bytes& image, int row, const std::string& row_text) {
  ArrangementState& state = app().arrangement;
  const auto source = std::find_if(std::begin(kStyleSources), std::end(kStyleSources),
                                   [&image](const auto& each) { return each.kind == ByteAt(image, kKindPosition); });
  if (!state.ArrStyleArmed || source == std::end(kStyleSources)) return;
  const int place = source->location == kUserStyleLocation ? StyRowEntry(row) : row;
  if (place < 0 || place >= kStyleRows) return;
  Bytes name;
  if (row_text.size() > kStyleNameAt && !BytesFromUtf8(row_text.substr(kStyleNameAt), name)) return;
  const EditWords words{"Style"};
  Put(ArrEditPosition(arr_record::kStyleNumber), source->first + place, words);
  Put(ArrEditPosition(arr_record::kStyleLocation), source->location, words);
  app().edits.Put(kArrRecordUnderEdit, arr_edit::kStyleName, Padded(name, kArrNameLength), words);
  ShowPicked(Text1[kStyleBox], Utf8FromBytes(TrimRight(name)));
  // By the style's number, not by the list's row with its gaps.
  const std::string shown = StyleText(source->first + place, source->location);
  app().edits.NoteShown(Label[1], Label[1].caption(), shown);
  Label[1].SetCaption(shown);
  MarkChanged();
}

// --- What other windows ask ---

void FillArrEditor(Application& app) {
  if (frmEditArr* editor = Editor(app)) editor->Fill();
}

void ArrRecordKept(Application& app) {
  if (frmEditArr* editor = Editor(app)) editor->Keep();
}

void OpenArrEditor(Application& app, ChildWindow& source, int index) {
  app.edits.TakeRecord(kArrRecordUnderEdit, PrepareEditRecord(source.window_image(), index, StyleName));
  if (frmEditArr* editor = Editor(app)) {
    editor->Fill();
    app.toolkit.Activate(*editor);
  } else {
    app.toolkit.Open(std::make_unique<frmEditArr>(app));
  }
}

bool CloseArrEditorOf(Application& app, const ChildWindow& source) {
  frmEditArr* editor = Editor(app);
  const Bytes& record = app.arrangement.ArrEditRecord;
  const bool from_it = editor != nullptr && ByteAt(record, arr_edit::kKind) == source.Kind() &&
                       ByteAt(record, arr_edit::kWindowNumber) == source.WindowNumber();
  return !from_it || editor->Close();
}

void PickProgram(Application& app, const Bytes& image, int row) {
  if (frmEditArr* editor = Editor(app)) editor->PickProgram(image, row);
}

void PickStyle(Application& app, const Bytes& image, int row, const std::string& row_text) {
  if (frmEditArr* editor = Editor(app)) editor->PickStyle(image, row, row_text);
}

}  // namespace zentaline
