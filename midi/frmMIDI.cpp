#include "midi/frmMIDI.h"

#include <array>
#include <string>
#include <vector>

#include "base/scoped_value.h"
#include "core/application.h"
#include "core/boxes.h"
#include "data/texts.h"

namespace zentaline {

namespace {

constexpr int kMidiChannels = 16;

// The labels are the same in both languages.
struct ChannelRow {
  const char* label;
  int& (*channel)(MidiState& midi);
};

template <std::size_t part>
int& PartChannel(MidiState& midi) {
  return midi.PartChannel[part];
}

constexpr std::array<ChannelRow, frmMIDI::kChannels> kRows = {{
    {"GLB (Global)", [](MidiState& midi) -> int& { return midi.GlobalChannel; }},
    {"ARRANG (Arrangement)", [](MidiState& midi) -> int& { return midi.ArrChannel; }},
    {"LOW (Lower)", PartChannel<8>},
    {"UP2 (Upper 2)", PartChannel<7>},
    {"UP1 (Upper 1)", PartChannel<6>},
    {"DRM (Drum)", PartChannel<0>},
    {"PER (Percussion)", PartChannel<1>},
    {"BAS (Bass)", PartChannel<2>},
    {"AC1 (Accomp. 1)", PartChannel<3>},
    {"AC2 (Accomp. 2)", PartChannel<4>},
    {"AC3 (Accomp. 3)", PartChannel<5>},
}};

}  // namespace

frmMIDI::frmMIDI(Application& app) : ChildWindow(app, "frmMIDI", {}) {
  std::vector<std::string> channels;
  for (int channel = 1; channel <= kMidiChannels; ++channel) channels.push_back(std::to_string(channel));
  std::vector<ui::Layout> cells;
  for (int i = 0; i < kChannels; ++i) {
    Lab3[i].SetCaption(kRows[static_cast<std::size_t>(i)].label);
    Combo3[i].SetRows(channels);
    Combo3[i].on_click = [this, i] { kRows[static_cast<std::size_t>(i)].channel(this->app().midi) = Combo3[i].row(); };
    cells.push_back(ui::Item(Lab3[i]));
    cells.push_back(ui::Item(Combo3[i]));
  }
  CommClose.SetCaption(GetText(app, kTextClose));
  CommClose.on_click = [this] { Close(); };
  cancel_button = &CommClose;
  on_context = [this] { PopupEditMenu(); };
  layout = ui::Column({ui::Grid(2, std::move(cells)), ui::Space(), ui::Row({ui::Space(), ui::Item(CommClose)})});
  layout.scrolls = true;
}

void frmMIDI::Load() {
  const ScopedValue loading(app().core.FormLoading, true);
  ChildWindow::Load();
  for (int i = 0; i < kChannels; ++i) Combo3[i].SetRow(kRows[static_cast<std::size_t>(i)].channel(app().midi));
}

}  // namespace zentaline
