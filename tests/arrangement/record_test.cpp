// A record under edit on its way back into its window, what saving carries along, and the next start.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "arrangement/api.h"
#include "arrangement/arr_format.h"
#include "data/names.h"
#include "tests/arrangement/arr_desk.h"

namespace zentaline::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Record : public ::testing::Test {
 protected:
  void SetUp() override {
    std::mt19937 random(11);
    arr_ = "KORG" + Hand({0x4D, 0, 3}) + RandomBytes(random, 10521);
    desk_.Put("Song.arr", arr_);
  }
  Bytes& Edited() { return BytesFor(desk_.program.app.arrangement.ArrEditRecord); }
  void Take(int window, int row) {
    Edited() = PrepareEditRecord(desk_.program.Arr(window)->window_image(), row, StyleName);
  }
  int Store() { return StoreEditRecord(desk_.program.app); }

  ArrDesk desk_;
  std::string arr_;
};

TEST_F(Record, AnEditChangesItsOwnBytesAloneAndSavingCarriesAllOthers) {
  desk_.Open("Song.arr");
  Take(1, 40);
  Set(Edited(), 1 + 21, 100);
  EXPECT_EQ(Store(), 0);
  EXPECT_EQ(desk_.Byte(1, 4), 1);
  EXPECT_EQ(desk_.folder.Get("Song.arr"), arr_) << "nothing reaches the disk before it is saved";
  ASSERT_TRUE(desk_.Press("mnuSalva"));
  std::string wanted = arr_;
  Set(wanted, 33 + 164 * 40 + 21, 100);
  EXPECT_EQ(desk_.folder.Get("Song.arr"), wanted);
  EXPECT_EQ(desk_.Byte(1, 4), 0);
}

TEST_F(Record, AReadOnlyWindowRefusesIt) {
  desk_.Open("Song.arr", true);
  const Bytes image = desk_.program.Arr(1)->window_image();
  Take(1, 3);
  const Bytes edited = Edited();
  EXPECT_EQ(Store(), 1);
  EXPECT_THAT(desk_.program.Boxes(), ElementsAre(ShownBox{48, "Song", "Read only file"}));
  EXPECT_EQ(desk_.program.Arr(1)->window_image(), image);
  EXPECT_EQ(Edited(), edited);
}

TEST_F(Record, OnlyAnOpenWindowOfAFileTakesIt) {
  desk_.Open("Song.arr");
  const Bytes image = desk_.program.Arr(1)->window_image();
  for (const int kind : {0, 2, 3, 20, 21, 255}) {
    Take(1, 3);
    Set(Edited(), 325, kind);
    EXPECT_NE(Store(), 0) << kind;
  }
  for (const int number : {0, 2, 8, 9, 10, 255}) {
    Take(1, 3);
    Set(Edited(), 327, number);
    EXPECT_NE(Store(), 0) << number;
  }
  Take(1, 3);
  Set(Edited(), 326, 64);
  EXPECT_NE(Store(), 0);
  EXPECT_EQ(desk_.program.Arr(1)->window_image(), image);
  EXPECT_THAT(desk_.program.Boxes(), IsEmpty());
}

TEST_F(Record, AChangedNameIsShownInItsRow) {
  desk_.Put("Song.arr", ArrBytes({{"One", 1, false, {}}, {"Two", 1, true, {}}}));
  desk_.Open("Song.arr");
  Take(1, 1);
  Edited().replace(0, 16, Field("Caf\xE9", 16));
  EXPECT_EQ(Store(), 0);
  EXPECT_EQ(desk_.List().RowText(1), "12 +Two             ");
  desk_.program.app.arrangement.ArrNameChanged = true;
  EXPECT_EQ(Store(), 0);
  EXPECT_EQ(desk_.List().RowText(1), "12 +Caf\xC3\xA9            ");
  // A row that was only its label gets its name behind the place of the mark.
  Take(1, 5);
  Edited().replace(0, 16, Field("New", 16));
  EXPECT_EQ(Store(), 0);
  EXPECT_EQ(desk_.List().RowText(5), "16  New             ");
}

TEST_F(Record, AFileThatHasGoneBeforeTheNextStartLeavesNeitherWindowNorName) {
  ScratchFolder folder;
  folder.Put("Song.arr", ArrBytes({{"One", 1, false, {}}}));
  {
    TestProgram program(folder);
    program.Start();
    program.OpenArr(folder.Path("Song.arr"));
    static_cast<ui::Button*>(program.Arr(1)->Find("CommLoadArr"))->UserPress();
    program.toolkit.Advance(100);
    program.Press(MenuId::mnuArrU);
    EXPECT_EQ(program.app.main->Menu(MenuId::mnuArrU).caption(), "Arrangement User (Song.arr)");
    ASSERT_TRUE(program.Quit());
  }
  std::filesystem::remove(folder.Path("Song.arr"));
  TestProgram program(folder);
  program.Start();
  EXPECT_EQ(program.Arr(1), nullptr);
  EXPECT_EQ(program.Arr(9), nullptr);
  EXPECT_EQ(program.app.main->Menu(MenuId::mnuArrU).caption(), "Arrangement User");
  EXPECT_FALSE(program.app.main->Menu(MenuId::mnuArrU).enabled());
}

TEST_F(Record, TheNextStartFindsEverythingWhereItWas) {
  ScratchFolder folder;
  folder.Put("i40Sty", EmptyStyles());
  folder.Put("Song.arr", ArrBytes({{"One", 1, false, {}}, {"Two", 1, true, {}}}));
  folder.Put("Song.sty", StyBytes(1));
  folder.Put("Song.prg", PrgFile());
  folder.Put("Other.arr", ArrBytes({{"Else", 1, false, {}}}));
  {
    TestProgram program(folder);
    program.Start();
    program.app.main->mnuDevMIDIOut(1).UserPress();
    program.Press(MenuId::mnuCaricaArr);
    program.Press(MenuId::mnuCaricaSty);
    program.OpenArr(folder.Path("Other.arr"));
    program.OpenArr(folder.Path("Song.arr"), 1, true);
    static_cast<ui::ListBox*>(program.Arr(2)->Find("List1"))->UserSelect({1});
    program.toolkit.Advance(5000);
    static_cast<ui::Button*>(program.Arr(2)->Find("CommLoadPrg"))->UserPress();
    program.toolkit.Advance(5000);
    program.Press(MenuId::mnuArrU);
    ASSERT_TRUE(program.Quit());
  }
  TestProgram program(folder);
  program.Start();
  EXPECT_EQ(program.Caption(1), "File Arr - Other.arr (1)");
  EXPECT_EQ(program.Caption(2), "File Arr - Song.arr (2) - Read Only");
  EXPECT_EQ(program.Caption(9).substr(0, 19), "Arr User - Song.arr");
  EXPECT_EQ(program.app.main->LabelArr.caption(), "Song");
  EXPECT_EQ(program.app.main->LabelSty.caption(), "Song");
  EXPECT_EQ(program.app.main->LabelPrg.caption().substr(0, 4), "Song");
  EXPECT_EQ(program.app.midi.MidiOutDevice, 1);
  EXPECT_TRUE(program.app.midi.OutputOpen);
  EXPECT_TRUE(program.app.main->Menu(MenuId::mnuCaricaArr).checked());
  program.toolkit.lines.clear();
  static_cast<ui::ListBox*>(program.Arr(2)->Find("List1"))->UserSelect({1});
  program.toolkit.Advance(5000);
  EXPECT_THAT(program.toolkit.lines, ElementsAre("short 0 B0 00 00", "short 0 B0 20 01", "short 0 C0 01"));
}

}  // namespace
}  // namespace zentaline::test
