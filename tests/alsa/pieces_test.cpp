// A long message in pieces, and how it ends when it is broken off; without a sequencer.
#include "midi/alsa/pieces.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zentaline {
namespace {

class Pieces : public testing::Test {
 protected:
  int Send(std::size_t length) {
    const std::string bytes = "\xF0" + std::string(length - 2, '\x11') + "\xF7";
    return SendPieces(bytes, pace,
                      {[this](std::string_view piece) {
                         written.emplace_back(piece);
                         return written.size() == failing ? failure : kMidiOk;
                       },
                       [this] { return written.size() >= stop_behind; },
                       {}});
  }

  Pace pace{0};  // as fast as can be
  std::vector<std::string> written;
  std::size_t failing = 0;  // the piece that the port doesn't take, from 1
  int failure = kMidiNotReady;
  std::size_t stop_behind = 1000;  // so many pieces
};

const std::string kEnd = "\xF7";

TEST_F(Pieces, AMessageThatIsTakenEndsWithItself) {
  EXPECT_EQ(Send(600), kMidiOk);
  ASSERT_EQ(written.size(), 3u);
  EXPECT_EQ(written[0].size(), 256u);
  EXPECT_EQ(written[2].size(), 88u);
  EXPECT_EQ(written[2].back(), '\xF7');
}

TEST_F(Pieces, AMessageThatIsBrokenOffIsClosed) {
  stop_behind = 2;
  EXPECT_EQ(Send(5000), kMidiError);
  ASSERT_EQ(written.size(), 3u);
  EXPECT_EQ(written[2], kEnd);
}

TEST_F(Pieces, AMessageThatHasNotBegunIsLeftOut) {
  stop_behind = 0;
  EXPECT_EQ(Send(5000), kMidiError);
  EXPECT_TRUE(written.empty());
}

TEST_F(Pieces, ATimeOutInTheMiddleIsClosedAndTold) {
  failing = 3;
  EXPECT_EQ(Send(5000), kMidiNotReady);
  ASSERT_EQ(written.size(), 4u);
  EXPECT_EQ(written[3], kEnd);
}

TEST_F(Pieces, APortThatDidNotTakeTheBeginningGetsNoEnd) {
  failing = 1;
  EXPECT_EQ(Send(5000), kMidiNotReady);
  EXPECT_EQ(written.size(), 1u);
}

TEST_F(Pieces, APortThatWentAwayGetsNothingMore) {
  failing = 2;
  failure = kMidiNoDevice;
  EXPECT_EQ(Send(5000), kMidiNoDevice);
  EXPECT_EQ(written.size(), 2u);
}

}  // namespace
}  // namespace zentaline
