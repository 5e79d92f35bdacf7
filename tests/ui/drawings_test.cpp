#include "ui/drawings.h"

#include <gtest/gtest.h>

namespace zentaline::ui {
namespace {

// From where to where the bar in the accent's colour runs; 0 and 0 without one.
std::pair<double, double> BarOf(const Drawing& drawing) {
  for (const Shape& shape : drawing.shapes) {
    if (shape.ink == Ink::kAccent) return {shape.points[0].x, shape.points[2].x};
  }
  return {0, 0};
}

using Ends = std::pair<double, double>;

TEST(Drawings, AShareIsInProportionToTheGreatest) {
  EXPECT_EQ(BarOf(ShareDrawing(0, 80)), Ends(0, 0));
  EXPECT_EQ(BarOf(ShareDrawing(20, 80)), Ends(0, 250));
  EXPECT_EQ(BarOf(ShareDrawing(80, 80)), Ends(0, 1000));
}

TEST(Drawings, AShareOfNothingIsEmptyAndOneOfMoreThanAllIsFull) {
  EXPECT_EQ(BarOf(ShareDrawing(0, 0)), Ends(0, 0));
  EXPECT_EQ(BarOf(ShareDrawing(5, 0)), Ends(0, 0));
  EXPECT_EQ(BarOf(ShareDrawing(-5, 10)), Ends(0, 0));
  EXPECT_EQ(BarOf(ShareDrawing(2000000000, 10)), Ends(0, 1000));
}

TEST(Drawings, ASwingGoesFromTheMiddleToItsSide) {
  EXPECT_EQ(BarOf(SwingDrawing(0, 10)), Ends(0, 0));
  EXPECT_EQ(BarOf(SwingDrawing(10, 10)), Ends(500, 1000));
  EXPECT_EQ(BarOf(SwingDrawing(-5, 10)), Ends(500, 250));
  EXPECT_EQ(BarOf(SwingDrawing(-99, 10)), Ends(500, 0));
}

}  // namespace
}  // namespace zentaline::ui
