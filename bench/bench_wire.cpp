// How well the ALSA service uses a MIDI cable: messages through the kernel's sequencer to the reader of a virtual raw
// port, against the 3125 bytes a second that a cable carries.
#include <chrono>
#include <cstdio>
#include <string>

#include "bench/measure.h"
#include "midi/alsa/alsa_midi.h"
#include "tests/alsa/raw_port.h"
#include "tests/midi/long_message.h"

namespace zentaline {
namespace {

struct Run {
  double bytes_per_second = 0;
  std::size_t most_in_one_second = 0;
  std::size_t lost = 0;
};

// False when a service operation failed.
bool Measure(std::size_t length, Run& run) {
  RawPort port(0);
  AlsaMidi midi;
  MidiHandle out = 0;
  if (midi.midiOutOpen(out, OutNamed(midi, RawPortName(0)), 0, 0, 0) != kMidiOk) return false;
  const std::string message = LongMessage(length);
  const auto start = RawPort::Clock::now();
  if (SendLongMessage(midi, out, message) != kMidiOk) return false;
  const std::chrono::duration<double> took = RawPort::Clock::now() - start;
  const std::string came = port.Bytes(length);
  run.bytes_per_second = static_cast<double>(length) / took.count();
  run.most_in_one_second = MostInOneSecond(port.Arrivals());
  run.lost = came == message ? 0 : std::max<std::size_t>(1, length - std::min(length, came.size()));
  return true;
}

int Main() {
  if (!AlsaMidi::Available() || !RawPort(0).Good()) {
    std::puts("bench wire_use skip this machine has no ALSA sequencer with virtual raw ports");
    return 0;
  }
  std::printf("%10s %12s %8s %22s %6s\n", "bytes", "bytes/s", "percent", "most in any second", "lost");
  Run last;
  for (const std::size_t length : {1024U, 12002U, 65000U}) {
    if (!Measure(length, last)) return 1;
    std::printf("%10zu %12.1f %8.2f %22zu %6zu\n", length, last.bytes_per_second,
                100 * last.bytes_per_second / kCableBytesPerSecond, last.most_in_one_second, last.lost);
  }
  const double use = last.bytes_per_second / kCableBytesPerSecond;
  bench::PrintRatio("wire_use_least", use, ">=", 0.97, "a 65000-byte message against the speed of a cable");
  bench::PrintRatio("wire_use_most", use, "<=", 1, "the same");
  bench::PrintRatio("wire_burst", static_cast<double>(last.most_in_one_second) / (kCableBytesPerSecond + kPieceBytes),
                    "<=", 1, "bytes in any one second against a cable's and one piece of 256");
  bench::PrintRatio("wire_lost", static_cast<double>(last.lost) / 65000, "<=", 0,
                    "bytes lost or changed against those sent");
  return 0;
}

}  // namespace
}  // namespace zentaline

int main() {
  return zentaline::Main();
}
