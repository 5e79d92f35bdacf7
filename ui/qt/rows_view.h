// A list of rows whose selection is the model's: keys and mouse ask for another one, and what the model makes of it is
// shown.
#pragma once

#include <QAbstractListModel>
#include <QListView>
#include <functional>
#include <vector>

#include "ui/controls.h"

namespace zentaline::ui::qt {

class RowsView : public QListView {
 public:
  RowsView(ListBox& box, QWidget* parent);

  // The user asks for these rows, the last one getting the focus.
  std::function<void(const std::vector<int>&)> on_select;
  std::function<void(int)> on_double_click;

  void ShowRows();
  void ShowSelection();
  // Keys that change the selection; true when the key was one.
  bool Key(const QKeyEvent& event);
  // The model is about to go: from now on the rows have no text and nothing is asked for.
  void Forget() { box_ = nullptr; }

  // The row at a place of the viewport, -1 for none.
  int RowAt(const QPoint& place) const;
  // Below the row that has the focus, on the screen.
  QPoint PlaceOfPopup() const;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  class Rows;
  class RowPainter;
  int WidestRow() const;
  int HeightOfRows(int rows) const;
  int PartOfHeight(int row) const;
  // A bank stands in columns, as on the instrument's panel, where there is room for all of them.
  void ShowColumns();
  bool InColumns() const { return isWrapping(); }
  int LeastRowHeight() const;
  int TargetOf(const QKeyEvent& event) const;
  void SelectRange(int from, int to);

  ListBox* box_;
  Rows* rows_;
  mutable bool measuring_ = false;  // rows by their text, not by their place in a column
  int anchor_ = 0;                  // where a range begins
  int dragged_to_ = -1;             // the row that the pressed mouse is on
};

}  // namespace zentaline::ui::qt
