#include "base/faulty_disk.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <string_view>

#include "base/posix_disk.h"

namespace zentaline {

namespace {

struct NamedError {
  std::string_view name;
  int error;
};

constexpr std::array<NamedError, 9> kErrors = {{{"0", 0},
                                                {"ENOENT", ENOENT},
                                                {"EACCES", EACCES},
                                                {"EROFS", EROFS},
                                                {"ENOSPC", ENOSPC},
                                                {"EIO", EIO},
                                                {"EISDIR", EISDIR},
                                                {"ENOTDIR", ENOTDIR},
                                                {"EMFILE", EMFILE}}};

// Where a file is made or a folder read, only a folder can be what is missing.
DiskResult WithoutFolder(int error) {
  return error == ENOENT ? DiskResult::kPathAbsent : DiskResultFromErrno(error);
}

}  // namespace

class FaultyDisk::Growing : public GrowingFile {
 public:
  Growing(FaultyDisk& disk, std::unique_ptr<GrowingFile> file) : disk_(disk), file_(std::move(file)) {}

  const std::string& path() const override { return file_->path(); }
  DiskResult Append(std::string_view bytes) override {
    if (const int error = Due(disk_.journal_)) return DiskResultFromErrno(error);
    return file_->Append(bytes);
  }
  DiskResult Flush() override { return file_->Flush(); }
  DiskResult Content(Bytes& content) override { return file_->Content(content); }
  DiskResult Replace(const Bytes& content) override {
    if (const int error = Due(disk_.journal_)) return DiskResultFromErrno(error);
    return file_->Replace(content);
  }
  DiskResult Discard() override { return file_->Discard(); }
  DiskResult PutAway(std::string& kept) override { return file_->PutAway(kept); }

 private:
  FaultyDisk& disk_;
  std::unique_ptr<GrowingFile> file_;
};

bool FaultyDisk::Fail(const std::string& operation, const std::string& error, int times, int after) {
  Fault* fault = operation == "read"      ? &read_
                 : operation == "write"   ? &write_
                 : operation == "remove"  ? &remove_
                 : operation == "rename"  ? &rename_
                 : operation == "list"    ? &list_
                 : operation == "journal" ? &journal_
                                          : nullptr;
  const auto known = std::find_if(kErrors.begin(), kErrors.end(),
                                  [&](const NamedError& candidate) { return candidate.name == error; });
  if (fault == nullptr || known == kErrors.end() || times < 0 || after < 0) return false;
  *fault = {known->error, times, after, times == 0};
  return true;
}

int FaultyDisk::Due(Fault& fault) {
  const int error = fault.error;
  if (error != 0 && fault.after > 0) return --fault.after, 0;
  if (error != 0 && !fault.lasts && --fault.times == 0) fault = {};
  return error;
}

DiskResult FaultyDisk::Read(const std::string& path, Bytes& content, std::size_t largest) {
  if (const int error = Due(read_)) {
    content.clear();
    return DiskResultFromErrno(error);
  }
  return disk_.Read(path, content, largest);
}

SetResult FaultyDisk::WriteSet(std::span<const FileToWrite> writes, std::span<const FileToRemove> removals) {
  for (std::size_t i = 0; i < writes.size(); ++i) {
    if (const int error = Due(write_)) return {WithoutFolder(error), i, false};
  }
  for (std::size_t i = 0; i < removals.size(); ++i) {
    const int error = Due(removals[i].set_aside ? rename_ : remove_);
    if (error == 0) continue;
    const SetResult result = disk_.WriteSet(writes, removals.first(i));
    return result.result != DiskResult::kOk ? result : SetResult{DiskResultFromErrno(error), writes.size() + i, true};
  }
  return disk_.WriteSet(writes, removals);
}

DiskResult FaultyDisk::Remove(const std::string& path) {
  if (const int error = Due(remove_)) return DiskResultFromErrno(error);
  return disk_.Remove(path);
}

DiskResult FaultyDisk::Rename(const std::string& from, const std::string& to) {
  if (const int error = Due(rename_)) return DiskResultFromErrno(error);
  return disk_.Rename(from, to);
}

DiskResult FaultyDisk::List(const std::string& folder, const std::string& ending, std::vector<std::string>& names) {
  if (const int error = Due(list_)) {
    names.clear();
    return WithoutFolder(error);
  }
  return disk_.List(folder, ending, names);
}

DiskResult FaultyDisk::MakeGrowing(const std::string& folder, const std::string& name,
                                   std::unique_ptr<GrowingFile>& file) {
  const DiskResult result = disk_.MakeGrowing(folder, name, file);
  if (result == DiskResult::kOk) file = std::make_unique<Growing>(*this, std::move(file));
  return result;
}

DiskResult FaultyDisk::TakeGrowing(const std::string& path, Bytes& content, std::size_t largest,
                                   std::unique_ptr<GrowingFile>& file) {
  const DiskResult result = disk_.TakeGrowing(path, content, largest, file);
  if (result == DiskResult::kOk) file = std::make_unique<Growing>(*this, std::move(file));
  return result;
}

DiskResult FaultyDisk::RemoveEmpty(const std::string& path) {
  if (const int error = Due(remove_)) return DiskResultFromErrno(error);
  return disk_.RemoveEmpty(path);
}

DiskResult FaultyDisk::KeepAside(const std::string& path, std::string& kept) {
  if (const int error = Due(rename_)) return DiskResultFromErrno(error);
  return disk_.KeepAside(path, kept);
}

DiskResult FaultyDisk::KeepAs(const std::string& path, const std::string& kept) {
  if (const int error = Due(rename_)) return DiskResultFromErrno(error);
  return disk_.KeepAs(path, kept);
}

DiskResult FaultyDisk::Look(const std::string& path, FileMark& mark) {
  return disk_.Look(path, mark);
}

bool FaultyDisk::IsLink(const std::string& path) {
  return disk_.IsLink(path);
}

bool FaultyDisk::Exists(const std::string& path) {
  return disk_.Exists(path);
}

}  // namespace zentaline
