#include "ui/placing.h"

#include <gtest/gtest.h>

namespace zentaline::ui {
namespace {

constexpr Size kArea = {1000, 600};

// How many pixels of `other` lie under it.
int Covered(const Placement& window, const Placement& other) {
  int count = 0;
  for (int x = window.left; x < window.left + window.width; ++x) {
    for (int y = window.top; y < window.top + window.height; ++y) {
      const bool inside =
          x >= other.left && x < other.left + other.width && y >= other.top && y < other.top + other.height;
      count += inside ? 1 : 0;
    }
  }
  return count;
}

bool Inside(const Placement& window) {
  return window.left >= 0 && window.top >= 0 && window.left + window.width <= kArea.width &&
         window.top + window.height <= kArea.height;
}

TEST(Placing, AWindowGoesBesideTheOneThatItBelongsTo) {
  const Placement list{20, 30, 400, 500};
  const Placement found = PlaceInArea(kArea, {500, 400}, &list);
  EXPECT_EQ(found, (Placement{420, 30, 500, 400}));
}

TEST(Placing, WhereThereIsNoRoomAtItsRightItGoesToItsLeft) {
  const Placement list{560, 0, 440, 600};
  EXPECT_EQ(PlaceInArea(kArea, {500, 400}, &list), (Placement{60, 0, 500, 400}));
}

TEST(Placing, BelowItWhereThatAloneIsFree) {
  const Placement list{0, 0, 1000, 150};
  const Placement found = PlaceInArea(kArea, {700, 440}, &list);
  EXPECT_EQ(Covered(found, list), 0);
  EXPECT_TRUE(Inside(found));
  EXPECT_EQ(found.top, 150);
}

TEST(Placing, WhatMustCoverItCoversAsLittleAsItCan) {
  const Placement list{0, 0, 600, 600};
  const Placement found = PlaceInArea(kArea, {700, 600}, &list);
  EXPECT_EQ(found, (Placement{300, 0, 700, 600}));
  EXPECT_EQ(Covered(found, list), 300 * 600);
}

TEST(Placing, AWindowLargerThanTheAreaBeginsInItsCorner) {
  const Placement list{100, 100, 200, 200};
  EXPECT_EQ(PlaceInArea(kArea, {1400, 900}, &list), (Placement{0, 0, 1400, 900}));
  EXPECT_EQ(PlaceInArea({480, 200}, {500, 100}, &list).left, 0);
}

TEST(Placing, AWindowThatBelongsToNoneBeginsInTheCorner) {
  EXPECT_EQ(PlaceInArea(kArea, {300, 200}, nullptr), (Placement{0, 0, 300, 200}));
}

TEST(Placing, AWindowThatLiesOutsideCountsAsFarAsItIsSeen) {
  const Placement beyond{-300, -100, 400, 400};
  const Placement found = PlaceInArea(kArea, {500, 400}, &beyond);
  EXPECT_TRUE(Inside(found));
  EXPECT_EQ(Covered(found, beyond), 0);
}

TEST(Placing, OverAWindowThatFillsTheAreaItLeavesTheTitleInSight) {
  const Placement list{0, 0, 1000, 600};
  EXPECT_EQ(PlaceInArea(kArea, {500, 400}, &list), (Placement{500, 28, 500, 400}));
  const Placement wide{0, 0, 1000, 600};
  const Placement found = PlaceInArea(kArea, {1000, 400}, &wide);
  EXPECT_GE(found.top, 28);
  EXPECT_TRUE(Inside(found));
}

TEST(Placing, WhatIsAsHighAsTheAreaGivesUpTheHeightOfTheTitle) {
  const Placement list{0, 0, 1000, 600};
  EXPECT_EQ(PlaceInArea(kArea, {900, 600}, &list, 200), (Placement{100, 28, 900, 572}));
  EXPECT_EQ(PlaceInArea(kArea, {1000, 590}, &list, 572), (Placement{0, 28, 1000, 572}));
  // Not where it would fall below its least height, nor where it may not be shortened.
  EXPECT_EQ(PlaceInArea(kArea, {1000, 600}, &list, 573), (Placement{0, 0, 1000, 600}));
  EXPECT_EQ(PlaceInArea(kArea, {1000, 600}, &list), (Placement{0, 0, 1000, 600}));
  // Nor where enough of the title is left beside it.
  EXPECT_EQ(PlaceInArea(kArea, {880, 600}, &list, 200), (Placement{120, 0, 880, 600}));
  EXPECT_EQ(PlaceInArea(kArea, {881, 600}, &list, 200), (Placement{119, 28, 881, 572}));
}

TEST(Placing, OfALowWindowNoMoreIsCoveredForTheSakeOfItsTitle) {
  // The place that covers least hides no title, wherever it lies.
  const Placement list{0, 0, 1000, 300};
  EXPECT_EQ(PlaceInArea(kArea, {1000, 400}, &list, 100), (Placement{0, 200, 1000, 400}));
}

}  // namespace
}  // namespace zentaline::ui
