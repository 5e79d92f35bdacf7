#include "midi/listening.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "midi/recorder/recorder.h"
#include "tests/midi/long_message.h"

namespace zentaline {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// One line for each call, with the bytes as they are.
class Lines : public MidiListener {
 public:
  void Service(std::string_view operation, const std::vector<int>& args, int result) override {
    std::string line = "service " + std::string(operation);
    for (const int arg : args) line += " " + std::to_string(arg);
    lines.push_back(line + " -> " + std::to_string(result));
  }
  void Long(std::string_view bytes) override { lines.push_back("long " + std::string(bytes)); }
  void Short(std::string_view bytes) override { lines.push_back("short " + std::string(bytes)); }
  void Failed(std::string_view operation, int result) override {
    lines.push_back("failed " + std::string(operation) + " -> " + std::to_string(result));
  }
  std::vector<std::string> Take() { return std::exchange(lines, {}); }

  std::vector<std::string> lines;
};

class Listening : public ::testing::Test {
 protected:
  Listening() {
    recorder.SetOuts({"A", "B", "C"});
    recorder.SetIns({"K", "L"});
  }
  int SendLong(const std::string& bytes) { return SendLongMessage(midi, out, bytes); }

  RecorderMidi recorder;
  Lines lines;
  ListeningMidi midi{recorder, lines};
  MidiHandle out = 0;
  MidiHandle in = 0;
};

TEST_F(Listening, TellsNothingOfEnumeration) {
  MidiCaps caps;
  EXPECT_EQ(midi.midiOutGetNumDevs(), 3);
  EXPECT_EQ(midi.midiInGetNumDevs(), 2);
  EXPECT_EQ(midi.midiOutGetDevCapsA(2, caps, kMidiCapsSize), kMidiOk);
  EXPECT_EQ(caps.product_name, "C");
  EXPECT_EQ(midi.midiInGetDevCapsA(1, caps, kMidiCapsSize), kMidiOk);
  EXPECT_EQ(caps.product_name, "L");
  EXPECT_THAT(lines.lines, IsEmpty());
}

TEST_F(Listening, TellsEveryCallWithItsResultInOrder) {
  EXPECT_EQ(midi.midiOutOpen(out, 2, 0, 0, 0), kMidiOk);
  EXPECT_EQ(midi.midiInOpen(in, 1, 0, 0, 0), kMidiOk);
  EXPECT_EQ(midi.midiConnect(in, out, 0), kMidiOk);
  EXPECT_EQ(midi.midiInStart(in), kMidiOk);
  EXPECT_EQ(midi.midiDisconnect(in, out, 0), kMidiOk);
  EXPECT_EQ(midi.midiInStop(in), kMidiOk);
  EXPECT_EQ(midi.midiOutClose(out), kMidiOk);
  EXPECT_EQ(midi.midiInClose(in), kMidiOk);
  EXPECT_EQ(midi.midiDisconnect(in, out, 0), kMidiInvalidHandle);
  EXPECT_THAT(lines.lines,
              ElementsAre("service midiOutOpen 2 -> 0", "service midiInOpen 1 -> 0", "service midiConnect -> 0",
                          "service midiInStart -> 0", "service midiDisconnect -> 0", "service midiInStop -> 0",
                          "service midiOutClose -> 0", "service midiInClose -> 0", "service midiDisconnect -> 5"));
}

TEST_F(Listening, TellsAnOpenThatFailed) {
  EXPECT_EQ(midi.midiOutOpen(out, 7, 0, 0, 0), kMidiBadDeviceId);
  EXPECT_THAT(lines.lines, ElementsAre("service midiOutOpen 7 -> 2"));
}

TEST_F(Listening, TellsTheBytesOfAShortMessageAsTheyGoOut) {
  EXPECT_EQ(midi.midiOutOpen(out, 0, 0, 0, 0), kMidiOk);
  lines.Take();
  EXPECT_EQ(midi.midiOutShortMsg(out, 0x0020B3), kMidiOk);
  EXPECT_EQ(midi.midiOutShortMsg(out, 0x7F05C3), kMidiOk);
  EXPECT_EQ(midi.midiOutShortMsg(out, 0x643C9F), kMidiOk);
  EXPECT_EQ(midi.midiOutShortMsg(out, 0x407FE0), kMidiOk);
  EXPECT_THAT(lines.lines, ElementsAre(std::string("short \xB3\x20\0", 9), "short \xC3\x05", "short \x9F\x3C\x64",
                                       "short \xE0\x7F\x40"));
}

TEST_F(Listening, TellsALongMessageOnce) {
  EXPECT_EQ(midi.midiOutOpen(out, 0, 0, 0, 0), kMidiOk);
  lines.Take();
  EXPECT_EQ(SendLong(std::string("\xF0\0\xF7", 3)), kMidiOk);
  EXPECT_THAT(lines.lines, ElementsAre(std::string("long \xF0\0\xF7", 8)));
}

TEST_F(Listening, TellsARefusedSendAndNotItsBytes) {
  EXPECT_EQ(midi.midiOutOpen(out, 0, 0, 0, 0), kMidiOk);
  lines.Take();
  recorder.Fail("midiOutPrepareHeader", 7, 1);
  EXPECT_EQ(SendLong("\xF0\xF7"), 7);
  recorder.Fail("midiOutLongMsg", 11, 1);
  EXPECT_EQ(SendLong("\xF0\xF7"), 11);
  recorder.Fail("midiOutShortMsg", 5, 1);
  EXPECT_EQ(midi.midiOutShortMsg(out, 0xC0), 5);
  EXPECT_THAT(lines.Take(), ElementsAre("failed midiOutPrepareHeader -> 7", "failed midiOutLongMsg -> 11",
                                        "failed midiOutShortMsg -> 5"));
  recorder.Fail("midiOutUnprepareHeader", 65, 1);
  EXPECT_EQ(SendLong("\xF0\xF7"), 65);
  EXPECT_THAT(lines.lines, ElementsAre("long \xF0\xF7", "failed midiOutUnprepareHeader -> 65"));
}

TEST_F(Listening, HandsProgressToTheServiceItListensTo) {
  class Progressing : public RecorderMidi {
   public:
    void SetProgress(MidiProgress progress) override { progress(3, 4); }
  } service;
  ListeningMidi listening(service, lines);
  std::uint32_t seen = 0;
  listening.SetProgress([&](std::uint32_t gone, std::uint32_t total) { seen = 10 * gone + total; });
  EXPECT_EQ(seen, 34U);
}

}  // namespace
}  // namespace zentaline
