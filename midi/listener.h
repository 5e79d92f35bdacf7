// Who wants to know what a MIDI service is asked, and what it answers.
#pragma once

#include <string_view>
#include <vector>

namespace zentaline {

class MidiListener {
 public:
  virtual ~MidiListener() = default;

  // Open, close, connect, disconnect, start and stop, after they are done. `args`: the device index of an open, else
  // nothing.
  virtual void Service(std::string_view operation, const std::vector<int>& args, int result) = 0;
  // A long message that the service took.
  virtual void Long(std::string_view bytes) = 0;
  // A short message that the service took: the 2 or 3 bytes that go on the wire.
  virtual void Short(std::string_view bytes) = 0;
  // A send, prepare or unprepare that the service refused.
  virtual void Failed(std::string_view operation, int result) = 0;
};

}  // namespace zentaline
