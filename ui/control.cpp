#include "ui/control.h"

#include <utility>

#include "ui/form.h"
#include "ui/toolkit.h"

namespace zentaline::ui {

Control::Control(Form& form, ControlKind kind, std::string name, int index)
    : form_(form), kind_(kind), name_(std::move(name)), index_(index) {
  form_.controls_.push_back(this);
}

// The form's list of controls dies with the form, which its controls never outlive.
Control::~Control() = default;

std::string Control::FullName() const {
  return index_ < 0 ? name_ : name_ + "(" + std::to_string(index_) + ")";
}

void Control::SetEnabled(bool enabled) {
  if (std::exchange(enabled_, enabled) != enabled) Changed(Change::kEnabled);
}

void Control::SetVisible(bool visible) {
  if (std::exchange(visible_, visible) != visible) Changed(Change::kVisible);
}

bool Control::Usable() const {
  if (!enabled_ || !visible_ || !form_.Reachable()) return false;
  if (!form_.Noted()) form_.NoteContainers();
  for (const Control* around = container_; around != nullptr; around = around->container_) {
    if (!around->enabled_ || !around->visible_) return false;
  }
  return true;
}

void Control::TurnPages() {
  if (!form_.Noted()) form_.NoteContainers();
  for (const Control* inside = this; inside->container_ != nullptr; inside = inside->container_) {
    if (inside->container_->kind() != ControlKind::kTabs) continue;
    // The form's controls are all its own.
    const_cast<Tabs&>(static_cast<const Tabs&>(*inside->container_)).ShowPage(inside->page_);
  }
}

bool Control::SharesRoomWith(const Control& other) const {
  if (&form_ != &other.form_) return false;
  if (!form_.Noted()) form_.NoteContainers();
  return room_ == other.room_;
}

void Control::SetToolTip(std::string tool_tip) {
  tool_tip_ = std::move(tool_tip);
  Changed(Change::kToolTip);
}

void Control::SetSaid(std::string said) {
  if (said == said_) return;
  said_ = std::move(said);
  Changed(Change::kSaid);
}

void Control::SetBackColour(std::optional<Colour> colour) {
  if (std::exchange(back_colour_, colour) != colour) Changed(Change::kColours);
}

void Control::SetForeColour(std::optional<Colour> colour) {
  if (std::exchange(fore_colour_, colour) != colour) Changed(Change::kColours);
}

void Control::SetFont(Font font) {
  if (std::exchange(font_, font) != font) Changed(Change::kFont);
}

void Control::SetFocus() {
  Control* const before = std::exchange(form_.focus_, this);
  if (before == this) return;
  if (before != nullptr) before->FocusLeft();
  Changed(Change::kFocus);
  if (on_focus) on_focus();
}

bool Control::HasFocus() const {
  return form_.focus_ == this;
}

bool Control::UserFocus() {
  if (!Usable()) return false;
  const UserEvent event(*this);
  SetFocus();
  return true;
}

bool Control::UserKey(const Key& key, bool* taken) {
  if (!Usable()) return false;
  const UserEvent event(*this);
  SetFocus();
  const bool own = on_key && on_key(key);
  if (taken != nullptr) *taken = own;
  return true;
}

bool Control::UserMouse(const MouseEvent& event) {
  if (!Usable()) return false;
  // A pointer that passes over a window leaves it where it is.
  if (event.what == MouseEvent::kMove) {
    const UserEvent scope(form_.toolkit());
    if (on_mouse) on_mouse(event);
    return true;
  }
  const UserEvent scope(*this);
  if (event.what == MouseEvent::kDown && !event.right) SetFocus();
  if (on_mouse) on_mouse(event);
  return true;
}

bool Control::UserContext() {
  if (!Usable()) return false;
  const UserEvent event(*this);
  if (on_context) {
    on_context();
  } else if (form_.on_context) {
    form_.on_context();
  }
  return true;
}

UserEvent::UserEvent(Form& form) : UserEvent(form, nullptr) {}

UserEvent::UserEvent(Control& control) : UserEvent(control.form(), &control) {}

UserEvent::UserEvent(Control& control, Moves) : UserEvent(control.form(), &control) {
  toolkit_.NoteMove(control);
}

UserEvent::UserEvent(Form& form, const Control* control) : toolkit_(form.toolkit()) {
  toolkit_.EnterEvent();
  toolkit_.NoteUser(control);
  if (form.kind() == FormKind::kChild && toolkit_.active_child() != &form) toolkit_.BringForward(form);
}

UserEvent::UserEvent(Toolkit& toolkit) : toolkit_(toolkit) {
  toolkit_.EnterEvent();
}

UserEvent::~UserEvent() {
  toolkit_.LeaveEvent();
}

}  // namespace zentaline::ui
