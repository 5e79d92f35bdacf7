// Scroll bars and combo boxes.
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QCompleter>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyleOptionComboBox>
#include <QStyleOptionFocusRect>
#include <QStylePainter>
#include <QWheelEvent>
#include <algorithm>
#include <cstdlib>
#include <optional>

#include "ui/qt/convert.h"
#include "ui/qt/simple_views.h"
#include "ui/qt/text_views.h"

namespace zentaline::ui::qt {

namespace {

constexpr int kLeastBarLength = 120;  // pixels: long enough to aim at a value
constexpr int kLeastBarHeight = 104;  // a window has less room to give in its height

// Whether the widget stands on a page that has more to show than there is room for.
bool OnAPageThatScrolls(const QWidget& widget) {
  for (const QWidget* around = widget.parentWidget(); around != nullptr; around = around->parentWidget()) {
    const auto* page = qobject_cast<const QScrollArea*>(around);
    if (page != nullptr && page->verticalScrollBar()->maximum() > 0) return true;
  }
  return false;
}

class Bar : public QScrollBar, public FollowsHand {
 public:
  using QScrollBar::QScrollBar;
  bool follows = true;

  bool Follows(const QEvent& event) const override {
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

 protected:
  // A notch of the wheel is one step, as an arrow key is. Where the wheel has nothing to scroll the bar needs no focus.
  void wheelEvent(QWheelEvent* event) override {
    if (!TurnsByWheel()) {
      event->ignore();
      return;
    }
    const QPoint turned = event->angleDelta();
    turned_ += std::abs(turned.y()) >= std::abs(turned.x()) ? turned.y() : turned.x();
    const int notches = turned_ / QWheelEvent::DefaultDeltasPerStep;
    turned_ -= notches * QWheelEvent::DefaultDeltasPerStep;
    setValue(value() - notches * singleStep());
    event->accept();
  }
  void paintEvent(QPaintEvent* event) override {
    QScrollBar::paintEvent(event);
    if (!hasFocus()) return;
    QStylePainter painter(this);
    painter.setPen(palette().color(QPalette::Highlight));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
  }

 private:
  bool TurnsByWheel() const { return hasFocus() || !OnAPageThatScrolls(*this); }
  static bool MovesBar(const QKeyEvent& event) {
    const std::optional<Key> key = ToKey(event);
    return key && key->name >= Key::kUp;
  }
  int turned_ = 0;  // of a notch, in eighths of a degree
};

class ScrollBarView : public View {
 public:
  ScrollBarView(ScrollBar& bar, Gate& gate, QWidget* parent)
      : View(bar, gate, new Bar(parent)), bar_(bar), widget_(static_cast<QScrollBar*>(View::widget())) {
    widget_->setOrientation(bar.vertical ? Qt::Vertical : Qt::Horizontal);
    widget_->setFocusPolicy(Qt::StrongFocus);
    widget_->setContextMenuPolicy(Qt::PreventContextMenu);
    if (bar.vertical) {
      widget_->setMinimumHeight(kLeastBarHeight);
    } else {
      widget_->setMinimumWidth(kLeastBarLength);
    }
    // What is told of each event by itself can't be told of moves alone.
    static_cast<Bar*>(widget_)->follows = !bar.on_mouse && !bar.on_key;
    connect(widget_, &QScrollBar::valueChanged, this, [this](int way) { Moved(bar_.min() + Sign() * way); });
  }

 protected:
  // The widget counts the way from its start, since the greater value may stand at either end.
  int Sign() const { return bar_.max() >= bar_.min() ? 1 : -1; }
  void Refresh(Change change) override {
    if (change == Change::kRange) {
      widget_->setRange(0, std::abs(bar_.max() - bar_.min()));
      widget_->setSingleStep(bar_.step());
      widget_->setPageStep(bar_.page());
    }
    // Where the hand has it already, the program will come too.
    if (waiting_ > 0) return;
    if (change == Change::kRange || change == Change::kValue) widget_->setValue(Sign() * (bar_.value() - bar_.min()));
  }
  bool KeyDoes(const Key& key, const QKeyEvent&) override {
    if (key.name < Key::kUp || key.name > Key::kEnd) return false;
    bar_.DefaultKey(key);
    return true;
  }
  bool KeyMoves(const Key& key) override {
    const int way = widget_->value();
    switch (key.name) {
      case Key::kUp:
        widget_->setValue(way - bar_.step());
        return true;
      case Key::kDown:
        widget_->setValue(way + bar_.step());
        return true;
      case Key::kPageUp:
        widget_->setValue(way - bar_.page());
        return true;
      case Key::kPageDown:
        widget_->setValue(way + bar_.page());
        return true;
      case Key::kHome:
        widget_->setValue(widget_->minimum());
        return true;
      case Key::kEnd:
        widget_->setValue(widget_->maximum());
        return true;
      default:
        return false;
    }
  }

 private:
  void Moved(int value) {
    if (control() == nullptr || gate().showing()) return;
    const auto set = [this, value] { bar_.UserSet(value); };
    if (!gate().Waits()) {
      User(set);
      return;
    }
    const auto delivered = [this, set] {
      if (--waiting_ == 0) ShowByLabel(std::nullopt);
      Reported(set)();
    };
    if (gate().KeepMove(this, delivered)) ++waiting_;
    ShowByLabel(value);
  }
  void ShowByLabel(std::optional<int> value) {
    if (control() == nullptr || bar_.value_label == nullptr || bar_.value_label->view == nullptr || !bar_.shown) return;
    auto* label = static_cast<View*>(bar_.value_label->view);
    label->ShowForNow(value ? std::optional(bar_.shown(*value)) : std::nullopt);
  }

  ScrollBar& bar_;
  QScrollBar* widget_;
  int waiting_ = 0;  // moves that the program has not been told of yet
};

// Shows the model's text, also when it is none of the rows.
class Combo : public QComboBox {
 public:
  using QComboBox::QComboBox;
  QString shown;

 protected:
  // Turning the wheel over a page scrolls the page; it changes the row only where the focus is.
  void wheelEvent(QWheelEvent* event) override {
    if (hasFocus()) {
      QComboBox::wheelEvent(event);
    } else {
      event->ignore();
    }
  }
  void paintEvent(QPaintEvent* event) override {
    if (isEditable()) {
      QComboBox::paintEvent(event);
      return;
    }
    QStylePainter painter(this);
    painter.setPen(palette().color(QPalette::Text));
    QStyleOptionComboBox option;
    initStyleOption(&option);
    option.currentText = shown;
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
  }
};

class ComboBoxView : public View {
 public:
  ComboBoxView(ComboBox& box, Gate& gate, QWidget* parent)
      : View(box, gate, new Combo(parent)), box_(box), widget_(static_cast<Combo*>(View::widget())) {
    if (box.editable) GiveLine();
    widget_->setInsertPolicy(QComboBox::NoInsert);
    widget_->setMaxVisibleItems(24);
    widget_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    widget_->view()->setTextElideMode(Qt::ElideNone);
    widget_->setMinimumContentsLength(6);
    connect(widget_, &QComboBox::activated, this, [this](int row) { User([this, row] { box_.UserSelect(row); }); });
    if (QLineEdit* line = widget_->lineEdit()) {
      Watch(line);
      connect(line, &QLineEdit::textEdited, this,
              [this](const QString& text) { User([this, text] { box_.UserType(FromQt(text)); }); });
    }
  }

 protected:
  void Refresh(Change change) override {
    if (change == Change::kRows) {
      widget_->clear();
      QStringList rows;
      for (int row = 0; row < box_.rows(); ++row) rows.append(ToQt(box_.RowText(row)));
      widget_->addItems(rows);
    }
    if (change != Change::kRows && change != Change::kRow) return;
    widget_->shown = ToQt(box_.text());
    widget_->setCurrentIndex(box_.row());
    if (widget_->isEditable() && widget_->lineEdit()->text() != widget_->shown) {
      widget_->lineEdit()->setText(widget_->shown);
    }
    widget_->setAccessibleDescription(widget_->shown);
    widget_->update();
  }
  bool KeyDoes(const Key& key, const QKeyEvent&) override {
    const bool in_text = box_.editable && (key.name == Key::kHome || key.name == Key::kEnd);
    if (key.name < Key::kUp || key.name > Key::kEnd || in_text) return false;
    box_.DefaultKey(key);
    return true;
  }

 private:
  // A line that has a completer isn't given another one, whose making would take longer than that of the box. Nothing
  // is completed while typing: what a text stands for is the model's to say.
  void GiveLine() {
    static constexpr char kName[] = "no_completer";
    auto* none = qApp->findChild<QCompleter*>(QLatin1String(kName), Qt::FindDirectChildrenOnly);
    if (none == nullptr) {
      none = new QCompleter(qApp);
      none->setObjectName(QLatin1String(kName));
    }
    auto* line = new QLineEdit(widget_);
    line->setCompleter(none);
    widget_->setLineEdit(line);
    line->setCompleter(nullptr);
  }

  ComboBox& box_;
  Combo* widget_;
};

}  // namespace

View* MakeScrollBar(ScrollBar& bar, Gate& gate, QWidget* parent) {
  return new ScrollBarView(bar, gate, parent);
}

View* MakeComboBox(ComboBox& box, Gate& gate, QWidget* parent) {
  return new ComboBoxView(box, gate, parent);
}

}  // namespace zentaline::ui::qt
