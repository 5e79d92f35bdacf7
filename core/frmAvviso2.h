// A warning with a text and a button that closes it.
#pragma once

#include <string>

#include "ui/form.h"

namespace zentaline {

struct Application;

class frmAvviso2 : public ui::Form {
 public:
  frmAvviso2(Application& app, std::string title, const std::string& text);

  ui::Label Label1{*this, "Label1"};
  ui::Button CommClose{*this, "CommClose"};

  void Load() override;

 private:
  Application& app_;
};

}  // namespace zentaline
