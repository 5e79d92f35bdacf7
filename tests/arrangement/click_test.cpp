// A click on a row: what goes out, in which order and when, by the automatic options and by what the instrument holds.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/arrangement/arr_desk.h"

namespace zentaline::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// A window on Song.arr: row 0 with factory style 5, row 1 with the user's style 2, row 2 with factory style 70, row 3
// with an all-blank name, row 4 never written.
class Click : public ::testing::Test {
 protected:
  void SetUp() override {
    arr_ = ArrBytes({{"One", 5, false, {}}, {"Two", 2, true, {}}, {"Three", 70, false, {}}, {" ", 3, false, {}}});
    desk_.Put("Song.arr", arr_);
  }
  void PutStyles(int groups) { desk_.Put("Song.sty", sty_ = StyBytes(groups)); }
  void OpenSong() {
    desk_.Open("Song.arr");
    desk_.Log();
    desk_.dumps.clear();
  }
  CoreState& core() { return desk_.program.app.core; }

  ArrDesk desk_;
  std::string arr_;
  std::string sty_;
};

TEST_F(Click, WithoutOptionsSendsNothingButTheSelectionAtOnce) {
  OpenSong();
  desk_.Select(0);
  EXPECT_THAT(desk_.Log(), ElementsAre("0 B0 00 00", "0 B0 20 01", "0 C0 00"));
  desk_.Select(2);
  EXPECT_THAT(desk_.Log(), ElementsAre("0 B0 00 00", "0 B0 20 01", "0 C0 02"));
  desk_.Wait(5000);
  EXPECT_THAT(desk_.Log(), IsEmpty());
}

TEST_F(Click, TheSelectionGoesToTheChannelOfArrangements) {
  desk_.program.app.midi.ArrChannel = 15;
  desk_.program.app.midi.GlobalChannel = 3;
  OpenSong();
  desk_.Select(1);
  EXPECT_THAT(desk_.Log(), ElementsAre("0 BF 00 00", "0 BF 20 01", "0 CF 01"));
}

TEST_F(Click, TheSameRowAgainSelectsAgain) {
  OpenSong();
  desk_.Select(0);
  desk_.Log();
  desk_.Select(0);
  EXPECT_THAT(desk_.Log(), ElementsAre("0 B0 00 00", "0 B0 20 01", "0 C0 00"));
}

TEST_F(Click, AnotherModeIsLeftForArrPlayFirst) {
  OpenSong();
  desk_.Press("mnuSongPlay");
  desk_.Log();
  desk_.Select(0);
  EXPECT_THAT(desk_.Log(), ElementsAre("0 mode 0A", "0 B0 00 00", "0 B0 20 01", "0 C0 00"));
  EXPECT_EQ(desk_.Text("frmMain.LabelMode"), "ARR PLAY");
}

TEST_F(Click, TheFileGoesOutFirstWhenTheInstrumentHoldsAnother) {
  core().settings.CaricaArr = true;
  OpenSong();
  desk_.Select(2);
  EXPECT_THAT(desk_.Log(), ElementsAre("wait 0 \"Loading Arrangement\""));
  EXPECT_EQ(desk_.Text("frmMain.Label1"), "Loading Arrangement");
  desk_.Wait(8);
  EXPECT_THAT(desk_.Log(), IsEmpty());
  EXPECT_EQ(desk_.Text("frmMain.LabelArr"), "");
  desk_.Wait(1);
  EXPECT_THAT(desk_.Log(), ElementsAre("9 mode 06", "9 mode 0A", "9 dump 64 12002", "wait 9 \"\""));
  EXPECT_EQ(DumpPayload(desk_.dumps.at(0)), arr_.substr(32));
  EXPECT_EQ(desk_.Text("frmMain.LabelArr"), "Song");
  desk_.Wait(10);
  EXPECT_THAT(desk_.Log(), IsEmpty());
  desk_.Wait(1);
  EXPECT_THAT(desk_.Log(), ElementsAre("20 B0 00 00", "20 B0 20 01", "20 C0 02"));
  desk_.Select(0);
  EXPECT_THAT(desk_.Log(), ElementsAre("20 B0 00 00", "20 B0 20 01", "20 C0 00"));
}

TEST_F(Click, AFileThatTheInstrumentHoldsIsNotSentAgain) {
  core().settings.CaricaArr = true;
  desk_.program.app.arrangement.ArrInInstrument = "Song";
  OpenSong();
  desk_.Select(0);
  EXPECT_THAT(desk_.Log(), ElementsAre("0 B0 00 00", "0 B0 20 01", "0 C0 00"));
}

TEST_F(Click, ALongNameCountsUpToItsTwentyFourthCharacter) {
  const std::string name = "A name of thirty letters, abcd";
  desk_.Put(name + ".arr", arr_);
  core().settings.CaricaArr = true;
  desk_.Open(name + ".arr");
  desk_.Select(0);
  desk_.Wait(100);
  EXPECT_EQ(desk_.Text("frmMain.LabelArr"), "A name of thirty letters");
  desk_.Log();
  desk_.Select(2);
  EXPECT_THAT(desk_.Log(), ElementsAre("100 B0 00 00", "100 B0 20 01", "100 C0 02"));
}

TEST_F(Click, AUserStyleSendsTheStylesFirst) {
  core().settings.CaricaSty = true;
  PutStyles(1);
  OpenSong();
  desk_.Select(1);
  EXPECT_THAT(desk_.Log(), ElementsAre("wait 0 \"Loading Style\""));
  desk_.Wait(20);
  // 24 bytes of descriptors and 40 + 60 + 80 + 100 of styles; 304 + 44 on the wire, and the frame of 6.
  EXPECT_THAT(desk_.Log(), ElementsAre("20 dump 65 354"));
  EXPECT_EQ(DumpPayload(desk_.dumps.at(0)), StyGroupPayload(sty_, 0));
  EXPECT_EQ(desk_.Text("frmMain.LabelSty"), "");
  desk_.Wait(999);
  EXPECT_THAT(desk_.Log(), IsEmpty());
  desk_.Wait(1);
  EXPECT_THAT(desk_.Log(), ElementsAre("wait 1020 \"\"", "1020 B0 00 00", "1020 B0 20 01", "1020 C0 01"));
  EXPECT_EQ(desk_.Text("frmMain.LabelSty"), "Song");
  desk_.Wait(5000);
  EXPECT_THAT(desk_.Log(), ElementsAre("1032 B0 00 00", "1032 B0 20 01", "1032 C0 01"));
  desk_.Select(1);
  EXPECT_THAT(desk_.Log(), ElementsAre("6020 B0 00 00", "6020 B0 20 01", "6020 C0 01"));
}

TEST_F(Click, AFactoryStyleSendsNoStyles) {
  core().settings.CaricaSty = true;
  PutStyles(4);
  OpenSong();
  desk_.Select(0);
  desk_.Wait(5000);
  EXPECT_THAT(desk_.Log(), ElementsAre("0 B0 00 00", "0 B0 20 01", "0 C0 00"));
}

TEST_F(Click, FileThenStyleGroupsWithPausesThenTheSelection) {
  core().settings.CaricaArr = core().settings.CaricaSty = true;
  PutStyles(3);
  OpenSong();
  desk_.Select(1);
  desk_.Wait(10000);
  EXPECT_THAT(desk_.Log(),
              ElementsAre("wait 0 \"Loading Arrangement\"", "9 mode 06", "9 mode 0A", "9 dump 64 12002", "wait 9 \"\"",
                          // The list goes on 11 milliseconds later, finds the user's style, and waits 20.
                          "wait 20 \"Loading Style\"", "40 dump 65 354", "1040 dump 65 720", "2040 dump 65 1085",
                          "wait 3040 \"\"", "3040 B0 00 00", "3040 B0 20 01", "3040 C0 01",  //
                          "3052 B0 00 00", "3052 B0 20 01", "3052 C0 01"));
  ASSERT_EQ(desk_.dumps.size(), 4U);
  for (int g = 0; g < 3; ++g) {
    EXPECT_EQ(DumpPayload(desk_.dumps[static_cast<std::size_t>(g) + 1]), StyGroupPayload(sty_, g)) << g;
  }
}

TEST_F(Click, TheProgramsNeverGoOutByAClick) {
  core().settings.CaricaArr = core().settings.CaricaSty = core().settings.CaricaPrg = true;
  desk_.Put("Song.prg", PrgFile());
  OpenSong();
  desk_.Select(0);
  desk_.Wait(5000);
  EXPECT_THAT(desk_.Wire(), ElementsAre("9 mode 06", "9 mode 0A", "9 dump 64 12002",  //
                                        "20 B0 00 00", "20 B0 20 01", "20 C0 00"));
}

// Without styles to send the click goes on to its selection: a row that can be clicked is played.
TEST_F(Click, AUserStyleWithoutStylesIsSelectedAllTheSame) {
  core().settings.CaricaSty = true;
  OpenSong();
  EXPECT_EQ(desk_.Byte(1, 9), 1);
  desk_.Select(1);
  desk_.Wait(100);
  EXPECT_THAT(desk_.Log(), ElementsAre("12 B0 00 00", "12 B0 20 01", "12 C0 01"));
  desk_.Select(0);
  EXPECT_EQ(desk_.Text("frmArrU(1).Combo1"), "8 Beat Rock (A16)");
}

TEST_F(Click, AGroupWithAnEmptyStyleEndsTheStyles) {
  core().settings.CaricaSty = true;
  sty_ = StyBytes(3);
  // Entry 6, of the second group, has size 0.
  Set(sty_, 25 + 24, 0);
  Set(sty_, 26 + 24, 0);
  desk_.Put("Song.sty", sty_);
  OpenSong();
  desk_.Select(1);
  desk_.Wait(10000);
  EXPECT_THAT(desk_.Log(), ElementsAre("wait 0 \"Loading Style\"", "20 dump 65 354", "wait 1020 \"\"", "1020 B0 00 00",
                                       "1020 B0 20 01", "1020 C0 01", "1032 B0 00 00", "1032 B0 20 01", "1032 C0 01"));
  EXPECT_EQ(desk_.Text("frmMain.LabelSty"), "Song");
}

TEST_F(Click, AnEmptyRowClearsWhatIsShownAndSendsNothing) {
  core().settings.CaricaArr = true;
  desk_.program.app.arrangement.ArrInInstrument = "Song";
  OpenSong();
  desk_.Select(0);
  desk_.Log();
  EXPECT_EQ(desk_.Text("frmArrU(1).Combo1"), "8 Beat Rock (A16)");
  for (const int row : {4, 63, 3}) {
    desk_.Select(0);
    desk_.Log();
    desk_.Select(row);
    EXPECT_THAT(desk_.Log(), IsEmpty()) << row;
    EXPECT_EQ(desk_.Text("frmArrU(1).Combo1"), "") << row;
    EXPECT_EQ(desk_.Text("frmArrU(1).Text1"), "") << row;
    EXPECT_EQ(desk_.Text("frmArrU(1).Text2"), "") << row;
  }
}

TEST_F(Click, WithTheOutputClosedEverythingLooksSent) {
  core().settings.CaricaArr = core().settings.CaricaSty = true;
  PutStyles(1);
  desk_.Press("mnuDevMIDIOut(0)");
  OpenSong();
  desk_.Select(1);
  desk_.Wait(5000);
  EXPECT_THAT(desk_.Log(), ElementsAre("wait 0 \"Loading Arrangement\"", "wait 9 \"\"", "wait 20 \"Loading Style\"",
                                       "wait 1040 \"\""));
  EXPECT_EQ(desk_.Text("frmMain.LabelArr"), "Song");
  EXPECT_EQ(desk_.Text("frmMain.LabelSty"), "Song");
}

TEST_F(Click, AFailedDumpShowsOneBoxAndTheSelectionStillGoesOut) {
  core().settings.CaricaArr = true;
  OpenSong();
  desk_.program.midi.Fail("midiOutLongMsg", 11, 0);
  desk_.Select(0);
  desk_.Wait(100);
  EXPECT_THAT(desk_.Log(),
              ElementsAre("wait 0 \"Loading Arrangement\"", "failed 9 midiOutLongMsg -> 11",
                          "box 9 48 \"Zentaline - Zentaline Console v 4.0 \" \"Error accessing MIDI output device "
                          "(Cod Err: 211)\"",
                          "wait 9 \"\"", "20 B0 00 00", "20 B0 20 01", "20 C0 00"));
  EXPECT_EQ(desk_.Text("frmMain.LabelArr"), "Song");
}

TEST_F(Click, TwoRowsInOneSelectionPlayTheOneWithTheFocus) {
  OpenSong();
  desk_.List().UserSelect({0, 2});
  EXPECT_THAT(desk_.Log(), ElementsAre("0 B0 00 00", "0 B0 20 01", "0 C0 02"));
}

TEST_F(Click, NothingHappensWhileTheListIsBusyOrNoRowIsSelected) {
  OpenSong();
  desk_.program.app.core.ListBusy = true;
  desk_.Select(0);
  EXPECT_THAT(desk_.Log(), IsEmpty());
  desk_.program.app.core.ListBusy = false;
  desk_.List().UserSelect({});
  desk_.List().Click();
  EXPECT_THAT(desk_.Log(), IsEmpty());
}

TEST_F(Click, EveryTimerPressesItsButton) {
  PutStyles(1);
  desk_.Put("Song.prg", PrgFile());
  OpenSong();
  desk_.Select(0);
  desk_.Log();
  const auto fire = [this](const std::string& timer) {
    desk_.Log();
    const std::int64_t begin = desk_.program.toolkit.Now();
    desk_.Find<ui::Timer>("frmArrU(1)." + timer)->Start();
    desk_.Wait(10);
    std::string first;
    for (const std::string& line : desk_.Log()) {
      if (first.empty()) first = line.substr(0, line.find(' ')) == "wait" ? line.substr(line.find('"')) : line;
    }
    desk_.Wait(5000 - (desk_.program.toolkit.Now() - begin));
    return first;
  };
  EXPECT_EQ(fire("TimerLoadArr"), "\"Loading Arrangement\"");
  EXPECT_EQ(fire("TimerCaricaArr"), "\"Loading Arrangement\"");
  EXPECT_EQ(fire("TimerLoadSty"), "\"Loading Style\"");
  EXPECT_EQ(fire("TimerCaricaSty"), "\"Loading Style\"");
  EXPECT_EQ(fire("TimerTxSty(0)"), "\"Loading Style\"");
  EXPECT_EQ(fire("TimerTxSty(1)"), "");  // a pause of 1000 milliseconds by now
  EXPECT_EQ(fire("Timer(2)"), "\"Loading Style\"");
  EXPECT_EQ(fire("Timer(4)"), "\"Update i40DBArr\"");
  EXPECT_EQ(fire("Timer(0)"), "40010 B0 00 00");
  EXPECT_EQ(fire("TimerList1"), "45010 B0 00 00");
  for (const char* timer : {"TimerLoadPrg", "TimerCaricaPrg", "Timer(3)"}) {
    desk_.Log();
    desk_.Find<ui::Timer>(std::string("frmArrU(1).") + timer)->Start();
    desk_.Wait(5000);
    EXPECT_THAT(desk_.Wire(), ElementsAre(::testing::EndsWith(" dump 4C 14992"))) << timer;
  }
  for (const char* timer : {"TimerShowSty", "TimerShowPrg", "TimerEdit"}) {
    desk_.Find<ui::Timer>(std::string("frmArrU(1).") + timer)->Start();
  }
  desk_.Wait(100);
  EXPECT_NE(desk_.program.Arr(1), nullptr);
  desk_.Find<ui::Timer>("frmArrU(1).Timer5")->Start();
  desk_.Wait(10);
  EXPECT_EQ(desk_.program.Arr(1), nullptr);
}

TEST_F(Click, AnotherRowWhileTheStylesGoOutIsSelectedAndPlayedAtTheEnd) {
  core().settings.CaricaSty = true;
  PutStyles(2);
  OpenSong();
  desk_.Select(1);
  desk_.Wait(500);
  desk_.Log();
  desk_.Select(2);
  EXPECT_THAT(desk_.Log(), ElementsAre("500 B0 00 00", "500 B0 20 01", "500 C0 02", "wait 500 \"\""));
  desk_.Wait(5000);
  EXPECT_THAT(desk_.Log(), ElementsAre("wait 1020 \"Loading Style\"", "1020 dump 65 720", "wait 2020 \"\"",
                                       "2020 B0 00 00", "2020 B0 20 01", "2020 C0 02"));
}

}  // namespace
}  // namespace zentaline::test
