// How the styles of a window reach the instrument: the wait text first, then group by group, with a pause behind each
// in which the instrument stores it.
#pragma once

#include <string>

#include "base/bytes.h"
#include "ui/controls.h"

namespace zentaline {

struct Application;

// The timers that run it, both pressing the button that began it. They may be one and the same.
struct StyleTimers {
  ui::Timer& first;    // its interval is the state: 10 idle, anything else under way
  ui::Timer& between;  // from one group to the next
  int pause;           // milliseconds behind each group
};

enum class StyleStep { kNothingToSend, kUnderWay, kEnded };

// The work of such a button, for the user's press as for the timers'. `image` is the window's, `groups` how many of its
// groups there are to send, 0 to 4; both are asked for by a press that begins alone. A group that can't be built ends
// it. At the end `name`, without extension, is what the instrument holds.
StyleStep PressLoadStyles(Application& app, const StyleTimers& timers, const Bytes& image, int groups,
                          const std::string& name);

bool LoadingStyles(const StyleTimers& timers);

}  // namespace zentaline
