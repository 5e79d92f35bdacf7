// A MIDI service whose long messages take their time.
#pragma once

#include <chrono>
#include <functional>
#include <semaphore>
#include <thread>

#include "midi/service.h"

namespace zentaline::ui::qt {

inline constexpr auto kPatience = std::chrono::seconds(60);  // with a machine that is busy with other things

// Stops in the middle of a long message until it is told to go on, and tells how far it has come.
class SlowService : public MidiService {
 public:
  int midiOutGetNumDevs() override { return 1; }
  int midiInGetNumDevs() override { return 0; }
  int midiOutGetDevCapsA(int, MidiCaps&, std::uint32_t) override { return kMidiOk; }
  int midiInGetDevCapsA(int, MidiCaps&, std::uint32_t) override { return kMidiOk; }
  int midiOutOpen(MidiHandle&, int, int, int, int) override { return kMidiOk; }
  int midiInOpen(MidiHandle&, int, int, int, int) override { return kMidiOk; }
  int midiOutClose(MidiHandle) override { return kMidiOk; }
  int midiInClose(MidiHandle) override { return kMidiOk; }
  int midiOutShortMsg(MidiHandle, std::uint32_t) override { return kMidiOk; }
  int midiOutPrepareHeader(MidiHandle, MidiHeader&, std::uint32_t) override { return kMidiOk; }
  int midiOutLongMsg(MidiHandle, MidiHeader& header, std::uint32_t) override {
    thread = std::this_thread::get_id();
    if (on_send) on_send();
    if (progress_) progress_(header.buffer_length / 2, header.buffer_length);
    if (waits && !go_on_.try_acquire_for(kPatience)) return kMidiNotReady;
    if (progress_) progress_(header.buffer_length, header.buffer_length);
    return result;
  }
  int midiOutUnprepareHeader(MidiHandle, MidiHeader&, std::uint32_t) override { return kMidiOk; }
  int midiConnect(MidiHandle, MidiHandle, int) override { return kMidiOk; }
  int midiDisconnect(MidiHandle, MidiHandle, int) override { return kMidiOk; }
  int midiInStart(MidiHandle) override { return kMidiOk; }
  int midiInStop(MidiHandle) override { return kMidiOk; }
  void SetProgress(MidiProgress progress) override { progress_ = std::move(progress); }

  void GoOn() { go_on_.release(); }

  bool waits = true;
  int result = kMidiOk;
  std::function<void()> on_send;  // in the sender's thread
  std::thread::id thread;

 private:
  std::binary_semaphore go_on_{0};
  MidiProgress progress_;
};

}  // namespace zentaline::ui::qt
