// The keys of the keyboard on the screen: what the mouse plays on them, notes and chords that are held.
#include "tests/aids/keyboard_desk.h"

namespace zentaline::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST_F(Keyboard, AClickSoundsANoteUntilTheButtonIsReleased) {
  Down(0);
  EXPECT_THAT(desk_.Wire(), ElementsAre("0 90 24 40"));
  EXPECT_THAT(Marked(), ElementsAre(0));
  EXPECT_EQ(aids().CurrentNote, 36);
  EXPECT_EQ(Text("Text1"), "C/Do (36)");
  Up(0);
  EXPECT_THAT(desk_.Wire(), ElementsAre("0 80 24 40"));
  EXPECT_THAT(Marked(), IsEmpty());
  EXPECT_THAT(Held(), IsEmpty());
}

TEST_F(Keyboard, VelocitiesAreThoseOfTheirSliders) {
  Bar("VScroll(2)", 1);
  Bar("VScroll(3)", 127);
  EXPECT_THAT(desk_.Wire(), IsEmpty());
  Click(24);
  EXPECT_THAT(desk_.Wire(), ElementsAre("0 90 3C 01", "0 80 3C 7F"));
}

TEST_F(Keyboard, EveryKeyHasItsNoteAndItsName) {
  const char* const names[] = {"C/Do",   "C#/Do#", "D/Re",    "D#/Re#", "E/Mi",   "F/Fa",
                               "F#/Fa#", "G/Sol",  "G#/Sol#", "A/La",   "A#/La#", "B/Si"};
  for (int key = 0; key < 61; ++key) {
    Click(key);
    EXPECT_EQ(aids().CurrentNote, 36 + key);
    EXPECT_EQ(Text("Text1"), std::string(names[key % 12]) + " (" + std::to_string(36 + key) + ")");
  }
}

TEST_F(Keyboard, TheRightButtonPlaysNothing) {
  Down(5, true);
  Up(5, true);
  EXPECT_THAT(desk_.Wire(), IsEmpty());
  Box("CheckClickKey", false);
  Key(5).UserMouse({ui::MouseEvent::kMove, 60, kUpperPart, true});
  EXPECT_THAT(desk_.Wire(), IsEmpty());
}

TEST_F(Keyboard, WithoutClickKeyAPressPlaysNothing) {
  Box("CheckClickKey", false);
  Click(5);
  EXPECT_THAT(desk_.Wire(), IsEmpty());
  EXPECT_EQ(aids().CurrentNote, 200);
}

TEST_F(Keyboard, WithoutClickKeyMovingOverTheKeysIsALegato) {
  Box("CheckClickKey", false);
  Over(0);
  Over(0);
  Over(1);
  Over(2);
  EXPECT_THAT(desk_.Wire(), ElementsAre("0 90 24 40", "0 80 24 40", "0 90 25 40", "0 80 25 40", "0 90 26 40"));
  EXPECT_THAT(Marked(), ElementsAre(2));
}

TEST_F(Keyboard, WithClickKeyMovingPlaysNothing) {
  Over(0);
  Over(1);
  EXPECT_THAT(desk_.Wire(), IsEmpty());
}

TEST_F(Keyboard, PastTheEndOfAKeyItsNoteEndsWithAVelocityOf64) {
  Box("CheckClickKey", false);
  Bar("VScroll(3)", 5);
  Over(0, 1367);
  Over(0, 1368);
  EXPECT_THAT(desk_.Wire(), ElementsAre("0 90 24 40"));
  Over(0, 1369);
  EXPECT_THAT(desk_.Wire(), ElementsAre("0 80 24 40"));
  EXPECT_EQ(aids().CurrentNote, 200);
  EXPECT_THAT(Marked(), IsEmpty());
  Over(0, 1369);
  Over(0, 1368);
  EXPECT_THAT(desk_.Wire(), IsEmpty());
  Over(1, 935);
  EXPECT_THAT(desk_.Wire(), ElementsAre("0 90 25 40"));
  Over(1, 937);
  EXPECT_THAT(desk_.Wire(), ElementsAre("0 80 25 40"));
}

// The last note is remembered from the time of the clicks, and ended once more.
TEST_F(Keyboard, ANoteThatWasClickedCountsAsTheLastOneWhenThePointerPlays) {
  Click(0);
  Box("CheckClickKey", false);
  desk_.Wire();
  Over(0);
  EXPECT_THAT(desk_.Wire(), IsEmpty());
  Over(1);
  EXPECT_THAT(desk_.Wire(), ElementsAre("0 80 24 40", "0 90 25 40"));
}

TEST_F(Keyboard, ThePointerOverANoteAboveTheRangeEndsTheOneBefore) {
  Bar("HScroll1", 4);
  Box("CheckClickKey", false);
  Over(48);
  Over(49);
  Over(50);
  EXPECT_THAT(desk_.Wire(), ElementsAre("0 90 6C 40", "0 80 6C 40"));
  EXPECT_EQ(aids().CurrentNote, 200);
  EXPECT_THAT(Marked(), IsEmpty());
}

TEST_F(Keyboard, BelowItsEndAKeyEndsAnotherNoteAndBeginsNone) {
  Box("CheckClickKey", false);
  Over(0);
  Over(2, 1368);
  EXPECT_THAT(desk_.Wire(), ElementsAre("0 90 24 40", "0 80 24 40"));
  EXPECT_EQ(aids().CurrentNote, 200);
}

TEST_F(Keyboard, OffTheKeysTheNoteEndsOnce) {
  Box("CheckClickKey", false);
  Bar("VScroll(3)", 9);
  Over(4);
  ui::Form& form = *desk_.program.toolkit.FindForm("frmTastiera");
  form.UserMouse({ui::MouseEvent::kMove, 1, 1, false});
  form.UserMouse({ui::MouseEvent::kMove, 2, 1, false});
  EXPECT_THAT(desk_.Wire(), ElementsAre("0 90 28 40", "0 80 28 09"));
  EXPECT_EQ(aids().CurrentNote, 200);
  Box("CheckClickKey", true);
  Down(4);
  desk_.Wire();
  form.UserMouse({ui::MouseEvent::kMove, 1, 1, false});
  EXPECT_THAT(desk_.Wire(), IsEmpty()) << "a clicked note sounds on";
}

TEST_F(Keyboard, HeldNotesSoundUntilTheyAreClickedAgain) {
  Box("CheckHoldNote", true);
  Click(0);
  Click(4);
  EXPECT_THAT(desk_.Wire(), ElementsAre("0 90 24 40", "0 90 28 40"));
  EXPECT_THAT(Held(), ElementsAre(36, 40));
  EXPECT_THAT(Marked(), ElementsAre(0, 4));
  Click(0);
  EXPECT_THAT(desk_.Wire(), ElementsAre("0 80 24 40"));
  EXPECT_THAT(Held(), ElementsAre(40));
  EXPECT_THAT(Marked(), ElementsAre(4));
}

TEST_F(Keyboard, NotesAboveTheRangeAreIgnored) {
  Bar("HScroll1", 4);
  Box("CheckHoldNote", true);
  for (const int key : {48, 49, 60}) Click(key);
  EXPECT_THAT(desk_.Wire(), ElementsAre("0 90 6C 40"));
  EXPECT_THAT(Held(), ElementsAre(108));
  EXPECT_EQ(aids().CurrentNote, 108);
  EXPECT_THAT(Marked(), ElementsAre(48));
  Bar("HScroll1", 0);
  Click(0);
  EXPECT_THAT(desk_.Wire(), ElementsAre("0 90 0C 40"));
}

TEST_F(Keyboard, AChordIsMovedByTheKeyThatItsLowestNoteGoesTo) {
  Box("CheckHoldNote", true);
  EXPECT_TRUE(HoldChordEnabled());
  for (const int key : {4, 0, 7}) Click(key);
  desk_.Wire();
  EXPECT_TRUE(Press("CommHoldChord"));
  EXPECT_THAT(desk_.Wire(), IsEmpty());
  EXPECT_EQ(aids().ChordState, 1);
  EXPECT_FALSE(HoldChordEnabled());
  EXPECT_EQ(In(aids().ChordNotes), Held());
  Click(3);
  EXPECT_THAT(desk_.Wire(), ElementsAre("0 B0 7B 00", "0 90 27 40", "0 90 2B 40", "0 90 2E 40"));
  EXPECT_THAT(Held(), ElementsAre(39, 43, 46));
  EXPECT_THAT(Marked(), ElementsAre(3, 7, 10));
  EXPECT_EQ(aids().ChordState, 1);
  EXPECT_THAT(In(aids().ChordNotes), ElementsAre(36, 40, 43));
  EXPECT_EQ(aids().CurrentNote, 46);
  EXPECT_EQ(Text("Text1"), "A#/La# (46)");
  Click(0);
  EXPECT_THAT(desk_.Wire(), ElementsAre("0 B0 7B 00", "0 90 24 40", "0 90 28 40", "0 90 2B 40"));
}

TEST_F(Keyboard, AMovedChordLosesTheNotesThatLeaveTheRangeAndGetsThemBack) {
  Bar("HScroll1", 4);
  Box("CheckHoldNote", true);
  for (const int key : {36, 43}) Click(key);
  Press("CommHoldChord");
  desk_.Wire();
  Down(45);
  EXPECT_THAT(desk_.Wire(), ElementsAre("0 B0 7B 00", "0 90 69 40"));
  EXPECT_THAT(Held(), ElementsAre(105));
  Down(60);
  EXPECT_THAT(desk_.Wire(), ElementsAre("0 B0 7B 00"));
  EXPECT_THAT(Held(), IsEmpty());
  Down(36);
  EXPECT_THAT(desk_.Wire(), ElementsAre("0 B0 7B 00", "0 90 60 40", "0 90 67 40"));
}

TEST_F(Keyboard, AKeyAboveTheRangeMovesAHeldChordOutOfHearing) {
  Bar("HScroll1", 4);
  Box("CheckHoldNote", true);
  Click(36);
  Press("CommHoldChord");
  desk_.Wire();
  Click(49);
  EXPECT_THAT(desk_.Wire(), ElementsAre("0 B0 7B 00"));
  EXPECT_EQ(aids().ChordState, 1);
  EXPECT_EQ(aids().CurrentNote, 96) << "no note has been pressed since";
}

TEST_F(Keyboard, TheReleaseOfAMovedChordsKeySendsNothing) {
  Box("CheckHoldNote", true);
  Click(0);
  Press("CommHoldChord");
  Down(2);
  desk_.Wire();
  Up(2);
  EXPECT_THAT(desk_.Wire(), IsEmpty());
}

TEST_F(Keyboard, AMovedChordIsMarkedWhereItsKeysAreInSight) {
  Box("CheckHoldNote", true);
  for (const int key : {58, 60}) Click(key);
  Press("CommHoldChord");
  Click(59);
  EXPECT_THAT(Held(), ElementsAre(95, 97));
  EXPECT_THAT(Marked(), ElementsAre(59)) << "97 lies beyond the keys";
  Bar("HScroll1", 3);
  EXPECT_THAT(Marked(), ElementsAre(47, 49));
}

TEST_F(Keyboard, WithoutAHeldNoteThereIsNoChord) {
  Box("CheckHoldNote", true);
  EXPECT_TRUE(Press("CommHoldChord"));
  EXPECT_EQ(aids().ChordState, 0);
  EXPECT_TRUE(HoldChordEnabled());
}

TEST_F(Keyboard, AllNotesOffLetsEverythingGo) {
  Box("CheckHoldNote", true);
  Click(0);
  Press("CommHoldChord");
  desk_.Wire();
  EXPECT_TRUE(Press("CommAllNoteOff"));
  EXPECT_THAT(desk_.Wire(), ElementsAre("0 B0 7B 00"));
  EXPECT_THAT(Held(), IsEmpty());
  EXPECT_THAT(Marked(), IsEmpty());
  EXPECT_EQ(aids().CurrentNote, 200);
  EXPECT_EQ(aids().ChordState, 0);
  EXPECT_EQ(Text("Text1"), "");
  EXPECT_TRUE(HoldChordEnabled());
}

TEST_F(Keyboard, TheTwoBoxesGoTogether) {
  Box("CheckClickKey", false);
  EXPECT_FALSE(HoldChordEnabled());
  Box("CheckHoldNote", true);
  EXPECT_TRUE(The<ui::CheckBox>("CheckClickKey").value()) << "notes are held by clicks";
  EXPECT_TRUE(HoldChordEnabled());
  EXPECT_EQ(Settings()[1], 1);
  EXPECT_EQ(Settings()[2], 1);
  EXPECT_THAT(desk_.Wire(), IsEmpty());
  Box("CheckClickKey", false);
  EXPECT_FALSE(The<ui::CheckBox>("CheckHoldNote").value());
  EXPECT_FALSE(HoldChordEnabled());
  EXPECT_EQ(Settings()[1], 0);
  EXPECT_EQ(Settings()[2], 0);
  EXPECT_THAT(desk_.Wire(), ElementsAre("0 B0 7B 00")) << "Click Key has changed while notes could be held, once";
}

TEST_F(Keyboard, EitherBoxLetsAHeldChordGoFirst) {
  for (const char* box : {"CheckClickKey", "CheckHoldNote"}) {
    Box("CheckHoldNote", true);
    Click(0);
    Press("CommHoldChord");
    desk_.Wire();
    Box(box, false);
    EXPECT_THAT(desk_.Wire(), ElementsAre("0 B0 7B 00")) << box;
    EXPECT_EQ(aids().ChordState, 0);
    EXPECT_THAT(Held(), IsEmpty());
    EXPECT_FALSE(HoldChordEnabled());
  }
}

TEST_F(Keyboard, AHeldNoteBeyondTheKeysSoundsOnAndComesBackMarked) {
  Box("CheckHoldNote", true);
  Click(2);
  desk_.Wire();
  Bar("HScroll1", 4);
  EXPECT_THAT(Marked(), IsEmpty());
  EXPECT_THAT(Held(), ElementsAre(38));
  Bar("HScroll1", 0);
  EXPECT_THAT(Marked(), ElementsAre(26));
  EXPECT_THAT(desk_.Wire(), IsEmpty());
  EXPECT_EQ(Settings()[3], 0);
}

TEST_F(Keyboard, NothingIsSentWithoutAnOutputAndTheKeysAreMarkedAllTheSame) {
  desk_.Press("mnuDevMIDIOut(0)");
  desk_.Wire();
  Down(3);
  Press("CommAllNoteOff");
  Bar("VScroll(0)", 3);
  Down(3);
  EXPECT_THAT(desk_.Wire(), IsEmpty());
  EXPECT_THAT(Marked(), ElementsAre(3));
}

}  // namespace
}  // namespace zentaline::test
