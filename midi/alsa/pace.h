// When bytes may be given to a port that carries them away at a fixed speed.
#pragma once

#include <chrono>
#include <cstdint>

namespace zentaline {

// A MIDI cable: 31250 bits a second, ten bits a byte.
inline constexpr int kCableBytesPerSecond = 3125;
inline constexpr std::uint32_t kPieceBytes = 256;

class Pace {
 public:
  using Clock = std::chrono::steady_clock;

  // 0 is as fast as can be.
  explicit Pace(int bytes_per_second = kCableBytesPerSecond) : bytes_per_second_(bytes_per_second) {}

  // The time at which all that was given so far has left.
  Clock::time_point Free() const { return free_; }

  // `bytes` are given now, on a line that was idle or is not to be waited for.
  void Give(Clock::time_point now, std::uint32_t bytes);

  // `bytes` are given now, as the next piece of a message, Free() being past. Being a little late is made good by the
  // next piece, so that small delays don't add up; being later than that isn't, or a port would get a burst.
  void GiveNext(Clock::time_point now, std::uint32_t bytes);

  Clock::duration TimeFor(std::uint32_t bytes) const;

 private:
  int bytes_per_second_;
  Clock::time_point free_{};
};

}  // namespace zentaline
