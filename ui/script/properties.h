// The properties of controls and forms, as a script reads them.
#pragma once

#include <optional>
#include <string_view>

#include "ui/form.h"
#include "ui/script/transcript.h"

namespace zentaline::ui {

// text, caption, enabled, visible, checked, rows, row, row(N), selected, min, max, handles, handle(N), color,
// forecolor, interval, focus; an empty property is the one that says most of a control of this kind. None when a
// control of this kind has no such property, or no row N.
std::optional<ScriptValue> ReadProperty(const Control& control, std::string_view property);

// caption (also the empty property), left, top, width, height, state, focus.
std::optional<ScriptValue> ReadProperty(const Form& form, std::string_view property);

}  // namespace zentaline::ui
