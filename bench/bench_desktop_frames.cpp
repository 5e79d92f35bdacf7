// Whether the windows keep up with a key that is held: through the rows of a list that stands in columns of eight, and
// from strip to strip in the arrangement editor's desk. A frame is what the program does from one repetition of the key
// to the next, with all that it brings about: rows, controls, timers, messages, painting. It is measured in the
// processor's time, since what the machine does meanwhile for others is none of its own; the longest counts, beside
// the middle one of an empty list under the same key.
#include <QApplication>
#include <QEventLoop>
#include <QKeyEvent>
#include <QListView>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QStringListModel>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>
#include <vector>

#include "bench/measure.h"
#include "tests/desktop/program.h"
#include "ui/strips.h"

namespace {

using namespace zentaline;
using namespace zentaline::bench;
using zentaline::test::Desktop;
using zentaline::test::Settle;
using zentaline::test::WaitUntil;
using zentaline::test::WidgetOf;

constexpr double kFrame = 16;                            // milliseconds
constexpr auto kRepeat = std::chrono::milliseconds(33);  // thirty times a second, as keyboards do
constexpr int kRounds = 3;
constexpr int kEmptyFrames = 60;
constexpr int kRows = 64;
constexpr int kColumnRows = 8;
constexpr int kParts = 9;

// Milliseconds that the processor has worked for this thread, which paints as well.
double OwnTime() {
  timespec time{};
  ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

struct Frames {
  std::vector<double> times;
  double Longest() const { return *std::max_element(times.begin(), times.end()); }
};

// One repetition of a held key, and all that comes of it until the next.
void Hold(QWidget& widget, int key, Qt::KeyboardModifiers with, Frames& frames) {
  const double begin = OwnTime();
  QKeyEvent down(QEvent::KeyPress, key, with, QString(), true);
  QCoreApplication::sendEvent(&widget, &down);
  QEventLoop loop;
  QTimer::singleShot(kRepeat, Qt::PreciseTimer, &loop, &QEventLoop::quit);
  loop.exec();
  frames.times.push_back(OwnTime() - begin);
}

// The middle frame of a list without rows in a window of this place.
double EmptyFrame(QMdiArea& area, const QRect& place, int key, Qt::KeyboardModifiers with) {
  QStringListModel nothing;
  auto* list = new QListView;
  list->setModel(&nothing);
  QMdiSubWindow* window = area.addSubWindow(list);
  window->setAttribute(Qt::WA_DeleteOnClose);
  window->setGeometry(place);
  window->show();
  list->setFocus();
  Settle();
  Frames frames;
  for (int i = 0; i < kEmptyFrames; ++i) Hold(*list, key, with, frames);
  window->close();
  Settle();
  return Median(frames.times);
}

void Print(const char* name, const Frames& frames, double empty, const char* text) {
  std::printf("%s: %zu frames, the middle one %.2f ms, the longest %.2f ms, an empty list's %.2f ms\n", name,
              frames.times.size(), Median(frames.times), frames.Longest(), empty);
  PrintRatio(name, std::max(frames.Longest() - empty, 0.0) / kFrame, "<=", 1, text);
}

// Wide enough for columns of eight; false when they don't come.
bool StandsInColumns(Desktop& desk, const ui::Form& window, const QListView& list) {
  desk.FrameOf(window)->setGeometry(0, 0, 1880, 700);
  Settle();
  return list.isWrapping() && list.model()->rowCount() == kRows;
}

// All rows, down and up, then along the columns: what a hand does that looks for a song.
bool MeasureList(Desktop& desk, ui::Form& window) {
  auto& rows = *static_cast<ui::ListBox*>(window.Find("List1"));
  auto* list = qobject_cast<QListView*>(WidgetOf(rows));
  if (list == nullptr || !StandsInColumns(desk, window, *list)) return false;
  const double empty = EmptyFrame(desk.area(), desk.FrameOf(window)->geometry(), Qt::Key_Down, Qt::NoModifier);
  rows.UserSelect({0});
  list->setFocus();
  Settle();
  Frames frames;
  for (int round = 0; round < kRounds; ++round) {
    for (int row = 1; row < kRows; ++row) Hold(*list, Qt::Key_Down, Qt::NoModifier, frames);
    if (rows.Row() != kRows - 1) return false;
    for (int row = 1; row < kRows; ++row) Hold(*list, Qt::Key_Up, Qt::NoModifier, frames);
    for (int column = 1; column < kRows / kColumnRows; ++column) Hold(*list, Qt::Key_Right, Qt::NoModifier, frames);
    if (rows.Row() != kRows - kColumnRows) return false;
    for (int column = 1; column < kRows / kColumnRows; ++column) Hold(*list, Qt::Key_Left, Qt::NoModifier, frames);
  }
  Print("desktop_list", frames, empty,
        "the longest frame through 64 arrangements in columns with an arrow held, beyond an empty list's, of 16 ms");
  return true;
}

// From the first strip to the last and back, from each kind of control that a strip has.
bool MeasureStrips(Desktop& desk, ui::Form& editor) {
  if (!static_cast<ui::Tabs*>(editor.Find("SSTab1"))->UserSet(1)) return false;
  desk.FrameOf(editor)->setGeometry(0, 0, 1500, 800);
  const double empty = EmptyFrame(desk.area(), desk.FrameOf(editor)->geometry(), Qt::Key_Right, Qt::AltModifier);
  Frames frames;
  int kinds = 0;
  for (ui::Control* const first : editor.controls()) {
    if (ui::InStripBeside(*first, -1) != nullptr || ui::InStripBeside(*first, 1) == nullptr) continue;
    if (WidgetOf(*first) == nullptr || WidgetOf(*first)->focusPolicy() == Qt::NoFocus) continue;
    WidgetOf(*first)->setFocus();
    Settle();
    for (int round = 0; round < kRounds; ++round) {
      for (const int key : {Qt::Key_Right, Qt::Key_Left}) {
        const QWidget* const before = QApplication::focusWidget();
        for (int strip = 1; strip < kParts; ++strip) Hold(*QApplication::focusWidget(), key, Qt::AltModifier, frames);
        if (QApplication::focusWidget() == before) return false;
      }
    }
    ++kinds;
  }
  if (kinds == 0) return false;
  Print("desktop_strips", frames, empty,
        "the longest frame from strip to strip with Alt and an arrow held, beyond an empty list's, of 16 ms");
  return true;
}

bool Run() {
  Desktop desk;
  if (!desk.Start()) return false;
  // Each row that is passed is heard.
  auto* output = static_cast<ui::MenuEntry*>(desk.program.main->Find("mnuDevMIDIOut", 0));
  if (output == nullptr || !output->UserPress()) return false;
  Settle();
  ui::Form* arrangements = desk.Open("First Steps.arr", 0);
  if (arrangements == nullptr || !MeasureList(desk, *arrangements)) return false;
  const std::size_t before = desk.toolkit.forms().size();
  static_cast<ui::ListBox*>(arrangements->Find("List1"))->UserDouble(0);
  if (!WaitUntil([&] { return desk.toolkit.forms().size() == before + 1; })) return false;
  Settle();
  return MeasureStrips(desk, *desk.toolkit.forms().back());
}

}  // namespace

int main(int, char** arguments) {
  ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
  int qt_count = 1;
  const QApplication application(qt_count, arguments);
  QApplication::setQuitOnLastWindowClosed(false);
  if (!Run()) {
    std::fprintf(stderr, "bench_desktop_frames: a window didn't come, or the key didn't go through it\n");
    return EXIT_FAILURE;
  }
  std::fflush(stdout);
  return EXIT_SUCCESS;
}
