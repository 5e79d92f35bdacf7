// A picture as a model: its handles, and what a hand and the keys do to them.
#include "ui/picture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/ui/toy_program.h"

namespace zentaline::ui {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Hand : public testing::Test {
 protected:
  Hand() {
    form.Curve.on_drag = [this](int handle, int x, int y) {
      log.push_back(std::to_string(handle) + " to " + std::to_string(x) + ' ' + std::to_string(y));
    };
    form.Curve.on_step = [this](int handle, int right, int up) {
      log.push_back(std::to_string(handle) + " by " + std::to_string(right) + ' ' + std::to_string(up));
    };
    form.Curve.SetDrawing(WithHandles({{"Attack", 100, 200}, {"Release", 900, 950}}));
  }
  static Drawing WithHandles(std::vector<Handle> handles) {
    Drawing drawing;
    drawing.handles = std::move(handles);
    return drawing;
  }
  void Keys(std::initializer_list<Key::Name> names) {
    for (const Key::Name name : names) form.Curve.DefaultKey({name, {}});
  }

  ConsoleToolkit console{ConsoleToolkit::Clock::kVirtual, [](const std::string&) {}};
  Toy toy{console};
  ToyChild& form = toy.NewChild();
  std::vector<std::string> log;
};

TEST_F(Hand, HandlesAreToldByTheirPlaces) {
  EXPECT_EQ(form.Curve.handles(), 2);
  EXPECT_EQ(form.Curve.HandlePlaces(), "100 200; 900 950");
  EXPECT_EQ(form.Curve.HandlePlace(1), "900 950");
  EXPECT_EQ(form.Curve.HandlePlace(2), "");
  EXPECT_EQ(form.Curve.HandlePlace(-1), "");
  form.Curve.SetDrawing({});
  EXPECT_EQ(form.Curve.HandlePlaces(), "");
}

TEST_F(Hand, ADragEndsInsideThePicture) {
  EXPECT_TRUE(form.Curve.UserDrag(0, 500, 400));
  EXPECT_TRUE(form.Curve.UserDrag(1, -1, 1001));
  EXPECT_TRUE(form.Curve.UserDrag(1, 70000, -70000));
  EXPECT_THAT(log, ElementsAre("0 to 500 400", "1 to 0 1000", "1 to 1000 0"));
  // Where the handle then stands is told by the form alone.
  EXPECT_EQ(form.Curve.HandlePlaces(), "100 200; 900 950");
}

TEST_F(Hand, AHandleThatIsNotThereCantBeDragged) {
  EXPECT_FALSE(form.Curve.UserDrag(2, 0, 0));
  EXPECT_FALSE(form.Curve.UserDrag(-1, 0, 0));
  EXPECT_FALSE(form.Curve.UserTake(2));
  form.Curve.SetDrawing({});
  EXPECT_FALSE(form.Curve.UserDrag(0, 0, 0));
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(Hand, APictureThatIsDisabledOrHiddenCantBeDragged) {
  form.Curve.SetEnabled(false);
  EXPECT_FALSE(form.Curve.UserDrag(0, 1, 1));
  form.Curve.SetEnabled(true);
  form.Curve.SetVisible(false);
  EXPECT_FALSE(form.Curve.UserDrag(0, 1, 1));
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(Hand, TheHandStaysOnThePictureThoughItMovesOtherControls) {
  form.Curve.on_drag = [this](int, int x, int) { form.VScroll0.UserSet(x); };
  EXPECT_TRUE(form.Curve.UserDrag(0, 100, 0));
  EXPECT_EQ(form.VScroll0.value(), 100);
  EXPECT_TRUE(form.Curve.HasFocus());
}

TEST_F(Hand, KeysMoveTheSelectedHandleBySteps) {
  Keys({Key::kUp, Key::kDown, Key::kLeft, Key::kRight, Key::kPageUp, Key::kPageDown});
  EXPECT_THAT(log, ElementsAre("0 by 0 1", "0 by 0 -1", "0 by -1 0", "0 by 1 0", "0 by 0 10", "0 by 0 -10"));
}

TEST_F(Hand, SpaceGoesRoundTheHandlesAndHomeAndEndToTheFirstAndLast) {
  Keys({Key::kSpace, Key::kUp, Key::kSpace, Key::kUp, Key::kEnd, Key::kUp, Key::kHome, Key::kUp});
  EXPECT_THAT(log, ElementsAre("1 by 0 1", "0 by 0 1", "1 by 0 1", "0 by 0 1"));
}

TEST_F(Hand, ADragSelectsItsHandleAndADrawingWithFewerTakesTheSelectionBack) {
  form.Curve.UserDrag(1, 0, 0);
  EXPECT_EQ(form.Curve.selected_handle(), 1);
  form.Curve.SetDrawing(WithHandles({{"Attack", 1, 1}}));
  EXPECT_EQ(form.Curve.selected_handle(), 0);
  form.Curve.SetDrawing({});
  EXPECT_EQ(form.Curve.selected_handle(), -1);
  Keys({Key::kUp, Key::kSpace, Key::kHome, Key::kEnd});
  EXPECT_THAT(log, ElementsAre("1 to 0 0"));
}

TEST_F(Hand, HoldsFromTheTakingToTheLettingGo) {
  EXPECT_FALSE(console.HandHolds());
  EXPECT_TRUE(form.Curve.UserTake(1));
  EXPECT_TRUE(console.HandHolds());
  form.Curve.UserDrag(1, 10, 10);
  form.Curve.UserDrag(1, 20, 20);
  EXPECT_TRUE(console.HandHolds());
  EXPECT_EQ(console.takings(), 1);
  form.Curve.UserLetGo();
  EXPECT_FALSE(console.HandHolds());
  form.Curve.UserLetGo();
  EXPECT_FALSE(console.HandHolds());
}

TEST_F(Hand, LetsGoWhenTheWindowClosesInItsGrip) {
  form.Curve.on_drag = [this](int, int, int) { form.CloseWithoutAsking(); };
  EXPECT_TRUE(form.Curve.UserTake(0));
  EXPECT_TRUE(form.Curve.UserDrag(0, 1, 1));
  EXPECT_FALSE(console.HandHolds());
}

}  // namespace
}  // namespace zentaline::ui
