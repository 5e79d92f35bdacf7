// The window of a factory bank of arrangements. The instrument holds it already, so that nothing is sent but
// selections.
#pragma once

#include "arrangement/list_window.h"

namespace zentaline {

class frmArrAB : public ArrListWindow {
 public:
  // kKindArrA or kKindArrB, with the image of its file.
  frmArrAB(Application& app, int kind, Bytes image);

  ui::TextBox Text1{*this, "Text1"};
  ui::Label Label1{*this, "Label1"};
  ui::Label LabelId{*this, "LabelId"};
  ui::Button CommArrPlay{*this, "CommArrPlay"};
  ui::Button CommSongPlay{*this, "CommSongPlay"};
  ui::Button CommClose{*this, "CommClose"};
  ui::Frame Frame1{*this, "Frame1"};
  ui::Timer Timer{*this, "Timer"};

  // The row that a search by id wants; its click ends the search and selects it.
  void GoToFoundRow();

  bool CanSave() const override;
  void ShowName() override;

  void Load() override;
  bool QueryClose() override;
  void Unload() override;

 protected:
  FormState* FormPlace() override;
  // A bank has factory styles only: the byte that would tell isn't looked at.
  bool UsesUserStyle(int row) const override { return (void)row, false; }

 private:
  void LayOut();
  void ClickRow();
  bool IsSearched() const;
  // Of the bank as a file of the database: 1 and 2.
  int FileId() const;

  int kind_;
};

}  // namespace zentaline
