// What of the program editor looks like a slip and is wanted, a test for each; and the questions.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/program/prg_editor_desk.h"

namespace zentaline::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Strings = std::vector<std::string>;

std::string With(std::size_t position, int byte, std::string record = PlainProgram()) {
  Set(record, position, byte);
  return record;
}

// --- Reading ---

// A store takes one off, reading doesn't put it back.
TEST(PrgEditorQuirks, ThePanShowsOneLowerAtEachOpening) {
  PrgEditorDesk desk;
  desk.Move("OscHScroll(39)", 20);
  EXPECT_EQ(desk.Byte(95), 19);
  desk.TakeUp(desk.Record());
  EXPECT_EQ(desk.Shows("OscHScroll(39)"), 19);
  desk.TakeUp(With(95, 255));
  EXPECT_EQ(desk.Shows("OscHScroll(39)"), 0);
  desk.TakeUp(With(95, 0));
  EXPECT_EQ(desk.Shows("OscHScroll(39)"), 0);
  desk.TakeUp(With(95, 200));
  EXPECT_EQ(desk.Shows("OscHScroll(39)"), 31);
  EXPECT_EQ(desk.Byte(95), 200);
}

TEST(PrgEditorQuirks, RandomShowsAsTriangle) {
  PrgEditorDesk desk;
  desk.Move("OscCombo(0)", 4);
  desk.TakeUp(desk.Record());
  EXPECT_EQ(desk.Shows("OscCombo(0)"), 0);
  EXPECT_EQ(desk.Byte(50), 4);
}

TEST(PrgEditorQuirks, TheWaveOfTheFilterTakesTheWholeByte) {
  PrgEditorDesk desk({With(38, 0xE3)});
  EXPECT_EQ(desk.Shows("BasCombo(8)"), 3);
  EXPECT_EQ(desk.Shows("BasCheck(0)"), 1);
  desk.Move("BasCombo(8)", 2);
  EXPECT_EQ(desk.Byte(38), 2);
  EXPECT_EQ(desk.Shows("BasCheck(0)"), 1) << "the check box isn't told";
  EXPECT_EQ(desk.Params(), Strings{Sent(13, 0, 2)});
}

TEST(PrgEditorQuirks, TheListOfOscillatorsThatAreSweptAlwaysOpensAtOff) {
  PrgEditorDesk desk({With(38, 0x60)});
  EXPECT_EQ(desk.Shows("BasCombo(9)"), 0);
  desk.Move("BasCombo(9)", 3);
  EXPECT_EQ(desk.Byte(38), 0x60);
  desk.TakeUp(With(38, 0x20));
  EXPECT_EQ(desk.Shows("BasCombo(9)"), 0);
}

TEST(PrgEditorQuirks, TheTrackModesAreSentButNotStored) {
  PrgEditorDesk desk({With(94, 0x12)});
  EXPECT_EQ(desk.Shows("OscCombo(3)"), 1);
  EXPECT_EQ(desk.Shows("OscCombo(4)"), 2);
  desk.Move("OscCombo(3)", 0);
  EXPECT_EQ(desk.Byte(94), 0x12);
  EXPECT_EQ(desk.Params(), (Strings{Sent(2, 0, 0), Sent(6, 3, 0)}));
  desk.TakeUp(desk.Record());
  EXPECT_EQ(desk.Shows("OscCombo(3)"), 1);
}

// 5 is read as "PEDAL", and "VDA-EG" is stored as 5.
TEST(PrgEditorQuirks, AStoredVdaEgOpensAsPedal) {
  PrgEditorDesk desk;
  desk.Move("EffCombo(1)", 5);
  EXPECT_EQ(desk.Byte(161), 5);
  desk.TakeUp(desk.Record());
  EXPECT_EQ(desk.Shows("EffCombo(1)"), 4);
  desk.TakeUp(With(161, 6));
  EXPECT_EQ(desk.Shows("EffCombo(1)"), 5);
  desk.TakeUp(With(161, 2));
  desk.TakeUp(With(161, 7));
  EXPECT_EQ(desk.Shows("EffCombo(1)"), 2) << "a byte that means nothing leaves the list as it was";
}

TEST(PrgEditorQuirks, ABarStopsAtItsEndAndAListStaysWhileTheByteIsKept) {
  PrgEditorDesk desk;
  desk.TakeUp(With(59, 150));
  EXPECT_EQ(desk.Shows("OscHScroll(9)"), 99);
  desk.TakeUp(With(61, 120));
  EXPECT_EQ(desk.Shows("OscHScroll(11)"), 99);
  desk.TakeUp(With(28, 205));
  EXPECT_EQ(desk.Shows("BasHScroll(0)"), 50);
  desk.TakeUp(With(28, 206));
  EXPECT_EQ(desk.Shows("BasHScroll(0)"), -50);
  desk.TakeUp(With(25, 254));
  desk.TakeUp(With(25, 9));
  EXPECT_EQ(desk.Shows("BasCombo(0)"), 3);
  EXPECT_EQ(desk.Byte(25), 9);
  std::string record = With(21, 0xFF);
  Set(record, 22, 0xFF);
  desk.TakeUp(record);
  EXPECT_EQ(desk.Shows("BasVScroll(1)"), 518);
  EXPECT_EQ(desk.Reads("BasText(1)").substr(0, 3), "518");
  EXPECT_EQ(HexText(desk.Record()), HexText(record));
  EXPECT_THAT(desk.Wire(), IsEmpty());
}

// --- Effects ---

TEST(PrgEditorEffects, WithoutAnEffectItsBalanceAndAmountAreDisabled) {
  PrgEditorDesk desk({With(144, 0)});
  for (const char* array : {"EffHScroll", "EffLab", "EffLab1"}) {
    EXPECT_FALSE(desk.Enabled(std::string(array) + "(0)")) << array;
    EXPECT_FALSE(desk.Enabled(std::string(array) + "(1)")) << array;
    EXPECT_TRUE(desk.Enabled(std::string(array) + "(2)")) << array;
    EXPECT_TRUE(desk.Enabled(std::string(array) + "(3)")) << array;
  }
  desk.Move("EffCombo(0)", 46);
  desk.Move("EffCombo(2)", 47);
  EXPECT_TRUE(desk.Enabled("EffHScroll(0)"));
  EXPECT_TRUE(desk.Enabled("EffLab1(1)"));
  EXPECT_FALSE(desk.Enabled("EffHScroll(2)"));
  EXPECT_FALSE(desk.Enabled("EffLab(3)"));
}

TEST(PrgEditorEffects, APlacementBeginsThePansAnewAndSendsEachOnce) {
  PrgEditorDesk desk({With(150, 40, With(151, 41))});
  desk.Move("EffCombo(4)", 3);
  EXPECT_EQ(desk.Params(), (Strings{Sent(18, 0, 3), Sent(18, 1, 5), Sent(18, 2, 5), Sent(18, 3, 5), Sent(18, 4, 5)}));
  EXPECT_EQ(desk.Byte(150), 0x55);
  EXPECT_EQ(desk.Byte(151), 0x55);
  EXPECT_EQ(desk.Byte(152), 0x30);
  for (int bar = 4; bar < 8; ++bar) {
    const std::string index = "(" + std::to_string(bar) + ")";
    EXPECT_TRUE(desk.Visible("EffHScroll" + index) && desk.Visible("EffLab" + index) &&
                desk.Visible("EffLab1" + index));
    EXPECT_EQ(desk.Reads("EffLab" + index), "5");
  }
  EXPECT_EQ(desk.Reads("EffLab1(4)"), "FX 1 Return L");
  EXPECT_EQ(desk.Reads("EffLab1(7)"), "FX 2 Return R");
  EXPECT_FALSE(desk.Move("EffHScroll(5)", 10));
  desk.Move("EffHScroll(4)", 9);
  desk.Move("EffHScroll(5)", 0);
  desk.Move("EffHScroll(6)", 1);
  desk.Move("EffHScroll(7)", 2);
  EXPECT_EQ(desk.Params(), (Strings{Sent(18, 1, 9), Sent(18, 2, 0), Sent(18, 3, 1), Sent(18, 4, 2)}));
  EXPECT_EQ(desk.Byte(150), 0x90);
  EXPECT_EQ(desk.Byte(151), 0x12);

  desk.Move("EffCombo(4)", 2);
  EXPECT_EQ(desk.Params(), (Strings{Sent(18, 0, 2), Sent(18, 1, 0), Sent(18, 2, 0)}));
  EXPECT_EQ(desk.Byte(150), 0);
  EXPECT_EQ(desk.Byte(151), 0);
  EXPECT_FALSE(desk.Visible("EffHScroll(4)") || desk.Visible("EffLab(6)") || desk.Visible("EffLab1(6)"));
  EXPECT_EQ(desk.Reads("EffLab1(5)"), "Output C Pan");
  EXPECT_EQ(desk.Reads("EffLab1(7)"), "Output D Pan");
  EXPECT_EQ(desk.Reads("EffLab(7)"), "OFF");
}

TEST(PrgEditorEffects, AFillShowsThePlacementAndResetsNothing) {
  PrgEditorDesk desk;
  desk.TakeUp(With(150, 0x91, With(151, 0x27, With(152, 0x30))));
  EXPECT_EQ(desk.Shows("EffHScroll(4)"), 9);
  EXPECT_EQ(desk.Shows("EffHScroll(5)"), 1);
  EXPECT_EQ(desk.Shows("EffHScroll(6)"), 2);
  EXPECT_EQ(desk.Shows("EffHScroll(7)"), 7);
  EXPECT_EQ(desk.Byte(150), 0x91);
  desk.TakeUp(With(150, 101, With(151, 51)));
  EXPECT_EQ(desk.Reads("EffLab(5)"), "L");
  EXPECT_EQ(desk.Reads("EffLab(7)"), "50:50");
  EXPECT_THAT(desk.Wire(), IsEmpty());
  EXPECT_FALSE(desk.state().ProgramChanged);
}

// --- Oscillators and sounds ---

TEST(PrgEditorOscillators, TheThreeGroupsStayInStep) {
  PrgEditorDesk desk;
  const auto options = [&desk] {
    std::vector<int> shown;
    for (const char* name :
         {"BasOption(0)", "BasOption(1)", "OscOption(0)", "OscOption(1)", "OscOption(2)", "OscOption(3)"}) {
      shown.push_back(desk.Shows(name));
    }
    return shown;
  };
  EXPECT_THAT(options(), ElementsAre(1, 0, 1, 0, 1, 0));
  EXPECT_EQ(desk.state().EditOsc, 1);
  desk.Move("OscOption(3)", 1);
  EXPECT_THAT(options(), ElementsAre(0, 1, 0, 1, 0, 1));
  EXPECT_EQ(desk.state().EditOsc, 2);
  EXPECT_EQ(desk.Params(), Strings{Sent(2, 0, 1)});
  EXPECT_FALSE(desk.state().ProgramChanged);
  desk.Move("OscHScroll(0)", 1);
  EXPECT_THAT(options(), ElementsAre(1, 0, 1, 0, 1, 0));
}

TEST(PrgEditorOscillators, SelectingRestoresTheGuardAsItWas) {
  PrgEditorDesk desk;
  desk.program.app.core.FormLoading = true;
  SelectOscillator(desk.program.app, 2);
  EXPECT_TRUE(desk.program.app.core.FormLoading);
  desk.program.app.core.FormLoading = false;
  SelectOscillator(desk.program.app, 1);
  EXPECT_FALSE(desk.program.app.core.FormLoading);
}

TEST(PrgEditorSounds, OneChangeSendsOnceAndSelectsNoOscillator) {
  PrgEditorDesk desk;
  desk.Move("BasVScroll(1)", 300);
  EXPECT_EQ(desk.Params(), Strings{Sent(2, 1, 300)});
  EXPECT_EQ(desk.Byte(21), 44);
  EXPECT_EQ(desk.Byte(22), 1);
  EXPECT_EQ(desk.Reads("BasText(1)"), "300            ");
  EXPECT_TRUE(desk.Type("BasText(2)", "105"));
  EXPECT_EQ(desk.Params(), Strings{Sent(2, 1, 105)});
  EXPECT_EQ(desk.Shows("BasVScroll(2)"), 105);
  EXPECT_EQ(desk.Byte(23), 105);
  EXPECT_EQ(desk.Byte(24), 0);
}

TEST(PrgEditorSounds, ANumberAboveTheLastEndsBeforeAnyMessage) {
  PrgEditorDesk desk;
  desk.Press("mnuArrPlay");
  desk.Wire();
  desk.Type("BasText(1)", "519");
  EXPECT_THAT(desk.Wire(), IsEmpty());
  EXPECT_FALSE(desk.state().ProgramChanged);
  EXPECT_EQ(desk.Shows("BasVScroll(1)"), 0);
}

// Without a number it is 0, a sound like any other.
TEST(PrgEditorSounds, OnlyLeadingDigitsCount) {
  PrgEditorDesk desk({With(21, 7)});
  desk.Type("BasText(1)", "x12");
  EXPECT_EQ(desk.Byte(21), 0);
  desk.Type("BasText(1)", "12x");
  EXPECT_EQ(desk.Byte(21), 12);
  desk.Type("BasText(1)", "0123");
  EXPECT_EQ(desk.Byte(21), 12) << "three characters count";
  EXPECT_FALSE(desk.Type("BasText(1)", "1234567890123456")) << "a name has 15 characters";
}

TEST(PrgEditorSounds, AClickMakesABoxWaitAndAnotherWindowTakesTheColoursBack) {
  PrgEditorDesk desk;
  auto* box = desk.Find<ui::TextBox>("frmEditPrg.BasText(1)");
  auto* other = desk.Find<ui::TextBox>("frmEditPrg.BasText(2)");
  box->UserMouse({ui::MouseEvent::kDown});
  EXPECT_EQ(desk.state().MultisoundTarget, 0) << "the release counts";
  box->UserMouse({ui::MouseEvent::kUp, 0, 0, true});
  EXPECT_EQ(desk.state().MultisoundTarget, 0) << "of the left button";
  box->UserMouse({ui::MouseEvent::kUp});
  EXPECT_EQ(desk.state().MultisoundTarget, 1);
  EXPECT_EQ(box->back_colour(), 0xFFFF00U);
  EXPECT_EQ(box->fore_colour(), 0U);
  EXPECT_EQ(other->back_colour(), 0U);
  EXPECT_EQ(other->fore_colour(), 0x00FF00U);
  other->UserKey({ui::Key::kEnter, ""});
  EXPECT_EQ(desk.state().MultisoundTarget, 2);
  EXPECT_EQ(other->back_colour(), 0xFFFF00U);
  desk.program.toolkit.Activate(*desk.Prg(1));
  EXPECT_EQ(box->back_colour(), std::nullopt);
  EXPECT_EQ(other->fore_colour(), std::nullopt);
  EXPECT_EQ(desk.state().MultisoundTarget, 2) << "the target stays";
}

TEST(PrgEditorSounds, ARowsClickEndsTheWaiting) {
  PrgEditorDesk desk;
  desk.Find<ui::TextBox>("frmEditPrg.BasText(1)")->UserMouse({ui::MouseEvent::kUp});
  desk.Click(1);
  EXPECT_EQ(desk.state().MultisoundTarget, 0);
}

// --- The name ---

TEST(PrgEditorName, IsStoredAndNotSent) {
  PrgEditorDesk desk({PlainProgram("A longer name")});
  desk.Press("mnuArrPlay");
  desk.Wire();
  EXPECT_TRUE(desk.Type("BasText(0)", "Übung"));
  EXPECT_EQ(desk.Record().substr(0, 16),
            "\xDC"
            "bung           ");
  EXPECT_TRUE(desk.state().ProgramChanged);
  EXPECT_THAT(desk.Wire(), IsEmpty());
  EXPECT_FALSE(desk.Type("BasText(0)", "12345678901234567"));
}

TEST(PrgEditorPages, TellThatOscillator2IsSilentInSingleMode) {
  PrgEditorDesk desk;
  const auto silent = [&desk] {
    int seen = 0;
    for (const ui::Control* control : desk.program.toolkit.FindForm("frmEditPrg")->controls()) {
      if (control->name() != "LabelText" || !control->visible()) continue;
      if (static_cast<const ui::Label*>(control)->caption() == "In SINGLE mode oscillator 2 is silent.") ++seen;
    }
    return seen;
  };
  EXPECT_EQ(silent(), 1);
  EXPECT_TRUE(desk.Move("OscHScroll(49)", 3)) << "and stays usable";
  desk.Move("BasCombo(2)", 1);
  EXPECT_EQ(silent(), 0);
  desk.TakeUp(PlainProgram());
  EXPECT_EQ(silent(), 1);
}

// --- Questions ---

TEST(PrgEditorQuestions, AClickAsksWhetherChangesAreKept) {
  for (const bool keep : {true, false}) {
    PrgEditorDesk desk({PlainProgram("One"), PlainProgram("Two")});
    desk.Type("BasText(0)", "Changed");
    desk.Move("BasHScroll(0)", 7);
    const std::string edited = desk.Record();
    desk.AnswerBox(keep ? ui::BoxAnswer::kYes : ui::BoxAnswer::kNo);
    desk.Click(1);
    EXPECT_THAT(desk.program.Boxes(), ElementsAre(ShownBox{52, "Edit Program  Bank.prg / One             ",
                                                           "The Program has changed.\nKeep changes ?"}));
    EXPECT_EQ(desk.Image().substr(318, 172), keep ? edited : PlainProgram("One"));
    EXPECT_EQ(desk.Control(1, 7), keep ? 1 : 0);
    EXPECT_EQ(desk.Rows().RowText(0), keep ? "11  Changed         " : "11  One             ");
    EXPECT_FALSE(desk.state().ProgramChanged);
    EXPECT_EQ(desk.Caption(), "Edit Program  Bank.prg / Two             ");
    EXPECT_EQ(desk.Shows("BasHScroll(0)"), 0);
  }
}

// The read-only bank refuses, and the row's click goes on after it.
TEST(PrgEditorQuestions, AReadOnlyBankRefusesAndTheClickGoesOn) {
  PrgEditorDesk desk({PlainProgram("One"), PlainProgram("Two")}, true);
  desk.Move("BasHScroll(0)", 7);
  EXPECT_EQ(desk.Byte(28), 7) << "editing is free";
  desk.AnswerBox(ui::BoxAnswer::kYes);
  desk.Click(1);
  const std::vector<ShownBox> boxes = desk.program.Boxes();
  ASSERT_EQ(boxes.size(), 2U);
  EXPECT_EQ(boxes[1].text, "Read only file");
  EXPECT_EQ(desk.Image().substr(318, 172), PlainProgram("One"));
  EXPECT_EQ(desk.Caption(), "Edit Program  Bank.prg / Two             ");
}

TEST(PrgEditorQuestions, ClosingAsksWhetherToSave) {
  PrgEditorDesk desk;
  desk.Move("BasHScroll(0)", 7);
  EXPECT_FALSE(desk.Close()) << "cancelled";
  EXPECT_TRUE(desk.IsOpen());
  EXPECT_TRUE(desk.state().ProgramChanged);
  desk.AnswerBox(ui::BoxAnswer::kYes);
  EXPECT_TRUE(desk.Close());
  EXPECT_THAT(
      desk.program.Boxes(),
      ElementsAre(
          ShownBox{51, "Edit Program  Bank.prg / Plain           ", "The Program has changed.\nSave changes ?"},
          ShownBox{51, "Edit Program  Bank.prg / Plain           ", "The Program has changed.\nSave changes ?"}));
  EXPECT_EQ(At(desk.Image(), 318 + 28), 7);
  EXPECT_FALSE(desk.state().PrgEditorOpen);
  EXPECT_TRUE(desk.Find<ui::Button>("frmPrgUN(1).CommEdit")->enabled());
}

TEST(PrgEditorQuestions, AClosingThatAReadOnlyBankRefusesKeepsTheWindow) {
  PrgEditorDesk desk({PlainProgram()}, true);
  desk.Move("BasHScroll(0)", 7);
  desk.AnswerBox(ui::BoxAnswer::kYes);
  EXPECT_FALSE(desk.Close());
  EXPECT_TRUE(desk.IsOpen());
  EXPECT_TRUE(desk.state().ProgramChanged);
  desk.AnswerBox(ui::BoxAnswer::kNo);
  EXPECT_TRUE(desk.Close());
  EXPECT_FALSE(desk.state().ProgramChanged);
}

TEST(PrgEditorQuestions, TheButtonNeverReloadsTheRecordUnderEdit) {
  PrgEditorDesk desk;
  desk.Move("BasHScroll(0)", 7);
  desk.Find<ui::Button>("frmPrgUN(1).CommEdit")->SetEnabled(true);
  desk.Press("frmPrgUN(1).CommEdit");
  EXPECT_EQ(desk.Byte(28), 7);
  EXPECT_TRUE(desk.state().ProgramChanged);
  EXPECT_THAT(desk.program.Boxes(), IsEmpty());
}

TEST(PrgEditorQuestions, ABankTakesTheEditorAlongWithOneQuestion) {
  PrgEditorDesk desk;
  desk.Move("BasHScroll(0)", 7);
  EXPECT_FALSE(desk.Prg(1)->UserClose()) << "cancelled";
  EXPECT_TRUE(desk.IsOpen());
  desk.program.Boxes();
  desk.AnswerBox(ui::BoxAnswer::kNo);
  EXPECT_TRUE(desk.Prg(1)->UserClose());
  EXPECT_EQ(desk.program.Boxes().size(), 1U);
  EXPECT_FALSE(desk.IsOpen());
}

TEST(PrgEditorButton, FollowsTheRow) {
  PrgDesk desk;
  std::string file = Bank();
  file.replace(48, 16, std::string(16, ' '));
  PutLink(file, 1, 0, 5, "Link");
  desk.OpenBank(file);
  const auto enabled = [&desk] { return desk.Find<ui::Button>("frmPrgUN(1).CommEdit")->enabled(); };
  EXPECT_FALSE(enabled());
  desk.Click(2);
  EXPECT_TRUE(enabled());
  desk.Click(1);
  EXPECT_FALSE(enabled()) << "a link";
  desk.Click(2);
  desk.Click(0);
  EXPECT_FALSE(enabled()) << "an empty row";
  desk.Click(3);
  desk.Press("frmPrgUN(1).CommEdit");
  EXPECT_FALSE(enabled()) << "its own press";
  EXPECT_TRUE(desk.state().PrgEditorOpen);
  desk.Click(2);
  EXPECT_TRUE(enabled()) << "also while the editor is open";
}

// The port says so once, then nothing more goes out; the record keeps what was moved.
TEST(PrgEditorHostile, APortThatFailsLosesNothingOfTheRecord) {
  PrgEditorDesk desk;
  desk.program.midi.Fail("midiOutLongMsg", 5, 0);
  desk.Move("OscHScroll(9)", 40);
  desk.Move("OscHScroll(9)", 41);
  EXPECT_EQ(desk.Byte(59), 41);
  EXPECT_TRUE(desk.state().ProgramChanged);
  EXPECT_EQ(desk.program.Boxes().size(), 1U);
}

TEST(PrgEditorQuirks, AListThatShowedNothingShowsNothingAgainAfterAStepBack) {
  PrgEditorDesk desk({With(171, 99)});
  ASSERT_EQ(desk.Shows("EffCombo(3)"), -1);
  desk.Move("EffCombo(3)", 2);
  ASSERT_TRUE(desk.Press("mnuAnnulla"));
  EXPECT_EQ(desk.Byte(171), 99);
  EXPECT_EQ(desk.Shows("EffCombo(3)"), -1);
}

// The high bit of a pair alone is none of its three rows: the list stays as it was.
TEST(PrgEditorQuirks, APolarityWithItsHighBitAloneLeavesItsListAsItWas) {
  PrgEditorDesk desk({With(87, 0x11)});
  ASSERT_EQ(desk.Shows("OscCombo(5)"), 0);
  desk.TakeUp(With(87, 0x10));
  EXPECT_EQ(desk.Shows("OscCombo(5)"), 0);
  desk.Params();
  desk.Move("OscCombo(5)", 1);
  EXPECT_EQ(desk.Byte(87), 0);
  EXPECT_EQ(desk.Params().size(), 2u) << "the oscillator, and the value";
  // Taken back it stands in the record again, and is heard as none of "-" and "+".
  ASSERT_TRUE(desk.Press("mnuAnnulla"));
  EXPECT_EQ(desk.Byte(87), 0x10);
  EXPECT_EQ(desk.Shows("OscCombo(5)"), 0);
  const std::vector<std::string> back = desk.Params();
  ASSERT_EQ(back.size(), 2u);
  EXPECT_EQ(back[1], Sent(6, 5, 1));
}

}  // namespace
}  // namespace zentaline::test
