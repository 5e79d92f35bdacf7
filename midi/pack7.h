// Eight-bit data for a wire of seven bits.
#pragma once

#include <string_view>

#include "base/bytes.h"

namespace zentaline {

// Each seven data bytes become eight: first a byte with their top bits, the first byte's in bit 0, then the seven
// without them. A short last group keeps its top-bit byte, so n bytes become n + ceil(n / 7).
Bytes Pack7(std::string_view data);

// The length of n packed bytes.
constexpr std::size_t Packed7Length(std::size_t n) {
  return n + (n + 6) / 7;
}

}  // namespace zentaline
