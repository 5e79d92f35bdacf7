// The window of a new arrangement file, made in memory: an empty list that arrangements are pasted into, with the
// styles that they use. It has no editor and no programs.
#pragma once

#include "arrangement/file_list_window.h"
#include "style/transmission.h"

namespace zentaline {

class frmArrNew : public ArrFileListWindow {
 public:
  // Number 1 to 8.
  frmArrNew(Application& app, int number, Bytes image);

  ui::Label Label1{*this, "Label1"};
  ui::Button CommLoadArr{*this, "CommLoadArr"};
  ui::Button CommLoadSty{*this, "CommLoadSty"};
  ui::Button CommArrPlay{*this, "CommArrPlay"};
  ui::Button CommClose{*this, "CommClose"};
  ui::Frame Frame1[2] = {{*this, "Frame1", 0}, {*this, "Frame1", 1}};
  ui::Timer Timer{*this, "Timer"};
  ui::Timer TimerList1{*this, "TimerList1"};
  ui::Timer TimerLoadArr{*this, "TimerLoadArr"};
  ui::Timer TimerLoadSty{*this, "TimerLoadSty"};

  bool CanSave() const override;
  bool Unsaved() const override { return CanSave() && HasRows(); }
  bool NeverSaved() const override { return !saved_; }
  void FileSaved() override;
  void ShowName() override;
  void RecordsChanged() override;

  void Load() override;
  bool QueryClose() override;
  void Unload() override;

 protected:
  ui::Timer& ClickTimer() override { return TimerList1; }
  bool LoadsStylesOnClick() const override;
  void ShowNothing() override;
  void ShowSelected(int row) override;
  void SelectRow(int row) override;

 private:
  void LayOut();
  void PressLoadArr();
  void PressLoadSty();
  // One timer takes both parts, that of the first group and that of the pauses.
  StyleTimers timers() { return {TimerLoadSty, TimerLoadSty, kPauseBetweenGroups}; }
  bool HasRows() const;
  ChildWindow*& Slot();

  static constexpr int kPauseBetweenGroups = 800;  // milliseconds

  int number_;
  bool saved_ = false;  // the file stands on the disk under its own name
};

}  // namespace zentaline
