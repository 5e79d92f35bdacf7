// A virtual raw MIDI port of the kernel: its reader gets what the sequencer was sent, as a cable would carry it.
#pragma once

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace zentaline {

// The name of the virtual raw port of that number.
inline std::string RawPortName(int number) {
  const std::string place = "0-" + std::to_string(number);
  return "Virtual Raw MIDI " + place + " VirMIDI " + place;
}

class RawPort {
 public:
  using Clock = std::chrono::steady_clock;
  struct Arrival {
    Clock::time_point time;
    std::size_t bytes = 0;
  };

  // `number` 0 to 3.
  explicit RawPort(int number)
      : file_(open(("/dev/snd/midiC0D" + std::to_string(number)).c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC)) {
    if (file_ < 0) return;
    // The kernel throws away what comes before the first look.
    char byte = 0;
    [[maybe_unused]] const ssize_t nothing = read(file_, &byte, 1);
    reader_ = std::thread([this] { Read(); });
  }
  ~RawPort() {
    stop_ = true;
    if (reader_.joinable()) reader_.join();
    if (file_ >= 0) close(file_);
  }
  RawPort(const RawPort&) = delete;
  RawPort& operator=(const RawPort&) = delete;

  bool Good() const { return file_ >= 0; }

  // As if the bytes had come in at the port.
  bool Write(const std::string& bytes) {
    return write(file_, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size());
  }

  // What has come so far; waits until it is `count` bytes, but not longer than some seconds.
  std::string Bytes(std::size_t count) {
    const auto last = Clock::now() + std::chrono::seconds(3);
    while (Clock::now() < last && Copy().size() < count) std::this_thread::sleep_for(std::chrono::milliseconds(2));
    return Copy();
  }

  // What has come when nothing more is due: after a pause long enough for anything that is still on its way.
  std::string AllBytes() {
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    return Copy();
  }

  std::vector<Arrival> Arrivals() {
    const std::lock_guard lock(mutex_);
    return arrivals_;
  }

 private:
  void Read() {
    char buffer[8192];
    while (!stop_) {
      pollfd wanted{file_, POLLIN, 0};
      if (poll(&wanted, 1, 50) <= 0) continue;
      const ssize_t count = read(file_, buffer, sizeof buffer);
      if (count <= 0) continue;
      const std::lock_guard lock(mutex_);
      bytes_.append(buffer, static_cast<std::size_t>(count));
      arrivals_.push_back({Clock::now(), static_cast<std::size_t>(count)});
    }
  }
  std::string Copy() {
    const std::lock_guard lock(mutex_);
    return bytes_;
  }

  int file_;
  std::atomic<bool> stop_ = false;
  std::mutex mutex_;
  std::string bytes_;
  std::vector<Arrival> arrivals_;
  std::thread reader_;
};

// The most bytes that arrived within any one second.
inline std::size_t MostInOneSecond(const std::vector<RawPort::Arrival>& arrivals) {
  std::size_t most = 0;
  std::size_t sum = 0;
  std::size_t first = 0;
  for (const RawPort::Arrival& arrival : arrivals) {
    sum += arrival.bytes;
    while (arrival.time - arrivals[first].time >= std::chrono::seconds(1)) sum -= arrivals[first++].bytes;
    most = std::max(most, sum);
  }
  return most;
}

}  // namespace zentaline
