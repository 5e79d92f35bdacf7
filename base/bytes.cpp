#include "base/bytes.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "base/utf8.h"

namespace zentaline {

Bytes Slice(std::string_view image, std::size_t position, std::size_t length) {
  Bytes slice(length, '\0');
  if (position < 1 || position > image.size()) return slice;
  const std::size_t count = std::min(length, image.size() - (position - 1));
  std::copy_n(image.data() + (position - 1), count, slice.data());
  return slice;
}

void PutBytes(Bytes& image, std::size_t position, std::string_view bytes) {
  if (position < 1 || position > image.size()) return;
  std::copy_n(bytes.data(), std::min(bytes.size(), image.size() - (position - 1)), image.data() + (position - 1));
}

int WordLowFirst(std::string_view image, std::size_t position) {
  return ByteAt(image, position) + 256 * ByteAt(image, position + 1);
}

int WordHighFirst(std::string_view image, std::size_t position) {
  return 256 * ByteAt(image, position) + ByteAt(image, position + 1);
}

void PutWordLowFirst(Bytes& image, std::size_t position, int value) {
  PutByte(image, position, value & 0xFF);
  PutByte(image, position + 1, (value >> 8) & 0xFF);
}

void PutWordHighFirst(Bytes& image, std::size_t position, int value) {
  PutByte(image, position, (value >> 8) & 0xFF);
  PutByte(image, position + 1, value & 0xFF);
}

std::string_view TrimRight(std::string_view text) {
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

std::string_view Trim(std::string_view text) {
  text = TrimRight(text);
  const std::size_t start = text.find_first_not_of(' ');
  return start == std::string_view::npos ? std::string_view() : text.substr(start);
}

Bytes Padded(std::string_view text, std::size_t length) {
  Bytes padded(text.substr(0, length));
  padded.resize(length, ' ');
  return padded;
}

Bytes UpperCase(std::string_view text) {
  Bytes upper(text);
  for (char& c : upper) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return upper;
}

Bytes LowerCase(std::string_view text) {
  Bytes lower(text);
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return lower;
}

std::string HexText(std::string_view bytes) {
  static constexpr char kDigits[] = "0123456789ABCDEF";
  if (bytes.empty()) return {};
  std::string text(bytes.size() * 3 - 1, ' ');
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const auto byte = static_cast<unsigned char>(bytes[i]);
    text[3 * i] = kDigits[byte >> 4];
    text[3 * i + 1] = kDigits[byte & 15];
  }
  return text;
}

namespace {

// What Windows-1252 holds at 0x80 to 0x9F; the rest of it is Latin-1.
constexpr std::array<std::uint16_t, 32> kUpperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

}  // namespace

std::string Utf8FromBytes(std::string_view bytes) {
  std::string text;
  AppendUtf8(text, bytes);
  return text;
}

void AppendUtf8(std::string& text, std::string_view bytes) {
  // Most names are plain ASCII, and come through as they are.
  const auto plain = std::find_if(bytes.begin(), bytes.end(), [](char c) { return (c & 0x80) != 0; });
  const auto ascii = static_cast<std::size_t>(plain - bytes.begin());
  text.append(bytes.substr(0, ascii));
  for (const char c : bytes.substr(ascii)) {
    const auto byte = static_cast<unsigned char>(c);
    const unsigned character = byte >= 0x80 && byte < 0xA0 ? kUpperControls[byte - 0x80] : byte;
    if (character < 0x80) {
      text += static_cast<char>(character);
    } else if (character < 0x800) {
      text += static_cast<char>(0xC0 | character >> 6);
      text += static_cast<char>(0x80 | (character & 0x3F));
    } else {
      text += static_cast<char>(0xE0 | character >> 12);
      text += static_cast<char>(0x80 | (character >> 6 & 0x3F));
      text += static_cast<char>(0x80 | (character & 0x3F));
    }
  }
}

bool BytesFromUtf8(std::string_view text, Bytes& bytes) {
  Bytes converted;
  converted.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const auto [character, length] = Utf8CharacterAt(text, at);
    if (length == 0) return false;
    at += length;
    if (character < 0x80 || (character >= 0xA0 && character < 0x100)) {
      converted += static_cast<char>(character);
      continue;
    }
    const auto* const found = std::find(kUpperControls.begin(), kUpperControls.end(), character);
    if (found == kUpperControls.end()) return false;
    converted += static_cast<char>(0x80 + (found - kUpperControls.begin()));
  }
  bytes = std::move(converted);
  return true;
}

}  // namespace zentaline
