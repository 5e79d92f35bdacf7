#include "tests/monkey/life.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>

#ifdef __has_feature
#if __has_feature(address_sanitizer)
#define ZENTALINE_LOOKS_FOR_LEAKS
#include <sanitizer/lsan_interface.h>
#endif
#endif

namespace zentaline::monkey {

namespace {

// Looking for leaks takes as long as many actions.
constexpr int kLivesBetweenLeaks = 8;

void Redirect(const std::string& path, int descriptor) {
  const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
  if (file < 0 || ::dup2(file, descriptor) < 0) std::_Exit(kFailed);
  ::close(file);
}

// In the child process.
void Play(Shared& shared, const Folder& folder, const Reports& reports, Lines& lines) {
  ConsoleOptions options;
  options.journal = true;
  const int no_script = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
  const int log = ::open(reports.Script(shared.lives).c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
  Stage stage;
  EndSignals signals;
  Host host(options, folder.path(), no_script, stage, signals, shared, lines, log);
  for (;;) {
    const int status = host.Run();
    if (status == ui::kScriptDone) break;
    if (status != ui::kScriptRefused) host.Fail("a line that is no command");
    host.Log("#! refused");
    ++shared.refusals;
  }
  if (!host.Ended()) host.Crash();
  host.ExpectEnd();
}

[[noreturn]] void LiveInChild(Shared& shared, const Folder& folder, const Reports& reports, Lines& lines) {
  Redirect(reports.Transcript(), STDOUT_FILENO);
  Redirect(reports.Errors(), STDERR_FILENO);
  if (::chdir(folder.path().c_str()) != 0) std::_Exit(kFailed);
  Play(shared, folder, reports, lines);
#ifdef ZENTALINE_LOOKS_FOR_LEAKS
  if (shared.ends % kLivesBetweenLeaks == 0 && __lsan_do_recoverable_leak_check() != 0) {
    shared.Fail("memory was not given back");
    std::_Exit(kFailed);
  }
#endif
  std::_Exit(kEnded);
}

std::string EndInWords(int status) {
  if (WIFSIGNALED(status) && WTERMSIG(status) == SIGALRM) return "the program hangs";
  if (WIFSIGNALED(status)) return "the program died of signal " + std::to_string(WTERMSIG(status));
  return "the program ended with status " + std::to_string(WEXITSTATUS(status));
}

}  // namespace

bool Live(Shared& shared, const Folder& folder, const Reports& reports,
          const std::function<std::unique_ptr<Lines>()>& make_lines) {
  ++shared.lives;
  std::fflush(nullptr);
  const pid_t child = ::fork();
  if (child == 0) {
    const std::unique_ptr<Lines> lines = make_lines();
    LiveInChild(shared, folder, reports, *lines);
  }
  int status = 0;
  if (child < 0 || ::waitpid(child, &status, 0) != child) {
    shared.Fail("no process could be started");
    return false;
  }
  const bool good = WIFEXITED(status) && (WEXITSTATUS(status) == kEnded || WEXITSTATUS(status) == kCrashed);
  if (!good) shared.Fail(EndInWords(status));
  const std::string torn = folder.Torn();
  if (!torn.empty()) shared.Fail(torn);
  return shared.failure[0] == 0;
}

std::set<std::string> OpenedWindows(const Reports& reports) {
  std::set<std::string> names;
  std::ifstream transcript(reports.Transcript());
  std::string line;
  while (std::getline(transcript, line)) {
    std::string word, time, name;
    std::istringstream words(line);
    words >> word >> time >> name;
    if (word == "open") names.insert(name.substr(0, name.find('(')));
  }
  return names;
}

}  // namespace zentaline::monkey
