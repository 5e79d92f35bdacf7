#include "data/names.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace zentaline {
namespace {

constexpr std::string_view kBlanks = "                ";

std::string Cell(std::string name) {
  name.resize(16, ' ');
  return name;
}

TEST(Names, BanksKeepTheLayoutOfOneStringEach) {
  for (int bank = 0; bank < 5; ++bank) {
    ASSERT_EQ(ProgramNames(bank).size(), 1024u) << bank;
    for (int n = 0; n < 64; ++n) EXPECT_EQ(ProgramNames(bank).substr(16 * n, 16), ProgramName(bank, n));
  }
  ASSERT_EQ(DrumKitNames().size(), 256u);
  for (int n = 0; n < 16; ++n) EXPECT_EQ(DrumKitNames().substr(16 * n, 16), DrumKitName(n));
}

TEST(Names, FirstAndLastOfEachBank) {
  EXPECT_EQ(ProgramName(0, 0), Cell("Piano 1"));
  EXPECT_EQ(ProgramName(0, 63), Cell("Syn.Brass2"));
  EXPECT_EQ(ProgramName(1, 0), Cell("SopranoSax"));
  EXPECT_EQ(ProgramName(1, 63), Cell("Gun Shot"));
  EXPECT_EQ(ProgramName(2, 0), Cell("90's Piano"));
  EXPECT_EQ(ProgramName(2, 63), Cell("Stz<Brass"));
  EXPECT_EQ(ProgramName(3, 0), Cell("AltoBreath"));
  EXPECT_EQ(ProgramName(3, 63), Cell("Explosion"));
  EXPECT_EQ(ProgramName(4, 0), Cell("Piano&Strgs"));
  EXPECT_EQ(ProgramName(4, 63), Cell("Brass Fall"));
}

TEST(Names, ProgramsFromTheMiddleStandWhereThePanelHasThem) {
  EXPECT_EQ(ProgramName(0, 33), Cell("Fingered Bs."));
  EXPECT_EQ(ProgramName(0, 55), Cell("OrchestraHit"));
  EXPECT_EQ(ProgramName(1, 8), Cell("Piccolo"));
  EXPECT_EQ(ProgramName(1, 40), Cell("Sitar"));
  EXPECT_EQ(ProgramName(2, 21), Cell("Fr.Musette"));
  EXPECT_EQ(ProgramName(2, 32), Cell("Upright"));
  EXPECT_EQ(ProgramName(3, 6), Cell("Small^Orch"));
  EXPECT_EQ(ProgramName(3, 62), Cell("Stadium!!"));
  EXPECT_EQ(ProgramName(4, 9), Cell("70' Organ"));
  EXPECT_EQ(ProgramName(4, 40), Cell("i3 Strings"));
}

TEST(Names, DrumKits) {
  EXPECT_EQ(DrumKitName(0), Cell("GM Kit 1"));
  EXPECT_EQ(DrumKitName(8), Cell("Brush Kit"));
  EXPECT_EQ(DrumKitName(11), "Latin Perc. Kit ");
  EXPECT_EQ(DrumKitName(13), Cell("SFX Kit"));
  EXPECT_EQ(DrumKitName(14), Cell("(User 1)"));
  EXPECT_EQ(DrumKitName(15), Cell("(User 2)"));
}

TEST(Names, Styles) {
  EXPECT_EQ(StyleName(0), Cell("8 Beat 1"));
  EXPECT_EQ(StyleName(61), Cell("Tikytikit\xE0"));
  EXPECT_EQ(StyleName(63), Cell("Disco Samba"));
  EXPECT_EQ(StyleName(64), Cell("I. Waltz"));
  EXPECT_EQ(StyleName(87), Cell("5/4 Swing"));
  EXPECT_EQ(StyleName(103), Cell("Rhythm&Funk"));
  EXPECT_EQ(StyleName(127), Cell("New Age"));
}

TEST(Names, EveryNameIsSixteenBytesAndSaysSomething) {
  for (int bank = 0; bank < 5; ++bank) {
    for (int n = 0; n < 64; ++n) {
      EXPECT_EQ(ProgramName(bank, n).size(), 16u);
      EXPECT_NE(ProgramName(bank, n)[0], ' ') << bank << " " << n;
    }
  }
  for (int n = 0; n < 16; ++n) {
    EXPECT_EQ(DrumKitName(n).size(), 16u);
    EXPECT_NE(DrumKitName(n)[0], ' ');
  }
  for (int n = 0; n < 128; ++n) {
    EXPECT_EQ(StyleName(n).size(), 16u);
    EXPECT_NE(StyleName(n)[0], ' ');
  }
}

TEST(Names, OnlyOneStyleNeedsMoreThanPlainLetters) {
  std::set<int> found;
  for (int n = 0; n < 128; ++n) {
    for (char c : StyleName(n)) {
      if (static_cast<unsigned char>(c) > 126) found.insert(n);
    }
  }
  EXPECT_EQ(found, std::set<int>{61});
}

TEST(Names, NumbersOutsideTheirRangeGiveBlanks) {
  EXPECT_EQ(ProgramName(-1, 0), kBlanks);
  EXPECT_EQ(ProgramName(5, 0), kBlanks);
  EXPECT_EQ(ProgramName(0, -1), kBlanks);
  EXPECT_EQ(ProgramName(0, 64), kBlanks);
  EXPECT_EQ(DrumKitName(-1), kBlanks);
  EXPECT_EQ(DrumKitName(16), kBlanks);
  EXPECT_EQ(StyleName(-1), kBlanks);
  EXPECT_EQ(StyleName(128), kBlanks);
  EXPECT_EQ(ProgramNames(5), "");
  EXPECT_EQ(ProgramNames(-1), "");
}

}  // namespace
}  // namespace zentaline
