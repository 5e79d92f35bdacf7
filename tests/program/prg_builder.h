// Program files built by hand.
#pragma once

#include <string>

#include "tests/format_bytes.h"

namespace zentaline::test {

// A .prg with a random rest, 64 records of which none is a link, named "P0" to "P63".
inline std::string PrgFile(unsigned seed = 1) {
  std::mt19937 random(seed);
  std::string file = RandomBytes(random, 30480);
  file.replace(0, 8, "KORG" + Hand({0x4D, 0, 0, 1}));
  for (std::size_t n = 0; n < 64; ++n) file.replace(48 + 172 * n, 16, Field("P" + std::to_string(n), 16));
  return file;
}

// Turns record n of a .prg into a link.
inline void PutLink(std::string& file, std::size_t n, int bank_code, int number, const std::string& name) {
  file.replace(48 + 172 * n, 19, Hand({1, bank_code, number}) + Field(name, 16));
}

}  // namespace zentaline::test
