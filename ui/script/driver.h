// How the actions of a script reach the windows: by the models' own functions, or by events of real widgets.
#pragma once

#include <string>
#include <vector>

#include "ui/form.h"
#include "ui/picture.h"

namespace zentaline::ui {

// The engine has made sure that the control can be reached, is of a kind that has the action, and that rows and values
// lie in their range; its window is in front. False all the same means that the action was refused.
class ScriptDriver {
 public:
  virtual ~ScriptDriver() = default;

  virtual bool Press(Control& control) = 0;                                 // Button, OptionButton, MenuEntry
  virtual bool Select(Control& control, const std::vector<int>& rows) = 0;  // ListBox; ComboBox with one row
  virtual bool Set(Control& control, int value) = 0;                        // ScrollBar, CheckBox, Tabs
  virtual bool Type(Control& control, const std::string& text) = 0;         // TextBox, ComboBox
  virtual bool PressKey(Control& control, const Key& key) = 0;
  virtual bool DoubleClick(Control& control, int row) = 0;  // ListBox
  virtual bool DoubleClick(ScrollBar& bar) = 0;             // on its handle
  virtual bool Drag(Picture& picture, int handle, int x, int y) = 0;
  virtual bool Mouse(Control& control, const MouseEvent& event) = 0;
  virtual bool Mouse(Form& form, const MouseEvent& event) = 0;
  virtual bool Context(Control& control) = 0;
  virtual bool Context(Form& form) = 0;
  virtual void Activate(Form& form) = 0;
  virtual void Close(Form& form) = 0;  // the form may refuse to close: that is no failure
  virtual bool Place(Form& form, const Placement& placement) = 0;
};

// Calls the User functions of the models. A key that a control does nothing with by itself goes on to the form's
// default or cancel button, when it is Enter or Escape.
class ModelDriver : public ScriptDriver {
 public:
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
  bool Place(Form& form, const Placement& placement) override;  // the inner size is the outer one
};

}  // namespace zentaline::ui
