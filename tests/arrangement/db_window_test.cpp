// The window of the database: its rows, the files opened from it, entered into it and taken out, and what damage and a
// failing disk do.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "arrangement/api.h"
#include "tests/arrangement/db_desk.h"
#include "tests/support/memory_disk.h"

namespace zentaline::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr char kTitle[] = "Edit i40DBArr";

class DbWindow : public ::testing::Test {
 protected:
  // Starts with this database, and opens the window.
  void Open(const std::vector<std::pair<std::string, int>>& entries) {
    desk_.Put("i40DBArr", DatabaseBytes(entries, dir()));
    desk_.Start();
    ASSERT_TRUE(desk_.Press("mnuWEditDBArr"));
    desk_.Log();
  }
  std::string dir() { return desk_.folder.Path(); }
  std::vector<std::string> Rows() { return desk_.Rows("frmEditDBArr.List1"); }
  bool Select(int row) { return desk_.Find<ui::ListBox>("frmEditDBArr.List1")->UserSelect({row}); }
  bool Press(const std::string& button) { return desk_.Press("frmEditDBArr." + button); }
  std::string Text(const std::string& control) { return desk_.Text("frmEditDBArr." + control); }
  bool Enabled(const std::string& control) { return desk_.Enabled("frmEditDBArr." + control); }
  std::string Stored() { return desk_.folder.Get("i40DBArr"); }
  std::string Front() { return desk_.program.toolkit.active_child()->FullName(); }
  void Key(ui::Key::Name name) { desk_.Find<ui::ListBox>("frmEditDBArr.List1")->UserKey({name, {}}); }

  ArrDesk desk_{false};
};

TEST_F(DbWindow, TheRowsAreTheBanksAndTheEntriesInTheirOrder) {
  Open({{"alpha", 12}, {"Beta", 3}, {"Zulu", 999}});
  EXPECT_THAT(Rows(), ElementsAre("1\tArrA", "2\tArrB", "12\talpha.arr", "3\tBeta.arr", "999\tZulu.arr"));
  EXPECT_EQ(Text("Label1"), "File Name");
  EXPECT_EQ(Text("Label3"), "5/999");
  EXPECT_EQ(Text("Label4"), dir());
  EXPECT_EQ(desk_.program.toolkit.FindForm("frmEditDBArr")->caption(), kTitle);
  EXPECT_TRUE(desk_.program.app.arrangement.DBWindowOpen);
  const Bytes image = static_cast<ChildWindow*>(desk_.program.toolkit.FindForm("frmEditDBArr"))->window_image();
  EXPECT_EQ(image, Hand({12, 0}));
  ASSERT_TRUE(desk_.Press("mnuWEditDBArr")) << "a second press brings it to the front";
  EXPECT_EQ(desk_.program.app.core.OpenChildCount, 1);
  ASSERT_TRUE(Press("CommClose"));
  EXPECT_FALSE(desk_.program.app.arrangement.DBWindowOpen);
}

TEST_F(DbWindow, ButtonsAndEntriesFollowTheRow) {
  Open({{"Song", 3}});
  const auto states = [this] {
    std::string text;
    for (const char* control : {"CommApri", "CommDelete", "CommAddAll"}) text += Enabled(control) ? '1' : '0';
    for (const char* entry : {"mnuDBArrApri", "mnuCancella", "mnuAddAll"}) text += desk_.Enabled(entry) ? '1' : '0';
    return text;
  };
  EXPECT_EQ(states(), "001001");
  Select(0);
  EXPECT_EQ(states(), "101101");
  Select(1);
  EXPECT_EQ(states(), "101101");
  Select(2);
  EXPECT_EQ(states(), "111111");
}

TEST_F(DbWindow, WithoutADatabaseOrWithABadOneNoWindowOpens) {
  Open({});
  Press("CommClose");
  desk_.Put("i40DBArr", "i40DBArx" + Zeros(27213));
  desk_.Press("mnuWEditDBArr");
  desk_.Put("i40DBArr", "");
  desk_.Press("mnuWEditDBArr");
  desk_.Press("mnuWEditDBArr");
  EXPECT_THAT(desk_.program.Boxes(), ElementsAre(ShownBox{48, kTitle, "File i40DBArrdata error"},
                                                 ShownBox{48, kTitle, "File i40DBArrnot found"},
                                                 ShownBox{48, kTitle, "File i40DBArrnot found"}));
  desk_.program.disk.Fail("read", "EIO");
  desk_.Press("mnuWEditDBArr");
  EXPECT_THAT(desk_.program.Boxes(), ElementsAre(ShownBox{48, "Reading i40DBArr", "Error I/O device"}));
  EXPECT_EQ(desk_.program.app.core.OpenChildCount, 0);
}

TEST_F(DbWindow, ItComesBackAtTheNextStart) {
  Open({{"Song", 3}});
  ASSERT_TRUE(desk_.program.Quit());
  TestProgram next(desk_.folder);
  ASSERT_TRUE(next.Start());
  EXPECT_NE(next.toolkit.FindForm("frmEditDBArr"), nullptr);
  ASSERT_TRUE(next.Quit());
  desk_.Put("i40DBArr", Zeros(27221));
  TestProgram third(desk_.folder);
  ASSERT_TRUE(third.Start());
  EXPECT_EQ(third.toolkit.FindForm("frmEditDBArr"), nullptr);
  EXPECT_THAT(third.Boxes(), ElementsAre(ShownBox{48, kTitle, "File i40DBArrdata error"}));
}

TEST_F(DbWindow, ADirectoryThatDoesNotFitKeepsItsStartAndItsEnd) {
  std::string wide = "/caf\xC3\xA9/";
  while (wide.size() < 200) wide += "folder/";
  wide += "end";
  desk_.Put("i40DBArr", DatabaseBytes({}, wide));
  desk_.Start();
  desk_.Press("mnuWEditDBArr");
  // Of 480 pixels 384 are the label's; a character takes 8 of them.
  EXPECT_EQ(Text("Label4"), "/ca..." + wide.substr(wide.size() - 42));
  ui::Form& form = *desk_.program.toolkit.FindForm("frmEditDBArr");
  desk_.program.toolkit.UserPlaces(form, {0, 0, 240, 300});
  EXPECT_EQ(Text("Label4"), "/ca..." + wide.substr(wide.size() - 12));
  desk_.program.toolkit.UserPlaces(form, {0, 0, 40, 300});
  EXPECT_EQ(Text("Label4"), "/ca...");
  desk_.program.toolkit.UserPlaces(form, {0, 0, 4000, 300});
  EXPECT_EQ(Text("Label4"), wide);
}

// --- Opening ---

TEST_F(DbWindow, AFileOpensAndAnOpenOneComesToTheFront) {
  desk_.Put("Song.arr", ArrBytes({{"One", 1, false, {}}}));
  Open({{"Song", 3}});
  Select(2);
  ASSERT_TRUE(Press("CommApri"));
  EXPECT_EQ(desk_.program.Arr(1), nullptr) << "a timer does it";
  desk_.Wait(10);
  EXPECT_EQ(desk_.program.Caption(1), "File Arr - Song.arr (1)");
  EXPECT_EQ(Front(), "frmArrU(1)");
  EXPECT_EQ(desk_.Text("frmArrU(1).Text1"), "3");
  desk_.Find<ui::ListBox>("frmEditDBArr.List1")->UserDouble(2);
  desk_.Wait(10);
  EXPECT_EQ(Front(), "frmArrU(1)");
  EXPECT_EQ(desk_.program.Arr(2), nullptr);
}

TEST_F(DbWindow, TheMenuOpensAsTheButtonDoes) {
  desk_.Put("Song.arr", ArrBytes({{"One", 1, false, {}}}));
  Open({{"Song", 3}});
  Select(2);
  ASSERT_TRUE(desk_.Press("mnuDBArrApri"));
  desk_.Wait(20);
  EXPECT_NE(desk_.program.Arr(1), nullptr);
}

TEST_F(DbWindow, TheFirstTwoRowsOpenTheBanks) {
  desk_.Put("i40ArrA.arr", ArrBytes({{"First", 5, false, {}}}));
  Open({});
  for (const int row : {0, 0, 1}) {
    Select(row);
    Press("CommApri");
    desk_.Wait(10);
    EXPECT_EQ(desk_.program.app.arrangement.BankWanted, row + 2);
  }
  EXPECT_EQ(Front(), "frmEditDBArr");
  EXPECT_THAT(desk_.program.Boxes(), ElementsAre(ShownBox{48, "Opening i40ArrB.arr", "File i40ArrB not found"}));
  EXPECT_EQ(desk_.program.app.core.OpenChildCount, 2);
}

TEST_F(DbWindow, AFileThatHasGoneIsTold) {
  Open({{"Song", 3}});
  Select(2);
  Press("CommApri");
  desk_.Wait(10);
  EXPECT_THAT(desk_.program.Boxes(), ElementsAre(ShownBox{48, kTitle, "File Arrangement not found"}));
  EXPECT_EQ(Rows().size(), 3U);
}

// --- Taking out ---

TEST_F(DbWindow, DeletingTakesTheEntryOutAndLeavesTheFile) {
  desk_.Put("Beta.arr", "stays");
  Open({{"alpha", 12}, {"Beta", 3}, {"Zulu", 4}});
  Select(3);
  ASSERT_TRUE(Press("CommDelete"));
  EXPECT_EQ(Rows().size(), 5U) << "a timer does it";
  desk_.Wait(10);
  EXPECT_THAT(Rows(), ElementsAre("1\tArrA", "2\tArrB", "12\talpha.arr", "4\tZulu.arr"));
  EXPECT_EQ(Text("Label3"), "4/999");
  EXPECT_EQ(Stored(), DatabaseBytes({{"alpha", 12}, {"Zulu", 4}}, dir()));
  EXPECT_FALSE(Enabled("CommDelete"));
  EXPECT_EQ(desk_.folder.Get("Beta.arr"), "stays");
  Select(3);
  Key(ui::Key::kDelete);
  desk_.Wait(10);
  Select(2);
  ASSERT_TRUE(desk_.Press("mnuCancella"));
  desk_.Wait(10);
  EXPECT_EQ(Stored(), DatabaseBytes({}, dir()));
}

// Who is back by itself takes nothing away; opened by the user it does.
TEST_F(DbWindow, TheWindowOfTheLastRunRemovesNoEmptyDatabase) {
  Open({{"Song", 3}});
  ASSERT_TRUE(desk_.program.Quit());
  desk_.Put("i40DBArr", "");
  TestProgram next(desk_.folder);
  ASSERT_TRUE(next.Start());
  EXPECT_EQ(next.toolkit.FindForm("frmEditDBArr"), nullptr);
  EXPECT_TRUE(std::filesystem::exists(desk_.folder.Path("i40DBArr")));
  DBPurge(next.app);
  EXPECT_FALSE(std::filesystem::exists(desk_.folder.Path("i40DBArr")));
}

// Before the first one that a run takes out, the file is kept as it was; the next run keeps it anew.
TEST_F(DbWindow, TheFirstDeletionOfARunKeepsTheFileBeside) {
  desk_.Put("i40DBArr.bak", "of an earlier run");
  const std::string before = DatabaseBytes({{"alpha", 12}, {"Beta", 3}}, dir());
  Open({{"alpha", 12}, {"Beta", 3}});
  EXPECT_EQ(desk_.folder.Get("i40DBArr.bak"), "of an earlier run") << "looking takes nothing out";
  for (int time = 0; time < 2; ++time) {
    Select(2);
    ASSERT_TRUE(Press("CommDelete"));
    desk_.Wait(10);
    EXPECT_EQ(desk_.folder.Get("i40DBArr.bak"), before) << time;
  }
  EXPECT_EQ(Stored(), DatabaseBytes({}, dir()));
  ASSERT_TRUE(desk_.program.Quit());
  TestProgram next(desk_.folder);
  desk_.Put("i40DBArr", DatabaseBytes({{"gone", 3}}, dir()));
  ASSERT_TRUE(next.Start());
  DBPurge(next.app);
  EXPECT_EQ(desk_.folder.Get("i40DBArr.bak"), DatabaseBytes({{"gone", 3}}, dir()));
}

TEST_F(DbWindow, ADatabaseBehindALinkIsReplacedAndNeverWrittenThrough) {
  const std::string before = DatabaseBytes({{"alpha", 12}}, dir());
  desk_.Put("i40DBArr", before);
  desk_.Put("elsewhere", before);
  std::filesystem::remove(desk_.folder.Path("i40DBArr"));
  std::filesystem::create_symlink("elsewhere", desk_.folder.Path("i40DBArr"));
  desk_.Start();
  ASSERT_TRUE(desk_.Press("mnuWEditDBArr"));
  Select(2);
  ASSERT_TRUE(Press("CommDelete"));
  desk_.Wait(10);
  EXPECT_EQ(Stored(), DatabaseBytes({}, dir()));
  EXPECT_FALSE(std::filesystem::is_symlink(desk_.folder.Path("i40DBArr")));
  EXPECT_EQ(desk_.folder.Get("elsewhere"), before);
}

TEST_F(DbWindow, TheBanksCannotBeDeleted) {
  Open({{"Song", 3}});
  for (const int row : {0, 1}) {
    Select(row);
    EXPECT_FALSE(Press("CommDelete"));
    Key(ui::Key::kDelete);
    desk_.Wait(10);
  }
  EXPECT_EQ(Rows().size(), 3U);
  EXPECT_EQ(Stored(), DatabaseBytes({{"Song", 3}}, dir()));
}

TEST_F(DbWindow, ADeletionThatCannotBeWrittenChangesNothing) {
  Open({{"Song", 3}});
  Select(2);
  desk_.program.disk.Fail("write", "ENOSPC");
  Press("CommDelete");
  desk_.Wait(10);
  EXPECT_EQ(desk_.program.Boxes().size(), 1U);
  EXPECT_EQ(Rows().size(), 3U);
  EXPECT_EQ(Stored(), DatabaseBytes({{"Song", 3}}, dir()));
  EXPECT_EQ(desk_.program.app.arrangement.DBImage.value(), Stored());
}

TEST_F(DbWindow, ATableThatIsFullLosesItsLastEntry) {
  std::vector<std::pair<std::string, int>> entries;
  for (int i = 3; i <= 999; ++i) entries.emplace_back("F" + std::to_string(1000 + i), i);
  Open(entries);
  EXPECT_EQ(Text("Label3"), "999/999");
  Select(998);
  Press("CommDelete");
  desk_.Wait(10);
  entries.pop_back();
  EXPECT_EQ(Stored(), DatabaseBytes(entries, dir()));
}

// --- Adding ---

TEST_F(DbWindow, AFileAddedElsewhereShowsTheBanksByTheirOtherNames) {
  desk_.Put("Song.arr", ArrBytes({{"One", 1, false, {}}}));
  Open({{"Zulu", 3}});
  desk_.Open("Song.arr");
  desk_.Press("frmArrU(1).CommAdd");
  desk_.Wait(10);
  EXPECT_THAT(Rows(), ElementsAre("1\ti5ArrA", "2\ti5ArrB", "4\tSong.arr", "3\tZulu.arr"));
  EXPECT_EQ(Text("Label3"), "4/999");
  // Known already: nothing is filled anew.
  Select(0);
  desk_.Press("frmArrU(1).CommAdd");
  desk_.Wait(10);
  EXPECT_EQ(desk_.Find<ui::ListBox>("frmEditDBArr.List1")->Row(), 0);
}

TEST_F(DbWindow, AddAllEntersEveryArrangementFileOfTheFolder) {
  const std::string arr = ArrBytes({{"One", 1, false, {}}});
  for (const char* name : {"beta.arr", "Alpha.arr", "KNOWN.ARR", "i40ArrA.arr"}) desk_.Put(name, arr);
  desk_.Put("short.arr", arr.substr(1));
  desk_.Put("long.arr", arr + "x");
  desk_.Put("empty.arr", "");
  desk_.Put("wrong.arr", "k" + arr.substr(1));
  desk_.Put("song.sty", arr);
  std::filesystem::create_directory(desk_.folder.Path("folder.arr"));
  Open({{"Known", 4}});
  ASSERT_TRUE(Press("CommAddAll"));
  EXPECT_THAT(desk_.Log(), ElementsAre("wait 0 \"Update i40DBArr\""));
  desk_.Wait(10);
  EXPECT_THAT(desk_.Log(), ElementsAre("wait 10 \"\""));
  EXPECT_EQ(Stored(), DatabaseBytes({{"Alpha", 3}, {"beta", 5}, {"i40ArrA", 6}, {"Known", 4}}, dir()));
  EXPECT_THAT(Rows(),
              ElementsAre("1\tArrA", "2\tArrB", "3\tAlpha.arr", "5\tbeta.arr", "6\ti40ArrA.arr", "4\tKnown.arr"));
  EXPECT_TRUE(std::filesystem::exists(desk_.folder.Path("empty.arr")));
  desk_.Wait(100);
  EXPECT_THAT(desk_.Log(), IsEmpty());
}

TEST_F(DbWindow, AddAllWritesOnceAndASecondPressDoesItAtOnce) {
  for (int i = 0; i < 20; ++i) desk_.Put("F" + std::to_string(i) + ".arr", ArrBytes({}));
  Open({});
  desk_.program.disk.Fail("write", "EIO", 0);
  desk_.Log();
  Press("CommAddAll");
  Press("CommAddAll");
  EXPECT_THAT(desk_.Log(), ElementsAre("wait 0 \"Update i40DBArr\"",
                                       "box 0 48 \"Reading i40DBArr\" \"Error I/O device\"", "wait 0 \"\""))
      << "one box for one write";
  EXPECT_EQ(Stored(), DatabaseBytes({}, dir()));
  EXPECT_EQ(Rows().size(), 2U);
}

TEST_F(DbWindow, TheMenuAddsAsTheButtonDoes) {
  desk_.Put("Song.arr", ArrBytes({}));
  Open({});
  ASSERT_TRUE(desk_.Press("mnuAddAll"));
  desk_.Wait(20);
  EXPECT_EQ(Stored(), DatabaseBytes({{"Song", 3}}, dir()));
}

TEST_F(DbWindow, AddAllLeavesABadDatabaseAlone) {
  desk_.Put("Song.arr", ArrBytes({}));
  Open({{"Kept", 3}});
  for (const std::string& bad : {DatabaseBytes({}, dir()).substr(1), DatabaseBytes({}, dir()) + "x",
                                 "x" + DatabaseBytes({}, dir()).substr(1), std::string("i40DBArr")}) {
    desk_.Put("i40DBArr", bad);
    Press("CommAddAll");
    desk_.Wait(10);
    EXPECT_EQ(Stored(), bad);
    EXPECT_EQ(Rows().size(), 3U);
    EXPECT_EQ(desk_.Text("frmMain.Label1"), "");
  }
}

TEST_F(DbWindow, AFullTableEndsAddAllWithoutAMessage) {
  std::vector<std::pair<std::string, int>> entries;
  for (int i = 3; i <= 998; ++i) entries.emplace_back("F" + std::to_string(1000 + i), i);
  for (const char* name : {"G1.arr", "G2.arr"}) desk_.Put(name, ArrBytes({}));
  Open(entries);
  desk_.program.app.arrangement.ArrFileId = 7;
  Press("CommAddAll");
  desk_.Wait(10);
  entries.emplace_back("G1", 999);
  EXPECT_EQ(Stored(), DatabaseBytes(entries, dir()));
  EXPECT_EQ(desk_.program.app.arrangement.ArrFileId, 0);
  EXPECT_TRUE(desk_.program.Boxes().empty());
}

// A disk on which some files can't be read.
class WornDisk : public MemoryDisk {
 public:
  std::vector<std::string> worn;

  DiskResult Read(const std::string& path, Bytes& content, std::size_t largest) override {
    if (std::find(worn.begin(), worn.end(), path) != worn.end()) return DiskResult::kInputOutput;
    return MemoryDisk::Read(path, content, largest);
  }
};

TEST(DbWindowOnAWornDisk, AddAllGoesOnPastFilesThatCannotBeReadAndTellsItOnce) {
  WornDisk disk;
  ArrDesk desk(disk);
  for (const char* name : {"A.arr", "B.arr", "C.arr"}) disk.files[desk.folder.Path(name)] = ArrBytes({});
  disk.worn = {desk.folder.Path("A.arr"), desk.folder.Path("B.arr")};
  disk.files[desk.folder.Path("i40DBArr")] = DatabaseBytes({}, desk.folder.Path());
  desk.program.app.main->EnableDatabaseEntries(true);
  desk.Press("mnuWEditDBArr");
  desk.Press("frmEditDBArr.CommAddAll");
  desk.Wait(10);
  EXPECT_THAT(desk.program.Boxes(), ElementsAre(ShownBox{48, "Reading i40DBArr", "Error I/O device"}));
  EXPECT_EQ(disk.files[desk.folder.Path("i40DBArr")], DatabaseBytes({{"C", 3}}, desk.folder.Path()));
}

TEST_F(DbWindow, AFolderThatHasGoneIsTold) {
  desk_.Put("i40DBArr", DatabaseBytes({}, dir() + "/gone"));
  desk_.Start();
  desk_.Press("mnuWEditDBArr");
  Press("CommAddAll");
  desk_.Wait(10);
  EXPECT_THAT(desk_.program.Boxes(), ElementsAre(ShownBox{48, "Reading i40DBArr", "Path not found"}));
}

TEST_F(DbWindow, AnUpdateReloadsTheWindow) {
  std::string kept = ArrBytes({{"One", 1, false, {}}});
  kept.replace(672, 10, kept.substr(32, 10));
  desk_.Put("Kept.arr", kept);
  Open({{"Gone", 3}, {"Kept", 4}});
  desk_.Press("mnuAggArr");
  desk_.Wait(10);
  EXPECT_EQ(Rows().size(), 4U);
  desk_.Wait(10);
  EXPECT_THAT(Rows(), ElementsAre("1\tArrA", "2\tArrB", "4\tKept.arr"));
}

TEST_F(DbWindow, AnUpdateThatFindsNoDatabaseLeavesTheWindowAsItIs) {
  Open({{"Song", 3}});
  desk_.Put("i40DBArr", Zeros(27221));
  desk_.Press("mnuAggArr");
  desk_.Wait(20);
  EXPECT_EQ(desk_.program.Boxes().size(), 1U);
  EXPECT_EQ(Rows().size(), 3U);
  EXPECT_EQ(desk_.program.app.arrangement.DBImage.value(), DatabaseBytes({{"Song", 3}}, dir()));
}

// --- Damage ---

TEST_F(DbWindow, ADatabaseDamagedInAnyByteDoesNoHarmUnderEachOfItsWindows) {
  MemoryDisk disk;
  ArrDesk desk(disk);
  const std::string dir = desk.folder.Path();
  disk.files[desk.folder.Path("Song.arr")] = ArrBytes({{"One", 1, false, {}}});
  const std::string good = DatabaseBytes({{"Gone", 4}, {"Song", 3}}, dir);
  std::vector<std::size_t> places = {1, 8, 9, 25, 27, 52, 999, 25974, 25975, 25976, 26971, 26972, 26973, 27221};
  for (std::size_t at = 53; at < 132; ++at) places.push_back(at);
  for (std::size_t at = 26972; at < 26972 + dir.size() + 2; ++at) places.push_back(at);
  desk.program.app.main->EnableDatabaseEntries(true);
  for (const std::size_t at : places) {
    for (const int value : {0, 1, 9, 10, 0x2F, 0x80, 0xC3, 0xFF}) {
      std::string damaged = good;
      Set(damaged, at, value);
      disk.files[desk.folder.Path("i40DBArr")] = damaged;
      desk.Press("mnuWFindID");
      desk.Find<ui::TextBox>("frmFindID.Text1")->UserType("311");
      desk.Press("frmFindID.CommOK");
      desk.Wait(20);
      desk.Press("mnuWEditDBArr");
      if (auto* list = desk.Find<ui::ListBox>("frmEditDBArr.List1")) {
        const int row = std::min(3, list->rows() - 1);
        list->UserSelect({row});
        desk.Press("frmEditDBArr.CommApri");
        desk.Wait(20);
        desk.Press("frmEditDBArr.CommAddAll");
        desk.Wait(20);
        list->UserSelect({std::min(2, list->rows() - 1)});
        list->UserKey({ui::Key::kDelete, {}});
        desk.Wait(20);
        ASSERT_EQ(disk.files[desk.folder.Path("i40DBArr")].size(), 27221U) << at << " " << value;
        desk.program.toolkit.FindForm("frmEditDBArr")->UserClose();
      } else {
        ASSERT_EQ(disk.files[desk.folder.Path("i40DBArr")], damaged) << at << " " << value;
      }
      desk.program.toolkit.FindForm("frmFindID")->UserClose();
      for (int number = 1; number <= 8; ++number) {
        if (desk.program.Arr(number) != nullptr) desk.program.Arr(number)->UserClose();
      }
      for (const char* name : {"frmArrAB(2)", "frmArrAB(3)"}) {
        if (ui::Form* form = desk.program.toolkit.FindForm(name)) form->UserClose();
      }
      ASSERT_EQ(desk.program.app.core.OpenChildCount, 0) << at << " " << value;
      ASSERT_FALSE(desk.program.app.arrangement.FindActive);
      desk.Log();
    }
  }
}

}  // namespace
}  // namespace zentaline::test
