// A bank on its way to the instrument.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/program/prg_desk.h"

namespace zentaline::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// 13112 bytes as 7 in 8 between header and end: 5 + 14986 + 1.
constexpr char kDump[] = " dump 4C 14992";

class BankSend : public ::testing::Test {
 protected:
  void Load(int number = 1) { desk_.Press(PrgDesk::Of(number, "CommLoad")); }
  std::string Payload() { return Unpack7(desk_.dumps.back().substr(5, desk_.dumps.back().size() - 6)); }
  const WindowRecord& Slot(int number) { return desk_.program.app.core.PrgWindows[static_cast<std::size_t>(number)]; }

  PrgDesk desk_;
};

TEST_F(BankSend, TheWaitTextComesFirstThenTheWholeBank) {
  const std::string file = Bank();
  desk_.OpenBank(file);
  Load();
  EXPECT_THAT(desk_.Log(), ElementsAre("wait 0 \"Loading Program\""));
  desk_.Wait(100);
  EXPECT_THAT(desk_.Log(), ElementsAre(std::string("9") + kDump, "wait 9 \"\""));
  EXPECT_EQ(Payload(), PrgPayload(file, false));
  EXPECT_EQ(desk_.Text("LabelPrg"), "Bank.prg");
  EXPECT_EQ(desk_.state().PrgInInstrument, "Bank");
  desk_.Wait(1000);
  EXPECT_THAT(desk_.Log(), IsEmpty()) << "it is sent once";
}

TEST_F(BankSend, TheMenuEntrySendsItToo) {
  desk_.OpenBank(Bank());
  desk_.Press("mnuLoadPrg");
  desk_.Wait(100);
  EXPECT_THAT(desk_.Wire(), ElementsAre(std::string("19") + kDump));
}

TEST_F(BankSend, APressWhileTheWaitTextStandsSendsAtOnceAndNotAgain) {
  desk_.OpenBank(Bank());
  Load();
  Load();
  desk_.Wait(1000);
  EXPECT_THAT(desk_.Wire(), ElementsAre(std::string("0") + kDump));
}

TEST_F(BankSend, AWindowThatClosesWhileTheWaitTextStandsSendsNothingAndTakesTheTextAway) {
  desk_.OpenBank(Bank());
  Load();
  EXPECT_EQ(desk_.program.app.main->Label1.caption(), "Loading Program");
  desk_.program.toolkit.FindForm("frmPrgUN(1)")->Close();
  EXPECT_EQ(desk_.program.app.main->Label1.caption(), "");
  desk_.Wait(1000);
  EXPECT_TRUE(desk_.Wire().empty());
}

TEST_F(BankSend, TheInstrumentGoesBackToTheModeItWasIn) {
  desk_.OpenBank(Bank());
  struct Mode {
    int mode;
    const char* message;
  };
  for (const Mode& mode : {Mode{1, "04"}, Mode{2, "05"}, Mode{3, "03"}, Mode{4, "02"}}) {
    SendMode(desk_.program.app, mode.mode);
    const std::vector<std::string> sent = desk_.Wire();
    ASSERT_EQ(sent.size(), 1u);
    const std::string there = sent[0].substr(sent[0].find(' '));
    const std::int64_t now = desk_.program.toolkit.Now();
    Load();
    desk_.Wait(9);
    const std::string start = std::to_string(now);
    const std::string end = std::to_string(now + 9);
    EXPECT_THAT(desk_.Wire(), ElementsAre(start + " mode 0A", end + kDump, end + there)) << mode.mode;
    EXPECT_EQ(desk_.program.app.midi.CurrentMode, mode.mode);
  }
  SendModeArrPlay(desk_.program.app);
  desk_.Wire();
  Load();
  desk_.Wait(9);
  EXPECT_EQ(desk_.Wire().size(), 1u) << "in Arr Play it is there already";
}

TEST_F(BankSend, LinksAreWipedInWhatIsSentOnly) {
  std::string file = Bank();
  file.replace(0, 4, "KPGG");
  PutLink(file, 3, 1, 70, "Small^Orch");
  PutLink(file, 60, 4, 2, "Room Kit");
  desk_.OpenBank(file, "Links.pgg");
  EXPECT_EQ(desk_.Caption(1), "File Prg - Links.pgg (1) - MIDI Channel 1");
  Load();
  desk_.Wait(10);
  EXPECT_EQ(desk_.dumps.size(), 0u);
  EXPECT_EQ(desk_.Wire().size(), 1u);
  EXPECT_EQ(Payload(), PrgPayload(file, true));
  EXPECT_EQ(desk_.Image().substr(270, 30480), file);
  EXPECT_EQ(desk_.Text("LabelPrg"), "Links.pgg");
}

TEST_F(BankSend, TheMonitorShowsTheDumpAndIsOffAfterwards) {
  desk_.OpenBank(Bank());
  std::vector<std::size_t> lengths;
  desk_.program.app.midi.Monitor = [&lengths](std::string_view line) { lengths.push_back(line.size()); };
  desk_.program.app.midi.MonitorOn = false;
  Load();
  desk_.Wait(10);
  EXPECT_THAT(lengths, ElementsAre(0u, 14992u));
  EXPECT_FALSE(desk_.program.app.midi.MonitorOn);
}

TEST_F(BankSend, WithoutAPortEverythingLooksSent) {
  desk_.OpenBank(Bank());
  desk_.Press("mnuDevMIDIOut(0)");
  desk_.Log();
  Load();
  desk_.Wait(10);
  EXPECT_THAT(desk_.Wire(), IsEmpty());
  EXPECT_EQ(desk_.Text("LabelPrg"), "Bank.prg");
}

TEST_F(BankSend, AutomaticSelectionSendsTheBankFirstAndOnlyOnce) {
  desk_.OpenBank(Bank(2));
  desk_.Press("mnuAutoPrgSel");
  desk_.Click(20);
  EXPECT_THAT(desk_.Wire(), IsEmpty());
  desk_.Wait(100);
  const std::vector<std::string> selection = Selection(18, 2, 3, 20);
  EXPECT_THAT(desk_.Wire(), ElementsAre(std::string("9") + kDump, selection[0], selection[1], selection[2]));
  desk_.Click(21);
  EXPECT_EQ(desk_.Wire(), Selection(100, 2, 3, 21)) << "the instrument has the bank now";
  desk_.Put("Other.prg", Bank(2, 2));
  desk_.OpenPrg("Other.prg");
  desk_.Log();
  desk_.Click(0, 2);
  desk_.Wait(100);
  EXPECT_EQ(desk_.Wire().size(), 4u) << "another bank goes out in its turn";
}

TEST_F(BankSend, ANameOfMoreThanTwentyFourBytesIsShownWhole) {
  desk_.OpenBank(Bank(), "A name of more than twenty-four.prg");
  Load();
  desk_.Wait(100);
  EXPECT_EQ(desk_.program.app.main->LabelPrg.caption(), "A name of more than twenty-four.prg");
}

TEST_F(BankSend, LongNamesAreComparedAsFarAsTheyAreKept) {
  const std::string name = "A name of more than the fifty bytes that are kept of it";
  desk_.OpenBank(Bank(), name + ".prg");
  desk_.Press("mnuAutoPrgSel");
  desk_.Click(0);
  desk_.Wait(100);
  EXPECT_EQ(desk_.state().PrgInInstrument, name.substr(0, 50));
  desk_.Wire();
  desk_.Click(1);
  EXPECT_EQ(desk_.Wire().size(), 3u);
}

TEST_F(BankSend, TheInstrumentsOwnEntryTakesTheFile) {
  EXPECT_FALSE(desk_.Enabled("mnuPrgU"));
  std::string file = Bank();
  file.replace(0, 4, "KPGG");
  PutLink(file, 0, 0, 1, "Piano 2");
  desk_.OpenBank(file, "Links.pgg");
  Load();
  desk_.Wait(10);
  EXPECT_TRUE(desk_.Enabled("mnuPrgU"));
  EXPECT_EQ(desk_.Text("mnuPrgU"), "Program F/User (Links.pgg)");
  EXPECT_EQ(Slot(9).path, desk_.folder.Path("Links"));
  EXPECT_EQ(Slot(9).pgg, 1);
  desk_.Press("mnuPrgU");
  EXPECT_EQ(desk_.Caption(9), "Prg F/User - Links.pgg - MIDI Channel 1");
  EXPECT_EQ(desk_.Control(9, 15), 9);
  EXPECT_FALSE(desk_.Enabled("mnuPrgU")) << "while the window is open";
  EXPECT_EQ(desk_.Rows(9).RowText(0), "11 *Piano 2         ");
  desk_.Prg(9)->UserClose();
  EXPECT_TRUE(desk_.Enabled("mnuPrgU"));
}

TEST_F(BankSend, AnOpenUserWindowShowsWhatWasSentAndStaysBehind) {
  desk_.OpenBank(Bank(), "One.prg");
  Load();
  desk_.Wait(10);
  desk_.Press("mnuPrgU");
  desk_.Put("Two.prg", Bank(3));
  desk_.OpenPrg("Two.prg");
  Load(2);
  desk_.Wait(10);
  EXPECT_EQ(desk_.Caption(9), "Prg F/User - Two.prg - MIDI Channel 4");
  EXPECT_EQ(desk_.program.toolkit.active_child(), desk_.Prg(2));
  desk_.Log();
  Load(9);
  desk_.Wait(10);
  EXPECT_EQ(desk_.Wire().size(), 1u);
  EXPECT_NE(desk_.Prg(9), nullptr) << "its own sending leaves it as it is";
}

TEST_F(BankSend, AUserWindowThatKeepsItsChangesStays) {
  desk_.OpenBank(Bank(), "One.prg");
  Load();
  desk_.Wait(10);
  desk_.Press("mnuPrgU");
  desk_.Change(9);
  desk_.Put("Two.prg", Bank(3));
  desk_.OpenPrg("Two.prg");
  desk_.program.toolkit.answers = {ui::BoxAnswer::kCancel};
  Load(2);
  desk_.Wait(10);
  EXPECT_EQ(desk_.Caption(9), "Prg F/User - One.prg - MIDI Channel 1");
  EXPECT_EQ(Slot(9).path, desk_.folder.Path("One"));
}

TEST_F(BankSend, TheUserWindowRemembersItsCurrentProgramByTheLetterP) {
  desk_.OpenBank(Bank());
  Load();
  desk_.Wait(10);
  desk_.Key("frmPrgUN(1).List1", {ui::Key::kCharacter, "p"});
  desk_.Press("mnuPrgU");
  desk_.Click(7, 1);
  desk_.Key("frmPrgUN(1).List1", {ui::Key::kCharacter, "P"});
  EXPECT_EQ(desk_.state().UserProgram, -1) << "in window 9 alone";
  for (const auto& [row, letter] : {std::pair{5, "p"}, std::pair{17, "P"}}) {
    desk_.Click(row, 9);
    desk_.Key("frmPrgUN(9).List1", {ui::Key::kCharacter, letter});
    EXPECT_EQ(desk_.state().UserProgram, row);
  }
  desk_.Click(30, 9);
  desk_.Prg(9)->UserClose();
  desk_.Log();
  desk_.Press("mnuPrgU");
  EXPECT_EQ(desk_.Rows(9).Row(), 17);
  EXPECT_THAT(desk_.Wire(), IsEmpty());
}

// --- From an arrangement window ---

class ArrPrograms : public BankSend {
 protected:
  void OpenSong() {
    desk_.Put("Song.arr", ArrBytes({{"One", 5, false, {}}}));
    desk_.ArrDesk::Open("Song.arr");
    desk_.Log();
  }
};

TEST_F(ArrPrograms, ShowProgOpensTheFileOfTheSameNameOnce) {
  desk_.Put("Song.pgg", "KPGG" + Bank().substr(4));
  OpenSong();
  ASSERT_TRUE(desk_.Press("frmArrU(1).CommShowPrg"));
  EXPECT_EQ(desk_.Caption(1), "File Prg - Song.prg (1) - MIDI Channel 1") << "no links, so it will be saved as .prg";
  desk_.program.toolkit.Activate(*desk_.program.Arr(1));
  desk_.Press("mnuShowPrg");
  desk_.Wait(20);
  EXPECT_EQ(desk_.program.toolkit.active_child(), desk_.Prg(1));
  EXPECT_EQ(desk_.Prg(2), nullptr);
}

TEST_F(ArrPrograms, ShowProgTakesASignatureThatBelongsToTheExtensionOnly) {
  desk_.Put("Song.pgg", Bank());
  OpenSong();
  desk_.Press("frmArrU(1).CommShowPrg");
  EXPECT_EQ(desk_.Prg(1), nullptr);
  EXPECT_THAT(desk_.program.Boxes(), ElementsAre(ShownBox{48, "Opening Song.pgg", "Data format error"}));
}

TEST_F(ArrPrograms, WithoutAProgramFileThereIsNothingToShow) {
  OpenSong();
  EXPECT_FALSE(desk_.Enabled("frmArrU(1).CommShowPrg"));
  EXPECT_FALSE(desk_.Enabled("mnuShowPrg"));
}

TEST_F(ArrPrograms, AFileThatHasGoneMeanwhileIsNotFound) {
  desk_.Put("Song.prg", Bank());
  OpenSong();
  desk_.program.disk.Remove(desk_.folder.Path("Song.prg"));
  desk_.Press("frmArrU(1).CommShowPrg");
  EXPECT_THAT(desk_.program.Boxes(), ElementsAre(ShownBox{48, "Song.pgg", "File not found"}));
  EXPECT_EQ(desk_.Prg(1), nullptr);
}

TEST_F(ArrPrograms, SpaceBringsTheUserWindowUpWithTheFilesPrograms) {
  desk_.Put("Song.prg", Bank());
  OpenSong();
  const auto space = [this] { desk_.Key("frmArrU(1).List1", {ui::Key::kSpace, " "}); };
  space();
  EXPECT_EQ(desk_.Prg(9), nullptr) << "only with the automatic selection";
  desk_.Press("mnuAutoPrgSel");
  desk_.program.app.arrangement.EditorOpen = true;
  space();
  EXPECT_EQ(desk_.Prg(9), nullptr) << "and with the editor closed";
  desk_.program.app.arrangement.EditorOpen = false;
  space();
  EXPECT_EQ(desk_.Caption(9), "Prg F/User - Song.prg - MIDI Channel 1");
  desk_.program.toolkit.Activate(*desk_.program.Arr(1));
  const ChildWindow* window = desk_.Prg(9);
  space();
  EXPECT_EQ(desk_.Prg(9), window);
  EXPECT_EQ(desk_.program.toolkit.active_child(), window);
  EXPECT_THAT(desk_.Wire(), IsEmpty());
}

TEST_F(ArrPrograms, TheStoredSettingBringsTheProgramsOfAnArrangementFileAlong) {
  desk_.settings().OpenPrgWithArr = true;
  desk_.Put("Song.prg", Bank());
  OpenSong();
  EXPECT_EQ(desk_.Caption(1), "File Prg - Song.prg (1) - MIDI Channel 1");
  EXPECT_EQ(desk_.program.toolkit.active_child(), desk_.program.Arr(1));
  desk_.program.Arr(1)->UserClose();
  OpenSong();
  EXPECT_EQ(desk_.Prg(2), nullptr) << "it is open already";
  desk_.Put("Bare.arr", ArrBytes({{"One", 5, false, {}}}));
  desk_.ArrDesk::Open("Bare.arr");
  EXPECT_EQ(desk_.Prg(2), nullptr);
  EXPECT_THAT(desk_.program.Boxes(), IsEmpty());
}

TEST_F(ArrPrograms, WhatAnOpenWindowHoldsGoesOutFromTheArrangementWindow) {
  desk_.Put("Song.prg", Bank());
  OpenSong();
  desk_.Press("frmArrU(1).CommShowPrg");
  Set(ImageFor(*desk_.Prg(1)), 319, 'X');
  desk_.Press("frmArrU(1).CommLoadPrg");
  desk_.Log();
  desk_.Wait(100);
  EXPECT_EQ(desk_.Wire().size(), 1u);
  EXPECT_EQ(Payload()[0], 'X');
  EXPECT_EQ(desk_.Text("mnuPrgU"), "Program F/User (Song.prg)");
}

}  // namespace
}  // namespace zentaline::test
