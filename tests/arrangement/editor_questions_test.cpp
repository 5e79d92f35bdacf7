// The arrangement editor and the window that it was opened from: opening, following the selection, keeping, closing.
#include <gtest/gtest.h>

#include "tests/arrangement/editor_desk.h"

namespace zentaline::test {
namespace {

constexpr auto kYes = ui::BoxAnswer::kYes;
constexpr auto kNo = ui::BoxAnswer::kNo;
constexpr auto kCancel = ui::BoxAnswer::kCancel;

const char kKeep[] = "The Arrangement has changed.\nKeep changes ?";
const char kSave[] = "The Arrangement has changed.\nSave changes ?";

std::vector<std::string> TwoRecords() {
  return {EmptyRecord("First"), EmptyRecord("Second")};
}

// Of record i in the file's image.
int Kept(EditorDesk& desk, int i, std::size_t offset) {
  return desk.Byte(1, 303 + 164 * static_cast<std::size_t>(i) + offset);
}

TEST(EditorOpening, ButtonMenuAndDoubleClickOpenIt) {
  EditorDesk desk(TwoRecords());
  EXPECT_TRUE(desk.IsOpen());
  EXPECT_FALSE(desk.Enabled("frmArrU(1).CommEdit"));
  EXPECT_EQ(desk.program.toolkit.FindForm("frmEditArr"), desk.program.toolkit.active_child());
  EXPECT_EQ(static_cast<ChildWindow*>(desk.program.toolkit.active_child())->window_image(), Hand({13, 0}));
  desk.Close();
  EXPECT_TRUE(desk.Enabled("frmArrU(1).CommEdit"));
  desk.Press("frmArrU(1).CommEdit");
  EXPECT_TRUE(desk.IsOpen());
  desk.Close();
  EXPECT_TRUE(desk.Press("mnuEdit"));
  EXPECT_FALSE(desk.IsOpen()) << "the timer presses the button";
  desk.Wait(10);
  EXPECT_TRUE(desk.IsOpen());
  EXPECT_FALSE(desk.Press("mnuEdit"));
}

TEST(EditorOpening, AnEmptyRowOpensNothing) {
  EditorDesk desk(TwoRecords());
  desk.Close();
  desk.Double(5);
  EXPECT_FALSE(desk.IsOpen());
  EXPECT_FALSE(desk.Enabled("frmArrU(1).CommEdit"));
  EXPECT_FALSE(desk.Press("mnuEdit"));
}

TEST(EditorOpening, AnEmptyRowLeavesTheOpenEditorAsItWas) {
  EditorDesk desk(TwoRecords());
  desk.Move("VScroll1(1)", 50);
  const std::string before = desk.Edited();
  desk.Select(5);
  EXPECT_EQ(desk.Edited(), before);
  EXPECT_TRUE(desk.State().EditorChanged);
  EXPECT_TRUE(desk.program.Boxes().empty());
  desk.program.toolkit.answers.push_back(kNo);
  desk.Close();
  EXPECT_FALSE(desk.Enabled("frmArrU(1).CommEdit")) << "the row is empty";
}

TEST(EditorOpening, ItComesBackAtItsPlaceButNotByItselfAtTheNextStart) {
  EditorDesk desk;
  desk.program.toolkit.UserPlaces(*desk.program.toolkit.FindForm("frmEditArr"), {40, 50, 600, 400});
  desk.Close();
  desk.Double(0);
  EXPECT_EQ(desk.program.toolkit.FindForm("frmEditArr")->placement(), (ui::Placement{40, 50, 600, 400}));
  desk.program.Quit();
  TestProgram next(desk.folder);
  next.Start();
  EXPECT_NE(next.toolkit.FindForm("frmArrU(1)"), nullptr);
  EXPECT_EQ(next.toolkit.FindForm("frmEditArr"), nullptr);
}

TEST(EditorOpening, EveryControlTellsWhatItDoesInBothLanguages) {
  for (const int language : {1, 2}) {
    ArrDesk desk(false);
    desk.program.Start(language);
    desk.Put("song.arr", ArrBytes({{.name = "Song", .parts = {}}}));
    desk.Open("song.arr");
    desk.Double(0);
    for (const ui::Control* control : desk.program.toolkit.FindForm("frmEditArr")->controls()) {
      EXPECT_FALSE(control->tool_tip().empty()) << control->FullName() << " in language " << language;
    }
    const auto* first = desk.Find<ui::Control>("frmEditArr.Combo2(3)");
    const auto* last = desk.Find<ui::Control>("frmEditArr.Combo2(51)");
    EXPECT_EQ(first->tool_tip(), last->tool_tip()) << "the nine parts are alike";
  }
}

TEST(EditorSelection, YesKeepsTheChangeNoForgetsItAndBothGoOn) {
  for (const auto answer : {kYes, kNo}) {
    EditorDesk desk(TwoRecords());
    desk.Move("VScroll1(1)", 50);
    desk.Params();
    desk.program.toolkit.answers.push_back(answer);
    desk.Select(1);
    EXPECT_EQ(desk.program.Boxes(), (std::vector<ShownBox>{{52, "File Arr - song.arr (1)", kKeep}}));
    EXPECT_EQ(Kept(desk, 0, 41), answer == kYes ? 50 : 0);
    EXPECT_EQ(desk.Byte(1, 4), answer == kYes ? 1 : 0);
    EXPECT_EQ(desk.Reads("Text1(0)"), "Second");
    EXPECT_EQ(desk.Shows("VScroll1(1)"), 0);
    EXPECT_FALSE(desk.State().EditorChanged);
    EXPECT_EQ(desk.Params(), (Strings{"0 B0 00 00", "0 B0 20 01", "0 C0 01"}));
    EXPECT_FALSE(desk.Enabled("frmArrU(1).CommEdit"));
  }
}

// Moves the volume to 50 and sends the file; the question about the change gets the answer.
void SendWithAChange(EditorDesk& desk, ui::BoxAnswer answer) {
  desk.Move("VScroll1(1)", 50);
  desk.program.toolkit.answers.push_back(answer);
  EXPECT_TRUE(desk.Press("frmArrU(1).CommLoadArr"));
  desk.Wait(20);
}

TEST(EditorSending, NoSendsTheFileAsItStandsAndTheEditorsChangeIsAskedForAgain) {
  EditorDesk desk(TwoRecords());
  SendWithAChange(desk, kNo);
  EXPECT_EQ(Kept(desk, 0, 41), 0);
  EXPECT_EQ(desk.Shows("VScroll1(1)"), 50);
  EXPECT_TRUE(desk.State().EditorChanged) << "its record still differs from the image";
  desk.program.Boxes();
  desk.program.toolkit.answers.push_back(kYes);
  desk.Select(1);
  EXPECT_EQ(desk.program.Boxes(), (std::vector<ShownBox>{{52, "File Arr - song.arr (1)", kKeep}}));
  EXPECT_EQ(Kept(desk, 0, 41), 50);
}

TEST(EditorSending, YesIsNotAskedForAgain) {
  EditorDesk desk(TwoRecords());
  SendWithAChange(desk, kYes);
  EXPECT_EQ(Kept(desk, 0, 41), 50);
  EXPECT_FALSE(desk.State().EditorChanged);
}

TEST(EditorSending, AClickThatSendsTheFileFirstAsksOnce) {
  for (const auto answer : {kYes, kNo}) {
    EditorDesk desk(TwoRecords());
    desk.program.app.core.settings.CaricaArr = true;
    desk.Move("VScroll1(1)", 50);
    desk.program.toolkit.answers.push_back(answer);
    desk.Select(1);
    desk.Wait(100);
    EXPECT_EQ(desk.program.Boxes().size(), 1U);
    EXPECT_EQ(Kept(desk, 0, 41), answer == kYes ? 50 : 0);
    EXPECT_EQ(desk.Reads("Text1(0)"), "Second");
  }
}

TEST(EditorSelection, NothingIsAskedWithoutAChange) {
  EditorDesk desk(TwoRecords());
  desk.Push("CommM(0)");
  desk.Push("EffComm(1)");
  desk.Select(1);
  EXPECT_TRUE(desk.program.Boxes().empty());
}

TEST(EditorSelection, AKeptNameStandsInTheListAtOnce) {
  EditorDesk desk(TwoRecords());
  desk.Type("Text1(0)", "Renamed");
  desk.program.toolkit.answers.push_back(kYes);
  desk.Select(1);
  EXPECT_EQ(desk.List().RowText(0), "11  Renamed         ");
}

TEST(EditorSelection, AReadOnlyFileKeepsNothing) {
  EditorDesk desk(TwoRecords(), true);
  desk.Move("VScroll1(1)", 50);
  desk.program.toolkit.answers.push_back(kYes);
  desk.Select(1);
  const auto boxes = desk.program.Boxes();
  ASSERT_EQ(boxes.size(), 2U);
  EXPECT_EQ(boxes[1], (ShownBox{48, "song", "Read only file"}));
  EXPECT_EQ(Kept(desk, 0, 41), 0);
  EXPECT_EQ(desk.Byte(1, 4), 0);
}

TEST(EditorClosing, YesStoresNoForgetsAndCancelStays) {
  EditorDesk desk(TwoRecords());
  desk.Move("Combo2(0)", 0);
  desk.program.toolkit.answers = {kCancel};
  EXPECT_FALSE(desk.Close());
  EXPECT_TRUE(desk.IsOpen());
  EXPECT_TRUE(desk.State().EditorCloseRefused);
  EXPECT_EQ(desk.program.Boxes(), (std::vector<ShownBox>{{51, "Edit Arrangement  song.arr / First     ", kSave}}));
  EXPECT_EQ(Kept(desk, 0, 43), 0);
  desk.program.toolkit.answers = {kYes};
  EXPECT_TRUE(desk.Close());
  EXPECT_FALSE(desk.State().EditorCloseRefused);
  EXPECT_EQ(Kept(desk, 0, 43), 10);
  EXPECT_EQ(desk.Byte(1, 4), 1);
  EXPECT_FALSE(desk.State().EditorOpen);
  desk.Double(1);
  desk.Move("Combo2(0)", 0);
  desk.program.toolkit.answers = {kNo};
  EXPECT_TRUE(desk.Close());
  EXPECT_EQ(Kept(desk, 1, 43), 0);
}

TEST(EditorClosing, ItsWindowTakesItAlongUnlessItRefuses) {
  EditorDesk desk(TwoRecords());
  desk.Move("Combo2(0)", 0);
  desk.program.toolkit.answers = {kCancel};
  EXPECT_FALSE(desk.program.Arr(1)->UserClose());
  EXPECT_TRUE(desk.IsOpen());
  desk.program.toolkit.answers = {kYes, kNo};
  EXPECT_TRUE(desk.program.Arr(1)->UserClose());
  EXPECT_FALSE(desk.IsOpen());
  EXPECT_EQ(desk.program.Boxes().back().text, "The file has changed\nSave changes ?");
}

TEST(EditorClosing, AnotherWindowLeavesItOpen) {
  EditorDesk desk(TwoRecords());
  desk.Put("other.arr", ArrBytes({{.name = "Other", .parts = {}}}));
  desk.Open("other.arr");
  desk.Move("Combo2(0)", 0);
  EXPECT_TRUE(desk.program.Arr(2)->UserClose());
  EXPECT_TRUE(desk.IsOpen());
  EXPECT_TRUE(desk.program.Boxes().empty());
}

TEST(EditorClosing, ItFollowsTheSelectionIntoAnotherWindow) {
  EditorDesk desk(TwoRecords());
  desk.Put("other.arr", ArrBytes({{.name = "Other", .parts = {}}}));
  desk.Open("other.arr");
  desk.Select(0, 2);
  EXPECT_EQ(desk.Caption(), "Edit Arrangement  other.arr / Other     ");
  EXPECT_TRUE(desk.program.Arr(1)->UserClose());
  EXPECT_TRUE(desk.IsOpen());
  EXPECT_TRUE(desk.program.Arr(2)->UserClose());
  EXPECT_FALSE(desk.IsOpen());
}

TEST(EditorClosing, TheProgramsEndAsksOnce) {
  EditorDesk desk(TwoRecords());
  desk.Move("Combo2(0)", 0);
  desk.program.toolkit.answers = {kCancel};
  EXPECT_FALSE(desk.program.Quit());
  EXPECT_EQ(desk.program.Boxes().size(), 1U);
  desk.program.toolkit.answers = {kNo};
  EXPECT_TRUE(desk.program.Quit());
  EXPECT_EQ(desk.program.Boxes().size(), 1U);
}

TEST(EditorClosing, TheProgramsEndAsksOnceWhereItsWindowWasOpenedAfterIt) {
  EditorDesk desk(TwoRecords());
  desk.Put("other.arr", ArrBytes({{.name = "Other", .parts = {}}}));
  desk.Open("other.arr");
  desk.Select(0, 2);
  desk.Move("Combo2(0)", 0);
  desk.program.toolkit.answers = {kNo};
  EXPECT_TRUE(desk.program.Quit());
  EXPECT_EQ(desk.program.Boxes(), (std::vector<ShownBox>{{51, "Edit Arrangement  other.arr / Other     ", kSave}}));
}

TEST(EditorClosing, WhatWasHeardIsWhatTheFileHolds) {
  EditorDesk desk(TwoRecords());
  desk.Move("VScroll1(0)", 133);
  desk.Type("Text1(0)", "Kept");
  desk.program.toolkit.answers = {kYes, kYes};
  desk.program.Arr(1)->UserClose();
  const std::string file = desk.folder.Get("song.arr");
  EXPECT_EQ(file.substr(32, 16), "Kept            ");
  EXPECT_EQ(At(file, 32 + 22), 103);
  EXPECT_EQ(file.substr(196), [] {
    std::string expected = EmptyRecord("Second");
    expected.resize(10528 - 196, '\0');
    return expected;
  }());
}

}  // namespace
}  // namespace zentaline::test
