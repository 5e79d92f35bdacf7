// The desktop program as it is put together in app/, up to its first frame or with files open.
//
//   filled_window start DIR
//   filled_window memory DIR FILE...
#include <QApplication>
#include <string>
#include <vector>

#include "base/posix_disk.h"
#include "bench/first_frame.h"
#include "core/application.h"
#include "core/main_window.h"
#include "midi/virtual/virtual_midi.h"
#include "ui/qt/long_sender.h"
#include "ui/qt/toolkit.h"

int main(int count, char** arguments) {
  if (count < 3) return 2;
  int qt_count = 1;
  const QApplication application(qt_count, arguments);
  const std::vector<std::string> files(arguments + 3, arguments + count);
  zentaline::VirtualMidi service;
  zentaline::PosixDisk disk;
  zentaline::ui::qt::QtToolkit toolkit;
  zentaline::ui::qt::LongSender sender(toolkit, service);
  zentaline::Application program(toolkit, sender, disk, arguments[2]);
  if (!program.Start()) return 1;
  program.main->OpenWhenReady(files);
  // The main window, and a window for each file.
  const auto ready = [&] { return toolkit.forms().size() >= files.size() + 1; };
  return zentaline::bench::RunUntil(arguments[1], *toolkit.windows().main()->window(), ready);
}
