#include "ui/qt/simple_views.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>

#include "ui/letters.h"
#include "ui/qt/convert.h"

namespace zentaline::ui::qt {

namespace {

// A button that is told how many characters it needs is no wider than these, unlike those with words.
class NarrowButton : public QPushButton {
 public:
  using QPushButton::QPushButton;
  QSize sizeHint() const override {
    const QSize hint = QPushButton::sizeHint();
    return minimumWidth() > 0 ? QSize(minimumWidth(), hint.height()) : hint;
  }
};

class ButtonView : public View {
 public:
  ButtonView(Button& button, Gate& gate, QWidget* parent)
      : View(button, gate, new NarrowButton(parent)),
        button_(button),
        widget_(static_cast<QPushButton*>(View::widget())) {
    widget_->setAutoDefault(false);
    widget_->setDefault(button.form().default_button == &button);
    connect(widget_, &QPushButton::clicked, this, [this] { User([this] { button_.UserPress(); }); });
  }

 protected:
  void Refresh(Change change) override {
    if (change == Change::kText) widget_->setText(WithMnemonic(button_.caption(), button_.literal));
    if (change == Change::kChecked && button_.on()) {
      widget_->setCheckable(true);
      widget_->setChecked(*button_.on());
    }
  }
  bool KeyDoes(const Key& key, const QKeyEvent& event) override {
    if (key.name != Key::kEnter || event.isAutoRepeat()) return key.name == Key::kEnter;
    button_.UserPress();
    return true;
  }

 private:
  Button& button_;
  QPushButton* widget_;
};

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

class LabelView : public View {
 public:
  LabelView(Label& label, Gate& gate, QWidget* parent)
      : View(label, gate, label.sunken ? new FieldLabel(parent) : new QLabel(parent)),
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

class CheckBoxView : public View {
 public:
  CheckBoxView(CheckBox& box, Gate& gate, QWidget* parent)
      : View(box, gate, new QCheckBox(parent)), box_(box), widget_(static_cast<QCheckBox*>(View::widget())) {
    connect(widget_, &QCheckBox::clicked, this,
            [this](bool checked) { User([this, checked] { box_.UserSet(checked); }); });
  }

 protected:
  void Refresh(Change change) override {
    if (change == Change::kText) widget_->setText(WithMnemonic(box_.caption()));
    if (change == Change::kValue) widget_->setChecked(box_.value());
  }

 private:
  CheckBox& box_;
  QCheckBox* widget_;
};

class OptionButtonView : public View {
 public:
  OptionButtonView(OptionButton& option, Gate& gate, QWidget* parent)
      : View(option, gate, new QRadioButton(parent)),
        option_(option),
        widget_(static_cast<QRadioButton*>(View::widget())) {
    // Which of them exclude each other is the model's to say.
    widget_->setAutoExclusive(false);
    connect(widget_, &QRadioButton::clicked, this, [this] { User([this] { option_.UserPress(); }); });
  }

 protected:
  void Refresh(Change change) override {
    if (change == Change::kText) widget_->setText(WithMnemonic(option_.caption()));
    if (change == Change::kValue) widget_->setChecked(option_.value());
  }
  bool KeyDoes(const Key& key, const QKeyEvent&) override {
    if (key.name != Key::kUp && key.name != Key::kDown) return false;
    option_.DefaultKey(key);
    return true;
  }

 private:
  OptionButton& option_;
  QRadioButton* widget_;
};

class FrameView : public View {
 public:
  FrameView(Frame& frame, Gate& gate, QWidget* parent) : View(frame, gate, new QGroupBox(parent)), frame_(frame) {}

 protected:
  void Refresh(Change change) override {
    if (change != Change::kText) return;
    auto* box = static_cast<QGroupBox*>(widget());
    const QString title = ToQt(frame_.caption());
    // Even an empty title is measured, in a font of its own that nobody else may need.
    if (title != box->title()) box->setTitle(title);
  }

 private:
  Frame& frame_;
};

class PictureBoxView : public View {
 public:
  PictureBoxView(PictureBox& box, Gate& gate, QWidget* parent) : View(box, gate, new QWidget(parent)) {
    if (box.on_key) widget()->setFocusPolicy(Qt::StrongFocus);
  }

 protected:
  void Refresh(Change) override {}
  void ShowColours() override {
    View::ShowColours();
    widget()->setAutoFillBackground(control()->back_colour().has_value());
  }
};

// Asks for the room that shows all of its tabs; with less it has arrows that turn to the others.
class WholeTabs : public QTabWidget {
 public:
  using QTabWidget::QTabWidget;
  QSize sizeHint() const override { return QTabWidget::sizeHint().expandedTo({tabBar()->sizeHint().width(), 0}); }
};

class TabsView : public View {
 public:
  TabsView(Tabs& tabs, Gate& gate, QWidget* parent)
      : View(tabs, gate, new WholeTabs(parent)), tabs_(tabs), widget_(static_cast<QTabWidget*>(View::widget())) {
    Watch(widget_->tabBar());
    connect(widget_, &QTabWidget::currentChanged, this,
            [this](int page) { User([this, page] { tabs_.UserSet(page); }); });
  }

 protected:
  void Refresh(Change change) override {
    if (change == Change::kText) {
      for (int page = 0; page < widget_->count() && page < static_cast<int>(tabs_.captions.size()); ++page) {
        widget_->setTabText(page, ToQt(CaptionOf(page)));
      }
    }
    if (change == Change::kValue) widget_->setCurrentIndex(tabs_.page());
  }

 private:
  std::string CaptionOf(int page) const {
    const std::string& caption = tabs_.captions[static_cast<std::size_t>(page)];
    const char letter = NamedLetter(caption);
    return WithLetter(caption, MenuBarHas(letter) ? '\0' : letter, false);
  }

  Tabs& tabs_;
  QTabWidget* widget_;
};

}  // namespace

View* MakeButton(Button& button, Gate& gate, QWidget* parent) {
  return new ButtonView(button, gate, parent);
}

View* MakeLabel(Label& label, Gate& gate, QWidget* parent) {
  return new LabelView(label, gate, parent);
}

View* MakeCheckBox(CheckBox& box, Gate& gate, QWidget* parent) {
  return new CheckBoxView(box, gate, parent);
}

View* MakeOptionButton(OptionButton& option, Gate& gate, QWidget* parent) {
  return new OptionButtonView(option, gate, parent);
}

View* MakeFrame(Frame& frame, Gate& gate, QWidget* parent) {
  return new FrameView(frame, gate, parent);
}

View* MakePictureBox(PictureBox& box, Gate& gate, QWidget* parent) {
  return new PictureBoxView(box, gate, parent);
}

View* MakeTabs(Tabs& tabs, Gate& gate, QWidget* parent) {
  return new TabsView(tabs, gate, parent);
}

}  // namespace zentaline::ui::qt
