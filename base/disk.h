// What the program asks of the file system. Everything goes whole: no file stays open between two calls.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "base/bytes.h"
#include "base/growing_file.h"

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

// One of the files that are saved as one. The content is borrowed.
struct FileToWrite {
  std::string path;
  const Bytes* content;
  bool through_links = true;  // else a link is replaced itself, and what it leads to stays as it is
};

struct FileToRemove {
  std::string path;
  bool set_aside = false;  // it goes on as NAME.bak, or under the first such name with a number that nobody has
};

// How saving a set ended, and at which of its files: the writes count first, then the removals.
struct SetResult {
  DiskResult result = DiskResult::kOk;
  std::size_t file = 0;
  bool written = true;  // all files have their names; false when some, or all, have their old content
};

// What a file held at some time, for telling whether it is still the same.
struct FileMark {
  bool there = false;
  std::size_t length = 0;
  std::uint32_t check = 0;  // CRC-32 of the content

  bool operator==(const FileMark&) const = default;
};
FileMark MarkOf(std::string_view content);

// The file system, replaceable in a test. Paths are the file system's bytes.
class Disk {
 public:
  virtual ~Disk() = default;

  // Reads the whole file. A file that is absent, or empty, leaves `content` empty; nothing is created. `largest` is the
  // greatest length taken, in bytes; a longer file gives kTooLarge.
  virtual DiskResult Read(const std::string& path, Bytes& content, std::size_t largest) = 0;

  // Replaces these files, or makes them, and then removes others. Whoever looks finds the old file or the new one,
  // whole; all new ones are on the disk before the first takes its name, so that a failure before leaves all old ones.
  // Mode and owner are kept; a target that may not be written is refused. A file to remove that isn't there is no
  // failure.
  virtual SetResult WriteSet(std::span<const FileToWrite> writes, std::span<const FileToRemove> removals) = 0;

  // A set of one file.
  DiskResult Write(const std::string& path, const Bytes& content) {
    const FileToWrite file{path, &content};
    return WriteSet({&file, 1}, {}).result;
  }

  // Removes the file. One that is not there is no failure.
  virtual DiskResult Remove(const std::string& path) = 0;

  // Gives the file another name in the same folder, in place of what has that name.
  virtual DiskResult Rename(const std::string& from, const std::string& to) = 0;

  // Removes the file when it is empty, and nobody else has it open as far as the system tells.
  virtual DiskResult RemoveEmpty(const std::string& path) = 0;

  // Gives what the file holds now a second name beside it, which it keeps when the file is replaced: NAME.bak, or the
  // first such name with a number, from 2, that nobody has. `kept` is that name with its folder. The file is there all
  // the while. kAbsent for one that isn't.
  virtual DiskResult KeepAside(const std::string& path, std::string& kept) = 0;
  // The same under this name, in place of what has it.
  virtual DiskResult KeepAs(const std::string& path, const std::string& kept) = 0;

  // What stands in the file; kOk and no mark for one that isn't there.
  virtual DiskResult Look(const std::string& path, FileMark& mark) = 0;

  // True when something that is no folder has this path.
  virtual bool Exists(const std::string& path) = 0;

  // True for a link itself, wherever it leads.
  virtual bool IsLink(const std::string& path) = 0;

  // A new file that grows, for this user alone and never through a link: `name`, or with "-2" and so on before its last
  // point. And one that is there: a regular file of this user's that nobody holds, with what it holds, at most
  // `largest` bytes.
  virtual DiskResult MakeGrowing(const std::string& folder, const std::string& name,
                                 std::unique_ptr<GrowingFile>& file) = 0;
  virtual DiskResult TakeGrowing(const std::string& path, Bytes& content, std::size_t largest,
                                 std::unique_ptr<GrowingFile>& file) = 0;

  // The names, without folder, of the files of `folder` that end in `ending` (compared without case), sorted.
  virtual DiskResult List(const std::string& folder, const std::string& ending, std::vector<std::string>& names) = 0;
};

}  // namespace zentaline
