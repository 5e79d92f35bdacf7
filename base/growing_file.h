// A file that grows while the program runs, and that tells by a lock that somebody holds it.
#pragma once

#include <string>
#include <string_view>

#include "base/bytes.h"

namespace zentaline {

enum class DiskResult;

// It is locked as long as the object lives.
class GrowingFile {
 public:
  virtual ~GrowingFile() = default;

  virtual const std::string& path() const = 0;
  // Puts the bytes behind the others. They reach the disk within a second without further calls; a failure of that is
  // told by the next call.
  virtual DiskResult Append(std::string_view bytes) = 0;
  // Waits until all that was appended is on the disk.
  virtual DiskResult Flush() = 0;
  // All that it holds by now.
  virtual DiskResult Content(Bytes& content) = 0;
  // Puts this content in the place of the whole; whoever looks finds one or the other.
  virtual DiskResult Replace(const Bytes& content) = 0;
  // Removes the file, or gives it another name in its folder: NAME.old, or the first such name with a number, from 2,
  // that nobody has. `kept` is that name with its folder.
  virtual DiskResult Discard() = 0;
  virtual DiskResult PutAway(std::string& kept) = 0;
};

}  // namespace zentaline
