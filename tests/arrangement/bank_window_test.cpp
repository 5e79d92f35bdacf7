// The windows of the factory banks: their rows, what a click selects, what an absent or damaged file does, and the way
// of an edited record back into them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "arrangement/api.h"
#include "tests/arrangement/arr_desk.h"
#include "tests/support/config.h"

namespace zentaline::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Bank : public ::testing::Test {
 protected:
  void SetUp() override {
    a_ = ArrBytes({{"First", 5, false, {}}, {"Second", 70, true, {}}, {"", 0, false, {}}, {"Fourth", 5, false, {}}});
    Set(a_, 32 + 164 * 2 + 1, 0);
    b_ = ArrBytes({{"Bee", 127, false, {}}});
    b_.replace(32 + 164 * 63, 16, Field("Last", 16));
    desk_.Put("i40ArrA.arr", a_);
    desk_.Put("i40ArrB.arr", b_);
  }
  bool Select(const std::string& window, int row) {
    return desk_.Find<ui::ListBox>(window + ".List1")->UserSelect({row});
  }
  const Bytes& Image(int kind) { return ArrBankWindow(desk_.program.app, kind)->window_image(); }

  ArrDesk desk_;
  std::string a_;
  std::string b_;
};

TEST_F(Bank, TheEntriesOpenTheWindowsOnceAndAreOffMeanwhile) {
  ASSERT_TRUE(desk_.Press("mnuArrA"));
  ASSERT_TRUE(desk_.Press("mnuArrB"));
  EXPECT_THAT(desk_.Log(),
              ElementsAre("open 0 frmArrAB(2) \"Arrangements A\"", "open 0 frmArrAB(3) \"Arrangements B\""));
  EXPECT_EQ(desk_.program.app.arrangement.BankWanted, 3);
  EXPECT_EQ(desk_.program.app.core.OpenChildCount, 2);
  EXPECT_FALSE(desk_.Press("mnuArrA"));
  EXPECT_FALSE(desk_.Press("mnuArrB"));
  ASSERT_TRUE(desk_.Press("frmArrAB(2).CommClose"));
  EXPECT_TRUE(desk_.Enabled("mnuArrA"));
  EXPECT_FALSE(desk_.Enabled("mnuArrB"));
  EXPECT_EQ(desk_.program.app.core.OpenChildCount, 1);
}

TEST_F(Bank, TheImageIsThePrefixTheFileAndTheRowTable) {
  desk_.Press("mnuArrA");
  desk_.Press("mnuArrB");
  for (const int kind : {2, 3}) {
    std::string control = Zeros(20);
    Set(control, 1, kind);
    Set(control, 3, kind);
    EXPECT_EQ(Image(kind).substr(0, 20), control) << kind;
    EXPECT_EQ(Image(kind).substr(20, 250), Field(desk_.folder.Path(kind == 2 ? "i40ArrA" : "i40ArrB"), 250)) << kind;
    EXPECT_EQ(Image(kind).substr(270, 10528), kind == 2 ? a_ : b_) << kind;
    EXPECT_EQ(Image(kind).substr(10798), Blanks(1344)) << kind;
  }
}

TEST_F(Bank, TheRowsHaveLabelsAndNamesAndEachStyleIsAFactoryStyleWhateverTheLocationSays) {
  desk_.Press("mnuArrA");
  const std::vector<std::string> rows = desk_.Rows("frmArrAB(2).List1");
  ASSERT_EQ(rows.size(), 64U);
  EXPECT_EQ(rows[0], "11  First           ");
  EXPECT_EQ(rows[1], "12  Second          ");
  EXPECT_EQ(rows[3], "14  Fourth          ");
  EXPECT_EQ(rows[8], "21");
  EXPECT_EQ(rows[63], "88");
  EXPECT_EQ(rows[2], "13");
  EXPECT_THAT(desk_.Rows("frmArrAB(2).Combo1"), ElementsAre("8 Beat Rock (A16)", "WaltzMusette (B17)"));
  EXPECT_EQ(desk_.Text("frmArrAB(2).Text1"), " 1");
}

TEST_F(Bank, AClickSelectsTheRowAndShowsItsIdAndStyle) {
  desk_.Press("mnuArrA");
  desk_.Press("mnuArrB");
  desk_.Log();
  EXPECT_EQ(desk_.Text("frmArrAB(3).Text1"), " 2");
  ASSERT_TRUE(Select("frmArrAB(2)", 1));
  EXPECT_THAT(desk_.Log(), ElementsAre("0 B0 00 00", "0 B0 20 00", "0 C0 01"));
  EXPECT_EQ(desk_.Text("frmArrAB(2).Text1"), "112");
  EXPECT_EQ(desk_.Text("frmArrAB(2).Combo1"), "WaltzMusette (B17)");
  // The rows of bank B follow those of bank A.
  ASSERT_TRUE(Select("frmArrAB(3)", 0));
  EXPECT_THAT(desk_.Log(), ElementsAre("0 B0 00 00", "0 B0 20 00", "0 C0 40"));
  EXPECT_EQ(desk_.Text("frmArrAB(3).Text1"), "211");
  EXPECT_EQ(desk_.Text("frmArrAB(3).Combo1"), "New Age (B88)");
  ASSERT_TRUE(Select("frmArrAB(3)", 63));
  EXPECT_THAT(desk_.Log(), ElementsAre("0 B0 00 00", "0 B0 20 00", "0 C0 7F"));
  EXPECT_EQ(desk_.Text("frmArrAB(3).Text1"), "288");
}

TEST_F(Bank, AnEmptyRowOnlyPutsTheInstrumentInItsMode) {
  desk_.Press("mnuArrA");
  Select("frmArrAB(2)", 0);
  desk_.Log();
  ASSERT_TRUE(Select("frmArrAB(2)", 2));
  EXPECT_THAT(desk_.Log(), IsEmpty());
  EXPECT_EQ(desk_.Text("frmArrAB(2).Text1"), "111");
  EXPECT_EQ(desk_.Text("frmArrAB(2).Combo1"), "8 Beat Rock (A16)");
  desk_.Press("frmArrAB(2).CommSongPlay");
  desk_.Log();
  ASSERT_TRUE(Select("frmArrAB(2)", 2));
  EXPECT_THAT(desk_.Log(), ElementsAre("0 mode 0A"));
}

TEST_F(Bank, AClickInAnotherModeGoesBackToArrPlayFirst) {
  desk_.Press("mnuArrA");
  desk_.Press("frmArrAB(2).CommSongPlay");
  EXPECT_TRUE(desk_.Find<ui::ListBox>("frmArrAB(2).List1")->HasFocus());
  desk_.Log();
  Select("frmArrAB(2)", 0);
  EXPECT_THAT(desk_.Wire(), ElementsAre("0 mode 0A", "0 B0 00 00", "0 B0 20 00", "0 C0 00"));
}

TEST_F(Bank, ASelectionClearsTheMonitorAndAddsItsEightBytesOnce) {
  desk_.Press("mnuMsgEx");
  desk_.Press("mnuArrB");
  Select("frmArrAB(3)", 63);
  EXPECT_EQ(desk_.Text("frmMsgEx.Text1"), "B0 00 00 B0 20 00 C0 7F \r\n");
  Select("frmArrAB(3)", 0);
  EXPECT_EQ(desk_.Text("frmMsgEx.Text1"), "B0 00 00 B0 20 00 C0 40 \r\n");
}

TEST_F(Bank, TheModeButtonTurnsTheMonitorOn) {
  desk_.Press("mnuArrA");
  desk_.program.app.midi.MonitorOn = false;
  ASSERT_TRUE(desk_.Press("frmArrAB(2).CommArrPlay"));
  EXPECT_TRUE(desk_.program.app.midi.MonitorOn);
  EXPECT_TRUE(desk_.Find<ui::ListBox>("frmArrAB(2).List1")->HasFocus());
}

TEST_F(Bank, SeveralRowsCanBeSelectedAndNoKeyChangesABank) {
  desk_.Press("mnuArrA");
  auto* list = desk_.Find<ui::ListBox>("frmArrAB(2).List1");
  EXPECT_TRUE(list->UserSelect({0, 1, 3}));
  desk_.program.app.core.settings.AutoPrgSel = true;
  desk_.Log();
  list->UserKey({ui::Key::kDelete, {}});
  list->UserKey({ui::Key::kSpace, {}});
  EXPECT_THAT(desk_.Log(), IsEmpty());
  EXPECT_EQ(Image(2).substr(270, 10528), a_);
}

TEST_F(Bank, AnAbsentOrEmptyFileOpensNothingAndIsTold) {
  std::filesystem::remove(desk_.folder.Path("i40ArrA.arr"));
  desk_.Put("i40ArrB.arr", "");
  EXPECT_TRUE(desk_.Press("mnuArrA"));
  EXPECT_TRUE(desk_.Press("mnuArrB"));
  EXPECT_THAT(desk_.program.Boxes(), ElementsAre(ShownBox{48, "Opening i40ArrA.arr", "File i40ArrA not found"},
                                                 ShownBox{48, "Opening i40ArrB.arr", "File i40ArrB not found"}));
  EXPECT_EQ(desk_.program.app.core.OpenChildCount, 0);
  EXPECT_TRUE(desk_.Enabled("mnuArrA"));
  EXPECT_FALSE(std::filesystem::exists(desk_.folder.Path("i40ArrB.arr")));
}

TEST_F(Bank, ADamagedFileIsRefusedAndLeftAlone) {
  for (const std::string& content : {a_.substr(1), a_ + "x", std::string("KORG"), "k" + a_.substr(1)}) {
    desk_.Put("i40ArrA.arr", content);
    EXPECT_TRUE(desk_.Press("mnuArrA"));
    EXPECT_THAT(desk_.program.Boxes(), ElementsAre(ShownBox{48, "Opening i40ArrA.arr", "Error reading i40ArrA.arr"}));
    EXPECT_EQ(ArrBankWindow(desk_.program.app, 2), nullptr);
    EXPECT_EQ(desk_.folder.Get("i40ArrA.arr"), content);
  }
}

TEST_F(Bank, ADiskThatFailsOpensNothing) {
  desk_.program.disk.Fail("read", "EIO");
  EXPECT_TRUE(desk_.Press("mnuArrB"));
  EXPECT_THAT(desk_.program.Boxes(), ElementsAre(ShownBox{48, "Opening i40ArrB.arr", "Error I/O device"}));
  EXPECT_EQ(desk_.program.app.core.OpenChildCount, 0);
}

TEST_F(Bank, AnyBytesBehindTheHeaderAreShownAndSelected) {
  std::mt19937 random(11);
  for (int round = 0; round < 4; ++round) {
    const std::string bytes = "KORG" + Hand({0x4D, 0, 3}) + RandomBytes(random, 10521);
    desk_.Put("i40ArrA.arr", bytes);
    ASSERT_TRUE(desk_.Press("mnuArrA"));
    for (int row = 0; row < 64; ++row) ASSERT_TRUE(Select("frmArrAB(2)", row));
    EXPECT_EQ(Image(2).substr(270, 10528), bytes);
    ASSERT_TRUE(desk_.Press("frmArrAB(2).CommClose"));
    EXPECT_EQ(desk_.folder.Get("i40ArrA.arr"), bytes);
  }
}

// No window opens the editor on a bank; a record made by other means finds its way back, read-only or not.
TEST_F(Bank, AnEditedRecordGoesBackIntoItsBankAndTheClosingSavesIt) {
  desk_.Press("mnuArrA");
  ArrangementState& state = desk_.program.app.arrangement;
  Bytes& record = BytesFor(state.ArrEditRecord);
  record = ArrRecord({"Changed", 9, false, {}}) + Zeros(567 - 164);
  Set(record, 325, 2);
  Set(record, 326, 3);
  state.ArrNameChanged = true;
  EXPECT_EQ(StoreEditRecord(desk_.program.app), 0);
  EXPECT_EQ(Image(2).substr(302 + 164 * 3, 164), ArrRecord({"Changed", 9, false, {}}));
  EXPECT_EQ(desk_.Rows("frmArrAB(2).List1").at(3), "14  Changed         ");
  EXPECT_TRUE(desk_.Enabled("mnuSalva"));
  // A bank goes by the name of the instrument's file.
  EXPECT_TRUE(desk_.Press("mnuSalvaAs"));
  EXPECT_EQ(desk_.program.toolkit.dialogs.back().name, "i40ArrA.arr");
  desk_.program.toolkit.answers = {ui::BoxAnswer::kCancel};
  EXPECT_TRUE(desk_.Press("frmArrAB(2).CommClose"));
  EXPECT_NE(ArrBankWindow(desk_.program.app, 2), nullptr);
  desk_.program.toolkit.answers = {ui::BoxAnswer::kYes};
  EXPECT_TRUE(desk_.Press("frmArrAB(2).CommClose"));
  EXPECT_EQ(ArrBankWindow(desk_.program.app, 2), nullptr);
  EXPECT_THAT(desk_.program.Boxes(),
              ElementsAre(ShownBox{51, "Arrangements A", "The file has changed\nSave changes ?"},
                          ShownBox{51, "Arrangements A", "The file has changed\nSave changes ?"}));
  std::string saved = a_;
  saved.replace(32 + 164 * 3, 164, ArrRecord({"Changed", 9, false, {}}));
  EXPECT_EQ(desk_.folder.Get("i40ArrA.arr"), saved);
  EXPECT_EQ(StoreEditRecord(desk_.program.app), 2) << "its window has gone";
}

TEST_F(Bank, ABankComesBackAtTheNextStartUnlessItsFileHasGone) {
  desk_.Press("mnuArrA");
  desk_.Press("mnuArrB");
  ASSERT_TRUE(desk_.program.Quit());
  std::filesystem::remove(desk_.folder.Path("i40ArrB.arr"));
  TestProgram next(desk_.folder);
  ASSERT_TRUE(next.Start());
  EXPECT_NE(ArrBankWindow(next.app, 2), nullptr);
  EXPECT_EQ(ArrBankWindow(next.app, 3), nullptr);
  EXPECT_THAT(next.Boxes(), ElementsAre(ShownBox{48, "Opening i40ArrB.arr", "File i40ArrB not found"}));
  ASSERT_TRUE(next.Quit());
  TestProgram third(desk_.folder);
  ASSERT_TRUE(third.Start());
  EXPECT_THAT(third.Boxes(), IsEmpty()) << "it is asked for once";
}

}  // namespace
}  // namespace zentaline::test
