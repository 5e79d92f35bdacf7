#include "app/desktop_options.h"

namespace zentaline {

DesktopOptions ReadDesktopOptions(const std::vector<std::string>& arguments) {
  using Midi = DesktopOptions::Midi;
  DesktopOptions options;
  OwnOptions own;
  own.midi = [&](const std::string& service) {
    constexpr std::pair<const char*, Midi> kServices[] = {
        {"alsa", Midi::kAlsa}, {"virtual", Midi::kVirtual}, {"none", Midi::kNone}};
    for (const auto& [name, midi] : kServices) {
      if (service != name) continue;
      options.midi = midi;
      return std::string();
    }
    return "there is no MIDI service " + service;
  };
  own.operand = [&](const std::string& file) {
    if (file == "-") return std::string("there is no option -");
    options.files.push_back(file);
    return std::string(file.empty() ? "a file has no name" : "");
  };
  ReadOptions(arguments, own, options);
  return options;
}

}  // namespace zentaline
