// Files of the earlier instruments as they lie on the disk, and what they become. Of the i30 a file holds two of this
// instrument's; the older ones have smaller records, which are converted field by field. Offsets count from 0.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "base/bytes.h"

namespace zentaline {

inline constexpr std::size_t kI30ArrFileLength = 21024;  // a header and twice 64 records of 164 bytes
inline constexpr std::size_t kOldArrFileLength = 9056;
inline constexpr std::size_t kOldArrRecordsOffset = 672;   // 64 records of 131 bytes
inline constexpr std::size_t kOldPrgLeastLength = 14255;   // a longer file's rest is not looked at
inline constexpr std::size_t kOldPrgRecordsOffset = 3431;  // 64 records of 164 bytes

// By length and header. An i30 program file is asked of program/prg_format.h, a style file of style/sty_format.h.
bool IsI30ArrFile(std::string_view file);
bool IsOldArrFile(std::string_view file);
bool IsOldPrgFile(std::string_view file);

// Each gives files of this instrument, with a header made from scratch. What the source lacks is zero.
// Two arrangement files: the first 64 records, and the second.
std::vector<Bytes> ArrFilesOfI30(std::string_view file);
// Two program files: the bank's own 64 records, and the 64 behind them; the rest of both is the source's.
std::vector<Bytes> PrgFilesOfI30(std::string_view file);
Bytes ArrFileOfOld(std::string_view file);
// The records of the old file in a bank that is otherwise `bank`, this instrument's template.
Bytes PrgFileOfOld(std::string_view file, std::string_view bank);

// One record of the older instruments: 131 bytes become 164, 164 become 172.
Bytes ArrRecordOfOld(std::string_view record);
Bytes PrgRecordOfOld(std::string_view record);

}  // namespace zentaline
