// A disk that fails when it is told to, around another one that does the work.
#pragma once

#include <string>
#include <vector>

#include "base/disk.h"

namespace zentaline {

class FaultyDisk : public Disk {
 public:
  // `disk` must outlive this one.
  explicit FaultyDisk(Disk& disk) : disk_(disk) {}

  // The next `times` operations of the kind ("read", "write", "remove", "rename", "list" or "journal"), behind `after`
  // of them that go well, fail with the system error of that name: ENOENT, EACCES, EROFS, ENOSPC, EIO, EISDIR, ENOTDIR
  // or EMFILE; 0 times is until further notice. The error "0" ends it. False for an unknown word or a negative number,
  // and then nothing changes.
  bool Fail(const std::string& operation, const std::string& error, int times = 1, int after = 0);

  // An operation that fails leaves its result empty and the disk as it is.
  DiskResult Read(const std::string& path, Bytes& content, std::size_t largest) override;
  // Each file of a set counts as one; nothing is written when one of them fails, and nothing removed behind a removal
  // that fails. One that is set aside counts as a rename.
  SetResult WriteSet(std::span<const FileToWrite> writes, std::span<const FileToRemove> removals) override;
  DiskResult Remove(const std::string& path) override;
  DiskResult Rename(const std::string& from, const std::string& to) override;
  DiskResult List(const std::string& folder, const std::string& ending, std::vector<std::string>& names) override;

  // Appending and replacing count as "journal".
  DiskResult MakeGrowing(const std::string& folder, const std::string& name,
                         std::unique_ptr<GrowingFile>& file) override;
  DiskResult TakeGrowing(const std::string& path, Bytes& content, std::size_t largest,
                         std::unique_ptr<GrowingFile>& file) override;
  DiskResult RemoveEmpty(const std::string& path) override;
  DiskResult KeepAside(const std::string& path, std::string& kept) override;
  DiskResult KeepAs(const std::string& path, const std::string& kept) override;

  // These have no failure of their own.
  DiskResult Look(const std::string& path, FileMark& mark) override;
  bool IsLink(const std::string& path) override;
  bool Exists(const std::string& path) override;

 private:
  class Growing;

  struct Fault {
    int error = 0;  // 0 for none
    int times = 0;  // how often still, unless it lasts
    int after = 0;  // how many go well before
    bool lasts = false;
  };

  // The error number that is due, 0 for none; counts it.
  static int Due(Fault& fault);

  Disk& disk_;
  Fault read_, write_, remove_, rename_, list_, journal_;
};

}  // namespace zentaline
