#include "ui/timers.h"

#include <algorithm>

#include "ui/controls.h"

namespace zentaline::ui {

void TimerQueue::Start(Timer& timer, std::int64_t now) {
  const std::int64_t due = now + timer.interval();
  const auto later = std::upper_bound(waiting_.begin(), waiting_.end(), due,
                                      [](std::int64_t value, const Waiting& waiting) { return value < waiting.due; });
  waiting_.insert(later, {due, &timer});
}

void TimerQueue::Stop(Timer& timer) {
  std::erase_if(waiting_, [&timer](const Waiting& waiting) { return waiting.timer == &timer; });
}

std::optional<std::int64_t> TimerQueue::NextDue() const {
  if (waiting_.empty()) return std::nullopt;
  return waiting_.front().due;
}

Timer* TimerQueue::TakeDue(std::int64_t now) {
  if (waiting_.empty() || waiting_.front().due > now) return nullptr;
  Timer* timer = waiting_.front().timer;
  waiting_.erase(waiting_.begin());
  timer->running_ = false;
  return timer;
}

Timer* TimerQueue::TakeFirst(const std::function<bool(const Timer&)>& wanted) {
  const auto first =
      std::find_if(waiting_.begin(), waiting_.end(), [&](const Waiting& waiting) { return wanted(*waiting.timer); });
  if (first == waiting_.end()) return nullptr;
  Timer* timer = first->timer;
  waiting_.erase(first);
  timer->running_ = false;
  return timer;
}

}  // namespace zentaline::ui
