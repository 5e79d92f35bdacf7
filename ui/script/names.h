// What a name in a script stands for.
#pragma once

#include <string>
#include <string_view>

#include "ui/form.h"
#include "ui/toolkit.h"

namespace zentaline::ui {

struct ScriptTarget {
  Form* form = nullptr;
  Control* control = nullptr;  // null: the form itself
  std::string_view property;   // what stands behind the name, without the dot; only where one may stand
  std::string error;           // why there is nothing of that name; empty when it was found

  bool Found() const { return error.empty(); }
};

// frmArrU(3), frmArrU(3).List1, frmMain.Label1(2), or a menu entry by its name alone: those of the main window first,
// then those of the others in the order of opening. With `takes_property` a property may follow, as in
// frmMain.Label1.enabled or frmMain.caption. `name` must outlive the result.
ScriptTarget FindScriptTarget(const Toolkit& toolkit, std::string_view name, bool takes_property = false);

// The name by which a script calls a control.
std::string ScriptName(const Control& control);

}  // namespace zentaline::ui
