// The MIDI service on the ALSA sequencer.
//
// Devices are the ports of other programs and of the hardware that anyone may write to (out) or read from (in). While a
// device is open the lists only grow, so that an index keeps its meaning.
//
// Results beside the common ones: 4 a port that someone else holds alone; 68 a port that went away; 67 a port that
// takes nothing for half a second; 11 a short message that is none; 1 anything else that the sequencer refuses.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "midi/alsa/pace.h"
#include "midi/alsa/pieces.h"
#include "midi/alsa/thru_guard.h"
#include "midi/device_service.h"

struct _snd_seq;
struct snd_seq_event;
struct snd_midi_event;

namespace zentaline {

class AlsaMidi : public DeviceService {
 public:
  AlsaMidi();
  ~AlsaMidi() override;
  AlsaMidi(const AlsaMidi&) = delete;
  AlsaMidi& operator=(const AlsaMidi&) = delete;

  // Whether the sequencer can be opened. Without it there are no devices.
  static bool Available();

  // For outputs opened from now on; kCableBytesPerSecond at first, 0 is as fast as can be, for ports that are no cable.
  void SetBytesPerSecond(int bytes_per_second) { bytes_per_second_ = bytes_per_second; }

  // Told of messages of more than kPieceBytes, on the thread that called midiOutLongMsg, once a piece and at the end.
  void SetProgress(MidiProgress progress) override { progress_ = std::move(progress); }

  // Asked before every piece of a long message, from the thread that sends it: true breaks the message off, which is a
  // failure.
  void SetStop(std::function<bool()> stop) { stop_ = std::move(stop); }

 protected:
  const std::vector<std::string>& Devices(MidiDirection direction) const override;
  void Scan() override;
  int Open(MidiDirection direction, int device, MidiHandle handle) override;
  int Close(MidiHandle handle) override;
  int TakeShort(MidiHandle handle, std::uint32_t word) override;
  int TakeLong(MidiHandle handle, std::string_view bytes) override;
  int Join(MidiHandle in, MidiHandle out) override;
  int Part(MidiHandle in, MidiHandle out) override;

 private:
  struct Port {
    PortAddress address;
    std::string client_name, port_name;
    bool operator==(const Port&) const = default;
  };
  struct List {
    std::vector<Port> ports;
    std::vector<std::string> names;
  };
  struct Output {
    PortAddress destination;
    int own_port = -1;
    bool is_cable = false;  // of a card: the kernel makes bytes of what it is sent
    Pace pace;
  };

  bool Connect();
  std::vector<Port> Find(unsigned capabilities) const;
  bool StillThere(const Port& port) const;
  int OpenOut(const Port& port, MidiHandle handle);
  bool Subscribed(PortAddress from, PortAddress to) const;
  int Subscribe(PortAddress from, PortAddress to);
  int Unsubscribe(PortAddress from, PortAddress to);
  bool IsCable(PortAddress address) const;
  int Write(const Output& output, snd_seq_event& event);
  int WriteBytes(const Output& output, std::string_view bytes);
  List& ListOf(MidiDirection direction) { return direction == MidiDirection::kOut ? outs_ : ins_; }

  _snd_seq* sequencer_ = nullptr;
  snd_midi_event* encoder_ = nullptr;
  int client_ = -1;
  List outs_;
  List ins_;
  std::map<MidiHandle, Output> outputs_;
  std::map<MidiHandle, PortAddress> inputs_;
  std::map<MidiHandle, std::unique_ptr<ThruGuard>> guards_;  // by input
  int bytes_per_second_ = kCableBytesPerSecond;
  MidiProgress progress_;
  std::function<bool()> stop_;
};

}  // namespace zentaline
