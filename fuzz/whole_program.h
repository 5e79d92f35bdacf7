// The whole program for a fuzzer: the console's own engine and windows, MIDI devices that fail on demand, and a disk in
// memory with the files that go with the program.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "base/faulty_disk.h"
#include "core/application.h"
#include "core/child_window.h"
#include "core/state_names.h"
#include "midi/listening.h"
#include "midi/operations.h"
#include "midi/recorder/recorder.h"
#include "tests/support/memory_disk.h"
#include "ui/console/console_toolkit.h"
#include "ui/console/midi_transcript.h"
#include "ui/script/engine.h"

namespace zentaline::fuzz {

// Read once: they are the same in every run.
inline const std::map<std::string, Bytes>& ProgramFiles() {
  static const std::map<std::string, Bytes> files = [] {
    std::map<std::string, Bytes> read;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(ZENTALINE_SHARE)) {
      if (!entry.is_regular_file()) continue;
      std::ifstream file(entry.path(), std::ios::binary);
      const std::string name = std::filesystem::relative(entry.path(), ZENTALINE_SHARE).string();
      read["/disk/" + name] = {std::istreambuf_iterator<char>(file), {}};
    }
    return read;
  }();
  return files;
}

// Thrown where the console would leave at once.
struct Left {
  int status;
};

class WholeProgram : public ui::ScriptHost {
 public:
  explicit WholeProgram(const std::string& script) : script_(script) {
    memory_.files = ProgramFiles();
    console_.SetQuestions(engine_);
  }

  test::MemoryDisk& memory() { return memory_; }
  // The exit status.
  int Run() {
    try {
      return engine_.Run();
    } catch (const Left& left) {
      return left.status;
    }
  }

  ui::Toolkit& toolkit() override { return console_; }
  bool ReadLine(std::string& line, bool) override { return static_cast<bool>(std::getline(script_, line)); }
  ui::HostResult SetOuts(const std::vector<std::string>& names) override {
    recorder_.SetOuts(names);
    return ui::HostResult::kDone;
  }
  ui::HostResult SetIns(const std::vector<std::string>& names) override {
    recorder_.SetIns(names);
    return ui::HostResult::kDone;
  }
  ui::HostResult FailService(const std::string& operation, int result, int times) override {
    const bool known = MidiOperationOf(operation) && recorder_.Fail(operation, result, times);
    return known ? ui::HostResult::kDone : ui::HostResult::kUnknown;
  }
  ui::HostResult FailDisk(const std::string& operation, const std::string& error, int times, int after) override {
    return disk_.Fail(operation, error, times, after) ? ui::HostResult::kDone : ui::HostResult::kUnknown;
  }
  void SetPrinter(bool works) override { console_.SetPrinter(works); }
  void Start() override {
    if (app_.Start()) {
      console_.RunChain([this] { return app_.Starting(); });
    } else {
      stopped_ = true;
    }
  }
  bool Ended() const override { return stopped_ || console_.main_closed(); }
  void Advance(std::int64_t milliseconds) override { console_.Advance(milliseconds); }
  std::optional<ui::ScriptValue> State(const std::string& name) override {
    const std::optional<StateValue> value = ReadState(app_, name);
    if (!value) return std::nullopt;
    if (const long* const number = std::get_if<long>(&*value)) return ui::ScriptValue(std::int64_t{*number});
    return ui::ScriptValue(std::get<std::string>(*value));
  }
  const Bytes* Image(const std::string& name) override { return ReadStateImage(app_, name); }
  const Bytes* ImageOf(ui::Form& form) override {
    const auto* const child = dynamic_cast<const ChildWindow*>(&form);
    return child != nullptr && !child->window_image().empty() ? &child->window_image() : nullptr;
  }
  std::optional<ui::NamedValues> Instrument() override { return std::nullopt; }
  std::string Directory() override { return "/disk"; }
  void Complain(const std::string&) override {}
  [[noreturn]] void End(int status) override { throw Left{status}; }

 private:
  std::istringstream script_;
  test::MemoryDisk memory_;
  FaultyDisk disk_{memory_};
  RecorderMidi recorder_;
  ui::ConsoleToolkit console_{ui::ConsoleToolkit::Clock::kVirtual, [](const std::string&) {}};
  ui::MidiTranscript midi_transcript_{console_.transcript()};
  ListeningMidi midi_{recorder_, midi_transcript_};
  Application app_{console_, midi_, disk_, "/disk"};
  ui::ConsoleDriver driver_{console_};
  ui::ScriptEngine engine_{*this, driver_, console_.transcript()};
  bool stopped_ = false;
};

}  // namespace zentaline::fuzz
