#include "aids/frmTastiera.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "base/scoped_value.h"
#include "core/application.h"
#include "core/boxes.h"
#include "core/main_window.h"
#include "core/window_image.h"
#include "data/texts.h"
#include "midi/api.h"

namespace zentaline {

namespace {

constexpr int kChannels = 16;
constexpr int kOctaveShifts = 4;
constexpr int kGreatest = 127;
constexpr int kCentre = 64;
constexpr int kVelocityOffTheKey = 64;
constexpr int kSplitLow = 36;
constexpr int kSplitHigh = 96;
constexpr int kSplitId = 2;  // of an arrangement's parameters

// Places in the settings.
constexpr int kChannelSetting = 0;
constexpr int kClickSetting = 1;
constexpr int kHoldSetting = 2;
constexpr int kOctaveSetting = 3;
constexpr int kFirstSlider = 4;
constexpr int kSplitSetting = 15;

// What a slider sends.
constexpr int kNothing = -1;
constexpr int kBend = -2;
constexpr int kVelocityOn = 2;
constexpr int kVelocityOff = 3;
constexpr int kPan = 1;
constexpr std::array<int, frmTastiera::kSliders> kControllers = {7,     10, kNothing, kNothing, 73, 72,
                                                                 kBend, 1,  2,        91,       93};

// On the screen, in pixels: a white key is 18 wide.
constexpr ui::Size kLeastKeyBed = {18 * kWhiteKeys, 150};
constexpr ui::Size kLeastNames = {18 * kWhiteKeys, 18};
constexpr ui::Size kNameUnits = {kWhiteKeys * kWhiteKey.width, 100};

bool IsPlayed(int note) {
  return note >= kLowestNote && note <= kHighestNote;
}

std::size_t PlaceOf(int note) {
  return static_cast<std::size_t>(note - kLowestNote);
}

bool IsIn(const Bytes& notes, int note) {
  return IsPlayed(note) && notes[PlaceOf(note)] == '\x01';
}

}  // namespace

frmTastiera::frmTastiera(Application& app) : ChildWindow(app, "frmTastiera", {}) {
  std::vector<std::string> channels;
  for (int channel = 1; channel <= kChannels; ++channel) channels.push_back(std::to_string(channel));
  Combo1.SetRows(std::move(channels));
  HScroll1.SetRange(0, kOctaveShifts, 1, 1);
  VScroll1.vertical = true;
  VScroll1.SetRange(kSplitHigh, kSplitLow, 1, kNotesOfOctave);
  Text1.read_only = Text3.read_only = true;
  Text1.least_characters = {12, 1};
  Text3.least_characters = {5, 1};
  ConnectKeys();
  ConnectSwitches();
  ConnectSliders();
  on_context = [this] { PopupEditMenu(); };
  LayOut();
}

FormState* frmTastiera::FormPlace() {
  return &app().core.FormStates[kKindKeyboard];
}

void frmTastiera::ConnectKeys() {
  for (int key = 0; key < kKeyCount; ++key) {
    Key[key].on_mouse = [this, key](const ui::MouseEvent& event) { OnKey(key, event); };
    Key[key].ShowDrawing(drawings_.Of(key, false));
  }
  on_mouse = [this](const ui::MouseEvent& event) {
    if (event.what == ui::MouseEvent::kMove) LeaveKeys();
  };
}

void frmTastiera::ConnectSwitches() {
  Combo1.on_click = [this] { ChangeChannel(); };
  HScroll1.on_change = [this] { ChangeOctave(); };
  CheckClickKey.on_click = [this] { ChangeClickKey(); };
  CheckHoldNote.on_click = [this] { ChangeHoldNote(); };
  CommHoldChord.on_click = [this] { HoldChord(); };
  CommAllNoteOff.on_click = [this] { AllNotesOff(Setting(kChannelSetting)); };
  CommArrPlay.on_click = [this] { PressMode(SendModeArrPlay); };
  CommSongPlay.on_click = [this] { PressMode(SendModeSongPlay); };
  CommClose.on_click = [this] { Close(); };
}

void frmTastiera::ConnectSliders() {
  for (int slider = 0; slider < kSliders; ++slider) {
    VScroll[slider].vertical = true;
    VScroll[slider].SetRange(kGreatest, 0);
    VScroll[slider].on_change = [this, slider] { MoveSlider(slider); };
    VScroll[slider].shown = [slider](int value) { return std::to_string(slider == kPan ? value - kCentre : value); };
    VScroll[slider].value_label = &Lab2[slider];
  }
  VScroll1.on_change = [this] { MoveSplitPoint(); };
}

ui::Layout frmTastiera::KeyBed() {
  std::vector<ui::Layout> keys;
  // The black keys lie over the white ones.
  for (const bool black : {false, true}) {
    for (int key = 0; key < kKeyCount; ++key) {
      if (IsBlackKey(key) == black) keys.push_back(ui::At(PlaceOfKey(key), Key[key]));
    }
  }
  return ui::Places({kWhiteKeys * kWhiteKey.width, kWhiteKey.height}, kLeastKeyBed, std::move(keys), 1);
}

void frmTastiera::LayOut() {
  std::vector<ui::Layout> sliders;
  for (int slider = 0; slider < kSliders; ++slider) {
    sliders.push_back(ui::Column({ui::Item(Lab1[slider]), ui::Item(VScroll[slider], 1), ui::Item(Lab2[slider])}));
  }
  std::vector<ui::Layout> names;
  for (int octave = 0; octave < kOctaves; ++octave) {
    const int left = octave * kWhiteKeysOfOctave * kWhiteKey.width;
    const int width = std::min(kWhiteKeysOfOctave * kWhiteKey.width, kNameUnits.width - left);
    names.push_back(ui::At({left, 0, width, kNameUnits.height}, Label5[octave]));
  }
  layout = ui::Column(
      {ui::Row({ui::Item(LabelChannel), ui::Item(Combo1), ui::Item(LabelOctave), ui::Item(HScroll1), ui::Item(Text1),
                ui::Item(CheckClickKey), ui::Item(CheckHoldNote), ui::Item(CommHoldChord), ui::Item(CommAllNoteOff)}),
       ui::Row({ui::Inside(Frame1, ui::Row(std::move(sliders)), 1),
                ui::Inside(Frame2, ui::Column({ui::Item(VScroll1, 1), ui::Item(Text3)})),
                ui::Column({ui::Item(CommArrPlay), ui::Item(CommSongPlay), ui::Space(), ui::Item(CommClose)})}),
       ui::Places(kNameUnits, kLeastNames, std::move(names)), KeyBed()});
}

void frmTastiera::Load() {
  const ScopedValue loading(app().core.FormLoading, true);
  SetCaption(GetText(app(), kTextKeyboard));
  CommClose.SetCaption(GetText(app(), kTextClose));
  ChildWindow::Load();
  app().keyboard = this;
  AidsState& aids = app().aids;
  aids.CurrentNote = kNoNote;
  aids.ChordState = 0;
  aids.HeldNotes.assign(kPlayedNotes, '\0');
  aids.ChordNotes.assign(kPlayedNotes, '\0');
  TakeSettings();
  ShowHoldChord();
  if (app().main != nullptr) app().main->Menu(MenuId::mnuTastiera).SetEnabled(false);
}

// A byte beyond its control's range is taken as the end of it.
void frmTastiera::TakeSettings() {
  Combo1.SetRow(std::clamp(Setting(kChannelSetting), 0, kChannels - 1));
  CheckClickKey.SetValue(Setting(kClickSetting) != 0);
  CheckHoldNote.SetValue(Setting(kHoldSetting) != 0);
  HScroll1.SetValue(Setting(kOctaveSetting));
  ShowOctaves();
  for (int slider = 0; slider < kSliders; ++slider) {
    VScroll[slider].SetValue(Setting(kFirstSlider + slider));
    ShowSlider(slider);
  }
  ShowSplitNote(Setting(kSplitSetting));
}

void frmTastiera::Unload() {
  app().keyboard = nullptr;
  SendAllNotesOff(app(), Combo1.row());
  if (app().main != nullptr) app().main->Menu(MenuId::mnuTastiera).SetEnabled(true);
  ChildWindow::Unload();
}

int& frmTastiera::Setting(int place) {
  return app().core.settings.Keyboard[static_cast<std::size_t>(place)];
}

void frmTastiera::OnKey(int key, const ui::MouseEvent& event) {
  if (event.right) return;
  const int note = app().aids.FirstNote + key;
  switch (event.what) {
    case ui::MouseEvent::kDown:
      PressKey(note);
      break;
    case ui::MouseEvent::kMove:
      if (!CheckClickKey.value()) MoveOverKey(key, note, event.y);
      break;
    case ui::MouseEvent::kUp:
      if (CheckClickKey.value() && !CheckHoldNote.value() && app().aids.ChordState != 1) {
        Silence(note, VScroll[kVelocityOff].value());
      }
      break;
  }
}

void frmTastiera::PressKey(int note) {
  AidsState& aids = app().aids;
  if (aids.ChordState == 1) return MoveChord(note);
  if (!CheckClickKey.value() || !IsPlayed(note)) return;
  const bool holds = CheckHoldNote.value();
  if (holds && IsIn(aids.HeldNotes, note)) {
    aids.HeldNotes[PlaceOf(note)] = '\0';
    return Silence(note, VScroll[kVelocityOff].value());
  }
  Sound(note);
  if (holds) aids.HeldNotes[PlaceOf(note)] = '\x01';
}

// The lowest part of a key is no part of it: there its note ends, and none begins.
void frmTastiera::MoveOverKey(int key, int note, int y) {
  AidsState& aids = app().aids;
  if (note == aids.CurrentNote) {
    if (y <= KeyEnd(key)) return;
    Silence(note, kVelocityOffTheKey);
    aids.CurrentNote = kNoNote;
    return;
  }
  LeaveKeys();
  if (y < KeyEnd(key)) Sound(note);
}

void frmTastiera::LeaveKeys() {
  AidsState& aids = app().aids;
  if (CheckClickKey.value() || aids.CurrentNote >= kNoNote) return;
  Silence(aids.CurrentNote, VScroll[kVelocityOff].value());
  aids.CurrentNote = kNoNote;
}

// Of the chord, only the notes that can be played are heard; those that leave the range come back by another move.
void frmTastiera::MoveChord(int note) {
  AidsState& aids = app().aids;
  SendAllNotesOff(app(), Combo1.row());
  const std::size_t lowest = aids.ChordNotes.find('\x01');
  aids.HeldNotes.assign(kPlayedNotes, '\0');
  sounding_.fill(false);
  ShowKeys();
  const int interval = note - kLowestNote - static_cast<int>(lowest);
  for (int from = kLowestNote; from <= kHighestNote; ++from) {
    if (!IsIn(aids.ChordNotes, from) || !IsPlayed(from + interval)) continue;
    aids.HeldNotes[PlaceOf(from + interval)] = '\x01';
    Sound(from + interval);
  }
}

void frmTastiera::Sound(int note) {
  if (!IsPlayed(note)) return;
  app().aids.CurrentNote = note;
  sounding_[PlaceOf(note)] = true;
  ShowKey(note);
  SendNoteOn(app(), Combo1.row(), note, VScroll[kVelocityOn].value());
  Text1.SetText(SoundedNoteName(note));
}

void frmTastiera::Silence(int note, int velocity) {
  if (!IsPlayed(note)) return;
  sounding_[PlaceOf(note)] = false;
  ShowKey(note);
  SendNoteOff(app(), Combo1.row(), note, velocity);
}

void frmTastiera::AllNotesOff(int channel) {
  AidsState& aids = app().aids;
  SendAllNotesOff(app(), channel);
  aids.HeldNotes.assign(kPlayedNotes, '\0');
  sounding_.fill(false);
  aids.CurrentNote = kNoNote;
  aids.ChordState = 0;
  ShowKeys();
  ShowHoldChord();
  Text1.SetText({});
}

void frmTastiera::EndNotes() {
  AllNotesOff(Combo1.row());
}

void frmTastiera::ShowKey(int note) {
  const int key = note - app().aids.FirstNote;
  if (key < 0 || key >= kKeyCount) return;
  Key[key].ShowDrawing(drawings_.Of(key, IsPlayed(note) && sounding_[PlaceOf(note)]));
}

void frmTastiera::ShowKeys() {
  for (int key = 0; key < kKeyCount; ++key) ShowKey(app().aids.FirstNote + key);
}

void frmTastiera::HoldChord() {
  AidsState& aids = app().aids;
  if (aids.HeldNotes.find('\x01') == Bytes::npos) return;
  aids.ChordState = 1;
  aids.ChordNotes = aids.HeldNotes;
  ShowHoldChord();
}

void frmTastiera::ShowHoldChord() {
  CommHoldChord.SetEnabled(CheckClickKey.value() && CheckHoldNote.value() && app().aids.ChordState != 1);
}

// Notes are held only by clicks: without these none is held, and who holds notes clicks.
void frmTastiera::ChangeClickKey() {
  if (app().core.FormLoading) return;
  Setting(kClickSetting) = CheckClickKey.value() ? 1 : 0;
  if (setting_) return;
  if (app().aids.ChordState == 1 || CheckHoldNote.value()) AllNotesOff(Combo1.row());
  if (!CheckClickKey.value()) {
    const ScopedValue setting(setting_, true);
    CheckHoldNote.SetValue(false);
  }
  ShowHoldChord();
}

void frmTastiera::ChangeHoldNote() {
  if (app().core.FormLoading) return;
  Setting(kHoldSetting) = CheckHoldNote.value() ? 1 : 0;
  if (setting_) return;
  if (app().aids.ChordState == 1) AllNotesOff(Combo1.row());
  if (CheckHoldNote.value()) {
    const ScopedValue setting(setting_, true);
    CheckClickKey.SetValue(true);
  }
  ShowHoldChord();
}

// Notes that sound end on the channel on which they began.
void frmTastiera::ChangeChannel() {
  if (app().core.FormLoading) return;
  const bool sounds = std::find(sounding_.begin(), sounding_.end(), true) != sounding_.end();
  const int before = std::exchange(Setting(kChannelSetting), Combo1.row());
  if (sounds) AllNotesOff(before);
}

void frmTastiera::ChangeOctave() {
  if (!app().core.FormLoading) Setting(kOctaveSetting) = HScroll1.value();
  ShowOctaves();
}

// What sounds beyond the keys goes on sounding, and is marked again when its key comes back.
void frmTastiera::ShowOctaves() {
  app().aids.FirstNote = kLowestNote + kNotesOfOctave * HScroll1.value();
  for (int octave = 0; octave < kOctaves; ++octave) {
    Label5[octave].SetCaption(OctaveName(app().aids.FirstNote + kNotesOfOctave * octave));
  }
  ShowKeys();
}

void frmTastiera::ShowSlider(int slider) {
  Lab2[slider].SetCaption(VScroll[slider].shown(VScroll[slider].value()));
}

void frmTastiera::MoveSlider(int slider) {
  ShowSlider(slider);
  if (app().core.FormLoading) return;
  const int value = VScroll[slider].value();
  Setting(kFirstSlider + slider) = value;
  const int controller = kControllers[static_cast<std::size_t>(slider)];
  if (controller == kBend) {
    SendPitchBend(app(), Combo1.row(), value);
  } else if (controller != kNothing) {
    SendController(app(), Combo1.row(), controller, value);
  }
}

void frmTastiera::ShowSplitNote(int note) {
  {
    const ScopedValue setting(setting_, true);
    VScroll1.SetValue(note);
  }
  Text3.SetText(SplitPointName(VScroll1.value()));
  if (!app().core.FormLoading) Setting(kSplitSetting) = VScroll1.value();
}

void frmTastiera::MoveSplitPoint() {
  if (setting_) return;
  ShowSplitNote(VScroll1.value());
  SendArrParam(app(), 0, kSplitId, VScroll1.value(), 0);
}

void frmTastiera::PressMode(void (*send)(Application&)) {
  send(app());
  AllNotesOff(Combo1.row());
}

}  // namespace zentaline
