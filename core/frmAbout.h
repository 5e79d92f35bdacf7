// What the program is, and its version.
#pragma once

#include "ui/form.h"

namespace zentaline {

struct Application;

class frmAbout : public ui::Form {
 public:
  explicit frmAbout(Application& app);

  ui::Label Label1{*this, "Label1"};
  ui::Label Label2{*this, "Label2"};
  ui::Button cmdOK{*this, "cmdOK"};

  void Load() override;

 private:
  Application& app_;
};

}  // namespace zentaline
