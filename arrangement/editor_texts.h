// What the arrangement editor writes beside its controls.
#pragma once

#include <string>
#include <string_view>

namespace zentaline {

// "Drum" to "LOWER", of part 0 to 8; empty for any other number.
std::string_view PartName(int part);

// The name of a note, 36 to 96: letter, octave from 2 on, and "#" behind them, as in "C2#" for 37.
std::string SplitNoteName(int note);

// Of the bar's value, 1 to 33: "OFF", "L15" to "L1", "CNT", "R1" to "R15", "PRG".
std::string PanText(int value);

// "Effect 1 (12)", and "(Off)" for type 0; `effect` counts from 0.
std::string EffectText(int effect, int type);

// "Style (A11)" as the record's number and location tell it. User styles from 8 on count on from 21, without an end.
std::string StyleText(int number, int location);

}  // namespace zentaline
