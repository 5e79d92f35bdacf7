// The bank of 64 programs as it lies in .prg and .pgg files and in the image of a program window. Numbers are
// little-endian, text is padded with blanks. Positions count from 1, places in a bank from 0. What isn't named here is
// carried unchanged.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/bytes.h"

namespace zentaline {

// The file. Behind the 64 records lie 12040 carried bytes, the second block and 5280 carried bytes.
inline constexpr std::size_t kPrgFileLength = 30480;
inline constexpr std::size_t kPrgHeaderLength = 48;
inline constexpr std::size_t kPrgRecordLength = 172;
inline constexpr int kPrgRecordCount = 64;
inline constexpr std::size_t kPrgRecordsLength = 64 * kPrgRecordLength;
inline constexpr std::size_t kPrgFileChannelPosition = 16;  // MIDI channel of the bank, 0 to 15
inline constexpr std::size_t kPrgFileRecordsPosition = 49;
inline constexpr std::size_t kPrgFileSecondPosition = 23097;  // second block, travels behind the records in a dump
inline constexpr std::size_t kPrgSecondLength = 2104;

// The window's image: prefix, file, an unused row table of 1344 zero bytes.
inline constexpr std::size_t kPrgImageLength = 32094;
inline constexpr std::size_t kPrgImageFilePosition = 271;
inline constexpr std::size_t kPrgImageChannelPosition = 286;
inline constexpr std::size_t kPrgImageRecordsPosition = 319;
inline constexpr std::size_t kPrgImageSecondPosition = 23367;
inline constexpr std::size_t kPrgImageRowTablePosition = 30751;
inline constexpr int kPrgImageMark = 2;  // control byte 6 of a program image

// ProgramRecord: positions within the record. "Signed" is a two's complement byte.
namespace program_record {
inline constexpr std::size_t kName = 1;  // 16 bytes; a first byte of 1 marks a link
inline constexpr std::size_t kNameLength = 16;
inline constexpr std::size_t kMode = 19;                 // 0 single, 1 double; And 3 = 1 is double
inline constexpr std::size_t kAssignHold = 20;           // bit 0: 0 poly, 1 mono; bit 1: 0 norm, 1 hold
inline constexpr std::size_t kOsc1Multisound = 21;       // word, 0 to 518
inline constexpr std::size_t kOsc2Multisound = 23;       // word, 0 to 518
inline constexpr std::size_t kOsc1Octave = 25;           // 1 = 4', 0 = 8', 255 = 16', 254 = 32'
inline constexpr std::size_t kOsc2Octave = 26;           // the same
inline constexpr std::size_t kInterval = 27;             // signed -12 to 12
inline constexpr std::size_t kDetune = 28;               // signed -50 to 50
inline constexpr std::size_t kDelayStart = 29;           // 0 to 99
inline constexpr std::size_t kPitchEgStartLevel = 30;    // signed -99 to 99
inline constexpr std::size_t kPitchEgAttackTime = 31;    // 0 to 99
inline constexpr std::size_t kPitchEgAttackLevel = 32;   // signed -99 to 99
inline constexpr std::size_t kPitchEgDecayTime = 33;     // 0 to 99
inline constexpr std::size_t kPitchEgReleaseTime = 34;   // 0 to 99
inline constexpr std::size_t kPitchEgReleaseLevel = 35;  // signed -99 to 99
inline constexpr std::size_t kPitchEgLevVelSense = 36;   // signed -99 to 99
inline constexpr std::size_t kPitchEgTimeVelSens = 37;   // signed -99 to 99
inline constexpr std::size_t kVdfMgFlags = 38;           // bits 0 to 2 waveform 0 to 4; 5, 6 oscillators; 7 key sync
inline constexpr std::size_t kVdfMgFrequency = 39;       // 0 to 99
inline constexpr std::size_t kVdfMgDelay = 40;           // 0 to 99
inline constexpr std::size_t kVdfMgIntensity = 41;       // 0 to 99
inline constexpr std::size_t kAftertouchBendRange = 42;  // signed -12 to 12
inline constexpr std::size_t kAftertouchCutoff = 43;     // signed -99 to 99
inline constexpr std::size_t kAftertouchVdfMg = 44;      // 0 to 99
inline constexpr std::size_t kAftertouchVdaLevel = 45;   // signed -99 to 99
inline constexpr std::size_t kJoystickBendRange = 46;    // signed -12 to 12
inline constexpr std::size_t kJoystickCutoff = 47;       // signed -99 to 99
inline constexpr std::size_t kJoystickVdfMg = 48;        // 0 to 99
inline constexpr std::size_t kOsc1 = 49;                 // osc_block of oscillator 1
inline constexpr std::size_t kOsc2 = 96;                 // osc_block of oscillator 2
inline constexpr std::size_t kFx1Effect = 144;           // 0 no effect, to 47
inline constexpr std::size_t kFx2Effect = 145;           // the same
inline constexpr std::size_t kFx1Balance = 146;          // dry/wet, 0 to 100
inline constexpr std::size_t kFx1BalanceCopy = 147;      // written by the performance editor alone
inline constexpr std::size_t kFx2Balance = 148;          // dry/wet, 0 to 100
inline constexpr std::size_t kFx2BalanceCopy = 149;      // written by the performance editor alone
inline constexpr std::size_t kOutputC = 150;  // pan 0 to 101; in parallel 3 the returns of FX 1, nibbles L, R 0 to 9
inline constexpr std::size_t kOutputD = 151;  // the same, with FX 2
inline constexpr std::size_t kFxFlags = 152;  // bit 0 FX 1 on, bit 2 FX 2 on, bits 4 to 6 placement 0 to 3
inline constexpr std::size_t kFx1Parameters = 153;  // 8 bytes, carried
inline constexpr std::size_t kFx1DModSource = 161;  // 0 none, 1 JS up, 2 JS down, 3 aft. touch, 5 pedal, 6 VDA-EG
inline constexpr std::size_t kFx1DModAmount = 162;  // signed -15 to 15
inline constexpr std::size_t kFx2Parameters = 163;  // 8 bytes, carried
inline constexpr std::size_t kFx2DModSource = 171;  // as for FX 1
inline constexpr std::size_t kFx2DModAmount = 172;  // signed -15 to 15
}  // namespace program_record

// One oscillator's 47 bytes: offsets from kOsc1 or kOsc2.
namespace osc_block {
inline constexpr std::size_t kLength = 47;
inline constexpr std::size_t kPitchEgInt = 0;            // signed -99 to 99
inline constexpr std::size_t kPitchMgFlags = 1;          // bits 0 to 2 waveform, bit 7 key sync
inline constexpr std::size_t kPitchMgFrequency = 2;      // 0 to 99
inline constexpr std::size_t kPitchMgDelay = 3;          // 0 to 99
inline constexpr std::size_t kPitchMgFadeIn = 4;         // 0 to 99
inline constexpr std::size_t kPitchMgIntensity = 5;      // 0 to 99
inline constexpr std::size_t kPitchMgFreqKeyTrack = 6;   // signed -99 to 99
inline constexpr std::size_t kPitchMgIntAftertouch = 7;  // 0 to 99
inline constexpr std::size_t kPitchMgIntJoystick = 8;    // 0 to 99
inline constexpr std::size_t kPitchMgFreqBoth = 9;       // aftertouch and joystick, 0 to 9
inline constexpr std::size_t kVdfCutoff = 10;            // 0 to 99
inline constexpr std::size_t kVdfKeyTrackKey = 11;       // MIDI note 0 to 127
inline constexpr std::size_t kVdfKeyTrackAmount = 12;    // signed -99 to 99
inline constexpr std::size_t kVdfEgIntensity = 13;       // 0 to 99
inline constexpr std::size_t kVdfEgTimeKeyTrack = 14;    // 0 to 99
inline constexpr std::size_t kVdfEgTimeVelSense = 15;    // 0 to 99
inline constexpr std::size_t kVdfEgIntVelSense = 16;     // signed -99 to 99
inline constexpr std::size_t kVdfEgAttackTime = 17;      // 0 to 99
inline constexpr std::size_t kVdfEgAttackLevel = 18;     // signed -99 to 99
inline constexpr std::size_t kVdfEgDecayTime = 19;       // 0 to 99
inline constexpr std::size_t kVdfEgBreakPoint = 20;      // signed -99 to 99
inline constexpr std::size_t kVdfEgSlopeTime = 21;       // 0 to 99
inline constexpr std::size_t kVdfEgSustainLevel = 22;    // signed -99 to 99
inline constexpr std::size_t kVdfEgReleaseTime = 23;     // 0 to 99
inline constexpr std::size_t kVdfEgReleaseLevel = 24;    // signed -99 to 99
inline constexpr std::size_t kVdaOscLevel = 25;          // 0 to 99
inline constexpr std::size_t kVdaKeyTrackKey = 26;       // MIDI note 0 to 127
inline constexpr std::size_t kVdaKeyTrackAmount = 27;    // signed -99 to 99
inline constexpr std::size_t kVdaAmountVelSense = 28;    // signed -99 to 99
inline constexpr std::size_t kVdaEgTimeKeyTrack = 29;    // 0 to 99
inline constexpr std::size_t kVdaEgTimeVelSense = 30;    // 0 to 99
inline constexpr std::size_t kVdaEgAttackTime = 31;      // 0 to 99
inline constexpr std::size_t kVdaEgAttackLevel = 32;     // 0 to 99
inline constexpr std::size_t kVdaEgDecayTime = 33;       // 0 to 99
inline constexpr std::size_t kVdaEgBreakPoint = 34;      // 0 to 99
inline constexpr std::size_t kVdaEgSlopeTime = 35;       // 0 to 99
inline constexpr std::size_t kVdaEgSustainLevel = 36;    // 0 to 99
inline constexpr std::size_t kVdaEgReleaseTime = 37;     // 0 to 99
inline constexpr std::size_t kVdfEgKeyPolarity = 38;     // polarity bytes: field k is the bits k and k + 4
inline constexpr std::size_t kVdfEgVelPolarity = 39;
inline constexpr std::size_t kVdaEgKeyPolarity = 40;
inline constexpr std::size_t kVdaEgVelPolarity = 41;
inline constexpr std::size_t kSendLevels = 42;      // high nibble C, low nibble D, 0 to 9 each
inline constexpr std::size_t kColorIntensity = 43;  // 0 to 99
inline constexpr std::size_t kColorVelSense = 44;   // signed -99 to 99
inline constexpr std::size_t kKeyTrackMode = 45;    // high nibble VDF, low nibble VDA: 0 off, 1 low, 2 high
inline constexpr std::size_t kPan = 46;             // 255 off, else 0 to 30
}  // namespace osc_block

// A polarity byte holds four fields: 0 attack, 1 decay, 2 slope, 3 release time. List index 0 "-", both bits set; 1
// "0", both clear; 2 "+", the low one set. The high bit alone reads as "0".
int PolarityIndex(int byte, int field);
int PolarityByte(int byte, int field, int list_index);

// ProgramLink: a record that refers to a program in the instrument. What follows position 19 stays as it was.
namespace program_link {
inline constexpr std::size_t kMark = 1;      // 1
inline constexpr std::size_t kBankCode = 2;  // 0 banks A and B, 1 C and D, 2 E, 4 drum kits
inline constexpr std::size_t kNumber = 3;    // 0 to 127, 64 and up the second letter; drum kits 0 to 15
inline constexpr std::size_t kName = 4;      // 16 bytes, copied at the time of the paste
inline constexpr std::size_t kNameLength = 16;
}  // namespace program_link

// The bank codes of a link, and of a part in an arrangement, that stand for more than letters: the user's bank, which
// only a part names, and the drum kits.
inline constexpr int kUserBankCode = 3;
inline constexpr int kDrumBankCode = 4;

// EditRecord: the record under edit at 1 to 172, and what belongs to it.
namespace edit_record {
inline constexpr std::size_t kLength = 201;
inline constexpr std::size_t kKind = 173;   // kind of the window it came from
inline constexpr std::size_t kIndex = 174;  // 0 to 63
inline constexpr std::size_t kWindowNumber = 175;
inline constexpr std::size_t kZero = 176;
inline constexpr std::size_t kFormat = 177;    // 0 .prg, else .pgg
inline constexpr std::size_t kFileName = 178;  // 24 bytes without directory, padded with blanks
inline constexpr std::size_t kFileNameLength = 24;
}  // namespace edit_record

// What reading a program file comes to, by the numbers of both readers.
enum PrgReadResult : int { kPrgGood = 0, kPrgWrong = 2, kPrgAbsent = 3, kPggGood = 4 };

// The bytes of a whole file, with either signature: kPrgGood, kPrgWrong, kPrgAbsent (no bytes).
PrgReadResult CheckProgramFile(std::string_view file);
// Only the signature that belongs to the extension: kPrgGood, kPggGood, kPrgWrong, kPrgAbsent.
PrgReadResult CheckProgramByExtension(std::string_view file, bool pgg);
// The i30 format, another signature and the same size: kPrgGood, kPrgWrong, kPrgAbsent.
PrgReadResult CheckI30ProgramFile(std::string_view file);

// Writes the 48 bytes of a header made from scratch into the file's bytes, as far as they reach.
void NewProgramHeader(Bytes& file);

// Clears the bank of a new file: 64 times 172 zero bytes, starting one byte in front of the first record, so that the
// header's last byte goes and the last record's last byte stays. That shift is wanted.
void ClearNewProgramBank(Bytes& file);

// Half 0 or 1 of an i30 file as a bank: its own 64 records, or those of its second half, behind a new header.
Bytes I30ProgramBank(std::string_view file, int half);

// Position of record 0 to 63 in the image of a window.
constexpr std::size_t ProgramPosition(int n) {
  return kPrgImageRecordsPosition + kPrgRecordLength * static_cast<std::size_t>(n);
}

// Prefix, file (cut or filled with zero bytes to its size), 1344 zero bytes; control byte 6 is 2, control byte 19
// follows from the records, the rest are 0.
Bytes BuildPrgWindowImage(std::string_view file);

// Bytes of the file as saving writes them.
Bytes PrgFileBytes(std::string_view image);

bool IsProgramLink(std::string_view image, int n);
bool HasProgramLinks(std::string_view image);
// Control byte 19 from the records: on opening.
void SetProgramFormat(Bytes& image);
// Control byte 19 and the four letters at the file's start from the records: after a paste or a cut.
void DecideProgramFormat(Bytes& image);
// "prg" or "pgg" by control byte 19.
std::string_view ProgramExtension(std::string_view image);

// The name shown for a place: a link's from its position 4, a program's from 1. 16 bytes.
Bytes ProgramPlaceName(std::string_view image, int n);

// The working copy of record 0 to 63: 201 bytes. And the way back: puts positions 1 to 172 at the record's place.
Bytes MakeEditRecord(std::string_view image, int n);
void PutEditRecord(Bytes& image, std::string_view record);

// "A 11": letter, blank, panel number.
std::string ProgramNumberText(std::string_view bank_letter, int n);

// Letter ("A" to "E", "U", "Dr") and place of a bank code and number byte; an empty letter for any other code.
struct ProgramPlace {
  std::string_view letter;
  int index = 0;
};
ProgramPlace ProgramPlaceOf(int bank_code, int number);

}  // namespace zentaline
