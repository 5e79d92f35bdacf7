// What zentaline-console is told on its command line.
#pragma once

#include <string>
#include <vector>

#include "app/options.h"

namespace zentaline {

struct ConsoleOptions : SharedOptions {
  enum class Midi { kRecorder, kVirtual, kAlsa, kNone };
  Midi midi = Midi::kRecorder;
  bool real_time = false;
  bool journal = false;      // changes are kept on the disk, and offered after a crash
  std::string script = "-";  // "-" is standard input
};

// `arguments` without the program's name.
ConsoleOptions ReadConsoleOptions(const std::vector<std::string>& arguments);

inline constexpr const char* kConsoleUsage =
    "usage: zentaline-console [--dir DIR] [--midi recorder|virtual|alsa|none] [--realtime] [--journal] [SCRIPT]\n"
    "\n"
    "  --dir DIR        the working directory (default: the current one)\n"
    "  --midi SERVICE   recorder: devices and results as the script sets them (default)\n"
    "                   virtual: the built-in instrument\n"
    "                   alsa: the ALSA sequencer, on the real clock\n"
    "                   none: no devices\n"
    "  --realtime       timers run on the real clock\n"
    "  --journal        keep a journal of changes, and offer what an earlier run left\n"
    "  SCRIPT           a file of commands; - or nothing for standard input\n";

}  // namespace zentaline
