#include "tools/factory/guide.h"

namespace zentaline::factory {

Bytes GuideFile(const std::string& path, std::size_t limit, Problems& problems) {
  constexpr std::size_t width = 78;
  Bytes guide;
  const std::optional<std::string> text = ReadText(path, problems);
  if (!text) return guide;
  SourceLine line{path, 0, false, {}};
  for (std::size_t start = 0; start < text->size();) {
    std::size_t end = text->find('\n', start);
    if (end == std::string::npos) end = text->size();
    ++line.number;
    Bytes bytes;
    if (!BytesFromUtf8(std::string_view(*text).substr(start, end - start), bytes)) {
      problems.Add(line, "a character that Windows-1252 doesn't have");
    }
    if (bytes.size() > width) problems.Add(line, "longer than 78 characters");
    for (char c : bytes) {
      if (static_cast<unsigned char>(c) < 32) problems.Add(line, "a control character");
    }
    guide += bytes;
    guide += "\r\n";
    start = end + 1;
  }
  if (guide.size() >= limit) problems.Add(path, "too long for the guide's window");
  return guide;
}

}  // namespace zentaline::factory
