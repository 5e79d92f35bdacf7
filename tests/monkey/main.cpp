// The monkey: the whole program in the hands of someone who does things at random, by the very ways that a script has.
//
//   zentaline-monkey SHARE OUT [--seed N] [--actions N]
//     plays at random; SHARE holds the factory files
//   zentaline-monkey SHARE OUT --replay FOLDER
//     plays the lines that a run has left in FOLDER
//   zentaline-monkey SHARE OUT --shrink FOLDER [--runs N]
//     cuts them down to few that fail in the same way
//   zentaline-monkey SHARE OUT --windows FOLDER
//     expects that the runs in FOLDER, one in each of its folders, have together opened every kind of window
//
// OUT gets the lines of each life, OUT/1.zts and on, since the working directory was last made anew: each is a script
// for zentaline-console --journal, one after the other in one directory. What a life prints is OUT/transcript, what it
// complains of OUT/errors. Exit status 0 when all went as it must, else 1.
#include <sys/mman.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <new>
#include <set>
#include <string>

#include "tests/monkey/hand.h"
#include "tests/monkey/shrink.h"

namespace zentaline::monkey {
namespace {

namespace fs = std::filesystem;

constexpr int kMostFiles = 90;           // then the folder is made anew
constexpr int kMostLives = 30;           // the same
constexpr int kLinesToShow = 25;         // of a failure
constexpr int kShortestToReach = 50000;  // so many actions open every kind of window
constexpr char kOpened[] = "/opened";    // of a run's folder: the kinds of windows

constexpr const char* kWindows[] = {"frmMain",       "frmLingua",    "frmAbout",   "frmArrU",       "frmArrNew",
                                    "frmArrAB",      "frmPrgUN",     "frmPcgAE",   "frmDrum",       "frmStyUN",
                                    "frmStyAB",      "frmEditArr",   "frmEditPrg", "frmEditPerf",   "frmGbl",
                                    "frmBsq",        "frmEditDBArr", "frmFindID",  "frmTastiera",   "frmGuida",
                                    "frmBloccoNote", "frmMIDI",      "frmMsgEx",   "frmMultisample"};

struct Arguments {
  std::string share, out;
  std::map<std::string, std::string> options;

  int Number(const std::string& name, int otherwise) const {
    const auto found = options.find(name);
    return found == options.end() ? otherwise : std::atoi(found->second.c_str());
  }
};

void ShowEndOf(const std::string& path) {
  std::ifstream file(path);
  std::vector<std::string> lines;
  for (std::string line; std::getline(file, line);) lines.push_back(line);
  const std::size_t first = lines.size() > kLinesToShow ? lines.size() - kLinesToShow : 0;
  std::cout << "--- " << path << "\n";
  for (std::size_t i = first; i < lines.size(); ++i) std::cout << lines[i] << "\n";
}

int Tell(const Shared& shared, const Reports& reports) {
  if (shared.failure[0] == 0) return EXIT_SUCCESS;
  std::cout << "FAILED: " << shared.failure.data() << "\n";
  ShowEndOf(reports.Script(shared.lives));
  ShowEndOf(reports.Errors());
  return EXIT_FAILURE;
}

void TellCounts(const Shared& shared) {
  std::cout << shared.actions << " actions, " << shared.ends << " regular ends, " << shared.crashes << " crashes, "
            << shared.recoveries << " recoveries, " << shared.brought_back << " changed windows brought back, "
            << shared.round_trips << " ways back and forth, " << shared.faults << " faults of the disk, "
            << shared.refusals << " lines refused\n";
}

// Every kind of window was open.
void ExpectWindows(Shared& shared, const std::set<std::string>& opened) {
  std::string lacking;
  for (const char* const name : kWindows) {
    if (!opened.contains(name)) lacking += std::string(" ") + name;
  }
  if (!lacking.empty()) shared.Fail("never opened:" + lacking);
}

int PlayAtRandom(Shared& shared, Folder& folder, const Reports& reports, const Arguments& arguments) {
  shared.random = static_cast<std::uint64_t>(arguments.Number("--seed", 1)) * 1000003;
  shared.most_actions = arguments.Number("--actions", 10000);
  for (int life = 1; fs::remove(reports.Script(life)); ++life) continue;
  std::set<std::string> opened;
  bool good = true;
  while (good && shared.actions < shared.most_actions) {
    if (shared.lives == 0 || shared.lives >= kMostLives || folder.Files() > kMostFiles) {
      for (int life = shared.lives; life > 0; --life) fs::remove(reports.Script(life));
      folder.MakeAnew();
      shared.lives = 0;
      shared.expected_count = 0;
    }
    const bool faults = shared.OneIn(3);
    const int length = 1 + shared.Pick(shared.OneIn(3) ? 1500 : 400);
    const std::string path = folder.path();
    good = Live(shared, folder, reports,
                [&shared, path, faults, length] { return std::make_unique<Hand>(shared, path, faults, length); });
    opened.merge(OpenedWindows(reports));
    std::ofstream(reports.folder + "/progress") << shared.actions << "\n";
  }
  TellCounts(shared);
  std::ofstream names(reports.folder + kOpened);
  for (const std::string& name : opened) names << name << "\n";
  if (shared.most_actions >= kShortestToReach && good) ExpectWindows(shared, opened);
  return Tell(shared, reports);
}

// Of all runs whose folders lie in this one.
int LookAtWindows(Shared& shared, const Reports& reports, const std::string& runs) {
  std::set<std::string> opened;
  for (const auto& run : fs::directory_iterator(runs)) {
    std::ifstream names(run.path().string() + kOpened);
    for (std::string name; std::getline(names, name);) opened.insert(name);
  }
  ExpectWindows(shared, opened);
  return Tell(shared, reports);
}

int PlayAgain(Shared& shared, Folder& folder, const Reports& reports, const std::string& from) {
  Replay(shared, folder, reports, ReadScript(from));
  TellCounts(shared);
  return Tell(shared, reports);
}

int MakeShort(Shared& shared, Folder& folder, const Reports& reports, const std::string& from, int runs) {
  const Script script = Shrink(shared, folder, reports, ReadScript(from), runs);
  if (script.empty()) {
    std::cout << "these lines don't fail\n";
    return EXIT_FAILURE;
  }
  std::cout << "it fails with " << script.size() << " lives, " << reports.folder << "/1.zts and on\n";
  return Tell(shared, reports);
}

int Use() {
  std::fputs(
      "use: zentaline-monkey SHARE OUT [--seed N] [--actions N] | --replay FOLDER | --shrink FOLDER [--runs N] |\n"
      "     --windows FOLDER\n",
      stderr);
  return 2;
}

int Main(const Arguments& arguments) {
  void* const memory = ::mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  if (memory == MAP_FAILED) return EXIT_FAILURE;
  Shared& shared = *new (memory) Shared;
  const Reports reports{fs::absolute(arguments.out).string()};
  fs::create_directories(reports.folder);
  Folder folder(reports.folder + "/work", fs::absolute(arguments.share).string());
  if (arguments.options.contains("--windows")) {
    return LookAtWindows(shared, reports, arguments.options.at("--windows"));
  }
  if (arguments.options.contains("--replay")) {
    return PlayAgain(shared, folder, reports, arguments.options.at("--replay"));
  }
  if (arguments.options.contains("--shrink")) {
    return MakeShort(shared, folder, reports, arguments.options.at("--shrink"), arguments.Number("--runs", 400));
  }
  return PlayAtRandom(shared, folder, reports, arguments);
}

}  // namespace
}  // namespace zentaline::monkey

int main(int argc, char** argv) {
  using namespace zentaline::monkey;
  if (argc < 3 || argc % 2 == 0) return Use();
  Arguments arguments{argv[1], argv[2], {}};
  for (int i = 3; i + 1 < argc; i += 2) {
    const std::string name = argv[i];
    if (name != "--seed" && name != "--actions" && name != "--replay" && name != "--shrink" && name != "--runs" &&
        name != "--windows") {
      return Use();
    }
    arguments.options[name] = argv[i + 1];
  }
  return Main(arguments);
}
