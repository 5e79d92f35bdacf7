// Where the fields of a program record stand; what they mean is told by program_fields.h. Positions count from 1.
#pragma once

#include <cstddef>

namespace zentaline {

inline constexpr std::size_t kPrgRecordLength = 172;

// ProgramRecord: positions within the record.
namespace program_record {
inline constexpr std::size_t kName = 1;  // 16 bytes; a first byte of 1 marks a link
inline constexpr std::size_t kNameLength = 16;
inline constexpr std::size_t kMode = 19;  // 0 single, 1 double; And 3 = 1 is double
inline constexpr std::size_t kAssignHold = 20;
inline constexpr std::size_t kOsc1Multisound = 21;
inline constexpr std::size_t kOsc2Multisound = 23;
inline constexpr std::size_t kOsc1Octave = 25;
inline constexpr std::size_t kOsc2Octave = 26;
inline constexpr std::size_t kInterval = 27;
inline constexpr std::size_t kDetune = 28;
inline constexpr std::size_t kDelayStart = 29;
inline constexpr std::size_t kPitchEgStartLevel = 30;
inline constexpr std::size_t kPitchEgAttackTime = 31;
inline constexpr std::size_t kPitchEgAttackLevel = 32;
inline constexpr std::size_t kPitchEgDecayTime = 33;
inline constexpr std::size_t kPitchEgReleaseTime = 34;
inline constexpr std::size_t kPitchEgReleaseLevel = 35;
inline constexpr std::size_t kPitchEgLevVelSense = 36;
inline constexpr std::size_t kPitchEgTimeVelSens = 37;
inline constexpr std::size_t kVdfMgFlags = 38;
inline constexpr std::size_t kVdfMgFrequency = 39;
inline constexpr std::size_t kVdfMgDelay = 40;
inline constexpr std::size_t kVdfMgIntensity = 41;
inline constexpr std::size_t kAftertouchBendRange = 42;
inline constexpr std::size_t kAftertouchCutoff = 43;
inline constexpr std::size_t kAftertouchVdfMg = 44;
inline constexpr std::size_t kAftertouchVdaLevel = 45;
inline constexpr std::size_t kJoystickBendRange = 46;
inline constexpr std::size_t kJoystickCutoff = 47;
inline constexpr std::size_t kJoystickVdfMg = 48;
inline constexpr std::size_t kOsc1 = 49;  // osc_block of oscillator 1
inline constexpr std::size_t kOsc2 = 96;  // osc_block of oscillator 2
inline constexpr std::size_t kFx1Effect = 144;
inline constexpr std::size_t kFx2Effect = 145;
inline constexpr std::size_t kFx1Balance = 146;
inline constexpr std::size_t kFx1BalanceCopy = 147;  // written by the performance editor alone
inline constexpr std::size_t kFx2Balance = 148;
inline constexpr std::size_t kFx2BalanceCopy = 149;  // written by the performance editor alone
inline constexpr std::size_t kOutputC = 150;
inline constexpr std::size_t kOutputD = 151;
inline constexpr std::size_t kFxFlags = 152;
inline constexpr std::size_t kFx1Parameters = 153;  // 8 bytes, carried
inline constexpr std::size_t kFx1DModSource = 161;
inline constexpr std::size_t kFx1DModAmount = 162;
inline constexpr std::size_t kFx2Parameters = 163;  // 8 bytes, carried
inline constexpr std::size_t kFx2DModSource = 171;
inline constexpr std::size_t kFx2DModAmount = 172;
}  // namespace program_record

// One oscillator's 47 bytes: offsets from kOsc1 or kOsc2.
namespace osc_block {
inline constexpr std::size_t kLength = 47;
inline constexpr std::size_t kPitchEgInt = 0;
inline constexpr std::size_t kPitchMgFlags = 1;
inline constexpr std::size_t kPitchMgFrequency = 2;
inline constexpr std::size_t kPitchMgDelay = 3;
inline constexpr std::size_t kPitchMgFadeIn = 4;
inline constexpr std::size_t kPitchMgIntensity = 5;
inline constexpr std::size_t kPitchMgFreqKeyTrack = 6;
inline constexpr std::size_t kPitchMgIntAftertouch = 7;
inline constexpr std::size_t kPitchMgIntJoystick = 8;
inline constexpr std::size_t kPitchMgFreqBoth = 9;
inline constexpr std::size_t kVdfCutoff = 10;
inline constexpr std::size_t kVdfKeyTrackKey = 11;
inline constexpr std::size_t kVdfKeyTrackAmount = 12;
inline constexpr std::size_t kVdfEgIntensity = 13;
inline constexpr std::size_t kVdfEgTimeKeyTrack = 14;
inline constexpr std::size_t kVdfEgTimeVelSense = 15;
inline constexpr std::size_t kVdfEgIntVelSense = 16;
inline constexpr std::size_t kVdfEgAttackTime = 17;
inline constexpr std::size_t kVdfEgAttackLevel = 18;
inline constexpr std::size_t kVdfEgDecayTime = 19;
inline constexpr std::size_t kVdfEgBreakPoint = 20;
inline constexpr std::size_t kVdfEgSlopeTime = 21;
inline constexpr std::size_t kVdfEgSustainLevel = 22;
inline constexpr std::size_t kVdfEgReleaseTime = 23;
inline constexpr std::size_t kVdfEgReleaseLevel = 24;
inline constexpr std::size_t kVdaOscLevel = 25;
inline constexpr std::size_t kVdaKeyTrackKey = 26;
inline constexpr std::size_t kVdaKeyTrackAmount = 27;
inline constexpr std::size_t kVdaAmountVelSense = 28;
inline constexpr std::size_t kVdaEgTimeKeyTrack = 29;
inline constexpr std::size_t kVdaEgTimeVelSense = 30;
inline constexpr std::size_t kVdaEgAttackTime = 31;
inline constexpr std::size_t kVdaEgAttackLevel = 32;
inline constexpr std::size_t kVdaEgDecayTime = 33;
inline constexpr std::size_t kVdaEgBreakPoint = 34;
inline constexpr std::size_t kVdaEgSlopeTime = 35;
inline constexpr std::size_t kVdaEgSustainLevel = 36;
inline constexpr std::size_t kVdaEgReleaseTime = 37;
inline constexpr std::size_t kVdfEgKeyPolarity = 38;
inline constexpr std::size_t kVdfEgVelPolarity = 39;
inline constexpr std::size_t kVdaEgKeyPolarity = 40;
inline constexpr std::size_t kVdaEgVelPolarity = 41;
inline constexpr std::size_t kSendLevels = 42;
inline constexpr std::size_t kColorIntensity = 43;
inline constexpr std::size_t kColorVelSense = 44;
inline constexpr std::size_t kKeyTrackMode = 45;
inline constexpr std::size_t kPan = 46;
}  // namespace osc_block

}  // namespace zentaline
