#pragma once

#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

#include "base/disk.h"
#include "base/growing_file.h"
#include "base/posix_files.h"

namespace zentaline {

class PosixGrowingFile : public GrowingFile {
 public:
  // A new file in the folder: `name`, with "-2" and so on before its last point where that is taken. For this user
  // alone; a link is never followed.
  static DiskResult Make(const std::string& folder, const std::string& name, std::unique_ptr<GrowingFile>& file);
  // A file that is there: a regular one of this user's that nobody holds. `content` is what it holds, at most `largest`
  // bytes. kNoAccess for one that is held or another's.
  static DiskResult Take(const std::string& path, Bytes& content, std::size_t largest,
                         std::unique_ptr<GrowingFile>& file);

  PosixGrowingFile(std::string path, Descriptor folder, Descriptor file);
  ~PosixGrowingFile() override;

  const std::string& path() const override { return path_; }
  DiskResult Append(std::string_view bytes) override;
  DiskResult Flush() override;
  DiskResult Content(Bytes& content) override;
  DiskResult Replace(const Bytes& content) override;
  DiskResult Discard() override;
  DiskResult PutAway(std::string& kept) override;

 private:
  void Watch();

  std::string path_;
  Descriptor folder_;

  std::mutex mutex_;
  std::condition_variable changed_;
  Descriptor file_;
  off_t length_ = 0;  // nobody else writes to it
  bool dirty_ = false;
  bool ending_ = false;
  int failed_ = 0;  // the error number of the disk's own
  std::thread flusher_;
};

}  // namespace zentaline
