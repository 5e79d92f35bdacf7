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

bool FaultyDisk::Fail(const std::string& operation, const std::string& error, int times, int after) {
  Fault* fault = operation == "read"     ? &read_
                 : operation == "write"  ? &write_
                 : operation == "remove" ? &remove_
                 : operation == "rename" ? &rename_
                 : operation == "list"   ? &list_
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

DiskResult FaultyDisk::Write(const std::string& path, const Bytes& content) {
  if (const int error = Due(write_)) return WithoutFolder(error);
  return disk_.Write(path, content);
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

bool FaultyDisk::Exists(const std::string& path) {
  return disk_.Exists(path);
}

}  // namespace zentaline
