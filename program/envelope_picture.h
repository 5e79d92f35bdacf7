// An envelope as a picture: its points at their times and levels, and what a hand that drags one means. The values
// stand in the order of the editor's bars.
#pragma once

#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "ui/controls.h"
#include "ui/picture.h"

namespace zentaline {

enum class Envelope {
  kPitch,      // start level; attack time and level; decay time, to no level; release time and level
  kFilter,     // attack, decay to the break point, slope to the sustain level, release: each a time and a level
  kAmplifier,  // the same without a level of the release, which ends in silence
};

// A time runs from 0 to this, a level as far, below zero too but in the amplifier's envelope.
inline constexpr int kEnvelopeReach = 99;

// How many values an envelope has.
std::size_t EnvelopeValueCount(Envelope envelope);
// The handles stand in the order of time: start, attack, end of decay, release; or attack, break point, sustain,
// release. Language 1 is Italian, anything else English. No drawing for any other number of values.
ui::Drawing EnvelopeDrawing(Envelope envelope, std::span<const int> values, int language_code);

// One of the values takes a new one.
struct EnvelopeChange {
  std::size_t value;
  int becomes;

  bool operator==(const EnvelopeChange&) const = default;
};
// The time and the level of a point; a point that has none of the two leaves it out.
struct EnvelopeMove {
  std::optional<EnvelopeChange> time;
  std::optional<EnvelopeChange> level;

  bool operator==(const EnvelopeMove&) const = default;
};

// What brings the handle as near as steps and ranges allow to a place in thousandths of the picture.
EnvelopeMove DragOfEnvelope(Envelope envelope, std::span<const int> values, int handle, int x, int y);
// The same for so many steps of time and level.
EnvelopeMove StepOfEnvelope(Envelope envelope, std::span<const int> values, int handle, int later, int louder);

// Ties a picture to the bars that it shows, one for each value in their order: the handles move the bars as a user
// does, the time's first. Picture and bars outlive it.
class EnvelopePicture {
 public:
  EnvelopePicture(ui::Picture& picture, Envelope envelope, std::vector<ui::ScrollBar*> bars);
  EnvelopePicture(const EnvelopePicture&) = delete;
  EnvelopePicture& operator=(const EnvelopePicture&) = delete;

  // Shows what the bars stand at; called whenever one of them has moved.
  void Show(int language_code);

 private:
  std::vector<int> Values() const;
  void Carry(const EnvelopeMove& move);

  ui::Picture& picture_;
  Envelope envelope_;
  std::vector<ui::ScrollBar*> bars_;
};

}  // namespace zentaline
