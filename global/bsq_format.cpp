#include "global/bsq_format.h"

#include <algorithm>

#include "core/window_image.h"

namespace zentaline {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view kMagic = "KORG\x4D\x00\x05"sv;
constexpr std::size_t kAnyBytePosition = 6;

constexpr long kBlockLength = long{kBackSeqBlockEvents} * kBackSeqEventLength;

// The word of a track, 1 to 17; the one behind the last track of all ends it.
int TrackWord(std::string_view file, int sequence, int track) {
  return WordLowFirst(file, kBackSeqTablePosition + kBackSeqTableLength * static_cast<std::size_t>(sequence) +
                                2 * static_cast<std::size_t>(track - 1));
}

long PositionOf(std::string_view file, int word) {
  return static_cast<long>(kBackSeqEventPosition) + kBlockLength * (word - TrackWord(file, 0, 1));
}

}  // namespace

bool TakeBackSeqFile(Bytes& file) {
  Bytes start = Slice(file, 1, kMagic.size());
  PutByte(start, kAnyBytePosition, 0);
  if (start != kMagic || file.size() < kMagic.size()) return false;
  PutBytes(file, 1, start);
  if (file.size() > kBackSeqReadLength) std::fill(file.begin() + kBackSeqReadLength, file.end(), '\0');
  return true;
}

Bytes BuildBackSeqImage(std::string_view file) {
  Bytes image = WindowPrefix();
  image.append(file);
  return image;
}

std::string_view BackSeqFileIn(std::string_view image) {
  return image.substr(std::min(image.size(), kWindowPrefixLength));
}

Bytes BackSeqName(std::string_view file, int sequence) {
  const Bytes name =
      Slice(file, kBackSeqEntryPosition + kBackSeqEntryLength * static_cast<std::size_t>(sequence), kBackSeqNameLength);
  return Padded(std::string_view(name).substr(0, name.find('\0')), kBackSeqNameLength);
}

long TrackPosition(std::string_view file, int sequence) {
  return PositionOf(file, TrackWord(file, sequence, 1));
}

int BackSeqEvents(std::string_view file, int sequence, int track) {
  const int word = TrackWord(file, sequence, track);
  const int blocks = TrackWord(file, sequence, track + 1) - word;
  if (blocks <= 0) return 0;
  const long size = static_cast<long>(file.size());
  const long start = PositionOf(file, word) - 1;
  const long from = std::clamp(start, 0L, size);
  const long to = std::clamp(start + kBlockLength * blocks, 0L, size);
  const std::size_t last =
      file.substr(static_cast<std::size_t>(from), static_cast<std::size_t>(to - from)).find_last_not_of('\0');
  if (last == std::string_view::npos) return 0;
  return static_cast<int>((from + static_cast<long>(last) - start) / kBackSeqEventLength) + 1;
}

int BackSeqEventSum(std::string_view file, int sequence) {
  int sum = 0;
  for (int track = 1; track <= kBackSeqTracks; ++track) sum += BackSeqEvents(file, sequence, track);
  return sum;
}

}  // namespace zentaline
