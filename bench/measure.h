// How the benchmarks of windows measure.
#pragma once

#include <algorithm>
#include <chrono>
#include <functional>
#include <vector>

namespace zentaline {

using Clock = std::chrono::steady_clock;

inline double Nanoseconds(Clock::duration time) {
  return std::chrono::duration<double, std::nano>(time).count();
}

// The middle one of several measurements: a round that was interrupted doesn't count.
inline double Median(int rounds, const std::function<double()>& measure) {
  std::vector<double> times;
  for (int i = 0; i < rounds; ++i) times.push_back(measure());
  std::nth_element(times.begin(), times.begin() + rounds / 2, times.end());
  return times[static_cast<std::size_t>(rounds / 2)];
}

}  // namespace zentaline
