// The table of marks and row texts, and which windows give and take items.
#include <gtest/gtest.h>

#include "files/clipboard_format.h"
#include "tests/files/item_builder.h"

namespace zentaline {
namespace {

using namespace test;

// An image of the kind that is long enough for any table.
std::string OfKind(int kind) {
  std::string image = Zeros(60000);
  Set(image, 1, kind);
  return image;
}

TEST(ItemTable, StandsWhereTheKindHasIt) {
  struct Row {
    int kind;
    ItemFamily family;
    std::size_t position;
    int rows;
    bool takes;
  };
  const Row rows[] = {
      {2, ItemFamily::kArrangements, 10799, 64, false}, {3, ItemFamily::kArrangements, 10799, 64, false},
      {4, ItemFamily::kPrograms, 30, 64, false},        {5, ItemFamily::kPrograms, 30, 64, false},
      {6, ItemFamily::kPrograms, 30, 64, false},        {7, ItemFamily::kPrograms, 30, 64, false},
      {8, ItemFamily::kPrograms, 30, 64, false},        {9, ItemFamily::kPrograms, 58657, 64, false},
      {10, ItemFamily::kPrograms, 58657, 64, false},    {19, ItemFamily::kArrangements, 10799, 64, true},
      {20, ItemFamily::kArrangements, 10799, 64, true}, {21, ItemFamily::kPrograms, 30751, 64, true},
      {22, ItemFamily::kPrograms, 30751, 64, true},     {23, ItemFamily::kStyles, 271, 19, true},
      {24, ItemFamily::kStyles, 271, 19, true},
  };
  for (const Row& row : rows) {
    const ItemTable table = ItemTableOf(OfKind(row.kind));
    EXPECT_EQ(table.family, row.family) << row.kind;
    EXPECT_EQ(table.position, row.position) << row.kind;
    EXPECT_EQ(table.rows, row.rows) << row.kind;
    EXPECT_EQ(table.takes, row.takes) << row.kind;
  }
}

TEST(ItemTable, OtherKindsHaveNone) {
  for (const int kind : {0, 1, 11, 12, 13, 14, 15, 16, 17, 18, 25, 26, 31, 32, 255}) {
    EXPECT_EQ(ItemTableOf(OfKind(kind)).family, ItemFamily::kNone) << kind;
  }
}

TEST(ItemTable, ADrumImageWithoutRoomForATableHasNone) {
  std::string image = Hand({9}) + Zeros(1342);
  EXPECT_EQ(ItemTableOf(image).family, ItemFamily::kNone);
  image += Zeros(1);
  EXPECT_EQ(ItemTableOf(image).position, 1U);
}

// Every kind against every other one: only a file's or a new file's window takes, and only its own family.
TEST(ItemTable, ItemsFitTheirOwnFamilysFiles) {
  const std::vector<std::vector<int>> givers = {{2, 3, 19, 20}, {4, 5, 6, 7, 8, 9, 10, 21, 22}, {23, 24}};
  const std::vector<std::vector<int>> takers = {{19, 20}, {21, 22}, {23, 24}};
  for (int from = 0; from < 40; ++from) {
    for (int to = 0; to < 40; ++to) {
      bool fits = false;
      for (std::size_t family = 0; family < 3; ++family) {
        const auto has = [](const std::vector<int>& kinds, int kind) {
          return std::find(kinds.begin(), kinds.end(), kind) != kinds.end();
        };
        fits = fits || (has(givers[family], from) && has(takers[family], to));
      }
      EXPECT_EQ(FitsItems(OfKind(from), OfKind(to)), fits) << from << " to " << to;
    }
  }
  EXPECT_FALSE(FitsItems("", OfKind(19)));
}

TEST(ItemTable, ACopyWritesMarksAndTwentyBytesARow) {
  const std::string image = StyWindow(EmptyStyles());
  std::string expected = Zeros(399);
  expected.replace(
      0, 63,
      "\x01" + std::string("11  A long name of a") + Zeros(1) + Field("12", 20) + "\x01" + Field("\xE9\xFF", 20));
  EXPECT_EQ(MarkedTable(image, {"11  A long name of a style", "12", "\xE9\xFF"}, {0, 2}), expected);
}

TEST(ItemTable, ACopyFillsNoMoreRowsThanThereAre) {
  const std::vector<std::string> rows(70, "11  Piano");
  for (const int kind : {2, 8, 9, 19, 21, 23}) {
    EXPECT_EQ(MarkedTable(OfKind(kind), rows, {69}).size(), kind == 23 ? 399U : 1344U);
  }
  EXPECT_EQ(MarkedTable(OfKind(17), rows, {0}), "");
  // The kits of a drum window leave the rest of its table as it was.
  std::string drum = Hand({9}) + Blanks(1853);
  EXPECT_EQ(MarkedTable(drum, std::vector<std::string>(16, "11  Kit"), {}).substr(336), Blanks(1008));
}

TEST(ItemTable, ACutLeavesNoMarksAndOfProgramsNoTexts) {
  std::string styles = StyWindow("");
  MarkSty(styles, 1, "Tango");
  EXPECT_EQ(UnmarkedTable(styles), Zeros(22) + Field("nn  Tango", 20) + Zeros(357));

  std::string programs = PrgImage();
  PutPrg(programs, 0, "Strings");
  PutPrg(programs, 1, "Brass", false);
  EXPECT_EQ(UnmarkedTable(programs), Zeros(1) + Blanks(20) + Zeros(1) + Field("12  Brass", 20) + Zeros(1302));
}

// The labels of a new arrangement window stand on the mark bytes until the first copy.
TEST(ItemTable, OnlyTheValueOneMarks) {
  std::string image = StyWindow("");
  for (const int value : {0, 2, 32, 49, 255}) {
    Set(image, 271, value);
    EXPECT_FALSE(IsMarked(image, 0)) << value;
  }
  Set(image, 271, 1);
  EXPECT_TRUE(IsMarked(image, 0));
  EXPECT_FALSE(IsMarked(image, -1));
  EXPECT_FALSE(IsMarked(image, 19));
}

TEST(ItemTable, RowsThatShowAnItem) {
  struct Row {
    ItemFamily family;
    int row;
    std::string text;
    bool shows;
  };
  const Row rows[] = {
      {ItemFamily::kArrangements, 0, "11  Name", true},
      {ItemFamily::kArrangements, 0, "11 +" + Blanks(16), true},
      {ItemFamily::kArrangements, 0, "11" + Blanks(18), false},
      {ItemFamily::kArrangements, 0, "", false},
      {ItemFamily::kArrangements, 4, "15  - empty -", true},
      {ItemFamily::kPrograms, 0, "11 *" + Blanks(16), true},
      {ItemFamily::kPrograms, 0, "11", false},
      {ItemFamily::kStyles, 0, "11  Waltz", true},
      {ItemFamily::kStyles, 0, "11", false},
      {ItemFamily::kStyles, 0, "11  - empty -" + Blanks(7), false},
      {ItemFamily::kStyles, 4, "11  Waltz", false},
      {ItemFamily::kStyles, 9, "11  Waltz", false},
      {ItemFamily::kStyles, 14, "11  Waltz", false},
      {ItemFamily::kStyles, 4, " ", false},
      {ItemFamily::kNone, 0, "11  Name", false},
  };
  for (const Row& row : rows) EXPECT_EQ(ShowsItem(row.family, row.row, row.text), row.shows) << row.text;
}

}  // namespace
}  // namespace zentaline
