#include "program/envelope_picture.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "ui/form.h"

namespace zentaline {

namespace {

using ui::Ink;
using ui::Point;

constexpr int kNone = -1;

// A point of an envelope: which of the values are its time, counted from the point before, and its level.
struct EnvelopePoint {
  const char* italian;
  const char* english;
  int time;
  int level;
};

constexpr std::array<EnvelopePoint, 4> kPitchPoints = {{
    {"Inizio", "Start", kNone, 0},
    {"Attacco", "Attack", 1, 2},
    {"Fine del decadimento", "End of decay", 3, kNone},
    {"Rilascio", "Release", 4, 5},
}};
constexpr std::array<EnvelopePoint, 4> kFilterPoints = {{
    {"Attacco", "Attack", 0, 1},
    {"Punto di rottura", "Break point", 2, 3},
    {"Sostegno", "Sustain", 4, 5},
    {"Rilascio", "Release", 6, 7},
}};
constexpr std::array<EnvelopePoint, 4> kAmplifierPoints = {{
    {"Attacco", "Attack", 0, 1},
    {"Punto di rottura", "Break point", 2, 3},
    {"Sostegno", "Sustain", 4, 5},
    {"Rilascio", "Release", 6, kNone},
}};

// In units of the drawing, which are thousandths: room for a handle on each side, and what the key is held before the
// release.
constexpr double kLeft = 25;
constexpr double kRight = 975;
constexpr double kTop = 90;
constexpr double kBottom = 910;
constexpr double kHeld = 90;
constexpr double kCurveWidth = 2;  // pixels

const std::array<EnvelopePoint, 4>& PointsOf(Envelope envelope) {
  switch (envelope) {
    case Envelope::kPitch:
      return kPitchPoints;
    case Envelope::kFilter:
      return kFilterPoints;
    default:
      return kAmplifierPoints;
  }
}

// The key is let go behind the point before the last.
bool FollowsTheKey(std::size_t point) {
  return point + 1 == kPitchPoints.size();
}

// How wide a step of time is: all times at their greatest fill the room beside the held key.
double StepOfTime(Envelope envelope) {
  const auto& points = PointsOf(envelope);
  const auto times = std::count_if(points.begin(), points.end(), [](const auto& point) { return point.time != kNone; });
  return (kRight - kLeft - kHeld) / static_cast<double>(times * kEnvelopeReach);
}

int LowestLevel(Envelope envelope) {
  return envelope == Envelope::kAmplifier ? 0 : -kEnvelopeReach;
}

double StepOfLevel(Envelope envelope) {
  return (kBottom - kTop) / (kEnvelopeReach - LowestLevel(envelope));
}

int ValueAt(std::span<const int> values, int place) {
  return place == kNone ? 0 : values[static_cast<std::size_t>(place)];
}

double HeightOf(Envelope envelope, int level) {
  return kTop + StepOfLevel(envelope) * (kEnvelopeReach - level);
}

// Where the time of a point begins.
double StartOf(Envelope envelope, std::span<const int> values, std::size_t point) {
  const auto& points = PointsOf(envelope);
  double x = kLeft + (FollowsTheKey(point) ? kHeld : 0);
  for (std::size_t i = 0; i < point; ++i) x += StepOfTime(envelope) * ValueAt(values, points[i].time);
  return x;
}

Point PlaceOf(Envelope envelope, std::span<const int> values, std::size_t point) {
  const EnvelopePoint& its = PointsOf(envelope)[point];
  return {StartOf(envelope, values, point) + StepOfTime(envelope) * ValueAt(values, its.time),
          HeightOf(envelope, ValueAt(values, its.level))};
}

bool Stands(Envelope envelope, std::span<const int> values, int handle) {
  return values.size() == EnvelopeValueCount(envelope) && handle >= 0 &&
         handle < static_cast<int>(PointsOf(envelope).size());
}

std::optional<EnvelopeChange> ChangeTo(int value, int becomes, int least) {
  if (value == kNone) return std::nullopt;
  return EnvelopeChange{static_cast<std::size_t>(value), std::clamp(becomes, least, kEnvelopeReach)};
}

// From silence to the end of the release.
std::vector<Point> CurveOf(Envelope envelope, std::span<const int> values) {
  std::vector<Point> curve;
  if (envelope != Envelope::kPitch) curve.push_back({kLeft, HeightOf(envelope, 0)});
  for (std::size_t point = 0; point < PointsOf(envelope).size(); ++point) {
    if (FollowsTheKey(point)) curve.push_back({StartOf(envelope, values, point), curve.back().y});
    curve.push_back(PlaceOf(envelope, values, point));
  }
  return curve;
}

}  // namespace

std::size_t EnvelopeValueCount(Envelope envelope) {
  std::size_t count = 0;
  for (const EnvelopePoint& point : PointsOf(envelope)) {
    count += (point.time != kNone ? 1U : 0U) + (point.level != kNone ? 1U : 0U);
  }
  return count;
}

ui::Drawing EnvelopeDrawing(Envelope envelope, std::span<const int> values, int language_code) {
  ui::Drawing drawing;
  if (values.size() != EnvelopeValueCount(envelope)) return drawing;
  const double zero = HeightOf(envelope, 0);
  const std::vector<Point> curve = CurveOf(envelope, values);
  std::vector<Point> area = curve;
  area.push_back({curve.back().x, zero});
  area.push_back({kLeft, zero});
  const auto& points = PointsOf(envelope);
  const double key_up = StartOf(envelope, values, points.size() - 1);
  drawing.shapes = {ui::Box({0, 0}, drawing.size, Ink::kPaper), ui::Area(std::move(area), Ink::kGlow),
                    ui::Line({{key_up, 0}, {key_up, drawing.size.y}}, Ink::kGrid),
                    ui::Line({{0, zero}, {drawing.size.x, zero}}, Ink::kZero),
                    ui::Line(curve, Ink::kAccent, kCurveWidth)};
  for (std::size_t point = 0; point < points.size(); ++point) {
    const Point place = PlaceOf(envelope, values, point);
    drawing.handles.push_back({language_code == 1 ? points[point].italian : points[point].english,
                               static_cast<int>(std::lround(place.x)), static_cast<int>(std::lround(place.y))});
  }
  return drawing;
}

EnvelopeMove DragOfEnvelope(Envelope envelope, std::span<const int> values, int handle, int x, int y) {
  if (!Stands(envelope, values, handle)) return {};
  const auto point = static_cast<std::size_t>(handle);
  const EnvelopePoint& its = PointsOf(envelope)[point];
  const auto time = std::lround((x - StartOf(envelope, values, point)) / StepOfTime(envelope));
  const auto level = kEnvelopeReach - std::lround((y - kTop) / StepOfLevel(envelope));
  return {ChangeTo(its.time, static_cast<int>(time), 0),
          ChangeTo(its.level, static_cast<int>(level), LowestLevel(envelope))};
}

EnvelopeMove StepOfEnvelope(Envelope envelope, std::span<const int> values, int handle, int later, int louder) {
  if (!Stands(envelope, values, handle)) return {};
  const EnvelopePoint& its = PointsOf(envelope)[static_cast<std::size_t>(handle)];
  return {ChangeTo(its.time, ValueAt(values, its.time) + later, 0),
          ChangeTo(its.level, ValueAt(values, its.level) + louder, LowestLevel(envelope))};
}

EnvelopePicture::EnvelopePicture(ui::Picture& picture, Envelope envelope, std::vector<ui::ScrollBar*> bars)
    : picture_(picture), envelope_(envelope), bars_(std::move(bars)) {
  picture_.on_drag = [this](int handle, int x, int y) { Carry(DragOfEnvelope(envelope_, Values(), handle, x, y)); };
  picture_.on_step = [this](int handle, int right, int up) {
    Carry(StepOfEnvelope(envelope_, Values(), handle, right, up));
  };
}

std::vector<int> EnvelopePicture::Values() const {
  std::vector<int> values;
  for (const ui::ScrollBar* bar : bars_) values.push_back(bar->value());
  return values;
}

void EnvelopePicture::Show(int language_code) {
  picture_.SetDrawing(EnvelopeDrawing(envelope_, Values(), language_code));
}

// A bar that stands there already is left alone.
void EnvelopePicture::Carry(const EnvelopeMove& move) {
  const ui::Form& form = picture_.form();
  for (const auto& change : {move.time, move.level}) {
    if (!change || !form.open()) continue;
    ui::ScrollBar& bar = *bars_[change->value];
    if (bar.value() != change->becomes) bar.UserSet(change->becomes);
  }
}

}  // namespace zentaline
