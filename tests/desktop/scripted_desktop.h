// A desktop with real widgets on a clock that stands still: boxes and dialogs are answered by a script, measures are
// the console's, and what happens is printed as the console prints it.
#pragma once

#include <map>
#include <memory>

#include "ui/console/console_toolkit.h"
#include "ui/qt/windows.h"

namespace zentaline::ui::qt {

class ScriptedDesktop : public ConsoleToolkit {
 public:
  ScriptedDesktop(Clock clock, std::function<void(const std::string&)> sink, Rest rest);
  ~ScriptedDesktop() override;

  Windows& windows() { return windows_; }

 protected:
  void ShowForm(Form& form) override;
  void HideForm(Form& form) override;
  void RaiseForm(Form& form) override;

 private:
  // What the program does to a window reaches both: the real one, and the one with the fixed measures.
  class BothViews;
  Windows windows_{*this};
  std::map<Form*, std::unique_ptr<BothViews>> views_;
};

}  // namespace zentaline::ui::qt
