// Back sequence files put together by hand.
#pragma once

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "tests/format_bytes.h"

namespace zentaline::test {

inline void SetWord(std::string& file, std::size_t position, int value) {
  Set(file, position, value % 256);
  Set(file, position + 1, value / 256);
}

// The place of the word of track 1 to 17 of sequence 0 to 9; track 18 of one is track 1 of the next.
inline std::size_t WordPlace(int sequence, int track) {
  return static_cast<std::size_t>(1997 + 34 * sequence + 2 * (track - 1));
}

inline std::string BsqHeader() {
  return "KORG" + Hand({0x4D, 0, 5}) + Zeros(9);
}

// The events that each track of each sequence has, from track 1; what isn't told has none. A track takes as many blocks
// of four events as it needs, each event is four bytes that tell where they stand and none of them is zero.
using BsqEvents = std::array<std::vector<int>, 10>;

inline std::string BsqFile(const BsqEvents& events = {}, int first_word = 0) {
  std::string file = BsqHeader();
  for (int n = 0; n < 10; ++n) file += Field("Song " + std::to_string(n), 10) + Zeros(188);
  file += Zeros(342);
  int word = first_word;
  for (int n = 0; n < 10; ++n) {
    for (int track = 1; track <= 17; ++track) {
      SetWord(file, WordPlace(n, track), word);
      const auto& counts = events[static_cast<std::size_t>(n)];
      const int count =
          static_cast<std::size_t>(track) <= counts.size() ? counts[static_cast<std::size_t>(track - 1)] : 0;
      for (int e = 0; e < count; ++e) file += Hand({n + 1, track, e % 255 + 1, 0x80 + n});
      const int blocks = (count + 3) / 4;
      file += Zeros(static_cast<std::size_t>(16 * blocks - 4 * count));
      word += blocks;
    }
  }
  SetWord(file, 2337, word);
  return file;
}

// A word of the file; what lies behind its end is zero.
inline int BsqWordOf(const std::string& file, std::size_t position) {
  const auto byte = [&](std::size_t p) { return p <= file.size() ? At(file, p) : 0; };
  return byte(position) + 256 * byte(position + 1);
}

// The count as it is told: the slots of the track, walked backwards from its end while they are zero.
inline int CountedByHand(const std::string& file, int sequence, int track) {
  const int w = BsqWordOf(file, WordPlace(sequence, track));
  const int d = BsqWordOf(file, WordPlace(sequence, track + 1)) - w;
  const long start = 2339 + 16L * (w - BsqWordOf(file, WordPlace(0, 1)));
  const auto zero = [&](long slot) {
    for (long p = start + 4 * slot; p < start + 4 * slot + 4; ++p) {
      if (p >= 1 && p <= static_cast<long>(file.size()) && file[static_cast<std::size_t>(p - 1)] != '\0') return false;
    }
    return true;
  };
  // Behind the file all is zero: nobody needs to walk there.
  const long behind = (static_cast<long>(file.size()) - start) / 4 + 2;
  long slots = d > 0 ? std::max(0L, std::min(4L * d, behind)) : 0;
  while (slots > 0 && zero(slots - 1)) --slots;
  return static_cast<int>(slots);
}

}  // namespace zentaline::test
