// A long message in pieces, at the pace of its port.
#pragma once

#include <functional>
#include <string_view>

#include "midi/alsa/pace.h"
#include "midi/device_service.h"

namespace zentaline {

struct PieceSender {
  std::function<int(std::string_view piece)> write;  // gives a MidiResult
  std::function<bool()> stop = {};                   // whether to break off; may be empty
  MidiProgress progress = {};                        // may be empty
};

// Returns when the last piece is due to have left. A message that is broken off, or that the port doesn't take to its
// end, is closed by an F7 where the port is still there: no instrument waits inside half a one.
int SendPieces(std::string_view bytes, Pace& pace, const PieceSender& sender);

}  // namespace zentaline
