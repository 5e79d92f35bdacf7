// A small field that stays: an arrangement's id goes in, and the arrangement comes up.
#pragma once

#include "core/child_window.h"

namespace zentaline {

class frmFindID : public ChildWindow {
 public:
  explicit frmFindID(Application& app);

  ui::Label Label1{*this, "Label1"};
  ui::TextBox Text1{*this, "Text1"};
  ui::Button CommOK{*this, "CommOK"};
  ui::Timer Timer{*this, "Timer"};

  void Load() override;
  void Unload() override;

 protected:
  FormState* FormPlace() override;

 private:
  void Press();
  void Search();

  bool searching_ = false;  // the wait text stands there, the search is due
};

}  // namespace zentaline
