#include <QLabel>
#include <QMouseEvent>
#include <QPainter>

#include "ui/qt/convert.h"
#include "ui/qt/simple_views.h"
#include "ui/qt/text_sizes.h"

namespace zentaline::ui::qt {

namespace {

// A field whose text isn't known beforehand is shortened in its middle, and told whole by its tool tip.
class FieldLabel : public QLabel {
 public:
  using QLabel::QLabel;
  void SetWholeText(const QString& text) {
    whole_ = text;
    Shorten();
  }
  void SetToolTipOfItsOwn(const QString& tool_tip) {
    tool_tip_ = tool_tip;
    Shorten();
  }

  QSize sizeHint() const override {
    const QSize frame(2 * (frameWidth() + margin()), 2 * (frameWidth() + margin()));
    return QSize(fontMetrics().horizontalAdvance(whole_), fontMetrics().height()) + frame + QSize(2, 2);
  }
  QSize minimumSizeHint() const override { return {fontMetrics().averageCharWidth() * 4, sizeHint().height()}; }

 protected:
  void resizeEvent(QResizeEvent* event) override {
    QLabel::resizeEvent(event);
    Shorten();
  }
  void paintEvent(QPaintEvent* event) override {
    QLabel::paintEvent(event);
    if (!hasFocus()) return;
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Highlight));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
  }

 private:
  void Shorten() {
    const QString shown = fontMetrics().elidedText(whole_, Qt::ElideMiddle, contentsRect().width() - 2 * margin());
    if (shown != text()) setText(shown);
    setAccessibleName(whole_);
    setToolTip(shown == whole_ ? tool_tip_ : tool_tip_.isEmpty() ? whole_ : tool_tip_ + u'\n' + whole_);
  }
  QString whole_;
  QString tool_tip_;
};

// Asks for the room that its text takes; what that is it knows from others with the same text.
class TextLabel : public QLabel {
 public:
  TextLabel(TextSizes& sizes, QWidget* parent) : QLabel(parent), sizes_(sizes) {}

  QSize sizeHint() const override {
    return Hint(TextSizes::kHint, [this] { return QLabel::sizeHint(); });
  }
  QSize minimumSizeHint() const override {
    return Hint(TextSizes::kLeastHint, [this] { return QLabel::minimumSizeHint(); });
  }
  int heightForWidth(int width) const override {
    if (!wordWrap() || IsBounded()) return QLabel::heightForWidth(width);
    const auto measure = [this, width] { return QSize(width, QLabel::heightForWidth(width)); };
    return sizes_.BrokenSizeOf(*this, text(), width, measure).height();
  }

 private:
  bool IsBounded() const { return !minimumSize().isNull() || maximumWidth() < QWIDGETSIZE_MAX; }
  // A sign that underlines a letter takes no room.
  bool HasMnemonic() const { return buddy() != nullptr && text().contains(u'&'); }
  template <class Measure>
  QSize Hint(int kind, const Measure& measure) const {
    if (HasMnemonic() || (wordWrap() && IsBounded())) return measure();
    ensurePolished();
    return wordWrap() ? sizes_.BrokenSizeOf(*this, text(), kind, measure)
                      : sizes_.SizeOf(*this, text()).expandedTo(minimumSize());
  }

  TextSizes& sizes_;
};

QLabel* NewWidget(const Label& label, Gate& gate, QWidget* parent) {
  if (label.sunken) return new FieldLabel(parent);
  return new TextLabel(gate.text_sizes, parent);
}

class LabelView : public View {
 public:
  LabelView(Label& label, Gate& gate, QWidget* parent)
      : View(label, gate, NewWidget(label, gate, parent)),
        label_(label),
        widget_(static_cast<QLabel*>(View::widget())) {
    widget_->setWordWrap(label.wraps);
    widget_->setAlignment((label.right_aligned ? Qt::AlignRight : Qt::AlignLeft) |
                          (label.wraps ? Qt::AlignTop : Qt::AlignVCenter));
    widget_->setTextFormat(Qt::PlainText);
    if (label.on_key) widget_->setFocusPolicy(Qt::StrongFocus);
    if (label.on_mouse) widget_->setCursor(Qt::PointingHandCursor);
    if (label.sunken) {
      widget_->setFrameStyle(QFrame::Panel | QFrame::Sunken);
      widget_->setMargin(2);
      widget_->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
    }
  }

 protected:
  void Refresh(Change change) override {
    if (change == Change::kText) {
      ShowText();
    } else if (label_.sunken && change == Change::kToolTip) {
      static_cast<FieldLabel*>(widget_)->SetToolTipOfItsOwn(ToToolTip(label_.tool_tip()));
    }
  }
  bool eventFilter(QObject* watched, QEvent* event) override {
    const bool twice =
        event->type() == QEvent::MouseButtonDblClick && static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton;
    if (twice && control() != nullptr && label_.bar != nullptr) {
      User([this] { label_.bar->UserReset(); });
      return true;
    }
    return View::eventFilter(watched, event);
  }
  void ShowColours() override {
    View::ShowColours();
    widget_->setAutoFillBackground(label_.back_colour().has_value());
  }
  void ShowForNow(const std::optional<std::string>& text) override {
    for_now_ = text ? std::optional(ToQt(*text)) : std::nullopt;
    if (control() != nullptr) ShowText();
  }

 private:
  void ShowText() {
    const QString text = for_now_         ? *for_now_
                         : label_.literal ? ToQt(label_.caption())
                                          : WithoutMnemonic(label_.caption());
    if (label_.sunken) {
      static_cast<FieldLabel*>(widget_)->SetWholeText(text);
    } else {
      // With a buddy the label's mnemonic takes to it, and Qt reads the signs itself.
      widget_->setText(widget_->buddy() != nullptr && !for_now_ ? ToQt(label_.caption()) : text);
    }
  }

  Label& label_;
  QLabel* widget_;
  std::optional<QString> for_now_;
};

}  // namespace

View* MakeLabel(Label& label, Gate& gate, QWidget* parent) {
  return new LabelView(label, gate, parent);
}

}  // namespace zentaline::ui::qt
