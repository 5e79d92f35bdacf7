#include "ui/qt/windows.h"

#include <utility>

namespace zentaline::ui::qt {

FormWindow* Windows::Of(const Form& form) const {
  const auto found = windows_.find(&form);
  return found == windows_.end() ? nullptr : found->second;
}

QWidget* Windows::Front() const {
  const Form* top = toolkit_.modal();
  if (const FormWindow* window = top == nullptr ? nullptr : Of(*top)) return window->frame();
  return main_ == nullptr ? nullptr : main_->window();
}

void Windows::Show(Form& form, const Words& words) {
  const Gate::Showing showing(gate_);
  FormWindow* window = nullptr;
  switch (form.kind()) {
    case FormKind::kMain:
      window = main_ = new MainFormWindow(form, gate_, words);
      QObject::connect(main_->area(), &QMdiArea::subWindowActivated, main_,
                       [this](QMdiSubWindow* child) { OnChildActivated(child); });
      break;
    case FormKind::kChild:
      if (main_ == nullptr) return;
      window = new ChildFormWindow(form, gate_, words, main_->area(), toolkit_.active_child());
      break;
    case FormKind::kModal:
      window = new ModalFormWindow(form, gate_, Front());
      break;
  }
  windows_[&form] = window;
  if (!tells_places) window->KeepPlaces();
  if (form.kind() != FormKind::kChild) window->frame()->show();
  if (form.kind() == FormKind::kModal) window->ShowFocus();
  window->Report();
}

void Windows::Hide(Form& form) {
  const Gate::Showing showing(gate_);
  FormWindow* window = Of(form);
  if (window == nullptr) return;
  QWidget* frame = window->frame();
  window->Detach();
  windows_.erase(&form);
  if (window == main_) main_ = nullptr;
  if (form.kind() == FormKind::kChild && main_ != nullptr) main_->area()->removeSubWindow(frame);
  frame->hide();
  gate_.Destroy(frame);
}

void Windows::Raise(Form& form) {
  FormWindow* window = Of(form);
  if (window == nullptr || main_ == nullptr || form.kind() != FormKind::kChild) return;
  const Gate::Showing showing(gate_);
  // Where the user has put the focus himself it stays.
  const QWidget* focused = main_->window()->focusWidget();
  const bool inside = focused != nullptr && window->frame()->isAncestorOf(focused) &&
                      main_->area()->activeSubWindow() == window->frame();
  main_->area()->setActiveSubWindow(static_cast<QMdiSubWindow*>(window->frame()));
  if (!inside) window->ShowFocus();
}

void Windows::Drop() {
  const Gate::Showing showing(gate_);
  std::vector<QWidget*> frames;
  for (const auto& [form, window] : std::exchange(windows_, {})) {
    // Child windows die with the main window's area.
    if (form->kind() != FormKind::kChild) frames.push_back(window->frame());
    window->Detach();
  }
  // The main window is the parent of the others.
  if (main_ != nullptr) {
    std::erase(frames, main_->frame());
    frames.push_back(std::exchange(main_, nullptr)->frame());
  }
  for (QWidget* frame : frames) delete frame;
}

void Windows::OnChildActivated(QMdiSubWindow* child) {
  // None is active while another program is in front.
  if (child == nullptr || gate_.showing()) return;
  gate_.User(child, [this, child] {
    if (main_ == nullptr || main_->area()->activeSubWindow() != child) return;
    for (const auto& [form, window] : windows_) {
      if (window->frame() != child) continue;
      window->form()->UserActivate();
      return;
    }
  });
}

}  // namespace zentaline::ui::qt
