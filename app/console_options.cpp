#include "app/console_options.h"

#include <optional>

namespace zentaline {

namespace {

std::optional<ConsoleOptions::Midi> MidiByName(const std::string& name) {
  if (name == "recorder") return ConsoleOptions::Midi::kRecorder;
  if (name == "virtual") return ConsoleOptions::Midi::kVirtual;
  if (name == "alsa") return ConsoleOptions::Midi::kAlsa;
  if (name == "none") return ConsoleOptions::Midi::kNone;
  return std::nullopt;
}

}  // namespace

ConsoleOptions ReadConsoleOptions(const std::vector<std::string>& arguments) {
  ConsoleOptions options;
  bool has_script = false;
  bool only_scripts = false;  // behind --
  for (std::size_t i = 0; i < arguments.size() && options.error.empty(); ++i) {
    const std::string& argument = arguments[i];
    const bool has_value = i + 1 < arguments.size();
    if (only_scripts || argument == "-" || !argument.starts_with('-')) {
      if (has_script) options.error = "more than one script: " + argument;
      if (argument.empty()) options.error = "the script has no name";
      has_script = true;
      options.script = argument;
    } else if (argument == "--") {
      only_scripts = true;
    } else if (argument == "--help" || argument == "-h") {
      options.help = true;
    } else if (argument == "--realtime") {
      options.real_time = true;
    } else if ((argument == "--dir" || argument == "--midi") && !has_value) {
      options.error = argument + " needs a value";
    } else if (argument == "--dir") {
      options.directory = arguments[++i];
      if (options.directory.empty()) options.error = "--dir needs a value";
    } else if (argument == "--midi") {
      const auto midi = MidiByName(arguments[++i]);
      if (!midi) options.error = "there is no MIDI service " + arguments[i];
      options.midi = midi.value_or(options.midi);
    } else {
      options.error = "there is no option " + argument;
    }
  }
  if (options.midi == ConsoleOptions::Midi::kAlsa) options.real_time = true;
  return options;
}

}  // namespace zentaline
