#include "app/home.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string_view>
#include <system_error>
#include <vector>

namespace zentaline {

namespace {

namespace fs = std::filesystem;

std::string Failure(const fs::path& path, const std::string& reason) {
  return path.string() + ": " + reason;
}

bool WriteAll(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(file, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return ::fsync(file) == 0;
}

// The name is given last, and never to a second file: what came there meanwhile stays.
int GiveName(const fs::path& from, const fs::path& to) {
  if (::link(from.c_str(), to.c_str()) == 0 || errno == EEXIST) return 0;
  if (errno != EPERM && errno != EOPNOTSUPP && errno != EMLINK) return errno;
  // A file system without links.
  return ::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0 || errno == EEXIST ? 0
                                                                                                             : errno;
}

std::string CopyFile(const fs::path& from, const fs::path& to) {
  std::ifstream source(from, std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(source), {}};
  if (!source.is_open() || source.bad()) return Failure(from, "can't be read");
  const fs::path part = to.string() + ".part-" + std::to_string(::getpid());
  const int file = ::open(part.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666);
  if (file < 0) return Failure(part, std::strerror(errno));
  int failed = WriteAll(file, bytes) ? 0 : errno;
  if (::close(file) != 0 && failed == 0) failed = errno;
  if (failed == 0) failed = GiveName(part, to);
  ::unlink(part.c_str());
  return failed == 0 ? std::string() : Failure(to, std::strerror(failed));
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
