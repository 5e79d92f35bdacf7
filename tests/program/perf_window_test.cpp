// The performance editor as a window: how it opens, goes over to another program, asks, and closes.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/program/perf_desk.h"

namespace zentaline::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ui::BoxAnswer;
using Strings = std::vector<std::string>;

constexpr int kCutoff = 1;
constexpr char kTitle[] = "Performance Edit  Bank.prg / Prog 5          ";
const ShownBox kKeep{52, kTitle, "The Program has changed.\nKeep changes ?"};
const ShownBox kSave{51, kTitle, "The Program has changed.\nSave changes ?"};

TEST(PerfWindow, OpensOnTheSelectedProgramInProgramMode) {
  PerfDesk desk;
  desk.Perf()->Close();
  desk.Click(7);
  desk.Press("mnuArrPlay");
  desk.Log();
  ASSERT_TRUE(desk.Press("mnuEditPerf"));
  EXPECT_EQ(desk.Log(), (Strings{"0 mode 02", "open 0 frmEditPerf \"Performance Edit  Bank.prg / Prog 7          \""}));
  EXPECT_EQ(At(desk.Perf()->window_image(), 1), 33);
  EXPECT_TRUE(desk.state().PerfOpen);
  EXPECT_EQ(At(desk.state().EditRecord, 174), 7);
}

TEST(PerfWindow, NeedsTheRowOfAProgram) {
  PrgDesk desk;
  std::string file = Bank();
  PutLink(file, 1, 0, 5, "E. Piano 2");
  file.replace(48 + 172 * 2, 16, std::string(16, ' '));
  desk.OpenBank(file);
  EXPECT_FALSE(desk.Enabled("mnuEditPerf")) << "no row";
  desk.Click(0);
  EXPECT_TRUE(desk.Enabled("mnuEditPerf"));
  desk.Click(1);
  EXPECT_FALSE(desk.Enabled("mnuEditPerf")) << "a link";
  desk.Click(0);
  desk.Click(2);
  EXPECT_FALSE(desk.Enabled("mnuEditPerf")) << "an empty place";
  desk.Press("mnuWProgA");
  EXPECT_FALSE(desk.Enabled("mnuEditPerf")) << "a factory bank";
}

TEST(PerfWindow, ASecondPressOfTheEntryBringsItToTheFrontAsItStands) {
  PerfDesk desk;
  desk.Up(kCutoff);
  desk.program.toolkit.Activate(*desk.Prg(1));
  ASSERT_TRUE(desk.Press("mnuEditPerf"));
  EXPECT_EQ(desk.program.toolkit.active_child(), desk.Perf());
  EXPECT_EQ(desk.Byte(59), 55);
  EXPECT_EQ(desk.Count(kCutoff), "1");
  EXPECT_TRUE(desk.state().ProgramChanged);
}

TEST(PerfWindow, PressesSendNoMode) {
  PerfDesk desk;
  desk.Press("mnuArrPlay");
  desk.Wire();
  desk.Up(kCutoff);
  EXPECT_EQ(desk.Sent(), (Strings{"02 00 00 00", "04 01 37 00"}));
}

// --- Another program ---

TEST(PerfWindow, AnotherProgramStartsAnew) {
  PerfDesk desk(std::map<std::size_t, int>{{59, 90}});
  desk.Up(kCutoff);
  desk.program.toolkit.answers.push_back(BoxAnswer::kNo);
  desk.Click(6);
  EXPECT_THAT(desk.program.Boxes(), ElementsAre(kKeep));
  EXPECT_EQ(desk.Control(1, 7), 0) << "what isn't kept goes";
  EXPECT_FALSE(desk.state().ProgramChanged);
  EXPECT_EQ(desk.Perf()->caption(), "Performance Edit  Bank.prg / Prog 6          ");
  EXPECT_EQ(desk.Count(kCutoff), "0");
  EXPECT_EQ(At(desk.state().EditRecord, 174), 6);
  EXPECT_EQ(desk.state().PerfBase[1], At(desk.Image(), 318 + 172 * 6 + 59));
}

TEST(PerfWindow, WhatIsKeptGoesToTheBank) {
  PerfDesk desk;
  desk.Up(kCutoff);
  desk.program.toolkit.answers.push_back(BoxAnswer::kYes);
  desk.Click(6);
  EXPECT_EQ(At(desk.Image(), 318 + 172 * 5 + 59), 55);
  EXPECT_EQ(desk.Control(1, 7), 1);
  EXPECT_TRUE(desk.Enabled("mnuSalva"));
  EXPECT_EQ(At(desk.state().EditRecord, 174), 6);
  desk.program.Boxes();
  desk.Click(5);
  EXPECT_THAT(desk.program.Boxes(), IsEmpty()) << "nothing was changed since";
  EXPECT_EQ(desk.Byte(59), 55);
}

TEST(PerfWindow, AReadOnlyBankRefusesAndTheClickGoesOn) {
  PerfDesk desk({}, true);
  desk.Up(kCutoff);
  EXPECT_EQ(desk.Byte(59), 55) << "editing is free";
  desk.program.toolkit.answers.push_back(BoxAnswer::kYes);
  desk.Click(6);
  EXPECT_THAT(desk.program.Boxes(), ElementsAre(kKeep, ShownBox{48, "Bank", "Read only file"}));
  EXPECT_EQ(At(desk.Image(), 318 + 172 * 5 + 59), 50);
  EXPECT_EQ(At(desk.state().EditRecord, 174), 6);
}

TEST(PerfWindow, ALinkAndAnEmptyPlaceLeaveItAsItStands) {
  PrgDesk desk;
  std::string file = Bank();
  PutLink(file, 1, 0, 5, "E. Piano 2");
  file.replace(48 + 172 * 2, 16, std::string(16, ' '));
  desk.OpenBank(file);
  desk.Click(0);
  desk.Press("mnuEditPerf");
  FlagFor(desk.state().ProgramChanged) = true;
  desk.Click(1);
  desk.Click(2);
  EXPECT_THAT(desk.program.Boxes(), IsEmpty());
  EXPECT_EQ(At(desk.state().EditRecord, 174), 0);
}

// --- Closing ---

TEST(PerfWindow, ClosesWithoutAQuestionWhenNothingWasChanged) {
  PerfDesk desk;
  EXPECT_TRUE(desk.Perf()->UserClose());
  EXPECT_THAT(desk.program.Boxes(), IsEmpty());
  EXPECT_FALSE(desk.state().PerfOpen);
}

TEST(PerfWindow, AsksAtItsClosing) {
  PerfDesk desk;
  desk.Up(kCutoff);
  desk.program.toolkit.answers.push_back(BoxAnswer::kCancel);
  EXPECT_FALSE(desk.Perf()->UserClose());
  EXPECT_THAT(desk.program.Boxes(), ElementsAre(kSave));
  EXPECT_TRUE(desk.state().ProgramChanged);
  desk.program.toolkit.answers.push_back(BoxAnswer::kNo);
  EXPECT_TRUE(desk.Perf()->UserClose());
  EXPECT_EQ(desk.Control(1, 7), 0);
  EXPECT_FALSE(desk.state().ProgramChanged);
}

TEST(PerfWindow, AYesAtItsClosingPutsTheRecordIntoTheBank) {
  PerfDesk desk;
  desk.Up(kCutoff);
  desk.program.toolkit.answers.push_back(BoxAnswer::kYes);
  EXPECT_TRUE(desk.Perf()->UserClose());
  EXPECT_EQ(At(desk.Image(), 318 + 172 * 5 + 59), 55);
  EXPECT_EQ(desk.Control(1, 7), 1);
}

TEST(PerfWindow, AYesOnAReadOnlyBankKeepsItOpen) {
  PerfDesk desk({}, true);
  desk.Up(kCutoff);
  desk.program.toolkit.answers.push_back(BoxAnswer::kYes);
  EXPECT_FALSE(desk.Perf()->UserClose());
  EXPECT_THAT(desk.program.Boxes(), ElementsAre(kSave, ShownBox{48, "Bank", "Read only file"}));
  EXPECT_NE(desk.Perf(), nullptr);
}

TEST(PerfWindow, GoesWithItsBankWithOneQuestion) {
  PerfDesk desk;
  desk.Up(kCutoff);
  desk.program.toolkit.answers.push_back(BoxAnswer::kCancel);
  EXPECT_FALSE(desk.Prg(1)->UserClose());
  EXPECT_NE(desk.Perf(), nullptr);
  desk.program.Boxes();
  desk.program.toolkit.answers.push_back(BoxAnswer::kNo);
  EXPECT_TRUE(desk.Prg(1)->UserClose());
  EXPECT_THAT(desk.program.Boxes(), ElementsAre(kSave));
  EXPECT_EQ(desk.Perf(), nullptr);
}

TEST(PerfWindow, StaysWhenAnotherBankCloses) {
  PerfDesk desk;
  desk.Put("Other.prg", Bank());
  desk.OpenPrg("Other.prg");
  desk.Up(kCutoff);
  EXPECT_TRUE(desk.Prg(2)->UserClose());
  EXPECT_THAT(desk.program.Boxes(), IsEmpty());
  EXPECT_NE(desk.Perf(), nullptr);
}

TEST(PerfWindow, TheEndOfTheProgramAsksForItOnce) {
  PerfDesk desk;
  desk.Up(kCutoff);
  desk.program.toolkit.answers.push_back(BoxAnswer::kCancel);
  EXPECT_FALSE(desk.program.Quit());
  EXPECT_THAT(desk.program.Boxes(), ElementsAre(kSave));
  desk.program.toolkit.answers.push_back(BoxAnswer::kNo);
  EXPECT_TRUE(desk.program.Quit());
  EXPECT_THAT(desk.program.Boxes(), ElementsAre(kSave));
}

TEST(PerfWindow, KeepsItsPlaceForTheRun) {
  PerfDesk desk;
  desk.Perf()->UserPlace({30, 40, 500, 300, ui::WindowState::kNormal}, {490, 280});
  desk.Perf()->UserClose();
  desk.program.toolkit.Activate(*desk.Prg(1));
  desk.Press("mnuEditPerf");
  EXPECT_EQ(desk.Perf()->placement(), (ui::Placement{30, 40, 500, 300, ui::WindowState::kNormal}));
}

TEST(PerfWindow, APortThatFailsSaysSoOnceAndTheRecordKeepsItsValues) {
  PerfDesk desk;
  desk.program.midi.Fail("midiOutLongMsg", 11, 0);
  desk.Up(kCutoff);
  desk.Up(kCutoff);
  EXPECT_EQ(desk.program.Boxes().size(), 1u);
  EXPECT_EQ(desk.Byte(59), 60);
  EXPECT_EQ(desk.Count(kCutoff), "2");
}

}  // namespace
}  // namespace zentaline::test
