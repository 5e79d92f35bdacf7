#include "base/posix_disk.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <ctime>
#include <memory>
#include <new>
#include <stdexcept>

namespace zentaline {

namespace {

// As many as the kernel itself follows.
constexpr int kMostLinks = 40;

// A file descriptor that is closed when its owner goes.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() { Close(); }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  bool Valid() const { return number_ >= 0; }
  int Number() const { return number_; }

  // 0, or the error number: some file systems tell only here that the data did not fit.
  int Close() {
    if (number_ < 0) return 0;
    const int failed = close(number_);
    number_ = -1;
    return failed != 0 && errno != EINTR ? errno : 0;
  }

 private:
  int number_;
};

template <typename Call>
auto Retry(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR) result = call();
  return result;
}

// A zero byte would end the path early and reach another file.
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

// The system says the same of a missing file and of a missing folder before it.
DiskResult ResultFor(int error, const std::string& path) {
  struct stat info {};
  if (error == ENOENT && stat(FolderOf(path).c_str(), &info) != 0) return DiskResult::kPathAbsent;
  return DiskResultFromErrno(error);
}

// kOk for a regular file.
DiskResult KindOf(const struct stat& info) {
  if (S_ISDIR(info.st_mode)) return DiskResult::kIsFolder;
  return S_ISREG(info.st_mode) ? DiskResult::kOk : DiskResult::kOther;
}

// Takes all that is left of the file, or one byte more than `largest`. 0, or the error number.
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

// 0, or the error number.
int WriteAll(int file, const Bytes& content) {
  for (std::size_t written = 0; written < content.size();) {
    const ssize_t count = Retry([&] { return write(file, content.data() + written, content.size() - written); });
    if (count < 0) return errno;
    if (count == 0) return ENOSPC;
    written += static_cast<std::size_t>(count);
  }
  return 0;
}

// Follows the links at the end of `path`, also to a file that is not there. 0, or the error number.
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

// Makes a file in the folder whose name nobody else has; its descriptor, or -1. It starts with a point and ends in no
// data file's ending, so that no list shows it.
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
        Retry([&] { return openat(folder, text, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode); });
    if (file >= 0 || errno != EEXIST) return file;
  }
  return -1;
}

// Gives the new file owner and mode of the old one. 0, or the error number. Only root may give a file away, so a
// foreign owner is tried and let go; a change of owner can clear bits of the mode, so the mode comes after it.
int TakeOwnerAndMode(int file, const struct stat& old) {
  if (fchown(file, old.st_uid, old.st_gid) != 0) {
    [[maybe_unused]] const int group_kept = fchown(file, static_cast<uid_t>(-1), old.st_gid);
  }
  if (fchmod(file, old.st_mode & 07777) == 0) return 0;
  const int error = errno;
  struct stat made {};
  return fstat(file, &made) == 0 && made.st_mode == old.st_mode ? 0 : error;
}

// Fills the temporary file and brings it to the disk. 0, or the error number.
int FillTemporary(Descriptor& file, const Bytes& content, const struct stat* old) {
  if (const int error = WriteAll(file.Number(), content)) return error;
  if (old != nullptr) {
    if (const int error = TakeOwnerAndMode(file.Number(), *old)) return error;
  }
  if (Retry([&] { return fsync(file.Number()); }) != 0) return errno;
  return file.Close();
}

// Brings a rename to the disk. The new file is in place already and whole, and file systems that cannot do this say
// so; only a failing device is worth a message.
DiskResult FlushFolder(int folder) {
  const Descriptor readable(Retry([&] { return openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
  if (!readable.Valid()) return DiskResult::kOk;
  const bool failed = Retry([&] { return fsync(readable.Number()); }) != 0;
  return failed && errno == EIO ? DiskResult::kInputOutput : DiskResult::kOk;
}

// Most file systems tell of what kind an entry is; what a link leads to has to be looked up.
bool IsRegular(int folder, const dirent& entry) {
  if (entry.d_type != DT_UNKNOWN && entry.d_type != DT_LNK) return entry.d_type == DT_REG;
  struct stat info {};
  return fstatat(folder, entry.d_name, &info, 0) == 0 && S_ISREG(info.st_mode);
}

bool EndsWithoutCase(std::string_view name, std::string_view ending) {
  return name.size() >= ending.size() && LowerCase(name.substr(name.size() - ending.size())) == LowerCase(ending);
}

}  // namespace

DiskResult DiskResultFromErrno(int error) {
  switch (error) {
    case 0:
      return DiskResult::kOk;
    case ENOENT:
      return DiskResult::kAbsent;
    case ENOTDIR:
      return DiskResult::kPathAbsent;
    case EACCES:
    case EPERM:
    case EROFS:
    case ETXTBSY:
      return DiskResult::kNoAccess;
    case EISDIR:
      return DiskResult::kIsFolder;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return DiskResult::kFull;
    case ENODEV:
    case ENXIO:
    case ENOMEDIUM:
      return DiskResult::kNotReady;
    case EIO:
      return DiskResult::kInputOutput;
    case EMFILE:
    case ENFILE:
      return DiskResult::kTooManyFiles;
    default:
      return DiskResult::kOther;
  }
}

DiskResult PosixDisk::Read(const std::string& path, Bytes& content, std::size_t largest) {
  content.clear();
  if (!PathIsUsable(path)) return DiskResult::kOther;

  // Looked at before it is opened, since opening alone can already wake a device.
  struct stat info {};
  if (stat(path.c_str(), &info) != 0) return ResultFor(errno, path);
  if (const DiskResult kind = KindOf(info); kind != DiskResult::kOk) return kind;

  // Something else may have taken the place meanwhile: a pipe opened without waiting is found out here.
  const Descriptor file(Retry([&] { return open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC); }));
  if (!file.Valid()) return ResultFor(errno, path);
  if (fstat(file.Number(), &info) != 0) return DiskResultFromErrno(errno);
  if (const DiskResult kind = KindOf(info); kind != DiskResult::kOk) return kind;

  Bytes whole;
  const int error = ReadAll(file.Number(), static_cast<std::size_t>(info.st_size), largest, whole);
  if (error != 0) return DiskResultFromErrno(error);
  if (whole.size() > largest) return DiskResult::kTooLarge;
  content.swap(whole);
  return DiskResult::kOk;
}

DiskResult PosixDisk::Write(const std::string& path, const Bytes& content) {
  if (!PathIsUsable(path)) return DiskResult::kOther;
  struct stat old {};
  const bool exists = stat(path.c_str(), &old) == 0;
  if (!exists && errno != ENOENT) return DiskResultFromErrno(errno);
  if (exists && KindOf(old) != DiskResult::kOk) return KindOf(old);

  std::string target = path;
  if (const int error = FollowLinks(target)) return DiskResultFromErrno(error);
  const std::string name = NameOf(target);
  const Descriptor folder(Retry([&] { return open(FolderOf(target).c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC); }));
  if (!folder.Valid()) return errno == ENOENT ? DiskResult::kPathAbsent : DiskResultFromErrno(errno);
  // "folder/" names a folder; there is nothing that could be renamed to it.
  if (name.empty() || name == "." || name == "..") return exists ? DiskResult::kIsFolder : DiskResult::kPathAbsent;

  if (exists) {
    // A folder lets a read-only file be replaced, so the file itself is asked; nothing is written through this.
    const Descriptor present(
        Retry([&] { return openat(folder.Number(), name.c_str(), O_WRONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC); }));
    if (!present.Valid()) return DiskResultFromErrno(errno);
    if (fstat(present.Number(), &old) != 0) return DiskResultFromErrno(errno);
    if (KindOf(old) != DiskResult::kOk) return KindOf(old);
  }

  std::string temporary;
  // Nobody else reads the content before the file has its final mode.
  Descriptor file(MakeTemporary(folder.Number(), exists ? 0600 : 0666, temporary));
  if (!file.Valid()) return DiskResultFromErrno(errno);
  int error = FillTemporary(file, content, exists ? &old : nullptr);
  if (error == 0 && renameat(folder.Number(), temporary.c_str(), folder.Number(), name.c_str()) != 0) error = errno;
  if (error != 0) {
    unlinkat(folder.Number(), temporary.c_str(), 0);
    return DiskResultFromErrno(error);
  }
  return FlushFolder(folder.Number());
}

DiskResult PosixDisk::Remove(const std::string& path) {
  if (!PathIsUsable(path)) return DiskResult::kOther;
  if (unlink(path.c_str()) == 0 || errno == ENOENT) return DiskResult::kOk;
  return DiskResultFromErrno(errno);
}

DiskResult PosixDisk::Rename(const std::string& from, const std::string& to) {
  if (!PathIsUsable(from) || !PathIsUsable(to)) return DiskResult::kOther;
  struct stat info {};
  if (lstat(from.c_str(), &info) != 0) return ResultFor(errno, from);
  if (S_ISDIR(info.st_mode)) return DiskResult::kIsFolder;
  return rename(from.c_str(), to.c_str()) == 0 ? DiskResult::kOk : ResultFor(errno, to);
}

bool PosixDisk::Exists(const std::string& path) {
  struct stat info {};
  return PathIsUsable(path) && stat(path.c_str(), &info) == 0 && !S_ISDIR(info.st_mode);
}

DiskResult PosixDisk::List(const std::string& folder, const std::string& ending, std::vector<std::string>& names) {
  names.clear();
  if (!PathIsUsable(folder)) return DiskResult::kOther;
  const auto close_folder = [](DIR* stream) { closedir(stream); };
  const std::unique_ptr<DIR, decltype(close_folder)> stream(opendir(folder.empty() ? "." : folder.c_str()),
                                                            close_folder);
  if (!stream) return errno == ENOENT ? DiskResult::kPathAbsent : DiskResultFromErrno(errno);

  std::vector<std::string> found;
  for (;;) {
    errno = 0;
    const dirent* entry = readdir(stream.get());
    if (entry == nullptr) break;
    if (!EndsWithoutCase(entry->d_name, ending)) continue;
    if (IsRegular(dirfd(stream.get()), *entry)) found.emplace_back(entry->d_name);
  }
  if (errno != 0) return DiskResultFromErrno(errno);
  std::sort(found.begin(), found.end());
  names.swap(found);
  return DiskResult::kOk;
}

}  // namespace zentaline
