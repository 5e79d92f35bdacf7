#include "ui/placing.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <tuple>

namespace zentaline::ui {

namespace {

constexpr int kTitle = 28;   // pixels, as high as a title with its frame
constexpr int kReach = 120;  // of a title, which a hand can take hold of

int Shared(int a, int a_length, int b, int b_length) {
  return std::max(std::min(a + a_length, b + b_length) - std::max(a, b), 0);
}

std::int64_t Covered(const Placement& window, const Placement& other) {
  return static_cast<std::int64_t>(Shared(window.left, window.width, other.left, other.width)) *
         Shared(window.top, window.height, other.top, other.height);
}

// How many pixels of the other one's title, from left to right, lie under the window.
int HiddenOfTitle(const Placement& window, const Placement& other) {
  const bool over = Shared(window.top, window.height, other.top, kTitle) > 0;
  return over ? Shared(window.left, window.width, other.left, other.width) : 0;
}

}  // namespace

Placement PlaceInArea(Size area, Size window, const Placement* belongs_to, int least_height) {
  Placement best{0, 0, window.width, window.height};
  const int last_left = std::max(area.width - window.width, 0);
  const int last_top = std::max(area.height - window.height, 0);
  if (belongs_to == nullptr) return best;
  const Placement& other = *belongs_to;
  std::int64_t least = std::numeric_limits<std::int64_t>::max();
  int least_hidden = std::numeric_limits<int>::max();
  int nearest = 0;
  // Least is covered at one of its edges, or of the area's.
  for (const int wanted_left :
       {other.left + other.width, other.left - window.width, last_left, 0, other.left + kTitle}) {
    for (const int wanted_top :
         {other.top, other.top + other.height, other.top - window.height, last_top, 0, other.top + kTitle}) {
      const Placement place{std::clamp(wanted_left, 0, last_left), std::clamp(wanted_top, 0, last_top), window.width,
                            window.height};
      const std::int64_t covered = Covered(place, other);
      const int hidden = HiddenOfTitle(place, other);
      const int way = std::abs(place.left - other.left - other.width) + std::abs(place.top - other.top);
      if (std::tuple(covered, hidden, way) >= std::tuple(least, least_hidden, nearest)) continue;
      least = covered;
      least_hidden = hidden;
      nearest = way;
      best = place;
    }
  }
  const int below = std::max(other.top, 0) + kTitle;
  const int seen = Shared(0, area.width, other.left, other.width);
  const bool in_reach = seen - least_hidden >= std::min(seen, kReach);
  if (in_reach || least_height <= 0 || area.height - below < least_height) return best;
  best.top = below;
  best.height = std::min(window.height, area.height - below);
  return best;
}

}  // namespace zentaline::ui
