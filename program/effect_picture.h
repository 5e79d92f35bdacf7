// How the two effects of a program stand to each other, as a picture.
#pragma once

#include <array>
#include <string>

#include "ui/picture.h"

namespace zentaline {

enum class EffectPlacement { kSerial = 0, kParallel1 = 1, kParallel2 = 2, kParallel3 = 3 };

// One of the two effects, in the words of its controls.
struct EffectShown {
  std::string name;
  std::string balance;  // "DRY", "FX", or the number between
  bool works = true;    // switched on, and of a type that does something
};

struct EffectRouting {
  EffectPlacement placement = EffectPlacement::kSerial;
  std::array<EffectShown, 2> effects;
  // As the bars of the outputs show them. In PARALLEL 3 these are what effect 1 and effect 2 return to the left and to
  // the right; else the second is the pan of output C and the fourth that of output D.
  std::array<std::string, 4> outputs;
};

// Language 1 is Italian, anything else English.
ui::Drawing EffectDrawing(const EffectRouting& routing, int language_code);

}  // namespace zentaline
