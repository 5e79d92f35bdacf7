// The list of multisample names: 519 records of 15 bytes, each three digits, two blanks and a name of ten characters.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zentaline {

inline constexpr int kMultisampleCount = 519;
inline constexpr std::size_t kMultisampleLength = 15;

// The scrambling's state begins with this in every record; reader and file have to agree.
inline constexpr unsigned char kMultisampleStart = 0x4B;

// Scrambles whole records in place, and unscrambles what was scrambled. A rest at the end that is no whole record is
// treated like the beginning of one.
void ScrambleMultisamples(std::string& records);

// Record 0 to 518 of a scrambled list, as it stands in the file but for the two blanks behind its number. A record that
// the list doesn't hold whole is its three digits and blanks.
std::string MultisampleRecord(std::string_view scrambled, int n);

}  // namespace zentaline
