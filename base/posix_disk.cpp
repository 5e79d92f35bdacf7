#include "base/posix_disk.h"

#include <dirent.h>
#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <limits>
#include <memory>

#include "base/posix_files.h"
#include "base/posix_growing_file.h"

namespace zentaline {

namespace {

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

DiskResult PosixDisk::RemoveEmpty(const std::string& path) {
  if (!PathIsUsable(path)) return DiskResult::kOther;
  const Descriptor file(Retry([&] { return open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC); }));
  struct stat info {};
  if (file.Valid() && fstat(file.Number(), &info) == 0) {
    if (!S_ISREG(info.st_mode) || info.st_size != 0) return DiskResult::kOk;
    // Whoever opens it from here on waits until it is gone. The kernel tells of that by a signal, which by default
    // would end the program.
    fcntl(file.Number(), F_SETSIG, SIGURG);
    if (fcntl(file.Number(), F_SETLEASE, F_WRLCK) != 0 && errno == EAGAIN) return DiskResult::kOk;
    if (fstat(file.Number(), &info) == 0 && info.st_size != 0) return DiskResult::kOk;
  }
  return Remove(path);
}

DiskResult PosixDisk::Look(const std::string& path, FileMark& mark) {
  mark = {};
  Bytes content;
  const DiskResult result = Read(path, content, std::numeric_limits<std::size_t>::max() - 1);
  if (result == DiskResult::kOk) mark = MarkOf(content);
  return result == DiskResult::kAbsent || result == DiskResult::kPathAbsent ? DiskResult::kOk : result;
}

bool PosixDisk::IsLink(const std::string& path) {
  struct stat info {};
  return PathIsUsable(path) && lstat(path.c_str(), &info) == 0 && S_ISLNK(info.st_mode);
}

DiskResult PosixDisk::MakeGrowing(const std::string& folder, const std::string& name,
                                  std::unique_ptr<GrowingFile>& file) {
  return PosixGrowingFile::Make(folder, name, file);
}

DiskResult PosixDisk::TakeGrowing(const std::string& path, Bytes& content, std::size_t largest,
                                  std::unique_ptr<GrowingFile>& file) {
  return PosixGrowingFile::Take(path, content, largest, file);
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
