#include "ui/qt/gate.h"

#include <QApplication>
#include <QEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <QWindow>
#include <algorithm>
#include <utility>

namespace zentaline::ui::qt {

namespace {

// Who would take a key is no more than a question: it is answered at once, or a shortcut would be no shortcut later.
bool IsInput(const QEvent& event) {
  switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
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

QWidget* ChildUnder(const QWindow& window, const QEvent& event) {
  const QWidgetList tops = QApplication::topLevelWidgets();
  const auto top = std::find_if(tops.begin(), tops.end(), [&](QWidget* one) { return one->windowHandle() == &window; });
  if (top == tops.end() || !(*top)->isEnabled()) return nullptr;
  return (*top)->childAt(static_cast<const QSinglePointEvent&>(event).position().toPoint());
}

bool Hovers(const QEvent& event) {
  return event.type() == QEvent::MouseMove && static_cast<const QMouseEvent&>(event).buttons() == Qt::NoButton;
}

const FollowsHand* FollowerOf(const QWidget* widget, const QEvent& event) {
  const auto* follower = dynamic_cast<const FollowsHand*>(widget);
  return follower != nullptr && widget->isEnabled() && follower->Follows(event) ? follower : nullptr;
}

}  // namespace

Gate::~Gate() {
  for (const QPointer<QWidget>& window : dying_) delete window.data();
}

// What comes in while an event that was kept is carried out again is no part of that event.
Gate::HoldInput::HoldInput(Gate& gate)
    : hold_(gate), gate_(gate), replaying_before_(std::exchange(gate.replaying_, 0)) {
  ++gate_.inputs_;
  if (!std::exchange(gate_.watching_, true)) QCoreApplication::instance()->installEventFilter(&gate_);
}

Gate::HoldInput::~HoldInput() {
  gate_.replaying_ = replaying_before_;
  if (--gate_.inputs_ > 0) return;
  gate_.draining_ = !gate_.kept_.empty();
  if (!gate_.draining_) gate_.StopWatching();
}

void Gate::User(QObject* guard, std::function<void()> act) {
  if (showing()) return;
  if (Waits()) {
    kept_.push_back({guard, std::move(act)});
    DeliverSoon();
  } else {
    UserNow(act);
  }
}

bool Gate::KeepMove(QObject* bar, std::function<void()> act) {
  const bool goes_on = !kept_.empty() && kept_.back().bar == bar && !kept_.back().is_event;
  if (goes_on) kept_.pop_back();
  kept_.push_back({bar, std::move(act), bar});
  DeliverSoon();
  return !goes_on;
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

bool Gate::KeepsEvents() const {
  return std::any_of(kept_.begin(), kept_.end(), [](const Kept& kept) { return kept.is_event && !kept.hovers; });
}

void Gate::NoteButton(const QMouseEvent& event, QWidget* widget) {
  if (event.button() != Qt::LeftButton) return;
  held_by_button_ = event.type() == QEvent::MouseButtonRelease ? nullptr : widget;
}

QWidget* Gate::TargetOf(QObject* receiver, const QEvent& event) const {
  if (auto* widget = qobject_cast<QWidget*>(receiver)) return widget;
  auto* window = qobject_cast<QWindow*>(receiver);
  if (window == nullptr || QApplication::activePopupWidget() != nullptr) return nullptr;
  switch (event.type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
      return QApplication::focusWidget();
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
      return held_by_button_;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
      return ChildUnder(*window, event);
    default:
      return nullptr;
  }
}

bool Gate::GoesOn(QObject* receiver, const QEvent& event) {
  QWidget* const target = TargetOf(receiver, event);
  if (!KeepsEvents() && FollowerOf(target, event) != nullptr) {
    gone_on_ = target;
    return true;
  }
  // The release of a key that has moved a bar is offered to those around it.
  return event.type() == QEvent::KeyRelease && gone_on_ != nullptr && target != nullptr &&
         target->isAncestorOf(gone_on_);
}

const QObject* Gate::BarOfMove(QObject* receiver, const QEvent& event) {
  if (!KeepsEvents()) hand_known_ = false;
  const bool presses = event.type() == QEvent::MouseButtonPress || event.type() == QEvent::MouseButtonDblClick;
  const bool moves = event.type() == QEvent::MouseMove;
  if (moves && hand_known_) return hand_;
  if (!moves && !presses && event.type() != QEvent::MouseButtonRelease) return nullptr;
  QWidget* const target = TargetOf(receiver, event);
  QObject* const bar = FollowerOf(target, event) != nullptr ? target : nullptr;
  if (moves) return bar;
  hand_known_ = true;
  hand_ = presses ? bar : nullptr;
  return nullptr;
}

bool Gate::eventFilter(QObject* receiver, QEvent* event) {
  if (replaying_ > 0 || !KeepsInput() || !IsInput(*event) || GoesOn(receiver, *event)) return false;
  const std::shared_ptr<QEvent> cloned(event->clone());
  Kept kept{receiver,
            [this, receiver, cloned] {
              const int before = std::exchange(replaying_, 1);
              QCoreApplication::sendEvent(receiver, cloned.get());
              replaying_ = before;
            },
            BarOfMove(receiver, *event), true, Hovers(*event)};
  const bool goes_on = kept.bar != nullptr && !kept_.empty() && kept_.back().bar == kept.bar && kept_.back().is_event;
  if (goes_on) {
    kept_.back() = std::move(kept);
  } else {
    kept_.push_back(std::move(kept));
  }
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
