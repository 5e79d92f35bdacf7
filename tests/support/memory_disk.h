// A disk in memory, for tests that start the program thousands of times.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "base/disk.h"

namespace zentaline::test {

class MemoryDisk : public Disk {
 public:
  std::map<std::string, Bytes> files;

  DiskResult Read(const std::string& path, Bytes& content, std::size_t largest) override {
    content.clear();
    const auto found = files.find(path);
    if (found == files.end()) return DiskResult::kAbsent;
    if (found->second.size() > largest) return DiskResult::kTooLarge;
    content = found->second;
    return DiskResult::kOk;
  }
  SetResult WriteSet(std::span<const FileToWrite> writes, std::span<const FileToRemove> removals) override {
    for (const FileToWrite& file : writes) files[file.path] = *file.content;
    for (const FileToRemove& file : removals) {
      std::string kept;
      if (file.set_aside) KeepAside(file.path, kept);
      files.erase(file.path);
    }
    return {};
  }
  DiskResult RemoveEmpty(const std::string& path) override { return Remove(path); }
  DiskResult KeepAside(const std::string& path, std::string& kept) override {
    if (!files.contains(path)) return DiskResult::kAbsent;
    kept = path + ".bak";
    for (int i = 2; files.contains(kept); ++i) kept = path + ".bak" + std::to_string(i);
    files[kept] = files[path];
    return DiskResult::kOk;
  }
  DiskResult KeepAs(const std::string& path, const std::string& kept) override {
    if (!files.contains(path)) return DiskResult::kAbsent;
    files[kept] = files[path];
    return DiskResult::kOk;
  }
  DiskResult Look(const std::string& path, FileMark& mark) override {
    const auto found = files.find(path);
    mark = found == files.end() ? FileMark() : MarkOf(found->second);
    return DiskResult::kOk;
  }
  // No journal is kept on it.
  DiskResult MakeGrowing(const std::string&, const std::string&, std::unique_ptr<GrowingFile>&) override {
    return DiskResult::kNoAccess;
  }
  DiskResult TakeGrowing(const std::string&, Bytes&, std::size_t, std::unique_ptr<GrowingFile>&) override {
    return DiskResult::kNoAccess;
  }
  bool IsLink(const std::string&) override { return false; }
  DiskResult Remove(const std::string& path) override {
    files.erase(path);
    return DiskResult::kOk;
  }
  DiskResult Rename(const std::string& from, const std::string& to) override {
    const auto found = files.find(from);
    if (found == files.end()) return DiskResult::kAbsent;
    files[to] = found->second;
    if (from != to) files.erase(from);
    return DiskResult::kOk;
  }
  bool Exists(const std::string& path) override { return files.contains(path); }
  DiskResult List(const std::string& folder, const std::string& ending, std::vector<std::string>& names) override {
    names.clear();
    for (const auto& [path, content] : files) {
      if (path.starts_with(folder + "/") && LowerCase(path).ends_with(LowerCase(ending))) {
        names.push_back(path.substr(folder.size() + 1));
      }
    }
    return DiskResult::kOk;
  }
};

}  // namespace zentaline::test
