// What the windows of global data and of back sequences draw.
#pragma once

#include <span>

#include "ui/picture.h"

namespace zentaline {

// A bar for each count below the other on a ground of its own, as long in proportion to the greatest.
ui::Drawing EventsDrawing(std::span<const int> counts);

// The keys of an octave from C on, with their names; the middles of the twelve notes are equally far from each other,
// so that what belongs to a note can stand over its key.
ui::Drawing OctaveDrawing();

}  // namespace zentaline
