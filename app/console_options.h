// What zentaline-console is told on its command line.
#pragma once

#include <string>
#include <vector>

namespace zentaline {

struct ConsoleOptions {
  enum class Midi { kRecorder, kVirtual, kAlsa, kNone };
  std::string directory = ".";
  Midi midi = Midi::kRecorder;
  bool real_time = false;
  std::string script = "-";  // "-" is standard input
  bool help = false;
  std::string error;  // what is wrong with the usage; empty when nothing is
};

// `arguments` without the program's name.
ConsoleOptions ReadConsoleOptions(const std::vector<std::string>& arguments);

inline constexpr const char* kConsoleUsage =
    "usage: zentaline-console [--dir DIR] [--midi recorder|virtual|alsa|none] [--realtime] [SCRIPT]\n"
    "\n"
    "  --dir DIR        the working directory (default: the current one)\n"
    "  --midi SERVICE   recorder: devices and results as the script sets them (default)\n"
    "                   virtual: the built-in instrument\n"
    "                   alsa: the ALSA sequencer, on the real clock\n"
    "                   none: no devices\n"
    "  --realtime       timers run on the real clock\n"
    "  SCRIPT           a file of commands; - or nothing for standard input\n";

}  // namespace zentaline
