// What the program asks of the file system. Everything goes whole: no file stays open between two calls.
#pragma once

#include <string>
#include <vector>

#include "base/bytes.h"

namespace zentaline {

// How a file operation ended. The error boxes tell these apart.
enum class DiskResult {
  kOk,
  kAbsent,        // no such file (its folder is there)
  kPathAbsent,    // a folder on the way is missing or is no folder
  kNoAccess,      // permission denied, or a read-only file system
  kIsFolder,      // the path is a folder
  kTooLarge,      // longer than the reader takes
  kFull,          // no space, or the quota is used up
  kNotReady,      // the medium is not there
  kInputOutput,   // the device reports an error
  kTooManyFiles,  // no more files can be opened
  kOther,
};

// The file system, replaceable in a test. Paths are the file system's bytes.
class Disk {
 public:
  virtual ~Disk() = default;

  // Reads the whole file. A file that is absent, or empty, leaves `content` empty; nothing is created. `largest` is the
  // greatest length taken, in bytes; a longer file gives kTooLarge.
  virtual DiskResult Read(const std::string& path, Bytes& content, std::size_t largest) = 0;

  // Replaces the file by `content`, or makes it. Whoever looks finds the old file or the new one, whole. Links are
  // followed, mode and owner kept; a target that may not be written is refused.
  virtual DiskResult Write(const std::string& path, const Bytes& content) = 0;

  // Removes the file. One that is not there is no failure.
  virtual DiskResult Remove(const std::string& path) = 0;

  // Gives the file another name in the same folder, in place of what has that name.
  virtual DiskResult Rename(const std::string& from, const std::string& to) = 0;

  // True when something that is no folder has this path.
  virtual bool Exists(const std::string& path) = 0;

  // The names, without folder, of the files of `folder` that end in `ending` (compared without case), sorted.
  virtual DiskResult List(const std::string& folder, const std::string& ending, std::vector<std::string>& names) = 0;
};

}  // namespace zentaline
