// The program under edit, as the windows share it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/state_names.h"
#include "program/windows.h"
#include "tests/program/prg_desk.h"

namespace zentaline::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ProgramUnderEdit : public ::testing::Test {
 protected:
  Application& app() { return desk_.program.app; }
  long State(const std::string& name) { return std::get<long>(*ReadState(app(), name)); }

  PrgDesk desk_;
};

// Position p of the record holds p.
std::string CountingBank() {
  std::string file = Bank();
  for (std::size_t position = 17; position <= 172; ++position) {
    file[48 + 172 * 5 + position - 1] = static_cast<char>(position);
  }
  return file;
}

TEST_F(ProgramUnderEdit, ARecordThatIsTakenUpIsWhatPerformancesStartFrom) {
  app().program.PerfStepValue = {1, 2, 3, 4, 5, 6, 7, 8};
  desk_.OpenBank(CountingBank());
  desk_.Click(5);
  EXPECT_THAT(app().program.PerfBase, ElementsAre(54, 59, 62, 80, 72, 74, 65, 146, 86, 77, 148, 101, 106, 109, 127, 119,
                                                  121, 112, 147, 133, 124, 149));
  EXPECT_THAT(app().program.PerfStepValue, ElementsAre(0, 0, 0, 0, 0, 0, 0, 0));
  EXPECT_EQ(State("PerfBase(0)"), 54);
  EXPECT_EQ(State("PerfBase(21)"), 149);
  EXPECT_FALSE(ReadState(app(), "PerfBase(22)").has_value());
  EXPECT_EQ(State("PerfStepValue(7)"), 0);
  EXPECT_FALSE(ReadState(app(), "PerfStepValue(8)").has_value());
}

TEST_F(ProgramUnderEdit, KeepsItsRecordInTheBank) {
  desk_.OpenBank(CountingBank());
  desk_.Click(5);
  BytesFor(app().program.EditRecord).replace(0, 16, "Another name    ");
  BytesFor(app().program.EditRecord).replace(171, 1, "z");
  FlagFor(app().program.ProgramChanged) = true;
  desk_.Wire();
  EXPECT_EQ(CommitProgram(app()), 0);
  EXPECT_EQ(desk_.Image().substr(318 + 172 * 5, 172), app().program.EditRecord.value().substr(0, 172));
  EXPECT_EQ(desk_.Control(1, 7), 1);
  EXPECT_FALSE(app().program.ProgramChanged);
  EXPECT_EQ(desk_.Rows().RowText(5), "16  Another name    ");
  EXPECT_THAT(desk_.Wire(), IsEmpty()) << "nobody clicked";
}

TEST_F(ProgramUnderEdit, IsRefusedByABankThatIsReadOnly) {
  desk_.Put("Bank.prg", CountingBank());
  desk_.OpenPrg("Bank.prg", true);
  desk_.Click(5);
  const Bytes before = desk_.Image();
  BytesFor(app().program.EditRecord).replace(20, 1, "z");
  FlagFor(app().program.ProgramChanged) = true;
  EXPECT_EQ(CommitProgram(app()), 1);
  EXPECT_THAT(desk_.program.Boxes(), ElementsAre(ShownBox{48, "Bank", "Read only file"}));
  EXPECT_TRUE(app().program.ProgramChanged);
  EXPECT_EQ(desk_.Image(), before);
}

TEST_F(ProgramUnderEdit, WithoutABankIsKeptNowhere) {
  EXPECT_EQ(CommitProgram(app()), 2) << "nothing was taken up yet";
  desk_.OpenBank(CountingBank());
  desk_.Click(5);
  desk_.Prg(1)->Close();
  EXPECT_EQ(CommitProgram(app()), 2);
  EXPECT_THAT(desk_.program.Boxes(), IsEmpty());
}

TEST_F(ProgramUnderEdit, SelectingAnOscillatorLeavesTheGuardAsItWas) {
  for (const bool guard : {false, true}) {
    app().core.FormLoading = guard;
    SelectOscillator(app(), 2);
    EXPECT_EQ(State("EditOsc"), 2);
    EXPECT_EQ(app().core.FormLoading, guard);
  }
  app().core.FormLoading = false;
}

TEST_F(ProgramUnderEdit, ReadsTheNumberOfASoundFromTheLeadingDigitsOfThreeCharacters) {
  EXPECT_EQ(MultisoundNumber("105  Sound"), 105);
  EXPECT_EQ(MultisoundNumber("5189"), 518);
  EXPECT_EQ(MultisoundNumber("12x"), 12);
  EXPECT_EQ(MultisoundNumber("7"), 7);
  EXPECT_EQ(MultisoundNumber(" 12"), 0);
  EXPECT_EQ(MultisoundNumber("Piano"), 0);
  EXPECT_EQ(MultisoundNumber(""), 0);
}

TEST_F(ProgramUnderEdit, WithTheEditorClosedNoControlOfItIsMoved) {
  app().program.PrgEditorOpen = true;
  EXPECT_EQ(app().prg_editor, nullptr) << "its window isn't there, whatever the mark says";
  EXPECT_FALSE(SetProgramBar(app(), kOscHScroll, 4, 10));
  app().program.PrgEditorOpen = false;
  EXPECT_FALSE(SetProgramBar(app(), kOscHScroll, 4, 10));
  SetMultisoundText(app(), 1, "001");
  SetMultisoundTarget(app(), 1);
  EXPECT_EQ(State("MultisoundTarget"), 1);
  SetMultisoundTarget(app(), 0);
  EXPECT_EQ(State("MultisoundTarget"), 0);
}

}  // namespace
}  // namespace zentaline::test
