// A line of a script, taken apart into words.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zentaline::ui {

// The longest line that is taken, in bytes.
inline constexpr std::size_t kLongestScriptLine = std::size_t{1} << 20;

struct ScriptWord {
  std::string text;
  bool quoted = false;
};

struct ScriptLine {
  std::vector<ScriptWord> words;  // none for a line that is blank or a comment
  std::string error;              // what is wrong with the line; empty for a good one
};

// Words are parted by blanks or tabs; one that begins with a double quote runs to the next one, and \" \\ \n and \xHH
// are read in it. Elsewhere a double quote is an error and a backslash stands for itself. A carriage return at the end
// is left away.
ScriptLine ParseScriptLine(std::string_view line);

}  // namespace zentaline::ui
