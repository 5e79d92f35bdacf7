#include "core/send_steps.h"

#include "core/boxes.h"

namespace zentaline {

bool SendIsDue(const ui::Timer& timer) {
  return timer.interval() != kSendIdle;
}

void WaitForSend(Application& app, ui::Timer& timer, int step, int wait_code) {
  ShowWait(app, wait_code);
  timer.SetInterval(step);
  timer.Start();
}

int TakeSendStep(ui::Timer& timer) {
  const int step = timer.interval();
  if (step != kSendIdle) timer.Stop();
  timer.SetInterval(kSendIdle);
  return step;
}

}  // namespace zentaline
