// A MIDI service for tests and scripts: its devices and its failures are set by hand, and it takes every message.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "midi/device_service.h"

namespace zentaline {

class RecorderMidi : public DeviceService {
 public:
  // UTF-8 names, in the order of the device indices. To be set while nothing is open.
  void SetOuts(std::vector<std::string> names) { outs_ = std::move(names); }
  void SetIns(std::vector<std::string> names) { ins_ = std::move(names); }

  // The next `times` calls of the operation give `result` and do nothing, but a close lets go of its device all the
  // same. `times` 0: always. `result` 0 takes the fault away. False: the operation is none of the sixteen.
  bool Fail(std::string_view operation, int result, int times);

 protected:
  const std::vector<std::string>& Devices(MidiDirection direction) const override;
  int Fault(MidiOperation operation) override;

 private:
  struct Failure {
    int result = 0;
    int times = 0;  // 0: always
  };

  std::vector<std::string> outs_;
  std::vector<std::string> ins_;
  std::array<Failure, kMidiOperationNames.size()> failures_;
};

}  // namespace zentaline
