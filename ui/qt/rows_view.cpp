#include "ui/qt/rows_view.h"

#include <QItemSelectionModel>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <algorithm>

#include "base/scoped_value.h"
#include "ui/qt/convert.h"

namespace zentaline::ui::qt {

namespace {

constexpr int kShownRows = 24;  // of a long list in a new window
constexpr int kLeastRows = 4;   // of a list in a small window
constexpr int kWidestRow = 72;  // characters; a longer one is scrolled to
constexpr int kRowsOfAPage = 10;
constexpr int kBankRows = 64;  // these stand in columns of eight where there is room
constexpr int kColumnRows = 8;
constexpr int kBankColumns = kBankRows / kColumnRows;
constexpr int kLeastColumn = 20;  // characters, of a number, a mark and a name
constexpr int kColumnGap = 2;     // pixels from the line between two columns to the row
constexpr int kRowRoom = 2;       // pixels between two rows
constexpr int kRoomyRow = 6;      // the same where other controls stand beside the rows
constexpr int kGroupGap = 7;      // pixels between two groups, with a line in their middle

// A line that is seen on a light desktop and on a dark one, and louder on neither.
QColor Between(const QColor& back, const QColor& text) {
  const auto mix = [](int from, int to) { return (3 * from + to) / 4; };
  return {mix(back.red(), text.red()), mix(back.green(), text.green()), mix(back.blue(), text.blue())};
}

}  // namespace

class RowsView::Rows : public QAbstractListModel {
 public:
  Rows(RowsView& view) : QAbstractListModel(&view), view_(view) {}

  int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : count_; }
  QVariant data(const QModelIndex& index, int role) const override {
    if (view_.box_ == nullptr || role != Qt::DisplayRole) return {};
    return ToQt(view_.box_->RowText(index.row()));
  }
  // True when the list is another one, false when only texts have changed.
  bool Take() {
    if (view_.box_->rows() == count_ && count_ > 0) {
      emit dataChanged(index(0), index(count_ - 1));
      return false;
    }
    beginResetModel();
    count_ = view_.box_->rows();
    endResetModel();
    return true;
  }

 private:
  RowsView& view_;
  int count_ = 0;
};

class RowsView::RowPainter : public QStyledItemDelegate {
 public:
  RowPainter(RowsView& view) : QStyledItemDelegate(&view), view_(view) {}

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    // A row in columns is the whole of its place: it is marked as such, and a click beside its text is on it.
    if (view_.InColumns() && !view_.measuring_) return view_.gridSize();
    QSize size = QStyledItemDelegate::sizeHint(option, index);
    if (view_.box_ != nullptr && view_.box_->fills_height) {
      size.setHeight(view_.PartOfHeight(index.row()));
      return size;
    }
    size.rheight() += kRowRoom;
    if (BeginsGroup(index)) size.rheight() += kGroupGap;
    return size;
  }
  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    QStyleOptionViewItem row = option;
    const QColor line = Between(row.palette.color(QPalette::Base), row.palette.color(QPalette::Text));
    if (view_.InColumns() && index.row() >= kColumnRows) {
      painter->setPen(line);
      painter->drawLine(row.rect.topLeft(), row.rect.bottomLeft());
      row.rect.setLeft(row.rect.left() + kColumnGap);
    }
    if (BeginsGroup(index)) {
      const int middle = row.rect.top() + kGroupGap / 2;
      painter->setPen(line);
      painter->drawLine(row.rect.left() + 2, middle, row.rect.right() - 2, middle);
      row.rect.setTop(row.rect.top() + kGroupGap);
    }
    QStyledItemDelegate::paint(painter, row, index);
  }

 private:
  bool BeginsGroup(const QModelIndex& index) const {
    return view_.box_ != nullptr && !view_.InColumns() && view_.box_->group_rows > 0 && index.row() > 0 &&
           index.row() % view_.box_->group_rows == 0;
  }
  RowsView& view_;
};

RowsView::RowsView(ListBox& box, QWidget* parent) : QListView(parent), box_(&box), rows_(new Rows(*this)) {
  setModel(rows_);
  setItemDelegate(new RowPainter(*this));
  setUniformItemSizes(box.group_rows == 0 && !box.fills_height);
  if (box.fills_height) {
    setResizeMode(Adjust);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  }
  setEditTriggers(NoEditTriggers);
  setSelectionMode(box.multi_select ? ExtendedSelection : SingleSelection);
  setHorizontalScrollMode(ScrollPerPixel);
  setTextElideMode(Qt::ElideNone);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void RowsView::ShowRows() {
  const int scrolled = verticalScrollBar()->value();
  if (rows_->Take()) {
    verticalScrollBar()->setValue(scrolled);
    // Other texts of the same rows are as wide.
    ShowColumns();
  }
  updateGeometry();
  ShowSelection();
}

void RowsView::ShowSelection() {
  QItemSelection selection;
  const std::vector<int> rows = box_->SelectedRows();
  for (std::size_t first = 0; first < rows.size();) {
    std::size_t last = first;
    while (last + 1 < rows.size() && rows[last + 1] == rows[last] + 1) ++last;
    selection.append({rows_->index(rows[first]), rows_->index(rows[last])});
    first = last + 1;
  }
  selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
  const QModelIndex focus = rows_->index(box_->focus_row());
  if (focus == currentIndex()) return;
  selectionModel()->setCurrentIndex(focus, QItemSelectionModel::NoUpdate);
  if (focus.isValid()) scrollTo(focus);
}

QPoint RowsView::PlaceOfPopup() const {
  const QRect row = visualRect(currentIndex());
  const QPoint place = row.isValid() ? row.bottomLeft() + QPoint(row.height(), 0) : QPoint();
  const QRect room = viewport()->rect();
  return viewport()->mapToGlobal(room.contains(place) ? place : room.center());
}

int RowsView::RowAt(const QPoint& place) const {
  return indexAt(place).row();
}

void RowsView::ShowColumns() {
  const bool bank = box_ != nullptr && !box_->fills_height && model()->rowCount() == kBankRows;
  if (!bank && !InColumns()) return;
  // Without the bars of a list that scrolls there is more room.
  const QSize room = maximumViewportSize();
  const int row = fontMetrics().height() + kRowRoom;
  const int column = std::max(WidestRow(), fontMetrics().averageCharWidth() * kLeastColumn);
  const bool fits = bank && room.width() >= kBankColumns * column && room.height() > kColumnRows * row;
  if (fits != InColumns()) {
    // First the bars, for which the rows would else leave room.
    setVerticalScrollBarPolicy(fits ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded);
    setHorizontalScrollBarPolicy(fits ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded);
    setWrapping(fits);
    setUniformItemSizes(fits || (box_->group_rows == 0 && !box_->fills_height));
  }
  // A row that ends with the room's last pixel would begin the next column.
  const QSize grid = fits ? QSize(room.width() / kBankColumns, (room.height() - 1) / kColumnRows) : QSize();
  if (grid == gridSize() && !fits) return;
  setGridSize(grid);
  scheduleDelayedItemsLayout();
  if (currentIndex().isValid()) scrollTo(currentIndex());
}

void RowsView::resizeEvent(QResizeEvent* event) {
  QListView::resizeEvent(event);
  ShowColumns();
}

// From the top of the row to that of the next, so that all rows together are as high as the list.
int RowsView::PartOfHeight(int row) const {
  const int rows = std::max(model()->rowCount(), 1);
  const int height = std::max(viewport()->height(), rows * LeastRowHeight());
  return (row + 1) * height / rows - row * height / rows;
}

int RowsView::LeastRowHeight() const {
  return fontMetrics().height() + kRoomyRow;
}

// By its text, also where the rows stand in columns.
int RowsView::WidestRow() const {
  const ScopedValue measuring(measuring_, true);
  return sizeHintForColumn(0);
}

int RowsView::HeightOfRows(int rows) const {
  if (rows <= 0) return 0;
  if (box_ != nullptr && box_->fills_height) return rows * LeastRowHeight();
  const ScopedValue measuring(measuring_, true);
  const int row = model()->rowCount() > 0 ? std::max(sizeHintForRow(0), 1) : fontMetrics().height() + kRowRoom;
  const int gaps = box_ != nullptr && box_->group_rows > 0 ? (rows - 1) / box_->group_rows : 0;
  return rows * row + gaps * kGroupGap;
}

QSize RowsView::sizeHint() const {
  const int widest = fontMetrics().averageCharWidth() * kWidestRow;
  const int rows = std::min(std::max(model()->rowCount(), kLeastRows), kShownRows);
  const int width = std::min(std::max(WidestRow(), fontMetrics().averageCharWidth() * 12), widest);
  return {width + 2 * frameWidth() + verticalScrollBar()->sizeHint().width() + 4,
          HeightOfRows(rows) + 2 * frameWidth() + 2};
}

QSize RowsView::minimumSizeHint() const {
  const bool all = box_ != nullptr && box_->fills_height;
  return {sizeHint().width(), HeightOfRows(all ? model()->rowCount() : kLeastRows) + 2 * frameWidth() + 2};
}

void RowsView::SelectRange(int from, int to) {
  std::vector<int> rows;
  for (int row = from; row != to; row += from < to ? 1 : -1) rows.push_back(row);
  rows.push_back(to);
  on_select(rows);
}

void RowsView::mousePressEvent(QMouseEvent* event) {
  if (box_ == nullptr || event->button() != Qt::LeftButton) return;
  const int row = RowAt(event->position().toPoint());
  if (row < 0) return;
  dragged_to_ = row;
  if (box_->multi_select && (event->modifiers() & Qt::ShiftModifier) != 0) {
    SelectRange(std::clamp(anchor_, 0, box_->rows() - 1), row);
    return;
  }
  anchor_ = row;
  if (!box_->multi_select || (event->modifiers() & Qt::ControlModifier) == 0) {
    on_select({row});
    return;
  }
  std::vector<int> rows = box_->SelectedRows();
  if (std::erase(rows, row) == 0) rows.push_back(row);
  on_select(rows);
}

void RowsView::mouseMoveEvent(QMouseEvent* event) {
  if (box_ == nullptr || dragged_to_ < 0 || (event->buttons() & Qt::LeftButton) == 0) return;
  const QPoint place(InColumns() ? std::clamp(event->position().toPoint().x(), 0, std::max(viewport()->width() - 1, 0))
                                 : viewport()->width() / 4,
                     std::clamp(event->position().toPoint().y(), 0, std::max(viewport()->height() - 1, 0)));
  const int row = RowAt(place);
  if (row < 0 || row == dragged_to_) return;
  dragged_to_ = row;
  if (box_->multi_select) {
    SelectRange(std::clamp(anchor_, 0, box_->rows() - 1), row);
  } else {
    on_select({row});
  }
}

void RowsView::mouseReleaseEvent(QMouseEvent*) {
  dragged_to_ = -1;
}

void RowsView::mouseDoubleClickEvent(QMouseEvent* event) {
  if (box_ == nullptr || event->button() != Qt::LeftButton) return;
  const int row = RowAt(event->position().toPoint());
  if (row < 0) return;
  // The first click has selected the row, unless it led elsewhere.
  if (box_->Row() == row) {
    on_double_click(row);
  } else {
    mousePressEvent(event);
  }
}

int RowsView::TargetOf(const QKeyEvent& event) const {
  const int row = box_->focus_row();
  const int last = box_->rows() - 1;
  switch (event.key()) {
    case Qt::Key_Up:
      return std::max(row - 1, 0);
    case Qt::Key_Down:
      return std::min(row + 1, last);
    case Qt::Key_Left:
      return !InColumns() ? -1 : row >= kColumnRows ? row - kColumnRows : row;
    case Qt::Key_Right:
      return !InColumns() ? -1 : row + kColumnRows <= last ? row + kColumnRows : row;
    case Qt::Key_PageUp:
      return std::max(row - kRowsOfAPage, 0);
    case Qt::Key_PageDown:
      return std::min(row + kRowsOfAPage, last);
    case Qt::Key_Home:
      return 0;
    case Qt::Key_End:
      return last;
    default:
      return -1;
  }
}

bool RowsView::Key(const QKeyEvent& event) {
  if (box_ == nullptr || box_->rows() == 0) return false;
  const int row = TargetOf(event);
  if (row < 0) return false;
  if (box_->multi_select && (event.modifiers() & Qt::ShiftModifier) != 0) {
    SelectRange(std::clamp(anchor_, 0, box_->rows() - 1), row);
  } else if (row != box_->focus_row()) {
    anchor_ = row;
    on_select({row});
  }
  return true;
}

// What letters look for is the model's to say.
void RowsView::keyPressEvent(QKeyEvent* event) {
  if (box_ != nullptr && box_->multi_select && event->matches(QKeySequence::SelectAll)) {
    if (box_->rows() > 0) SelectRange(0, box_->rows() - 1);
  } else {
    event->ignore();
  }
}

// The focus is seen also where no row has it yet.
void RowsView::paintEvent(QPaintEvent* event) {
  QListView::paintEvent(event);
  if (!hasFocus()) return;
  QPainter painter(viewport());
  painter.setPen(palette().color(QPalette::Highlight));
  painter.drawRect(viewport()->rect().adjusted(0, 0, -1, -1));
}

void RowsView::changeEvent(QEvent* event) {
  QListView::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) updateGeometry();
}

}  // namespace zentaline::ui::qt
