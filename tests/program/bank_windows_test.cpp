// The windows of the factory banks and of the drum kits.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

#include "tests/program/prg_desk.h"

namespace zentaline::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Factory {
  const char* entry;
  const char* window;
  int kind;
  const char* caption;
  const char* first;  // its first row
  int bank;           // controller 32
  int number;         // program of row 0
};

constexpr std::array<Factory, 5> kFactory = {{
    {"mnuWProgA", "frmPcgAE(4)", 4, "Prg A", "11  Piano 1         ", 0, 0},
    {"mnuWProgB", "frmPcgAE(5)", 5, "Prg B", "11  SopranoSax      ", 0, 64},
    {"mnuWProgC", "frmPcgAE(6)", 6, "Prg C", "11  90's Piano      ", 1, 0},
    {"mnuWProgD", "frmPcgAE(7)", 7, "Prg D", "11  AltoBreath      ", 1, 64},
    {"mnuWProgE", "frmPcgAE(8)", 8, "Prg E", "11  Piano&Strgs     ", 2, 0},
}};

class BankWindows : public ::testing::Test {
 protected:
  ChildWindow* Window(const std::string& name) {
    return static_cast<ChildWindow*>(desk_.program.toolkit.FindForm(name));
  }
  ui::ListBox& List(const std::string& window) { return *desk_.Find<ui::ListBox>(window + ".List1"); }

  PrgDesk desk_;
};

TEST_F(BankWindows, EachFactoryBankShowsItsNamesAndSelectsEachOfThem) {
  for (const Factory& bank : kFactory) {
    ASSERT_TRUE(desk_.Press(bank.entry));
    EXPECT_EQ(Window(bank.window)->caption(), std::string(bank.caption) + " - MIDI Channel 1");
    EXPECT_FALSE(desk_.Enabled(bank.entry)) << "while the window is open";
    ASSERT_EQ(List(bank.window).rows(), 64);
    EXPECT_EQ(List(bank.window).RowText(0), bank.first);
    EXPECT_EQ(List(bank.window).RowText(63).substr(0, 4), "88  ");
    desk_.Log();
    for (int row = 0; row < 64; ++row) {
      List(bank.window).UserSelect({row});
      EXPECT_EQ(desk_.Wire(), Selection(0, 0, bank.bank, bank.number + row)) << bank.entry << " row " << row;
    }
  }
}

TEST_F(BankWindows, EachDrumKitHasItsOwnProgramNumberInBothViews) {
  constexpr std::array<int, 16> kNumbers = {0, 1, 8, 16, 24, 25, 26, 32, 40, 48, 64, 65, 66, 56, 72, 73};
  for (const auto& [entry, window, caption] : {std::array{"mnuDrum", "frmDrum(9)", "Drum - MIDI Channel 1"},
                                               std::array{"mnuPerc", "frmDrum(10)", "Percussion - MIDI Channel 1"}}) {
    ASSERT_TRUE(desk_.Press(entry));
    EXPECT_EQ(Window(window)->caption(), caption);
    ASSERT_EQ(List(window).rows(), 16);
    EXPECT_EQ(List(window).RowText(0), "11  GM Kit 1        ");
    EXPECT_EQ(List(window).RowText(13), "26  SFX Kit         ");
    desk_.Log();
    for (int row = 0; row < 16; ++row) {
      List(window).UserSelect({row});
      EXPECT_EQ(desk_.Wire(), Selection(0, 0, 4, kNumbers[static_cast<std::size_t>(row)])) << "kit " << row;
    }
  }
}

TEST_F(BankWindows, TheImageHoldsKindChannelTitleAndARowForEachProgram) {
  desk_.Press("mnuWProgD");
  desk_.Channel("frmPcgAE(7)", 4);
  const Bytes& image = Window("frmPcgAE(7)")->window_image();
  EXPECT_EQ(image.size(), 20u + 30u + 64u * 30u + 1344u);
  EXPECT_EQ(At(image, 1), 7);
  EXPECT_EQ(At(image, 16), 4);
  EXPECT_EQ(image.substr(20, 30), Field("Prg D", 30));
  EXPECT_EQ(image.substr(50, 30), Field("11  AltoBreath", 30));
  EXPECT_EQ(image.substr(20 + 30 * 64, 30), Field("88  Explosion", 30));
}

TEST_F(BankWindows, TheChannelIsShownUsedAndKeptForTheNextTime) {
  desk_.Press("mnuWProgB");
  desk_.Channel("frmPcgAE(5)", 15);
  EXPECT_EQ(Window("frmPcgAE(5)")->caption(), "Prg B - MIDI Channel 16");
  desk_.Log();
  List("frmPcgAE(5)").UserSelect({1});
  EXPECT_EQ(desk_.Wire(), Selection(0, 15, 0, 65));
  desk_.Press("frmPcgAE(5).CommClose");
  EXPECT_TRUE(desk_.Enabled("mnuWProgB"));
  desk_.Press("mnuWProgB");
  EXPECT_EQ(Window("frmPcgAE(5)")->caption(), "Prg B - MIDI Channel 16");
  EXPECT_EQ(desk_.Text("frmPcgAE(5).Combo1"), " 16");
}

TEST_F(BankWindows, OpenBanksComeBackAtTheNextStartWithTheirChannels) {
  desk_.Press("mnuWProgC");
  desk_.Channel("frmPcgAE(6)", 9);
  desk_.Press("mnuDrum");
  desk_.Channel("frmDrum(9)", 10);
  desk_.Press("mnuWProgE");
  desk_.Press("frmPcgAE(8).CommClose");
  ASSERT_TRUE(desk_.program.Quit());

  TestProgram next(desk_.folder);
  ASSERT_TRUE(next.Start());
  ASSERT_NE(next.toolkit.FindForm("frmPcgAE(6)"), nullptr);
  EXPECT_EQ(next.toolkit.FindForm("frmPcgAE(6)")->caption(), "Prg C - MIDI Channel 10");
  ASSERT_NE(next.toolkit.FindForm("frmDrum(9)"), nullptr);
  EXPECT_EQ(next.toolkit.FindForm("frmDrum(9)")->caption(), "Drum - MIDI Channel 11");
  EXPECT_EQ(next.toolkit.FindForm("frmPcgAE(8)"), nullptr);
  EXPECT_FALSE(next.Enabled(MenuId::mnuWProgC));
  EXPECT_TRUE(next.Enabled(MenuId::mnuWProgE));
}

TEST_F(BankWindows, PercussionTheStyleBanksAndTheMonitorComeBackToo) {
  for (const char* entry : {"mnuPerc", "mnuStyA", "mnuStyB", "mnuMsgEx"}) desk_.Press(entry);
  desk_.Channel("frmDrum(10)", 8);
  Window("frmStyAB(18)")->Close();
  ASSERT_TRUE(desk_.program.Quit());

  TestProgram next(desk_.folder);
  ASSERT_TRUE(next.Start());
  ASSERT_NE(next.toolkit.FindForm("frmDrum(10)"), nullptr);
  EXPECT_EQ(next.toolkit.FindForm("frmDrum(10)")->caption(), "Percussion - MIDI Channel 9");
  EXPECT_EQ(next.toolkit.FindForm("frmDrum(9)"), nullptr);
  EXPECT_NE(next.toolkit.FindForm("frmStyAB(17)"), nullptr);
  EXPECT_EQ(next.toolkit.FindForm("frmStyAB(18)"), nullptr);
  EXPECT_NE(next.toolkit.FindForm("frmMsgEx"), nullptr);
  EXPECT_TRUE(next.app.midi.MonitorOn);
  EXPECT_FALSE(next.Enabled(MenuId::mnuPerc));
}

TEST_F(BankWindows, AnArmedPartIsSelectedOnItsOwnChannelAndTheArrangementCountsAsChanged) {
  ArrangementState& arrangement = desk_.program.app.arrangement;
  desk_.program.app.midi.PartChannel = {9, 10, 11, 12, 13, 14, 3, 2, 1};
  arrangement.ArrPartArmed = true;
  desk_.Press("mnuWProgD");
  for (int part = 0; part < 9; ++part) {
    arrangement.ArrPartSlots.fill(0);
    arrangement.ArrPartSlots[static_cast<std::size_t>(2 * part + 2)] = 1;
    FlagFor(arrangement.EditorChanged) = false;
    desk_.Log();
    List("frmPcgAE(7)").UserSelect({7});
    EXPECT_EQ(desk_.Wire(),
              Selection(0, desk_.program.app.midi.PartChannel[static_cast<std::size_t>(part)], 1, 64 + 7));
    EXPECT_TRUE(arrangement.EditorChanged);
  }
}

TEST_F(BankWindows, InProgramModeTheGlobalChannelIsUsed) {
  desk_.Press("mnuWProgA");
  desk_.Channel("frmPcgAE(4)", 5);
  desk_.program.app.midi.GlobalChannel = 2;
  desk_.Press("mnuProgram");
  desk_.Log();
  List("frmPcgAE(4)").UserSelect({0});
  EXPECT_EQ(desk_.Wire(), Selection(0, 2, 0, 0));
}

TEST_F(BankWindows, NothingIsSentWhileTheListIsOnlyPutInItsPlaceOrNoPortIsOpen) {
  desk_.Press("mnuWProgA");
  desk_.Log();
  desk_.program.app.core.ListBusy = true;
  List("frmPcgAE(4)").UserSelect({3});
  desk_.program.app.core.ListBusy = false;
  EXPECT_THAT(desk_.Wire(), IsEmpty());
  desk_.Press("mnuDevMIDIOut(0)");
  desk_.Log();
  List("frmPcgAE(4)").UserSelect({4});
  EXPECT_THAT(desk_.Wire(), IsEmpty());
  EXPECT_THAT(desk_.program.Boxes(), IsEmpty());
}

TEST_F(BankWindows, WithoutAPortTheMonitorStaysAsItIs) {
  std::vector<std::string> lines;
  desk_.program.app.midi.MonitorOn = true;
  desk_.program.app.midi.Monitor = [&lines](std::string_view line) { lines.push_back(HexText(line)); };
  desk_.Press("mnuDevMIDIOut(0)");
  desk_.Press("mnuWProgA");
  desk_.Press("mnuDrum");
  List("frmPcgAE(4)").UserSelect({4});
  List("frmDrum(9)").UserSelect({5});
  desk_.program.app.arrangement.ArrPartArmed = true;
  List("frmPcgAE(4)").UserSelect({6});
  EXPECT_THAT(lines, IsEmpty());
  EXPECT_TRUE(desk_.program.app.arrangement.EditorChanged) << "the part gets its program all the same";
}

TEST_F(BankWindows, TheMonitorIsClearedThenShowsTheSelectionAndItsLastTwoBytesAgain) {
  std::vector<std::string> lines;
  desk_.program.app.midi.MonitorOn = true;
  desk_.program.app.midi.Monitor = [&lines](std::string_view line) { lines.push_back(HexText(line)); };
  desk_.Press("mnuDrum");
  List("frmDrum(9)").UserSelect({13});
  EXPECT_THAT(lines, ElementsAre("", "B0 00 00 B0 20 04 C0 38", "C0 38"));
}

TEST_F(BankWindows, NothingIsOfferedButClosing) {
  desk_.Press("mnuWProgA");
  List("frmPcgAE(4)").UserSelect({0});
  for (const char* entry : {"mnuSalva", "mnuSalvaAs", "mnuLoadPrg", "mnuEdit", "mnuEditPerf", "mnuIngrandisci",
                            "mnuShowPrg", "mnuTaglia"}) {
    EXPECT_FALSE(desk_.Enabled(entry)) << entry;
  }
  EXPECT_TRUE(desk_.Enabled("mnuChiudi"));
  desk_.Press("mnuChiudi");
  EXPECT_EQ(Window("frmPcgAE(4)"), nullptr);
}

}  // namespace
}  // namespace zentaline::test
