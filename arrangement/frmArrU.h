// The window of an arrangement file with the style and program files that belong to it: the file is shown row by row,
// and played through the instrument.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "arrangement/file_list_window.h"

namespace zentaline {

class frmArrU : public ArrFileListWindow {
 public:
  // Number 1 to 8 a file of the user's, 9 what stands in the instrument. The image carries everything else.
  frmArrU(Application& app, int number, Bytes image);

  ui::TextBox Text1{*this, "Text1"};
  ui::TextBox Text2{*this, "Text2"};
  ui::Label Label1[2] = {{*this, "Label1", 0}, {*this, "Label1", 1}};
  ui::Label LabelId{*this, "LabelId"};
  ui::Button CommLoadArr{*this, "CommLoadArr"};
  ui::Button CommLoadSty{*this, "CommLoadSty"};
  ui::Button CommShowSty{*this, "CommShowSty"};
  ui::Button CommLoadPrg{*this, "CommLoadPrg"};
  ui::Button CommShowPrg{*this, "CommShowPrg"};
  ui::Button CommEdit{*this, "CommEdit"};
  ui::Button CommAdd{*this, "CommAdd"};
  ui::Button CommArrPlay{*this, "CommArrPlay"};
  ui::Button CommSongPlay{*this, "CommSongPlay"};
  ui::Button CommClose{*this, "CommClose"};
  ui::Frame Frame1[4] = {{*this, "Frame1", 0}, {*this, "Frame1", 1}, {*this, "Frame1", 2}, {*this, "Frame1", 3}};

  // The search goes on here: its row, then what the instrument lacks of it, step by step. And a search that ends, or
  // has gone on to another window.
  void BeginSearch();
  void EndSearch();
  bool searching() const { return searching_; }
  // The editor has gone: CommEdit is usable again on a written row.
  void EditorClosed();
  // Its file's number in the database may be another one.
  void ShowIdAgain();

  bool CanSave() const override;
  void ShowName() override;
  void FileSaved() override;
  void SettingsChanged() override;
  void RecordsChanged() override;
  void ShowItems(const ItemsShown& shown) override;

  void Load() override;
  bool QueryClose() override;
  void Unload() override;

 protected:
  WindowRecord* Record() override;
  ui::Timer& ClickTimer() override { return TimerList1; }
  bool LoadsStylesOnClick() const override;
  void ShowNothing() override;
  void RowChosen(int row) override;
  void ShowSelected(int row) override;
  void RowShown(int row) override;
  void SelectRow(int row) override;

 private:
  // Opening.
  void LookUpId();
  // Whether it is this window that a search by id is about, by the number of its file.
  bool IsSearched() const;
  void NoteWhatTheSearchNeeds();
  void AttachSiblingStyles();
  bool EnableStyles();
  void AttachSiblingPrograms();
  void EnablePrograms();
  void ShowId(const std::string& row_label);
  void LayOut();

  // What the user does; a button's handler is also its timer's.
  void PressLoadArr();
  void PressLoadSty();
  void PressLoadPrg();
  void SendPrograms(const Bytes& image, bool pgg);
  void PressAdd();
  void PressEdit();
  void EnableEdit(bool enabled);
  void StepSearch();
  // Lets a search that is under way go on at this step.
  void ContinueSearch(int step);
  // A wait text stands for work that is still due.
  bool Sending() const;
  bool PressKey(const ui::Key& key);

  std::string ProgramsForInstrument() const;

  int number_;
  bool searching_ = false;
  bool adding_ = false;     // CommAdd has shown its wait text, the work is due
  Bytes programs_to_send_;  // a bank read for CommLoadPrg, until it goes out
  bool pgg_to_send_ = false;

  ui::Timer& MakeTimer(const char* name, int index = -1, ui::Handler handler = {});
  std::vector<std::unique_ptr<ui::Timer>> timers_;
  ui::Timer& TimerLoadArr;
  ui::Timer& TimerLoadSty;
  ui::Timer& TimerLoadPrg;
  ui::Timer& TimerTxSty0;
  ui::Timer& TimerTxSty1;
  ui::Timer& TimerList1;
  ui::Timer& TimerFindID;
  ui::Timer& TimerAdd;
  ui::Timer& TimerEdit;
  ui::Timer& TimerShowSty;
  ui::Timer& TimerShowPrg;
};

}  // namespace zentaline
