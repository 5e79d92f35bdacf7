// Bars and combo boxes.
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QCompleter>
#include <QKeyEvent>
#include <QLineEdit>
#include <QStyleOptionComboBox>
#include <QStyleOptionFocusRect>
#include <QStylePainter>
#include <QWheelEvent>
#include <algorithm>
#include <cstdlib>
#include <optional>

#include "ui/qt/convert.h"
#include "ui/qt/fader.h"
#include "ui/qt/simple_views.h"
#include "ui/qt/text_views.h"

namespace zentaline::ui::qt {

namespace {

class ScrollBarView : public View {
 public:
  ScrollBarView(ScrollBar& bar, Gate& gate, QWidget* parent)
      : View(bar, gate, new Fader(bar.vertical ? Qt::Vertical : Qt::Horizontal, parent)),
        bar_(bar),
        widget_(static_cast<Fader*>(View::widget())) {
    // What is told of each event by itself can't be told of moves alone.
    widget_->follows = !bar.on_mouse && !bar.on_key;
    if (bar.shown)
      widget_->shown = [this](int value) { return control() == nullptr ? QString() : ToQt(bar_.shown(value)); };
    if (bar.kept_value) widget_->on_reset = [this] { User([this] { bar_.UserReset(); }); };
    connect(widget_, &Fader::valueChanged, this, [this](int way) { Moved(bar_.min() + Sign() * way); });
  }

 protected:
  // The widget counts the way from its start, since the greater value may stand at either end.
  int Sign() const { return bar_.max() >= bar_.min() ? 1 : -1; }
  int WayOf(int value) const { return Sign() * (value - bar_.min()); }
  void Refresh(Change change) override {
    if (change == Change::kRange) {
      widget_->SetMeaning(bar_.min(), Sign());
      widget_->setRange(0, std::abs(bar_.max() - bar_.min()));
      widget_->setSingleStep(bar_.step());
      widget_->setPageStep(bar_.page());
      widget_->SetNothing(WayOf(std::clamp(0, std::min(bar_.min(), bar_.max()), std::max(bar_.min(), bar_.max()))));
    }
    if (change == Change::kTyped) widget_->ShowTyped(ToQt(bar_.typed()));
    // Where the hand has it already, the program will come too.
    if (waiting_ > 0) return;
    if (change == Change::kRange || change == Change::kValue) widget_->setValue(WayOf(bar_.value()));
  }
  bool KeyDoes(const Key& key, const QKeyEvent&) override {
    const bool types = key.name == Key::kCharacter;
    const bool takes = (key.name == Key::kEnter || key.name == Key::kEscape) && !bar_.typed().empty();
    if (!types && !takes && (key.name < Key::kUp || key.name > Key::kEnd)) return false;
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
  Fader* widget_;
  int waiting_ = 0;  // moves that the program has not been told of yet
};

// Shows the model's text, also when it is none of the rows.
class Combo : public QComboBox {
 public:
  Combo(TextSizes& sizes, QWidget* parent) : QComboBox(parent), sizes_(sizes) {}
  QString shown;

  // As wide as the widest row. The toolkit's own way makes the view of the rows for it, which takes longer than all
  // the rest of the box; here it is made when it is wanted first.
  QSize sizeHint() const override {
    if (!hint_.isValid()) {
      int width = minimumContentsLength() * fontMetrics().horizontalAdvance(QLatin1Char('X'));
      for (int row = 0; row < count(); ++row) width = std::max(width, sizes_.WidthOf(*this, itemText(row)));
      QStyleOptionComboBox option;
      initStyleOption(&option);
      const QSize least = style()->sizeFromContents(QStyle::CT_ComboBox, &option, {width, 0}, this);
      hint_ = {least.width(), minimumSizeHint().height()};
    }
    return hint_;
  }
  void SetRows(const QStringList& rows) {
    if (count() > 0) clear();
    addItems(rows);
    hint_ = {};
    updateGeometry();
  }
  void showPopup() override {
    view()->setTextElideMode(Qt::ElideNone);
    QComboBox::showPopup();
  }

 protected:
  void changeEvent(QEvent* event) override {
    hint_ = {};
    QComboBox::changeEvent(event);
  }
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

 private:
  TextSizes& sizes_;
  mutable QSize hint_;
};

// What was typed into a list is taken back in it; what was chosen from it, by the program.
class ListLine : public QLineEdit {
 public:
  using QLineEdit::QLineEdit;

 protected:
  bool event(QEvent* event) override {
    if (event->type() == QEvent::ShortcutOverride) {
      const auto& key = *static_cast<QKeyEvent*>(event);
      const bool nothing = (key.matches(QKeySequence::Undo) && !isUndoAvailable()) ||
                           (key.matches(QKeySequence::Redo) && !isRedoAvailable());
      if (nothing) {
        event->ignore();
        return false;
      }
    }
    return QLineEdit::event(event);
  }
};

class ComboBoxView : public View {
 public:
  ComboBoxView(ComboBox& box, Gate& gate, QWidget* parent)
      : View(box, gate, new Combo(gate.text_sizes, parent)), box_(box), widget_(static_cast<Combo*>(View::widget())) {
    if (box.editable) GiveLine();
    // Else the wheel that scrolls a page would leave the focus, and its next turns, to the lists that pass below it.
    widget_->setFocusPolicy(Qt::StrongFocus);
    widget_->setInsertPolicy(QComboBox::NoInsert);
    widget_->setMaxVisibleItems(24);
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
      QStringList rows;
      for (int row = 0; row < box_.rows(); ++row) rows.append(ToQt(box_.RowText(row)));
      widget_->SetRows(rows);
    }
    if (change != Change::kRows && change != Change::kRow) return;
    widget_->shown = ToQt(box_.text());
    // A text that is being typed keeps its place and what can be taken back of it: the row would write another one.
    const bool typed = widget_->isEditable() && change == Change::kRow && widget_->lineEdit()->text() == widget_->shown;
    if (!typed || widget_->itemText(box_.row()) == widget_->shown) widget_->setCurrentIndex(box_.row());
    if (widget_->isEditable() && widget_->lineEdit()->text() != widget_->shown) {
      widget_->lineEdit()->setText(widget_->shown);
    }
    if (widget_->accessibleDescription() != widget_->shown) widget_->setAccessibleDescription(widget_->shown);
    widget_->update();
  }
  // The line in it is the same to who hears it.
  void SetSpoken(const std::string& name) override {
    View::SetSpoken(name);
    if (QLineEdit* line = widget_->lineEdit()) line->setAccessibleName(ToQt(name));
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
    auto* line = new ListLine(widget_);
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
