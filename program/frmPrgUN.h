// The window of a user bank, from a file or new: its 64 programs are shown, heard, and sent to the instrument.
#pragma once

#include <string>

#include "program/list_window.h"

namespace zentaline {

class frmPrgUN : public ProgramListWindow {
 public:
  // Number 1 to 8 a bank of the user's, 9 what stands in the instrument. The image carries everything else.
  frmPrgUN(Application& app, int number, Bytes image);

  ui::Button CommLoad{*this, "CommLoad"};
  ui::Button CommProgram{*this, "CommProgram"};
  ui::Button CommEdit{*this, "CommEdit"};
  ui::Frame Frame1[2] = {{*this, "Frame1", 0}, {*this, "Frame1", 1}};

  bool Offers(WindowFunction function) override;
  bool CanSave() const override;
  bool Unsaved() const override;
  void ShowName() override;
  // Whether the editor can be opened on the row that is selected.
  void ShowEditButton();
  void ShowItems(const ItemsShown& shown) override;
  void ShowStep(const EditStep& step) override;
  void FileSaved() override { channel_chosen_ = false; }
  // The row that is selected, -1 when there is none, or it is empty or a link.
  int SelectedProgram() const;
  // Rewrites the name in a row from its record; nobody hears it.
  void ShowProgramName(int row) { ShowRowText(row, RowText(row)); }

  void Load() override;
  void Resized() override;
  bool QueryClose() override;
  void Unload() override;

 protected:
  void ClickRow() override;
  void KeepChannel(int channel) override;
  WindowRecord* Record() override;

 private:
  void FillRows();
  std::string RowText(int row) const;
  // By the action that runs.
  void ShowRowText(int row, std::string text);
  void LayOut();
  bool IsEmptyRow(int row) const;
  bool NeverSaved() const override;
  std::string NameForInstrument() const;
  // With the extension under which it stands on the disk.
  std::string FilePath() const;

  void PressEdit();
  void PressLoad();
  bool KeyInList(const ui::Key& key);
  void ShowLinked(int row);
  void TakeUp(int row);

  int number_;
  int mode_before_ = 0;          // what the instrument goes back to after a send
  bool channel_chosen_ = false;  // since the last save

  ui::Timer TimerList1{*this, "TimerList1"};
  ui::Timer TimerLoadPrg{*this, "TimerLoadPrg"};
  ui::Timer TimerEdit{*this, "TimerEdit"};
};

}  // namespace zentaline
