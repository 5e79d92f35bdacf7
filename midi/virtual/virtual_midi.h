// A MIDI service with an instrument inside, for who has none at hand: one output, "Virtual Instrument", and one input,
// "Virtual Keyboard", on which nothing ever arrives.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "midi/device_service.h"
#include "midi/virtual/instrument.h"

namespace zentaline {

class VirtualMidi : public DeviceService {
 public:
  const VirtualInstrument& Instrument() const { return instrument_; }
  VirtualInstrument& Instrument() { return instrument_; }
  std::vector<HeldValue> Holdings() const { return instrument_.Holdings(); }

 protected:
  const std::vector<std::string>& Devices(MidiDirection direction) const override {
    return direction == MidiDirection::kOut ? outs_ : ins_;
  }
  int TakeShort(MidiHandle, std::uint32_t word) override {
    instrument_.Short(ShortMessageBytes(word));
    return kMidiOk;
  }
  int TakeLong(MidiHandle, std::string_view bytes) override {
    instrument_.Long(bytes);
    return kMidiOk;
  }

 private:
  const std::vector<std::string> outs_ = {"Virtual Instrument"};
  const std::vector<std::string> ins_ = {"Virtual Keyboard"};
  VirtualInstrument instrument_;
};

}  // namespace zentaline
