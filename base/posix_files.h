// What everything has in common that works on files by POSIX calls. For this folder, and for those who keep a file
// open.
#pragma once

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <string_view>
#include <utility>

#include "base/disk.h"

namespace zentaline {

// A file descriptor that is closed when its owner goes.
class Descriptor {
 public:
  explicit Descriptor(int number = -1) : number_(number) {}
  ~Descriptor() { Close(); }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }

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
bool PathIsUsable(const std::string& path);

std::string FolderOf(const std::string& path);
std::string NameOf(const std::string& path);
// The folder itself, for the calls that work inside it.
Descriptor OpenFolder(const std::string& path);

// The result of an error with this path. The system says the same of a missing file and of a missing folder before it.
DiskResult ResultFor(int error, const std::string& path);

// kOk for a regular file.
DiskResult KindOf(const struct stat& info);

// Takes all that is left of the file, or one byte more than `largest`. 0, or the error number.
int ReadAll(int file, std::size_t expected, std::size_t largest, Bytes& content);
// 0, or the error number.
int WriteAll(int file, std::string_view content);

// Follows the links at the end of `path`, also to a file that is not there. 0, or the error number.
int FollowLinks(std::string& path);

// Makes a file in the folder whose name nobody else has; its descriptor, or -1. It starts with a point and ends in no
// data file's ending, so that no list shows it.
int MakeTemporary(int folder, mode_t mode, std::string& name);

// Removes what crashes have left of such files: older than a day, and their process is gone.
void RemoveStrays(int folder);

// Brings a rename to the disk. The new file is in place already and whole, and file systems that cannot do this say
// so; only a failing device is worth a message.
DiskResult FlushFolder(int folder);

// A second name for what `from` holds now, whatever links lead there: a link, or a copy where there can be none. What
// has the name stays, which is EEXIST. `folder` is that of `to`. 0, or the error number.
int GiveSecondName(const std::string& from, int folder, const std::string& to);

// A file of its own with the same content, whole under its name or not at all. What has the name stays, which is
// EEXIST. 0, or the error number.
int CopyTo(const std::string& from, int folder, const std::string& to);

}  // namespace zentaline
