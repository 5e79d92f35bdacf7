// The keyboard on the screen: the mouse plays its keys, sliders send controllers. Held notes, a held chord that is
// moved by the key that its lowest note goes to, and notes that sound while the pointer is over their key.
#pragma once

#include <array>

#include "aids/key_drawings.h"
#include "aids/state.h"
#include "core/child_window.h"
#include "ui/control_array.h"

namespace zentaline {

class frmTastiera : public ChildWindow {
 public:
  explicit frmTastiera(Application& app);

  static constexpr int kSliders = 11;
  static constexpr int kOctaves = 6;  // a name at the left of each

  ui::Label LabelChannel{*this, "LabelChannel"};
  ui::ComboBox Combo1{*this, "Combo1"};
  ui::Label LabelOctave{*this, "LabelOctave"};
  ui::ScrollBar HScroll1{*this, "HScroll1"};
  ui::TextBox Text1{*this, "Text1"};
  ui::CheckBox CheckClickKey{*this, "CheckClickKey"};
  ui::CheckBox CheckHoldNote{*this, "CheckHoldNote"};
  ui::Button CommHoldChord{*this, "CommHoldChord"};
  ui::Button CommAllNoteOff{*this, "CommAllNoteOff"};
  ui::Frame Frame1{*this, "Frame1"};
  ui::ControlArray<ui::Label> Lab1{*this, "Lab1", 0, kSliders - 1};
  ui::ControlArray<ui::ScrollBar> VScroll{*this, "VScroll", 0, kSliders - 1};
  ui::ControlArray<ui::Label> Lab2{*this, "Lab2", 0, kSliders - 1};
  ui::Frame Frame2{*this, "Frame2"};
  ui::ScrollBar VScroll1{*this, "VScroll1"};
  ui::TextBox Text3{*this, "Text3"};
  ui::Button CommArrPlay{*this, "CommArrPlay"};
  ui::Button CommSongPlay{*this, "CommSongPlay"};
  ui::Button CommClose{*this, "CommClose"};
  ui::ControlArray<ui::Label> Label5{*this, "Label5", 0, kOctaves - 1};
  ui::ControlArray<ui::Picture> Key{*this, "Key", 0, kKeyCount - 1};

  void Load() override;
  void Unload() override;
  // The split point has moved elsewhere: nothing is sent.
  void ShowSplitNote(int note);
  void EndNotes();

 protected:
  FormState* FormPlace() override;

 private:
  void ConnectKeys();
  void ConnectSwitches();
  void ConnectSliders();
  void LayOut();
  ui::Layout KeyBed();
  void TakeSettings();

  // The mouse on a key.
  void OnKey(int key, const ui::MouseEvent& event);
  void PressKey(int note);
  void MoveOverKey(int key, int note, int y);
  void LeaveKeys();
  // Moves the held chord so that its lowest note becomes this one.
  void MoveChord(int note);

  // A note begins and ends to sound; nothing happens outside the notes that can be played.
  void Sound(int note);
  void Silence(int note, int velocity);
  void AllNotesOff(int channel);
  void ShowKeys();
  void ShowKey(int note);

  void HoldChord();
  void ChangeClickKey();
  void ChangeHoldNote();
  void ShowHoldChord();
  void ChangeChannel();
  void ChangeOctave();
  void ShowOctaves();
  void MoveSlider(int slider);
  void ShowSlider(int slider);
  void MoveSplitPoint();
  void PressMode(void (*send)(Application&));

  int& Setting(int place);

  KeyDrawings drawings_;
  std::array<bool, kPlayedNotes> sounding_{};  // in the order of HeldNotes
  bool setting_ = false;                       // a control is put where it belongs, and no user did it
};

}  // namespace zentaline
