// Any MIDI service, with someone listening: each call goes through unchanged and is told to a MidiListener.
#pragma once

#include "midi/listener.h"
#include "midi/service.h"

namespace zentaline {

class ListeningMidi : public MidiService {
 public:
  // Both are borrowed and must outlive this object.
  ListeningMidi(MidiService& service, MidiListener& listener) : service_(service), listener_(listener) {}

  int midiOutGetNumDevs() override;
  int midiInGetNumDevs() override;
  int midiOutGetDevCapsA(int device, MidiCaps& caps, std::uint32_t size) override;
  int midiInGetDevCapsA(int device, MidiCaps& caps, std::uint32_t size) override;
  int midiOutOpen(MidiHandle& handle, int device, int callback, int instance, int flags) override;
  int midiInOpen(MidiHandle& handle, int device, int callback, int instance, int flags) override;
  int midiOutClose(MidiHandle handle) override;
  int midiInClose(MidiHandle handle) override;
  int midiOutShortMsg(MidiHandle handle, std::uint32_t word) override;
  int midiOutPrepareHeader(MidiHandle handle, MidiHeader& header, std::uint32_t size) override;
  int midiOutLongMsg(MidiHandle handle, MidiHeader& header, std::uint32_t size) override;
  int midiOutUnprepareHeader(MidiHandle handle, MidiHeader& header, std::uint32_t size) override;
  int midiConnect(MidiHandle in, MidiHandle out, int reserved) override;
  int midiDisconnect(MidiHandle in, MidiHandle out, int reserved) override;
  int midiInStart(MidiHandle handle) override;
  int midiInStop(MidiHandle handle) override;
  void SetProgress(MidiProgress progress) override;

 private:
  int Told(std::string_view operation, int result);
  int Refusal(std::string_view operation, int result);

  MidiService& service_;
  MidiListener& listener_;
};

}  // namespace zentaline
