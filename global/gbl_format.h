// The file of the instrument's global parameters: tuning, scales, pedals, MIDI in, harmony. What its bytes mean stands
// in record/global_fields.h; bytes that nobody names are carried unchanged. Positions count from 1.
#pragma once

#include <cstddef>
#include <string_view>

#include "base/bytes.h"

namespace zentaline {

inline constexpr std::size_t kGlobalFileLength = 448;

// The window's image is the prefix and the file.
inline constexpr std::size_t kGlobalImageLength = 718;

enum GlobalReadResult : int { kGlobalGood = 0, kGlobalWrong = 2, kGlobalAbsent = 3 };

// By the length and the signature of eight bytes.
GlobalReadResult CheckGlobalFile(std::string_view file);

// The image of a window, without its control bytes, and the 448 bytes of its file.
Bytes BuildGlobalImage(std::string_view file);
Bytes GlobalFileBytes(std::string_view image);

}  // namespace zentaline
