// The controls of the global window, one line each: what of the block they show. There is no parameter message: every
// change sends the whole block.
#pragma once

#include <string_view>

#include "core/record_editor.h"
#include "record/global_fields.h"

namespace zentaline {

// The arrays of controls that show the block. The option buttons stand apart.
enum GblArray : int {
  kGblHScroll1,
  kGblCombo1,
  kGblCheck1,
  kCombo3,
  kHScroll3,
  kCheck3,
  kVScroll2,
};

namespace gbl_editor {

consteval const Field& Of(std::string_view key) {
  return FieldOf(global_fields::kCommon, key);
}
inline constexpr const Field& kDamper = Of("damper");

// clang-format off
inline constexpr EditorRow kRows[] = {
    {kGblHScroll1, 0, &Of("tune")},
    {kGblHScroll1, 1, &Of("midi.velocity")},
    // A choice for the upper parts replaces the whole byte, so that the octave of the lower part changes with it; the
    // list of the lower part isn't shown anew.
    {kGblCombo1, 0, &Of("midi.upper"), {}, kReplacesByte},
    {kGblCombo1, 1, &Of("midi.lower")},
    // The curves can be seen, not changed: a choice sends the block as it stands.
    {kGblCombo1, 2, &Of("curve.velocity"), {}, kNotStored},
    {kGblCombo1, 3, &Of("curve.touch"), {}, kNotStored},
    {kGblCombo1, 5, &Of("chords")},
    {kGblCombo1, 6, &Of("scale.type")},
    {kGblCombo1, 7, &Of("subscale.type")},
    {kGblCombo1, 8, &Of("scale.key")},
    {kGblCombo1, 9, &Of("subscale.key")},
    {kGblCombo1, 10, &Of("pedal")},
    {kGblCombo1, 11, &Of("controller.a")},
    {kGblCombo1, 12, &Of("controller.b")},
    {kGblCombo1, 13, &Of("controller.c")},
    {kGblCombo1, 14, &Of("controller.d")},
    {kGblCombo1, 15, &Of("controller.e")},
    {kGblCombo1, 16, &Of("js.low")},
    {kGblCombo1, 17, &Of("js.up1")},
    {kGblCombo1, 18, &Of("js.up2")},
    {kGblCombo1, 19, &Of("echo")},
    {kGblCheck1, 0, &Of("scan")},
    {kGblCheck1, 1, &Of("lock.transpose")},
    {kGblCheck1, 2, &Of("lock.vocal")},
    {kCombo3, 0, &Of("harmony.octave")},
    {kCombo3, 1, &Of("harmony.channel")},
    {kCombo3, 2, &Of("harmony.track")},
    {kCombo3, 3, &Of("harmony.song")},
    {kHScroll3, 0, &Of("harmony.low")},
    {kHScroll3, 1, &Of("harmony.high")},
    {kCheck3, -1, &Of("harmony.tg")},
};

// Of each user scale; the index is that of the first scale.
inline constexpr EditorRow kScaleRows[] = {
    {kVScroll2, 0, &global_fields::kScale[0]},
    {kVScroll2, 1, &global_fields::kScale[1]},
    {kVScroll2, 2, &global_fields::kScale[2]},
    {kVScroll2, 3, &global_fields::kScale[3]},
    {kVScroll2, 4, &global_fields::kScale[4]},
    {kVScroll2, 5, &global_fields::kScale[5]},
    {kVScroll2, 6, &global_fields::kScale[6]},
    {kVScroll2, 7, &global_fields::kScale[7]},
    {kVScroll2, 8, &global_fields::kScale[8]},
    {kVScroll2, 9, &global_fields::kScale[9]},
    {kVScroll2, 10, &global_fields::kScale[10]},
    {kVScroll2, 11, &global_fields::kScale[11]},
};
// clang-format on

}  // namespace gbl_editor

}  // namespace zentaline
