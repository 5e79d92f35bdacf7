// What the windows and steps are called that come back after a run that ended without a word.
#include <gmock/gmock.h>

#include "tests/files/recovery_desk.h"

namespace zentaline::test {
namespace {

using enum MenuId;
using ::testing::ElementsAre;

TEST_F(Recovery, ARecordUnderEditComesBackAsKeptUnderItsName) {
  {
    auto program = Run();
    program->OpenArr(Path("song.arr"));
    List(*program->Arr(1)).UserDouble(1);
    program->toolkit.Advance(50);
    const ui::Form& editor = *program->toolkit.FindForm("frmEditArr");
    ASSERT_TRUE(static_cast<ui::ScrollBar*>(editor.Find("VScroll1", 0))->UserSet(100));
  }
  auto next = Run({ui::BoxAnswer::kYes});
  EXPECT_THAT(next->Boxes(), ElementsAre(Question(1, 1)));
  EXPECT_EQ(next->app.main->Menu(mnuAnnulla).ShownCaption(), "&Undo: Second kept");
}

TEST_F(Recovery, AProgramUnderEditToo) {
  {
    auto program = Run();
    OpenBy(*program, mnuApriPrg, Path("bank.prg"), 3);
    List(*program->app.prg_windows[1]).UserDouble(2);
    program->toolkit.Advance(50);
    const ui::Form& editor = *program->toolkit.FindForm("frmEditPrg");
    ASSERT_TRUE(static_cast<ui::ScrollBar*>(editor.Find("OscHScroll", 9))->UserSet(17));
  }
  auto next = Run({ui::BoxAnswer::kYes});
  EXPECT_EQ(next->app.main->Menu(mnuAnnulla).ShownCaption(), "&Undo: P2 kept");
}

TEST_F(Recovery, WhatComesBackTwiceIsCalledRecoveredOnce) {
  {
    auto program = Run();
    program->OpenArr(Path("song.arr"));
    Rename(*program, 0, 'X');
  }
  folder.Put("song.arr", ArrFile({"Another"}));
  {
    auto next = Run({ui::BoxAnswer::kYes});
    ASSERT_NE(next->Arr(1), nullptr);
    EXPECT_EQ(next->Caption(1), "File Arr - song (recovered).arr (1)");
    Rename(*next, 1, 'Y');
  }
  auto last = Run({ui::BoxAnswer::kYes});
  ASSERT_NE(last->Arr(1), nullptr);
  EXPECT_EQ(last->Caption(1), "File Arr - song (recovered).arr (1)");
  EXPECT_EQ(Letter(*last, 0), 'X');
  EXPECT_EQ(Letter(*last, 1), 'Y');
}

}  // namespace
}  // namespace zentaline::test
