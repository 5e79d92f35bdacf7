// Items on their way between windows: the table of marks and row texts that travels in a window's image, and what a
// paste or a cut makes of the target's image. Rows and entries count from 0, positions from 1. An image may be of any
// bytes: what it doesn't hold reads as zero, and nothing is written outside of it.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "base/bytes.h"

namespace zentaline {

// Items move between windows of one family.
enum class ItemFamily { kNone, kArrangements, kPrograms, kStyles };

// Where an image has its row table, and whether its window takes items; the others only give them.
struct ItemTable {
  ItemFamily family = ItemFamily::kNone;
  std::size_t position = 0;  // of row 0
  int rows = 0;
  bool takes = false;
};

// By the image's kind. A kind without items has the family kNone.
ItemTable ItemTableOf(std::string_view image);

// Whether items of the clipboard can be pasted into an image of the target's kind.
bool FitsItems(std::string_view clipboard, std::string_view target);

// Only the value 1 marks: a new arrangement window's table begins with labels on these bytes.
bool IsMarked(std::string_view image, int row);
// The 20 bytes of a row's text.
Bytes ItemRowText(std::string_view image, int row);
// Whether a row of this text shows an item: more than its number, no gap between groups, no "- empty -".
bool ShowsItem(ItemFamily family, int row, std::string_view text);

// Whether one of the marked rows is an arrangement with a style of its file.
bool BringsStyles(std::string_view clipboard);

// The table's bytes after a copy: marks and texts of the list's rows, each text cut or filled with blanks to 20 bytes.
// And after a cut: no marks; of programs the texts of what was marked are blank as well.
Bytes MarkedTable(std::string_view image, const std::vector<Bytes>& texts, const std::vector<int>& selected);
Bytes UnmarkedTable(std::string_view image);

// What the boxes tell after a paste or a cut.
enum class ItemNotice {
  kStylesAbsent,  // an arrangement has a style of its file, but no file is attached
  kNoPlace,       // the target has no place for the style
  kTooLong,       // the group of four styles would be too long
  kNoTemplate,    // there is no empty style
};

struct ItemsDone {
  std::vector<int> rows;            // of the target's list, that took an item or lost it
  std::vector<int> cut_styles;      // entries of the target's styles that went with their arrangements
  std::vector<ItemNotice> notices;  // in the order in which they came up
  bool changed = false;             // the image isn't as it was, marks apart
  bool styles_changed = false;      // its style part isn't
};

// What stands beside the target's image in a paste.
struct PasteTarget {
  std::vector<int> selected;  // rows of its list, ascending
  int focus_row = -1;
};

// Pastes by the family of the image. Arrangements and programs go to the first selected row, else to the row with the
// focus, else to row 0, and on to the next rows: down to the last one, within the selection when it has several rows,
// until the clipboard has an empty row. Rows of the target that are empty or filled take them alike. Styles go to the
// entry of the first selected row, else to entry 0, and on to the last one. `empty_style` is the image of the template,
// empty when there is none.
ItemsDone PasteItems(std::string_view clipboard, Bytes& image, const PasteTarget& target, std::string_view empty_style);

// Cuts the items that the image's own table marks, and leaves the table as it is.
ItemsDone CutItems(Bytes& image, std::string_view empty_style);

}  // namespace zentaline
