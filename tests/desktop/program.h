// The whole program on the desktop, with its factory files and an instrument, for tests and benchmarks of its windows.
#pragma once

#include <QApplication>
#include <QEvent>
#include <QMdiArea>
#include <QWidget>
#include <chrono>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>

#include "base/posix_disk.h"
#include "core/application.h"
#include "core/main_window.h"
#include "midi/virtual/virtual_midi.h"
#include "tests/support/scratch_folder.h"
#include "ui/controls.h"
#include "ui/qt/long_sender.h"
#include "ui/qt/toolkit.h"
#include "ui/qt/view.h"

namespace zentaline::test {

// Answers what the program asks at its first start.
class StartingToolkit : public ui::qt::QtToolkit {
 public:
  ui::BoxAnswer MessageBox(ui::BoxStyle, const std::string&, const std::string&) override { return ui::BoxAnswer::kOk; }

 protected:
  void RunModal(ui::Form& form) override {
    static_cast<ui::OptionButton*>(form.Find("Option1", 1))->UserPress();
    static_cast<ui::Button*>(form.Find("CommOK"))->UserPress();
  }
};

inline void Settle() {
  for (int i = 0; i < 20; ++i) {
    QApplication::processEvents();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
}

inline bool WaitUntil(const std::function<bool()>& done) {
  using Clock = std::chrono::steady_clock;
  const Clock::time_point begin = Clock::now();
  while (!done() && Clock::now() - begin < std::chrono::seconds(20)) QApplication::processEvents();
  return done();
}

inline QWidget* WidgetOf(const ui::Control& control) {
  return control.view == nullptr ? nullptr : static_cast<ui::qt::View*>(control.view)->widget();
}

// The program on the desktop, with its examples.
class Desktop {
 public:
  Desktop() : sender_(toolkit, service_), program(toolkit, sender_, disk_, folder_.Path()) {
    std::filesystem::copy(
        std::filesystem::read_symlink("/proc/self/exe").parent_path().parent_path() / "share" / "zentaline",
        folder_.Path(), std::filesystem::copy_options::recursive);
  }

  void Put(const std::string& name, const Bytes& bytes) { folder_.Put(name, bytes); }
  bool Start() {
    if (!program.Start()) return false;
    // Room for a bank and an editor side by side.
    toolkit.windows().main()->window()->resize(1900, 1000);
    return true;
  }
  // The window of an example, its list on a row; null when it doesn't come.
  ui::Form* Open(const char* file, int row) {
    const std::size_t before = toolkit.forms().size();
    program.main->OpenWhenReady({folder_.Path(std::string("examples/") + file)});
    if (!WaitUntil([&] { return toolkit.forms().size() == before + 1; })) return nullptr;
    ui::Form* opened = toolkit.forms().back();
    static_cast<ui::ListBox*>(opened->Find("List1"))->UserSelect({row});
    Settle();
    return opened;
  }
  QMdiArea& area() { return *toolkit.windows().main()->area(); }
  QWidget* FrameOf(const ui::Form& form) { return toolkit.windows().Of(form)->frame(); }

 private:
  const ScratchFolder folder_;
  VirtualMidi service_;
  PosixDisk disk_;

 public:
  StartingToolkit toolkit;

 private:
  ui::qt::LongSender sender_;

 public:
  Application program;
};

}  // namespace zentaline::test
