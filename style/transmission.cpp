#include "style/transmission.h"

#include "core/application.h"
#include "core/boxes.h"
#include "core/main_window.h"
#include "data/message_codes.h"
#include "midi/api.h"

namespace zentaline {

namespace {

constexpr int kIdle = 10;
constexpr int kFirstGroupDelay = 20;

void EndStyles(Application& app, const StyleTimers& timers, const std::string& name) {
  ShowWait(app, 0);
  timers.between.Stop();
  timers.first.SetInterval(kIdle);
  app.style.StyInInstrument = CutText(name, kInstrumentNameLength);
  if (app.main != nullptr) app.main->LabelSty.SetCaption(ShownPath(app.style.StyInInstrument));
}

}  // namespace

StyleStep PressLoadStyles(Application& app, const StyleTimers& timers, const Bytes& image, int groups,
                          const std::string& name) {
  MidiState& midi = app.midi;
  if (!LoadingStyles(timers)) {
    midi.StyleGroupCount = groups;
    if (groups == 0) return StyleStep::kNothingToSend;
    midi.StyleGroupIndex = 0;
    timers.between.SetInterval(timers.pause);
    ShowWait(app, kWaitLoadingSty);
    timers.first.SetInterval(kFirstGroupDelay);
    timers.first.Start();
    return StyleStep::kUnderWay;
  }
  timers.first.Stop();
  const bool more = midi.StyleGroupIndex < midi.StyleGroupCount;
  if (more && SendStyleDump(app, midi.StyleGroupIndex, image) == 0) {
    ++midi.StyleGroupIndex;
    timers.between.SetInterval(timers.pause);
    timers.between.Start();
    return StyleStep::kUnderWay;
  }
  EndStyles(app, timers, name);
  return StyleStep::kEnded;
}

bool LoadingStyles(const StyleTimers& timers) {
  return timers.first.interval() != kIdle;
}

}  // namespace zentaline
