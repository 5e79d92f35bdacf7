#include "data/multisample.h"

namespace zentaline {

namespace {

constexpr std::size_t kDigits = 3;
constexpr std::size_t kGap = 2;

std::string Digits(int n) {
  std::string digits = std::to_string(n);
  return std::string(kDigits - digits.size(), '0') + digits;
}

}  // namespace

void ScrambleMultisamples(std::string& records) {
  unsigned state = kMultisampleStart;
  for (std::size_t i = 0; i < records.size(); ++i) {
    if (i % kMultisampleLength == 0) state = kMultisampleStart;
    const bool equal = ((state >> 6) & 1u) == (state & 1u);
    state = ((state >> 1) & 0x7Fu) | (equal ? 0x80u : 0u);
    records[i] = static_cast<char>(static_cast<unsigned char>(records[i]) ^ state);
  }
}

std::string MultisampleRecord(std::string_view scrambled, int n) {
  const std::size_t offset = kMultisampleLength * static_cast<std::size_t>(n);
  std::string record = offset < scrambled.size() ? std::string(scrambled.substr(offset, kMultisampleLength)) : "";
  if (record.size() == kMultisampleLength) {
    ScrambleMultisamples(record);
  } else {
    record = Digits(n);
    record.resize(kMultisampleLength, ' ');
  }
  return record.replace(kDigits, kGap, kGap, ' ');
}

}  // namespace zentaline
