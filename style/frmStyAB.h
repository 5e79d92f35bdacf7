// The window of a bank of the instrument's own styles: 64 names, offered to the arrangement editor.
#pragma once

#include "core/child_window.h"

namespace zentaline {

class frmStyAB : public ChildWindow {
 public:
  // kKindStyA or kKindStyB.
  frmStyAB(Application& app, int kind);

  ui::ListBox List1{*this, "List1"};
  ui::Button CommArrPlay{*this, "CommArrPlay"};
  ui::Button CommSongPlay{*this, "CommSongPlay"};
  ui::Button CommClose{*this, "CommClose"};

  void ShowName() override;
  void Load() override;

 protected:
  FormState* FormPlace() override;
};

}  // namespace zentaline
