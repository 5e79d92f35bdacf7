// The list of multisample names: 519 records of 15 bytes, each three digits, two blanks and a name of ten characters.
#pragma once

#include <cstddef>
#include <string>

namespace zentaline {

inline constexpr int kMultisampleCount = 519;
inline constexpr std::size_t kMultisampleLength = 15;

// The scrambling's state begins with this in every record; reader and file have to agree.
inline constexpr unsigned char kMultisampleStart = 0x4B;

// Scrambles whole records in place, and unscrambles what was scrambled. A rest at the end that is no whole record is
// treated like the beginning of one.
void ScrambleMultisamples(std::string& records);

}  // namespace zentaline
