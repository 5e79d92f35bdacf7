#include "ui/toolkit.h"

#include <algorithm>
#include <utility>

namespace zentaline::ui {

Toolkit::~Toolkit() {
  DropForms();
}

Form& Toolkit::Open(std::unique_ptr<Form> form) {
  EnterEvent();
  Form& opened = *form;
  forms_.push_back(std::move(form));
  opened.open_ = true;
  if (opened.kind() == FormKind::kModal) modals_.push_back(&opened);
  opened.Load();
  ShowForm(opened);
  if (opened.kind() == FormKind::kChild) BringForward(opened);
  LeaveEvent();
  return opened;
}

Form& Toolkit::OpenModal(std::unique_ptr<Form> form) {
  Form& opened = Open(std::move(form));
  RunModal(opened);
  return opened;
}

void Toolkit::Activate(Form& form) {
  Placement place = form.placement();
  if (form.kind() == FormKind::kChild && form.open() && place.state == WindowState::kMinimised) {
    place.state = WindowState::kNormal;
    form.SetPlacement(place);
  }
  BringForward(form);
}

void Toolkit::BringForward(Form& form) {
  if (form.kind() != FormKind::kChild || !form.open() || active_child() == &form) return;
  if (const Form* before = active_child(); before != nullptr && before->focus() != nullptr)
    before->focus()->FocusLeft();
  std::erase(activation_order_, &form);
  activation_order_.push_back(&form);
  windows_changed_ = true;
  RaiseForm(form);
  form.Activated();
}

std::vector<Form*> Toolkit::forms() const {
  std::vector<Form*> open;
  open.reserve(forms_.size());
  for (const auto& form : forms_) open.push_back(form.get());
  return open;
}

Form* Toolkit::FindForm(const std::string& full_name) const {
  const auto found =
      std::find_if(forms_.begin(), forms_.end(), [&](const auto& form) { return form->IsCalled(full_name); });
  return found == forms_.end() ? nullptr : found->get();
}

bool Toolkit::FireDueTimer() {
  Timer* timer = timers_.TakeDue(Now());
  if (timer == nullptr) return false;
  RunTimer(*timer);
  return true;
}

void Toolkit::RunTimer(const Timer& timer) {
  // A modal window's loop runs timers inside of an event.
  const Cause around = cause_;
  ++event_depth_;
  cause_ = timer.cause_ != kNoCause ? timer.cause_ : ++last_cause_;
  if (timer.on_timer) timer.on_timer();
  cause_ = around;
  LeaveEvent();
}

void Toolkit::NoteMove(const Control& control) {
  if (cause_ != kNoCause) return;
  const bool same = move_.control == &control;
  if (move_.held && !same) return;
  const std::int64_t now = Now();
  const bool goes_on = same && move_.cause != kNoCause && (move_.held || now - move_.time <= kLongestPauseInMove);
  cause_ = goes_on ? move_.cause : ++last_cause_;
  move_ = {&control, now, cause_, same && move_.held};
}

void Toolkit::HandTakes(const Control& control) {
  ++takings_;
  move_ = {&control, Now(), kNoCause, true};
}

void Toolkit::DropForms() {
  on_settled = nullptr;
  timers_.StopAll();
  activation_order_.clear();
  modals_.clear();
  closed_.clear();
  while (!forms_.empty()) forms_.pop_back();
}

void Toolkit::LeaveEvent() {
  if (--event_depth_ > 0) return;
  cause_ = kNoCause;
  if (on_event_end) on_event_end();
  if (!closed_.empty()) const auto dying = std::exchange(closed_, {});
  if (on_settled) on_settled();
}

void Toolkit::TakeOut(Form& form) {
  form.open_ = false;
  windows_changed_ = true;
  std::erase(activation_order_, &form);
  for (Control* control : form.controls()) {
    if (control == move_.control) move_ = {};
    if (control->kind() == ControlKind::kTimer) static_cast<Timer*>(control)->Stop();
  }
}

void Toolkit::Closed(Form& form) {
  HideForm(form);
  const auto place =
      std::find_if(forms_.begin(), forms_.end(), [&form](const auto& open) { return open.get() == &form; });
  std::erase(modals_, &form);
  closed_.push_back(std::move(*place));
  forms_.erase(place);
  if (form.kind() == FormKind::kMain) {
    MainClosed();
  } else if (Form* front = active_child(); form.kind() == FormKind::kChild && front != nullptr) {
    RaiseForm(*front);
    front->Activated();
  }
}

}  // namespace zentaline::ui
