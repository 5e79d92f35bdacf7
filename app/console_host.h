// The program as a script sees it: the windows on a console, the MIDI service that was asked for, and a disk that fails
// on demand.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/console_options.h"
#include "app/end_signals.h"
#include "base/faulty_disk.h"
#include "base/posix_disk.h"
#include "core/application.h"
#include "midi/listening.h"
#include "midi/recorder/recorder.h"
#include "midi/virtual/virtual_midi.h"
#include "ui/console/console_toolkit.h"
#include "ui/console/lines.h"
#include "ui/console/midi_transcript.h"
#include "ui/script/engine.h"

namespace zentaline {

// What stands for a desktop, and for the user's hand on it.
struct ConsoleParts {
  using Sink = std::function<void(const std::string&)>;
  std::function<std::unique_ptr<ui::ConsoleToolkit>(ui::ConsoleToolkit::Clock, Sink, ui::ConsoleToolkit::Rest)>
      make_toolkit;
  std::function<std::unique_ptr<ui::ScriptDriver>(ui::ConsoleToolkit&)> make_driver;
};

// The console itself.
ConsoleParts PlainConsole();

class ConsoleHost : public ui::ScriptHost {
 public:
  // `directory` is absolute, `script` an open file. `service` carries the MIDI operations out when neither the recorder
  // nor the built-in instrument is asked for, and may be null.
  // `end_signals` is borrowed.
  ConsoleHost(const ConsoleOptions& options, std::string directory, int script, std::unique_ptr<MidiService> service,
              const ConsoleParts& parts, EndSignals& end_signals);

  // Carries out the script; the exit status.
  int Run() { return engine_.Run(); }

  ui::Toolkit& toolkit() override { return *toolkit_; }
  bool ReadLine(std::string& line, bool timers_run) override;
  ui::HostResult SetOuts(const std::vector<std::string>& names) override;
  ui::HostResult SetIns(const std::vector<std::string>& names) override;
  ui::HostResult FailService(const std::string& operation, int result, int times) override;
  ui::HostResult FailDisk(const std::string& operation, const std::string& error, int times, int after) override;
  void SetPrinter(bool works) override { toolkit_->SetPrinter(works); }
  void Start() override;
  bool Ended() const override { return stopped_ || toolkit_->main_closed(); }
  void Advance(std::int64_t milliseconds) override { toolkit_->Advance(milliseconds); }
  std::optional<ui::ScriptValue> State(const std::string& name) override;
  const Bytes* Image(const std::string& name) override;
  const Bytes* ImageOf(ui::Form& form) override;
  std::optional<ui::NamedValues> Instrument() override;
  std::string Directory() override { return directory_; }
  void Complain(const std::string& message) override;
  [[noreturn]] void End(int status) override;

 protected:
  // For who looks at the program between two lines.
  Application& app() { return app_; }

 private:
  MidiService& Service();
  // Waits, and ends the session when a signal has come.
  void Rest(int milliseconds);
  // The session ends by a signal: who types is asked as by `quit`, for others the program ends at once, with the
  // configuration written. False when nothing more is to be read.
  bool Look();
  [[noreturn]] void EndUnasked(int signal);

  const ConsoleOptions options_;
  const std::string directory_;
  const int script_;
  EndSignals& signals_;
  bool asking_ = false;  // a signal has begun the closing
  ui::LineReader in_;
  ui::LineWriter out_;
  const std::unique_ptr<ui::ConsoleToolkit> toolkit_;
  RecorderMidi recorder_;
  VirtualMidi virtual_;
  std::unique_ptr<MidiService> service_;
  ui::MidiTranscript midi_transcript_;
  ListeningMidi listening_;
  PosixDisk posix_disk_;
  FaultyDisk disk_;
  Application app_;
  const std::unique_ptr<ui::ScriptDriver> driver_;
  ui::ScriptEngine engine_;
  bool stopped_ = false;  // the start led to no main window
};

}  // namespace zentaline
