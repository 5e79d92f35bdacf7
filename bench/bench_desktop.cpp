// The desktop program beside an empty window: time to the first frame, and memory with eight files open. The programs
// lie beside this one, the factory files in share/.
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "bench/measure.h"

namespace {

using namespace zentaline::bench;

constexpr int kRounds = 21;
constexpr double kLimit = 1.3;

namespace fs = std::filesystem;
using Command = std::vector<std::string>;

// Runs the command to its end and returns what it printed; the program ends when it fails.
std::string Run(const Command& command) {
  int ends[2];
  if (::pipe(ends) != 0) std::exit(1);
  const pid_t child = ::fork();
  if (child == 0) {
    ::dup2(ends[1], STDOUT_FILENO);
    ::close(ends[0]);
    ::close(ends[1]);
    std::vector<char*> words;
    for (const std::string& word : command) words.push_back(const_cast<char*>(word.c_str()));
    words.push_back(nullptr);
    ::execv(words[0], words.data());
    ::_exit(127);
  }
  ::close(ends[1]);
  std::string printed;
  char piece[256];
  for (ssize_t count = 0; (count = ::read(ends[0], piece, sizeof piece)) > 0;) {
    printed.append(piece, static_cast<std::size_t>(count));
  }
  ::close(ends[0]);
  int status = 0;
  ::waitpid(child, &status, 0);
  if (child < 0 || !WIFEXITED(status) || WEXITSTATUS(status) != 0) {
    std::fprintf(stderr, "bench_desktop: %s did not end well\n", command[0].c_str());
    std::exit(1);
  }
  return printed;
}

double Milliseconds(const Command& command) {
  const Clock::time_point began = Clock::now();
  Run(command);
  return Nanoseconds(Clock::now() - began) / 1e6;
}

// The bare window is told too, and not part of the ratio.
void Print(const char* name, double bare, double empty, double filled, const char* unit, const char* text) {
  std::printf("%s: bare window %.1f, empty window with a menu %.1f, program %.1f %s\n", name, bare, empty, filled,
              unit);
  PrintRatio(name, filled / empty, "<=", kLimit, text);
}

// A working directory of its own, which goes with it.
class WorkingDirectory {
 public:
  WorkingDirectory() {
    std::string name = (fs::temp_directory_path() / "bench_desktop.XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) std::exit(1);
    path_ = name;
  }
  ~WorkingDirectory() {
    std::error_code error;
    fs::remove_all(path_, error);
  }
  WorkingDirectory(const WorkingDirectory&) = delete;
  WorkingDirectory& operator=(const WorkingDirectory&) = delete;
  const fs::path& path() const { return path_; }

 private:
  fs::path path_;
};

// The configuration as a first start leaves it.
void Configure(const fs::path& programs, const fs::path& directory) {
  const fs::path script = directory / "first_start.zts";
  std::ofstream(script) << "start\npress frmLingua.Option1(1)\npress frmLingua.CommOK\nquit\n";
  Run({programs / "zentaline-console", "--dir", directory, "--midi", "virtual", script});
}

// Eight arrangement files with their styles and programs.
Command CopyFiles(const fs::path& share, const fs::path& directory) {
  Command files;
  for (int number = 1; number <= 8; ++number) {
    const std::string name = "Set " + std::to_string(number);
    for (const char* kind : {".arr", ".sty", ".prg"}) {
      fs::copy_file(share / "examples" / (std::string("First Steps") + kind), directory / (name + kind));
    }
    files.push_back(directory / (name + ".arr"));
  }
  return files;
}

}  // namespace

int main() {
  ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
  const fs::path programs = fs::read_symlink("/proc/self/exe").parent_path();
  const fs::path share = programs.parent_path() / "share" / "zentaline";
  const WorkingDirectory directory;
  ::setenv("XDG_RUNTIME_DIR", directory.path().c_str(), 1);
  fs::copy(share, directory.path(), fs::copy_options::recursive);
  Configure(programs, directory.path());
  const Command files = CopyFiles(share, directory.path());
  const std::string empty = programs / "empty_window";
  const std::string filled = programs / "filled_window";

  // In turns, so that what else the machine does meets both.
  std::vector<double> bare_times;
  std::vector<double> empty_times;
  std::vector<double> filled_times;
  for (int round = 0; round < kRounds; ++round) {
    bare_times.push_back(Milliseconds({empty, "start", "bare"}));
    empty_times.push_back(Milliseconds({empty, "start"}));
    filled_times.push_back(Milliseconds({filled, "start", directory.path()}));
  }
  Print("desktop_start", Median(bare_times), Median(empty_times), Median(filled_times), "ms",
        "start to the first frame, beside an empty window with a menu");

  Command open{filled, "memory", directory.path()};
  open.insert(open.end(), files.begin(), files.end());
  const double bare_memory = std::atof(Run({empty, "memory", "bare"}).c_str());
  const double empty_memory = std::atof(Run({empty, "memory"}).c_str());
  const double filled_memory = std::atof(Run(open).c_str());
  Print("desktop_memory", bare_memory, empty_memory, filled_memory, "kB",
        "memory with eight files open, beside an empty window with a menu");
  return 0;
}
