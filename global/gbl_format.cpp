#include "global/gbl_format.h"

#include "core/window_image.h"

namespace zentaline {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view kMagic = "KORG\x4D\x00\x06\x01"sv;
static_assert(kGlobalImageLength == kWindowPrefixLength + kGlobalFileLength);

}  // namespace

GlobalReadResult CheckGlobalFile(std::string_view file) {
  if (file.empty()) return kGlobalAbsent;
  return file.size() == kGlobalFileLength && file.starts_with(kMagic) ? kGlobalGood : kGlobalWrong;
}

Bytes BuildGlobalImage(std::string_view file) {
  return WindowPrefix() + Slice(file, 1, kGlobalFileLength);
}

Bytes GlobalFileBytes(std::string_view image) {
  return Slice(image, kWindowFilePosition, kGlobalFileLength);
}

}  // namespace zentaline
