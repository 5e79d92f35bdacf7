// The fields of a program record.
#pragma once

#include "data/choices.h"
#include "record/field.h"
#include "record/program_places.h"

namespace zentaline {

inline constexpr int kLastMultisound = 518;

namespace program_fields {

namespace prog = program_record;
namespace osc = osc_block;

// The offset of a position.
constexpr std::size_t At(std::size_t position) {
  return position - 1;
}

// One of the four pairs of bits of a polarity byte: 0 attack, 1 decay, 2 slope, 3 release time.
constexpr FieldPlace Pair(std::size_t offset, int pair) {
  return {offset, pair, 0xFF, 0xFF & ~(0x11 << pair)};
}

// As they are read; 4 means nothing.
inline constexpr std::array<std::uint8_t, 6> kDModCodes = {0, 1, 2, 3, 5, 6};

// clang-format off
inline constexpr Field kCommon[] = {
    {"name", "", "Program Name", {At(prog::kName)}, {0, prog::kNameLength}, FieldView::kNumber, {}, {}, {}, FieldCoding::kText},
    {"mode", "", "Mode", Bits(At(prog::kMode), 0, 3), {0, 1}, FieldView::kList, kOscModes, {}, kListStays},
    {"assign", "", "Assign", Bit(At(prog::kAssignHold), 0), {0, 1}, FieldView::kList, kAssigns, {}, kListStays},
    {"hold", "", "Hold", Bit(At(prog::kAssignHold), 1), {0, 1}, FieldView::kList, kHolds, {}, kListStays},
    {"sound1", "OSCILLATOR", "OSC-1 M/D SOUND", {At(prog::kOsc1Multisound)}, {0, kLastMultisound}, FieldView::kNumber, {}, {}, kStopsAtEnd, FieldCoding::kWord},
    {"sound2", "OSCILLATOR", "OSC-2 M/D SOUND", {At(prog::kOsc2Multisound)}, {0, kLastMultisound}, FieldView::kNumber, {}, {}, kStopsAtEnd, FieldCoding::kWord},
    {"octave1", "OSCILLATOR", "OSC-1 Octave", {At(prog::kOsc1Octave)}, {0, 3}, FieldView::kList, kFeet, {1, -1}, kListStays},
    {"octave2", "OSCILLATOR", "OSC-2 Octave", {At(prog::kOsc2Octave)}, {0, 3}, FieldView::kList, kFeet, {1, -1}, kListStays},
    {"interval", "OSCILLATOR", "Interval", {At(prog::kInterval)}, {0, 24}, FieldView::kList, kSemitones, {-12}, kListStays},
    {"detune", "OSCILLATOR", "Detune", {At(prog::kDetune)}, {-50, 50}},
    {"delay", "OSCILLATOR", "Delay Start", {At(prog::kDelayStart)}, {0, 99}},
    {"pitch.start", "PITCH EG", "Start Level", {At(prog::kPitchEgStartLevel)}, {-99, 99}},
    {"pitch.attack", "PITCH EG", "Attack Time", {At(prog::kPitchEgAttackTime)}, {0, 99}},
    {"pitch.attack.level", "PITCH EG", "Attack Level", {At(prog::kPitchEgAttackLevel)}, {-99, 99}},
    {"pitch.decay", "PITCH EG", "Decay Time", {At(prog::kPitchEgDecayTime)}, {0, 99}},
    {"pitch.release", "PITCH EG", "Release Time", {At(prog::kPitchEgReleaseTime)}, {0, 99}},
    {"pitch.release.level", "PITCH EG", "Release Level", {At(prog::kPitchEgReleaseLevel)}, {-99, 99}},
    {"pitch.level.velocity", "PITCH EG", "Lev Vel Sense", {At(prog::kPitchEgLevVelSense)}, {-99, 99}},
    {"pitch.time.velocity", "PITCH EG", "Time Vel Sens", {At(prog::kPitchEgTimeVelSens)}, {-99, 99}},
    {"sweep.wave", "VDF MG", "Waveform", Bits(At(prog::kVdfMgFlags), 0, 7), {0, 4}, FieldView::kList, kWaveforms, {}, kListStays},
    {"sweep.on", "VDF MG", "Off, Osc1/2 MG Enable", Bits(At(prog::kVdfMgFlags), 5, 3), {0, 3}, FieldView::kList, kSweptOscillators, {}, kListStays},
    {"sweep.sync", "VDF MG", "ON Key Sync", Bit(At(prog::kVdfMgFlags), 7), kSwitchRange, FieldView::kSwitch},
    {"sweep.rate", "VDF MG", "Frequency", {At(prog::kVdfMgFrequency)}, {0, 99}},
    {"sweep.delay", "VDF MG", "Delay", {At(prog::kVdfMgDelay)}, {0, 99}},
    {"sweep.depth", "VDF MG", "Intensity", {At(prog::kVdfMgIntensity)}, {0, 99}},
    {"touch.bend", "AFTERTOUCH", "Pitch Bend Range", {At(prog::kAftertouchBendRange)}, {0, 24}, FieldView::kList, kSemitones, {-12}, kListStays},
    {"touch.cutoff", "AFTERTOUCH", "VDF Cutoff", {At(prog::kAftertouchCutoff)}, {-99, 99}},
    {"touch.sweep", "AFTERTOUCH", "VDF MG Int.", {At(prog::kAftertouchVdfMg)}, {0, 99}},
    {"touch.level", "AFTERTOUCH", "VDA Level", {At(prog::kAftertouchVdaLevel)}, {-99, 99}},
    {"bend", "JOYSTICK", "Pitch Bend Range", {At(prog::kJoystickBendRange)}, {0, 24}, FieldView::kList, kSemitones, {-12}, kListStays},
    {"bend.cutoff", "JOYSTICK", "VDF Cutoff", {At(prog::kJoystickCutoff)}, {-99, 99}},
    {"bend.sweep", "JOYSTICK", "VDF MG Int.", {At(prog::kJoystickVdfMg)}, {0, 99}},
    {"fx1", "FX 1", "Type", {At(prog::kFx1Effect)}, {0, 47}, FieldView::kList, kEffects, {47, -1}, kListStays},
    {"fx2", "FX 2", "Type", {At(prog::kFx2Effect)}, {0, 47}, FieldView::kList, kEffects, {47, -1}, kListStays},
    {"balance1", "FX 1", "Dry/Wet Bal.", {At(prog::kFx1Balance)}, {0, 100}, FieldView::kBalance},
    // A second copy, which the performance editor alone writes.
    {"balance1.copy", "FX 1", "Dry/Wet Bal. (copy)", {At(prog::kFx1BalanceCopy)}, {0, 100}, FieldView::kBalance},
    {"balance2", "FX 2", "Dry/Wet Bal.", {At(prog::kFx2Balance)}, {0, 100}, FieldView::kBalance},
    // A second copy, which the performance editor alone writes.
    {"balance2.copy", "FX 2", "Dry/Wet Bal. (copy)", {At(prog::kFx2BalanceCopy)}, {0, 100}, FieldView::kBalance},
    // The placement tells whether the two bytes are the pans of outputs or the levels of returns.
    {"cpan", "I/O", "Output C Pan", {At(prog::kOutputC)}, {0, 101}, FieldView::kRatio, {}, {}, kStopsAtEnd, FieldCoding::kBits, {}, true},
    {"dpan", "I/O", "Output D Pan", {At(prog::kOutputD)}, {0, 101}, FieldView::kRatio, {}, {}, kStopsAtEnd, FieldCoding::kBits, {}, true},
    {"return1.left", "I/O", "FX 1 Return L", Bits(At(prog::kOutputC), 4, 0x0F), {0, 9}, FieldView::kNumber, {}, {}, kStopsAtEnd, FieldCoding::kBits, {}, true},
    {"return1.right", "I/O", "FX 1 Return R", Bits(At(prog::kOutputC), 0, 0x0F), {0, 9}, FieldView::kNumber, {}, {}, kStopsAtEnd, FieldCoding::kBits, {}, true},
    {"return2.left", "I/O", "FX 2 Return L", Bits(At(prog::kOutputD), 4, 0x0F), {0, 9}, FieldView::kNumber, {}, {}, kStopsAtEnd, FieldCoding::kBits, {}, true},
    {"return2.right", "I/O", "FX 2 Return R", Bits(At(prog::kOutputD), 0, 0x0F), {0, 9}, FieldView::kNumber, {}, {}, kStopsAtEnd, FieldCoding::kBits, {}, true},
    {"fx1.on", "FX 1", "ON", Bit(At(prog::kFxFlags), 0), kSwitchRange, FieldView::kSwitch},
    {"fx2.on", "FX 2", "ON", Bit(At(prog::kFxFlags), 2), kSwitchRange, FieldView::kSwitch},
    {"placement", "I/O", "Placement", Bits(At(prog::kFxFlags), 4, 7), {0, 3}, FieldView::kList, kPlacements, {}, kListStays},
    {"fx1.source", "FX 1", "D-Mod. Source", {At(prog::kFx1DModSource)}, {0, 5}, FieldView::kList, kDModSources, {}, kListStays, FieldCoding::kCodes, kDModCodes},
    {"fx1.amount", "FX 1", "D-Mod. Amount", {At(prog::kFx1DModAmount)}, {-15, 15}},
    {"fx2.source", "FX 2", "D-Mod. Source", {At(prog::kFx2DModSource)}, {0, 5}, FieldView::kList, kDModSources, {}, kListStays, FieldCoding::kCodes, kDModCodes},
    {"fx2.amount", "FX 2", "D-Mod. Amount", {At(prog::kFx2DModAmount)}, {-15, 15}},
};

// Of each of the two oscillators.
inline constexpr Field kOscillator[] = {
    {"pitch#.eg", "PITCH EG", "Pitch EG (Int)", {osc::kPitchEgInt}, {-99, 99}},
    {"vibrato#.wave", "Pitch MG", "Waveform", Bits(osc::kPitchMgFlags, 0, 7), {0, 4}, FieldView::kList, kWaveforms, {}, kListStays},
    {"vibrato#.sync", "Pitch MG", "ON. Key sync", Bit(osc::kPitchMgFlags, 7), kSwitchRange, FieldView::kSwitch},
    {"vibrato#.rate", "Pitch MG", "Frequency", {osc::kPitchMgFrequency}, {0, 99}},
    {"vibrato#.delay", "Pitch MG", "Delay", {osc::kPitchMgDelay}, {0, 99}},
    {"vibrato#.fade", "Pitch MG", "Fade In", {osc::kPitchMgFadeIn}, {0, 99}},
    {"vibrato#.intensity", "Pitch MG", "Intensity", {osc::kPitchMgIntensity}, {0, 99}},
    {"vibrato#.key", "Pitch MG", "Freq m by K tr", {osc::kPitchMgFreqKeyTrack}, {-99, 99}},
    {"vibrato#.touch", "Pitch MG", "Int mod by AT", {osc::kPitchMgIntAftertouch}, {0, 99}},
    {"vibrato#.joystick", "Pitch MG", "Int mod by JS", {osc::kPitchMgIntJoystick}, {0, 99}},
    {"vibrato#.both", "Pitch MG", "F m by AT+JS", {osc::kPitchMgFreqBoth}, {0, 9}},
    {"vdf#.cutoff", "VDF", "Cutoff Value", {osc::kVdfCutoff}, {0, 99}},
    {"vdf#.key", "VDF", "Keyb Trk Key", {osc::kVdfKeyTrackKey}, {0, 127}, FieldView::kNote},
    {"vdf#.track", "VDF", "KeybTrkAmou", {osc::kVdfKeyTrackAmount}, {-99, 99}},
    {"vdf#.eg", "VDF", "EG Intensity", {osc::kVdfEgIntensity}, {0, 99}},
    {"vdf#.eg.key", "VDF", "EG Time Kb Tr", {osc::kVdfEgTimeKeyTrack}, {0, 99}},
    {"vdf#.eg.velocity", "VDF", "EGTimVelSen", {osc::kVdfEgTimeVelSense}, {0, 99}},
    {"vdf#.velocity", "VDF", "EG IntVelSens", {osc::kVdfEgIntVelSense}, {-99, 99}},
    {"vdf#.attack", "VDF EG", "Attack Time", {osc::kVdfEgAttackTime}, {0, 99}},
    {"vdf#.attack.level", "VDF EG", "Attack Level", {osc::kVdfEgAttackLevel}, {-99, 99}},
    {"vdf#.decay", "VDF EG", "Decay Time", {osc::kVdfEgDecayTime}, {0, 99}},
    {"vdf#.break", "VDF EG", "Break Point", {osc::kVdfEgBreakPoint}, {-99, 99}},
    {"vdf#.slope", "VDF EG", "Slope Time", {osc::kVdfEgSlopeTime}, {0, 99}},
    {"vdf#.sustain", "VDF EG", "Sustain Level", {osc::kVdfEgSustainLevel}, {-99, 99}},
    {"vdf#.release", "VDF EG", "Release Time", {osc::kVdfEgReleaseTime}, {0, 99}},
    {"vdf#.release.level", "VDF EG", "Release Level", {osc::kVdfEgReleaseLevel}, {-99, 99}},
    {"vda#.level", "VDA", "Osc Level", {osc::kVdaOscLevel}, {0, 99}},
    {"vda#.key", "VDA", "Keyb Trk Key", {osc::kVdaKeyTrackKey}, {0, 127}, FieldView::kNote},
    {"vda#.track", "VDA", "KeybTrkAmou", {osc::kVdaKeyTrackAmount}, {-99, 99}},
    {"vda#.velocity", "VDA", "AmouVelSens", {osc::kVdaAmountVelSense}, {-99, 99}},
    {"vda#.eg.key", "VDA", "EGTimeKbTrk", {osc::kVdaEgTimeKeyTrack}, {0, 99}},
    {"vda#.eg.velocity", "VDA", "EGTimVelSen", {osc::kVdaEgTimeVelSense}, {0, 99}},
    {"vda#.attack", "VDA EG", "Attack Time", {osc::kVdaEgAttackTime}, {0, 99}},
    {"vda#.attack.level", "VDA EG", "Attack Level", {osc::kVdaEgAttackLevel}, {0, 99}},
    {"vda#.decay", "VDA EG", "Decay Time", {osc::kVdaEgDecayTime}, {0, 99}},
    {"vda#.break", "VDA EG", "Break Point", {osc::kVdaEgBreakPoint}, {0, 99}},
    {"vda#.slope", "VDA EG", "Slope Time", {osc::kVdaEgSlopeTime}, {0, 99}},
    {"vda#.sustain", "VDA EG", "Sustain Level", {osc::kVdaEgSustainLevel}, {0, 99}},
    {"vda#.release", "VDA EG", "Release Time", {osc::kVdaEgReleaseTime}, {0, 99}},
    {"vdf#.key.attack", "VDF EG Kbd Tr", "Att Time", Pair(osc::kVdfEgKeyPolarity, 0), {0, 2}, FieldView::kList, kPolarities, {}, kListStays, FieldCoding::kPolarity},
    {"vdf#.key.decay", "VDF EG Kbd Tr", "Dec Time", Pair(osc::kVdfEgKeyPolarity, 1), {0, 2}, FieldView::kList, kPolarities, {}, kListStays, FieldCoding::kPolarity},
    {"vdf#.key.slope", "VDF EG Kbd Tr", "SlopTime", Pair(osc::kVdfEgKeyPolarity, 2), {0, 2}, FieldView::kList, kPolarities, {}, kListStays, FieldCoding::kPolarity},
    {"vdf#.key.release", "VDF EG Kbd Tr", "Rel Time", Pair(osc::kVdfEgKeyPolarity, 3), {0, 2}, FieldView::kList, kPolarities, {}, kListStays, FieldCoding::kPolarity},
    {"vdf#.velocity.attack", "VDF EG Velocity", "Att Time", Pair(osc::kVdfEgVelPolarity, 0), {0, 2}, FieldView::kList, kPolarities, {}, kListStays, FieldCoding::kPolarity},
    {"vdf#.velocity.decay", "VDF EG Velocity", "Dec Time", Pair(osc::kVdfEgVelPolarity, 1), {0, 2}, FieldView::kList, kPolarities, {}, kListStays, FieldCoding::kPolarity},
    {"vdf#.velocity.slope", "VDF EG Velocity", "SlopTime", Pair(osc::kVdfEgVelPolarity, 2), {0, 2}, FieldView::kList, kPolarities, {}, kListStays, FieldCoding::kPolarity},
    {"vdf#.velocity.release", "VDF EG Velocity", "Rel Time", Pair(osc::kVdfEgVelPolarity, 3), {0, 2}, FieldView::kList, kPolarities, {}, kListStays, FieldCoding::kPolarity},
    {"vda#.key.attack", "VDA EG Kbd Tr", "Att Time", Pair(osc::kVdaEgKeyPolarity, 0), {0, 2}, FieldView::kList, kPolarities, {}, kListStays, FieldCoding::kPolarity},
    {"vda#.key.decay", "VDA EG Kbd Tr", "Dec Time", Pair(osc::kVdaEgKeyPolarity, 1), {0, 2}, FieldView::kList, kPolarities, {}, kListStays, FieldCoding::kPolarity},
    {"vda#.key.slope", "VDA EG Kbd Tr", "SlopTime", Pair(osc::kVdaEgKeyPolarity, 2), {0, 2}, FieldView::kList, kPolarities, {}, kListStays, FieldCoding::kPolarity},
    {"vda#.key.release", "VDA EG Kbd Tr", "Rel Time", Pair(osc::kVdaEgKeyPolarity, 3), {0, 2}, FieldView::kList, kPolarities, {}, kListStays, FieldCoding::kPolarity},
    {"vda#.velocity.attack", "VDA EG Velocity", "Att Time", Pair(osc::kVdaEgVelPolarity, 0), {0, 2}, FieldView::kList, kPolarities, {}, kListStays, FieldCoding::kPolarity},
    {"vda#.velocity.decay", "VDA EG Velocity", "Dec Time", Pair(osc::kVdaEgVelPolarity, 1), {0, 2}, FieldView::kList, kPolarities, {}, kListStays, FieldCoding::kPolarity},
    {"vda#.velocity.slope", "VDA EG Velocity", "SlopTime", Pair(osc::kVdaEgVelPolarity, 2), {0, 2}, FieldView::kList, kPolarities, {}, kListStays, FieldCoding::kPolarity},
    {"vda#.velocity.release", "VDA EG Velocity", "Rel Time", Pair(osc::kVdaEgVelPolarity, 3), {0, 2}, FieldView::kList, kPolarities, {}, kListStays, FieldCoding::kPolarity},
    {"csend#", "", "C Send Level", Bits(osc::kSendLevels, 4, 0x0F), {0, 9}, FieldView::kList, kDigits, {}, kListStays},
    {"dsend#", "", "D Send Level", Bits(osc::kSendLevels, 0, 0x0F), {0, 9}, FieldView::kList, kDigits, {}, kListStays},
    {"color#", "COLOR", "Intensity", {osc::kColorIntensity}, {0, 99}},
    {"color#.velocity", "COLOR", "Vel Sense", {osc::kColorVelSense}, {-99, 99}},
    {"vdf#.mode", "Kbd Track Mode", "VDF", Bits(osc::kKeyTrackMode, 4, 0x0F), {0, 2}, FieldView::kList, kTrackModes, {}, kListStays},
    {"vda#.mode", "Kbd Track Mode", "VDA", Bits(osc::kKeyTrackMode, 0, 0x0F), {0, 2}, FieldView::kList, kTrackModes, {}, kListStays},
    // 255 is off.
    {"pan#", "PANPOT", "A:B PAN", {osc::kPan}, {0, 31}, FieldView::kPan, {}, {-1}},
};
// clang-format on

}  // namespace program_fields

inline constexpr std::array<std::string_view, 2> kOscTags = {"1", "2"};
inline constexpr std::array<std::string_view, 2> kOscNames = {"OSC-1", "OSC-2"};

inline constexpr FieldBlock kPrgCommonBlock = {program_fields::kCommon, 0, kPrgRecordLength, kNoTag, kNoTag};
inline constexpr FieldBlock kOscBlock = {program_fields::kOscillator, program_record::kOsc1 - 1, osc_block::kLength,
                                         kOscTags, kOscNames};
inline constexpr std::array<FieldBlock, 2> kProgramFields = {kPrgCommonBlock, kOscBlock};

}  // namespace zentaline
