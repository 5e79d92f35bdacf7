// What all controls have in common. A control is a plain object that holds what is shown and what is done; a widget,
// where there is one, shows it and reports what the user did.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "ui/types.h"

namespace zentaline::ui {

class Form;
class Toolkit;

enum class ControlKind {
  kButton,
  kLabel,
  kTextBox,
  kListBox,
  kComboBox,
  kScrollBar,
  kCheckBox,
  kOptionButton,
  kFrame,
  kTabs,
  kPictureBox,
  kPicture,
  kTimer,
  kMenuEntry,
};

// What of a control has changed, for its view.
enum class Change {
  kText,
  kEnabled,
  kVisible,
  kColours,
  kFont,
  kToolTip,
  kRows,
  kRow,
  kValue,
  kRange,
  kChecked,
  kTopLine,
  kFocus,
  kDrawing,
  kTyped,
  kSaid,
  kInSight
};

// The widget of one control. It attaches itself with Control::view and must take itself off before it dies.
class ControlView {
 public:
  virtual ~ControlView() = default;
  virtual void Show(Change change) = 0;
};

using Handler = std::function<void()>;

class Control {
 public:
  // Registers itself with its form under its name, and with its index when it is one of an array (-1: it is none).
  Control(Form& form, ControlKind kind, std::string name, int index = -1);
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control();

  Form& form() const { return form_; }
  ControlKind kind() const { return kind_; }
  const std::string& name() const { return name_; }
  int index() const { return index_; }
  // The name with its index in brackets when it has one.
  std::string FullName() const;

  bool enabled() const { return enabled_; }
  void SetEnabled(bool enabled);
  bool visible() const { return visible_; }
  void SetVisible(bool visible);
  // True when the user can reach it: enabled, visible, and so all that it stands in by the form's layout. Which page is
  // in front doesn't matter.
  virtual bool Usable() const;
  // Turns to the pages that it stands on; nothing is raised.
  void TurnPages();
  // True when the form's layout puts both into the same frame or page, or both into none.
  bool SharesRoomWith(const Control& other) const;

  const std::string& tool_tip() const { return tool_tip_; }
  void SetToolTip(std::string tool_tip);
  // What a screen reader calls it, where neither its caption nor the label before it says what it is and of whom.
  const std::string& said() const { return said_; }
  void SetSaid(std::string said);
  // None is the desktop's own colour.
  std::optional<Colour> back_colour() const { return back_colour_; }
  std::optional<Colour> fore_colour() const { return fore_colour_; }
  void SetBackColour(std::optional<Colour> colour);
  void SetForeColour(std::optional<Colour> colour);
  const Font& font() const { return font_; }
  void SetFont(Font font);
  // The least size on the screen, in widths and heights of a character; 0 leaves it to the toolkit.
  Size least_characters;

  // Makes it the control that takes the keys.
  void SetFocus();
  // Where its page scrolls, the page goes to it.
  void ComeIntoSight() { Changed(Change::kInSight); }
  bool HasFocus() const;

  Handler on_focus;
  // True when the key has a meaning of its own there, and so does nothing else.
  std::function<bool(const Key&)> on_key;
  std::function<void(const MouseEvent&)> on_mouse;
  // A right click; most open a popup menu. Without one the form's stands in.
  Handler on_context;

  // What the user does. They give false, and do nothing, when the control can't be reached.
  bool UserFocus();
  // `taken` becomes true when the key has done its work.
  bool UserKey(const Key& key, bool* taken = nullptr);
  bool UserMouse(const MouseEvent& event);
  bool UserContext();
  // What the key does by itself in a control of this kind, as pressing a button does by the space bar; for toolkits
  // whose widgets don't do it on their own.
  virtual void DefaultKey(const Key& key) { (void)key; }
  // The keys go elsewhere from now on.
  virtual void FocusLeft() {}

  ControlView* view = nullptr;

 protected:
  void Changed(Change change) {
    if (view != nullptr) view->Show(change);
  }

 private:
  friend class Form;

  Form& form_;
  ControlKind kind_;
  std::string name_;
  int index_;
  const Control* container_ = nullptr;  // what it stands in, as the form notes it
  int page_ = 0;                        // which page of its container, where that has pages
  int room_ = 0;                        // the frame or page that it stands in: equal for all in there, 0 for the form
  bool enabled_ = true;
  bool visible_ = true;
  std::string tool_tip_;
  std::string said_;
  std::optional<Colour> back_colour_;
  std::optional<Colour> fore_colour_;
  Font font_;
};

// Stands around whatever the user does: brings the form, when it is a child window, to the front. A form that is closed
// meanwhile is destroyed only when the outermost event has ended. The outermost one of a form or a control is the
// user's action; one of the toolkit alone holds several together.
class UserEvent {
 public:
  enum Moves { kMoves };
  explicit UserEvent(Form& form);
  explicit UserEvent(Control& control);
  UserEvent(Control& control, Moves);    // a change of its value that may be one of many
  explicit UserEvent(Toolkit& toolkit);  // of no form, as the start of the program
  ~UserEvent();
  UserEvent(const UserEvent&) = delete;
  UserEvent& operator=(const UserEvent&) = delete;

 private:
  UserEvent(Form& form, const Control* control);

  Toolkit& toolkit_;
};

}  // namespace zentaline::ui
