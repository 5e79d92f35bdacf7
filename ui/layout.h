// How the controls of a form stand on the screen, as a value. A toolkit that draws builds its widgets from it; one that
// doesn't leaves it alone.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "ui/control.h"

namespace zentaline::ui {

// Where a control stands among those of kPlaces, in the units of the whole.
struct Place {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
};

struct Layout {
  enum class Kind { kNothing, kControl, kRow, kColumn, kGrid, kFrame, kPages, kSpace, kPlaces };
  Kind kind = Kind::kNothing;
  Control* control = nullptr;    // of kControl; the Frame, PictureBox or Tabs of kFrame and kPages
  std::vector<Layout> children;  // of kPages one for each page
  int columns = 0;               // of kGrid; the children fill it row by row
  int stretch = 0;               // how much it takes of the room that is left over; 0 keeps its size
  bool scrolls = false;          // what doesn't fit is scrolled to
  Place place;                   // of a child of kPlaces; of kPlaces itself how many units it is wide and high
  Size least;                    // of kPlaces, in pixels
  bool tight = false;            // no room between the children, nor around the whole form; little inside a frame
};

inline Layout Item(Control& control, int stretch = 0) {
  Layout layout;
  layout.kind = Layout::Kind::kControl;
  layout.control = &control;
  layout.stretch = stretch;
  return layout;
}

inline Layout Group(Layout::Kind kind, std::vector<Layout> children, int stretch) {
  Layout layout;
  layout.kind = kind;
  layout.children = std::move(children);
  layout.stretch = stretch;
  return layout;
}

inline Layout Row(std::vector<Layout> children, int stretch = 0) {
  return Group(Layout::Kind::kRow, std::move(children), stretch);
}

inline Layout Column(std::vector<Layout> children, int stretch = 0) {
  return Group(Layout::Kind::kColumn, std::move(children), stretch);
}

inline Layout Grid(int columns, std::vector<Layout> children, int stretch = 0) {
  Layout layout = Group(Layout::Kind::kGrid, std::move(children), stretch);
  layout.columns = columns;
  return layout;
}

// What stands inside a Frame or a PictureBox.
inline Layout Inside(Control& container, Layout content, int stretch = 0) {
  Layout layout = Group(Layout::Kind::kFrame, {std::move(content)}, stretch);
  layout.control = &container;
  return layout;
}

inline Layout Pages(Control& tabs, std::vector<Layout> pages, int stretch = 1) {
  Layout layout = Group(Layout::Kind::kPages, std::move(pages), stretch);
  layout.control = &tabs;
  return layout;
}

inline Layout At(Place place, Control& control) {
  Layout layout = Item(control);
  layout.place = place;
  return layout;
}

// Controls at places of their own, which grow with the whole; a later one lies over an earlier one.
inline Layout Places(Size units, Size least_pixels, std::vector<Layout> children, int stretch = 0) {
  Layout layout = Group(Layout::Kind::kPlaces, std::move(children), stretch);
  layout.place = {0, 0, units.width, units.height};
  layout.least = least_pixels;
  return layout;
}

inline Layout Tight(Layout layout) {
  layout.tight = true;
  return layout;
}

// Empty room that takes what is left over.
inline Layout Space(int stretch = 1) {
  return Group(Layout::Kind::kSpace, {}, stretch);
}

}  // namespace zentaline::ui
