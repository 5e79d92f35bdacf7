// Style files from their tables.
#pragma once

#include <map>
#include <string>

#include "style/sty_format.h"
#include "tools/factory/source.h"

namespace zentaline::factory {

class StyleTables {
 public:
  explicit StyleTables(Problems& problems) : problems_(problems) {}

  void Read(const std::string& path);

  // File name to the bytes of the file.
  const std::map<std::string, Bytes>& Banks() const { return banks_; }

  // Whether the style file of the same base name as `file` has a style with a name of its own at entry 0 to 15.
  bool HasStyleBeside(std::string_view file, int entry) const;

 private:
  void ReadRow(const SourceLine& line);

  Problems& problems_;
  std::map<std::string, Bytes> banks_;
  std::string bank_;
  int next_entry_ = 0;
};

}  // namespace zentaline::factory
