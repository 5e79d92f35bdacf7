// The program with a folder of files of all kinds, and what its clipboard needs.
#pragma once

#include <string>
#include <vector>

#include "tests/style/style_desk.h"
#include "tests/support/edits.h"

namespace zentaline::test {

class ItemDesk : public StyDesk {
 public:
  using StyDesk::StyDesk;

  void OpenPrg(const std::string& name, bool read_only = false) {
    program.toolkit.files.push_back({false, folder.Path(name), 3, read_only});
    Press("mnuApriPrg");
    program.toolkit.files.clear();
  }
  ChildWindow* Prg(int number) { return program.app.prg_windows[static_cast<std::size_t>(number)]; }
  bool Channel(const std::string& form, int row) { return Find<ui::ComboBox>(form + ".Combo1")->UserSelect(row); }
  void Front(const std::string& form) { program.toolkit.FindForm(form)->UserActivate(); }
  // As the user does: the window comes to the front.
  bool SelectRows(const std::string& form, const std::vector<int>& rows) {
    return Find<ui::ListBox>(form + ".List1")->UserSelect(rows);
  }
  bool Delete(const std::string& form) { return Find<ui::ListBox>(form + ".List1")->UserKey({ui::Key::kDelete, {}}); }
  // Those of Cut, Copy and Paste that can be used, with this window in front.
  std::string Entries(const std::string& form = {}) {
    if (!form.empty()) Front(form);
    std::string usable;
    const std::pair<MenuId, const char*> entries[] = {
        {MenuId::mnuTaglia, "cut"}, {MenuId::mnuCopia, "copy"}, {MenuId::mnuIncolla, "paste"}};
    for (const auto& [entry, word] : entries) {
      if (program.Enabled(entry)) usable += (usable.empty() ? "" : " ") + std::string(word);
    }
    return usable;
  }
};

// Whether a style part is attached to an arrangement window, as if its file had been read so.
inline void SetState(ChildWindow& window, int state) {
  Set(ImageFor(window), 9, state);
}

}  // namespace zentaline::test
