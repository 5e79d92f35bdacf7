#include "ui/script/engine.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace zentaline::ui {

namespace {

constexpr std::size_t kAnyNumber = std::numeric_limits<std::size_t>::max();

bool Any(ScriptWords) {
  return true;
}

// Behind the name of a control or an operation.
bool NumbersBehind(ScriptWords words) {
  return ScriptNumbers(words.subspan(1)).has_value();
}

bool RowsBehind(ScriptWords words) {
  return ScriptRows(words.subspan(1)).has_value();
}

bool KeyBehind(ScriptWords words) {
  return ScriptKey(words[1].text).has_value();
}

bool MouseBehind(ScriptWords words) {
  return ScriptMouse(words.subspan(1)).has_value();
}

// How often an operation fails, at the end.
bool GoodTimes(ScriptWords words) {
  if (words.size() < 3) return true;
  const std::optional<int> times = ScriptNumber(words[2].text);
  return times && *times >= 0;
}

bool DiskFault(ScriptWords words) {
  if (words.size() < 4) return GoodTimes(words);
  const std::optional<int> after = ScriptNumber(words[3].text);
  return GoodTimes(words) && after && *after >= 0;
}

bool ServiceFault(ScriptWords words) {
  return ScriptNumber(words[1].text).has_value() && GoodTimes(words);
}

bool Duration(ScriptWords words) {
  return ScriptDuration(words[0].text).has_value();
}

bool WorksOrNot(ScriptWords words) {
  return words[0].text == "ok" || words[0].text == "fail";
}

bool BoxButton(ScriptWords words) {
  return ScriptAnswer(words[0].text).has_value();
}

bool FileWords(ScriptWords words) {
  return ScriptFileAnswer(words).has_value();
}

}  // namespace

std::span<const ScriptEngine::Command> ScriptEngine::Commands() {
  using E = ScriptEngine;
  static constexpr Command kCommands[] = {
      {"outs", 0, kAnyNumber, Access::kSetup, Any, &E::Outs},
      {"ins", 0, kAnyNumber, Access::kSetup, Any, &E::Ins},
      {"start", 0, 0, Access::kSetup, Any, &E::Start},
      {"fail", 2, 3, Access::kFault, ServiceFault, &E::Fail},
      {"disk", 2, 4, Access::kFault, DiskFault, &E::Disk},
      {"printer", 1, 1, Access::kFault, WorksOrNot, &E::Printer},
      {"wait", 1, 1, Access::kAction, Duration, &E::Wait},
      {"quit", 0, 0, Access::kAction, Any, &E::Quit},
      {"press", 1, 1, Access::kAction, Any, &E::Press},
      {"select", 2, kAnyNumber, Access::kAction, RowsBehind, &E::Select},
      {"set", 2, 2, Access::kAction, NumbersBehind, &E::Set},
      {"type", 2, 2, Access::kAction, Any, &E::Type},
      {"key", 2, 2, Access::kAction, KeyBehind, &E::PressKey},
      {"double", 1, 2, Access::kAction, NumbersBehind, &E::DoubleClick},
      {"drag", 4, 4, Access::kAction, NumbersBehind, &E::Drag},
      {"mouse", 2, 5, Access::kAction, MouseBehind, &E::Mouse},
      {"menu", 1, 1, Access::kAction, Any, &E::Menu},
      {"activate", 1, 1, Access::kAction, Any, &E::Activate},
      {"close", 1, 1, Access::kAction, Any, &E::Close},
      {"resize", 3, 3, Access::kAction, NumbersBehind, &E::Resize},
      {"move", 3, 3, Access::kAction, NumbersBehind, &E::Move},
      {"maximize", 1, 1, Access::kAction, Any, &E::Maximize},
      {"minimize", 1, 1, Access::kAction, Any, &E::Minimize},
      {"restore", 1, 1, Access::kAction, Any, &E::Restore},
      {"answer", 1, 1, Access::kAnswer, BoxButton, &E::Answer},
      {"file", 1, 3, Access::kFile, FileWords, &E::File},
      {"get", 1, 1, Access::kReader, Any, &E::Get},
      {"show", 1, 1, Access::kReader, Any, &E::Show},
      {"image", 3, 3, Access::kReader, NumbersBehind, &E::Image},
      {"state", 1, 1, Access::kReader, Any, &E::State},
      {"instrument", 0, 0, Access::kLister, Any, &E::Instrument},
      {"windows", 0, 0, Access::kLister, Any, &E::Windows},
  };
  return kCommands;
}

int ScriptEngine::Run() {
  std::string line;
  while (ReadLine(line)) {
    const Outcome outcome = Do(line);
    if (outcome.status == kScriptDone) continue;
    Report(outcome.message);
    return outcome.status;
  }
  return kScriptDone;
}

template <class Answered>
void ScriptEngine::ReadUntil(Situation situation, Answered answered) {
  const Situation before = std::exchange(situation_, situation);
  std::string line;
  while (!answered()) {
    Outcome outcome{kScriptUnanswered, "the script ends while a question is open"};
    if (ReadLine(line)) outcome = Do(line);
    if (outcome.status == kScriptDone) continue;
    Report(outcome.message);
    host_.End(outcome.status);
  }
  situation_ = before;
}

BoxAnswer ScriptEngine::AnswerBox(BoxStyle style) {
  if (style == BoxStyle::kOk) return BoxAnswer::kOk;
  box_style_ = style;
  box_answer_.reset();
  ReadUntil(Situation::kBox, [this] { return box_answer_.has_value(); });
  return *box_answer_;
}

FileDialogAnswer ScriptEngine::AnswerDialog(const FileDialogRequest& request) {
  dialog_ = &request;
  dialog_answer_.reset();
  ReadUntil(Situation::kDialog, [this] { return dialog_answer_.has_value(); });
  dialog_ = nullptr;
  return *dialog_answer_;
}

void ScriptEngine::RunModal(Form& form) {
  ReadUntil(Situation::kModal, [&form] { return !form.open(); });
}

bool ScriptEngine::ReadLine(std::string& line) {
  const bool held_up = situation_ == Situation::kBox || situation_ == Situation::kDialog;
  if (!host_.ReadLine(line, started_ && !held_up && !host_.Ended())) return false;
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (++line_number_ == 1 && line.starts_with(kByteOrderMark)) line.erase(0, kByteOrderMark.size());
  return true;
}

void ScriptEngine::Report(const std::string& message) {
  host_.Complain("line " + std::to_string(line_number_) + ": " + message);
}

ScriptEngine::Outcome ScriptEngine::Do(const std::string& line) {
  const ScriptLine parsed = ParseScriptLine(line);
  if (!parsed.error.empty()) return Usage(parsed.error);
  if (parsed.words.empty()) return {};
  const std::string& name = parsed.words[0].text;
  const auto commands = Commands();
  const auto command =
      std::find_if(commands.begin(), commands.end(), [&name](const Command& known) { return known.name == name; });
  if (command == commands.end()) return Usage("there is no command " + name);
  const Words words = Words(parsed.words).subspan(1);
  if (words.size() < command->least_words) return Usage(name + ": too few words");
  if (words.size() > command->most_words) return Usage(name + ": too many words");
  if (!command->well_formed(words)) return Usage(name + ": malformed");
  const Outcome refusal = Allowed(*command);
  return refusal.status != kScriptDone ? refusal : (this->*command->run)(words);
}

ScriptEngine::Outcome ScriptEngine::Allowed(const Command& command) const {
  if (started_ && host_.Ended()) return Refused("the program has ended");
  const bool reads = command.access == Access::kReader;
  switch (situation_) {
    case Situation::kBox:
      if (reads || command.access == Access::kAnswer) return {};
      return {kScriptUnanswered, "a box is open, and this is no answer"};
    case Situation::kDialog:
      if (reads || command.access == Access::kFile) return {};
      return {kScriptUnanswered, "a file dialog is open, and this is no file"};
    default:
      break;
  }
  switch (command.access) {
    case Access::kAnswer:
      return Refused("no box is open");
    case Access::kFile:
      return Refused("no file dialog is open");
    case Access::kSetup:
      return started_ ? Refused("the program has been started") : Outcome();
    case Access::kAction:
      return started_ ? Outcome() : Refused("the program has not been started");
    default:
      return {};
  }
}

}  // namespace zentaline::ui
