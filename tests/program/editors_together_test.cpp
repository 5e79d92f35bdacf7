// The program editor, the performance editor and the list of sounds beside each other.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/program/perf_desk.h"
#include "tests/support/edits.h"

namespace zentaline::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ui::BoxAnswer;
using Strings = std::vector<std::string>;

constexpr int kCutoff = 1;
constexpr int kEffects = 7;

class EditorsTogether : public ::testing::Test {
 protected:
  void Answer(BoxAnswer answer) { desk_.program.toolkit.answers.push_back(answer); }
  ui::Form* Sounds() { return desk_.program.toolkit.FindForm("frmMultisample"); }
  ui::TextBox& Box(int i) { return *desk_.Find<ui::TextBox>("frmEditPrg.BasText(" + std::to_string(i) + ")"); }
  ui::ListBox& List(int page) { return *desk_.Find<ui::ListBox>("frmMultisample.List1(" + std::to_string(page) + ")"); }
  void ClickBox(int i) {
    Box(i).UserMouse({ui::MouseEvent::kDown, 1, 1, false});
    Box(i).UserMouse({ui::MouseEvent::kUp, 1, 1, false});
    desk_.Wait(10);
  }

  PerfDesk desk_;
};

// --- Performances and the editor ---

// 99 is 63 hexadecimal.
TEST(PerfWithTheEditor, ABarsRangeLimitsTheValueAndABarThatStaysSendsNothing) {
  PerfDesk desk({{19, 1}, {59, 96}, {146, 98}, {147, 1}});
  desk.OpenEditor();
  desk.Up(kCutoff);
  EXPECT_EQ(desk.Byte(59), 99);
  EXPECT_EQ(desk.Byte(106), 55);
  EXPECT_EQ(desk.Sent(), (Strings{"02 00 00 00", "04 01 63 00", "02 00 01 00", "04 01 37 00"}));
  EXPECT_FALSE(desk.CanUp(kCutoff));
  desk.Up(kEffects);
  EXPECT_EQ(desk.Byte(146), 100);
  EXPECT_EQ(desk.Byte(147), 100) << "the copy holds what the balance holds";
  EXPECT_EQ(desk.Sent(), (Strings{"13 07 64 00", "14 07 37 00"}));
}

TEST(PerfWithTheEditor, ABarAtItsEndStaysSilent) {
  PerfDesk desk({{19, 1}, {59, 99}});
  desk.OpenEditor();
  ASSERT_TRUE(desk.CanUp(kCutoff));
  desk.Up(kCutoff);
  EXPECT_EQ(desk.Byte(59), 99);
  EXPECT_EQ(desk.Sent(), (Strings{"02 00 01 00", "04 01 37 00"}));
}

TEST(PerfWithTheEditor, AResetBringsBackWhatNoBarCanShow) {
  PerfDesk desk(std::map<std::size_t, int>{{59, 102}});
  desk.OpenEditor();
  desk.Down(kCutoff);
  EXPECT_EQ(desk.Byte(59), 97);
  desk.Reset(kCutoff);
  EXPECT_EQ(desk.Byte(59), 102);
  EXPECT_EQ(desk.Bar("OscHScroll(9)").value(), 99);
}

TEST_F(EditorsTogether, AnEditOfTheEditorClosesThePerformance) {
  desk_.OpenEditor();
  desk_.Up(kCutoff);
  EXPECT_TRUE(desk_.Bar("OscHScroll(9)").UserSet(60));
  EXPECT_EQ(desk_.Perf(), nullptr);
  EXPECT_FALSE(desk_.state().PerfOpen);
  EXPECT_THAT(desk_.program.Boxes(), IsEmpty());
  EXPECT_TRUE(desk_.state().ProgramChanged);
  EXPECT_EQ(desk_.Byte(59), 60);
}

TEST_F(EditorsTogether, ANewNameClosesThePerformance) {
  desk_.OpenEditor();
  EXPECT_TRUE(Box(0).UserType("Other"));
  EXPECT_EQ(desk_.Perf(), nullptr);
  EXPECT_THAT(desk_.Sent(), IsEmpty());
}

// The editor's changes would go with a record that is taken up again.
TEST_F(EditorsTogether, APerformanceStartsFromTheRecordAsItIsBeingEdited) {
  desk_.Perf()->Close();
  desk_.Press("frmPrgUN(1).CommEdit");
  desk_.Bar("OscHScroll(9)").UserSet(77);
  desk_.program.toolkit.Activate(*desk_.Prg(1));
  ASSERT_TRUE(desk_.Press("mnuEditPerf"));
  EXPECT_EQ(desk_.Byte(59), 77);
  EXPECT_EQ(desk_.state().PerfBase[1], 77);
  EXPECT_TRUE(desk_.state().ProgramChanged);
  desk_.Up(kCutoff);
  desk_.Reset(kCutoff);
  EXPECT_EQ(desk_.Byte(59), 77);
}

TEST_F(EditorsTogether, TheEditorOpensOnAPerformanceAsItStands) {
  desk_.Up(kCutoff);
  desk_.OpenEditor();
  EXPECT_EQ(desk_.Byte(59), 55);
  EXPECT_EQ(desk_.Bar("OscHScroll(9)").value(), 55);
  EXPECT_TRUE(desk_.state().ProgramChanged);
  EXPECT_EQ(desk_.Count(kCutoff), "1");
}

TEST_F(EditorsTogether, AnotherProgramIsAskedForOnceAndShownInBoth) {
  desk_.OpenEditor();
  desk_.Up(kCutoff);
  Answer(BoxAnswer::kYes);
  desk_.Click(6);
  EXPECT_THAT(desk_.program.Boxes(), ElementsAre(ShownBox{52, "Edit Program  Bank.prg / Prog 5          ",
                                                          "The Program has changed.\nKeep changes ?"}));
  EXPECT_EQ(At(desk_.Image(), 318 + 172 * 5 + 59), 55);
  EXPECT_EQ(desk_.Editor()->caption(), "Edit Program  Bank.prg / Prog 6          ");
  EXPECT_EQ(desk_.Perf()->caption(), "Performance Edit  Bank.prg / Prog 6          ");
  EXPECT_EQ(desk_.Count(kCutoff), "0");
  EXPECT_FALSE(desk_.state().ProgramChanged);
}

TEST_F(EditorsTogether, TheOneThatClosesLastAsks) {
  desk_.OpenEditor();
  desk_.Up(kCutoff);
  EXPECT_TRUE(desk_.Perf()->UserClose());
  EXPECT_THAT(desk_.program.Boxes(), IsEmpty());
  EXPECT_TRUE(desk_.state().ProgramChanged);
  Answer(BoxAnswer::kCancel);
  EXPECT_FALSE(desk_.Editor()->UserClose());
  EXPECT_EQ(desk_.program.Boxes().size(), 1u);
  Answer(BoxAnswer::kNo);
  EXPECT_TRUE(desk_.Editor()->UserClose());
}

TEST_F(EditorsTogether, TheEditorLeavesItsChangesToAnOpenPerformance) {
  desk_.OpenEditor();
  desk_.Up(kCutoff);
  EXPECT_TRUE(desk_.Editor()->UserClose());
  EXPECT_THAT(desk_.program.Boxes(), IsEmpty());
  Answer(BoxAnswer::kYes);
  EXPECT_TRUE(desk_.Perf()->UserClose());
  EXPECT_EQ(At(desk_.Image(), 318 + 172 * 5 + 59), 55);
}

TEST_F(EditorsTogether, TheBankTakesAllThreeAlongWithOneQuestion) {
  desk_.OpenEditor();
  ClickBox(1);
  desk_.Up(kCutoff);
  Answer(BoxAnswer::kNo);
  EXPECT_TRUE(desk_.Prg(1)->UserClose());
  EXPECT_EQ(desk_.program.Boxes().size(), 1u);
  EXPECT_EQ(desk_.Perf(), nullptr);
  EXPECT_EQ(desk_.Editor(), nullptr);
  EXPECT_EQ(Sounds(), nullptr);
}

// The question comes while all of them are still there.
TEST_F(EditorsTogether, ABankThatStaysKeepsAllThree) {
  desk_.OpenEditor();
  ClickBox(1);
  desk_.Up(kCutoff);
  const ShownBox question{51, "Performance Edit  Bank.prg / Prog 5          ",
                          "The Program has changed.\nSave changes ?"};
  EXPECT_FALSE(desk_.Prg(1)->UserClose()) << "cancelled";
  EXPECT_THAT(desk_.program.Boxes(), ElementsAre(question));
  EXPECT_NE(desk_.Editor(), nullptr);
  EXPECT_NE(desk_.Perf(), nullptr);
  EXPECT_NE(Sounds(), nullptr);
  EXPECT_TRUE(desk_.state().ProgramChanged);
  EXPECT_EQ(desk_.Byte(59), 55);
  EXPECT_EQ(desk_.Count(kCutoff), "1");
  EXPECT_FALSE(desk_.program.Quit()) << "cancelled as well";
  EXPECT_THAT(desk_.program.Boxes(), ElementsAre(question));
  EXPECT_NE(desk_.Editor(), nullptr);
  EXPECT_NE(desk_.Perf(), nullptr);
}

TEST(BankOfBothEditors, ThatIsReadOnlyRefusesToSaveAndKeepsThem) {
  PerfDesk desk({}, true);
  desk.OpenEditor();
  desk.Up(kCutoff);
  desk.program.toolkit.answers.push_back(BoxAnswer::kYes);
  EXPECT_FALSE(desk.Prg(1)->UserClose());
  const std::vector<ShownBox> boxes = desk.program.Boxes();
  ASSERT_EQ(boxes.size(), 2u);
  EXPECT_EQ(boxes[1].text, "Read only file");
  EXPECT_NE(desk.Editor(), nullptr);
  EXPECT_NE(desk.Perf(), nullptr);
  EXPECT_TRUE(desk.state().ProgramChanged);
}

// --- Sounds and the editor ---

TEST_F(EditorsTogether, AClickInABoxShowsItsSoundInTheList) {
  desk_.OpenEditor();
  EXPECT_TRUE(Box(2).UserType("105"));
  desk_.Sent();
  ClickBox(2);
  EXPECT_EQ(desk_.program.toolkit.active_child(), Sounds());
  EXPECT_EQ(List(1).Row(), 0);
  EXPECT_EQ(Box(2).back_colour(), 0xFFFF00u);
  EXPECT_EQ(Box(1).fore_colour(), 0x00FF00u);
  EXPECT_THAT(desk_.Sent(), IsEmpty());
  ClickBox(1);
  EXPECT_EQ(desk_.state().MultisoundTarget, 1);
  EXPECT_EQ(List(4).Row(), 98) << "50 50 is 12850: the bar stops at 518";
}

// 7 is 07 00, 8 is 08 00, 300 is 2C 02.
TEST_F(EditorsTogether, AWalkThroughTheListIsHeardSoundBySound) {
  desk_.OpenEditor();
  ClickBox(2);
  desk_.Sent();
  EXPECT_TRUE(List(0).UserSelect({7}));
  List(0).DefaultKey({ui::Key::kDown, {}});
  EXPECT_TRUE(List(2).UserSelect({90}));
  EXPECT_EQ(desk_.Sent(), (Strings{"02 01 07 00", "02 01 08 00", "02 01 2C 02"}));
  EXPECT_EQ(desk_.Byte(23), 300 - 256);
  EXPECT_EQ(desk_.Byte(24), 1);
  EXPECT_EQ(desk_.Bar("BasVScroll(2)").value(), 300);
  EXPECT_EQ(Box(2).text(), "300            ");
  EXPECT_EQ(desk_.Byte(21), 50);
  desk_.Wait(100);
  EXPECT_THAT(desk_.Sent(), IsEmpty()) << "the list follows in silence";
  EXPECT_NE(desk_.Perf(), nullptr) << "the editor wasn't in front";
}

TEST_F(EditorsTogether, TheListFollowsTheBarBehindTheEditor) {
  desk_.OpenEditor();
  ClickBox(1);
  desk_.Sent();
  EXPECT_TRUE(desk_.Bar("BasVScroll(1)").UserSet(211));
  desk_.Wait(10);
  EXPECT_EQ(List(2).Row(), 1);
  EXPECT_EQ(desk_.program.toolkit.active_child(), desk_.Editor());
  EXPECT_EQ(desk_.Sent(), (Strings{"02 01 53 01"}));
  EXPECT_TRUE(desk_.Bar("BasVScroll(2)").UserSet(5));
  desk_.Wait(10);
  EXPECT_EQ(List(2).Row(), 1) << "the other box doesn't wait";
}

TEST_F(EditorsTogether, AnotherProgramLeavesNoBoxWaiting) {
  desk_.OpenEditor();
  ClickBox(1);
  desk_.Click(6);
  EXPECT_EQ(desk_.state().MultisoundTarget, 0);
  EXPECT_EQ(Box(1).back_colour(), std::nullopt);
  EXPECT_NE(Sounds(), nullptr);
  desk_.Sent();
  EXPECT_TRUE(List(0).UserSelect({3}));
  EXPECT_THAT(desk_.Sent(), IsEmpty());
}

TEST_F(EditorsTogether, TheListGoesWithTheEditorWhateverItsTarget) {
  desk_.OpenEditor();
  desk_.Press("mnuMultisample");
  EXPECT_TRUE(desk_.Editor()->UserClose());
  EXPECT_EQ(Sounds(), nullptr);
}

}  // namespace
}  // namespace zentaline::test
