// A user who does anything in any order, on files of every kind and a disk that sometimes fails: the program stays
// consistent, and no file that was whole is harmed.
#include <gtest/gtest.h>

#include <filesystem>
#include <random>

#include "tests/support/config.h"
#include "tests/support/program.h"

namespace zentaline::test {
namespace {

class AnyOrder : public ::testing::TestWithParam<unsigned> {
 protected:
  AnyOrder() : random_(GetParam()) {
    folder.Put("a.arr", ArrFile({"One", "Two"}));
    folder.Put("b.ARR", ArrFile(std::vector<std::string>(64, "Row")));
    folder.Put("short.arr", ArrFile().substr(0, 10527));
    folder.Put("empty.arr", "");
    folder.Put("a.sty", "KORG damaged");
    folder.Put("text.txt", "text");
    std::filesystem::create_directory(folder.Path("folder.arr"));
    folder.Put("Zentaline.ini", ConfigFile::English().bytes);
  }

  int Pick(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }

  std::string AnyPath() {
    const char* const names[] = {"a.arr",    "b.ARR",    "short.arr",  "empty.arr",    "a.sty",
                                 "text.txt", "none.arr", "folder.arr", "x .arr",       "new",
                                 "new.prg",  "new.sty",  "no/a.arr",   "caff\xE8.arr", ""};
    return folder.Path(names[Pick(15)]);
  }

  void Prepare(TestProgram& program) {
    program.toolkit.answers.clear();
    program.toolkit.files.clear();
    for (int i = 0; i < 4; ++i) {
      const ui::BoxAnswer answers[] = {ui::BoxAnswer::kYes, ui::BoxAnswer::kNo, ui::BoxAnswer::kCancel};
      program.toolkit.answers.push_back(answers[Pick(3)]);
      program.toolkit.files.push_back({Pick(5) == 0, AnyPath(), 1 + Pick(7), Pick(2) == 1});
    }
    if (Pick(8) == 0) {
      const char* const operations[] = {"read", "write", "remove", "rename", "list"};
      const char* const errors[] = {"EACCES", "EIO", "ENOSPC", "ENOENT", "EISDIR", "ENOTDIR", "EMFILE", "EROFS"};
      program.disk.Fail(operations[Pick(5)], errors[Pick(8)]);
    }
  }

  void Act(TestProgram& program) {
    const std::vector<ui::Form*> forms = program.toolkit.forms();
    ui::Form& form = *forms[static_cast<std::size_t>(Pick(static_cast<int>(forms.size())))];
    const int what = Pick(20);
    if (what == 0) return program.toolkit.Advance(Pick(1500));
    if (what == 1 && form.kind() == ui::FormKind::kChild) return static_cast<void>(form.UserClose());
    if (what == 2) return form.UserActivate();
    if (what == 3 && form.kind() == ui::FormKind::kChild) {
      // As an edit leaves it.
      return PutByte(ImageFor(static_cast<ChildWindow&>(form)), 4, 1);
    }
    if (what == 4) {
      return program.toolkit.UserPlaces(form, {Pick(9000) - 4500, Pick(9000) - 4500, 1 + Pick(2000), 1 + Pick(2000),
                                               static_cast<ui::WindowState>(Pick(3))});
    }
    ui::Control* control = form.controls()[static_cast<std::size_t>(Pick(static_cast<int>(form.controls().size())))];
    switch (control->kind()) {
      case ui::ControlKind::kButton:
        static_cast<ui::Button*>(control)->UserPress();
        break;
      case ui::ControlKind::kMenuEntry:
        if (control->name() != "mnuExit") static_cast<ui::MenuEntry*>(control)->UserPress();
        break;
      case ui::ControlKind::kListBox: {
        auto* list = static_cast<ui::ListBox*>(control);
        if (list->rows() > 0) list->UserSelect({Pick(list->rows())});
        break;
      }
      default:
        break;
    }
  }

  void Check(TestProgram& program) {
    int children = 0;
    for (const ui::Form* form : program.toolkit.forms()) children += form->kind() == ui::FormKind::kChild ? 1 : 0;
    ASSERT_EQ(program.app.core.OpenChildCount, children);
    ASSERT_EQ(program.app.main->Menu(MenuId::mnuChiudi).enabled(), children > 0);
    for (int number = 1; number <= 8; ++number) {
      ASSERT_EQ(program.app.core.ArrWindows[static_cast<std::size_t>(number)].state != 0,
                program.Arr(number) != nullptr)
          << number;
    }
    ASSERT_EQ(folder.Get("text.txt"), "text");
    for (const char* name : {"a.arr", "b.ARR"}) {
      const std::string file = folder.Get(name);
      ASSERT_EQ(file.size(), 10528u) << name;
      ASSERT_EQ(file.substr(0, 7), std::string("KORG\x4D\x00\x03", 7)) << name;
    }
  }

  ScratchFolder folder;

 private:
  std::mt19937 random_;
};

INSTANTIATE_TEST_SUITE_P(Seeds, AnyOrder, ::testing::Range(1u, 7u));

TEST_P(AnyOrder, LeavesTheProgramConsistentAndTheFilesWhole) {
  for (int run = 0; run < 3; ++run) {
    TestProgram program(folder);
    ASSERT_TRUE(program.Start());
    for (int step = 0; step < 1500; ++step) {
      Prepare(program);
      Act(program);
      Check(program);
      if (HasFatalFailure()) {
        for (std::size_t i = program.toolkit.lines.size() > 15 ? program.toolkit.lines.size() - 15 : 0;
             i < program.toolkit.lines.size(); ++i) {
          ADD_FAILURE() << program.toolkit.lines[i];
        }
        return;
      }
    }
    for (const char* operation : {"read", "write", "remove", "rename", "list"}) program.disk.Fail(operation, "0");
    program.toolkit.answers = std::deque<ui::BoxAnswer>(40, ui::BoxAnswer::kNo);
    ASSERT_TRUE(program.Quit());
  }
}

}  // namespace
}  // namespace zentaline::test
