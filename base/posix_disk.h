// The file system of the machine, by POSIX calls. Relative paths are taken from the process's current directory.
#pragma once

#include <string>
#include <vector>

#include "base/disk.h"

namespace zentaline {

// The result that stands for a system error number; kOk for 0. ENOENT gives kAbsent, whatever is missing.
DiskResult DiskResultFromErrno(int error);

// Only regular files are read and written, reached through links or not: a folder gives kIsFolder; a device, a pipe or
// a socket gives kOther at once, without being opened. A path with a zero byte in it gives kOther.
class PosixDisk : public Disk {
 public:
  // Every failure leaves `content` empty.
  DiskResult Read(const std::string& path, Bytes& content, std::size_t largest) override;

  // A link that leads nowhere makes the file it names; links that lead in a circle give kOther. A new file takes the
  // mode that the process's mask leaves of 0666. The owner is kept as far as the system allows it. Where the file has
  // further hard links, those keep the old content. kNoAccess also where the folder takes no new file.
  // Strays of other processes in the folders of the set are removed by the way.
  SetResult WriteSet(std::span<const FileToWrite> writes, std::span<const FileToRemove> removals) override;

  // A link is removed itself, not what it leads to. A folder gives kIsFolder.
  DiskResult Remove(const std::string& path) override;

  // A link is renamed itself. A folder at either name gives kIsFolder.
  DiskResult Rename(const std::string& from, const std::string& to) override;

  // Asks for a lease that only who has the file alone can get; where there is none to be had, it is removed.
  DiskResult RemoveEmpty(const std::string& path) override;

  DiskResult KeepAside(const std::string& path, std::string& kept) override;
  DiskResult KeepAs(const std::string& path, const std::string& kept) override;
  DiskResult Look(const std::string& path, FileMark& mark) override;
  bool IsLink(const std::string& path) override;

  DiskResult MakeGrowing(const std::string& folder, const std::string& name,
                         std::unique_ptr<GrowingFile>& file) override;
  DiskResult TakeGrowing(const std::string& path, Bytes& content, std::size_t largest,
                         std::unique_ptr<GrowingFile>& file) override;

  // Through links: a link that leads nowhere, or to a folder, does not exist.
  bool Exists(const std::string& path) override;

  // Regular files only, through links. A folder that is missing, or is no folder, gives kPathAbsent; an empty `folder`
  // is the current directory. Every failure leaves `names` empty.
  DiskResult List(const std::string& folder, const std::string& ending, std::vector<std::string>& names) override;
};

}  // namespace zentaline
