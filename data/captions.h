// Captions of controls that the numbered text table doesn't hold.
#pragma once

#include <string_view>

namespace zentaline {

// `form` and `control` are the system's names as for ToolTip; the name of the form itself stands for its title.
// Language 1 is Italian, anything else English. UTF-8, "&" marks the access key; empty when there is no caption.
std::string_view Caption(std::string_view form, std::string_view control, int language_code);

}  // namespace zentaline
