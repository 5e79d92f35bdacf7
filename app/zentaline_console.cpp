// zentaline-console: the whole program without a screen, driven by a script.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "app/console_host.h"
#include "app/console_options.h"
#ifdef ZENTALINE_HAVE_ALSA
#include "midi/alsa/alsa_midi.h"
#endif

namespace {

using zentaline::ConsoleHost;
using zentaline::ConsoleOptions;

int Misused(const std::string& why) {
  std::fprintf(stderr, "zentaline-console: %s\n\n%s", why.c_str(), zentaline::kConsoleUsage);
  return zentaline::ui::kScriptUsage;
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

// Absolute and without a separator at its end; empty when it is no directory that can be entered.
std::string EnterDirectory(const std::string& name) {
  std::error_code error;
  std::string directory = std::filesystem::absolute(name, error).lexically_normal().string();
  if (error || ::chdir(directory.c_str()) != 0) return {};
  while (directory.size() > 1 && directory.back() == '/') directory.pop_back();
  return directory;
}

}  // namespace

int main(int count, char** arguments) {
  const ConsoleOptions options = zentaline::ReadConsoleOptions({arguments + 1, arguments + count});
  if (!options.error.empty()) return Misused(options.error);
  if (options.help) {
    std::fputs(zentaline::kConsoleUsage, stdout);
    return 0;
  }
  std::unique_ptr<zentaline::MidiService> service;
  if (options.midi == ConsoleOptions::Midi::kAlsa) {
#ifdef ZENTALINE_HAVE_ALSA
    service = std::make_unique<zentaline::AlsaMidi>();
#else
    return Misused("this zentaline-console was built without ALSA");
#endif
  }
  const int script = OpenScript(options.script);
  if (script < 0) return Misused("the script can't be read: " + options.script);
  const std::string directory = EnterDirectory(options.directory);
  if (directory.empty()) return Misused("there is no such directory: " + options.directory);

  ConsoleHost host(options, directory, script, std::move(service));
  const int status = host.Run();
  // Windows that are still open must not write anything any more.
  if (!host.Ended()) host.End(status);
  host.Flush();
  return status;
}
