// The yardstick of the desktop program: a window that holds nothing.
//
//   empty_window start     ends when its first frame has been painted
//   empty_window memory    prints its resident memory in kilobytes when it has come to rest
#include <QApplication>
#include <QMainWindow>

#include "bench/first_frame.h"

int main(int count, char** arguments) {
  const QApplication application(count, arguments);
  QMainWindow window;
  window.resize(1120, 760);
  window.show();
  return zentaline::bench::RunUntil(arguments[1], window);
}
