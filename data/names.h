// The instrument's factory names. Every name is exactly 16 bytes of Windows-1252, padded with blanks.
#pragma once

#include <string_view>

namespace zentaline {

// Banks 0 to 4 are A to E, programs 0 to 63. A number outside its range gives 16 blanks, here and below.
std::string_view ProgramName(int bank, int n);

// Kits 0 to 15; the last two are the user's.
std::string_view DrumKitName(int n);

// Styles 0 to 63 are bank A, 64 to 127 bank B.
std::string_view StyleName(int n);

// A bank's 64 names in one string of 1024 bytes; empty for a bank outside 0 to 4.
std::string_view ProgramNames(int bank);

// The 16 kit names in one string of 256 bytes.
std::string_view DrumKitNames();

}  // namespace zentaline
