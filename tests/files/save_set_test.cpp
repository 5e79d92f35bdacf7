// Saving what belongs together as one, without a loss of what others have done to the files meanwhile.
#include <gtest/gtest.h>

#include <filesystem>

#include "arrangement/api.h"
#include "arrangement/arr_format.h"
#include "arrangement/db_format.h"
#include "core/file_set.h"
#include "tests/files/save_desk.h"

namespace zentaline::test {
namespace {

using enum MenuId;
namespace fs = std::filesystem;

Bytes Bank(char filling, const char* head = "KORG") {
  Bytes bank = Bytes(head) + Bytes("\x4D\x00\x00", 3);
  bank.resize(30480, filling);
  return bank;
}

class SavingASet : public Saving {
 protected:
  // Song with styles, both changed.
  void OpenChanged() {
    folder.Put("song.arr", ArrFile());
    folder.Put("song.sty", Styles("Mine"));
    Open("song");
    Change();
    PutBytes(Image(), 42623 + 224, "Yours");
    PutByte(Image(), 10, 1);
  }
  std::vector<std::string> Waits() const {
    std::vector<std::string> waits;
    for (const std::string& line : program.toolkit.lines) {
      if (line.starts_with("wait ")) waits.push_back(line);
    }
    return waits;
  }
  // What the save dialog would be told of an answer while it is open.
  std::vector<std::string> Touched(const std::string& path, int filter = 1) {
    std::vector<std::string> names;
    program.toolkit.before_file_answer = [&] { names = program.toolkit.dialogs.back().also_touched(path, filter); };
    EXPECT_TRUE(program.Press(mnuSalvaAs));
    program.toolkit.before_file_answer = {};
    return names;
  }
  // Styles come into a window that had none, as by a paste.
  void AttachedStyles() {
    AttachStyles(Image(), Styles("Yours"), 2);
    PutByte(Image(), 10, 1);
    Change();
  }
};

TEST_F(SavingASet, WhenOneFileCannotBeWrittenAllKeepTheirOldContent) {
  OpenChanged();
  const Bytes before = Image();
  const std::pair<int, const char*> rows[] = {{0, "song.sty"}, {1, "song.arr"}};
  for (const auto& [after, name] : rows) {
    program.disk.Fail("write", "ENOSPC", 1, after);
    EXPECT_TRUE(program.Press(mnuSalva));
    EXPECT_EQ(program.Boxes(), (Boxes{{48, std::string("Opening ") + name, "Disk full"}}));
    EXPECT_EQ(folder.Get("song.arr"), ArrFile());
    EXPECT_EQ(folder.Get("song.sty"), Styles("Mine"));
    EXPECT_EQ(Image(), before);
    EXPECT_TRUE(program.Enabled(mnuSalva));
  }
  program.Press(mnuSalva);
  EXPECT_EQ(folder.Get("song.arr"), Changed());
  EXPECT_EQ(folder.Get("song.sty"), Styles("Yours"));
  EXPECT_FALSE(program.Enabled(mnuSalva));
}

TEST_F(SavingASet, WhatOthersChangedIsKeptBesideAndTold) {
  OpenChanged();
  folder.Put("song.sty", Styles("Theirs"));
  program.Press(mnuSalva);
  EXPECT_TRUE(program.Boxes().empty());
  EXPECT_EQ(folder.Get("song.sty"), Styles("Yours"));
  EXPECT_EQ(folder.Get("song.sty.bak"), Styles("Theirs"));
  EXPECT_FALSE(There("song.arr.bak"));
  EXPECT_EQ(Waits(), (std::vector<std::string>{"wait 0 \"song.sty had changed on the disk: kept as song.sty.bak\"",
                                               "wait 0 \"\""}));
  // What was told stays to be read.
  EXPECT_EQ(program.app.main->Label1.caption(), "song.sty had changed on the disk: kept as song.sty.bak");
  // What the program wrote itself is known.
  Change();
  program.Press(mnuSalva);
  EXPECT_FALSE(There("song.sty.bak2"));
  EXPECT_FALSE(There("song.arr.bak"));
}

TEST_F(SavingASet, ASecondChangeElsewhereTakesTheNextName) {
  OpenChanged();
  for (const char* name : {"song.arr.bak", "song.arr.bak2", "song.arr.bak3"}) {
    folder.Put("song.arr", name);
    Change();
    program.Press(mnuSalva);
    EXPECT_EQ(folder.Get(name), name);
    EXPECT_EQ(folder.Get("song.arr"), Changed());
  }
}

TEST_F(SavingASet, AFileThatCameAfterItWasFoundAbsentIsKept) {
  folder.Put("song.arr", ArrFile());
  Open("song");
  folder.Put("song.sty", Styles("Theirs"));
  AttachedStyles();
  program.Press(mnuSalva);
  EXPECT_EQ(folder.Get("song.sty.bak"), Styles("Theirs"));
}

TEST_F(SavingASet, WhereOthersCannotBeKeptNothingIsSaved) {
  OpenChanged();
  folder.Put("song.sty", Styles("Theirs"));
  program.disk.Fail("rename", "ENOSPC");
  program.Press(mnuSalva);
  EXPECT_EQ(program.Boxes(), (Boxes{{48, "Opening song.sty", "Disk full"}}));
  EXPECT_EQ(folder.Get("song.sty"), Styles("Theirs"));
  EXPECT_EQ(folder.Get("song.arr"), ArrFile());
  EXPECT_TRUE(program.Enabled(mnuSalva));
}

TEST_F(SavingASet, AFileThatWasNeverReadIsReplacedAsTheDialogSaid) {
  OpenChanged();
  folder.Put("other.arr", "somebody's");
  AnswerSave(Path("other.arr"));
  program.Press(mnuSalvaAs);
  EXPECT_EQ(folder.Get("other.arr"), Changed());
  EXPECT_FALSE(There("other.arr.bak"));
}

TEST_F(SavingASet, ChecksTakeNoFaultThatIsMeantForReading) {
  OpenChanged();
  program.disk.Fail("read", "EIO");
  program.Press(mnuSalva);
  EXPECT_TRUE(program.Boxes().empty());
  program.OpenArr(Path("song2.arr"));
  EXPECT_EQ(program.Boxes().size(), 1u);
}

// --- Save As ---

TEST_F(SavingASet, SaveAsNamesWhatElseItWouldTouch) {
  OpenChanged();
  EXPECT_EQ(Touched(Path("new.arr")), std::vector<std::string>{});
  folder.Put("new.arr", "the dialog asks for this one by itself");
  EXPECT_EQ(Touched(Path("new.arr")), std::vector<std::string>{});
  folder.Put("new.sty", "styles");
  EXPECT_EQ(Touched(Path("new.arr")), std::vector<std::string>{"new.sty"});
  folder.Put("caps.ARR", "of a disk of the instrument's time");
  EXPECT_EQ(Touched(Path("caps.arr")), std::vector<std::string>{"caps.ARR"});
  fs::create_symlink(Path("new.arr"), Path("link.arr"));
  fs::create_symlink(Path("nowhere"), Path("link.sty"));
  EXPECT_EQ(Touched(Path("link.arr")), (std::vector<std::string>{"link.sty", "link.arr"}));
  EXPECT_EQ(Touched(Path("new.sty"), 2), std::vector<std::string>{});
}

TEST_F(SavingASet, SaveAsOfProgramsNamesTheFileOfTheOtherFormat) {
  folder.Put("song.arr", ArrFile());
  folder.Put("song.prg", Bank('\x11'));
  Open("song");
  Change();
  folder.Put("b.pgg", "other");
  EXPECT_EQ(Touched(Path("b.prg"), 3), std::vector<std::string>{"b.pgg"});
  EXPECT_EQ(Touched(Path("b.pgg"), 4), std::vector<std::string>{});
}

TEST_F(SavingASet, ASiblingThatIsALinkIsReplacedItself) {
  OpenChanged();
  folder.Put("common.sty", "of many songs");
  fs::create_symlink("common.sty", Path("new.sty"));
  AnswerSave(Path("new.arr"));
  program.Press(mnuSalvaAs);
  EXPECT_EQ(folder.Get("common.sty"), "of many songs");
  EXPECT_EQ(folder.Get("new.sty"), Styles("Yours"));
  EXPECT_FALSE(fs::is_symlink(Path("new.sty")));
}

TEST_F(SavingASet, TheFileThatWasNamedIsWrittenWhereItsLinkLeads) {
  OpenChanged();
  folder.Put("real.arr", "old");
  fs::create_symlink("real.arr", Path("new.arr"));
  AnswerSave(Path("new.arr"));
  program.Press(mnuSalvaAs);
  EXPECT_TRUE(fs::is_symlink(Path("new.arr")));
  EXPECT_EQ(folder.Get("real.arr"), Changed());
}

// --- Save As of arrangements with programs ---

TEST_F(SavingASet, ProgramsGoAlongUnderTheNewName) {
  for (const bool pgg : {false, true}) {
    const std::string extension = pgg ? ".pgg" : ".prg";
    const std::string to = pgg ? "links" : "plain";
    folder.Put("song.arr", ArrFile());
    folder.Put("song" + extension, Bank('\x11', pgg ? "KPGG" : "KORG"));
    Open("song");
    Change();
    EXPECT_EQ(ByteAt(Image(), 6), 1);
    AnswerSave(Path(to + ".arr"));
    program.Press(mnuSalvaAs);
    EXPECT_TRUE(program.Boxes().empty());
    EXPECT_EQ(folder.Get(to + extension), Bank('\x11', pgg ? "KPGG" : "KORG"));
    EXPECT_FALSE(There(to + (pgg ? ".prg" : ".pgg")));
    EXPECT_EQ(ByteAt(Image(), 6), 1);
    EXPECT_TRUE(static_cast<ui::Button*>(program.Arr(1)->Find("CommLoadPrg"))->enabled());
    program.Press(mnuChiudi);
    fs::remove(Path("song" + extension));
  }
}

TEST_F(SavingASet, ProgramsThatStandUnderTheNewNameAreTakenUp) {
  folder.Put("song.arr", ArrFile());
  folder.Put("song.prg", Bank('\x11'));
  folder.Put("new.pgg", Bank('\x22', "KPGG"));
  Open("song");
  Change();
  AnswerSave(Path("new.arr"));
  program.Press(mnuSalvaAs);
  EXPECT_TRUE(program.Boxes().empty());
  EXPECT_EQ(folder.Get("new.pgg"), Bank('\x22', "KPGG"));
  EXPECT_FALSE(There("new.prg"));
  EXPECT_EQ(Slice(Image(), 12143, 30480), Bank('\x22', "KPGG"));
  EXPECT_EQ(ByteAt(Image(), 6), 1);
  EXPECT_EQ(ByteAt(Image(), 19), 1);
}

// An empty file counts as none.
TEST_F(SavingASet, AnEmptyProgramFileUnderTheNewNameGivesWay) {
  for (const char* empty : {"new.prg", "new.pgg"}) {
    folder.Put("song.arr", ArrFile());
    folder.Put("song.prg", Bank('\x11'));
    folder.Put(empty, "");
    Open("song");
    Change();
    AnswerSave(Path("new.arr"));
    program.Press(mnuSalvaAs);
    EXPECT_TRUE(program.Boxes().empty());
    EXPECT_EQ(folder.Get("new.prg"), Bank('\x11')) << empty;
    EXPECT_FALSE(There("new.pgg"));
    EXPECT_EQ(ByteAt(Image(), 6), 1);
    program.Press(mnuChiudi);
    fs::remove(Path("new.prg"));
  }
}

// One name never stands in both formats; what goes for that is somebody's all the same.
TEST_F(SavingASet, ABankOfTheOtherFormatThatWasNeverReadIsKeptBeforeItGoes) {
  folder.Put("bank.prg", Bank('\x11'));
  program.toolkit.files.push_back({false, Path("bank.prg"), 3, false});
  ASSERT_TRUE(program.Press(mnuApriPrg));
  folder.Put("bank.pgg", Bank('\x22', "KPGG"));
  ChildWindow& window = *program.app.prg_windows[1];
  PutByte(ImageFor(window), 7, 1);
  program.app.main->RefreshMenus();
  program.toolkit.lines.clear();
  ASSERT_TRUE(program.Press(mnuSalva));
  EXPECT_FALSE(There("bank.pgg"));
  EXPECT_EQ(folder.Get("bank.pgg.bak"), Bank('\x22', "KPGG"));
  EXPECT_EQ(program.app.main->Label1.caption(), "bank.pgg had changed on the disk: kept as bank.pgg.bak");
}

TEST_F(SavingASet, ProgramsUnderTheNewNameThatCannotBeReadLeaveTheButtonsOff) {
  folder.Put("song.arr", ArrFile());
  folder.Put("song.prg", Bank('\x11'));
  folder.Put("new.prg", "damaged");
  Open("song");
  Change();
  AnswerSave(Path("new.arr"));
  program.Press(mnuSalvaAs);
  EXPECT_EQ(program.Boxes(), (Boxes{{48, "Opening new.prg", "Data format error"}}));
  EXPECT_EQ(folder.Get("new.prg"), "damaged");
  EXPECT_EQ(ByteAt(Image(), 6), 0);
  EXPECT_FALSE(static_cast<ui::Button*>(program.Arr(1)->Find("CommLoadPrg"))->enabled());
  EXPECT_FALSE(static_cast<ui::Button*>(program.Arr(1)->Find("CommShowPrg"))->enabled());
}

TEST_F(SavingASet, ProgramsThatCannotBeWrittenLeaveTheWindowItsOldName) {
  folder.Put("song.arr", ArrFile());
  folder.Put("song.prg", Bank('\x11'));
  Open("song");
  Change();
  AnswerSave(Path("new.arr"));
  program.disk.Fail("write", "ENOSPC");
  program.Press(mnuSalvaAs);
  EXPECT_EQ(program.Boxes(), (Boxes{{48, "Opening new.prg", "Disk full"}}));
  EXPECT_EQ(program.Caption(1), "File Arr - song.arr (1)");
  EXPECT_FALSE(There("new.arr"));
  EXPECT_FALSE(There("new.prg"));
}

// --- The program's own files ---

TEST_F(SavingASet, AConfigurationThatIsNoneIsKeptBeside) {
  ASSERT_TRUE(program.Quit());
  folder.Put("Zentaline.ini", "[another program]");
  TestProgram next(folder);
  ASSERT_TRUE(next.Start());
  EXPECT_EQ(folder.Get("Zentaline.ini.bak"), "[another program]");
  EXPECT_EQ(folder.Get("Zentaline.ini").substr(0, 9), "Zentaline");
  folder.Put("Zentaline.ini", "written meanwhile");
  ASSERT_TRUE(next.Quit());
  EXPECT_EQ(folder.Get("Zentaline.ini.bak2"), "written meanwhile");
  EXPECT_EQ(folder.Get("Zentaline.ini").substr(0, 9), "Zentaline");
}

TEST_F(SavingASet, OwnFilesAreNeverWrittenThroughLinks) {
  ASSERT_TRUE(program.Quit());
  folder.Put("real.ini", folder.Get("Zentaline.ini"));
  const Bytes before = folder.Get("real.ini");
  fs::remove(Path("Zentaline.ini"));
  fs::create_symlink("real.ini", Path("Zentaline.ini"));
  folder.Put("real.txt", Bytes(10, 'n'));
  fs::create_symlink("real.txt", Path("Zentaline-Notebook.txt"));
  TestProgram next(folder);
  ASSERT_TRUE(next.Start());
  next.app.main->Menu(mnuVisBarraStato).UserPress();
  next.app.main->Menu(mnuBloccoNote).Press();
  EXPECT_EQ(next.Boxes(), Boxes{});
  ASSERT_NE(next.toolkit.FindForm("frmBloccoNote"), nullptr);
  auto* text = static_cast<ui::TextBox*>(next.toolkit.FindForm("frmBloccoNote")->Find("Text1"));
  text->UserType("mine");
  ASSERT_TRUE(next.Quit());
  EXPECT_EQ(folder.Get("real.ini"), before);
  EXPECT_EQ(folder.Get("real.txt"), Bytes(10, 'n'));
  EXPECT_FALSE(fs::is_symlink(Path("Zentaline.ini")));
  EXPECT_FALSE(fs::is_symlink(Path("Zentaline-Notebook.txt")));
  EXPECT_EQ(folder.Get("Zentaline-Notebook.txt").substr(0, 4), "mine");
}

TEST_F(SavingASet, TheDatabaseIsKeptBeforeTheFirstRemovalOfARun) {
  Bytes image = NewDatabase();
  PutDBDirectory(image, folder.Path());
  for (const char* name : {"one", "two", "three"}) DBAddEntry(image, name);
  folder.Put("i40DBArr", image);
  folder.Put("i40DBArr.bak", "of an earlier run");
  // What a purge keeps begins with a name that stands in the fourth record too.
  folder.Put("one.arr", ArrFile({std::string(16, '\0')}));
  folder.Put("two.arr", ArrFile({std::string(16, '\0')}));
  DBPurge(program.app);
  EXPECT_EQ(folder.Get("i40DBArr.bak"), image);
  EXPECT_EQ(DBEntryCount(folder.Get("i40DBArr")), 2);
  fs::remove(Path("two.arr"));
  DBPurge(program.app);
  EXPECT_EQ(DBEntryCount(folder.Get("i40DBArr")), 1);
  EXPECT_EQ(folder.Get("i40DBArr.bak"), image);
}

TEST_F(SavingASet, ADatabaseThatCannotBeKeptLosesNoEntry) {
  Bytes image = NewDatabase();
  PutDBDirectory(image, folder.Path());
  DBAddEntry(image, "gone");
  folder.Put("i40DBArr", image);
  program.disk.Fail("rename", "ENOSPC");
  DBPurge(program.app);
  EXPECT_EQ(program.Boxes(), (Boxes{{48, "Reading i40DBArr", "Disk full"}}));
  EXPECT_EQ(folder.Get("i40DBArr"), image);
}

// --- Empty files ---

TEST_F(SavingASet, TheWindowsOfTheLastRunRemoveNoEmptyFile) {
  folder.Put("song.arr", ArrFile());
  folder.Put("song.sty", Styles("Mine"));
  Open("song");
  ASSERT_TRUE(program.Quit());
  folder.Put("song.sty", "");
  folder.Put("song.prg", "");
  {
    TestProgram next(folder);
    ASSERT_TRUE(next.Start());
    ASSERT_NE(next.Arr(1), nullptr);
    EXPECT_TRUE(There("song.sty"));
    EXPECT_TRUE(There("song.prg"));
    ASSERT_TRUE(next.Quit());
  }
  folder.Put("song.arr", "");
  TestProgram next(folder);
  ASSERT_TRUE(next.Start());
  EXPECT_EQ(next.Arr(1), nullptr);
  EXPECT_TRUE(There("song.arr"));
  next.OpenArr(Path("song.arr"));
  EXPECT_EQ(next.Boxes(), (Boxes{{48, "song.arr", "File not found"}}));
  EXPECT_FALSE(There("song.arr"));
}

}  // namespace
}  // namespace zentaline::test
