#include "ui/qt/text_views.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextBlock>
#include <algorithm>
#include <utility>

#include "ui/qt/convert.h"

namespace zentaline::ui::qt {

namespace {

constexpr int kNoLimit = 32767;  // characters; Qt's own

// What the program takes back, and a text that can only be read, leave the keys for it to the menu.
class Line : public QLineEdit {
 public:
  Line(const TextBox& box, QWidget* parent) : QLineEdit(parent), box_(box) {}

 protected:
  bool event(QEvent* event) override {
    const bool key = event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyPress;
    if (key && (box_.of_record || box_.read_only) && TakesBack(*static_cast<QKeyEvent*>(event))) {
      event->ignore();
      return false;
    }
    return QLineEdit::event(event);
  }

 private:
  static bool TakesBack(const QKeyEvent& key) {
    return key.matches(QKeySequence::Undo) || key.matches(QKeySequence::Redo);
  }

  const TextBox& box_;
};

class LineView : public View {
 public:
  LineView(TextBox& box, Gate& gate, QWidget* parent)
      : View(box, gate, new Line(box, parent)), box_(box), widget_(static_cast<QLineEdit*>(View::widget())) {
    // Files that are dropped on it are meant for the main window.
    widget_->setAcceptDrops(false);
    if (box.right_aligned) widget_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    if (box.flat) {
      widget_->setFrame(false);
      widget_->setFocusPolicy(Qt::ClickFocus);
      // Its size is that of its place.
      widget_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
      widget_->setMinimumHeight(widget_->fontMetrics().height());
    }
    connect(widget_, &QLineEdit::textEdited, this, [this](const QString& text) {
      const int before = cursor_;
      User([this, text, before] {
        if (!box_.UserType(FromQt(text))) refused_at_ = before;
      });
    });
    // Comes after textEdited, so that a refused text can be put back with the cursor where it was.
    connect(widget_, &QLineEdit::cursorPositionChanged, this, [this](int, int now) { cursor_ = now; });
  }

 protected:
  void Refresh(Change change) override {
    widget_->setReadOnly(box_.read_only);
    if (change != Change::kText) return;
    const QString text = ToQt(box_.text());
    // Asked first, since setting it moves the cursor.
    const int limit = box_.max_length == 0
                          ? kNoLimit
                          : static_cast<int>(std::max(box_.max_length, static_cast<std::size_t>(text.size())));
    if (widget_->maxLength() != limit) widget_->setMaxLength(limit);
    if (widget_->text() != text) {
      widget_->setText(text);
      widget_->setCursorPosition(refused_at_ < 0 ? 0 : refused_at_);
    }
    refused_at_ = -1;
  }

 private:
  TextBox& box_;
  QLineEdit* widget_;
  int cursor_ = 0;
  int refused_at_ = -1;
};

// Tells which line it begins with.
class Pages : public QPlainTextEdit {
 public:
  using QPlainTextEdit::QPlainTextEdit;
  int FirstVisibleLine() const { return firstVisibleBlock().blockNumber(); }
};

class PagesView : public View {
 public:
  PagesView(TextBox& box, Gate& gate, QWidget* parent)
      : View(box, gate, new Pages(parent)), box_(box), widget_(static_cast<Pages*>(View::widget())) {
    widget_->setTabChangesFocus(true);
    widget_->setAcceptDrops(false);
    Watch(widget_->viewport());
    connect(widget_, &QPlainTextEdit::textChanged, this, [this] { User([this] { box_.UserType(Typed()); }); });
    connect(widget_->verticalScrollBar(), &QScrollBar::valueChanged, this, [this](int) {
      if (!showing_top_) box_.UserScroll(widget_->FirstVisibleLine());
    });
  }

 protected:
  void Refresh(Change change) override {
    widget_->setReadOnly(box_.read_only);
    if (change == Change::kTopLine) return ShowTopLine();
    if (change != Change::kText) return;
    QString text = ToQt(box_.text());
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
    if (Shown() == text) return;
    const int at = widget_->textCursor().position();
    widget_->setPlainText(text);
    QTextCursor cursor = widget_->textCursor();
    cursor.setPosition(std::min(at, static_cast<int>(text.size())));
    widget_->setTextCursor(cursor);
  }
  bool KeyDoes(const Key& key, const QKeyEvent&) override {
    // A text that is only read, and has keys of its own, is moved by those alone.
    if (box_.read_only && box_.on_key && key.name != Key::kCharacter) return key.name != Key::kEscape;
    // Enter is a line of its own here, not the default button.
    if (key.name != Key::kEnter) return false;
    if (!box_.read_only) widget_->insertPlainText(QStringLiteral("\n"));
    return true;
  }

 private:
  // The text with its blanks as they are: the plain text has a common blank for one that doesn't break.
  QString Shown() const {
    QString text = widget_->document()->toRawText();
    return text.replace(QChar::ParagraphSeparator, u'\n').replace(QChar::LineSeparator, u'\n');
  }
  // Line ends stay what they were in the text that is changed.
  std::string Typed() const {
    QString text = Shown();
    if (box_.keeps_line_ends && box_.text().find("\r\n") != std::string::npos)
      text.replace(QStringLiteral("\n"), QStringLiteral("\r\n"));
    return FromQt(text);
  }
  void ShowTopLine() {
    const bool before = std::exchange(showing_top_, true);
    const QTextBlock line = widget_->document()->findBlockByNumber(box_.top_line());
    if (line.isValid()) widget_->verticalScrollBar()->setValue(line.firstLineNumber());
    showing_top_ = before;
  }

  TextBox& box_;
  Pages* widget_;
  bool showing_top_ = false;  // it is the program that scrolls
};

}  // namespace

View* MakeTextBox(TextBox& box, Gate& gate, QWidget* parent) {
  if (box.multi_line) return new PagesView(box, gate, parent);
  return new LineView(box, gate, parent);
}

}  // namespace zentaline::ui::qt
