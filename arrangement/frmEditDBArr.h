// The window of the database: its files with their numbers, opened, entered and taken out. It keeps no data of its own:
// the list is a view of DBImage, with the factory banks in front.
#pragma once

#include <string>
#include <vector>

#include "core/child_window.h"
#include "ui/control_array.h"

namespace zentaline {

class frmEditDBArr : public ChildWindow {
 public:
  explicit frmEditDBArr(Application& app);

  ui::ListBox List1{*this, "List1"};
  ui::Label Label1{*this, "Label1"};
  ui::Label Label2{*this, "Label2"};
  ui::Label Label3{*this, "Label3"};
  ui::Label Label4{*this, "Label4"};
  ui::ListBox Dir1{*this, "Dir1"};
  ui::ListBox File1{*this, "File1"};
  ui::Button CommDelete{*this, "CommDelete"};
  ui::Button CommApri{*this, "CommApri"};
  ui::Button CommAddAll{*this, "CommAddAll"};
  ui::Button CommClose{*this, "CommClose"};
  ui::ControlArray<ui::Timer> Timer{*this, "Timer", 0, 2};
  ui::Timer TimerAddAll{*this, "TimerAddAll"};
  ui::Timer TimerApri{*this, "TimerApri"};
  ui::Timer TimerCancella{*this, "TimerCancella"};

  // The rows by DBImage; a file that was added alone shows the banks by other names than an opening does, and both are
  // kept so.
  void ShowRows(bool after_addition);
  void ReloadSoon() { Timer[1].Start(); }
  // The same after a step back or forth, on the first row that is another one.
  void ShowStepRows();

  static constexpr int kBankRows = 2;  // they have no entry and can't be deleted; the entries follow, from index 3 on

  void Load() override;
  void Unload() override;
  void Resized() override;

 protected:
  FormState* FormPlace() override;

 private:
  void Connect();
  void LayOut();
  void Reload();
  // The names of the arrangement files in the folder, into File1. False when it can't be read, which was shown.
  bool ListFiles();
  void PressAddAll();
  void DeleteRow();
  void OpenRow();
  void ShowCount();
  void ShowButtons();
  // The folder's name, cut in the middle where it doesn't fit.
  void FitDirectory();
  std::string IdOf(int row) const;

  std::string directory_;           // as it can be shown
  std::vector<std::string> files_;  // of File1, as bytes of the file system
  bool adding_ = false;             // CommAddAll has shown its wait text, the work is due
};

}  // namespace zentaline
