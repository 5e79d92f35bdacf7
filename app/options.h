// What both programs are told on their command lines in the same words.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace zentaline {

struct SharedOptions {
  std::string directory;  // empty when none is named
  bool help = false;
  std::string error;  // what is wrong with the usage; empty when nothing is
};

// What a program takes beside --dir and --help. Each gives what is wrong with its argument, nothing when it is good.
struct OwnOptions {
  std::function<std::string(const std::string& service)> midi;
  std::function<std::string(const std::string& operand)> operand;
  // An option without a value, as it stands; false when there is none of the name.
  std::function<bool(const std::string& name)> flag = [](const std::string&) { return false; };
};

// OwnOptions::midi for a program whose services go by these names.
template <class Midi, std::size_t count>
std::string ChooseService(const std::pair<const char*, Midi> (&services)[count], const std::string& name,
                          Midi& chosen) {
  for (const auto& [known, midi] : services) {
    if (name != known) continue;
    chosen = midi;
    return {};
  }
  return "there is no MIDI service " + name;
}

// `arguments` without the program's name. Behind -- stand operands only; "-" alone is an operand. Reading ends at the
// first error.
void ReadOptions(const std::vector<std::string>& arguments, const OwnOptions& own, SharedOptions& options);

}  // namespace zentaline
