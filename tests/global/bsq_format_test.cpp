#include "global/bsq_format.h"

#include <gtest/gtest.h>

#include <random>

#include "tests/global/bsq_builder.h"

namespace zentaline::test {
namespace {

void ExpectCountsAsByHand(const std::string& file) {
  for (int n = 0; n < 10; ++n) {
    int sum = 0;
    for (int track = 1; track <= 17; ++track) {
      const int count = CountedByHand(file, n, track);
      ASSERT_EQ(BackSeqEvents(file, n, track), count) << "sequence " << n << " track " << track;
      sum += count;
    }
    ASSERT_EQ(BackSeqEventSum(file, n), sum) << "sequence " << n;
  }
}

TEST(BackSeqFile, NamesAreTheFirstTenBytesOfTheEntries) {
  std::string file = BsqFile();
  file.replace(16 + 198 * 3, 12, "ABCDEFGHIJKL");
  file.replace(16 + 198 * 9, 10, "End\0Behind", 10);
  EXPECT_EQ(BackSeqName(file, 0), "Song 0    ");
  EXPECT_EQ(BackSeqName(file, 3), "ABCDEFGHIJ");
  EXPECT_EQ(BackSeqName(file, 9), "End       ") << "a name ends at its first zero byte";
  EXPECT_EQ(BackSeqName("", 4), Blanks(10));
}

TEST(BackSeqFile, CountsTheEventsOfEachTrack) {
  BsqEvents events;
  events[0] = {1, 4, 5, 0, 0, 0, 0, 0, 16};
  events[4] = {0, 0, 0, 2, 0, 0, 0, 3};
  events[9] = {7, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 9};
  const std::string file = BsqFile(events);
  EXPECT_EQ(BackSeqEvents(file, 0, 1), 1);
  EXPECT_EQ(BackSeqEvents(file, 0, 2), 4) << "full to the end: four events for each block";
  EXPECT_EQ(BackSeqEvents(file, 0, 3), 5);
  EXPECT_EQ(BackSeqEvents(file, 0, 4), 0);
  EXPECT_EQ(BackSeqEvents(file, 0, 9), 16);
  EXPECT_EQ(BackSeqEvents(file, 9, 17), 9) << "the word behind the last table ends it";
  EXPECT_EQ(BackSeqEventSum(file, 0), 26);
  EXPECT_EQ(BackSeqEventSum(file, 4), 5) << "tracks that no label shows count too";
  EXPECT_EQ(BackSeqEventSum(file, 9), 16);
  EXPECT_EQ(BackSeqEventSum(file, 5), 0);
  ExpectCountsAsByHand(file);
}

TEST(BackSeqFile, EqualWordsAreNoEventsAndFallingOnesNeither) {
  std::string file = BsqFile({std::vector<int>{8, 8}});
  for (int track = 1; track <= 18; ++track) SetWord(file, WordPlace(0, track), 2);
  for (int track = 1; track <= 17; ++track) EXPECT_EQ(BackSeqEvents(file, 0, track), 0) << track;
  SetWord(file, WordPlace(0, 2), 1);
  EXPECT_EQ(BackSeqEvents(file, 0, 1), 0);
}

TEST(BackSeqFile, AGapInFrontOfAnEventCountsAndZeroBytesBehindTheLastDoNot) {
  std::string file = BsqFile({std::vector<int>{8}});
  file.replace(2338 + 4, 4, Zeros(4));
  EXPECT_EQ(BackSeqEvents(file, 0, 1), 8);
  file.replace(2338 + 28, 4, Zeros(4));
  EXPECT_EQ(BackSeqEvents(file, 0, 1), 7);
  file.replace(2338 + 24, 3, Zeros(3));
  EXPECT_EQ(BackSeqEvents(file, 0, 1), 7) << "one byte that isn't zero makes an event";
}

TEST(BackSeqFile, PositionsCountFromTheFirstWordOfTheFile) {
  BsqEvents events;
  events[0] = {3};
  events[2] = {1, 8};
  for (const int first_word : {0, 1, 300, 65000}) {
    const std::string file = BsqFile(events, first_word);
    EXPECT_EQ(TrackPosition(file, 0), 2339) << first_word;
    EXPECT_EQ(TrackPosition(file, 2), 2339 + 16) << first_word;
    EXPECT_EQ(TrackPosition(file, 9), 2339 + 16 * 4) << first_word;
    EXPECT_EQ(BackSeqEventSum(file, 2), 9) << first_word;
  }
}

// Words are never negative: one above 32767 lies far behind, not in front.
TEST(BackSeqFile, WordsHaveNoSign) {
  std::string file = BsqFile({std::vector<int>{4}});
  SetWord(file, WordPlace(0, 1), 0x7FFF);
  for (int track = 2; track <= 18; ++track) SetWord(file, WordPlace(0, track), 0x8000);
  EXPECT_EQ(BackSeqEvents(file, 0, 1), 4);
}

TEST(BackSeqFile, SlotsOutsideTheFileCountAsZero) {
  std::string file = BsqFile({std::vector<int>{6}});
  SetWord(file, WordPlace(0, 2), 65535);
  EXPECT_EQ(BackSeqEvents(file, 0, 1), 6) << "the track ends far behind the file";
  SetWord(file, WordPlace(1, 1), 60000);
  SetWord(file, WordPlace(1, 2), 60100);
  EXPECT_EQ(BackSeqEvents(file, 1, 1), 0) << "all of it lies behind the file";
  SetWord(file, WordPlace(0, 1), 1000);
  SetWord(file, WordPlace(1, 1), 0);
  SetWord(file, WordPlace(1, 2), 2);
  EXPECT_EQ(TrackPosition(file, 1), 2339 - 16000);
  EXPECT_EQ(BackSeqEvents(file, 1, 1), 0) << "all of it lies in front of the file";
  ExpectCountsAsByHand(file);
}

TEST(BackSeqFile, AnEventThatTheFileCutsCounts) {
  const std::string file = BsqFile({std::vector<int>{8}});
  EXPECT_EQ(BackSeqEvents(file.substr(0, 2338 + 29), 0, 1), 8);
  EXPECT_EQ(BackSeqEvents(file.substr(0, 2338 + 28), 0, 1), 7);
}

TEST(BackSeqFile, WordsThatPointAnywhereAreCountedInBounds) {
  std::mt19937 random(20);
  for (int round = 0; round < 40; ++round) {
    std::string file = BsqHeader() + RandomBytes(random, static_cast<std::size_t>(RandomNumber(random, 0, 6000)));
    // Half of them with many zero bytes, so that the walks are long.
    if (round % 2 == 0 && file.size() > 2400) file.replace(2400, file.size() - 2400, Zeros(file.size() - 2400));
    ExpectCountsAsByHand(file);
  }
}

TEST(BackSeqFile, IsReadAtEveryLength) {
  const std::string whole = BsqFile({std::vector<int>{5, 3}, std::vector<int>{2}});
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    std::string file = whole.substr(0, length);
    const std::string before = file;
    ASSERT_EQ(TakeBackSeqFile(file), length >= 7) << length;
    ASSERT_EQ(file, before) << length;
    if (length % 61 == 0) ExpectCountsAsByHand(file);
    ASSERT_EQ(BuildBackSeqImage(file).size(), 270 + length);
    ASSERT_EQ(BackSeqFileIn(BuildBackSeqImage(file)), file);
  }
}

TEST(BackSeqFile, TheSixthByteDoesNotCountAndBecomesZero) {
  for (int byte = 0; byte < 256; ++byte) {
    std::string file = BsqFile();
    Set(file, 6, byte);
    EXPECT_TRUE(TakeBackSeqFile(file)) << byte;
    EXPECT_EQ(file, BsqFile()) << byte;
  }
}

TEST(BackSeqFile, AnyOtherSignatureIsRefusedAndNothingIsChanged) {
  for (const std::size_t position : {1u, 2u, 3u, 4u, 5u, 7u}) {
    std::string file = BsqFile();
    Set(file, 6, 9);
    Set(file, position, At(file, position) ^ 1);
    const std::string before = file;
    EXPECT_FALSE(TakeBackSeqFile(file)) << position;
    EXPECT_EQ(file, before);
  }
}

TEST(BackSeqFile, WhatLiesBehindThreeRecordsIsZero) {
  std::string start = BsqHeader();
  for (const std::size_t length : {96599u, 96600u, 96601u, 130000u}) {
    std::string file = start + std::string(length - start.size(), 'x');
    EXPECT_TRUE(TakeBackSeqFile(file));
    const std::size_t read = std::min<std::size_t>(length, 96600);
    EXPECT_EQ(file, start + std::string(read - start.size(), 'x') + Zeros(length - read)) << length;
  }
}

}  // namespace
}  // namespace zentaline::test
