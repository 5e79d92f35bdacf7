// What each control does, in plain words, for the tool tips.
#pragma once

#include <string_view>

namespace zentaline {

// `form` and `control` are the system's names ("frmArrU", "CommLoadArr"); a control of an array may carry its index
// ("mnuDevMIDIOut(3)"), and finds the tip of the array if it has none of its own. Menu entries and the labels
// of the status strip are controls of frmMain. Language 1 is Italian, anything else English. UTF-8; empty when there is
// no tip.
std::string_view ToolTip(std::string_view form, std::string_view control, int language_code);

}  // namespace zentaline
