// The ports at the start and at the end of the program, as the configuration and the service have them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "midi/api.h"
#include "tests/format_bytes.h"
#include "tests/support/program.h"

namespace zentaline::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// A configuration by its layout: 50 records of 250 bytes, English, with these devices.
std::string Configuration(int out, int in, bool thru, int mode = 0) {
  std::string record = "Zentaline" + Blanks(241);
  Set(record, 19, in);
  Set(record, 25, 2);
  Set(record, 46, thru ? 1 : 0);
  Set(record, 47, mode);
  Set(record, 48, out);
  return record + Zeros(30 * 250) + Blanks(16 * 250) + Zeros(3 * 250);
}

class Start : public ::testing::Test {
 protected:
  // What the service was asked and what was shown, up to and with the main window.
  std::vector<std::string> Run(int out, int in, bool thru, int mode = 0) {
    folder_.Put("Zentaline.ini", Configuration(out, in, thru, mode));
    program_.Start();
    return std::exchange(program_.toolkit.lines, {});
  }
  MidiState& midi() { return program_.app.midi; }

  ScratchFolder folder_;
  TestProgram program_{folder_};
};

constexpr char kArrPlay[] = "long 0 F0 42 30 4D 4E 0A F7";
constexpr char kMain[] = "open 0 frmMain \"Zentaline\"";
constexpr char kTitle[] = "box 0 48 \"Zentaline - Zentaline Console v 4.0 \" ";

TEST_F(Start, StoredPortsAreOpenedAndJoined) {
  EXPECT_THAT(Run(1, 0, true),
              ElementsAre("service 0 midiOutOpen 1 -> 0", "service 0 midiInOpen 0 -> 0", "service 0 midiConnect -> 0",
                          "service 0 midiInStart -> 0", kArrPlay, kMain));
  EXPECT_TRUE(midi().ThruOn);
  EXPECT_TRUE(program_.app.main->mnuDevMIDIOut(1).checked());
  EXPECT_TRUE(program_.app.main->mnuDevMIDIIn(0).checked());
  EXPECT_TRUE(program_.app.main->Menu(MenuId::mnuMIDIThru).checked());
  EXPECT_TRUE(program_.app.main->Menu(MenuId::mnuMIDIThru).enabled());
}

TEST_F(Start, WithoutThruBothAreOpenedAndNotJoined) {
  EXPECT_THAT(Run(0, 1, false),
              ElementsAre("service 0 midiOutOpen 0 -> 0", "service 0 midiInOpen 1 -> 0", kArrPlay, kMain));
}

TEST_F(Start, NoStoredOutputGivesUpBeforeTheInput) {
  EXPECT_THAT(Run(99, 0, true), ElementsAre(kMain));
  EXPECT_FALSE(midi().ThruOn);
  EXPECT_FALSE(midi().OutputOpen);
}

TEST_F(Start, AnOutputThatIsGoneGivesUp) {
  EXPECT_THAT(Run(2, 0, true), ElementsAre(kMain));
  EXPECT_FALSE(midi().ThruOn);
  EXPECT_EQ(midi().MidiOutDevice, 2);
}

TEST_F(Start, AnOutputInUseIsToldAndGivesUp) {
  program_.midi.Fail("midiOutOpen", 4, 1);
  EXPECT_THAT(Run(0, 0, true),
              ElementsAre("service 0 midiOutOpen 0 -> 4",
                          "box 0 48 \"Opening MIDI out device\" \"Output MIDI Device already in use\"", kMain));
  EXPECT_FALSE(midi().ThruOn);
  EXPECT_FALSE(midi().InputOpen);
}

TEST_F(Start, AnInputThatFailsLeavesTheOutputOpen) {
  program_.midi.Fail("midiInOpen", 7, 1);
  EXPECT_THAT(Run(0, 0, true),
              ElementsAre("service 0 midiOutOpen 0 -> 0", "service 0 midiInOpen 0 -> 7",
                          kTitle + std::string("\"Error opening MIDI input device (Cod Err: 507)\""), kArrPlay, kMain));
  EXPECT_TRUE(midi().OutputOpen);
  EXPECT_FALSE(midi().ThruOn);
}

TEST_F(Start, NoStoredInputLeavesTheOutputOpenAndClearsThru) {
  EXPECT_THAT(Run(0, 99, true), ElementsAre("service 0 midiOutOpen 0 -> 0", kArrPlay, kMain));
  EXPECT_FALSE(midi().ThruOn);
}

TEST_F(Start, PortsThatCantBeJoinedStayOpenApart) {
  program_.midi.Fail("midiConnect", 67, 1);
  EXPECT_THAT(Run(0, 0, true), ElementsAre("service 0 midiOutOpen 0 -> 0", "service 0 midiInOpen 0 -> 0",
                                           "service 0 midiConnect -> 67", kArrPlay, kMain));
  EXPECT_FALSE(midi().ThruOn);
  EXPECT_TRUE(midi().InputOpen);
}

TEST_F(Start, AnInputThatDoesNotStartGivesUpThru) {
  program_.midi.Fail("midiInStart", 5, 1);
  Run(0, 0, true);
  EXPECT_FALSE(midi().ThruOn);
  EXPECT_TRUE(midi().OutputOpen);
}

TEST_F(Start, WithoutInputsTheOutputIsNotOpenedEither) {
  program_.midi.SetIns({});
  EXPECT_THAT(Run(0, 0, true),
              ElementsAre("box 0 48 \"Opening MIDI out device\" \"MIDI input device not found\"", kMain));
  EXPECT_FALSE(midi().OutputOpen);
  EXPECT_TRUE(program_.app.main->Menu(MenuId::mnuMIDIOut).enabled());
  EXPECT_FALSE(program_.app.main->Menu(MenuId::mnuMIDIThru).enabled());
  // Its entry is checked all the same, so the first click turns it off and the second one opens it.
  EXPECT_TRUE(program_.app.main->mnuDevMIDIOut(0).checked());
  program_.app.main->mnuDevMIDIOut(0).UserPress();
  EXPECT_EQ(midi().MidiOutDevice, 99);
  program_.app.main->mnuDevMIDIOut(0).UserPress();
  EXPECT_TRUE(midi().OutputOpen);
}

TEST_F(Start, ADeviceThatTellsNoNameIsNotListed) {
  program_.midi.Fail("midiOutGetDevCapsA", 2, 1);
  Run(99, 99, false);
  EXPECT_FALSE(program_.app.main->mnuDevMIDIOut(0).visible());
  EXPECT_TRUE(program_.app.main->mnuDevMIDIOut(1).visible());
  EXPECT_EQ(program_.app.main->mnuDevMIDIOut(1).caption(), "Out B");
  EXPECT_EQ(midi().MidiOutCount, 2);
}

TEST_F(Start, AStoredDeviceThatTellsNoNameGivesUp) {
  program_.midi.Fail("midiInGetDevCapsA", 2, 1);
  EXPECT_THAT(Run(0, 0, true), ElementsAre("service 0 midiOutOpen 0 -> 0", kArrPlay, kMain));
}

TEST_F(Start, AFailedQueryCountsAsTheLastResultUntilSomethingIsSent) {
  program_.midi.Fail("midiInGetDevCapsA", 2, 0);
  Run(99, 99, false);
  EXPECT_EQ(midi().MidiResult, 2);
  program_.app.main->mnuDevMIDIOut(0).UserPress();
  program_.app.main->mnuDevMIDIOut(0).UserPress();
  EXPECT_THAT(std::exchange(program_.toolkit.lines, {}),
              ElementsAre("service 0 midiOutOpen 0 -> 0", "service 0 midiOutClose -> 0",
                          kTitle + std::string("\"Error accessing MIDI output device (Cod Err: 800)\"")));
  program_.app.main->mnuDevMIDIOut(0).UserPress();
  SendModeArrPlay(program_.app);
  program_.app.main->mnuDevMIDIOut(0).UserPress();
  EXPECT_THAT(program_.toolkit.lines,
              ElementsAre("service 0 midiOutOpen 0 -> 0", kArrPlay, "service 0 midiOutClose -> 0"));
}

TEST_F(Start, TheStoredModeIsSentWhateverItIs) {
  const std::string modes[] = {"0A", "06", "04", "0B", "02"};
  const std::string texts[] = {"ARR PLAY", "SONG PLAY", "GLOBAL", "BACK.SEQ.", "PROGRAM"};
  for (int mode = 0; mode < 5; ++mode) {
    TestProgram program(folder_);
    folder_.Put("Zentaline.ini", Configuration(0, 99, false, mode));
    program.Start();
    EXPECT_THAT(program.toolkit.lines,
                ElementsAre("service 0 midiOutOpen 0 -> 0",
                            "long 0 F0 42 30 4D 4E " + modes[static_cast<std::size_t>(mode)] + " F7", kMain));
    EXPECT_EQ(program.app.main->LabelMode.caption(), texts[static_cast<std::size_t>(mode)]);
    EXPECT_EQ(program.app.midi.CurrentMode, mode);
    const MenuId entries[] = {MenuId::mnuArrPlay, MenuId::mnuSongPlay, MenuId::mnuBSq, MenuId::mnuProgram};
    const int checked[] = {0, 1, 3, 4};
    for (std::size_t i = 0; i < 4; ++i) {
      EXPECT_EQ(program.app.main->Menu(entries[i]).checked(), checked[i] == mode) << mode << " " << i;
    }
  }
}

TEST_F(Start, TheEndClosesOutputThenInputThenPartsThem) {
  Run(0, 0, true);
  program_.Quit();
  const std::vector<std::string> lines = program_.toolkit.lines;
  ASSERT_GE(lines.size(), 3U);
  EXPECT_EQ(lines[0], "service 0 midiOutClose -> 0");
  EXPECT_EQ(lines[1], "service 0 midiInClose -> 0");
  EXPECT_EQ(lines[2].substr(0, 25), "service 0 midiDisconnect ");
}

TEST_F(Start, ErrorsAtTheEndOfACloseAfterAFailedSendAreTold) {
  Run(0, 99, false);
  program_.midi.Fail("midiOutLongMsg", 5, 1);
  SendModeArrPlay(program_.app);
  program_.toolkit.lines.clear();
  program_.Quit();
  EXPECT_EQ(program_.toolkit.lines.at(1),
            kTitle + std::string("\"Error accessing MIDI output device (Cod Err: 800)\""));
}

TEST_F(Start, GlobalModeIsShownBeforeItIsSentAndTheOthersAfter) {
  Run(0, 99, false);
  // The box of a failed send sees the display as it stands at that moment.
  std::string shown;
  const auto mode_at_send = [&](void (*send)(Application&)) {
    SendModeArrPlay(program_.app);
    shown.clear();
    midi().MonitorOn = true;
    midi().Monitor = [&](std::string_view bytes) {
      if (!bytes.empty()) shown = program_.app.main->LabelMode.caption();
    };
    send(program_.app);
    midi().Monitor = nullptr;
    return shown;
  };
  EXPECT_EQ(mode_at_send(SendModeGlobal), "GLOBAL");
  EXPECT_EQ(mode_at_send(SendModeSongPlay), "ARR PLAY");
  EXPECT_EQ(mode_at_send(SendModeBackSeq), "ARR PLAY");
  EXPECT_EQ(mode_at_send(SendModeProgram), "ARR PLAY");
  EXPECT_EQ(program_.app.main->LabelMode.caption(), "PROGRAM");
}

TEST_F(Start, AModeOutsideTheFiveLeavesTheCaptionAsItStood) {
  Run(0, 99, false);
  SendModeSongPlay(program_.app);
  midi().CurrentMode = 7;
  ShowMode(program_.app);
  EXPECT_EQ(program_.app.main->LabelMode.caption(), "SONG PLAY");
  for (const MenuId id : {MenuId::mnuArrPlay, MenuId::mnuSongPlay, MenuId::mnuProgram, MenuId::mnuBSq}) {
    EXPECT_FALSE(program_.app.main->Menu(id).checked());
  }
}

TEST_F(Start, APortThatIsInUseIsToldUnderItsOwnTitleWhateverWasDoneBefore) {
  Run(99, 99, false);
  program_.midi.Fail("midiOutOpen", 4, 1);
  program_.midi.Fail("midiInOpen", 4, 1);
  program_.app.core.OperationTitle = "Opening Song.arr";
  ChooseMidiOut(program_.app, 1);
  program_.app.core.OperationTitle = "Opening Song.arr";
  ChooseMidiIn(program_.app, 0);
  EXPECT_THAT(program_.toolkit.lines,
              ElementsAre("service 0 midiOutOpen 1 -> 4",
                          "box 0 48 \"Opening MIDI out device\" \"Output MIDI Device already in use\"",
                          "service 0 midiInOpen 0 -> 4",
                          "box 0 48 \"Opening MIDI out device\" \"Input MIDI Device already in use\""));
}

TEST_F(Start, WithTheOutputClosedSendsDoNothingAndKeepTheLastResult) {
  Run(99, 99, false);
  midi().MidiResult = 3;
  midi().SysExBuffer = "x";
  EXPECT_EQ(SendLong(program_.app), 3);
  SendShort(program_.app);
  EXPECT_THAT(program_.toolkit.lines, IsEmpty());
}

}  // namespace
}  // namespace zentaline::test
