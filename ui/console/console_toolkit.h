// A desktop without a screen: windows have a place but no picture, boxes and dialogs are answered by a script, and what
// happens is printed as a transcript.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "ui/script/driver.h"
#include "ui/script/engine.h"
#include "ui/script/transcript.h"
#include "ui/toolkit.h"

namespace zentaline::ui {

class ConsoleToolkit : public Toolkit {
 public:
  enum class Clock {
    kVirtual,  // stands still, and moves only by Advance
    kReal,
  };

  // `sink` takes the lines of the transcript. `rest` is called with milliseconds when the program waits in real time,
  // and with 0 between two timers, so that something else can end the program there.
  using Rest = std::function<void(int)>;
  ConsoleToolkit(Clock clock, std::function<void(const std::string&)> sink, Rest rest = {});
  ~ConsoleToolkit() override;

  Transcript& transcript() { return transcript_; }
  // Who answers; must be set before the first question and outlive this one.
  void SetQuestions(ScriptQuestions& questions) { questions_ = &questions; }
  void SetPrinter(bool works) { printer_works_ = works; }
  bool main_closed() const { return main_closed_; }

  // Lets so many milliseconds pass; every timer that falls due runs, in order.
  void Advance(std::int64_t milliseconds);
  // Runs the main window's timers while `running`, as if the time of each had come. The virtual clock stands still.
  void RunChain(const std::function<bool()>& running);
  // For the real clock: fires what is due, and gives the milliseconds until the next, -1 for none.
  int RunDueTimers();

  // As the user does; the room inside a window is as large as the window.
  void UserPlaces(Form& form, const Placement& placement);

  BoxAnswer MessageBox(BoxStyle style, const std::string& title, const std::string& text) override;
  FileDialogAnswer FileDialog(const FileDialogRequest& request) override;
  void PopupMenu(MenuEntry& menu) override;
  void ShowWait(const std::string& text) override;
  Size ScreenSize() override;
  int TextWidth(const Font& font, const std::string& text) override;
  std::string ShortDate() override;
  bool PrintText(int left, int top, const Font& font, const std::string& text) override;
  bool EndPrint() override;
  std::int64_t Now() override;
  void MainClosed() override;

 protected:
  void ShowForm(Form& form) override;
  void HideForm(Form& form) override;
  void RaiseForm(Form& form) override;
  void RunModal(Form& form) override;

 private:
  class View;

  Placement FirstPlace(const Form& form) const;
  Size Inner(const Form& form, const Placement& placement) const;
  // Tells the maximised child windows of the main window's size.
  void FitMaximised();
  void AdvanceVirtual(std::int64_t target);
  void AdvanceReal(std::int64_t target);

  void RestFor(std::int64_t milliseconds);

  Clock clock_;
  Rest rest_;
  std::chrono::steady_clock::time_point began_;
  std::int64_t now_ = 0;  // of the virtual clock
  Transcript transcript_;
  ScriptQuestions* questions_ = nullptr;
  std::map<Form*, std::unique_ptr<View>> views_;
  bool printer_works_ = true;
  bool main_closed_ = false;
};

// Acts on the models; windows take their place from the toolkit.
class ConsoleDriver : public ModelDriver {
 public:
  explicit ConsoleDriver(ConsoleToolkit& toolkit) : toolkit_(toolkit) {}
  bool Place(Form& form, const Placement& placement) override;

 private:
  ConsoleToolkit& toolkit_;
};

}  // namespace zentaline::ui
