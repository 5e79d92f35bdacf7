#include "ui/qt/places.h"

#include <QCoreApplication>
#include <QCursor>
#include <QMouseEvent>
#include <algorithm>
#include <cmath>

namespace zentaline::ui::qt {

PlacesWidget::PlacesWidget(const Place& units, Size least, QWidget* parent, QWidget* around)
    : QWidget(parent), units_(units), around_(around) {
  setMinimumSize(least.width, least.height);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setMouseTracking(true);
}

void PlacesWidget::Put(QWidget* widget, const Place& place) {
  widget->setMinimumSize(1, 1);
  widget->raise();
  widget->installEventFilter(this);
  placed_.emplace_back(widget, place);
  PlaceAll();
}

void PlacesWidget::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  PlaceAll();
}

void PlacesWidget::leaveEvent(QEvent* event) {
  QWidget::leaveEvent(event);
  TellOfLeaving();
}

// While a button is down all moves come to the widget that it was pressed on; they belong to the one under the pointer.
bool PlacesWidget::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::MouseMove) return false;
  const auto& move = *static_cast<QMouseEvent*>(event);
  if (move.buttons() == Qt::NoButton) return false;
  const QPointF place = static_cast<QWidget*>(watched)->mapTo(this, move.position());
  QWidget* beneath = childAt(place.toPoint());
  if (beneath == watched) return false;
  if (beneath == nullptr) {
    TellOfLeaving();
    return true;
  }
  QMouseEvent there(QEvent::MouseMove, beneath->mapFrom(this, place), move.globalPosition(), move.button(),
                    move.buttons(), move.modifiers());
  QCoreApplication::sendEvent(beneath, &there);
  return true;
}

void PlacesWidget::TellOfLeaving() {
  QMouseEvent move(QEvent::MouseMove, QPointF(-1, -1), QCursor::pos(), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
  QCoreApplication::sendEvent(around_, &move);
}

// Edges that are one in units stay one in pixels.
void PlacesWidget::PlaceAll() {
  const auto scaled = [](int units, int pixels, int whole) {
    return static_cast<int>(std::lround(static_cast<double>(units) * pixels / std::max(whole, 1)));
  };
  for (const auto& [widget, place] : placed_) {
    const int left = scaled(place.left, width(), units_.width);
    const int top = scaled(place.top, height(), units_.height);
    widget->setGeometry(left, top, scaled(place.left + place.width, width(), units_.width) - left,
                        scaled(place.top + place.height, height(), units_.height) - top);
  }
}

}  // namespace zentaline::ui::qt
