#include "ui/qt/simple_views.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionGroupBox>
#include <QTabBar>
#include <QTabWidget>

#include "ui/letters.h"
#include "ui/qt/convert.h"
#include "ui/qt/text_sizes.h"

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

// Asks for the room that its title and its content take, as any other; but the title isn't measured again.
class TitledBox : public QGroupBox {
 public:
  TitledBox(TextSizes& sizes, QWidget* parent) : QGroupBox(parent), sizes_(sizes) {}

  QSize minimumSizeHint() const override {
    QStyleOptionGroupBox option;
    initStyleOption(&option);
    const QSize text(sizes_.WidthOf(*this, title()) + option.fontMetrics.horizontalAdvance(u' '),
                     option.fontMetrics.height());
    return style()->sizeFromContents(QStyle::CT_GroupBox, &option, text, this).expandedTo(QWidget::minimumSizeHint());
  }

 private:
  TextSizes& sizes_;
};

class FrameView : public View {
 public:
  FrameView(Frame& frame, Gate& gate, QWidget* parent)
      : View(frame, gate, new TitledBox(gate.text_sizes, parent)), frame_(frame) {}

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
