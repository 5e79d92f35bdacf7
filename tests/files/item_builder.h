// Images of windows with their row tables, built by hand.
#pragma once

#include <string>
#include <vector>

#include "tests/format_bytes.h"
#include "tests/style/sty_builder.h"

namespace zentaline::test {

// The panel's number of row 0 to 63.
inline std::string RowNumber(int row) {
  return {static_cast<char>('1' + row / 8), static_cast<char>('1' + row % 8)};
}

// Marks a row in a table that begins at `base`, and gives it a text of 20 bytes.
inline void PutRow(std::string& image, std::size_t base, int row, const std::string& text, bool marked = true) {
  const std::size_t at = base - 1 + 21 * static_cast<std::size_t>(row);
  image.replace(at, 21, (marked ? "\x01" : Zeros(1)) + Field(text, 20));
}

// An arrangement window, kind 19, without arrangements: prefix, file, blank row table, blanks, styles.
inline std::string ArrImage(const std::string& style_part, int style_state) {
  std::string image =
      Zeros(20) + Blanks(250) + "KORG" + Hand({0x4D, 0, 3}) + Zeros(25 + 64 * 164) + Blanks(1344 + 30480);
  Set(image, 1, 19);
  Set(image, 3, 2);
  Set(image, 9, style_state);
  Set(image, 15, 1);
  return image + style_part;
}

// A record whose bytes behind the name tell it from others; `entry` is the style of its file, -1 for a factory style.
inline std::string ArrItem(const std::string& name, int entry, int filler) {
  std::string record = Field(name, 16) + std::string(148, static_cast<char>(filler));
  Set(record, 18, entry < 0 ? 70 : entry);
  Set(record, 19, entry < 0 ? 0 : 1);
  return record;
}

// Puts a written record, and its text into the row table, marked or not.
inline void PutArr(std::string& image, int row, const std::string& name, int entry, bool marked = true) {
  image.replace(302 + 164 * static_cast<std::size_t>(row), 164, ArrItem(name, entry, 100 + row));
  PutRow(image, 10799, row, RowNumber(row) + (entry < 0 ? "  " : " +") + name, marked);
}

inline std::string ArrRecordAt(const std::string& image, int row) {
  return image.substr(302 + 164 * static_cast<std::size_t>(row), 164);
}

// A program window, kind 21, of empty places.
inline std::string PrgImage() {
  std::string image = Zeros(20) + Blanks(250) + "KORG" + Hand({0x4D, 0, 0, 1}) + Zeros(30472 + 1344);
  Set(image, 1, 21);
  Set(image, 6, 2);
  Set(image, 15, 1);
  return image;
}

inline std::string PrgItem(const std::string& name, int filler) {
  return Field(name, 16) + std::string(156, static_cast<char>(filler));
}

inline void PutPrg(std::string& image, int row, const std::string& name, bool marked = true) {
  image.replace(318 + 172 * static_cast<std::size_t>(row), 172, PrgItem(name, 100 + row));
  PutRow(image, 30751, row, RowNumber(row) + "  " + name, marked);
}

inline std::string PrgRecordAt(const std::string& image, int row) {
  return image.substr(318 + 172 * static_cast<std::size_t>(row), 172);
}

// A style window, kind 23, without marks.
inline std::string StyWindow(const std::string& styles) {
  std::string image = Zeros(20) + Blanks(250) + Zeros(399) + styles;
  Set(image, 1, 23);
  Set(image, 15, 1);
  return image;
}

// The list row of entry 0 to 15: four rows, a gap, and so on.
inline int StyRow(int entry) {
  const int rows[] = {0, 1, 2, 3, 5, 6, 7, 8, 10, 11, 12, 13, 15, 16, 17, 18};
  return rows[entry];
}

inline void MarkSty(std::string& image, int entry, const std::string& name) {
  PutRow(image, 271, StyRow(entry), "nn  " + name);
}

}  // namespace zentaline::test
