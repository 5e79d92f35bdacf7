// The MIDI service of the platform, by the names of its sixteen operations. Results: 0 is success, anything else a
// code of the service; 4 says that the device is allocated already.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace zentaline {

enum MidiServiceResult : int {
  kMidiOk = 0,
  kMidiError = 1,
  kMidiBadDeviceId = 2,
  kMidiAllocated = 4,
  kMidiInvalidHandle = 5,
  kMidiNoDriver = 6,
  kMidiNoMemory = 7,
  kMidiNotSupported = 8,
  kMidiInvalidParameter = 11,
  kMidiUnprepared = 64,
  kMidiStillPlaying = 65,
  kMidiNotReady = 67,
  kMidiNoDevice = 68,
};

using MidiHandle = std::uint32_t;

// The record of a long message. `data` is borrowed: the service has taken its copy, or sent it, when the call returns.
struct MidiHeader {
  const char* data = nullptr;
  std::uint32_t buffer_length = 0;
  std::uint32_t bytes_recorded = 0;
  std::uint32_t user = 0;
  std::uint32_t flags = 0;
  MidiHeader* next = nullptr;
  std::uint32_t reserved = 0;
};
inline constexpr std::uint32_t kMidiHeaderSize = 28;
inline constexpr std::uint32_t kMidiCapsSize = 52;

// What is used of a device's capabilities.
struct MidiCaps {
  std::string product_name;  // at most 32 characters, cut at the first zero byte; UTF-8
};

// How far a long message has come: bytes that have left, of how many.
using MidiProgress = std::function<void(std::uint32_t gone, std::uint32_t total)>;

class MidiService {
 public:
  virtual ~MidiService() = default;

  virtual int midiOutGetNumDevs() = 0;
  virtual int midiInGetNumDevs() = 0;
  // `device` counts from 0; `size` is kMidiCapsSize.
  virtual int midiOutGetDevCapsA(int device, MidiCaps& caps, std::uint32_t size) = 0;
  virtual int midiInGetDevCapsA(int device, MidiCaps& caps, std::uint32_t size) = 0;
  // `callback`, `instance` and `flags` are always 0: nothing is ever called back.
  virtual int midiOutOpen(MidiHandle& handle, int device, int callback, int instance, int flags) = 0;
  virtual int midiInOpen(MidiHandle& handle, int device, int callback, int instance, int flags) = 0;
  virtual int midiOutClose(MidiHandle handle) = 0;
  virtual int midiInClose(MidiHandle handle) = 0;
  // `word`: status in the low byte, then the data bytes.
  virtual int midiOutShortMsg(MidiHandle handle, std::uint32_t word) = 0;
  virtual int midiOutPrepareHeader(MidiHandle handle, MidiHeader& header, std::uint32_t size) = 0;
  // Returns when the data have left, or are taken.
  virtual int midiOutLongMsg(MidiHandle handle, MidiHeader& header, std::uint32_t size) = 0;
  virtual int midiOutUnprepareHeader(MidiHandle handle, MidiHeader& header, std::uint32_t size) = 0;
  // Joins what arrives at the input to the output, inside the service; `reserved` is 0.
  virtual int midiConnect(MidiHandle in, MidiHandle out, int reserved) = 0;
  virtual int midiDisconnect(MidiHandle in, MidiHandle out, int reserved) = 0;
  virtual int midiInStart(MidiHandle handle) = 0;
  virtual int midiInStop(MidiHandle handle) = 0;

  // Called from the thread that sends, while a long message goes out. Not one of the sixteen operations: a service that
  // sends at once leaves it.
  virtual void SetProgress(MidiProgress) {}  // NOLINT(performance-unnecessary-value-param): kept by who wants it
};

// The number of data bytes that follow a short message's status byte: 1 for program change and channel pressure, 2
// else.
constexpr int ShortMessageDataBytes(std::uint32_t word) {
  return (word & 0xE0U) == 0xC0U ? 1 : 2;
}

// The bytes of a short message as they go on the wire, 2 or 3.
inline std::string ShortMessageBytes(std::uint32_t word) {
  std::string bytes;
  for (int i = 0; i <= ShortMessageDataBytes(word); ++i) bytes += static_cast<char>(word >> (8 * i) & 0xFFU);
  return bytes;
}

}  // namespace zentaline
