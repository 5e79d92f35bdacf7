// What a script asks of the program around it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/bytes.h"
#include "ui/script/transcript.h"
#include "ui/toolkit.h"

namespace zentaline::ui {

enum class HostResult {
  kDone,
  kUnknown,  // no such operation or error
  kRefused,  // this program, as it was started, has nothing of the kind
};

using NamedValues = std::vector<std::pair<std::string, ScriptValue>>;

class ScriptHost {
 public:
  virtual ~ScriptHost() = default;

  virtual Toolkit& toolkit() = 0;

  // The next line of the script, without its line end; false at its end. While it waits for one, the timers run when
  // `timers_run` and the clock is the real one; their handlers may ask for further lines.
  virtual bool ReadLine(std::string& line, bool timers_run) = 0;

  // The recorder's devices and faults. `times` 0: always; result 0 takes a fault away.
  virtual HostResult SetOuts(const std::vector<std::string>& names) = 0;
  virtual HostResult SetIns(const std::vector<std::string>& names) = 0;
  virtual HostResult FailService(const std::string& operation, int result, int times) = 0;
  virtual HostResult FailDisk(const std::string& operation, const std::string& error, int times, int after) = 0;
  virtual void SetPrinter(bool works) = 0;

  // Starts the program, and returns when the windows of the last run have been reopened.
  virtual void Start() = 0;
  // True when the program was started and has ended.
  virtual bool Ended() const = 0;
  virtual void Advance(std::int64_t milliseconds) = 0;

  // Module-wide state by its name; none when there is none of the name.
  virtual std::optional<ScriptValue> State(const std::string& name) = 0;
  // A byte string of the state by its name, the image of a window; null when there is none. Good until the next event.
  virtual const Bytes* Image(const std::string& name) = 0;
  virtual const Bytes* ImageOf(Form& form) = 0;
  // What the instrument inside the program holds; none when there is no such instrument.
  virtual std::optional<NamedValues> Instrument() = 0;

  // The absolute path from which relative ones are taken.
  virtual std::string Directory() = 0;

  // A message for the user, of one line.
  virtual void Complain(const std::string& message) = 0;
  // Leaves the program as a crash would: what was printed is kept, nothing else is done or written.
  [[noreturn]] virtual void End(int status) = 0;
};

}  // namespace zentaline::ui
