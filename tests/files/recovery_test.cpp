// What comes back after a crash where it isn't simply a file's window: kept records of banks, records under edit,
// imports, new files, more windows than there are, several journals, and journals that aren't for this run.
#include "files/recovery.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "arrangement/arr_format.h"
#include "core/journal_format.h"
#include "program/prg_format.h"
#include "tests/files/recovery_desk.h"
#include "tests/program/prg_builder.h"
#include "ui/controls.h"

namespace zentaline::test {
namespace {

using enum MenuId;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
namespace fs = std::filesystem;

// --- Records of banks ---

TEST_F(Recovery, ARecordThatWasKeptInABankComesBackInIt) {
  {
    auto program = Run();
    OpenBy(*program, mnuApriPrg, Path("bank.prg"), 3);
    ui::Form& editor = RenameProgram(*program, 2, "Hall Organ");
    program->toolkit.answers = {ui::BoxAnswer::kYes};
    ASSERT_TRUE(editor.UserClose());
  }
  auto next = Run({ui::BoxAnswer::kYes});
  EXPECT_THAT(next->Boxes(), ElementsAre(Question(1, 1)));
  ChildWindow* bank = next->app.prg_windows[1];
  ASSERT_NE(bank, nullptr);
  EXPECT_EQ(ProgramIn(*bank, 2), Field("Hall Organ", 16));
  EXPECT_EQ(List(*bank).RowText(2), "13  Hall Organ      ");
  EXPECT_EQ(next->app.main->Menu(mnuAnnulla).ShownCaption(), "&Undo: Hall Organ kept");
  ASSERT_TRUE(next->Press(mnuAnnulla));
  EXPECT_EQ(ProgramIn(*bank, 2), Field("P2", 16));
  EXPECT_FALSE(next->Enabled(mnuSalva));
  ASSERT_TRUE(next->Press(mnuRipeti));
  ASSERT_TRUE(next->Press(mnuSalva));
  EXPECT_EQ(ProgramName(folder.Get("bank.prg"), 2), Field("Hall Organ", 16));
}

// The first was kept, the second still under edit.
TEST_F(Recovery, ABanksKeptRecordAndTheOneUnderEditComeBackBoth) {
  {
    auto program = Run();
    OpenBy(*program, mnuApriPrg, Path("bank.prg"), 3);
    RenameProgram(*program, 2, "Hall Organ");
    program->toolkit.answers = {ui::BoxAnswer::kYes};
    RenameProgram(*program, 5, "Reed");
  }
  auto next = Run({ui::BoxAnswer::kYes});
  EXPECT_THAT(next->Boxes(), ElementsAre(Question(2, 1)));
  ChildWindow* bank = next->app.prg_windows[1];
  ASSERT_NE(bank, nullptr);
  EXPECT_EQ(ProgramIn(*bank, 2), Field("Hall Organ", 16));
  EXPECT_EQ(ProgramIn(*bank, 5), Field("Reed", 16));
  ASSERT_TRUE(next->Press(mnuAnnulla));
  EXPECT_EQ(ProgramIn(*bank, 5), Field("P5", 16));
  EXPECT_EQ(ProgramIn(*bank, 2), Field("Hall Organ", 16));
  ASSERT_TRUE(next->Press(mnuAnnulla));
  EXPECT_EQ(next->app.edits.BackCount(), 0);
}

TEST_F(Recovery, ARecordOfABankThatIsAnotherNowComesBackKeptInAWindowOfItsOwn) {
  {
    auto program = Run();
    OpenBy(*program, mnuApriPrg, Path("bank.prg"), 3);
    RenameProgram(*program, 7, "Reed");
  }
  folder.Put("bank.prg", PrgFile(2));
  auto next = Run({ui::BoxAnswer::kYes});
  ChildWindow* bank = next->app.prg_windows[1];
  ASSERT_NE(bank, nullptr);
  EXPECT_THAT(bank->caption(), ::testing::StartsWith("File Prg - bank (recovered).prg (1)"));
  EXPECT_EQ(ProgramIn(*bank, 7), Field("Reed", 16));
  EXPECT_EQ(ProgramIn(*bank, 8), Field("P8", 16));
  EXPECT_TRUE(Holds("bank.prg", PrgFile(2)));
  // It asks for a name.
  next->toolkit.files.push_back({false, Path("mine.prg"), 3, false});
  ASSERT_TRUE(next->Press(mnuSalva));
  EXPECT_EQ(ProgramName(folder.Get("mine.prg"), 7), Field("Reed", 16));
  EXPECT_TRUE(Holds("bank.prg", PrgFile(2)));
}

// The instrument's window shows the same file: one of them comes back into it, the other in a window of its own.
TEST_F(Recovery, ABankAndTheSameInTheInstrumentBothComeBack) {
  const auto change = [](TestProgram& program, std::size_t number, char letter) {
    ChildWindow& window = *program.app.prg_windows[number];
    const ui::UserEvent event(program.toolkit);
    program.app.edits.PutByte(ImageOf(window), 271 + 48, letter, {"Name", "Row"});
    program.app.edits.Mark(window, kPrgChangedPosition, 1);
  };
  Bytes changed[2];
  {
    auto program = Run();
    OpenBy(*program, mnuApriPrg, Path("bank.prg"), 3);
    ASSERT_TRUE(static_cast<ui::Button*>(program->app.prg_windows[1]->Find("CommLoad"))->UserPress());
    program->toolkit.Advance(60000);
    ASSERT_TRUE(program->Press(mnuPrgU));
    for (std::size_t number : {1, 9}) {
      ASSERT_NE(program->app.prg_windows[number], nullptr);
      change(*program, number, number == 1 ? 'X' : 'Y');
      changed[number == 1 ? 0 : 1] = PrgFileBytes(program->app.prg_windows[number]->window_image());
    }
  }
  auto next = Run({ui::BoxAnswer::kYes});
  EXPECT_THAT(next->Boxes(), ElementsAre(Question(2, 2)));
  for (std::size_t number : {1, 2}) {
    ASSERT_NE(next->app.prg_windows[number], nullptr);
    EXPECT_EQ(PrgFileBytes(next->app.prg_windows[number]->window_image()), changed[number - 1]) << number;
  }
}

// A read-only bank can't keep it; what was done comes back all the same, in a window that asks for a name.
TEST_F(Recovery, ARecordOfAReadOnlyBankComesBackToo) {
  {
    auto program = Run();
    OpenBy(*program, mnuApriPrg, Path("bank.prg"), 3, true);
    RenameProgram(*program, 7, "Reed");
  }
  auto next = Run({ui::BoxAnswer::kYes});
  EXPECT_THAT(next->Boxes(), ElementsAre(Question(1, 1)));
  ChildWindow* bank = next->app.prg_windows[1];
  ASSERT_NE(bank, nullptr);
  EXPECT_FALSE(bank->HasOwnPath());
  EXPECT_FALSE(bank->ReadOnly());
  EXPECT_EQ(ProgramIn(*bank, 7), Field("Reed", 16));
  EXPECT_TRUE(Holds("bank.prg", PrgFile()));
}

TEST_F(Recovery, ARecordOfReadOnlyArrangementsComesBackToo) {
  {
    auto program = Run();
    program->OpenArr(Path("song.arr"), 1, true);
    RenameArrangement(*program, 1, "Elsewhere");
  }
  auto next = Run({ui::BoxAnswer::kYes});
  EXPECT_THAT(next->Boxes(), ElementsAre(Question(1, 1)));
  ASSERT_NE(next->Arr(1), nullptr);
  EXPECT_FALSE(next->Arr(1)->HasOwnPath());
  EXPECT_FALSE(next->Arr(1)->ReadOnly());
  EXPECT_EQ(ArrangementIn(*next->Arr(1), 1), Field("Elsewhere", 16));
  EXPECT_TRUE(Holds("song.arr", ArrFile({"First", "Second", "Third"})));
}

TEST_F(Recovery, ARecordThatWasTakenBackToItsBeginningIsNotOffered) {
  {
    auto program = Run();
    program->OpenArr(Path("song.arr"));
    RenameArrangement(*program, 1, "Elsewhere");
    ASSERT_TRUE(program->Press(mnuAnnulla));
  }
  auto next = Run();
  EXPECT_THAT(next->Boxes(), IsEmpty());
  EXPECT_THAT(Journals_(), IsEmpty());
}

TEST_F(Recovery, ARecordThatWasDroppedIsNotOffered) {
  {
    auto program = Run();
    program->OpenArr(Path("song.arr"));
    ui::Form& editor = RenameArrangement(*program, 1, "Elsewhere");
    program->toolkit.answers = {ui::BoxAnswer::kNo};
    ASSERT_TRUE(editor.UserClose());
  }
  auto next = Run();
  EXPECT_THAT(next->Boxes(), IsEmpty());
}

// --- Windows without a file ---

TEST_F(Recovery, AnImportThatWasChangedComesBackAndSavesUnderAName) {
  folder.Put("Old.arr", "KORG" + Hand({0x39, 1, 3, 0}) + std::string(9048, '\x21'));
  Bytes imported;
  {
    auto program = Run();
    OpenBy(*program, mnuImportaArri5, Path("Old.arr"), 1);
    ASSERT_NE(program->Arr(1), nullptr);
    Rename(*program, 3, 'Q');
    imported = program->Arr(1)->window_image().substr(270, 10528);
  }
  const Bytes source = folder.Get("Old.arr");
  auto next = Run({ui::BoxAnswer::kYes});
  EXPECT_THAT(next->Boxes(), ElementsAre(Question(1, 1)));
  ASSERT_NE(next->Arr(1), nullptr);
  EXPECT_FALSE(next->Arr(1)->HasOwnPath());
  EXPECT_EQ(next->Caption(1), "File Arr - Old (recovered).arr (1)");
  EXPECT_EQ(Letter(*next, 3), 'Q');
  next->toolkit.files.push_back({false, Path("new.arr"), 1, false});
  ASSERT_TRUE(next->Press(mnuSalva));
  EXPECT_TRUE(Holds("new.arr", imported));
  EXPECT_TRUE(Holds("Old.arr", source));
}

// --- More windows than there are ---

class FullHouse : public Recovery {
 protected:
  // All eight windows come back at the next start, and a new file had been changed when the program was killed.
  void KillWithAllWindowsOpen(int changes = 1) {
    {
      auto program = Run();
      for (int i = 1; i <= 8; ++i) {
        folder.Put("song" + std::to_string(i) + ".arr", ArrFile({"Of " + std::to_string(i)}));
        program->OpenArr(Path("song" + std::to_string(i) + ".arr"));
      }
      ASSERT_TRUE(program->Quit());
    }
    auto program = Run();
    ASSERT_NE(program->Arr(8), nullptr);
    if (changes > 1) Rename(*program, 0, 'X', 4);
    ASSERT_TRUE(program->Press(mnuNuovoArr));
    ChildWindow& fresh = *program->app.new_arr_windows[1];
    const ui::UserEvent event(program->toolkit);
    program->app.edits.PutByte(ImageOf(fresh), 303, 'N', {"Name", "Row"});
    program->app.edits.Mark(fresh, kChangedPosition, 1);
  }
  static ShownBox NotAll(const std::string& journal) {
    return {48, "Zentaline", "Not all changes have found a free window. They stay in " + journal + "."};
  }
};

TEST_F(FullHouse, WhatFindsNoWindowStaysInTheJournalWhichIsRenamedAndTold) {
  KillWithAllWindowsOpen();
  const std::string journal = TheJournal();
  const Bytes content = folder.Get(journal);
  auto next = Run({ui::BoxAnswer::kYes});
  EXPECT_THAT(next->Boxes(), ElementsAre(Question(1, 1), NotAll(journal + ".old")));
  EXPECT_THAT(Journals_(), ElementsAre(journal + ".old"));
  EXPECT_EQ(folder.Get(journal + ".old"), content);
  for (int i = 1; i <= 8; ++i) {
    EXPECT_TRUE(Holds("song" + std::to_string(i) + ".arr", ArrFile({"Of " + std::to_string(i)}))) << i;
  }
}

TEST_F(FullHouse, WhatFoundNoWindowStaysBeyondTheEndsOfLaterRuns) {
  KillWithAllWindowsOpen();
  const std::string journal = TheJournal();
  const Bytes content = folder.Get(journal);
  {
    auto next = Run({ui::BoxAnswer::kYes});
    ASSERT_TRUE(next->Quit());
  }
  for (int run = 0; run < 2; ++run) {
    auto later = Run();
    EXPECT_THAT(later->Boxes(), IsEmpty()) << "it is not offered again";
    ASSERT_TRUE(later->Quit());
    ASSERT_THAT(Journals_(), ElementsAre(journal + ".old")) << run;
    EXPECT_TRUE(Holds(journal + ".old", content));
  }
}

TEST_F(FullHouse, WhatHasAWindowComesBackAllTheSame) {
  KillWithAllWindowsOpen(2);
  const std::string journal = TheJournal();
  auto next = Run({ui::BoxAnswer::kYes});
  EXPECT_THAT(next->Boxes(), ElementsAre(Question(2, 2), NotAll(journal + ".old")));
  EXPECT_EQ(Letter(*next, 0, 4), 'X');
  EXPECT_EQ(next->app.edits.BackCount(), 1);
  EXPECT_THAT(Journals_(), ::testing::Contains(journal + ".old"));
}

// --- Several journals ---

TEST_F(Recovery, EachJournalIsOfferedForItselfAndAnsweredForItself) {
  folder.Put("other.arr", ArrFile({"Other"}));
  {
    auto one = Run();
    one->OpenArr(Path("song.arr"));
    Rename(*one, 0, 'X');
    auto two = Run();
    two->OpenArr(Path("other.arr"));
    Rename(*two, 0, 'Y');
    Rename(*two, 1, 'Y');
  }
  const std::vector<std::string> journals = Journals_();
  ASSERT_EQ(journals.size(), 2u);
  // "-2.journal" stands before ".journal".
  auto next = Run({ui::BoxAnswer::kNo, ui::BoxAnswer::kYes});
  EXPECT_THAT(next->Boxes(), ElementsAre(Question(2, 1), Question(1, 1)));
  ASSERT_NE(next->Arr(1), nullptr);
  EXPECT_EQ(next->Caption(1), "File Arr - song.arr (1)");
  EXPECT_EQ(next->Arr(2), nullptr);
  EXPECT_EQ(Letter(*next, 0), 'X');
  EXPECT_THAT(Journals_(), ::testing::Contains(journals[0] + ".old"));
  EXPECT_EQ(folder.Get("other.arr"), ArrFile({"Other"}));
}

// The same file was changed in two runs: what the second leads from isn't in the window any more.
TEST_F(Recovery, TwoJournalsOfOneFileBothComeBack) {
  {
    auto one = Run();
    one->OpenArr(Path("song.arr"));
    Rename(*one, 0, 'X');
    auto two = Run();
    two->OpenArr(Path("song.arr"));
    Rename(*two, 1, 'Y');
  }
  auto next = Run({ui::BoxAnswer::kYes, ui::BoxAnswer::kYes});
  EXPECT_THAT(next->Boxes(), ElementsAre(Question(1, 1), Question(1, 1)));
  ASSERT_NE(next->Arr(1), nullptr);
  ASSERT_NE(next->Arr(2), nullptr);
  EXPECT_EQ(next->Caption(1), "File Arr - song.arr (1)");
  EXPECT_EQ(next->Caption(2), "File Arr - song (recovered).arr (2)");
  EXPECT_EQ(Letter(*next, 1, 1), 'Y');
  EXPECT_EQ(Letter(*next, 0, 1), 'F');
  EXPECT_EQ(Letter(*next, 0, 2), 'X');
  EXPECT_EQ(Letter(*next, 1, 2), 'S');
}

TEST_F(Recovery, AJournalOfAnotherVersionIsLeftAlone) {
  {
    auto program = Run();
    program->OpenArr(Path("song.arr"));
    Rename(*program, 0, 'X');
  }
  const std::string journal = TheJournal();
  Bytes content = folder.Get(journal);
  const std::size_t version = JournalHead().size() - 1;
  content[version] = static_cast<char>(content[version] + 1);
  folder.Put(journal, content);
  for (int time = 0; time < 2; ++time) {
    auto next = Run();
    EXPECT_THAT(next->Boxes(), IsEmpty());
    EXPECT_TRUE(next->Quit());
    ASSERT_THAT(Journals_(), ElementsAre(journal));
    EXPECT_TRUE(Holds(journal, content));
  }
}

TEST_F(Recovery, WithoutAJournalOfItsOwnARunOffersNone) {
  {
    auto program = Run();
    program->OpenArr(Path("song.arr"));
    Rename(*program, 0, 'X');
  }
  const std::string journal = TheJournal();
  const Bytes content = folder.Get(journal);
  TestProgram plain(folder);
  ASSERT_TRUE(plain.Start());
  EXPECT_THAT(plain.Boxes(), IsEmpty());
  EXPECT_TRUE(plain.Quit());
  EXPECT_TRUE(Holds(journal, content));
}

// --- Where this run's own journal fails ---

// What was brought back is nowhere else on the disk then: the old journal stays.
TEST_F(Recovery, TheOldJournalStaysWhereTheNewOneCannotHoldItsChanges) {
  {
    auto program = Run();
    program->OpenArr(Path("song.arr"));
    Rename(*program, 0, 'X');
  }
  const std::string journal = TheJournal();
  const Bytes content = folder.Get(journal);
  auto next = std::make_unique<TestProgram>(folder);
  next->app.KeepJournal();
  next->toolkit.answers = {ui::BoxAnswer::kYes};
  next->disk.Fail("journal", "ENOSPC", 0);
  ASSERT_TRUE(next->Start());
  EXPECT_EQ(Letter(*next, 0), 'X');
  const auto boxes = next->Boxes();
  ASSERT_EQ(boxes.size(), 2u);
  EXPECT_EQ(boxes[0], Question(1, 1));
  EXPECT_THAT(boxes[1].text, ::testing::HasSubstr("can't be written"));
  ASSERT_THAT(Journals_(), ::testing::Contains(journal + ".old"));
  EXPECT_TRUE(Holds(journal + ".old", content));
}

TEST_F(Recovery, AFileThatHasGoneComesBackFromTheJournal) {
  {
    auto program = Run();
    program->OpenArr(Path("song.arr"));
    Rename(*program, 2, 'X');
  }
  fs::remove(Path("song.arr"));
  auto next = Run({ui::BoxAnswer::kYes});
  EXPECT_THAT(next->Boxes(), ElementsAre(Question(1, 1)));
  EXPECT_EQ(next->Caption(1), "File Arr - song (recovered).arr (1)");
  EXPECT_EQ(Letter(*next, 2), 'X');
  EXPECT_FALSE(fs::exists(Path("song.arr")));
}

// The windows of the last run are back first; one of them shows the file already.
TEST_F(Recovery, AWindowThatIsBackAlreadyTakesTheChanges) {
  {
    auto program = Run();
    program->OpenArr(Path("song.arr"));
    ASSERT_TRUE(program->Quit());
  }
  {
    auto program = Run();
    ASSERT_NE(program->Arr(1), nullptr);
    Rename(*program, 0, 'X');
    Rename(*program, 1, 'Y');
  }
  auto next = Run({ui::BoxAnswer::kYes});
  EXPECT_THAT(next->Boxes(), ElementsAre(Question(2, 1)));
  EXPECT_EQ(next->Caption(1), "File Arr - song.arr (1)");
  EXPECT_EQ(next->Arr(2), nullptr);
  EXPECT_EQ(Letter(*next, 0), 'X');
  EXPECT_EQ(next->app.edits.BackCount(), 2);
}

// The mark was set by an event that changed no byte, of which the journal is told nothing: what comes back is a change
// all the same, and no closing may pass over it.
TEST_F(Recovery, WhatComesBackIsChangedAlsoWhereTheMarkStoodBefore) {
  {
    auto program = Run();
    program->OpenArr(Path("song.arr"));
    {
      const ui::UserEvent event(program->toolkit);
      program->app.edits.Mark(*program->Arr(1), kChangedPosition, 1);
    }
    Rename(*program, 0, 'X');
  }
  auto next = Run({ui::BoxAnswer::kYes});
  ASSERT_NE(next->Arr(1), nullptr);
  EXPECT_EQ(Letter(*next, 0), 'X');
  EXPECT_TRUE(next->Enabled(mnuSalva));
  ASSERT_TRUE(next->Press(mnuAnnulla));
  EXPECT_FALSE(next->Enabled(mnuSalva));
  ASSERT_TRUE(next->Press(mnuRipeti));
  EXPECT_TRUE(next->Enabled(mnuSalva));
}

// The file is what the run wrote last: what was done after its first save comes back into it.
TEST_F(Recovery, ANewFileTakesBackWhatWasDoneAfterItsSave) {
  const auto change = [](TestProgram& program, char letter) {
    ChildWindow& window = *program.app.new_arr_windows[1];
    const ui::UserEvent event(program.toolkit);
    program.app.edits.PutByte(ImageOf(window), 303, letter, {"Name", "Row"});
    program.app.edits.Mark(window, kChangedPosition, 1);
    program.app.main->RefreshMenus();
  };
  {
    auto program = Run();
    ASSERT_TRUE(program->Press(mnuNuovoArr));
    change(*program, 'A');
    program->toolkit.files.push_back({false, Path("mine.arr"), 1, false});
    ASSERT_TRUE(program->Press(mnuSalva));
    ASSERT_EQ(folder.Get("mine.arr")[32], 'A');
    change(*program, 'B');
  }
  auto next = Run({ui::BoxAnswer::kYes});
  EXPECT_THAT(next->Boxes(), ElementsAre(Question(1, 1)));
  ASSERT_NE(next->Arr(1), nullptr);
  EXPECT_EQ(next->Caption(1), "File Arr - mine.arr (1)");
  EXPECT_EQ(Letter(*next, 0), 'B');
  EXPECT_EQ(next->app.edits.BackCount(), 1);
  ASSERT_TRUE(next->Press(mnuSalva));
  EXPECT_EQ(folder.Get("mine.arr")[32], 'B');
}

// --- What has no steps that lead to it ---

// The window had other bytes than its file, by no action of the user's: all of it comes back as it was.
TEST_F(Recovery, AnImageThatTheStepsDoNotLeadToComesBackInAWindowOfItsOwn) {
  const Bytes file = folder.Get("song.arr");
  {
    auto program = Run();
    program->OpenArr(Path("song.arr"));
    program->app.edits.Prepare(*program->Arr(1), [](Bytes& image) { image[302 + 2 * 164] = '?'; });
    Rename(*program, 0, 'X');
  }
  auto next = Run({ui::BoxAnswer::kYes});
  EXPECT_THAT(next->Boxes(), ElementsAre(Question(1, 1)));
  ChildWindow* rebuilt = nullptr;
  for (int number : {1, 2}) {
    ChildWindow* window = next->Arr(number);
    if (window != nullptr && window->caption().find("song (recovered).arr") != std::string::npos) rebuilt = window;
  }
  ASSERT_NE(rebuilt, nullptr);
  EXPECT_EQ(ArrangementIn(*rebuilt, 0), Field("Xirst", 16));
  EXPECT_EQ(ArrangementIn(*rebuilt, 2), Field("?hird", 16));
  EXPECT_TRUE(Holds("song.arr", file));
}

// What was saved and then taken back comes back as one step for each window.
TEST_F(Recovery, WhatWasTakenBackBeyondASaveIsAStepOfItsWindow) {
  {
    auto program = Run();
    program->OpenArr(Path("song.arr"));
    Rename(*program, 0, 'X');
    ASSERT_TRUE(program->Press(mnuSalva));
    folder.Put("second.arr", ArrFile({"Another"}));
    program->OpenArr(Path("second.arr"));
    Rename(*program, 0, 'Y', 2);
    ASSERT_TRUE(program->Press(mnuSalva));
    for (int i = 0; i < 2; ++i) ASSERT_TRUE(program->Press(mnuAnnulla));
  }
  auto next = Run({ui::BoxAnswer::kYes});
  EXPECT_THAT(next->Boxes(), ElementsAre(Question(2, 2)));
  EXPECT_EQ(Letter(*next, 0, 1), 'F');
  EXPECT_EQ(Letter(*next, 0, 2), 'A');
  ASSERT_EQ(next->app.edits.BackCount(), 2);
  ASSERT_TRUE(next->Press(mnuAnnulla));
  EXPECT_NE(Letter(*next, 0, 1) == 'X', Letter(*next, 0, 2) == 'Y');
}

// --- Much, and long names ---

// The list holds two thousand: the first of more are one, and nothing is lost.
TEST_F(Recovery, OfMoreActionsThanTheListHoldsTheFirstAreOne) {
  constexpr int kActions = 2100;
  {
    auto program = Run();
    program->OpenArr(Path("song.arr"));
    for (int i = 0; i < kActions; ++i) Rename(*program, i % 3, static_cast<char>('A' + i % 26));
  }
  auto next = Run({ui::BoxAnswer::kYes});
  EXPECT_THAT(next->Boxes(), ElementsAre(Question(kActions, 1)));
  EXPECT_EQ(next->app.edits.BackCount(), 2000);
  for (int i = kActions - 3; i < kActions; ++i) EXPECT_EQ(Letter(*next, i % 3), static_cast<char>('A' + i % 26));
  while (next->app.edits.BackCount() > 1) next->app.undo.TakeBack();
  // The first hundred and one.
  for (int i = 98; i < 101; ++i) EXPECT_EQ(Letter(*next, i % 3), static_cast<char>('A' + i % 26)) << i;
  next->app.undo.TakeBack();
  EXPECT_EQ(next->Arr(1)->window_image().substr(270, 10528), ArrFile({"First", "Second", "Third"}));
  EXPECT_FALSE(next->Enabled(mnuSalva));
}

// Where the name has no room for what is said behind it, it is cut, and stands in the working directory.
TEST_F(Recovery, ALongNameIsCut) {
  const std::string base = std::string(60, 'f') + "/" + std::string(236 - folder.Path().size() - 62, 'n');
  fs::create_directory(Path(std::string(60, 'f')));
  folder.Put(base + ".arr", ArrFile({"First"}));
  {
    auto program = Run();
    program->OpenArr(Path(base + ".arr"), 1, true);
    ASSERT_NE(program->Arr(1), nullptr);
    Rename(*program, 0, 'X');
  }
  auto next = Run({ui::BoxAnswer::kYes});
  ASSERT_NE(next->Arr(1), nullptr);
  EXPECT_EQ(Letter(*next, 0), 'X');
  EXPECT_EQ(next->Caption(1), "File Arr - " + std::string(79, 'n') + " (recovered).arr (1)");
  EXPECT_EQ(WindowPath(next->Arr(1)->window_image()), Path(std::string(79, 'n') + " (recovered)"));
}

}  // namespace
}  // namespace zentaline::test
