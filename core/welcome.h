// What the main window's free area shows while no other window is open: where the notes go, and what to begin with.
#pragma once

#include <string>

#include "core/state.h"
#include "ui/control_array.h"
#include "ui/form.h"

namespace zentaline {

struct Application;
class MainWindow;

class Welcome {
 public:
  Welcome(MainWindow& main, Application& app);

  ui::Layout LayOut();
  // There while no child window is open and none is about to come back.
  void Show();
  // The state of the output, in words.
  void ShowOutput(const std::string& text, bool can_choose);
  void ShowRecentFiles();

 private:
  // The arrangement file in examples/ that is shown first; empty when there is none.
  std::string Example() const;

  MainWindow& main_;
  Application& app_;
  bool shown_ = false;

  ui::Frame FrameWelcome;
  ui::Label LabelWelcome;
  ui::Button CommWelcomeOutput;
  ui::Button CommWelcomeOpen;
  ui::Button CommWelcomeExample;
  ui::Label LabelWelcomeRecent;
  ui::ControlArray<ui::Button> CommWelcomeRecent;
  ui::Button CommWelcomeGuide;
};

}  // namespace zentaline
