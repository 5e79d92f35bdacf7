#include "app/desktop_options.h"

#include <optional>

namespace zentaline {

namespace {

std::optional<DesktopOptions::Midi> MidiByName(const std::string& name) {
  if (name == "alsa") return DesktopOptions::Midi::kAlsa;
  if (name == "virtual") return DesktopOptions::Midi::kVirtual;
  if (name == "none") return DesktopOptions::Midi::kNone;
  return std::nullopt;
}

}  // namespace

DesktopOptions ReadDesktopOptions(const std::vector<std::string>& arguments) {
  DesktopOptions options;
  bool only_files = false;  // behind --
  for (std::size_t i = 0; i < arguments.size() && options.error.empty(); ++i) {
    const std::string& argument = arguments[i];
    const bool has_value = i + 1 < arguments.size();
    if (only_files || !argument.starts_with('-')) {
      if (argument.empty()) options.error = "a file has no name";
      options.files.push_back(argument);
    } else if (argument == "--") {
      only_files = true;
    } else if (argument == "--help" || argument == "-h") {
      options.help = true;
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
  return options;
}

}  // namespace zentaline
