#include "ui/qt/gate.h"

#include <QCoreApplication>
#include <QEvent>
#include <utility>

namespace zentaline::ui::qt {

namespace {

bool IsInput(const QEvent& event) {
  switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::InputMethod:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
    case QEvent::TabletPress:
    case QEvent::TabletMove:
    case QEvent::TabletRelease:
    case QEvent::Close:
      return true;
    default:
      return false;
  }
}

}  // namespace

Gate::~Gate() {
  for (const QPointer<QWidget>& window : dying_) delete window.data();
}

Gate::HoldInput::HoldInput(Gate& gate) : hold_(gate), gate_(gate) {
  ++gate_.inputs_;
  if (!std::exchange(gate_.watching_, true)) QCoreApplication::instance()->installEventFilter(&gate_);
}

Gate::HoldInput::~HoldInput() {
  if (--gate_.inputs_ > 0) return;
  gate_.draining_ = !gate_.kept_.empty();
  if (!gate_.draining_) gate_.StopWatching();
}

void Gate::User(QObject* guard, std::function<void()> act) {
  if (showing()) return;
  // What follows from an action that is being delivered belongs to it, and doesn't wait behind the next.
  if (held() || (acting_ == 0 && !kept_.empty())) {
    kept_.push_back({guard, std::move(act)});
    DeliverSoon();
  } else {
    UserNow(act);
  }
}

void Gate::UserNow(const std::function<void()>& act) {
  ++acting_;
  act();
  if (--acting_ > 0) return;
  for (const QPointer<QWidget>& window : dying_) {
    if (window) window->deleteLater();
  }
}

void Gate::Destroy(QWidget* window) {
  std::erase_if(dying_, [](const QPointer<QWidget>& other) { return other.isNull(); });
  dying_.emplace_back(window);
  if (acting_ == 0) window->deleteLater();
}

bool Gate::eventFilter(QObject* receiver, QEvent* event) {
  if (replaying_ > 0 || !KeepsInput() || !IsInput(*event)) return false;
  const std::shared_ptr<QEvent> kept(event->clone());
  kept_.push_back({receiver, [this, receiver, kept] {
                     ++replaying_;
                     QCoreApplication::sendEvent(receiver, kept.get());
                     --replaying_;
                   }});
  // Taken, so that it isn't offered to the widgets behind; but a window that is to close stays for the time being.
  event->setAccepted(event->type() != QEvent::Close);
  DeliverSoon();
  return true;
}

void Gate::StopWatching() {
  if (std::exchange(watching_, false)) QCoreApplication::instance()->removeEventFilter(this);
}

void Gate::Release() {
  if (--holds_ > 0) return;
  DeliverSoon();
  if (on_release) on_release();
}

void Gate::DeliverSoon() {
  if (held() || kept_.empty()) return;
  QMetaObject::invokeMethod(
      this, [this] { Deliver(); }, Qt::QueuedConnection);
}

// One at a time, each in a turn of its own: what is delivered may open a window that waits for the next.
void Gate::Deliver() {
  if (held() || kept_.empty()) return;
  const Kept first = std::move(kept_.front());
  kept_.pop_front();
  DeliverSoon();
  if (kept_.empty() && inputs_ == 0) {
    draining_ = false;
    StopWatching();
  }
  if (first.guard) UserNow(first.act);
}

}  // namespace zentaline::ui::qt
