// The fields of the global block, as a .gbl file holds it.
#pragma once

#include "data/choices.h"
#include "record/field.h"

namespace zentaline {

inline constexpr std::size_t kGlobalBlockLength = 448;
inline constexpr int kUserScaleCount = 4;
inline constexpr int kNotesOfScale = 12;

namespace global_fields {

// The offset of a position.
constexpr std::size_t At(std::size_t position) {
  return position - 1;
}

// What a byte of a pedal or controller stands for, by the row of kPedalFunctions. Code 22 stands twice and 19 not at
// all: a byte of 22 shows as the first of the two, "VARIATION UP"; that is wanted.
inline constexpr std::array<std::uint8_t, 52> kPedalCodes = {
    0,  1,  2,  47, 3,  38, 37, 4,  5,  6,  7,  8,  9,  10, 11, 12, 13, 14, 15, 16, 17, 18, 22, 20, 21, 22,
    23, 24, 25, 26, 27, 28, 29, 39, 40, 41, 42, 44, 45, 46, 48, 49, 50, 51, 52, 30, 43, 31, 32, 33, 34, 53};

// clang-format off
inline constexpr Field kCommon[] = {
    {"tune", "General", "Master Tune", {At(33)}, {-50, 50}},
    // Set for "+".
    {"damper", "Pedals", "Damper Polarity", Bit(At(35), 0), kSwitchRange, FieldView::kSwitch},
    {"js.low", "General", "JS x LOW", Bit(At(35), 3), kSwitchRange, FieldView::kList, kJoystickUses, {}, kListStays},
    {"js.up1", "General", "JS x UP1", Bit(At(35), 4), kSwitchRange, FieldView::kList, kJoystickUses, {}, kListStays},
    {"js.up2", "General", "JS x UP2", Bit(At(35), 5), kSwitchRange, FieldView::kList, kJoystickUses, {}, kListStays},
    {"echo", "Midi In", "Echo Back", Bits(At(35), 6, 3), {0, 2}, FieldView::kList, kEchoBacks, {}, kListStays},
    {"pedal", "Pedals", "Assignable Pedal", {At(36)}, {0, 51}, FieldView::kList, kPedalFunctions, {}, kListStays, FieldCoding::kCodes, kPedalCodes},
    {"scale.type", "Scales", "Main Scale Type", {At(38)}, {0, 23}, FieldView::kList, kScaleTypes, {}, kListStays},
    {"scale.key", "Scales", "Main Scale Key", {At(39)}, {0, 11}, FieldView::kList, kScaleKeys, {}, kListStays},
    {"curve.velocity", "General", "Velocity Curve", {At(52)}, {0, 7}, FieldView::kList, kCurves, {}, kStopsAtEnd},
    {"curve.touch", "General", "After Touch Curve", {At(53)}, {0, 7}, FieldView::kList, kCurves, {}, kStopsAtEnd},
    {"subscale.type", "Scales", "Sub Scale Type", {At(54)}, {0, 23}, FieldView::kList, kScaleTypes, {}, kListStays},
    {"subscale.key", "Scales", "Sub Scale Key", {At(55)}, {0, 11}, FieldView::kList, kScaleKeys, {}, kListStays},
    {"controller.a", "Pedals", "Ext. Controller A", {At(56)}, {0, 51}, FieldView::kList, kPedalFunctions, {}, kListStays, FieldCoding::kCodes, kPedalCodes},
    {"controller.b", "Pedals", "Ext. Controller B", {At(57)}, {0, 51}, FieldView::kList, kPedalFunctions, {}, kListStays, FieldCoding::kCodes, kPedalCodes},
    {"controller.c", "Pedals", "Ext. Controller C", {At(58)}, {0, 51}, FieldView::kList, kPedalFunctions, {}, kListStays, FieldCoding::kCodes, kPedalCodes},
    {"controller.d", "Pedals", "Ext. Controller D", {At(59)}, {0, 51}, FieldView::kList, kPedalFunctions, {}, kListStays, FieldCoding::kCodes, kPedalCodes},
    {"controller.e", "Pedals", "Ext. Controller E", {At(60)}, {0, 51}, FieldView::kList, kPedalFunctions, {}, kListStays, FieldCoding::kCodes, kPedalCodes},
    {"chords", "General", "Chord Recognition", {At(61), 0, 3}, {0, 2}, FieldView::kList, kChordRecognitions, {}, kStopsAtEnd},
    {"scan", "General", "Auto Chord Scan", {At(62), 0, 1}, kSwitchRange, FieldView::kSwitch},
    {"midi.velocity", "Midi In", "Velocity", {At(245)}, {0, 127}, FieldView::kNormal},
    {"midi.upper", "Midi In", "Octave Upper", Bits(At(246), 0, 0x0F), {0, 3}, FieldView::kList, kUpperOctaves, {2, -1}, kListStays},
    {"midi.lower", "Midi In", "Octave Lower", Bits(At(246), 4, 0x0F), {0, 3}, FieldView::kList, kLowerOctaves, {2, -1}, kListStays},
    {"harmony.octave", "Harmony", "Octave", {At(248)}, {0, 6}, FieldView::kList, kHarmonyOctaves, {3, -1}, ShownAs(3)},
    {"harmony.low", "Harmony", "Range L(Arr)", {At(249)}, {0, 116}, FieldView::kNote},
    {"harmony.high", "Harmony", "Range H(Arr)", {At(250)}, {11, 127}, FieldView::kNote},
    {"harmony.channel", "Harmony", "Channel (Arr)", {At(251)}, {0, 16}, FieldView::kList, kArrChannels, {-1}, kListStays},
    {"harmony.track", "Harmony", "Track", {At(252)}, {0, 16}, FieldView::kList, kHarmonyTracks, {}, kListStays},
    {"harmony.song", "Harmony", "Channel (Song Play)", {At(253)}, {0, 32}, FieldView::kList, kSongChannels, {-1}, kListStays},
    {"harmony.tg", "Harmony", "TG (Song Play)", {At(254), 0, 1}, kSwitchRange, FieldView::kSwitch},
    {"lock.transpose", "Harmony", "Transpose Lock", Bit(At(255), 1), kSwitchRange, FieldView::kSwitch},
    {"lock.vocal", "Harmony", "Voc/Gtr Lock", Bit(At(255), 0), kSwitchRange, FieldView::kSwitch},
};

// Of each of the four user scales: hundredths of a semitone.
inline constexpr Field kScale[] = {
    {"scale#.c", "", "C", {0}, {-50, 50}},
    {"scale#.c#", "", "C#", {1}, {-50, 50}},
    {"scale#.d", "", "D", {2}, {-50, 50}},
    {"scale#.d#", "", "D#", {3}, {-50, 50}},
    {"scale#.e", "", "E", {4}, {-50, 50}},
    {"scale#.f", "", "F", {5}, {-50, 50}},
    {"scale#.f#", "", "F#", {6}, {-50, 50}},
    {"scale#.g", "", "G", {7}, {-50, 50}},
    {"scale#.g#", "", "G#", {8}, {-50, 50}},
    {"scale#.a", "", "A", {9}, {-50, 50}},
    {"scale#.a#", "", "A#", {10}, {-50, 50}},
    {"scale#.b", "", "B", {11}, {-50, 50}},
};
// clang-format on

}  // namespace global_fields

inline constexpr std::array<std::string_view, kUserScaleCount> kScaleTags = {"1", "2", "3", "4"};
inline constexpr std::array<std::string_view, kUserScaleCount> kScaleNames = {"User Scale 1", "User Scale 2",
                                                                              "User Scale 3", "User Scale 4"};

inline constexpr FieldBlock kGlobalCommonBlock = {global_fields::kCommon, 0, kGlobalBlockLength, kNoTag, kNoTag};
inline constexpr FieldBlock kUserScaleBlock = {global_fields::kScale, global_fields::At(65), kNotesOfScale, kScaleTags,
                                               kScaleNames};
inline constexpr std::array<FieldBlock, 2> kGlobalFields = {kGlobalCommonBlock, kUserScaleBlock};

}  // namespace zentaline
