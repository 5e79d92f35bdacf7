#include "tests/monkey/shrink.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <utility>

#include "tests/monkey/player.h"

namespace zentaline::monkey {

namespace {

namespace fs = std::filesystem;

// What fails in the same way says the same, up to names and numbers.
std::string KindOf(const std::string& failure) {
  const std::size_t added = failure.rfind(", ");
  return failure.substr(0, failure.find_first_of(":0123456789")) +
         (added == std::string::npos ? std::string() : failure.substr(added));
}

bool Stays(const std::string& line) {
  return line.starts_with("outs") || line.starts_with("ins") || line == "start";
}

// The places of all lines that may go: a life and a line.
std::vector<std::pair<std::size_t, std::size_t>> Places(const Script& script) {
  std::vector<std::pair<std::size_t, std::size_t>> places;
  for (std::size_t life = 0; life < script.size(); ++life) {
    for (std::size_t line = 0; line < script[life].size(); ++line) {
      if (!Stays(script[life][line])) places.emplace_back(life, line);
    }
  }
  return places;
}

Script Without(const Script& script, std::size_t first, std::size_t count) {
  const auto places = Places(script);
  Script shorter = script;
  for (std::size_t i = std::min(first + count, places.size()); i-- > first;) {
    auto& lines = shorter[places[i].first];
    lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(places[i].second));
  }
  // A life in which nothing is done.
  std::erase_if(shorter, [](const auto& lines) { return std::all_of(lines.begin(), lines.end(), Stays); });
  return shorter;
}

// Plays scripts, each on a fresh folder, or on what other lives have left.
class Attempt {
 public:
  Attempt(Shared& shared, Folder& folder, const Reports& reports)
      : shared_(shared), folder_(folder), reports_(reports) {}

  // Why it failed, or nothing.
  std::string Play(const Script& script) {
    for (int life = 1; fs::remove(reports_.Script(life)); ++life) continue;
    shared_.lives = 0;
    shared_.expected_count = 0;
    shared_.failure.fill(0);
    if (base_.empty()) {
      folder_.MakeAnew();
    } else {
      fs::remove_all(folder_.path());
      fs::copy(base_, folder_.path(), fs::copy_options::recursive);
      shared_.expected_count = expected_count_;
      shared_.expected = expected_;
    }
    for (const auto& lines : script) {
      const auto make = [&lines] { return std::make_unique<Player>(lines); };
      if (!Live(shared_, folder_, reports_, make)) return shared_.failure.data();
    }
    return {};
  }
  // The script as it was played, without what was refused.
  Script Played() const { return ReadScript(reports_.folder); }

  void KeepBase() {
    base_ = reports_.folder + "/base";
    fs::remove_all(base_);
    fs::copy(folder_.path(), base_, fs::copy_options::recursive);
    expected_count_ = shared_.expected_count;
    expected_ = shared_.expected;
  }
  void DropBase() {
    fs::remove_all(base_);
    base_.clear();
  }

 private:
  Shared& shared_;
  Folder& folder_;
  const Reports& reports_;
  std::string base_;
  int expected_count_ = 0;
  std::array<Expected, 40> expected_{};
};

// Takes out whole lives, then chunks of lines, ever smaller ones.
Script CutDown(Attempt& attempt, Script script, const std::string& failure, int most_runs) {
  int runs = 0;
  for (std::size_t life = script.size() - 1; life-- > 0 && runs < most_runs;) {
    Script shorter = script;
    shorter.erase(shorter.begin() + static_cast<std::ptrdiff_t>(life));
    ++runs;
    if (KindOf(attempt.Play(shorter)) == failure) script = std::move(shorter);
  }
  for (std::size_t chunk = std::max<std::size_t>(Places(script).size() / 2, 1); chunk > 0 && runs < most_runs;) {
    bool shorter = false;
    // From the end, since what fails comes last.
    for (std::size_t end = Places(script).size(); end > 0 && runs < most_runs;) {
      const std::size_t first = end > chunk ? end - chunk : 0;
      ++runs;
      if (KindOf(attempt.Play(Without(script, first, end - first))) == failure) {
        script = attempt.Played();
        shorter = true;
        std::fprintf(stderr, "run %d: %zu lines\n", runs, Places(script).size());
      }
      end = std::min(first, Places(script).size());
    }
    if (chunk > 1 || !shorter) chunk /= 2;
  }
  return script;
}

}  // namespace

Script ReadScript(const std::string& folder) {
  Script script;
  const Reports reports{folder};
  for (int life = 1; fs::exists(reports.Script(life)); ++life) {
    std::ifstream file(reports.Script(life));
    std::vector<std::string> lines;
    std::string line;
    while (std::getline(file, line)) {
      if (line == "#! refused" && !lines.empty()) {
        lines.pop_back();
      } else if (!line.starts_with("#! status") && !line.starts_with("#! failed") && line != "#! refused") {
        lines.push_back(line);
      }
    }
    script.push_back(std::move(lines));
  }
  return script;
}

std::string Replay(Shared& shared, Folder& folder, const Reports& reports, const Script& script) {
  return Attempt(shared, folder, reports).Play(script);
}

Script Shrink(Shared& shared, Folder& folder, const Reports& reports, const Script& script, int most_runs) {
  Attempt attempt(shared, folder, reports);
  const std::string failure = KindOf(attempt.Play(script));
  if (failure.empty()) return {};
  // The lives that matter most come last: what was before them is played once.
  const std::size_t last = script.size() > 2 ? script.size() - 2 : 0;
  const Script before(script.begin(), script.begin() + static_cast<std::ptrdiff_t>(last));
  const Script tail(script.begin() + static_cast<std::ptrdiff_t>(last), script.end());
  attempt.Play(before);
  attempt.KeepBase();
  Script whole = before;
  if (KindOf(attempt.Play(tail)) == failure) {
    const Script shorter = CutDown(attempt, tail, failure, most_runs / 2);
    whole.insert(whole.end(), shorter.begin(), shorter.end());
  } else {
    whole = script;
  }
  attempt.DropBase();
  whole = CutDown(attempt, whole, failure, most_runs / 2);
  attempt.Play(whole);
  return whole;
}

}  // namespace zentaline::monkey
