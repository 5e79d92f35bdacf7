// A reader of UTF-8 for the tests, strict: no overlong forms, no surrogates.
#pragma once

#include <cstddef>
#include <string_view>

inline bool IsUtf8(std::string_view text) {
  for (std::size_t i = 0; i < text.size();) {
    const auto first = static_cast<unsigned char>(text[i]);
    std::size_t length = 0;
    unsigned code = 0;
    if (first < 0x80) {
      length = 1;
      code = first;
    } else if (first >= 0xC2 && first < 0xE0) {
      length = 2;
      code = first & 0x1Fu;
    } else if (first >= 0xE0 && first < 0xF0) {
      length = 3;
      code = first & 0x0Fu;
    } else if (first >= 0xF0 && first < 0xF5) {
      length = 4;
      code = first & 0x07u;
    } else {
      return false;
    }
    if (i + length > text.size()) return false;
    for (std::size_t k = 1; k < length; ++k) {
      const auto next = static_cast<unsigned char>(text[i + k]);
      if ((next & 0xC0u) != 0x80) return false;
      code = (code << 6) | (next & 0x3Fu);
    }
    constexpr unsigned smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    if (code < smallest[length] || (code >= 0xD800 && code < 0xE000) || code > 0x10FFFF) return false;
    i += length;
  }
  return true;
}
