// The window of the keyboard on the screen: its sliders and buttons, what it keeps, how it comes and goes, how its keys
// look.
#include <cmath>
#include <functional>

#include "aids/key_drawings.h"
#include "tests/aids/keyboard_desk.h"
#include "tests/support/config.h"

namespace zentaline::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Lines = std::vector<std::string>;

TEST_F(Keyboard, OpensAsTheSettingsHaveItAndSendsNothing) {
  desk_.CloseForm("frmTastiera");
  desk_.program.app.core.settings.Keyboard = {3, 1, 1, 4, 10, 20, 30, 40, 50, 60, 70, 80, 90, 100, 110, 61};
  desk_.Log();
  EXPECT_TRUE(desk_.Press("mnuTastiera"));
  EXPECT_THAT(desk_.Log(), ElementsAre("open 0 frmTastiera \"Keyboard\""));
  EXPECT_EQ(The<ui::ComboBox>("Combo1").row(), 3);
  EXPECT_TRUE(The<ui::CheckBox>("CheckClickKey").value());
  EXPECT_TRUE(The<ui::CheckBox>("CheckHoldNote").value());
  EXPECT_EQ(The<ui::ScrollBar>("HScroll1").value(), 4);
  for (int slider = 0; slider < 11; ++slider) {
    EXPECT_EQ(The<ui::ScrollBar>("VScroll(" + std::to_string(slider) + ")").value(), 10 + 10 * slider);
  }
  EXPECT_EQ(The<ui::ScrollBar>("VScroll1").value(), 61);
  EXPECT_EQ(aids().FirstNote, 60);
  EXPECT_EQ(aids().CurrentNote, 200);
  EXPECT_TRUE(HoldChordEnabled());
}

TEST_F(Keyboard, SettingsBeyondTheRangesShowTheirEndsAndStayAsTheyAre) {
  desk_.CloseForm("frmTastiera");
  const std::array<int, 16> odd = {200, 7, 255, 99, 255, 128, 200, 255, 255, 255, 255, 255, 255, 255, 255, 0};
  desk_.program.app.core.settings.Keyboard = odd;
  desk_.Press("mnuTastiera");
  EXPECT_EQ(The<ui::ComboBox>("Combo1").row(), 15);
  EXPECT_EQ(The<ui::ScrollBar>("HScroll1").value(), 4);
  EXPECT_EQ(The<ui::ScrollBar>("VScroll(0)").value(), 127);
  EXPECT_EQ(The<ui::ScrollBar>("VScroll1").value(), 36);
  EXPECT_EQ(Settings(), odd);
}

TEST_F(Keyboard, TheFirstStartHasItsOwnSettings) {
  EXPECT_EQ(aids().FirstNote, 36);
  EXPECT_TRUE(The<ui::CheckBox>("CheckClickKey").value());
  EXPECT_FALSE(The<ui::CheckBox>("CheckHoldNote").value());
  EXPECT_FALSE(HoldChordEnabled());
  EXPECT_EQ(Text("Lab2(0)"), "100");
  EXPECT_EQ(Text("Lab2(1)"), "0") << "the pan is shown from its centre";
  EXPECT_EQ(Text("Text3"), " C4");
  EXPECT_EQ(Text("Text1"), "");
}

TEST_F(Keyboard, EverySliderSendsItsControllerAndIsKept) {
  const std::pair<int, const char*> sent[] = {{0, "0 B0 07 0B"}, {1, "0 B0 0A 0C"}, {4, "0 B0 49 0F"},
                                              {5, "0 B0 48 10"}, {6, "0 E0 7F 11"}, {7, "0 B0 01 12"},
                                              {8, "0 B0 02 13"}, {9, "0 B0 5B 14"}, {10, "0 B0 5D 15"}};
  for (const auto& [slider, line] : sent) {
    EXPECT_TRUE(Bar("VScroll(" + std::to_string(slider) + ")", 11 + slider));
    EXPECT_THAT(desk_.Wire(), ElementsAre(line));
    EXPECT_EQ(Settings()[4 + static_cast<std::size_t>(slider)], 11 + slider);
    EXPECT_EQ(Text("Lab2(" + std::to_string(slider) + ")"), std::to_string(slider == 1 ? 12 - 64 : 11 + slider));
  }
}

TEST_F(Keyboard, TheChannelIsThatOfTheList) {
  EXPECT_TRUE(The<ui::ComboBox>("Combo1").UserSelect(9));
  EXPECT_THAT(desk_.Wire(), IsEmpty()) << "nothing sounds";
  EXPECT_EQ(Settings()[0], 9);
  Click(0);
  Bar("VScroll(0)", 3);
  Bar("VScroll(6)", 4);
  Press("CommAllNoteOff");
  EXPECT_THAT(desk_.Wire(), ElementsAre("0 99 24 40", "0 89 24 40", "0 B9 07 03", "0 E9 7F 04", "0 B9 7B 00"));
}

TEST_F(Keyboard, AnotherChannelEndsTheNotesOnTheOldOne) {
  Box("CheckHoldNote", true);
  Click(0);
  desk_.Wire();
  The<ui::ComboBox>("Combo1").UserSelect(1);
  EXPECT_THAT(desk_.Wire(), ElementsAre("0 B0 7B 00"));
  EXPECT_THAT(Held(), IsEmpty());
}

TEST_F(Keyboard, OctavesAreNamedAtTheirLeft) {
  const auto names = [this] {
    Lines all;
    for (int octave = 0; octave < 6; ++octave) all.push_back(Text("Label5(" + std::to_string(octave) + ")"));
    return all;
  };
  EXPECT_THAT(names(), ElementsAre("C2", "C3", "C4", "C5", "C6", "C7"));
  Bar("HScroll1", 0);
  EXPECT_THAT(names(), ElementsAre("C0", "C1", "C2", "C3", "C4", "C5"));
}

TEST_F(Keyboard, TheSplitPointGoesToTheInstrumentByItsName) {
  EXPECT_TRUE(Bar("VScroll1", 61));
  EXPECT_EQ(Text("Text3"), " C#4");
  EXPECT_THAT(desk_.Wire(), ElementsAre("0 F0 42 30 4D 41 02 3D 00 F7"));
  EXPECT_EQ(Settings()[15], 61);
}

TEST_F(Keyboard, TheSplitPointOfTheArrangementUnderEditIsShownSilently) {
  Arr arr{"Split"};
  std::string file = ArrBytes({arr});
  file[32 + 23] = 72;
  desk_.Put("one.arr", file);
  desk_.Open("one.arr");
  desk_.Select(0);
  desk_.Press("frmArrU(1).CommEdit");
  EXPECT_EQ(The<ui::ScrollBar>("VScroll1").value(), 72);
  EXPECT_EQ(Text("Text3"), " C5");
  desk_.Wire();
  EXPECT_TRUE(desk_.Find<ui::ScrollBar>("frmEditArr.HScroll1(0)")->UserSet(37));
  EXPECT_EQ(desk_.Wire().size(), 1U) << "the editor's own message alone";
  EXPECT_EQ(Text("Text3"), " C#2");
  EXPECT_EQ(Settings()[15], 37);
}

TEST_F(Keyboard, AnImpossibleSplitPointOfAnArrangementIsShownAsTheEditorShowsIt) {
  std::string file = ArrBytes({Arr{"Low"}, Arr{"High"}});
  file[32 + 23] = 35;
  file[32 + 164 + 23] = '\xFF';
  desk_.Put("two.arr", file);
  Bar("VScroll1", 40);
  desk_.Open("two.arr");
  for (const int row : {0, 1}) {
    desk_.Select(row);
    desk_.Press("frmArrU(1).CommEdit");
    EXPECT_EQ(The<ui::ScrollBar>("VScroll1").value(), 60) << row;
    Bar("VScroll1", 40);
  }
}

TEST_F(Keyboard, ASplitPointThatComesWhileItIsClosedIsNotKept) {
  std::string file = ArrBytes({Arr{"Split"}});
  file[32 + 23] = 72;
  desk_.Put("one.arr", file);
  desk_.CloseForm("frmTastiera");
  desk_.Open("one.arr");
  desk_.Select(0);
  desk_.Press("frmArrU(1).CommEdit");
  EXPECT_EQ(Settings()[15], 60);
}

TEST_F(Keyboard, TheModeButtonsEndTheNotesBehindTheMode) {
  Box("CheckHoldNote", true);
  Click(0);
  desk_.Wire();
  EXPECT_TRUE(Press("CommSongPlay"));
  EXPECT_THAT(desk_.Wire(), ElementsAre("0 mode 06", "0 B0 7B 00"));
  EXPECT_TRUE(Press("CommArrPlay"));
  EXPECT_THAT(desk_.Wire(), ElementsAre("0 mode 0A", "0 B0 7B 00"));
  EXPECT_THAT(Held(), IsEmpty());
}

TEST_F(Keyboard, ItsEntryIsOffWhileItIsOpenAndItsClosingEndsTheNotes) {
  EXPECT_FALSE(desk_.Enabled("mnuTastiera"));
  EXPECT_TRUE(Press("CommClose"));
  EXPECT_THAT(desk_.Wire(), ElementsAre("0 B0 7B 00"));
  EXPECT_TRUE(desk_.Enabled("mnuTastiera"));
}

TEST_F(Keyboard, AtTheEndOfTheProgramTheNotesEndBeforeThePortsClose) {
  desk_.Log();
  EXPECT_TRUE(desk_.program.Quit());
  const Lines log = desk_.Log();
  const auto off = std::find(log.begin(), log.end(), "0 B0 7B 00");
  const auto close = std::find_if(
      log.begin(), log.end(), [](const std::string& line) { return line.find("midiOutClose") != std::string::npos; });
  EXPECT_NE(off, log.end());
  EXPECT_NE(close, log.end());
  EXPECT_LT(off, close);
}

TEST_F(Keyboard, ComesBackAtTheNextStartAsItStood) {
  Bar("VScroll(0)", 17);
  desk_.program.toolkit.FindForm("frmTastiera")->UserPlace({30, 40, 700, 420}, {690, 380});
  EXPECT_TRUE(desk_.program.Quit());
  TestProgram next(desk_.folder);
  next.Start();
  const ui::Form* form = next.toolkit.FindForm("frmTastiera");
  ASSERT_NE(form, nullptr);
  EXPECT_EQ(form->placement(), (ui::Placement{30, 40, 700, 420}));
  EXPECT_EQ(static_cast<const ui::ScrollBar*>(form->Find("VScroll", 0))->value(), 17);
}

TEST_F(Keyboard, ItsSettingsAreSixteenBytesOfTheConfiguration) {
  The<ui::ComboBox>("Combo1").UserSelect(4);
  Box("CheckHoldNote", true);
  Bar("HScroll1", 1);
  for (int slider = 0; slider < 11; ++slider) Bar("VScroll(" + std::to_string(slider) + ")", 20 + slider);
  Bar("VScroll1", 70);
  EXPECT_TRUE(desk_.program.Quit());
  const std::string file = desk_.folder.Get("Zentaline.ini");
  EXPECT_EQ(file.substr(29, 16), Hand({4, 1, 1, 1, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 70}));
}

TEST_F(Keyboard, ImpossibleBytesOfTheConfigurationDoNoHarmAndStayUntilTheirControlIsUsed) {
  EXPECT_TRUE(desk_.program.Quit());
  ConfigFile config = ConfigFile::English();
  config.Byte(1, 48, 0);
  for (int byte = 30; byte <= 45; ++byte) config.Byte(1, byte, 0xFF);
  desk_.Put("Zentaline.ini", config.bytes);
  TestProgram next(desk_.folder);
  next.Start();
  next.toolkit.lines.clear();
  next.Press(MenuId::mnuTastiera);
  EXPECT_THAT(next.toolkit.lines, ElementsAre("open 0 frmTastiera \"Keyboard\""));
  next.toolkit.lines.clear();
  const ui::Form& form = *next.toolkit.FindForm("frmTastiera");
  form.Find("Key", 0)->UserMouse({ui::MouseEvent::kDown, 60, kUpperPart, false});
  EXPECT_THAT(next.toolkit.lines, ElementsAre("short 0 9F 3C 7F"));
  static_cast<ui::ScrollBar*>(form.Find("VScroll", 0))->UserSet(5);
  EXPECT_TRUE(next.Quit());
  EXPECT_EQ(desk_.folder.Get("Zentaline.ini").substr(29, 16),
            std::string(4, '\xFF') + '\x05' + std::string(11, '\xFF'));
}

TEST_F(Keyboard, OnceClosedItStaysAway) {
  desk_.CloseForm("frmTastiera");
  EXPECT_TRUE(desk_.program.Quit());
  TestProgram next(desk_.folder);
  next.Start();
  EXPECT_EQ(next.toolkit.FindForm("frmTastiera"), nullptr);
}

TEST_F(Keyboard, OneFailureIsToldOnce) {
  desk_.program.midi.Fail("midiOutShortMsg", 5, 0);
  Click(0);
  Click(1);
  EXPECT_EQ(desk_.program.Boxes().size(), 1U);
}

TEST_F(Keyboard, ARightClickOpensTheEditMenu) {
  desk_.Log();
  desk_.program.toolkit.FindForm("frmTastiera")->UserContext();
  EXPECT_THAT(desk_.Log(), ElementsAre("popup 0 mnuModifica"));
}

TEST_F(Keyboard, WhiteKeysAreNeverNarrowerThanFourteenPixels) {
  int beds = 0;
  const std::function<void(const ui::Layout&)> look = [&](const ui::Layout& layout) {
    if (layout.kind == ui::Layout::Kind::kPlaces && layout.children.size() == 61) {
      ++beds;
      EXPECT_EQ(layout.place.width, 36 * 200);
      EXPECT_GE(layout.least.width, 36 * 14);
    }
    for (const ui::Layout& child : layout.children) look(child);
  };
  look(desk_.program.toolkit.FindForm("frmTastiera")->layout);
  EXPECT_EQ(beds, 1);
}

TEST_F(Keyboard, EverythingInItHasAToolTip) {
  for (const ui::Control* control : desk_.program.toolkit.FindForm("frmTastiera")->controls()) {
    EXPECT_FALSE(control->tool_tip().empty()) << control->FullName();
  }
}

TEST(ItalianKeyboard, SpeaksItalian) {
  ScratchFolder folder;
  TestProgram program(folder);
  ASSERT_TRUE(program.Start(1));
  program.Press(MenuId::mnuTastiera);
  const ui::Form* form = program.toolkit.FindForm("frmTastiera");
  ASSERT_NE(form, nullptr);
  EXPECT_EQ(form->caption(), "Tastiera");
  EXPECT_EQ(static_cast<const ui::Label*>(form->Find("LabelChannel"))->caption(), "Canale &MIDI");
  EXPECT_EQ(form->Find("VScroll", 9)->tool_tip(), "Quanto suono va al riverbero");
}

TEST(KeyDrawings, KeysStandSideBySideAndBlackOnesBetweenTheWhite) {
  int left = 0;
  for (int key = 0; key < 61; ++key) {
    const ui::Place place = PlaceOfKey(key);
    const bool black = key % 12 == 1 || key % 12 == 3 || key % 12 == 6 || key % 12 == 8 || key % 12 == 10;
    EXPECT_EQ(IsBlackKey(key), black) << key;
    EXPECT_EQ(place.left, black ? left - 60 : left) << key;
    EXPECT_EQ(place.width, black ? 120 : 200);
    EXPECT_EQ(place.height, black ? 960 : 1400);
    if (!black) left += 200;
  }
  EXPECT_EQ(left, 7200);
}

TEST(KeyDrawings, AMarkIsADotOfItsOwnPlaceSizeAndColour) {
  const KeyDrawings drawings;
  const struct {
    int key;
    double x, y, radius;
    ui::Ink ink;
  } marks[] = {{0, 100, 1175, 66, ui::Ink::kBlackKey}, {1, 60, 711, 62, ui::Ink::kKeyMark}};
  for (const auto& mark : marks) {
    EXPECT_EQ(drawings.Of(mark.key, false)->shapes.size() + 1, drawings.Of(mark.key, true)->shapes.size());
    const ui::Shape& dot = drawings.Of(mark.key, true)->shapes.back();
    EXPECT_EQ(dot.ink, mark.ink);
    for (const ui::Point& point : dot.points) {
      EXPECT_NEAR(std::hypot(point.x - mark.x, point.y - mark.y), mark.radius, 0.01);
    }
  }
}

TEST(KeyDrawings, SplitPointsAreNamedWithTheOctaveLast) {
  EXPECT_EQ(SplitPointName(60), " C4");
  EXPECT_EQ(SplitPointName(61), " C#4");
  EXPECT_EQ(SplitPointName(36), " C2");
  EXPECT_EQ(SplitPointName(95), " B6");
  EXPECT_EQ(SplitPointName(96), " C7");
}

}  // namespace
}  // namespace zentaline::test
