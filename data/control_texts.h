// A table of texts by form and control, in both languages; what captions and tool tips have in common.
#pragma once

#include <span>
#include <string_view>

namespace zentaline {

struct ControlText {
  std::string_view form;
  std::string_view control;  // with its index in brackets when it has one
  std::string_view italian;
  std::string_view english;
};

// The text in a language, 1 Italian, anything else English; empty when the table has no row for the control.
constexpr std::string_view FindControlText(std::span<const ControlText> table, std::string_view form,
                                           std::string_view control, int language_code) {
  for (const ControlText& row : table) {
    if (row.form == form && row.control == control) return language_code == 1 ? row.italian : row.english;
  }
  return {};
}

}  // namespace zentaline
