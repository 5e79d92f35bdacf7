// Texts of the program's own beside the numbered table.
#pragma once

#include <string_view>

namespace zentaline {

enum class MoreText {
  kChangedElsewhere,  // the first "_" is the file, the second the name that it is kept under
};

// `language`: 1 Italian, 2 English.
std::string_view MoreTextOf(MoreText text, int language);

}  // namespace zentaline
