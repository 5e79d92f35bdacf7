// Texts in scripts and transcripts: UTF-8, quotes and their escapes.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zentaline::ui {

// The length in bytes of the character at offset `at`, 0 when no well-formed one stands there.
std::size_t Utf8CharacterLength(std::string_view text, std::size_t at);
bool IsUtf8(std::string_view text);
std::size_t CountCharacters(std::string_view text);

// In double quotes, with \" \\ \n, and \xHH for other control characters and for bytes that are no UTF-8.
std::string Quoted(std::string_view text);

}  // namespace zentaline::ui
