// The arrangement editor where a control does otherwise than its table: the position that kick and snare write to, mute
// and solo, arming, typing.
#include <gtest/gtest.h>

#include "tests/arrangement/editor_desk.h"

namespace zentaline::test {
namespace {

TEST(EditorPosition, KickAndSnareGoWhereTheEditBeforeThemWent) {
  EditorDesk desk;
  desk.Move("Combo2(0)", 3);
  EXPECT_EQ(desk.State().ArrEditPos, 44);
  EXPECT_EQ(desk.Record(43), 7);
  desk.Params();
  desk.Move("Combo1(6)", 2);
  EXPECT_EQ(desk.Record(43), 2);
  EXPECT_EQ(desk.Record(33), 0) << "kick designation is never written";
  desk.Move("Combo1(7)", 3);
  EXPECT_EQ(desk.Record(43), 3);
  EXPECT_EQ(desk.Record(34), 0) << "nor is snare designation";
  EXPECT_EQ(desk.Params(), Strings());
  EXPECT_EQ(desk.State().ArrEditPos, 44);
}

TEST(EditorPosition, RightAfterTheOpeningNothingIsWritten) {
  EditorDesk desk;
  const std::string before = desk.Edited();
  EXPECT_EQ(desk.State().ArrEditPos, 0);
  desk.Move("Combo1(6)", 3);
  desk.Move("Combo1(7)", 1);
  EXPECT_EQ(HexText(desk.Edited()), HexText(before));
  EXPECT_TRUE(desk.State().EditorChanged);
}

TEST(EditorPosition, ListsAndHorizontalBarsMoveItAndNothingElseDoes) {
  EditorDesk desk;
  desk.Move("HScroll1(0)", 70);
  EXPECT_EQ(desk.State().ArrEditPos, 24);
  desk.Move("VScroll1(0)", 100);
  desk.Move("VScroll1(1)", 100);
  desk.Move("Check1(0)", 1);
  desk.Move("EffCombo(0)", 3);
  desk.Push("CommM(0)");
  desk.Type("Text1(0)", "Other");
  EXPECT_EQ(desk.State().ArrEditPos, 24);
  desk.Move("Combo1(0)", 1);
  EXPECT_EQ(desk.State().ArrEditPos, 23);
  desk.Move("Combo1(8)", 1);
  EXPECT_EQ(desk.State().ArrEditPos, 25);
  desk.Move("HScroll1(1)", 3);
  EXPECT_EQ(desk.State().ArrEditPos, 30);
  desk.Move("Combo1(5)", 2);
  EXPECT_EQ(desk.State().ArrEditPos, 32);
  desk.Move("Combo2(53)", 0);
  EXPECT_EQ(desk.State().ArrEditPos, 111);
}

TEST(EditorPosition, AFillThatPutsTheVariationBackMovesIt) {
  std::string second = EmptyRecord("Second");
  Set(second, 30, 5);
  EditorDesk desk({EmptyRecord(), second});
  desk.Move("Combo1(5)", 3);
  EXPECT_EQ(desk.State().ArrEditPos, 33);
  desk.program.toolkit.answers.push_back(ui::BoxAnswer::kNo);
  desk.Select(1);
  EXPECT_EQ(desk.Shows("Combo1(5)"), 0);
  EXPECT_EQ(desk.Shows("HScroll1(1)"), 5);
  EXPECT_EQ(desk.State().ArrEditPos, 30);
  desk.Select(0);
  EXPECT_EQ(desk.State().ArrEditPos, 30);
}

TEST(EditorPosition, BeginsAnewWithEachOpening) {
  EditorDesk desk;
  desk.Move("Combo1(0)", 4);
  desk.program.toolkit.answers.push_back(ui::BoxAnswer::kNo);
  EXPECT_TRUE(desk.Close());
  desk.Double(0);
  EXPECT_EQ(desk.State().ArrEditPos, 0);
}

// --- Mute and solo ---

constexpr long kRest = 0xC0C0C0;
constexpr long kRed = 255;

Strings AllParts(const std::vector<int>& values) {
  const Strings ids = {"0F", "19", "23", "2D", "37", "41", "4B", "55", "5F"};
  Strings params;
  for (std::size_t t = 0; t < 9; ++t) params.push_back(ids[t] + " 0" + std::to_string(values[t]) + " 00");
  return params;
}

TEST(EditorMute, APressMutesAndAnotherLetsGo) {
  EditorDesk desk;
  const std::string before = desk.Edited();
  EXPECT_EQ(desk.Colour("CommM(3)"), kRest);
  desk.Push("CommM(3)");
  EXPECT_EQ(desk.Colour("CommM(3)"), kRed);
  EXPECT_EQ(desk.Params(), Strings{"2D 01 00"});
  desk.Push("CommM(3)");
  EXPECT_EQ(desk.Colour("CommM(3)"), kRest);
  EXPECT_EQ(desk.Params(), Strings{"2D 00 00"});
  EXPECT_EQ(desk.Edited(), before);
  EXPECT_FALSE(desk.State().EditorChanged);
}

TEST(EditorMute, ASoloMutesAllOthersAndItsSecondPressLetsAllGo) {
  EditorDesk desk;
  desk.Push("CommM(2)");
  desk.Params();
  desk.Push("CommS(2)");
  EXPECT_EQ(desk.Params(), AllParts({1, 1, 0, 1, 1, 1, 1, 1, 1}));
  for (int t = 0; t < 9; ++t) {
    const std::string index = "(" + std::to_string(t) + ")";
    EXPECT_EQ(desk.Colour("CommM" + index), t == 2 ? kRest : kRed);
    EXPECT_EQ(desk.Colour("CommS" + index) != kRest, t == 2);
  }
  desk.Push("CommS(2)");
  EXPECT_EQ(desk.Params(), AllParts({0, 0, 0, 0, 0, 0, 0, 0, 0}));
  for (int t = 0; t < 9; ++t) {
    const std::string index = "(" + std::to_string(t) + ")";
    EXPECT_EQ(desk.Colour("CommM" + index), kRest);
    EXPECT_EQ(desk.Colour("CommS" + index), kRest);
  }
  EXPECT_FALSE(desk.State().EditorChanged);
}

TEST(EditorMute, AnotherSoloTakesOver) {
  EditorDesk desk;
  desk.Push("CommS(0)");
  desk.Params();
  desk.Push("CommS(8)");
  EXPECT_EQ(desk.Params(), AllParts({1, 1, 1, 1, 1, 1, 1, 1, 0}));
  EXPECT_EQ(desk.Colour("CommS(0)"), kRest);
  EXPECT_EQ(desk.Colour("CommM(0)"), kRed);
}

TEST(EditorMute, MutingTheSoloPartEndsItsSolo) {
  EditorDesk desk;
  desk.Push("CommS(1)");
  desk.Params();
  desk.Push("CommM(1)");
  EXPECT_EQ(desk.Params(), Strings{"19 01 00"});
  EXPECT_EQ(desk.Colour("CommS(1)"), kRest);
  EXPECT_EQ(desk.Colour("CommM(1)"), kRed);
  EXPECT_EQ(desk.Colour("CommM(0)"), kRed);
}

TEST(EditorMute, TheNextRecordKeepsThem) {
  EditorDesk desk({EmptyRecord(), EmptyRecord("Second")});
  desk.Push("CommM(0)");
  desk.Select(1);
  EXPECT_EQ(desk.Colour("CommM(0)"), kRed);
}

TEST(EditorEffects, OnAndOffGoToTheInstrumentAlone) {
  EditorDesk desk;
  const std::string before = desk.Edited();
  EXPECT_EQ(desk.Reads("EffComm(0)"), "On");
  desk.Push("EffComm(0)");
  EXPECT_EQ(desk.Reads("EffComm(0)"), "Off");
  desk.Push("EffComm(1)");
  desk.Push("EffComm(0)");
  EXPECT_EQ(desk.Reads("EffComm(0)"), "On");
  EXPECT_EQ(desk.Reads("EffComm(1)"), "Off");
  EXPECT_EQ(desk.Params(), (Strings{"07 00 00", "09 00 00", "07 01 00"}));
  EXPECT_EQ(desk.Edited(), before);
  EXPECT_FALSE(desk.State().EditorChanged);
}

TEST(EditorSign, TheNextHandlerClearsIt) {
  EditorDesk desk;
  desk.Move("Combo2(14)", 4);
  EXPECT_EQ(desk.State().ArrSignFlag, 1);
  desk.Push("EffComm(0)");
  EXPECT_EQ(desk.State().ArrSignFlag, 0);
  EXPECT_EQ(desk.Params(), (Strings{"24 7E 7F", "07 00 00"}));
}

// --- Typing ---

TEST(EditorTyping, ARowsTextSelectsItCaseIgnored) {
  EditorDesk desk;
  desk.Type("Combo1(0)", "m. drums");
  EXPECT_EQ(desk.Shows("Combo1(0)"), 3);
  EXPECT_EQ(desk.Record(22), 3);
  desk.Type("Combo1(0)", "FULL 2");
  EXPECT_EQ(desk.Record(22), 1);
  desk.Params();
  desk.Type("Combo2(4)", "mute");
  EXPECT_EQ(desk.Params(), Strings{"0F 01 00"});
  EXPECT_EQ(desk.Record(45), 4);
}

TEST(EditorTyping, AnyOtherTextChangesNothing) {
  EditorDesk desk;
  const std::string before = desk.Edited();
  desk.Type("Combo1(1)", " DOW");
  EXPECT_EQ(desk.Edited(), before);
  EXPECT_EQ(desk.Params(), Strings());
  desk.Type("Combo1(1)", " DOWN");
  EXPECT_EQ(desk.Record(37), 12);
  EXPECT_EQ(desk.Params(), Strings{"04 0C 00"});
}

TEST(EditorName, GoesIntoRecordAndTitle) {
  EditorDesk desk;
  ASSERT_TRUE(desk.Type("Text1(0)", "Twelve signs"));
  EXPECT_EQ(desk.Edited().substr(0, 16), "Twelve signs    ");
  EXPECT_EQ(desk.Caption(), "Edit Arrangement  song.arr / Twelve sig");
  EXPECT_TRUE(desk.State().ArrNameChanged);
  EXPECT_TRUE(desk.State().EditorChanged);
  EXPECT_EQ(desk.Params(), Strings());
  EXPECT_FALSE(desk.Type("Text1(0)", "Seventeen letters"));
  ASSERT_TRUE(desk.Type("Text1(0)", ""));
  EXPECT_EQ(desk.Edited().substr(0, 16), Blanks(16));
}

TEST(EditorName, AllBytesAboveAsciiComeThrough) {
  std::string name = Hand({0x80, 0x81, 0x8D, 0x8F, 0x90, 0x9D, 0x9F, 0xA0, 0xE0, 0xE8, 0xEC, 0xF2, 0xF9, 0xFF, 0xDF});
  EditorDesk desk({Field(name, 16) + Zeros(148)});
  EXPECT_EQ(desk.Edited().substr(0, 15), name);
  const std::string shown = desk.Reads("Text1(0)");
  ASSERT_TRUE(desk.Type("Text1(0)", "x"));
  ASSERT_TRUE(desk.Type("Text1(0)", shown));
  EXPECT_EQ(HexText(desk.Edited().substr(0, 16)), HexText(Field(name, 16)));
  ASSERT_TRUE(desk.Type("Text1(0)", "Caff\xC3\xA8"));
  EXPECT_EQ(desk.Edited().substr(0, 6), "Caff\xE8 ");
  EXPECT_FALSE(desk.Type("Text1(0)", "\xE6\x97\xA5")) << "a sign that has no byte";
}

// --- Arming ---

std::vector<int> Armed(EditorDesk& desk) {
  std::vector<int> armed;
  for (int i = 0; i < 19; ++i) {
    if (desk.State().ArrPartSlots[static_cast<std::size_t>(i)] == 1) armed.push_back(i);
  }
  return armed;
}

TEST(EditorArming, APressArmsABoxAndAnotherOneTakesOver) {
  EditorDesk desk;
  const long rest = desk.Colour("Text1(6)");
  desk.Touch("Text1(6)");
  EXPECT_EQ(Armed(desk), std::vector<int>{6});
  EXPECT_TRUE(desk.State().ArrPartArmed);
  EXPECT_NE(desk.Colour("Text1(6)"), rest);
  desk.Touch("Text1(1)");
  EXPECT_EQ(Armed(desk), std::vector<int>{1});
  EXPECT_FALSE(desk.State().ArrPartArmed);
  EXPECT_TRUE(desk.State().ArrStyleArmed);
  EXPECT_EQ(desk.Colour("Text1(6)"), rest);
  desk.Touch("Text1(0)");
  EXPECT_EQ(Armed(desk), std::vector<int>{0});
  EXPECT_TRUE(desk.State().ArrNameArmed);
  EXPECT_FALSE(desk.State().ArrStyleArmed);
  desk.Touch("Text1(0)");
  EXPECT_EQ(Armed(desk), std::vector<int>());
  EXPECT_FALSE(desk.State().ArrNameArmed);
}

TEST(EditorArming, EverythingElseInTheWindowDisarms) {
  EditorDesk desk;
  for (const std::string name : {"Text1(3)", "Text1(19)", "Frame1", "Frame2", "Frame5", "Drum", "FrBass", "LOWER",
                                 "General", "SSTab1", "VScroll1(0)", "HScroll1(0)", "Combo1(0)", "Combo2(53)",
                                 "Check1(0)", "EffCombo(0)", "EffComm(0)", "CommM(4)"}) {
    SCOPED_TRACE(name);
    desk.Touch("Text1(18)");
    EXPECT_EQ(Armed(desk), std::vector<int>{18});
    desk.Touch(name);
    EXPECT_EQ(Armed(desk), std::vector<int>());
    EXPECT_FALSE(desk.State().ArrPartArmed);
  }
  desk.Touch("Text1(18)");
  desk.Move("VScroll1(9)", 5);
  EXPECT_EQ(Armed(desk), std::vector<int>());
  desk.Touch("Text1(18)");
  desk.Push("CommS(4)");
  EXPECT_EQ(Armed(desk), std::vector<int>());
}

TEST(EditorArming, TheSpaceBarArmsToo) {
  EditorDesk desk;
  desk.Find<ui::Control>("frmEditArr.Text1(8)")->UserKey({ui::Key::kSpace, {}});
  EXPECT_EQ(Armed(desk), std::vector<int>{8});
}

TEST(EditorArming, ClosingDisarms) {
  EditorDesk desk;
  desk.Touch("Text1(4)");
  desk.Close();
  EXPECT_FALSE(desk.State().ArrPartArmed);
  EXPECT_EQ(Armed(desk), std::vector<int>());
}

TEST(EditorArming, OnlyTheNameCanBeTyped) {
  EditorDesk desk;
  EXPECT_FALSE(desk.Type("Text1(1)", "x"));
  EXPECT_FALSE(desk.Type("Text1(2)", "x"));
  EXPECT_FALSE(desk.Type("Text1(3)", "x"));
}

// The bar ends at 40; the instrument gets what the record holds, as it counts: 5 stands for 35.
TEST(EditorTempo, BelowTheBarGoesBackAsTheRecordHasIt) {
  std::string record = EmptyRecord();
  record[21] = 5;
  EditorDesk desk({record});
  desk.Move("VScroll1(0)", 100);
  EXPECT_EQ(desk.Params(), Strings{"00 64 00"});
  ASSERT_TRUE(desk.Press("mnuAnnulla"));
  EXPECT_EQ(desk.Params(), Strings{"00 23 00"});
  EXPECT_EQ(desk.Record(21), 5);
  EXPECT_EQ(desk.Shows("VScroll1(0)"), 40);
}

}  // namespace
}  // namespace zentaline::test
