#include "tools/factory/sounds.h"

#include <vector>

#include "data/names.h"
#include "program/prg_format.h"

namespace zentaline::factory {
namespace {

void FindInBank(int bank, std::string_view name, std::vector<Sound>& found) {
  for (int n = 0; n < 64; ++n) {
    if (TrimRight(ProgramName(bank, n)) == name) found.push_back({bank / 2, bank % 2 * 64 + n});
  }
}

void FindInKits(std::string_view name, std::vector<Sound>& found) {
  for (int n = 0; n < 16; ++n) {
    if (TrimRight(DrumKitName(n)) == name) found.push_back({kDrumBankCode, n});
  }
}

}  // namespace

bool FindSound(std::string_view name, const OwnPrograms& own, Sound& sound, std::string& problem) {
  std::vector<Sound> found;
  if (name.size() > 2 && name[1] == ':' && name[0] >= 'A' && name[0] <= 'E') {
    FindInBank(name[0] - 'A', name.substr(2), found);
  } else if (name.starts_with("U:")) {
    for (std::size_t n = 0; n < own.size(); ++n) {
      if (!own[n].empty() && TrimRight(own[n]) == name.substr(2)) found.push_back({kUserBankCode, static_cast<int>(n)});
    }
  } else if (name.starts_with("Dr:")) {
    FindInKits(name.substr(3), found);
  } else {
    for (int bank = 0; bank < 5; ++bank) FindInBank(bank, name, found);
    FindInKits(name, found);
  }
  if (found.size() != 1) {
    problem = (found.empty() ? "no sound is called \"" : "more than one sound is called \"") + std::string(name) + "\"";
    return false;
  }
  sound = found[0];
  return true;
}

std::string_view SoundName(const Sound& sound) {
  if (sound.bank_code == kDrumBankCode) return DrumKitName(sound.number);
  return ProgramName(sound.bank_code * 2 + sound.number / 64, sound.number % 64);
}

}  // namespace zentaline::factory
