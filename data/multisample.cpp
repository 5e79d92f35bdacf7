#include "data/multisample.h"

namespace zentaline {

void ScrambleMultisamples(std::string& records) {
  unsigned state = kMultisampleStart;
  for (std::size_t i = 0; i < records.size(); ++i) {
    if (i % kMultisampleLength == 0) state = kMultisampleStart;
    const bool equal = ((state >> 6) & 1u) == (state & 1u);
    state = ((state >> 1) & 0x7Fu) | (equal ? 0x80u : 0u);
    records[i] = static_cast<char>(static_cast<unsigned char>(records[i]) ^ state);
  }
}

}  // namespace zentaline
