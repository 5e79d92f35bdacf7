// Every command of every window can be reached by a letter, in both languages, and no two of a window by the same.
#include <gtest/gtest.h>

#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

#include "tests/support/memory_disk.h"
#include "tests/support/program.h"
#include "ui/letters.h"

namespace zentaline {
namespace {

using enum MenuId;

void Fill(test::MemoryDisk& disk) {
  for (const auto& entry : std::filesystem::recursive_directory_iterator(ZENTALINE_SHARE)) {
    if (!entry.is_regular_file()) continue;
    std::ifstream file(entry.path(), std::ios::binary);
    disk.files["/disk/" + entry.path().filename().string()] = {std::istreambuf_iterator<char>(file), {}};
  }
}

class WindowLetters : public testing::TestWithParam<int> {
 protected:
  WindowLetters() {
    Fill(disk_);
    program_.toolkit.modals.clear();
    started_ = program_.Start(GetParam());
    bar_ = ui::LettersOfBar(*program_.app.main);
  }

  // A caption with words is a command's; M and S are marks of what is on or off.
  static bool IsCommand(const ui::Control& control) {
    if (control.kind() != ui::ControlKind::kButton) return false;
    const auto& button = static_cast<const ui::Button&>(control);
    int letters = 0;
    for (const char c : button.caption()) letters += std::isalpha(static_cast<unsigned char>(c)) != 0 ? 1 : 0;
    return !button.literal && letters > 2;
  }

  void ExpectLetters(const ui::Form& form, const std::set<char>& taken) {
    std::set<char> seen = taken;
    const ui::Letters letters = ui::LettersOfControls(form, taken);
    for (const ui::Control* control : form.controls()) {
      const auto found = letters.find(control);
      if (IsCommand(*control)) {
        ++commands_;
        ASSERT_NE(found, letters.end()) << form.FullName() << "." << control->FullName()
                                        << " has no letter: " << static_cast<const ui::Button*>(control)->caption();
        EXPECT_TRUE(seen.insert(found->second).second)
            << form.FullName() << "." << control->FullName() << " shares " << found->second;
      }
    }
    ++windows_;
  }
  void ExpectMenu(const ui::MenuEntry& menu) {
    const ui::Letters letters = ui::LettersOfEntries(menu.entries());
    std::set<char> seen;
    for (const ui::MenuEntry* entry : menu.entries()) {
      if (entry->index() >= 0) continue;
      const auto found = letters.find(entry);
      ASSERT_NE(found, letters.end()) << entry->FullName() << " has no letter: " << entry->caption();
      EXPECT_TRUE(seen.insert(found->second).second) << entry->FullName();
      ExpectMenu(*entry);
    }
  }
  // The window that comes to the front by it.
  void ExpectBehind(MenuId entry) {
    const ui::Form* before = program_.app.toolkit.active_child();
    program_.toolkit.modals.push_back([this](ui::Form& form) { ExpectLetters(form, {}); });
    const std::size_t modals = program_.toolkit.modals.size();
    ASSERT_TRUE(program_.Press(entry)) << program_.app.main->Menu(entry).FullName();
    program_.toolkit.Advance(3000);
    const bool modal = program_.toolkit.modals.size() < modals;
    program_.toolkit.modals.clear();
    if (modal) return;
    const ui::Form* front = program_.app.toolkit.active_child();
    ASSERT_NE(front, before) << program_.app.main->Menu(entry).FullName() << " opens nothing";
    ExpectLetters(*front, bar_);
  }
  void Open(MenuId entry, const char* path, int filter) {
    program_.toolkit.files.push_back({false, path, filter, false});
    ExpectBehind(entry);
  }
  void SelectFirst() {
    ui::Form& front = *program_.app.toolkit.active_child();
    static_cast<ui::ListBox*>(front.Find("List1"))->UserSelect({0});
    program_.toolkit.Advance(3000);
  }

  test::MemoryDisk disk_;
  test::TestProgram program_{disk_, "/disk"};
  bool started_ = false;
  std::set<char> bar_;
  int windows_ = 0;
  int commands_ = 0;
};

TEST_P(WindowLetters, EachCommandHasOneOfItsOwn) {
  ASSERT_TRUE(started_);
  EXPECT_EQ(bar_.size(), program_.app.main->menu_bar().size());
  for (const ui::MenuEntry* menu : program_.app.main->menu_bar()) ExpectMenu(*menu);
  ExpectLetters(*program_.app.main, bar_);
  for (const MenuId entry :
       {mnuNuovoArr, mnuNuovoSty, mnuNuovoPrg, mnuArrA, mnuArrB, mnuStyA, mnuStyB, mnuWProgA, mnuDrum, mnuPerc,
        mnuMultisample, mnuMsgEx, mnuTastiera, mnuBloccoNote, mnuGuida, mnuMIDI, mnuInfo}) {
    ExpectBehind(entry);
  }
  Open(mnuApriSty, "/disk/First Steps.sty", 2);
  Open(mnuApriArr, "/disk/Sunday Band.arr", 1);
  SelectFirst();
  ExpectBehind(mnuEdit);
  program_.app.toolkit.Activate(*program_.Arr(1));
  program_.toolkit.answers.push_back(ui::BoxAnswer::kYes);
  ASSERT_TRUE(program_.Press(mnui40DBArr));
  program_.toolkit.Advance(3000);
  ExpectBehind(mnuWEditDBArr);
  ExpectBehind(mnuWFindID);
  Open(mnuApriPrg, "/disk/First Steps.prg", 3);
  ui::Form& bank = *program_.app.toolkit.active_child();
  SelectFirst();
  ExpectBehind(mnuEditPerf);
  ASSERT_TRUE(program_.app.perf_editor->Close());
  program_.app.toolkit.Activate(bank);
  SelectFirst();
  ASSERT_TRUE(program_.Press(mnuEdit)) << program_.app.toolkit.active_child()->caption();
  program_.toolkit.Advance(3000);
  ASSERT_NE(program_.app.prg_editor, nullptr);
  ExpectLetters(*program_.app.prg_editor, bar_);
  EXPECT_GT(windows_, 22);
  EXPECT_GT(commands_, 60);
}

INSTANTIATE_TEST_SUITE_P(InBothLanguages, WindowLetters, testing::Values(1, 2));

}  // namespace
}  // namespace zentaline
