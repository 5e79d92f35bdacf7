#include "midi/virtual/unpack.h"

#include <algorithm>

namespace zentaline {

Unpacked Unpack(std::string_view packed) {
  Unpacked result;
  for (std::size_t at = 0; at < packed.size(); at += 8) {
    const std::string_view group = packed.substr(at, 8);
    const std::size_t count = group.size() - 1;
    if (count == 0) {
      result.fault = "the last group has top bits and no data";
      break;
    }
    const unsigned top_bits = static_cast<unsigned char>(group[0]);
    if (top_bits >> count != 0) {
      result.fault = "a top bit is set for a byte that is not there";
      break;
    }
    for (std::size_t k = 0; k < count; ++k) {
      const unsigned top = (top_bits >> k & 1U) << 7;
      result.data += static_cast<char>(static_cast<unsigned char>(group[k + 1]) | top);
    }
  }
  return result;
}

}  // namespace zentaline
