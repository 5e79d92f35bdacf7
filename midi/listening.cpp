#include "midi/listening.h"

#include <utility>

#include "midi/device_service.h"
#include "midi/operations.h"

namespace zentaline {

int ListeningMidi::Told(std::string_view operation, int result) {
  listener_.Service(operation, {}, result);
  return result;
}

int ListeningMidi::Refusal(std::string_view operation, int result) {
  if (result != kMidiOk) listener_.Failed(operation, result);
  return result;
}

int ListeningMidi::midiOutGetNumDevs() {
  return service_.midiOutGetNumDevs();
}

int ListeningMidi::midiInGetNumDevs() {
  return service_.midiInGetNumDevs();
}

int ListeningMidi::midiOutGetDevCapsA(int device, MidiCaps& caps, std::uint32_t size) {
  return service_.midiOutGetDevCapsA(device, caps, size);
}

int ListeningMidi::midiInGetDevCapsA(int device, MidiCaps& caps, std::uint32_t size) {
  return service_.midiInGetDevCapsA(device, caps, size);
}

int ListeningMidi::midiOutOpen(MidiHandle& handle, int device, int callback, int instance, int flags) {
  const int result = service_.midiOutOpen(handle, device, callback, instance, flags);
  listener_.Service(NameOf(MidiOperation::kOutOpen), {device}, result);
  return result;
}

int ListeningMidi::midiInOpen(MidiHandle& handle, int device, int callback, int instance, int flags) {
  const int result = service_.midiInOpen(handle, device, callback, instance, flags);
  listener_.Service(NameOf(MidiOperation::kInOpen), {device}, result);
  return result;
}

int ListeningMidi::midiOutClose(MidiHandle handle) {
  return Told(NameOf(MidiOperation::kOutClose), service_.midiOutClose(handle));
}

int ListeningMidi::midiInClose(MidiHandle handle) {
  return Told(NameOf(MidiOperation::kInClose), service_.midiInClose(handle));
}

int ListeningMidi::midiOutShortMsg(MidiHandle handle, std::uint32_t word) {
  const int result = service_.midiOutShortMsg(handle, word);
  if (result == kMidiOk) listener_.Short(ShortMessageBytes(word));
  return Refusal(NameOf(MidiOperation::kOutShortMsg), result);
}

int ListeningMidi::midiOutPrepareHeader(MidiHandle handle, MidiHeader& header, std::uint32_t size) {
  return Refusal(NameOf(MidiOperation::kOutPrepareHeader), service_.midiOutPrepareHeader(handle, header, size));
}

int ListeningMidi::midiOutLongMsg(MidiHandle handle, MidiHeader& header, std::uint32_t size) {
  const int result = service_.midiOutLongMsg(handle, header, size);
  if (result == kMidiOk) listener_.Long({header.data, header.buffer_length});
  return Refusal(NameOf(MidiOperation::kOutLongMsg), result);
}

int ListeningMidi::midiOutUnprepareHeader(MidiHandle handle, MidiHeader& header, std::uint32_t size) {
  return Refusal(NameOf(MidiOperation::kOutUnprepareHeader), service_.midiOutUnprepareHeader(handle, header, size));
}

int ListeningMidi::midiConnect(MidiHandle in, MidiHandle out, int reserved) {
  return Told(NameOf(MidiOperation::kConnect), service_.midiConnect(in, out, reserved));
}

int ListeningMidi::midiDisconnect(MidiHandle in, MidiHandle out, int reserved) {
  return Told(NameOf(MidiOperation::kDisconnect), service_.midiDisconnect(in, out, reserved));
}

int ListeningMidi::midiInStart(MidiHandle handle) {
  return Told(NameOf(MidiOperation::kInStart), service_.midiInStart(handle));
}

int ListeningMidi::midiInStop(MidiHandle handle) {
  return Told(NameOf(MidiOperation::kInStop), service_.midiInStop(handle));
}

void ListeningMidi::SetProgress(MidiProgress progress) {
  service_.SetProgress(std::move(progress));
}

}  // namespace zentaline
