// Eight-bit data out of seven-bit bytes, as the instrument does it.
#pragma once

#include <string>
#include <string_view>

#include "base/bytes.h"

namespace zentaline {

struct Unpacked {
  Bytes data;
  std::string fault;  // what is wrong with the packed form; empty when it is right
};

// Each group is a byte of top bits (bit k for the byte k of the group) and up to seven bytes without them. All bytes
// are taken as below 80 hexadecimal.
Unpacked Unpack(std::string_view packed);

}  // namespace zentaline
