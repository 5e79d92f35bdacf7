// Numbers and byte strings drawn from a fuzzer's input; all of it is zero when the input has run out.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "base/bytes.h"

namespace zentaline::fuzz {

class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size) : rest_(reinterpret_cast<const char*>(data), size) {}

  int Byte() { return Take(1).empty() ? 0 : static_cast<unsigned char>(taken_[0]); }
  int Word() {
    const int low = Byte();
    return low + 256 * Byte();
  }
  int Signed() { return Word() - 32768; }

  std::string_view Take(std::size_t count) {
    taken_ = rest_.substr(0, count);
    rest_.remove_prefix(taken_.size());
    return taken_;
  }
  std::string_view Rest() { return Take(rest_.size()); }

 private:
  std::string_view rest_;
  std::string_view taken_;
};

// Ends the run when what must hold doesn't.
inline void Require(bool holds) {
  if (!holds) std::abort();
}

// `input` written over the start of `length` zero bytes, so that a short input still reaches what lies far behind.
inline Bytes Spread(std::string_view input, std::size_t length) {
  Bytes image(length, '\0');
  PutBytes(image, 1, input);
  return image;
}

}  // namespace zentaline::fuzz
