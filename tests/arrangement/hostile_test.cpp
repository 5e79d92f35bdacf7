// Files of random bytes behind right headers, opened as windows and clicked through: whatever they hold, the program
// stays up, and a file that nobody saved stays as it was.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "arrangement/api.h"
#include "tests/arrangement/arr_desk.h"

namespace zentaline::test {
namespace {

std::string Headed(std::mt19937& random, const std::string& header, std::size_t length) {
  return header + RandomBytes(random, length - header.size());
}

std::string AnyArr(std::mt19937& random) {
  return Headed(random, "KORG" + Hand({0x4D, 0, 3}), 10528);
}

// Sizes that lie, or are wild but small enough for all entries to be there.
std::string AnySty(std::mt19937& random, int round) {
  const std::size_t length = static_cast<std::size_t>(RandomNumber(random, 8, 60000));
  std::string sty = Headed(random, "KORG" + Hand({0x4D, 0, 4, 1}), length);
  for (std::size_t e = 0; round % 2 == 0 && e < 16 && 26 + 4 * e <= sty.size(); ++e) {
    const int size = RandomNumber(random, 0, 9) == 0 ? 0 : RandomNumber(random, 1, 4000);
    Set(sty, 25 + 4 * e, size % 256);
    Set(sty, 26 + 4 * e, size / 256);
  }
  return sty;
}

std::string AnyPrg(std::mt19937& random, bool pgg) {
  return Headed(random, (pgg ? "KPGG" : "KORG") + Hand({0x4D, 0, 0}), 30480);
}

class Hostile : public ::testing::Test {
 protected:
  // Every row with every combination of the options that the round picks, and every button that can be pressed.
  void ClickThrough(int options) {
    Settings& settings = desk_.program.app.core.settings;
    settings.CaricaArr = (options & 1) != 0;
    settings.CaricaSty = (options & 2) != 0;
    settings.CaricaPrg = (options & 4) != 0;
    settings.AutoPrgSel = (options & 8) != 0;
    for (int row = 0; row < 64; ++row) {
      if (desk_.program.Arr(1) == nullptr) return;
      desk_.Select(row);
      if (row % 16 == options % 16) desk_.Wait(5000);
      desk_.program.toolkit.lines.clear();
    }
    for (const char* button : {"CommLoadArr", "CommLoadSty", "CommLoadPrg", "CommAdd", "CommArrPlay", "CommSongPlay"}) {
      if (desk_.Enabled(std::string("frmArrU(1).") + button)) desk_.Press(std::string("frmArrU(1).") + button);
      desk_.Wait(6000);
      desk_.program.toolkit.lines.clear();
    }
  }

  ArrDesk desk_;
  std::mt19937 random_{20040311};
};

TEST_F(Hostile, RandomBytesBehindRightHeadersAreShownAndSentWithoutHarm) {
  for (int round = 0; round < 16; ++round) {
    const std::string arr = AnyArr(random_);
    const std::string sty = AnySty(random_, round);
    const std::string prg = AnyPrg(random_, round % 3 == 0);
    std::string db = "i40DBArr" + RandomBytes(random_, 27213);
    db.replace(26971, 250, Field(desk_.folder.Path(), 250));
    desk_.Put("Song.arr", arr);
    desk_.Put("Song.sty", sty);
    desk_.Put("Song.prg", prg);
    desk_.Put("i40DBArr", db);
    desk_.Open("Song.arr", round % 4 == 0);
    ASSERT_NE(desk_.program.Arr(1), nullptr) << round;
    EXPECT_EQ(desk_.program.Arr(1)->window_image().substr(270, 10528), arr);
    ClickThrough(round);
    desk_.program.Arr(1)->UserClose();
    EXPECT_EQ(desk_.folder.Get("Song.arr"), arr);
    EXPECT_EQ(desk_.folder.Get("Song.sty"), sty);
    EXPECT_EQ(desk_.folder.Get("Song.prg"), prg);
  }
}

TEST_F(Hostile, TheStyleTemplateMayHoldAnything) {
  for (int round = 0; round < 8; ++round) {
    ScratchFolder folder;
    std::string sty =
        Headed(random_, "KORG" + Hand({0x4D, 0, 4}), static_cast<std::size_t>(RandomNumber(random_, 7, 6000)));
    folder.Put("i40Sty", sty);
    folder.Put("Song.arr", AnyArr(random_));
    TestProgram program(folder);
    ASSERT_TRUE(program.Start());
    program.app.core.settings.CaricaSty = true;
    program.OpenArr(folder.Path("Song.arr"));
    ASSERT_NE(program.Arr(1), nullptr);
    auto& list = *static_cast<ui::ListBox*>(program.Arr(1)->Find("List1"));
    for (int row = 0; row < 64; ++row) list.UserSelect({row});
    program.toolkit.Advance(5000);
  }
}

TEST_F(Hostile, AFileCutAnywhereIsRefusedAndLeftAlone) {
  const std::string arr = AnyArr(random_);
  for (const std::size_t length :
       {1U, 6U, 7U, 8U, 31U, 32U, 33U, 196U, 5000U, 9056U, 10363U, 10364U, 10365U, 10527U, 10529U, 20000U}) {
    const std::string cut = length <= arr.size() ? arr.substr(0, length) : arr + Zeros(length - arr.size());
    desk_.Put("Song.arr", cut);
    desk_.Open("Song.arr");
    EXPECT_EQ(desk_.program.Arr(1), nullptr) << length;
    EXPECT_THAT(desk_.program.Boxes(),
                ::testing::ElementsAre(ShownBox{48, "Opening Song.arr", "Error reading Song.arr"}))
        << length;
    EXPECT_EQ(desk_.folder.Get("Song.arr"), cut) << length;
  }
}

TEST_F(Hostile, SiblingsCutAtAnyBoundaryLeaveTheWindowUp) {
  std::string sty = StyBytes(4);
  std::vector<std::size_t> cuts = {1, 7, 8, 9, 22, 23, 24, 25, 26, 85, 87, 223, 224, 225, 239, 240, 241};
  std::size_t end = 224;
  for (int e = 0; e < 16; ++e) {
    end += static_cast<std::size_t>(40 + 20 * e);
    cuts.insert(cuts.end(), {end - 1, end, end + 1});
  }
  desk_.Put("Song.arr", ArrBytes({{"One", 0, true, {}}, {"Two", 15, true, {}}, {"Three", 255, true, {}}}));
  desk_.program.app.core.settings.CaricaSty = true;
  for (const std::size_t cut : cuts) {
    desk_.Put("Song.sty", cut <= sty.size() ? sty.substr(0, cut) : sty + Zeros(1));
    desk_.program.app.style.StyInInstrument = "";
    desk_.Open("Song.arr");
    ASSERT_NE(desk_.program.Arr(1), nullptr) << cut;
    EXPECT_EQ(desk_.Byte(1, 9), cut < 8 ? 1 : 2) << cut;
    for (int row = 0; row < 3; ++row) {
      desk_.Select(row);
      desk_.Wait(6000);
    }
    desk_.program.toolkit.lines.clear();
    desk_.program.Arr(1)->UserClose();
  }
}

TEST_F(Hostile, FilesThatChangeOrGoUnderAnOpenWindowDoNoHarm) {
  desk_.Put("Song.arr", ArrBytes({{"One", 0, true, {}}}));
  desk_.Put("Song.sty", StyBytes(2));
  desk_.Put("Song.prg", PrgFile());
  desk_.Open("Song.arr");
  desk_.Press("frmArrU(1).CommLoadArr");
  desk_.Wait(20);
  desk_.Press("mnuArrU");
  for (const char* name : {"Song.arr", "Song.sty", "Song.prg"}) std::filesystem::remove(desk_.folder.Path(name));
  desk_.program.Boxes();
  desk_.Press("frmArrU(1).CommLoadArr");
  desk_.Wait(20);
  EXPECT_EQ(desk_.program.Boxes().size(), 1U) << "window 9 finds its file gone";
  EXPECT_EQ(desk_.program.Arr(9), nullptr);
  desk_.Press("frmArrU(1).CommLoadSty");
  desk_.Press("frmArrU(1).CommLoadPrg");
  desk_.Wait(10000);
  EXPECT_NE(desk_.program.Arr(1), nullptr);
}

TEST_F(Hostile, EveryFailureOfTheDiskIsToldAndSurvived) {
  desk_.Put("Song.arr", ArrBytes({{"One", 0, true, {}}}));
  desk_.Put("Song.sty", StyBytes(1));
  desk_.Put("Song.prg", PrgFile());
  for (const char* error : {"ENOENT", "EACCES", "EROFS", "ENOSPC", "EIO", "EISDIR", "ENOTDIR", "EMFILE"}) {
    for (int first = 0; first < 5; ++first) {
      // The first reads go well, all others fail.
      desk_.program.disk.Fail("read", "0");
      if (first == 0) desk_.program.disk.Fail("read", error, 0);
      desk_.Open("Song.arr");
      desk_.program.disk.Fail("read", error, 0);
      if (desk_.program.Arr(1) != nullptr) {
        desk_.Press("frmArrU(1).CommLoadPrg");
        desk_.Press("frmArrU(1).CommAdd");
        desk_.Wait(100);
        desk_.program.Arr(1)->UserClose();
      }
      desk_.program.Boxes();
    }
  }
  desk_.program.disk.Fail("read", "0");
  desk_.Open("Song.arr");
  EXPECT_NE(desk_.program.Arr(1), nullptr);
  EXPECT_EQ(desk_.folder.Get("Song.arr"), ArrBytes({{"One", 0, true, {}}}));
}

}  // namespace
}  // namespace zentaline::test
