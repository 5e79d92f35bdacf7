// Texts of the program's own beside the numbered table.
#pragma once

#include <string_view>

namespace zentaline {

enum class MoreText {
  kChangedElsewhere,  // the first "_" is the file, the second the name that it is kept under
  kJournalFailed,
  kRecoverQuestion,  // the first "_" is how many changes, the second in how many files
  kNotAllRecovered,  // "_" is the name of what keeps the rest
  kRecovered,        // behind a file's name
};

// `language`: 1 Italian, 2 English.
std::string_view MoreTextOf(MoreText text, int language);

}  // namespace zentaline
