// Files of the earlier instruments and what they become. What is expected is put together here from the old bytes, run
// by run, apart from the tables.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <set>

#include "files/import_format.h"
#include "tests/format_bytes.h"

namespace zentaline::test {
namespace {

using ::testing::ElementsAre;
using ::testing::SizeIs;

// --- The sources ---

std::string I30Arr(std::mt19937& random) {
  return "KORG" + Hand({0x49, 5, 3}) + RandomBytes(random, 21024 - 7);
}

std::string OldArr(std::mt19937& random) {
  return "KORG" + Hand({0x39, 0, 3, 1}) + RandomBytes(random, 9056 - 8);
}

std::string NewArrHead() {
  std::string header = "KORG" + Hand({0x4D, 0, 3, 1}) + Zeros(24);
  header[16] = 20;
  header[21] = 1;
  header[23] = 40;
  header[25] = 29;
  return header;
}

std::string NewPrgHead() {
  std::string header = "KORG" + Hand({0x4D, 0, 0, 1}) + Zeros(40);
  const std::pair<std::size_t, int> bytes[] = {{16, 30}, {21, 3}, {23, 80}, {25, 56}, {26, 1},  {27, 8},
                                               {28, 60}, {29, 5}, {30, 2},  {31, 8},  {32, 80}, {33, 27}};
  for (const auto& [offset, value] : bytes) header[offset] = static_cast<char>(value);
  return header;
}

TEST(ImportSources, AnI30ArrangementFileIsKnownByItsLengthAndSevenBytes) {
  std::mt19937 random(1);
  const std::string file = I30Arr(random);
  EXPECT_TRUE(IsI30ArrFile(file));
  for (const std::size_t length : {std::size_t{0}, std::size_t{7}, std::size_t{10528}, std::size_t{21023}}) {
    EXPECT_FALSE(IsI30ArrFile(file.substr(0, length))) << length;
  }
  EXPECT_FALSE(IsI30ArrFile(file + "x"));
  for (std::size_t i = 0; i < 8; ++i) {
    std::string other = file;
    other[i] = static_cast<char>(other[i] ^ 0x80);
    EXPECT_EQ(IsI30ArrFile(other), i == 7) << i;
  }
}

TEST(ImportSources, AnOldArrangementFileHasOneOfSixHeadersAndExactlyItsLength) {
  std::mt19937 random(2);
  const std::string file = OldArr(random);
  for (const std::string& header : {Hand({0x39, 0, 3, 1}), Hand({0x3C, 0, 3, 1}), Hand({0x3C, 0, 3, 0}),
                                    Hand({0x39, 0, 3, 0}), Hand({0x39, 1, 3, 0}), Hand({0x39, 2, 3, 0})}) {
    EXPECT_TRUE(IsOldArrFile("KORG" + header + file.substr(8)));
  }
  for (const std::string& header :
       {Hand({0x39, 1, 3, 1}), Hand({0x39, 3, 3, 0}), Hand({0x3C, 1, 3, 0}), Hand({0x3C, 2, 3, 0}),
        Hand({0x4D, 0, 3, 1}), Hand({0x49, 5, 3, 0}), Hand({0x39, 0, 0, 1}), Hand({0x39, 0, 3, 2})}) {
    EXPECT_FALSE(IsOldArrFile("KORG" + header + file.substr(8)));
  }
  EXPECT_FALSE(IsOldArrFile("korg" + file.substr(4)));
  for (const std::size_t length : {std::size_t{0}, std::size_t{8}, std::size_t{672}, std::size_t{9055}}) {
    EXPECT_FALSE(IsOldArrFile(file.substr(0, length))) << length;
  }
  EXPECT_FALSE(IsOldArrFile(file + "x"));
}

TEST(ImportSources, AnOldProgramFileNeedsFourBytesAndItsLeastLength) {
  std::mt19937 random(3);
  const std::string file = "KORG" + RandomBytes(random, 20000);
  EXPECT_TRUE(IsOldPrgFile(file));
  EXPECT_TRUE(IsOldPrgFile(file.substr(0, 14255)));
  for (const std::size_t length : {std::size_t{0}, std::size_t{4}, std::size_t{3431}, std::size_t{14254}}) {
    EXPECT_FALSE(IsOldPrgFile(file.substr(0, length))) << length;
  }
  for (std::size_t i = 0; i < 4; ++i) {
    std::string other = file;
    other[i] = 'x';
    EXPECT_FALSE(IsOldPrgFile(other)) << i;
  }
}

// --- The i30 splits ---

TEST(ImportI30, ArrangementsBecomeTwoFilesWithTheirRecordsAsTheyAreAndANewHeader) {
  std::mt19937 random(4);
  const std::string file = I30Arr(random);
  EXPECT_THAT(ArrFilesOfI30(file),
              ElementsAre(NewArrHead() + file.substr(32, 10496), NewArrHead() + file.substr(10528, 10496)));
}

TEST(ImportI30, ProgramsBecomeTheirOwnBankAndTheOneOfTheRecordsBehind) {
  std::mt19937 random(5);
  const std::string file = "KORG" + Hand({0x49, 5, 0}) + RandomBytes(random, 30480 - 7);
  EXPECT_THAT(PrgFilesOfI30(file), ElementsAre(NewPrgHead() + file.substr(48),
                                               NewPrgHead() + file.substr(11056, 11008) + file.substr(11056)));
}

// --- Old programs ---

// Run by run.
std::string PrgByHand(const std::string& old) {
  return old.substr(0, 10) + Blanks(6) + Zeros(2) + old.substr(10, 2) + Zeros(1) + old.substr(13, 1) + Zeros(1) +
         old.substr(16, 1) + old.substr(14, 1) + old.substr(17, 4) + old.substr(21, 114) + old.substr(135, 29);
}

TEST(ImportOldPrograms, EachRunOfTheRecordGoesToItsPlace) {
  std::mt19937 random(6);
  for (int i = 0; i < 20; ++i) {
    const std::string old = RandomBytes(random, 164);
    EXPECT_EQ(PrgRecordOfOld(old), PrgByHand(old));
  }
}

// Each byte of the old record by itself: where it comes out.
TEST(ImportOldPrograms, EveryOldByteStandsWhereItBelongsAndNowhereElse) {
  const Bytes plain = PrgRecordOfOld(Zeros(164));
  for (std::size_t s = 0; s < 164; ++s) {
    std::string old = Zeros(164);
    old[s] = '\x5A';
    const Bytes record = PrgRecordOfOld(old);
    std::set<std::size_t> changed;
    for (std::size_t t = 0; t < 172; ++t) {
      if (record[t] != plain[t]) changed.insert(t);
    }
    std::set<std::size_t> wanted;
    if (s < 10) wanted = {s};
    if (s == 10 || s == 11) wanted = {s + 8};
    // What would go to 20 and 22 is lost.
    if (s == 13) wanted = {21};
    if (s == 14) wanted = {24};
    if (s == 16) wanted = {23};
    if (s >= 17) wanted = {s + 8};
    EXPECT_EQ(changed, wanted) << s;
  }
}

TEST(ImportOldPrograms, ABankIsTheTemplateWithItsRecordsAndANewHeader) {
  std::mt19937 random(7);
  const std::string file = "KORG" + RandomBytes(random, 14251);
  const std::string bank = "KORG" + Hand({0x4D, 0, 0}) + RandomBytes(random, 30480 - 7);
  std::string expected = NewPrgHead();
  for (std::size_t i = 0; i < 64; ++i) expected += PrgByHand(file.substr(3431 + 164 * i, 164));
  expected += bank.substr(11056);
  EXPECT_EQ(PrgFileOfOld(file, bank), expected);
  EXPECT_EQ(PrgFileOfOld(file + "what follows", bank), expected);
}

// --- Old arrangements ---

// A record whose style byte is 10 and whose tracks are all of a bank that stays.
std::string QuietOld(std::mt19937& random) {
  std::string old = RandomBytes(random, 131);
  old[10] = 10;
  for (std::size_t track = 0; track < 6; ++track) old[35 + 8 * track] = 0;
  old[83] = 0;
  return old;
}

std::string ArrByHand(const std::string& old, int style, int location) {
  return old.substr(0, 10) + Blanks(6) + Zeros(1) + Hand({style, location}) + old.substr(12, 1) + old.substr(13, 1) +
         old.substr(14, 1) + Hand({old[15] & 3}) + old.substr(16, 1) + Zeros(1) + old.substr(18, 1) +
         old.substr(19, 1) + old.substr(20, 6) + Zeros(4) + old.substr(30, 1) + old.substr(32, 1) + old.substr(34, 48) +
         old.substr(82, 8) + old.substr(82, 8) + old.substr(90, 8) + Zeros(16) + old.substr(98, 2) + old.substr(98, 2) +
         old.substr(100, 2) + Zeros(2) + old.substr(102, 29);
}

TEST(ImportOldArrangements, EachRunOfTheRecordGoesToItsPlaceAndTwoGoTwice) {
  std::mt19937 random(8);
  for (int i = 0; i < 20; ++i) {
    const std::string old = QuietOld(random);
    EXPECT_EQ(ArrRecordOfOld(old), ArrByHand(old, 10, 0));
  }
}

TEST(ImportOldArrangements, EveryOldByteStandsWhereItBelongsAndNowhereElse) {
  const Bytes plain = ArrRecordOfOld(Zeros(131));
  for (std::size_t s = 0; s < 131; ++s) {
    // A bank byte of this value, and a style byte, stay what they are; of the masked byte two bits are left.
    std::string old = Zeros(131);
    old[s] = '\x5B';
    const Bytes record = ArrRecordOfOld(old);
    std::set<std::size_t> changed;
    for (std::size_t t = 0; t < 164; ++t) {
      if (record[t] != plain[t]) changed.insert(t);
    }
    std::set<std::size_t> wanted;
    if (s < 10) wanted = {s};
    if (s == 10) wanted = {17};
    if (s >= 12 && s <= 16) wanted = {s + 7};
    if (s >= 18 && s <= 25) wanted = {s + 7};
    if (s == 30) wanted = {37};
    if (s == 32) wanted = {38};
    if (s >= 34 && s < 82) wanted = {s + 5};
    if (s >= 82 && s < 90) wanted = {s + 5, s + 13};
    if (s >= 90 && s < 98) wanted = {s + 13};
    if (s == 98 || s == 99) wanted = {s + 29, s + 31};
    if (s == 100 || s == 101) wanted = {s + 31};
    if (s >= 102) wanted = {s + 33};
    EXPECT_EQ(changed, wanted) << s;
  }
}

TEST(ImportOldArrangements, StyleBytes48To51AreUserStyles0To3) {
  std::mt19937 random(9);
  std::string old = QuietOld(random);
  for (int style = 0; style < 256; ++style) {
    old[10] = static_cast<char>(style);
    const bool user = style >= 48 && style <= 51;
    EXPECT_EQ(ArrRecordOfOld(old), ArrByHand(old, user ? style - 48 : style, user ? 1 : 0)) << style;
  }
}

// What bank `b` and program `p` become.
std::pair<int, int> Moved(int p, int b) {
  if (b == 1) return p > 63 ? std::pair(p - 64, 3) : std::pair(p, 1);
  if (b == 2) return {p, 4};
  if (b == 3) return p < 64 ? std::pair(p + 64, 1) : std::pair(p - 64, 3);
  return {p, b};
}

TEST(ImportOldArrangements, ProgramsOfEachTrackMoveWithTheirBanksAndTheNinthStays) {
  EXPECT_EQ(Moved(70, 3), (std::pair(6, 3)));
  EXPECT_EQ(Moved(10, 3), (std::pair(74, 1)));
  // The old offsets of the eight tracks' programs; the last two share theirs.
  const std::size_t tracks[] = {34, 42, 50, 58, 66, 74, 82, 82};
  for (std::size_t t = 0; t < 8; ++t) {
    for (const int b : {0, 1, 2, 3, 4, 5, 255}) {
      for (const int p : {0, 1, 63, 64, 70, 127, 128, 255}) {
        std::string old = Zeros(131);
        old[tracks[t]] = static_cast<char>(p);
        old[tracks[t] + 1] = static_cast<char>(b);
        const Bytes record = ArrRecordOfOld(old);
        EXPECT_EQ(At(record, 40 + 8 * t), Moved(p, b).first) << t << " " << b << " " << p;
        EXPECT_EQ(At(record, 41 + 8 * t), Moved(p, b).second) << t << " " << b << " " << p;
      }
    }
  }
  std::string old = Zeros(131);
  old[90] = 70;
  old[91] = 3;
  EXPECT_EQ(At(ArrRecordOfOld(old), 104), 70);
  EXPECT_EQ(At(ArrRecordOfOld(old), 105), 3);
}

TEST(ImportOldArrangements, AFileHasItsSixtyFourRecordsBehindANewHeader) {
  std::mt19937 random(10);
  std::string file = OldArr(random);
  std::string expected = NewArrHead();
  for (std::size_t i = 0; i < 64; ++i) {
    const std::string old = QuietOld(random);
    file.replace(672 + 131 * i, 131, old);
    expected += ArrByHand(old, 10, 0);
  }
  EXPECT_EQ(ArrFileOfOld(file), expected);
}

// --- Whatever comes ---

TEST(ImportSources, OfAnyLengthAndOfNoiseGiveWholeFiles) {
  std::mt19937 random(11);
  for (const std::size_t length : {0, 1, 8, 32, 48, 672, 803, 3431, 9056, 10528, 11056, 14255, 21024, 30480, 40000}) {
    const std::string noise = RandomBytes(random, length);
    EXPECT_THAT(ArrFilesOfI30(noise), ElementsAre(SizeIs(10528), SizeIs(10528)));
    EXPECT_THAT(PrgFilesOfI30(noise), ElementsAre(SizeIs(30480), SizeIs(30480)));
    EXPECT_THAT(ArrFileOfOld(noise), SizeIs(10528));
    EXPECT_THAT(PrgFileOfOld(noise, noise), SizeIs(30480));
    EXPECT_THAT(ArrRecordOfOld(noise), SizeIs(164));
    EXPECT_THAT(PrgRecordOfOld(noise), SizeIs(172));
  }
}

}  // namespace
}  // namespace zentaline::test
