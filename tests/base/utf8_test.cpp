#include "base/utf8.h"

#include <gtest/gtest.h>

#include <string>

#include "base/bytes.h"

namespace zentaline {
namespace {

TEST(Utf8, ACharacterHasItsCodeAndItsLength) {
  const std::string text = "a\xC3\xA8\xE2\x82\xAC\xF0\x9D\x84\x9E";
  struct Row {
    std::size_t at;
    char32_t code;
    std::size_t length;
  };
  for (const Row& row : {Row{0, U'a', 1}, Row{1, 0xE8, 2}, Row{3, 0x20AC, 3}, Row{6, 0x1D11E, 4}}) {
    EXPECT_EQ(Utf8CharacterAt(text, row.at).code, row.code) << row.at;
    EXPECT_EQ(Utf8CharacterAt(text, row.at).length, row.length) << row.at;
  }
  EXPECT_TRUE(IsUtf8(text));
}

TEST(Utf8, InsideACharacterAndBehindTheTextThereIsNone) {
  const std::string text = "\xC3\xA8";
  for (const std::size_t at : {std::size_t{1}, std::size_t{2}, std::string::npos}) {
    EXPECT_EQ(Utf8CharacterAt(text, at).length, 0U) << at;
  }
  EXPECT_FALSE(IsInsideCharacter(text[0]));
  EXPECT_TRUE(IsInsideCharacter(text[1]));
}

TEST(Utf8, TheEndsOfEachLengthAreCharacters) {
  for (const std::string_view text : {"\x7F", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xEE\x80\x80",
                                      "\xEF\xBF\xBF", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF", ""}) {
    EXPECT_TRUE(IsUtf8(text)) << HexText(text);
  }
}

TEST(Utf8, OverlongFormsSurrogatesAndWhatLiesBeyondUnicodeAreNoCharacters) {
  for (const std::string_view text :
       {"\xC1\xBF", "\xE0\x9F\xBF", "\xF0\x8F\xBF\xBF", "\xED\xA0\x80", "\xED\xBF\xBF", "\xF4\x90\x80\x80",
        "\xF5\x80\x80\x80", "\x80", "\xC3", "\xC3\x28", "\xE2\x82", "\xF0\x9D\x84"}) {
    EXPECT_FALSE(IsUtf8(text)) << HexText(text);
    EXPECT_EQ(Utf8CharacterAt(text, 0).length, 0U) << HexText(text);
  }
}

TEST(Utf8, CountsCharactersAndStrayBytes) {
  EXPECT_EQ(CountCharacters("a\xC3\xA8\xE2\x82\xAC\xF0\x9D\x84\x9E"), 4U);
  EXPECT_EQ(CountCharacters("\xFF\xC3"), 2U);
}

}  // namespace
}  // namespace zentaline
