#include "ui/script/line.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "ui/script/arguments.h"
#include "ui/script/text.h"

namespace zentaline::ui {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> WordsOf(std::string_view line) {
  const ScriptLine parsed = ParseScriptLine(line);
  EXPECT_EQ(parsed.error, "") << line;
  std::vector<std::string> words;
  for (const ScriptWord& word : parsed.words) words.push_back(word.text);
  return words;
}

TEST(ScriptLine, IsPartedAtBlanksAndTabs) {
  EXPECT_THAT(WordsOf("  press\tfrmMain.X  2 "), ElementsAre("press", "frmMain.X", "2"));
}

TEST(ScriptLine, ABlankLineAndACommentHaveNoWords) {
  EXPECT_THAT(WordsOf(""), IsEmpty());
  EXPECT_THAT(WordsOf(" \t "), IsEmpty());
  EXPECT_THAT(WordsOf("# press \"x"), IsEmpty());
  EXPECT_THAT(WordsOf("\r"), IsEmpty());
}

TEST(ScriptLine, ACommentBeginsOnlyAtTheStartOfAWord) {
  EXPECT_THAT(WordsOf("type a#b c # rest"), ElementsAre("type", "a#b", "c"));
  EXPECT_THAT(WordsOf("type \"#x\" #\"y"), ElementsAre("type", "#x"));
}

TEST(ScriptLine, QuotesHoldBlanksAndEscapes) {
  EXPECT_THAT(WordsOf(R"(type x "a b  \"c\" \\ \n \x41\xe9")"), ElementsAre("type", "x", "a b  \"c\" \\ \n A\xE9"));
  EXPECT_THAT(WordsOf(R"(outs "" "Port A")"), ElementsAre("outs", "", "Port A"));
}

TEST(ScriptLine, ABackslashOutsideQuotesStandsForItself) {
  EXPECT_THAT(WordsOf(R"(file a\n\x)"), ElementsAre("file", R"(a\n\x)"));
}

TEST(ScriptLine, TellsQuotedWordsFromPlainOnes) {
  const ScriptLine parsed = ParseScriptLine("file \"cancel\" cancel");
  ASSERT_EQ(parsed.words.size(), 3U);
  EXPECT_TRUE(parsed.words[1].quoted);
  EXPECT_FALSE(parsed.words[2].quoted);
}

TEST(ScriptLine, ZeroEscapeGivesAZeroByte) {
  EXPECT_THAT(WordsOf(R"("a\x00b")"), ElementsAre(std::string("a\0b", 3)));
}

TEST(ScriptLine, MalformedLinesAreErrors) {
  for (const std::string_view line :
       {"type \"abc", "type \"abc\\\"", "type \"a\"b", "type a\"b", R"("\q")", R"("\x4")", R"("\x4G")", R"("\x)",
        R"("\)", "\"", "type \xFF", "type \xC3", "\xED\xA0\x80", "\xC0\x80", "\xF5\x80\x80\x80"}) {
    const ScriptLine parsed = ParseScriptLine(line);
    EXPECT_NE(parsed.error, "") << line;
    EXPECT_THAT(parsed.words, IsEmpty()) << line;
  }
  EXPECT_NE(ParseScriptLine(std::string_view("a\0b", 3)).error, "");
}

TEST(ScriptLine, TakesLongLinesUpToItsLimit) {
  const std::string longest = "type " + std::string(kLongestScriptLine - 5, 'x');
  EXPECT_EQ(WordsOf(longest)[1].size(), kLongestScriptLine - 5);
  EXPECT_NE(ParseScriptLine(longest + 'x').error, "");
}

TEST(ScriptLine, RandomBytesGiveWordsOrAnError) {
  std::mt19937 random(20040311);
  const std::string_view letters = "a \t\"\\nx4#\r\xC3\xA9\xFF(.)\0";
  for (int round = 0; round < 20000; ++round) {
    std::string line;
    for (std::size_t length = random() % 24; length > 0; --length) {
      line += round % 2 == 0 ? letters[random() % letters.size()] : static_cast<char>(random());
    }
    const ScriptLine parsed = ParseScriptLine(line);
    EXPECT_TRUE(parsed.error.empty() || parsed.words.empty());
    for (const ScriptWord& word : parsed.words) EXPECT_TRUE(word.quoted || !word.text.empty());
  }
}

TEST(Quoted, ReadsBackAsTheSameText) {
  std::mt19937 random(1);
  for (int round = 0; round < 5000; ++round) {
    std::string text;
    for (std::size_t length = random() % 12; length > 0; --length) text += static_cast<char>(random());
    const ScriptLine parsed = ParseScriptLine(Quoted(text));
    ASSERT_EQ(parsed.words.size(), 1U) << Quoted(text) << parsed.error;
    EXPECT_EQ(parsed.words[0].text, text);
  }
}

TEST(Quoted, KeepsCharactersAndEscapesControls) {
  EXPECT_EQ(Quoted("\xC3\xA8 \"q\" \\ \n\t\r\x7F \xE8"), "\"\xC3\xA8 \\\"q\\\" \\\\ \\n\\x09\\x0D\\x7F \\xE8\"");
}

TEST(ScriptNumber, TakesWholeNumbersOnly) {
  EXPECT_EQ(ScriptNumber("0"), 0);
  EXPECT_EQ(ScriptNumber("-12"), -12);
  EXPECT_EQ(ScriptNumber("99999999999999999999"), 2147483647);
  EXPECT_EQ(ScriptNumber("-99999999999999999999"), -2147483647 - 1);
  for (const std::string_view text : {"", "-", "+1", " 1", "1 ", "1.0", "0x1", "x", "--1"}) {
    EXPECT_FALSE(ScriptNumber(text)) << text;
  }
}

TEST(ScriptKey, IsANameOrOneCharacter) {
  EXPECT_EQ(ScriptKey("Delete"), (Key{Key::kDelete, {}}));
  EXPECT_EQ(ScriptKey("PageDown"), (Key{Key::kPageDown, {}}));
  EXPECT_EQ(ScriptKey("Left"), (Key{Key::kLeft, {}}));
  EXPECT_EQ(ScriptKey("Right"), (Key{Key::kRight, {}}));
  EXPECT_EQ(ScriptKey(" "), (Key{Key::kSpace, {}}));
  EXPECT_EQ(ScriptKey("\xC3\xA8"), (Key{Key::kCharacter, "\xC3\xA8"}));
  EXPECT_FALSE(ScriptKey(""));
  EXPECT_FALSE(ScriptKey("delete"));
  EXPECT_FALSE(ScriptKey("ab"));
  EXPECT_FALSE(ScriptKey("\xC3"));
}

}  // namespace
}  // namespace zentaline::ui
