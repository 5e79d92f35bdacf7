#include "base/bytes.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <limits>
#include <map>

namespace zentaline {
namespace {

constexpr std::size_t kFarAway = std::numeric_limits<std::size_t>::max();

// UTF-8 as its definition has it, also for surrogates and what lies behind the last character.
std::string Encode(std::uint32_t character) {
  const auto tail = [&](int shift) { return static_cast<char>(0x80 + ((character >> shift) % 64)); };
  if (character < 0x80) return {static_cast<char>(character)};
  if (character < 0x800) return {static_cast<char>(0xC0 + (character >> 6)), tail(0)};
  if (character < 0x10000) return {static_cast<char>(0xE0 + (character >> 12)), tail(6), tail(0)};
  return {static_cast<char>(0xF0 + (character >> 18)), tail(12), tail(6), tail(0)};
}

// Where Windows-1252 differs from Latin-1.
const std::map<int, std::uint32_t> kDifferent = {
    {0x80, 0x20AC}, {0x82, 0x201A}, {0x83, 0x0192}, {0x84, 0x201E}, {0x85, 0x2026}, {0x86, 0x2020}, {0x87, 0x2021},
    {0x88, 0x02C6}, {0x89, 0x2030}, {0x8A, 0x0160}, {0x8B, 0x2039}, {0x8C, 0x0152}, {0x8E, 0x017D}, {0x91, 0x2018},
    {0x92, 0x2019}, {0x93, 0x201C}, {0x94, 0x201D}, {0x95, 0x2022}, {0x96, 0x2013}, {0x97, 0x2014}, {0x98, 0x02DC},
    {0x99, 0x2122}, {0x9A, 0x0161}, {0x9B, 0x203A}, {0x9C, 0x0153}, {0x9E, 0x017E}, {0x9F, 0x0178}};

std::uint32_t CharacterOf(int byte) {
  const auto found = kDifferent.find(byte);
  return found == kDifferent.end() ? static_cast<std::uint32_t>(byte) : found->second;
}

TEST(BytesText, EachOfThe256BytesHasItsCharacterAndComesBack) {
  Bytes all;
  std::string expected;
  for (int byte = 0; byte < 256; ++byte) {
    all += static_cast<char>(byte);
    expected += Encode(CharacterOf(byte));
  }
  EXPECT_EQ(Utf8FromBytes(all), expected);
  Bytes back;
  ASSERT_TRUE(BytesFromUtf8(expected, back));
  EXPECT_EQ(back, all);
}

TEST(BytesText, OfAllCharactersExactlyThoseOfThe256BytesAreTaken) {
  std::map<std::uint32_t, int> byte_of;
  for (int byte = 0; byte < 256; ++byte) byte_of[CharacterOf(byte)] = byte;
  ASSERT_EQ(byte_of.size(), 256u);
  for (std::uint32_t character = 0; character <= 0x1FFFFF; ++character) {
    Bytes bytes = "before";
    const auto known = byte_of.find(character);
    ASSERT_EQ(BytesFromUtf8(Encode(character), bytes), known != byte_of.end()) << std::hex << character;
    if (known != byte_of.end()) {
      ASSERT_EQ(bytes, Bytes(1, static_cast<char>(known->second)));
    } else {
      ASSERT_EQ(bytes, "before");
    }
  }
}

TEST(BytesText, MalformedTextIsRefusedAndChangesNothing) {
  for (const std::string_view malformed : {"\x80",
                                           "\xBF",
                                           "\xC3",
                                           "\xC3\x28",
                                           "\xC0\x80",
                                           "\xC1\xBF",
                                           "\xE0\x80\x80",
                                           "\xE0\x83\xA0",
                                           "\xE2\x82",
                                           "\xE2\x28\xAC",
                                           "\xE2\x82\x28",
                                           "\xED\xA0\x80",
                                           "\xF0\x80\x80\x80",
                                           "\xF0\x82\x82\xAC",
                                           "\xF0\x9F\x98",
                                           "\xF5\x80\x80\x80",
                                           "\xF8\x88\x80\x80\x80",
                                           "\xFE",
                                           "\xFF",
                                           "\xC3\xC3\xA0",
                                           "\xEF\xBB\xBF"}) {
    Bytes bytes = "before";
    EXPECT_FALSE(BytesFromUtf8(malformed, bytes)) << HexText(malformed);
    EXPECT_FALSE(BytesFromUtf8("good" + std::string(malformed), bytes)) << HexText(malformed);
    EXPECT_FALSE(BytesFromUtf8(std::string(malformed) + "good", bytes)) << HexText(malformed);
    EXPECT_EQ(bytes, "before");
  }
}

TEST(BytesText, NothingIsAText) {
  Bytes bytes = "before";
  EXPECT_TRUE(BytesFromUtf8("", bytes));
  EXPECT_EQ(bytes, "");
  EXPECT_EQ(Utf8FromBytes(""), "");
}

TEST(BytesAccess, ReadingOutsideGivesZeroBytes) {
  const Bytes image = "\xFFyz";
  EXPECT_EQ(ByteAt(image, 1), 255);
  EXPECT_EQ(ByteAt(image, 3), 'z');
  for (const std::size_t outside : {std::size_t{0}, std::size_t{4}, kFarAway}) EXPECT_EQ(ByteAt(image, outside), 0);
  EXPECT_EQ(ByteAt("", 1), 0);
  EXPECT_EQ(Slice(image, 2, 2), "yz");
  EXPECT_EQ(Slice(image, 3, 3), Bytes("z\0\0", 3));
  EXPECT_EQ(Slice(image, 4, 2), Bytes(2, '\0'));
  EXPECT_EQ(Slice(image, 0, 2), Bytes(2, '\0'));
  EXPECT_EQ(Slice(image, kFarAway, 2), Bytes(2, '\0'));
  EXPECT_EQ(Slice(image, 1, 0), "");
}

TEST(BytesAccess, WritingOutsideChangesNothingAndNeverTheLength) {
  Bytes image = "abc";
  for (const std::size_t outside : {std::size_t{0}, std::size_t{4}, kFarAway}) {
    PutByte(image, outside, 'x');
    PutBytes(image, outside, "xy");
    EXPECT_EQ(image, "abc");
  }
  PutBytes(image, 3, "xyz");
  EXPECT_EQ(image, "abx");
  PutBytes(image, 1, "12");
  EXPECT_EQ(image, "12x");
  PutByte(image, 2, 0x141);
  EXPECT_EQ(image, "1Ax");
  PutByte(image, 2, -1);
  EXPECT_EQ(image, "1\xFFx");
}

TEST(BytesAccess, WordsHaveTheirBytesInOrder) {
  const Bytes image = "\x12\x34\xFF";
  EXPECT_EQ(WordLowFirst(image, 1), 0x3412);
  EXPECT_EQ(WordHighFirst(image, 1), 0x1234);
  EXPECT_EQ(WordLowFirst(image, 3), 0x00FF);
  EXPECT_EQ(WordHighFirst(image, 3), 0xFF00);
  EXPECT_EQ(WordLowFirst(image, kFarAway), 0);
  Bytes low(2, '\0');
  Bytes high(2, '\0');
  PutWordLowFirst(low, 1, 0x1A2B3);
  PutWordHighFirst(high, 1, 0x1A2B3);
  EXPECT_EQ(low, "\xB3\xA2");
  EXPECT_EQ(high, "\xA2\xB3");
}

TEST(BytesShape, TrimmingTakesBlanksAndNothingElse) {
  EXPECT_EQ(TrimRight("  a b  "), "  a b");
  EXPECT_EQ(Trim("  a b  "), "a b");
  EXPECT_EQ(TrimRight("   "), "");
  EXPECT_EQ(Trim("   "), "");
  EXPECT_EQ(Trim(""), "");
  EXPECT_EQ(TrimRight(std::string_view("a \0", 3)), std::string_view("a \0", 3));
  EXPECT_EQ(Trim("\ta\n"), "\ta\n");
  EXPECT_EQ(Trim("\xA0"), "\xA0");
}

TEST(BytesShape, PaddingCutsOrFillsToTheLength) {
  EXPECT_EQ(Padded("abc", 5), "abc  ");
  EXPECT_EQ(Padded("abc", 3), "abc");
  EXPECT_EQ(Padded("abc", 2), "ab");
  EXPECT_EQ(Padded("", 2), "  ");
  EXPECT_EQ(Padded("abc", 0), "");
}

TEST(BytesShape, CaseIsThatOfTheTwentySixLetters) {
  EXPECT_EQ(UpperCase("az@[`{\xE0\xFF"), "AZ@[`{\xE0\xFF");
  EXPECT_EQ(LowerCase("AZ@[`{\xC0\xDF"), "az@[`{\xC0\xDF");
}

TEST(BytesShape, HexTextHasTwoDigitsAByteAndNoBlankAtItsEnd) {
  EXPECT_EQ(HexText(""), "");
  EXPECT_EQ(HexText(std::string_view("\0", 1)), "00");
  EXPECT_EQ(HexText("\xF0\x42\x0A\xF7"), "F0 42 0A F7");
}

}  // namespace
}  // namespace zentaline
