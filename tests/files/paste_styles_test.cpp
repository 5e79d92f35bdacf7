// Styles on their way from one style window's image to another.
#include <gtest/gtest.h>

#include "files/clipboard_format.h"
#include "tests/files/item_builder.h"

namespace zentaline {
namespace {

using namespace test;

using Rows = std::vector<int>;
using Notices = std::vector<ItemNotice>;

ItemsDone Paste(const std::string& clipboard, Bytes& image, const Rows& selected = {}) {
  return PasteItems(clipboard, image, {selected, -1}, EmptyStyles());
}

std::vector<Style> Target() {
  return {{"One", 40, '1'}, {"Two", 50, '2'}, {"Three", 60, '3'}, {"Four", 70, '4'}, {"Five", 80, '5'}};
}

// Waltz, Tango and Polka in the entries 0, 4 and 5; all three marked.
std::string Source() {
  std::string image = StyWindow(
      StyImage({{"Waltz", 400, 'w'}, {"B", 20}, {"C", 20}, {"D", 20}, {"Tango", 500, 't'}, {"Polka", 50, 'p'}}));
  MarkSty(image, 0, "Waltz");
  MarkSty(image, 4, "Tango");
  MarkSty(image, 5, "Polka");
  return image;
}

TEST(PasteStyles, MarkedStylesTakeTheEntriesFromTheFirstSelectedRowOn) {
  Bytes image = StyWindow(StyImage(Target()));
  const ItemsDone done = Paste(Source(), image, {StyRow(1)});
  EXPECT_EQ(done.rows, (Rows{StyRow(1), StyRow(2), StyRow(3)}));
  EXPECT_TRUE(done.styles_changed);
  std::vector<Style> styles = Target();
  styles[1] = {"Waltz", 400, 'w'};
  styles[2] = {"Tango", 500, 't'};
  styles[3] = {"Polka", 50, 'p'};
  std::string expected = StyWindow(StyImage(styles));
  Set(expected, 10, 1);
  EXPECT_EQ(image, expected);
}

TEST(PasteStyles, WithoutASelectionEntryZeroIsTheFirst) {
  Bytes image = StyWindow(StyImage(Target()));
  EXPECT_EQ(Paste(Source(), image).rows, (Rows{0, 1, 2}));
}

TEST(PasteStyles, OtherSelectedRowsPlayNoPart) {
  Bytes image = StyWindow(StyImage(Target()));
  EXPECT_EQ(Paste(Source(), image, {StyRow(2), StyRow(4)}).rows, (Rows{StyRow(2), StyRow(3), StyRow(4)}));
}

TEST(PasteStyles, ASameSizedStyleLeavesEveryOtherByteAlone) {
  std::string clipboard = StyWindow(StyImage({{"Same", 60, 's'}}));
  MarkSty(clipboard, 0, "Same");
  Bytes image = StyWindow(StyImage(Target()));
  Paste(clipboard, image, {StyRow(2)});
  std::vector<Style> styles = Target();
  styles[2] = {"Same", 60, 's'};
  EXPECT_EQ(image.substr(669), StyImage(styles));
}

TEST(PasteStyles, AGapStandsForTheEntryBehindIt) {
  Bytes image = StyWindow(StyImage(Target()));
  EXPECT_EQ(Paste(Source(), image, {4}).rows.front(), StyRow(4));
}

TEST(PasteStyles, DirectlyBehindTheLastEntryItAppends) {
  std::string clipboard = StyWindow(StyImage({{"New", 30, 'n'}}));
  MarkSty(clipboard, 0, "New");
  Bytes image = StyWindow(StyImage(Target()));
  const ItemsDone done = Paste(clipboard, image, {StyRow(5)});
  EXPECT_EQ(done.rows, Rows{StyRow(5)});
  std::vector<Style> styles = Target();
  styles.push_back({"New", 30, 'n'});
  std::string expected = StyImage(styles);
  expected.replace(42, 2, Zeros(2));  // the two bytes in front of a size stay as they were
  EXPECT_EQ(image.substr(669), expected);
}

TEST(PasteStyles, FurtherBehindItIsRefused) {
  Bytes image = StyWindow(StyImage(Target()));
  const std::string before = image;
  const ItemsDone done = Paste(Source(), image, {StyRow(6)});
  EXPECT_EQ(done.notices, (Notices{ItemNotice::kNoPlace, ItemNotice::kNoPlace, ItemNotice::kNoPlace}));
  EXPECT_FALSE(done.changed);
  EXPECT_EQ(image, before);
}

TEST(PasteStyles, AStyleOfSizeZeroEndsIt) {
  std::string clipboard = StyWindow(StyImage({{"Waltz", 400, 'w'}, {"Gone", 0}, {"Polka", 50, 'p'}}));
  for (int entry = 0; entry < 3; ++entry) MarkSty(clipboard, entry, "Any");
  Bytes image = StyWindow(StyImage(Target()));
  const ItemsDone done = Paste(clipboard, image);
  EXPECT_EQ(done.rows, Rows{0});
  EXPECT_EQ(done.notices, Notices{});
}

TEST(PasteStyles, AMarkOnAGapOfTheClipboardIsPassedOver) {
  std::string clipboard = Source();
  PutRow(clipboard, 271, 4, " ");
  Bytes image = StyWindow(StyImage(Target()));
  EXPECT_EQ(Paste(clipboard, image).rows, (Rows{0, 1, 2}));
}

TEST(PasteStyles, TheSixteenthEntryIsTheLast) {
  Bytes image = StyWindow(StyImage(std::vector<Style>(16, Style{"S", 20})));
  const ItemsDone done = Paste(Source(), image, {StyRow(14)});
  EXPECT_EQ(done.rows, (Rows{StyRow(14), StyRow(15)}));
  EXPECT_EQ(done.notices, Notices{});
}

// The place is used up, and the file counts as changed, although nothing has.
TEST(PasteStyles, ATooLongGroupTakesThePlaceAndCountsAsChanged) {
  std::string clipboard = StyWindow(StyImage({{"Long", 60000, 'l'}, {"Short", 30, 's'}}));
  MarkSty(clipboard, 0, "Long");
  MarkSty(clipboard, 1, "Short");
  std::vector<Style> styles(8, Style{"Big", 20000, 'b'});
  Bytes image = StyWindow(StyImage(styles));
  const ItemsDone done = Paste(clipboard, image, {StyRow(4)});
  EXPECT_EQ(done.notices, Notices{ItemNotice::kTooLong});
  EXPECT_EQ(done.rows, Rows{StyRow(5)});
  styles[5] = {"Short", 30, 's'};
  EXPECT_EQ(image.substr(669), StyImage(styles));

  Bytes untouched = StyWindow(StyImage(std::vector<Style>(8, Style{"Big", 20000, 'b'})));
  std::string expected = untouched;
  Set(expected, 10, 1);
  std::string only_long = StyWindow(StyImage({{"Long", 60000, 'l'}}));
  MarkSty(only_long, 0, "Long");
  const ItemsDone refused = Paste(only_long, untouched, {StyRow(4)});
  EXPECT_TRUE(refused.changed);
  EXPECT_FALSE(refused.styles_changed);
  EXPECT_EQ(untouched, expected);
}

TEST(PasteStyles, TheGreatestStylesAreStood) {
  std::string clipboard = StyWindow(StyImage(std::vector<Style>(16, Style{"Max", 65535, 'm'})));
  for (int entry = 0; entry < 16; ++entry) MarkSty(clipboard, entry, "Max");
  Bytes image = StyWindow(EmptyStyles());
  const ItemsDone done = Paste(clipboard, image);
  // Four groups take one each with the three empty ones beside it; every other one is refused.
  EXPECT_EQ(done.rows.front(), 0);
  EXPECT_EQ(At(image, 670 + 24) + 256 * At(image, 670 + 25), 65535);
  for (std::size_t group = 0; group < 4; ++group) {
    int sum = 0;
    for (std::size_t e = 4 * group; e < 4 * group + 4; ++e) {
      sum += At(image, 670 + 24 + 4 * e) + 256 * At(image, 670 + 25 + 4 * e);
    }
    EXPECT_LE(sum, 80000);
  }
}

TEST(PasteStyles, DamagedImagesOfAnyLengthAreStood) {
  std::mt19937 random(5);
  for (int round = 0; round < 300; ++round) {
    std::string clipboard = Source();
    Bytes image = StyWindow(StyImage(Target()));
    for (int i = 0; i < 20; ++i) {
      Set(clipboard, static_cast<std::size_t>(RandomNumber(random, 670, 800)), RandomNumber(random, 0, 255));
      Set(image, static_cast<std::size_t>(RandomNumber(random, 670, 800)), RandomNumber(random, 0, 255));
    }
    clipboard.resize(static_cast<std::size_t>(RandomNumber(random, 0, 2000)));
    image.resize(static_cast<std::size_t>(RandomNumber(random, 1, 2000)));
    const std::size_t before = image.size();
    const ItemsDone done = Paste(clipboard, image, {RandomNumber(random, 0, 18)});
    EXPECT_TRUE(done.changed || image.size() == before);
    for (const int row : done.rows) EXPECT_LT(row, 19);
  }
}

}  // namespace
}  // namespace zentaline
