#include <gtest/gtest.h>

#include "style/sty_format.h"
#include "tests/style/sty_builder.h"

namespace zentaline {
namespace {

using namespace test;

std::string Header(int last_byte = 1) {
  return "KORG" + Hand({0x4D, 0, 4, last_byte});
}

TEST(StyRead, AFileBecomesAnImageByteForByte) {
  const std::string file = StyImage({{"One", 40}, {"Two", 20}});
  Bytes image;
  EXPECT_EQ(StyReadImage(file, image), kStyGood);
  EXPECT_EQ(image, file);
}

TEST(StyRead, AnEmptyFileIsAbsentAndLeavesTheImageAlone) {
  Bytes image = "before";
  EXPECT_EQ(StyReadImage("", image), kStyAbsent);
  EXPECT_EQ(StyReadTemplate("", image), kStyAbsent);
  EXPECT_EQ(image, "before");
}

TEST(StyRead, EachOfTheEightHeaderBytesIsTestedInAFile) {
  for (std::size_t position = 1; position <= 8; ++position) {
    std::string file = StyImage({{"One", 40}});
    Set(file, position, At(file, position) ^ 0x10);
    Bytes image = "before";
    EXPECT_EQ(StyReadImage(file, image), kStyWrong) << "position " << position;
    EXPECT_EQ(image, "before");
  }
}

TEST(StyRead, OnlySevenHeaderBytesAreTestedInTheTemplate) {
  for (std::size_t position = 1; position <= 8; ++position) {
    std::string file = EmptyStyles();
    Set(file, position, At(file, position) ^ 0x10);
    Bytes image;
    EXPECT_EQ(StyReadTemplate(file, image), position == 8 ? kStyGood : kStyWrong) << "position " << position;
  }
}

TEST(StyRead, TheRestOfTheHeaderIsNeverExamined) {
  std::string file = StyImage({{"One", 40}});
  for (std::size_t position = 9; position <= 22; ++position) Set(file, position, 0x77);
  Bytes image;
  EXPECT_EQ(StyReadImage(file, image), kStyGood);
  EXPECT_EQ(image, file);
}

TEST(StyRead, TheTemplatesFourNamesBecomeEmpty) {
  std::string file = StyImage({{"A name, 16 bytes", 1176}, {"B", 1176}, {"C", 1176}, {"D", 1176}});
  ASSERT_EQ(file.size(), 4928U);
  Bytes image;
  ASSERT_EQ(StyReadTemplate(file, image), kStyGood);
  std::string expected = file;
  expected.replace(224, 9, "- empty -");
  expected.replace(1400, 9, "- empty -");
  expected.replace(2576, 9, "- empty -");
  expected.replace(3752, 9, "- empty -");
  EXPECT_EQ(image, expected);
}

TEST(StyRead, AFileOfNineRecordsIsReadWholeAndWhatFollowsStaysZero) {
  std::string file = Header() + std::string(289800 - 8, 'z');
  Bytes image;
  ASSERT_EQ(StyReadImage(file, image), kStyGood);
  EXPECT_EQ(image, file);

  file += "tail";
  ASSERT_EQ(StyReadImage(file, image), kStyGood);
  EXPECT_EQ(image, file.substr(0, 289800) + Zeros(4));
}

TEST(StyRead, AFileOf224BytesReadsWellAndShowsNoName) {
  const std::string file = StyImage({});
  ASSERT_EQ(file.size(), 224U);
  Bytes image;
  ASSERT_EQ(StyReadImage(file, image), kStyGood);
  for (int e = 0; e < 16; ++e) {
    EXPECT_EQ(StyEntryName(e, image), "");
    EXPECT_EQ(StyEntrySize(e, image), 0);
  }
}

TEST(StyRead, ATableThatClaimsMoreThanTheFileHoldsReadsWithoutComplaint) {
  std::string file = StyImage({{"One", 40}});
  for (std::size_t k = 0; k < 16; ++k) {
    Set(file, 25 + 4 * k, 0xFF);
    Set(file, 26 + 4 * k, 0xFF);
  }
  Bytes image;
  ASSERT_EQ(StyReadImage(file, image), kStyGood);
  EXPECT_EQ(image.size(), 264U);
  EXPECT_EQ(StyEntrySize(15, image), 65535);
  EXPECT_EQ(StyEntryPos(15, image), 225U + 15 * 65535);
  EXPECT_EQ(StyEntryName(0, image), "One");
}

TEST(StyRead, AFileCutAtEveryLengthIsReadOrRefused) {
  const std::string file = StyImage({{"One", 40}, {"Two", 20}});
  for (std::size_t length = 0; length <= file.size(); ++length) {
    Bytes image;
    const StyReadResult expected = length == 0 ? kStyAbsent : length < 8 ? kStyWrong : kStyGood;
    ASSERT_EQ(StyReadImage(file.substr(0, length), image), expected) << length;
    if (expected != kStyGood) continue;
    EXPECT_EQ(image, file.substr(0, length));
    int mode = 0;
    int destination = 100;
    StyPutEntry(mode, 1, file, destination, image, EmptyStyles());
  }
}

TEST(StyWindow, TheImageIsPrefixRowTableAndFile) {
  const std::string file = StyImage({{"One", 40}});
  const Bytes image = BuildStyWindowImage(file);
  EXPECT_EQ(image, Zeros(20) + Blanks(250) + Zeros(399) + file);
  EXPECT_EQ(image.substr(669, 4), "KORG");
}

TEST(StyI30, TheHeaderIsTestedInAllEightBytes) {
  std::array<Bytes, 3> outputs = {"a", "b", "c"};
  EXPECT_EQ(StySplitI30("", outputs), kStyAbsent);
  EXPECT_EQ(StySplitI30(StyImage({{"One", 40}}), outputs), kStyWrong);
  for (std::size_t position = 1; position <= 8; ++position) {
    std::string file = "KORG" + Hand({0x49, 5, 4, 0}) + Zeros(216);
    Set(file, position, At(file, position) ^ 1);
    EXPECT_EQ(StySplitI30(file, outputs), kStyWrong) << position;
  }
  EXPECT_EQ(outputs[0], "a");
  EXPECT_EQ(outputs[2], "c");
}

TEST(StyI30, ThreeFilesComeOutEvenWhenAllSizesAreZero) {
  const std::string file = "KORG" + Hand({0x49, 5, 4, 0}) + Zeros(216);
  std::array<Bytes, 3> outputs;
  ASSERT_EQ(StySplitI30(file, outputs), kStyGood);
  const std::string expected = Header() + Zeros(12) + Hand({0, 0x1E}) + Zeros(202);
  for (const Bytes& output : outputs) EXPECT_EQ(output, expected);
}

// A source with 48 entries of different sizes, the cells' two carried bytes and data that tells where it came from.
TEST(StyI30, FortyEightStylesAreSplitInThreeWithoutAGap) {
  std::string file = "KORG" + Hand({0x49, 5, 4, 0}) + std::string(14, 'q') + Zeros(202);
  std::string data;
  std::array<std::size_t, 3> sums{};
  for (std::size_t k = 0; k < 48; ++k) {
    const std::size_t size = 300 + 4 * k;
    sums[k / 16] += size;
    Set(file, 23 + 4 * k, 0x10 + static_cast<int>(k));
    Set(file, 24 + 4 * k, 0x50 + static_cast<int>(k));
    Set(file, 25 + 4 * k, static_cast<int>(size % 256));
    Set(file, 26 + 4 * k, static_cast<int>(size / 256));
    data += std::string(size, static_cast<char>(k));
  }
  file += data;
  std::array<Bytes, 3> outputs;
  ASSERT_EQ(StySplitI30(file, outputs), kStyGood);
  std::size_t from = 0;
  for (std::size_t n = 0; n < 3; ++n) {
    ASSERT_EQ(outputs[n].size(), 224 + sums[n]);
    EXPECT_EQ(outputs[n].substr(0, 22), Header() + Zeros(12) + Hand({0, 0x1E}));
    EXPECT_EQ(outputs[n].substr(22, 64), file.substr(22 + 64 * n, 64)) << "cells of file " << n + 1;
    EXPECT_EQ(outputs[n].substr(86, 138), Zeros(138));
    EXPECT_EQ(outputs[n].substr(224), data.substr(from, sums[n]));
    from += sums[n];
  }
}

TEST(StyI30, ASumThatIsNoMultipleOfFourLosesItsRemainder) {
  std::string file = "KORG" + Hand({0x49, 5, 4, 0}) + Zeros(216);
  Set(file, 25, 10);
  Set(file, 25 + 64, 8);
  file += "abcdefghijklmnopqrst";
  std::array<Bytes, 3> outputs;
  ASSERT_EQ(StySplitI30(file, outputs), kStyGood);
  EXPECT_EQ(outputs[0].substr(224), "abcdefgh");
  EXPECT_EQ(outputs[1].substr(224), "ijklmnop");
}

TEST(StyI30, WhatTheSourceLacksIsZero) {
  std::string file = "KORG" + Hand({0x49, 5, 4, 0}) + Zeros(216);
  Set(file, 26, 0x10);
  file += "abc";
  std::array<Bytes, 3> outputs;
  ASSERT_EQ(StySplitI30(file, outputs), kStyGood);
  EXPECT_EQ(outputs[0].substr(224), "abc" + Zeros(4093));
}

TEST(StyI30, TheThirtyTwoLastBytesOfTheTableGoToTheThirdFile) {
  std::string file = "KORG" + Hand({0x49, 5, 4, 0}) + Zeros(216);
  Set(file, 25 + 4 * 47, 20);
  std::array<Bytes, 3> outputs;
  ASSERT_EQ(StySplitI30(file, outputs), kStyGood);
  EXPECT_EQ(StyEntrySize(15, outputs[2]), 20);
  EXPECT_EQ(outputs[2].size(), 244U);
}

}  // namespace
}  // namespace zentaline
