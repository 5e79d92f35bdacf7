// Programs on their way from files and banks into the image of a file.
#include <gtest/gtest.h>

#include "files/clipboard_format.h"
#include "tests/files/item_builder.h"

namespace zentaline {
namespace {

using namespace test;

using Rows = std::vector<int>;

ItemsDone Paste(const std::string& clipboard, Bytes& image, const Rows& selected = {0}, int focus = 0) {
  return PasteItems(clipboard, image, {selected, focus}, EmptyStyles());
}

// A bank of the instrument's whose row `row` is marked; the table stands where the kind has it.
std::string Bank(int kind, int row, const std::string& name) {
  std::string image = Zeros(20) + Blanks(kind < 9 ? 3294 : 1854);
  Set(image, 1, kind);
  PutRow(image, kind < 9 ? 30 : image.size() - 1343, row, RowNumber(row) + "  " + name);
  return image;
}

TEST(PastePrograms, ARecordIsCopiedWhole) {
  std::string clipboard = PrgImage();
  PutPrg(clipboard, 9, "Strings");
  Bytes image = PrgImage();
  std::string expected = PrgImage();
  Set(expected, 7, 1);
  expected.replace(318 + 172 * 2, 172, PrgItem("Strings", 109));
  const ItemsDone done = Paste(clipboard, image, {2});
  EXPECT_EQ(done.rows, Rows{2});
  EXPECT_TRUE(done.changed);
  EXPECT_EQ(image, expected);
}

TEST(PastePrograms, AProgramOfABankBecomesALinkToIt) {
  struct Case {
    int kind;
    int row;
    int bank_code;
    int number;
  };
  const Case cases[] = {{4, 0, 0, 0},   {4, 63, 0, 63}, {5, 0, 0, 64},  {5, 63, 0, 127}, {6, 5, 1, 5},   {7, 5, 1, 69},
                        {8, 63, 2, 63}, {9, 0, 4, 0},   {9, 15, 4, 15}, {10, 0, 4, 0},   {10, 15, 4, 15}};
  for (const Case& link : cases) {
    Bytes image = PrgImage();
    const ItemsDone done = Paste(Bank(link.kind, link.row, "Sixteen Letters!"), image, {7});
    EXPECT_EQ(done.rows, Rows{7});
    EXPECT_EQ(PrgRecordAt(image, 7), Hand({1, link.bank_code, link.number}) + "Sixteen Letters!" + Zeros(153))
        << link.kind << " row " << link.row;
  }
}

TEST(PastePrograms, ALinkTurnsTheFileIntoAPgg) {
  Bytes image = PrgImage();
  std::string expected = PrgImage();
  Set(expected, 7, 1);
  Set(expected, 19, 1);
  expected.replace(270, 4, "KPGG");
  expected.replace(318, 172, Hand({1, 0, 12}) + Field("Organ", 16) + Zeros(153));
  Paste(Bank(4, 12, "Organ"), image);
  EXPECT_EQ(image, expected);
}

TEST(PastePrograms, AProgramOverTheLastLinkTurnsItBack) {
  Bytes image = PrgImage();
  Paste(Bank(4, 12, "Organ"), image);
  std::string clipboard = PrgImage();
  PutPrg(clipboard, 0, "Own");
  Paste(clipboard, image);
  EXPECT_EQ(At(image, 19), 0);
  EXPECT_EQ(image.substr(270, 8), "KORG" + Hand({0x4D, 0, 0, 1}));
}

TEST(PastePrograms, ALinkOfAFileIsCopiedAsItStands) {
  std::string clipboard = PrgImage();
  const std::string link = Hand({1, 2, 40}) + Field("Linked", 16) + std::string(153, 'r');
  clipboard.replace(318, 172, link);
  PutRow(clipboard, 30751, 0, "11 *Linked");
  Set(clipboard, 1, 22);
  Bytes image = PrgImage();
  Paste(clipboard, image, {63});
  EXPECT_EQ(PrgRecordAt(image, 63), link);
  EXPECT_EQ(image.substr(270, 4), "KPGG");
}

TEST(PastePrograms, TheRowsGoAsWithArrangements) {
  std::string clipboard = PrgImage();
  for (int row = 0; row < 5; ++row) PutPrg(clipboard, row, "P");
  Bytes image = PrgImage();
  EXPECT_EQ(Paste(clipboard, image, {3, 4, 8}).rows, (Rows{3, 4}));
  EXPECT_EQ(Paste(clipboard, image, {62}).rows, (Rows{62, 63}));
  EXPECT_EQ(Paste(clipboard, image, {}, 61).rows, (Rows{61, 62, 63}));
  EXPECT_EQ(Paste(clipboard, image, {}, -1).rows, (Rows{0, 1, 2, 3, 4}));
  PutRow(clipboard, 30751, 2, "13");
  EXPECT_EQ(Paste(clipboard, image, {0}).rows, (Rows{0, 1}));
}

TEST(PastePrograms, NothingPastedChangesNothing) {
  Bytes image = PrgImage();
  image.replace(270, 4, "KPGG");
  const std::string before = image;
  EXPECT_FALSE(Paste(PrgImage(), image).changed);
  EXPECT_EQ(image, before);
}

}  // namespace
}  // namespace zentaline
