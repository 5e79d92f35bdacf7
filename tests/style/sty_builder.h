// Style images built by hand.
#pragma once

#include <string>
#include <vector>

#include "tests/format_bytes.h"

namespace zentaline::test {

struct Style {
  std::string name;
  int size = 0;      // 0 or at least 16
  int filler = 'x';  // the byte behind the name
};

// Header, table and entries one behind the other.
inline std::string StyImage(const std::vector<Style>& styles) {
  std::string image = "KORG" + Hand({0x4D, 0, 4, 1}) + Zeros(216);
  for (std::size_t k = 0; k < styles.size(); ++k) {
    Set(image, 23 + 4 * k, 0xA0 + static_cast<int>(k));
    Set(image, 24 + 4 * k, 0xB0 + static_cast<int>(k));
    Set(image, 25 + 4 * k, styles[k].size % 256);
    Set(image, 26 + 4 * k, styles[k].size / 256);
  }
  for (const Style& style : styles) {
    if (style.size == 0) continue;
    image += Field(style.name, 16);
    image += std::string(static_cast<std::size_t>(style.size) - 16, static_cast<char>(style.filler));
  }
  return image;
}

// The empty template as it is kept in memory: four empty styles of 1176 bytes.
inline std::string EmptyStyles() {
  return StyImage(std::vector<Style>(4, Style{"- empty -", 1176, 0}));
}

// An arrangement window's image with this style part and this state of it.
inline std::string ArrWindowWith(const std::string& style_part, int style_state) {
  std::string image = Zeros(42622);
  Set(image, 1, 19);
  Set(image, 9, style_state);
  return image + style_part;
}

}  // namespace zentaline::test
