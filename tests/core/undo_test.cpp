// Taking back and bringing forth: what counts as a step, what the entries say, what counts as changed at each step, and
// who is told.
#include "core/undo.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "core/edit_listener.h"
#include "core/window_image.h"
#include "tests/support/program.h"
#include "ui/controls.h"

namespace zentaline::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using enum MenuId;

class PlainWindow : public ChildWindow {
 public:
  PlainWindow(Application& app, const std::string& number, Bytes image) : ChildWindow(app, "frmPlain", number) {
    app.edits.TakeImage(*this, std::move(image));
  }
  ui::ScrollBar Bar{*this, "Bar"};
  ui::Button Press{*this, "Press"};
  std::vector<std::string> steps;

  void ShowStep(const EditStep& step) override {
    steps.push_back((step.back ? "back " : "forth ") + std::string(step.action.words.what));
  }
};

class UndoTest : public testing::Test {
 protected:
  explicit UndoTest(int language = 2) : program_(folder_) { program_.Start(language); }

  PlainWindow& Open(const std::string& number = "1") {
    return static_cast<PlainWindow&>(program_.toolkit.Open(
        std::make_unique<PlainWindow>(program_.app, number, Bytes(kWindowPrefixLength, '\0') + Bytes(200, 'a'))));
  }
  Edits& edits() { return program_.app.edits; }
  ui::MenuEntry& Entry(MenuId id) { return program_.app.main->Menu(id); }
  bool Back() { return program_.Press(mnuAnnulla); }
  bool Forth() { return program_.Press(mnuRipeti); }

  // What an event of the user's does.
  template <typename Function>
  void Act(Function&& act) {
    const ui::UserEvent event(program_.toolkit);
    act();
  }
  void Change(ChildWindow& window, char to, const EditWords& words = {"Volume", "UPPER1"}, std::size_t at = 300) {
    Act([&] {
      edits().PutByte(ImageOf(window), at, to, words);
      edits().Mark(window, kChangedPosition, 1);
    });
  }
  void ChangeBoth(ChildWindow& first, ChildWindow& second, char to) {
    Act([&] {
      for (ChildWindow* window : {&first, &second}) {
        edits().PutByte(ImageOf(*window), 300, to, {"Paste", "Styles"});
        edits().Mark(*window, kChangedPosition, 1);
      }
    });
  }
  void Save(ChildWindow& window) {
    Act([&] {
      Bytes image = window.window_image();
      PutByte(image, kChangedPosition, 0);
      edits().TakeSaved(window, std::move(image), true);
    });
  }
  static char At(const ChildWindow& window, std::size_t at = 300) { return window.window_image()[at - 1]; }
  static int Changed(const ChildWindow& window) { return ByteAt(window.window_image(), kChangedPosition); }

  ScratchFolder folder_;
  TestProgram program_;
};

class ItalianUndoTest : public UndoTest {
 protected:
  ItalianUndoTest() : UndoTest(1) {}
};

// --- The entries ---

TEST_F(UndoTest, TheEntriesSayWhatTheyTakeBack) {
  PlainWindow& window = Open();
  EXPECT_EQ(Entry(mnuAnnulla).ShownCaption(), "&Undo");
  EXPECT_EQ(Entry(mnuRipeti).ShownCaption(), "&Redo");
  EXPECT_FALSE(Back());
  Change(window, 'b');
  EXPECT_EQ(Entry(mnuAnnulla).ShownCaption(), "&Undo: Volume of UPPER1");
  EXPECT_FALSE(Entry(mnuRipeti).enabled());
  Change(window, 'c', {"VOL", "LOWER"});
  EXPECT_EQ(Entry(mnuAnnulla).ShownCaption(), "&Undo: Volume of LOWER") << "the instrument's short name is spelled out";
  Change(window, 'd', {"Paste", "Arrangements"});
  EXPECT_EQ(Entry(mnuAnnulla).ShownCaption(), "&Undo: Paste Arrangements");
  Change(window, 'e', {"Kept", {}, "Rock & Roll"});
  EXPECT_EQ(Entry(mnuAnnulla).ShownCaption(), "&Undo: Rock && Roll kept") << "the sign is no mnemonic";
  Change(window, 'f', {"Delete", {}, "song"});
  EXPECT_EQ(Entry(mnuAnnulla).ShownCaption(), "&Undo: Delete song");
  ASSERT_TRUE(Back());
  EXPECT_EQ(Entry(mnuRipeti).ShownCaption(), "&Redo: Delete song");
  EXPECT_EQ(Entry(mnuAnnulla).ShownCaption(), "&Undo: Rock && Roll kept");
  while (Back()) continue;
  EXPECT_EQ(Entry(mnuAnnulla).ShownCaption(), "&Undo");
  EXPECT_FALSE(Entry(mnuAnnulla).enabled());
  EXPECT_EQ(Entry(mnuRipeti).ShownCaption(), "&Redo: Volume of UPPER1");
}

TEST_F(ItalianUndoTest, TheEntriesSayItInItalian) {
  PlainWindow& window = Open();
  EXPECT_EQ(Entry(mnuAnnulla).ShownCaption(), "&Annulla");
  EXPECT_EQ(Entry(mnuRipeti).ShownCaption(), "&Ripeti");
  Change(window, 'b', {"PAN", "LOWER"});
  EXPECT_EQ(Entry(mnuAnnulla).ShownCaption(), "&Annulla: Pan di LOWER");
  Change(window, 'c', {"Cut", "Programs"});
  EXPECT_EQ(Entry(mnuAnnulla).ShownCaption(), "&Annulla: Taglia Program");
  Change(window, 'd', {"Kept", {}, "Notte"});
  EXPECT_EQ(Entry(mnuAnnulla).ShownCaption(), "&Annulla: Notte mantenuto");
  Back();
  EXPECT_EQ(Entry(mnuRipeti).ShownCaption(), "&Ripeti: Notte mantenuto");
}

TEST_F(UndoTest, TheEntriesAreOffWhileABoxIsOpen) {
  PlainWindow& window = Open();
  Change(window, 'b');
  bool enabled = true;
  program_.toolkit.before_file_answer = [&] { enabled = Entry(mnuAnnulla).enabled(); };
  program_.Press(mnuApriArr);
  EXPECT_FALSE(enabled);
  EXPECT_TRUE(Entry(mnuAnnulla).enabled());
  const Undo::Hold hold(program_.app);
  EXPECT_FALSE(Back());
}

// --- Steps ---

TEST_F(UndoTest, StepsGoBackAndForthAndANewOneDropsWhatWasTakenBack) {
  PlainWindow& window = Open();
  Change(window, 'b');
  Change(window, 'c');
  EXPECT_EQ(edits().BackCount(), 2);
  ASSERT_TRUE(Back());
  EXPECT_EQ(At(window), 'b');
  EXPECT_EQ(edits().ForwardCount(), 1);
  ASSERT_TRUE(Back());
  EXPECT_EQ(At(window), 'a');
  ASSERT_TRUE(Forth());
  EXPECT_EQ(At(window), 'b');
  EXPECT_THAT(window.steps, ElementsAre("back Volume", "back Volume", "forth Volume"));
  Change(window, 'd');
  EXPECT_EQ(edits().ForwardCount(), 0);
  EXPECT_FALSE(Forth());
  ASSERT_TRUE(Back());
  EXPECT_EQ(At(window), 'b');
}

TEST_F(UndoTest, AnEventThatLeavesTheBytesAsTheyWereIsNoStep) {
  PlainWindow& window = Open();
  Act([&] {
    edits().PutByte(ImageOf(window), 300, 'b', {"Volume"});
    edits().PutByte(ImageOf(window), 300, 'a', {"Volume"});
  });
  EXPECT_EQ(edits().BackCount(), 0);
  EXPECT_FALSE(Entry(mnuAnnulla).enabled());
  Act([&] { edits().Mark(window, kChangedPosition, 1); });
  EXPECT_EQ(edits().BackCount(), 0);
}

TEST_F(UndoTest, AnotherWindowComesToTheFront) {
  PlainWindow& first = Open();
  Change(first, 'b');
  const PlainWindow& second = Open("2");
  EXPECT_EQ(program_.toolkit.active_child(), &second);
  Back();
  EXPECT_EQ(program_.toolkit.active_child(), &first);
}

TEST_F(UndoTest, MovesOfOneBarAreOneStepForTwoSeconds) {
  PlainWindow& window = Open();
  window.Bar.on_change = [&] { edits().PutByte(ImageOf(window), 300, 'a' + window.Bar.value(), {"Volume"}); };
  window.Bar.UserSet(1);
  program_.toolkit.Advance(2000);
  window.Bar.UserSet(2);
  EXPECT_EQ(edits().BackCount(), 1);
  program_.toolkit.Advance(2001);
  window.Bar.UserSet(3);
  EXPECT_EQ(edits().BackCount(), 2);
  Back();
  EXPECT_EQ(At(window), 'c');
  window.Bar.UserSet(7);
  EXPECT_EQ(edits().BackCount(), 2) << "a step back parts the moves";
}

// --- What counts as changed ---

TEST_F(UndoTest, EverythingTakenBackCountsAsUnchanged) {
  PlainWindow& window = Open();
  Change(window, 'b');
  Change(window, 'c');
  Back();
  EXPECT_EQ(Changed(window), 1);
  Back();
  EXPECT_EQ(Changed(window), 0);
  Forth();
  EXPECT_EQ(Changed(window), 1);
}

TEST_F(UndoTest, BeyondASaveItIsChangedAgainAndForthToItUnchanged) {
  PlainWindow& window = Open();
  Change(window, 'b');
  Change(window, 'c');
  Save(window);
  EXPECT_EQ(Changed(window), 0);
  EXPECT_EQ(edits().BackCount(), 2) << "the save is no step, and keeps the list";
  Back();
  EXPECT_EQ(Changed(window), 1);
  Back();
  EXPECT_EQ(Changed(window), 1) << "the file on the disk is the later one";
  Forth();
  EXPECT_EQ(Changed(window), 1);
  Forth();
  EXPECT_EQ(Changed(window), 0);
  Change(window, 'd');
  EXPECT_EQ(Changed(window), 1);
  Back();
  EXPECT_EQ(Changed(window), 0);
}

TEST_F(UndoTest, TheNewestSaveCounts) {
  PlainWindow& window = Open();
  Change(window, 'b');
  Save(window);
  Change(window, 'c');
  Back();
  Back();
  EXPECT_EQ(Changed(window), 1);
  Save(window);
  EXPECT_EQ(Changed(window), 0);
  Forth();
  EXPECT_EQ(At(window), 'b');
  EXPECT_EQ(Changed(window), 1) << "the save of then is no longer what the disk holds";
  Back();
  EXPECT_EQ(Changed(window), 0);
}

TEST_F(UndoTest, ASaveThatCanNoLongerBeReachedLeavesTheWindowChanged) {
  PlainWindow& window = Open();
  Change(window, 'b');
  Save(window);
  Back();
  Change(window, 'x');
  EXPECT_EQ(Changed(window), 1) << "as many steps as at the save, but others";
  Back();
  EXPECT_EQ(Changed(window), 1);
  Save(window);
  EXPECT_EQ(Changed(window), 0);
}

TEST_F(UndoTest, WhatASaveDidByItselfGoesBackAndForthWithIt) {
  PlainWindow& window = Open();
  Change(window, 'b');
  Act([&] {
    Bytes image = window.window_image();
    image.resize(400);
    PutByte(image, kChangedPosition, 0);
    edits().TakeSaved(window, std::move(image), true);
  });
  Change(window, 'c');
  Back();
  EXPECT_EQ(window.window_image().size(), 400U);
  Back();
  EXPECT_EQ(window.window_image().size(), 470U);
  EXPECT_EQ(At(window), 'a');
  Forth();
  EXPECT_EQ(At(window), 'b');
  EXPECT_EQ(window.window_image().size(), 400U) << "the save stands behind what was saved";
  EXPECT_EQ(Changed(window), 0);
}

TEST_F(UndoTest, AMarkWithoutAByteStaysUntilASave) {
  PlainWindow& window = Open();
  Change(window, 'b');
  Act([&] { edits().Mark(window, kChangedPosition, 1); });
  Back();
  EXPECT_EQ(At(window), 'a');
  EXPECT_EQ(Changed(window), 1) << "the second event set it too";
  Save(window);
  EXPECT_EQ(Changed(window), 0);
  Forth();
  Back();
  EXPECT_EQ(Changed(window), 0);
}

TEST_F(UndoTest, AWindowThatOpenedChangedStaysSo) {
  PlainWindow& window = Open();
  edits().SetAside(window, kChangedPosition, 1);
  Change(window, 'b');
  Back();
  EXPECT_EQ(Changed(window), 1);
}

// --- Ends ---

TEST_F(UndoTest, AClosingWindowTakesAlongWhatWouldNoLongerFit) {
  PlainWindow& first = Open();
  PlainWindow& second = Open("2");
  Change(second, 'b', {"Old"}, 310);
  ChangeBoth(first, second, 'c');
  Change(second, 'd', {"New"}, 320);
  first.CloseWithoutAsking();
  EXPECT_EQ(edits().BackCount(), 1);
  Back();
  EXPECT_EQ(At(second, 320), 'a');
  EXPECT_EQ(At(second, 300), 'c') << "what left the list stands";
  EXPECT_FALSE(Back());
  EXPECT_EQ(Changed(second), 1) << "and leaves the window changed until it is saved";
  Save(second);
  EXPECT_EQ(Changed(second), 0);
  Forth();
  Back();
  EXPECT_EQ(Changed(second), 0);
}

TEST_F(UndoTest, TheOldestGoFirstAndLeaveTheWindowChanged) {
  PlainWindow& window = Open();
  edits().SetLimits(3, 1000);
  for (char to = 'b'; to < 'g'; ++to) Change(window, to);
  EXPECT_EQ(edits().BackCount(), 3);
  while (Back()) continue;
  EXPECT_EQ(At(window), 'c');
  EXPECT_EQ(Changed(window), 1);
}

TEST_F(UndoTest, SoManyBytesAreKept) {
  PlainWindow& window = Open();
  edits().SetLimits(2000, 500);
  for (int i = 0; i < 5; ++i) {
    Act([&] { edits().Put(ImageOf(window), 271, Bytes(100, static_cast<char>('b' + i)), {"Paste"}); });
  }
  EXPECT_EQ(edits().BackCount(), 3) << "200 bytes each, and the one that comes is let in";
  EXPECT_EQ(edits().NextBack()->words.what, "Paste");
}

TEST_F(UndoTest, ThereAreTwoThousandSteps) {
  PlainWindow& window = Open();
  for (int i = 0; i < 2100; ++i) Change(window, static_cast<char>('b' + i % 2));
  EXPECT_EQ(edits().BackCount(), 2000);
}

// --- Who is told ---

class Told final : public EditListener {
 public:
  std::vector<std::string> lines;

  void Opened(ChildWindow& window) override { lines.push_back("opened " + window.number()); }
  void Noted(const EditAction& action) override { Add("noted", action); }
  void TakenBack(const EditAction& action) override { Add("back", action); }
  void BroughtForth(const EditAction& action) override { Add("forth", action); }
  void Left(const EditAction& action) override { Add("left", action); }
  void Saved(ChildWindow& window, bool whole) override {
    lines.push_back("saved " + window.number() + (whole ? "" : " in part"));
  }
  void Closed(ChildWindow& window) override { lines.push_back("closed " + window.number()); }
  void Taken(const EditTarget&) override { lines.emplace_back("taken"); }

 private:
  void Add(const std::string& what, const EditAction& action) {
    lines.push_back(what + " " + std::string(action.words.what));
  }
};

class ToldTest : public UndoTest {
 protected:
  ToldTest() { edits().SetListener(&told_); }
  ~ToldTest() override { edits().SetListener(nullptr); }
  std::vector<std::string> Lines() { return std::exchange(told_.lines, {}); }

  Told told_;
};

TEST_F(ToldTest, OfEachEventAtItsEnd) {
  PlainWindow& window = Open();
  EXPECT_THAT(Lines(), ElementsAre("opened 1"));
  Act([&] {
    edits().PutByte(ImageOf(window), 300, 'b', {"First"});
    edits().PutByte(ImageOf(window), 310, 'b', {"Second"});
    EXPECT_THAT(Lines(), IsEmpty());
  });
  EXPECT_THAT(Lines(), ElementsAre("noted First")) << "once for the event";
  Back();
  EXPECT_THAT(Lines(), ElementsAre("back First"));
  Forth();
  EXPECT_THAT(Lines(), ElementsAre("forth First"));
  Save(window);
  EXPECT_THAT(Lines(), ElementsAre("saved 1"));
  Back();
  Change(window, 'c', {"Other"});
  EXPECT_THAT(Lines(), ElementsAre("back ", "back First", "left ", "left First", "noted Other"));
  window.CloseWithoutAsking();
  EXPECT_THAT(Lines(), ElementsAre("closed 1", "left Other"));
}

TEST_F(ToldTest, OfAnActionThatGrowsAndOfWhatStoodBeforeASave) {
  PlainWindow& window = Open();
  window.Bar.on_change = [&] { edits().PutByte(ImageOf(window), 300, 'a' + window.Bar.value(), {"Volume"}); };
  Lines();
  window.Bar.UserSet(1);
  window.Bar.UserSet(2);
  EXPECT_THAT(Lines(), ElementsAre("noted Volume", "noted Volume"));
  Act([&] {
    edits().PutByte(ImageOf(window), 310, 'b', {"Kept"});
    edits().TakeSaved(window, window.window_image(), false);
  });
  EXPECT_THAT(Lines(), ElementsAre("noted Kept", "saved 1 in part"));
  edits().TakeRecord(kArrRecordUnderEdit, Bytes(10, 'x'));
  EXPECT_THAT(Lines(), ElementsAre("taken"));
}

}  // namespace
}  // namespace zentaline::test
