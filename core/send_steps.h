// A send that takes several presses of one button: the user's shows the wait text and starts a timer, which presses
// again, and that press does the work; so the text is seen before the send holds everything up. The interval of the
// timer is the step that comes next, and how many milliseconds it is waited for.
#pragma once

#include "ui/controls.h"

namespace zentaline {

struct Application;

inline constexpr int kSendIdle = 10;  // no step is due

// Whether a step is due: the wait text stands there on its account.
bool SendIsDue(const ui::Timer& timer);
// Shows the wait text of this code, and goes on with a step.
void WaitForSend(Application& app, ui::Timer& timer, int step, int wait_code);
// The step that this press takes, kSendIdle for the first one; none is due afterwards. The timer stops, since the press
// may have come before it.
int TakeSendStep(ui::Timer& timer);

}  // namespace zentaline
