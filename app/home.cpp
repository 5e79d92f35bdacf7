#include "app/home.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <vector>

#include "base/posix_files.h"

namespace zentaline {

namespace {

namespace fs = std::filesystem;

std::string Failure(const fs::path& path, const std::string& reason) {
  return path.string() + ": " + reason;
}

std::string CopyFile(const fs::path& from, const fs::path& to) {
  const Descriptor folder = OpenFolder(to.parent_path().string());
  if (!folder.Valid()) return Failure(to.parent_path(), std::strerror(errno));
  // What came there meanwhile stays.
  const int failed = CopyTo(from.string(), folder.Number(), to.filename().string());
  if (failed != 0 && failed != EEXIST) return Failure(to, std::strerror(failed));
  FlushFolder(folder.Number());
  RemoveStrays(folder.Number());
  return {};
}

std::string ValueOf(const char* text) {
  return text == nullptr ? std::string() : std::string(text);
}

}  // namespace

std::string HomeDirectory(const std::function<const char*(const char*)>& variable) {
  if (std::string own = ValueOf(variable("ZENTALINE_HOME")); !own.empty()) return own;
  if (const std::string data = ValueOf(variable("XDG_DATA_HOME")); !data.empty()) return data + "/zentaline";
  const std::string home = ValueOf(variable("HOME"));
  return home.empty() ? home : home + "/.local/share/zentaline";
}

std::string FactoryDirectory() {
  std::error_code error;
  const fs::path program = fs::read_symlink("/proc/self/exe", error);
  return (program.parent_path().parent_path() / "share" / "zentaline").string();
}

std::string CopyLacking(const std::string& from, const std::string& to) {
  std::error_code error;
  fs::create_directories(to, error);
  if (error) return Failure(to, error.message());
  std::vector<fs::path> files;
  for (fs::recursive_directory_iterator each(from, error), end; !error && each != end; each.increment(error)) {
    if (each->is_regular_file(error)) files.push_back(each->path().lexically_relative(from));
  }
  if (error) return Failure(from, error.message());
  std::sort(files.begin(), files.end());
  for (const fs::path& file : files) {
    const fs::path target = to / file;
    if (fs::symlink_status(target, error).type() != fs::file_type::not_found) continue;
    fs::create_directories(target.parent_path(), error);
    if (error) return Failure(target.parent_path(), error.message());
    if (std::string failure = CopyFile(from / file, target); !failure.empty()) return failure;
  }
  return {};
}

}  // namespace zentaline
