#include "tests/monkey/host.h"

#include <unistd.h>

#include <algorithm>
#include <utility>

#include "base/scoped_value.h"
#include "core/main_window.h"
#include "tests/monkey/contents.h"

namespace zentaline::monkey {

namespace {

// In seconds: what takes longer hangs.
constexpr unsigned kLongestAction = 120;

bool IsRecoveryQuestion(const std::string& text) {
  return text.find("Bring them back") != std::string::npos || text.find("Recuperarle") != std::string::npos;
}

}  // namespace

// --- The toolkit ---

ui::BoxAnswer WatchedToolkit::MessageBox(ui::BoxStyle style, const std::string& title, const std::string& text) {
  if (text.find(".journal.old") != std::string::npos) recovery_refused = true;
  const bool recovery = IsRecoveryQuestion(text);
  if (style == ui::BoxStyle::kOk) return ConsoleToolkit::MessageBox(style, title, text);
  const Question before = std::exchange(question_, {Question::kBox, style, nullptr});
  const ui::BoxAnswer answer = ConsoleToolkit::MessageBox(style, title, text);
  question_ = before;
  if (recovery) {
    recovery_asked = true;
    (answer == ui::BoxAnswer::kYes ? recovery_answered : recovery_refused) = true;
  }
  return answer;
}

ui::FileDialogAnswer WatchedToolkit::FileDialog(const ui::FileDialogRequest& request) {
  const Question before = std::exchange(question_, {Question::kDialog, ui::BoxStyle::kOk, &request});
  ui::FileDialogAnswer answer = ConsoleToolkit::FileDialog(request);
  question_ = before;
  return answer;
}

void WatchedToolkit::RunModal(ui::Form& form) {
  const Question before = std::exchange(question_, {Question::kModal, ui::BoxStyle::kOk, nullptr});
  ConsoleToolkit::RunModal(form);
  question_ = before;
}

ConsoleParts Stage::Parts() {
  ConsoleParts parts = PlainConsole();
  parts.make_toolkit = [this](ui::ConsoleToolkit::Clock clock, ConsoleParts::Sink sink, ui::ConsoleToolkit::Rest rest) {
    auto made = std::make_unique<WatchedToolkit>(clock, std::move(sink), std::move(rest));
    toolkit = made.get();
    return made;
  };
  return parts;
}

// --- The host ---

Host::Host(const ConsoleOptions& options, const std::string& directory, int no_script, Stage& stage,
           EndSignals& signals, Shared& shared, Lines& lines, int log)
    : ConsoleHost(options, directory, no_script, nullptr, stage.Parts(), signals),
      stage_(stage),
      shared_(shared),
      lines_(lines),
      log_(log) {}

void Host::Log(const std::string& line) {
  const std::string whole = line + "\n";
  if (::write(log_, whole.data(), whole.size()) < 0) End(kFailed);
}

void Host::Fail(const std::string& why) {
  shared_.Fail(why);
  Log("#! failed: " + why);
  ConsoleHost::End(kFailed);
}

void Host::End(int status) {
  // A question that stayed open, or a command that a modal window refused: the user turns the computer off.
  Log("#! status " + std::to_string(status));
  Crash();
}

bool Host::ReadLine(std::string& line, bool) {
  for (;;) {
    ::alarm(kLongestAction);
    if (started_ && Idle() && !Ended()) Look();
    const std::optional<std::string> next = lines_.Next(*this);
    if (!next) return false;
    Log(*next);
    if (next->starts_with("#! ")) {
      Mark(*next);
      continue;
    }
    if (held_ && *next != "press mnuAnnulla" && *next != "press mnuRipeti") held_.reset();
    if (*next == "start") start_given_ = true;
    ++shared_.actions;
    line = *next;
    return true;
  }
}

ui::HostResult Host::FailDisk(const std::string& operation, const std::string& error, int times, int after) {
  disk_failed_ = true;
  ++shared_.faults;
  return ConsoleHost::FailDisk(operation, error, times, after);
}

void Host::Start() {
  ConsoleHost::Start();
  started_ = true;
}

// --- What must hold between two lines ---

void Host::Look() {
  ExpectOrder();
  if (!std::exchange(looked_, true)) {
    ExpectRecovered();
  } else {
    NoteWindows();
  }
}

void Host::ExpectOrder() {
  if (watched().modal() != nullptr) Fail("a modal window is left");
  for (const ui::Form* const form : watched().forms()) {
    if (!form->open()) Fail(form->FullName() + " is closed, and still among the windows");
  }
  const ui::Form* const front = watched().active_child();
  if (front != nullptr && watched().FindForm(front->FullName()) != front) Fail("the front window is none of them");
}

void Host::NoteWindows() {
  std::map<const ui::Form*, Seen> now;
  for (ui::Form* const form : watched().forms()) {
    if (form->kind() != ui::FormKind::kChild) continue;
    const auto known = seen_.find(form);
    if (known != seen_.end()) {
      now.insert(*known);
    } else {
      now[form] = {ContentOf(app(), static_cast<ChildWindow&>(*form), false), false};
    }
  }
  seen_ = std::move(now);
}

void Host::ExpectRecovered() {
  NoteWindows();
  const int count = std::exchange(shared_.expected_count, 0);
  if (watched().recovery_answered) ++shared_.recoveries;
  if (disk_failed_ || watched().recovery_refused) return;
  for (int i = 0; i < count; ++i) {
    const Expected& expected = shared_.expected[static_cast<std::size_t>(i)];
    const auto has = [&](const auto& each) {
      // Only windows that are open now are among those that were seen.
      auto& window = static_cast<ChildWindow&>(const_cast<ui::Form&>(*each.first));
      return FileKindOfWindow(window.Kind()) == expected.kind && each.second.content == expected.content;
    };
    const auto found = std::find_if(seen_.begin(), seen_.end(), has);
    if (found == seen_.end()) {
      Fail(std::string("lost in the crash: ") + expected.name.data() +
           (watched().recovery_asked ? "" : ", which was not offered"));
    }
    found->second.counts = true;
    ++shared_.brought_back;
  }
}

// What the next life must have: the windows that the user has changed in this one.
void Host::NoteExpected() {
  shared_.expected_count = 0;
  if (disk_failed_) return;
  NoteWindows();
  for (const auto& [form, seen] : seen_) {
    auto& window = static_cast<ChildWindow&>(const_cast<ui::Form&>(*form));
    const int kind = FileKindOfWindow(window.Kind());
    const auto place = static_cast<std::size_t>(shared_.expected_count);
    if (kind == 0 || place == shared_.expected.size() || !HasChanges(app(), window)) continue;
    if (StandsOnDisk(window)) continue;
    Expected expected;
    expected.kind = kind;
    expected.content = ContentOf(app(), window, true);
    if (expected.content == seen.content && !seen.counts) continue;
    const std::string name = window.FullName() + " " + window.caption();
    name.copy(expected.name.data(), expected.name.size() - 1);
    shared_.expected[place] = expected;
    ++shared_.expected_count;
  }
}

void Host::Crash() {
  // What an event did that hasn't ended may be lost; at the start nothing was done yet.
  if (started_ && Idle()) {
    NoteExpected();
  } else if (started_) {
    shared_.expected_count = 0;
  }
  ++shared_.crashes;
  ConsoleHost::End(kCrashed);
}

void Host::Mark(const std::string& line) {
  if (line == "#! crash") Crash();
  if (line == "#! hold") Hold();
  if (line == "#! same") ExpectSame();
}

// --- Back and forth ---

std::map<std::string, std::uint64_t> Host::Contents() {
  std::map<std::string, std::uint64_t> contents;
  for (ui::Form* const form : watched().forms()) {
    if (form->kind() != ui::FormKind::kChild) continue;
    auto& window = static_cast<ChildWindow&>(*form);
    if (FileKindOfWindow(window.Kind()) == 0) continue;
    contents[window.FullName()] = ContentOf(app(), window, false);
    contents[window.FullName() + ", marked"] = HasChanges(app(), window) ? 1 : 0;
  }
  // Without changes of its own an editor takes over what becomes of its record in the file.
  if (app().arrangement.EditorChanged) contents["ArrEditRecord"] = HashOf(app().arrangement.ArrEditRecord.value());
  if (app().program.ProgramChanged) contents["EditRecord"] = HashOf(app().program.EditRecord.value());
  return contents;
}

void Host::Hold() {
  if (!Idle() || !started_ || Ended()) return;
  held_ = Contents();
  held_back_ = app().edits.BackCount();
  held_forth_ = app().edits.ForwardCount();
}

void Host::ExpectSame() {
  if (!held_ || !Idle()) return;
  const auto held = *std::exchange(held_, std::nullopt);
  // An action on the database leaves the list when the file is another one.
  if (app().edits.BackCount() != held_back_ || app().edits.ForwardCount() != held_forth_) return;
  ++shared_.round_trips;
  const auto now = Contents();
  for (const auto& [name, content] : held) {
    const auto found = now.find(name);
    if (found == now.end()) Fail(name + " is gone after steps back and forth");
    if (found->second != content) Fail(name + " is another one after steps back and forth");
  }
}

void Host::ExpectEnd() {
  shared_.expected_count = 0;
  ++shared_.ends;
  for (const ui::Form* const form : watched().forms()) Fail(form->FullName() + " is open after the end");
}

}  // namespace zentaline::monkey
