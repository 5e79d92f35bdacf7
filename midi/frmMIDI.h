// The MIDI channels of the instrument and its parts. A child window and not a modal one, so that a channel can be tried
// out by playing while the window stays open.
#pragma once

#include "core/child_window.h"
#include "ui/control_array.h"

namespace zentaline {

class frmMIDI : public ChildWindow {
 public:
  static constexpr int kChannels = 11;

  explicit frmMIDI(Application& app);

  ui::ControlArray<ui::Label> Lab3{*this, "Lab3", 0, kChannels - 1};
  ui::ControlArray<ui::ComboBox> Combo3{*this, "Combo3", 0, kChannels - 1};
  ui::Button CommClose{*this, "CommClose"};

  void Load() override;
};

}  // namespace zentaline
