// The envelopes of the program editor as pictures.
#include "program/envelope_picture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <random>
#include <string>

#include "ui/console/console_toolkit.h"

namespace zentaline {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr Envelope kAll[] = {Envelope::kPitch, Envelope::kFilter, Envelope::kAmplifier};

// Which of the values are the times and levels of the four points, told here once more; -1 for none.
struct Point {
  int time;
  int level;
};
std::vector<Point> PointsOf(Envelope envelope) {
  if (envelope == Envelope::kPitch) return {{-1, 0}, {1, 2}, {3, -1}, {4, 5}};
  return {{0, 1}, {2, 3}, {4, 5}, {6, envelope == Envelope::kFilter ? 7 : -1}};
}

bool IsLevel(Envelope envelope, int value) {
  for (const Point& point : PointsOf(envelope)) {
    if (point.level == value) return true;
  }
  return false;
}

int LeastOf(Envelope envelope, int value) {
  return IsLevel(envelope, value) && envelope != Envelope::kAmplifier ? -99 : 0;
}

std::vector<int> RandomValues(Envelope envelope, std::mt19937& random) {
  std::vector<int> values(EnvelopeValueCount(envelope));
  for (std::size_t i = 0; i < values.size(); ++i) {
    values[i] = std::uniform_int_distribution<int>(LeastOf(envelope, static_cast<int>(i)), 99)(random);
  }
  return values;
}

ui::Handle HandleOf(Envelope envelope, const std::vector<int>& values, int handle) {
  return EnvelopeDrawing(envelope, values, 2).handles[static_cast<std::size_t>(handle)];
}

std::vector<int> After(std::vector<int> values, const EnvelopeMove& move) {
  if (move.time) values[move.time->value] = move.time->becomes;
  if (move.level) values[move.level->value] = move.level->becomes;
  return values;
}

TEST(Envelopes, HaveAsManyValuesAsTheirBars) {
  EXPECT_EQ(EnvelopeValueCount(Envelope::kPitch), 6U);
  EXPECT_EQ(EnvelopeValueCount(Envelope::kFilter), 8U);
  EXPECT_EQ(EnvelopeValueCount(Envelope::kAmplifier), 7U);
}

TEST(Envelopes, OfAnotherNumberOfValuesThereIsNoDrawing) {
  for (const std::size_t count : {0U, 5U, 7U, 100U}) {
    const ui::Drawing drawing = EnvelopeDrawing(Envelope::kPitch, std::vector<int>(count), 2);
    EXPECT_THAT(drawing.handles, IsEmpty());
    EXPECT_THAT(drawing.shapes, IsEmpty());
  }
}

TEST(Envelopes, HandlesAreNamedInBothLanguages) {
  const auto names = [](Envelope envelope, int language) {
    std::vector<std::string> found;
    const std::vector<int> values(EnvelopeValueCount(envelope));
    for (const ui::Handle& handle : EnvelopeDrawing(envelope, values, language).handles) found.push_back(handle.name);
    return found;
  };
  EXPECT_THAT(names(Envelope::kPitch, 2), ElementsAre("Start", "Attack", "End of decay", "Release"));
  EXPECT_THAT(names(Envelope::kFilter, 2), ElementsAre("Attack", "Break point", "Sustain", "Release"));
  EXPECT_EQ(names(Envelope::kFilter, 2), names(Envelope::kAmplifier, 2));
  for (const Envelope envelope : kAll) {
    const std::vector<std::string> italian = names(envelope, 1);
    EXPECT_THAT(italian, SizeIs(4));
    EXPECT_EQ(italian.back(), "Rilascio");
  }
}

TEST(Envelopes, LevelsStandAboveAndBelowTheirZeroLine) {
  const int zero = HandleOf(Envelope::kPitch, {0, 0, 0, 0, 0, 0}, 0).y;
  EXPECT_EQ(zero, 500);
  EXPECT_LT(HandleOf(Envelope::kPitch, {1, 0, 0, 0, 0, 0}, 0).y, zero);
  EXPECT_GT(HandleOf(Envelope::kPitch, {-1, 0, 0, 0, 0, 0}, 0).y, zero);
  EXPECT_EQ(HandleOf(Envelope::kPitch, {99, 9, 9, 9, 9, 9}, 2).y, zero) << "the decay ends at no level";
  EXPECT_EQ(HandleOf(Envelope::kFilter, {0, 0, 0, 0, 0, 0, 0, 0}, 0).y, zero);
  EXPECT_EQ(
      HandleOf(Envelope::kPitch, {99, 0, 0, 0, 0, 0}, 0).y + HandleOf(Envelope::kPitch, {-99, 0, 0, 0, 0, 0}, 0).y,
      1000);
}

TEST(Envelopes, TheAmplifierHasSilenceAtItsFootAndEndsThere) {
  const std::vector<int> loud = {50, 99, 50, 99, 50, 99, 50};
  const std::vector<int> silent = {50, 0, 50, 0, 50, 0, 50};
  const int foot = HandleOf(Envelope::kAmplifier, silent, 0).y;
  EXPECT_GT(foot, 900);
  EXPECT_LT(HandleOf(Envelope::kAmplifier, loud, 0).y, 100);
  EXPECT_EQ(HandleOf(Envelope::kAmplifier, loud, 3).y, foot);
}

TEST(Envelopes, HaveRoomForAllTimesAtTheirGreatest) {
  for (const Envelope envelope : kAll) {
    std::vector<int> values(EnvelopeValueCount(envelope), 99);
    const ui::Handle last = HandleOf(envelope, values, 3);
    EXPECT_GT(last.x, 900);
    EXPECT_LE(last.x, 1000);
    for (const ui::Handle& handle : EnvelopeDrawing(envelope, values, 2).handles) {
      EXPECT_GE(handle.x, 0);
      EXPECT_GE(handle.y, 0);
      EXPECT_LE(handle.y, 1000);
    }
  }
}

TEST(Envelopes, PointsStandInTheOrderOfTime) {
  std::mt19937 random(1);
  for (const Envelope envelope : kAll) {
    for (int round = 0; round < 200; ++round) {
      const auto handles = EnvelopeDrawing(envelope, RandomValues(envelope, random), 2).handles;
      for (std::size_t i = 1; i < handles.size(); ++i) ASSERT_LE(handles[i - 1].x, handles[i].x);
    }
  }
}

TEST(Envelopes, ALaterTimeMovesItsPointAndThoseBehindAlike) {
  std::vector<int> values = {10, 20, 30, 40, 50, 60, 70, 80};
  const auto before = EnvelopeDrawing(Envelope::kFilter, values, 2).handles;
  values[2] += 10;
  const auto after = EnvelopeDrawing(Envelope::kFilter, values, 2).handles;
  EXPECT_EQ(after[0], before[0]);
  for (const std::size_t i : {1U, 2U, 3U}) {
    // All four times at their greatest are 396 steps in what is left of 950 beside 90 of the held key.
    EXPECT_NEAR(after[i].x - before[i].x, 10 * 860.0 / 396, 1) << i;
    EXPECT_EQ(after[i].y, before[i].y);
  }
}

TEST(Envelopes, AHandleDraggedToWhereItStandsChangesNothing) {
  std::mt19937 random(2);
  for (const Envelope envelope : kAll) {
    for (int round = 0; round < 500; ++round) {
      const std::vector<int> values = RandomValues(envelope, random);
      const auto handles = EnvelopeDrawing(envelope, values, 2).handles;
      for (int handle = 0; handle < 4; ++handle) {
        const ui::Handle& its = handles[static_cast<std::size_t>(handle)];
        ASSERT_EQ(After(values, DragOfEnvelope(envelope, values, handle, its.x, its.y)), values);
      }
    }
  }
}

TEST(Envelopes, ADragMovesTheTimeAndTheLevelOfItsPointAlone) {
  for (const Envelope envelope : kAll) {
    const std::vector<int> values(EnvelopeValueCount(envelope), 30);
    for (int handle = 0; handle < 4; ++handle) {
      const Point point = PointsOf(envelope)[static_cast<std::size_t>(handle)];
      const EnvelopeMove move = DragOfEnvelope(envelope, values, handle, 1000, 0);
      ASSERT_EQ(move.time.has_value(), point.time >= 0);
      ASSERT_EQ(move.level.has_value(), point.level >= 0);
      if (move.time) {
        EXPECT_EQ(*move.time, (EnvelopeChange{static_cast<std::size_t>(point.time), 99}));
      }
      if (move.level) {
        EXPECT_EQ(*move.level, (EnvelopeChange{static_cast<std::size_t>(point.level), 99}));
      }
      const EnvelopeMove back = DragOfEnvelope(envelope, values, handle, 0, 1000);
      if (back.time) {
        EXPECT_EQ(back.time->becomes, 0);
      }
      if (back.level) {
        EXPECT_EQ(back.level->becomes, LeastOf(envelope, point.level));
      }
    }
  }
}

// Of all values that its bars can take, none would bring the handle nearer.
TEST(Envelopes, ADraggedHandleStandsAsNearAsStepsAndRangesAllow) {
  std::mt19937 random(3);
  std::uniform_int_distribution<int> place(0, 1000);
  for (const Envelope envelope : kAll) {
    for (int round = 0; round < 60; ++round) {
      const std::vector<int> values = RandomValues(envelope, random);
      const int handle = round % 4;
      const Point point = PointsOf(envelope)[static_cast<std::size_t>(handle)];
      const int x = place(random);
      const int y = place(random);
      const std::vector<int> after = After(values, DragOfEnvelope(envelope, values, handle, x, y));
      const ui::Handle stands = HandleOf(envelope, after, handle);
      for (int value = -99; value <= 99; ++value) {
        std::vector<int> other = after;
        if (point.time >= 0 && value >= 0) {
          other[static_cast<std::size_t>(point.time)] = value;
          ASSERT_LE(std::abs(stands.x - x), std::abs(HandleOf(envelope, other, handle).x - x));
        }
        other = after;
        if (point.level >= 0 && value >= LeastOf(envelope, point.level)) {
          other[static_cast<std::size_t>(point.level)] = value;
          ASSERT_LE(std::abs(stands.y - y), std::abs(HandleOf(envelope, other, handle).y - y));
        }
      }
    }
  }
}

TEST(Envelopes, AHandleThatIsNotThereMovesNothing) {
  const std::vector<int> values(6, 1);
  for (const int handle : {-1, 4, 1000}) {
    EXPECT_EQ(DragOfEnvelope(Envelope::kPitch, values, handle, 500, 500), EnvelopeMove{});
    EXPECT_EQ(StepOfEnvelope(Envelope::kPitch, values, handle, 1, 1), EnvelopeMove{});
  }
  EXPECT_EQ(DragOfEnvelope(Envelope::kFilter, values, 0, 500, 500), EnvelopeMove{});
}

TEST(Envelopes, StepsStopAtTheEndsOfTheirRanges) {
  const std::vector<int> values = {0, 99, 98, 5, 99, -99};
  EXPECT_EQ(StepOfEnvelope(Envelope::kPitch, values, 1, 1, 10),
            (EnvelopeMove{EnvelopeChange{1, 99}, EnvelopeChange{2, 99}}));
  EXPECT_EQ(StepOfEnvelope(Envelope::kPitch, values, 3, -1, -1),
            (EnvelopeMove{EnvelopeChange{4, 98}, EnvelopeChange{5, -99}}));
  EXPECT_EQ(StepOfEnvelope(Envelope::kPitch, values, 0, 5, -1), (EnvelopeMove{std::nullopt, EnvelopeChange{0, -1}}));
  EXPECT_EQ(StepOfEnvelope(Envelope::kPitch, values, 2, 3, 3), (EnvelopeMove{EnvelopeChange{3, 8}, std::nullopt}));
}

// A window with the bars of an envelope, which tell when they are moved.
class Bars : public ui::Form {
 public:
  Bars(ui::Toolkit& the_toolkit, Envelope the_envelope)
      : Form(the_toolkit, ui::FormKind::kChild, "frmBars"), envelope(the_envelope) {
    std::vector<ui::ScrollBar*> all;
    for (std::size_t i = 0; i < EnvelopeValueCount(the_envelope); ++i) {
      bars.push_back(std::make_unique<ui::ScrollBar>(*this, "Bar", static_cast<int>(i)));
      ui::ScrollBar& bar = *bars.back();
      bar.SetRange(LeastOf(the_envelope, static_cast<int>(i)), 99);
      bar.on_change = [this, &bar] {
        log.push_back(std::to_string(bar.index()) + "=" + std::to_string(bar.value()));
        picture->Show(2);
      };
      all.push_back(&bar);
    }
    picture = std::make_unique<EnvelopePicture>(EGPicture, the_envelope, all);
    picture->Show(2);
  }
  std::vector<int> Values() const {
    std::vector<int> values;
    for (const auto& bar : bars) values.push_back(bar->value());
    return values;
  }
  Envelope envelope;
  std::vector<std::string> log;
  std::vector<std::unique_ptr<ui::ScrollBar>> bars;
  ui::Picture EGPicture{*this, "EGPicture"};
  std::unique_ptr<EnvelopePicture> picture;
};

class EnvelopeBars : public testing::Test {
 protected:
  Bars& Open(Envelope envelope) { return static_cast<Bars&>(console.Open(std::make_unique<Bars>(console, envelope))); }
  ui::ConsoleToolkit console{ui::ConsoleToolkit::Clock::kVirtual, [](const std::string&) {}};
};

TEST_F(EnvelopeBars, AHandleMovesTheBarOfItsTimeAndThenThatOfItsLevel) {
  Bars& form = Open(Envelope::kFilter);
  EXPECT_TRUE(form.EGPicture.UserDrag(1, 1000, 0));
  EXPECT_THAT(form.log, ElementsAre("2=99", "3=99"));
  EXPECT_TRUE(form.EGPicture.UserDrag(3, 0, 1000));
  EXPECT_THAT(form.log, ElementsAre("2=99", "3=99", "7=-99"));
}

TEST_F(EnvelopeBars, AHandleThatOnlyRisesMovesItsLevelAlone) {
  Bars& form = Open(Envelope::kPitch);
  form.bars[1]->SetValue(40);
  form.log.clear();
  EXPECT_TRUE(form.EGPicture.UserDrag(1, form.EGPicture.drawing().handles[1].x, 90));
  EXPECT_THAT(form.log, ElementsAre("2=99"));
}

TEST_F(EnvelopeBars, ThePictureFollowsTheBars) {
  Bars& form = Open(Envelope::kAmplifier);
  const std::string before = form.EGPicture.HandlePlaces();
  form.bars[0]->UserSet(50);
  EXPECT_NE(form.EGPicture.HandlePlaces(), before);
  EXPECT_EQ(form.EGPicture.drawing(), EnvelopeDrawing(Envelope::kAmplifier, form.Values(), 2));
}

TEST_F(EnvelopeBars, ABarThatCantBeMovedStaysAndTheOtherFollows) {
  Bars& form = Open(Envelope::kFilter);
  form.bars[0]->SetEnabled(false);
  EXPECT_TRUE(form.EGPicture.UserDrag(0, 500, 90));
  EXPECT_THAT(form.log, ElementsAre("1=99"));
}

TEST_F(EnvelopeBars, KeysMoveABarByAStep) {
  Bars& form = Open(Envelope::kFilter);
  for (const ui::Key::Name name : {ui::Key::kRight, ui::Key::kUp, ui::Key::kSpace, ui::Key::kDown}) {
    form.EGPicture.DefaultKey({name, {}});
  }
  EXPECT_THAT(form.log, ElementsAre("0=1", "1=1", "3=-1"));
  EXPECT_TRUE(form.EGPicture.HasFocus());
}

TEST_F(EnvelopeBars, AWindowThatClosesAtTheTimeLeavesTheLevel) {
  Bars& form = Open(Envelope::kFilter);
  std::vector<std::string> log;
  form.bars[0]->on_change = [&] {
    log.push_back("closed");
    form.CloseWithoutAsking();
  };
  form.bars[1]->on_change = [&] { log.push_back("level"); };
  EXPECT_TRUE(form.EGPicture.UserDrag(0, 1000, 0));
  EXPECT_THAT(log, ElementsAre("closed"));
}

}  // namespace
}  // namespace zentaline
