// One program for each working directory: a second start hands its files to the first.
#pragma once

#include <QLocalServer>
#include <functional>
#include <string>
#include <vector>

#include "base/posix_files.h"

namespace zentaline {

class FirstInstance {
 public:
  // Of the current working directory, known by device and inode; for this user alone. There is a QCoreApplication.
  FirstInstance();

  // True when another program that works here has taken the files, which have absolute paths.
  bool HandOver(const std::vector<std::string>& files);
  // From now on `take` is called with the files of later starts; nothing when this isn't the first.
  void Listen(std::function<void(const std::vector<std::string>& files)> take);

 private:
  void Connected();

  Descriptor directory_;  // locked as long as this is the first
  bool first_ = false;
  QString name_;
  QLocalServer server_;
  std::function<void(const std::vector<std::string>&)> take_;
};

}  // namespace zentaline
