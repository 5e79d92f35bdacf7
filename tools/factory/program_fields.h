// The settings of a program's table: what each writes into the record.
#pragma once

#include <string_view>

#include "base/bytes.h"

namespace zentaline::factory {

// "cutoff 62", "2.level 60", "octave1 8'". False for a key that isn't known or a value outside its range; the record
// may then be changed in part.
bool ApplyProgramSetting(std::string_view setting, Bytes& record);

}  // namespace zentaline::factory
