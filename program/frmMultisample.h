// The list of the sounds that oscillators start from, on five pages. It feeds the box of the program editor that waits
// for a sound, and follows it.
#pragma once

#include <cstdint>
#include <string>

#include "core/child_window.h"
#include "data/multisample.h"
#include "ui/control_array.h"

namespace zentaline {

class frmMultisample : public ChildWindow {
 public:
  explicit frmMultisample(Application& app);

  static constexpr int kPageRows = 105;  // the last page has fewer
  static constexpr int kPages = (kMultisampleCount + kPageRows - 1) / kPageRows;

  ui::Tabs SSTab1{*this, "SSTab1"};
  ui::ControlArray<ui::ListBox> List1{*this, "List1", 0, kPages - 1};
  // Puts the list on the sound of the box that waits, once the window is seen.
  ui::Timer Timer{*this, "Timer"};

  void Load() override;
  void Unload() override;

 protected:
  FormState* FormPlace() override;

 private:
  void FillLists();
  void Follow();
  void ClickRow(int page);
  bool KeyInList(int page, const ui::Key& key);
  // The next sound from `first` on, round at the end, whose name begins with the text; -1 when none does.
  int FindName(const std::string& text, int first) const;
  // Selects the sound's row alone, on its page in front.
  void Show(int sound);
  // The sound that is selected on the page; that before the page's first where there is none.
  int SelectedOn(int page) const;

  // What was typed to look for a name, in lower case, and when.
  std::string typed_;
  std::int64_t typed_at_ = 0;
};

}  // namespace zentaline
