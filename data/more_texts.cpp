#include "data/more_texts.h"

#include <array>
#include <cstddef>

namespace zentaline {

namespace {

struct Row {
  std::string_view italian;
  std::string_view english;
};

// In the order of MoreText.
constexpr std::array kRows = {
    Row{"_ era cambiato su disco: conservato come _", "_ had changed on the disk: kept as _"},
};

}  // namespace

std::string_view MoreTextOf(MoreText text, int language) {
  const Row& row = kRows[static_cast<std::size_t>(text)];
  return language == 1 ? row.italian : row.english;
}

}  // namespace zentaline
