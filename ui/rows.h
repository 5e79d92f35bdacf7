// What lists and combo boxes have in common.
#pragma once

#include <string>
#include <vector>

#include "ui/types.h"

namespace zentaline::ui {

// Empty outside of the rows.
const std::string& TextOfRow(const std::vector<std::string>& rows, int row);
// The row that a key leads to from `row` in a list of `count` rows; `row` itself for keys that don't move.
int RowByKey(const Key& key, int row, int count);

}  // namespace zentaline::ui
