// A drawing that a hand can reach into: shapes, and handles that can be dragged. What is drawn is a value; a form makes
// a new one when what it shows has changed.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "ui/control.h"

namespace zentaline::ui {

// What a part of a drawing is, from which the desktop's palette gives its colour.
enum class Ink {
  kPaper,     // the ground of a field
  kText,      // writing
  kMuted,     // writing, lines and areas that say less, as what is switched off
  kGrid,      // lines that help the eye
  kZero,      // the line of no level
  kAccent,    // what the picture is about
  kGlow,      // the area under it
  kWhiteKey,  // these are the same on every desktop
  kBlackKey,
  kKeyEdge,
  kKeyMark,  // on a black key
};

// A place in the drawing's own units, from its top left.
struct Point {
  double x = 0;
  double y = 0;

  bool operator==(const Point&) const = default;
};

struct Shape {
  enum class Kind {
    kLine,  // through all points
    kArea,  // within them
    kText,  // at the one point
    kDot,   // round about it
  };
  enum class Align { kLeft, kCentre, kRight };
  Kind kind = Kind::kLine;
  Ink ink = Ink::kText;
  std::vector<Point> points;
  double pixels = 1;  // how wide the line, how far from the centre the dot; the same at any size of the picture
  std::string text;
  Align align = Align::kCentre;  // which part of the text stands at the point; it always stands at half its height

  bool operator==(const Shape&) const = default;
};

Shape Line(std::vector<Point> points, Ink ink, double pixels = 1);
Shape Area(std::vector<Point> points, Ink ink);
// The rectangle between two corners.
Shape Box(Point from, Point to, Ink ink);
// A circle whose size grows with the picture.
Shape Disc(Point centre, double radius, Ink ink);
Shape Text(Point at, std::string text, Ink ink = Ink::kText, Shape::Align align = Shape::Align::kCentre);
Shape Dot(Point at, Ink ink, double pixels);

// Where a handle stands, in thousandths of the picture's width and height from its top left.
struct Handle {
  std::string name;  // for who looks at it
  int x = 0;
  int y = 0;

  bool operator==(const Handle&) const = default;
};

inline constexpr int kWholePicture = 1000;

struct Drawing {
  Point size{1000, 1000};  // how many units the picture is wide and high
  std::vector<Shape> shapes;
  std::vector<Handle> handles;

  bool operator==(const Drawing&) const = default;
};

class Picture : public Control {
 public:
  Picture(Form& form, std::string name, int index = -1)
      : Control(form, ControlKind::kPicture, std::move(name), index) {}
  const Drawing& drawing() const { return *drawing_; }
  void SetDrawing(Drawing drawing);
  // One of a few drawings that are made once and shown in turn.
  void ShowDrawing(std::shared_ptr<const Drawing> drawing);
  // How many handles it has, and where they stand: "X Y; X Y".
  int handles() const { return static_cast<int>(drawing_->handles.size()); }
  std::string HandlePlaces() const;
  // "X Y"; an empty text where there is no such handle.
  std::string HandlePlace(int handle) const;

  // A handle was dragged to a place in the picture. Where it then stands is the form's to say, by a new drawing.
  std::function<void(int handle, int x, int y)> on_drag;
  // The arrow keys: so many steps of its values to the right and up.
  std::function<void(int handle, int right, int up)> on_step;

  // The handle that the keys move, -1 for none.
  int selected_handle() const { return selected_; }
  void SelectHandle(int handle);

  // The user drags a handle in one go: a place outside the picture is taken as the nearest inside. Refused for a handle
  // that isn't there.
  bool UserDrag(int handle, int x, int y);
  // The user takes a handle, and holds it through all drags up to the letting go: these are one action.
  bool UserTake(int handle);
  void UserLetGo();
  bool held() const { return held_; }
  ~Picture() override;

  // Up, Down, Left and Right move the selected handle a step, PageUp and PageDown ten steps in height; Space goes on to
  // the next handle, Home and End to the first and last.
  void DefaultKey(const Key& key) override;

 private:
  bool Has(int handle) const { return handle >= 0 && handle < handles(); }
  bool UserStep(int right, int up);

  std::shared_ptr<const Drawing> drawing_ = std::make_shared<const Drawing>();
  int selected_ = -1;
  bool held_ = false;
};

}  // namespace zentaline::ui
