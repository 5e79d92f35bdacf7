// Arrangements on their way from one image to another, with their styles.
#include <gtest/gtest.h>

#include "files/clipboard_format.h"
#include "tests/files/item_builder.h"

namespace zentaline {
namespace {

using namespace test;

struct Paste {
  std::string clipboard;
  Bytes image;
  std::vector<int> selected = {0};
  int focus = 0;
  std::string empty = EmptyStyles();

  ItemsDone Run() { return PasteItems(clipboard, image, {selected, focus}, empty); }
};

using Rows = std::vector<int>;
using Notices = std::vector<ItemNotice>;

// A window with styles of its own: entries 0 to 3 of different lengths.
std::string FourStyles() {
  return StyImage({{"Waltz", 400, 'w'}, {"Tango", 500, 't'}, {"Polka", 600, 'p'}, {"Rumba", 700, 'r'}});
}

TEST(PasteArrangements, APlainRecordIsCopiedWhole) {
  Paste paste{ArrImage("", 0), ArrImage("", 0), {5}};
  PutArr(paste.clipboard, 3, "Plain", -1);
  std::string expected = ArrImage("", 0);
  Set(expected, 4, 1);
  expected.replace(302 + 164 * 5, 164, ArrItem("Plain", -1, 103));

  const ItemsDone done = paste.Run();
  EXPECT_EQ(paste.image, expected);
  EXPECT_EQ(done.rows, Rows{5});
  EXPECT_TRUE(done.changed);
  EXPECT_FALSE(done.styles_changed);
  EXPECT_EQ(done.notices, Notices{});
}

TEST(PasteArrangements, ByteThreeOfTheTargetBecomesTwo) {
  Paste paste{ArrImage("", 0), ArrImage("", 0)};
  PutArr(paste.clipboard, 0, "Plain", -1);
  Set(paste.image, 3, 0);
  paste.Run();
  EXPECT_EQ(At(paste.image, 3), 2);
}

TEST(PasteArrangements, ABanksRecordsArePlain) {
  Paste paste{ArrImage("", 0).substr(0, 12142), ArrImage("", 0)};
  PutArr(paste.clipboard, 0, "Factory", -1);
  PutArr(paste.clipboard, 63, "Last", -1);
  for (const int kind : {2, 3}) {
    Set(paste.clipboard, 1, kind);
    EXPECT_EQ(paste.Run().rows, (Rows{0, 1}));
    EXPECT_EQ(ArrRecordAt(paste.image, 1), ArrItem("Last", -1, 163));
  }
}

TEST(PasteArrangements, AStyleGoesAlongAndIsRenumbered) {
  Paste paste{ArrImage(FourStyles(), 2), ArrImage(EmptyStyles(), 1)};
  PutArr(paste.clipboard, 0, "With Polka", 2);
  const ItemsDone done = paste.Run();
  EXPECT_EQ(done.rows, Rows{0});
  EXPECT_TRUE(done.styles_changed);

  std::string styles =
      StyImage({{"Polka", 600, 'p'}, {"- empty -", 1176, 0}, {"- empty -", 1176, 0}, {"- empty -", 1176, 0}});
  std::string expected = ArrImage(styles, 2);
  Set(expected, 4, 1);
  Set(expected, 10, 1);
  expected.replace(302, 164, ArrItem("With Polka", 0, 100));
  EXPECT_EQ(paste.image, expected);
}

TEST(PasteArrangements, TwoThatShareAStyleShareItAfterwards) {
  Paste paste{ArrImage(FourStyles(), 2), ArrImage(EmptyStyles(), 1)};
  PutArr(paste.clipboard, 0, "One", 3);
  PutArr(paste.clipboard, 1, "Two", 1);
  PutArr(paste.clipboard, 2, "Three", 3);
  EXPECT_EQ(paste.Run().rows, (Rows{0, 1, 2}));
  EXPECT_EQ(ArrRecordAt(paste.image, 0), ArrItem("One", 0, 100));
  EXPECT_EQ(ArrRecordAt(paste.image, 1), ArrItem("Two", 1, 101));
  EXPECT_EQ(ArrRecordAt(paste.image, 2), ArrItem("Three", 0, 102));
  EXPECT_EQ(paste.image.substr(42622),
            StyImage({{"Rumba", 700, 'r'}, {"Tango", 500, 't'}, {"- empty -", 1176, 0}, {"- empty -", 1176, 0}}));
}

TEST(PasteArrangements, TheSecondPasteFindsTheStyleByItsName) {
  Paste paste{ArrImage(FourStyles(), 2), ArrImage(StyImage({{"Other", 30, 'o'}, {"Waltz", 40, 'x'}}), 2)};
  PutArr(paste.clipboard, 7, "Slow", 0);
  const std::string before = paste.image.substr(42622);
  const ItemsDone done = paste.Run();
  EXPECT_FALSE(done.styles_changed);
  EXPECT_EQ(paste.image.substr(42622), before);
  EXPECT_EQ(ArrRecordAt(paste.image, 0), ArrItem("Slow", 1, 107));
  EXPECT_EQ(At(paste.image, 4), 1);
  EXPECT_EQ(At(paste.image, 9), 2);
  EXPECT_EQ(At(paste.image, 10), 0);
}

TEST(PasteArrangements, SeveralRowsLimitThePasteToThemselves) {
  Paste paste{ArrImage("", 0), ArrImage("", 0), {4, 5, 6}};
  for (int row = 0; row < 8; ++row) PutArr(paste.clipboard, row, "Row", -1);
  EXPECT_EQ(paste.Run().rows, (Rows{4, 5, 6}));

  paste.selected = {4, 6};
  EXPECT_EQ(paste.Run().rows, Rows{4});
}

TEST(PasteArrangements, ASingleRowIsRunPast) {
  Paste paste{ArrImage("", 0), ArrImage("", 0), {4}};
  for (int row = 0; row < 3; ++row) PutArr(paste.clipboard, row, "Row", -1);
  EXPECT_EQ(paste.Run().rows, (Rows{4, 5, 6}));
}

TEST(PasteArrangements, WithoutASelectionTheRowWithTheFocusBeginsAndElseRowZero) {
  Paste paste{ArrImage("", 0), ArrImage("", 0), {}, 9};
  PutArr(paste.clipboard, 2, "Row", -1);
  EXPECT_EQ(paste.Run().rows, Rows{9});
  paste.focus = -1;
  EXPECT_EQ(paste.Run().rows, Rows{0});
}

TEST(PasteArrangements, TheLastRowEndsIt) {
  Paste paste{ArrImage("", 0), ArrImage("", 0), {63}};
  PutArr(paste.clipboard, 0, "One", -1);
  PutArr(paste.clipboard, 1, "Two", -1);
  EXPECT_EQ(paste.Run().rows, Rows{63});
  EXPECT_EQ(ArrRecordAt(paste.image, 63), ArrItem("One", -1, 100));
  EXPECT_EQ(paste.image.size(), 42622U);
}

TEST(PasteArrangements, AnEmptyRowOfTheClipboardEndsItAndAnEmptyTargetDoesNot) {
  Paste paste{ArrImage("", 0), ArrImage("", 0)};
  PutArr(paste.clipboard, 0, "One", -1);
  PutRow(paste.clipboard, 10799, 1, "12");
  PutArr(paste.clipboard, 2, "Three", -1);
  EXPECT_EQ(paste.Run().rows, Rows{0});
}

TEST(PasteArrangements, AStyleOfAWindowWithoutStylesEndsItWithABox) {
  Paste paste{ArrImage(FourStyles(), 0), ArrImage(EmptyStyles(), 1)};
  PutArr(paste.clipboard, 0, "Plain", -1);
  PutArr(paste.clipboard, 1, "With Style", 1);
  PutArr(paste.clipboard, 2, "Plain Too", -1);
  const ItemsDone done = paste.Run();
  EXPECT_EQ(done.rows, Rows{0});
  EXPECT_EQ(done.notices, Notices{ItemNotice::kStylesAbsent});
}

TEST(PasteArrangements, AnEntryAbove16EndsItSilentlyAlsoWithoutStyles) {
  for (const int state : {0, 2}) {
    Paste paste{ArrImage(FourStyles(), state), ArrImage(EmptyStyles(), 1)};
    PutArr(paste.clipboard, 0, "Far", 17);
    PutArr(paste.clipboard, 1, "Plain", -1);
    const ItemsDone done = paste.Run();
    EXPECT_EQ(done.rows, Rows{});
    EXPECT_EQ(done.notices, Notices{});
    EXPECT_FALSE(done.changed);
  }
}

TEST(PasteArrangements, AStyleOfSizeZeroEndsIt) {
  for (const int entry : {4, 15, 16}) {
    Paste paste{ArrImage(FourStyles(), 2), ArrImage(EmptyStyles(), 1)};
    PutArr(paste.clipboard, 0, "Plain", -1);
    PutArr(paste.clipboard, 1, "Nothing", entry);
    PutArr(paste.clipboard, 2, "Plain", -1);
    const ItemsDone done = paste.Run();
    EXPECT_EQ(done.rows, Rows{0}) << entry;
    EXPECT_EQ(done.notices, Notices{}) << entry;
  }
}

// The target row waits for the next arrangement.
TEST(PasteArrangements, ARefusedOneLeavesTheTargetRowWhereItIs) {
  Paste paste{ArrImage(FourStyles(), 2), ArrImage(StyImage(std::vector<Style>(16, Style{"Full", 20})), 2)};
  PutArr(paste.clipboard, 0, "No Place", 0);
  PutArr(paste.clipboard, 1, "Plain", -1);
  PutArr(paste.clipboard, 2, "No Place", 1);
  const ItemsDone done = paste.Run();
  EXPECT_EQ(done.rows, Rows{0});
  EXPECT_EQ(done.notices, (Notices{ItemNotice::kNoPlace, ItemNotice::kNoPlace}));
  EXPECT_EQ(ArrRecordAt(paste.image, 0), ArrItem("Plain", -1, 101));
  EXPECT_EQ(ArrRecordAt(paste.image, 1), Zeros(164));
  EXPECT_FALSE(done.styles_changed);
}

TEST(PasteArrangements, AGroupThatWouldBeTooLongRefuses) {
  Paste paste{ArrImage(StyImage({{"Long", 60000, 'l'}, {"Short", 100, 's'}}), 2),
              ArrImage(StyImage({{"A", 30000}, {"- empty -", 1176}}), 2)};
  PutArr(paste.clipboard, 0, "Too Long", 0);
  PutArr(paste.clipboard, 1, "Fits", 1);
  const ItemsDone done = paste.Run();
  EXPECT_EQ(done.notices, Notices{ItemNotice::kTooLong});
  EXPECT_EQ(done.rows, Rows{0});
  EXPECT_EQ(ArrRecordAt(paste.image, 0), ArrItem("Fits", 1, 101));
  EXPECT_EQ(paste.image.substr(42622), StyImage({{"A", 30000}, {"Short", 100, 's'}}));
}

// It answers in its mode; a row that found its style must not turn the next one into a cut.
TEST(PasteArrangements, EachRowAsksAnew) {
  Paste paste{ArrImage(FourStyles(), 2), ArrImage(StyImage({{"Other", 30}, {"Tango", 40}, {"- empty -", 50}}), 2)};
  PutArr(paste.clipboard, 0, "Known", 1);
  PutArr(paste.clipboard, 1, "Copied", 2);
  EXPECT_EQ(paste.Run().rows, (Rows{0, 1}));
  EXPECT_EQ(ArrRecordAt(paste.image, 0), ArrItem("Known", 1, 100));
  EXPECT_EQ(ArrRecordAt(paste.image, 1), ArrItem("Copied", 2, 101));
  EXPECT_EQ(paste.image.substr(42622), StyImage({{"Other", 30}, {"Tango", 40}, {"Polka", 600, 'p'}}));
}

TEST(PasteArrangements, ATargetWithoutStylesGetsTheTemplateFirst) {
  for (const std::string& none : {std::string(), Zeros(223)}) {
    Paste paste{ArrImage(FourStyles(), 2), ArrImage(none, 0)};
    PutArr(paste.clipboard, 0, "With Waltz", 0);
    EXPECT_EQ(paste.Run().rows, Rows{0});
    EXPECT_EQ(At(paste.image, 9), 2);
    EXPECT_EQ(paste.image.substr(42622),
              StyImage({{"Waltz", 400, 'w'}, {"- empty -", 1176, 0}, {"- empty -", 1176, 0}, {"- empty -", 1176, 0}}));
  }
}

TEST(PasteArrangements, WithoutATemplateOnlyPlainRowsArePasted) {
  Paste paste{ArrImage(FourStyles(), 2), ArrImage("", 0)};
  paste.empty.clear();
  PutArr(paste.clipboard, 0, "With Waltz", 0);
  PutArr(paste.clipboard, 1, "Plain", -1);
  PutArr(paste.clipboard, 2, "With Tango", 1);
  const ItemsDone done = paste.Run();
  EXPECT_EQ(done.rows, Rows{0});
  EXPECT_EQ(done.notices, Notices{ItemNotice::kNoTemplate});
  EXPECT_EQ(ArrRecordAt(paste.image, 0), ArrItem("Plain", -1, 101));
  EXPECT_EQ(paste.image.size(), 42622U);
}

TEST(PasteArrangements, SixteenStylesFillAnEmptyWindow) {
  std::vector<Style> styles;
  for (int e = 0; e < 16; ++e) styles.push_back({"Style " + std::to_string(e), 2000 + 10 * e, 'a' + e});
  Paste paste{ArrImage(StyImage(styles), 2), ArrImage(EmptyStyles(), 1)};
  for (int row = 0; row < 64; ++row) PutArr(paste.clipboard, row, "Arr", row % 16);
  const ItemsDone done = paste.Run();
  EXPECT_EQ(done.rows.size(), 64U);
  std::string expected = StyImage(styles);
  for (std::size_t e = 4; e < 16; ++e) expected.replace(22 + 4 * e, 2, Zeros(2));  // of the template's own table
  EXPECT_EQ(paste.image.substr(42622), expected);
  EXPECT_EQ(ArrRecordAt(paste.image, 37), ArrItem("Arr", 5, 137));
}

TEST(PasteArrangements, ATailOfZerosBehindTheLastStyleIsNoStyle) {
  Paste paste{ArrImage(FourStyles(), 2), ArrImage(StyImage({{"Other", 30, 'o'}}) + Zeros(40), 2)};
  PutArr(paste.clipboard, 0, "With Waltz", 0);
  EXPECT_EQ(paste.Run().rows, Rows{0});
  std::string expected = StyImage({{"Other", 30, 'o'}, {"Waltz", 400, 'w'}}) + Zeros(40);
  expected.replace(26, 2, Zeros(2));
  EXPECT_EQ(paste.image.substr(42622), expected);
  EXPECT_EQ(ArrRecordAt(paste.image, 0), ArrItem("With Waltz", 1, 100));
}

// What stands behind the last style reads as the name of all the entries that aren't there. A style that takes the
// first of them moves it on, and the next arrangement looks for it anew.
TEST(PasteArrangements, ANameBehindTheLastStyleIsLookedForEachTime) {
  const std::string first = StyImage({{"Kept", 40, 'k'}});
  Paste paste{ArrImage(FourStyles(), 2), ArrImage(first + Field("Waltz", 16), 2)};
  PutArr(paste.clipboard, 0, "One", 0);
  PutArr(paste.clipboard, 1, "Two", 1);
  PutArr(paste.clipboard, 2, "Three", 0);
  EXPECT_EQ(paste.Run().rows, (Rows{0, 1, 2}));
  EXPECT_EQ(ArrRecordAt(paste.image, 0), ArrItem("One", 1, 100));
  EXPECT_EQ(ArrRecordAt(paste.image, 1), ArrItem("Two", 1, 101));
  EXPECT_EQ(ArrRecordAt(paste.image, 2), ArrItem("Three", 2, 102));
}

// An empty style stands on a free place, which the next style takes.
TEST(PasteArrangements, AnEmptyStyleIsPlacedEachTime) {
  const std::string source = StyImage({{"- empty -", 50, 'e'}, {"Tango", 60, 't'}});
  Paste paste{ArrImage(source, 2), ArrImage(StyImage({{"", 30, 'x'}, {"", 0}}), 2)};
  PutArr(paste.clipboard, 0, "One", 0);
  PutArr(paste.clipboard, 1, "Two", 1);
  PutArr(paste.clipboard, 2, "Three", 0);
  EXPECT_EQ(paste.Run().rows, (Rows{0, 1, 2}));
  EXPECT_EQ(ArrRecordAt(paste.image, 0), ArrItem("One", 0, 100));
  EXPECT_EQ(ArrRecordAt(paste.image, 1), ArrItem("Two", 0, 101));
  EXPECT_EQ(ArrRecordAt(paste.image, 2), ArrItem("Three", 1, 102));
  EXPECT_EQ(paste.image.substr(42622), StyImage({{"Tango", 60, 't'}, {"- empty -", 50, 'e'}}));
}

TEST(PasteArrangements, WhatADamagedTargetLacksIsZero) {
  Paste paste{ArrImage(FourStyles(), 2), ArrImage(StyImage({{"Other", 100, 'o'}}).substr(0, 250), 2)};
  PutArr(paste.clipboard, 0, "With Waltz", 0);
  EXPECT_EQ(paste.Run().rows, Rows{0});
  std::string expected = StyImage({{"Other", 100, 'o'}, {"Waltz", 400, 'w'}});
  expected.replace(26, 2, Zeros(2));
  expected.replace(250, 74, Zeros(74));
  EXPECT_EQ(paste.image.substr(42622), expected);
}

TEST(PasteArrangements, AClipboardThatIsNoneOrADamagedTargetIsStood) {
  std::mt19937 random(11);
  for (int round = 0; round < 200; ++round) {
    Paste paste{ArrImage(FourStyles(), 2), ArrImage(EmptyStyles(), 1)};
    for (int row = 0; row < 64; ++row) PutArr(paste.clipboard, row, "Arr", RandomNumber(random, -1, 20));
    for (int i = 0; i < 60; ++i) {
      Set(paste.clipboard, static_cast<std::size_t>(RandomNumber(random, 10799, 42900)), RandomNumber(random, 0, 255));
      Set(paste.image, static_cast<std::size_t>(RandomNumber(random, 42623, 42720)), RandomNumber(random, 0, 255));
    }
    paste.clipboard.resize(static_cast<std::size_t>(RandomNumber(random, 0, 50000)));
    paste.image.resize(static_cast<std::size_t>(RandomNumber(random, 1, 50000)));
    paste.selected = {RandomNumber(random, 0, 63)};
    const std::size_t before = paste.image.size();
    const ItemsDone done = paste.Run();
    EXPECT_GE(paste.image.size(), std::min<std::size_t>(before, 42622));
    for (const int row : done.rows) EXPECT_LT(row, 64);
  }
}

}  // namespace
}  // namespace zentaline
