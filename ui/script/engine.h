// Carries out a script, line by line. Whatever holds the program up, a box, a dialog or a modal form, calls back and
// has the script read on until it is answered.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "ui/script/arguments.h"
#include "ui/script/driver.h"
#include "ui/script/host.h"
#include "ui/script/names.h"

namespace zentaline::ui {

// Exit statuses of a script.
enum ScriptStatus : int {
  kScriptDone = 0,
  kScriptRefused = 1,     // a command could not be carried out
  kScriptUsage = 2,       // a line that is no command
  kScriptUnanswered = 3,  // a question was open and the script held no answer
};

// What a toolkit asks when it has something for the user to answer. None of these returns when the script fails or
// ends: the host's End is called.
class ScriptQuestions {
 public:
  virtual ~ScriptQuestions() = default;
  // A box with nothing but an OK button is answered at once.
  virtual BoxAnswer AnswerBox(BoxStyle style) = 0;
  virtual FileDialogAnswer AnswerDialog(const FileDialogRequest& request) = 0;
  // Returns when the form has been closed.
  virtual void RunModal(Form& form) = 0;
};

class ScriptEngine : public ScriptQuestions {
 public:
  ScriptEngine(ScriptHost& host, ScriptDriver& driver, Transcript& transcript)
      : host_(host), driver_(driver), transcript_(transcript) {}

  // Whether a question is open that a line of the script answers.
  bool Asks() const { return situation_ != Situation::kIdle; }

  // Carries out the script to its end or its first failure and returns the status.
  int Run();

  BoxAnswer AnswerBox(BoxStyle style) override;
  FileDialogAnswer AnswerDialog(const FileDialogRequest& request) override;
  void RunModal(Form& form) override;

 private:
  using Words = ScriptWords;  // of a command, without its first

  struct Outcome {
    int status = kScriptDone;
    std::string message;
  };

  enum class Situation { kIdle, kBox, kDialog, kModal };

  // When a command is taken.
  enum class Access {
    kReader,  // always
    kLister,  // always but while a question is open
    kSetup,   // before the start
    kFault,   // before the start and after
    kAction,  // after the start
    kAnswer,  // while a box is open
    kFile,    // while a dialog is open
  };

  struct Command {
    std::string_view name;
    std::size_t least_words;
    std::size_t most_words;
    Access access;
    bool (*well_formed)(Words words);
    Outcome (ScriptEngine::*run)(Words words);  // words that are well formed
  };
  static std::span<const Command> Commands();

  static Outcome Usage(std::string message) { return {kScriptUsage, std::move(message)}; }
  static Outcome Refused(std::string message) { return {kScriptRefused, std::move(message)}; }
  static Outcome Refused(const Control& control, std::string_view why);
  static Outcome DoneBy(bool done, std::string_view name);
  static Outcome FromHost(HostResult result);

  // Reads on while something holds the program up, until `answered`.
  template <class Answered>
  void ReadUntil(Situation situation, Answered answered);
  bool ReadLine(std::string& line);
  Outcome Do(const std::string& line);
  Outcome Allowed(const Command& command) const;
  void Report(const std::string& message);

  // Finds what a user can get at, and has brought its window to the front when it is a child window.
  Outcome Reach(const std::string& name, ScriptTarget& target);
  // The same for what stands on the screen: a window, or a control other than timers and menu entries.
  Outcome ReachByMouse(const std::string& name, ScriptTarget& target);
  // Null, with the reason, when there is no such control of one of the kinds.
  Control* ReachControl(const std::string& name, std::initializer_list<ControlKind> kinds, Outcome& refusal);
  // The same for a window itself.
  Form* ReachForm(const std::string& name, Outcome& refusal);
  Outcome ChangeState(const std::string& name, WindowState state);

  // Before and around the program.
  Outcome Outs(Words words);
  Outcome Ins(Words words);
  Outcome Fail(Words words);
  Outcome Disk(Words words);
  Outcome Printer(Words words);
  Outcome Start(Words words);
  Outcome Wait(Words words);
  Outcome Quit(Words words);
  // The user's actions.
  Outcome Press(Words words);
  Outcome Select(Words words);
  Outcome Set(Words words);
  Outcome Type(Words words);
  Outcome PressKey(Words words);
  Outcome DoubleClick(Words words);
  Outcome Drag(Words words);
  Outcome Mouse(Words words);
  Outcome Menu(Words words);
  Outcome Activate(Words words);
  Outcome Close(Words words);
  Outcome Resize(Words words);
  Outcome Move(Words words);
  Outcome Maximize(Words words);
  Outcome Minimize(Words words);
  Outcome Restore(Words words);
  Outcome Answer(Words words);
  Outcome File(Words words);
  // What is read.
  Outcome Get(Words words);
  Outcome Show(Words words);
  Outcome Image(Words words);
  Outcome Instrument(Words words);
  Outcome State(Words words);
  Outcome Windows(Words words);

  ScriptHost& host_;
  ScriptDriver& driver_;
  Transcript& transcript_;
  std::int64_t line_number_ = 0;
  bool started_ = false;
  Situation situation_ = Situation::kIdle;
  BoxStyle box_style_ = BoxStyle::kOk;
  std::optional<BoxAnswer> box_answer_;
  const FileDialogRequest* dialog_ = nullptr;
  std::optional<FileDialogAnswer> dialog_answer_;
};

}  // namespace zentaline::ui
