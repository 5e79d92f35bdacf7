#include "app/console_options.h"

namespace zentaline {

ConsoleOptions ReadConsoleOptions(const std::vector<std::string>& arguments) {
  using Midi = ConsoleOptions::Midi;
  ConsoleOptions options;
  bool has_script = false;
  OwnOptions own;
  own.midi = [&](const std::string& service) {
    constexpr std::pair<const char*, Midi> kServices[] = {
        {"recorder", Midi::kRecorder}, {"virtual", Midi::kVirtual}, {"alsa", Midi::kAlsa}, {"none", Midi::kNone}};
    return ChooseService(kServices, service, options.midi);
  };
  own.operand = [&](const std::string& script) {
    if (has_script) return "more than one script: " + script;
    has_script = true;
    options.script = script;
    return std::string(script.empty() ? "the script has no name" : "");
  };
  own.flag = [&](const std::string& name) {
    options.real_time = options.real_time || name == "--realtime";
    options.journal = options.journal || name == "--journal";
    return name == "--realtime" || name == "--journal";
  };
  ReadOptions(arguments, own, options);
  if (options.midi == Midi::kAlsa) options.real_time = true;
  return options;
}

}  // namespace zentaline
