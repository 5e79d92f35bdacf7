#include "midi/device_service.h"

#include <algorithm>

namespace zentaline {

namespace {
constexpr std::uint32_t kDone = 1;
constexpr std::uint32_t kPrepared = 2;
}  // namespace

std::string_view FirstCharacters(std::string_view text, std::size_t count) {
  std::size_t characters = 0;
  std::size_t end = 0;
  for (; end < text.size(); ++end) {
    const bool starts_character = (static_cast<unsigned char>(text[end]) & 0xC0U) != 0x80U;
    if (starts_character && ++characters > count) break;
  }
  return text.substr(0, end);
}

std::string ProductName(std::string_view name) {
  return std::string(FirstCharacters(name.substr(0, name.find('\0')), kProductNameLength));
}

int DeviceService::Fault(MidiOperation) {
  return kMidiOk;
}
int DeviceService::Open(MidiDirection, int, MidiHandle) {
  return kMidiOk;
}
int DeviceService::Close(MidiHandle) {
  return kMidiOk;
}
int DeviceService::TakeShort(MidiHandle, std::uint32_t) {
  return kMidiOk;
}
int DeviceService::TakeLong(MidiHandle, std::string_view) {
  return kMidiOk;
}
int DeviceService::Join(MidiHandle, MidiHandle) {
  return kMidiOk;
}
int DeviceService::Part(MidiHandle, MidiHandle) {
  return kMidiOk;
}

bool DeviceService::Good(MidiHandle handle, MidiDirection direction) const {
  const auto found = ports_.find(handle);
  return found != ports_.end() && found->second.direction == direction;
}

MidiHandle DeviceService::JoinedTo(MidiHandle in) const {
  const auto found = joined_.find(in);
  return found == joined_.end() ? 0 : found->second;
}

int DeviceService::Count(MidiOperation operation, MidiDirection direction) {
  if (const int fault = Fault(operation)) return fault;
  Scan();
  return static_cast<int>(Devices(direction).size());
}

int DeviceService::Caps(MidiOperation operation, MidiDirection direction, int device, MidiCaps& caps,
                        std::uint32_t size) {
  if (const int fault = Fault(operation)) return fault;
  if (size != kMidiCapsSize) return kMidiInvalidParameter;
  const std::vector<std::string>& devices = Devices(direction);
  if (device < 0 || static_cast<std::size_t>(device) >= devices.size()) return kMidiBadDeviceId;
  caps.product_name = ProductName(devices[static_cast<std::size_t>(device)]);
  return kMidiOk;
}

int DeviceService::OpenPort(MidiOperation operation, MidiDirection direction, int device, MidiHandle& handle) {
  if (const int fault = Fault(operation)) return fault;
  if (device < 0 || static_cast<std::size_t>(device) >= Devices(direction).size()) return kMidiBadDeviceId;
  const bool taken = std::any_of(ports_.begin(), ports_.end(), [&](const auto& port) {
    return port.second.direction == direction && port.second.device == device;
  });
  if (taken) return kMidiAllocated;
  const MidiHandle opened = last_handle_ + 1;
  const int result = Open(direction, device, opened);
  if (result != kMidiOk) return result;
  last_handle_ = opened;
  ports_[opened] = {direction, device};
  handle = opened;
  return kMidiOk;
}

int DeviceService::ClosePort(MidiOperation operation, MidiDirection direction, MidiHandle handle) {
  const int fault = Fault(operation);
  if (!Good(handle, direction)) return fault != kMidiOk ? fault : kMidiInvalidHandle;
  for (auto pair = joined_.begin(); pair != joined_.end();) {
    if (pair->first == handle || pair->second == handle) {
      Part(pair->first, pair->second);
      pair = joined_.erase(pair);
    } else {
      ++pair;
    }
  }
  const int result = Close(handle);
  ports_.erase(handle);
  return fault != kMidiOk ? fault : result;
}

int DeviceService::StartOrStop(MidiOperation operation, MidiHandle handle) {
  if (const int fault = Fault(operation)) return fault;
  return Good(handle, MidiDirection::kIn) ? kMidiOk : kMidiInvalidHandle;
}

int DeviceService::midiOutGetNumDevs() {
  return Count(MidiOperation::kOutGetNumDevs, MidiDirection::kOut);
}

int DeviceService::midiInGetNumDevs() {
  return Count(MidiOperation::kInGetNumDevs, MidiDirection::kIn);
}

int DeviceService::midiOutGetDevCapsA(int device, MidiCaps& caps, std::uint32_t size) {
  return Caps(MidiOperation::kOutGetDevCaps, MidiDirection::kOut, device, caps, size);
}

int DeviceService::midiInGetDevCapsA(int device, MidiCaps& caps, std::uint32_t size) {
  return Caps(MidiOperation::kInGetDevCaps, MidiDirection::kIn, device, caps, size);
}

int DeviceService::midiOutOpen(MidiHandle& handle, int device, int, int, int) {
  return OpenPort(MidiOperation::kOutOpen, MidiDirection::kOut, device, handle);
}

int DeviceService::midiInOpen(MidiHandle& handle, int device, int, int, int) {
  return OpenPort(MidiOperation::kInOpen, MidiDirection::kIn, device, handle);
}

int DeviceService::midiOutClose(MidiHandle handle) {
  return ClosePort(MidiOperation::kOutClose, MidiDirection::kOut, handle);
}

int DeviceService::midiInClose(MidiHandle handle) {
  return ClosePort(MidiOperation::kInClose, MidiDirection::kIn, handle);
}

int DeviceService::midiOutShortMsg(MidiHandle handle, std::uint32_t word) {
  if (const int fault = Fault(MidiOperation::kOutShortMsg)) return fault;
  if (!Good(handle, MidiDirection::kOut)) return kMidiInvalidHandle;
  return TakeShort(handle, word);
}

int DeviceService::midiOutPrepareHeader(MidiHandle handle, MidiHeader& header, std::uint32_t size) {
  if (const int fault = Fault(MidiOperation::kOutPrepareHeader)) return fault;
  if (!Good(handle, MidiDirection::kOut)) return kMidiInvalidHandle;
  if (size != kMidiHeaderSize || (header.data == nullptr && header.buffer_length > 0)) return kMidiInvalidParameter;
  header.flags = kPrepared;
  return kMidiOk;
}

int DeviceService::midiOutLongMsg(MidiHandle handle, MidiHeader& header, std::uint32_t size) {
  if (const int fault = Fault(MidiOperation::kOutLongMsg)) return fault;
  if (!Good(handle, MidiDirection::kOut)) return kMidiInvalidHandle;
  if (size != kMidiHeaderSize) return kMidiInvalidParameter;
  if ((header.flags & kPrepared) == 0) return kMidiUnprepared;
  const int result = TakeLong(handle, {header.data, header.buffer_length});
  if (result == kMidiOk) header.flags |= kDone;
  return result;
}

int DeviceService::midiOutUnprepareHeader(MidiHandle handle, MidiHeader& header, std::uint32_t size) {
  if (const int fault = Fault(MidiOperation::kOutUnprepareHeader)) return fault;
  if (!Good(handle, MidiDirection::kOut)) return kMidiInvalidHandle;
  if (size != kMidiHeaderSize) return kMidiInvalidParameter;
  header.flags = 0;
  return kMidiOk;
}

int DeviceService::midiConnect(MidiHandle in, MidiHandle out, int) {
  if (const int fault = Fault(MidiOperation::kConnect)) return fault;
  if (!Good(in, MidiDirection::kIn) || !Good(out, MidiDirection::kOut)) return kMidiInvalidHandle;
  if (const MidiHandle other = JoinedTo(in)) return other == out ? kMidiOk : kMidiNotReady;
  const int result = Join(in, out);
  if (result == kMidiOk) joined_[in] = out;
  return result;
}

int DeviceService::midiDisconnect(MidiHandle in, MidiHandle out, int) {
  if (const int fault = Fault(MidiOperation::kDisconnect)) return fault;
  if (!Good(in, MidiDirection::kIn) || !Good(out, MidiDirection::kOut)) return kMidiInvalidHandle;
  if (JoinedTo(in) != out) return kMidiOk;
  joined_.erase(in);
  return Part(in, out);
}

int DeviceService::midiInStart(MidiHandle handle) {
  return StartOrStop(MidiOperation::kInStart, handle);
}

int DeviceService::midiInStop(MidiHandle handle) {
  return StartOrStop(MidiOperation::kInStop, handle);
}

}  // namespace zentaline
