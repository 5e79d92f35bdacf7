// The bytes of every message that goes to the instrument. Nothing here sends or keeps anything. Channels are 0 to 15,
// positions in images count from 1; short messages are words with the status in the low byte. Every data byte that
// leaves is cut to seven bits.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "base/bytes.h"
#include "midi/service.h"

namespace zentaline {

// Functions of the system exclusive frame.
enum SysExFunction : int {
  kFunctionArrParam = 0x41,
  kFunctionPrgBankDump = 0x4C,
  kFunctionMode = 0x4E,
  kFunctionGlobalDump = 0x51,
  kFunctionPrgParam = 0x60,
  kFunctionArrDump = 0x64,
  kFunctionStyleDump = 0x65,
  kFunctionBackSeqDump = 0x66,
};

// The values of CurrentMode.
enum InstrumentMode : int {
  kModeArrPlay = 0,
  kModeSongPlay = 1,
  kModeGlobal = 2,
  kModeBackSeq = 3,
  kModeProgram = 4,
};

inline constexpr int kSysExStart = 0xF0;
inline constexpr int kSysExEnd = 0xF7;

// Where the dumps cut their payload out of a window's image.
inline constexpr std::size_t kGlobalDumpPosition = 303;
inline constexpr std::size_t kGlobalDumpLength = 415;
inline constexpr std::size_t kBackSeqDumpPosition = 287;
inline constexpr std::size_t kBackSeqFixedLength = 2322;  // of the payload, in front of the events
inline constexpr std::size_t kBackSeqBlockLength = 16;
inline constexpr int kProgramNumberParam = 0x46;  // the arrangement parameter that runs across all banks
inline constexpr int kPrgParamPauseLength = 20;   // zero bytes, a long message behind each program parameter

// F0 42 3n 4D.
Bytes SysExHeader(int channel);

// The byte of a mode, 0 to 4; -1 for any other.
int ModeByte(int mode);
// Empty for a mode outside 0 to 4.
Bytes BuildModeChange(int channel, int mode);

// `bank` is read when `id` is 46 hexadecimal alone: it adds the bank's place in the run of all programs. `sign` 1: the
// value is negative and the high byte is 7F.
Bytes BuildArrParam(int channel, int bank, int id, int value, int sign);
// What a bank (kinds 4 to 9 and 21) adds; 0 for any other.
int ArrParamOffset(int bank);

// Negative values are meant to stay above -128.
Bytes BuildPrgParam(int channel, int a, int b, int value);
// The long message that follows it: 20 zero bytes, which hold the line for some 6 milliseconds.
Bytes PrgParamPause();

Bytes BuildArrDump(int channel, std::string_view image);
// Links of a .pgg go out with their first 20 bytes zero; the image stays as it is.
Bytes BuildPrgBankDump(int channel, std::string_view image);
Bytes BuildGlobalDump(int channel, std::string_view image);
// The event count in front of the packed part counts whole blocks of 16 bytes; a payload shorter than the fixed part
// counts 0.
Bytes BuildBackSeqDump(int channel, std::string_view image);

// The four styles of group 0 to 3. 1, with `message` unchanged, when one of them has size 0 or the group is none of the
// four; else 0.
int BuildStyleDump(int channel, std::string_view image, int group, Bytes& message);

// Short messages.
constexpr std::uint32_t ShortWord(int status, int data1, int data2 = 0) {
  return static_cast<std::uint32_t>(status & 0xFF) | static_cast<std::uint32_t>(data1 & 0x7F) << 8 |
         static_cast<std::uint32_t>(data2 & 0x7F) << 16;
}
constexpr std::uint32_t NoteOnWord(int channel, int note, int velocity) {
  return ShortWord(0x90 | (channel & 15), note, velocity);
}
constexpr std::uint32_t NoteOffWord(int channel, int note, int velocity) {
  return ShortWord(0x80 | (channel & 15), note, velocity);
}
constexpr std::uint32_t ControllerWord(int channel, int controller, int value) {
  return ShortWord(0xB0 | (channel & 15), controller, value);
}
constexpr std::uint32_t ProgramChangeWord(int channel, int number) {
  return ShortWord(0xC0 | (channel & 15), number);
}
constexpr std::uint32_t AllNotesOffWord(int channel) {
  return ControllerWord(channel, 0x7B, 0);
}
constexpr std::uint32_t PitchBendWord(int channel, int value) {
  return ShortWord(0xE0 | (channel & 15), 0x7F, value);
}

// Bank select and program change: three words, and their eight bytes in the order of sending.
struct Selection {
  std::array<std::uint32_t, 3> words{};
  Bytes bytes;
};
Selection BuildSelection(int channel, int controller32, int number);

// `bank` 2 and 3 the factory banks, 19 and 20 the user's. With 3 the caller's number grows by 64; that is wanted. Any
// other bank selects as bank A does.
Selection BuildArrSelection(int channel, int& number, int bank);

// The words of the last program selection, kept by the caller: a bank code that isn't in the table selects them again.
struct ProgramSelectionState {
  int controller32 = 0;
  int number = 0;
};
// `image` is a bank's, with its kind at position 1; `index` counts from 0.
Selection BuildProgramSelection(int channel, std::string_view image, int index, ProgramSelectionState& state);

// The channel byte of a bank's image: position 286 for the kinds 21 and 31, else 16. As found, 0 to 255.
int BankChannel(std::string_view image);

// The part, 0 to 8, that is armed in the arrangement editor: the first 1 among the slots decides, by an even index from
// 2 to 18. -1 for none.
int ArmedPart(const std::array<int, 19>& slots);

// Program numbers of drum kit 0 to 15; -1 outside.
int DrumKitProgram(int index);

}  // namespace zentaline
