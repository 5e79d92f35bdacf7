#include "ui/form.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/ui/toy_program.h"

namespace zentaline::ui {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Forms : public testing::Test {
 protected:
  Forms() {
    toy.Start();
    toy.log.clear();
  }
  ToyHost host{""};
  Toy& toy = host.toy;
};

TEST_F(Forms, AreFoundByTheirFullNamesWhileTheyAreOpen) {
  ToyChild& first = toy.NewChild();
  toy.NewChild();
  EXPECT_EQ(host.console.FindForm("frmToy(1)"), &first);
  EXPECT_EQ(host.console.FindForm("frmToy"), nullptr);
  first.UserClose();
  EXPECT_EQ(host.console.FindForm("frmToy(1)"), nullptr);
  EXPECT_NE(host.console.FindForm("frmToy(2)"), nullptr);
}

TEST_F(Forms, AreToldInTheOrderOfOpening) {
  ToyChild& first = toy.NewChild();
  ToyChild& second = toy.NewChild();
  first.UserActivate();
  EXPECT_THAT(host.console.forms(), ElementsAre(toy.main, &first, &second));
}

TEST_F(Forms, AnOpenedChildComesToTheFrontAndHearsOfIt) {
  ToyChild& child = toy.NewChild();
  EXPECT_EQ(host.console.active_child(), &child);
  EXPECT_THAT(toy.log, ElementsAre("resized 1", "activated 1"));
}

TEST_F(Forms, AnActionInAChildBringsItToTheFrontOnce) {
  ToyChild& first = toy.NewChild();
  toy.NewChild();
  toy.log.clear();
  first.Comm.UserPress();
  first.Comm.UserPress();
  EXPECT_THAT(toy.log, ElementsAre("activated 1", "Comm", "Comm"));
}

TEST_F(Forms, WhenTheFrontChildClosesTheOneBeforeComesToTheFront) {
  ToyChild& first = toy.NewChild();
  ToyChild& second = toy.NewChild();
  ToyChild& third = toy.NewChild();
  first.UserActivate();
  toy.log.clear();
  first.UserClose();
  EXPECT_EQ(host.console.active_child(), &third);
  third.UserClose();
  EXPECT_EQ(host.console.active_child(), &second);
  EXPECT_THAT(toy.log, ElementsAre("unload 1", "activated 3", "unload 3", "activated 2"));
}

TEST_F(Forms, AWindowThatRefusesToCloseStaysOpen) {
  ToyHost asking("answer no");
  asking.toy.Start();
  ToyChild& child = asking.toy.NewChild();
  asking.toy.asks_at_close = true;
  EXPECT_FALSE(child.UserClose());
  EXPECT_TRUE(child.open());
}

TEST_F(Forms, AWindowMayCloseItselfInItsOwnHandler) {
  toy.main->TimerAuto.Stop();
  ToyChild& child = toy.NewChild();
  toy.log.clear();
  child.Timer1.Start();
  child.Comm.on_click = [this, &child] {
    child.Close();
    toy.Log(child.open() ? "open" : "closed");
    child.Text1.SetText("still there");
    toy.Log(child.Text1.text());
  };
  EXPECT_TRUE(child.Comm.UserPress());
  host.console.Advance(1000);
  EXPECT_THAT(toy.log, ElementsAre("unload 1", "closed", "Text1=still there", "still there"));
  EXPECT_EQ(host.console.active_child(), nullptr);
}

TEST_F(Forms, AClosedWindowTakesNoMoreActions) {
  ToyChild& child = toy.NewChild();
  const UserEvent event(host.console);
  child.CloseWithoutAsking();
  toy.log.clear();
  EXPECT_FALSE(child.Comm.UserPress());
  EXPECT_FALSE(child.UserClose());
  EXPECT_FALSE(child.UserContext());
  EXPECT_FALSE(child.UserMouse({}));
  EXPECT_TRUE(child.Close());
  child.UserActivate();
  child.UserPlace({1, 2, 3, 4, WindowState::kNormal}, {3, 4});
  EXPECT_THAT(toy.log, IsEmpty());
}

TEST_F(Forms, AModalWindowKeepsTheOthersOutOfReach) {
  ToyChild& child = toy.NewChild();
  host.console.Open(std::make_unique<ToyModal>(toy));
  EXPECT_FALSE(child.Comm.UserPress());
  EXPECT_FALSE(toy.main->mnuNew.UserPress());
  EXPECT_FALSE(child.UserClose());
  EXPECT_FALSE(toy.main->UserClose());
  ToyModal& modal = static_cast<ToyModal&>(*host.console.modal());
  EXPECT_TRUE(modal.CommOK.UserPress());
  EXPECT_EQ(host.console.modal(), nullptr);
  EXPECT_TRUE(child.Comm.UserPress());
}

TEST_F(Forms, OfTwoModalWindowsOnlyTheUpperOneIsInReach) {
  Form& lower = host.console.Open(std::make_unique<ToyModal>(toy));
  Form& upper = host.console.Open(std::make_unique<ToyModal>(toy));
  EXPECT_FALSE(lower.Reachable());
  EXPECT_TRUE(upper.UserClose());
  EXPECT_TRUE(lower.Reachable());
}

TEST_F(Forms, APlaceThatIsNoOtherRaisesNothing) {
  ToyChild& child = toy.NewChild();
  toy.log.clear();
  const Placement placement = {1, 2, 300, 200, WindowState::kNormal};
  child.UserPlace(placement, {300, 200});
  child.UserPlace(placement, {300, 200});
  EXPECT_THAT(toy.log, ElementsAre("resized 1"));
}

TEST_F(Forms, ClosingTheMainWindowEndsTheProgram) {
  toy.NewChild();
  EXPECT_TRUE(toy.main->UserClose());
  EXPECT_TRUE(host.console.main_closed());
  EXPECT_THAT(host.console.forms(), IsEmpty());
}

TEST_F(Forms, TheFreeRoomOfAWindowTakesTheMouse) {
  ToyChild& child = toy.NewChild();
  toy.log.clear();
  EXPECT_TRUE(child.UserMouse({MouseEvent::kMove, 1, 1, false}));
  EXPECT_THAT(toy.log, ElementsAre("form mouse 1"));
}

}  // namespace
}  // namespace zentaline::ui
