#include "app/desktop_options.h"

namespace zentaline {

DesktopOptions ReadDesktopOptions(const std::vector<std::string>& arguments) {
  using Midi = DesktopOptions::Midi;
  DesktopOptions options;
  OwnOptions own;
  own.midi = [&](const std::string& service) {
    constexpr std::pair<const char*, Midi> kServices[] = {
        {"alsa", Midi::kAlsa}, {"virtual", Midi::kVirtual}, {"none", Midi::kNone}};
    return ChooseService(kServices, service, options.midi);
  };
  own.operand = [&](const std::string& file) {
    if (file == "-") return std::string("there is no option -");
    options.files.push_back(file);
    return std::string(file.empty() ? "a file has no name" : "");
  };
  own.flag = [&](const std::string& name) {
    if (name == "--home") options.home = true;
    return name == "--home";
  };
  ReadOptions(arguments, own, options);
  if (options.error.empty() && options.home && !options.directory.empty()) {
    options.error = "--home and --dir name two working directories";
  }
  return options;
}

}  // namespace zentaline
