// A warning with three answers, for what the standard message box can't show.
#pragma once

#include <string>

#include "ui/form.h"

namespace zentaline {

struct Application;

class frmAvviso1 : public ui::Form {
 public:
  // The two lines of the text, and the title. The answer goes to WarningAnswer: 0 CommSI, 1 CommNO, 2 CommAnnulla; 1
  // also when it is closed without a button.
  frmAvviso1(Application& app, std::string title, const std::string& line1, const std::string& line2);

  ui::Label Label1[2] = {{*this, "Label1", 0}, {*this, "Label1", 1}};
  ui::Button CommSI{*this, "CommSI"};
  ui::Button CommNO{*this, "CommNO"};
  ui::Button CommAnnulla{*this, "CommAnnulla"};

  void Load() override;

 private:
  void Answer(int answer);

  Application& app_;
};

}  // namespace zentaline
