#include <gtest/gtest.h>

#include <filesystem>

#include "files/api.h"
#include "files/paths.h"
#include "tests/support/config.h"
#include "tests/support/program.h"

namespace zentaline::test {
namespace {

using enum MenuId;

TEST(FileType, TheLastDotStandsThreeCharactersFromTheEndAndCaseDoesNotCount) {
  const std::pair<const char*, int> rows[] = {
      {"a.arr", 1},     {"a.sty", 2}, {"a.prg", 3}, {"a.pgg", 4},   {"a.gbl", 5},     {"a.bsq", 6},
      {"A.ARR", 1},     {"a.Prg", 3}, {".arr", 1},  {"/x/.arr", 1}, {"a.b.arr", 1},   {"a.arr.b", 0},
      {"a.arr.txt", 0}, {"arr", 0},   {"", 0},      {"a.arr ", 0},  {"a.arrr", 0},    {"a.ar", 0},
      {"a.pcg", 0},     {"a.", 0},    {"aarr", 0},  {"a..arr", 1},  {"a.arr.arr", 1},
  };
  for (const auto& [path, type] : rows) EXPECT_EQ(FileType(path), type) << path;
}

TEST(ShortenedPath, UpTo35CharactersStandAsTheyAre) {
  EXPECT_EQ(ShortenedPath(""), "");
  EXPECT_EQ(ShortenedPath("/a.arr"), "/a.arr");
  const std::string longest = "/abc/efghijklmnopqrstuvwxyz0123.arr";
  ASSERT_EQ(longest.size(), 35u);
  EXPECT_EQ(ShortenedPath(longest), longest);
}

TEST(ShortenedPath, WithoutASeparatorInPositions4To35TheEndIsCut) {
  const std::string path = "/bcdefghijklmnopqrstuvwxyz012345.arr";
  ASSERT_EQ(path.size(), 36u);
  EXPECT_EQ(ShortenedPath(path), "/bcdefghijklmnopqrstuvwxyz012345.ar...");
  EXPECT_EQ(ShortenedPath("/b/" + std::string(40, 'x')), "/b/" + std::string(32, 'x') + "...");
  // A separator at position 36 comes too late.
  EXPECT_EQ(ShortenedPath("/" + std::string(34, 'x') + "/a.arr"), "/" + std::string(34, 'x') + "...");
}

// 60 characters of which only the first and the one at `position` are separators.
std::string PathWithSeparatorAt(std::size_t position) {
  std::string path = "/";
  while (path.size() < 60) path += static_cast<char>('a' + path.size() % 26);
  path[position - 1] = '/';
  return path;
}

TEST(ShortenedPath, ALongPathKeepsItsHeadAndWhatFollowsTheFirstSeparatorOfTheLast28) {
  for (std::size_t position = 2; position <= 60; ++position) {
    const std::string path = PathWithSeparatorAt(position);
    std::string expected;
    if (position < 4 || position > 35) {
      expected = path.substr(0, 35) + "...";
    } else if (60 - position <= 28) {
      expected = path.substr(0, 3) + ".../" + path.substr(position);
    } else {
      // No separator is near enough to the end: the end of the name alone.
      expected = path.substr(0, 3) + ".../" + path.substr(32);
    }
    EXPECT_EQ(ShortenedPath(path), expected) << position;
  }
}

TEST(ShortenedPath, TheFirstOfSeveralSeparatorsNearTheEndCounts) {
  EXPECT_EQ(ShortenedPath("/disk/musician/arrangements/latin/bossa.arr"), "/di.../arrangements/latin/bossa.arr");
  // 28 characters follow the second separator, 29 the one before it.
  EXPECT_EQ(ShortenedPath("/aaaaaaaa//234567890123456789012345.arr"), "/aa.../234567890123456789012345.arr");
}

TEST(ShortenedPath, CountsCharactersAndNotBytes) {
  std::string path = "/mus/";
  for (int i = 0; i < 26; ++i) path += "\xC3\xA8";
  path += ".arr";
  EXPECT_EQ(ShortenedPath(path), path);
}

class Recent : public ::testing::Test {
 protected:
  Recent() : program(folder) {
    folder.Put("Zentaline.ini", ConfigFile::English().bytes);
    EXPECT_TRUE(program.Start());
  }
  std::vector<std::string> Captions() const {
    std::vector<std::string> captions;
    for (int i = 0; i < 8; ++i) {
      const ui::MenuEntry& entry = program.app.main->mnuRecentFile(i);
      EXPECT_EQ(entry.visible(), !entry.caption().empty()) << i;
      captions.push_back(entry.caption());
    }
    return captions;
  }

  ScratchFolder folder;
  TestProgram program;
};

TEST_F(Recent, TheFirstFreeRecordIsTakenAndAFullListLosesItsLast) {
  EXPECT_EQ(Captions(), std::vector<std::string>(8, ""));
  for (const char* name : {"/1.arr", "/2.sty", "/3.prg", "/4.pgg", "/5.gbl", "/6.bsq", "/7.arr", "/8.arr"}) {
    AddRecentFile(program.app, name, false);
  }
  EXPECT_EQ(Captions(),
            (std::vector<std::string>{"/1.arr", "/2.sty", "/3.prg", "/4.pgg", "/5.gbl", "/6.bsq", "/7.arr", "/8.arr"}));
  AddRecentFile(program.app, "/9.arr", true);
  EXPECT_EQ(Captions(),
            (std::vector<std::string>{"/9.arr", "/1.arr", "/2.sty", "/3.prg", "/4.pgg", "/5.gbl", "/6.bsq", "/7.arr"}));
  EXPECT_TRUE(program.app.core.RecentFiles[0].read_only);
}

TEST_F(Recent, AFileThatIsThereIsNotMovedNorChanged) {
  for (const char* name : {"/1.arr", "/2.arr", "/3.arr"}) AddRecentFile(program.app, name, false);
  AddRecentFile(program.app, "/2.arr", true);
  AddRecentFile(program.app, "/3.ARR", true);
  EXPECT_EQ(Captions(), (std::vector<std::string>{"/1.arr", "/2.arr", "/3.arr", "", "", "", "", ""}));
  EXPECT_FALSE(program.app.core.RecentFiles[1].read_only);
  // Another type of the same name is another file.
  AddRecentFile(program.app, "/2.sty", false);
  EXPECT_EQ(Captions()[3], "/2.sty");
}

TEST_F(Recent, AFileWithoutATypeIsNotKept) {
  for (const char* name : {"/a.txt", "/a", "/a.pcg", ""}) AddRecentFile(program.app, name, false);
  EXPECT_EQ(Captions(), std::vector<std::string>(8, ""));
}

TEST_F(Recent, FilesOfEveryTypeCanBeOpened) {
  for (const char* name : {"/1.arr", "/2.sty", "/3.prg", "/4.pgg", "/5.gbl", "/6.bsq"}) {
    AddRecentFile(program.app, name, false);
  }
  for (int i = 0; i < 6; ++i) EXPECT_TRUE(program.app.main->mnuRecentFile(i).Usable()) << i;
  EXPECT_FALSE(program.app.main->mnuRecentFile(6).Usable());
}

TEST_F(Recent, TheListIsStoredAndComesBackInItsOrder) {
  AddRecentFile(program.app, "/b.arr", true);
  AddRecentFile(program.app, "/a.sty", false);
  ASSERT_TRUE(program.Quit());
  ConfigFile file;
  file.bytes = folder.Get("Zentaline.ini");
  std::string first = "/b" + std::string(248, ' ');
  first[241] = 1;
  first[246] = 1;
  EXPECT_EQ(HexText(file.Record(40)), HexText(first));
  std::string second = "/a" + std::string(248, ' ');
  second[241] = 2;
  second[246] = 0;
  EXPECT_EQ(HexText(file.Record(41)), HexText(second));
  EXPECT_EQ(file.Record(42), std::string(250, ' '));
  TestProgram next(folder);
  ASSERT_TRUE(next.Start());
  EXPECT_EQ(next.app.main->mnuRecentFile(0).caption(), "/b.arr");
  EXPECT_EQ(next.app.main->mnuRecentFile(1).caption(), "/a.sty");
  EXPECT_FALSE(next.app.main->mnuRecentFile(2).visible());
}

TEST_F(Recent, AnEntryOpensItsFileWithoutADialogAndWithItsReadOnlyFlag) {
  folder.Put("song.arr", ArrFile());
  AddRecentFile(program.app, folder.Path("song.arr"), true);
  EXPECT_TRUE(program.app.main->mnuRecentFile(0).UserPress());
  EXPECT_TRUE(program.toolkit.dialogs.empty());
  EXPECT_TRUE(program.Boxes().empty());
  EXPECT_EQ(program.Caption(1), "File Arr - song.arr (1) - Read Only");
  EXPECT_EQ(program.app.files.LastArrDirectory, folder.Path());
}

TEST_F(Recent, AFileThatIsGoneShowsTheOpeningErrorAndTheRecordStays) {
  AddRecentFile(program.app, folder.Path("gone.arr"), false);
  const auto before = Captions();
  EXPECT_TRUE(program.app.main->mnuRecentFile(0).UserPress());
  EXPECT_EQ(program.Boxes(), (std::vector<ShownBox>{{48, "Opening gone.arr", "File not found"}}));
  EXPECT_EQ(Captions(), before);
  AddRecentFile(program.app, "/no such folder/gone.arr", false);
  EXPECT_TRUE(program.app.main->mnuRecentFile(1).UserPress());
  EXPECT_EQ(program.Boxes(), (std::vector<ShownBox>{{48, "Opening gone.arr", "Path not found"}}));
}

}  // namespace
}  // namespace zentaline::test
