#include "ui/form.h"

#include <utility>

#include "ui/toolkit.h"

namespace zentaline::ui {

Form::Form(Toolkit& toolkit, FormKind kind, std::string name, std::string number)
    : toolkit_(toolkit), kind_(kind), name_(std::move(name)), number_(std::move(number)) {}

Form::~Form() = default;

std::string Form::FullName() const {
  return number_.empty() ? name_ : name_ + "(" + number_ + ")";
}

bool Form::IsCalled(std::string_view full_name) const {
  if (!full_name.starts_with(name_)) return false;
  full_name.remove_prefix(name_.size());
  if (number_.empty()) return full_name.empty();
  return full_name.size() == number_.size() + 2 && full_name.front() == '(' && full_name.back() == ')' &&
         full_name.substr(1, number_.size()) == number_;
}

void Form::SetCaption(std::string caption) {
  if (caption == caption_) return;
  caption_ = std::move(caption);
  toolkit_.windows_changed_ = true;
  if (view != nullptr) view->ShowCaption();
}

void Form::SetModified(bool modified) {
  if (std::exchange(modified_, modified) != modified && view != nullptr) view->ShowCaption();
}

void Form::SetPlacement(const Placement& placement) {
  placement_ = placement;
  if (view != nullptr) view->ShowPlacement();
}

Control* Form::Find(const std::string& name, int index) const {
  for (Control* control : controls_) {
    if (control->index() == index && control->name() == name) return control;
  }
  return nullptr;
}

void Form::NoteContainers() {
  noted_ = layout.children.data();
  for (Control* control : controls_) {
    control->container_ = nullptr;
    control->room_ = 0;
  }
  int rooms = 0;
  const auto note = [&rooms](const auto& self, const Layout& part, const Control* around, int room, int page) -> void {
    if (part.control != nullptr) {
      part.control->container_ = around;
      part.control->room_ = room;
      part.control->page_ = page;
    }
    const Control* const inside = part.control != nullptr ? part.control : around;
    if (part.kind == Layout::Kind::kFrame) room = ++rooms;
    const bool pages = part.kind == Layout::Kind::kPages;
    int next = 0;
    for (const Layout& child : part.children) self(self, child, inside, pages ? ++rooms : room, pages ? next++ : page);
  };
  note(note, layout, nullptr, 0, 0);
  note(note, free_area, nullptr, 0, 0);
}

bool Form::Reachable() const {
  return open_ && (toolkit_.modal() == nullptr || toolkit_.modal() == this);
}

bool Form::Close() {
  if (!open_) return true;
  toolkit_.EnterEvent();
  const bool closes = QueryClose();
  if (closes) CloseWithoutAsking();
  toolkit_.LeaveEvent();
  return closes;
}

void Form::CloseWithoutAsking() {
  if (!open_) return;
  toolkit_.EnterEvent();
  toolkit_.TakeOut(*this);
  Unload();
  toolkit_.Closed(*this);
  toolkit_.LeaveEvent();
}

bool Form::UserClose() {
  if (!Reachable()) return false;
  const UserEvent event(*this);
  return Close();
}

void Form::UserActivate() {
  if (!Reachable() || kind_ != FormKind::kChild || toolkit_.active_child() == this) return;
  const UserEvent event(*this);
}

void Form::UserPlace(const Placement& placement, Size inner) {
  if (!open_ || (placement == placement_ && inner == inner_size_)) return;
  toolkit_.EnterEvent();
  placement_ = placement;
  inner_size_ = inner;
  Resized();
  toolkit_.LeaveEvent();
}

bool Form::UserMouse(const MouseEvent& event) {
  if (!Reachable()) return false;
  if (event.what == MouseEvent::kMove) {
    const UserEvent scope(toolkit_);
    if (on_mouse) on_mouse(event);
    return true;
  }
  const UserEvent scope(*this);
  if (on_mouse) on_mouse(event);
  return true;
}

bool Form::UserContext() {
  if (!Reachable()) return false;
  const UserEvent event(*this);
  if (on_context) on_context();
  return true;
}

}  // namespace zentaline::ui
