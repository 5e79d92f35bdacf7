// The lines of printed lists and tables: what stands where, before any printer is asked. Texts are UTF-8, columns count
// from 1.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/bytes.h"

namespace zentaline {

inline constexpr int kPrintColumns = 84;

// A line of fixed length, blank at first.
class PrintLine {
 public:
  explicit PrintLine(int columns = kPrintColumns) : cells_(static_cast<std::size_t>(columns), " ") {}
  // As much of a text as its columns, and the line, have room for.
  void Put(int column, std::string_view text, int room = kPrintColumns);
  // The same with a name of a data file: a zero byte is a blank.
  void PutName(int column, std::string_view name, int room);
  std::string Text() const;

 private:
  std::vector<std::string> cells_;  // a character each
};

// The first line of a list: the program, the file's name in the middle, the date.
std::string ListTitle(std::string_view file_name, std::string_view date);
// The line of arrangement 0 to 63 of an arrangement window's image.
std::string ListRow(std::string_view image, int index);

// The title of a window's table by its kind, empty for a window that has none. `base_name` is its file's, as it can be
// shown.
std::string TableTitle(int kind, std::string_view base_name);
// The lines of a table under its title; an empty one ends each group.
std::vector<std::string> TableLines(std::string_view image);

}  // namespace zentaline
