// The signals by which a session ends, as something that can be waited for.
#pragma once

#include <atomic>

#include "base/posix_files.h"

namespace zentaline {

// SIGTERM, SIGINT and SIGHUP no longer end the program by themselves, but for those that whoever started it wants to
// be ignored. To be made before any other thread.
class EndSignals {
 public:
  EndSignals();

  // Can be read when one has come; -1 where there is no such thing.
  int descriptor() const { return descriptor_.Number(); }
  // The number of one that has come, 0 when none has; each is given once.
  int Take();
  // Whether one has come that ends what runs. From any thread.
  bool Pending() const;
  // The session goes on after all.
  void GoOn() { ending_ = false; }

 private:
  Descriptor descriptor_;
  std::atomic<bool> ending_{false};  // one was taken
};

}  // namespace zentaline
