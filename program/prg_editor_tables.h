// The controls of the program editor, one line each: what of the record they show, and the two numbers of the parameter
// change that tells the instrument.
#pragma once

#include <array>
#include <cstddef>
#include <iterator>
#include <string_view>

#include "core/record_editor.h"
#include "record/program_fields.h"

namespace zentaline {

// The arrays of controls that edit the record.
enum PrgArray : int {
  kBasCombo,
  kBasCheck,
  kBasHScroll,
  kOscCombo,
  kOscCheck,
  kOscHScroll,
  kEffCombo,
  kEffCheck,
  kEffHScroll,
};

namespace prg_editor {

consteval const Field& Common(std::string_view key) {
  return FieldOf(program_fields::kCommon, key);
}
consteval const Field& Osc(std::string_view key) {
  return FieldOf(program_fields::kOscillator, key);
}

// clang-format off
inline constexpr EditorRow kCommonRows[] = {
    {kBasCombo, 0, &Common("octave1"), {2, 3}},
    {kBasCombo, 1, &Common("octave2"), {2, 3}},
    // The whole byte becomes the mode.
    {kBasCombo, 2, &Common("mode"), {1, 0}, kReplacesByte},
    {kBasCombo, 3, &Common("assign"), {1, 1}},
    // A byte with bits above that of Hold has no row.
    {kBasCombo, 4, &Common("hold"), {1, 2}, kReadsAllAbove},
    {kBasCombo, 5, &Common("interval"), {1, 3}},
    {kBasCombo, 6, &Common("touch.bend"), {15, 1}},
    {kBasCombo, 7, &Common("bend"), {15, 0}},
    // The whole byte becomes the waveform: Key Sync and the oscillators are lost in the record, though not in the
    // instrument.
    {kBasCombo, 8, &Common("sweep.wave"), {13, 0}, kReplacesByte},
    // Its two bits are asked of what the three below them leave, which is nothing: it opens at "OFF" whatever is stored.
    {kBasCombo, 9, &Common("sweep.on"), {13, 5}, kReadsFirstRow},
    {kBasCheck, 0, &Common("sweep.sync"), {13, 4}},
    {kBasHScroll, 0, &Common("detune"), {1, 4}},
    {kBasHScroll, 1, &Common("delay"), {1, 5}},
    {kBasHScroll, 2, &Common("touch.cutoff"), {15, 3}},
    {kBasHScroll, 3, &Common("touch.sweep"), {14, 1}},
    {kBasHScroll, 4, &Common("touch.level"), {14, 2}},
    {kBasHScroll, 5, &Common("bend.cutoff"), {15, 2}},
    {kBasHScroll, 6, &Common("bend.sweep"), {14, 0}},
    {kBasHScroll, 7, &Common("sweep.rate"), {13, 2}},
    {kBasHScroll, 8, &Common("sweep.delay"), {13, 3}},
    {kBasHScroll, 9, &Common("sweep.depth"), {13, 1}},
    {kBasHScroll, 10, &Common("pitch.start"), {3, 0}},
    {kBasHScroll, 11, &Common("pitch.attack"), {3, 1}},
    {kBasHScroll, 12, &Common("pitch.attack.level"), {3, 2}},
    {kBasHScroll, 13, &Common("pitch.decay"), {3, 3}},
    {kBasHScroll, 14, &Common("pitch.release"), {3, 4}},
    {kBasHScroll, 15, &Common("pitch.release.level"), {3, 5}},
    {kBasHScroll, 16, &Common("pitch.level.velocity"), {3, 6}},
    {kBasHScroll, 17, &Common("pitch.time.velocity"), {3, 7}},
};

// Of oscillator 1; those of oscillator 2 have the same messages.
inline constexpr EditorRow kOscRows[] = {
    {kOscHScroll, 0, &Osc("pitch#.eg"), {2, 4}},
    {kOscHScroll, 1, &Osc("vibrato#.rate"), {11, 3}},
    {kOscHScroll, 2, &Osc("vibrato#.delay"), {11, 4}},
    {kOscHScroll, 3, &Osc("vibrato#.fade"), {11, 5}},
    {kOscHScroll, 4, &Osc("vibrato#.intensity"), {11, 2}},
    {kOscHScroll, 5, &Osc("vibrato#.key"), {11, 7}},
    {kOscHScroll, 6, &Osc("vibrato#.touch"), {12, 2}},
    {kOscHScroll, 7, &Osc("vibrato#.joystick"), {12, 1}},
    {kOscHScroll, 8, &Osc("vibrato#.both"), {12, 3}},
    {kOscHScroll, 9, &Osc("vdf#.cutoff"), {4, 1}},
    {kOscHScroll, 10, &Osc("vdf#.key"), {6, 2}},
    {kOscHScroll, 11, &Osc("vdf#.track"), {6, 1}},
    {kOscHScroll, 12, &Osc("vdf#.eg"), {4, 2}},
    {kOscHScroll, 13, &Osc("vdf#.eg.key"), {6, 4}},
    {kOscHScroll, 14, &Osc("vdf#.eg.velocity"), {7, 3}},
    {kOscHScroll, 15, &Osc("vdf#.velocity"), {7, 1}},
    {kOscHScroll, 16, &Osc("vdf#.attack"), {5, 0}},
    {kOscHScroll, 17, &Osc("vdf#.attack.level"), {5, 1}},
    {kOscHScroll, 18, &Osc("vdf#.decay"), {5, 2}},
    {kOscHScroll, 19, &Osc("vdf#.break"), {5, 3}},
    {kOscHScroll, 20, &Osc("vdf#.slope"), {5, 4}},
    {kOscHScroll, 21, &Osc("vdf#.sustain"), {5, 5}},
    {kOscHScroll, 22, &Osc("vdf#.release"), {5, 6}},
    {kOscHScroll, 23, &Osc("vdf#.release.level"), {5, 7}},
    {kOscHScroll, 24, &Osc("vda#.level"), {2, 2}},
    {kOscHScroll, 25, &Osc("vda#.key"), {9, 2}},
    {kOscHScroll, 26, &Osc("vda#.track"), {9, 1}},
    {kOscHScroll, 27, &Osc("vda#.velocity"), {10, 1}},
    {kOscHScroll, 28, &Osc("vda#.eg.key"), {9, 4}},
    {kOscHScroll, 29, &Osc("vda#.eg.velocity"), {10, 2}},
    {kOscHScroll, 30, &Osc("vda#.attack"), {8, 1}},
    {kOscHScroll, 31, &Osc("vda#.attack.level"), {8, 2}},
    {kOscHScroll, 32, &Osc("vda#.decay"), {8, 3}},
    {kOscHScroll, 33, &Osc("vda#.break"), {8, 4}},
    {kOscHScroll, 34, &Osc("vda#.slope"), {8, 5}},
    {kOscHScroll, 35, &Osc("vda#.sustain"), {8, 6}},
    {kOscHScroll, 36, &Osc("vda#.release"), {8, 7}},
    {kOscHScroll, 37, &Osc("color#"), {4, 3}},
    {kOscHScroll, 38, &Osc("color#.velocity"), {7, 2}},
    // Off is 255; any other byte is read as it stands, without the step that a store takes off: the pan shows one lower
    // each time the program is opened.
    {kOscHScroll, 39, &Osc("pan#"), {2, 5}, kReadsUncoded},
    // RANDOM shows as TRIANGLE at the next opening.
    {kOscCombo, 0, &Osc("vibrato#.wave"), {11, 1}, kReadsTwoBits},
    {kOscCombo, 1, &Osc("csend#"), {2, 6}},
    {kOscCombo, 2, &Osc("dsend#"), {2, 7}},
    // The change goes out, but the byte is read again before it is stored.
    {kOscCombo, 3, &Osc("vdf#.mode"), {6, 3}, kNotStored},
    {kOscCombo, 4, &Osc("vda#.mode"), {9, 3}, kNotStored},
    {kOscCombo, 5, &Osc("vdf#.key.attack"), {6, 5}},
    {kOscCombo, 6, &Osc("vdf#.key.decay"), {6, 6}},
    {kOscCombo, 7, &Osc("vdf#.key.slope"), {6, 7}},
    {kOscCombo, 8, &Osc("vdf#.key.release"), {6, 8}},
    {kOscCombo, 9, &Osc("vdf#.velocity.attack"), {7, 4}},
    {kOscCombo, 10, &Osc("vdf#.velocity.decay"), {7, 5}},
    {kOscCombo, 11, &Osc("vdf#.velocity.slope"), {7, 6}},
    {kOscCombo, 12, &Osc("vdf#.velocity.release"), {7, 7}},
    {kOscCombo, 13, &Osc("vda#.key.attack"), {9, 5}},
    {kOscCombo, 14, &Osc("vda#.key.decay"), {9, 6}},
    {kOscCombo, 15, &Osc("vda#.key.slope"), {9, 7}},
    {kOscCombo, 16, &Osc("vda#.key.release"), {9, 8}},
    {kOscCombo, 17, &Osc("vda#.velocity.attack"), {10, 3}},
    {kOscCombo, 18, &Osc("vda#.velocity.decay"), {10, 4}},
    {kOscCombo, 19, &Osc("vda#.velocity.slope"), {10, 5}},
    {kOscCombo, 20, &Osc("vda#.velocity.release"), {10, 6}},
    {kOscCheck, 0, &Osc("vibrato#.sync"), {11, 6}},
};
// clang-format on

// What a change of such a row belongs to, for each oscillator: "VDF EG, OSC-2".
class OscOwner {
 public:
  constexpr OscOwner() = default;
  constexpr OscOwner(std::string_view group, std::string_view oscillator) {
    Add(group);
    if (!group.empty()) Add(", ");
    Add(oscillator);
  }
  constexpr operator std::string_view() const { return {text_, length_}; }

 private:
  constexpr void Add(std::string_view part) {
    for (const char each : part) text_[length_++] = each;
  }
  char text_[24] = {};
  std::size_t length_ = 0;
};
consteval auto OscOwners() {
  std::array<std::array<OscOwner, kOscNames.size()>, std::size(kOscRows)> owners;
  for (std::size_t row = 0; row < owners.size(); ++row) {
    for (std::size_t block = 0; block < kOscNames.size(); ++block) {
      owners[row][block] = {kOscRows[row].field->group, kOscNames[block]};
    }
  }
  return owners;
}
inline constexpr auto kOscOwners = OscOwners();
static_assert(std::string_view(kOscOwners[0][1]) == "PITCH EG, OSC-2");

// clang-format off
inline constexpr EditorRow kEffectRows[] = {
    {kEffCombo, 0, &Common("fx1"), {16, 0}},
    {kEffCombo, 2, &Common("fx2"), {16, 2}},
    {kEffCheck, 0, &Common("fx1.on"), {16, 1}},
    {kEffCheck, 1, &Common("fx2.on"), {16, 3}},
    {kEffHScroll, 0, &Common("balance1"), {19, 7}},
    {kEffHScroll, 2, &Common("balance2"), {20, 7}},
    // The row itself is stored, while 5 is read as "PEDAL" and 6 as "VDA-EG": a stored "VDA-EG" opens as "PEDAL".
    {kEffCombo, 1, &Common("fx1.source"), {17, 0}, kStoresRow},
    {kEffCombo, 3, &Common("fx2.source"), {17, 2}, kStoresRow},
    {kEffHScroll, 1, &Common("fx1.amount"), {17, 1}},
    {kEffHScroll, 3, &Common("fx2.amount"), {17, 3}},
    {kEffCombo, 4, &Common("placement"), {18, 0}},
};

// The two bars of the outputs, or the four of the returns in PARALLEL 3.
inline constexpr EditorRow kPanRows[] = {
    {kEffHScroll, 5, &Common("cpan"), {18, 1}},
    {kEffHScroll, 7, &Common("dpan"), {18, 2}},
};
inline constexpr EditorRow kReturnRows[] = {
    {kEffHScroll, 4, &Common("return1.left"), {18, 1}},
    {kEffHScroll, 5, &Common("return1.right"), {18, 2}},
    {kEffHScroll, 6, &Common("return2.left"), {18, 3}},
    {kEffHScroll, 7, &Common("return2.right"), {18, 4}},
};
// clang-format on

// From oscillator 1 to oscillator 2.
constexpr int OscStep(int array) {
  if (array == kOscCheck) return 1;
  return array == kOscCombo ? 21 : 40;
}

inline constexpr int kPlacementWithReturns = 3;  // PARALLEL 3

inline constexpr EditMessage kSelectOscillator = {2, 0};
inline constexpr EditMessage kMultisound = {2, 1};

}  // namespace prg_editor

}  // namespace zentaline
