// What the arrangement editor shows of a record, sensible or not. The table of what must be shown is written here once
// more, on its own.
#include <gtest/gtest.h>

#include "tests/arrangement/editor_desk.h"

namespace zentaline::test {
namespace {

int Above(int value, int most, int otherwise) {
  return value > most ? otherwise : value;
}

// What each control must show, by its name.
std::vector<std::pair<std::string, int>> Expected(const std::string& record) {
  const auto byte = [&record](std::size_t offset) { return At(record, offset + 1); };
  std::vector<std::pair<std::string, int>> shown;
  const auto add = [&shown](std::string name, int value) { shown.emplace_back(std::move(name), value); };
  const auto of = [](const char* array, int index) { return std::string(array) + "(" + std::to_string(index) + ")"; };

  add("Combo1(0)", Above(byte(22), 10, 0));
  add("Combo1(3)", Above(byte(19), 3, 0));
  add("Combo1(1)", Above(byte(37), 12, 0));
  add("Combo1(2)", Above(byte(38), 12, 0));
  add("VScroll1(0)", byte(21) < 10 || byte(21) > 210 ? 40 : byte(21) + 30);
  add("HScroll1(0)", byte(23) < 36 || byte(23) > 96 ? 60 : byte(23));
  const int transpose = byte(25);
  add("Combo1(4)", transpose >= 245 ? 22 - (transpose - 245) : transpose <= 11 ? 11 - transpose : 0);
  add("Combo1(9)", Above(byte(26), 7, 0));
  add("HScroll1(1)", byte(29) < 1 || byte(29) > 8 ? 1 : byte(29));
  add("Combo1(5)", 0);
  add("EffCombo(0)", 47 - Above(byte(135), 47, 0));
  add("EffCombo(1)", 47 - Above(byte(136), 47, 0));
  add("Combo1(6)", Above(byte(33), 3, 0));
  add("Combo1(7)", Above(byte(34), 3, 0));
  add("Combo1(8)", Above(byte(24) & 127, 9, 0));
  add("Check1(9)", byte(24) >> 7);
  for (int bit = 0; bit < 4; ++bit) add(of("Check1", bit), byte(27) >> bit & 1);
  for (int bit = 0; bit < 5; ++bit) add(of("Check1", 4 + bit), byte(28) >> bit & 1);
  for (int t = 0; t < 9; ++t) {
    const auto part = [&](std::size_t i) { return byte(39 + 8 * static_cast<std::size_t>(t) + i); };
    add(of("VScroll1", 1 + 2 * t), Above(part(2), 127, 100));
    add(of("VScroll1", 2 + 2 * t), part(3) == 255 ? 1 : part(3) <= 31 ? part(3) + 2 : 17);
    add(of("Combo2", 6 * t), 10 - Above(part(4) & 15, 10, 10));
    add(of("Combo2", 6 * t + 1), 10 - Above(part(4) >> 4, 10, 10));
    add(of("Combo2", 6 * t + 2), part(5) <= 2 ? 2 - part(5) : part(5) >= 254 ? 258 - part(5) : 2);
    const int status = part(6) > 11 ? 3 : part(6);
    add(of("Combo2", 6 * t + 3), status & 3);
    add(of("Combo2", 6 * t + 4), status >> 2);
    add(of("Combo2", 6 * t + 5), part(7) == 255 ? 12 : part(7) <= 11 ? 11 - part(7) : 0);
  }
  return shown;
}

void ExpectShown(EditorDesk& desk, const std::string& record) {
  for (const auto& [name, value] : Expected(record)) EXPECT_EQ(desk.Shows(name), value) << name;
}

std::string RandomRecord(std::mt19937& random) {
  std::string record = RandomBytes(random, 164);
  if (record[0] == '\0' || record[0] == ' ') record[0] = 'N';
  return record;
}

TEST(EditorFill, RandomRecordsShowWhatTheTablesSayAndLookingChangesNothing) {
  std::mt19937 random(35);
  for (int round = 0; round < 60; ++round) {
    SCOPED_TRACE(round);
    const std::string first = RandomRecord(random);
    const std::string second = RandomRecord(random);
    EditorDesk desk({first, second});
    ExpectShown(desk, first);
    EXPECT_EQ(HexText(desk.Edited().substr(0, 164)), HexText(first));
    EXPECT_FALSE(desk.State().EditorChanged);
    desk.Select(1);
    ExpectShown(desk, second);
    EXPECT_EQ(HexText(desk.Edited().substr(0, 164)), HexText(second));
    EXPECT_FALSE(desk.State().EditorChanged);
    EXPECT_TRUE(desk.program.Boxes().empty());
    EXPECT_EQ(desk.Byte(1, 4), 0) << "the file counts as unchanged";
  }
}

TEST(EditorFill, AMoveOnARandomRecordChangesItsOwnFieldOnly) {
  std::mt19937 random(36);
  for (int round = 0; round < 60; ++round) {
    const std::string record = RandomRecord(random);
    EditorDesk desk({record});
    const auto shown = Expected(record);
    const auto& [name, value] = shown[static_cast<std::size_t>(RandomNumber(random, 0, 87))];
    if (name == "Combo1(5)" || name == "Combo1(6)" || name == "Combo1(7)") continue;
    SCOPED_TRACE(std::to_string(round) + " " + name);
    const bool down = name.starts_with("Check1") ? value == 1 : !desk.Move(name, value + 1);
    const int moved = value + (down ? -1 : 1);
    const bool is_tried = !down && !name.starts_with("Check1");
    ASSERT_TRUE(is_tried || desk.Move(name, moved));
    const std::string after = desk.Edited().substr(0, 164);
    int changed = 0;
    for (std::size_t i = 0; i < 164; ++i) changed += after[i] != record[i] ? 1 : 0;
    EXPECT_LE(changed, 1);
    for (const auto& [other, before] : shown) EXPECT_EQ(desk.Shows(other), other == name ? moved : before) << other;
  }
}

TEST(EditorFill, ADoubtfulByteStaysUntilItsControlMoves) {
  std::string record = EmptyRecord();
  Set(record, 22, 5);    // tempo
  Set(record, 136, 48);  // effect 1
  Set(record, 26, 12);   // transpose
  EditorDesk desk({record});
  EXPECT_EQ(desk.Reads("Label1(0)"), "40");
  EXPECT_EQ(desk.Shows("EffCombo(0)"), 47);
  EXPECT_EQ(desk.Reads("EffLab1(0)"), "Effect 1 (Off)");
  EXPECT_EQ(desk.Record(21), 5);
  EXPECT_EQ(desk.Record(135), 48);
  EXPECT_EQ(desk.Record(25), 12);
  desk.Move("VScroll1(0)", 41);
  EXPECT_EQ(desk.Record(21), 11);
  EXPECT_EQ(desk.Record(135), 48);
  desk.Move("EffCombo(0)", 46);
  EXPECT_EQ(desk.Record(135), 1);
}

// Effects first, then the switches that are heard; the other controls are silent.
TEST(EditorFill, TheInstrumentFollowsEffectsAndSwitchesFromTheVeryFirstFillOn) {
  std::string first = EmptyRecord("First");
  Set(first, 136, 3);
  Set(first, 28, 0x0C);
  Set(first, 29, 0x10);
  std::string second = EmptyRecord("Second");
  Set(second, 136, 3);
  Set(second, 137, 9);
  Set(second, 28, 0x08);
  std::string file = ArrBytes({});
  file.replace(32, 164, first);
  file.replace(196, 164, second);
  ArrDesk desk;
  desk.Put("song.arr", file);
  desk.Open("song.arr");
  desk.Select(0);
  desk.Wire();
  desk.Press("frmArrU(1).CommEdit");
  EXPECT_EQ(desk.Wire(),
            (Strings{"0 F0 42 30 4D 41 06 03 00 F7", "0 F0 42 30 4D 41 08 00 00 F7", "0 F0 42 30 4D 41 4F 01 00 F7",
                     "0 F0 42 30 4D 41 59 01 00 F7", "0 F0 42 30 4D 41 01 01 00 F7"}));
  desk.Select(1);
  EXPECT_EQ(desk.Wire(), (Strings{"0 F0 42 30 4D 41 08 09 00 F7", "0 F0 42 30 4D 41 4F 00 00 F7",
                                  "0 F0 42 30 4D 41 01 00 00 F7", "0 B0 00 00", "0 B0 20 01", "0 C0 01"}));
}

TEST(EditorFill, ASwitchThatChangesDuringAFillDisarmsAsAnyPressDoes) {
  std::string second = EmptyRecord("Second");
  Set(second, 28, 1);
  EditorDesk desk({EmptyRecord(), EmptyRecord("Like it"), second});
  desk.Touch("Text1(4)");
  desk.Select(1);
  EXPECT_TRUE(desk.State().ArrPartArmed) << "nothing has changed but the name";
  desk.Select(2);
  EXPECT_FALSE(desk.State().ArrPartArmed);
}

TEST(EditorFill, TitleNameAndStyleComeFromTheRecord) {
  std::string record = EmptyRecord("A long name here");
  Set(record, 18, 72);
  EditorDesk desk({record});
  EXPECT_EQ(desk.Caption(), "Edit Arrangement  song.arr / A long nam");
  EXPECT_EQ(desk.Reads("Text1(0)"), "A long name here");
  EXPECT_EQ(desk.Reads("Text1(1)"), "Wien Waltz");
  EXPECT_EQ(desk.Reads("Label(1)"), "Style (B21)");
}

TEST(EditorFill, TheStylesCaptionCountsItsOwnWay) {
  const auto caption = [](int number, int location) {
    std::string record = EmptyRecord();
    Set(record, 18, number);
    Set(record, 19, location);
    return EditorDesk({record}).Reads("Label(1)");
  };
  EXPECT_EQ(caption(0, 0), "Style (A11)");
  EXPECT_EQ(caption(63, 0), "Style (A88)");
  EXPECT_EQ(caption(64, 0), "Style (B11)");
  EXPECT_EQ(caption(127, 0), "Style (B88)");
  EXPECT_EQ(caption(7, 2), "Style (A18)") << "any location but 1 is the factory's";
  EXPECT_EQ(caption(0, 1), "Style (U11)");
  EXPECT_EQ(caption(7, 1), "Style (U18)");
  EXPECT_EQ(caption(8, 1), "Style (U21)");
  EXPECT_EQ(caption(15, 1), "Style (U28)");
  EXPECT_EQ(caption(16, 1), "Style (U29)");
}

TEST(EditorFill, EachBankShowsItsNameAndNumber) {
  struct Sound {
    int number, bank;
    const char* name;
    const char* place;
  };
  // Nine parts show nine sounds.
  const std::vector<Sound> sounds = {
      {0, 0, "Piano 1", "A 11"},
      {64, 0, "SopranoSax", "B 11"},
      {63, 1, "Stz<Brass", "C 88"},
      {127, 1, "Explosion", "D 88"},
      {9, 2, "70' Organ", "E 22"},
      {5, 3, "UserPrg5", "F 16"},
      {13, 4, "SFX Kit", "Dr 26"},
      {64, 2, "", ""},
      {3, 9, "", ""},
  };
  std::string record = EmptyRecord();
  for (std::size_t t = 0; t < sounds.size(); ++t) {
    Set(record, 40 + 8 * t, sounds[t].number);
    Set(record, 41 + 8 * t, sounds[t].bank);
  }
  EditorDesk desk({record});
  for (std::size_t t = 0; t < sounds.size(); ++t) {
    EXPECT_EQ(desk.Reads("Text1(" + std::to_string(2 + 2 * t) + ")"), sounds[t].name);
    EXPECT_EQ(desk.Reads("Text1(" + std::to_string(3 + 2 * t) + ")"), sounds[t].place);
  }
}

TEST(EditorFill, WithNoOutputEditingGoesOn) {
  EditorDesk desk;
  desk.program.app.midi.OutputOpen = false;
  desk.Move("VScroll1(1)", 50);
  EXPECT_EQ(desk.Record(41), 50);
}

}  // namespace
}  // namespace zentaline::test
