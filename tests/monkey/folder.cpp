#include "tests/monkey/folder.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <utility>

#include "arrangement/arr_format.h"
#include "base/bytes.h"
#include "global/gbl_format.h"
#include "program/prg_format.h"
#include "style/sty_format.h"
#include "tests/monkey/shared.h"

namespace zentaline::monkey {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kConfigLength = 12500;

std::string Content(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// By its length, or what it says of it itself. What stands in it can be something else than its name says: a window
// that a dialog's other filter left without a file of its kind saves what the last one had.
bool IsWhole(const Bytes& file) {
  for (const std::size_t length : {kArrFileLength, kPrgFileLength, kGlobalFileLength, kStyHeaderLength}) {
    if (file.size() == length) return true;
  }
  std::size_t total = kStyHeaderLength;
  for (int e = 0; e < kStyEntryCount && StyEntrySize(e, file) != 0; ++e) {
    total += static_cast<std::size_t>(StyEntrySize(e, file));
  }
  return file.size() >= total && file.size() < total + kStyWriteLength;
}

// One of the kinds of file that windows save; also when it was set aside.
bool IsData(const std::string& name) {
  for (const char* const ending : {".arr", ".prg", ".pgg", ".sty", ".gbl"}) {
    const std::size_t at = LowerCase(name).rfind(ending);
    if (at != std::string::npos && (at + 4 == name.size() || name.find(".bak", at) == at + 4)) return true;
  }
  return false;
}

}  // namespace

void Folder::Put(const std::string& name, const std::string& content) {
  const fs::path target = fs::path(path_) / name;
  fs::create_directories(target.parent_path());
  std::ofstream(target, std::ios::binary) << content;
  put_.insert(HashOf(content));
}

void Folder::MakeAnew() {
  fs::remove_all(path_);
  fs::create_directories(path_);
  for (const auto& entry : fs::recursive_directory_iterator(share_)) {
    if (entry.is_regular_file()) Put(entry.path().lexically_relative(share_).string(), Content(entry.path()));
  }
  std::mt19937 random(7);
  for (const auto& [name, length] : {std::pair{"noise.arr", 10528},
                                     {"noise.prg", 30480},
                                     {"noise.sty", 90000},
                                     {"noise.gbl", 448},
                                     {"noise.bsq", 9000},
                                     {"noise.pcg", 60000}}) {
    std::string noise;
    for (int i = 0; i < length; ++i) noise += static_cast<char>(random());
    Put(name, noise);
  }
  for (const char* const name : {"short.arr", "short.prg", "short.sty", "short.gbl", "short.bsq"}) Put(name, "short");
  Put("empty.arr", "");
  Put("Hall.gbl", std::string("KORG\x4D\0\x06\x01", 8) + std::string(kGlobalFileLength - 8, '\x05'));
}

int Folder::Files() const {
  int files = 0;
  for (const auto& entry : fs::recursive_directory_iterator(path_)) files += entry.is_regular_file() ? 1 : 0;
  return files;
}

std::string Folder::Torn() const {
  for (const auto& entry : fs::recursive_directory_iterator(path_)) {
    if (!entry.is_regular_file()) continue;
    const std::string name = entry.path().filename().string();
    if (name.starts_with(".zentaline-")) return name + " was left over";
    if (name == "Zentaline.ini" && entry.file_size() != kConfigLength) return name + " has another length";
    if (!IsData(name)) continue;
    const std::string content = Content(entry.path());
    if (!IsWhole(content) && !put_.contains(HashOf(content))) return name + " isn't whole";
  }
  return {};
}

}  // namespace zentaline::monkey
