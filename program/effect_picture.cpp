#include "program/effect_picture.h"

#include <vector>

namespace zentaline {

namespace {

using ui::Ink;
using ui::Point;
using ui::Shape;

// In thousandths of the picture.
constexpr double kIn = 20;
constexpr double kOut = 980;
constexpr double kWay = 80;  // from there to where the lines begin
constexpr double kArrow = 12;
constexpr double kHeadroom = 150;  // half the height of a box
constexpr double kLineOfText = 62;
constexpr double kFoot = 900;
constexpr double kUpper = 200;
constexpr double kLower = 590;

using Shapes = std::vector<Shape>;

// The signal's way from one place to the next, with an arrow at its end.
void AddWay(Shapes& shapes, double from, double to, double y) {
  shapes.push_back(ui::Line({{from, y}, {to, y}}, Ink::kMuted));
  shapes.push_back(ui::Area({{to, y}, {to - kArrow, y - 2 * kArrow}, {to - kArrow, y + 2 * kArrow}}, Ink::kMuted));
}

// The box of an effect; what is switched off is passed through.
void AddEffect(Shapes& shapes, const EffectShown& effect, const char* title, double left, double right, double y,
               int language_code) {
  const double top = y - kHeadroom;
  const double bottom = y + kHeadroom;
  shapes.push_back(ui::Box({left, top}, {right, bottom}, effect.works ? Ink::kGlow : Ink::kPaper));
  shapes.push_back(ui::Line({{left, top}, {right, top}, {right, bottom}, {left, bottom}, {left, top}},
                            effect.works ? Ink::kAccent : Ink::kGrid));
  if (!effect.works) shapes.push_back(ui::Line({{left, y}, {right, y}}, Ink::kGrid));
  const double middle = (left + right) / 2;
  const Ink ink = effect.works ? Ink::kText : Ink::kMuted;
  shapes.push_back(ui::Text({middle, y - kLineOfText}, std::string(title) + ": " + effect.name, ink));
  shapes.push_back(ui::Text({middle, y + kLineOfText},
                            effect.works         ? "Dry/Wet: " + effect.balance
                            : language_code == 1 ? "spento"
                                                 : "off",
                            ink));
}

void AddEnds(Shapes& shapes, double y) {
  shapes.push_back(ui::Text({kIn, y}, "In", Ink::kText, Shape::Align::kLeft));
  shapes.push_back(ui::Text({kOut, y}, "L R", Ink::kText, Shape::Align::kRight));
}

void AddSerial(Shapes& shapes, const EffectRouting& routing, int language_code) {
  constexpr double kBoxes[] = {150, 450, 550, 850};
  constexpr double kMiddle = 400;
  AddEnds(shapes, kMiddle);
  AddWay(shapes, kIn + kWay, kBoxes[0], kMiddle);
  AddWay(shapes, kBoxes[1], kBoxes[2], kMiddle);
  AddWay(shapes, kBoxes[3], kOut - kWay, kMiddle);
  AddEffect(shapes, routing.effects[0], "FX 1", kBoxes[0], kBoxes[1], kMiddle, language_code);
  AddEffect(shapes, routing.effects[1], "FX 2", kBoxes[2], kBoxes[3], kMiddle, language_code);
}

void AddParallel(Shapes& shapes, const EffectRouting& routing, int language_code) {
  constexpr double kLeft = 250;
  constexpr double kRight = 650;
  const bool returns = routing.placement == EffectPlacement::kParallel3;
  for (const std::size_t effect : {0U, 1U}) {
    const double y = effect == 0 ? kUpper : kLower;
    AddWay(shapes, kIn + kWay, kLeft, y);
    AddEffect(shapes, routing.effects[effect], effect == 0 ? "FX 1" : "FX 2", kLeft, kRight, y, language_code);
    if (!returns) {
      AddEnds(shapes, y);
      AddWay(shapes, kRight, kOut - kWay, y);
      continue;
    }
    shapes.push_back(ui::Text({kIn, y}, "In", Ink::kText, Shape::Align::kLeft));
    for (const std::size_t side : {0U, 1U}) {
      const double at = y + (side == 0 ? -kLineOfText : kLineOfText);
      AddWay(shapes, kRight, kOut - 2 * kWay, at);
      shapes.push_back(ui::Text({kOut, at}, (side == 0 ? "L  " : "R  ") + routing.outputs[2 * effect + side],
                                Ink::kText, Shape::Align::kRight));
    }
  }
}

}  // namespace

ui::Drawing EffectDrawing(const EffectRouting& routing, int language_code) {
  static constexpr const char* kNames[] = {"SERIAL", "PARALLEL 1", "PARALLEL 2", "PARALLEL 3"};
  ui::Drawing drawing;
  drawing.shapes = {ui::Box({0, 0}, drawing.size, Ink::kPaper)};
  if (routing.placement == EffectPlacement::kSerial) {
    AddSerial(drawing.shapes, routing, language_code);
  } else {
    AddParallel(drawing.shapes, routing, language_code);
  }
  drawing.shapes.push_back(
      ui::Text({kIn, kFoot}, kNames[static_cast<int>(routing.placement)], Ink::kMuted, Shape::Align::kLeft));
  if (routing.placement != EffectPlacement::kParallel3) {
    drawing.shapes.push_back(ui::Text({kOut, kFoot}, "C Pan " + routing.outputs[1] + "   D Pan " + routing.outputs[3],
                                      Ink::kMuted, Shape::Align::kRight));
  }
  return drawing;
}

}  // namespace zentaline
