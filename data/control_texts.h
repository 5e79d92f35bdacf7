// A table of texts by form and control, in both languages; what captions and tool tips have in common.
#pragma once

#include <span>
#include <string_view>
#include <vector>

namespace zentaline {

struct ControlText {
  std::string_view form;
  std::string_view control;  // with its index in brackets when it has one
  std::string_view italian;
  std::string_view english;
};

// Finds the rows of a table. Every control of every window asks when the window opens.
class ControlTexts {
 public:
  explicit ControlTexts(std::span<const ControlText> table);

  // The text in a language, 1 Italian, anything else English; empty when the table has no row for the control. The
  // first row counts.
  std::string_view Find(std::string_view form, std::string_view control, int language_code) const;

 private:
  std::vector<const ControlText*> sorted_;
};

}  // namespace zentaline
