// The windows of new arrangement files: made in memory, filled from elsewhere, sent, and saved under a name that is
// asked for.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "arrangement/api.h"
#include "tests/arrangement/arr_desk.h"
#include "tests/support/config.h"

namespace zentaline::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class NewFile : public ::testing::Test {
 protected:
  static std::string In(const std::string& control, int number = 1) {
    return "frmArrNew(" + std::to_string(number) + ")." + control;
  }
  ChildWindow* Window(int number = 1) { return desk_.program.app.new_arr_windows[static_cast<std::size_t>(number)]; }
  // As a paste leaves it: records, and styles with the state 2.
  void Fill(const std::vector<Arr>& arrangements, const std::string& styles = {}, int number = 1) {
    Bytes& image = ImageFor(*Window(number));
    for (std::size_t i = 0; i < arrangements.size(); ++i) image.replace(302 + 164 * i, 164, ArrRecord(arrangements[i]));
    Set(image, 4, 1);
    if (!styles.empty()) {
      image.replace(42622, std::string::npos, styles);
      Set(image, 9, 2);
    }
    ArrRecordsChanged(*Window(number));
    Window(number)->Activated();
  }
  bool Select(int row, int number = 1) { return desk_.Find<ui::ListBox>(In("List1", number))->UserSelect({row}); }
  void SaveAs(const std::string& name) { desk_.program.toolkit.files = {{false, desk_.folder.Path(name), 1, false}}; }
  Settings& settings() { return desk_.program.app.core.settings; }

  ArrDesk desk_;
};

TEST_F(NewFile, ANewWindowHasSixtyFourLabelsAndNothingToSend) {
  ASSERT_TRUE(desk_.Press("mnuNuovoArr"));
  EXPECT_THAT(desk_.Log(), ElementsAre("open 0 frmArrNew(1) \"New File Arr - Untitled.arr (1)\""));
  const std::vector<std::string> rows = desk_.Rows(In("List1"));
  ASSERT_EQ(rows.size(), 64U);
  EXPECT_EQ(rows[0], "11");
  EXPECT_EQ(rows[7], "18");
  EXPECT_EQ(rows[8], "21");
  EXPECT_EQ(rows[63], "88");
  for (const char* entry : {"mnuLoadArr", "mnuLoadSty", "mnuSalva", "mnuSalvaAs"}) EXPECT_FALSE(desk_.Enabled(entry));
  EXPECT_FALSE(desk_.Enabled(In("CommLoadArr")));
  EXPECT_FALSE(desk_.Enabled(In("CommLoadSty")));
  EXPECT_TRUE(desk_.Enabled("mnuIngrandisci"));
  EXPECT_EQ(desk_.Text(In("Label1")), "Style");
}

TEST_F(NewFile, TheImageHasTheHeaderSixtyFourZeroRecordsAndTheEmptyStyles) {
  desk_.Press("mnuNuovoArr");
  desk_.Press("mnuNuovoArr");
  std::string control = Zeros(20);
  for (const auto& [position, value] :
       std::initializer_list<std::pair<std::size_t, int>>{{1, 20}, {3, 2}, {9, 1}, {10, 1}, {15, 2}, {18, 1}}) {
    Set(control, position, value);
  }
  std::string file = "KORG" + Hand({0x4D, 0, 3, 1}) + Zeros(10520);
  Set(file, 17, 0x14);
  Set(file, 22, 0x01);
  Set(file, 24, 0x28);
  Set(file, 26, 0x1D);
  const Bytes& image = Window(2)->window_image();
  EXPECT_EQ(image.substr(0, 20), control);
  EXPECT_EQ(image.substr(20, 250), Field(desk_.folder.Path("Untitled2"), 250));
  EXPECT_EQ(image.substr(270, 10528), file);
  EXPECT_EQ(image.substr(10798, 42), "11" + Zeros(1) + Blanks(18) + "12" + Zeros(1) + Blanks(18));
  EXPECT_EQ(image.substr(12142, 30480), Blanks(30480));
  EXPECT_EQ(image.substr(42622, 4), "KORG");
}

TEST_F(NewFile, EightWindowsCanBeOpenAndTheEntryIsOffMeanwhile) {
  for (int number = 1; number <= 8; ++number) {
    EXPECT_TRUE(desk_.Press("mnuNuovoArr")) << number;
    EXPECT_EQ(Window(number)->caption(), "New File Arr - Untitled.arr (" + std::to_string(number) + ")");
  }
  EXPECT_FALSE(desk_.Press("mnuNuovoArr"));
  EXPECT_EQ(desk_.program.app.core.OpenChildCount, 8);
  EXPECT_TRUE(desk_.Press(In("CommClose", 3)));
  EXPECT_TRUE(desk_.Press("mnuNuovoArr"));
  EXPECT_NE(Window(3), nullptr);
  EXPECT_FALSE(desk_.Enabled("mnuNuovoArr"));
}

TEST_F(NewFile, NoneIsKeptForTheNextStart) {
  desk_.Press("mnuNuovoArr");
  ASSERT_TRUE(desk_.program.Quit());
  TestProgram next(desk_.folder);
  ASSERT_TRUE(next.Start());
  EXPECT_EQ(next.app.core.OpenChildCount, 0);
  EXPECT_TRUE(next.Boxes().empty());
}

TEST_F(NewFile, RecordsThatComeInKeepTheLabelsTheSelectionAndTheFocusRow) {
  desk_.Press("mnuNuovoArr");
  desk_.Find<ui::ListBox>(In("List1"))->UserSelect({0, 5});
  Fill({{"One", 5, false, {}}, {"Two", 2, true, {}}}, StyBytes(1));
  const std::vector<std::string> rows = desk_.Rows(In("List1"));
  EXPECT_EQ(rows[0], "11  One             ");
  EXPECT_EQ(rows[1], "12 +Two             ");
  EXPECT_EQ(rows[2], "13");
  EXPECT_THAT(desk_.Find<ui::ListBox>(In("List1"))->SelectedRows(), ElementsAre(0, 5));
  EXPECT_EQ(desk_.Find<ui::ListBox>(In("List1"))->focus_row(), 5);
  for (const char* entry : {"mnuLoadArr", "mnuLoadSty", "mnuSalva", "mnuSalvaAs"}) EXPECT_TRUE(desk_.Enabled(entry));
}

// --- A click ---

TEST_F(NewFile, AnEmptyRowClearsTheStyleAndSendsNothing) {
  desk_.Press("mnuNuovoArr");
  Fill({{"One", 5, false, {}}});
  Select(0);
  EXPECT_EQ(desk_.Text(In("Combo1")), "8 Beat Rock (A16)");
  desk_.Log();
  Select(1);
  EXPECT_EQ(desk_.Text(In("Combo1")), "");
  EXPECT_THAT(desk_.Log(), IsEmpty());
}

TEST_F(NewFile, WithoutOptionsAClickOnlySelects) {
  desk_.Press("mnuNuovoArr");
  Fill({{"One", 5, false, {}}, {"Two", 2, true, {}}}, StyBytes(1));
  desk_.Log();
  Select(1);
  desk_.Wait(5000);
  EXPECT_THAT(desk_.Log(), ElementsAre("0 B0 00 00", "0 B0 20 01", "0 C0 01"));
  EXPECT_EQ(desk_.Text(In("Combo1")), "Style 2 (U13)");
}

TEST_F(NewFile, AClickSendsTheArrangementsThenTheStylesThenSelects) {
  settings().CaricaArr = settings().CaricaStyNuovoArr = true;
  desk_.Press("mnuNuovoArr");
  const std::string styles = StyBytes(2);
  Fill({{"One", 5, false, {}}, {"Two", 2, true, {}}}, styles);
  desk_.Log();
  Select(1);
  desk_.Wait(20000);
  // No modes go out in front, and the styles end with a selection of their own.
  EXPECT_THAT(desk_.Wire(), ElementsAre("9 dump 64 12002", "40 dump 65 354", "840 dump 65 720", "1640 B0 00 00",
                                        "1640 B0 20 01", "1640 C0 01", "1652 B0 00 00", "1652 B0 20 01", "1652 C0 01"));
  EXPECT_EQ(DumpPayload(desk_.dumps.at(1)), StyGroupPayload(styles, 0));
  EXPECT_EQ(desk_.Text("frmMain.LabelArr"), "Untitled1");
  EXPECT_EQ(desk_.Text("frmMain.LabelSty"), "Untitled1");
  EXPECT_FALSE(desk_.Enabled("mnuArrU")) << "it doesn't become the file of the instrument's own window";
  Select(0);
  EXPECT_THAT(desk_.Wire(), ElementsAre("20000 B0 00 00", "20000 B0 20 01", "20000 C0 00"));
}

TEST_F(NewFile, EitherOptionSendsTheStylesOnAClickOfAUserStyle) {
  struct Case {
    bool sty;
    bool new_arr;
    std::size_t dumps;
  };
  int number = 0;
  for (const Case& c : {Case{false, false, 0}, Case{true, false, 1}, Case{false, true, 1}, Case{true, true, 1}}) {
    settings().CaricaSty = c.sty;
    settings().CaricaStyNuovoArr = c.new_arr;
    desk_.Press("mnuNuovoArr");
    ++number;
    Fill({{"One", 5, false, {}}, {"Two", 2, true, {}}}, StyBytes(1), number);
    desk_.dumps.clear();
    Select(0, number);
    desk_.Wait(5000);
    desk_.Log();
    EXPECT_EQ(desk_.dumps.size(), 0U) << "a factory style needs none";
    Select(1, number);
    desk_.Wait(5000);
    desk_.Log();
    EXPECT_EQ(desk_.dumps.size(), c.dumps) << number;
  }
}

TEST_F(NewFile, AClickThatWaitsForStylesGoesOnWithoutThem) {
  settings().CaricaSty = true;
  desk_.Press("mnuNuovoArr");
  // The template's styles are empty, so that there is nothing to send.
  Fill({{"One", 1, true, {}}});
  desk_.Log();
  Select(0);
  desk_.Wait(5000);
  EXPECT_THAT(desk_.Wire(), ElementsAre("12 B0 00 00", "12 B0 20 01", "12 C0 00"));
}

TEST_F(NewFile, ARowBeforeAPauseOfTheStylesCanBePressedOn) {
  desk_.Press("mnuNuovoArr");
  Fill({{"One", 1, true, {}}}, StyBytes(3));
  desk_.Log();
  ASSERT_TRUE(desk_.Press(In("CommLoadSty")));
  desk_.Wait(300);
  desk_.Press(In("CommLoadSty"));
  desk_.Wait(20000);
  EXPECT_THAT(desk_.Wire(), ElementsAre("20 dump 65 354", "300 dump 65 720", "1100 dump 65 1085"));
}

TEST_F(NewFile, TheMenuSendsAsTheButtonsDo) {
  desk_.Press("mnuNuovoArr");
  Fill({{"One", 1, true, {}}}, StyBytes(1));
  desk_.Log();
  ASSERT_TRUE(desk_.Press("mnuLoadArr"));
  desk_.Wait(100);
  EXPECT_THAT(desk_.Log(), ElementsAre("wait 10 \"Loading Arrangement\"", "19 dump 64 12002", "wait 19 \"\""));
  ASSERT_TRUE(desk_.Press("mnuLoadSty"));
  desk_.Wait(5000);
  EXPECT_THAT(desk_.Log(), ElementsAre("wait 110 \"Loading Style\"", "130 dump 65 354", "wait 930 \"\""));
}

TEST_F(NewFile, AWindowThatClosesDuringASendTakesTheWaitTextWithIt) {
  desk_.Press("mnuNuovoArr");
  Fill({{"One", 1, true, {}}}, StyBytes(2));
  desk_.Press(In("CommLoadSty"));
  desk_.Wait(300);
  desk_.Log();
  desk_.program.toolkit.answers = {ui::BoxAnswer::kNo};
  desk_.Press(In("CommClose"));
  EXPECT_EQ(desk_.Text("frmMain.Label1"), "");
  desk_.Wait(5000);
  EXPECT_THAT(desk_.Wire(), IsEmpty());
}

// --- Saving and closing ---

TEST_F(NewFile, AListWithoutRowsClosesWithoutAQuestionWhateverHappenedInIt) {
  desk_.Press("mnuNuovoArr");
  Set(ImageFor(*Window()), 4, 1);
  EXPECT_TRUE(desk_.Press(In("CommClose")));
  EXPECT_EQ(Window(), nullptr);
  EXPECT_TRUE(desk_.program.Boxes().empty());
}

TEST_F(NewFile, AnUnchangedListWithRowsClosesWithoutAQuestion) {
  desk_.Press("mnuNuovoArr");
  Fill({{"One", 1, false, {}}});
  Set(ImageFor(*Window()), 4, 0);
  EXPECT_TRUE(desk_.Press(In("CommClose")));
  EXPECT_TRUE(desk_.program.Boxes().empty());
}

TEST_F(NewFile, EachAnswerAtTheClosingDoesItsPart) {
  desk_.Press("mnuNuovoArr");
  Fill({{"One", 1, false, {}}});
  desk_.program.toolkit.answers = {ui::BoxAnswer::kCancel};
  desk_.Press(In("CommClose"));
  ASSERT_NE(Window(), nullptr);
  EXPECT_THAT(desk_.program.Boxes(),
              ElementsAre(ShownBox{51, "New File Arr - Untitled.arr (1)", "The file has changed\nSave changes ?"}));
  // Yes, but the dialog is cancelled: the window stays.
  desk_.program.toolkit.answers = {ui::BoxAnswer::kYes};
  desk_.program.toolkit.files.clear();
  desk_.Press(In("CommClose"));
  ASSERT_NE(Window(), nullptr);
  EXPECT_EQ(desk_.program.toolkit.dialogs.back().name, "Untitled.arr");
  desk_.program.toolkit.answers = {ui::BoxAnswer::kYes};
  SaveAs("Song.arr");
  desk_.Press(In("CommClose"));
  EXPECT_EQ(Window(), nullptr);
  std::string saved = "KORG" + Hand({0x4D, 0, 3, 1}) + Zeros(24) + ArrRecord({"One", 1, false, {}}) + Zeros(63 * 164);
  Set(saved, 17, 0x14);
  Set(saved, 22, 0x01);
  Set(saved, 24, 0x28);
  Set(saved, 26, 0x1D);
  EXPECT_EQ(desk_.folder.Get("Song.arr"), saved);
  EXPECT_FALSE(std::filesystem::exists(desk_.folder.Path("Song.sty")));
  EXPECT_THAT(desk_.Text("mnuRecentFile(0)"), ::testing::EndsWith("Song.arr"));
  // No loses it.
  desk_.Press("mnuNuovoArr");
  Fill({{"One", 1, false, {}}});
  desk_.program.toolkit.answers = {ui::BoxAnswer::kNo};
  desk_.Press(In("CommClose"));
  EXPECT_EQ(Window(), nullptr);
}

TEST_F(NewFile, ASavedWindowStaysOpenWithItsNumberAndTakesPathTitleAndStyles) {
  desk_.Press("mnuNuovoArr");
  const std::string styles = StyBytes(1);
  Fill({{"One", 1, true, {}}}, styles);
  Set(ImageFor(*Window()), 10, 0);
  SaveAs("Song.arr");
  ASSERT_TRUE(desk_.Press("mnuSalva"));
  EXPECT_EQ(Window()->caption(), "New File Arr - Song.arr (1)");
  EXPECT_EQ(Window()->window_image().substr(20, 250), Field(desk_.folder.Path("Song"), 250));
  EXPECT_EQ(At(Window()->window_image(), 1), 20);
  for (const std::size_t position : {4U, 10U, 18U}) EXPECT_EQ(At(Window()->window_image(), position), 0) << position;
  EXPECT_EQ(desk_.folder.Get("Song.sty"), styles);
  EXPECT_FALSE(desk_.Enabled("mnuSalva"));
  // From now on it is saved without a question, its styles with it.
  Fill({{"New", 1, true, {}}});
  std::filesystem::remove(desk_.folder.Path("Song.sty"));
  const std::size_t dialogs = desk_.program.toolkit.dialogs.size();
  ASSERT_TRUE(desk_.Press("mnuSalva"));
  EXPECT_EQ(desk_.program.toolkit.dialogs.size(), dialogs);
  EXPECT_EQ(desk_.folder.Get("Song.arr").substr(32, 16), Field("New", 16));
  EXPECT_EQ(desk_.folder.Get("Song.sty"), styles);
  // Its file is open now, so that it isn't opened twice.
  desk_.Open("Song.arr");
  EXPECT_EQ(desk_.program.Boxes().back(), (ShownBox{48, "Song.arr", "File already open"}));
  // And its own slot of the file windows is nobody's.
  EXPECT_EQ(desk_.program.app.core.ArrWindows[1].state, 0);
}

TEST_F(NewFile, TheEmptyStylesSetAStyleFileOfThatNameAside) {
  desk_.Put("Song.sty", StyBytes(1));
  desk_.Press("mnuNuovoArr");
  Fill({{"One", 1, false, {}}});
  SaveAs("Song.arr");
  ASSERT_TRUE(desk_.Press("mnuSalva"));
  EXPECT_FALSE(std::filesystem::exists(desk_.folder.Path("Song.sty")));
  EXPECT_EQ(desk_.folder.Get("Song.sty.bak"), StyBytes(1));
}

TEST_F(NewFile, AFailedSaveLeavesTheWindowNewAndChanged) {
  desk_.Press("mnuNuovoArr");
  Fill({{"One", 1, false, {}}});
  SaveAs("Song.arr");
  desk_.program.disk.Fail("write", "ENOSPC");
  desk_.Press("mnuSalva");
  EXPECT_EQ(desk_.program.Boxes().size(), 1U);
  EXPECT_EQ(Window()->caption(), "New File Arr - Untitled.arr (1)");
  EXPECT_EQ(At(Window()->window_image(), 4), 1);
  EXPECT_FALSE(std::filesystem::exists(desk_.folder.Path("Song.arr")));
}

TEST_F(NewFile, TheNameOfAnOpenFileIsRefused) {
  desk_.Put("Song.arr", ArrBytes({{"Kept", 1, false, {}}}));
  desk_.Open("Song.arr");
  desk_.Press("mnuNuovoArr");
  Fill({{"One", 1, false, {}}});
  SaveAs("Song.arr");
  desk_.Press("mnuSalvaAs");
  EXPECT_EQ(desk_.program.Boxes().back(), (ShownBox{48, "Song.arr", "File already open"}));
  EXPECT_EQ(desk_.folder.Get("Song.arr"), ArrBytes({{"Kept", 1, false, {}}}));
}

// Without a template position 18 is 0; a file of that very name in the folder is another one all the same.
TEST(NewFileWithoutTemplate, IsStillNeverSavedAndAsksForAName) {
  ArrDesk desk(false);
  std::filesystem::remove(desk.folder.Path("i40Sty"));
  desk.Put("Untitled1.arr", ArrBytes({{"Other", 1, false, {}}}));
  desk.Start();
  desk.Press("mnuNuovoArr");
  ChildWindow* window = desk.program.app.new_arr_windows[1];
  for (const std::size_t position : {9U, 10U, 18U}) EXPECT_EQ(At(window->window_image(), position), 0) << position;
  EXPECT_EQ(window->window_image().size(), 42622U);
  desk.Open("Untitled1.arr");
  EXPECT_NE(desk.program.Arr(1), nullptr);
  ImageFor(*window).replace(302, 164, ArrRecord({"One", 1, false, {}}));
  Set(ImageFor(*window), 4, 1);
  ArrRecordsChanged(*window);
  desk.program.toolkit.Activate(*window);
  desk.program.toolkit.files = {{false, desk.folder.Path("Song.arr"), 1, false}};
  ASSERT_TRUE(desk.Press("mnuSalva"));
  EXPECT_EQ(desk.program.toolkit.dialogs.back().name, "Untitled.arr");
  EXPECT_EQ(window->caption(), "New File Arr - Song.arr (1)");
  EXPECT_EQ(desk.folder.Get("Untitled1.arr"), ArrBytes({{"Other", 1, false, {}}}));
}

}  // namespace
}  // namespace zentaline::test
