// How the windows of the MIDI link open.
#include <memory>

#include "core/application.h"
#include "midi/api.h"
#include "midi/frmMIDI.h"
#include "midi/frmMsgEx.h"

namespace zentaline {

void ToggleMonitor(Application& app) {
  if (ui::Form* open = app.toolkit.FindForm("frmMsgEx")) {
    open->Close();
  } else {
    app.toolkit.Open(std::make_unique<frmMsgEx>(app));
  }
}

void ShowChannels(Application& app) {
  if (ui::Form* open = app.toolkit.FindForm("frmMIDI")) {
    app.toolkit.Activate(*open);
  } else {
    app.toolkit.Open(std::make_unique<frmMIDI>(app));
  }
}

}  // namespace zentaline
