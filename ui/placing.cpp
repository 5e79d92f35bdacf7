#include "ui/placing.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace zentaline::ui {

namespace {

constexpr int kStep = 28;  // from the corner of a window that covers it anyhow: its title stays in sight

std::int64_t Shared(int a, int a_length, int b, int b_length) {
  return std::max(std::min(a + a_length, b + b_length) - std::max(a, b), 0);
}

}  // namespace

Placement PlaceInArea(Size area, Size window, const Placement* belongs_to) {
  Placement best{0, 0, window.width, window.height};
  const int last_left = std::max(area.width - window.width, 0);
  const int last_top = std::max(area.height - window.height, 0);
  if (belongs_to == nullptr) return best;
  const Placement& other = *belongs_to;
  std::int64_t least = std::numeric_limits<std::int64_t>::max();
  int nearest = 0;
  // Least is covered at one of its edges, or of the area's.
  for (const int wanted_left :
       {other.left + other.width, other.left - window.width, last_left, 0, other.left + kStep}) {
    for (const int wanted_top :
         {other.top, other.top + other.height, other.top - window.height, last_top, 0, other.top + kStep}) {
      const int left = std::clamp(wanted_left, 0, last_left);
      const int top = std::clamp(wanted_top, 0, last_top);
      const std::int64_t covered =
          Shared(left, window.width, other.left, other.width) * Shared(top, window.height, other.top, other.height);
      const int way = std::abs(left - other.left - other.width) + std::abs(top - other.top);
      if (covered > least || (covered == least && way >= nearest)) continue;
      least = covered;
      nearest = way;
      best.left = left;
      best.top = top;
    }
  }
  return best;
}

}  // namespace zentaline::ui
