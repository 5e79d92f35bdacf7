#include "data/choices.h"

#include <gtest/gtest.h>

#include <string>

#include "data/multisample.h"

namespace zentaline {
namespace {

TEST(Choices, EffectsCountFromTheBottom) {
  const auto stored = [](std::size_t n) { return kEffects[47 - n]; };
  EXPECT_EQ(stored(0), "No Effect");
  EXPECT_EQ(stored(1), "Hall");
  EXPECT_EQ(stored(13), "Stereo Delay");
  EXPECT_EQ(stored(19), "Chorus 1");
  EXPECT_EQ(stored(34), "Rotary Speaker");
  EXPECT_EQ(stored(47), "Delay/Rotary");
}

TEST(Choices, ListsKeepTheirOrder) {
  EXPECT_EQ(kKeyboardAssigns[3], "M. DRUMS");
  EXPECT_EQ(kKeyboardAssigns[10], "SPLIT 6");
  EXPECT_EQ(kFills[0], " OFF");
  EXPECT_EQ(kFills[7], " 1&4");
  EXPECT_EQ(kFills[12], " DOWN");
  EXPECT_EQ(kEnsembles[5], "Power Ens.");
  EXPECT_EQ(kEnsembles[9], "Reed Ens.");
  EXPECT_EQ(kWaveforms[4], "RANDOM");
  EXPECT_EQ(kPlacements[3], "PARALLEL 3");
}

// From 4B: bits 6 and 0 alike give A5, then not alike 52, then not alike 29, then not alike 14, then alike 8A.
TEST(Multisamples, ScrambleEachByteWithTheNextState) {
  std::string zeros(5, '\0');
  ScrambleMultisamples(zeros);
  EXPECT_EQ(zeros, "\xA5\x52\x29\x14\x8A");
}

TEST(Multisamples, BeginAnewInEachRecord) {
  std::string zeros(45, '\0');
  ScrambleMultisamples(zeros);
  EXPECT_EQ(zeros.substr(15, 15), zeros.substr(0, 15));
  EXPECT_EQ(zeros.substr(30, 15), zeros.substr(0, 15));
}

TEST(Multisamples, ScramblingTwiceGivesTheRecordsBack) {
  std::string records = "000  Grand     001  Upright   00";
  const std::string before = records;
  ScrambleMultisamples(records);
  EXPECT_NE(records, before);
  ScrambleMultisamples(records);
  EXPECT_EQ(records, before);
  std::string none;
  ScrambleMultisamples(none);
  EXPECT_EQ(none, "");
}

// A record that isn't whole would be taken for another's: "51" of "518".
TEST(Multisamples, ARecordThatIsMissingIsItsNumberAndBlanks) {
  std::string list = "000--Grand     002  Upright   00";
  ScrambleMultisamples(list);
  EXPECT_EQ(MultisampleRecord(list, 0), "000  Grand     ");
  EXPECT_EQ(MultisampleRecord(list, 1), "002  Upright   ") << "never renumbered";
  EXPECT_EQ(MultisampleRecord(list, 2), "002            ");
  EXPECT_EQ(MultisampleRecord("", 7), "007            ");
  EXPECT_EQ(MultisampleRecord("", 518), "518            ");
}

}  // namespace
}  // namespace zentaline
