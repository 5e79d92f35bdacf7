// Long messages without a frozen picture.
#pragma once

#include "midi/service.h"
#include "ui/qt/toolkit.h"

namespace zentaline::ui::qt {

// Passes everything on to another service. A long message that goes out from a thread of its own lets the windows paint
// and the progress bar run, while input, timers and everything else the user does wait; to the caller it is one call
// that returns when the data have gone.
class LongSender : public MidiService {
 public:
  // Up to so many bytes are sent at once.
  static constexpr std::uint32_t kShort = 256;

  // Both are borrowed and outlive it.
  LongSender(QtToolkit& toolkit, MidiService& service);

  int midiOutGetNumDevs() override { return service_.midiOutGetNumDevs(); }
  int midiInGetNumDevs() override { return service_.midiInGetNumDevs(); }
  int midiOutGetDevCapsA(int device, MidiCaps& caps, std::uint32_t size) override {
    return service_.midiOutGetDevCapsA(device, caps, size);
  }
  int midiInGetDevCapsA(int device, MidiCaps& caps, std::uint32_t size) override {
    return service_.midiInGetDevCapsA(device, caps, size);
  }
  int midiOutOpen(MidiHandle& handle, int device, int callback, int instance, int flags) override {
    return service_.midiOutOpen(handle, device, callback, instance, flags);
  }
  int midiInOpen(MidiHandle& handle, int device, int callback, int instance, int flags) override {
    return service_.midiInOpen(handle, device, callback, instance, flags);
  }
  int midiOutClose(MidiHandle handle) override { return service_.midiOutClose(handle); }
  int midiInClose(MidiHandle handle) override { return service_.midiInClose(handle); }
  int midiOutShortMsg(MidiHandle handle, std::uint32_t word) override { return service_.midiOutShortMsg(handle, word); }
  int midiOutPrepareHeader(MidiHandle handle, MidiHeader& header, std::uint32_t size) override {
    return service_.midiOutPrepareHeader(handle, header, size);
  }
  int midiOutLongMsg(MidiHandle handle, MidiHeader& header, std::uint32_t size) override;
  int midiOutUnprepareHeader(MidiHandle handle, MidiHeader& header, std::uint32_t size) override {
    return service_.midiOutUnprepareHeader(handle, header, size);
  }
  int midiConnect(MidiHandle in, MidiHandle out, int reserved) override {
    return service_.midiConnect(in, out, reserved);
  }
  int midiDisconnect(MidiHandle in, MidiHandle out, int reserved) override {
    return service_.midiDisconnect(in, out, reserved);
  }
  int midiInStart(MidiHandle handle) override { return service_.midiInStart(handle); }
  int midiInStop(MidiHandle handle) override { return service_.midiInStop(handle); }
  // Called in the main thread.
  void SetProgress(MidiProgress progress) override { progress_ = std::move(progress); }

 private:
  void ShowProgress(std::uint32_t gone, std::uint32_t total, std::int64_t milliseconds);
  QtToolkit& toolkit_;
  MidiService& service_;
  MidiProgress progress_;
};

}  // namespace zentaline::ui::qt
