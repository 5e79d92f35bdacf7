// What every MIDI service has in common: a list of named devices, handles, prepared headers, joined ports, and which
// result each misuse gives. A service of its own only says which devices there are and where messages go.
//
// Results: a device that is not there 2; a device that is open already 4; a handle that is closed or of the other
// direction 5; a wrong record size 11; a long message whose header is not prepared 64; joining an input that is
// joined to another output 67. Joining what is joined, and parting what is not, is done already: 0.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "midi/operations.h"
#include "midi/service.h"

namespace zentaline {

enum class MidiDirection { kOut, kIn };

inline constexpr std::size_t kProductNameLength = 32;

// A product name: up to its first zero byte, at most kProductNameLength characters of UTF-8.
std::string ProductName(std::string_view name);

// The first characters of a UTF-8 text, as many as `count`.
std::string_view FirstCharacters(std::string_view text, std::size_t count);

class DeviceService : public MidiService {
 public:
  int midiOutGetNumDevs() final;
  int midiInGetNumDevs() final;
  int midiOutGetDevCapsA(int device, MidiCaps& caps, std::uint32_t size) final;
  int midiInGetDevCapsA(int device, MidiCaps& caps, std::uint32_t size) final;
  int midiOutOpen(MidiHandle& handle, int device, int callback, int instance, int flags) final;
  int midiInOpen(MidiHandle& handle, int device, int callback, int instance, int flags) final;
  // A device is let go of, and no longer joined to any other, whatever the result.
  int midiOutClose(MidiHandle handle) final;
  int midiInClose(MidiHandle handle) final;
  int midiOutShortMsg(MidiHandle handle, std::uint32_t word) final;
  int midiOutPrepareHeader(MidiHandle handle, MidiHeader& header, std::uint32_t size) final;
  int midiOutLongMsg(MidiHandle handle, MidiHeader& header, std::uint32_t size) final;
  // A header whose flags are 0 counts as not prepared and gives 0 at once.
  int midiOutUnprepareHeader(MidiHandle handle, MidiHeader& header, std::uint32_t size) final;
  int midiConnect(MidiHandle in, MidiHandle out, int reserved) final;
  int midiDisconnect(MidiHandle in, MidiHandle out, int reserved) final;
  int midiInStart(MidiHandle handle) final;
  int midiInStop(MidiHandle handle) final;

 protected:
  // The devices in their order. The index of a device that is open must not change.
  virtual const std::vector<std::string>& Devices(MidiDirection direction) const = 0;
  // Before the devices are counted.
  virtual void Scan() {}
  // Asked first in every operation: what is not 0 is the operation's result, and nothing else happens.
  virtual int Fault(MidiOperation operation);
  // Each of these gives a result of the service. They are only called with devices and handles that are good.
  virtual int Open(MidiDirection direction, int device, MidiHandle handle);
  virtual int Close(MidiHandle handle);
  virtual int TakeShort(MidiHandle handle, std::uint32_t word);
  virtual int TakeLong(MidiHandle handle, std::string_view bytes);
  virtual int Join(MidiHandle in, MidiHandle out);
  virtual int Part(MidiHandle in, MidiHandle out);

  // The output that an input is joined to; 0 for none.
  MidiHandle JoinedTo(MidiHandle in) const;

 private:
  struct Port {
    MidiDirection direction;
    int device;
  };

  bool Good(MidiHandle handle, MidiDirection direction) const;
  int Count(MidiOperation operation, MidiDirection direction);
  int Caps(MidiOperation operation, MidiDirection direction, int device, MidiCaps& caps, std::uint32_t size);
  int OpenPort(MidiOperation operation, MidiDirection direction, int device, MidiHandle& handle);
  int ClosePort(MidiOperation operation, MidiDirection direction, MidiHandle handle);
  int StartOrStop(MidiOperation operation, MidiHandle handle);

  std::map<MidiHandle, Port> ports_;
  std::map<MidiHandle, MidiHandle> joined_;  // input to output
  MidiHandle last_handle_ = 0;
};

}  // namespace zentaline
