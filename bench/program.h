// The whole program under a benchmark: its toolkit, and a window without anything in it.
#pragma once

#include <string>

#include "core/child_window.h"
#include "ui/console/console_toolkit.h"
#include "ui/controls.h"

namespace zentaline {

// Chooses the language that it is asked for; boxes close themselves.
class StartingToolkit : public ui::ConsoleToolkit {
 public:
  StartingToolkit() : ConsoleToolkit(Clock::kVirtual, [](const std::string&) {}) {}
  ui::BoxAnswer MessageBox(ui::BoxStyle, const std::string&, const std::string&) override { return ui::BoxAnswer::kOk; }

 protected:
  void RunModal(ui::Form& form) override {
    static_cast<ui::OptionButton*>(form.Find("Option1", 1))->UserPress();
    static_cast<ui::Button*>(form.Find("CommOK"))->UserPress();
  }
};

class PlainWindow : public ChildWindow {
 public:
  using ChildWindow::ChildWindow;
};

}  // namespace zentaline
