#include "midi/alsa/pace.h"

#include <algorithm>

namespace zentaline {

namespace {
// Below the 65 milliseconds by which thirteen pieces are longer than a second: so no second has a piece too many.
constexpr auto kMadeGood = std::chrono::milliseconds(40);
}  // namespace

Pace::Clock::duration Pace::TimeFor(std::uint32_t bytes) const {
  if (bytes_per_second_ <= 0) return {};
  return std::chrono::nanoseconds(std::int64_t{bytes} * 1'000'000'000 / bytes_per_second_);
}

void Pace::Give(Clock::time_point now, std::uint32_t bytes) {
  free_ = std::max(free_, now) + TimeFor(bytes);
}

void Pace::GiveNext(Clock::time_point now, std::uint32_t bytes) {
  free_ = std::max(free_, now - kMadeGood) + TimeFor(bytes);
}

}  // namespace zentaline
