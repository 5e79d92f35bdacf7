#include "core/window_image.h"

#include <gtest/gtest.h>

#include "tests/format_bytes.h"

namespace zentaline {
namespace {

using namespace test;

TEST(WindowImage, ThePrefixIsTwentyZerosAndTwoHundredAndFiftyBlanks) {
  EXPECT_EQ(WindowPrefix(), Zeros(20) + Blanks(250));
}

TEST(WindowImage, ThePathStandsAt21OverBlanks) {
  Bytes image = WindowPrefix() + "file";
  PutWindowPath(image, "/a/long name");
  PutWindowPath(image, "/a/b c");
  EXPECT_EQ(image, Zeros(20) + Field("/a/b c", 250) + "file");
  EXPECT_EQ(WindowPath(image), "/a/b c");
  EXPECT_EQ(WindowBaseName(image), "b c");
}

TEST(WindowImage, APathOf238BytesFitsAndALongerOneIsCut) {
  Bytes image = WindowPrefix();
  PutWindowPath(image, std::string(300, 'p'));
  EXPECT_EQ(image, Zeros(20) + std::string(238, 'p') + Blanks(12));
  EXPECT_EQ(WindowPath(image), std::string(238, 'p'));
}

TEST(WindowImage, AnImageThatIsTooShortHasNoPath) {
  EXPECT_EQ(WindowPath(""), "");
  EXPECT_EQ(WindowPath(Zeros(20)), "");
  EXPECT_EQ(WindowBaseName(""), "");
}

TEST(WindowImage, DirectoryAndBaseNamePartAtTheLastSeparator) {
  EXPECT_EQ(FileDirectory("/a/b/c"), "/a/b");
  EXPECT_EQ(FileBaseName("/a/b/c"), "c");
  EXPECT_EQ(FileDirectory("/c"), "/");
  EXPECT_EQ(FileBaseName("/c"), "c");
  EXPECT_EQ(FileDirectory("c"), "");
  EXPECT_EQ(FileBaseName("c"), "c");
  EXPECT_EQ(FileBaseName("/a/"), "");
}

}  // namespace
}  // namespace zentaline
