#include "app/console_host.h"

#include <poll.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <utility>

#include "core/child_window.h"
#include "core/main_window.h"
#include "core/state_names.h"

namespace zentaline {

using ui::HostResult;

ConsoleParts PlainConsole() {
  return {[](ui::ConsoleToolkit::Clock clock, ConsoleParts::Sink sink, ui::ConsoleToolkit::Rest rest) {
            return std::make_unique<ui::ConsoleToolkit>(clock, std::move(sink), std::move(rest));
          },
          [](ui::ConsoleToolkit& toolkit) { return std::make_unique<ui::ConsoleDriver>(toolkit); }};
}

ConsoleHost::ConsoleHost(const ConsoleOptions& options, std::string directory, int script,
                         std::unique_ptr<MidiService> service, const ConsoleParts& parts, EndSignals& signals)
    : options_(options),
      directory_(std::move(directory)),
      script_(script),
      signals_(signals),
      in_(script, ui::kLongestScriptLine),
      out_(STDOUT_FILENO),
      toolkit_(parts.make_toolkit(
          options.real_time ? ui::ConsoleToolkit::Clock::kReal : ui::ConsoleToolkit::Clock::kVirtual,
          [this](const std::string& line) { out_.Write(line); }, [this](int milliseconds) { Rest(milliseconds); })),
      service_(std::move(service)),
      midi_transcript_(toolkit_->transcript()),
      listening_(Service(), midi_transcript_),
      disk_(posix_disk_),
      app_(*toolkit_, listening_, disk_, directory_),
      driver_(parts.make_driver(*toolkit_)),
      engine_(*this, *driver_, toolkit_->transcript()) {
  toolkit_->SetQuestions(engine_);
  virtual_.FollowArrangementChannel([this] { return app_.midi.ArrChannel; });
}

// The recorder without devices stands for no service at all.
MidiService& ConsoleHost::Service() {
  if (options_.midi == ConsoleOptions::Midi::kVirtual) return virtual_;
  if (service_ != nullptr) return *service_;
  return recorder_;
}

bool ConsoleHost::ReadLine(std::string& line, bool timers_run) {
  // Whoever types has nothing more to say to a program that has ended.
  if (Ended() && ::isatty(script_) == 1) return false;
  ui::LineReader::Idle idle;
  if (timers_run && options_.real_time) idle = [this] { return toolkit_->RunDueTimers(); };
  return in_.Read(line, idle, {signals_.descriptor(), [this] { return Look(); }});
}

void ConsoleHost::Rest(int milliseconds) {
  pollfd waits = {signals_.descriptor(), POLLIN, 0};
  if (milliseconds > 0) ::poll(&waits, 1, milliseconds);
  Look();
}

bool ConsoleHost::Look() {
  const int signal = signals_.Take();
  if (signal == 0) return true;
  MainWindow* const main = app_.main;
  const bool can_ask = ::isatty(script_) == 1 && main != nullptr && main->Reachable() && !engine_.Asks();
  if (!can_ask || std::exchange(asking_, true)) EndUnasked(signal);
  driver_->Close(*main);
  asking_ = false;
  signals_.GoOn();
  return !Ended();
}

void ConsoleHost::EndUnasked(int signal) {
  app_.EndUnasked();
  ConsoleHost::End(128 + signal);
}

HostResult ConsoleHost::SetOuts(const std::vector<std::string>& names) {
  if (options_.midi != ConsoleOptions::Midi::kRecorder) return HostResult::kRefused;
  recorder_.SetOuts(names);
  return HostResult::kDone;
}

HostResult ConsoleHost::SetIns(const std::vector<std::string>& names) {
  if (options_.midi != ConsoleOptions::Midi::kRecorder) return HostResult::kRefused;
  recorder_.SetIns(names);
  return HostResult::kDone;
}

HostResult ConsoleHost::FailService(const std::string& operation, int result, int times) {
  if (!MidiOperationOf(operation)) return HostResult::kUnknown;
  if (options_.midi != ConsoleOptions::Midi::kRecorder) return HostResult::kRefused;
  return recorder_.Fail(operation, result, times) ? HostResult::kDone : HostResult::kUnknown;
}

HostResult ConsoleHost::FailDisk(const std::string& operation, const std::string& error, int times, int after) {
  return disk_.Fail(operation, error, times, after) ? HostResult::kDone : HostResult::kUnknown;
}

void ConsoleHost::Start() {
  if (options_.journal) app_.KeepJournal();
  if (app_.Start()) {
    toolkit_->RunChain([this] { return app_.Starting(); });
  } else {
    stopped_ = true;
  }
}

std::optional<ui::ScriptValue> ConsoleHost::State(const std::string& name) {
  const std::optional<StateValue> value = ReadState(app_, name);
  if (!value) return std::nullopt;
  if (const long* const number = std::get_if<long>(&*value)) return ui::ScriptValue(std::int64_t{*number});
  return ui::ScriptValue(std::get<std::string>(*value));
}

const Bytes* ConsoleHost::Image(const std::string& name) {
  return ReadStateImage(app_, name);
}

const Bytes* ConsoleHost::ImageOf(ui::Form& form) {
  const auto* const child = dynamic_cast<const ChildWindow*>(&form);
  return child != nullptr && !child->window_image().empty() ? &child->window_image() : nullptr;
}

std::optional<ui::NamedValues> ConsoleHost::Instrument() {
  if (options_.midi != ConsoleOptions::Midi::kVirtual) return std::nullopt;
  ui::NamedValues values;
  for (const HeldValue& held : virtual_.Holdings()) {
    values.emplace_back(held.name,
                        held.is_number ? ui::ScriptValue(std::int64_t{held.number}) : ui::ScriptValue(held.text));
  }
  return values;
}

void ConsoleHost::Complain(const std::string& message) {
  std::fprintf(stderr, "zentaline-console: %s\n", message.c_str());
}

void ConsoleHost::End(int status) {
  std::fflush(stderr);
  std::_Exit(status);
}

}  // namespace zentaline
