// The door for changes: what it notes, of which action, and that the list leads back and forth.
#include "core/edits.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "core/window_image.h"
#include "tests/support/program.h"
#include "ui/controls.h"

namespace zentaline::test {
namespace {

using testing::ElementsAre;

// A window with an image, and controls that a test gives handlers.
class PlainWindow : public ChildWindow {
 public:
  PlainWindow(Application& app, const std::string& number, Bytes image) : ChildWindow(app, "frmPlain", number) {
    app.edits.TakeImage(*this, std::move(image));
  }
  ui::ScrollBar Bar{*this, "Bar"};
  ui::ScrollBar Other{*this, "Other"};
  ui::TextBox Text{*this, "Text"};
  ui::Button Press{*this, "Press"};
  ui::Timer Later{*this, "Later"};
};

Bytes Image(const Bytes& behind = Bytes(200, 'a')) {
  return Bytes(270, '\0') + behind;
}

class EditsTest : public testing::Test {
 protected:
  EditsTest() : program_(folder_) { program_.Start(); }

  PlainWindow& Open(const std::string& number = "1", Bytes image = Image()) {
    return static_cast<PlainWindow&>(
        program_.toolkit.Open(std::make_unique<PlainWindow>(program_.app, number, std::move(image))));
  }
  Edits& edits() { return program_.app.edits; }
  // Each piece as "POSITION:OLD>NEW".
  static std::vector<std::string> Pieces(const EditAction& action) {
    std::vector<std::string> pieces;
    for (const EditChange& change : action.changes) {
      pieces.push_back(std::to_string(change.position) + ":" + change.before + ">" + change.after);
    }
    return pieces;
  }
  // Writes the control's value at a place, as an editor does.
  void Edit(PlainWindow& window, ui::ScrollBar& bar, std::size_t position) {
    bar.on_change = [this, &window, &bar, position] {
      edits().PutByte(ImageOf(window), position, 'a' + bar.value(), {"Volume", "UPPER1"});
      edits().Mark(window, kChangedPosition, 1);
    };
  }

  ScratchFolder folder_;
  TestProgram program_;
};

// --- What is noted ---

TEST_F(EditsTest, AChangeTellsItsPlaceItsBytesAndItsWords) {
  PlainWindow& window = Open();
  edits().Put(ImageOf(window), 300, "xyz", {"Volume", "UPPER1", "my song"});
  ASSERT_EQ(edits().actions().size(), 1U);
  const EditAction& action = edits().actions()[0];
  EXPECT_THAT(Pieces(action), ElementsAre("300:aaa>xyz"));
  EXPECT_EQ(action.words.what, "Volume");
  EXPECT_EQ(action.words.of, "UPPER1");
  EXPECT_EQ(action.words.name, "my song");
  EXPECT_EQ(window.window_image().substr(298, 5), "axyza");
}

TEST_F(EditsTest, WhatIsWrittenAsItIsIsNoChange) {
  PlainWindow& window = Open();
  edits().Put(ImageOf(window), 300, "aaa", {"Volume"});
  edits().Mark(window, kChangedPosition, 0);
  EXPECT_TRUE(edits().actions().empty());
}

TEST_F(EditsTest, WhatReachesBeyondTheEndIsLeftOut) {
  PlainWindow& window = Open();
  edits().Put(ImageOf(window), 470, "xyz", {"Volume"});
  edits().Put(ImageOf(window), 471, "xyz", {"Volume"});
  edits().Put(ImageOf(window), 0, "xyz", {"Volume"});
  ASSERT_EQ(edits().actions().size(), 1U);
  EXPECT_THAT(Pieces(edits().actions()[0]), ElementsAre("470:a>x"));
  EXPECT_EQ(window.window_image().size(), 470U);
}

TEST_F(EditsTest, AMarkIsNotedWhereNoByteChangesButIsNoAction) {
  PlainWindow& window = Open();
  edits().Mark(window, kChangedPosition, 1);
  edits().Mark(kArrRecordUnderEdit, true);
  ASSERT_EQ(edits().actions().size(), 2U) << "outside of an event each is for itself";
  EXPECT_FALSE(edits().actions()[0].ChangesBytes());
  EXPECT_TRUE(program_.app.arrangement.EditorChanged);
  edits().StepBack();
  EXPECT_FALSE(program_.app.arrangement.EditorChanged);
  EXPECT_EQ(ByteAt(window.window_image(), kChangedPosition), 1);
  edits().StepBack();
  EXPECT_EQ(ByteAt(window.window_image(), kChangedPosition), 0);
}

TEST_F(EditsTest, AFunctionsWorkIsNotedByWhatDiffersAfterwards) {
  PlainWindow& window = Open();
  const int result = edits().Change(ImageOf(window), {"Paste"}, [](Bytes& image) {
    image[299] = 'x';
    image[301] = 'y';  // near enough to be one piece with it
    image[469] = 'z';  // a piece of its own
    image[9] = 1;      // a mark
    image[16] = 7;     // no mark
    return 42;
  });
  EXPECT_EQ(result, 42);
  ASSERT_EQ(edits().actions().size(), 1U);
  EXPECT_THAT(Pieces(edits().actions()[0]), ElementsAre("300:aaa>xay", "470:a>z"));
  ASSERT_EQ(edits().actions()[0].marks.size(), 1U);
  EXPECT_EQ(edits().actions()[0].marks[0].mark.position, kStyChangedPosition);
  edits().StepBack();
  EXPECT_EQ(window.window_image().substr(270), Bytes(200, 'a'));
  EXPECT_EQ(ByteAt(window.window_image(), 17), 7);
}

// A part that is longer or shorter afterwards comes back whole, and what stands before it is told apart from it.
TEST_F(EditsTest, AnImageMayGrowAndShrink) {
  Bytes behind;
  for (int i = 0; i < 1000; ++i) behind += static_cast<char>('a' + i % 23);
  PlainWindow& window = Open("1", Image(behind));
  const Bytes first = window.window_image();
  const ui::UserEvent event(program_.toolkit);
  edits().Change(ImageOf(window), {"Paste"}, [](Bytes& image) {
    image[280] = '!';
    image.replace(800, 100,
                  "a longer part, of one more than a hundred bytes........................................"
                  "....................");
  });
  const Bytes second = window.window_image();
  edits().Change(ImageOf(window), {"Cut"}, [](Bytes& image) { image.resize(500); });
  const Bytes third = window.window_image();
  ASSERT_EQ(edits().actions().size(), 1U) << "one event";
  EXPECT_THAT(Pieces(edits().actions()[0])[0], "281:k>!");
  edits().StepBack();
  EXPECT_EQ(window.window_image(), first);
  edits().StepForward();
  EXPECT_EQ(window.window_image(), third);
  EXPECT_NE(second, third);
}

TEST_F(EditsTest, TheTextsOfARecordAndTheDatabaseGoTheSameWay) {
  edits().TakeRecord(kArrRecordUnderEdit, "0123456789");
  edits().TakeRecord(kPrgRecordUnderEdit, "abcdefghij");
  edits().TakeDatabase("the database");
  EXPECT_TRUE(edits().actions().empty());
  edits().PutByte(kArrRecordUnderEdit, 1, 'A', {"Name"});
  edits().PutByte(kPrgRecordUnderEdit, 2, 'B', {"Name"});
  edits().Put(kDatabaseImage, 5, "DATA", {"Entry"});
  EXPECT_EQ(program_.app.arrangement.ArrEditRecord, "A123456789");
  EXPECT_EQ(program_.app.program.EditRecord, "aBcdefghij");
  EXPECT_EQ(program_.app.arrangement.DBImage, "the DATAbase");
  while (edits().StepBack() != nullptr) {
  }
  EXPECT_EQ(program_.app.arrangement.ArrEditRecord, "0123456789");
  EXPECT_EQ(program_.app.program.EditRecord, "abcdefghij");
  EXPECT_EQ(program_.app.arrangement.DBImage, "the database");
}

// --- What is one action ---

TEST_F(EditsTest, OneEventIsOneAction) {
  PlainWindow& window = Open();
  window.Press.on_click = [&] {
    edits().PutByte(ImageOf(window), 300, 'x', {"First"});
    edits().PutByte(ImageOf(window), 310, 'y', {"Second"});
    edits().Mark(window, kChangedPosition, 1);
  };
  window.Press.UserPress();
  ASSERT_EQ(edits().actions().size(), 1U);
  EXPECT_THAT(Pieces(edits().actions()[0]), ElementsAre("300:a>x", "310:a>y"));
  EXPECT_EQ(edits().actions()[0].words.what, "First");
}

TEST_F(EditsTest, ATimerBelongsToTheEventThatStartedIt) {
  PlainWindow& window = Open();
  window.Press.on_click = [&] {
    edits().PutByte(ImageOf(window), 300, 'x', {"First"});
    window.Later.Start();
  };
  window.Later.on_timer = [&] { edits().PutByte(ImageOf(window), 310, 'y', {"Later"}); };
  window.Press.UserPress();
  program_.toolkit.Advance(1000);
  ASSERT_EQ(edits().actions().size(), 1U);
  EXPECT_THAT(Pieces(edits().actions()[0]), ElementsAre("300:a>x", "310:a>y"));
}

// It can't join its action any more, or taking back would go in another order than doing.
TEST_F(EditsTest, ATimerThatFindsAnotherActionInBetweenIsAnEntryOfItsOwn) {
  PlainWindow& window = Open();
  Edit(window, window.Bar, 300);
  window.Press.on_click = [&] { window.Later.Start(); };
  window.Later.on_timer = [&] { edits().PutByte(ImageOf(window), 300, 'z', {"Later"}); };
  window.Press.UserPress();
  window.Bar.UserSet(5);
  program_.toolkit.Advance(1000);
  ASSERT_EQ(edits().actions().size(), 2U);
  EXPECT_THAT(Pieces(edits().actions()[1]), ElementsAre("300:f>z"));
  edits().StepBack();
  edits().StepBack();
  EXPECT_EQ(window.window_image()[299], 'a');
}

TEST_F(EditsTest, MovesOfOneBarAreOneActionForTwoSeconds) {
  PlainWindow& window = Open();
  Edit(window, window.Bar, 300);
  window.Bar.UserSet(5);
  program_.toolkit.Advance(2000);
  window.Bar.UserSet(6);
  program_.toolkit.Advance(2000);
  window.Bar.UserKey({ui::Key::kDown, ""});
  window.Bar.UserMouse({ui::MouseEvent::kDown});
  window.Bar.UserSet(7);
  ASSERT_EQ(edits().actions().size(), 1U);
  EXPECT_THAT(Pieces(edits().actions()[0]), ElementsAre("300:a>h"));
  program_.toolkit.Advance(2001);
  window.Bar.UserSet(8);
  ASSERT_EQ(edits().actions().size(), 2U);
  EXPECT_THAT(Pieces(edits().actions()[1]), ElementsAre("300:h>i"));
}

TEST_F(EditsTest, WhatIsDoneBetweenTwoMovesPartsThem) {
  PlainWindow& window = Open();
  Edit(window, window.Bar, 300);
  Edit(window, window.Other, 310);
  window.Bar.UserSet(5);
  window.Other.UserSet(5);
  window.Bar.UserSet(6);
  EXPECT_EQ(edits().actions().size(), 3U) << "another bar";
  window.Press.UserPress();
  window.Bar.UserSet(7);
  EXPECT_EQ(edits().actions().size(), 4U) << "a button that does nothing to the bytes";
  window.Text.UserFocus();
  window.Bar.UserSet(8);
  EXPECT_EQ(edits().actions().size(), 5U) << "another control";
}

// Several things that a script or a test does in one go are told apart all the same, unlike what one event does.
TEST_F(EditsTest, AnEventOfTheToolkitsAloneHoldsMovesTogetherNoMoreThanTheyAre) {
  PlainWindow& window = Open();
  Edit(window, window.Bar, 300);
  for (const int value : {5, 6, 7}) {
    const ui::UserEvent script(program_.toolkit);
    window.UserActivate();
    window.Bar.UserSet(value);
  }
  EXPECT_EQ(edits().actions().size(), 1U);
}

TEST_F(EditsTest, TypingInOneTextBoxIsOneAction) {
  PlainWindow& window = Open();
  window.Text.on_change = [&] { edits().Put(ImageOf(window), 300, Padded(window.Text.text(), 8), {"Name"}); };
  window.Text.UserType("N");
  window.Text.UserKey({ui::Key::kCharacter, "i"});
  window.Text.UserType("Ni");
  program_.toolkit.Advance(1500);
  window.Text.UserType("Night");
  ASSERT_EQ(edits().actions().size(), 1U);
  EXPECT_THAT(Pieces(edits().actions()[0]), ElementsAre("300:aaaaaaaa>Night   "));
}

TEST_F(EditsTest, ADragIsOneActionHoweverLongItTakesAndTheNextIsAnother) {
  PlainWindow& window = Open();
  Edit(window, window.Bar, 300);
  program_.toolkit.HandTakes(window.Bar);
  for (const int value : {5, 6, 7}) {
    window.Bar.UserSet(value);
    program_.toolkit.Advance(5000);
  }
  program_.toolkit.HandLetsGo();
  EXPECT_EQ(edits().actions().size(), 1U);
  program_.toolkit.HandTakes(window.Bar);
  window.Bar.UserSet(9);
  program_.toolkit.HandLetsGo();
  window.Bar.UserSet(10);
  EXPECT_EQ(edits().actions().size(), 3U);
}

// Time before level: two bars by turns, and no piece for each step of the way.
TEST_F(EditsTest, ADragThatMovesTwoBarsKeepsOnePieceForEach) {
  PlainWindow& window = Open();
  Edit(window, window.Bar, 300);
  Edit(window, window.Other, 310);
  window.Press.on_mouse = [&](const ui::MouseEvent& event) {
    window.Bar.SetValue(event.x);
    window.Other.SetValue(event.y);
  };
  program_.toolkit.HandTakes(window.Press);
  for (int i = 1; i < 20; ++i) {
    const ui::UserEvent move(window.Press, ui::UserEvent::kMoves);
    window.Press.on_mouse({ui::MouseEvent::kMove, i, 20 - i});
  }
  program_.toolkit.HandLetsGo();
  ASSERT_EQ(edits().actions().size(), 1U);
  EXPECT_THAT(Pieces(edits().actions()[0]), ElementsAre("300:a>t", "310:a>b"));
}

// --- The list ---

TEST_F(EditsTest, ANewActionDropsWhatWasTakenBack) {
  PlainWindow& window = Open();
  for (const char byte : {'x', 'y', 'z'}) edits().PutByte(ImageOf(window), 300, byte, {"Volume"});
  edits().StepBack();
  edits().StepBack();
  EXPECT_EQ(edits().standing(), 1U);
  EXPECT_EQ(window.window_image()[299], 'x');
  edits().PutByte(ImageOf(window), 300, 'q', {"Volume"});
  EXPECT_EQ(edits().actions().size(), 2U);
  EXPECT_EQ(edits().StepForward(), nullptr);
}

TEST_F(EditsTest, AfterAStepBackTheSameMoveIsANewAction) {
  PlainWindow& window = Open();
  Edit(window, window.Bar, 300);
  window.Bar.UserSet(5);
  window.Bar.UserSet(6);
  edits().StepBack();
  edits().StepForward();
  window.Bar.UserSet(7);
  EXPECT_EQ(edits().actions().size(), 2U);
}

TEST_F(EditsTest, AtMostTwoThousandActionsAreKept) {
  PlainWindow& window = Open();
  for (int i = 0; i < 2500; ++i) edits().PutByte(ImageOf(window), 300, i % 2 == 0 ? 'x' : 'y', {"Volume"});
  EXPECT_EQ(edits().actions().size(), 2000U);
  EXPECT_EQ(edits().standing(), 2000U);
  EXPECT_EQ(edits().actions().front().number, 501);
}

TEST_F(EditsTest, AtMostSixtyFourMebibytesAreKept) {
  PlainWindow& window = Open("1", Image(Bytes(std::size_t{8} << 20, 'a')));
  for (int i = 0; i < 10; ++i) {
    edits().Change(ImageOf(window), {"Paste"},
                   [i](Bytes& image) { std::fill(image.begin() + 270, image.end(), static_cast<char>('b' + i)); });
  }
  // Each holds 16 MiB; the newest is kept on top of what was there before it.
  EXPECT_LE(edits().actions().size(), 5U);
  EXPECT_GE(edits().actions().size(), 4U);
  edits().StepBack();
  EXPECT_EQ(window.window_image().back(), 'b' + 8);
}

TEST_F(EditsTest, AWindowThatClosesTakesItsActionsAlong) {
  PlainWindow& first = Open("1");
  PlainWindow& second = Open("2");
  edits().PutByte(ImageOf(first), 300, 'x', {"First"});
  edits().PutByte(ImageOf(second), 300, 'y', {"Second"});
  edits().Mark(second, kChangedPosition, 1);
  second.CloseWithoutAsking();
  ASSERT_EQ(edits().actions().size(), 1U);
  EXPECT_EQ(edits().actions()[0].words.what, "First");
  EXPECT_EQ(edits().standing(), 1U);
}

// A paste that touched both would leave the other where no older action fits.
TEST_F(EditsTest, AnActionOfTwoWindowsGoesWithEitherAndWithItWhatIsOlderInTheOther) {
  PlainWindow& first = Open("1");
  PlainWindow& second = Open("2");
  edits().PutByte(ImageOf(first), 300, 'x', {"Older"});
  {
    const ui::UserEvent event(program_.toolkit);
    edits().PutByte(ImageOf(first), 301, 'y', {"Both"});
    edits().PutByte(ImageOf(second), 301, 'y', {"Both"});
  }
  edits().PutByte(ImageOf(first), 302, 'z', {"Newer"});
  second.CloseWithoutAsking();
  ASSERT_EQ(edits().actions().size(), 1U);
  EXPECT_EQ(edits().actions()[0].words.what, "Newer");
}

TEST_F(EditsTest, WhatWasTakenBackGoesWithAWindowTheOtherWayRound) {
  PlainWindow& first = Open("1");
  PlainWindow& second = Open("2");
  edits().PutByte(ImageOf(first), 300, 'x', {"Older"});
  {
    const ui::UserEvent event(program_.toolkit);
    edits().PutByte(ImageOf(first), 301, 'y', {"Both"});
    edits().PutByte(ImageOf(second), 301, 'y', {"Both"});
  }
  edits().PutByte(ImageOf(first), 302, 'z', {"Newer"});
  while (edits().StepBack() != nullptr) {
  }
  second.CloseWithoutAsking();
  ASSERT_EQ(edits().actions().size(), 1U);
  EXPECT_EQ(edits().actions()[0].words.what, "Older");
  EXPECT_EQ(edits().standing(), 0U);
}

TEST_F(EditsTest, ARecordThatIsTakenUpForgetsWhatWasDoneToTheOneBefore) {
  PlainWindow& window = Open();
  edits().TakeRecord(kArrRecordUnderEdit, "first");
  edits().PutByte(kArrRecordUnderEdit, 1, 'F', {"Name"});
  {
    const ui::UserEvent event(program_.toolkit);
    edits().PutByte(ImageOf(window), 300, 'x', {"Kept"});
    edits().Mark(kArrRecordUnderEdit, true);
  }
  edits().TakeRecord(kArrRecordUnderEdit, "second");
  ASSERT_EQ(edits().actions().size(), 1U);
  EXPECT_EQ(edits().actions()[0].words.what, "Kept");
  EXPECT_TRUE(edits().actions()[0].marks.empty());
  edits().StepBack();
  EXPECT_EQ(program_.app.arrangement.ArrEditRecord, "second");
  EXPECT_TRUE(program_.app.arrangement.EditorChanged) << "whoever takes a record up says what counts as changed";
}

TEST_F(EditsTest, ADatabaseThatIsAnotherOnTheDiskForgetsItsActions) {
  edits().TakeDatabase("the database");
  edits().Put(kDatabaseImage, 5, "DATA", {"Entry"});
  edits().TakeDatabase("the DATAbase");
  EXPECT_EQ(edits().actions().size(), 1U) << "as the action left it";
  edits().TakeDatabase("another one");
  EXPECT_TRUE(edits().actions().empty());
}

TEST_F(EditsTest, WhatIsSetAsideIsNoAction) {
  PlainWindow& window = Open();
  edits().SetAside(window, kBankChannelPosition, 5);
  edits().SetAside(window, 400, "marks");
  edits().SetPath(window, "/somewhere/else");
  edits().Prepare(window, [](Bytes& image) { image += "more"; });
  EXPECT_TRUE(edits().actions().empty());
  EXPECT_EQ(ByteAt(window.window_image(), kBankChannelPosition), 5);
  EXPECT_EQ(window.BaseName(), "else");
  EXPECT_EQ(window.window_image().substr(399, 5), "marks");
}

// A piece goes over bytes that it leaves as they are, as the channel in a bank's header.
TEST_F(EditsTest, WhatWasSetAsideStaysWhenAnActionGoesBackAndForthOverIt) {
  PlainWindow& window = Open();
  edits().Change(ImageOf(window), {"Paste"}, [](Bytes& image) { image[399] = image[403] = 'x'; });
  ASSERT_EQ(edits().actions().front().changes.size(), 1u);
  edits().SetAside(window, 402, 5);
  edits().StepBack();
  EXPECT_EQ(ByteAt(window.window_image(), 402), 5);
  EXPECT_NE(window.window_image()[399], 'x');
  edits().SetAside(window, 402, 6);
  edits().StepForward();
  EXPECT_EQ(ByteAt(window.window_image(), 402), 6);
  EXPECT_EQ(window.window_image()[399], 'x');
  EXPECT_EQ(window.window_image()[403], 'x');
}

// A save has its place among the actions, with what it did to the bytes by itself.
TEST_F(EditsTest, ASaveHasItsPlaceInTheList) {
  PlainWindow& window = Open();
  edits().PutByte(ImageOf(window), 300, 'x', {"Volume"});
  edits().Mark(window, kChangedPosition, 1);
  Bytes image = window.window_image();
  image.resize(400);
  image[kChangedPosition - 1] = 0;
  edits().TakeSaved(window, image, true);
  ASSERT_EQ(edits().actions().size(), 3U);
  EXPECT_EQ(edits().actions()[2].kind, EditAction::Kind::kSave);
  EXPECT_EQ(edits().actions()[2].window, &window);
  EXPECT_EQ(window.window_image(), image);
  edits().StepBack();
  EXPECT_EQ(window.window_image().size(), 470U);
  EXPECT_EQ(ByteAt(window.window_image(), kChangedPosition), 1);
  edits().StepForward();
  EXPECT_EQ(window.window_image(), image);
  edits().TakeSaved(window, image, false);
  EXPECT_EQ(edits().actions()[3].kind, EditAction::Kind::kFailedSave);
}

}  // namespace
}  // namespace zentaline::test
