#include "midi/pack7.h"

#include <gtest/gtest.h>

#include "tests/format_bytes.h"
#include "tests/midi/unpack7.h"

namespace zentaline {
namespace {

using namespace test;

TEST(Pack7, NothingPacksToNothing) {
  EXPECT_EQ(Pack7(""), "");
}

TEST(Pack7, SevenBytesBecomeEightAndEightBecomeTen) {
  EXPECT_EQ(Pack7(Hand({1, 2, 3, 4, 5, 6, 7})), Hand({0, 1, 2, 3, 4, 5, 6, 7}));
  EXPECT_EQ(Pack7(Hand({1, 2, 3, 4, 5, 6, 7, 0x88})), Hand({0, 1, 2, 3, 4, 5, 6, 7, 1, 8}));
}

TEST(Pack7, TheTopBitOfByteKGoesToBitK) {
  for (std::size_t k = 0; k < 7; ++k) {
    for (const std::size_t behind : {std::size_t{0}, std::size_t{30}}) {
      std::string data = Zeros(7);
      Set(data, k + 1, 0x80);
      const std::string packed = Pack7(data + Zeros(behind));
      EXPECT_EQ(At(packed, 1), 1 << k) << "byte " << k << ", " << behind << " bytes behind";
      EXPECT_EQ(packed.substr(1, 7), Zeros(7));
    }
  }
}

TEST(Pack7, TheThirdByte80SetsBit2) {
  EXPECT_EQ(Pack7(Hand({0, 0, 0x80})), Hand({4, 0, 0, 0}));
}

TEST(Pack7, AllBitsSetGoOutAsSevenBits) {
  EXPECT_EQ(Pack7(std::string(14, '\xFF')), std::string(16, '\x7F'));
}

TEST(Pack7, EachLengthGivesItsLengthOnTheWireAndComesBackWhole) {
  std::mt19937 random(77);
  for (std::size_t length = 0; length <= 200; ++length) {
    const std::string data = RandomBytes(random, length);
    const Bytes packed = Pack7(data);
    ASSERT_EQ(packed.size(), length + length / 7 + (length % 7 != 0 ? 1 : 0)) << length;
    ASSERT_EQ(packed.size(), Packed7Length(length));
    ASSERT_TRUE(IsSevenBit(packed)) << length;
    ASSERT_EQ(Unpack7(packed), data) << length;
  }
}

TEST(Pack7, ALongStyleGroupComesBackWhole) {
  std::mt19937 random(78);
  const std::string data = RandomBytes(random, 65000);
  EXPECT_EQ(Unpack7(Pack7(data)), data);
}

TEST(Pack7, NoByteOutsideTheDataIsTaken) {
  std::mt19937 random(79);
  const std::string data = RandomBytes(random, 64);
  for (std::size_t length = 0; length <= 32; ++length) {
    const std::string exact = data.substr(9, length);
    EXPECT_EQ(Pack7(std::string_view(data).substr(9, length)), Pack7(exact)) << length;
  }
}

}  // namespace
}  // namespace zentaline
