// The global parameters: of a file, or of what the instrument holds. Every change goes into the window's image, and the
// whole block to the instrument. What each control stands for is told by the tables.
#pragma once

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "core/child_window.h"
#include "core/record_editor.h"
#include "core/undo.h"
#include "global/gbl_editor_tables.h"
#include "ui/control_array.h"
#include "ui/picture.h"

namespace zentaline {

class frmGbl : public ChildWindow, private RecordEditorHost {
 public:
  frmGbl(Application& app, Bytes image);

  static constexpr int kScaleBars = kUserScaleCount * kNotesOfScale;

  ui::Tabs SSTab1{*this, "SSTab1"};
  ui::ControlArray<ui::ScrollBar> GblHScroll1{*this, "GblHScroll1", 0, 1};
  ui::ControlArray<ui::Label> GblLab1{*this, "GblLab1", 0, 1};
  ui::ControlArray<ui::ComboBox> GblCombo1{
      *this, "GblCombo1", {0, 1, 2, 3, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19}};
  ui::ControlArray<ui::CheckBox> GblCheck1{*this, "GblCheck1", 0, 2};
  ui::Label LabelDamper{*this, "LabelDamper"};
  ui::ControlArray<ui::OptionButton> GblOption1{*this, "GblOption1", 0, 1};
  // The user scales, each with its frame, the keys that its bars stand over, and its reset.
  ui::ControlArray<ui::Frame> Frame1{*this, "Frame1", 0, kUserScaleCount - 1};
  ui::ControlArray<ui::Label> Lab2{*this, "Lab2", 0, kScaleBars - 1};
  ui::ControlArray<ui::ScrollBar> VScroll2{*this, "VScroll2", 0, kScaleBars - 1};
  ui::ControlArray<ui::Picture> ScalePicture{*this, "ScalePicture", 0, kUserScaleCount - 1};
  ui::ControlArray<ui::Button> CommResetUS{*this, "CommResetUS", 0, kUserScaleCount - 1};
  ui::ControlArray<ui::ComboBox> Combo3{*this, "Combo3", 0, 3};
  ui::ControlArray<ui::ScrollBar> HScroll3{*this, "HScroll3", 0, 1};
  ui::ControlArray<ui::Label> Lab3{*this, "Lab3", 0, 1};
  ui::CheckBox Check3{*this, "Check3"};
  ui::Button CommLoadGbl{*this, "CommLoadGbl"};
  ui::Button CommGlobal{*this, "CommGlobal"};
  ui::Button CommClose{*this, "CommClose"};

  // Shows the block in all controls; nothing is sent.
  void FillGlobalWindow();
  // The block has gone a step back or forth; it goes out once.
  void ShowItems(const ItemsShown&) override;
  void ShowStep(const EditStep& step) override;

  bool CanSave() const override { return true; }
  bool Unsaved() const override;
  bool NeverSaved() const override { return !HasFile(); }
  void ShowName() override;
  void FileSaved() override;
  void Load() override;
  bool QueryClose() override;
  void Unload() override;

 protected:
  WindowRecord* Record() override;
  FormState* FormPlace() override;

 private:
  // Making, in frmGbl_make.cpp.
  void MakeRows();
  void Connect();
  void ShowToolTips();
  void LayOut();
  ui::Control& ControlOf(const EditorRow& row, int block) const;
  ui::Label* ValueOf(const EditorRow& row, int block) const;
  ui::Layout Named(std::initializer_list<const ui::Control*> controls);
  ui::Layout ScalePage(int scale);

  // What the user does.
  void Edit(EditorControl& control) override;
  void ChooseDamper(bool plus);
  void ResetScale(int scale);
  void Send();
  void ShowDamper();
  void MarkChanged();
  bool HasFile() const;

  RecordEditor rows_;
  std::array<EditorControl*, kScaleBars> scale_bars_{};  // of VScroll2
};

}  // namespace zentaline
