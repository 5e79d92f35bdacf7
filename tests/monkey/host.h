// The console's own program, whose script is made line by line while it runs, and which is looked at between the lines.
//
// Lines that begin with "#! " are comments for the console, and for the monkey: "#! crash" ends the program at once,
// "#! hold" notes what all windows hold, "#! same" sees that they hold it again after steps back and as many forth.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "app/console_host.h"
#include "core/child_window.h"
#include "tests/monkey/shared.h"

namespace zentaline::monkey {

// What the program waits for.
struct Question {
  enum Kind { kNone, kBox, kDialog, kModal };
  Kind kind = kNone;
  ui::BoxStyle style = ui::BoxStyle::kOk;
  const ui::FileDialogRequest* request = nullptr;
};

// Notes what is asked while it is asked.
class WatchedToolkit : public ui::ConsoleToolkit {
 public:
  using ConsoleToolkit::ConsoleToolkit;
  const Question& question() const { return question_; }
  bool recovery_asked = false;
  bool recovery_refused = false;   // with No, or what came back had no room
  bool recovery_answered = false;  // with Yes
  bool fresh = false;              // a line has been given since anything was asked

  ui::BoxAnswer MessageBox(ui::BoxStyle style, const std::string& title, const std::string& text) override;
  ui::FileDialogAnswer FileDialog(const ui::FileDialogRequest& request) override;

 protected:
  void RunModal(ui::Form& form) override;

 private:
  Question question_;
};

class Host;

// Where the lines come from.
class Lines {
 public:
  virtual ~Lines() = default;
  // The next line; none at the end of the script.
  virtual std::optional<std::string> Next(Host& host) = 0;
};

// Where the toolkit is put that the host's base makes.
struct Stage {
  WatchedToolkit* toolkit = nullptr;
  ConsoleParts Parts();
};

class Host : public ConsoleHost {
 public:
  Host(const ConsoleOptions& options, const std::string& directory, int no_script, Stage& stage, EndSignals& signals,
       Shared& shared, Lines& lines, int log);

  bool ReadLine(std::string& line, bool timers_run) override;
  ui::HostResult FailDisk(const std::string& operation, const std::string& error, int times, int after) override;
  void Start() override;
  [[noreturn]] void End(int status) override;

  WatchedToolkit& watched() { return *stage_.toolkit; }
  Application& program() { return app(); }
  Shared& shared() { return shared_; }
  bool start_given() const { return start_given_; }
  bool started() const { return started_; }
  bool Idle() { return watched().question().kind == Question::kNone; }
  void Log(const std::string& line);
  // Ends the life: something isn't as it must be.
  [[noreturn]] void Fail(const std::string& why);
  [[noreturn]] void Crash();
  // After the end: all windows are closed.
  void ExpectEnd();

 private:
  // A window as it was when it was first seen.
  struct Seen {
    std::uint64_t content;
    bool counts;  // it came back after a crash
  };

  void Look();
  void ExpectOrder();
  void NoteWindows();
  void ExpectRecovered();
  void NoteExpected();
  void Mark(const std::string& line);
  void Hold();
  void ExpectSame();
  std::map<std::string, std::uint64_t> Contents();

  Stage& stage_;
  Shared& shared_;
  Lines& lines_;
  int log_;
  bool start_given_ = false;
  bool started_ = false;
  bool looked_ = false;       // at what came back
  bool disk_failed_ = false;  // in this life
  std::map<const ui::Form*, Seen> seen_;
  std::optional<std::map<std::string, std::uint64_t>> held_;
  int held_back_ = 0, held_forth_ = 0;
};

}  // namespace zentaline::monkey
