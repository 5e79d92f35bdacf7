// The files as they ship, looked at byte by byte with rules of their own: nothing here asks the code that made them.

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "data/names.h"

namespace {

std::string Read(const std::string& name) {
  std::ifstream in(std::string(FACTORY_DIRECTORY) + "/" + name, std::ios::binary);
  EXPECT_TRUE(in.good()) << name;
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

int At(const std::string& bytes, std::size_t offset) {
  return offset < bytes.size() ? static_cast<unsigned char>(bytes[offset]) : -1;
}

std::string Trimmed(std::string text) {
  while (!text.empty() && text.back() == ' ') text.pop_back();
  return text;
}

// A name of 16 bytes: something in front, blanks alone behind, no control characters.
void ExpectName(const std::string& name, const std::string& where) {
  ASSERT_EQ(name.size(), 16u) << where;
  EXPECT_NE(name[0], ' ') << where;
  for (char c : name) EXPECT_GE(static_cast<unsigned char>(c), 32) << where;
}

// Arrangements ------------------------------------------------------------------------------------------------------

void ExpectArrHeader(const std::string& file) {
  std::string expected("KORG\x4D\x00\x03\x01", 8);
  expected.resize(32, '\0');
  expected[16] = 0x14;
  expected[21] = 0x01;
  expected[23] = 0x28;
  expected[25] = 0x1D;
  EXPECT_EQ(file.substr(0, 32), expected);
}

void ExpectPart(const std::string& record, int part, const std::string& where) {
  const std::size_t base = 39 + 8 * static_cast<std::size_t>(part);
  const int number = At(record, base);
  const int bank = At(record, base + 1);
  if (part <= 1) {
    EXPECT_EQ(bank, 4) << where;
    EXPECT_LE(number, 13) << where << ": a kit of the user";
  } else {
    EXPECT_LE(bank, 3) << where;
    EXPECT_LE(number, bank >= 2 ? 63 : 127) << where;
  }
  EXPECT_GE(At(record, base + 2), 50) << where << ": too soft to be heard";
  EXPECT_LE(At(record, base + 2), 127) << where;
  const int pan = At(record, base + 3);
  EXPECT_TRUE(pan <= 31 || pan == 255) << where;
  EXPECT_LE(At(record, base + 4) & 15, 10) << where;
  EXPECT_LE(At(record, base + 4) >> 4, 10) << where;
  const int octave = At(record, base + 5);
  EXPECT_TRUE(octave <= 2 || octave >= 254) << where;
  EXPECT_LE(At(record, base + 6), 11) << where;
  EXPECT_EQ(At(record, base + 6) & 3, 1) << where << ": the instrument itself sounds";
  EXPECT_EQ(At(record, base + 6) >> 2, 0) << where << ": a part that isn't played";
  const int wrap = At(record, base + 7);
  EXPECT_TRUE(wrap <= 11 || wrap == 255) << where;
}

void ExpectArrRecord(const std::string& record, const std::string& where) {
  ExpectName(record.substr(0, 16), where);
  EXPECT_LE(At(record, 18), 1) << where;
  EXPECT_LE(At(record, 17), At(record, 18) == 1 ? 15 : 127) << where;
  EXPECT_LE(At(record, 19), 3) << where;
  EXPECT_GE(At(record, 21), 10) << where;
  EXPECT_LE(At(record, 21), 210) << where;
  EXPECT_LE(At(record, 22), 10) << where;
  EXPECT_GE(At(record, 23), 36) << where;
  EXPECT_LE(At(record, 23), 96) << where;
  EXPECT_LE(At(record, 24) & 127, 9) << where;
  EXPECT_TRUE(At(record, 25) <= 11 || At(record, 25) >= 245) << where;
  EXPECT_LE(At(record, 26), 7) << where;
  EXPECT_EQ(At(record, 27) & 0xF0, 0) << where;
  EXPECT_EQ(At(record, 28) & 0xE0, 0) << where;
  for (std::size_t map = 29; map <= 32; ++map) {
    EXPECT_GE(At(record, map), 1) << where;
    EXPECT_LE(At(record, map), 8) << where;
  }
  EXPECT_LE(At(record, 33), 3) << where;
  EXPECT_LE(At(record, 34), 3) << where;
  EXPECT_LE(At(record, 37), 12) << where;
  EXPECT_LE(At(record, 38), 12) << where;
  EXPECT_LE(At(record, 135), 47) << where;
  EXPECT_LE(At(record, 136), 47) << where;
  for (int part = 0; part < 9; ++part) ExpectPart(record, part, where + " part " + std::to_string(part));

  std::set<std::size_t> unnamed = {16, 20, 35, 36};
  for (std::size_t offset = 111; offset <= 134; ++offset) unnamed.insert(offset);
  for (std::size_t offset = 137; offset <= 163; ++offset) unnamed.insert(offset);
  for (std::size_t offset : unnamed) EXPECT_EQ(At(record, offset), 0) << where << " offset " << offset;
}

std::string ArrRecord(const std::string& file, std::size_t i) {
  return file.substr(32 + 164 * i, 164);
}

class FactoryBank : public testing::TestWithParam<std::pair<std::string, int>> {};

TEST_P(FactoryBank, HoldsOneValidArrangementForEachStyleUnderTheStylesName) {
  const auto& [name, first_style] = GetParam();
  const std::string file = Read(name);
  ASSERT_EQ(file.size(), 10528u);
  ExpectArrHeader(file);
  for (std::size_t i = 0; i < 64; ++i) {
    const std::string record = ArrRecord(file, i);
    const std::string where = name + " record " + std::to_string(i);
    ExpectArrRecord(record, where);
    EXPECT_EQ(At(record, 17), first_style + static_cast<int>(i)) << where;
    EXPECT_EQ(At(record, 18), 0) << where;
    EXPECT_EQ(record.substr(0, 16), zentaline::StyleName(first_style + static_cast<int>(i))) << where;
    for (std::size_t part = 2; part < 9; ++part) EXPECT_LE(At(record, 39 + 8 * part + 1), 2) << where;
  }
}

TEST_P(FactoryBank, IsNotSixtyFourTimesTheSame) {
  const std::string file = Read(GetParam().first);
  std::set<std::string> melodies;
  std::set<int> tempos, kits, effects;
  for (std::size_t i = 0; i < 64; ++i) {
    const std::string record = ArrRecord(file, i);
    melodies.insert(record.substr(39 + 8 * 6, 2));
    tempos.insert(At(record, 21));
    kits.insert(At(record, 39));
    effects.insert(At(record, 136));
  }
  EXPECT_GE(melodies.size(), 25u);
  EXPECT_GE(tempos.size(), 25u);
  EXPECT_GE(kits.size(), 6u);
  EXPECT_GE(effects.size(), 6u);
}

INSTANTIATE_TEST_SUITE_P(Banks, FactoryBank,
                         testing::Values(std::pair<std::string, int>("i40ArrA.arr", 0),
                                         std::pair<std::string, int>("i40ArrB.arr", 64)),
                         [](const auto& bank) { return bank.param.first.substr(0, 7); });

TEST(FactoryBanks, ThreeArrangementsAsTheTablesTellThem) {
  const std::string a = Read("i40ArrA.arr");
  const std::string first = ArrRecord(a, 0);
  EXPECT_EQ(At(first, 21), 96 - 30);
  EXPECT_EQ(At(first, 22), 6);                                    // SPLIT 2
  EXPECT_EQ(At(first, 23), 60);                                   // C4
  EXPECT_EQ(At(first, 24), 1);                                    // Close, off
  EXPECT_EQ(At(first, 27), 0b1101);                               // velocity and both dampers
  EXPECT_EQ(At(first, 28), 0b00001);                              // scan low
  EXPECT_EQ(At(first, 37), 11);                                   // UP
  EXPECT_EQ(At(first, 38), 12);                                   // DOWN
  EXPECT_EQ(At(first, 135), 1);                                   // Hall
  EXPECT_EQ(At(first, 136), 19);                                  // Chorus 1
  const std::string bass("\x21\x00\x6C\x0F\x00\x00\x01\xFF", 8);  // Fingered Bs., 108, centre, no sends
  EXPECT_EQ(first.substr(39 + 16, 8), bass);
  const std::string acc1("\x04\x00\x5A\x0A\x23\x00\x01\xFF", 8);  // E. Piano 1, 90, L5, C 3 D 2
  EXPECT_EQ(first.substr(39 + 24, 8), acc1);

  const std::string lambada = ArrRecord(a, 62);
  EXPECT_EQ(lambada.substr(0, 16), "Lambada         ");
  EXPECT_EQ(At(lambada, 25), 253);      // -3
  EXPECT_EQ(At(lambada, 39 + 48), 21);  // Fr.Musette is the 22nd of bank C
  EXPECT_EQ(At(lambada, 39 + 49), 1);

  const std::string charleston = ArrRecord(Read("i40ArrB.arr"), 15);
  EXPECT_EQ(charleston.substr(0, 16), "Charleston      ");
  EXPECT_EQ(At(charleston, 21), 216 - 30);
  EXPECT_EQ(At(charleston, 24), 7 | 128);       // Block, on
  EXPECT_EQ(At(charleston, 39), 7);             // Jazz Kit
  EXPECT_EQ(At(charleston, 39 + 32), 64 + 41);  // Banjo is the 42nd of bank B
}

// Programs ----------------------------------------------------------------------------------------------------------

struct Range {
  std::size_t position;  // from 1
  int low;
  int high;
};

void ExpectRange(const std::string& record, const Range& range, const std::string& where) {
  int value = At(record, range.position - 1);
  if (range.low < 0 && value > 127) value -= 256;
  EXPECT_GE(value, range.low) << where << " position " << range.position;
  EXPECT_LE(value, range.high) << where << " position " << range.position;
}

void ExpectOscillator(const std::string& record, std::size_t base, const std::string& where) {
  const Range ranges[] = {
      {0, -99, 99},  {2, 0, 99},    {3, 0, 99},    {4, 0, 99},    {5, 0, 99},    {6, -99, 99},  {7, 0, 99},
      {8, 0, 99},    {9, 0, 9},     {10, 0, 99},   {11, 0, 127},  {12, -99, 99}, {13, 0, 99},   {14, 0, 99},
      {15, 0, 99},   {16, -99, 99}, {17, 0, 99},   {18, -99, 99}, {19, 0, 99},   {20, -99, 99}, {21, 0, 99},
      {22, -99, 99}, {23, 0, 99},   {24, -99, 99}, {25, 0, 99},   {26, 0, 127},  {27, -99, 99}, {28, -99, 99},
      {29, 0, 99},   {30, 0, 99},   {31, 0, 99},   {32, 0, 99},   {33, 0, 99},   {34, 0, 99},   {35, 0, 99},
      {36, 0, 99},   {37, 0, 99},   {43, 0, 99},   {44, -99, 99},
  };
  for (const Range& range : ranges) ExpectRange(record, {base + range.position, range.low, range.high}, where);
  EXPECT_LE(At(record, base) & 7, 4) << where;
  EXPECT_EQ(At(record, base) & 0x78, 0) << where;
  for (std::size_t r = 38; r <= 41; ++r) {
    const int byte = At(record, base + r - 1);
    for (int k = 0; k < 4; ++k) EXPECT_FALSE((byte >> k & 1) == 0 && (byte >> (k + 4) & 1) == 1) << where;
  }
  EXPECT_LE(At(record, base + 42 - 1) >> 4, 9) << where;
  EXPECT_LE(At(record, base + 42 - 1) & 15, 9) << where;
  EXPECT_LE(At(record, base + 45 - 1) >> 4, 2) << where;
  EXPECT_LE(At(record, base + 45 - 1) & 15, 2) << where;
  const int pan = At(record, base + 46 - 1);
  EXPECT_TRUE(pan <= 30 || pan == 255) << where;
}

void ExpectProgram(const std::string& record, const std::string& where) {
  ExpectName(record.substr(0, 16), where);
  const Range ranges[] = {
      {17, 0, 0},    {18, 0, 0},    {19, 0, 1},    {20, 0, 3},    {27, -12, 12},  {28, -50, 50},
      {29, 0, 99},   {30, -99, 99}, {31, 0, 99},   {32, -99, 99}, {33, 0, 99},    {34, 0, 99},
      {35, -99, 99}, {36, -99, 99}, {37, -99, 99}, {39, 0, 99},   {40, 0, 99},    {41, 0, 99},
      {42, -12, 12}, {43, -99, 99}, {44, 0, 99},   {45, -99, 99}, {46, -12, 12},  {47, -99, 99},
      {48, 0, 99},   {143, 0, 0},   {144, 0, 47},  {145, 0, 47},  {146, 0, 100},  {147, 0, 100},
      {148, 0, 100}, {149, 0, 100}, {150, 0, 101}, {151, 0, 101}, {162, -15, 15}, {172, -15, 15},
  };
  for (const Range& range : ranges) ExpectRange(record, range, where);
  EXPECT_LE(At(record, 20) + 256 * At(record, 21), 518) << where;
  EXPECT_LE(At(record, 22) + 256 * At(record, 23), 518) << where;
  for (std::size_t octave : {24u, 25u}) {
    const int value = At(record, octave);
    EXPECT_TRUE(value <= 1 || value >= 254) << where;
  }
  EXPECT_LE(At(record, 37) & 7, 4) << where;
  EXPECT_EQ(At(record, 37) & 0x18, 0) << where;
  EXPECT_EQ(At(record, 145), At(record, 146)) << where;
  EXPECT_EQ(At(record, 147), At(record, 148)) << where;
  EXPECT_EQ(At(record, 151) & 0x8A, 0) << where;
  EXPECT_LE(At(record, 151) >> 4, 3) << where;
  for (std::size_t source : {160u, 170u}) {
    const std::set<int> known = {0, 1, 2, 3, 5, 6};
    EXPECT_TRUE(known.contains(At(record, source))) << where;
  }
  ExpectOscillator(record, 49, where + " osc 1");
  ExpectOscillator(record, 96, where + " osc 2");
  EXPECT_GE(At(record, 49 + 25 - 1), 50) << where << ": too soft to be heard";
  EXPECT_GE(At(record, 49 + 32 - 1), 50) << where << ": never gets loud";
  EXPECT_NE(At(record, 49 + 46 - 1), 255) << where << ": goes nowhere";
}

void ExpectProgramFile(const std::string& file, std::string_view magic) {
  ASSERT_EQ(file.size(), 30480u);
  std::string header(48, '\0');
  header.replace(0, 4, magic);
  const std::map<std::size_t, char> constants = {{5, 0x4D},  {8, 0x01},  {17, 0x1E}, {22, 0x03}, {24, 0x50},
                                                 {26, 0x38}, {27, 0x01}, {28, 0x08}, {29, 0x3C}, {30, 0x05},
                                                 {31, 0x02}, {32, 0x08}, {33, 0x50}, {34, 0x1B}};
  for (const auto& [position, value] : constants) header[position - 1] = value;
  EXPECT_EQ(file.substr(0, 48), header);
  EXPECT_EQ(file.find_first_not_of('\0', 11056), std::string::npos) << "the carried blocks are empty";
}

std::string ProgramRecord(const std::string& file, std::size_t n) {
  return file.substr(48 + 172 * n, 172);
}

TEST(FactoryPrograms, AreSixtyFourValidPrograms) {
  const std::string file = Read("i40Prg");
  ExpectProgramFile(file, "KORG");
  std::set<std::string> names, bodies;
  for (std::size_t n = 0; n < 64; ++n) {
    const std::string record = ProgramRecord(file, n);
    ExpectProgram(record, "i40Prg record " + std::to_string(n));
    names.insert(record.substr(0, 16));
    bodies.insert(record.substr(16));
  }
  EXPECT_EQ(names.size(), 64u);
  EXPECT_EQ(bodies.size(), 64u);
}

TEST(FactoryPrograms, TwoOfThemAsTheTablesTellThem) {
  const std::string file = Read("i40Prg");
  const std::string octave_piano = ProgramRecord(file, 3);
  EXPECT_EQ(octave_piano.substr(0, 16), "Octave Piano    ");
  EXPECT_EQ(At(octave_piano, 18), 1);            // double
  EXPECT_EQ(At(octave_piano, 25), 1);            // second oscillator 4'
  EXPECT_EQ(At(octave_piano, 49 + 25 - 1), 90);  // level
  EXPECT_EQ(At(octave_piano, 96 + 25 - 1), 62);
  EXPECT_EQ(At(octave_piano, 49 + 46 - 1), 12);  // L3
  EXPECT_EQ(At(octave_piano, 96 + 46 - 1), 18);  // R3
  EXPECT_EQ(At(octave_piano, 49 + 22 - 1), 256 - 20);
  EXPECT_EQ(At(octave_piano, 49 + 42 - 1), 0x31);  // C 3, D 1
  const std::string moving_pad = ProgramRecord(file, 55);
  EXPECT_EQ(moving_pad.substr(0, 16), "Moving Pad      ");
  EXPECT_EQ(At(moving_pad, 37), 0x60);  // triangle, both oscillators
  EXPECT_EQ(At(moving_pad, 20) + 256 * At(moving_pad, 21), 384);
}

// Styles ------------------------------------------------------------------------------------------------------------

struct Style {
  std::string name;
  std::size_t size;
};

std::vector<Style> StylesOf(const std::string& file) {
  std::vector<Style> styles;
  EXPECT_GE(file.size(), 224u);
  EXPECT_EQ(file.substr(0, 8), std::string("KORG\x4D\x00\x04\x01", 8));
  EXPECT_EQ(file.substr(8, 12), std::string(12, '\0'));
  EXPECT_EQ(file.substr(20, 2), std::string("\x00\x1E", 2));
  EXPECT_EQ(file.substr(86, 138), std::string(138, '\0'));
  std::size_t start = 224;
  for (std::size_t k = 0; k < 16; ++k) {
    EXPECT_EQ(file.substr(22 + 4 * k, 2), std::string(2, '\0')) << k;
    const auto size = static_cast<std::size_t>(At(file, 24 + 4 * k) + 256 * At(file, 25 + 4 * k));
    if (size == 0) break;
    EXPECT_EQ(size % 4, 0u) << k;
    styles.push_back({Trimmed(file.substr(start, 16)), size});
    start += size;
  }
  EXPECT_EQ(start, file.size()) << "the sizes tell all of the file";
  return styles;
}

TEST(FactoryStyles, AreFourEmptyStyles) {
  const std::string file = Read("i40Sty");
  ASSERT_EQ(file.size(), 4928u);
  const std::vector<Style> styles = StylesOf(file);
  ASSERT_EQ(styles.size(), 4u);
  for (std::size_t k = 0; k < 4; ++k) {
    EXPECT_EQ(file.substr(224 + 1176 * k, 16), "- empty -       ") << k;
    EXPECT_EQ(styles[k].size, 1176u) << k;
  }
}

// Multisamples ------------------------------------------------------------------------------------------------------

// The rule bit by bit: each bit of the new state is the one above it in the old, and the topmost is 1 where bits 6 and
// 0 were alike.
int NextState(int state) {
  std::array<bool, 8> bits{};
  for (std::size_t i = 0; i < 7; ++i) bits[i] = (state & (2 << i)) != 0;
  bits[7] = ((state & 0x40) != 0) == ((state & 0x01) != 0);
  int next = 0;
  for (std::size_t i = 0; i < 8; ++i) next += bits[i] ? 1 << i : 0;
  return next;
}

TEST(FactoryMultisamples, UnscrambleToTheirNumbersAndNames) {
  const std::string file = Read("i40Multisample");
  ASSERT_EQ(file.size(), 519u * 15u);
  for (std::size_t n = 0; n < 519; ++n) {
    int state = 0x4B;
    std::string record;
    for (std::size_t i = 0; i < 15; ++i) {
      state = NextState(state);
      record += static_cast<char>(At(file, 15 * n + i) ^ state);
    }
    std::string digits = std::to_string(n);
    digits.insert(0, 3 - digits.size(), '0');
    EXPECT_EQ(record, digits + "  Sound " + digits + " ");
  }
}

TEST(FactoryMultisamples, DoNotLieOpen) {
  EXPECT_EQ(Read("i40Multisample").find("Sound"), std::string::npos);
}

// Guides ------------------------------------------------------------------------------------------------------------

class Guide : public testing::TestWithParam<std::string> {};

TEST_P(Guide, IsShortEnoughAndEndsItsLinesAsTheWindowReadsThem) {
  const std::string text = Read(GetParam());
  EXPECT_GT(text.size(), 8000u);
  EXPECT_LT(text.size(), 35400u);
  ASSERT_TRUE(text.ends_with("\r\n"));
  std::size_t start = 0;
  while (start < text.size()) {
    const std::size_t end = text.find("\r\n", start);
    ASSERT_NE(end, std::string::npos);
    const std::string line = text.substr(start, end - start);
    EXPECT_LE(line.size(), 78u) << line;
    for (char c : line) {
      const auto byte = static_cast<unsigned char>(c);
      EXPECT_TRUE((byte >= 32 && byte < 127) || byte >= 160) << line;
    }
    start = end + 2;
  }
}

INSTANTIATE_TEST_SUITE_P(Guides, Guide, testing::Values("Zentaline-GuidaUtente.txt", "Zentaline-UserGuide.txt"),
                         [](const auto& guide) { return guide.index == 0 ? "Italian" : "English"; });

TEST(Guides, TellTheSameThingsInTheSameOrder) {
  const auto sections = [](const std::string& text) {
    int found = 0;
    while (text.find("\r\n\r\n" + std::to_string(found + 1) + "  ") != std::string::npos) ++found;
    return found;
  };
  EXPECT_EQ(sections(Read("Zentaline-GuidaUtente.txt")), 31);
  EXPECT_EQ(sections(Read("Zentaline-UserGuide.txt")), 31);
}

TEST_P(Guide, NamesEverySectionInItsContents) {
  const std::string text = Read(GetParam());
  for (int n = 1; n <= 31; ++n) {
    const std::string number = std::to_string(n);
    const std::string entry = std::string(4 - number.size(), ' ') + number + "  ";
    EXPECT_NE(text.find("\r\n" + entry), std::string::npos) << n;
  }
}

TEST(Guides, WriteAccentsInTheWindowsCharacterSet) {
  const std::string text = Read("Zentaline-GuidaUtente.txt");
  EXPECT_NE(text.find("Zentaline \xE8 una console"), std::string::npos);
  EXPECT_EQ(text.find("\xC3\xA8"), std::string::npos);
}

// Examples ----------------------------------------------------------------------------------------------------------

TEST(Examples, FirstStepsHasStylesOfItsOwnInAllFourGroups) {
  const std::vector<Style> styles = StylesOf(Read("examples/First Steps.sty"));
  ASSERT_EQ(styles.size(), 16u);
  std::set<std::size_t> sizes;
  std::array<int, 4> in_group{};
  std::array<std::size_t, 4> group_size{};
  for (std::size_t k = 0; k < 16; ++k) {
    group_size[k / 4] += styles[k].size;
    if (styles[k].name == "- empty -") continue;
    ++in_group[k / 4];
    sizes.insert(styles[k].size);
  }
  for (int count : in_group) EXPECT_GE(count, 1);
  for (std::size_t size : group_size) EXPECT_LT(size, 65496u);
  EXPECT_GE(sizes.size(), 8u);
}

TEST(Examples, ArrangementsNameOnlyWhatTheirFilesHold) {
  const std::vector<Style> styles = StylesOf(Read("examples/First Steps.sty"));
  const std::string programs = Read("examples/First Steps.prg");
  const std::string file = Read("examples/First Steps.arr");
  ASSERT_EQ(file.size(), 10528u);
  ExpectArrHeader(file);
  int filled = 0, with_own_style = 0, with_own_program = 0;
  for (std::size_t i = 0; i < 64; ++i) {
    const std::string record = ArrRecord(file, i);
    if (record[0] == 0) {
      EXPECT_EQ(record, std::string(164, '\0')) << i;
      continue;
    }
    ++filled;
    ExpectArrRecord(record, "First Steps record " + std::to_string(i));
    if (At(record, 18) == 1) {
      ++with_own_style;
      ASSERT_LT(static_cast<std::size_t>(At(record, 17)), styles.size());
      EXPECT_NE(styles[static_cast<std::size_t>(At(record, 17))].name, "- empty -") << i;
    }
    for (std::size_t part = 2; part < 9; ++part) {
      if (At(record, 39 + 8 * part + 1) != 3) continue;
      ++with_own_program;
      EXPECT_GT(At(programs, 48 + 172 * static_cast<std::size_t>(At(record, 39 + 8 * part))), 32) << i;
    }
  }
  EXPECT_GE(filled, 30);
  EXPECT_GE(with_own_style, 8);
  EXPECT_GE(with_own_program, 4);
  EXPECT_EQ(ArrRecord(file, 0).substr(0, 16), "First Steps     ");
  EXPECT_EQ(At(ArrRecord(file, 0), 17), 0);
  EXPECT_EQ(At(ArrRecord(file, 0), 18), 1);
  EXPECT_EQ(At(ArrRecord(file, 0), 21), 92 - 30);
}

TEST(Examples, FirstStepsHasProgramsOnly) {
  const std::string file = Read("examples/First Steps.prg");
  ExpectProgramFile(file, "KORG");
  for (std::size_t n = 0; n < 64; ++n)
    ExpectProgram(ProgramRecord(file, n), "First Steps program " + std::to_string(n));
  EXPECT_EQ(ProgramRecord(file, 0).substr(0, 16), "Morning Piano   ");
}

TEST(Examples, SundayBandHasLinksThatCarryTheNamesOfWhatTheyLeadTo) {
  const std::string file = Read("examples/Sunday Band.pgg");
  ExpectProgramFile(file, "KPGG");
  const std::string links[] = {std::string("\x01\x00\x00Piano 1         ", 19),
                               std::string("\x01\x01\x12Rotary Org.     ", 19),
                               std::string("\x01\x00\x40SopranoSax      ", 19),
                               std::string("\x01\x01\x69"
                                           "Bouzouki        ",
                                           19),
                               std::string("\x01\x02\x28i3 Strings      ", 19),
                               std::string("\x01\x04\x08"
                                           "Brush Kit       ",
                                           19)};
  for (std::size_t n = 0; n < 64; ++n) {
    const std::string record = ProgramRecord(file, n);
    if (n < std::size(links)) {
      EXPECT_EQ(record.substr(0, 19), links[n]) << n;
    } else {
      ExpectProgram(record, "Sunday Band program " + std::to_string(n));
    }
  }
}

TEST(Examples, SundayBandIsValidAndHasNoStylesBeside) {
  const std::string file = Read("examples/Sunday Band.arr");
  ASSERT_EQ(file.size(), 10528u);
  ExpectArrHeader(file);
  int own_programs = 0;
  for (std::size_t i = 0; i < 24; ++i) {
    const std::string record = ArrRecord(file, i);
    ExpectArrRecord(record, "Sunday Band record " + std::to_string(i));
    EXPECT_EQ(At(record, 18), 0) << i;
    for (std::size_t part = 2; part < 9; ++part) own_programs += At(record, 39 + 8 * part + 1) == 3 ? 1 : 0;
  }
  EXPECT_GE(own_programs, 6);
  EXPECT_FALSE(std::filesystem::exists(std::string(FACTORY_DIRECTORY) + "/examples/Sunday Band.sty"));
}

}  // namespace
