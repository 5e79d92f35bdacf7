// The notebook: one text of the user's own, kept from run to run.
#pragma once

#include "core/child_window.h"

namespace zentaline {

class frmBloccoNote : public ChildWindow {
 public:
  explicit frmBloccoNote(Application& app);

  ui::TextBox Text1{*this, "Text1"};

  void Load() override;
  // Writes the text; one that can't be written keeps the window, and so the program, open.
  bool QueryClose() override;
  void Unload() override;

 protected:
  FormState* FormPlace() override;

 private:
  bool Write();
};

}  // namespace zentaline
