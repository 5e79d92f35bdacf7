// i40DBArr on the disk: looked up, added to, purged, and everything that can be wrong with it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "arrangement/api.h"
#include "tests/arrangement/arr_desk.h"
#include "tests/support/memory_disk.h"

namespace zentaline::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::size_t kLength = 27221;

// Builds a database by its layout, entries from index 3 on in the order given.
std::string Database(const std::vector<std::pair<std::string, int>>& entries, const std::string& directory) {
  std::string db = "i40DBArr" + Zeros(18) + Zeros(1) + Blanks(23) + Zeros(2);
  std::string map = Zeros(997);
  for (const auto& [name, id] : entries) {
    db += Field(name, 24) + Hand({id % 256, id / 256});
    if (id >= 3 && id <= 999) map[static_cast<std::size_t>(id) - 3] = 1;
  }
  for (std::size_t i = entries.size(); i < 997; ++i) db += Zeros(1) + Blanks(23) + Zeros(2);
  return db + map + Field(directory, 250);
}

// Reads the entries up to the first free one, and checks that each id is marked in the map and no other.
std::vector<std::pair<std::string, int>> EntriesOf(const std::string& db) {
  std::vector<std::pair<std::string, int>> entries;
  std::string map = Zeros(997);
  for (std::size_t at = 52; at < 25974 && db.at(at) != 0; at += 26) {
    std::string name = db.substr(at, 24);
    name.erase(name.find_last_not_of(' ') + 1);
    const int id = At(db, at + 25) + 256 * At(db, at + 26);
    entries.emplace_back(name, id);
    if (id >= 3 && id <= 999) map[static_cast<std::size_t>(id) - 3] = 1;
  }
  EXPECT_EQ(db.substr(25974, 997), map);
  return entries;
}

// An arrangement file that a purge keeps: the ten bytes at offset 32 are those at offset 672.
std::string Kept() {
  std::string arr = ArrBytes({{"One", 1, false, {}}});
  arr.replace(672, 10, arr.substr(32, 10));
  return arr;
}

class DatabaseTest : public ::testing::Test {
 protected:
  std::string dir() { return desk_.folder.Path(); }
  std::string Stored() { return desk_.folder.Get("i40DBArr"); }
  // Opens the file, presses "+ i40DBArr", closes it; what Text1 shows.
  std::string Add(const std::string& name) {
    if (!std::filesystem::exists(desk_.folder.Path(name + ".arr"))) desk_.Put(name + ".arr", Kept());
    desk_.Open(name + ".arr");
    desk_.Press("frmArrU(1).CommAdd");
    desk_.Wait(20);
    std::string text = desk_.Text("frmArrU(1).Text1");
    desk_.program.Arr(1)->UserClose();
    return text;
  }
  // Tells the first byte that differs, since nobody reads 27221 of them.
  ::testing::AssertionResult Holds(const std::string& wanted) {
    const std::string stored = Stored();
    if (stored == wanted) return ::testing::AssertionSuccess();
    std::size_t i = 0;
    while (i < stored.size() && i < wanted.size() && stored[i] == wanted[i]) ++i;
    return ::testing::AssertionFailure() << stored.size() << " bytes, " << wanted.size() << " wanted; from position "
                                         << i + 1 << " \"" << stored.substr(i, 40) << "\" for \""
                                         << wanted.substr(i, 40) << "\"";
  }
  std::vector<ShownBox> Boxes() { return desk_.program.Boxes(); }
  int Lookup(const std::string& name) { return DBLookupId(desk_.program.app, desk_.folder.Path(name)); }
  static ShownBox Question() {
    return {52, "Edit i40DBArr", "Choose the directory of the opened file as working directory of i40DBArr?"};
  }

  ArrDesk desk_;
};

TEST_F(DatabaseTest, TheFirstFileSettlesTheDirectoryWhenTheAnswerIsYes) {
  EXPECT_FALSE(desk_.Enabled("mnuAggArr"));
  desk_.program.toolkit.answers = {ui::BoxAnswer::kYes};
  EXPECT_EQ(Add("Song"), "3");
  EXPECT_THAT(Boxes(), ElementsAre(Question()));
  EXPECT_TRUE(Holds(Database({{"Song", 3}}, dir())));
  EXPECT_TRUE(desk_.Enabled("mnuAggArr"));
}

TEST_F(DatabaseTest, TheAnswerNoLeavesNoFile) {
  EXPECT_EQ(Add("Song"), "");
  EXPECT_THAT(Boxes(), ElementsAre(Question()));
  EXPECT_FALSE(std::filesystem::exists(desk_.folder.Path("i40DBArr")));
  EXPECT_FALSE(desk_.Enabled("mnuAggArr"));
}

TEST_F(DatabaseTest, AnEmptyDatabaseCountsAsNone) {
  desk_.Put("i40DBArr", "");
  desk_.program.toolkit.answers = {ui::BoxAnswer::kYes};
  EXPECT_EQ(Add("Song"), "3");
  EXPECT_TRUE(Holds(Database({{"Song", 3}}, dir())));
}

TEST_F(DatabaseTest, ALookUpLeavesItsResultAsTheIdOfTheFileShownLast) {
  desk_.Put("i40DBArr", Database({{"Known", 300}}, dir()));
  for (const char* name : {"Known.arr", "Unknown.arr"}) desk_.Put(name, Kept());
  desk_.Open("Known.arr");
  EXPECT_EQ(desk_.program.app.arrangement.ArrFileId, 300);
  desk_.Open("Unknown.arr");
  EXPECT_EQ(desk_.program.app.arrangement.ArrFileId, 0);
}

TEST_F(DatabaseTest, TheButtonWorksInTwoSteps) {
  desk_.Put("i40DBArr", Database({{"Song", 3}}, dir()));
  desk_.Put("Song.arr", Kept());
  desk_.Open("Song.arr");
  desk_.Log();
  EXPECT_TRUE(desk_.Press("frmArrU(1).CommAdd"));
  EXPECT_THAT(desk_.Log(), ElementsAre("wait 0 \"Update i40DBArr\""));
  desk_.Wait(9);
  EXPECT_THAT(desk_.Log(), IsEmpty());
  desk_.Wait(1);
  EXPECT_THAT(desk_.Log(), ElementsAre("wait 10 \"\""));
  EXPECT_TRUE(desk_.List().HasFocus());
  desk_.Wait(100);
  EXPECT_THAT(desk_.Log(), IsEmpty());
}

TEST_F(DatabaseTest, IdsRunInTheOrderOfAdditionAndEntriesByName) {
  desk_.program.toolkit.answers = {ui::BoxAnswer::kYes};
  EXPECT_EQ(Add("Song"), "3");
  EXPECT_EQ(Add("alpha"), "4");
  EXPECT_EQ(Add("Zulu"), "5");
  EXPECT_EQ(Add("Mid"), "6");
  EXPECT_TRUE(Holds(Database({{"alpha", 4}, {"Mid", 6}, {"Song", 3}, {"Zulu", 5}}, dir())));
  EXPECT_EQ(Add("Zulu"), "5") << "a file that is entered keeps its id";
}

TEST_F(DatabaseTest, ANameThatDiffersInCaseAloneIsTheSame) {
  desk_.Put("i40DBArr", Database({{"SONG", 7}}, dir()));
  EXPECT_EQ(Add("song"), "7");
  EXPECT_TRUE(Holds(Database({{"SONG", 7}}, dir())));
}

TEST_F(DatabaseTest, NamesAreCutAtTwentyFourBytesAndCanFallTogether) {
  desk_.program.toolkit.answers = {ui::BoxAnswer::kYes};
  EXPECT_EQ(Add("A name of thirty letters, one"), "3");
  EXPECT_EQ(Add("A name of thirty letters, two"), "3");
  EXPECT_EQ(Add("A name of thirty letters"), "3");
  EXPECT_THAT(EntriesOf(Stored()), ElementsAre(std::pair<std::string, int>("A name of thirty letters", 3)));
}

TEST_F(DatabaseTest, TheLowestFreeIdIsUsedAgain) {
  std::string db = Database({{"A", 3}, {"B", 4}, {"C", 5}}, dir());
  desk_.Put("i40DBArr", Database({{"A", 3}, {"C", 5}}, dir()));
  EXPECT_EQ(Add("B"), "4");
  EXPECT_TRUE(Holds(db));
  EXPECT_EQ(Add("D"), "6");
}

TEST_F(DatabaseTest, AFileOfAnotherDirectoryStaysOutInSilence) {
  const std::string db = Database({{"Song", 3}}, "/somewhere/else");
  desk_.Put("i40DBArr", db);
  EXPECT_EQ(Add("Song"), "");
  EXPECT_EQ(Add("Other"), "");
  EXPECT_THAT(Boxes(), IsEmpty());
  EXPECT_TRUE(Holds(db));
}

TEST_F(DatabaseTest, TheNineHundredAndNinetyEighthFileGetsNoId) {
  std::vector<std::pair<std::string, int>> full;
  for (int i = 3; i <= 999; ++i) full.emplace_back("F" + std::to_string(1000 + i), i);
  const std::string db = Database(full, dir());
  ASSERT_EQ(db.size(), kLength);
  desk_.Put("i40DBArr", db);
  EXPECT_EQ(Add("Song"), "");
  EXPECT_THAT(Boxes(), IsEmpty());
  EXPECT_TRUE(Holds(db));
  EXPECT_EQ(Add("F1999"), "999");
  // One place free: the file gets it.
  full.pop_back();
  desk_.Put("i40DBArr", Database(full, dir()));
  EXPECT_EQ(Add("Song"), "999");
  full.emplace_back("Song", 999);
  EXPECT_TRUE(Holds(Database(full, dir())));
}

TEST_F(DatabaseTest, AnIdOfMoreThanAByteIsRead) {
  desk_.Put("i40DBArr", Database({{"Song", 999}}, dir()));
  EXPECT_EQ(Lookup("Song"), 999);
  EXPECT_EQ(Lookup("song"), 999);
  EXPECT_EQ(Lookup("Son"), 0);
  EXPECT_EQ(DBLookupId(desk_.program.app, "/tmp/Song"), 0);
}

TEST_F(DatabaseTest, ALookUpShowsNothingAndLeavesNothingBehind) {
  EXPECT_EQ(Lookup("Song"), 0);
  EXPECT_FALSE(std::filesystem::exists(desk_.folder.Path("i40DBArr")));
  std::string bad = Database({{"Song", 3}}, dir());
  bad[0] = 'x';
  desk_.Put("i40DBArr", bad);
  EXPECT_EQ(Lookup("Song"), 0);
  desk_.program.disk.Fail("read", "EIO");
  EXPECT_EQ(Lookup("Song"), 0);
  EXPECT_THAT(Boxes(), IsEmpty());
  EXPECT_TRUE(Holds(bad));
}

TEST_F(DatabaseTest, AWrongHeaderIsToldAndTheFileStaysAsItWas) {
  std::string bad = Database({{"Song", 3}}, dir());
  bad[7] = 'R';
  desk_.Put("i40DBArr", bad);
  EXPECT_EQ(Add("Song"), "");
  EXPECT_THAT(Boxes(), ElementsAre(ShownBox{48, "Reading i40DBArr", "Error reading i40DBArr"}));
  DBPurge(desk_.program.app);
  EXPECT_THAT(Boxes(), ElementsAre(ShownBox{48, "Reading i40DBArr", "Error reading i40DBArr"}));
  EXPECT_EQ(DBCheck(desk_.program.app), 0);
  EXPECT_THAT(Boxes(), ElementsAre(ShownBox{48, "Edit i40DBArr", "File i40DBArrdata error"}));
  EXPECT_TRUE(Holds(bad));
}

TEST_F(DatabaseTest, ACheckTellsAnAbsentFileUnlessItIsSilent) {
  EXPECT_EQ(DBCheck(desk_.program.app), 1);
  EXPECT_THAT(Boxes(), ElementsAre(ShownBox{48, "Edit i40DBArr", "File i40DBArrnot found"}));
  desk_.program.app.arrangement.SilentStart = true;
  EXPECT_EQ(DBCheck(desk_.program.app), 1);
  desk_.Put("i40DBArr", "");
  EXPECT_EQ(DBCheck(desk_.program.app), 1);
  desk_.Put("i40DBArr", "x");
  EXPECT_EQ(DBCheck(desk_.program.app), 0);
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(DatabaseTest, AFileOfTheRightTextAndTheWrongLengthPasses) {
  const std::string db = Database({{"Song", 5}}, dir());
  desk_.Put("i40DBArr", db + "some bytes more");
  EXPECT_EQ(Lookup("Song"), 5);
  desk_.Put("i40DBArr", db + std::string(1000000, 'x'));
  EXPECT_EQ(Lookup("Song"), 5);
  EXPECT_EQ(Add("Other"), "3");
  EXPECT_TRUE(Holds(Database({{"Other", 3}, {"Song", 5}}, dir())));
  // Cut short, there is no directory any more, and so no file has an id.
  desk_.Put("i40DBArr", db.substr(0, 26971));
  EXPECT_EQ(Lookup("Song"), 0);
  EXPECT_EQ(DBCheck(desk_.program.app), 0);
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(DatabaseTest, FailuresOfTheDiskAreToldAndChangeNothing) {
  const std::string db = Database({{"Alpha", 3}}, dir());
  desk_.Put("i40DBArr", db);
  desk_.Put("Song.arr", Kept());
  desk_.Open("Song.arr");
  const auto press = [this] {
    desk_.Press("frmArrU(1).CommAdd");
    desk_.Wait(20);
    return Boxes();
  };
  desk_.program.disk.Fail("write", "ENOSPC");
  EXPECT_EQ(press().size(), 1U);
  EXPECT_EQ(desk_.Text("frmArrU(1).Text1"), "");
  EXPECT_TRUE(Holds(db));
  desk_.program.disk.Fail("write", "EROFS");
  EXPECT_THAT(press(), ElementsAre(ShownBox{48, "Reading i40DBArr", "Read only file"}));
  desk_.program.disk.Fail("read", "EIO");
  EXPECT_THAT(press(), ElementsAre(ShownBox{48, "Reading i40DBArr", "Error I/O device"}));
  EXPECT_TRUE(Holds(db));
  EXPECT_THAT(press(), IsEmpty());
  EXPECT_EQ(desk_.Text("frmArrU(1).Text1"), "4");
}

TEST_F(DatabaseTest, ANewDatabaseThatCantBeWrittenIsNone) {
  desk_.Put("Song.arr", Kept());
  desk_.Open("Song.arr");
  desk_.program.toolkit.answers = {ui::BoxAnswer::kYes};
  desk_.program.disk.Fail("write", "EACCES");
  desk_.Press("frmArrU(1).CommAdd");
  desk_.Wait(20);
  EXPECT_EQ(Boxes().size(), 2U);
  EXPECT_EQ(desk_.Text("frmArrU(1).Text1"), "");
  EXPECT_FALSE(std::filesystem::exists(desk_.folder.Path("i40DBArr")));
  EXPECT_FALSE(desk_.Enabled("mnuAggArr"));
}

// --- Purge ---

TEST_F(DatabaseTest, APurgeKeepsWhatPassesItsTestAndTakesOutTheRest) {
  desk_.Put("Keep1.arr", Kept());
  desk_.Put("Keep2.arr", Kept().substr(0, 682));
  std::string any = Kept();
  any.replace(4, 28, std::string(28, '?'));
  desk_.Put("Keep3.arr", any);
  std::string long_file = Kept() + std::string(500000, 'x');
  desk_.Put("Keep4.arr", long_file);
  desk_.Put("Other.arr", ArrBytes({{"One", 1, false, {}}}));  // sound, but it fails the test
  std::string magic = Kept();
  magic[3] = 'g';
  desk_.Put("Magic.arr", magic);
  desk_.Put("Empty.arr", "");
  desk_.Put("Short.arr", Kept().substr(0, 681));
  std::string long_bad = magic + std::string(500000, 'x');
  desk_.Put("Much.arr", long_bad);
  desk_.Put("i40DBArr", Database({{"Empty", 3},
                                  {"Gone", 4},
                                  {"Keep1", 5},
                                  {"Keep2", 6},
                                  {"Keep3", 7},
                                  {"Keep4", 8},
                                  {"Magic", 9},
                                  {"Much", 10},
                                  {"Other", 11},
                                  {"Short", 12}},
                                 dir()));
  DBPurge(desk_.program.app);
  EXPECT_THAT(Boxes(), IsEmpty());
  EXPECT_TRUE(Holds(Database({{"Keep1", 5}, {"Keep2", 6}, {"Keep3", 7}, {"Keep4", 8}}, dir())));
  EXPECT_FALSE(std::filesystem::exists(desk_.folder.Path("Empty.arr")));
  EXPECT_FALSE(std::filesystem::exists(desk_.folder.Path("Gone.arr")));
  EXPECT_EQ(desk_.folder.Get("Other.arr"), ArrBytes({{"One", 1, false, {}}}));
}

TEST_F(DatabaseTest, APurgeOfAFullDatabaseWhoseFilesAreAllGoneLeavesItEmpty) {
  std::vector<std::pair<std::string, int>> full;
  for (int i = 3; i <= 999; ++i) full.emplace_back("F" + std::to_string(1000 + i), 1002 - i);
  desk_.Put("i40DBArr", Database(full, dir()));
  DBPurge(desk_.program.app);
  EXPECT_TRUE(Holds(Database({}, dir())));
}

TEST_F(DatabaseTest, TheMenuPurgesInTwoSteps) {
  ScratchFolder folder;
  folder.Put("i40DBArr", Database({{"Gone", 3}}, folder.Path()));
  TestProgram program(folder);
  program.Start();
  ASSERT_TRUE(program.Enabled(MenuId::mnuAggArr));
  program.toolkit.lines.clear();
  program.Press(MenuId::mnuAggArr);
  EXPECT_THAT(program.toolkit.lines, ElementsAre("wait 0 \"Update i40DBArr\""));
  EXPECT_EQ(folder.Get("i40DBArr"), Database({{"Gone", 3}}, folder.Path()));
  program.toolkit.Advance(10);
  EXPECT_THAT(program.toolkit.lines, ElementsAre("wait 0 \"Update i40DBArr\"", "wait 10 \"\""));
  EXPECT_EQ(folder.Get("i40DBArr"), Database({}, folder.Path()));
}

TEST_F(DatabaseTest, APurgeWithoutADatabaseSaysSo) {
  DBPurge(desk_.program.app);
  EXPECT_THAT(Boxes(), ElementsAre(ShownBox{48, "Reading i40DBArr", "File not found"}));
  desk_.Put("i40DBArr", "");
  DBPurge(desk_.program.app);
  EXPECT_THAT(Boxes(), ElementsAre(ShownBox{48, "Reading i40DBArr", "File not found"}));
  EXPECT_FALSE(std::filesystem::exists(desk_.folder.Path("i40DBArr")));
}

// --- Automatic entry ---

TEST_F(DatabaseTest, WithTheOptionEveryOpenedFileIsEntered) {
  desk_.Put("i40DBArr", Database({{"Alpha", 3}}, dir()));
  desk_.Put("Song.arr", Kept());
  desk_.Put("Zulu.arr", Kept());
  desk_.Open("Song.arr");
  EXPECT_EQ(desk_.Text("frmArrU(1).Text1"), "");
  EXPECT_TRUE(desk_.Enabled("frmArrU(1).CommAdd"));
  EXPECT_TRUE(desk_.Enabled("mnui40DBArr"));
  desk_.Press("mnuAddi40DBArr");
  EXPECT_FALSE(desk_.Enabled("frmArrU(1).CommAdd")) << "open windows follow the option";
  EXPECT_FALSE(desk_.Enabled("mnui40DBArr"));
  desk_.Open("Zulu.arr");
  EXPECT_EQ(desk_.Text("frmArrU(2).Text1"), "4");
  EXPECT_FALSE(desk_.Enabled("frmArrU(2).CommAdd"));
  EXPECT_TRUE(Holds(Database({{"Alpha", 3}, {"Zulu", 4}}, dir())));
  desk_.Press("mnuAddi40DBArr");
  EXPECT_TRUE(desk_.Enabled("frmArrU(1).CommAdd"));
}

TEST_F(DatabaseTest, ASearchThatOpensAFileDoesNotEnterIt) {
  const std::string db = Database({{"Alpha", 3}}, dir());
  desk_.Put("i40DBArr", db);
  desk_.Put("Song.arr", Kept());
  desk_.program.app.core.settings.Add40DBArr = true;
  desk_.program.app.arrangement.FindActive = true;
  desk_.program.app.arrangement.FindRow = 0;
  desk_.Open("Song.arr");
  EXPECT_TRUE(Holds(db));
}

// --- Damage ---

TEST_F(DatabaseTest, NoDamagedByteCrashesOrHangs) {
  // In memory: hundreds of files are written, and a real disk takes its time over each.
  MemoryDisk disk;
  ArrDesk desk(disk);
  const std::string dir = desk.folder.Path();
  const std::string song = desk.folder.Path("Song.arr");
  const std::string stored = desk.folder.Path("i40DBArr");
  disk.files[song] = Kept();
  const std::string db = Database({{"Alpha", 3}, {"Mid", 4}, {"Zulu", 5}}, dir);
  std::mt19937 random(7);
  desk.program.toolkit.answers.assign(10000, ui::BoxAnswer::kNo);
  for (int round = 0; round < 120; ++round) {
    std::string damaged = db;
    // The bytes that mean something now and then, any other ones else.
    const int places[] = {1, 8, 53, 76, 77, 78, 79, 105, 131, 25974, 25975, 26971, 26972, 27221};
    const std::size_t place = round < 28 ? static_cast<std::size_t>(places[round / 2])
                                         : static_cast<std::size_t>(RandomNumber(random, 1, static_cast<int>(kLength)));
    Set(damaged, place, round % 2 == 0 ? 0xFF : RandomNumber(random, 0, 255));
    if (round % 50 == 49) damaged = "i40DBArr" + RandomBytes(random, kLength - 8);
    if (round % 50 == 48) damaged.replace(26971, 250, Field(dir, 250)).replace(52, 25922, RandomBytes(random, 25922));
    disk.files[stored] = damaged;
    DBLookupId(desk.program.app, desk.folder.Path("Song"));
    desk.program.OpenArr(song);
    ASSERT_TRUE(desk.Press("frmArrU(1).CommAdd"));
    desk.Wait(20);
    desk.program.Arr(1)->UserClose();
    DBPurge(desk.program.app);
    DBCheck(desk.program.app);
    EXPECT_TRUE(disk.files[stored].size() == kLength || disk.files[stored] == damaged) << place;
  }
}

}  // namespace
}  // namespace zentaline::test
