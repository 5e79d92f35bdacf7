// A MIDI service with one output, to which everything succeeds and nothing is sent: what a test or a benchmark wants to
// happen it puts over it.
#pragma once

#include <cstdint>

#include "midi/service.h"

namespace zentaline::test {

class QuietService : public MidiService {
 public:
  int midiOutGetNumDevs() override { return 1; }
  int midiInGetNumDevs() override { return 0; }
  int midiOutGetDevCapsA(int, MidiCaps&, std::uint32_t) override { return kMidiOk; }
  int midiInGetDevCapsA(int, MidiCaps&, std::uint32_t) override { return kMidiOk; }
  int midiOutOpen(MidiHandle&, int, int, int, int) override { return kMidiOk; }
  int midiInOpen(MidiHandle&, int, int, int, int) override { return kMidiOk; }
  int midiOutClose(MidiHandle) override { return kMidiOk; }
  int midiInClose(MidiHandle) override { return kMidiOk; }
  int midiOutShortMsg(MidiHandle, std::uint32_t) override { return kMidiOk; }
  int midiOutPrepareHeader(MidiHandle, MidiHeader&, std::uint32_t) override { return kMidiOk; }
  int midiOutLongMsg(MidiHandle, MidiHeader&, std::uint32_t) override { return kMidiOk; }
  int midiOutUnprepareHeader(MidiHandle, MidiHeader&, std::uint32_t) override { return kMidiOk; }
  int midiConnect(MidiHandle, MidiHandle, int) override { return kMidiOk; }
  int midiDisconnect(MidiHandle, MidiHandle, int) override { return kMidiOk; }
  int midiInStart(MidiHandle) override { return kMidiOk; }
  int midiInStop(MidiHandle) override { return kMidiOk; }
};

}  // namespace zentaline::test
