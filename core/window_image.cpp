#include "core/window_image.h"

namespace zentaline {

Bytes WindowPrefix() {
  return Bytes(kControlLength, '\0') + Bytes(kWindowPrefixLength - kControlLength, ' ');
}

std::string_view WindowPath(std::string_view image) {
  if (image.size() < kPathPosition) return {};
  return TrimRight(image.substr(kPathPosition - 1, kPathLength));
}

void PutWindowPath(Bytes& image, std::string_view path) {
  PutBytes(image, kPathPosition, Padded(path, kPathLength));
}

std::string_view FileBaseName(std::string_view path) {
  const auto separator = path.rfind('/');
  return separator == std::string_view::npos ? path : path.substr(separator + 1);
}

std::string_view FileDirectory(std::string_view path) {
  const auto separator = path.rfind('/');
  if (separator == std::string_view::npos) return {};
  return path.substr(0, separator == 0 ? 1 : separator);
}

std::string_view WindowBaseName(std::string_view image) {
  return FileBaseName(WindowPath(image));
}

}  // namespace zentaline
