#include "ui/script/text.h"

#include <algorithm>
#include <cstdint>

#include "core/bytes.h"

namespace zentaline::ui {

namespace {

bool IsControl(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte < 0x20 || byte == 0x7F;
}

}  // namespace

std::size_t Utf8CharacterLength(std::string_view text, std::size_t at) {
  if (at >= text.size()) return 0;
  const auto lead = static_cast<unsigned char>(text[at]);
  if (lead < 0x80) return 1;
  const std::size_t length = lead < 0xC2 || lead > 0xF4 ? 0U : lead < 0xE0 ? 2U : lead < 0xF0 ? 3U : 4U;
  if (length == 0 || length > text.size() - at) return 0;
  std::uint32_t character = lead & (0xFFU >> (length + 1));
  for (std::size_t i = 1; i < length; ++i) {
    const auto byte = static_cast<unsigned char>(text[at + i]);
    if ((byte & 0xC0) != 0x80) return 0;
    character = character << 6 | (byte & 0x3FU);
  }
  const bool too_long_a_form = (length == 3 && character < 0x800) || (length == 4 && character < 0x10000);
  const bool none = (character >= 0xD800 && character < 0xE000) || character > 0x10FFFF;
  return too_long_a_form || none ? 0 : length;
}

bool IsUtf8(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length = Utf8CharacterLength(text, at);
    if (length == 0) return false;
    at += length;
  }
  return true;
}

std::size_t CountCharacters(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t at = 0; at < text.size(); ++count) at += std::max<std::size_t>(1, Utf8CharacterLength(text, at));
  return count;
}

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length = Utf8CharacterLength(text, at);
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
