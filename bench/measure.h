// How the benchmarks measure, and the lines that bench.sh makes its table of.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <functional>
#include <utility>
#include <vector>

namespace zentaline::bench {

using Clock = std::chrono::steady_clock;

inline double Nanoseconds(Clock::duration time) {
  return std::chrono::duration<double, std::nano>(time).count();
}

// The middle one of several measurements, at least one: a round that was interrupted doesn't count.
inline double Median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}
inline double Median(int rounds, const std::function<double()>& measure) {
  std::vector<double> values;
  for (int i = 0; i < rounds; ++i) values.push_back(measure());
  return Median(std::move(values));
}

// What looking at the clock at the beginning and at the end takes of a measured time, in nanoseconds.
inline double LookingTime(int times) {
  double sum = 0;
  for (int i = 0; i < times; ++i) {
    const Clock::time_point begin = Clock::now();
    sum += Nanoseconds(Clock::now() - begin);
  }
  return sum / times;
}

// Prints a result: `ratio` is a multiple of a yardstick measured in the same run, `bound` is "<=" or ">=".
inline void PrintRatio(const char* name, double ratio, const char* bound, double limit, const char* text) {
  std::printf("bench %s %g %s %g %s\n", name, ratio, bound, limit, text);
}

}  // namespace zentaline::bench
