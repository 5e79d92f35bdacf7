// The program editor: one program on four pages, edited live. Every change goes into EditRecord and in the same moment
// to the instrument; the bank's image stays as it is until the change is kept. What each control stands for is told by
// the tables.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "core/child_window.h"
#include "core/record_editor.h"
#include "core/undo.h"
#include "program/envelope_picture.h"
#include "program/prg_editor_tables.h"
#include "ui/control_array.h"

namespace zentaline {

using ui::ControlArray;

class frmEditPrg : public ChildWindow, private RecordEditorHost {
 public:
  explicit frmEditPrg(Application& app);

  // What it held behind steps on its file that were taken back, by their numbers, since the record was taken up.
  std::map<std::int64_t, Bytes> records_behind;

  ui::Tabs SSTab1{*this, "SSTab1"};
  // 0 the program's name, 1 and 2 the multisounds of the oscillators.
  ControlArray<ui::TextBox> BasText{*this, "BasText", 0, 2};
  ControlArray<ui::ScrollBar> BasVScroll{*this, "BasVScroll", 1, 2};
  ControlArray<ui::ComboBox> BasCombo{*this, "BasCombo", 0, 9};
  ControlArray<ui::CheckBox> BasCheck{*this, "BasCheck", {0}};
  ControlArray<ui::ScrollBar> BasHScroll{*this, "BasHScroll", 0, 17};
  ControlArray<ui::Label> BasLab{*this, "BasLab", 0, 17};
  ControlArray<ui::OptionButton> BasOption{*this, "BasOption", 0, 1};
  // Of oscillator 1 from 0 on, of oscillator 2 from 40, 21 and 1 on.
  ControlArray<ui::ScrollBar> OscHScroll{*this, "OscHScroll", 0, 79};
  ControlArray<ui::Label> OscLab{*this, "OscLab", 0, 79};
  ControlArray<ui::ComboBox> OscCombo{*this, "OscCombo", 0, 41};
  ControlArray<ui::CheckBox> OscCheck{*this, "OscCheck", 0, 1};
  // 0 and 1 on the page of oscillator 1, 2 and 3 on that of oscillator 2.
  ControlArray<ui::OptionButton> OscOption{*this, "OscOption", 0, 3};
  ControlArray<ui::ComboBox> EffCombo{*this, "EffCombo", 0, 4};
  ControlArray<ui::CheckBox> EffCheck{*this, "EffCheck", 0, 1};
  ControlArray<ui::ScrollBar> EffHScroll{*this, "EffHScroll", 0, 7};
  ControlArray<ui::Label> EffLab{*this, "EffLab", 0, 7};
  ControlArray<ui::Label> EffLab1{*this, "EffLab1", 0, 7};

  // 0 the pitch envelope, 1 and 2 filter and amplifier of oscillator 1, 3 and 4 of oscillator 2.
  ControlArray<ui::Picture> EGPicture{*this, "EGPicture", 0, 4};
  ui::Picture FxPicture{*this, "FxPicture"};

  // Shows EditRecord; nothing is sent or written.
  void Fill();
  // What the bars go back to.
  void Keep();
  void SetBar(int array, int index, int value);
  // The record has gone a step back or forth: its controls, and what stands around them.
  void ShowStep(const EditStep& step) override;
  void Load() override;
  // The bank asks for it.
  bool GoesWithAnother() const override { return true; }
  bool QueryClose() override;
  bool Unsaved() const override;
  void Unload() override;

 protected:
  FormState* FormPlace() override;

 private:
  void ShowAround(const EditStep& step, const std::vector<EditorControl*>& touched);
  // Making, in frmEditPrg_make.cpp.
  void MakeRows();
  void MakePictures();
  void AddRow(const EditorRow& row, int block);
  ui::Control& ControlOf(int array, int index) const;
  ui::Label* ValueOf(int array, int index) const;
  void ConnectTexts();
  void ConnectOptions();
  void ShowToolTips();
  void LayOut();
  ui::Layout CommonPage();
  ui::Layout OscPage(int block);
  ui::Layout EffectPage();
  ui::Layout Named(int array, int index);
  ui::Layout Bars(int array, int first, int last);
  ui::Layout Polarities(int block);
  ui::Layout Pictured(int picture);
  ui::Layout Framed(int frame, ui::Layout content, int stretch = 0);
  ui::Label& MakeLabel(const std::string& caption);

  // What the user does.
  bool Guarded() const;
  void Edit(EditorControl& control) override;
  void AfterEdit(const EditorControl& control);
  void TypeName();
  void TypeSound(int oscillator);
  void MoveSound(int oscillator);
  void ClickSound(int oscillator);
  void ChoosePlacement();
  void ShowSound(int oscillator);
  void ShowEffects();
  void ShowPans();
  void ShowSilence();
  void ShowPictureOf(const EditorRow& row, int block);
  void ShowRouting();
  void MarkChanged();
  void Put(std::size_t position, std::string_view bytes, std::string_view what, std::string_view of);
  void ClosePerformance();

  const Bytes& record() const;
  EditorControl& RowOf(int array, int index);

  // The bars that an envelope shows, by the indices of oscillator 1.
  struct EnvelopeBars {
    Envelope envelope;
    int array;
    int block;
    int first;
    int last;
  };
  static constexpr std::array<EnvelopeBars, 5> kEnvelopes = {{{Envelope::kPitch, kBasHScroll, 0, 10, 15},
                                                              {Envelope::kFilter, kOscHScroll, 0, 16, 23},
                                                              {Envelope::kAmplifier, kOscHScroll, 0, 30, 36},
                                                              {Envelope::kFilter, kOscHScroll, 1, 16, 23},
                                                              {Envelope::kAmplifier, kOscHScroll, 1, 30, 36}}};

  RecordEditor rows_;
  std::array<int, 2> kept_sounds_{};
  std::vector<std::unique_ptr<EnvelopePicture>> envelopes_;  // in the order of kEnvelopes
  std::vector<std::unique_ptr<ui::Label>> labels_;
  std::vector<std::unique_ptr<ui::Frame>> frames_;
  std::string name_shown_;              // in its box, before it is typed over
  std::array<ui::Label*, 2> silent_{};  // on the pages of the oscillators; the first one is never seen
};

}  // namespace zentaline
