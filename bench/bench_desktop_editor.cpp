// How soon the editors of arrangements and programs are seen on the desktop: from the press of the button to the first
// frame, beside an empty child window with as many plain widgets, of the same kinds and on as many pages. How many rows
// of a bank a second can be gone through while the program editor shows each of them. And what the picture of an
// envelope takes to paint itself anew while its handle moves.
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QScrollBar>
#include <QTabWidget>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

#include "bench/measure.h"
#include "tests/desktop/program.h"
#include "ui/picture.h"

namespace {

using zentaline::ui::ControlKind;
using namespace zentaline::bench;
using zentaline::test::Desktop;
using zentaline::test::Settle;
using zentaline::test::WaitUntil;
using zentaline::test::WidgetOf;

constexpr int kRounds = 31;
constexpr double kLimit = 1.5;
constexpr int kColumns = 12;  // of plain widgets on a page
constexpr int kRows = 60;     // of a bank, gone through
constexpr double kRowsASecond = 30;
constexpr double kFrame = 1e9 / 60;  // nanoseconds
constexpr double kPartOfFrame = 0.1;
constexpr int kMoves = 400;  // of a handle

// Sees the first frame of a child window.
class FirstFrame : public QObject {
 public:
  FirstFrame() { qApp->installEventFilter(this); }
  bool seen = false;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint && qobject_cast<QMdiSubWindow*>(watched) != nullptr) seen = true;
    return false;
  }
};

// Milliseconds from `open` to the frame that shows what it has opened.
double Measure(const std::function<void()>& open) {
  Settle();
  const FirstFrame first;
  const Clock::time_point begin = Clock::now();
  open();
  if (!WaitUntil([&first] { return first.seen; })) {
    std::fprintf(stderr, "bench_desktop_editor: nothing was painted\n");
    std::exit(1);
  }
  return Nanoseconds(Clock::now() - begin) / 1e6;
}

// What stands on the pages of the editor, and around them.
struct Kinds {
  struct Widget {
    ControlKind kind;
    bool editable;
  };
  std::vector<Widget> around;
  std::vector<std::vector<Widget>> pages;

  explicit Kinds(const zentaline::ui::Form& editor) {
    const QTabWidget* tabs = nullptr;
    for (const auto* control : editor.controls()) {
      if (control->kind() == ControlKind::kTabs) tabs = static_cast<const QTabWidget*>(WidgetOf(*control));
    }
    pages.resize(static_cast<std::size_t>(tabs->count()));
    for (const auto* control : editor.controls()) {
      const QWidget* widget = WidgetOf(*control);
      if (widget == nullptr || widget == tabs) continue;
      const auto* list = qobject_cast<const QComboBox*>(widget);
      std::vector<Widget>* place = &around;
      for (int page = 0; page < tabs->count(); ++page) {
        if (tabs->widget(page)->isAncestorOf(widget)) place = &pages[static_cast<std::size_t>(page)];
      }
      place->push_back({control->kind(), list != nullptr && list->isEditable()});
    }
  }

  std::size_t Count() const {
    std::size_t count = 1 + around.size();
    for (const auto& page : pages) count += page.size();
    return count;
  }
};

QWidget* Plain(const Kinds::Widget& widget) {
  switch (widget.kind) {
    case ControlKind::kButton:
      return new QPushButton;
    case ControlKind::kLabel:
      return new QLabel;
    case ControlKind::kTextBox:
      return new QLineEdit;
    case ControlKind::kComboBox: {
      auto* list = new QComboBox;
      list->setEditable(widget.editable);
      return list;
    }
    case ControlKind::kScrollBar:
      return new QScrollBar(Qt::Horizontal);
    case ControlKind::kCheckBox:
      return new QCheckBox;
    case ControlKind::kFrame:
      return new QGroupBox;
    default:
      return new QWidget;
  }
}

QWidget* PlainPage(const std::vector<Kinds::Widget>& widgets) {
  auto* page = new QWidget;
  auto* grid = new QGridLayout(page);
  int place = 0;
  for (const Kinds::Widget& widget : widgets) {
    grid->addWidget(Plain(widget), place / kColumns, place % kColumns);
    ++place;
  }
  return page;
}

QMdiSubWindow* OpenPlain(QMdiArea& area, const Kinds& kinds, const QRect& place) {
  auto* body = new QWidget;
  auto* column = new QVBoxLayout(body);
  column->addWidget(PlainPage(kinds.around));
  auto* tabs = new QTabWidget;
  column->addWidget(tabs);
  for (const auto& page : kinds.pages) tabs->addTab(PlainPage(page), QStringLiteral("Page"));
  QMdiSubWindow* window = area.addSubWindow(body);
  window->setAttribute(Qt::WA_DeleteOnClose);
  window->setGeometry(place);
  window->show();
  return window;
}

QPushButton* EditButton(const zentaline::ui::Form& source) {
  auto* button = qobject_cast<QPushButton*>(WidgetOf(*source.Find("CommEdit")));
  return button != nullptr && button->isEnabled() ? button : nullptr;
}

bool MeasureOpening(Desktop& desk, const zentaline::ui::Form& source, const char* name, const char* text) {
  QPushButton* button = EditButton(source);
  if (button == nullptr) return false;
  const std::size_t before = desk.toolkit.forms().size();
  std::vector<double> editor_times;
  std::vector<double> plain_times;
  std::size_t count = 0;
  // In turns, so that what else the machine does meets both; the first turn looks up what both need.
  for (int round = 0; round <= kRounds; ++round) {
    const double editor_time = Measure([button] { button->click(); });
    const zentaline::ui::Form& editor = *desk.toolkit.forms().back();
    const Kinds kinds(editor);
    count = kinds.Count();
    QWidget* frame = desk.FrameOf(editor);
    const QRect place = frame->geometry();
    frame->close();
    if (!WaitUntil([&] { return desk.toolkit.forms().size() == before; })) return false;

    QMdiSubWindow* plain = nullptr;
    const double plain_time = Measure([&] { plain = OpenPlain(desk.area(), kinds, place); });
    plain->close();
    if (round == 0) continue;
    editor_times.push_back(editor_time);
    plain_times.push_back(plain_time);
  }
  const double editor = Median(editor_times);
  const double plain = Median(plain_times);
  std::printf("%s: %zu plain widgets %.1f ms, editor %.1f ms\n", name, count, plain, editor);
  PrintRatio(name, editor / plain, "<=", kLimit, text);
  return true;
}

// Counts the paints of a window's widgets.
class Paints : public QObject {
 public:
  explicit Paints(const QWidget& window) : window_(window) { qApp->installEventFilter(this); }
  int count = 0;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint && watched->isWidgetType() &&
        window_.isAncestorOf(static_cast<const QWidget*>(watched))) {
      ++count;
    }
    return false;
  }

 private:
  const QWidget& window_;
};

// From program to program by the rows of the bank; each is waited for until the editor has painted it.
bool MeasureRows(Desktop& desk, zentaline::ui::Form& bank, const zentaline::ui::Form& editor) {
  auto& list = *static_cast<zentaline::ui::ListBox*>(bank.Find("List1"));
  QWidget* frame = desk.FrameOf(editor);
  desk.FrameOf(bank)->move(0, 0);
  frame->move(desk.FrameOf(bank)->width(), 0);
  list.UserSelect({0});
  Settle();
  std::vector<double> times;
  for (int row = 1; row <= kRows; ++row) {
    const std::string before = editor.caption();
    const Paints paints(*frame);
    const Clock::time_point begin = Clock::now();
    list.UserSelect({row});
    if (!WaitUntil([&] { return editor.caption() != before && paints.count > 0; })) return false;
    times.push_back(Nanoseconds(Clock::now() - begin));
    Settle();
  }
  const double row = Median(times);
  std::printf("a row of the bank until the editor has painted it %.2f ms\n", row / 1e6);
  PrintRatio("desktop_next_program", 1e9 / row, ">=", kRowsASecond,
             "rows of a bank a second, each painted in the program editor");
  return true;
}

// The median of many repaints, each after what `before` does.
double PaintTime(QWidget& widget, const std::function<void(int)>& before) {
  std::vector<double> times;
  for (int i = 0; i < kMoves; ++i) {
    before(i);
    const Clock::time_point begin = Clock::now();
    widget.repaint();
    times.push_back(Nanoseconds(Clock::now() - begin));
  }
  return Median(std::move(times));
}

bool MeasurePicture(const zentaline::ui::Form& editor) {
  auto& picture = *static_cast<zentaline::ui::Picture*>(editor.Find("EGPicture", 0));
  QWidget* widget = WidgetOf(picture);
  QWidget empty(widget->parentWidget());
  empty.setGeometry(widget->geometry());
  empty.show();
  Settle();
  if (!picture.UserTake(1)) return false;
  const double plain = PaintTime(empty, [](int) {});
  empty.hide();
  Settle();
  const double painted = PaintTime(*widget, [&](int i) { picture.UserDrag(1, 40 + i % 2 * 150, 200 + i % 2 * 500); });
  picture.UserLetGo();
  Settle();
  std::printf("a picture of %d by %d painted %.0f ns, an empty widget %.0f ns\n", widget->width(), widget->height(),
              painted, plain);
  PrintRatio("desktop_picture", (painted - plain) / kFrame, "<=", kPartOfFrame,
             "a picture's repaint while a handle moves, beyond an empty one, of a frame of 60 a second");
  return true;
}

bool Run() {
  Desktop desk;
  if (!desk.Start()) return false;
  const zentaline::ui::Form* arrangements = desk.Open("First Steps.arr", 19);
  if (arrangements == nullptr ||
      !MeasureOpening(desk, *arrangements, "desktop_editor",
                      "the press to the editor's first frame, beside as many plain widgets")) {
    return false;
  }
  zentaline::ui::Form* bank = desk.Open("First Steps.prg", 0);
  if (bank == nullptr ||
      !MeasureOpening(desk, *bank, "desktop_prg_editor",
                      "the press to the program editor's first frame, beside as many plain widgets")) {
    return false;
  }
  EditButton(*bank)->click();
  Settle();
  const zentaline::ui::Form& editor = *desk.toolkit.forms().back();
  return MeasureRows(desk, *bank, editor) && MeasurePicture(editor);
}

}  // namespace

int main(int, char** arguments) {
  ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
  int qt_count = 1;
  const QApplication application(qt_count, arguments);
  QApplication::setQuitOnLastWindowClosed(false);
  if (!Run()) {
    std::fprintf(stderr, "bench_desktop_editor: a window didn't come\n");
    return EXIT_FAILURE;
  }
  std::fflush(stdout);
  return EXIT_SUCCESS;
}
