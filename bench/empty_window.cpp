// The yardstick of the desktop program: a window that holds nothing but a menu without entries. The menu's one word is
// there because the first text on the screen has the system's fonts looked up, which takes longer than the rest of an
// empty window together; without it the yardstick would be a program that no one can read.
//
//   empty_window start [bare]     ends when its first frame has been painted
//   empty_window memory [bare]    prints its resident memory in kilobytes when it has come to rest
//
// With "bare" it has no menu either.
#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>

#include "bench/first_frame.h"

int main(int count, char** arguments) {
  const QApplication application(count, arguments);
  QMainWindow window;
  window.resize(1120, 760);
  if (count == 2) window.menuBar()->addMenu(QStringLiteral("&File"));
  window.show();
  return zentaline::bench::RunUntil(arguments[1], window);
}
