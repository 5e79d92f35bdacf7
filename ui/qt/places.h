// Widgets at places of their own, which grow with the whole and which a hand can pass over with its button down, as
// over the keys of a piano.
#pragma once

#include <QWidget>
#include <utility>
#include <vector>

#include "ui/layout.h"

namespace zentaline::ui::qt {

class PlacesWidget : public QWidget {
 public:
  // `units` is the size of the whole, `least` its least size in pixels. `around` is told of a pointer that leaves them,
  // by a move outside of it.
  PlacesWidget(const Place& units, Size least, QWidget* parent, QWidget* around);
  // A child; it lies over those that were put before.
  void Put(QWidget* widget, const Place& place);

  QSize sizeHint() const override { return minimumSize(); }

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void leaveEvent(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void PlaceAll();
  void TellOfLeaving();

  Place units_;
  QWidget* around_;
  std::vector<std::pair<QWidget*, Place>> placed_;
};

}  // namespace zentaline::ui::qt
