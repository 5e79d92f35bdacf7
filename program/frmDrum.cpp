#include "program/frmDrum.h"

#include "core/window_image.h"
#include "data/names.h"

namespace zentaline {

namespace {

constexpr std::size_t kTitleLength = 24;

}  // namespace

frmDrum::frmDrum(Application& app, int kind)
    : BankWindow(app, "frmDrum", kind, kind == kKindDrum ? "Drum" : "Percussion", kTitleLength, DrumKitNames()) {}

}  // namespace zentaline
