// A MIDI service with an instrument inside, for who has none at hand: one output, "Virtual Instrument", and one input,
// "Virtual Keyboard", on which nothing ever arrives.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "midi/device_service.h"
#include "midi/virtual/instrument.h"

namespace zentaline {

class VirtualMidi : public DeviceService {
 public:
  const VirtualInstrument& Instrument() const { return instrument_; }
  VirtualInstrument& Instrument() { return instrument_; }
  std::vector<HeldValue> Holdings() const { return instrument_.Holdings(); }

  // The channel, 0 to 15, on which the instrument is to call up arrangements, asked for each short message: it has no
  // panel of its own to set it on.
  void FollowArrangementChannel(std::function<int()> channel) { arrangement_channel_ = std::move(channel); }

 protected:
  const std::vector<std::string>& Devices(MidiDirection direction) const override {
    return direction == MidiDirection::kOut ? outs_ : ins_;
  }
  int TakeShort(MidiHandle, std::uint32_t word) override {
    if (arrangement_channel_) instrument_.SetArrangementChannel(arrangement_channel_());
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
  std::function<int()> arrangement_channel_;
};

}  // namespace zentaline
