#include "ui/console/lines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <unistd.h>

#include <thread>

namespace zentaline::ui {
namespace {

using testing::ElementsAre;

class Pipe {
 public:
  Pipe() { EXPECT_EQ(::pipe(ends_), 0); }
  ~Pipe() {
    ::close(ends_[0]);
    CloseIn();
  }
  int out() const { return ends_[0]; }
  int in() const { return ends_[1]; }
  void Write(const std::string& text) {
    EXPECT_EQ(::write(ends_[1], text.data(), text.size()), static_cast<ssize_t>(text.size()));
  }
  void CloseIn() {
    if (ends_[1] >= 0) ::close(ends_[1]);
    ends_[1] = -1;
  }

 private:
  int ends_[2] = {-1, -1};
};

std::vector<std::string> AllLines(LineReader& reader) {
  std::vector<std::string> lines;
  std::string line;
  while (reader.Read(line, {})) lines.push_back(line);
  return lines;
}

TEST(LineReader, GivesEveryLineAndALastOneWithoutItsEnd) {
  Pipe pipe;
  pipe.Write("one\n\ntwo words\nlast");
  pipe.CloseIn();
  LineReader reader(pipe.out(), 100);
  EXPECT_THAT(AllLines(reader), ElementsAre("one", "", "two words", "last"));
}

TEST(LineReader, GivesNothingForNoInput) {
  Pipe pipe;
  pipe.CloseIn();
  LineReader reader(pipe.out(), 100);
  std::string line;
  EXPECT_FALSE(reader.Read(line, {}));
  EXPECT_FALSE(reader.Read(line, {}));
}

TEST(LineReader, CutsALineThatIsTooLongAndGoesOnBehindIt) {
  Pipe pipe;
  std::thread writer([&pipe] {
    for (int i = 0; i < 100; ++i) pipe.Write(std::string(10000, 'x'));
    pipe.Write("\nnext\n");
    pipe.CloseIn();
  });
  LineReader reader(pipe.out(), 50);
  const auto lines = AllLines(reader);
  writer.join();
  EXPECT_THAT(lines, ElementsAre(std::string(51, 'x'), "next"));
}

TEST(LineReader, DoesNotWaitForTheEndOfALineThatIsTooLong) {
  Pipe pipe;
  pipe.Write(std::string(51, 'x'));
  LineReader reader(pipe.out(), 50);
  std::string line;
  int waits = 0;
  const auto waiting = [&] {
    if (++waits > 2) pipe.CloseIn();
    return true;
  };
  ASSERT_TRUE(reader.Read(line, {}, {-1, waiting}));
  EXPECT_EQ(line, std::string(51, 'x'));
  // Once before it has looked at what there is, and once behind it.
  ASSERT_EQ(waits, 2) << "it waited for more than the 51 bytes that were there";
  pipe.Write("yy\nnext");
  pipe.CloseIn();
  EXPECT_THAT(AllLines(reader), ElementsAre("next"));
}

TEST(LineReader, TakesALineOfExactlyTheLongestLengthWhole) {
  Pipe pipe;
  pipe.Write(std::string(50, 'x') + "\n" + std::string(51, 'y') + "\n" + std::string(51, 'z'));
  pipe.CloseIn();
  LineReader reader(pipe.out(), 50);
  EXPECT_THAT(AllLines(reader), ElementsAre(std::string(50, 'x'), std::string(51, 'y'), std::string(51, 'z')));
}

TEST(LineReader, CallsTheIdlerWhileItWaitsAndLooksBeforeItBlocks) {
  Pipe pipe;
  LineReader reader(pipe.out(), 100);
  std::string line;
  int idled = 0;
  int blocked = 0;
  const auto idle = [&] {
    if (++idled == 3) pipe.Write("now\n");
    return 1;
  };
  const auto look = [&] {
    ++blocked;
    return true;
  };
  EXPECT_TRUE(reader.Read(line, idle, {-1, look}));
  EXPECT_EQ(line, "now");
  EXPECT_GE(idled, 3);
  EXPECT_GE(blocked, 3);
}

TEST(LineReader, AnIdlerMayReadLinesItself) {
  Pipe pipe;
  pipe.Write("for the idler\nfor the reader\n");
  LineReader reader(pipe.out(), 100);
  std::string line;
  std::string inner;
  bool once = false;
  const auto idle = [&] {
    if (!std::exchange(once, true)) {
      EXPECT_TRUE(reader.Read(inner, {}));
    }
    return -1;
  };
  EXPECT_TRUE(reader.Read(line, idle));
  EXPECT_EQ(inner, "for the idler");
  EXPECT_EQ(line, "for the reader");
}

TEST(LineWriter, WritesEachLineAtOnce) {
  Pipe pipe;
  LineWriter writer(pipe.in());
  LineReader reader(pipe.out(), 100);
  std::string line;
  writer.Write("a");
  EXPECT_TRUE(reader.Read(line, {}));
  EXPECT_EQ(line, "a");
  writer.Write("b c");
  EXPECT_TRUE(reader.Read(line, {}));
  EXPECT_EQ(line, "b c");
}

TEST(LineReader, AnotherDescriptorEndsTheWait) {
  Pipe pipe;
  Pipe other;
  bool come = false;
  LineReader reader(pipe.out(), 100);
  std::thread later([&] { other.Write("x"); });
  std::string line = "untouched";
  const auto look = [&] {
    pollfd waits = {other.out(), POLLIN, 0};
    come = ::poll(&waits, 1, 0) > 0;
    return !come;
  };
  EXPECT_FALSE(reader.Read(line, {}, {other.out(), look}));
  EXPECT_TRUE(come);
  EXPECT_EQ(line, "untouched");
  later.join();
}

}  // namespace
}  // namespace zentaline::ui
