#include "base/utf8.h"

#include <algorithm>

namespace zentaline {

Utf8Character Utf8CharacterAt(std::string_view text, std::size_t at) {
  if (at >= text.size()) return {};
  const auto lead = static_cast<unsigned char>(text[at]);
  if (lead < 0x80) return {lead, 1};
  const std::size_t length = lead < 0xC2 || lead > 0xF4 ? 0U : lead < 0xE0 ? 2U : lead < 0xF0 ? 3U : 4U;
  if (length == 0 || length > text.size() - at) return {};
  char32_t code = lead & (0xFFU >> (length + 1));
  for (std::size_t i = 1; i < length; ++i) {
    const char byte = text[at + i];
    if (!IsInsideCharacter(byte)) return {};
    code = code << 6 | (static_cast<unsigned char>(byte) & 0x3FU);
  }
  const bool overlong = (length == 3 && code < 0x800) || (length == 4 && code < 0x10000);
  const bool none = (code >= 0xD800 && code < 0xE000) || code > 0x10FFFF;
  return overlong || none ? Utf8Character() : Utf8Character{code, length};
}

bool IsUtf8(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length = Utf8CharacterAt(text, at).length;
    if (length == 0) return false;
    at += length;
  }
  return true;
}

std::size_t CountCharacters(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t at = 0; at < text.size(); ++count) {
    at += std::max<std::size_t>(1, Utf8CharacterAt(text, at).length);
  }
  return count;
}

}  // namespace zentaline
