// The performance editor with the program editor closed: what its rows change, send, limit and bring back.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "tests/program/perf_desk.h"
#include "ui/picture.h"

namespace zentaline::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Strings = std::vector<std::string>;

constexpr int kVibrato = 0;
constexpr int kCutoff = 1;
constexpr int kVdfEg = 2;
constexpr int kVelocity = 6;
constexpr int kEffects = 7;
constexpr std::size_t kMode = 19;
const std::map<std::size_t, int> kDouble = {{kMode, 1}};

struct RowCase {
  int row;
  std::vector<std::size_t> single;  // the positions that change
  std::vector<std::size_t> both;
  int after;  // a press of "+" on 50
  Strings single_sent;
  Strings both_sent;
};

// 55 is 37 hexadecimal, 53 is 35.
const RowCase kRows[] = {
    {0,
     {54},
     {54, 101},
     55,
     {"02 00 00 00", "0B 02 37 00"},
     {"02 00 00 00", "0B 02 37 00", "02 00 01 00", "0B 02 37 00"}},
    {1,
     {59},
     {59, 106},
     55,
     {"02 00 00 00", "04 01 37 00"},
     {"02 00 00 00", "04 01 37 00", "02 00 01 00", "04 01 37 00"}},
    {2,
     {62},
     {62, 109},
     53,
     {"02 00 00 00", "04 02 35 00"},
     {"02 00 00 00", "04 02 35 00", "02 00 01 00", "04 02 35 00"}},
    {3,
     {80},
     {80, 127},
     55,
     {"02 00 00 00", "08 01 37 00"},
     {"02 00 00 00", "08 01 37 00", "02 00 01 00", "08 01 37 00"}},
    {4,
     {72, 86},
     {72, 86, 119, 133},
     55,
     {"02 00 00 00", "05 06 37 00", "02 00 00 00", "08 07 37 00"},
     {"02 00 00 00", "05 06 37 00", "02 00 00 00", "08 07 37 00", "02 00 01 00", "05 06 37 00", "02 00 01 00",
      "08 07 37 00"}},
    {5,
     {74},
     {74, 121},
     55,
     {"02 00 00 00", "02 02 37 00"},
     {"02 00 00 00", "02 02 37 00", "02 00 01 00", "02 02 37 00"}},
    {6,
     {65, 77},
     {65, 77, 112, 124},
     55,
     {"02 00 00 00", "07 01 37 00", "02 00 00 00", "0A 01 37 00"},
     {"02 00 00 00", "07 01 37 00", "02 00 00 00", "0A 01 37 00", "02 00 01 00", "07 01 37 00", "02 00 01 00",
      "0A 01 37 00"}},
    {7, {146, 147, 148, 149}, {146, 147, 148, 149}, 55, {"13 07 37 00", "14 07 37 00"}, {"13 07 37 00", "14 07 37 00"}},
};

// The bars of the program editor that the rows move.
const Strings kBars[] = {
    {"OscHScroll(4)", "OscHScroll(44)"},
    {"OscHScroll(9)", "OscHScroll(49)"},
    {"OscHScroll(12)", "OscHScroll(52)"},
    {"OscHScroll(30)", "OscHScroll(70)"},
    {"OscHScroll(22)", "OscHScroll(36)", "OscHScroll(62)", "OscHScroll(76)"},
    {"OscHScroll(24)", "OscHScroll(64)"},
    {"OscHScroll(15)", "OscHScroll(27)", "OscHScroll(55)", "OscHScroll(67)"},
    {"EffHScroll(0)", "EffHScroll(2)"},
};

class PerfRows : public ::testing::TestWithParam<RowCase> {
 protected:
  // The record with these positions at another value.
  static Bytes Changed(Bytes record, const std::vector<std::size_t>& positions, int value) {
    for (const std::size_t position : positions) Set(record, position, value);
    return record;
  }
};

TEST_P(PerfRows, OfASingleProgramMoveTheFirstOscillator) {
  PerfDesk desk;
  const Bytes before = desk.state().EditRecord;
  ASSERT_TRUE(desk.Up(GetParam().row));
  EXPECT_EQ(desk.state().EditRecord.value(), Changed(before, GetParam().single, GetParam().after));
  EXPECT_EQ(desk.Sent(), GetParam().single_sent);
  EXPECT_EQ(desk.Count(GetParam().row), "1");
  EXPECT_EQ(desk.state().PerfStepValue[static_cast<std::size_t>(GetParam().row)], 1);
  EXPECT_TRUE(desk.state().ProgramChanged);
}

TEST_P(PerfRows, OfADoubleProgramMoveBothOneAfterTheOther) {
  PerfDesk desk(kDouble);
  const Bytes before = desk.state().EditRecord;
  ASSERT_TRUE(desk.Up(GetParam().row));
  EXPECT_EQ(desk.state().EditRecord.value(), Changed(before, GetParam().both, GetParam().after));
  EXPECT_EQ(desk.Sent(), GetParam().both_sent);
}

// The editor's bars do the same work by their own events, and send the same.
TEST_P(PerfRows, MoveTheBarsOfTheOpenEditor) {
  PerfDesk desk(kDouble);
  desk.OpenEditor();
  const Bytes before = desk.state().EditRecord;
  ASSERT_TRUE(desk.Up(GetParam().row));
  EXPECT_EQ(desk.state().EditRecord.value(), Changed(before, GetParam().both, GetParam().after));
  EXPECT_EQ(desk.Sent(), GetParam().both_sent);
  for (const std::string& bar : kBars[GetParam().row]) EXPECT_EQ(desk.Bar(bar).value(), GetParam().after) << bar;
  EXPECT_NE(desk.Perf(), nullptr) << "its own presses don't close it";
  ASSERT_TRUE(desk.Reset(GetParam().row));
  EXPECT_EQ(desk.state().EditRecord.value(), before);
  for (const std::string& bar : kBars[GetParam().row]) EXPECT_EQ(desk.Bar(bar).value(), 50) << bar;
}

TEST_P(PerfRows, GoDownByAsMuchAndComeBackByAReset) {
  PerfDesk desk(kDouble);
  const Bytes before = desk.state().EditRecord;
  ASSERT_TRUE(desk.Down(GetParam().row));
  EXPECT_EQ(desk.Count(GetParam().row), "-1");
  EXPECT_EQ(desk.state().EditRecord.value(), Changed(before, GetParam().both, 100 - GetParam().after));
  desk.Sent();
  ASSERT_TRUE(desk.Reset(GetParam().row));
  EXPECT_EQ(desk.state().EditRecord.value(), before);
  EXPECT_EQ(desk.Count(GetParam().row), "0");
  Strings reset = GetParam().both_sent;  // with 50, which is 32 hexadecimal
  for (std::string& message : reset) {
    if (!message.starts_with("02 00 ")) message.replace(6, 2, "32");
  }
  EXPECT_EQ(desk.Sent(), reset);
  EXPECT_FALSE(desk.state().PerfResetting);
}

INSTANTIATE_TEST_SUITE_P(All, PerfRows, ::testing::ValuesIn(kRows),
                         [](const auto& test) { return "Row" + std::to_string(test.param.row); });

// --- Limits ---

TEST(PerfEditor, TenPressesInEitherDirectionAreTheMost) {
  PerfDesk desk;
  for (int press = 0; press < 10; ++press) EXPECT_TRUE(desk.Up(kVdfEg)) << press;
  EXPECT_EQ(desk.Byte(62), 80);
  EXPECT_EQ(desk.Count(kVdfEg), "10");
  EXPECT_FALSE(desk.Up(kVdfEg));
  EXPECT_TRUE(desk.Down(kVdfEg));
  EXPECT_EQ(desk.Byte(62), 77);
  EXPECT_TRUE(desk.CanUp(kVdfEg)) << "there is room again";
  for (int press = 0; press < 19; ++press) EXPECT_TRUE(desk.Down(kVdfEg)) << press;
  EXPECT_EQ(desk.Count(kVdfEg), "-10");
  EXPECT_EQ(desk.Byte(62), 20);
  EXPECT_FALSE(desk.Down(kVdfEg));
  EXPECT_TRUE(desk.CanUp(kVdfEg));
}

TEST(PerfEditor, AValueNearTheEndOfItsScaleStopsFurtherPresses) {
  PerfDesk desk({{59, 90}, {54, 9}});
  desk.Up(kCutoff);
  EXPECT_EQ(desk.Byte(59), 95);
  EXPECT_FALSE(desk.CanUp(kCutoff)) << "95 is above 94";
  EXPECT_TRUE(desk.CanDown(kCutoff));
  desk.Down(kVibrato);
  EXPECT_EQ(desk.Byte(54), 4);
  EXPECT_FALSE(desk.CanDown(kVibrato)) << "4 is below 5";
  desk.Up(kVibrato);
  EXPECT_TRUE(desk.CanDown(kVibrato));
}

TEST(PerfEditor, TheEffectsReachOneFurther) {
  PerfDesk desk({{146, 90}, {148, 80}});
  desk.Up(kEffects);
  EXPECT_EQ(desk.Byte(146), 95);
  EXPECT_TRUE(desk.CanUp(kEffects)) << "95 isn't above 95";
  desk.Up(kEffects);
  EXPECT_EQ(desk.Byte(146), 100);
  EXPECT_EQ(desk.Byte(148), 90);
  EXPECT_FALSE(desk.CanUp(kEffects));
}

// -92 is A4, -97 is 9F. On the wire the negative value has 7F for its high byte.
TEST(PerfEditor, TheVelocityIsSigned) {
  PerfDesk desk({{65, 0xEC}, {77, 0xA4}});
  desk.Down(kVelocity);
  EXPECT_EQ(desk.Byte(65), 0xE7) << "-25";
  EXPECT_EQ(desk.Byte(77), 0x9F) << "-97";
  EXPECT_EQ(desk.Sent(), (Strings{"02 00 00 00", "07 01 67 7F", "02 00 00 00", "0A 01 1F 7F"}));
  EXPECT_FALSE(desk.CanDown(kVelocity)) << "-97 is below -94";
  desk.Up(kVelocity);
  EXPECT_EQ(desk.Byte(65), 0xEC);
  EXPECT_EQ(desk.Byte(77), 0xA4);
  EXPECT_TRUE(desk.CanDown(kVelocity));
}

TEST(PerfEditor, AVelocityPassesZeroInBothDirections) {
  PerfDesk desk({{65, 2}, {77, 0xFE}});
  desk.Down(kVelocity);
  EXPECT_EQ(desk.Byte(65), 0xFD);
  EXPECT_EQ(desk.Byte(77), 0xF9);
  desk.Up(kVelocity);
  desk.Up(kVelocity);
  EXPECT_EQ(desk.Byte(65), 7);
  EXPECT_EQ(desk.Byte(77), 3);
  EXPECT_TRUE(desk.CanUp(kVelocity));
  EXPECT_TRUE(desk.CanDown(kVelocity));
}

TEST(PerfEditor, OpeningTakesTheButtonsOfALimitAway) {
  PerfDesk desk({{59, 96}, {54, 4}, {62, 5}, {74, 94}, {65, 0xA0}, {77, 0xA0}, {146, 95}, {148, 96}});
  EXPECT_FALSE(desk.CanUp(kCutoff));
  EXPECT_TRUE(desk.CanDown(kCutoff));
  EXPECT_FALSE(desk.CanDown(kVibrato));
  EXPECT_TRUE(desk.CanUp(kVibrato));
  EXPECT_TRUE(desk.CanDown(kVdfEg)) << "5 is no limit yet";
  EXPECT_TRUE(desk.CanUp(5)) << "94 is no limit yet";
  EXPECT_FALSE(desk.CanDown(kVelocity)) << "-96";
  EXPECT_TRUE(desk.CanUp(kVelocity));
  EXPECT_FALSE(desk.CanUp(kEffects)) << "the second effect stands at 96";
  EXPECT_THAT(desk.Sent(), IsEmpty());
  EXPECT_FALSE(desk.state().ProgramChanged);
  EXPECT_FALSE(desk.state().PerfSilent);
}

// Without a step the last byte of a row decides whether "+" can be pressed; that is wanted. The press overshoots then.
TEST(PerfEditor, APressMayPassTheEndOfTheScale) {
  PerfDesk desk({{kMode, 1}, {59, 96}});
  ASSERT_TRUE(desk.CanUp(kCutoff)) << "oscillator 2 stands at 50";
  desk.Up(kCutoff);
  EXPECT_EQ(desk.Byte(59), 101);
  EXPECT_EQ(desk.Byte(106), 55);
  EXPECT_EQ(desk.Sent(), (Strings{"02 00 00 00", "04 01 65 00", "02 00 01 00", "04 01 37 00"}));
  EXPECT_FALSE(desk.CanUp(kCutoff));
  EXPECT_TRUE(desk.CanDown(kCutoff));
  PerfDesk other({{kMode, 1}, {106, 96}});
  EXPECT_FALSE(other.CanUp(kCutoff)) << "oscillator 2 comes last";
}

// A byte that is no value of its field is taken as it stands. 195 is 43 01 on the wire.
TEST(PerfEditor, ADoubtfulByteIsMovedAndBroughtBack) {
  PerfDesk desk({{59, 200}, {65, 130}});
  EXPECT_FALSE(desk.CanUp(kCutoff));
  desk.Down(kCutoff);
  EXPECT_EQ(desk.Byte(59), 195);
  EXPECT_EQ(desk.Sent(), (Strings{"02 00 00 00", "04 01 43 01"}));
  desk.Reset(kCutoff);
  EXPECT_EQ(desk.Byte(59), 200);
  desk.Down(kVelocity);
  EXPECT_EQ(desk.Byte(65), 125) << "130 isn't negative";
}

// The mode's other bits don't matter.
TEST(PerfEditor, DoubleIsToldByTwoBitsOfTheMode) {
  for (const auto& [mode, moved] : std::map<int, int>{{0, 50}, {1, 55}, {2, 50}, {3, 50}, {5, 55}, {254, 50}}) {
    PerfDesk desk(std::map<std::size_t, int>{{kMode, mode}});
    desk.Up(kCutoff);
    EXPECT_EQ(desk.Byte(59), 55) << mode;
    EXPECT_EQ(desk.Byte(106), moved) << mode;
  }
}

// The area in the accent's colour, from the middle at 10 to the count beside it.
TEST(PerfEditor, ABarShowsTheCount) {
  PerfDesk desk;
  const auto areas = [&desk](int row) {
    std::vector<std::pair<double, double>> found;
    for (const ui::Shape& shape : desk.Find<ui::Picture>(PerfDesk::Of("PerfPicture", row))->drawing().shapes) {
      if (shape.ink != ui::Ink::kAccent) continue;
      const auto [least, most] = std::minmax_element(shape.points.begin(), shape.points.end(),
                                                     [](const ui::Point& a, const ui::Point& b) { return a.x < b.x; });
      found.emplace_back(least->x, most->x);
    }
    return found;
  };
  EXPECT_THAT(areas(kCutoff), IsEmpty());
  for (int press = 0; press < 3; ++press) desk.Up(kCutoff);
  EXPECT_THAT(areas(kCutoff), ElementsAre(std::pair(10.0, 13.0)));
  for (int press = 0; press < 7; ++press) desk.Down(kCutoff);
  EXPECT_THAT(areas(kCutoff), ElementsAre(std::pair(6.0, 10.0)));
  EXPECT_THAT(areas(kVibrato), IsEmpty());
  desk.Reset(kCutoff);
  EXPECT_THAT(areas(kCutoff), IsEmpty());
}

// --- Resets ---

TEST(PerfEditor, AResetBringsTheCopiesOfTheBalancesBack) {
  PerfDesk desk({{146, 10}, {147, 77}, {148, 20}, {149, 88}});
  desk.Up(kEffects);
  EXPECT_EQ(desk.state().EditRecord.value().substr(145, 4), "\x0F\x0F\x19\x19");
  desk.Sent();
  desk.Reset(kEffects);
  EXPECT_EQ(desk.state().EditRecord.value().substr(145, 4), "\x0A\x4D\x14\x58");
  EXPECT_EQ(desk.Sent(), (Strings{"13 07 0A 00", "14 07 14 00"}));
}

TEST(PerfEditor, AResetTakesTheButtonsOfALimitAwayByTheValue) {
  PerfDesk desk({{kMode, 1}, {59, 96}, {65, 0xA0}, {146, 95}});
  EXPECT_TRUE(desk.CanUp(kCutoff));
  desk.Reset(kCutoff);
  EXPECT_FALSE(desk.CanUp(kCutoff)) << "a reset enables nothing behind the first limit";
  desk.Reset(kVelocity);
  EXPECT_FALSE(desk.CanDown(kVelocity)) << "-96";
  EXPECT_TRUE(desk.CanUp(kEffects));
  desk.Reset(kEffects);
  EXPECT_FALSE(desk.CanUp(kEffects)) << "behind a reset the effects' limit is 94 too";
}

TEST(PerfEditor, AllRowsAreResetInTheirOrder) {
  PerfDesk desk;
  const Bytes before = desk.state().EditRecord;
  for (int row = 0; row < 8; ++row) desk.Up(row);
  desk.Down(3);
  desk.Down(3);
  desk.Sent();
  desk.Press("frmEditPerf.CommResetAll");
  EXPECT_EQ(desk.state().EditRecord.value(), before);
  EXPECT_EQ(desk.Sent(), (Strings{"02 00 00 00", "0B 02 32 00", "02 00 00 00", "04 01 32 00", "02 00 00 00",
                                  "04 02 32 00", "02 00 00 00", "08 01 32 00", "02 00 00 00", "05 06 32 00",
                                  "02 00 00 00", "08 07 32 00", "02 00 00 00", "02 02 32 00", "02 00 00 00",
                                  "07 01 32 00", "02 00 00 00", "0A 01 32 00", "13 07 32 00", "14 07 32 00"}));
  EXPECT_THAT(desk.state().PerfStepValue, ElementsAre(0, 0, 0, 0, 0, 0, 0, 0));
}

TEST(PerfEditor, WhateverTheBytesAndThePressesAResetOfAllBringsTheRecordBack) {
  std::mt19937 random(7);
  for (int round = 0; round < 40; ++round) {
    std::map<std::size_t, int> bytes;
    for (std::size_t position = 17; position <= 172; ++position) bytes[position] = static_cast<int>(random() % 256);
    PerfDesk desk(bytes);
    if (round % 2 != 0) desk.OpenEditor();
    const Bytes before = desk.state().EditRecord;
    for (int press = 0; press < 60; ++press) {
      const int row = static_cast<int>(random() % 8);
      if (random() % 2 == 0) {
        desk.Up(row);
      } else {
        desk.Down(row);
      }
      const int count = std::stoi(desk.Count(row));
      ASSERT_LE(count, 10);
      ASSERT_GE(count, -10);
      ASSERT_EQ(desk.state().PerfStepValue[static_cast<std::size_t>(row)], count);
    }
    desk.Press("frmEditPerf.CommResetAll");
    ASSERT_EQ(desk.state().EditRecord.value(), before) << round;
  }
}

}  // namespace
}  // namespace zentaline::test
