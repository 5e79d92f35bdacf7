// Every message of the catalogue as it leaves through the port, what the monitor sees of it, and what stays in the
// buffer.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "midi/api.h"
#include "tests/format_bytes.h"
#include "tests/midi/unpack7.h"
#include "tests/support/program.h"

namespace zentaline::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::string Hex(std::string_view bytes) {
  std::string text;
  for (const char c : bytes) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    const auto byte = static_cast<unsigned char>(c);
    if (!text.empty()) text += ' ';
    text += kDigits[byte / 16];
    text += kDigits[byte % 16];
  }
  return text;
}

class Catalogue : public ::testing::Test {
 protected:
  void SetUp() override {
    program_.Start();
    program_.app.main->mnuDevMIDIOut(0).UserPress();
    midi().Monitor = [this](std::string_view bytes) { monitor_.push_back(bytes.empty() ? "clear" : Hex(bytes)); };
    program_.toolkit.lines.clear();
  }
  Application& app() { return program_.app; }
  MidiState& midi() { return program_.app.midi; }
  // The messages since the last call, without their time.
  std::vector<std::string> Sent() {
    std::vector<std::string> sent;
    for (const std::string& line : std::exchange(program_.toolkit.lines, {})) {
      if (line.starts_with("long 0 ")) sent.push_back("L " + line.substr(7));
      if (line.starts_with("short 0 ")) sent.push_back("S " + line.substr(8));
    }
    return sent;
  }
  std::vector<std::string> Monitor() { return std::exchange(monitor_, {}); }

  ScratchFolder folder_;
  TestProgram program_{folder_};
  std::vector<std::string> monitor_;
};

TEST_F(Catalogue, AnArrangementParameterIsShownAndLeavesTheMonitorOn) {
  midi().GlobalChannel = 15;
  SendArrParam(app(), 21, 0x46, 5, 0);
  EXPECT_THAT(Sent(), ElementsAre("L F0 42 3F 4D 41 46 45 02 F7"));
  EXPECT_THAT(Monitor(), ElementsAre("clear", "F0 42 3F 4D 41 46 45 02 F7"));
  EXPECT_TRUE(midi().MonitorOn);
  EXPECT_EQ(Hex(midi().SysExBuffer), "F0 42 3F 4D 41 46 45 02 F7");
  // Only that one parameter counts across the banks.
  SendArrParam(app(), 21, 0x45, 5, 0);
  SendArrParam(app(), 9, 0x46, 15, 0);
  SendArrParam(app(), 10, 0x46, 15, 0);
  SendArrParam(app(), 0, 0x10, -3, 1);
  SendArrParam(app(), 0, 0x10, 300, 0);
  EXPECT_THAT(Sent(), ElementsAre("L F0 42 3F 4D 41 45 05 00 F7", "L F0 42 3F 4D 41 46 0F 03 F7",
                                  "L F0 42 3F 4D 41 46 0F 00 F7", "L F0 42 3F 4D 41 10 7D 7F F7",
                                  "L F0 42 3F 4D 41 10 2C 02 F7"));
}

TEST_F(Catalogue, AProgramParameterIsFollowedByTwentyZeroBytesThatNobodySees) {
  SendPrgParam(app(), 13, 4, -1);
  const std::string zeros = "L 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00";
  EXPECT_THAT(Sent(), ElementsAre("L F0 42 30 4D 60 0D 04 7F 7F F7", zeros));
  EXPECT_THAT(Monitor(), ElementsAre("clear", "F0 42 30 4D 60 0D 04 7F 7F F7"));
  EXPECT_FALSE(midi().MonitorOn);
  EXPECT_EQ(Hex(midi().SysExBuffer), "F0 42 30 4D 60 0D 04 7F 7F F7");
  SendPrgParam(app(), 0, 127, -200);
  SendPrgParam(app(), 1, 2, 518);
  EXPECT_THAT(Sent(), ElementsAre("L F0 42 30 4D 60 00 7F 38 7F F7", zeros, "L F0 42 30 4D 60 01 02 06 04 F7", zeros));
}

TEST_F(Catalogue, AModeChangeIsShownOnlyWhileTheMonitorIsOn) {
  SendModeSongPlay(app());
  EXPECT_THAT(Monitor(), IsEmpty());
  midi().MonitorOn = true;
  SendModeSongPlay(app());
  EXPECT_THAT(Monitor(), ElementsAre("clear", "F0 42 30 4D 4E 06 F7"));
}

TEST_F(Catalogue, AFailedMessageHasBeenShownBeforeItFailed) {
  midi().MonitorOn = true;
  program_.midi.Fail("midiOutPrepareHeader", 7, 1);
  SendModeSongPlay(app());
  EXPECT_THAT(Monitor(), ElementsAre("clear", "F0 42 30 4D 4E 06 F7"));
  SendModeSongPlay(app());
  EXPECT_THAT(Monitor(), IsEmpty()) << "a silenced direction shows nothing";
  EXPECT_EQ(midi().CurrentMode, 1);
}

TEST_F(Catalogue, DumpsCutTheirPayloadOutOfTheImage) {
  std::mt19937 random(5);
  std::string image = RandomBytes(random, 45000);
  const auto long_bytes = [this] {
    std::string bytes;
    const std::vector<std::string> sent = Sent();
    EXPECT_EQ(sent.size(), 1U);
    for (std::size_t i = 2; !sent.empty() && i < sent[0].size(); i += 3) {
      bytes += static_cast<char>(std::stoi(sent[0].substr(i, 2), nullptr, 16));
    }
    return bytes;
  };
  SendArrDump(app(), image);
  std::string message = long_bytes();
  EXPECT_EQ(Hex(message.substr(0, 5)), "F0 42 30 4D 64");
  EXPECT_EQ(DumpPayload(message), image.substr(302, 10496));
  EXPECT_EQ(midi().SysExBuffer, message);

  Set(image, 19, 0);
  SendPrgBankDump(app(), image);
  message = long_bytes();
  EXPECT_EQ(Hex(message.substr(0, 5)), "F0 42 30 4D 4C");
  EXPECT_EQ(DumpPayload(message), image.substr(318, 11008) + image.substr(23366, 2104));

  Set(image, 19, 1);
  for (std::size_t n = 0; n < 64; ++n) Set(image, 319 + 172 * n, n % 2 == 1 ? 1 : 2);
  const std::string before = image;
  SendPrgBankDump(app(), image);
  std::string wanted = image.substr(318, 11008);
  for (std::size_t n = 1; n < 64; n += 2) wanted.replace(172 * n, 20, Zeros(20));
  EXPECT_EQ(DumpPayload(long_bytes()), wanted + image.substr(23366, 2104));
  EXPECT_EQ(image, before);

  EXPECT_FALSE(midi().MonitorOn);
  SendGlobalDump(app(), image);
  message = long_bytes();
  EXPECT_EQ(Hex(message.substr(0, 5)), "F0 42 30 4D 51");
  EXPECT_EQ(DumpPayload(message), image.substr(302, 415));
  EXPECT_TRUE(midi().MonitorOn);

  // 286 bytes, 2322 fixed, and 130 events of 16: 2 and 1, since bit 7 is set.
  SendBackSeqDump(app(), std::string_view(image).substr(0, 286 + 2322 + 130 * 16));
  message = long_bytes();
  EXPECT_EQ(Hex(message.substr(0, 7)), "F0 42 30 4D 66 02 01");
  EXPECT_EQ(DumpPayload(message, 7), image.substr(286, 2322 + 130 * 16));
}

TEST_F(Catalogue, AStyleGroupWithAnEmptyStyleSendsNothingAndTouchesNothing) {
  std::string image = Zeros(42622) + "KORG" + Hand({0x4D, 0, 4, 1}) + Zeros(216);
  for (std::size_t e = 0; e < 7; ++e) Set(image, 42622 + 25 + 4 * e, 16 + static_cast<int>(e));
  for (int e = 0; e < 7; ++e) image += std::string(static_cast<std::size_t>(16 + e), static_cast<char>('a' + e));
  midi().SysExBuffer = "kept";
  EXPECT_EQ(SendStyleDump(app(), 1, image), 1);
  EXPECT_EQ(SendStyleDump(app(), 3, image), 1);
  EXPECT_THAT(program_.toolkit.lines, IsEmpty());
  EXPECT_EQ(midi().SysExBuffer, "kept");
  EXPECT_EQ(SendStyleDump(app(), 0, image), 0);
  ASSERT_EQ(program_.toolkit.lines.size(), 2U);
  EXPECT_EQ(program_.toolkit.lines[0], "wait 0 \"Loading Style\"");
  EXPECT_EQ(DumpPayload(midi().SysExBuffer),
            Hand({24, 0, 0, 0x80, 16, 0, 40, 0, 0, 0x80, 17, 0, 57, 0, 0, 0x80, 18, 0, 75, 0, 0, 0x80, 19, 0}) +
                std::string(16, 'a') + std::string(17, 'b') + std::string(18, 'c') + std::string(19, 'd'));
}

TEST_F(Catalogue, ASelectionOfAnArrangementLeavesItsEightBytesForTheCaller) {
  midi().MonitorOn = true;
  midi().ArrChannel = 3;
  int number = 5;
  SelectArrangement(app(), number, 3);
  EXPECT_EQ(number, 69) << "the caller's number grows with bank B";
  EXPECT_THAT(Sent(), ElementsAre("S B3 00 00", "S B3 20 00", "S C3 45"));
  EXPECT_EQ(Hex(midi().SysExBuffer), "B3 00 00 B3 20 00 C3 45");
  EXPECT_THAT(Monitor(), IsEmpty());
  for (const auto& [bank, value] : {std::pair{2, "00"}, std::pair{19, "01"}, std::pair{20, "01"}}) {
    number = 63;
    SelectArrangement(app(), number, bank);
    EXPECT_EQ(number, 63);
    EXPECT_THAT(Sent(), ElementsAre("S B3 00 00", std::string("S B3 20 ") + value, "S C3 3F"));
  }
}

// The eight bytes of a selection are logged as one line, and the last two stay in the buffer.
TEST_F(Catalogue, ASelectionOfAProgramIsLoggedAsOneLine) {
  midi().MonitorOn = true;
  std::string image = Zeros(32094);
  Set(image, 1, 10);
  Set(image, 16, 9);
  SelectProgram(app(), image, 13);
  EXPECT_THAT(Sent(), ElementsAre("S B9 00 00", "S B9 20 04", "S C9 38"));
  EXPECT_THAT(Monitor(), ElementsAre("B9 00 00 B9 20 04 C9 38"));
  EXPECT_EQ(Hex(midi().SysExBuffer), "C9 38");
}

TEST_F(Catalogue, EveryBankSelectsItsOwnPrograms) {
  const auto select = [this](int kind, int index) {
    std::string image = Zeros(32094);
    Set(image, 1, kind);
    Set(image, 16, 1);
    Set(image, 286, 2);
    SelectProgram(app(), image, index);
    std::string line;
    for (const std::string& sent : Sent()) line += sent.substr(2) + "|";
    return line;
  };
  EXPECT_EQ(select(4, 63), "B1 00 00|B1 20 00|C1 3F|");
  EXPECT_EQ(select(5, 0), "B1 00 00|B1 20 00|C1 40|");
  EXPECT_EQ(select(6, 1), "B1 00 00|B1 20 01|C1 01|");
  EXPECT_EQ(select(7, 63), "B1 00 00|B1 20 01|C1 7F|");
  EXPECT_EQ(select(8, 7), "B1 00 00|B1 20 02|C1 07|");
  EXPECT_EQ(select(21, 7), "B2 00 00|B2 20 03|C2 07|");
  EXPECT_EQ(select(31, 8), "B2 00 00|B2 20 03|C2 08|");
  EXPECT_EQ(select(22, 9), "B1 00 00|B1 20 03|C1 09|");
  EXPECT_EQ(select(9, 0), "B1 00 00|B1 20 04|C1 00|");
  EXPECT_EQ(select(9, 15), "B1 00 00|B1 20 04|C1 49|");
  // A bank code that has no words sends those of the call before.
  EXPECT_EQ(select(19, 3), "B1 00 00|B1 20 04|C1 49|");
}

TEST_F(Catalogue, ALinkSelectsWhatItRefersTo) {
  std::string image = Zeros(32094);
  Set(image, 1, 21);
  Set(image, 286, 4);
  const std::size_t place = 319 + 172 * 5;
  Set(image, place, 1);
  Set(image, place + 1, 2);
  Set(image, place + 2, 33);
  SelectProgram(app(), image, 5);
  EXPECT_THAT(Sent(), ElementsAre("S B4 00 00", "S B4 20 02", "S C4 21"));
  Set(image, place, 2);
  SelectProgram(app(), image, 5);
  EXPECT_THAT(Sent(), ElementsAre("S B4 00 00", "S B4 20 03", "S C4 05"));
}

TEST_F(Catalogue, WhileAProgramIsEditedTheGlobalChannelIsUsed) {
  std::string image = Zeros(32094);
  Set(image, 1, 21);
  Set(image, 286, 4);
  midi().GlobalChannel = 7;
  midi().CurrentMode = 4;
  midi().ProgramEditing = false;
  SelectProgram(app(), image, 0);
  EXPECT_EQ(Sent().at(2), "S C4 00");
  midi().ProgramEditing = true;
  SelectProgram(app(), image, 0);
  EXPECT_EQ(Sent().at(2), "S C7 00");
  midi().CurrentMode = 0;
  SelectProgram(app(), image, 0);
  EXPECT_EQ(Sent().at(2), "S C4 00");
}

TEST_F(Catalogue, AnArmedPartTakesItsOwnChannel) {
  std::string image = Zeros(32094);
  Set(image, 1, 4);
  Set(image, 16, 11);
  for (int part = 0; part < 9; ++part) midi().PartChannel[static_cast<std::size_t>(part)] = 15 - part;
  ArrangementState& state = app().arrangement;
  for (int slot = 0; slot < 19; ++slot) {
    state.ArrPartSlots = {};
    state.ArrPartSlots[static_cast<std::size_t>(slot)] = 1;
    state.ArrPartSlots[18] = 1;  // the first one counts
    state.ArrPartArmed = true;
    SelectProgram(app(), image, 0);
    const int channel = slot >= 2 && slot % 2 == 0 ? 15 - (slot / 2 - 1) : 11;
    EXPECT_EQ(Sent().at(2), std::string("S C") + "0123456789ABCDEF"[channel] + " 00") << slot;
    state.ArrPartArmed = false;
    SelectProgram(app(), image, 0);
    EXPECT_EQ(Sent().at(2), "S CB 00") << slot;
  }
}

TEST_F(Catalogue, NotesClearTheMonitorAndAreShown) {
  midi().MonitorOn = true;
  SendNoteOn(app(), 2, 60, 100);
  EXPECT_THAT(Monitor(), ElementsAre("clear", "92 3C 64"));
  SendNoteOff(app(), 15, 127, 0);
  EXPECT_THAT(Monitor(), ElementsAre("clear", "8F 7F 00"));
  SendAllNotesOff(app(), 9);
  EXPECT_THAT(Monitor(), ElementsAre("clear", "B9 7B")) << "two of the three bytes";
  EXPECT_THAT(Sent(), ElementsAre("S 92 3C 64", "S 8F 7F 00", "S B9 7B 00"));
}

TEST_F(Catalogue, WithTheMonitorOffOrClosedNothingIsShown) {
  SendNoteOn(app(), 2, 60, 100);
  EXPECT_THAT(Monitor(), IsEmpty());
  midi().MonitorOn = true;
  midi().Monitor = nullptr;
  SendNoteOn(app(), 2, 60, 100);
  EXPECT_THAT(Monitor(), IsEmpty());
  EXPECT_EQ(Sent().size(), 2U);
}

}  // namespace
}  // namespace zentaline::test
