#include "ui/picture.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "ui/form.h"
#include "ui/toolkit.h"

namespace zentaline::ui {

namespace {

constexpr int kStepsOfAPage = 10;
constexpr int kCornersOfADisc = 32;

std::string PlaceOf(const Handle& handle) {
  return std::to_string(handle.x) + ' ' + std::to_string(handle.y);
}

}  // namespace

Shape Line(std::vector<Point> points, Ink ink, double pixels) {
  return {Shape::Kind::kLine, ink, std::move(points), pixels, {}, Shape::Align::kCentre};
}

Shape Area(std::vector<Point> points, Ink ink) {
  return {Shape::Kind::kArea, ink, std::move(points), 1, {}, Shape::Align::kCentre};
}

Shape Box(Point from, Point to, Ink ink) {
  return Area({from, {to.x, from.y}, to, {from.x, to.y}}, ink);
}

Shape Disc(Point centre, double radius, Ink ink) {
  std::vector<Point> points;
  for (int corner = 0; corner < kCornersOfADisc; ++corner) {
    const double angle = 2 * std::numbers::pi * corner / kCornersOfADisc;
    points.push_back({centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle)});
  }
  return Area(std::move(points), ink);
}

Shape Text(Point at, std::string text, Ink ink, Shape::Align align) {
  return {Shape::Kind::kText, ink, {at}, 1, std::move(text), align};
}

Shape Dot(Point at, Ink ink, double pixels) {
  return {Shape::Kind::kDot, ink, {at}, pixels, {}, Shape::Align::kCentre};
}

Picture::~Picture() {
  UserLetGo();
}

void Picture::SetDrawing(Drawing drawing) {
  if (drawing != *drawing_) ShowDrawing(std::make_shared<const Drawing>(std::move(drawing)));
}

void Picture::ShowDrawing(std::shared_ptr<const Drawing> drawing) {
  if (drawing == nullptr || drawing == drawing_) return;
  drawing_ = std::move(drawing);
  if (!Has(selected_)) selected_ = handles() > 0 ? 0 : -1;
  Changed(Change::kDrawing);
}

std::string Picture::HandlePlaces() const {
  std::string places;
  for (const Handle& handle : drawing_->handles) {
    if (!places.empty()) places += "; ";
    places += PlaceOf(handle);
  }
  return places;
}

std::string Picture::HandlePlace(int handle) const {
  return Has(handle) ? PlaceOf(drawing_->handles[static_cast<std::size_t>(handle)]) : std::string();
}

void Picture::SelectHandle(int handle) {
  if (!Has(handle) || std::exchange(selected_, handle) == handle) return;
  Changed(Change::kDrawing);
}

bool Picture::UserDrag(int handle, int x, int y) {
  if (!Usable() || !Has(handle)) return false;
  // In one go it is taken, dragged and let go.
  const bool at_once = !held_;
  if (at_once) form().toolkit().HandTakes(*this);
  const UserEvent event(*this, UserEvent::kMoves);
  SetFocus();
  SelectHandle(handle);
  if (on_drag) on_drag(handle, std::clamp(x, 0, kWholePicture), std::clamp(y, 0, kWholePicture));
  // The controls that it moved took the focus in turn; the hand is still on the picture.
  if (form().open()) SetFocus();
  if (at_once) form().toolkit().HandLetsGo();
  return true;
}

bool Picture::UserTake(int handle) {
  if (!Usable() || !Has(handle)) return false;
  if (!std::exchange(held_, true)) form().toolkit().HandTakes(*this);
  const UserEvent event(*this);
  SetFocus();
  SelectHandle(handle);
  return true;
}

void Picture::UserLetGo() {
  if (std::exchange(held_, false)) form().toolkit().HandLetsGo();
}

bool Picture::UserStep(int right, int up) {
  if (!Usable() || !Has(selected_) || !on_step) return false;
  const UserEvent event(*this, UserEvent::kMoves);
  on_step(selected_, right, up);
  if (form().open()) SetFocus();
  return true;
}

void Picture::DefaultKey(const Key& key) {
  switch (key.name) {
    case Key::kUp:
      UserStep(0, 1);
      break;
    case Key::kDown:
      UserStep(0, -1);
      break;
    case Key::kLeft:
      UserStep(-1, 0);
      break;
    case Key::kRight:
      UserStep(1, 0);
      break;
    case Key::kPageUp:
      UserStep(0, kStepsOfAPage);
      break;
    case Key::kPageDown:
      UserStep(0, -kStepsOfAPage);
      break;
    case Key::kSpace:
      if (handles() > 0) SelectHandle((selected_ + 1) % handles());
      break;
    case Key::kHome:
      SelectHandle(0);
      break;
    case Key::kEnd:
      SelectHandle(handles() - 1);
      break;
    default:
      break;
  }
}

}  // namespace zentaline::ui
