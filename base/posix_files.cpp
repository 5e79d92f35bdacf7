#include "base/posix_files.h"

#include <dirent.h>
#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <charconv>
#include <climits>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <limits>
#include <memory>
#include <new>
#include <stdexcept>

#include "base/posix_disk.h"

namespace zentaline {

namespace {

// As many as the kernel itself follows.
constexpr int kMostLinks = 40;

constexpr std::string_view kTemporaryStart = ".zentaline-";
constexpr std::string_view kTemporaryEnd = ".tmp";
constexpr time_t kDay = 24 * 60 * 60;

// Of the process that made it; 0 when the name is none of a temporary file.
pid_t MakerOf(std::string_view name) {
  if (!name.starts_with(kTemporaryStart) || !name.ends_with(kTemporaryEnd)) return 0;
  name.remove_prefix(kTemporaryStart.size());
  pid_t maker = 0;
  const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), maker);
  return error == std::errc() && *end == '-' && maker > 0 ? maker : 0;
}

bool IsGone(pid_t process) {
  return kill(process, 0) != 0 && errno == ESRCH;
}

}  // namespace

bool PathIsUsable(const std::string& path) {
  return path.find('\0') == std::string::npos;
}

std::string FolderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : path.substr(0, slash);
}

std::string NameOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return slash == std::string::npos ? path : path.substr(slash + 1);
}

Descriptor OpenFolder(const std::string& path) {
  return Descriptor(Retry([&] { return open(path.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC); }));
}

DiskResult ResultFor(int error, const std::string& path) {
  struct stat info {};
  if (error == ENOENT && stat(FolderOf(path).c_str(), &info) != 0) return DiskResult::kPathAbsent;
  return DiskResultFromErrno(error);
}

DiskResult KindOf(const struct stat& info) {
  if (S_ISDIR(info.st_mode)) return DiskResult::kIsFolder;
  return S_ISREG(info.st_mode) ? DiskResult::kOk : DiskResult::kOther;
}

int ReadAll(int file, std::size_t expected, std::size_t largest, Bytes& content) {
  constexpr std::size_t kChunk = 65536;
  std::size_t length = 0;
  try {
    content.resize(std::min(expected, largest) + 1);
    for (;;) {
      if (length == content.size()) content.resize(length + kChunk);
      const ssize_t count = Retry([&] { return read(file, content.data() + length, content.size() - length); });
      if (count < 0) return errno;
      length += static_cast<std::size_t>(count);
      // A read that could have taken a byte more than the file was told to hold has come to its end.
      if (count == 0 || length == expected || length > largest) break;
    }
    content.resize(length);
  } catch (const std::bad_alloc&) {
    return ENOMEM;
  } catch (const std::length_error&) {
    return ENOMEM;
  }
  return 0;
}

int WriteAll(int file, std::string_view content) {
  for (std::size_t written = 0; written < content.size();) {
    const ssize_t count = Retry([&] { return write(file, content.data() + written, content.size() - written); });
    if (count < 0) return errno;
    if (count == 0) return ENOSPC;
    written += static_cast<std::size_t>(count);
  }
  return 0;
}

int FollowLinks(std::string& path) {
  for (int followed = 0; followed <= kMostLinks; ++followed) {
    char link[PATH_MAX];
    const ssize_t length = readlink(path.c_str(), link, sizeof link);
    if (length < 0) return errno == EINVAL || errno == ENOENT ? 0 : errno;
    path = link[0] == '/' ? "" : FolderOf(path) + '/';
    path.append(link, static_cast<std::size_t>(length));
  }
  return ELOOP;
}

int MakeTemporary(int folder, mode_t mode, std::string& name) {
  static std::atomic<unsigned> count{0};
  for (int attempt = 0; attempt < 100; ++attempt) {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    char text[80];
    std::snprintf(text, sizeof text, ".zentaline-%ld-%u-%lx.tmp", static_cast<long>(getpid()), ++count,
                  static_cast<unsigned long>(now.tv_nsec));
    name = text;
    const int file =
        Retry([&] { return openat(folder, text, O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode); });
    if (file >= 0 || errno != EEXIST) return file;
  }
  return -1;
}

void RemoveStrays(int folder) {
  const int readable = Retry([&] { return openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC); });
  if (readable < 0) return;
  const auto close_folder = [](DIR* stream) { closedir(stream); };
  const std::unique_ptr<DIR, decltype(close_folder)> stream(fdopendir(readable), close_folder);
  if (!stream) {
    close(readable);
    return;
  }
  const time_t now = time(nullptr);
  while (const dirent* entry = readdir(stream.get())) {
    const pid_t maker = MakerOf(entry->d_name);
    struct stat info {};
    if (maker == 0 || fstatat(folder, entry->d_name, &info, AT_SYMLINK_NOFOLLOW) != 0) continue;
    if (S_ISREG(info.st_mode) && now - info.st_mtime > kDay && IsGone(maker)) unlinkat(folder, entry->d_name, 0);
  }
}

DiskResult FlushFolder(int folder) {
  const Descriptor readable(Retry([&] { return openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
  if (!readable.Valid()) return DiskResult::kOk;
  const bool failed = Retry([&] { return fsync(readable.Number()); }) != 0;
  return failed && errno == EIO ? DiskResult::kInputOutput : DiskResult::kOk;
}

int CopyTo(const std::string& from, int folder, const std::string& to) {
  const Descriptor source(Retry([&] { return open(from.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC); }));
  struct stat info {};
  if (!source.Valid() || fstat(source.Number(), &info) != 0) return errno;
  if (!S_ISREG(info.st_mode)) return EINVAL;
  Bytes content;
  const auto length = static_cast<std::size_t>(info.st_size);
  if (const int error = ReadAll(source.Number(), length, std::numeric_limits<std::size_t>::max() - 1, content)) {
    return error;
  }
  std::string temporary;
  Descriptor file(MakeTemporary(folder, 0666, temporary));
  if (!file.Valid()) return errno;
  int error = WriteAll(file.Number(), content);
  if (error == 0 && Retry([&] { return fsync(file.Number()); }) != 0) error = errno;
  if (const int closed = file.Close(); error == 0) error = closed;
  // The name is given last, and never to a second file.
  if (error == 0 && linkat(folder, temporary.c_str(), folder, to.c_str(), 0) != 0) {
    error = errno;
    // A file system without links.
    if (error != EEXIST && renameat2(folder, temporary.c_str(), folder, to.c_str(), RENAME_NOREPLACE) == 0) return 0;
  }
  unlinkat(folder, temporary.c_str(), 0);
  return error;
}

int GiveSecondName(const std::string& from, int folder, const std::string& to) {
  if (linkat(AT_FDCWD, from.c_str(), folder, to.c_str(), AT_SYMLINK_FOLLOW) == 0) return 0;
  if (errno == EEXIST || errno == ENOENT) return errno;
  return CopyTo(from, folder, to);
}

}  // namespace zentaline
