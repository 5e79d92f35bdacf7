#include <gtest/gtest.h>

#include "style/sty_format.h"
#include "tests/style/sty_builder.h"

namespace zentaline {
namespace {

using namespace test;

TEST(StyEntries, NamesSizesAndPositionsFollowTheTable) {
  const std::string image = StyImage({{"One", 40}, {"Two", 1000}, {"Three", 20}});
  EXPECT_EQ(StyEntryName(0, image), "One");
  EXPECT_EQ(StyEntryName(1, image), "Two");
  EXPECT_EQ(StyEntryName(2, image), "Three");
  EXPECT_EQ(StyEntrySize(1, image), 1000);
  EXPECT_EQ(StyEntryPos(0, image), 225U);
  EXPECT_EQ(StyEntryPos(1, image), 265U);
  EXPECT_EQ(StyEntryPos(2, image), 1265U);
  EXPECT_EQ(StyGroupSize(0, image), 1060);
  EXPECT_EQ(StyGroupSize(3, image), 1060);
  EXPECT_EQ(StyGroupSize(4, image), 0);
}

TEST(StyEntries, AGroupWhoseFirstEntryHasSizeZeroEndsTheList) {
  std::vector<Style> styles(8, Style{"S", 20});
  styles[4].size = 0;
  const std::string image = StyImage(styles);
  EXPECT_EQ(StyEntryPos(4, image), 225U + 80);
  for (int e = 5; e < 16; ++e) EXPECT_EQ(StyEntryPos(e, image), 0U) << e;
}

TEST(StyEntries, NameAndSizeDoNotAskWhetherTheEntryExists) {
  std::vector<Style> styles(6, Style{"S", 20});
  styles[4].size = 0;
  styles[5].name = "Behind";
  EXPECT_EQ(StyEntryName(5, StyImage(styles)), "Behind");
  EXPECT_EQ(StyEntrySize(5, StyImage(styles)), 20);
}

TEST(StyEntries, ANumberAboveFifteenIsReadWhereTheTableAndTheDataLeadIt) {
  std::vector<Style> styles(16, Style{"S", 20});
  std::string image = StyImage(styles) + Field("Sixteenth", 16);
  EXPECT_EQ(StyEntryName(16, image), "Sixteenth");
  EXPECT_EQ(UserStyleNumber(16), "31");
  // The header's zeros reach up to cell 49; behind it the styles' own bytes are taken for sizes.
  EXPECT_EQ(StyEntryName(50, image), "Sixteenth");
  EXPECT_EQ(StyEntryName(51, image), "");
}

TEST(StyEntries, NumbersRunFrom11To18AndFrom21To28) {
  const std::vector<std::string> expected = {"11", "12", "13", "14", "15", "16", "17", "18",
                                             "21", "22", "23", "24", "25", "26", "27", "28"};
  for (int e = 0; e < 16; ++e) EXPECT_EQ(UserStyleNumber(e), expected[static_cast<std::size_t>(e)]);
}

TEST(StyEntries, RowsLeaveFourNineAndFourteenBlank) {
  const std::vector<int> rows = {0, 1, 2, 3, 5, 6, 7, 8, 10, 11, 12, 13, 15, 16, 17, 18};
  for (int e = 0; e < 16; ++e) {
    EXPECT_EQ(StyEntryRow(e), rows[static_cast<std::size_t>(e)]);
    EXPECT_EQ(StyRowEntry(StyEntryRow(e)), e);
  }
  for (const int row : {-1, 4, 9, 14, 19, 99}) EXPECT_EQ(StyRowEntry(row), -1) << row;
}

TEST(StyWindowEntries, TheGroupBaseIs670InStyleWindowsOnly) {
  for (int kind = 0; kind < 256; ++kind) {
    std::string image = Zeros(20);
    Set(image, 1, kind);
    EXPECT_EQ(StyGroupBase(image), kind == 23 || kind == 24 ? 670U : 42623U) << kind;
  }
}

TEST(StyWindowEntries, TheNameIsDetachedWhileControlByte9IsZero) {
  const std::string styles = StyImage({{"One", 40}, {"Two", 20}});
  EXPECT_EQ(WindowStyName(1, ArrWindowWith(styles, 0)), "-empty-");
  EXPECT_EQ(WindowStyName(1, ArrWindowWith(styles, 1)), "Two");
  EXPECT_EQ(WindowStyName(1, ArrWindowWith(styles, 2)), "Two");
  EXPECT_EQ(WindowStyEntrySize(0, ArrWindowWith(styles, 0)), 40);
  EXPECT_EQ(StyGroupSpan(0, ArrWindowWith(styles, 0)), 284);
}

TEST(StyWindowEntries, AStyleWindowReadsItsTableAt670) {
  Bytes image = BuildStyWindowImage(StyImage({{"One", 40}, {"Two", 20}}));
  Set(image, 1, 23);
  EXPECT_EQ(WindowStyEntrySize(1, image), 20);
  EXPECT_EQ(StyTotalSize(image), 284U);
  Set(image, 9, 2);
  EXPECT_EQ(WindowStyName(1, image), "Two");
}

TEST(StyWindowEntries, TheTotalStopsAtTheFirstSizeOfZeroAndAtSixteen) {
  std::vector<Style> styles(16, Style{"S", 20});
  EXPECT_EQ(StyTotalSize(ArrWindowWith(StyImage(styles), 2)), 224U + 320);
  styles[3].size = 0;
  EXPECT_EQ(StyTotalSize(ArrWindowWith(StyImage(styles), 2)), 224U + 60);
  std::string image = StyImage(std::vector<Style>(16, Style{"S", 20}));
  Set(image, 89, 7);
  EXPECT_EQ(StyTotalSize(ArrWindowWith(image, 2)), 224U + 320);
}

// Sixteen entries, of which only `used` is no empty style.
std::string OneStyleAt(int used) {
  std::vector<Style> styles(16, Style{"- empty -", 100});
  styles[static_cast<std::size_t>(used)].name = "Mine";
  return StyImage(styles);
}

TEST(StyUsedGroups, TheLastEntryThatIsNotEmptyDecides) {
  for (int e = 0; e < 16; ++e) EXPECT_EQ(StyUsedGroups(ArrWindowWith(OneStyleAt(e), 2)), e / 4 + 1) << e;
  EXPECT_EQ(StyUsedGroups(ArrWindowWith(StyImage(std::vector<Style>(16, Style{"- empty -", 100})), 2)), 0);
}

TEST(StyUsedGroups, AStyleWindowAlwaysCountsFour) {
  Bytes image = BuildStyWindowImage(StyImage(std::vector<Style>(16, Style{"- empty -", 100})));
  Set(image, 1, 23);
  EXPECT_EQ(StyUsedGroups(image), 4);
  const Bytes before = image;
  EXPECT_EQ(StyTrimUnused(image), 0);
  EXPECT_EQ(image, before);
}

TEST(StyTrim, NothingUsedDoesNothingAndSaysSo) {
  Bytes image = ArrWindowWith(StyImage(std::vector<Style>(16, Style{"- empty -", 100})), 2);
  const Bytes before = image;
  EXPECT_EQ(StyTrimUnused(image), 1);
  EXPECT_EQ(image, before);
}

TEST(StyTrim, AFullFileStaysAsItIs) {
  Bytes image = ArrWindowWith(OneStyleAt(15), 2);
  const Bytes before = image;
  EXPECT_EQ(StyTrimUnused(image), 0);
  EXPECT_EQ(image, before);
}

// The length kept is 224, and 224 and the sizes once more for each unused group; the first entry behind the used groups
// keeps its size.
TEST(StyTrim, TheLengthAndTheClearedSizesAreTheRequiredOnes) {
  for (int used = 1; used <= 3; ++used) {
    Bytes image = ArrWindowWith(OneStyleAt(4 * used - 1), 2);
    Set(image, 42622 + 89, 0x12);
    Set(image, 42622 + 90, 0x34);
    Bytes expected = image;
    const int unused = 4 - used;
    const std::size_t kept = 224 + static_cast<std::size_t>(unused) * (224 + 400);
    if (expected.size() > 42622 + kept) expected.resize(42622 + kept);
    for (int e = 16; e > 4 * used; --e) {
      Set(expected, 42622 + 25 + 4 * static_cast<std::size_t>(e), 0);
      Set(expected, 42622 + 26 + 4 * static_cast<std::size_t>(e), 0);
    }
    EXPECT_EQ(StyTrimUnused(image), 0);
    EXPECT_EQ(image, expected) << used << " used groups";
    EXPECT_EQ(WindowStyEntrySize(4 * used, image), 100);
    EXPECT_EQ(WindowStyEntrySize(4 * used + 1, image), 0);
  }
}

TEST(StyWrite, ANewFileOfFourEmptyStylesWritesTheBytesOfTheTemplate) {
  Bytes image = BuildStyWindowImage(EmptyStyles());
  Set(image, 1, 24);
  EXPECT_EQ(StyFileBytes(image), EmptyStyles());
  EXPECT_EQ(EmptyStyles().size(), 4928U);
}

TEST(StyWrite, TheLastRecordIsFilledWithBlanks) {
  const std::string styles = StyImage({{"One", 41}});
  Bytes image = BuildStyWindowImage(styles);
  Set(image, 1, 23);
  EXPECT_EQ(StyFileBytes(image), styles + "   ");
}

TEST(StyWrite, WhatStandsBehindTheSizesGoesOutOnlyAsFarAsTheRecordReaches) {
  const std::string styles = StyImage({{"One", 42}});
  Bytes image = BuildStyWindowImage(styles + "abcdef");
  Set(image, 1, 23);
  EXPECT_EQ(StyFileBytes(image), styles + "ab");
}

TEST(StyWrite, ATrimmedPartKeepsOneEmptyStyleBehindItsLastGroup) {
  Bytes image = ArrWindowWith(OneStyleAt(0), 2);
  const std::string part = image.substr(42622);
  const Bytes file = StyFileBytes(image);
  // 224 and five entries of 100; the trimmed image still holds them all.
  ASSERT_EQ(file.size(), 724U);
  EXPECT_EQ(StyEntrySize(4, file), 100);
  EXPECT_EQ(StyEntrySize(5, file), 0);
  EXPECT_EQ(file.substr(224), part.substr(224, 500));
}

TEST(StyWrite, ATrimThatCutsUsedStylesLeavesBlanksInTheFile) {
  Bytes image = ArrWindowWith(OneStyleAt(11), 2);
  // Kept: 224 + 224 + 400 = 848 bytes; the sizes sum to 224 + 13 * 100 = 1524.
  const Bytes file = StyFileBytes(image);
  ASSERT_EQ(file.size(), 1524U);
  EXPECT_EQ(file.substr(848), Blanks(676));
}

TEST(StyStylePart, ReplacingItLeavesTheRestOfTheWindow) {
  Bytes image = BuildStyWindowImage(StyImage({{"One", 40}}));
  Set(image, 1, 23);
  const std::string prefix = image.substr(0, 669);
  PutStylePart(image, "other");
  EXPECT_EQ(image, prefix + "other");
  EXPECT_EQ(StylePart(image), "other");
  Bytes tiny = Hand({23, 0, 0});
  PutStylePart(tiny, "other");
  EXPECT_EQ(tiny, Hand({23, 0, 0}));
  EXPECT_EQ(StylePart(tiny), "");
}

}  // namespace
}  // namespace zentaline
