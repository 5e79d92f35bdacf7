#include "midi/recorder/recorder.h"

#include <algorithm>

namespace zentaline {

bool RecorderMidi::Fail(std::string_view operation, int result, int times) {
  const auto known = MidiOperationOf(operation);
  if (!known) return false;
  failures_[static_cast<std::size_t>(*known)] = {result, std::max(times, 0)};
  return true;
}

const std::vector<std::string>& RecorderMidi::Devices(MidiDirection direction) const {
  return direction == MidiDirection::kOut ? outs_ : ins_;
}

int RecorderMidi::Fault(MidiOperation operation) {
  Failure& failure = failures_[static_cast<std::size_t>(operation)];
  const int result = failure.result;
  if (failure.times > 0 && --failure.times == 0) failure.result = 0;
  return result;
}

}  // namespace zentaline
