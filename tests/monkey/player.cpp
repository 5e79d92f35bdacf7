#include "tests/monkey/player.h"

#include <algorithm>

#include "ui/script/line.h"
#include "ui/script/names.h"

namespace zentaline::monkey {

namespace {

constexpr const char* kWithoutTarget[] = {"wait", "quit", "printer", "fail", "disk"};
constexpr const char* kBeforeStart[] = {"outs", "ins", "start"};

template <class Words>
bool IsOneOf(const std::string& word, const Words& words) {
  return std::find(std::begin(words), std::end(words), word) != std::end(words);
}

// Whether the line can be done now.
bool Fits(Host& host, const std::string& line) {
  const ui::ScriptLine parsed = ui::ParseScriptLine(line);
  if (parsed.words.empty()) return line.starts_with("#! ");
  const std::string& command = parsed.words[0].text;
  const auto kind = host.watched().question().kind;
  if (command == "answer" || command == "file") {
    return kind == (command == "answer" ? Question::kBox : Question::kDialog);
  }
  if (kind == Question::kBox || kind == Question::kDialog) return false;
  if (IsOneOf(command, kBeforeStart)) return !host.start_given();
  if (IsOneOf(command, kWithoutTarget)) return host.start_given() || command == "disk" || command == "fail";
  if (!host.start_given() || parsed.words.size() < 2) return false;
  const ui::ScriptTarget target = ui::FindScriptTarget(host.toolkit(), parsed.words[1].text);
  if (!target.Found() || !target.form->Reachable()) return false;
  return target.control == nullptr || target.control->Usable();
}

}  // namespace

std::optional<std::string> Player::Next(Host& host) {
  if (host.Ended()) return std::nullopt;
  const auto kind = host.watched().question().kind;
  while (next_ < lines_.size()) {
    const std::string& line = lines_[next_];
    const bool mark = line.starts_with("#! ");
    if (mark || Fits(host, line)) {
      ++next_;
      return line;
    }
    const bool answers = line.starts_with("answer ") || line.starts_with("file ");
    // The question is one that the lines know nothing of any more.
    if (!answers && kind == Question::kBox) return "answer no";
    if (!answers && kind == Question::kDialog) return "file cancel";
    ++next_;
  }
  if (kind == Question::kBox) return "answer no";
  if (kind == Question::kDialog) return "file cancel";
  return std::nullopt;
}

}  // namespace zentaline::monkey
