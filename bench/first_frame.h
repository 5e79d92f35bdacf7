// When a window has been painted for the first time, and how much memory the program holds then.
#pragma once

#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <string>

namespace zentaline::bench {

// The resident memory of this program, kilobytes; 0 when the kernel doesn't tell.
inline long ResidentKilobytes() {
  long kilobytes = 0;
  std::FILE* status = std::fopen("/proc/self/status", "r");
  char line[256];
  while (status != nullptr && std::fgets(line, sizeof line, status) != nullptr) {
    if (std::strncmp(line, "VmRSS:", 6) == 0) kilobytes = std::strtol(line + 6, nullptr, 10);
  }
  if (status != nullptr) std::fclose(status);
  return kilobytes;
}

// Ends the program when the window's first frame has left for the screen.
class FirstFrame : public QObject {
 public:
  explicit FirstFrame(QWidget& window) { window.installEventFilter(this); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::Paint || !watched->isWidgetType()) return false;
    // What stands in the window is painted with it: all of it is there when the next turn begins.
    QTimer::singleShot(0, [] { std::_Exit(0); });
    return false;
  }
};

// `what` is "start" or "memory"; the latter waits until `ready`.
inline int RunUntil(
    const char* what, QWidget& window, const std::function<bool()>& ready = [] { return true; }) {
  if (what == nullptr) return 2;
  if (std::strcmp(what, "start") == 0) {
    const FirstFrame first(window);
    return QApplication::exec();
  }
  QTimer look;
  QObject::connect(&look, &QTimer::timeout, [&ready] {
    if (!ready()) return;
    std::printf("%ld\n", ResidentKilobytes());
    std::fflush(stdout);
    std::_Exit(0);
  });
  look.start(500);
  return QApplication::exec();
}

}  // namespace zentaline::bench
