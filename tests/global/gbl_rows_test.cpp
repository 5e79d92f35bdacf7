// Each control of the global window: what it shows of every byte, and what a change makes of it and sends.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>

#include "tests/global/gbl_desk.h"

namespace zentaline::test {
namespace {

using Lines = std::vector<std::string>;

class GlobalRows : public ::testing::Test, public GblDesk {};

TEST_F(GlobalRows, EveryControlShowsEveryByteAsTheTableSays) {
  const std::vector<Golden> table = GoldenTable();
  OpenBytes(GblFile());
  for (int byte = 0; byte < 256; ++byte) {
    Image() = Image().substr(0, 270) + GblFile(byte);
    // A list that is left as it was has no row.
    for (const Golden& row : table) {
      if (row.control.find("Combo") != std::string::npos) ShowValue(row.control, -1);
    }
    Window()->FillGlobalWindow();
    for (const Golden& row : table) {
      ASSERT_EQ(Value(row.control), row.shown(byte).value_or(-1)) << row.control << " byte " << byte;
    }
    EXPECT_EQ(Find<ui::OptionButton>("frmGbl.GblOption1(0)")->value(), (byte & 1) == 1) << byte;
    EXPECT_EQ(Find<ui::OptionButton>("frmGbl.GblOption1(1)")->value(), (byte & 1) == 0) << byte;
    ASSERT_EQ(Window()->window_image().substr(270), GblFile(byte)) << "looking changes nothing";
    ASSERT_FALSE(Changed());
    ASSERT_EQ(Wire(), Lines());
  }
}

// Files of any bytes: each control by its own byte.
TEST_F(GlobalRows, EveryControlShowsWhatAnyFileSays) {
  const std::vector<Golden> table = GoldenTable();
  std::mt19937 random(16);
  for (int round = 0; round < 60; ++round) {
    const std::string file = GblFile().substr(0, 8) + RandomBytes(random, 440);
    std::map<std::string, int> before;
    if (Window() == nullptr) OpenBytes(GblFile());
    for (const Golden& row : table) before[row.control] = Value(row.control);
    Image() = Image().substr(0, 270) + file;
    Window()->FillGlobalWindow();
    for (const Golden& row : table) {
      const int byte = At(file, row.position - 270);
      EXPECT_EQ(Value(row.control), row.shown(byte).value_or(before[row.control])) << row.control << " byte " << byte;
    }
    EXPECT_EQ(Find<ui::OptionButton>("frmGbl.GblOption1(0)")->value(), (At(file, 35) & 1) == 1);
    EXPECT_EQ(Find<ui::OptionButton>("frmGbl.GblOption1(1)")->value(), (At(file, 35) & 1) == 0);
    EXPECT_EQ(Window()->window_image().substr(270), file) << "looking changes nothing";
    EXPECT_FALSE(Changed());
    EXPECT_EQ(Wire(), Lines());
  }
}

TEST_F(GlobalRows, EveryValueIsStoredAndSendsTheWholeBlock) {
  const std::vector<Golden> table = GoldenTable();
  OpenBytes(GblFile(0));
  for (const Golden& row : table) {
    const bool curve = row.position == 322 || row.position == 323;
    // The notes are alike; of all but the first the ends and the middle are tried.
    const bool alike = row.control.starts_with("VScroll2") && row.position > 335;
    for (int value = row.low; value <= row.high; ++value) {
      if (alike && std::abs(value) > 1 && std::abs(value) < 50) continue;
      for (const int before : {0x00, 0xFF, 0xA5}) {
        Image() = Image().substr(0, 270) + GblFile(0x3C);
        PutByte(Image(), row.position, before);
        PutByte(Image(), 4, 0);
        ShowValue(row.control, value == row.low ? row.high : row.low);
        Bytes expected = Window()->window_image();
        Set(expected, row.position, row.stored(before, value));
        // The curves can be seen, not changed: a choice only sends.
        if (!curve) Set(expected, 4, 1);
        const std::string what = row.control + " to " + std::to_string(value) + " on " + std::to_string(before);
        ASSERT_TRUE(SetTo(row.control, value)) << what;
        ASSERT_EQ(Window()->window_image(), expected) << what;
        ExpectOneBlock(what);
      }
    }
  }
}

TEST_F(GlobalRows, DamperPolarityIsSetByPlusAndClearedByMinus) {
  OpenBytes(GblFile(0xA4));
  EXPECT_TRUE(Find<ui::OptionButton>("frmGbl.GblOption1(1)")->value());
  EXPECT_TRUE(Find<ui::OptionButton>("frmGbl.GblOption1(0)")->UserPress());
  EXPECT_EQ(Byte(305), 0xA5);
  EXPECT_TRUE(Changed());
  ExpectOneBlock("plus");
  EXPECT_TRUE(Find<ui::OptionButton>("frmGbl.GblOption1(1)")->UserPress());
  EXPECT_EQ(Byte(305), 0xA4);
  ExpectOneBlock("minus");
}

TEST_F(GlobalRows, ListsHaveTheRowsThatTheInstrumentNames) {
  OpenBytes(GblFile());
  Lines pedals;
  for (const PedalFunction& pedal : kPedals) pedals.emplace_back(pedal.name);
  for (int i = 10; i <= 15; ++i) EXPECT_EQ(Rows("frmGbl.GblCombo1(" + std::to_string(i) + ")"), pedals) << i;
  EXPECT_EQ(Rows("frmGbl.GblCombo1(0)"), (Lines{" U+2", " U+1", " U+0", " U-1"}));
  // The third one really reads so.
  EXPECT_EQ(Rows("frmGbl.GblCombo1(1)"), (Lines{" L+2", " L+1", " U+0", " L-1"}));
  const Lines curves = {" 1", " 2", " 3", " 4", " 5", " 6", " 7", " 8"};
  EXPECT_EQ(Rows("frmGbl.GblCombo1(2)"), curves);
  EXPECT_EQ(Rows("frmGbl.GblCombo1(3)"), curves);
  EXPECT_EQ(Find<ui::ComboBox>("frmGbl.GblCombo1(4)"), nullptr) << "there is none";
  EXPECT_EQ(Rows("frmGbl.GblCombo1(5)"), (Lines{"Fingered1", "Fingered2", "One Finger"}));
  Lines scales = {"EQUAL TEMP",  "EQUAL TEMP 2", "PURE MAJOR", "PURE MINOR", "ARABIC",
                  "PYTHAGOREAN", "WERKMEISTER",  "KIRNBERGER", "SLENDRO",    "PELOG"};
  for (int i = 1; i <= 14; ++i) scales.push_back("USER SCALE " + std::to_string(i));
  EXPECT_EQ(Rows("frmGbl.GblCombo1(6)"), scales);
  EXPECT_EQ(Rows("frmGbl.GblCombo1(7)"), scales);
  for (const char* keys : {"frmGbl.GblCombo1(8)", "frmGbl.GblCombo1(9)"}) {
    EXPECT_EQ(Rows(keys).size(), 12u);
    EXPECT_EQ(Rows(keys).front(), " C");
    EXPECT_EQ(Rows(keys).back(), " B");
  }
  for (int i = 16; i <= 18; ++i) {
    EXPECT_EQ(Rows("frmGbl.GblCombo1(" + std::to_string(i) + ")"), (Lines{" PRG", " DIS"}));
  }
  EXPECT_EQ(Rows("frmGbl.GblCombo1(19)"), (Lines{" OFF", " IN 1", " IN 2"}));
  EXPECT_EQ(Rows("frmGbl.Combo3(0)"), (Lines{" 3", " 2", " 1", " 0", " -1", " -2", " -3"}));
  Lines channels = {" OFF"};
  for (int i = 1; i <= 16; ++i) channels.push_back(" " + std::to_string(i));
  EXPECT_EQ(Rows("frmGbl.Combo3(1)"), channels);
  Lines tracks = {" OFF", " DRUM", " PERC", " BASS", " ACC1", " ACC2", " ACC3", " UP1", " LOW/UP2"};
  for (int i = 1; i <= 8; ++i) tracks.push_back(" ETr" + std::to_string(i));
  EXPECT_EQ(Rows("frmGbl.Combo3(2)"), tracks);
  Lines songs = {" OFF"};
  for (const char* kind : {" MIDI Ch", " Song Ch"}) {
    for (int i = 1; i <= 16; ++i) songs.push_back(kind + std::string(i < 10 ? "0" : "") + std::to_string(i));
  }
  EXPECT_EQ(Rows("frmGbl.Combo3(3)"), songs);
}

TEST_F(GlobalRows, LabelsTellTheValuesOfTheBars) {
  OpenBytes(GblFile());
  EXPECT_EQ(Text("frmGbl.GblLab1(0)"), "0");
  EXPECT_EQ(Text("frmGbl.GblLab1(1)"), "Normal");
  EXPECT_EQ(Text("frmGbl.Lab3(0)"), "C-1");
  EXPECT_EQ(Text("frmGbl.Lab3(1)"), "B-1") << "11 is the lowest";
  const std::vector<std::pair<std::pair<const char*, int>, std::pair<const char*, const char*>>> moves = {
      {{"GblHScroll1(0)", -50}, {"GblLab1(0)", "-50"}}, {{"GblHScroll1(0)", 7}, {"GblLab1(0)", "7"}},
      {{"GblHScroll1(1)", 127}, {"GblLab1(1)", "127"}}, {{"GblHScroll1(1)", 0}, {"GblLab1(1)", "Normal"}},
      {{"HScroll3(0)", 61}, {"Lab3(0)", "C#4"}},        {{"HScroll3(0)", 116}, {"Lab3(0)", "G#8"}},
      {{"HScroll3(1)", 127}, {"Lab3(1)", "G9"}},        {{"HScroll3(1)", 60}, {"Lab3(1)", "C4"}},
      {{"VScroll2(0)", -1}, {"Lab2(0)", "-1"}},         {{"VScroll2(47)", 50}, {"Lab2(47)", "50"}},
  };
  for (const auto& [move, label] : moves) {
    ASSERT_TRUE(SetTo(move.first, move.second)) << move.first;
    EXPECT_EQ(Text(std::string("frmGbl.") + label.first), label.second) << move.first;
  }
}

TEST_F(GlobalRows, BarsOfTheScalesHaveTheirHighestValueAtTheTop) {
  OpenBytes(GblFile());
  for (int i = 0; i < 48; ++i) {
    auto* bar = Find<ui::ScrollBar>("frmGbl.VScroll2(" + std::to_string(i) + ")");
    EXPECT_TRUE(bar->vertical);
    EXPECT_EQ(bar->min(), 50);
    EXPECT_EQ(bar->max(), -50);
  }
}

// --- Wanted oddities ---

// The octave of the upper parts replaces the whole byte: the lower part goes with it, though its list isn't shown anew.
TEST_F(GlobalRows, TheOctaveOfTheUpperPartsReplacesTheWholeByte) {
  OpenBytes(GblFile());
  Image() = Image().substr(0, 515) + Hand({0x12}) + Image().substr(516);
  Window()->FillGlobalWindow();
  EXPECT_EQ(Value("GblCombo1(0)"), 0);
  EXPECT_EQ(Value("GblCombo1(1)"), 1);
  EXPECT_EQ(Wire(), Lines());
  ASSERT_TRUE(SetTo("GblCombo1(0)", 3));
  EXPECT_EQ(Byte(516), 255);
  EXPECT_EQ(Value("GblCombo1(1)"), 1) << "not shown anew";
  ExpectOneBlock("U-1");
  Window()->FillGlobalWindow();
  EXPECT_EQ(Value("GblCombo1(1)"), 3);
}

// "VARIATION UP" writes 22, which "EFFECT 1 ON/OFF" writes too; the byte shows as the first of them.
TEST_F(GlobalRows, Code22ShowsAsTheFirstOfItsTwoNames) {
  OpenBytes(GblFile());
  ASSERT_TRUE(SetTo("GblCombo1(10)", 25));
  EXPECT_EQ(Text("frmGbl.GblCombo1(10)"), "EFFECT 1 ON/OFF");
  EXPECT_EQ(Byte(306), 22);
  Window()->FillGlobalWindow();
  EXPECT_EQ(Text("frmGbl.GblCombo1(10)"), "VARIATION UP");
}

// A list that finds no row for its byte is left as it was.
TEST_F(GlobalRows, AByteWithoutARowLeavesTheListAsItWas) {
  OpenBytes(GblFile());
  ASSERT_TRUE(SetTo("GblCombo1(10)", 9));
  Set(Image(), 306, 19);
  Set(Image(), 308, 24);
  Window()->FillGlobalWindow();
  EXPECT_EQ(Value("GblCombo1(10)"), 9);
  EXPECT_EQ(Value("GblCombo1(6)"), 0);
}

TEST_F(GlobalRows, AChoiceOfACurveOnlySendsTheBlockAsItStands) {
  OpenBytes(GblFile(5));
  ASSERT_TRUE(SetTo("GblCombo1(2)", 1));
  EXPECT_EQ(Byte(322), 5);
  EXPECT_FALSE(Changed());
  ExpectOneBlock("curve");
}

// --- Resetting a scale ---

TEST_F(GlobalRows, ResettingAScaleSendsOneBlockAndNotTwelve) {
  for (int scale = 0; scale < 4; ++scale) {
    OpenBytes(GblFile(7));
    ASSERT_TRUE(Press("frmGbl.CommResetUS(" + std::to_string(scale) + ")"));
    Bytes expected = GblFile(7);
    expected.replace(64 + 12 * static_cast<std::size_t>(scale), 12, Zeros(12));
    EXPECT_EQ(Window()->window_image().substr(270), expected);
    EXPECT_TRUE(Changed());
    ExpectOneBlock("reset");
    for (int i = 0; i < 48; ++i) {
      const int value = i / 12 == scale ? 0 : 7;
      EXPECT_EQ(Value("VScroll2(" + std::to_string(i) + ")"), value) << i;
      EXPECT_EQ(Text("frmGbl.Lab2(" + std::to_string(i) + ")"), std::to_string(value)) << i;
    }
    EXPECT_EQ(program.app.core.FormLoading, false);
  }
}

TEST_F(GlobalRows, ResettingAScaleThatIsZeroSendsAndMarksToo) {
  OpenBytes(GblFile());
  ASSERT_TRUE(Press("frmGbl.CommResetUS(1)"));
  EXPECT_TRUE(Changed());
  ExpectOneBlock("reset");
}

// --- What the door notes ---

TEST_F(GlobalRows, AChangeIsNotedWithItsWords) {
  OpenBytes(GblFile());
  SetTo("GblHScroll1(0)", 5);
  SetTo("VScroll2(14)", -3);
  Press("frmGbl.CommResetUS(1)");
  const auto& actions = program.app.edits.actions();
  ASSERT_EQ(actions.size(), 3u);
  EXPECT_EQ(actions[0].words.what, "Master Tune");
  EXPECT_EQ(actions[0].words.of, "General");
  EXPECT_EQ(actions[1].words.what, "D");
  EXPECT_EQ(actions[1].words.of, "User Scale 2");
  EXPECT_EQ(actions[2].words.what, "Reset");
  EXPECT_EQ(actions[2].words.of, "User Scale 2");
}

// What was sent stays in the instrument.
TEST_F(GlobalRows, TakingAChangeBackLeavesWhatTheInstrumentHolds) {
  OpenBytes(GblFile());
  const int before = Byte(303);
  SetTo("GblHScroll1(0)", before + 5);
  ASSERT_NE(program.app.edits.StepBack(), nullptr);
  EXPECT_EQ(Byte(303), before);
  EXPECT_EQ(At(program.app.global.GlobalRecord, 33), before + 5);
  EXPECT_EQ(program.app.edits.StepBack(), nullptr) << "the block is no action of its own";
}

// --- Random files ---

TEST_F(GlobalRows, WalkingThroughEveryControlAndBackLeavesOnlyWhatWasMoved) {
  const std::vector<Golden> table = GoldenTable();
  std::mt19937 random(51);
  for (int round = 0; round < 12; ++round) {
    OpenBytes(GblFile().substr(0, 8) + RandomBytes(random, 440));
    const Bytes opened = Window()->window_image();
    for (const Golden& row : table) {
      const int value = Value(row.control);
      if (value < row.low) continue;
      Bytes expected = Window()->window_image();
      const int other = value == row.low ? row.high : row.low;
      SetTo(row.control, other);
      SetTo(row.control, value);
      const int there = row.stored(At(expected, row.position), other);
      Set(expected, row.position, row.stored(there, value));
      Set(expected, 4, At(Window()->window_image(), 4));
      ASSERT_EQ(Window()->window_image(), expected) << row.control;
    }
    // Bytes that nobody names are carried.
    for (const std::size_t position : {279u, 302u, 304u, 307u, 310u, 321u, 333u, 334u, 383u, 514u, 517u, 526u, 718u}) {
      EXPECT_EQ(Byte(position), At(opened, position)) << position;
    }
  }
}

// In any order, to both ends and anywhere between, and the two buttons of the damper among them.
TEST_F(GlobalRows, AWalkInAnyOrderStoresNothingButWhatIsMoved) {
  std::vector<Golden> table = GoldenTable();
  std::mt19937 random(5);
  for (int round = 0; round < 4; ++round) {
    OpenBytes(GblFile().substr(0, 8) + RandomBytes(random, 440));
    Bytes expected = Window()->window_image();
    // The two octaves share a byte, of which one list takes all: each is put back behind the other.
    std::shuffle(table.begin(), table.end(), random);
    std::size_t moved = 0;
    for (const Golden& row : table) {
      const int before = Value(row.control);
      for (const int value : {row.low, row.high, RandomNumber(random, row.low, row.high), before}) {
        if (value < row.low || value == Value(row.control)) continue;
        ASSERT_TRUE(SetTo(row.control, value));
        Set(expected, row.position, row.stored(At(expected, row.position), value));
        Set(expected, 4, At(Window()->window_image(), 4));
        ASSERT_EQ(Window()->window_image(), expected) << row.control << " to " << value;
        ++moved;
      }
      const int button = RandomNumber(random, 0, 9);
      if (button > 1) continue;
      ASSERT_TRUE(Find<ui::OptionButton>("frmGbl.GblOption1(" + std::to_string(button) + ")")->UserPress());
      Set(expected, 305, (At(expected, 305) & 0xFE) | (1 - button));
      Set(expected, 4, At(Window()->window_image(), 4));
      ASSERT_EQ(Window()->window_image(), expected) << "damper " << button;
    }
    EXPECT_GT(moved, 2 * table.size());
    EXPECT_TRUE(Changed());
  }
}

}  // namespace
}  // namespace zentaline::test
