#include "midi/pack7.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>

namespace zentaline {
namespace {

// One group of at most seven bytes.
char* PackGroup(const char* data, std::size_t count, char* out) {
  unsigned top = 0;
  for (std::size_t k = 0; k < count; ++k) {
    const auto byte = static_cast<unsigned char>(data[k]);
    top |= static_cast<unsigned>(byte >> 7) << k;
    out[k + 1] = static_cast<char>(byte & 0x7F);
  }
  *out = static_cast<char>(top);
  return out + count + 1;
}

// A whole group in one word, first byte lowest: the product moves the top bit of byte k from bit 8k to bit 56 + k, and
// no other product of its two factors meets the eight bits up there.
char* PackWord(const char* data, char* out) {
  std::uint64_t word = 0;
  std::memcpy(&word, data, sizeof word);
  const std::uint64_t tops = (word >> 7 & 0x0001010101010101U) * 0x0102040810204000U >> 56;
  const std::uint64_t packed = (word & 0x007F7F7F7F7F7F7FU) << 8 | tops;
  std::memcpy(out, &packed, sizeof packed);
  return out + sizeof packed;
}

}  // namespace

Bytes Pack7(std::string_view data) {
  Bytes packed(Packed7Length(data.size()), '\0');
  const char* from = data.data();
  std::size_t left = data.size();
  char* out = packed.data();
  if constexpr (std::endian::native == std::endian::little) {
    // A word reads one byte more than it packs.
    for (; left >= 8; left -= 7, from += 7) out = PackWord(from, out);
  }
  while (left > 0) {
    const std::size_t count = std::min<std::size_t>(left, 7);
    out = PackGroup(from, count, out);
    from += count;
    left -= count;
  }
  return packed;
}

}  // namespace zentaline
