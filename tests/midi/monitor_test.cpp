// The monitor's window after each kind of message, and the window of the channels.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "midi/api.h"
#include "tests/style/style_desk.h"
#include "tests/support/config.h"

namespace zentaline::test {
namespace {

using ::testing::IsEmpty;

// As the monitor shows bytes; written apart from it.
std::string Line(std::string_view bytes) {
  std::string line;
  for (const char c : bytes) {
    char digits[4];
    std::snprintf(digits, sizeof digits, "%02X ", static_cast<unsigned>(static_cast<unsigned char>(c)));
    line += digits;
  }
  return line + "\r\n";
}

class Monitor : public ::testing::Test {
 protected:
  void SetUp() override { desk_.Press("mnuMsgEx"); }
  std::string Text() { return desk_.Text("frmMsgEx.Text1"); }
  Application& app() { return desk_.program.app; }
  MidiState& midi() { return app().midi; }

  StyDesk desk_;
};

TEST_F(Monitor, TheEntryOpensAndClosesTheWindowAndShowsItsState) {
  EXPECT_EQ(desk_.CaptionOf("frmMsgEx"), "MIDI messages");
  EXPECT_TRUE(desk_.Find<ui::MenuEntry>("mnuMsgEx")->checked());
  EXPECT_TRUE(midi().MonitorOn);
  EXPECT_TRUE(desk_.Enabled("mnuChiudi"));
  desk_.Press("mnuMsgEx");
  EXPECT_EQ(desk_.program.toolkit.FindForm("frmMsgEx"), nullptr);
  EXPECT_FALSE(desk_.Find<ui::MenuEntry>("mnuMsgEx")->checked());
  EXPECT_FALSE(midi().MonitorOn);
  EXPECT_FALSE(desk_.Enabled("mnuChiudi"));
}

TEST_F(Monitor, TheFramesButtonUnchecksTheEntry) {
  desk_.CloseForm("frmMsgEx");
  EXPECT_FALSE(desk_.Find<ui::MenuEntry>("mnuMsgEx")->checked());
  EXPECT_EQ(app().core.OpenChildCount, 0);
}

TEST_F(Monitor, ALongMessageStandsAlone) {
  SendModeSongPlay(app());
  SendModeArrPlay(app());
  EXPECT_EQ(Text(), "F0 42 30 4D 4E 0A F7 \r\n");
}

TEST_F(Monitor, AnArrangementParameterIsShownAndTheMonitorStaysOn) {
  SendArrParam(app(), 0, 0x21, 100, 0);
  EXPECT_EQ(Text(), "F0 42 30 4D 41 21 64 00 F7 \r\n");
  EXPECT_TRUE(midi().MonitorOn);
}

TEST_F(Monitor, AProgramParameterIsShownAndTheMessageBehindItIsNot) {
  SendPrgParam(app(), 1, 2, 3);
  EXPECT_EQ(Text(), "F0 42 30 4D 60 01 02 03 00 F7 \r\n");
  EXPECT_FALSE(midi().MonitorOn);
  SendModeSongPlay(app());
  EXPECT_EQ(Text(), "F0 42 30 4D 60 01 02 03 00 F7 \r\n");
  SendArrParam(app(), 0, 0x21, 100, 0);
  EXPECT_EQ(Text(), "F0 42 30 4D 41 21 64 00 F7 \r\n");
}

TEST_F(Monitor, NotesStandAlone) {
  SendNoteOn(app(), 2, 60, 100);
  EXPECT_EQ(Text(), "92 3C 64 \r\n");
  SendNoteOff(app(), 2, 60, 0);
  EXPECT_EQ(Text(), "82 3C 00 \r\n");
  SendAllNotesOff(app(), 2);
  EXPECT_EQ(Text(), "B2 7B \r\n");
}

TEST_F(Monitor, AProgramSelectionAddsALine) {
  SendNoteOn(app(), 0, 60, 100);
  Bytes image(20, '\0');
  image[0] = 4;
  SelectProgram(app(), image, 5);
  const std::string text = Text();
  EXPECT_TRUE(text.starts_with("90 3C 64 \r\n")) << text;
  EXPECT_EQ(text.size(), 11U + 8 * 3 + 2);
  EXPECT_TRUE(text.ends_with("C0 05 \r\n")) << text;
}

TEST_F(Monitor, AnArrangementSelectionIsLeftToWhoAskedForIt) {
  SendNoteOn(app(), 0, 60, 100);
  int number = 3;
  SelectArrangement(app(), number, 19);
  EXPECT_EQ(Text(), "90 3C 64 \r\n");
}

TEST_F(Monitor, AnArrangementDumpIsOneLine) {
  desk_.Put("Song.arr", ArrBytes({{"One", 0, false, {}}}));
  desk_.Open("Song.arr");
  desk_.Press("frmArrU(1).CommLoadArr");
  desk_.Log();
  desk_.dumps.clear();
  desk_.Wait(100);
  desk_.Log();
  ASSERT_EQ(desk_.dumps.size(), 1U);
  EXPECT_EQ(desk_.dumps[0].size(), 12002U);
  EXPECT_EQ(Text(), Line(desk_.dumps[0]));
}

TEST_F(Monitor, OfALongerMessageTheFirst21666BytesAreShown) {
  for (const std::size_t length : {21665U, 21666U, 21667U, 70000U}) {
    std::string message = Hand({0xF0});
    while (message.size() + 1 < length) message += static_cast<char>(message.size() % 127);
    message += Hand({0xF7});
    MonitorLog(app(), {});
    MonitorLog(app(), message);
    EXPECT_EQ(Text(), Line(message.substr(0, 21666))) << length;
  }
}

TEST_F(Monitor, EachByteHasItsTwoDigits) {
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  MonitorLog(app(), {});
  MonitorLog(app(), all);
  EXPECT_EQ(Text(), Line(all));
}

TEST_F(Monitor, AStyleDumpIsShownAndThePauseLeavesItThere) {
  desk_.Put("Song.sty", StyBytes(4));
  desk_.OpenSty("Song.sty");
  desk_.Press("frmStyUN(1).CommLoadStyGrp(3)");
  desk_.Wait(500);
  desk_.Log();
  EXPECT_EQ(Text(), Line(desk_.dumps.back()));
}

TEST_F(Monitor, WithoutAnOutputNothingIsShown) {
  SendModeSongPlay(app());
  const std::string before = Text();
  desk_.Press("mnuDevMIDIOut(0)");
  SendModeArrPlay(app());
  EXPECT_EQ(Text(), before);
}

TEST_F(Monitor, ClosedItTakesNothingWhateverMonitorOnSays) {
  desk_.Press("mnuMsgEx");
  SendArrParam(app(), 0, 0x21, 100, 0);
  EXPECT_TRUE(midi().MonitorOn);
  desk_.Press("mnuMsgEx");
  EXPECT_EQ(Text(), "");
}

TEST_F(Monitor, TheTextIsOnlyToBeRead) {
  EXPECT_FALSE(desk_.Find<ui::TextBox>("frmMsgEx.Text1")->UserType("x"));
}

TEST_F(Monitor, TheRightButtonOpensTheEditMenu) {
  desk_.Log();
  desk_.Find<ui::TextBox>("frmMsgEx.Text1")->UserContext();
  desk_.program.toolkit.FindForm("frmMsgEx")->UserContext();
  EXPECT_THAT(desk_.Log(), ::testing::ElementsAre("popup 0 mnuModifica", "popup 0 mnuModifica"));
}

TEST_F(Monitor, ItsFirstSizeIsSixtyFourCharactersAndThirtyLines) {
  // A character is 8 wide and 16 high.
  const ui::Placement& place = desk_.program.toolkit.FindForm("frmMsgEx")->placement();
  EXPECT_EQ(place.width, 512);
  EXPECT_EQ(place.height, 480);
}

TEST_F(Monitor, ItComesBackAtTheNextStartWhereItWas) {
  ui::Form* window = desk_.program.toolkit.FindForm("frmMsgEx");
  desk_.program.toolkit.UserPlaces(*window, {20, 30, 600, 250, ui::WindowState::kNormal});
  desk_.program.toolkit.UserPlaces(*window, {20, 30, 600, 250, ui::WindowState::kMinimised});
  ASSERT_TRUE(desk_.program.Quit());
  ConfigFile file;
  file.bytes = desk_.folder.Get("Zentaline.ini");
  // The sixteenth placement of nine bytes, from position 51 on.
  const int at = 51 + 15 * 9;
  EXPECT_EQ(file.At(1, at) * 256 + file.At(1, at + 1), 16020);
  EXPECT_EQ(file.At(1, at + 2) * 256 + file.At(1, at + 3), 16030);
  EXPECT_EQ(file.At(1, at + 4) * 256 + file.At(1, at + 5), 600);
  EXPECT_EQ(file.At(1, at + 6) * 256 + file.At(1, at + 7), 250);
  TestProgram next(desk_.folder);
  ASSERT_TRUE(next.Start());
  ASSERT_NE(next.toolkit.FindForm("frmMsgEx"), nullptr);
  EXPECT_TRUE(next.app.main->Menu(MenuId::mnuMsgEx).checked());
  EXPECT_EQ(next.toolkit.FindForm("frmMsgEx")->placement(),
            (ui::Placement{20, 30, 600, 250, ui::WindowState::kNormal}));
  // Closed, it stays closed, and keeps its place for when it is opened.
  next.Press(MenuId::mnuMsgEx);
  ASSERT_TRUE(next.Quit());
  TestProgram third(desk_.folder);
  ASSERT_TRUE(third.Start());
  EXPECT_EQ(third.toolkit.FindForm("frmMsgEx"), nullptr);
  EXPECT_FALSE(third.app.main->Menu(MenuId::mnuMsgEx).checked());
  third.Press(MenuId::mnuMsgEx);
  EXPECT_EQ(third.toolkit.FindForm("frmMsgEx")->placement(),
            (ui::Placement{20, 30, 600, 250, ui::WindowState::kNormal}));
}

// --- The channels ---

class Channels : public Monitor {
 protected:
  void SetUp() override { desk_.Press("mnuMIDI"); }
  ui::ComboBox& List(int i) { return *desk_.Find<ui::ComboBox>("frmMIDI.Combo3(" + std::to_string(i) + ")"); }
};

TEST_F(Channels, TheListsShowOneToSixteen) {
  EXPECT_EQ(desk_.CaptionOf("frmMIDI"), "MIDI Channels");
  const std::vector<std::string> expected = {"1", "1", "1", "1", "1", "10", "11", "12", "13", "14", "15"};
  for (int i = 0; i < 11; ++i) {
    ASSERT_EQ(List(i).rows(), 16);
    for (int row = 0; row < 16; ++row) EXPECT_EQ(List(i).RowText(row), std::to_string(row + 1));
    EXPECT_EQ(List(i).text(), expected[static_cast<std::size_t>(i)]) << i;
  }
}

TEST_F(Channels, ChannelSixteenForTheWholeMakesTheFrameBeginWith3F) {
  desk_.Log();
  EXPECT_TRUE(List(0).UserSelect(15));
  EXPECT_THAT(desk_.Log(), IsEmpty());
  desk_.program.toolkit.lines.clear();
  SendModeSongPlay(app());
  EXPECT_EQ(desk_.program.toolkit.lines.at(0), "long 0 F0 42 3F 4D 4E 06 F7");
}

TEST_F(Channels, EachListIsKeptAtItsPlaceInTheConfiguration) {
  for (int i = 0; i < 11; ++i) EXPECT_TRUE(List(i).UserSelect((i + 3) % 16)) << i;
  EXPECT_TRUE(desk_.Press("frmMIDI.CommClose"));
  ASSERT_TRUE(desk_.program.Quit());
  ConfigFile file;
  file.bytes = desk_.folder.Get("Zentaline.ini");
  for (int i = 0; i < 11; ++i) EXPECT_EQ(file.At(1, 240 + i), (i + 3) % 16) << i;
  TestProgram next(desk_.folder);
  next.Start();
  next.Press(MenuId::mnuMIDI);
  for (int i = 0; i < 11; ++i) {
    auto* list = static_cast<ui::ComboBox*>(next.toolkit.FindForm("frmMIDI")->Find("Combo3", i));
    EXPECT_EQ(list->row(), (i + 3) % 16) << i;
  }
}

TEST_F(Channels, TheNextMessageUsesTheNewChannelOfAPart) {
  List(1).UserSelect(4);
  desk_.program.toolkit.lines.clear();
  int number = 2;
  SelectArrangement(app(), number, 19);
  EXPECT_EQ(desk_.program.toolkit.lines.at(2), "short 0 C4 02");
}

TEST_F(Channels, AWindowThatIsOpenComesToTheFront) {
  desk_.Press("mnuStyA");
  desk_.Log();
  desk_.Press("mnuMIDI");
  EXPECT_THAT(desk_.Log(), IsEmpty());
  EXPECT_EQ(desk_.program.toolkit.active_child()->FullName(), "frmMIDI");
}

TEST_F(Channels, TheCaptionIsItalianInItalian) {
  desk_.CloseForm("frmMIDI");
  app().core.LanguageOffset = 0;
  desk_.Press("mnuMIDI");
  EXPECT_EQ(desk_.CaptionOf("frmMIDI"), "Canali MIDI");
  EXPECT_EQ(desk_.Text("frmMIDI.Lab3(2)"), "LOW (Lower)");
}

}  // namespace
}  // namespace zentaline::test
