#include "base/posix_growing_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <utility>

#include "base/posix_disk.h"

namespace zentaline {

namespace {

constexpr int kMostNames = 1000;
constexpr std::size_t kMostContent = std::size_t{1} << 30;  // in bytes

// What comes within it reaches the disk together.
constexpr auto kFlushAfter = std::chrono::milliseconds(300);

constexpr int kFlags = O_RDWR | O_APPEND | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;

std::string Numbered(const std::string& name, int number) {
  if (number == 1) return name;
  const std::size_t point = name.rfind('.');
  const std::string end = point == std::string::npos ? "" : name.substr(point);
  return name.substr(0, point) + "-" + std::to_string(number) + end;
}

bool Lock(int file) {
  return Retry([&] { return flock(file, LOCK_EX | LOCK_NB); }) == 0;
}

}  // namespace

DiskResult PosixGrowingFile::Make(const std::string& folder, const std::string& name,
                                  std::unique_ptr<GrowingFile>& file) {
  Descriptor place = OpenFolder(folder);
  if (!place.Valid()) return ResultFor(errno, folder);
  for (int number = 1; number < kMostNames; ++number) {
    const std::string taken = Numbered(name, number);
    Descriptor made(
        Retry([&] { return openat(place.Number(), taken.c_str(), kFlags | O_CREAT | O_EXCL, S_IRUSR | S_IWUSR); }));
    if (!made.Valid() && errno == EEXIST) continue;
    if (!made.Valid()) return ResultFor(errno, folder + '/' + taken);
    // A file system without locks has nobody who would look at them.
    if (!Lock(made.Number()) && errno == EWOULDBLOCK) continue;
    FlushFolder(place.Number());
    file = std::make_unique<PosixGrowingFile>(folder + '/' + taken, std::move(place), std::move(made));
    return DiskResult::kOk;
  }
  return DiskResult::kOther;
}

DiskResult PosixGrowingFile::Take(const std::string& path, Bytes& content, std::size_t largest,
                                  std::unique_ptr<GrowingFile>& file) {
  content.clear();
  Descriptor place = OpenFolder(FolderOf(path));
  if (!place.Valid()) return ResultFor(errno, path);
  Descriptor found(Retry([&] { return openat(place.Number(), NameOf(path).c_str(), kFlags); }));
  if (!found.Valid()) return errno == ELOOP ? DiskResult::kNoAccess : ResultFor(errno, path);
  struct stat info {};
  if (fstat(found.Number(), &info) != 0) return DiskResultFromErrno(errno);
  if (!S_ISREG(info.st_mode) || info.st_uid != geteuid() || !Lock(found.Number())) return DiskResult::kNoAccess;
  if (static_cast<std::size_t>(info.st_size) > largest) return DiskResult::kTooLarge;
  Bytes whole;
  if (const int error = ReadAll(found.Number(), static_cast<std::size_t>(info.st_size), largest, whole)) {
    return DiskResultFromErrno(error);
  }
  if (whole.size() > largest) return DiskResult::kTooLarge;
  content.swap(whole);
  file = std::make_unique<PosixGrowingFile>(path, std::move(place), std::move(found));
  return DiskResult::kOk;
}

PosixGrowingFile::PosixGrowingFile(std::string path, Descriptor folder, Descriptor file)
    : path_(std::move(path)), folder_(std::move(folder)), file_(std::move(file)) {
  struct stat info {};
  if (fstat(file_.Number(), &info) == 0) length_ = info.st_size;
}

PosixGrowingFile::~PosixGrowingFile() {
  {
    const std::lock_guard lock(mutex_);
    ending_ = true;
  }
  changed_.notify_all();
  if (flusher_.joinable()) flusher_.join();
}

// The disk takes its time; the program doesn't wait for it.
void PosixGrowingFile::Watch() {
  std::unique_lock lock(mutex_);
  for (;;) {
    changed_.wait(lock, [this] { return dirty_ || ending_; });
    if (!ending_) changed_.wait_for(lock, kFlushAfter, [this] { return ending_; });
    if (dirty_) {
      dirty_ = false;
      // Its own descriptor, so that the file can be replaced meanwhile.
      const Descriptor file(fcntl(file_.Number(), F_DUPFD_CLOEXEC, 0));
      lock.unlock();
      const int failed = Retry([&] { return fdatasync(file.Number()); }) != 0 ? errno : 0;
      lock.lock();
      // File systems that cannot do this say so.
      if (failed == EIO || failed == ENOSPC || failed == EDQUOT) failed_ = failed;
    }
    if (ending_) return;
  }
}

DiskResult PosixGrowingFile::Append(std::string_view bytes) {
  const std::lock_guard lock(mutex_);
  if (failed_ != 0) return DiskResultFromErrno(failed_);
  if (const int error = WriteAll(file_.Number(), bytes)) {
    // Half a record would be the end of what is read.
    if (ftruncate(file_.Number(), length_) != 0) failed_ = error;
    return DiskResultFromErrno(error);
  }
  length_ += static_cast<off_t>(bytes.size());
  if (!std::exchange(dirty_, true)) changed_.notify_all();
  if (!flusher_.joinable()) flusher_ = std::thread([this] { Watch(); });
  return DiskResult::kOk;
}

DiskResult PosixGrowingFile::Flush() {
  const std::lock_guard lock(mutex_);
  dirty_ = false;
  if (failed_ == 0 && Retry([&] { return fdatasync(file_.Number()); }) != 0 && errno == EIO) failed_ = errno;
  return DiskResultFromErrno(failed_);
}

DiskResult PosixGrowingFile::Content(Bytes& content) {
  content.clear();
  const std::lock_guard lock(mutex_);
  struct stat info {};
  if (fstat(file_.Number(), &info) != 0 || lseek(file_.Number(), 0, SEEK_SET) != 0) return DiskResultFromErrno(errno);
  return DiskResultFromErrno(ReadAll(file_.Number(), static_cast<std::size_t>(info.st_size), kMostContent, content));
}

DiskResult PosixGrowingFile::Replace(const Bytes& content) {
  std::string temporary;
  Descriptor made(MakeTemporary(folder_.Number(), S_IRUSR | S_IWUSR, temporary));
  if (!made.Valid()) return DiskResultFromErrno(errno);
  int error = WriteAll(made.Number(), content);
  if (error == 0 && Retry([&] { return fsync(made.Number()); }) != 0) error = errno;
  // It is held before it has the name.
  Lock(made.Number());
  if (error == 0 && renameat(folder_.Number(), temporary.c_str(), folder_.Number(), NameOf(path_).c_str()) != 0) {
    error = errno;
  }
  if (error != 0) {
    unlinkat(folder_.Number(), temporary.c_str(), 0);
    return DiskResultFromErrno(error);
  }
  const std::lock_guard lock(mutex_);
  file_ = std::move(made);
  length_ = static_cast<off_t>(content.size());
  fcntl(file_.Number(), F_SETFL, O_APPEND);
  return FlushFolder(folder_.Number());
}

DiskResult PosixGrowingFile::Discard() {
  if (unlinkat(folder_.Number(), NameOf(path_).c_str(), 0) == 0 || errno == ENOENT) return DiskResult::kOk;
  return DiskResultFromErrno(errno);
}

DiskResult PosixGrowingFile::PutAway(std::string& kept) {
  const std::string name = NameOf(path_);
  for (int number = 1; number < kMostNames; ++number) {
    const std::string to = name + ".old" + (number == 1 ? "" : std::to_string(number));
    kept = FolderOf(path_) + '/' + to;
    if (renameat2(folder_.Number(), name.c_str(), folder_.Number(), to.c_str(), RENAME_NOREPLACE) == 0) {
      path_ = kept;
      FlushFolder(folder_.Number());
      return DiskResult::kOk;
    }
    if (errno != EEXIST) return DiskResultFromErrno(errno);
  }
  return DiskResult::kOther;
}

}  // namespace zentaline
