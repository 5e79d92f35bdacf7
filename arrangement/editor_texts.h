// What the arrangement editor writes beside its controls.
#pragma once

#include <string>
#include <string_view>

namespace zentaline {

// "Drum" to "LOWER", of part 0 to 8; empty for any other number.
std::string_view PartName(int part);

// "Effect 1 (12)", and "(Off)" for type 0; `effect` counts from 0.
std::string EffectText(int effect, int type);

// "Style (A11)" as the record's number and location tell it. User styles from 8 on count on from 21, without an end.
std::string StyleText(int number, int location);

}  // namespace zentaline
