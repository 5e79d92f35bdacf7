#include "tools/factory/multisamples.h"

#include "data/multisample.h"

namespace zentaline::factory {

Bytes MultisampleFile(const std::string& path, Problems& problems) {
  constexpr std::size_t prefix = 5;
  Bytes records;
  const std::optional<std::string> text = ReadText(path, problems);
  if (!text) return records;
  SourceLine line{path, 0, false, {}};
  int count = 0;
  for (std::size_t start = 0; start < text->size();) {
    std::size_t end = text->find('\n', start);
    if (end == std::string::npos) end = text->size();
    std::string_view piece = std::string_view(*text).substr(start, end - start);
    start = end + 1;
    ++line.number;
    if (piece.ends_with('\r')) piece.remove_suffix(1);
    if (piece.starts_with('#')) continue;
    Bytes name;
    if (!BytesFromUtf8(piece, name)) problems.Add(line, "a character that the instrument doesn't know");
    name = Bytes(TrimRight(name));
    if (name.size() > kMultisampleLength - prefix) problems.Add(line, "a name has at most 10 characters");
    for (int digit : {count / 100 % 10, count / 10 % 10, count % 10}) records += static_cast<char>('0' + digit);
    records += "  " + Padded(name, kMultisampleLength - prefix);
    ++count;
  }
  if (count != kMultisampleCount) {
    problems.Add(path,
                 "has " + std::to_string(count) + " names, and " + std::to_string(kMultisampleCount) + " are needed");
  }
  ScrambleMultisamples(records);
  return records;
}

}  // namespace zentaline::factory
