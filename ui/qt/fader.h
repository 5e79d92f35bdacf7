// A bar that is set by hand, as on a mixer: a groove, a handle in it, and what is typed until it is taken.
#pragma once

#include <QAbstractSlider>
#include <QString>
#include <functional>

#include "ui/qt/gate.h"

namespace zentaline::ui::qt {

// Counts the way from its left or top end.
class Fader : public QAbstractSlider, public FollowsHand {
 public:
  Fader(Qt::Orientation orientation, QWidget* parent);

  bool follows = true;
  std::function<void()> on_reset;  // a double click on the handle
  // The way at which the value is nothing: from there on the groove is filled.
  void SetNothing(int way);
  // The value at the start of the way, and 1 or -1 for which way it grows.
  void SetMeaning(int first, int sign);
  int MeantBy(int way) const { return first_ + sign_ * way; }
  int Meant() const { return MeantBy(value()); }
  // How the value is shown, to screen readers; without it as a number.
  std::function<QString(int value)> shown;
  QString Said() const { return shown ? shown(Meant()) : QString::number(Meant()); }
  // Digits that wait for Enter.
  void ShowTyped(const QString& typed);
  QRect HandlePlace() const;

  bool Follows(const QEvent& event) const override;
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void sliderChange(SliderChange change) override;

 private:
  bool Upright() const { return orientation() == Qt::Vertical; }
  bool TurnsByWheel() const;
  int Along(const QPointF& place) const;
  int Travel() const;
  int PixelOf(int way) const;
  QRect Across(int from, int to, int thickness) const;

  int first_ = 0;
  int sign_ = 1;
  int nothing_ = 0;
  QString typed_;
  int turned_ = 0;        // of a notch of the wheel, in eighths of a degree
  int last_ = 0;          // where the hand was, in pixels
  double dragged_ = 0.0;  // where it has the handle, which may lie beyond the ends
};

}  // namespace zentaline::ui::qt
