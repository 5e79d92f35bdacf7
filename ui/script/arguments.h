// The words behind a command, read as what the command takes. None when they are malformed.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "ui/script/line.h"
#include "ui/types.h"

namespace zentaline::ui {

using ScriptWords = std::span<const ScriptWord>;

// A whole number; one beyond the range of int is taken as the range's end.
std::optional<int> ScriptNumber(std::string_view text);
std::optional<std::vector<int>> ScriptNumbers(ScriptWords words);
// Milliseconds, none below 0; more than their type holds is taken as the most that it holds.
std::optional<std::int64_t> ScriptDuration(std::string_view text);

// ROW... or none, which gives no rows.
std::optional<std::vector<int>> ScriptRows(ScriptWords words);
// Delete, Space, ..., or one character.
std::optional<Key> ScriptKey(const std::string& word);
// down|move|up [X Y] [right]
std::optional<MouseEvent> ScriptMouse(ScriptWords words);
std::optional<BoxAnswer> ScriptAnswer(std::string_view word);

struct ScriptFile {
  bool cancelled = false;
  std::string path;
  std::optional<int> filter;
  std::optional<bool> read_only;
};
// PATH [filter=N] [readonly=0|1], or cancel
std::optional<ScriptFile> ScriptFileAnswer(ScriptWords words);

}  // namespace zentaline::ui
