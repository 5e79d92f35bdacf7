#include "midi/alsa/pieces.h"

#include <thread>

namespace zentaline {

namespace {

constexpr char kEndOfMessage = '\xF7';

int BreakOff(const PieceSender& sender, std::uint32_t gone, int result) {
  if (gone > 0 && result != kMidiNoDevice) sender.write({&kEndOfMessage, 1});
  return result;
}

}  // namespace

int SendPieces(std::string_view bytes, Pace& pace, const PieceSender& sender) {
  const auto total = static_cast<std::uint32_t>(bytes.size());
  for (std::uint32_t gone = 0; gone < total;) {
    std::this_thread::sleep_until(pace.Free());
    if (sender.stop && sender.stop()) return BreakOff(sender, gone, kMidiError);
    if (sender.progress) sender.progress(gone, total);
    const std::string_view piece = bytes.substr(gone, kPieceBytes);
    const auto length = static_cast<std::uint32_t>(piece.size());
    const auto now = Pace::Clock::now();
    if (const int result = sender.write(piece)) return BreakOff(sender, gone, result);
    if (gone == 0) {
      pace.Give(now, length);
    } else {
      pace.GiveNext(now, length);
    }
    gone += length;
  }
  std::this_thread::sleep_until(pace.Free());
  if (sender.progress) sender.progress(total, total);
  return kMidiOk;
}

}  // namespace zentaline
