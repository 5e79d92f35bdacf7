// What the tests of the formats share: bytes written by hand and images with a fixed seed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <random>
#include <string>
#include <string_view>

namespace zentaline::test {

inline std::string Hand(std::initializer_list<int> bytes) {
  std::string text;
  for (const int byte : bytes) text.push_back(static_cast<char>(byte));
  return text;
}

inline std::string Zeros(std::size_t count) {
  return std::string(count, '\0');
}
inline std::string Blanks(std::size_t count) {
  return std::string(count, ' ');
}

// Text padded with blanks by hand, so that the program's own padding isn't its own judge.
inline std::string Field(std::string text, std::size_t length) {
  while (text.size() < length) text += ' ';
  return text.substr(0, length);
}

// The byte at a position that counts from 1.
inline int At(std::string_view image, std::size_t position) {
  return static_cast<unsigned char>(image.at(position - 1));
}

inline void Set(std::string& image, std::size_t position, int value) {
  image.at(position - 1) = static_cast<char>(value);
}

inline std::string RandomBytes(std::mt19937& random, std::size_t count) {
  std::uniform_int_distribution<int> byte(0, 255);
  std::string bytes(count, '\0');
  for (char& c : bytes) c = static_cast<char>(byte(random));
  return bytes;
}

inline int RandomNumber(std::mt19937& random, int low, int high) {
  return std::uniform_int_distribution<int>(low, high)(random);
}

}  // namespace zentaline::test
