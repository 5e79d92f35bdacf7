// The buttons that send: the steps with their wait texts and pauses, what is remembered of them, and the search by id
// that presses them one after the other.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/arrangement/arr_desk.h"

namespace zentaline::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr char kNoFormat[] = "box 0 48 \"Opening Song.prg\" \"Data format error\"";

class Send : public ::testing::Test {
 protected:
  void SetUp() override {
    arr_ = ArrBytes({{"One", 5, false, {}}, {"Two", 2, true, {}}});
    desk_.Put("Song.arr", arr_);
  }
  void PutStyles(int groups) { desk_.Put("Song.sty", sty_ = StyBytes(groups)); }
  void OpenSong(bool read_only = false) {
    desk_.Open("Song.arr", read_only);
    desk_.Log();
    desk_.dumps.clear();
  }
  bool Press(const std::string& button) { return desk_.Press("frmArrU(1)." + button); }
  ArrangementState& arrangement() { return desk_.program.app.arrangement; }
  WindowRecord& slot(int number) { return desk_.program.app.core.ArrWindows[static_cast<std::size_t>(number)]; }

  ArrDesk desk_;
  std::string arr_;
  std::string sty_;
};

// --- The arrangement ---

TEST_F(Send, TheArrangementGoesOutAfterTheWaitTextAndTheTwoModes) {
  OpenSong();
  desk_.program.app.midi.GlobalChannel = 4;
  ASSERT_TRUE(Press("CommLoadArr"));
  EXPECT_THAT(desk_.Log(), ElementsAre("wait 0 \"Loading Arrangement\""));
  desk_.Wait(1000);
  EXPECT_THAT(desk_.Log(), ElementsAre("9 mode 06", "9 mode 0A", "9 dump 64 12002", "wait 9 \"\""));
  EXPECT_EQ(desk_.dumps.at(0).substr(0, 5), Hand({0xF0, 0x42, 0x34, 0x4D, 0x64}));
  EXPECT_EQ(desk_.dumps.at(0).back(), '\xF7');
  EXPECT_TRUE(IsSevenBit(desk_.dumps.at(0).substr(1, 12000)));
  EXPECT_EQ(DumpPayload(desk_.dumps.at(0)), arr_.substr(32));
  EXPECT_EQ(desk_.program.app.midi.CurrentMode, 0);
}

TEST_F(Send, ASentFileBecomesTheContentOfSlotNine) {
  OpenSong();
  EXPECT_FALSE(desk_.Enabled("mnuArrU"));
  Press("CommLoadArr");
  desk_.Wait(1000);
  EXPECT_EQ(slot(9).path, desk_.folder.Path("Song"));
  EXPECT_EQ(desk_.Text("mnuArrU"), "Arrangement User (Song.arr)");
  EXPECT_TRUE(desk_.Enabled("mnuArrU"));
  ASSERT_TRUE(desk_.Press("mnuArrU"));
  EXPECT_EQ(desk_.program.Caption(9), "Arr User - Song.arr");
  EXPECT_FALSE(desk_.Enabled("mnuArrU"));
}

TEST_F(Send, AnOpenWindowNineIsLoadedAnewOnTheFile) {
  desk_.Put("Other.arr", ArrBytes({{"Else", 1, false, {}}}));
  OpenSong();
  Press("CommLoadArr");
  desk_.Wait(20);
  desk_.Press("mnuArrU");
  desk_.Open("Other.arr");
  desk_.Log();
  desk_.Press("frmArrU(2).CommLoadArr");
  desk_.Wait(1000);
  const std::vector<std::string> log = desk_.Log();
  EXPECT_THAT(log, ElementsAre("wait 20 \"Loading Arrangement\"", "29 mode 06", "29 mode 0A", "29 dump 64 12002",
                               "wait 29 \"\"", "close 29 frmArrU(9)", "open 29 frmArrU(9) \"Arr User - Other.arr\""));
  EXPECT_EQ(desk_.Rows("frmArrU(9).List1").at(0), "11  Else            ");
  EXPECT_EQ(desk_.program.toolkit.active_child()->FullName(), "frmArrU(2)");
}

TEST_F(Send, AWindowNineThatKeepsItsChangesStaysAsItIs) {
  desk_.Put("Other.arr", ArrBytes({{"Else", 1, false, {}}}));
  OpenSong();
  Press("CommLoadArr");
  desk_.Wait(20);
  desk_.Press("mnuArrU");
  Set(ImageFor(*desk_.program.Arr(9)), 4, 1);
  desk_.Open("Other.arr");
  desk_.program.toolkit.answers = {ui::BoxAnswer::kCancel};
  desk_.Press("frmArrU(2).CommLoadArr");
  desk_.Wait(1000);
  EXPECT_THAT(desk_.program.Boxes(),
              ElementsAre(ShownBox{51, "Arr User - Song.arr", "The file has changed\nSave changes ?"}));
  EXPECT_EQ(desk_.program.Caption(9), "Arr User - Song.arr");
  EXPECT_EQ(desk_.Text("frmMain.LabelArr"), "Other");
}

TEST_F(Send, WindowNineSendsItselfAndChangesNoSlot) {
  OpenSong();
  Press("CommLoadArr");
  desk_.Wait(20);
  desk_.Press("mnuArrU");
  desk_.Log();
  desk_.Press("frmArrU(9).CommLoadArr");
  desk_.Wait(1000);
  EXPECT_THAT(desk_.Log(), ElementsAre("wait 20 \"Loading Arrangement\"", "29 mode 06", "29 mode 0A",
                                       "29 dump 64 12002", "wait 29 \"\""));
}

TEST_F(Send, ASecondPressBeforeTheDumpSendsOnceAtOnce) {
  OpenSong();
  Press("CommLoadArr");
  Press("CommLoadArr");
  desk_.Wait(1000);
  EXPECT_THAT(desk_.Wire(), ElementsAre("0 mode 06", "0 mode 0A", "0 dump 64 12002"));
}

TEST_F(Send, UnsavedChangesReachTheInstrument) {
  OpenSong();
  Set(ImageFor(*desk_.program.Arr(1)), 303 + 164 + 21, 99);
  Press("CommLoadArr");
  desk_.Wait(1000);
  desk_.Log();
  std::string changed = arr_.substr(32);
  Set(changed, 164 + 22, 99);
  EXPECT_EQ(DumpPayload(desk_.dumps.at(0)), changed);
  EXPECT_EQ(desk_.folder.Get("Song.arr"), arr_);
}

// --- The styles ---

TEST_F(Send, EveryStyleGroupGoesOutWithAPauseBehindIt) {
  PutStyles(4);
  OpenSong();
  ASSERT_TRUE(Press("CommLoadSty"));
  desk_.Wait(10000);
  EXPECT_THAT(desk_.Log(), ElementsAre("wait 0 \"Loading Style\"", "20 dump 65 354", "1020 dump 65 720",
                                       "2020 dump 65 1085", "3020 dump 65 1451", "wait 4020 \"\""));
  for (int g = 0; g < 4; ++g) {
    EXPECT_EQ(DumpPayload(desk_.dumps.at(static_cast<std::size_t>(g))), StyGroupPayload(sty_, g)) << g;
  }
  EXPECT_EQ(desk_.Text("frmMain.LabelSty"), "Song");
}

TEST_F(Send, ASecondPressDuringAPauseBringsTheNextGroupForward) {
  PutStyles(3);
  OpenSong();
  Press("CommLoadSty");
  desk_.Wait(300);
  Press("CommLoadSty");
  desk_.Wait(10000);
  EXPECT_THAT(desk_.Wire(), ElementsAre("20 dump 65 354", "300 dump 65 720", "1020 dump 65 1085"));
}

TEST_F(Send, APressAfterTheLastGroupEndsTheStylesAndSendsNothingAnew) {
  PutStyles(1);
  OpenSong();
  desk_.Select(0);
  desk_.Log();
  Press("CommLoadSty");
  desk_.Wait(300);
  Press("CommLoadSty");
  desk_.Wait(10000);
  EXPECT_THAT(desk_.Wire(), ElementsAre("20 dump 65 354", "300 B0 00 00", "300 B0 20 01", "300 C0 00"));
}

TEST_F(Send, APressBeforeTheFirstGroupSendsItAtOnceAndKeepsThePause) {
  PutStyles(2);
  OpenSong();
  Press("CommLoadSty");
  Press("CommLoadSty");
  desk_.Wait(10000);
  EXPECT_THAT(desk_.Wire(), ElementsAre("0 dump 65 354", "1000 dump 65 720"));
}

TEST_F(Send, StylesThatAreAllEmptyOnlyGiveTheFocusBack) {
  desk_.Put("Song.sty", EmptyStyles());
  OpenSong();
  EXPECT_EQ(desk_.Byte(1, 9), 2);
  desk_.Find<ui::TextBox>("frmArrU(1).Text2")->UserFocus();
  EXPECT_TRUE(Press("CommLoadSty"));
  EXPECT_TRUE(desk_.List().HasFocus());
  desk_.Wait(5000);
  EXPECT_THAT(desk_.Log(), IsEmpty());
  EXPECT_EQ(desk_.Text("frmMain.LabelSty"), "");
}

TEST_F(Send, AWindowThatClosesDuringAPauseTakesTheWaitTextWithIt) {
  PutStyles(2);
  OpenSong();
  Press("CommLoadSty");
  desk_.Wait(300);
  desk_.Log();
  desk_.program.Arr(1)->UserClose();
  EXPECT_THAT(desk_.Log(), ElementsAre("wait 300 \"\"", "close 300 frmArrU(1)"));
  desk_.Wait(5000);
  EXPECT_THAT(desk_.Log(), IsEmpty());
}

TEST_F(Send, TheStylesEndWithTheSelectedRow) {
  PutStyles(1);
  OpenSong();
  desk_.List().UserSelect({1});
  desk_.Log();
  Press("CommLoadSty");
  desk_.Wait(5000);
  EXPECT_THAT(desk_.Wire(), ElementsAre("20 dump 65 354", "1020 B0 00 00", "1020 B0 20 01", "1020 C0 01"));
}

// --- The programs ---

TEST_F(Send, TheProgramBankIsReadAndSentAfterTwoShortWaits) {
  const std::string prg = PrgFile();
  desk_.Put("Song.prg", prg);
  OpenSong();
  ASSERT_TRUE(Press("CommLoadPrg"));
  EXPECT_THAT(desk_.Log(), ElementsAre("wait 0 \"Loading Program\""));
  desk_.Wait(5000);
  // The state numbers 7 and 6 are the intervals of the two waits.
  EXPECT_THAT(desk_.Log(), ElementsAre("13 dump 4C 14992", "wait 13 \"\""));
  EXPECT_EQ(DumpPayload(desk_.dumps.at(0)), PrgPayload(prg, false));
  EXPECT_EQ(desk_.Text("frmMain.LabelPrg"), "Song.prg");
  EXPECT_EQ(desk_.Text("mnuPrgU"), "Program F/User (Song.prg)");
  EXPECT_TRUE(desk_.List().HasFocus());
}

TEST_F(Send, LinksOfAPggGoOutWipedAndStayInTheFile) {
  std::string pgg = PrgFile();
  pgg.replace(0, 4, "KPGG");
  PutLink(pgg, 3, 1, 70, "Saw Wave");
  PutLink(pgg, 63, 4, 2, "Room Kit");
  desk_.Put("Song.pgg", pgg);
  OpenSong();
  EXPECT_EQ(desk_.Byte(1, 19), 1);
  Press("CommLoadPrg");
  desk_.Wait(5000);
  desk_.Log();
  EXPECT_EQ(DumpPayload(desk_.dumps.at(0)), PrgPayload(pgg, true));
  EXPECT_EQ(desk_.Text("frmMain.LabelPrg"), "Song.pgg");
  EXPECT_EQ(desk_.Text("mnuPrgU"), "Program F/User (Song.pgg)");
  EXPECT_EQ(desk_.folder.Get("Song.pgg"), pgg);
}

TEST_F(Send, APggWithoutLinksIsStillShownByItsOwnName) {
  std::string pgg = PrgFile();
  pgg.replace(0, 4, "KPGG");
  desk_.Put("Song.pgg", pgg);
  OpenSong();
  Press("CommLoadPrg");
  desk_.Wait(5000);
  EXPECT_EQ(desk_.Text("frmMain.LabelPrg"), "Song.pgg");
  EXPECT_EQ(desk_.Text("mnuPrgU"), "Program F/User (Song.pgg)");
}

TEST_F(Send, TheProgramFileIsReadAtThePress) {
  desk_.Put("Song.prg", PrgFile(1));
  OpenSong();
  const std::string newer = PrgFile(2);
  desk_.Put("Song.prg", newer);
  Press("CommLoadPrg");
  desk_.Wait(5000);
  desk_.Log();
  EXPECT_EQ(DumpPayload(desk_.dumps.at(0)), PrgPayload(newer, false));
}

TEST_F(Send, AProgramFileThatHasGoneEndsTheActionInSilence) {
  desk_.Put("Song.prg", PrgFile());
  OpenSong();
  std::filesystem::remove(desk_.folder.Path("Song.prg"));
  EXPECT_TRUE(Press("CommLoadPrg"));
  desk_.Wait(5000);
  EXPECT_THAT(desk_.Log(), IsEmpty());
  EXPECT_TRUE(desk_.List().HasFocus());
  EXPECT_EQ(desk_.folder.Count(), 3);  // Song.arr, i40Sty and the configuration
}

TEST_F(Send, ADamagedProgramFileShowsItsBoxAndEndsTheAction) {
  desk_.Put("Song.prg", PrgFile());
  OpenSong();
  std::string bad = PrgFile();
  bad[0] = 'k';
  for (const std::string& content : {bad, PrgFile() + "x", PrgFile().substr(1)}) {
    desk_.Put("Song.prg", content);
    EXPECT_TRUE(Press("CommLoadPrg"));
    EXPECT_THAT(desk_.Log(), ElementsAre(kNoFormat));
    EXPECT_EQ(desk_.folder.Get("Song.prg"), content);
  }
  desk_.Wait(5000);
  EXPECT_THAT(desk_.Log(), IsEmpty());
  EXPECT_EQ(desk_.Text("frmMain.LabelPrg"), "");
}

TEST_F(Send, APggUnderTheNameOfAPrgIsRefusedAtThePress) {
  std::string file = PrgFile();
  file.replace(0, 4, "KPGG");
  desk_.Put("Song.prg", file);
  OpenSong();
  EXPECT_TRUE(desk_.Enabled("frmArrU(1).CommLoadPrg"));  // the other reader takes either signature
  Press("CommLoadPrg");
  EXPECT_THAT(desk_.Log(), ElementsAre(kNoFormat));
}

TEST_F(Send, FurtherPressesSendTheProgramsOnce) {
  desk_.Put("Song.prg", PrgFile());
  OpenSong();
  for (int i = 0; i < 3; ++i) Press("CommLoadPrg");
  desk_.Wait(5000);
  EXPECT_THAT(desk_.Wire(), ElementsAre("0 dump 4C 14992"));
}

// --- A program file that is open in a window ---

class SendOpenPrograms : public Send {
 protected:
  void SetUp() override {
    Send::SetUp();
    desk_.Put("Song.prg", prg_ = PrgFile());
    desk_.program.toolkit.files.push_back({false, desk_.folder.Path("Song.prg"), 3, false});
    ASSERT_TRUE(desk_.Press("mnuApriPrg"));
    programs_ = desk_.program.toolkit.active_child();
    OpenSong();
  }
  Bytes& Image() { return ImageFor(*static_cast<ChildWindow*>(programs_)); }

  std::string prg_;
  ui::Form* programs_ = nullptr;
};

TEST_F(SendOpenPrograms, TheWindowsImageGoesOutWithItsUnsavedChanges) {
  Image().replace(318, 7, "Changed");
  prg_.replace(48, 7, "Changed");
  EXPECT_TRUE(Press("CommLoadPrg"));
  EXPECT_THAT(desk_.Log(), ElementsAre("wait 0 \"Loading Program\""));
  desk_.Wait(5000);
  // The state numbers 9 and 8 are the intervals of the two waits.
  EXPECT_THAT(desk_.Log(), ElementsAre("17 dump 4C 14992", "wait 17 \"\""));
  EXPECT_EQ(DumpPayload(desk_.dumps.at(0)), PrgPayload(prg_, false));
  EXPECT_EQ(desk_.Text("frmMain.LabelPrg"), "Song.prg");
}

TEST_F(SendOpenPrograms, ALinkInTheWindowMakesItAPgg) {
  Set(Image(), 19, 1);
  Image().replace(318, 1, Hand({1}));
  prg_.replace(48, 1, Hand({1}));
  Press("CommLoadPrg");
  desk_.Wait(5000);
  desk_.Log();
  EXPECT_EQ(DumpPayload(desk_.dumps.at(0)), PrgPayload(prg_, true));
  EXPECT_EQ(desk_.Text("frmMain.LabelPrg"), "Song.pgg");
}

TEST_F(SendOpenPrograms, AWindowThatClosesBeforeTheSendSendsNothing) {
  Press("CommLoadPrg");
  desk_.Wait(9);
  programs_->UserClose();
  desk_.Log();
  desk_.Wait(5000);
  EXPECT_THAT(desk_.Log(), ElementsAre("wait 17 \"\""));
  EXPECT_EQ(desk_.Text("frmMain.LabelPrg"), "");
}

TEST_F(SendOpenPrograms, PathsAreComparedAsTheyAreStored) {
  desk_.Put("song.arr", arr_);
  desk_.Put("song.prg", PrgFile(9));
  desk_.Open("song.arr");
  desk_.Log();
  desk_.Press("frmArrU(2).CommLoadPrg");
  desk_.Wait(5000);
  desk_.Log();
  EXPECT_EQ(DumpPayload(desk_.dumps.at(0)), PrgPayload(PrgFile(9), false));
}

// --- The modes ---

TEST_F(Send, TheModeButtonsSendTheirModeAndGiveTheFocusBack) {
  OpenSong();
  EXPECT_TRUE(Press("CommSongPlay"));
  EXPECT_THAT(desk_.Log(), ElementsAre("0 mode 06"));
  EXPECT_TRUE(desk_.List().HasFocus());
  EXPECT_EQ(desk_.Text("frmMain.LabelMode"), "SONG PLAY");
  EXPECT_TRUE(Press("CommArrPlay"));
  EXPECT_TRUE(Press("CommArrPlay"));
  EXPECT_THAT(desk_.Log(), ElementsAre("0 mode 0A", "0 mode 0A"));
}

// --- The search by id ---

class Search : public Send {
 protected:
  void Begin(int row) {
    arrangement().FindActive = true;
    arrangement().FindRow = row;
    desk_.Open("Song.arr");
    desk_.dumps.clear();
  }
  Settings& settings() { return desk_.program.app.core.settings; }
};

TEST_F(Search, WithoutOptionsTheRowIsSelectedAndTheSearchEnds) {
  Begin(1);
  EXPECT_EQ(desk_.List().Row(), 1);
  desk_.Wait(5000);
  EXPECT_THAT(desk_.Wire(), ElementsAre("10 B0 00 00", "10 B0 20 01", "10 C0 01"));
  EXPECT_FALSE(arrangement().FindActive);
}

TEST_F(Search, EverythingIsSentInOrderAndTheRowIsPlayedAtTheEnd) {
  PutStyles(2);
  // Two bytes at offset 34 + 8 of record 1: what the search takes for a user program.
  Set(arr_, 32 + 164 + 43, 64);
  Set(arr_, 32 + 164 + 44, 1);
  desk_.Put("Song.arr", arr_);
  desk_.Put("Song.prg", PrgFile());
  settings().CaricaArr = settings().CaricaSty = settings().CaricaPrg = true;
  Begin(1);
  EXPECT_TRUE(arrangement().FindNeedsPrg);
  EXPECT_TRUE(arrangement().FindUserStyle);
  desk_.Wait(20000);
  const std::vector<std::string> wire = desk_.Wire();
  std::vector<std::string> dumps;
  for (const std::string& line : wire) {
    if (line.find("dump") != std::string::npos) dumps.push_back(line.substr(line.find("dump"), 7));
  }
  EXPECT_THAT(dumps, ElementsAre("dump 64", "dump 65", "dump 65", "dump 4C"));
  EXPECT_THAT(wire.back(), ::testing::EndsWith(" C0 01"));
  EXPECT_FALSE(arrangement().FindActive);
  EXPECT_EQ(desk_.Text("frmMain.LabelPrg"), "Song.prg");
  desk_.Wait(20000);
  EXPECT_THAT(desk_.Wire(), IsEmpty());
}

TEST_F(Search, ProgramsAreWantedByBytesFromSixtyFourToAHundredAndTwentySevenBeforeAOne) {
  struct Case {
    int row;
    int offset;
    int first;
    int second;
    bool wanted;
  };
  for (const Case& c : {Case{0, 34, 64, 1, true}, Case{0, 34, 127, 1, true}, Case{0, 34 + 64, 100, 1, true},
                        Case{0, 34, 63, 1, false}, Case{0, 34, 128, 1, false}, Case{0, 34, 64, 0, false},
                        Case{0, 34 + 72, 64, 1, false}, Case{0, 39, 64, 1, false}, Case{1, 34, 64, 1, false}}) {
    std::string file = ArrBytes({{"One", 5, false, {}}, {"Two", 2, true, {}}});
    const std::size_t place = 33 + 164 * static_cast<std::size_t>(c.row) + static_cast<std::size_t>(c.offset);
    Set(file, place, c.first);
    Set(file, place + 1, c.second);
    desk_.Put("Song.arr", file);
    Begin(0);
    EXPECT_EQ(arrangement().FindNeedsPrg, c.wanted) << c.row << " " << c.offset << " " << c.first;
    EXPECT_FALSE(arrangement().FindUserStyle);
    desk_.program.Arr(1)->UserClose();
  }
}

TEST_F(Search, WhatIsMissingOnTheWayDoesNotHoldItUp) {
  settings().CaricaSty = settings().CaricaPrg = true;
  Set(arr_, 32 + 164 + 35, 64);
  Set(arr_, 32 + 164 + 36, 1);
  desk_.Put("Song.arr", arr_);
  Begin(1);
  desk_.Wait(5000);
  EXPECT_FALSE(arrangement().FindActive);
  EXPECT_THAT(desk_.Wire().back(), ::testing::EndsWith(" C0 01"));
}

TEST_F(Search, TheStepIsTheIntervalItStandsAt) {
  PutStyles(1);
  desk_.Put("Song.prg", PrgFile());
  OpenSong();
  desk_.Select(1);
  const auto at = [this](int interval) {
    desk_.Wait(20000);
    desk_.Log();
    arrangement().ArrInInstrument = desk_.program.app.style.StyInInstrument = "";
    desk_.program.app.program.PrgInInstrument = "";
    arrangement().FindActive = arrangement().FindUserStyle = arrangement().FindNeedsPrg = true;
    settings().CaricaArr = settings().CaricaSty = settings().CaricaPrg = true;
    auto* timer = desk_.Find<ui::Timer>("frmArrU(1).TimerFindID");
    timer->SetInterval(interval);
    timer->Start();
    desk_.Wait(interval + 30);
    const std::vector<std::string> log = desk_.Log();
    return log.empty() ? std::string() : log.front().substr(log.front().find('"'));
  };
  EXPECT_EQ(at(10), "\"Loading Arrangement\"");
  EXPECT_EQ(at(20), "\"Loading Style\"");
  EXPECT_EQ(at(800), "\"Loading Style\"");
  EXPECT_EQ(at(820), "\"Loading Style\"");
  EXPECT_EQ(at(30), "\"Loading Program\"");
}

}  // namespace
}  // namespace zentaline::test
