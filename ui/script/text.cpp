#include "ui/script/text.h"

#include <algorithm>

#include "base/bytes.h"
#include "base/utf8.h"

namespace zentaline::ui {

namespace {

bool IsControl(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte < 0x20 || byte == 0x7F;
}

}  // namespace

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length = Utf8CharacterAt(text, at).length;
    const char c = text[at];
    if (c == '"' || c == '\\') {
      quoted += '\\';
      quoted += c;
    } else if (c == '\n') {
      quoted += "\\n";
    } else if (length == 0 || IsControl(c)) {
      quoted += "\\x" + HexText(text.substr(at, 1));
    } else {
      quoted += text.substr(at, length);
    }
    at += std::max<std::size_t>(1, length);
  }
  return quoted + '"';
}

}  // namespace zentaline::ui
