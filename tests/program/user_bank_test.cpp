// The window of a user bank: its rows, and what a click on them does.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/program/prg_desk.h"

namespace zentaline::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class UserBank : public ::testing::Test {
 protected:
  bool Button(const std::string& control) { return desk_.Enabled(PrgDesk::Of(1, control)); }

  PrgDesk desk_;
};

TEST_F(UserBank, RowsAreNumberMarkAndName) {
  std::string file = Bank();
  PutLink(file, 9, 1, 70, "Small^Orch");
  file.replace(48 + 172 * 2, 16, std::string(16, '\0'));
  file.replace(48 + 172 * 3, 16, "Caff\xE8" + std::string(11, ' '));
  desk_.OpenBank(file);
  ASSERT_EQ(desk_.Rows().rows(), 64);
  EXPECT_EQ(desk_.Rows().RowText(0), "11  Prog 0          ");
  EXPECT_EQ(desk_.Rows().RowText(7), "18  Prog 7          ");
  EXPECT_EQ(desk_.Rows().RowText(8), "21  Prog 8          ");
  EXPECT_EQ(desk_.Rows().RowText(9), "22 *Small^Orch      ");
  EXPECT_EQ(desk_.Rows().RowText(2), "13                  ") << "a first byte of 0 is a program that looks nameless";
  EXPECT_EQ(desk_.Rows().RowText(3), "14  Caff\xC3\xA8           ");
  EXPECT_EQ(desk_.Rows().RowText(63), "88  Prog 63         ");
}

TEST_F(UserBank, TheImageIsTheFileBehindItsControlBytes) {
  const std::string file = Bank(6);
  desk_.OpenBank(file);
  const Bytes& image = desk_.Image();
  EXPECT_EQ(image.size(), 32094u);
  EXPECT_EQ(image.substr(270, 30480), file);
  EXPECT_EQ(At(image, 1), 21);
  EXPECT_EQ(At(image, 2), 0);
  EXPECT_EQ(At(image, 6), 2);
  EXPECT_EQ(At(image, 7), 0);
  EXPECT_EQ(At(image, 15), 1);
  EXPECT_EQ(At(image, 18), 0);
  EXPECT_EQ(At(image, 19), 0);
  EXPECT_EQ(image.substr(20, 238), Field(desk_.folder.Path("Bank"), 238));
  EXPECT_EQ(image.substr(30750), Zeros(1344));
}

TEST_F(UserBank, AClickSelectsTheProgramOnTheBanksChannel) {
  desk_.OpenBank(Bank(4));
  EXPECT_EQ(desk_.Caption(1), "File Prg - Bank.prg (1) - MIDI Channel 5");
  EXPECT_EQ(desk_.Text("frmPrgUN(1).Combo1"), " 5");
  desk_.Click(0);
  EXPECT_EQ(desk_.Wire(), Selection(0, 4, 3, 0));
  desk_.Click(63);
  EXPECT_EQ(desk_.Wire(), Selection(0, 4, 3, 63));
}

TEST_F(UserBank, AClickPutsTheProgramInTheEditRecord) {
  const std::string file = Bank();
  desk_.OpenBank(file);
  desk_.Click(5);
  const Bytes& record = desk_.state().EditRecord;
  EXPECT_EQ(record.size(), 201u);
  EXPECT_EQ(record.substr(0, 172), file.substr(48 + 172 * 5, 172));
  EXPECT_EQ(At(record, 173), 21);
  EXPECT_EQ(At(record, 174), 5);
  EXPECT_EQ(At(record, 175), 1);
  EXPECT_EQ(At(record, 177), 0);
  EXPECT_EQ(record.substr(177, 24), Field("Bank", 24));
}

TEST_F(UserBank, ALinkSelectsTheProgramItPointsToAndLeavesTheEditRecordAlone) {
  std::string file = Bank();
  PutLink(file, 0, 0, 5, "E. Piano 2");
  PutLink(file, 1, 0, 64, "SopranoSax");
  PutLink(file, 2, 1, 127, "Explosion");
  PutLink(file, 3, 2, 63, "Brass Fall");
  PutLink(file, 4, 4, 13, "SFX Kit");
  desk_.OpenBank(file);
  desk_.Click(10);
  const Bytes before = desk_.state().EditRecord;
  desk_.Log();
  constexpr std::array<std::pair<int, int>, 5> kWords = {{{0, 5}, {0, 64}, {1, 127}, {2, 63}, {4, 13}}};
  for (int row = 0; row < 5; ++row) {
    desk_.Click(row);
    const auto& [bank, number] = kWords[static_cast<std::size_t>(row)];
    EXPECT_EQ(desk_.Wire(), Selection(0, 0, bank, number)) << row;
  }
  EXPECT_EQ(desk_.state().EditRecord, before);
}

TEST_F(UserBank, AnEmptyRowDoesNothing) {
  std::string file = Bank();
  file.replace(48, 16, std::string(16, ' '));
  file.replace(48 + 172, 16, std::string(16, '\0'));
  desk_.OpenBank(file);
  desk_.settings().AutoPrgSel = true;
  desk_.program.app.arrangement.ArrPartArmed = true;
  for (int row : {0, 1}) {
    desk_.Click(row);
    desk_.Wait(100);
  }
  EXPECT_THAT(desk_.Wire(), IsEmpty());
  EXPECT_EQ(desk_.state().EditRecord, "");
  EXPECT_FALSE(desk_.program.app.arrangement.EditorChanged);
}

TEST_F(UserBank, NothingIsSentWhileTheListIsOnlyPutInItsPlaceOrNoPortIsOpen) {
  desk_.OpenBank(Bank());
  desk_.program.app.core.ListBusy = true;
  desk_.Click(3);
  desk_.program.app.core.ListBusy = false;
  EXPECT_EQ(desk_.state().EditRecord, "");
  desk_.Press("mnuDevMIDIOut(0)");
  desk_.Click(3);
  EXPECT_THAT(desk_.Wire(), IsEmpty());
  EXPECT_EQ(At(desk_.state().EditRecord, 174), 3) << "without a port the program is still the one to be edited";
}

TEST_F(UserBank, AnArmedPartGetsTheProgramAndNothingIsSelected) {
  desk_.OpenBank(Bank());
  ArrangementState& arrangement = desk_.program.app.arrangement;
  arrangement.ArrPartArmed = true;
  arrangement.ArrPartSlots[4] = 1;
  desk_.Click(12);
  EXPECT_THAT(desk_.Wire(), IsEmpty());
  EXPECT_TRUE(arrangement.EditorChanged);
}

TEST_F(UserBank, TheMonitorIsClearedThenShowsTheSelectionAndItsLastTwoBytesAgain) {
  desk_.OpenBank(Bank(1));
  std::vector<std::string> lines;
  desk_.program.app.midi.MonitorOn = true;
  desk_.program.app.midi.Monitor = [&lines](std::string_view line) { lines.push_back(HexText(line)); };
  desk_.Click(16);
  EXPECT_THAT(lines, ElementsAre("", "B1 00 00 B1 20 03 C1 10", "C1 10"));
}

TEST_F(UserBank, AnotherChannelStandsInTheHeaderAndEndsProgramEditing) {
  desk_.OpenBank(Bank(4));
  desk_.Press("frmPrgUN(1).CommProgram");
  EXPECT_THAT(desk_.Wire(), ElementsAre("0 mode 02"));
  EXPECT_TRUE(desk_.program.app.midi.ProgramEditing);
  desk_.program.app.midi.GlobalChannel = 7;
  desk_.Click(0);
  EXPECT_EQ(desk_.Wire(), Selection(0, 7, 3, 0)) << "in Program mode on the global channel";
  EXPECT_FALSE(desk_.Enabled("mnuSalva"));
  desk_.Channel("frmPrgUN(1)", 11);
  EXPECT_FALSE(desk_.program.app.midi.ProgramEditing);
  EXPECT_EQ(desk_.Control(1, 286), 11);
  EXPECT_EQ(desk_.Caption(1), "File Prg - Bank.prg (1) - MIDI Channel 12");
  desk_.Click(0);
  EXPECT_EQ(desk_.Wire(), Selection(0, 11, 3, 0));
  EXPECT_TRUE(desk_.Enabled("mnuSalva")) << "the channel can be saved";
  desk_.Press("mnuSalva");
  EXPECT_EQ(At(desk_.folder.Get("Bank.prg"), 16), 11);
  EXPECT_FALSE(desk_.Enabled("mnuSalva"));
  EXPECT_TRUE(desk_.Prg(1)->UserClose());
  EXPECT_THAT(desk_.program.Boxes(), IsEmpty());
}

TEST_F(UserBank, SendingAndTheEditorsAreOffered) {
  desk_.OpenBank(Bank());
  EXPECT_FALSE(Button("CommEdit"));
  desk_.Click(0);
  EXPECT_TRUE(Button("CommEdit"));
  EXPECT_TRUE(desk_.Enabled("mnuEdit"));
  EXPECT_TRUE(desk_.Enabled("mnuEditPerf"));
  EXPECT_TRUE(Button("CommLoad"));
  EXPECT_TRUE(desk_.Enabled("mnuLoadPrg"));
  EXPECT_FALSE(desk_.Enabled("mnuIngrandisci"));
  EXPECT_FALSE(desk_.Enabled("mnuShowPrg"));
}

TEST_F(UserBank, EnterSelectsAsAClickDoes) {
  desk_.OpenBank(Bank());
  desk_.Click(5);
  desk_.Wire();
  desk_.Key("frmPrgUN(1).List1", {ui::Key::kEnter, ""});
  EXPECT_EQ(desk_.Wire(), Selection(0, 0, 3, 5));
}

TEST_F(UserBank, SpaceOnALinkShowsTheBankOnTheProgramLinkedToAndNothingIsHeard) {
  std::string file = Bank();
  PutLink(file, 0, 1, 70, "Small^Orch");
  PutLink(file, 1, 4, 8, "Brush Kit");
  PutLink(file, 2, 9, 8, "Nowhere");
  PutLink(file, 3, 2, 200, "Nowhere");
  PutLink(file, 4, 3, 1, "Nowhere");
  desk_.OpenBank(file);
  const auto space = [this](int row) {
    desk_.Click(row);
    desk_.Log();
    desk_.Key("frmPrgUN(1).List1", {ui::Key::kSpace, " "});
  };
  space(0);
  ASSERT_NE(desk_.program.toolkit.FindForm("frmPcgAE(7)"), nullptr);
  EXPECT_EQ(desk_.Find<ui::ListBox>("frmPcgAE(7).List1")->Row(), 6);
  EXPECT_THAT(desk_.Wire(), IsEmpty());
  space(1);
  ASSERT_NE(desk_.program.toolkit.FindForm("frmDrum(9)"), nullptr);
  EXPECT_EQ(desk_.Find<ui::ListBox>("frmDrum(9).List1")->Row(), 8);
  const std::size_t forms = desk_.program.toolkit.forms().size();
  for (int row : {2, 4, 5}) space(row);
  EXPECT_EQ(desk_.program.toolkit.forms().size(), forms) << "what points nowhere, and what is no link, opens nothing";
  space(3);
  EXPECT_EQ(desk_.Find<ui::ListBox>("frmPcgAE(8).List1")->Row(), -1) << "the bank is there, the program isn't";
}

TEST_F(UserBank, DeleteInAReadOnlyWindowTellsSo) {
  desk_.Put("Bank.prg", Bank());
  desk_.OpenPrg("Bank.prg", true);
  EXPECT_EQ(desk_.Caption(1), "File Prg - Bank.prg (1) - MIDI Channel 1 - Read Only");
  EXPECT_EQ(desk_.Control(1, 2), 1);
  desk_.Click(0);
  desk_.Key("frmPrgUN(1).List1", {ui::Key::kDelete, ""});
  EXPECT_THAT(desk_.program.Boxes(), ElementsAre(ShownBox{48, "Bank", "Read only file"}));
}

TEST_F(UserBank, RandomBytesAsProgramsAreShownAndHeardAndNothingChangesByLooking) {
  std::mt19937 random(5);
  for (int round = 0; round < 20; ++round) {
    std::string file = RandomBytes(random, 30480);
    file.replace(0, 7, "KPGG" + Hand({0x4D, 0, 0}));
    for (std::size_t n = 0; n < 64; ++n) {
      char& first = file[48 + 172 * n];
      if (n % 2 == 0 || first == 1) first = n % 2 == 0 ? 1 : 2;
    }
    desk_.OpenBank(file, "Wild.pgg");
    ASSERT_NE(desk_.Prg(1), nullptr);
    desk_.settings().AutoPrgSel = round % 2 == 1;
    desk_.program.app.arrangement.ArrPartArmed = round % 3 == 1;
    desk_.program.app.arrangement.ArrPartSlots[static_cast<std::size_t>(round % 19)] = 1;
    for (int row = 0; row < 64; ++row) {
      EXPECT_EQ(desk_.Rows().RowText(row).substr(2, 2), row % 2 == 0 ? " *" : "  ");
      desk_.Click(row);
      desk_.Key("frmPrgUN(1).List1", {ui::Key::kSpace, " "});
      desk_.Key("frmPrgUN(1).List1", {ui::Key::kCharacter, "p"});
      desk_.Wait(20);
      desk_.program.toolkit.Activate(*desk_.Prg(1));
    }
    EXPECT_EQ(desk_.Image().substr(270, 30480), file);
    EXPECT_EQ(desk_.Control(1, 7), 0);
    EXPECT_TRUE(desk_.Prg(1)->UserClose());
    EXPECT_EQ(desk_.folder.Get("Wild.pgg"), file);
  }
  EXPECT_THAT(desk_.program.Boxes(), IsEmpty());
}

}  // namespace
}  // namespace zentaline::test
