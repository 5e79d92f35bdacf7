#include "ui/timers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/ui/toy_program.h"

namespace zentaline::ui {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// A window with three timers that write down when they fire.
class TimerForm : public Form {
 public:
  TimerForm(Toolkit& toolkit, std::vector<std::string>& log) : Form(toolkit, FormKind::kChild, "frmTimers") {
    for (Timer* const timer : {&A, &B, &C}) {
      timer->on_timer = [this, timer, &log] {
        log.push_back(timer->name() + ' ' + std::to_string(this->toolkit().Now()) + (timer->running() ? " on" : ""));
      };
    }
  }
  Timer A{*this, "A"};
  Timer B{*this, "B"};
  Timer C{*this, "C"};
};

class Timers : public testing::Test {
 protected:
  ConsoleToolkit toolkit{ConsoleToolkit::Clock::kVirtual, [](const std::string&) {}};
  std::vector<std::string> log;
  TimerForm& form = static_cast<TimerForm&>(toolkit.Open(std::make_unique<TimerForm>(toolkit, log)));
};

TEST_F(Timers, AnIntervalThatIsToldNowhereIsTenMilliseconds) {
  EXPECT_EQ(form.A.interval(), 10);
  form.A.Start();
  toolkit.Advance(9);
  EXPECT_THAT(log, IsEmpty());
  toolkit.Advance(1);
  EXPECT_THAT(log, ElementsAre("A 10"));
}

TEST_F(Timers, ATimerFiresOnceAndIsOffInItsHandler) {
  form.A.Start();
  toolkit.Advance(1000);
  EXPECT_THAT(log, ElementsAre("A 10"));
  EXPECT_FALSE(form.A.running());
  EXPECT_EQ(toolkit.Now(), 1000);
}

TEST_F(Timers, EnablingOneThatRunsChangesNothing) {
  form.A.Start();
  toolkit.Advance(6);
  form.A.Start();
  toolkit.Advance(6);
  EXPECT_THAT(log, ElementsAre("A 10"));
}

TEST_F(Timers, ANewIntervalStartsARunningTimerAnew) {
  form.A.Start();
  toolkit.Advance(6);
  form.A.SetInterval(20);
  toolkit.Advance(100);
  EXPECT_THAT(log, ElementsAre("A 26"));
}

TEST_F(Timers, TheSameIntervalStartsNothingAnew) {
  form.A.Start();
  toolkit.Advance(6);
  form.A.SetInterval(10);
  toolkit.Advance(100);
  EXPECT_THAT(log, ElementsAre("A 10"));
}

TEST_F(Timers, ANewIntervalStartsNoTimerThatIsOff) {
  form.A.SetInterval(20);
  toolkit.Advance(100);
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(Timers, TheIntervalZeroNeverFiresUntilItIsAnother) {
  form.A.SetInterval(0);
  form.A.Start();
  toolkit.Advance(100);
  EXPECT_THAT(log, IsEmpty());
  EXPECT_TRUE(form.A.running());
  form.A.SetInterval(5);
  toolkit.Advance(100);
  EXPECT_THAT(log, ElementsAre("A 105"));
}

TEST_F(Timers, AStoppedTimerNeverFires) {
  form.A.Start();
  form.A.Stop();
  toolkit.Advance(100);
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(Timers, TiesFireInTheOrderOfEnabling) {
  form.C.Start();
  form.A.Start();
  form.B.Start();
  toolkit.Advance(10);
  EXPECT_THAT(log, ElementsAre("C 10", "A 10", "B 10"));
}

TEST_F(Timers, TiesOfDifferentIntervalsFireInTheOrderOfEnabling) {
  form.A.SetInterval(20);
  form.A.Start();
  toolkit.Advance(10);
  form.B.Start();
  toolkit.Advance(10);
  EXPECT_THAT(log, ElementsAre("A 20", "B 20"));
}

TEST_F(Timers, FireInTheOrderOfTheirTimes) {
  form.A.SetInterval(30);
  form.B.SetInterval(20);
  form.A.Start();
  form.B.Start();
  form.C.Start();
  toolkit.Advance(100);
  EXPECT_THAT(log, ElementsAre("C 10", "B 20", "A 30"));
}

TEST_F(Timers, OneThatIsEnabledInAHandlerCountsFromTheTimeOfTheHandler) {
  int rounds = 0;
  form.A.on_timer = [&] {
    log.push_back("A " + std::to_string(toolkit.Now()));
    if (++rounds < 3) form.A.Start();
  };
  form.A.Start();
  toolkit.Advance(25);
  EXPECT_THAT(log, ElementsAre("A 10", "A 20"));
  toolkit.Advance(5);
  EXPECT_THAT(log, ElementsAre("A 10", "A 20", "A 30"));
}

TEST_F(Timers, ATimerOfAClosedWindowNeverFires) {
  form.A.Start();
  form.B.on_timer = [this] {
    log.push_back("B");
    form.CloseWithoutAsking();
    form.C.Start();
    EXPECT_FALSE(form.A.running());
    EXPECT_FALSE(form.C.running());
  };
  form.B.SetInterval(5);
  form.B.Start();
  toolkit.Advance(100);
  EXPECT_THAT(log, ElementsAre("B"));
}

TEST_F(Timers, AWindowThatIsNotOpenStartsNoTimer) {
  TimerForm closed(toolkit, log);
  closed.A.Start();
  toolkit.Advance(100);
  EXPECT_FALSE(closed.A.running());
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(Timers, ACertainOneIsTakenOutOfTurn) {
  form.A.Start();
  form.B.SetInterval(50);
  form.B.Start();
  EXPECT_EQ(toolkit.timers().TakeFirst([](const Timer& timer) { return timer.name() == "B"; }), &form.B);
  EXPECT_FALSE(form.B.running());
  EXPECT_EQ(toolkit.timers().TakeFirst([](const Timer& timer) { return timer.name() == "B"; }), nullptr);
  toolkit.Advance(100);
  EXPECT_THAT(log, ElementsAre("A 10"));
}

}  // namespace
}  // namespace zentaline::ui
