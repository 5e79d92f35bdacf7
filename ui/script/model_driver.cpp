#include "ui/script/driver.h"

namespace zentaline::ui {

namespace {

template <class T>
T& As(Control& control) {
  return static_cast<T&>(control);
}

// Enter and Escape press the form's buttons, unless the control has a use of its own for the key.
Button* ButtonOfKey(const Control& control, const Key& key) {
  const Form& form = control.form();
  if (key.name == Key::kEscape) return form.cancel_button;
  if (key.name != Key::kEnter || control.kind() == ControlKind::kButton) return nullptr;
  const bool takes_lines = control.kind() == ControlKind::kTextBox && static_cast<const TextBox&>(control).multi_line;
  return takes_lines ? nullptr : form.default_button;
}

// Enter in a list is its double click; in a bar it takes the value that was typed, and Escape forgets it.
bool EndsByItself(Control& control, const Key& key) {
  if (key.name != Key::kEnter && key.name != Key::kEscape) return false;
  if (control.kind() == ControlKind::kListBox) return key.name == Key::kEnter && As<ListBox>(control).UserEnter();
  if (control.kind() != ControlKind::kScrollBar || As<ScrollBar>(control).typed().empty()) return false;
  control.DefaultKey(key);
  return true;
}

// What is typed key by key goes to the end of the text.
void TypeKey(TextBox& box, const Key& key) {
  if (key.name == Key::kCharacter) {
    box.UserType(box.text() + key.character);
  } else if (key.name == Key::kSpace) {
    box.UserType(box.text() + ' ');
  } else if (key.name == Key::kEnter && box.multi_line) {
    box.UserType(box.text() + '\n');
  }
}

}  // namespace

bool ModelDriver::Press(Control& control) {
  switch (control.kind()) {
    case ControlKind::kButton:
      return As<Button>(control).UserPress();
    case ControlKind::kOptionButton:
      return As<OptionButton>(control).UserPress();
    case ControlKind::kMenuEntry:
      return As<MenuEntry>(control).UserPress();
    default:
      return false;
  }
}

bool ModelDriver::Select(Control& control, const std::vector<int>& rows) {
  if (control.kind() == ControlKind::kListBox) return As<ListBox>(control).UserSelect(rows);
  return control.kind() == ControlKind::kComboBox && rows.size() == 1 && As<ComboBox>(control).UserSelect(rows[0]);
}

bool ModelDriver::Set(Control& control, int value) {
  switch (control.kind()) {
    case ControlKind::kScrollBar:
      return As<ScrollBar>(control).UserSet(value);
    case ControlKind::kCheckBox:
      return As<CheckBox>(control).UserSet(value != 0);
    case ControlKind::kTabs:
      return As<Tabs>(control).UserSet(value);
    default:
      return false;
  }
}

bool ModelDriver::Type(Control& control, const std::string& text) {
  if (control.kind() == ControlKind::kTextBox) return As<TextBox>(control).UserType(text);
  return control.kind() == ControlKind::kComboBox && As<ComboBox>(control).UserType(text);
}

bool ModelDriver::PressKey(Control& control, const Key& key) {
  const UserEvent event(control);
  bool taken = false;
  if (!control.UserKey(key, &taken)) return false;
  if (taken || !control.form().open()) return true;
  if (EndsByItself(control, key)) return true;
  control.DefaultKey(key);
  if (!control.form().open()) return true;
  if (control.kind() == ControlKind::kTextBox) TypeKey(As<TextBox>(control), key);
  if (Button* const button = ButtonOfKey(control, key)) button->UserPress();
  return true;
}

bool ModelDriver::DoubleClick(ScrollBar& bar) {
  return bar.UserReset();
}

bool ModelDriver::DoubleClick(Control& control, int row) {
  return control.kind() == ControlKind::kListBox && As<ListBox>(control).UserDouble(row);
}

bool ModelDriver::Drag(Picture& picture, int handle, int x, int y) {
  return picture.UserDrag(handle, x, y);
}

// The release of the right button opens the popup menu, as on a desktop.
bool ModelDriver::Mouse(Control& control, const MouseEvent& event) {
  if (!control.UserMouse(event)) return false;
  if (event.right && event.what == MouseEvent::kUp) control.UserContext();
  return true;
}

bool ModelDriver::Mouse(Form& form, const MouseEvent& event) {
  if (!form.UserMouse(event)) return false;
  if (event.right && event.what == MouseEvent::kUp) form.UserContext();
  return true;
}

bool ModelDriver::Context(Control& control) {
  return control.UserContext();
}

bool ModelDriver::Context(Form& form) {
  return form.UserContext();
}

void ModelDriver::Activate(Form& form) {
  form.UserActivate();
}

void ModelDriver::Close(Form& form) {
  form.UserClose();
}

bool ModelDriver::Place(Form& form, const Placement& placement) {
  if (!form.Reachable()) return false;
  form.UserPlace(placement, {placement.width, placement.height});
  return true;
}

}  // namespace zentaline::ui
