#include "base/crc.h"

#include <libdeflate.h>

#include "base/disk.h"

namespace zentaline {

std::uint32_t Crc32(std::string_view bytes) {
  return libdeflate_crc32(0, bytes.data(), bytes.size());
}

FileMark MarkOf(std::string_view content) {
  return {true, content.size(), Crc32(content)};
}

}  // namespace zentaline
