// The fields of an arrangement record.
#pragma once

#include "data/choices.h"
#include "record/arrangement_places.h"
#include "record/field.h"

namespace zentaline {

// clang-format off
inline constexpr Field kArrCommonFields[] = {
    {"name", "", "Arrangement", {arr_record::kName}, {0, kArrNameLength}, FieldView::kNumber, {}, {}, {}, FieldCoding::kText},
    {"style", "Style", "Number", {arr_record::kStyleNumber}, {0, 127}},
    {"style.location", "Style", "Location", {arr_record::kStyleLocation}, {0, 1}, FieldView::kList, kStyleLocations, {}, ShownAs(0)},
    {"variation", "", "Init. Var.", {arr_record::kInitialVariation}, {0, 3}, FieldView::kList, kVariations, {}, ShownAs(0)},
    // Beats a minute; the byte is short of 30 of them.
    {"tempo", "", "Tempo", {arr_record::kTempo}, {40, 240}, FieldView::kNumber, {}, {-30}, ShownAs(10)},
    {"keyboard", "", "Keyboard Assign", {arr_record::kKeyboardAssign}, {0, 10}, FieldView::kList, kKeyboardAssigns, {}, ShownAs(0)},
    {"split", "", "Split Point", {arr_record::kSplitPoint}, {36, 96}, FieldView::kSplitNote, {}, {}, ShownAs(60)},
    {"ensemble.type", "Ensemble", "Type", Bits(arr_record::kEnsemble, 0, 0x7F), {0, 9}, FieldView::kList, kEnsembles, {}, ShownAs(0)},
    {"ensemble.on", "Ensemble", "Sw", Bit(arr_record::kEnsemble, 7), kSwitchRange, FieldView::kSwitch},
    {"transpose", "", "Transpose", {arr_record::kTranspose}, {0, 22}, FieldView::kList, kTransposes, {11, -1}, ShownAs(11)},
    // The second eight kits can be chosen, but a record that holds one shows the first kit; that is wanted.
    {"manual", "", "ManDrumKit", {arr_record::kManualDrumKit}, {0, 15}, FieldView::kList, kDrumKits, {}, ShownAs(0, 7)},
    {"switch.velocity", "Switches", "Dynamic Velocity", Bit(arr_record::kSwitches1, 0), kSwitchRange, FieldView::kSwitch},
    {"switch.tempo", "Switches", "Tempo Lock", Bit(arr_record::kSwitches1, 1), kSwitchRange, FieldView::kSwitch},
    {"switch.damper1", "Switches", "KBD1 Damp En", Bit(arr_record::kSwitches1, 2), kSwitchRange, FieldView::kSwitch},
    {"switch.damper2", "Switches", "KBD2 Damp En", Bit(arr_record::kSwitches1, 3), kSwitchRange, FieldView::kSwitch},
    {"switch.scan.low", "Switches", "Chord Scan Low", Bit(arr_record::kSwitches2, 0), kSwitchRange, FieldView::kSwitch},
    {"switch.scan.high", "Switches", "Chord Scan High", Bit(arr_record::kSwitches2, 1), kSwitchRange, FieldView::kSwitch},
    {"switch.bass", "Switches", "Bass Inversion", Bit(arr_record::kSwitches2, 2), kSwitchRange, FieldView::kSwitch},
    {"switch.hold", "Switches", "Chord Hold", Bit(arr_record::kSwitches2, 3), kSwitchRange, FieldView::kSwitch},
    {"switch.latch", "Switches", "Chord Latch", Bit(arr_record::kSwitches2, 4), kSwitchRange, FieldView::kSwitch},
    {"kick", "", "Kick Designation", {arr_record::kKick}, {0, 3}, FieldView::kList, kDesignations, {}, ShownAs(0)},
    {"snare", "", "Snare Designation", {arr_record::kSnare}, {0, 3}, FieldView::kList, kDesignations, {}, ShownAs(0)},
    {"fill1", "", "Fill 1", {arr_record::kFill1}, {0, 12}, FieldView::kList, kFills, {}, ShownAs(0)},
    {"fill2", "", "Fill 2", {arr_record::kFill2}, {0, 12}, FieldView::kList, kFills, {}, ShownAs(0)},
    {"effect1", "", "Effect 1", {arr_record::kEffect1}, {0, 47}, FieldView::kList, kEffects, {47, -1}, ShownAs(0)},
    {"effect2", "", "Effect 2", {arr_record::kEffect2}, {0, 47}, FieldView::kList, kEffects, {47, -1}, ShownAs(0)},
};

// Of each of the four variations.
inline constexpr Field kDrumMapFields[] = {
    {"map#", "", "DDrumMap", {0}, {1, 8}, FieldView::kNumber, {}, {}, ShownAs(1)},
};

// Of each of the nine parts. A status byte above 11 shows as BOTH and PLAY.
inline constexpr Field kPartFields[] = {
    // Within the bank code; of the codes 3 and 4 a place in the list.
    {"#.program", "", "Program", {part_block::kProgram}, {0, 127}},
    {"#.bank", "", "Bank", {part_block::kBankCode}, {0, 4}, FieldView::kList, kBankCodes, {}, kListStays},
    {"#.volume", "", "VOL", {part_block::kVolume}, {0, 127}, FieldView::kNumber, {}, {}, ShownAs(100)},
    {"#.pan", "", "PAN", {part_block::kPan}, {1, 33}, FieldView::kPartPan, {}, {-2}, ShownAs(15)},
    {"#.csend", "", "C Send L", Bits(part_block::kSends, 0, 0x0F), {0, 10}, FieldView::kList, kSends, {10, -1}, ShownAs(10)},
    {"#.dsend", "", "D Send L", Bits(part_block::kSends, 4, 0x0F), {0, 10}, FieldView::kList, kSends, {10, -1}, ShownAs(10)},
    {"#.octave", "", "Octave", {part_block::kOctave}, {0, 4}, FieldView::kList, kOctaves, {2, -1}, ShownAs(0)},
    {"#.out", "", "Out Status1", {part_block::kStatus, 0, 0x03, 0x0C}, {0, 3}, FieldView::kList, kOutStatus1, {}, ShownAs(3, 11)},
    {"#.play", "", "Out Status2", {part_block::kStatus, 2, 0x03, 0x03}, {0, 2}, FieldView::kList, kOutStatus2, {}, ShownAs(0, 11)},
    {"#.wrap", "", "W-Around", {part_block::kWrapAround}, {0, 12}, FieldView::kList, kWrapArounds, {11, -1}, ShownAs(11)},
};
// clang-format on

inline constexpr std::array<std::string_view, kArrPartCount> kPartTags = {
    "drum", "percussion", "bass", "acc1", "acc2", "acc3", "upper1", "upper2", "lower"};
inline constexpr std::array<std::string_view, kArrPartCount> kPartNames = {
    "Drum", "Percussion", "Bass", "ACC1", "ACC2", "ACC3", "UPPER1", "UPPER2", "LOWER"};
inline constexpr std::array<std::string_view, 4> kMapTags = {"1", "2", "3", "4"};
inline constexpr std::array<std::string_view, 4> kMapNames = {"VAR1", "VAR2", "VAR3", "VAR4"};

inline constexpr FieldBlock kArrCommonBlock = {kArrCommonFields, 0, kArrRecordLength, kNoTag, kNoTag};
inline constexpr FieldBlock kDrumMapBlock = {kDrumMapFields, arr_record::kDrumMap, 1, kMapTags, kMapNames};
inline constexpr FieldBlock kPartBlock = {kPartFields, arr_record::kParts, part_block::kLength, kPartTags, kPartNames};
inline constexpr std::array<FieldBlock, 3> kArrangementFields = {kArrCommonBlock, kDrumMapBlock, kPartBlock};

}  // namespace zentaline
