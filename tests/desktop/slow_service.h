// A MIDI service whose long messages take their time.
#pragma once

#include <chrono>
#include <functional>
#include <semaphore>
#include <thread>

#include "midi/service.h"
#include "tests/support/quiet_service.h"

namespace zentaline::ui::qt {

inline constexpr auto kPatience = std::chrono::seconds(60);  // with a machine that is busy with other things

// Stops in the middle of a long message until it is told to go on, and tells how far it has come.
class SlowService : public test::QuietService {
 public:
  int midiOutLongMsg(MidiHandle, MidiHeader& header, std::uint32_t) override {
    thread = std::this_thread::get_id();
    if (on_send) on_send();
    if (progress_) progress_(header.buffer_length / 2, header.buffer_length);
    if (waits && !go_on_.try_acquire_for(kPatience)) return kMidiNotReady;
    if (progress_) progress_(header.buffer_length, header.buffer_length);
    return result;
  }
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
