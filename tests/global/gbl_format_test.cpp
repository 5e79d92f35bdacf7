#include "global/gbl_format.h"

#include <gtest/gtest.h>

#include "tests/format_bytes.h"

namespace zentaline::test {
namespace {

std::string Gbl() {
  std::string file = "KORG" + Hand({0x4D, 0, 6, 1});
  for (int i = 9; i <= 448; ++i) file.push_back(static_cast<char>(i));
  return file;
}

TEST(GlobalFile, IsOf448BytesAndNoOther) {
  const std::string file = Gbl();
  EXPECT_EQ(CheckGlobalFile(file), 0);
  EXPECT_EQ(CheckGlobalFile(""), 3);
  for (std::size_t length = 1; length < 448; ++length) ASSERT_EQ(CheckGlobalFile(file.substr(0, length)), 2) << length;
  EXPECT_EQ(CheckGlobalFile(file + "x"), 2);
  EXPECT_EQ(CheckGlobalFile(file + file), 2);
}

TEST(GlobalFile, HasASignatureOfEightBytes) {
  for (std::size_t position = 1; position <= 8; ++position) {
    std::string file = Gbl();
    Set(file, position, At(file, position) ^ 1);
    EXPECT_EQ(CheckGlobalFile(file), 2) << position;
  }
  std::string file = Gbl();
  Set(file, 9, 0);
  EXPECT_EQ(CheckGlobalFile(file), 0);
}

TEST(GlobalFile, StandsInTheImageFromPosition271On) {
  const std::string image = BuildGlobalImage(Gbl());
  EXPECT_EQ(image, Zeros(20) + Blanks(250) + Gbl());
  EXPECT_EQ(GlobalFileBytes(image), Gbl());
  EXPECT_EQ(BuildGlobalImage("").size(), 718u);
  EXPECT_EQ(GlobalFileBytes("").size(), 448u);
}

}  // namespace
}  // namespace zentaline::test
