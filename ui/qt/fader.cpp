#include "ui/qt/fader.h"

#include <QMouseEvent>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <optional>

#include "ui/qt/convert.h"

namespace zentaline::ui::qt {

namespace {

constexpr int kLeastLength = 120;  // pixels: long enough to aim at a value; a page that is lower scrolls
constexpr int kThickness = 18;
constexpr int kHandle = 12;  // along the groove
constexpr int kGroove = 4;
constexpr int kFine = 8;           // with Shift the handle goes so much slower than the hand
constexpr int kRepeatAfter = 400;  // milliseconds, as long as a groove is held
constexpr int kRepeatEach = 60;

// Whether the widget stands on a page that has more to show than there is room for.
bool OnAPageThatScrolls(const QWidget& widget) {
  for (const QWidget* around = widget.parentWidget(); around != nullptr; around = around->parentWidget()) {
    const auto* page = qobject_cast<const QScrollArea*>(around);
    if (page != nullptr && page->verticalScrollBar()->maximum() > 0) return true;
  }
  return false;
}

bool MovesBar(const QKeyEvent& event) {
  const std::optional<Key> key = ToKey(event);
  return key && key->name >= Key::kUp;
}

QColor Mixed(const QColor& from, const QColor& to, int part_of_eight) {
  const auto mix = [part_of_eight](int a, int b) { return (a * (8 - part_of_eight) + b * part_of_eight) / 8; };
  return {mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue())};
}

}  // namespace

Fader::Fader(Qt::Orientation orientation, QWidget* parent) : QAbstractSlider(parent) {
  setOrientation(orientation);
  setFocusPolicy(Qt::StrongFocus);
  setContextMenuPolicy(Qt::PreventContextMenu);
  const bool upright = orientation == Qt::Vertical;
  setSizePolicy(upright ? QSizePolicy::Fixed : QSizePolicy::Expanding,
                upright ? QSizePolicy::Expanding : QSizePolicy::Fixed);
}

void Fader::SetNothing(int way) {
  nothing_ = way;
  update();
}

void Fader::SetMeaning(int first, int sign) {
  first_ = first;
  sign_ = sign;
}

void Fader::ShowTyped(const QString& typed) {
  typed_ = typed;
  update();
}

bool Fader::Follows(const QEvent& event) const {
  if (!follows) return false;
  switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
      return static_cast<const QMouseEvent&>(event).button() == Qt::LeftButton;
    case QEvent::MouseMove:
      return (static_cast<const QMouseEvent&>(event).buttons() & Qt::LeftButton) != 0;
    case QEvent::Wheel:
      return TurnsByWheel();
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
      return MovesBar(static_cast<const QKeyEvent&>(event));
    default:
      return false;
  }
}

QSize Fader::sizeHint() const {
  return Upright() ? QSize(kThickness, kLeastLength) : QSize(kLeastLength, kThickness);
}

QSize Fader::minimumSizeHint() const {
  return sizeHint();
}

// --- Places ---

int Fader::Along(const QPointF& place) const {
  return static_cast<int>(std::lround(Upright() ? place.y() : place.x()));
}

// How far the handle can go, in pixels.
int Fader::Travel() const {
  return std::max((Upright() ? height() : width()) - kHandle - 2, 1);
}

// Where the handle's middle is.
int Fader::PixelOf(int way) const {
  const int range = std::max(maximum() - minimum(), 1);
  return 1 + kHandle / 2 + static_cast<int>(std::lround(static_cast<double>(way - minimum()) * Travel() / range));
}

QRect Fader::Across(int from, int to, int thickness) const {
  const int start = std::min(from, to);
  const int length = std::abs(to - from);
  const int beside = ((Upright() ? width() : height()) - thickness) / 2;
  return Upright() ? QRect(beside, start, thickness, length) : QRect(start, beside, length, thickness);
}

QRect Fader::HandlePlace() const {
  const int middle = PixelOf(sliderPosition());
  return Across(middle - kHandle / 2, middle + kHandle / 2, std::min(kThickness, Upright() ? width() : height()) - 2);
}

// --- The look: the desktop's colours, and an outline that stands out from any ground ---

void Fader::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QPalette::ColorGroup group = isEnabled() ? QPalette::Active : QPalette::Disabled;
  const QColor ground = palette().color(group, QPalette::Window);
  const QColor text = palette().color(group, QPalette::WindowText);
  const QColor marked = palette().color(group, QPalette::Highlight);
  painter.setPen(Qt::NoPen);
  painter.setBrush(Mixed(ground, text, 3));
  const int length = Upright() ? height() : width();
  painter.drawRoundedRect(Across(1, length - 1, kGroove), 2, 2);
  if (isEnabled()) {
    painter.setBrush(marked);
    painter.drawRoundedRect(Across(PixelOf(nothing_), PixelOf(sliderPosition()), kGroove), 2, 2);
  }
  const QRectF handle = QRectF(HandlePlace()).adjusted(0.5, 0.5, -0.5, -0.5);
  painter.setPen(QPen(hasFocus() ? marked : Mixed(ground, text, 6), hasFocus() ? 2 : 1));
  painter.setBrush(palette().color(group, QPalette::Button));
  painter.drawRoundedRect(handle, 3, 3);
  painter.setPen(Mixed(ground, text, 6));
  const QPointF middle = handle.center();
  if (Upright()) {
    painter.drawLine(QPointF(handle.left() + 4, middle.y()), QPointF(handle.right() - 4, middle.y()));
  } else {
    painter.drawLine(QPointF(middle.x(), handle.top() + 4), QPointF(middle.x(), handle.bottom() - 4));
  }
  if (typed_.isEmpty()) return;
  painter.setPen(palette().color(QPalette::ToolTipText));
  painter.setBrush(palette().color(QPalette::ToolTipBase));
  QRect room = fontMetrics().boundingRect(typed_).adjusted(-4, -1, 4, 1);
  room.moveCenter(rect().center());
  painter.drawRect(room.intersected(rect().adjusted(0, 0, -1, -1)));
  painter.drawText(rect(), Qt::AlignCenter, typed_);
}

void Fader::sliderChange(SliderChange change) {
  QAbstractSlider::sliderChange(change);
  update();
}

void Fader::focusInEvent(QFocusEvent* event) {
  QAbstractSlider::focusInEvent(event);
  update();
}

void Fader::focusOutEvent(QFocusEvent* event) {
  QAbstractSlider::focusOutEvent(event);
  update();
}

// --- The hand ---

void Fader::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || maximum() == minimum()) return event->ignore();
  event->accept();
  if (HandlePlace().contains(event->position().toPoint())) {
    setSliderDown(true);
    last_ = Along(event->position());
    dragged_ = sliderPosition();
    return;
  }
  const SliderAction page =
      Along(event->position()) < PixelOf(sliderPosition()) ? SliderPageStepSub : SliderPageStepAdd;
  triggerAction(page);
  setRepeatAction(page, kRepeatAfter, kRepeatEach);
}

void Fader::mouseMoveEvent(QMouseEvent* event) {
  if (!isSliderDown()) {
    // The groove is held, and the hand has left: the handle doesn't run on.
    if (!rect().contains(event->position().toPoint())) setRepeatAction(SliderNoAction);
    return event->ignore();
  }
  const int now = Along(event->position());
  const double step = static_cast<double>(maximum() - minimum()) / Travel();
  const bool fine = (event->modifiers() & Qt::ShiftModifier) != 0;
  dragged_ += (now - last_) * step / (fine ? kFine : 1);
  last_ = now;
  setSliderPosition(static_cast<int>(std::lround(std::clamp<double>(dragged_, minimum(), maximum()))));
}

void Fader::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return event->ignore();
  setRepeatAction(SliderNoAction);
  setSliderDown(false);
}

void Fader::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && on_reset && HandlePlace().contains(event->position().toPoint())) {
    on_reset();
  } else {
    mousePressEvent(event);
  }
}

// To the left and up is the way back.
void Fader::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Up:
      return triggerAction(SliderSingleStepSub);
    case Qt::Key_Right:
    case Qt::Key_Down:
      return triggerAction(SliderSingleStepAdd);
    case Qt::Key_PageUp:
      return triggerAction(SliderPageStepSub);
    case Qt::Key_PageDown:
      return triggerAction(SliderPageStepAdd);
    case Qt::Key_Home:
      return triggerAction(SliderToMinimum);
    case Qt::Key_End:
      return triggerAction(SliderToMaximum);
    default:
      event->ignore();
  }
}

bool Fader::TurnsByWheel() const {
  return hasFocus() || !OnAPageThatScrolls(*this);
}

// A notch of the wheel is one step, as an arrow key is. Where the wheel has nothing to scroll the bar needs no focus.
void Fader::wheelEvent(QWheelEvent* event) {
  if (!TurnsByWheel()) return event->ignore();
  const QPoint turned = event->angleDelta();
  turned_ += std::abs(turned.y()) >= std::abs(turned.x()) ? turned.y() : turned.x();
  const int notches = turned_ / QWheelEvent::DefaultDeltasPerStep;
  turned_ -= notches * QWheelEvent::DefaultDeltasPerStep;
  setValue(value() - notches * singleStep());
  event->accept();
}

}  // namespace zentaline::ui::qt
