// The numbered text table: everything the program says in its own words, in Italian and English, UTF-8.
#pragma once

#include <span>
#include <string_view>

namespace zentaline {

// Added to a text's id it gives the English twin.
inline constexpr int kEnglishOffset = 200;

struct TextRow {
  int id;  // 1 to 154, with gaps
  std::string_view italian;
  std::string_view english;
};

// The rows in the order of their ids.
std::span<const TextRow> AllTexts();

// Ids 1 to 154 are Italian, 201 to 354 English. An id that the table doesn't hold gives an empty view.
std::string_view TextOf(int id);

// Whether the table holds the id, in either language.
bool HasText(int id);

}  // namespace zentaline
