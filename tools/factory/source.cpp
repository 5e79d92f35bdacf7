#include "tools/factory/source.h"

#include <charconv>
#include <cstdio>
#include <fstream>
#include <sstream>

#include "base/posix_disk.h"

namespace zentaline::factory {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

}  // namespace

void Problems::Add(const SourceLine& line, std::string_view what) {
  list_.push_back(line.file + ":" + std::to_string(line.number) + ": " + Utf8FromBytes(what));
}

void Problems::Add(std::string_view file, std::string_view what) {
  list_.push_back(std::string(file) + ": " + std::string(what));
}

std::optional<std::string> ReadText(const std::string& path, Problems& problems) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream content;
  // A folder can be opened too, and says only here that it can't be read.
  if (in.is_open() && in.peek() != std::ifstream::traits_type::eof()) content << in.rdbuf();
  if (!in.is_open() || in.bad() || content.bad()) {
    problems.Add(path, "cannot be read");
    return std::nullopt;
  }
  std::string text = content.str();
  // Some editors put one before the first line.
  if (text.starts_with(kByteOrderMark)) text.erase(0, kByteOrderMark.size());
  return text;
}

bool WriteFile(const std::string& path, const Bytes& bytes) {
  if (PosixDisk().Write(path, bytes) == DiskResult::kOk) return true;
  std::fprintf(stderr, "%s: cannot be written\n", path.c_str());
  return false;
}

std::vector<SourceLine> ReadSource(const std::string& path, Problems& problems) {
  std::vector<SourceLine> lines;
  const std::optional<std::string> text = ReadText(path, problems);
  if (!text) return lines;
  int number = 0;
  for (std::size_t start = 0; start < text->size();) {
    std::size_t end = text->find('\n', start);
    if (end == std::string::npos) end = text->size();
    SourceLine line{path, ++number, (*text)[start] == ' ', {}};
    if (!BytesFromUtf8(std::string_view(*text).substr(start, end - start), line.text)) {
      problems.Add(line, "a character that the instrument doesn't know");
    }
    start = end + 1;
    line.text = Bytes(Trim(line.text));
    if (!line.text.empty() && line.text[0] != '#') lines.push_back(line);
  }
  return lines;
}

std::vector<std::string_view> SplitAt(std::string_view text, char separator) {
  std::vector<std::string_view> pieces;
  if (Trim(text).empty()) return pieces;
  for (std::size_t start = 0;;) {
    const std::size_t end = text.find(separator, start);
    pieces.push_back(Trim(text.substr(start, end == std::string_view::npos ? end : end - start)));
    if (end == std::string_view::npos) return pieces;
    start = end + 1;
  }
}

std::string_view FirstWord(std::string_view text, std::string_view& rest) {
  text = Trim(text);
  const std::size_t end = text.find(' ');
  rest = end == std::string_view::npos ? std::string_view() : Trim(text.substr(end));
  return text.substr(0, end);
}

std::optional<int> NumberOf(std::string_view text) {
  if (!text.empty() && text[0] == '+') text.remove_prefix(1);
  int value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

std::optional<int> PlaceOf(std::string_view text) {
  if (text.size() != 2 || text[0] < '1' || text[0] > '8' || text[1] < '1' || text[1] > '8') return std::nullopt;
  return (text[0] - '1') * 8 + text[1] - '1';
}

}  // namespace zentaline::factory
