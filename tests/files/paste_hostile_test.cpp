// Items of every kind on their way to every kind, with images of any bytes at both ends.
#include <gtest/gtest.h>

#include "files/clipboard_format.h"
#include "tests/files/item_builder.h"

namespace zentaline {
namespace {

using namespace test;

enum class Kind { kNone, kArrangements, kPrograms, kStyles };

Kind KindOf(int kind) {
  if (kind == 2 || kind == 3 || kind == 19 || kind == 20) return Kind::kArrangements;
  if ((kind >= 4 && kind <= 10) || kind == 21 || kind == 22) return Kind::kPrograms;
  return kind == 23 || kind == 24 ? Kind::kStyles : Kind::kNone;
}

bool Takes(int kind) {
  return kind >= 19 && kind <= 24;
}

constexpr int kAllKinds[] = {0,  2,  3,  4,  5,  6,  7,  8,  9,  10, 11, 12, 14,
                             17, 18, 19, 20, 21, 22, 23, 24, 25, 26, 31, 255};

// Sixteen styles, each as long as a size can say.
std::string GreatestStyles() {
  std::vector<Style> styles;
  for (int e = 0; e < 16; ++e) styles.push_back({"Great " + std::to_string(e), 65535, 'a' + e});
  return StyImage(styles);
}

std::string FewStyles() {
  return StyImage({{"One", 40, '1'}, {"Two", 50, '2'}, {"- empty -", 60, '3'}, {"Four", 70, '4'}, {"Five", 80, '5'}});
}

// A window of this kind in which every row is marked and shows an item; a kind without items has only noise.
std::string Full(int kind, const std::string& styles, std::mt19937& random) {
  std::string image;
  switch (KindOf(kind)) {
    case Kind::kArrangements:
      image = ArrImage(kind < 19 ? "" : styles, kind < 19 ? 0 : 2);
      for (int row = 0; row < 64; ++row)
        PutArr(image, row, "Arr " + std::to_string(row), kind < 19 ? -1 : row % 18 - 1);
      break;
    case Kind::kPrograms:
      image = kind > 20 ? PrgImage() : Zeros(20) + Blanks(1854);
      for (int row = 0; row < 64; ++row) {
        if (kind > 20) {
          PutPrg(image, row, "Prg " + std::to_string(row));
        } else {
          PutRow(image, kind < 9 ? 30 : 531, row, RowNumber(row) + "  Bank");
        }
      }
      break;
    case Kind::kStyles:
      image = StyWindow(styles);
      for (int entry = 0; entry < 16; ++entry) MarkSty(image, entry, "Style " + std::to_string(entry));
      break;
    default:
      image = Zeros(20) + RandomBytes(random, 45000);
  }
  Set(image, 1, kind);
  return image;
}

// Bytes of the window's own that a paste or a cut may never touch: its kind, its number, its path.
std::string Kept(const std::string& image) {
  std::string kept = image.substr(0, 270);
  for (const std::size_t mark : {3U, 4U, 6U, 7U, 9U, 10U, 19U}) {
    if (mark <= kept.size()) Set(kept, mark, 0);
  }
  return kept;
}

// How much longer an image can become: all that its own table claims, the source's styles, sixteen empty ones.
constexpr std::size_t kMostGrowth = 3 * (16 * 65535 + 224);

void PasteAndCut(const std::string& clipboard, const std::string& image, bool fits) {
  for (const std::vector<int>& selected : {std::vector<int>{}, {0}, {17}, {63}, {5, 6, 40}}) {
    Bytes target = image;
    const ItemsDone done = PasteItems(clipboard, target, {selected, 3}, EmptyStyles());
    EXPECT_TRUE(Kept(target) == Kept(image));
    EXPECT_LE(target.size(), image.size() + kMostGrowth);
    for (const int row : done.rows) EXPECT_TRUE(row >= 0 && row < 64);
    EXPECT_TRUE(done.changed || (target == image && done.rows.empty()));
    EXPECT_TRUE(fits || (!done.changed && !done.styles_changed && done.notices.empty()));
  }
  Bytes target = image;
  const ItemsDone done = CutItems(target, EmptyStyles());
  EXPECT_TRUE(Kept(target) == Kept(image));
  EXPECT_LE(target.size(), image.size() + kMostGrowth);
  EXPECT_TRUE(done.changed || target == image);
}

TEST(PasteAnything, OntoEveryKindChangesOnlyWhatFits) {
  std::mt19937 random(3);
  for (const int from : kAllKinds) {
    const std::string clipboard = Full(from, FewStyles(), random);
    for (const int to : kAllKinds) {
      SCOPED_TRACE(std::to_string(from) + " to " + std::to_string(to));
      const bool fits = Takes(to) && KindOf(from) == KindOf(to);
      const std::string image = Full(to, FewStyles(), random);
      PasteAndCut(clipboard, image, fits);
      Bytes target = image;
      EXPECT_EQ(PasteItems(clipboard, target, {{0}, 0}, EmptyStyles()).changed, fits);
    }
  }
}

// At each boundary of an image, and one beside it.
TEST(PasteAnything, IntoWindowsThatEndAnywhereIsStood) {
  std::mt19937 random(4);
  for (const int kind : {19, 20, 21, 22, 23, 24}) {
    const std::string clipboard = Full(kind, FewStyles(), random);
    const std::string whole = Full(kind, FewStyles(), random);
    for (const std::size_t boundary : {1U,   20U,  270U,   302U,   318U,   466U,   668U,   692U,   732U,   893U,
                                       894U, 933U, 10798U, 12142U, 30750U, 32094U, 42622U, 42645U, 42846U, 42886U}) {
      for (const std::size_t length : {boundary - 1, boundary, boundary + 1}) {
        if (length == 0 || length > whole.size()) continue;
        SCOPED_TRACE(std::to_string(kind) + " of " + std::to_string(length));
        PasteAndCut(clipboard, whole.substr(0, length), true);
        PasteAndCut(whole.substr(0, length), whole, true);
      }
    }
  }
}

TEST(PasteAnything, OfNoiseIntoNoiseIsStood) {
  std::mt19937 random(5);
  for (int round = 0; round < 300; ++round) {
    const int kind = kAllKinds[RandomNumber(random, 0, static_cast<int>(std::size(kAllKinds)) - 1)];
    const auto noise = [&] {
      const int length =
          RandomNumber(random, 0, 3) == 0 ? RandomNumber(random, 1, 900) : RandomNumber(random, 1, 48000);
      std::string image = RandomBytes(random, static_cast<std::size_t>(length));
      Set(image, 1, kind);
      return image;
    };
    std::string clipboard = noise();
    // Marks on all that can be one.
    for (std::size_t at = 29; at < clipboard.size(); at += 21) clipboard[at] = 1;
    for (std::size_t at = 10798; at < clipboard.size() && at < 12142; at += 21) clipboard[at] = 1;
    SCOPED_TRACE("round " + std::to_string(round));
    PasteAndCut(clipboard, noise(), true);
  }
}

// A group takes one style of the greatest length; the first free place stays in that group.
TEST(PasteAnything, TheGreatestStylesGoAlongAsFarAsTheirGroupTakesThem) {
  std::mt19937 random(6);
  std::string clipboard = ArrImage(GreatestStyles(), 2);
  for (int row = 0; row < 16; ++row) PutArr(clipboard, row, "Arr", row);
  Bytes image = ArrImage(StyImage({}), 2);
  const ItemsDone done = PasteItems(clipboard, image, {{0}, 0}, EmptyStyles());
  EXPECT_EQ(done.rows, std::vector<int>{0});
  EXPECT_EQ(done.notices, std::vector<ItemNotice>(15, ItemNotice::kTooLong));
  EXPECT_EQ(image.size(), 42622U + 224 + 65535);
  EXPECT_EQ(image.substr(42622 + 224, 16), Field("Great 0", 16));
  // What claims to be as long in a file that ends at once is made up of zeros.
  const Bytes lying = ArrImage(GreatestStyles().substr(0, 300), 2);
  for (const std::string& other : {clipboard, Full(19, FewStyles(), random)}) PasteAndCut(other, lying, true);
  PasteAndCut(lying, Full(19, FewStyles(), random), true);
}

}  // namespace
}  // namespace zentaline
