#include "ui/drawings.h"

#include <algorithm>

namespace zentaline::ui {

namespace {

// In thousandths of the height: what stays free above and below a bar.
constexpr double kTop = 200;
constexpr double kBottom = 800;

double ShareOf(int part, int whole) {
  return whole <= 0 ? 0 : std::clamp(part / static_cast<double>(whole), -1.0, 1.0);
}

}  // namespace

Drawing ShareDrawing(int count, int greatest) {
  Drawing drawing;
  const double end = drawing.size.x * std::max(ShareOf(count, greatest), 0.0);
  drawing.shapes = {Box({0, kTop}, {drawing.size.x, kBottom}, Ink::kPaper)};
  if (end > 0) drawing.shapes.push_back(Box({0, kTop}, {end, kBottom}, Ink::kAccent));
  return drawing;
}

Drawing SwingDrawing(int value, int reach) {
  Drawing drawing;
  const double middle = drawing.size.x / 2;
  const double end = middle + middle * ShareOf(value, reach);
  drawing.shapes = {Box({0, kTop}, {drawing.size.x, kBottom}, Ink::kPaper)};
  if (end != middle) drawing.shapes.push_back(Box({middle, kTop}, {end, kBottom}, Ink::kAccent));
  drawing.shapes.push_back(Line({{middle, 0}, {middle, drawing.size.y}}, Ink::kZero));
  return drawing;
}

}  // namespace zentaline::ui
