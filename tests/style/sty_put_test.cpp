#include <gtest/gtest.h>

#include "style/sty_format.h"
#include "tests/style/sty_builder.h"

namespace zentaline {
namespace {

using namespace test;

struct Put {
  int mode = 0;
  int source_entry = 0;
  std::string source = {};
  int destination_entry = 0;
  Bytes destination = {};

  StyPutResult Run() { return StyPutEntry(mode, source_entry, source, destination_entry, destination, EmptyStyles()); }
};

std::string FourStyles() {
  return StyImage({{"One", 40}, {"Two", 50}, {"Three", 60}, {"Four", 70}});
}

TEST(StyPut, TheSameSizeOverwritesInPlaceAndTouchesNothingElse) {
  Put put{.source_entry = 1,
          .source = StyImage({{"Other", 20}, {"Same", 50, 'y'}}),
          .destination_entry = 1,
          .destination = FourStyles()};
  EXPECT_EQ(put.Run(), kStyPutDone);
  EXPECT_EQ(put.destination, StyImage({{"One", 40}, {"Same", 50, 'y'}, {"Three", 60}, {"Four", 70}}));
  EXPECT_EQ(put.mode, 0);
}

TEST(StyPut, AShorterStyleDrawsTheTailDown) {
  Put put{.source = StyImage({{"Short", 20, 'y'}}), .destination_entry = 1, .destination = FourStyles()};
  EXPECT_EQ(put.Run(), kStyPutDone);
  EXPECT_EQ(put.destination, StyImage({{"One", 40}, {"Short", 20, 'y'}, {"Three", 60}, {"Four", 70}}));
}

TEST(StyPut, ALongerStylePushesTheTailUp) {
  Put put{.source = StyImage({{"Long", 300, 'y'}}), .destination_entry = 1, .destination = FourStyles()};
  EXPECT_EQ(put.Run(), kStyPutDone);
  EXPECT_EQ(put.destination, StyImage({{"One", 40}, {"Long", 300, 'y'}, {"Three", 60}, {"Four", 70}}));
}

TEST(StyPut, ACutPutsTheEmptyStyleInPlaceWhateverTheSizeWas) {
  for (const int size : {20, 1176, 3000}) {
    Put put{.mode = 1,
            .source_entry = 1,
            .source = "ignored",
            .destination_entry = 1,
            .destination = StyImage({{"One", 40}, {"Two", size}, {"Three", 60}})};
    EXPECT_EQ(put.Run(), kStyPutDone);
    EXPECT_EQ(put.destination, StyImage({{"One", 40}, {"- empty -", 1176, 0}, {"Three", 60}}));
    EXPECT_EQ(put.mode, 1);
  }
}

TEST(StyPut, AGroupMayReach80000BytesAndNoMore) {
  const std::vector<Style> styles = {{"A", 40000}, {"B", 20000}, {"C", 19000}, {"D", 20}};
  Put fits{.source = StyImage({{"E", 1000}}), .destination_entry = 3, .destination = StyImage(styles)};
  EXPECT_EQ(fits.Run(), kStyPutDone);
  EXPECT_EQ(StyGroupSize(0, fits.destination), 80000);

  Put too_long{.source = StyImage({{"E", 1001}}), .destination_entry = 3, .destination = StyImage(styles)};
  EXPECT_EQ(too_long.Run(), kStyPutTooLong);
  EXPECT_EQ(too_long.destination, StyImage(styles));

  Put cut{.mode = 1, .destination_entry = 3, .destination = StyImage(styles)};
  EXPECT_EQ(cut.Run(), kStyPutTooLong);
  EXPECT_EQ(cut.destination, StyImage(styles));
}

TEST(StyPut, TheLimitLooksAtTheDestinationsGroupOnly) {
  std::vector<Style> styles(4, Style{"Big", 20000});
  styles.push_back({"Small", 20});
  Put put{.source = StyImage({{"E", 5000}}), .destination_entry = 4, .destination = StyImage(styles)};
  EXPECT_EQ(put.Run(), kStyPutDone);
}

TEST(StyPut, AnOverlongGroupMayStillShrink) {
  Put put{.source = StyImage({{"E", 100}}),
          .destination_entry = 0,
          .destination = StyImage({{"A", 60000}, {"B", 60000}, {"C", 20}, {"D", 20}})};
  EXPECT_EQ(put.Run(), kStyPutDone);
  EXPECT_EQ(StyGroupSize(0, put.destination), 60140);
}

TEST(StyPut, TheTwoBytesInFrontOfTheSizeStay) {
  Put put{.source = StyImage({{"Long", 300}}), .destination_entry = 2, .destination = FourStyles()};
  ASSERT_EQ(put.Run(), kStyPutDone);
  EXPECT_EQ(At(put.destination, 31), 0xA2);
  EXPECT_EQ(At(put.destination, 32), 0xB2);
  EXPECT_EQ(At(put.destination, 33), 300 % 256);
  EXPECT_EQ(At(put.destination, 34), 1);
}

TEST(StyPut, APasteTo100FindsAStyleOfTheSameName) {
  Put put{.source = StyImage({{"Three", 500}}), .destination_entry = 100, .destination = FourStyles()};
  EXPECT_EQ(put.Run(), kStyPutKnown);
  EXPECT_EQ(put.mode, 2);
  EXPECT_EQ(put.destination_entry, 100);
  EXPECT_EQ(put.destination, FourStyles());
}

TEST(StyPut, APasteTo100TakesTheFirstFreeEntry) {
  for (const std::string free : {"- empty -", ""}) {
    Put put{.source = StyImage({{"New", 30, 'n'}}),
            .destination_entry = 100,
            .destination = StyImage({{"One", 40}, {free, 50}, {"- empty -", 60}})};
    EXPECT_EQ(put.Run(), kStyPutDone);
    EXPECT_EQ(put.destination_entry, 1);
    EXPECT_EQ(put.destination, StyImage({{"One", 40}, {"New", 30, 'n'}, {"- empty -", 60}}));
  }
}

TEST(StyPut, APasteTo100AppendsBehindTheLastEntry) {
  Put put{.source = StyImage({{"New", 30, 'n'}}), .destination_entry = 100, .destination = FourStyles()};
  EXPECT_EQ(put.Run(), kStyPutDone);
  EXPECT_EQ(put.destination_entry, 4);
  std::string expected = StyImage({{"One", 40}, {"Two", 50}, {"Three", 60}, {"Four", 70}, {"New", 30, 'n'}});
  Set(expected, 39, 0);
  Set(expected, 40, 0);
  EXPECT_EQ(put.destination, expected);
}

TEST(StyPut, APasteTo100IntoSixteenStylesFindsNoPlace) {
  std::vector<Style> styles(16, Style{"Full", 20});
  Put put{.source = StyImage({{"New", 30}}), .destination_entry = 100, .destination = StyImage(styles)};
  EXPECT_EQ(put.Run(), kStyPutNoPlace);
  EXPECT_EQ(put.destination, StyImage(styles));
  EXPECT_EQ(put.mode, 0);
}

TEST(StyPut, ADirectPasteReplacesWithoutLookingForAFreeEntry) {
  Put put{.source = StyImage({{"One", 30, 'n'}}), .destination_entry = 2, .destination = FourStyles()};
  EXPECT_EQ(put.Run(), kStyPutDone);
  EXPECT_EQ(put.destination, StyImage({{"One", 40}, {"Two", 50}, {"One", 30, 'n'}, {"Four", 70}}));
}

TEST(StyPut, AnEntryThatIsNoneChangesNothing) {
  for (const int entry : {-1, 16, 99}) {
    Put put{.source = StyImage({{"New", 30}}), .destination_entry = entry, .destination = FourStyles()};
    EXPECT_EQ(put.Run(), kStyPutNoPlace) << entry;
    EXPECT_EQ(put.destination, FourStyles());
  }
  Put cut{.mode = 1, .destination_entry = 100, .destination = FourStyles()};
  EXPECT_EQ(cut.Run(), kStyPutNoPlace);
  EXPECT_EQ(cut.destination, FourStyles());
}

TEST(StyPut, AnImageMayBeItsOwnSource) {
  Bytes image = FourStyles();
  int mode = 0;
  int destination = 0;
  EXPECT_EQ(StyPutEntry(mode, 3, image, destination, image, EmptyStyles()), kStyPutDone);
  EXPECT_EQ(image, StyImage({{"Four", 70}, {"Two", 50}, {"Three", 60}, {"Four", 70}}));
}

// Random pastes and cuts against a list of styles kept beside the image.
TEST(StyPut, RandomPastesAndCutsKeepImageAndListAlike) {
  std::mt19937 random(20240601);
  std::vector<Style> model(16, Style{"- empty -", 1176, 0});
  Bytes image = StyImage(model);
  for (int step = 0; step < 400; ++step) {
    const auto at = static_cast<std::size_t>(RandomNumber(random, 0, 15));
    Style style{"S" + std::to_string(step), RandomNumber(random, 16, 9000), RandomNumber(random, 0, 255)};
    int mode = step % 5 == 0 ? 1 : 0;
    if (mode == 1) style = {"- empty -", 1176, 0};
    int destination = static_cast<int>(at);
    const std::string source = StyImage({{"Other", 33}, style});
    ASSERT_EQ(StyPutEntry(mode, 1, source, destination, image, EmptyStyles()), kStyPutDone);
    model[at] = style;
    ASSERT_EQ(image, StyImage(model)) << "step " << step;
  }
}

TEST(StyPut, RandomImagesWithLyingTablesAreStood) {
  std::mt19937 random(7);
  for (int round = 0; round < 300; ++round) {
    Bytes image = RandomBytes(random, static_cast<std::size_t>(RandomNumber(random, 0, 3000)));
    const Bytes source = RandomBytes(random, static_cast<std::size_t>(RandomNumber(random, 0, 3000)));
    const std::size_t before = image.size();
    int mode = RandomNumber(random, 0, 1);
    int destination = RandomNumber(random, -1, 110);
    StyPutEntry(mode, RandomNumber(random, 0, 255), source, destination, image, EmptyStyles());
    EXPECT_LE(image.size(), before + 65535);
    Bytes window = ArrWindowWith(image, 2);
    EXPECT_LE(StyFileBytes(window).size(), 224U + 16 * 65535 + 3);
  }
}

}  // namespace
}  // namespace zentaline
