// Asks for the language at the first start.
#pragma once

#include "ui/form.h"

namespace zentaline {

struct Application;

class frmLingua : public ui::Form {
 public:
  explicit frmLingua(Application& app);

  ui::OptionButton Option1[2] = {{*this, "Option1", 0}, {*this, "Option1", 1}};
  ui::Button CommOK{*this, "CommOK"};

  bool chosen() const { return chosen_; }
  void Load() override;

 private:
  Application& app_;
  bool chosen_ = false;  // CommOK closed it
};

}  // namespace zentaline
