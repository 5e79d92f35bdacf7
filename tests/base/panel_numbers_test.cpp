#include "base/panel_numbers.h"

#include <gtest/gtest.h>

#include <set>

namespace zentaline {
namespace {

TEST(PanelNumbers, TheRowsOfABankRunFrom11To88WithoutNineAndZero) {
  // As lists count: in hexadecimal from 11, seven further when the low digit reaches nine.
  int counter = 0x11;
  std::set<std::string> seen;
  for (int n = 0; n < 64; ++n) {
    char hexadecimal[9];
    std::snprintf(hexadecimal, sizeof hexadecimal, "%X", static_cast<unsigned>(counter));
    EXPECT_EQ(PanelNumberText(n), hexadecimal);
    EXPECT_EQ(PanelPlace(PanelNumber(n)), n);
    seen.insert(hexadecimal);
    ++counter;
    if (counter % 16 == 9) counter += 8;
  }
  EXPECT_EQ(seen.size(), 64U);
  EXPECT_EQ(*seen.begin(), "11");
  EXPECT_EQ(*seen.rbegin(), "88");
}

TEST(PanelNumbers, PlacesBehindTheBankGoOnInTheNextDecade) {
  EXPECT_EQ(PanelNumberText(64), "91");
  EXPECT_EQ(PanelNumberText(72), "101");
}

TEST(PanelNumbers, ADigitThatIsNot1To8IsNoPlace) {
  int places = 0;
  for (int number = -100; number < 1000; ++number) places += PanelPlace(number) >= 0 ? 1 : 0;
  EXPECT_EQ(places, 64);
  for (const int number : {0, 10, 19, 20, 81 + 8, 90, 91, 99, 111}) EXPECT_EQ(PanelPlace(number), -1) << number;
}

}  // namespace
}  // namespace zentaline
