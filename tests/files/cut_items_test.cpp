// What a cut leaves behind, by the marks in the image's own table.
#include <gtest/gtest.h>

#include "files/clipboard_format.h"
#include "tests/files/item_builder.h"

namespace zentaline {
namespace {

using namespace test;

using Rows = std::vector<int>;
using Entries = std::vector<int>;
using Notices = std::vector<ItemNotice>;

std::string FourStyles() {
  return StyImage({{"Waltz", 400, 'w'}, {"Tango", 500, 't'}, {"Polka", 600, 'p'}, {"Rumba", 700, 'r'}});
}

// Every record written, with factory styles whose numbers are no entries, so that no record shares one by being empty.
std::string FullArrImage(int style_state = 2) {
  std::string image = ArrImage(FourStyles(), style_state);
  for (int row = 0; row < 64; ++row) PutArr(image, row, "Plain", -1, false);
  return image;
}

TEST(CutArrangements, ARecordBecomes164ZeroBytesAndItsStyleTheEmptyOne) {
  Bytes image = FullArrImage();
  PutArr(image, 5, "With Tango", 1);
  std::string expected = FullArrImage();
  PutArr(expected, 5, "With Tango", 1);
  expected.replace(302 + 164 * 5, 164, Zeros(164));
  expected.replace(42622, std::string::npos,
                   StyImage({{"Waltz", 400, 'w'}, {"- empty -", 1176, 0}, {"Polka", 600, 'p'}, {"Rumba", 700, 'r'}}));
  Set(expected, 4, 1);
  Set(expected, 10, 1);

  const ItemsDone done = CutItems(image, EmptyStyles());
  EXPECT_EQ(image, expected);
  EXPECT_EQ(done.rows, Rows{5});
  EXPECT_EQ(done.cut_styles, Entries{1});
  EXPECT_TRUE(done.styles_changed);
}

TEST(CutArrangements, APlainRecordLeavesTheStylesAlone) {
  Bytes image = FullArrImage();
  PutArr(image, 63, "Plain", -1);
  const ItemsDone done = CutItems(image, EmptyStyles());
  EXPECT_EQ(done.rows, Rows{63});
  EXPECT_FALSE(done.styles_changed);
  EXPECT_EQ(ArrRecordAt(image, 63), Zeros(164));
  EXPECT_EQ(image.substr(42622), FourStyles());
  EXPECT_EQ(At(image, 9), 2);
}

TEST(CutArrangements, ASharedStyleStaysUntilTheLastOneGoes) {
  Bytes image = FullArrImage();
  PutArr(image, 0, "One", 2);
  PutArr(image, 1, "Two", 2, false);
  EXPECT_EQ(CutItems(image, EmptyStyles()).cut_styles, Entries{});
  PutRow(image, 10799, 0, "11", false);
  PutRow(image, 10799, 1, "12 +Two");
  EXPECT_EQ(CutItems(image, EmptyStyles()).cut_styles, Entries{2});
}

TEST(CutArrangements, TwoThatShareAStyleMayGoTogether) {
  Bytes image = FullArrImage();
  PutArr(image, 0, "One", 2);
  PutArr(image, 1, "Two", 2);
  EXPECT_EQ(CutItems(image, EmptyStyles()).cut_styles, Entries{2});
}

// Offset 17 alone is compared: a factory style of this number, and a record that was never written, count as well.
TEST(CutArrangements, AnyRecordWithTheSameNumberKeepsTheStyle) {
  Bytes image = FullArrImage();
  PutArr(image, 0, "One", 2);
  Set(image, 303 + 164 * 9 + 17, 2);
  EXPECT_EQ(CutItems(image, EmptyStyles()).cut_styles, Entries{});

  image = FullArrImage();
  PutArr(image, 0, "One", 0);
  image.replace(302 + 164 * 40, 164, Zeros(164));
  EXPECT_EQ(CutItems(image, EmptyStyles()).cut_styles, Entries{});
}

TEST(CutArrangements, WithoutStylesABoxTellsSoAndTheRecordGoes) {
  Bytes image = FullArrImage(0);
  PutArr(image, 0, "One", 2);
  const ItemsDone done = CutItems(image, EmptyStyles());
  EXPECT_EQ(done.notices, Notices{ItemNotice::kStylesAbsent});
  EXPECT_EQ(ArrRecordAt(image, 0), Zeros(164));
  EXPECT_EQ(image.substr(42622), FourStyles());
}

TEST(CutArrangements, WithoutATemplateTheStyleStays) {
  Bytes image = FullArrImage();
  PutArr(image, 0, "One", 2);
  PutArr(image, 1, "Two", 1);
  const ItemsDone done = CutItems(image, "");
  EXPECT_EQ(done.rows, (Rows{0, 1}));
  EXPECT_EQ(done.notices, Notices{ItemNotice::kNoTemplate});
  EXPECT_EQ(image.substr(42622), FourStyles());
  EXPECT_EQ(At(image, 10), 0);
}

TEST(CutArrangements, WithTheLastStyleTheFileHasNoneAttached) {
  Bytes image = FullArrImage();
  image.replace(42622, std::string::npos, StyImage({{"- empty -", 1176, 0}, {"Only", 100, 'o'}}));
  PutArr(image, 0, "One", 1);
  CutItems(image, EmptyStyles());
  EXPECT_EQ(At(image, 9), 0);
  EXPECT_EQ(At(image, 10), 1);
}

// The template alone is no style either.
TEST(CutArrangements, APlainCutInAFileWithoutStylesDetachesTheTemplate) {
  Bytes image = ArrImage(EmptyStyles(), 1);
  PutArr(image, 0, "One", -1);
  CutItems(image, EmptyStyles());
  EXPECT_EQ(At(image, 9), 0);
}

TEST(CutArrangements, AnEntryThatIsNotThereIsNotMade) {
  for (const int entry : {4, 15, 16, 200}) {
    Bytes image = FullArrImage();
    PutArr(image, 0, "One", entry);
    const ItemsDone done = CutItems(image, EmptyStyles());
    EXPECT_EQ(done.rows, Rows{0});
    EXPECT_EQ(done.notices, Notices{});
    EXPECT_EQ(image.substr(42622), FourStyles()) << entry;
  }
}

TEST(CutArrangements, AGroupMayBeTooLongForTheEmptyStyle) {
  Bytes image = FullArrImage();
  const std::string styles = StyImage({{"A", 65535}, {"B", 14000}, {"C", 20}, {"D", 20}});
  image.replace(42622, std::string::npos, styles);
  PutArr(image, 0, "One", 2);
  const ItemsDone done = CutItems(image, EmptyStyles());
  EXPECT_EQ(done.notices, Notices{ItemNotice::kTooLong});
  EXPECT_EQ(ArrRecordAt(image, 0), Zeros(164));
  EXPECT_EQ(image.substr(42622), styles);
}

TEST(CutArrangements, WithoutAMarkNothingHappens) {
  Bytes image = ArrImage(EmptyStyles(), 1);
  const std::string before = image;
  EXPECT_FALSE(CutItems(image, EmptyStyles()).changed);
  EXPECT_EQ(image, before);
}

TEST(CutPrograms, ARecordIsCleared) {
  Bytes image = PrgImage();
  PutPrg(image, 3, "Strings");
  PutPrg(image, 4, "Brass", false);
  std::string expected = PrgImage();
  PutPrg(expected, 4, "Brass", false);
  PutRow(expected, 30751, 3, "14  Strings");
  Set(expected, 7, 1);
  const ItemsDone done = CutItems(image, "");
  EXPECT_EQ(done.rows, Rows{3});
  EXPECT_EQ(image, expected);
}

TEST(CutPrograms, WithTheLastProgramByteSixGoes) {
  Bytes image = PrgImage();
  PutPrg(image, 3, "Strings");
  CutItems(image, "");
  EXPECT_EQ(At(image, 6), 0);
}

TEST(CutPrograms, WithTheLastLinkThePggIsAPrgAgain) {
  Bytes image = PrgImage();
  image.replace(270, 4, "KPGG");
  Set(image, 19, 1);
  PutPrg(image, 0, "Own", false);
  image.replace(318 + 172, 172, Hand({1, 0, 12}) + Field("Organ", 16) + Zeros(153));
  PutRow(image, 30751, 1, "12 *Organ");
  CutItems(image, "");
  EXPECT_EQ(At(image, 19), 0);
  EXPECT_EQ(image.substr(270, 4), "KORG");
  EXPECT_EQ(At(image, 6), 2);
}

TEST(CutStyles, TheEmptyStyleTakesThePlaceWhateverTheSizeWas) {
  Bytes image = StyWindow(FourStyles());
  MarkSty(image, 1, "Tango");
  MarkSty(image, 3, "Rumba");
  const ItemsDone done = CutItems(image, EmptyStyles());
  EXPECT_EQ(done.rows, (Rows{1, 3}));
  EXPECT_EQ(image.substr(669),
            StyImage({{"Waltz", 400, 'w'}, {"- empty -", 1176, 0}, {"Polka", 600, 'p'}, {"- empty -", 1176, 0}}));
  EXPECT_EQ(At(image, 10), 1);
  EXPECT_EQ(image.substr(270 + 21, 21), "\x01" + Field("nn  Tango", 20));
}

TEST(CutStyles, ARowWithoutAStyleStaysWithout) {
  Bytes image = StyWindow(FourStyles());
  for (const int entry : {4, 5, 15}) MarkSty(image, entry, "Any");
  PutRow(image, 271, 4, " ");
  EXPECT_FALSE(CutItems(image, EmptyStyles()).changed);
  EXPECT_EQ(image.substr(669), FourStyles());
  EXPECT_EQ(At(image, 10), 0);
}

TEST(CutStyles, WithoutATemplateNothingIsCut) {
  Bytes image = StyWindow(FourStyles());
  MarkSty(image, 0, "Waltz");
  MarkSty(image, 1, "Tango");
  const ItemsDone done = CutItems(image, "");
  EXPECT_EQ(done.notices, Notices{ItemNotice::kNoTemplate});
  EXPECT_FALSE(done.changed);
  EXPECT_EQ(image.substr(669), FourStyles());
}

TEST(CutItems, BanksAndOtherKindsGiveNothingAway) {
  for (int kind = 0; kind < 40; ++kind) {
    if (kind >= 19 && kind <= 24) continue;
    Bytes image = std::string(60000, '\x01');
    Set(image, 1, kind);
    const std::string before = image;
    EXPECT_FALSE(CutItems(image, EmptyStyles()).changed);
    EXPECT_EQ(image, before) << kind;
  }
}

TEST(CutItems, DamagedImagesOfAnyLengthAreStood) {
  std::mt19937 random(3);
  for (const int kind : {19, 20, 21, 22, 23, 24}) {
    for (int round = 0; round < 60; ++round) {
      Bytes image = RandomBytes(random, static_cast<std::size_t>(RandomNumber(random, 1, 50000)));
      Set(image, 1, kind);
      if (image.size() > 31000) {
        for (std::size_t at = kind > 22 ? 271 : kind > 20 ? 30751 : 10799; at < image.size() && at < 31000; at += 21) {
          Set(image, at, 1);
        }
      }
      const std::size_t before = image.size();
      CutItems(image, EmptyStyles());
      EXPECT_LE(image.size(), before + 16 * 65535 + 224 + 16 * 1176);
    }
  }
}

}  // namespace
}  // namespace zentaline
