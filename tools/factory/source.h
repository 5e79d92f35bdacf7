// Reading the tables that the factory files are made from.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/bytes.h"

namespace zentaline::factory {

// One line of a table that says something, without its comment, converted to the instrument's characters.
struct SourceLine {
  std::string file;
  int number = 0;  // from 1
  bool indented = false;
  Bytes text;
};

// What is wrong in the tables. The tool goes on after a mistake, so that one run tells all of them.
class Problems {
 public:
  void Add(const SourceLine& line, std::string_view what);
  void Add(std::string_view file, std::string_view what);
  bool Any() const { return !list_.empty(); }
  const std::vector<std::string>& List() const { return list_; }

 private:
  std::vector<std::string> list_;
};

// The whole file, or nothing with a problem told.
std::optional<std::string> ReadText(const std::string& path, Problems& problems);

// Writes a file whole; where that fails the old one stays, and the failure is told on standard error.
bool WriteFile(const std::string& path, const Bytes& bytes);

// Lines that are empty or begin with "#" are left out.
std::vector<SourceLine> ReadSource(const std::string& path, Problems& problems);

// The pieces between separators, each without blanks at its ends. An empty text has none.
std::vector<std::string_view> SplitAt(std::string_view text, char separator);

// The first word, and in `rest` what follows it.
std::string_view FirstWord(std::string_view text, std::string_view& rest);

// A whole decimal number with an optional sign, nothing else.
std::optional<int> NumberOf(std::string_view text);

// "11" to "88", both digits 1 to 8: 0 to 63.
std::optional<int> PlaceOf(std::string_view text);

// The index of `name` in a list of captions, blanks at the ends apart.
template <typename List>
std::optional<int> IndexIn(const List& list, std::string_view name) {
  int index = 0;
  for (std::string_view entry : list) {
    if (Trim(entry) == name) return index;
    ++index;
  }
  return std::nullopt;
}

}  // namespace zentaline::factory
