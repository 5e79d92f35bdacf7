// zentaline-factory [--seeds] OUTDIR [SOURCES]: makes the data files that go with the program from the tables in
// SOURCES (default data/factory), or with --seeds what the fuzz programs begin with, a folder for each. Equal tables
// give equal bytes. Writes nothing when a table holds a mistake, and tells each with file and line.

#include <cstdio>
#include <filesystem>

#include "tools/factory/arrangements.h"
#include "tools/factory/guide.h"
#include "tools/factory/multisamples.h"
#include "tools/factory/seeds.h"

namespace zentaline::factory {
namespace {

// The user's guide is shown out of a buffer of this size.
constexpr std::size_t kGuideLimit = 35400;

void AddFiles(const std::map<std::string, Bytes>& banks, Files& files) {
  files.insert(banks.begin(), banks.end());
}

Files MakeFiles(const std::string& sources, Problems& problems) {
  Files files;
  ProgramTables programs(problems);
  programs.Read(sources + "/programs.txt");
  programs.Read(sources + "/examples/programs.txt");
  StyleTables styles(problems);
  styles.Read(sources + "/styles.txt");
  styles.Read(sources + "/examples/styles.txt");
  ArrangementTables arrangements(programs, styles, problems);
  for (std::string_view table : {"templates", "arrangements-a", "arrangements-b", "examples/arrangements"}) {
    arrangements.Read(sources + "/" + std::string(table) + ".txt");
  }
  AddFiles(programs.Banks(), files);
  AddFiles(styles.Banks(), files);
  AddFiles(arrangements.Banks(), files);
  files["i40Multisample"] = MultisampleFile(sources + "/multisamples.txt", problems);
  files["Zentaline-GuidaUtente.txt"] = GuideFile(sources + "/guide-it.txt", kGuideLimit, problems);
  files["Zentaline-UserGuide.txt"] = GuideFile(sources + "/guide-en.txt", kGuideLimit, problems);
  return files;
}

int Run(const std::string& directory, const std::string& sources, bool seeds) {
  Problems problems;
  Files files = MakeFiles(sources, problems);
  for (const std::string& problem : problems.List()) std::fprintf(stderr, "%s\n", problem.c_str());
  if (problems.Any()) return 1;
  if (seeds) files = SeedFiles(files);
  for (const auto& [name, bytes] : files) {
    const std::filesystem::path path = std::filesystem::path(directory) / name;
    std::error_code error;
    std::filesystem::create_directories(path.parent_path(), error);
    if (!WriteFile(path.string(), bytes)) return 1;
  }
  return 0;
}

}  // namespace
}  // namespace zentaline::factory

int main(int count, char** arguments) {
  const bool seeds = count > 1 && std::string_view(arguments[1]) == "--seeds";
  const int first = seeds ? 2 : 1;
  if (count != first + 1 && count != first + 2) {
    std::fprintf(stderr, "usage: zentaline-factory [--seeds] OUTDIR [SOURCES]\n");
    return 2;
  }
  return zentaline::factory::Run(arguments[first], count == first + 2 ? arguments[first + 1] : "data/factory", seeds);
}
