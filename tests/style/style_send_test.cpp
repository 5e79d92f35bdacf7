// How the styles reach the instrument from their windows, how an arrangement window shows its style file, and how a
// click gives a style to the arrangement editor.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/style/style_desk.h"

namespace zentaline::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class StyleSend : public ::testing::Test {
 protected:
  void OpenSong(const std::string& sty) {
    desk_.Put("Song.sty", sty_ = sty);
    desk_.OpenSty("Song.sty");
    desk_.Log();
    desk_.dumps.clear();
  }
  bool Press(const std::string& button) { return desk_.Press("frmStyUN(1)." + button); }
  std::string Label() { return desk_.Text("frmMain.LabelSty"); }

  StyDesk desk_;
  std::string sty_;
};

TEST_F(StyleSend, AllGroupsGoOutWithEightHundredMillisecondsBehindEach) {
  OpenSong(StyBytes(4));
  ASSERT_TRUE(Press("CommLoadSty"));
  EXPECT_THAT(desk_.Log(), ElementsAre("wait 0 \"Loading Style\""));
  desk_.Wait(10000);
  EXPECT_THAT(desk_.Log(), ElementsAre("20 dump 65 354", "820 dump 65 720", "1620 dump 65 1085", "2420 dump 65 1451",
                                       "wait 3220 \"\"", "3220 B0 00 00", "3220 B0 20 01", "3220 C0 00"));
  for (int g = 0; g < 4; ++g) {
    EXPECT_EQ(DumpPayload(desk_.dumps.at(static_cast<std::size_t>(g))), StyGroupPayload(sty_, g)) << g;
  }
  EXPECT_EQ(Label(), "Song");
  EXPECT_EQ(desk_.program.app.style.StyInInstrument, "Song");
}

TEST_F(StyleSend, TheFirstGroupThatIsMissingEndsTheSending) {
  OpenSong(StyBytes(2));
  Press("CommLoadSty");
  desk_.Wait(10000);
  EXPECT_THAT(desk_.Log(), ElementsAre("wait 0 \"Loading Style\"", "20 dump 65 354", "820 dump 65 720",
                                       "wait 1620 \"\"", "1620 B0 00 00", "1620 B0 20 01", "1620 C0 00"));
}

TEST_F(StyleSend, ANewFileSendsItsOneGroupAndCallsUpTheFirstUserArrangement) {
  desk_.Press("mnuNuovoSty");
  desk_.Log();
  desk_.Press("frmStyUN(n1).CommLoadSty");
  desk_.Wait(10000);
  EXPECT_THAT(desk_.Wire(), ElementsAre("20 dump 65 5410", "820 B0 00 00", "820 B0 20 01", "820 C0 00"));
  EXPECT_EQ(DumpPayload(desk_.dumps.at(0)), StyGroupPayload(EmptyStyles(), 0));
  EXPECT_EQ(Label(), "Untitled (1)");
}

TEST_F(StyleSend, AFileWithoutStylesSendsNoGroupAndStillEnds) {
  OpenSong(StyImage({}));
  Press("CommLoadSty");
  desk_.Wait(10000);
  EXPECT_THAT(desk_.Log(),
              ElementsAre("wait 0 \"Loading Style\"", "wait 20 \"\"", "20 B0 00 00", "20 B0 20 01", "20 C0 00"));
  EXPECT_EQ(Label(), "Song");
}

TEST_F(StyleSend, AMissingStyleInTheMiddleOfAGroupStopsBeforeThatGroup) {
  std::string sty = StyBytes(4);
  Set(sty, 25 + 4 * 6, 0);  // entry 6
  OpenSong(sty);
  Press("CommLoadSty");
  desk_.Wait(10000);
  EXPECT_THAT(desk_.Wire(), ElementsAre("20 dump 65 354", "820 B0 00 00", "820 B0 20 01", "820 C0 00"));
}

TEST_F(StyleSend, APressDuringThePauseOnlyBringsTheNextGroupForward) {
  OpenSong(StyBytes(3));
  Press("CommLoadSty");
  desk_.Wait(300);
  Press("CommLoadSty");
  desk_.Wait(10000);
  EXPECT_THAT(desk_.Wire(), ElementsAre("20 dump 65 354", "300 dump 65 720", "820 dump 65 1085", "1620 B0 00 00",
                                        "1620 B0 20 01", "1620 C0 00"));
}

TEST_F(StyleSend, ALyingTableSendsZerosForWhatIsNotThere) {
  std::string sty = StyImage({{"One", 40}, {"Two", 50}, {"Three", 60}, {"Four", 70}});
  for (std::size_t e = 0; e < 16; ++e) {
    Set(sty, 25 + 4 * e, 0xFF);
    Set(sty, 26 + 4 * e, 0xFF);
  }
  OpenSong(sty);
  Press("CommLoadStyGrp(0)");
  desk_.Wait(100);
  desk_.Log();
  // 24 descriptors and four times 65535 bytes, seven in eight, between five bytes and the end mark.
  ASSERT_EQ(desk_.dumps.size(), 1U);
  const std::string payload = DumpPayload(desk_.dumps.at(0));
  ASSERT_EQ(payload.size(), 24U + 4 * 65535);
  EXPECT_EQ(payload.substr(24, 220), sty.substr(224));
  EXPECT_EQ(payload.substr(244), Zeros(4 * 65535 - 220));
}

TEST_F(StyleSend, OneGroupGoesOutAfterItsWaitTextAndNothingFollows) {
  OpenSong(StyBytes(4));
  for (int g = 0; g < 4; ++g) {
    desk_.dumps.clear();
    const std::int64_t now = desk_.program.toolkit.Now();
    ASSERT_TRUE(Press("CommLoadStyGrp(" + std::to_string(g) + ")"));
    desk_.Wait(1000);
    const std::string due = std::to_string(now + 11);
    const std::vector<std::string> log = desk_.Log();
    ASSERT_EQ(log.size(), 3U) << g;
    EXPECT_EQ(log[0], "wait " + std::to_string(now) + " \"Loading Style\"");
    EXPECT_TRUE(log[1].starts_with(due + " dump 65 ")) << log[1];
    EXPECT_EQ(log[2], "wait " + due + " \"\"");
    EXPECT_EQ(DumpPayload(desk_.dumps.at(0)), StyGroupPayload(sty_, g)) << g;
  }
  EXPECT_EQ(Label(), "");
}

TEST_F(StyleSend, AGroupWithAMissingStyleEndsInSilence) {
  OpenSong(StyImage({{"One", 40}, {"Two", 50}, {"", 0}, {"Four", 70}}));
  ASSERT_TRUE(Press("CommLoadStyGrp(0)"));
  desk_.Wait(1000);
  EXPECT_THAT(desk_.Log(), ElementsAre("wait 0 \"Loading Style\"", "wait 11 \"\""));
}

TEST_F(StyleSend, TwoClicksOnAGroupRunTwoCycles) {
  OpenSong(StyBytes(1));
  Press("CommLoadStyGrp(0)");
  Press("CommLoadStyGrp(0)");
  desk_.Wait(1000);
  // The second click is the second half of the first cycle; the timer that still runs begins the other one.
  EXPECT_THAT(desk_.Log(), ElementsAre("wait 0 \"Loading Style\"", "0 dump 65 354", "wait 0 \"\"",
                                       "wait 10 \"Loading Style\"", "21 dump 65 354", "wait 21 \"\""));
}

TEST_F(StyleSend, TheMenuSendsTheGroupOfTheRowWithTheFocus) {
  OpenSong(StyBytes(4));
  int due = 0;
  for (const auto& [row, length] : {std::pair{0, 354}, {3, 354}, {5, 720}, {13, 1085}, {18, 1451}}) {
    desk_.SelectIn("frmStyUN(1)", row);
    ASSERT_TRUE(desk_.Press("mnuLoadSty")) << row;
    desk_.Wait(1000);
    // The menu's timer presses the button, whose own wait follows.
    EXPECT_THAT(desk_.Wire(), ElementsAre(std::to_string(due + 21) + " dump 65 " + std::to_string(length))) << row;
    due += 1000;
  }
}

TEST_F(StyleSend, OfSeveralRowsTheOneWithTheFocusNamesTheGroup) {
  OpenSong(StyBytes(4));
  desk_.Find<ui::ListBox>("frmStyUN(1).List1")->UserSelect({0, 1, 15});
  desk_.Press("mnuLoadSty");
  desk_.Wait(1000);
  EXPECT_THAT(desk_.Wire(), ElementsAre("21 dump 65 1451"));
}

TEST_F(StyleSend, WithoutAnOutputTheLabelsChangeAllTheSame) {
  desk_.Press("mnuDevMIDIOut(0)");
  OpenSong(StyBytes(1));
  Press("CommLoadSty");
  desk_.Wait(5000);
  EXPECT_THAT(desk_.Log(), ElementsAre("wait 0 \"Loading Style\"", "wait 820 \"\""));
  EXPECT_EQ(Label(), "Song");
}

TEST_F(StyleSend, OfALongNameTheFirstTwentyFourCharactersAreShown) {
  desk_.Put("A name that is really much too long.sty", StyBytes(1));
  desk_.OpenSty("A name that is really much too long.sty");
  Press("CommLoadSty");
  desk_.Wait(5000);
  EXPECT_EQ(Label(), "A name that is really mu");
}

TEST_F(StyleSend, AWindowThatClosesMeanwhileTakesTheRestWithIt) {
  OpenSong(StyBytes(4));
  Press("CommLoadSty");
  desk_.Wait(100);
  desk_.Log();
  desk_.CloseForm("frmStyUN(1)");
  EXPECT_THAT(desk_.Log(), ElementsAre("wait 100 \"\"", "close 100 frmStyUN(1)"));
  desk_.Wait(10000);
  EXPECT_THAT(desk_.Log(), IsEmpty());
  EXPECT_EQ(Label(), "");
}

// --- From the arrangement window ---

class ShowStyles : public StyleSend {
 protected:
  void OpenArr(bool styles) {
    desk_.Put("Song.arr", ArrBytes({{"One", 0, true, {}}, {"Two", 5, false, {}}}));
    if (styles) desk_.Put("Song.sty", StyBytes(4));
    desk_.Open("Song.arr");
    desk_.Log();
  }
};

TEST_F(ShowStyles, TheButtonOpensTheStyleFileOfTheSameName) {
  OpenArr(true);
  ASSERT_TRUE(desk_.Press("frmArrU(1).CommShowSty"));
  EXPECT_THAT(desk_.Log(), ElementsAre("open 0 frmStyUN(1) \"File Sty - Song.sty (1)\""));
  EXPECT_EQ(desk_.program.app.core.RecentFiles[1], (RecentFile{desk_.folder.Path("Song"), 2, false}));
}

TEST_F(ShowStyles, AWindowThatIsOpenComesToTheFront) {
  OpenArr(true);
  desk_.Press("frmArrU(1).CommShowSty");
  desk_.program.Arr(1)->UserActivate();
  desk_.Log();
  desk_.Press("frmArrU(1).CommShowSty");
  EXPECT_THAT(desk_.Log(), IsEmpty());
  EXPECT_EQ(desk_.program.toolkit.active_child()->FullName(), "frmStyUN(1)");
}

TEST_F(ShowStyles, TheMenuEntryPressesTheButton) {
  OpenArr(true);
  EXPECT_TRUE(desk_.Enabled("mnuShowSty"));
  ASSERT_TRUE(desk_.Press("mnuShowSty"));
  EXPECT_THAT(desk_.Log(), IsEmpty());
  desk_.Wait(10);
  EXPECT_THAT(desk_.Log(), ElementsAre("open 10 frmStyUN(1) \"File Sty - Song.sty (1)\""));
}

TEST_F(ShowStyles, WithoutAStyleFileThereIsNothingToShow) {
  OpenArr(false);
  EXPECT_FALSE(desk_.Enabled("frmArrU(1).CommShowSty"));
  EXPECT_FALSE(desk_.Enabled("mnuShowSty"));
}

TEST_F(ShowStyles, AStyleFileThatHasGoneIsTold) {
  OpenArr(true);
  std::filesystem::remove(desk_.folder.Path("Song.sty"));
  desk_.Press("frmArrU(1).CommShowSty");
  EXPECT_THAT(desk_.program.Boxes(), ElementsAre(ShownBox{48, "Opening Song.sty", "File not found"}));
  EXPECT_EQ(desk_.Sty(1), nullptr);
}

// --- To the arrangement editor ---

class PickAStyle : public ShowStyles {
 protected:
  void OpenEditor(bool armed) {
    OpenArr(true);
    desk_.Select(1);
    ASSERT_TRUE(desk_.Press("frmArrU(1).CommEdit"));
    if (armed) Arm();
  }
  void Arm() {
    auto* box = desk_.Find<ui::TextBox>("frmEditArr.Text1(1)");
    box->UserMouse({ui::MouseEvent::kDown, 0, 0, false});
    box->UserMouse({ui::MouseEvent::kUp, 0, 0, false});
    ASSERT_TRUE(desk_.program.app.arrangement.ArrStyleArmed);
    FlagFor(desk_.program.app.arrangement.EditorChanged) = false;
  }
  const std::string& record() { return desk_.program.app.arrangement.ArrEditRecord; }
  bool changed() { return desk_.program.app.arrangement.EditorChanged; }
  std::string Picked() {
    return std::to_string(At(record(), 18)) + " " + std::to_string(At(record(), 19)) + " " +
           desk_.Text("frmEditArr.Label(1)") + " " + desk_.Text("frmEditArr.Text1(1)");
  }
};

TEST_F(PickAStyle, AClickInAFileWindowGivesTheUsersStyle) {
  OpenEditor(true);
  desk_.Press("frmArrU(1).CommShowSty");
  desk_.SelectIn("frmStyUN(1)", 11);
  // Row 11 is the tenth style: entry 9, number 22 on the panel.
  EXPECT_EQ(Picked(), "9 1 Style (U22) Style 9");
  EXPECT_TRUE(changed());
}

TEST_F(PickAStyle, AClickInABankGivesTheFactoryStyle) {
  OpenEditor(true);
  desk_.Press("mnuStyB");
  desk_.SelectIn("frmStyAB(18)", 9);
  const std::string name = desk_.Rows("frmStyAB(18).List1").at(9).substr(4);
  EXPECT_EQ(Picked(), "73 0 Style (B22) " + name);
  EXPECT_TRUE(changed());
}

TEST_F(PickAStyle, NothingIsPickedWhileTheStyleIsNotArmed) {
  OpenEditor(false);
  FlagFor(desk_.program.app.arrangement.EditorChanged) = false;
  const std::string before = record();
  desk_.Press("mnuStyA");
  desk_.SelectIn("frmStyAB(17)", 9);
  EXPECT_EQ(record(), before);
  EXPECT_FALSE(changed());
}

TEST_F(PickAStyle, AGapRowAndANewFilePickNothing) {
  OpenEditor(true);
  const std::string before = record();
  desk_.Press("frmArrU(1).CommShowSty");
  for (const int gap : {4, 9, 14}) desk_.SelectIn("frmStyUN(1)", gap);
  desk_.Press("mnuNuovoSty");
  desk_.SelectIn("frmStyUN(n1)", 0);
  EXPECT_EQ(record(), before);
  EXPECT_FALSE(changed());
}

TEST_F(PickAStyle, WithoutAnEditorAClickChangesNoArrangement) {
  OpenArr(true);
  const std::string before = desk_.program.Arr(1)->window_image();
  desk_.Press("frmArrU(1).CommShowSty");
  desk_.Press("mnuStyA");
  desk_.SelectIn("frmStyUN(1)", 2);
  desk_.SelectIn("frmStyAB(17)", 2);
  EXPECT_EQ(desk_.program.Arr(1)->window_image(), before);
}

}  // namespace
}  // namespace zentaline::test
