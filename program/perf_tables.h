// The rows of the performance editor, and the bytes that each of them moves.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "program/prg_editor_tables.h"
#include "program/state.h"
#include "record/program_fields.h"

namespace zentaline {

// A byte that a row moves: of oscillator 1 and in the same way of oscillator 2, or the balance of an effect.
struct PerfParameter {
  const Field* field;
  PrgArray bar;  // its bar in the program editor, of oscillator 1
  int index;
  int a;  // of the message
  int b;
  // A step that leads below or above these stops the presses behind it.
  int low = 5;
  int high = 94;
  bool of_effect = false;

  constexpr bool IsSigned() const { return field->range.low < 0; }
};

inline constexpr int kPerfParameters = kPerfEntries / 2;

// In the order of PerfBase.
// clang-format off
inline constexpr std::array<PerfParameter, kPerfParameters> kPerfTable = {{
    {&FieldOf(program_fields::kOscillator, "vibrato#.intensity"), kOscHScroll, 4, 11, 2},
    {&FieldOf(program_fields::kOscillator, "vdf#.cutoff"), kOscHScroll, 9, 4, 1},
    {&FieldOf(program_fields::kOscillator, "vdf#.eg"), kOscHScroll, 12, 4, 2},
    {&FieldOf(program_fields::kOscillator, "vda#.attack"), kOscHScroll, 30, 8, 1},
    {&FieldOf(program_fields::kOscillator, "vdf#.release"), kOscHScroll, 22, 5, 6},
    {&FieldOf(program_fields::kOscillator, "vda#.level"), kOscHScroll, 24, 2, 2},
    {&FieldOf(program_fields::kOscillator, "vdf#.velocity"), kOscHScroll, 15, 7, 1, -94},
    {&FieldOf(program_fields::kCommon, "balance1"), kEffHScroll, 0, 19, 7, 5, 95, true},
    {&FieldOf(program_fields::kOscillator, "vda#.release"), kOscHScroll, 36, 8, 7},
    {&FieldOf(program_fields::kOscillator, "vda#.velocity"), kOscHScroll, 27, 10, 1, -94},
    {&FieldOf(program_fields::kCommon, "balance2"), kEffHScroll, 2, 20, 7, 5, 95, true},
}};
// clang-format on

// After a reset the effects stop one earlier than after a step; that is wanted.
inline constexpr int kPerfResetHigh = 94;

inline constexpr int kNoParameter = -1;

struct PerfRow {
  std::string_view caption;
  int amount;  // of one press
  int first;   // of kPerfTable
  int second = kNoParameter;
};

inline constexpr std::array<PerfRow, kPerfRows> kPerfRowTable = {{
    {"VIBRATO INTENSITY", 5, 0},
    {"VDF CUTOFF", 5, 1},
    {"VDF EG INTENSITY", 3, 2},
    {"ATTACK TIME", 5, 3},
    {"RELEASE TIME", 5, 4, 8},
    {"VDA LEVEL", 5, 5},
    {"VELOCITY SENSITIVITY", 5, 6, 9},
    {"EFFECTS BALANCE", 5, 7, 10},
}};

inline constexpr int kPerfMost = 10;    // presses in either direction
inline constexpr int kOscBarStep = 40;  // from a bar of oscillator 1 to that of oscillator 2
inline constexpr int kSecondCopy = 1;   // from a balance to its copy

// The position in EditRecord; `osc` counts from 1 and means nothing to an effect.
constexpr std::size_t PerfPosition(const PerfParameter& parameter, int osc) {
  if (parameter.of_effect) return kPrgCommonBlock.start + parameter.field->place.offset + 1;
  return kOscBlock.StartOf(osc - 1) + parameter.field->place.offset + 1;
}

// What it belongs to, in a musician's words.
constexpr std::string_view PerfOwner(const PerfParameter& parameter, int osc) {
  return parameter.of_effect ? parameter.field->group : kOscNames[static_cast<std::size_t>(osc - 1)];
}

// What a byte is worth: 157 to 255 are the negative values of a signed one, anything else is taken as it stands.
constexpr int PerfValue(const PerfParameter& parameter, int byte) {
  return parameter.IsSigned() && byte > 0xFF + parameter.field->range.low ? byte - 0x100 : byte;
}

}  // namespace zentaline
