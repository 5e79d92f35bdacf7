// How files are replaced: as a set, each of them whole at any moment.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>

#include "base/posix_disk.h"
#include "base/posix_files.h"

namespace zentaline {

namespace {

// Nobody has so many files of one name set aside.
constexpr int kMostKept = 10000;

// Of a file that is copied whole, in bytes.
constexpr std::size_t kLargestKept = std::size_t{1} << 28;

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

// A file on its way to its name: made beside it, and gone again unless it gets there.
class Replacement {
 public:
  Replacement() = default;
  Replacement(const Replacement&) = delete;
  Replacement& operator=(const Replacement&) = delete;
  Replacement(Replacement&& other) noexcept
      : folder_(std::move(other.folder_)),
        folder_name_(std::move(other.folder_name_)),
        name_(std::move(other.name_)),
        temporary_(std::exchange(other.temporary_, {})) {}
  Replacement& operator=(Replacement&&) = delete;
  ~Replacement() {
    if (!temporary_.empty()) unlinkat(folder_.Number(), temporary_.c_str(), 0);
  }

  // Fills the file and brings it to the disk.
  DiskResult Make(const FileToWrite& write) {
    if (!PathIsUsable(write.path)) return DiskResult::kOther;
    std::string target = write.path;
    bool exists = false;
    struct stat old {};
    if (const DiskResult result = Find(write, target, exists, old); result != DiskResult::kOk) return result;
    if (exists) {
      if (const DiskResult result = AskPresent(old); result != DiskResult::kOk) return result;
    }
    // Nobody else reads the content before the file has its final mode.
    Descriptor file(MakeTemporary(folder_.Number(), exists ? 0600 : 0666, temporary_));
    if (!file.Valid()) {
      const int error = errno;
      temporary_.clear();
      return DiskResultFromErrno(error);
    }
    return DiskResultFromErrno(FillTemporary(file, *write.content, exists ? &old : nullptr));
  }

  DiskResult Rename() {
    if (renameat(folder_.Number(), temporary_.c_str(), folder_.Number(), name_.c_str()) != 0) {
      return DiskResultFromErrno(errno);
    }
    temporary_.clear();
    return DiskResult::kOk;
  }

  const std::string& folder_name() const { return folder_name_; }
  int folder() const { return folder_.Number(); }

 private:
  // Where the file will stand, and what stands there already.
  DiskResult Find(const FileToWrite& write, std::string& target, bool& exists, struct stat& old) {
    exists = (write.through_links ? stat : lstat)(target.c_str(), &old) == 0;
    if (!exists && errno != ENOENT) return DiskResultFromErrno(errno);
    if (exists && S_ISLNK(old.st_mode)) {
      // It is replaced itself, by a file that takes nothing from where it leads.
      exists = false;
    } else if (exists && KindOf(old) != DiskResult::kOk) {
      return KindOf(old);
    }
    if (write.through_links) {
      if (const int error = FollowLinks(target)) return DiskResultFromErrno(error);
    }
    name_ = NameOf(target);
    folder_name_ = FolderOf(target);
    folder_ = OpenFolder(folder_name_);
    if (!folder_.Valid()) return errno == ENOENT ? DiskResult::kPathAbsent : DiskResultFromErrno(errno);
    // "folder/" names a folder; there is nothing that could be renamed to it.
    if (name_.empty() || name_ == "." || name_ == "..") {
      return exists ? DiskResult::kIsFolder : DiskResult::kPathAbsent;
    }
    return DiskResult::kOk;
  }

  // A folder lets a read-only file be replaced, so the file itself is asked; nothing is written through this.
  DiskResult AskPresent(struct stat& old) const {
    const Descriptor present(
        Retry([&] { return openat(folder_.Number(), name_.c_str(), O_WRONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC); }));
    if (!present.Valid()) return DiskResultFromErrno(errno);
    if (fstat(present.Number(), &old) != 0) return DiskResultFromErrno(errno);
    return KindOf(old);
  }

  Descriptor folder_;
  std::string folder_name_;
  std::string name_;
  std::string temporary_;  // empty before it is made and when it has its name
};

// A name behind which nobody has set anything aside: `give` takes one, or fails with EEXIST.
template <typename Give>
int FindKeptName(const std::string& path, std::string& kept, Give give) {
  for (int i = 1; i < kMostKept; ++i) {
    kept = path + ".bak" + (i == 1 ? "" : std::to_string(i));
    const int error = give(NameOf(kept));
    if (error != EEXIST) return error;
  }
  return EEXIST;
}

// The file goes on under another name, or stays.
int MoveAside(const std::string& path) {
  const Descriptor folder = OpenFolder(FolderOf(path));
  if (!folder.Valid()) return errno;
  const std::string name = NameOf(path);
  std::string kept;
  return FindKeptName(path, kept, [&](const std::string& to) {
    if (renameat2(folder.Number(), name.c_str(), folder.Number(), to.c_str(), RENAME_NOREPLACE) == 0) return 0;
    if (errno != EINVAL) return errno;
    // A file system that can't tell.
    if (const int error = GiveSecondName(path, folder.Number(), to)) return error;
    return unlinkat(folder.Number(), name.c_str(), 0) == 0 ? 0 : errno;
  });
}

DiskResult TakeAway(PosixDisk& disk, const FileToRemove& removal) {
  if (!removal.set_aside) return disk.Remove(removal.path);
  if (!PathIsUsable(removal.path)) return DiskResult::kOther;
  const int error = MoveAside(removal.path);
  return error == ENOENT ? DiskResult::kOk : DiskResultFromErrno(error);
}

}  // namespace

SetResult PosixDisk::WriteSet(std::span<const FileToWrite> writes, std::span<const FileToRemove> removals) {
  std::vector<Replacement> files(writes.size());
  for (std::size_t i = 0; i < files.size(); ++i) {
    if (const DiskResult result = files[i].Make(writes[i]); result != DiskResult::kOk) return {result, i, false};
  }
  for (std::size_t i = 0; i < files.size(); ++i) {
    if (const DiskResult result = files[i].Rename(); result != DiskResult::kOk) return {result, i, false};
  }
  SetResult flushed;
  for (std::size_t i = 0; i < files.size(); ++i) {
    const bool known = std::any_of(files.begin(), files.begin() + static_cast<std::ptrdiff_t>(i),
                                   [&](const auto& file) { return file.folder_name() == files[i].folder_name(); });
    if (known) continue;
    const DiskResult result = FlushFolder(files[i].folder());
    if (result != DiskResult::kOk && flushed.result == DiskResult::kOk) flushed = {result, i, true};
    RemoveStrays(files[i].folder());
  }
  if (flushed.result != DiskResult::kOk) return flushed;
  for (std::size_t i = 0; i < removals.size(); ++i) {
    if (const DiskResult result = TakeAway(*this, removals[i]); result != DiskResult::kOk) {
      return {result, writes.size() + i, true};
    }
  }
  return {};
}

DiskResult PosixDisk::KeepAside(const std::string& path, std::string& kept) {
  if (!PathIsUsable(path)) return DiskResult::kOther;
  const Descriptor folder = OpenFolder(FolderOf(path));
  if (!folder.Valid()) return ResultFor(errno, path);
  const int error =
      FindKeptName(path, kept, [&](const std::string& to) { return GiveSecondName(path, folder.Number(), to); });
  if (error != 0) return ResultFor(error, path);
  return FlushFolder(folder.Number());
}

DiskResult PosixDisk::KeepAs(const std::string& path, const std::string& kept) {
  Bytes content;
  // A copy, so that the other file is replaced whole as any is.
  if (const DiskResult result = Read(path, content, kLargestKept); result != DiskResult::kOk) return result;
  const FileToWrite copy{kept, &content, false};
  return WriteSet({&copy, 1}, {}).result;
}

}  // namespace zentaline
