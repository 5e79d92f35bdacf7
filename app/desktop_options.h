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
  bool home = false;  // to work in the user's own folder
};

// `arguments` without the program's name.
DesktopOptions ReadDesktopOptions(const std::vector<std::string>& arguments);

inline constexpr const char* kDesktopUsage =
    "usage: zentaline [--home | --dir DIR] [--midi alsa|virtual|none] [FILE...]\n"
    "\n"
    "  --home           work in the user's own folder, which gets those factory files that it lacks:\n"
    "                   $ZENTALINE_HOME, else zentaline in $XDG_DATA_HOME or ~/.local/share\n"
    "  --dir DIR        the working directory (default: the current one)\n"
    "  --midi SERVICE   alsa: the ALSA sequencer (default, where there is one)\n"
    "                   virtual: the built-in instrument\n"
    "                   none: no devices\n"
    "  FILE...          files to open\n";

}  // namespace zentaline
