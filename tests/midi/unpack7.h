// The wire's seven-bit bytes back to eight, as the instrument does it; written apart from the packing it judges.
#pragma once

#include <string>
#include <string_view>

namespace zentaline::test {

inline std::string Unpack7(std::string_view wire) {
  std::string data;
  for (std::size_t group = 0; group < wire.size(); group += 8) {
    const int tops = static_cast<unsigned char>(wire[group]);
    for (std::size_t k = 0; k < 7 && group + 1 + k < wire.size(); ++k) {
      const int low = static_cast<unsigned char>(wire[group + 1 + k]);
      data.push_back(static_cast<char>(low + ((tops >> k) % 2) * 128));
    }
  }
  return data;
}

inline bool IsSevenBit(std::string_view bytes) {
  for (const char c : bytes) {
    if (static_cast<unsigned char>(c) > 127) return false;
  }
  return true;
}

// The packed part of a dump: what stands between `from` bytes at the start and F7.
inline std::string DumpPayload(std::string_view message, std::size_t from = 5) {
  return Unpack7(message.substr(from, message.size() - from - 1));
}

}  // namespace zentaline::test
