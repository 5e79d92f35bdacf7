// The sixteen operations of the MIDI service, by name: for transcripts, and for faults that a script provokes.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace zentaline {

enum class MidiOperation {
  kOutGetNumDevs,
  kInGetNumDevs,
  kOutGetDevCaps,
  kInGetDevCaps,
  kOutOpen,
  kInOpen,
  kOutClose,
  kInClose,
  kOutShortMsg,
  kOutPrepareHeader,
  kOutLongMsg,
  kOutUnprepareHeader,
  kConnect,
  kDisconnect,
  kInStart,
  kInStop,
};

// In the order of MidiOperation.
inline constexpr std::array<std::string_view, 16> kMidiOperationNames = {
    "midiOutGetNumDevs", "midiInGetNumDevs",     "midiOutGetDevCapsA", "midiInGetDevCapsA",
    "midiOutOpen",       "midiInOpen",           "midiOutClose",       "midiInClose",
    "midiOutShortMsg",   "midiOutPrepareHeader", "midiOutLongMsg",     "midiOutUnprepareHeader",
    "midiConnect",       "midiDisconnect",       "midiInStart",        "midiInStop",
};

constexpr std::string_view NameOf(MidiOperation operation) {
  return kMidiOperationNames[static_cast<std::size_t>(operation)];
}

// Nothing for a name that is none of the sixteen.
constexpr std::optional<MidiOperation> MidiOperationOf(std::string_view name) {
  for (std::size_t i = 0; i < kMidiOperationNames.size(); ++i) {
    if (kMidiOperationNames[i] == name) return static_cast<MidiOperation>(i);
  }
  return std::nullopt;
}

}  // namespace zentaline
