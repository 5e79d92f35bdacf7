// Every control of the program editor: what it stores and what it sends.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "tests/program/golden_table.h"
#include "tests/program/prg_editor_desk.h"

namespace zentaline::test {
namespace {

using Strings = std::vector<std::string>;

Strings Expected(int oscillator, int a, int b, int value) {
  Strings sent;
  if (oscillator > 0) sent.push_back(Sent(2, 0, oscillator - 1));
  sent.push_back(Sent(a, b, value));
  return sent;
}

TEST(PrgEditorRows, EveryBarStoresItsValueAloneAndSendsIt) {
  PrgEditorDesk desk;
  for (const GoldenBar& bar : kGoldenBars) {
    for (const int value : {bar.low, bar.low < 0 ? -1 : 1, 0, bar.high}) {
      SCOPED_TRACE(std::string(bar.control) + " to " + std::to_string(value));
      std::string record = PlainProgram();
      Set(record, static_cast<std::size_t>(bar.position), 3);
      desk.TakeUp(record);
      EXPECT_EQ(desk.Shows(bar.control), 3);
      desk.Wire();
      ASSERT_TRUE(desk.Move(bar.control, value));
      Set(record, static_cast<std::size_t>(bar.position), value < 0 ? value + 256 : value);
      EXPECT_EQ(HexText(desk.Record()), HexText(record));
      EXPECT_EQ(desk.Params(), Expected(bar.oscillator, bar.a, bar.b, value));
      EXPECT_TRUE(desk.state().ProgramChanged);
      // And shown again it stands where it stood.
      desk.TakeUp(PlainProgram());
      desk.TakeUp(record);
      EXPECT_EQ(desk.Shows(bar.control), value);
    }
    EXPECT_FALSE(desk.Move(bar.control, bar.low - 1));
    EXPECT_FALSE(desk.Move(bar.control, bar.high + 1));
  }
  desk.Wire();
}

TEST(PrgEditorRows, EveryListAndCheckBoxStoresItsBitsAndSendsItsValue) {
  PrgEditorDesk desk;
  for (const GoldenStore& each : kGoldenStores) {
    SCOPED_TRACE(std::string(each.control) + " to " + std::to_string(each.move));
    std::string record = PlainProgram();
    Set(record, static_cast<std::size_t>(each.position), each.old_byte);
    desk.TakeUp(record);
    desk.Wire();
    ASSERT_TRUE(desk.Move(each.control, each.move));
    Set(record, static_cast<std::size_t>(each.position), each.new_byte);
    EXPECT_EQ(HexText(desk.Record()), HexText(record));
    EXPECT_EQ(desk.Params(), Expected(each.oscillator, each.a, each.b, each.value));
    EXPECT_TRUE(desk.state().ProgramChanged);
  }
}

// No control of the tables is left out above.
TEST(PrgEditorRows, TheTablesNameEveryControlThatEdits) {
  PrgEditorDesk desk;
  std::set<std::string> named = {"EffCombo(4)", "EffHScroll(4)", "EffHScroll(6)", "BasVScroll(1)", "BasVScroll(2)"};
  for (const GoldenBar& bar : kGoldenBars) named.insert(bar.control);
  for (const GoldenStore& each : kGoldenStores) named.insert(each.control);
  for (const ui::Control* control : desk.program.toolkit.FindForm("frmEditPrg")->controls()) {
    const ui::ControlKind kind = control->kind();
    if (kind != ui::ControlKind::kScrollBar && kind != ui::ControlKind::kComboBox &&
        kind != ui::ControlKind::kCheckBox) {
      continue;
    }
    EXPECT_EQ(named.count(control->FullName()), 1U) << control->FullName();
  }
}

TEST(PrgEditorRows, TheModeGoesOutBeforeAChangeOnlyWhenItIsAnother) {
  PrgEditorDesk desk;
  desk.Press("mnuArrPlay");
  desk.Wire();
  desk.Move("OscHScroll(40)", 5);
  EXPECT_EQ(desk.Params(), (Strings{"0 mode 02", Sent(2, 0, 1), Sent(2, 4, 5)}));
  desk.Move("BasHScroll(0)", 5);
  EXPECT_EQ(desk.Params(), (Strings{Sent(1, 4, 5)}));
}

// "Break Point" alone would leave open whose it is.
TEST(PrgEditorRows, AChangeIsNotedWithItsWords) {
  PrgEditorDesk desk;
  const auto words = [&desk](const std::string& control, int value) {
    EXPECT_TRUE(desk.Move(control, value));
    const EditWords& noted = desk.program.app.edits.actions().back().words;
    return std::string(noted.what) + " | " + std::string(noted.of) + " | " + noted.name;
  };
  EXPECT_EQ(words("OscHScroll(19)", 5), "Break Point | VDF EG, OSC-1 | ");
  EXPECT_EQ(words("OscHScroll(59)", 5), "Break Point | VDF EG, OSC-2 | ");
  EXPECT_EQ(words("OscCombo(21)", 1), "Waveform | Pitch MG, OSC-2 | ");
  EXPECT_EQ(words("OscCheck(0)", 1), "ON. Key sync | Pitch MG, OSC-1 | ");
  EXPECT_EQ(words("OscCombo(22)", 9), "C Send Level | OSC-2 | ");
  EXPECT_EQ(words("BasHScroll(7)", 5), "Frequency | VDF MG | ");
  EXPECT_EQ(words("BasCombo(1)", 3), "OSC-2 Octave | OSCILLATOR | ");
  EXPECT_EQ(words("EffHScroll(0)", 5), "Dry/Wet Bal. | FX 1 | ");
  EXPECT_EQ(words("BasVScroll(2)", 5), "OSC-2 M/D SOUND | OSCILLATOR | ");
}

// The effects of an arrangement are heard too.
TEST(PrgEditorRows, TheEffectsSendNoMode) {
  PrgEditorDesk desk;
  desk.Press("mnuArrPlay");
  desk.Wire();
  desk.Move("EffHScroll(0)", 5);
  desk.Move("EffCombo(0)", 5);
  desk.Move("EffCheck(1)", 1);
  EXPECT_EQ(desk.Params(), (Strings{Sent(19, 7, 5), Sent(16, 0, 42), Sent(16, 3, 1)}));
}

TEST(PrgEditorRows, LabelsTellTheValueInAMusiciansWords) {
  PrgEditorDesk desk;
  const auto label = [&desk](const std::string& bar, int value, const std::string& shown) {
    desk.Move(bar, value);
    return desk.Reads(shown);
  };
  EXPECT_EQ(label("BasHScroll(0)", -50, "BasLab(0)"), "-50");
  EXPECT_EQ(label("OscHScroll(10)", 60, "OscLab(10)"), "C4");
  EXPECT_EQ(label("OscHScroll(10)", 0, "OscLab(10)"), "C-1");
  EXPECT_EQ(label("OscHScroll(65)", 127, "OscLab(65)"), "G9");
  EXPECT_EQ(label("OscHScroll(39)", 1, "OscLab(39)"), "L15");
  EXPECT_EQ(label("OscHScroll(39)", 16, "OscLab(39)"), "CNT");
  EXPECT_EQ(label("OscHScroll(79)", 31, "OscLab(79)"), "R15");
  EXPECT_EQ(label("OscHScroll(79)", 0, "OscLab(79)"), "OFF");
  EXPECT_EQ(label("EffHScroll(0)", 1, "EffLab(0)"), "1");
  EXPECT_EQ(label("EffHScroll(0)", 0, "EffLab(0)"), "DRY");
  EXPECT_EQ(label("EffHScroll(2)", 100, "EffLab(2)"), "FX");
  EXPECT_EQ(label("EffHScroll(5)", 2, "EffLab(5)"), "1:99");
  EXPECT_EQ(label("EffHScroll(5)", 100, "EffLab(5)"), "99:1");
  EXPECT_EQ(label("EffHScroll(7)", 101, "EffLab(7)"), "L");
}

TEST(PrgEditorRows, EveryControlHasAToolTipInBothLanguages) {
  PrgEditorDesk desk;
  for (const int language : {0, 200}) {
    desk.program.app.core.LanguageOffset = language;
    desk.Close();
    desk.Press("frmPrgUN(1).CommEdit");
    for (const ui::Control* control : desk.program.toolkit.FindForm("frmEditPrg")->controls()) {
      if (control->name() == "LabelText") continue;
      EXPECT_NE(control->tool_tip(), "") << control->FullName() << " " << language;
    }
  }
}

}  // namespace
}  // namespace zentaline::test
