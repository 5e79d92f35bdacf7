// The check sum of CRC-32, as zlib has it.
#pragma once

#include <cstdint>
#include <string_view>

namespace zentaline {

std::uint32_t Crc32(std::string_view bytes);

}  // namespace zentaline
