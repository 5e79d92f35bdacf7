// Long messages through a service as the program sends them.
#pragma once

#include <string>

#include "midi/service.h"

namespace zentaline {

inline int SendLongMessage(MidiService& midi, MidiHandle out, const std::string& bytes) {
  MidiHeader header;
  header.data = bytes.data();
  header.buffer_length = static_cast<std::uint32_t>(bytes.size());
  if (const int result = midi.midiOutPrepareHeader(out, header, kMidiHeaderSize)) return result;
  if (const int result = midi.midiOutLongMsg(out, header, kMidiHeaderSize)) return result;
  header.flags = 0;
  return midi.midiOutUnprepareHeader(out, header, kMidiHeaderSize);
}

// A frame of `length` bytes, all of them telling where they stand.
inline std::string LongMessage(std::size_t length) {
  std::string bytes(length, '\0');
  for (std::size_t i = 0; i < length; ++i) bytes[i] = static_cast<char>((i / 127 + i) & 0x7FU);
  bytes.front() = static_cast<char>(0xF0);
  bytes.back() = static_cast<char>(0xF7);
  return bytes;
}

// The index of the output or input of this name, -1 for none.
inline int OutNamed(MidiService& midi, const std::string& name) {
  MidiCaps caps;
  for (int i = 0; i < midi.midiOutGetNumDevs(); ++i) {
    if (midi.midiOutGetDevCapsA(i, caps, kMidiCapsSize) == kMidiOk && caps.product_name == name) return i;
  }
  return -1;
}

inline int InNamed(MidiService& midi, const std::string& name) {
  MidiCaps caps;
  for (int i = 0; i < midi.midiInGetNumDevs(); ++i) {
    if (midi.midiInGetDevCapsA(i, caps, kMidiCapsSize) == kMidiOk && caps.product_name == name) return i;
  }
  return -1;
}

}  // namespace zentaline
