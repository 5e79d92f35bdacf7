// What outlives a life of the program in the monkey's hands: it lies in memory that all lives of a run share.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace zentaline::monkey {

// How a life ends; anything else is a fault.
enum LifeEnd : int {
  kEnded = 0,     // regularly
  kCrashed = 60,  // on purpose
  kFailed = 61,   // something isn't as it must be: Shared::failure says what
};

// A changed window that the next life must have.
struct Expected {
  int kind = 0;
  std::uint64_t content = 0;
  std::array<char, 120> name{};
};

struct Shared {
  std::uint64_t random = 0;
  int actions = 0;  // lines so far
  int most_actions = 0;
  int lives = 0;                              // since the folder was made anew
  std::array<std::uint32_t, 1 << 20> used{};  // by the hashes of names
  int expected_count = 0;
  std::array<Expected, 40> expected{};
  // Counts of what happened in this run.
  int crashes = 0, ends = 0, recoveries = 0, brought_back = 0, round_trips = 0, refusals = 0, faults = 0;
  std::array<char, 1000> failure{};

  void Fail(std::string_view why) {
    if (failure[0] == 0) why.copy(failure.data(), failure.size() - 1);
  }

  int Pick(int count) {
    random += 0x9E3779B97F4A7C15U;
    std::uint64_t mixed = random;
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9U;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBU;
    mixed ^= mixed >> 31;
    return count <= 1 ? 0 : static_cast<int>(mixed % static_cast<std::uint64_t>(count));
  }
  bool OneIn(int count) { return Pick(count) == 0; }
};

inline std::uint64_t HashOf(std::string_view bytes, std::uint64_t hash = 0xCBF29CE484222325U) {
  for (const char byte : bytes) hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001B3U;
  return hash;
}

}  // namespace zentaline::monkey
