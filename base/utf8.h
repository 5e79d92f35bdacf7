// Texts in UTF-8, strictly: neither overlong forms nor surrogates are characters.
#pragma once

#include <cstddef>
#include <string_view>

namespace zentaline {

struct Utf8Character {
  char32_t code = 0;
  std::size_t length = 0;  // in bytes, 1 to 4; 0 when no well-formed character stands there
};

// The character at offset `at`.
Utf8Character Utf8CharacterAt(std::string_view text, std::size_t at);

bool IsUtf8(std::string_view text);

// A byte that belongs to no character counts as one.
std::size_t CountCharacters(std::string_view text);

// True for a byte that goes on with a character: well-formed text must not be cut before it.
inline bool IsInsideCharacter(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

}  // namespace zentaline
