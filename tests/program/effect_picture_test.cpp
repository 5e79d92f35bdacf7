// The two effects as a picture.
#include "program/effect_picture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace zentaline {
namespace {

using testing::Contains;
using testing::Not;

EffectRouting Routing(EffectPlacement placement) {
  return {placement, {{{"Chorus 1", "30", true}, {"Hall", "FX", true}}}, {"1", "50:50", "3", "OFF"}};
}

std::vector<std::string> TextsOf(const ui::Drawing& drawing) {
  std::vector<std::string> texts;
  for (const ui::Shape& shape : drawing.shapes) {
    if (shape.kind == ui::Shape::Kind::kText) texts.push_back(shape.text);
  }
  return texts;
}

const ui::Shape& TextShape(const ui::Drawing& drawing, const std::string& text) {
  return *std::find_if(drawing.shapes.begin(), drawing.shapes.end(),
                       [&](const auto& shape) { return shape.text == text; });
}

TEST(Effects, SerialStandsInOneLineAndParallelInTwo) {
  const ui::Drawing serial = EffectDrawing(Routing(EffectPlacement::kSerial), 2);
  const ui::Point first = TextShape(serial, "FX 1: Chorus 1").points.front();
  const ui::Point second = TextShape(serial, "FX 2: Hall").points.front();
  EXPECT_EQ(first.y, second.y);
  EXPECT_LT(first.x, second.x);
  for (const auto placement : {EffectPlacement::kParallel1, EffectPlacement::kParallel2, EffectPlacement::kParallel3}) {
    const ui::Drawing parallel = EffectDrawing(Routing(placement), 2);
    const ui::Point upper = TextShape(parallel, "FX 1: Chorus 1").points.front();
    const ui::Point lower = TextShape(parallel, "FX 2: Hall").points.front();
    EXPECT_EQ(upper.x, lower.x);
    EXPECT_LT(upper.y, lower.y);
  }
}

TEST(Effects, TellPlacementAndBalances) {
  for (const auto& [placement, name] : {std::pair{EffectPlacement::kSerial, "SERIAL"},
                                        {EffectPlacement::kParallel1, "PARALLEL 1"},
                                        {EffectPlacement::kParallel2, "PARALLEL 2"},
                                        {EffectPlacement::kParallel3, "PARALLEL 3"}}) {
    const auto texts = TextsOf(EffectDrawing(Routing(placement), 2));
    EXPECT_THAT(texts, Contains(name));
    EXPECT_THAT(texts, Contains("Dry/Wet: 30"));
    EXPECT_THAT(texts, Contains("Dry/Wet: FX"));
  }
}

TEST(Effects, OutputsAreThePansOfCAndDOrTheReturns) {
  for (const auto placement : {EffectPlacement::kSerial, EffectPlacement::kParallel1, EffectPlacement::kParallel2}) {
    EXPECT_THAT(TextsOf(EffectDrawing(Routing(placement), 2)), Contains("C Pan 50:50   D Pan OFF"));
  }
  EffectRouting routing = Routing(EffectPlacement::kParallel3);
  routing.outputs = {"1", "2", "3", "4"};
  const auto texts = TextsOf(EffectDrawing(routing, 2));
  for (const char* text : {"L  1", "R  2", "L  3", "R  4"}) EXPECT_THAT(texts, Contains(text));
  EXPECT_THAT(texts, Not(Contains(testing::HasSubstr("C Pan"))));
}

TEST(Effects, OneThatIsSwitchedOffSaysSoInPlaceOfItsBalance) {
  EffectRouting routing = Routing(EffectPlacement::kSerial);
  routing.effects[1].works = false;
  const ui::Drawing english = EffectDrawing(routing, 2);
  EXPECT_THAT(TextsOf(english), Contains("off"));
  EXPECT_THAT(TextsOf(english), Not(Contains("Dry/Wet: FX")));
  EXPECT_EQ(TextShape(english, "FX 2: Hall").ink, ui::Ink::kMuted);
  EXPECT_EQ(TextShape(english, "FX 1: Chorus 1").ink, ui::Ink::kText);
  EXPECT_THAT(TextsOf(EffectDrawing(routing, 1)), Contains("spento"));
}

TEST(Effects, AllStandsInsideThePicture) {
  for (int placement = 0; placement < 4; ++placement) {
    for (const ui::Shape& shape : EffectDrawing(Routing(static_cast<EffectPlacement>(placement)), 1).shapes) {
      for (const ui::Point& point : shape.points) {
        EXPECT_TRUE(point.x >= 0 && point.x <= 1000 && point.y >= 0 && point.y <= 1000);
      }
    }
  }
}

}  // namespace
}  // namespace zentaline
