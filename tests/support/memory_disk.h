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
  DiskResult Write(const std::string& path, const Bytes& content) override {
    files[path] = content;
    return DiskResult::kOk;
  }
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
