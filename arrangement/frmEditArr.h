// The arrangement editor: one record on two pages, edited live. Every change goes into ArrEditRecord, and most of them
// in the same moment to the instrument; the file's image stays as it is until the change is kept. What each control
// stands for is told by the tables.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "arrangement/arr_format.h"
#include "arrangement/editor_tables.h"
#include "core/child_window.h"
#include "core/edits.h"
#include "core/record_editor.h"
#include "core/undo.h"
#include "ui/control_array.h"

namespace zentaline {

using ui::ControlArray;

class frmEditArr : public ChildWindow, private RecordEditorHost {
 public:
  explicit frmEditArr(Application& app);

  // Text1: the record's name, its style; of part t 2 + 2t the program's name, 3 + 2t its number.
  static constexpr int kNameBox = 0;
  static constexpr int kStyleBox = 1;
  static constexpr int kFirstPartBox = 2;
  static constexpr int kTextBoxes = kFirstPartBox + 2 * kArrPartCount;
  static constexpr int kFirstPartBar = 1;
  static constexpr int kBars = kFirstPartBar + kPartBarStep * kArrPartCount;
  static constexpr int kPartLists = kPartListStep * kArrPartCount;

  ControlArray<ui::Label> Label{*this, "Label", 0, 1};
  ControlArray<ui::TextBox> Text1{*this, "Text1", 0, kTextBoxes - 1};
  ui::Tabs SSTab1{*this, "SSTab1"};
  ui::PictureBox General{*this, "General"};
  ui::Frame Frame1{*this, "Frame1"};
  ui::Frame Frame2{*this, "Frame2"};
  ui::Frame Frame3{*this, "Frame3"};
  ui::Frame Frame4{*this, "Frame4"};
  ui::Frame Frame5{*this, "Frame5"};
  ui::Frame Frame6{*this, "Frame6"};
  ui::Frame Drum{*this, "Drum"};
  ui::Frame Percussion{*this, "Percussion"};
  ui::Frame FrBass{*this, "FrBass"};
  ui::Frame FrAcc1{*this, "FrAcc1"};
  ui::Frame FrACC2{*this, "FrACC2"};
  ui::Frame FrACC3{*this, "FrACC3"};
  ui::Frame UPPER1{*this, "UPPER1"};
  ui::Frame UPPER2{*this, "UPPER2"};
  ui::Frame LOWER{*this, "LOWER"};
  // Values beside bars: 0 tempo, 3 split point, 4 drum map; Label2 has the index of its bar.
  ControlArray<ui::Label> Label1{*this, "Label1", {0, 3, 4}};
  ControlArray<ui::Label> Label2{*this, "Label2", 1, kBars - 1};
  ControlArray<ui::Label> EffLab1{*this, "EffLab1", 0, 1};
  ControlArray<ui::ScrollBar> VScroll1{*this, "VScroll1", 0, kBars - 1};
  ControlArray<ui::ScrollBar> HScroll1{*this, "HScroll1", 0, 1};
  ControlArray<ui::ComboBox> Combo1{*this, "Combo1", 0, 9};
  ControlArray<ui::ComboBox> Combo2{*this, "Combo2", 0, kPartLists - 1};
  ControlArray<ui::CheckBox> Check1{*this, "Check1", 0, 9};
  ControlArray<ui::ComboBox> EffCombo{*this, "EffCombo", 0, 1};
  ControlArray<ui::Button> EffComm{*this, "EffComm", 0, 1};
  ControlArray<ui::Button> CommM{*this, "CommM", 0, kArrPartCount - 1};
  ControlArray<ui::Button> CommS{*this, "CommS", 0, kArrPartCount - 1};

  // Shows ArrEditRecord.
  void Fill();
  void Keep() { rows_.Keep(); }
  void PickProgram(const Bytes& image, int row);
  void PickStyle(const Bytes& image, int row, const std::string& row_text);
  // The record has gone a step back or forth: shows it silently, and sends what has changed in it.
  void ShowStep(const EditStep& step) override;
  // The same for a record that its file has now.
  void TakeOver(Bytes record);
  // What it held behind steps on its file that were taken back, by their numbers, since the record was taken up.
  std::map<std::int64_t, Bytes> records_behind;
  // Writes the split point's name into Label1(3), and tells the keyboard on the screen.
  void ShowSplitNote();

  void Load() override;
  bool Unsaved() const override;
  // The window that the record came from asks for it.
  bool GoesWithAnother() const override { return true; }
  bool QueryClose() override;
  void Unload() override;

 protected:
  FormState* FormPlace() override;

 private:
  static constexpr int kGeneral = -1;
  static constexpr int kMapChooser = 5;  // of Combo1: which of the four drum maps is shown

  // Making, in frmEditArr_make.cpp.
  void MakeRows();
  void AddRow(const EditorRow& row, int part);
  ui::Control& ControlOf(int array, int index) const;
  ui::Label* ValueOf(const EditorRow& row, int part) const;
  void ConnectButtons();
  void ConnectTextBoxes();
  ui::Frame& PartFrame(int part);
  void LayOut();
  ui::Layout GeneralPage();
  ui::Layout Strip(int part);
  EditorControl& RowOf(int array, int index);
  void ShowToolTips();

  // What is shown, and what the user does.
  std::string ValueText(const EditorControl& control, int shown) const override;
  void Edit(EditorControl& control) override;
  void Store(EditorControl& control, int shown);
  void Send(const EditorControl& control, int sent);
  void ChooseVariation();
  void TypeInList(ui::ComboBox& list);
  void ShowPart(int part);
  void ShowTitle();
  void ShowTexts();
  void TypeName();

  // Steps back and forth, in frmEditArr_step.cpp.
  void ShowMapOf(const EditAction& action);
  void SendChanged(const std::vector<EditorControl*>& changed, std::string_view before);
  void SendRecord(const EditorControl& control);
  void SendPicked(int part);
  // A text that belongs to the action that runs.
  void ShowPicked(ui::TextBox& box, const std::string& text);

  // Arming, and mute and solo, which are carried out by mutes at the instrument: in frmEditArr_press.cpp.
  void PressTextBox(int index);
  void PressGround(const ui::MouseEvent& event);
  void SetNameHighlight(int index);
  void ClearNameHighlight();
  void PressMute(int part);
  void PressSolo(int part);
  void SetMuted(int part, bool muted);
  void SetSoloed(int part, bool soloed);
  void SendMute(int part);
  void PressEffectSwitch(int effect);

  const Bytes& record() const;
  void MarkChanged();
  // Writes a byte of the record.
  void Put(std::size_t position, int value, const EditWords& words);
  std::size_t NamePosition(int part) const;
  std::size_t MapPosition(int variation) const;

  RecordEditor rows_;
  EditorControl* drum_map_ = nullptr;  // of HScroll1(1)
  struct Colours {
    std::optional<ui::Colour> back;
    std::optional<ui::Colour> fore;
  };
  std::array<Colours, kTextBoxes> saved_colours_;
  std::string name_shown_;  // in its box, before it is typed over
};

}  // namespace zentaline
