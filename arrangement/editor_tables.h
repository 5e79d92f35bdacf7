// The controls of the arrangement editor, one line each: what of the record they show, and which arrangement parameter
// tells the instrument.
#pragma once

#include <initializer_list>

#include "core/record_editor.h"
#include "record/arrangement_fields.h"

namespace zentaline {

// The arrays of controls that edit the record.
enum EditArray : int { kVScroll1, kHScroll1, kCombo1, kCombo2, kCheck1, kEffCombo };

namespace arr_editor {

consteval const Field& Common(std::string_view key) {
  return FieldOf(kArrCommonFields, key);
}
consteval const Field& Part(std::string_view key) {
  return FieldOf(kPartFields, key);
}

constexpr unsigned Parts(std::initializer_list<ArrPart> parts) {
  unsigned bits = 0;
  for (const ArrPart part : parts) bits |= 1U << static_cast<unsigned>(part);
  return bits;
}

// clang-format off
inline constexpr EditorRow kCommonRows[] = {
    // In a fill the effects go out before the switches.
    {kEffCombo, 0, &Common("effect1"), {0x06}, kActsInFill},
    {kEffCombo, 1, &Common("effect2"), {0x08}, kActsInFill},
    {kVScroll1, 0, &Common("tempo"), {0x00}, kSendsShown},
    {kHScroll1, 0, &Common("split"), {0x02}, kNoTrait, {.page = 12}},
    {kCombo1, 0, &Common("keyboard")},
    {kCombo1, 1, &Common("fill1"), {0x04}},
    {kCombo1, 2, &Common("fill2"), {0x05}},
    {kCombo1, 3, &Common("variation")},
    {kCombo1, 4, &Common("transpose"), {0x03}},
    // The first variation's; Combo1(5) chooses which of the four it shows.
    {kHScroll1, 1, &FieldOf(kDrumMapFields, "map#"), {}, kNoTrait, {.page = 1}},
    // Kick and snare are shown but never written: the list's row goes where the edit before it went. Their bytes change
    // only with a whole record that is pasted; that is wanted.
    {kCombo1, 6, &Common("kick"), {}, kStoresElsewhere},
    {kCombo1, 7, &Common("snare"), {}, kStoresElsewhere},
    {kCombo1, 8, &Common("ensemble.type")},
    {kCheck1, 9, &Common("ensemble.on"), {}, kActsInFill},
    {kCombo1, 9, &Common("manual")},
    {kCheck1, 0, &Common("switch.velocity"), {}, kActsInFill},
    {kCheck1, 1, &Common("switch.tempo"), {}, kActsInFill},
    {kCheck1, 2, &Common("switch.damper1"), {0x4F}, kActsInFill},
    {kCheck1, 3, &Common("switch.damper2"), {0x59}, kActsInFill},
    {kCheck1, 4, &Common("switch.scan.low"), {}, kActsInFill},
    {kCheck1, 5, &Common("switch.scan.high"), {}, kActsInFill},
    {kCheck1, 6, &Common("switch.bass"), {}, kActsInFill},
    {kCheck1, 7, &Common("switch.hold"), {}, kActsInFill},
    {kCheck1, 8, &Common("switch.latch"), {0x01}, kActsInFill},
};

// Of each of the nine parts.
inline constexpr EditorRow kPartRows[] = {
    {kVScroll1, 1, &Part("#.volume"), {0x0B}, kNoTrait, {.upright = true}},
    {kVScroll1, 2, &Part("#.pan"), {0x0C}, kNoTrait, {.page = 5}},
    {kCombo2, 0, &Part("#.csend"), {0x0D}},
    {kCombo2, 1, &Part("#.dsend"), {0x0E}},
    {kCombo2, 2, &Part("#.octave"), {0x10, 0, Parts({kPartDrum, kPartPercussion})}},
    {kCombo2, 3, &Part("#.out"), {0x11, 0, Parts({kPartUpper2, kPartLower})}},
    // The instrument knows playing and muted; a solo stays in the record.
    {kCombo2, 4, &Part("#.play"), {.a = 0x0F, .greatest = 1}},
    {kCombo2, 5, &Part("#.wrap"), {0x12, 0, Parts({kPartDrum, kPartPercussion, kPartUpper2, kPartLower})}},
};
// clang-format on

}  // namespace arr_editor

// From one part to the next.
inline constexpr int kPartIdStep = 0x0A;
inline constexpr int kPartBarStep = 2;
inline constexpr int kPartListStep = 6;

inline constexpr int kMuteId = 0x0F;  // of part 0; 1 muted, 0 playing
inline constexpr int kEffectSwitchIds[] = {0x07, 0x09};

constexpr int IndexStep(int array) {
  return array == kCombo2 ? kPartListStep : kPartBarStep;
}

}  // namespace zentaline
