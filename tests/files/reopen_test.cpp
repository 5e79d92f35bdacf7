// The windows of the last run come back.
#include <gtest/gtest.h>

#include <filesystem>

#include "core/window_image.h"
#include "tests/support/config.h"
#include "tests/support/program.h"

namespace zentaline::test {
namespace {

using Boxes = std::vector<ShownBox>;

class Reopening : public ::testing::Test {
 protected:
  ScratchFolder folder;
  ConfigFile config = ConfigFile::English();

  void Song(const std::string& name) const { folder.Put(name + ".arr", ArrFile()); }
  // Entry 1 to 9, with a file of its name.
  void Entry(int entry, const std::string& name, int state = 1, int second = 0) {
    config.Entry(entry == 9 ? 48 : 5 + entry, folder.Path(name), state, 10 * entry, 20 * entry, 400 + entry,
                 300 + entry, 0, second);
  }
  std::unique_ptr<TestProgram> Run() {
    folder.Put("Zentaline.ini", config.bytes);
    auto program = std::make_unique<TestProgram>(folder);
    EXPECT_TRUE(program->Start(0));
    return program;
  }
  static std::vector<std::string> Captions(TestProgram& program) {
    std::vector<std::string> captions;
    for (int number = 1; number <= 9; ++number) captions.push_back(program.Caption(number));
    return captions;
  }
};

TEST_F(Reopening, EntriesMoveToTheLowestFreeSlotsInTheirOrder) {
  for (const char* name : {"b", "d", "h"}) Song(name);
  Entry(2, "b");
  Entry(4, "d", 2);
  Entry(8, "h");
  const auto program = Run();
  EXPECT_TRUE(program->Boxes().empty());
  EXPECT_EQ(Captions(*program), (std::vector<std::string>{"File Arr - b.arr (1)", "File Arr - d.arr (2)",
                                                          "File Arr - h.arr (3)", "", "", "", "", "", ""}));
  EXPECT_EQ(program->Arr(1)->placement(), (ui::Placement{20, 40, 402, 302, ui::WindowState::kNormal}));
  EXPECT_EQ(program->Arr(3)->placement(), (ui::Placement{80, 160, 408, 308, ui::WindowState::kNormal}));
  ASSERT_TRUE(program->Quit());
  ConfigFile after;
  after.bytes = folder.Get("Zentaline.ini");
  ConfigFile expected = ConfigFile::English();
  expected.Entry(6, folder.Path("b"), 1, 20, 40, 402, 302);
  expected.Entry(8, folder.Path("h"), 1, 80, 160, 408, 308);
  for (const int record : {6, 8, 9, 10, 11, 12, 13}) {
    EXPECT_EQ(HexText(after.Record(record)), HexText(expected.Record(record))) << record;
  }
}

TEST_F(Reopening, AFileThatHasGoneLeavesNoWindowNoMessageAndNoEntry) {
  Song("b");
  Entry(1, "gone");
  Entry(2, "b");
  Entry(3, "gone too");
  const auto program = Run();
  EXPECT_TRUE(program->Boxes().empty());
  EXPECT_EQ(program->Caption(1), "File Arr - b.arr (1)");
  EXPECT_EQ(program->app.core.OpenChildCount, 1);
  ASSERT_TRUE(program->Quit());
  ConfigFile after;
  after.bytes = folder.Get("Zentaline.ini");
  for (const int record : {7, 8}) EXPECT_EQ(after.Record(record), std::string(250, '\0'));
}

TEST_F(Reopening, ADamagedFileIsReportedAndTheOthersComeBack) {
  folder.Put("a.arr", std::string(10528, 'x'));
  folder.Put("c.arr", "short");
  folder.Put("e.arr", "");
  Song("b");
  Entry(1, "a");
  Entry(2, "b");
  Entry(3, "c");
  Entry(4, "e");
  const auto program = Run();
  EXPECT_EQ(program->Boxes(),
            (Boxes{{48, "Opening a.arr", "Error reading a.arr"}, {48, "Opening c.arr", "Error reading c.arr"}}));
  EXPECT_EQ(program->Caption(1), "File Arr - b.arr (1)");
  EXPECT_EQ(program->app.core.OpenChildCount, 1);
}

TEST_F(Reopening, TheInstrumentsOwnWindowKeepsItsNumber) {
  Song("user");
  Entry(9, "user");
  const auto program = Run();
  EXPECT_EQ(program->Caption(9), "Arr User - user.arr");
  EXPECT_EQ(program->Arr(1), nullptr);
  EXPECT_FALSE(program->Enabled(MenuId::mnuArrU));
  EXPECT_EQ(program->app.main->Menu(MenuId::mnuArrU).caption(), "Arrangement User (user.arr)");
  // Slot 1 is still free for a file.
  Song("song");
  program->OpenArr(folder.Path("song.arr"));
  EXPECT_EQ(program->Caption(1), "File Arr - song.arr (1)");
}

TEST_F(Reopening, NineWindowsComeBackAndTheOpenEntryIsOff) {
  std::vector<std::string> expected;
  for (int entry = 1; entry <= 9; ++entry) {
    const std::string name = "song" + std::to_string(entry);
    Song(name);
    Entry(entry, name);
    expected.push_back(entry == 9 ? "Arr User - song9.arr"
                                  : "File Arr - " + name + ".arr (" + std::to_string(entry) + ")");
  }
  const auto program = Run();
  EXPECT_EQ(Captions(*program), expected);
  EXPECT_FALSE(program->Enabled(MenuId::mnuApriArr));
  EXPECT_EQ(program->app.core.OpenChildCount, 9);
  ASSERT_TRUE(program->Quit());
  ConfigFile after;
  after.bytes = folder.Get("Zentaline.ini");
  for (const int record : {6, 7, 8, 9, 10, 11, 12, 13, 48}) {
    EXPECT_EQ(HexText(after.Record(record)), HexText(config.Record(record))) << record;
  }
}

TEST_F(Reopening, AReadOnlyWindowComesBackReadOnly) {
  Song("song");
  {
    const auto program = Run();
    program->OpenArr(folder.Path("song.arr"), 1, true);
    ASSERT_TRUE(program->Quit());
  }
  TestProgram next(folder);
  ASSERT_TRUE(next.Start(0));
  EXPECT_EQ(next.Caption(1), "File Arr - song.arr (1) - Read Only");
}

TEST_F(Reopening, AMaximisedWindowComesBackMaximisedAndCanBeRestored) {
  Song("song");
  {
    const auto program = Run();
    program->OpenArr(folder.Path("song.arr"));
    ui::Form& window = *program->Arr(1);
    program->toolkit.UserPlaces(window, {50, 60, 410, 310, ui::WindowState::kNormal});
    program->toolkit.UserPlaces(window, {0, 0, 1024, 768, ui::WindowState::kMaximised});
    ASSERT_TRUE(program->Quit());
  }
  ConfigFile after;
  after.bytes = folder.Get("Zentaline.ini");
  ConfigFile expected;
  expected.Entry(6, folder.Path("song"), 2, 50, 60, 410, 310, 2);
  EXPECT_EQ(HexText(after.Record(6)), HexText(expected.Record(6)));
  TestProgram next(folder);
  ASSERT_TRUE(next.Start(0));
  EXPECT_EQ(next.Arr(1)->placement().state, ui::WindowState::kMaximised);
}

TEST_F(Reopening, AWindowThatWasClosedDoesNotComeBack) {
  Song("song");
  {
    const auto program = Run();
    program->OpenArr(folder.Path("song.arr"));
    program->Press(MenuId::mnuChiudi);
    ASSERT_TRUE(program->Quit());
  }
  TestProgram next(folder);
  ASSERT_TRUE(next.Start(0));
  EXPECT_EQ(next.app.core.OpenChildCount, 0);
  EXPECT_TRUE(next.Enabled(MenuId::mnuApriArr));
}

TEST_F(Reopening, WhileItRunsTheStateSaysSoAndTheDatabaseIsLeftAlone) {
  Song("song");
  Entry(1, "song");
  config.Byte(1, 26, 1);
  folder.Put("Zentaline.ini", config.bytes);
  TestProgram program(folder);
  ASSERT_TRUE(program.app.Start());
  EXPECT_TRUE(program.app.Starting());
  program.toolkit.RunChain([&program] { return program.app.Starting(); });
  EXPECT_FALSE(program.app.Starting());
  EXPECT_FALSE(program.app.core.ReopeningFiles);
  EXPECT_NE(program.Arr(1), nullptr);
  EXPECT_FALSE(std::filesystem::exists(folder.Path("i40DBArr")));
}

}  // namespace
}  // namespace zentaline::test
