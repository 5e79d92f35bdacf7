// Carries the actions of a script out with mouse and keys on the real widgets.
#pragma once

#include "tests/desktop/scripted_desktop.h"
#include "ui/script/driver.h"

namespace zentaline::ui::qt {

class QtDriver : public ScriptDriver {
 public:
  explicit QtDriver(ScriptedDesktop& desktop) : desktop_(desktop) {}

  bool Press(Control& control) override;
  bool Select(Control& control, const std::vector<int>& rows) override;
  bool Set(Control& control, int value) override;
  bool Type(Control& control, const std::string& text) override;
  bool PressKey(Control& control, const Key& key) override;
  bool DoubleClick(Control& control, int row) override;
  bool DoubleClick(ScrollBar& bar) override;
  bool Drag(Picture& picture, int handle, int x, int y) override;
  bool Mouse(Control& control, const MouseEvent& event) override;
  bool Mouse(Form& form, const MouseEvent& event) override;
  bool Context(Control& control) override;
  bool Context(Form& form) override;
  void Activate(Form& form) override;
  void Close(Form& form) override;
  bool Place(Form& form, const Placement& placement) override;

 private:
  ScriptedDesktop& desktop_;
};

}  // namespace zentaline::ui::qt
