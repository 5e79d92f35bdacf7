#include "files/paths.h"

#include <array>
#include <vector>

#include "base/bytes.h"
#include "base/utf8.h"
#include "core/boxes.h"

namespace zentaline {

namespace {

constexpr std::array<std::string_view, 6> kExtensions = {"arr", "sty", "prg", "pgg", "gbl", "bsq"};

constexpr std::size_t kWholeLength = 35;
constexpr std::size_t kHeadLength = 3;
constexpr std::size_t kTailLength = 28;

// Where each character of UTF-8 begins, and the end.
std::vector<std::size_t> CharacterStarts(std::string_view text) {
  std::vector<std::size_t> starts;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (!IsInsideCharacter(text[i])) starts.push_back(i);
  }
  starts.push_back(text.size());
  return starts;
}

}  // namespace

int FileType(std::string_view path) {
  if (path.size() < 4 || path.rfind('.') != path.size() - 4) return 0;
  const Bytes extension = LowerCase(path.substr(path.size() - 3));
  for (std::size_t i = 0; i < kExtensions.size(); ++i) {
    if (kExtensions[i] == extension) return static_cast<int>(i) + 1;
  }
  return 0;
}

std::string_view ExtensionOf(int type) {
  return type >= 1 && type <= static_cast<int>(kExtensions.size()) ? kExtensions[static_cast<std::size_t>(type - 1)]
                                                                   : std::string_view();
}

std::string WithoutExtension(std::string_view path) {
  return std::string(path.substr(0, path.size() < 4 ? 0 : path.size() - 4));
}

std::string ShortenedPath(std::string_view path) {
  std::string text = ShownPath(path);
  const std::vector<std::size_t> starts = CharacterStarts(text);
  const std::size_t length = starts.size() - 1;
  if (length <= kWholeLength) return text;
  const auto is_separator = [&](std::size_t character) { return text[starts[character]] == '/'; };
  bool any = false;
  for (std::size_t i = kHeadLength; i < kWholeLength; ++i) any = any || is_separator(i);
  if (!any) return text.substr(0, starts[kWholeLength]) + "...";
  std::size_t first = length - kTailLength - 1;
  while (first < length && !is_separator(first)) ++first;
  // A name longer than the room for it shows its end.
  if (first == length) first = length - kTailLength - 1;
  return text.substr(0, starts[kHeadLength]) + ".../" + text.substr(starts[first + 1]);
}

std::string JoinPath(std::string_view directory, std::string_view name) {
  std::string path(directory);
  if (!path.empty() && path.back() != '/') path += '/';
  return path.append(name);
}

}  // namespace zentaline
