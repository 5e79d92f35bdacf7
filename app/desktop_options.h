// What zentaline is told on its command line.
#pragma once

#include <string>
#include <vector>

#include "app/options.h"

namespace zentaline {

struct DesktopOptions : SharedOptions {
  enum class Midi { kDefault, kAlsa, kVirtual, kNone };  // by default ALSA's where the sequencer can be opened
  Midi midi = Midi::kDefault;
  std::vector<std::string> files;
};

// `arguments` without the program's name.
DesktopOptions ReadDesktopOptions(const std::vector<std::string>& arguments);

inline constexpr const char* kDesktopUsage =
    "usage: zentaline [--dir DIR] [--midi alsa|virtual|none] [FILE...]\n"
    "\n"
    "  --dir DIR        the working directory (default: the current one)\n"
    "  --midi SERVICE   alsa: the ALSA sequencer (default, where there is one)\n"
    "                   virtual: the built-in instrument\n"
    "                   none: no devices\n"
    "  FILE...          files to open\n";

}  // namespace zentaline
