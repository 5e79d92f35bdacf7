// Back sequences: their names, how many events each track of the chosen one holds, and the way to the instrument. The
// file can't be changed here.
#pragma once

#include <string>
#include <string_view>

#include "core/child_window.h"
#include "global/bsq_format.h"
#include "ui/control_array.h"
#include "ui/picture.h"

namespace zentaline {

class frmBsq : public ChildWindow {
 public:
  frmBsq(Application& app, Bytes image);

  ui::ListBox List1{*this, "List1"};
  ui::ControlArray<ui::Label> Label3{*this, "Label3", 0, kBackSeqCount - 1};  // the events of each sequence
  ui::Frame Frame1{*this, "Frame1", 0};
  // The events of the tracks of the chosen sequence; Lab2 and Lab4 say which tracks these are.
  ui::ControlArray<ui::Label> Lab2{*this, "Lab2", 0, 3};
  ui::ControlArray<ui::Label> Label2{*this, "Label2", 0, 3};
  ui::ControlArray<ui::Label> Lab4{*this, "Lab4", 0, 7};
  ui::ControlArray<ui::Label> Label4{*this, "Label4", 0, 7};
  ui::Picture EventsPicture{*this, "EventsPicture"};
  ui::Frame Frame2{*this, "Frame1", 1};
  ui::Button CommLoadBSQ{*this, "CommLoadBSQ"};
  ui::Frame Frame3{*this, "Frame1", 2};
  ui::Button CommBSQ{*this, "CommBSQ"};
  ui::Button CommArrPlay{*this, "CommArrPlay"};
  ui::Button CommSongPlay{*this, "CommSongPlay"};
  ui::Button CommClose{*this, "CommClose"};
  ui::Timer TimerLoadBSQ{*this, "TimerLoadBSQ"};

  void ShowName() override;
  void Load() override;
  void Unload() override;

 protected:
  WindowRecord* Record() override;

 private:
  void LayOut();
  void FillRows();
  void ShowTracks();
  void PressLoad();
  std::string_view File() const;
};

}  // namespace zentaline
