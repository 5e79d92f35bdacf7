#include "base/crc.h"

#include <zlib.h>

#include "base/disk.h"

namespace zentaline {

std::uint32_t Crc32(std::string_view bytes) {
  return static_cast<std::uint32_t>(crc32_z(0, reinterpret_cast<const Bytef*>(bytes.data()), bytes.size()));
}

FileMark MarkOf(const Bytes& content) {
  return {true, content.size(), Crc32(content)};
}

}  // namespace zentaline
