// The timers that run, in the order in which they fall due.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace zentaline::ui {

class Timer;

class TimerQueue {
 public:
  // Falls due `now` plus its interval, in milliseconds since the program began. Ties fire in the order of starting.
  void Start(Timer& timer, std::int64_t now);
  void Stop(Timer& timer);
  void StopAll() { waiting_.clear(); }

  // When the next one falls due.
  std::optional<std::int64_t> NextDue() const;
  // Takes the next one that is due at `now` off the queue and returns it, no longer running; null when none is due.
  Timer* TakeDue(std::int64_t now);
  // The same for the first one that is `wanted`, due or not.
  Timer* TakeFirst(const std::function<bool(const Timer&)>& wanted);

 private:
  struct Waiting {
    std::int64_t due;
    Timer* timer;
  };
  std::vector<Waiting> waiting_;  // by due time, then by order of starting
};

}  // namespace zentaline::ui
