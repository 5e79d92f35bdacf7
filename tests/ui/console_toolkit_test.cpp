#include "ui/console/console_toolkit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/ui/toy_program.h"
#include "ui/console/midi_transcript.h"

namespace zentaline::ui {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(ConsoleToolkit, HasFixedMeasures) {
  ToyHost host("");
  EXPECT_EQ(host.console.ScreenSize(), (Size{1024, 768}));
  EXPECT_EQ(host.console.TextWidth({}, "abc"), 24);
  EXPECT_EQ(host.console.TextWidth({true, true, 20}, "\xC3\xA8"), 8);
  EXPECT_EQ(host.console.ShortDate(), "11/03/2004");
}

TEST(ConsoleToolkit, TheStartRunsItsChainAndNoOtherTimeAndNoOtherTimer) {
  ToyHost host("start");
  host.toy.log.clear();
  EXPECT_EQ(host.Run(), 0);
  EXPECT_EQ(host.console.Now(), 0);
  EXPECT_THAT(host.lines, ElementsAre("open 0 frmMain \"Toy program\"", "open 0 frmToy(1) \"Toy 1\""));
  EXPECT_TRUE(static_cast<ToyChild*>(host.console.FindForm("frmToy(1)"))->Timer1.running());
}

TEST(ConsoleToolkit, AChainThatNeverEndsIsGivenUp) {
  ToyHost host("");
  host.toy.Start();
  host.toy.main->TimerAuto.on_timer = [&host] { host.toy.main->TimerAuto.Start(); };
  host.console.RunChain([] { return true; });
  EXPECT_EQ(host.console.Now(), 0);
}

TEST(ConsoleToolkit, TheWaitTextIsPrintedWhenItChanges) {
  ToyHost host("");
  host.console.ShowWait("");
  host.console.ShowWait("Wait");
  host.console.ShowWait("Wait");
  host.console.Advance(5);
  host.console.ShowWait("");
  EXPECT_THAT(host.lines, ElementsAre("wait 0 \"Wait\"", "wait 5 \"\""));
}

TEST(ConsoleToolkit, AWindowWithoutAPlaceGetsOneAndAPlacedOneKeepsItsOwn) {
  ToyHost host("");
  host.toy.Start();
  EXPECT_EQ(host.toy.main->placement(), (Placement{0, 0, 1024, 768, WindowState::kNormal}));
  ToyChild& first = host.toy.NewChild();
  ToyChild& second = host.toy.NewChild();
  EXPECT_EQ(first.placement(), (Placement{0, 0, 480, 360, WindowState::kNormal}));
  EXPECT_EQ(second.placement(), (Placement{24, 24, 480, 360, WindowState::kNormal}));
  std::unique_ptr<ToyChild> placed = std::make_unique<ToyChild>(host.toy, "9");
  placed->SetPlacement({-5, 7, 200, 100, WindowState::kNormal});
  const Form& third = host.console.Open(std::move(placed));
  EXPECT_EQ(third.placement(), (Placement{-5, 7, 200, 100, WindowState::kNormal}));
  EXPECT_EQ(third.inner_size(), (Size{200, 100}));
}

TEST(ConsoleToolkit, AMaximisedWindowKeepsItsPlaceAndFillsTheMainWindow) {
  ToyHost host(
      "start\nresize frmMain 800 600\nmaximize frmToy(1)\nget frmToy(1).state\nget frmToy(1).width\n"
      "resize frmMain 700 500\nminimize frmToy(1)\nget frmToy(1).state\nrestore frmToy(1)\nget frmToy(1).state");
  Size filled;
  EXPECT_EQ(host.Run(), 0) << host.complaint;
  const Form& child = *host.console.FindForm("frmToy(1)");
  filled = child.inner_size();
  EXPECT_EQ(filled, (Size{480, 360}));
  EXPECT_THAT(std::vector<std::string>(host.lines.begin() + 2, host.lines.end()),
              ElementsAre("value frmToy(1).state 2", "value frmToy(1).width 480", "value frmToy(1).state 1",
                          "value frmToy(1).state 0"));
}

TEST(ConsoleToolkit, AMaximisedWindowFollowsTheMainWindow) {
  ToyHost host("start\nmaximize frmToy(1)\nresize frmMain 700 500");
  EXPECT_EQ(host.Run(), 0) << host.complaint;
  EXPECT_EQ(host.console.FindForm("frmToy(1)")->inner_size(), (Size{700, 500}));
}

TEST(ConsoleToolkit, AProgramThatPlacesItsWindowHearsOfItsNewSize) {
  ToyHost host("");
  host.toy.Start();
  ToyChild& child = host.toy.NewChild();
  host.toy.log.clear();
  child.SetPlacement({1, 1, 320, 240, WindowState::kNormal});
  EXPECT_EQ(child.inner_size(), (Size{320, 240}));
  EXPECT_THAT(host.toy.log, ElementsAre("resized 1"));
}

TEST(ConsoleToolkit, ThePrinterPrintsOrFails) {
  ToyHost host("start\npress mnuPrint\nprinter fail\npress mnuPrint\nprinter ok\nwait 3\npress mnuPrint");
  EXPECT_EQ(host.Run(), 0);
  EXPECT_THAT(std::vector<std::string>(host.lines.begin() + 2, host.lines.end()),
              ElementsAre("print 0 453 283 \"Text\"", "print 0 end", "print 3 453 283 \"Text\"", "print 3 end"));
}

TEST(ConsoleToolkit, OnTheRealClockTimersRunByThemselves) {
  std::vector<std::string> lines;
  ConsoleToolkit console(ConsoleToolkit::Clock::kReal, [&lines](const std::string& line) { lines.push_back(line); });
  Toy toy(console);
  toy.Start();
  console.RunChain([&toy] { return toy.reopening; });
  EXPECT_EQ(toy.children, 1);
  toy.log.clear();
  EXPECT_GT(console.RunDueTimers(), 0);
  const std::int64_t before = console.Now();
  console.Advance(150);
  EXPECT_GE(console.Now() - before, 150);
  EXPECT_EQ(toy.log.size(), 1U);
  EXPECT_EQ(console.RunDueTimers(), -1);
}

TEST(MidiTranscript, PrintsCallsAndMessages) {
  std::vector<std::string> lines;
  std::int64_t now = 0;
  Transcript transcript([&lines](const std::string& line) { lines.push_back(line); }, [&now] { return now; });
  MidiTranscript midi(transcript);
  midi.Service("midiOutOpen", {3}, 4);
  now = 1000;
  midi.Service("midiConnect", {}, 0);
  midi.Long(std::string("\xF0\x42\x00\xF7", 4));
  midi.Short(std::string("\xC0\x0A", 2));
  midi.Short("\x90\x3C\x64");
  midi.Failed("midiOutLongMsg", 64);
  EXPECT_THAT(lines,
              ElementsAre("service 0 midiOutOpen 3 -> 4", "service 1000 midiConnect -> 0", "long 1000 F0 42 00 F7",
                          "short 1000 C0 0A", "short 1000 90 3C 64", "failed 1000 midiOutLongMsg -> 64"));
}

}  // namespace
}  // namespace zentaline::ui
