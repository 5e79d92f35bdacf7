// The module-wide state of the MIDI link.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "base/bytes.h"
#include "midi/messages.h"
#include "midi/service.h"

namespace zentaline {

inline constexpr int kNoMidiDevice = 99;
inline constexpr int kMostMidiDevices = 19;
inline constexpr int kInputRow = 0;
inline constexpr int kOutputRow = 1;

struct MidiState {
  MidiHandle MidiOutHandle = 0;
  MidiHandle MidiInHandle = 0;
  int MidiOutDevice = kNoMidiDevice;
  int MidiInDevice = kNoMidiDevice;
  int MidiOutCount = 0;
  int MidiInCount = 0;
  std::array<MidiCaps, 20> MidiOutCaps;
  std::array<MidiCaps, 20> MidiInCaps;
  // Rows kInputRow and kOutputRow: 1 when the capability query of that device index succeeded.
  std::array<std::array<int, 20>, 2> MidiDeviceOk{};
  bool OutputOpen = false;
  bool LongOutputOk = false;
  bool ShortOutputOk = false;
  bool InputOpen = false;
  bool ThruOn = false;
  bool MonitorOn = false;
  int MidiResult = 0;
  std::string ErrorText;
  std::uint32_t ShortMsgWord = 0;
  ::zentaline::MidiHeader MidiHeader;
  Bytes SysExBuffer;

  int CurrentMode = kModeArrPlay;  // an InstrumentMode, as it was last asked for
  bool ProgramEditing = false;

  // Channels, 0 to 15.
  int GlobalChannel = 0;
  int ArrChannel = 0;
  // Of the parts in the order of an arrangement: Drum, Percussion, Bass, Accomp 1 to 3, Upper 1, Upper 2, Lower.
  std::array<int, 9> PartChannel = {9, 10, 11, 12, 13, 14, 0, 0, 0};

  // Where the monitor window takes its lines, while it is open; an empty line clears it.
  std::function<void(std::string_view)> Monitor;

  // The words of the last program selection, which a bank without words of its own sends again.
  ProgramSelectionState program_selection;
};

}  // namespace zentaline
