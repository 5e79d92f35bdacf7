// Byte strings as the program moves them: file images, records, messages. One character is one byte.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zentaline {

using Bytes = std::string;

// Positions count from 1, offsets from 0. Reading past the end of an image gives zero bytes, writing past it changes
// nothing.

// The byte at `position`, 0 to 255; 0 outside the image.
inline int ByteAt(std::string_view image, std::size_t position) {
  return position >= 1 && position <= image.size() ? static_cast<unsigned char>(image[position - 1]) : 0;
}

// Writes the low eight bits of `value`.
inline void PutByte(Bytes& image, std::size_t position, int value) {
  if (position >= 1 && position <= image.size()) image[position - 1] = static_cast<char>(value);
}

// Exactly `length` bytes from `position` on; zero bytes stand for what lies outside the image.
Bytes Slice(std::string_view image, std::size_t position, std::size_t length);

// Overwrites the image from `position` on with as many of `bytes` as lie inside it; its length never changes.
void PutBytes(Bytes& image, std::size_t position, std::string_view bytes);

// 16-bit numbers, 0 to 65535.
int WordLowFirst(std::string_view image, std::size_t position);
int WordHighFirst(std::string_view image, std::size_t position);
void PutWordLowFirst(Bytes& image, std::size_t position, int value);
void PutWordHighFirst(Bytes& image, std::size_t position, int value);

// The text without the blanks at its end, or at both ends. Only the blank (32) counts.
std::string_view TrimRight(std::string_view text);
std::string_view Trim(std::string_view text);

// The text cut or padded with blanks to exactly `length` bytes.
Bytes Padded(std::string_view text, std::size_t length);

// ASCII case only; bytes above 127 stay as they are.
Bytes UpperCase(std::string_view text);
Bytes LowerCase(std::string_view text);

// Upper-case hexadecimal digits, two a byte, parted by blanks, without one at the end.
std::string HexText(std::string_view bytes);

// Names in data files are Windows-1252, texts of controls UTF-8. The five bytes that Windows-1252 leaves free become
// U+0081, U+008D, U+008F, U+0090 and U+009D, so that all 256 bytes come back unchanged.
std::string Utf8FromBytes(std::string_view bytes);
void AppendUtf8(std::string& text, std::string_view bytes);

// Reverses Utf8FromBytes. A character that has no byte, or text that is no UTF-8, gives false and leaves `bytes` as it
// is.
bool BytesFromUtf8(std::string_view text, Bytes& bytes);

}  // namespace zentaline
