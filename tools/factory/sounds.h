// Finding a sound of the instrument by its name.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "base/bytes.h"

namespace zentaline::factory {

// A program or drum kit as a part block or a link names it.
struct Sound {
  int bank_code = 0;  // 0 banks A and B, 1 C and D, 2 E, 3 the file's own programs, 4 drum kits
  int number = 0;
};

// The names of the 64 programs that belong to a file, 16 bytes each; all empty where there are none.
using OwnPrograms = std::array<Bytes, 64>;

// `name` may carry its bank in front: "A:" to "E:", "U:" for the file's own programs, "Dr:" for drum kits. Without one
// the banks A to E and the drum kits are searched. False with the reason in `problem` when there is none of that name,
// or more than one.
bool FindSound(std::string_view name, const OwnPrograms& own, Sound& sound, std::string& problem);

// The 16 bytes of a factory sound's name.
std::string_view SoundName(const Sound& sound);

}  // namespace zentaline::factory
