// The journal of a run, and what the next run makes of it.
#include "core/journal.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "core/journal_format.h"
#include "tests/files/journal_desk.h"

namespace zentaline::test {
namespace {

using enum MenuId;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
namespace fs = std::filesystem;

TEST_F(Journals, WithoutAnActionThereIsNone) {
  auto program = Run();
  program->OpenArr(Path("song.arr"));
  EXPECT_THAT(Journals_(), IsEmpty());
  EXPECT_TRUE(program->Quit());
  EXPECT_THAT(Journals_(), IsEmpty());
}

TEST_F(Journals, ItIsForThisUserAloneAndGoesAtTheRegularEnd) {
  auto program = Run();
  program->OpenArr(Path("song.arr"));
  Rename(*program, 0, 'Z');
  const std::string name = "Zentaline-" + std::to_string(getpid()) + ".journal";
  ASSERT_THAT(Journals_(), ElementsAre(name));
  EXPECT_EQ(fs::status(Path(name)).permissions(), fs::perms(0600));
  program->toolkit.answers = {ui::BoxAnswer::kNo};
  EXPECT_TRUE(program->Quit());
  EXPECT_THAT(Journals_(), IsEmpty());
}

TEST_F(Journals, ANameThatIsTakenIsLeftAlone) {
  const std::string start = "Zentaline-" + std::to_string(getpid());
  folder.Put(start + ".journal", "somebody's");
  auto program = Run();
  program->OpenArr(Path("song.arr"));
  Rename(*program, 0, 'Z');
  EXPECT_THAT(Journals_(), ElementsAre(start + "-2.journal", start + ".journal"));
  EXPECT_EQ(folder.Get(start + ".journal"), "somebody's");
}

TEST_F(Journals, AfterACrashTheChangesComeBackOneByOne) {
  {
    auto program = Run();
    program->OpenArr(Path("song.arr"));
    Rename(*program, 0, 'X');
    Rename(*program, 1, 'Y');
    Rename(*program, 0, 'Z');
  }
  auto next = Run({ui::BoxAnswer::kYes});
  EXPECT_THAT(next->Boxes(), ElementsAre(Question(3, 1)));
  ASSERT_NE(next->Arr(1), nullptr);
  EXPECT_EQ(next->Caption(1), "File Arr - song.arr (1)");
  EXPECT_EQ(Letter(*next, 0), 'Z');
  EXPECT_EQ(Letter(*next, 1), 'Y');
  EXPECT_TRUE(next->Enabled(mnuSalva));
  EXPECT_EQ(next->app.edits.BackCount(), 3);
  next->app.undo.TakeBack();
  EXPECT_EQ(Letter(*next, 0), 'X');
  next->app.undo.TakeBack();
  next->app.undo.TakeBack();
  EXPECT_EQ(Letter(*next, 0), 'F');
  EXPECT_FALSE(next->Enabled(mnuSalva));
  // The old one has gone, and this run's holds what it did.
  EXPECT_EQ(Journals_().size(), 1u);
}

TEST_F(Journals, ASecondCrashLosesNothingEither) {
  {
    auto program = Run();
    program->OpenArr(Path("song.arr"));
    Rename(*program, 0, 'X');
  }
  {
    auto next = Run({ui::BoxAnswer::kYes});
    Rename(*next, 2, 'W');
  }
  auto last = Run({ui::BoxAnswer::kYes});
  EXPECT_THAT(last->Boxes(), ElementsAre(Question(2, 1)));
  EXPECT_EQ(Letter(*last, 0), 'X');
  EXPECT_EQ(Letter(*last, 2), 'W');
  last->Press(mnuSalva);
  EXPECT_TRUE(Holds("song.arr", ArrFile({"Xirst", "Second", "Whird"})));
}

TEST_F(Journals, WhatWasSavedOrTakenBackIsNotOffered) {
  {
    auto program = Run();
    program->OpenArr(Path("song.arr"));
    Rename(*program, 0, 'X');
    program->Press(mnuSalva);
    Rename(*program, 1, 'Y');
    program->app.undo.TakeBack();
  }
  auto next = Run();
  EXPECT_THAT(next->Boxes(), IsEmpty());
  EXPECT_THAT(Journals_(), IsEmpty());
}

TEST_F(Journals, UndoBeyondTheSaveComesBackAsOneAction) {
  {
    auto program = Run();
    program->OpenArr(Path("song.arr"));
    Rename(*program, 0, 'X');
    Rename(*program, 1, 'Y');
    program->Press(mnuSalva);
    program->app.undo.TakeBack();
    program->app.undo.TakeBack();
  }
  EXPECT_TRUE(Holds("song.arr", ArrFile({"Xirst", "Yecond", "Third"})));
  auto next = Run({ui::BoxAnswer::kYes});
  EXPECT_THAT(next->Boxes(), ElementsAre(Question(1, 1)));
  EXPECT_EQ(Letter(*next, 0), 'F');
  EXPECT_EQ(Letter(*next, 1), 'S');
  EXPECT_EQ(next->app.edits.BackCount(), 1);
}

TEST_F(Journals, NoKeepsItUntilTheRegularEndOfALaterRun) {
  {
    auto program = Run();
    program->OpenArr(Path("song.arr"));
    Rename(*program, 0, 'X');
  }
  const std::string old = "Zentaline-" + std::to_string(getpid()) + ".journal.old";
  {
    auto next = Run({ui::BoxAnswer::kNo});
    EXPECT_THAT(next->Boxes(), ElementsAre(Question(1, 1)));
    EXPECT_THAT(Journals_(), ElementsAre(old));
    EXPECT_TRUE(next->Quit());
  }
  EXPECT_THAT(Journals_(), ElementsAre(old));
  auto last = Run();
  EXPECT_THAT(last->Boxes(), IsEmpty());
  EXPECT_TRUE(last->Quit());
  EXPECT_THAT(Journals_(), IsEmpty());
}

// Nothing can be told of what stands behind a damaged record, but somebody may want it all the same.
TEST_F(Journals, OneOfWhichNothingCanBeReadIsKeptUntilTheRegularEndOfALaterRun) {
  {
    auto program = Run();
    program->OpenArr(Path("song.arr"));
    Rename(*program, 0, 'X');
    Rename(*program, 1, 'Y');
  }
  const std::string name = Journals_().at(0);
  Bytes content = folder.Get(name);
  content[100] = static_cast<char>(content[100] ^ 1);  // in the first record, behind the head
  folder.Put(name, content);
  {
    auto next = Run();
    EXPECT_THAT(next->Boxes(), IsEmpty());
    EXPECT_THAT(Journals_(), ElementsAre(name + ".old"));
    EXPECT_TRUE(folder.Get(name + ".old").starts_with(content));
    EXPECT_TRUE(next->Quit());
  }
  EXPECT_THAT(Journals_(), ElementsAre(name + ".old"));
  EXPECT_TRUE(Run()->Quit());
  EXPECT_THAT(Journals_(), IsEmpty());
}

TEST_F(Journals, AFileThatIsAnotherNowStaysAndTheContentOfThenComesInAWindowOfItsOwn) {
  {
    auto program = Run();
    program->OpenArr(Path("song.arr"));
    Rename(*program, 0, 'X');
  }
  folder.Put("song.arr", ArrFile({"Somebody", "else"}));
  auto next = Run({ui::BoxAnswer::kYes});
  EXPECT_THAT(next->Boxes(), ElementsAre(Question(1, 1)));
  EXPECT_EQ(next->Caption(1), "File Arr - song (recovered).arr (1)");
  EXPECT_EQ(Letter(*next, 0), 'X');
  EXPECT_TRUE(Holds("song.arr", ArrFile({"Somebody", "else"})));
  // Saving asks for a name.
  next->toolkit.files.push_back({false, Path("mine.arr"), 1, false});
  EXPECT_TRUE(next->Press(mnuSalva));
  EXPECT_TRUE(Holds("mine.arr", ArrFile({"Xirst", "Second", "Third"})));
  EXPECT_TRUE(Holds("mine.sty", Styles("Mine")));
  EXPECT_TRUE(Holds("song.arr", ArrFile({"Somebody", "else"})));
  EXPECT_TRUE(Holds("song.sty", Styles("Mine")));
}

TEST_F(Journals, StylesThatAreOthersNowCountToo) {
  {
    auto program = Run();
    program->OpenArr(Path("song.arr"));
    Rename(*program, 0, 'X');
  }
  folder.Put("song.sty", Styles("Theirs"));
  auto next = Run({ui::BoxAnswer::kYes});
  EXPECT_EQ(next->Caption(1), "File Arr - song (recovered).arr (1)");
  EXPECT_TRUE(Holds("song.sty", Styles("Theirs")));
}

TEST_F(Journals, ARebuiltWindowSurvivesTheNextCrash) {
  {
    auto program = Run();
    program->OpenArr(Path("song.arr"), 1, true);
    Rename(*program, 0, 'X');
  }
  {
    auto next = Run({ui::BoxAnswer::kYes});
    EXPECT_EQ(next->Caption(1), "File Arr - song (recovered).arr (1)") << "it was read-only";
  }
  auto last = Run({ui::BoxAnswer::kYes});
  ASSERT_NE(last->Arr(1), nullptr);
  EXPECT_EQ(Letter(*last, 0), 'X');
  EXPECT_FALSE(last->Arr(1)->HasOwnPath());
}

TEST_F(Journals, AnOpenJournalOfAnotherProgramIsNotTouched) {
  auto program = Run();
  program->OpenArr(Path("song.arr"));
  Rename(*program, 0, 'X');
  const Bytes before = folder.Get(Journals_().front());
  auto other = Run();
  EXPECT_THAT(other->Boxes(), IsEmpty());
  EXPECT_EQ(folder.Get(Journals_().front()), before);
}

TEST_F(Journals, GarbageAndLinksAreLeftAlone) {
  folder.Put("Zentaline-1.journal", "garbage");
  folder.Put("elsewhere", JournalHead());
  fs::create_symlink("elsewhere", Path("Zentaline-2.journal"));
  fs::create_directory(Path("Zentaline-3.journal"));
  auto program = Run();
  EXPECT_THAT(program->Boxes(), IsEmpty());
  EXPECT_TRUE(program->Quit());
  EXPECT_EQ(Journals_().size(), 3u);
  EXPECT_EQ(folder.Get("elsewhere"), JournalHead());
}

TEST_F(Journals, ADiskThatFailsTurnsItOffWithOneBoxAndTheProgramGoesOn) {
  auto program = Run();
  program->OpenArr(Path("song.arr"));
  program->disk.Fail("journal", "ENOSPC", 0);
  Rename(*program, 0, 'X');
  Rename(*program, 0, 'Y');
  EXPECT_THAT(program->Boxes(),
              ElementsAre(ShownBox{48, "Zentaline",
                                   "The journal of changes can't be written: what isn't saved would be lost in a "
                                   "crash."}));
  EXPECT_EQ(Letter(*program, 0), 'Y');
  program->Press(mnuSalva);
  EXPECT_TRUE(Holds("song.arr", ArrFile({"Yirst", "Second", "Third"})));
}

TEST_F(Journals, WhenItGrowsTooLargeItIsRewritten) {
  {
    auto program = Run();
    program->OpenArr(Path("song.arr"));
    program->app.journal->SetLimit(50000);
    for (int i = 0; i < 2000; ++i) Rename(*program, i % 3, static_cast<char>('A' + i % 26));
    EXPECT_LT(fs::file_size(Path(Journals_().front())), 60000u);
  }
  auto next = Run({ui::BoxAnswer::kYes});
  EXPECT_EQ(next->Boxes().size(), 1u);
  for (int i = 1997; i < 2000; ++i) EXPECT_EQ(Letter(*next, i % 3), static_cast<char>('A' + i % 26));
}

TEST_F(Journals, ATornEndCostsNoMoreThanWhatWasTorn) {
  {
    auto program = Run();
    program->OpenArr(Path("song.arr"));
    Rename(*program, 0, 'X');
    Rename(*program, 1, 'Y');
  }
  const std::string path = Path(Journals_().front());
  fs::resize_file(path, fs::file_size(path) - 1);
  auto next = Run({ui::BoxAnswer::kYes});
  EXPECT_THAT(next->Boxes(), ElementsAre(Question(1, 1)));
  EXPECT_EQ(Letter(*next, 0), 'X');
  EXPECT_EQ(Letter(*next, 1), 'S');
}

TEST_F(Journals, WhatTheDiskHoldsAlreadyIsNotOffered) {
  {
    auto program = Run();
    program->OpenArr(Path("song.arr"));
    Rename(*program, 0, 'X');
  }
  // As after a save whose end the journal didn't see.
  folder.Put("song.arr", ArrFile({"Xirst", "Second", "Third"}));
  auto next = Run();
  EXPECT_THAT(next->Boxes(), IsEmpty());
  EXPECT_THAT(Journals_(), IsEmpty());
}

}  // namespace
}  // namespace zentaline::test
