#include "style/transmission.h"

#include "core/application.h"
#include "core/boxes.h"
#include "core/main_window.h"
#include "core/send_steps.h"
#include "data/message_codes.h"
#include "midi/api.h"
#include "style/api.h"

namespace zentaline {

namespace {

constexpr int kFirstGroupDelay = 20;

void EndStyles(Application& app, const StyleTimers& timers, const std::string& name) {
  ShowWait(app, 0);
  timers.between.Stop();
  timers.first.SetInterval(kSendIdle);
  app.style.StyInInstrument = CutText(name, kInstrumentNameLength);
  if (app.main != nullptr) app.main->LabelSty.SetCaption(ShownPath(app.style.StyInInstrument));
}

}  // namespace

void ForgetStyInInstrument(Application& app) {
  app.style.StyInInstrument.clear();
}

StyleStep PressLoadStyles(Application& app, const StyleTimers& timers, const Bytes& image, int groups,
                          const std::string& name) {
  StyleState& style = app.style;
  if (!LoadingStyles(timers)) {
    style.StyleGroupCount = groups;
    if (groups == 0) return StyleStep::kNothingToSend;
    style.StyleGroupIndex = 0;
    timers.between.SetInterval(timers.pause);
    WaitForSend(app, timers.first, kFirstGroupDelay, kWaitLoadingSty);
    return StyleStep::kUnderWay;
  }
  timers.first.Stop();
  const bool more = style.StyleGroupIndex < style.StyleGroupCount;
  if (more && SendStyleDump(app, style.StyleGroupIndex, image) == 0) {
    ++style.StyleGroupIndex;
    timers.between.SetInterval(timers.pause);
    timers.between.Start();
    return StyleStep::kUnderWay;
  }
  EndStyles(app, timers, name);
  return StyleStep::kEnded;
}

void ForgetStylesSent(Application& app, const std::string& name) {
  if (app.style.StyInInstrument != name) return;
  app.style.StyInInstrument.clear();
  if (app.main != nullptr) app.main->LabelSty.SetCaption({});
}

bool LoadingStyles(const StyleTimers& timers) {
  return SendIsDue(timers.first);
}

}  // namespace zentaline
