// What a screen reader calls the controls of a window: what each is and of whom, as "Volume, UPPER1".
#pragma once

#include <map>
#include <string>

#include "ui/form.h"

namespace zentaline::ui {

// By control, for all that the user can do something with. No two of a form are the same, and none is empty.
using SpokenNames = std::map<const Control*, std::string>;
SpokenNames SpokenNamesOf(const Form& form);

}  // namespace zentaline::ui
