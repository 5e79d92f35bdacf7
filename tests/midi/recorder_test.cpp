#include "midi/recorder/recorder.h"

#include <gtest/gtest.h>

namespace zentaline {
namespace {

class Recorder : public ::testing::Test {
 protected:
  Recorder() {
    midi.SetOuts({"Port A", "Port B"});
    midi.SetIns({"Keys"});
  }
  MidiHandle OpenOut(int device = 0) {
    MidiHandle handle = 0;
    EXPECT_EQ(midi.midiOutOpen(handle, device, 0, 0, 0), kMidiOk);
    return handle;
  }
  MidiHandle OpenIn() {
    MidiHandle handle = 0;
    EXPECT_EQ(midi.midiInOpen(handle, 0, 0, 0, 0), kMidiOk);
    return handle;
  }

  RecorderMidi midi;
  MidiCaps caps;
};

TEST_F(Recorder, HasNoDevicesUntilTheyAreSet) {
  RecorderMidi empty;
  EXPECT_EQ(empty.midiOutGetNumDevs(), 0);
  EXPECT_EQ(empty.midiInGetNumDevs(), 0);
  EXPECT_EQ(empty.midiOutGetDevCapsA(0, caps, kMidiCapsSize), kMidiBadDeviceId);
}

TEST_F(Recorder, TellsItsDevicesByTheirNames) {
  EXPECT_EQ(midi.midiOutGetNumDevs(), 2);
  EXPECT_EQ(midi.midiInGetNumDevs(), 1);
  EXPECT_EQ(midi.midiOutGetDevCapsA(1, caps, kMidiCapsSize), kMidiOk);
  EXPECT_EQ(caps.product_name, "Port B");
  EXPECT_EQ(midi.midiInGetDevCapsA(0, caps, kMidiCapsSize), kMidiOk);
  EXPECT_EQ(caps.product_name, "Keys");
}

TEST_F(Recorder, GivesABadDeviceForAnIndexOutsideItsList) {
  MidiHandle handle = 77;
  EXPECT_EQ(midi.midiOutGetDevCapsA(2, caps, kMidiCapsSize), kMidiBadDeviceId);
  EXPECT_EQ(midi.midiInGetDevCapsA(-1, caps, kMidiCapsSize), kMidiBadDeviceId);
  EXPECT_EQ(midi.midiOutOpen(handle, 2, 0, 0, 0), kMidiBadDeviceId);
  EXPECT_EQ(midi.midiInOpen(handle, 99, 0, 0, 0), kMidiBadDeviceId);
  EXPECT_EQ(handle, 77U);
}

TEST_F(Recorder, CutsAProductNameAtItsFirstZeroByteAndAt32Characters) {
  const std::string thirty_two =
      "\u00e8"
      "1234567890123456789012345678901";
  midi.SetOuts({std::string("Short\0rest", 10), thirty_two + "x"});
  EXPECT_EQ(midi.midiOutGetDevCapsA(0, caps, kMidiCapsSize), kMidiOk);
  EXPECT_EQ(caps.product_name, "Short");
  EXPECT_EQ(midi.midiOutGetDevCapsA(1, caps, kMidiCapsSize), kMidiOk);
  EXPECT_EQ(caps.product_name, thirty_two);
}

TEST_F(Recorder, RefusesARecordOfAnotherSize) {
  EXPECT_EQ(midi.midiOutGetDevCapsA(0, caps, kMidiCapsSize - 1), kMidiInvalidParameter);
  const MidiHandle out = OpenOut();
  MidiHeader header;
  EXPECT_EQ(midi.midiOutPrepareHeader(out, header, kMidiHeaderSize + 4), kMidiInvalidParameter);
}

TEST_F(Recorder, AllocatesADeviceOnceUntilItIsClosed) {
  const MidiHandle out = OpenOut();
  MidiHandle other = 0;
  EXPECT_EQ(midi.midiOutOpen(other, 0, 0, 0, 0), kMidiAllocated);
  OpenOut(1);
  EXPECT_EQ(midi.midiOutClose(out), kMidiOk);
  EXPECT_EQ(midi.midiOutOpen(other, 0, 0, 0, 0), kMidiOk);
  EXPECT_NE(other, out);
}

TEST_F(Recorder, GivesAnInvalidHandleForOneThatIsClosed) {
  const MidiHandle out = OpenOut();
  const MidiHandle in = OpenIn();
  EXPECT_EQ(midi.midiOutClose(out), kMidiOk);
  EXPECT_EQ(midi.midiInClose(in), kMidiOk);
  MidiHeader header;
  EXPECT_EQ(midi.midiOutClose(out), kMidiInvalidHandle);
  EXPECT_EQ(midi.midiInClose(in), kMidiInvalidHandle);
  EXPECT_EQ(midi.midiOutShortMsg(out, 0x90), kMidiInvalidHandle);
  EXPECT_EQ(midi.midiOutPrepareHeader(out, header, kMidiHeaderSize), kMidiInvalidHandle);
  EXPECT_EQ(midi.midiOutLongMsg(out, header, kMidiHeaderSize), kMidiInvalidHandle);
  EXPECT_EQ(midi.midiOutUnprepareHeader(out, header, kMidiHeaderSize), kMidiInvalidHandle);
  EXPECT_EQ(midi.midiConnect(in, out, 0), kMidiInvalidHandle);
  EXPECT_EQ(midi.midiDisconnect(in, out, 0), kMidiInvalidHandle);
  EXPECT_EQ(midi.midiInStart(in), kMidiInvalidHandle);
  EXPECT_EQ(midi.midiInStop(in), kMidiInvalidHandle);
}

TEST_F(Recorder, GivesAnInvalidHandleForOneOfTheOtherDirection) {
  const MidiHandle out = OpenOut();
  const MidiHandle in = OpenIn();
  EXPECT_EQ(midi.midiOutShortMsg(in, 0x90), kMidiInvalidHandle);
  EXPECT_EQ(midi.midiInClose(out), kMidiInvalidHandle);
  EXPECT_EQ(midi.midiConnect(out, in, 0), kMidiInvalidHandle);
}

TEST_F(Recorder, RefusesALongMessageWhoseHeaderIsNotPrepared) {
  const MidiHandle out = OpenOut();
  const std::string bytes = "\xF0\x42\xF7";
  MidiHeader header;
  header.data = bytes.data();
  header.buffer_length = 3;
  EXPECT_EQ(midi.midiOutLongMsg(out, header, kMidiHeaderSize), kMidiUnprepared);
  EXPECT_EQ(midi.midiOutPrepareHeader(out, header, kMidiHeaderSize), kMidiOk);
  EXPECT_EQ(midi.midiOutLongMsg(out, header, kMidiHeaderSize), kMidiOk);
  EXPECT_EQ(midi.midiOutUnprepareHeader(out, header, kMidiHeaderSize), kMidiOk);
  EXPECT_EQ(midi.midiOutLongMsg(out, header, kMidiHeaderSize), kMidiUnprepared);
}

TEST_F(Recorder, ReleasesAHeaderWhoseFlagsWereClearedAtOnce) {
  const MidiHandle out = OpenOut();
  MidiHeader header;
  EXPECT_EQ(midi.midiOutPrepareHeader(out, header, kMidiHeaderSize), kMidiOk);
  header.flags = 0;
  EXPECT_EQ(midi.midiOutUnprepareHeader(out, header, kMidiHeaderSize), kMidiOk);
}

TEST_F(Recorder, JoinsAnInputToOneOutputAtATime) {
  const MidiHandle a = OpenOut(0);
  const MidiHandle b = OpenOut(1);
  const MidiHandle in = OpenIn();
  EXPECT_EQ(midi.midiConnect(in, a, 0), kMidiOk);
  EXPECT_EQ(midi.midiConnect(in, a, 0), kMidiOk);
  EXPECT_EQ(midi.midiConnect(in, b, 0), kMidiNotReady);
  EXPECT_EQ(midi.midiDisconnect(in, b, 0), kMidiOk);
  EXPECT_EQ(midi.midiConnect(in, b, 0), kMidiNotReady);
  EXPECT_EQ(midi.midiDisconnect(in, a, 0), kMidiOk);
  EXPECT_EQ(midi.midiConnect(in, b, 0), kMidiOk);
}

TEST_F(Recorder, PartsAnInputFromAnOutputThatCloses) {
  const MidiHandle a = OpenOut(0);
  const MidiHandle b = OpenOut(1);
  const MidiHandle in = OpenIn();
  EXPECT_EQ(midi.midiConnect(in, a, 0), kMidiOk);
  EXPECT_EQ(midi.midiOutClose(a), kMidiOk);
  EXPECT_EQ(midi.midiConnect(in, b, 0), kMidiOk);
}

TEST_F(Recorder, FailsAsOftenAsItWasTold) {
  const MidiHandle out = OpenOut();
  EXPECT_TRUE(midi.Fail("midiOutShortMsg", 11, 2));
  EXPECT_EQ(midi.midiOutShortMsg(out, 0x90), 11);
  EXPECT_EQ(midi.midiOutShortMsg(out, 0x90), 11);
  EXPECT_EQ(midi.midiOutShortMsg(out, 0x90), kMidiOk);
}

TEST_F(Recorder, FailsForEverWithTimesZeroUntilResultZero) {
  EXPECT_TRUE(midi.Fail("midiOutOpen", 4, 0));
  MidiHandle handle = 0;
  for (int i = 0; i < 5; ++i) EXPECT_EQ(midi.midiOutOpen(handle, 0, 0, 0, 0), 4);
  EXPECT_TRUE(midi.Fail("midiOutOpen", 0, 1));
  EXPECT_EQ(midi.midiOutOpen(handle, 0, 0, 0, 0), kMidiOk);
}

TEST_F(Recorder, KnowsTheSixteenOperationsAndNoOther) {
  for (const auto name : kMidiOperationNames) EXPECT_TRUE(midi.Fail(name, 9, 1)) << name;
  EXPECT_FALSE(midi.Fail("midiOutReset", 9, 1));
  EXPECT_FALSE(midi.Fail("", 9, 1));
  MidiHandle handle = 0;
  MidiHeader header;
  EXPECT_EQ(midi.midiOutGetNumDevs(), 9);
  EXPECT_EQ(midi.midiInGetNumDevs(), 9);
  EXPECT_EQ(midi.midiOutGetDevCapsA(0, caps, kMidiCapsSize), 9);
  EXPECT_EQ(midi.midiInGetDevCapsA(0, caps, kMidiCapsSize), 9);
  EXPECT_EQ(midi.midiOutOpen(handle, 0, 0, 0, 0), 9);
  EXPECT_EQ(midi.midiInOpen(handle, 0, 0, 0, 0), 9);
  EXPECT_EQ(midi.midiOutClose(1), 9);
  EXPECT_EQ(midi.midiInClose(1), 9);
  EXPECT_EQ(midi.midiOutShortMsg(1, 0), 9);
  EXPECT_EQ(midi.midiOutPrepareHeader(1, header, kMidiHeaderSize), 9);
  EXPECT_EQ(midi.midiOutLongMsg(1, header, kMidiHeaderSize), 9);
  EXPECT_EQ(midi.midiOutUnprepareHeader(1, header, kMidiHeaderSize), 9);
  EXPECT_EQ(midi.midiConnect(1, 2, 0), 9);
  EXPECT_EQ(midi.midiDisconnect(1, 2, 0), 9);
  EXPECT_EQ(midi.midiInStart(1), 9);
  EXPECT_EQ(midi.midiInStop(1), 9);
}

TEST_F(Recorder, LetsGoOfADeviceWhoseCloseFails) {
  const MidiHandle out = OpenOut();
  EXPECT_TRUE(midi.Fail("midiOutClose", 65, 1));
  EXPECT_EQ(midi.midiOutClose(out), 65);
  OpenOut();
}

}  // namespace
}  // namespace zentaline
