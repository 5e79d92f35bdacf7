#include "ui/console/lines.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>

namespace zentaline::ui {

namespace {

constexpr std::size_t kManyBytes = 1 << 16;

}  // namespace

void LineWriter::Write(const std::string& line) {
  const std::string whole = line + '\n';
  std::size_t written = 0;
  // Output that nobody takes is dropped.
  while (written < whole.size()) {
    const ssize_t count = ::write(descriptor_, whole.data() + written, whole.size() - written);
    if (count < 0 && errno != EINTR) break;
    if (count > 0) written += static_cast<std::size_t>(count);
  }
}

bool LineReader::TakeLine(std::string& line) {
  if (dropping_) {
    const std::size_t end = buffer_.find('\n', taken_);
    dropping_ = end == std::string::npos;
    TakenTo(dropping_ ? buffer_.size() : end + 1);
  }
  std::size_t end = buffer_.find('\n', scanned_);
  if (end == std::string::npos) {
    scanned_ = buffer_.size();
    const std::size_t unfinished = buffer_.size() - taken_;
    if (unfinished == 0 || (!at_end_ && unfinished <= longest_)) return false;
    end = buffer_.size();
    dropping_ = !at_end_;
  }
  line.assign(buffer_, taken_, std::min(end - taken_, longest_ + 1));
  TakenTo(std::min(end + 1, buffer_.size()));
  return true;
}

void LineReader::TakenTo(std::size_t place) {
  taken_ = scanned_ = place;
  if (taken_ <= kManyBytes) return;
  buffer_.erase(0, taken_);
  taken_ = scanned_ = 0;
}

void LineReader::Fill() {
  std::array<char, kManyBytes> block;
  const ssize_t count = ::read(descriptor_, block.data(), block.size());
  if (count < 0 && (errno == EINTR || errno == EAGAIN)) return;
  if (count <= 0) {
    at_end_ = true;
    return;
  }
  buffer_.append(block.data(), static_cast<std::size_t>(count));
}

bool LineReader::Read(std::string& line, const Idle& idle, const Other& other) {
  for (;;) {
    if (other.look && !other.look()) return false;
    const int next = idle ? idle() : -1;
    if (TakeLine(line)) return true;
    if (at_end_) return false;
    pollfd waits[] = {{descriptor_, POLLIN, 0}, {other.descriptor, POLLIN, 0}};
    const int ready = ::poll(waits, 2, next);
    if (ready > 0 && waits[0].revents != 0) Fill();
    if (ready < 0 && errno != EINTR) at_end_ = true;
  }
}

}  // namespace zentaline::ui
