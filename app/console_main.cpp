#include "app/console_main.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <memory>
#include <string>
#include <utility>

#include "app/console_options.h"
#include "app/directory.h"
#ifdef ZENTALINE_HAVE_ALSA
#include "midi/alsa/alsa_midi.h"
#endif

namespace zentaline {

namespace {

int Misused(const std::string& why) {
  std::fprintf(stderr, "zentaline-console: %s\n\n%s", why.c_str(), kConsoleUsage);
  return ui::kScriptUsage;
}

// The descriptor of the script, -1 when it can't be read.
int OpenScript(const std::string& name) {
  if (name == "-") return STDIN_FILENO;
  const int script = ::open(name.c_str(), O_RDONLY | O_CLOEXEC);
  struct stat status {};
  if (script >= 0 && ::fstat(script, &status) == 0 && !S_ISDIR(status.st_mode)) return script;
  if (script >= 0) ::close(script);
  return -1;
}

}  // namespace

int RunConsole(int count, char** arguments, const ConsoleParts& parts) {
  const ConsoleOptions options = ReadConsoleOptions({arguments + 1, arguments + count});
  if (!options.error.empty()) return Misused(options.error);
  if (options.help) {
    std::fputs(kConsoleUsage, stdout);
    return 0;
  }
  EndSignals signals;
  std::unique_ptr<MidiService> service;
  if (options.midi == ConsoleOptions::Midi::kAlsa) {
#ifdef ZENTALINE_HAVE_ALSA
    auto alsa = std::make_unique<AlsaMidi>();
    alsa->SetStop([&signals] { return signals.Pending(); });
    service = std::move(alsa);
#else
    return Misused("this zentaline-console was built without ALSA");
#endif
  }
  const int script = OpenScript(options.script);
  if (script < 0) return Misused("the script can't be read: " + options.script);
  const std::string directory = EnterDirectory(options.directory);
  if (directory.empty()) return Misused("there is no such directory: " + options.directory);

  ConsoleHost host(options, directory, script, std::move(service), parts, signals);
  const int status = host.Run();
  // Windows that are still open must not write anything any more.
  if (!host.Ended()) host.End(status);
  return status;
}

}  // namespace zentaline
