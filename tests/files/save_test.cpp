#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>

#include "core/window_image.h"
#include "files/api.h"
#include "style/sty_format.h"
#include "tests/files/save_desk.h"

namespace zentaline::test {
namespace {

using enum MenuId;

constexpr char kQuestion[] = "The file has changed\nSave changes ?";

TEST_F(Saving, WritesTheFileAndTheWindowIsNoLongerChanged) {
  folder.Put("song.arr", ArrFile());
  Open("song");
  EXPECT_FALSE(program.Enabled(mnuSalva));
  Change();
  EXPECT_TRUE(program.Press(mnuSalva));
  EXPECT_TRUE(program.Boxes().empty());
  EXPECT_EQ(program.toolkit.dialogs.size(), 1u) << "the one that opened it";
  EXPECT_EQ(folder.Get("song.arr"), Changed());
  EXPECT_FALSE(MarkedChanged());
  EXPECT_FALSE(program.Enabled(mnuSalva));
  EXPECT_TRUE(program.Press(mnuChiudi));
  EXPECT_TRUE(program.Boxes().empty());
}

TEST_F(Saving, AFailureShowsItsBoxAndTheOldFileStaysWholeAndTheWindowChanged) {
  folder.Put("song.arr", ArrFile());
  Open("song");
  const std::pair<const char*, const char*> errors[] = {
      {"ENOSPC", "Disk full"},      {"EACCES", "Read only file"},     {"EROFS", "Read only file"},
      {"EIO", "Error I/O device"},  {"ENOENT", "Path not found"},     {"ENOTDIR", "Path not found"},
      {"EISDIR", "Read only file"}, {"EMFILE", "Disk reading error"},
  };
  for (const auto& [error, text] : errors) {
    Change();
    program.disk.Fail("write", error);
    EXPECT_TRUE(program.Press(mnuSalva));
    EXPECT_EQ(program.Boxes(), (Boxes{{48, "Opening song.arr", text}})) << error;
    EXPECT_EQ(folder.Get("song.arr"), ArrFile()) << error;
    EXPECT_TRUE(MarkedChanged()) << error;
    EXPECT_TRUE(program.Enabled(mnuSalva)) << error;
  }
  EXPECT_TRUE(program.Press(mnuSalva));
  EXPECT_EQ(folder.Get("song.arr"), Changed());
}

// It counts as none: everything taken back, the window is as it was opened.
TEST_F(Saving, AfterASaveThatFailedTheStepsLeadBackToTheFile) {
  folder.Put("song.arr", ArrFile());
  folder.Put("song.sty", Styles("Mine"));
  Open("song");
  const auto change = [&](std::size_t position, std::size_t mark) {
    const ui::UserEvent event(program.toolkit);
    program.app.edits.PutByte(ImageOf(*program.Arr(1)), position, 'Z', {"Name"});
    program.app.edits.Mark(*program.Arr(1), mark, 1);
    program.app.main->RefreshMenus();
  };
  change(303, kChangedPosition);
  change(42623 + 224, kStyChangedPosition);
  for (const int after : {0, 1}) {
    program.disk.Fail("write", "ENOSPC", 1, after);
    ASSERT_TRUE(program.Press(mnuSalva));
    EXPECT_EQ(program.Boxes().size(), 1U);
    EXPECT_TRUE(MarkedChanged());
  }
  program.app.undo.TakeBack();
  EXPECT_TRUE(program.Enabled(mnuSalva));
  program.app.undo.TakeBack();
  EXPECT_FALSE(MarkedChanged());
  EXPECT_FALSE(program.Enabled(mnuSalva));
  EXPECT_TRUE(program.Quit());
  EXPECT_TRUE(program.Boxes().empty()) << "nothing is asked";
}

TEST_F(Saving, AFolderThatHasGoneIsReported) {
  std::filesystem::create_directory(Path("sub"));
  folder.Put("sub/song.arr", ArrFile());
  Open("sub/song");
  Change();
  std::filesystem::remove_all(Path("sub"));
  program.Press(mnuSalva);
  EXPECT_EQ(program.Boxes(), (Boxes{{48, "Opening song.arr", "Path not found"}}));
  EXPECT_TRUE(MarkedChanged());
}

// --- The question before closing ---

TEST_F(Saving, ClosingAChangedWindowAsksAndEachAnswerDoesItsPart) {
  folder.Put("song.arr", ArrFile());
  const Boxes question = {{51, "File Arr - song.arr (1)", kQuestion}};
  Open("song");
  Change();
  program.toolkit.answers = {ui::BoxAnswer::kCancel};
  program.Press(mnuChiudi);
  EXPECT_EQ(program.Boxes(), question);
  ASSERT_NE(program.Arr(1), nullptr);
  EXPECT_TRUE(MarkedChanged());
  program.toolkit.answers = {ui::BoxAnswer::kNo};
  program.Press(mnuChiudi);
  EXPECT_EQ(program.Boxes(), question);
  EXPECT_EQ(program.Arr(1), nullptr);
  EXPECT_EQ(folder.Get("song.arr"), ArrFile());
  Open("song");
  Change();
  program.toolkit.answers = {ui::BoxAnswer::kYes};
  program.Press(mnuChiudi);
  EXPECT_EQ(program.Boxes(), question);
  EXPECT_EQ(program.Arr(1), nullptr);
  EXPECT_EQ(folder.Get("song.arr"), Changed());
}

TEST_F(Saving, AWindowWhoseSavingFailsStaysOpen) {
  folder.Put("song.arr", ArrFile());
  Open("song");
  Change();
  program.disk.Fail("write", "ENOSPC", 2);
  program.toolkit.answers = {ui::BoxAnswer::kYes, ui::BoxAnswer::kYes};
  program.Press(mnuChiudi);
  ASSERT_NE(program.Arr(1), nullptr);
  EXPECT_FALSE(program.Quit());
  ASSERT_NE(program.app.main, nullptr);
  EXPECT_EQ(program.Boxes().size(), 4u);
  EXPECT_TRUE(MarkedChanged());
  EXPECT_EQ(folder.Get("song.arr"), ArrFile());
}

TEST_F(Saving, AFileWithoutANameGoesThroughSaveAsWhenItCloses) {
  folder.Put("song.arr", ArrFile());
  Open("song");
  Change();
  PutByte(Image(), 11, 1);
  program.toolkit.answers = {ui::BoxAnswer::kYes};
  program.Press(mnuChiudi);
  ASSERT_NE(program.Arr(1), nullptr) << "the cancelled dialog keeps it open";
  EXPECT_EQ(program.toolkit.dialogs.size(), 2u);
  program.toolkit.answers = {ui::BoxAnswer::kYes};
  AnswerSave(Path("new.arr"));
  program.Press(mnuChiudi);
  EXPECT_EQ(program.Arr(1), nullptr);
  EXPECT_EQ(folder.Get("new.arr"), Changed());
  EXPECT_EQ(folder.Get("song.arr"), ArrFile());
  EXPECT_EQ(program.app.main->mnuRecentFile(1).visible(), true);
}

TEST_F(Saving, OnlyTheStylesSavedUnderAnotherNameDoNotCloseAChangedArrangement) {
  folder.Put("song.arr", ArrFile());
  folder.Put("song.sty", Styles("Mine"));
  Open("song");
  Change();
  PutByte(Image(), 11, 1);
  program.toolkit.answers = {ui::BoxAnswer::kYes};
  AnswerSave(Path("part.sty"), 2);
  program.Press(mnuChiudi);
  EXPECT_TRUE(There("part.sty"));
  ASSERT_NE(program.Arr(1), nullptr);
  EXPECT_TRUE(MarkedChanged());
}

// --- The styles beside it ---

TEST_F(Saving, StylesThatAreUnchangedAreNotWritten) {
  folder.Put("song.arr", ArrFile());
  folder.Put("song.sty", Styles("Mine"));
  Open("song");
  EXPECT_EQ(ByteAt(Image(), 9), 2);
  const auto time = std::filesystem::last_write_time(Path("song.sty")) - std::chrono::hours(1);
  std::filesystem::last_write_time(Path("song.sty"), time);
  Change();
  program.Press(mnuSalva);
  EXPECT_EQ(folder.Get("song.sty"), Styles("Mine"));
  EXPECT_EQ(std::filesystem::last_write_time(Path("song.sty")), time);
}

TEST_F(Saving, ChangedStylesAreWrittenWithTheFile) {
  folder.Put("song.arr", ArrFile());
  folder.Put("song.sty", Styles("Mine"));
  Open("song");
  Change();
  PutBytes(Image(), 42623 + 224, "Yours");
  PutByte(Image(), 10, 1);
  program.Press(mnuSalva);
  EXPECT_TRUE(program.Boxes().empty());
  EXPECT_EQ(folder.Get("song.sty"), Styles("Yours"));
  EXPECT_EQ(ByteAt(Image(), 10), 0);
  EXPECT_FALSE(MarkedChanged());
}

TEST_F(Saving, StylesThatCannotBeWrittenKeepTheWindowChangedAndAskedFor) {
  folder.Put("song.arr", ArrFile());
  folder.Put("song.sty", Styles("Mine"));
  Open("song");
  Change();
  PutBytes(Image(), 42623 + 224, "Yours");
  PutByte(Image(), 10, 1);
  // A folder in its place can't be written by anyone.
  std::filesystem::remove(Path("song.sty"));
  std::filesystem::create_directory(Path("song.sty"));
  program.Press(mnuSalva);
  EXPECT_EQ(program.Boxes(), (Boxes{{48, "Opening song.sty", "Read only file"}}));
  EXPECT_TRUE(program.Enabled(mnuSalva));
  program.toolkit.answers = {ui::BoxAnswer::kCancel};
  program.Press(mnuChiudi);
  EXPECT_EQ(program.Boxes(), (Boxes{{51, "File Arr - song.arr (1)", kQuestion}}));
  ASSERT_NE(program.Arr(1), nullptr);
  std::filesystem::remove(Path("song.sty"));
  program.Press(mnuSalva);
  EXPECT_EQ(folder.Get("song.sty"), Styles("Yours"));
  EXPECT_FALSE(program.Enabled(mnuSalva));
}

TEST_F(Saving, ADamagedStyleFileIsSetAsideAndNeverLost) {
  folder.Put("song.arr", ArrFile());
  folder.Put("song.sty", "damaged, but mine");
  program.OpenArr(Path("song.arr"));
  // The reader's own message, then the window's.
  EXPECT_EQ(program.Boxes(), (Boxes{{48, "Opening song.sty", "Error reading song.sty"},
                                    {48, "Opening song.sty", "Error reading song"}}));
  EXPECT_EQ(ByteAt(Image(), 9), 1);
  Change();
  program.Press(mnuSalva);
  EXPECT_TRUE(program.Boxes().empty());
  EXPECT_FALSE(There("song.sty"));
  EXPECT_EQ(folder.Get("song.sty.bak"), "damaged, but mine");
  EXPECT_EQ(folder.Get("song.arr"), Changed());
}

TEST_F(Saving, ADamagedStyleFileThatCannotBeSetAsideStays) {
  folder.Put("song.arr", ArrFile());
  folder.Put("song.sty", "damaged, but mine");
  program.OpenArr(Path("song.arr"));
  program.Boxes();
  Change();
  program.disk.Fail("rename", "EACCES");
  program.Press(mnuSalva);
  EXPECT_EQ(program.Boxes(), (Boxes{{48, "Opening song.sty", "Read only file"}}));
  EXPECT_EQ(folder.Get("song.sty"), "damaged, but mine");
  EXPECT_EQ(folder.Get("song.arr"), Changed());
  EXPECT_TRUE(program.Enabled(mnuSalva));
  program.Press(mnuSalva);
  EXPECT_EQ(folder.Get("song.sty.bak"), "damaged, but mine");
}

TEST_F(Saving, WithoutStylesNothingIsMadeBesideTheFile) {
  folder.Put("song.arr", ArrFile());
  Open("song");
  EXPECT_EQ(ByteAt(Image(), 9), 1);
  Change();
  const long count = folder.Count();
  program.Press(mnuSalva);
  EXPECT_EQ(folder.Count(), count);
}

// --- Save As ---

TEST_F(Saving, SaveAsIsPresetByTheWindow) {
  folder.Put("song.arr", ArrFile());
  Open("song");
  Change();
  EXPECT_TRUE(program.Press(mnuSalvaAs));
  ASSERT_EQ(program.toolkit.dialogs.size(), 2u);
  const ui::FileDialogRequest& dialog = program.toolkit.dialogs[1];
  EXPECT_TRUE(dialog.save);
  EXPECT_EQ(dialog.title, "Save file as");
  EXPECT_EQ(dialog.filter, 1);
  EXPECT_EQ(dialog.directory, folder.Path());
  EXPECT_EQ(dialog.default_extension, "arr");
  EXPECT_EQ(dialog.name, Path("song.arr"));
  EXPECT_FALSE(dialog.shows_read_only);
  ASSERT_EQ(dialog.filters.size(), 6u);
  EXPECT_EQ(dialog.filters[1], (ui::FileFilter{" Styles (*.sty)", "*.sty"}));
  EXPECT_EQ(dialog.filters[3], (ui::FileFilter{" Programs (*.pgg)", "*.pgg"}));
  EXPECT_EQ(dialog.filters[5], (ui::FileFilter{" All files (*.*)", "*.*"}));
  // Cancelled.
  EXPECT_TRUE(program.Boxes().empty());
  EXPECT_TRUE(MarkedChanged());
}

TEST_F(Saving, SaveAsGivesTheWindowItsNewNameAndLeavesTheOldFile) {
  folder.Put("song.arr", ArrFile());
  folder.Put("song.sty", Styles("Mine"));
  Open("song", true);
  Change();
  EXPECT_EQ(program.Caption(1), "File Arr - song.arr (1) - Read Only");
  AnswerSave(Path("copy.arr"));
  EXPECT_TRUE(program.Press(mnuSalvaAs));
  EXPECT_TRUE(program.Boxes().empty());
  EXPECT_EQ(folder.Get("copy.arr"), Changed());
  EXPECT_EQ(folder.Get("copy.sty"), Styles("Mine"));
  EXPECT_EQ(folder.Get("song.arr"), ArrFile());
  EXPECT_EQ(folder.Get("song.sty"), Styles("Mine"));
  EXPECT_EQ(program.Caption(1), "File Arr - copy.arr (1)");
  EXPECT_EQ(program.app.core.ArrWindows[1].path, Path("copy"));
  EXPECT_FALSE(MarkedChanged());
  EXPECT_EQ(ByteAt(Image(), 2), 0);
  EXPECT_TRUE(program.app.main->mnuRecentFile(1).visible());
  ASSERT_TRUE(program.Quit());
  TestProgram next(folder);
  ASSERT_TRUE(next.Start());
  EXPECT_EQ(next.Caption(1), "File Arr - copy.arr (1)");
}

TEST_F(Saving, AFailedSaveAsLeavesTheWindowItsOldName) {
  folder.Put("song.arr", ArrFile());
  Open("song");
  Change();
  const Bytes before = Image();
  for (const char* error : {"ENOSPC", "EACCES", "EIO"}) {
    AnswerSave(Path("copy.arr"));
    program.disk.Fail("write", error);
    EXPECT_TRUE(program.Press(mnuSalvaAs));
    EXPECT_EQ(program.Boxes().size(), 1u);
    EXPECT_EQ(program.Caption(1), "File Arr - song.arr (1)");
    EXPECT_EQ(Image(), before);
    EXPECT_FALSE(There("copy.arr"));
  }
  AnswerSave(Path("nowhere/copy.arr"));
  program.Press(mnuSalvaAs);
  EXPECT_EQ(program.Boxes(), (Boxes{{48, "Opening copy.arr", "Path not found"}}));
  EXPECT_EQ(Image(), before);
}

TEST_F(Saving, ANameThatCannotBeKeptOrIsOpenIsRefused) {
  folder.Put("song.arr", ArrFile());
  folder.Put("other.arr", ArrFile({"Other"}));
  Open("song");
  Open("other");
  program.Arr(1)->UserActivate();
  Change();
  const std::string longest(238 - folder.Path().size() - 1, 'n');
  AnswerSave(Path(longest + "n.arr"));
  program.Press(mnuSalvaAs);
  EXPECT_EQ(program.Boxes(), (Boxes{{48, longest + "n.arr", "File name not valid"}}));
  AnswerSave(Path("blank .arr"));
  program.Press(mnuSalvaAs);
  EXPECT_EQ(program.Boxes(), (Boxes{{48, "blank .arr", "File name not valid"}}));
  AnswerSave(folder.Path() + "/");
  program.Press(mnuSalvaAs);
  EXPECT_EQ(program.Boxes(), (Boxes{{48, "", "File name not valid"}}));
  EXPECT_FALSE(There(".arr"));
  AnswerSave(Path("other.arr"));
  program.Press(mnuSalvaAs);
  EXPECT_EQ(program.Boxes(), (Boxes{{48, "other.arr", "File already open"}}));
  EXPECT_EQ(folder.Get("other.arr"), ArrFile({"Other"}));
  // No styles and no programs are attached.
  for (const int filter : {2, 3, 4, 5}) {
    AnswerSave(Path("part"), filter);
    program.Press(mnuSalvaAs);
    EXPECT_EQ(program.Boxes().size(), filter == 2 ? 0u : 1u) << filter;
  }
  AnswerSave(Path(longest + ".arr"));
  program.Press(mnuSalvaAs);
  EXPECT_TRUE(program.Boxes().empty());
  EXPECT_EQ(folder.Get(longest + ".arr"), Changed());
}

TEST_F(Saving, TheSelectedFilterDecidesWhatIsWritten) {
  folder.Put("song.arr", ArrFile());
  folder.Put("song.sty", Styles("Mine"));
  Bytes bank("KORG\x4D\x00\x00", 7);
  bank.resize(30480, '\x11');
  folder.Put("song.prg", bank);
  Open("song");
  Change();
  AnswerSave(Path("a.sty"), 2);
  program.Press(mnuSalvaAs);
  EXPECT_EQ(folder.Get("a.sty"), Styles("Mine"));
  folder.Put("b.pgg", "the other extension");
  AnswerSave(Path("b.prg"), 3);
  program.Press(mnuSalvaAs);
  EXPECT_EQ(folder.Get("b.prg"), bank);
  EXPECT_FALSE(There("b.pgg"));
  EXPECT_EQ(program.Caption(1), "File Arr - song.arr (1)");
  EXPECT_TRUE(MarkedChanged());
  AnswerSave(Path("all"), 6);
  program.Press(mnuSalvaAs);
  EXPECT_EQ(folder.Get("all.arr"), Changed());
  EXPECT_EQ(program.Caption(1), "File Arr - all.arr (1)");
}

TEST_F(Saving, ProgramsOfTheOtherFormatThatStayAreReported) {
  folder.Put("song.arr", ArrFile());
  Bytes bank("KORG\x4D\x00\x00", 7);
  bank.resize(30480, '\x11');
  folder.Put("song.prg", bank);
  Open("song");
  Change();
  folder.Put("b.pgg", "the other extension");
  program.disk.Fail("remove", "EIO");
  AnswerSave(Path("b.prg"), 3);
  program.Press(mnuSalvaAs);
  EXPECT_EQ(program.Boxes(), (Boxes{{48, "Opening b.pgg", "Error I/O device"}}));
  EXPECT_EQ(folder.Get("b.prg"), bank);
}

TEST_F(Saving, TheFileOfAReadOnlyWindowIsNotWrittenByTheMenu) {
  folder.Put("song.arr", ArrFile());
  Open("song", true);
  Change();
  EXPECT_FALSE(program.Press(mnuSalva));
  EXPECT_EQ(folder.Get("song.arr"), ArrFile());
}

}  // namespace
}  // namespace zentaline::test
