// Every control of the arrangement editor: what it stores and what it sends, written down by hand.
#include <gtest/gtest.h>

#include <cstdio>

#include "tests/arrangement/editor_desk.h"

namespace zentaline::test {
namespace {

struct Case {
  const char* control;
  int move;
  std::size_t offset;
  int old_byte;
  int new_byte;
  const char* sent;  // "ID LO HI", empty for nothing
};

// A byte for each offset that a case needs to be changed from.
std::string RecordWith(std::size_t offset, int byte) {
  std::string record = EmptyRecord();
  record[offset] = static_cast<char>(byte);
  return record;
}

constexpr Case kGeneral[] = {
    {"VScroll1(0)", 41, 21, 0, 11, "00 29 00"},
    {"VScroll1(0)", 127, 21, 10, 97, "00 7F 00"},
    {"VScroll1(0)", 128, 21, 10, 98, "00 00 01"},
    {"VScroll1(0)", 240, 21, 10, 210, "00 70 01"},
    {"VScroll1(0)", 40, 21, 100, 10, "00 28 00"},
    {"HScroll1(0)", 36, 23, 60, 36, "02 24 00"},
    {"HScroll1(0)", 96, 23, 60, 96, "02 60 00"},
    {"Combo1(0)", 10, 22, 0, 10, ""},
    {"Combo1(1)", 12, 37, 0, 12, "04 0C 00"},
    {"Combo1(1)", 0, 37, 5, 0, "04 00 00"},
    {"Combo1(2)", 11, 38, 0, 11, "05 0B 00"},
    {"Combo1(3)", 3, 19, 0, 3, ""},
    {"Combo1(4)", 0, 25, 0, 11, "03 0B 00"},
    {"Combo1(4)", 10, 25, 0, 1, "03 01 00"},
    {"Combo1(4)", 11, 25, 3, 0, "03 00 00"},
    {"Combo1(4)", 12, 25, 0, 255, "03 7F 7F"},
    {"Combo1(4)", 22, 25, 0, 245, "03 75 7F"},
    {"HScroll1(1)", 8, 29, 1, 8, ""},
    {"HScroll1(1)", 1, 29, 4, 1, ""},
    {"Combo1(8)", 9, 24, 0, 9, ""},
    {"Combo1(8)", 2, 24, 0x83, 0x82, ""},
    {"Check1(9)", 1, 24, 0x05, 0x85, ""},
    {"Check1(9)", 0, 24, 0x85, 0x05, ""},
    {"Combo1(9)", 7, 26, 0, 7, ""},
    {"Combo1(9)", 15, 26, 0, 15, ""},
    {"Check1(0)", 1, 27, 0xF2, 0xF3, ""},
    {"Check1(1)", 0, 27, 0x02, 0x00, ""},
    {"Check1(2)", 1, 27, 0x00, 0x04, "4F 01 00"},
    {"Check1(2)", 0, 27, 0x0F, 0x0B, "4F 00 00"},
    {"Check1(3)", 1, 27, 0x01, 0x09, "59 01 00"},
    {"Check1(3)", 0, 27, 0x08, 0x00, "59 00 00"},
    {"Check1(4)", 1, 28, 0xE0, 0xE1, ""},
    {"Check1(5)", 1, 28, 0x00, 0x02, ""},
    {"Check1(6)", 1, 28, 0x10, 0x14, ""},
    {"Check1(7)", 1, 28, 0x00, 0x08, ""},
    {"Check1(8)", 1, 28, 0x0F, 0x1F, "01 01 00"},
    {"Check1(8)", 0, 28, 0x1F, 0x0F, "01 00 00"},
    {"EffCombo(0)", 0, 135, 0, 47, "06 2F 00"},
    {"EffCombo(0)", 47, 135, 20, 0, "06 00 00"},
    {"EffCombo(1)", 46, 136, 0, 1, "08 01 00"},
    {"EffCombo(1)", 13, 136, 0, 34, "08 22 00"},
};

TEST(EditorRows, EveryGeneralControlStoresItsValueAloneAndSendsItsParameter) {
  for (const Case& each : kGeneral) {
    SCOPED_TRACE(std::string(each.control) + " to " + std::to_string(each.move));
    EditorDesk desk({RecordWith(each.offset, each.old_byte)});
    std::string expected = desk.Edited();
    ASSERT_TRUE(desk.Move(each.control, each.move));
    Set(expected, each.offset + 1, each.new_byte);
    EXPECT_EQ(HexText(desk.Edited()), HexText(expected));
    EXPECT_EQ(desk.Params(), each.sent[0] == '\0' ? Strings() : Strings{each.sent});
    EXPECT_TRUE(desk.State().EditorChanged);
  }
}

TEST(EditorRows, TheDrumMapOfEachVariationHasItsOwnByte) {
  std::string record = EmptyRecord();
  record.replace(29, 4, Hand({1, 2, 3, 4}));
  for (int variation = 0; variation < 4; ++variation) {
    EditorDesk desk({record});
    std::string expected = desk.Edited();
    desk.Move("Combo1(5)", variation);
    EXPECT_EQ(desk.Shows("HScroll1(1)"), variation + 1);
    EXPECT_EQ(desk.Reads("Label1(4)"), std::to_string(variation + 1));
    EXPECT_EQ(HexText(desk.Edited()), HexText(expected)) << "choosing a variation writes nothing";
    desk.Move("HScroll1(1)", 7);
    Set(expected, 30 + static_cast<std::size_t>(variation), 7);
    EXPECT_EQ(HexText(desk.Edited()), HexText(expected));
    EXPECT_EQ(desk.Reads("Label1(4)"), "7");
    EXPECT_EQ(desk.Params(), Strings());
  }
}

// The ids of the nine parts, in hexadecimal, as the instrument has them.
struct PartIds {
  int volume, pan, c_send, d_send, mute, octave, status, wrap;
};
constexpr PartIds kIds[] = {
    {0x0B, 0x0C, 0x0D, 0x0E, 0x0F, 0x10, 0x11, 0x12}, {0x15, 0x16, 0x17, 0x18, 0x19, 0x1A, 0x1B, 0x1C},
    {0x1F, 0x20, 0x21, 0x22, 0x23, 0x24, 0x25, 0x26}, {0x29, 0x2A, 0x2B, 0x2C, 0x2D, 0x2E, 0x2F, 0x30},
    {0x33, 0x34, 0x35, 0x36, 0x37, 0x38, 0x39, 0x3A}, {0x3D, 0x3E, 0x3F, 0x40, 0x41, 0x42, 0x43, 0x44},
    {0x47, 0x48, 0x49, 0x4A, 0x4B, 0x4C, 0x4D, 0x4E}, {0x51, 0x52, 0x53, 0x54, 0x55, 0x56, 0x57, 0x58},
    {0x5B, 0x5C, 0x5D, 0x5E, 0x5F, 0x60, 0x61, 0x62},
};

struct PartCase {
  const char* array;
  int index;  // of part 0
  int step;   // from part to part
  int move;
  std::size_t offset;  // in the block
  int old_byte;
  int new_byte;
  int PartIds::*id;
  const char* sent;  // "LO HI", empty for nothing
  std::vector<int> silent;
};

const std::vector<PartCase>& PartCases() {
  static const std::vector<int> kDrums = {2, 8};
  static const std::vector<int> kStatus = {45, 51};
  static const std::vector<int> kWrap = {5, 11, 47, 53};
  static const std::vector<PartCase> kCases = {
      {"VScroll1", 1, 2, 127, 2, 0, 127, &PartIds::volume, "7F 00", {}},
      {"VScroll1", 1, 2, 0, 2, 64, 0, &PartIds::volume, "00 00", {}},
      {"VScroll1", 2, 2, 1, 3, 15, 255, &PartIds::pan, "7F 7F", {}},
      {"VScroll1", 2, 2, 2, 3, 15, 0, &PartIds::pan, "00 00", {}},
      {"VScroll1", 2, 2, 16, 3, 15, 14, &PartIds::pan, "0E 00", {}},
      {"VScroll1", 2, 2, 17, 3, 0, 15, &PartIds::pan, "0F 00", {}},
      {"VScroll1", 2, 2, 18, 3, 15, 16, &PartIds::pan, "10 00", {}},
      {"VScroll1", 2, 2, 32, 3, 15, 30, &PartIds::pan, "1E 00", {}},
      {"VScroll1", 2, 2, 33, 3, 15, 31, &PartIds::pan, "1F 00", {}},
      {"Combo2", 0, 6, 0, 4, 0x35, 0x3A, &PartIds::c_send, "0A 00", {}},
      {"Combo2", 0, 6, 10, 4, 0xA9, 0xA0, &PartIds::c_send, "00 00", {}},
      {"Combo2", 1, 6, 0, 4, 0x35, 0xA5, &PartIds::d_send, "0A 00", {}},
      {"Combo2", 1, 6, 1, 4, 0x05, 0x95, &PartIds::d_send, "09 00", {}},
      {"Combo2", 2, 6, 0, 5, 0, 2, &PartIds::octave, "02 00", kDrums},
      {"Combo2", 2, 6, 2, 5, 1, 0, &PartIds::octave, "00 00", kDrums},
      {"Combo2", 2, 6, 3, 5, 0, 255, &PartIds::octave, "7F 7F", kDrums},
      {"Combo2", 2, 6, 4, 5, 0, 254, &PartIds::octave, "7E 7F", kDrums},
      {"Combo2", 3, 6, 0, 6, 0x0B, 0x08, &PartIds::status, "00 00", kStatus},
      {"Combo2", 3, 6, 3, 6, 0x04, 0x07, &PartIds::status, "03 00", kStatus},
      {"Combo2", 4, 6, 0, 6, 0x06, 0x02, &PartIds::mute, "00 00", {}},
      {"Combo2", 4, 6, 1, 6, 0x03, 0x07, &PartIds::mute, "01 00", {}},
      {"Combo2", 4, 6, 2, 6, 0x01, 0x09, &PartIds::mute, "", {}},
      {"Combo2", 5, 6, 0, 7, 0, 11, &PartIds::wrap, "0B 00", kWrap},
      {"Combo2", 5, 6, 11, 7, 5, 0, &PartIds::wrap, "00 00", kWrap},
      {"Combo2", 5, 6, 12, 7, 0, 255, &PartIds::wrap, "7F 7F", kWrap},
  };
  return kCases;
}

TEST(EditorRows, EveryControlOfAllNinePartsStoresItsValueAloneAndSendsItsParameter) {
  for (int part = 0; part < 9; ++part) {
    for (const PartCase& each : PartCases()) {
      const int index = each.index + each.step * part;
      const std::string control = std::string(each.array) + "(" + std::to_string(index) + ")";
      SCOPED_TRACE(control + " to " + std::to_string(each.move));
      const std::size_t offset = 39 + 8 * static_cast<std::size_t>(part) + each.offset;
      EditorDesk desk({RecordWith(offset, each.old_byte)});
      std::string expected = desk.Edited();
      ASSERT_TRUE(desk.Move(control, each.move));
      Set(expected, offset + 1, each.new_byte);
      EXPECT_EQ(HexText(desk.Edited()), HexText(expected));
      const bool silent =
          each.sent[0] == '\0' || std::find(each.silent.begin(), each.silent.end(), index) != each.silent.end();
      char id[3];
      std::snprintf(id, sizeof id, "%02X", static_cast<unsigned>(kIds[part].*each.id));
      EXPECT_EQ(desk.Params(), silent ? Strings() : Strings{std::string(id) + " " + each.sent});
    }
  }
}

TEST(EditorRows, ThePansCaptionTellsTheSideAndHowFar) {
  EditorDesk desk;
  const Strings expected = {"OFF", "L15", "L1", "CNT", "R1", "R15", "PRG"};
  Strings shown;
  for (const int value : {1, 2, 16, 17, 18, 32, 33}) {
    desk.Move("VScroll1(14)", value);
    shown.push_back(desk.Reads("Label2(14)"));
  }
  EXPECT_EQ(shown, expected);
}

TEST(EditorRows, TheValuesStandBesideTheBars) {
  EditorDesk desk;
  desk.Move("VScroll1(0)", 137);
  desk.Move("VScroll1(5)", 99);
  EXPECT_EQ(desk.Reads("Label1(0)"), "137");
  EXPECT_EQ(desk.Reads("Label2(5)"), "99");
  Strings notes;
  for (const int note : {36, 37, 39, 42, 47, 48, 60, 68, 95, 96}) {
    desk.Move("HScroll1(0)", note);
    notes.push_back(desk.Reads("Label1(3)"));
  }
  EXPECT_EQ(notes, (Strings{"C2", "C2#", "D2#", "F2#", "B2", "C3", "C4", "G4#", "B6", "C7"}));
}

TEST(EditorRows, AnEffectsCaptionTellsTheStoredNumber) {
  EditorDesk desk;
  EXPECT_EQ(desk.Reads("EffLab1(0)"), "Effect 1 (Off)");
  desk.Move("EffCombo(0)", 0);
  desk.Move("EffCombo(1)", 46);
  EXPECT_EQ(desk.Reads("EffLab1(0)"), "Effect 1 (47)");
  EXPECT_EQ(desk.Reads("EffLab1(1)"), "Effect 2 (1)");
  desk.Move("EffCombo(1)", 47);
  EXPECT_EQ(desk.Reads("EffLab1(1)"), "Effect 2 (Off)");
}

TEST(EditorRows, TheListsHaveTheirRows) {
  EditorDesk desk;
  const auto rows = [&desk](const std::string& name) { return desk.Rows(EditorDesk::Of(name)); };
  EXPECT_EQ(rows("Combo1(3)"), (Strings{" 1", " 2", " 3", " 4"}));
  EXPECT_EQ(rows("Combo1(4)"),
            (Strings{" +11", " +10", " +9", " +8", " +7", " +6", " +5", " +4", " +3", " +2",  " +1", "  0",
                     " -1",  " -2",  " -3", " -4", " -5", " -6", " -7", " -8", " -9", " -10", " -11"}));
  EXPECT_EQ(rows("Combo1(5)"), (Strings{" VAR1", " VAR2", " VAR3", " VAR4"}));
  EXPECT_EQ(rows("Combo1(6)"), (Strings{" A", " B", " C", " D"}));
  EXPECT_EQ(rows("Combo1(7)"), rows("Combo1(6)"));
  EXPECT_EQ(rows("Combo1(1)").size(), 13U);
  EXPECT_EQ(rows("Combo1(2)"), rows("Combo1(1)"));
  EXPECT_EQ(rows("Combo1(9)"), (Strings{" Dr11", " Dr12", " Dr13", " Dr14", " Dr15", " Dr16", " Dr17", " Dr18", " Dr21",
                                        " Dr22", " Dr23", " Dr24", " Dr25", " Dr26", " Dr27", " Dr28"}));
  EXPECT_EQ(rows("EffCombo(0)").size(), 48U);
  EXPECT_EQ(rows("EffCombo(0)")[13], "Rotary Speaker");
  EXPECT_EQ(rows("EffCombo(1)"), rows("EffCombo(0)"));
  for (int part = 0; part < 9; ++part) {
    const auto list = [&](int i) { return rows("Combo2(" + std::to_string(6 * part + i) + ")"); };
    EXPECT_EQ(list(0), (Strings{"PRG", " 9", " 8", " 7", " 6", " 5", " 4", " 3", " 2", " 1", " 0"}));
    EXPECT_EQ(list(1), list(0));
    EXPECT_EQ(list(2), (Strings{" +2", " +1", "  0", " -1", " -2"}));
    EXPECT_EQ(list(3), (Strings{"OFF", "INT", "EXT", "BOTH"}));
    EXPECT_EQ(list(4), (Strings{"PLAY", "MUTE", "SOLO"}));
    EXPECT_EQ(list(5), (Strings{" 12", " 11", " 10", " 9", " 8", " 7", " 6", " 5", " 4", " 3", " 2", " 1", " ORG"}));
  }
}

TEST(EditorRows, BarsGoNoFurtherThanTheirRange) {
  EditorDesk desk;
  EXPECT_FALSE(desk.Move("VScroll1(0)", 39));
  EXPECT_FALSE(desk.Move("VScroll1(0)", 241));
  EXPECT_FALSE(desk.Move("HScroll1(0)", 35));
  EXPECT_FALSE(desk.Move("HScroll1(0)", 97));
  EXPECT_FALSE(desk.Move("HScroll1(1)", 0));
  EXPECT_FALSE(desk.Move("HScroll1(1)", 9));
  EXPECT_FALSE(desk.Move("VScroll1(1)", 128));
  EXPECT_FALSE(desk.Move("VScroll1(2)", 0));
  EXPECT_FALSE(desk.Move("VScroll1(2)", 34));
  const auto* volume = desk.Find<ui::ScrollBar>("frmEditArr.VScroll1(3)");
  EXPECT_EQ(volume->min(), 127) << "the loudest stands at the top";
  EXPECT_EQ(volume->max(), 0);
  const auto* tempo = desk.Find<ui::ScrollBar>("frmEditArr.VScroll1(0)");
  EXPECT_EQ(tempo->step(), 1);
  EXPECT_EQ(tempo->page(), 10);
}

}  // namespace
}  // namespace zentaline::test
