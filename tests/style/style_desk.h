// The program with a folder of style files.
#pragma once

#include <string>
#include <vector>

#include "tests/arrangement/arr_desk.h"

namespace zentaline::test {

class StyDesk : public ArrDesk {
 public:
  using ArrDesk::ArrDesk;

  // Answers the dialog of File, Open Sty with a file of the folder.
  void OpenSty(const std::string& name, bool read_only = false) {
    program.toolkit.files.push_back({false, folder.Path(name), 2, read_only});
    Press("mnuApriSty");
    program.toolkit.files.clear();
  }
  // Answers the next save dialog.
  void SaveAs(const std::string& name) { program.toolkit.files.push_back({false, folder.Path(name), 2, false}); }
  ChildWindow* Sty(int number) { return program.app.sty_windows[static_cast<std::size_t>(number)]; }
  ChildWindow* NewSty(int number) { return program.app.new_sty_windows[static_cast<std::size_t>(number)]; }
  // As the user does in a list, by the form's name.
  bool SelectIn(const std::string& form, int row) { return Find<ui::ListBox>(form + ".List1")->UserSelect({row}); }
  std::string CaptionOf(const std::string& form) {
    const ui::Form* found = program.toolkit.FindForm(form);
    return found == nullptr ? "" : found->caption();
  }
  void CloseForm(const std::string& form) { program.toolkit.FindForm(form)->UserClose(); }
};

}  // namespace zentaline::test
