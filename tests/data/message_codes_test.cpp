#include "data/message_codes.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>

#include "data/texts.h"

namespace zentaline {
namespace {

TEST(MessageCodes, EveryCodeShowsItsText) {
  const std::pair<int, std::string_view> expected[] = {
      {0, "generic error"},
      {1, "_"},
      {2, "_ error"},
      {3, "Not more than 4 styles per file are allowed"},
      {4, "Error reading _"},
      {5, "File _ not found"},
      {6, "File i40DBArrnot found"},
      {7, "File i40DBArrdata error"},
      {8, "File Arrangement not found"},
      {9, "File i40DBArrempty"},
      {10, "MIDI input device not found"},
      {12, "Close before all other applications"},
      {13, "Processing file sty i30"},
      {14, "File i40ArrA not found"},
      {15, "File i40ArrB not found"},
      {16, "File already open"},
      {17, "Read only file"},
      {18, "Disk reading error"},
      {19, "Disk full"},
      {20, "Output MIDI Device already in use"},
      {21, "Error opening MIDI input device"},
      {22, "Output MIDI Device not found"},
      {23, "Error closing Output MIDI Device"},
      {24, "The change will take place next time you will run the programme"},
      {25, "Reading Error"},
      {26, "Reading "},
      {27, "File not found"},
      {28, "Disk not ready or not formatted"},
      {29, "Disk writing error"},
      {30, "Path not found"},
      {31, "Error I/O device"},
      {32, "Data format error"},
      {33, "MIDI input device not found"},
      {34, "Error Opening the MIDI Input Device"},
      {35, "The MIDI Device will not be used"},
      {36, "The lenght of a 4 Styles group must be less than 65496 bytes"},
      {38, "Input MIDI Device already in use"},
  };
  for (const auto& [code, text] : expected) EXPECT_EQ(TextOf(MessageTextId(code) + 200), text) << code;
}

TEST(MessageCodes, CodesNotInUseGiveZero) {
  for (int code : {-1, 11, 37, 39, 1000}) EXPECT_EQ(MessageTextId(code), 0) << code;
}

TEST(MessageCodes, EveryWaitCodeShowsItsText) {
  const std::pair<int, std::string_view> expected[] = {
      {1, "Processing File Style"}, {2, "Loading Style"},      {3, "Loading Arrangement"},
      {4, "Loading Program"},       {5, "Loading Back. Seq."}, {6, "Opening _"},
      {7, "Processing _"},          {8, "Update _"},           {9, "Processing file sty i30"},
  };
  for (const auto& [code, text] : expected) EXPECT_EQ(TextOf(WaitTextId(code) + 200), text) << code;
  for (int code : {-1, 0, 10}) EXPECT_EQ(WaitTextId(code), 0) << code;
}

std::string Joined(QuestionTexts texts) {
  std::string text(TextOf(texts.first + 200));
  if (texts.second != 0) text.append("\n").append(TextOf(texts.second + 200));
  return text;
}

TEST(MessageCodes, QuestionsWithYesAndNo) {
  EXPECT_EQ(YesNoTexts(0).first, 0);
  EXPECT_EQ(YesNoTexts(0).second, 0);
  EXPECT_EQ(Joined(YesNoTexts(1)), "The file has changed\nKeep changes ?");
  EXPECT_EQ(Joined(YesNoTexts(2)), "The Arrangement has changed.\nKeep changes ?");
  EXPECT_EQ(Joined(YesNoTexts(3)), "Choose the directory of the opened file as working directory of i40DBArr?");
  EXPECT_EQ(Joined(YesNoTexts(4)), "The Program has changed.\nKeep changes ?");
  EXPECT_EQ(YesNoTexts(5).first, 0);
  EXPECT_EQ(YesNoTexts(-1).first, 0);
}

TEST(MessageCodes, QuestionsWithYesNoAndCancel) {
  EXPECT_EQ(YesNoCancelTexts(0).first, 0);
  EXPECT_EQ(YesNoCancelTexts(0).second, 0);
  EXPECT_EQ(Joined(YesNoCancelTexts(1)), "The file has changed\nSave changes ?");
  EXPECT_EQ(Joined(YesNoCancelTexts(2)), "The Arrangement has changed.\nSave changes ?");
  EXPECT_EQ(Joined(YesNoCancelTexts(3)), "The Program has changed.\nSave changes ?");
  EXPECT_EQ(YesNoCancelTexts(4).first, 0);
}

}  // namespace
}  // namespace zentaline
