// Runs a fuzz program's own function over the files of its corpus, without a fuzzer: replay CORPUS... [--cuts N]
//
// Each file is run as it is, and then N times (default 40) cut short, and N times with a bit turned over; where is
// always the same.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

namespace fs = std::filesystem;

void Run(const std::string& bytes) {
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

int RunFile(const fs::path& path, int cuts) {
  std::ifstream file(path, std::ios::binary);
  const std::string bytes(std::istreambuf_iterator<char>(file), {});
  // Names what breaks.
  std::fprintf(stderr, "%s\n", path.c_str());
  Run(bytes);
  if (bytes.empty()) return 1;
  std::mt19937 random(static_cast<unsigned>(bytes.size()));
  for (int i = 0; i < cuts; ++i) {
    Run(bytes.substr(0, random() % bytes.size()));
    std::string damaged = bytes;
    damaged[random() % damaged.size()] ^= static_cast<char>(1 << random() % 8);
    Run(damaged);
  }
  return 1 + 2 * cuts;
}

}  // namespace

int main(int count, char** arguments) {
  int cuts = 40;
  int runs = 0;
  std::vector<fs::path> files;
  for (int i = 1; i < count; ++i) {
    const std::string word = arguments[i];
    if (word == "--cuts" && i + 1 < count) {
      cuts = std::atoi(arguments[++i]);
      continue;
    }
    if (!fs::is_directory(word)) {
      std::fprintf(stderr, "%s is no corpus\n", word.c_str());
      return 2;
    }
    for (const auto& entry : fs::recursive_directory_iterator(word)) {
      if (entry.is_regular_file()) files.push_back(entry.path());
    }
  }
  for (const fs::path& file : files) runs += RunFile(file, cuts);
  std::printf("%zu files, %d runs\n", files.size(), runs);
  return runs > 0 ? 0 : 1;
}
