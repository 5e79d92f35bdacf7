#include "data/control_texts.h"

#include <algorithm>
#include <tuple>

namespace zentaline {

namespace {

auto KeyOf(const ControlText& row) {
  return std::tie(row.form, row.control);
}

}  // namespace

ControlTexts::ControlTexts(std::span<const ControlText> table) {
  sorted_.reserve(table.size());
  for (const ControlText& row : table) sorted_.push_back(&row);
  std::stable_sort(sorted_.begin(), sorted_.end(),
                   [](const ControlText* a, const ControlText* b) { return KeyOf(*a) < KeyOf(*b); });
}

std::string_view ControlTexts::Find(std::string_view form, std::string_view control, int language_code) const {
  const auto key = std::tie(form, control);
  const auto row = std::lower_bound(sorted_.begin(), sorted_.end(), key,
                                    [](const ControlText* each, const auto& wanted) { return KeyOf(*each) < wanted; });
  if (row == sorted_.end() || KeyOf(**row) != key) return {};
  return language_code == 1 ? (*row)->italian : (*row)->english;
}

}  // namespace zentaline
