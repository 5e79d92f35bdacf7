#include <gtest/gtest.h>

#include <sys/stat.h>

#include <filesystem>

#include "core/window_image.h"
#include "files/api.h"
#include "files/paths.h"
#include "tests/support/config.h"
#include "tests/support/program.h"

namespace zentaline::test {
namespace {

using enum MenuId;
using Boxes = std::vector<ShownBox>;

class Opening : public ::testing::Test {
 protected:
  Opening() : program(folder) {
    folder.Put("Zentaline.ini", ConfigFile::English().bytes);
    EXPECT_TRUE(program.Start());
  }

  std::string Path(const std::string& name) const { return folder.Path(name); }
  // Opens through the dialog and gives the boxes that came of it.
  Boxes Open(const std::string& name, int filter = 1, bool read_only = false) {
    program.OpenArr(Path(name), filter, read_only);
    return program.Boxes();
  }
  int OpenWindows() const { return program.app.core.OpenChildCount; }
  std::string RecentText(int i) const {
    const ui::MenuEntry& entry = program.app.main->mnuRecentFile(i);
    return entry.visible() ? entry.caption() : "";
  }
  static Bytes Mark(const std::string& name) { return ArrFile({name}); }
  std::string Row(int number, int row) {
    return static_cast<ui::ListBox*>(program.Arr(number)->Find("List1"))->RowText(row);
  }

  ScratchFolder folder;
  TestProgram program;
};

// --- The dialog ---

TEST_F(Opening, TheDialogIsPresetAndCancellingItShowsNothing) {
  EXPECT_TRUE(program.Press(mnuApriArr));
  ASSERT_EQ(program.toolkit.dialogs.size(), 1u);
  const ui::FileDialogRequest& dialog = program.toolkit.dialogs[0];
  EXPECT_FALSE(dialog.save);
  EXPECT_EQ(dialog.title, "Zentaline - Zentaline Console v 4.0 - Open File");
  EXPECT_EQ(dialog.filter, 1);
  EXPECT_EQ(dialog.directory, "");
  EXPECT_EQ(dialog.name, "");
  EXPECT_TRUE(dialog.shows_read_only);
  EXPECT_FALSE(dialog.read_only);
  EXPECT_EQ(dialog.filters, (std::vector<ui::FileFilter>{{"Arrangements (*.arr)", "*.arr"},
                                                         {"Style (*.sty)", "*.sty"},
                                                         {"Programs (*.prg/pgg)", "*.prg;*.pgg"},
                                                         {"Global (*.gbl)", "*.gbl"},
                                                         {"Backing Sequence (*.bsq)", "*.bsq"},
                                                         {"Programs (*.pcg)", "*.pcg"},
                                                         {" All files (*.*)", "*.*"}}));
  EXPECT_TRUE(program.Boxes().empty());
  EXPECT_EQ(OpenWindows(), 0);
}

TEST_F(Opening, ThePresetsFollowTheKindAndTheLastDirectories) {
  const auto preset = [this](int kind, const std::string& arr, const std::string& prg, const std::string& gbl) {
    program.app.files.LastArrDirectory = arr;
    program.app.files.LastPrgDirectory = prg;
    program.app.files.LastGblDirectory = gbl;
    program.toolkit.dialogs.clear();
    EXPECT_EQ(OpenChooser(program.app, kind), kChooseFailed);
    return program.toolkit.dialogs.empty()
               ? std::string("no dialog")
               : std::to_string(program.toolkit.dialogs[0].filter) + " " + program.toolkit.dialogs[0].directory;
  };
  for (const int kind : {2, 3, 19, 36}) EXPECT_EQ(preset(kind, "/arr", "/prg", "/gbl"), "1 /arr") << kind;
  for (const int kind : {23, 38}) EXPECT_EQ(preset(kind, "/arr", "/prg", "/gbl"), "2 /arr") << kind;
  for (const int kind : {21, 37}) EXPECT_EQ(preset(kind, "/arr", "/prg", "/gbl"), "3 /prg") << kind;
  EXPECT_EQ(preset(25, "/arr", "/prg", "/gbl"), "4 /gbl");
  EXPECT_EQ(preset(26, "/arr", "/prg", "/gbl"), "5 /arr");
  EXPECT_EQ(preset(31, "/arr", "/prg", "/gbl"), "6 /prg");
  EXPECT_EQ(preset(20, "/arr", "/prg", "/gbl").substr(0, 2), "7 ");
  // The other directory where the preferred one isn't set.
  for (const int kind : {19, 23, 26}) EXPECT_EQ(preset(kind, "", "/prg", "/gbl").substr(2), "/prg") << kind;
  for (const int kind : {21, 31}) EXPECT_EQ(preset(kind, "/arr", "", "/gbl").substr(2), "/arr") << kind;
  EXPECT_EQ(preset(25, "/arr", "/prg", "").substr(2), "/arr");
}

TEST_F(Opening, ASuccessfulOpenSetsTheLastDirectoryAndAFailedOneDoesNot) {
  std::filesystem::create_directory(Path("sub"));
  folder.Put("sub/song.arr", Mark("x"));
  folder.Put("bad.arr", "nothing");
  Open("bad.arr");
  EXPECT_EQ(program.app.files.LastArrDirectory, "");
  EXPECT_TRUE(Open("sub/song.arr").empty());
  EXPECT_EQ(program.app.files.LastArrDirectory, Path("sub"));
  EXPECT_EQ(program.app.files.LastArrName, "song");
  program.toolkit.dialogs.clear();
  Open("bad.arr");
  EXPECT_EQ(program.toolkit.dialogs[0].directory, Path("sub"));
  EXPECT_EQ(program.app.files.LastArrDirectory, Path("sub"));
  ASSERT_TRUE(program.Quit());
  ConfigFile file;
  file.bytes = folder.Get("Zentaline.ini");
  std::string expected = Path("sub");
  expected.resize(238, ' ');
  EXPECT_EQ(file.Record(3).substr(0, 238), expected);
}

TEST_F(Opening, TheReadOnlySettingPresetsTheBoxAndTheAnswerMakesTheWindowSo) {
  folder.Put("song.arr", Mark("x"));
  program.Press(mnuRdOnly);
  Open("song.arr", 1, true);
  EXPECT_TRUE(program.toolkit.dialogs[0].read_only);
  EXPECT_EQ(program.Caption(1), "File Arr - song.arr (1) - Read Only");
  EXPECT_EQ(ByteAt(program.Arr(1)->window_image(), 2), 1);
  EXPECT_TRUE(program.app.core.RecentFiles[0].read_only);
  program.Press(mnuChiudi);
  // The record's own flag counts, and not the setting.
  program.Press(mnuRdOnly);
  EXPECT_TRUE(program.app.main->mnuRecentFile(0).UserPress());
  EXPECT_EQ(program.Caption(1), "File Arr - song.arr (1) - Read Only");
}

// --- What becomes of the file ---

TEST_F(Opening, AGoodFileGetsItsWindowWithTheFileAsItIs) {
  folder.Put("song.arr", Mark("Bossa"));
  EXPECT_TRUE(Open("song.arr").empty());
  ASSERT_NE(program.Arr(1), nullptr);
  EXPECT_EQ(program.Caption(1), "File Arr - song.arr (1)");
  const Bytes& image = program.Arr(1)->window_image();
  EXPECT_EQ(ByteAt(image, 1), 19);
  EXPECT_EQ(ByteAt(image, 2), 0);
  EXPECT_EQ(ByteAt(image, 15), 1);
  std::string path = Path("song");
  path.resize(238, ' ');
  EXPECT_EQ(Slice(image, 21, 238), path);
  EXPECT_EQ(Slice(image, 271, 10528), Mark("Bossa"));
  EXPECT_EQ(Row(1, 0), "11  Bossa           ");
  EXPECT_EQ(program.app.core.ArrWindows[1].path, Path("song"));
  EXPECT_EQ(program.app.core.ArrWindows[1].state, 1);
  EXPECT_EQ(folder.Get("song.arr"), Mark("Bossa"));
}

TEST_F(Opening, AnEmptyFileIsRemovedAndNotFound) {
  folder.Put("empty.arr", "");
  EXPECT_EQ(Open("empty.arr"), (Boxes{{48, "empty.arr", "File not found"}}));
  EXPECT_FALSE(std::filesystem::exists(Path("empty.arr")));
  EXPECT_EQ(OpenWindows(), 0);
}

TEST_F(Opening, AnEmptyFileThatCannotBeRemovedIsReported) {
  folder.Put("empty.arr", "");
  program.disk.Fail("remove", "EACCES");
  EXPECT_EQ(Open("empty.arr"), (Boxes{{48, "Opening empty.arr", "Read only file"}}));
  EXPECT_EQ(OpenWindows(), 0);
}

TEST_F(Opening, AFileThatIsNotThereIsNotFoundAndNotMade) {
  EXPECT_EQ(Open("none.arr"), (Boxes{{48, "none.arr", "File not found"}}));
  EXPECT_FALSE(std::filesystem::exists(Path("none.arr")));
}

TEST_F(Opening, AFileThatVanishesBehindTheDialogIsNotFound) {
  folder.Put("song.arr", Mark("x"));
  program.toolkit.before_file_answer = [this] { std::filesystem::remove(Path("song.arr")); };
  EXPECT_EQ(Open("song.arr"), (Boxes{{48, "song.arr", "File not found"}}));
}

TEST_F(Opening, FilesOfAnyOtherLengthOrHeaderAreRefused) {
  const Bytes good = Mark("x");
  std::vector<Bytes> bad;
  for (const std::size_t length : {1u, 6u, 7u, 8u, 31u, 32u, 33u, 196u, 10527u}) bad.push_back(good.substr(0, length));
  bad.push_back(good + '\0');
  bad.push_back(good + good);
  for (const std::size_t offset : {0u, 3u, 4u, 5u, 6u}) {
    bad.push_back(good);
    bad.back()[offset] = static_cast<char>(bad.back()[offset] ^ 1);
  }
  bad.push_back(Bytes(10528, '\xFF'));
  for (const Bytes& file : bad) {
    folder.Put("bad.arr", file);
    EXPECT_EQ(Open("bad.arr"), (Boxes{{48, "Opening bad.arr", "Error reading bad.arr"}})) << file.size();
    EXPECT_EQ(OpenWindows(), 0);
    EXPECT_EQ(folder.Get("bad.arr"), file);
    EXPECT_EQ(RecentText(0), "");
    EXPECT_EQ(program.app.core.ArrWindows[1], WindowRecord());
  }
  // The eighth byte on is not looked at.
  Bytes other = good;
  other[7] = '\x55';
  folder.Put("good.arr", other);
  EXPECT_TRUE(Open("good.arr").empty());
}

TEST_F(Opening, EachFailureOfTheFileSystemHasItsBox) {
  folder.Put("song.arr", Mark("x"));
  const std::pair<const char*, const char*> errors[] = {
      {"EACCES", "Read only file"}, {"EISDIR", "Read only file"},     {"ENOTDIR", "Path not found"},
      {"EIO", "Error I/O device"},  {"EMFILE", "Disk reading error"}, {"ENOSPC", "Disk reading error"},
  };
  for (const auto& [error, text] : errors) {
    program.disk.Fail("read", error);
    EXPECT_EQ(Open("song.arr"), (Boxes{{48, "Opening song.arr", text}})) << error;
    EXPECT_EQ(OpenWindows(), 0);
  }
  EXPECT_EQ(folder.Get("song.arr"), Mark("x"));
  program.disk.Fail("read", "ENOENT");
  EXPECT_EQ(Open("song.arr"), (Boxes{{48, "song.arr", "File not found"}}));
}

TEST_F(Opening, FoldersPipesAndMissingPathsAreToldApart) {
  std::filesystem::create_directory(Path("folder.arr"));
  folder.Put("plain", "text");
  ASSERT_EQ(mkfifo(Path("pipe.arr").c_str(), 0600), 0);
  EXPECT_EQ(Open("folder.arr"), (Boxes{{48, "Opening folder.arr", "Read only file"}}));
  EXPECT_EQ(Open("nowhere/song.arr"), (Boxes{{48, "Opening song.arr", "Path not found"}}));
  EXPECT_EQ(Open("plain/song.arr"), (Boxes{{48, "Opening song.arr", "Path not found"}}));
  EXPECT_EQ(Open("pipe.arr"), (Boxes{{48, "Opening pipe.arr", "Disk reading error"}}));
}

// The box, and then the window that shows it, whichever dialog the file was chosen in.
TEST_F(Opening, AFileThatIsOpenAlreadyComesToTheFront) {
  folder.Put("one.arr", ArrFile());
  folder.Put("two.arr", ArrFile());
  Open("one.arr");
  Open("two.arr");
  ASSERT_EQ(program.toolkit.active_child(), program.Arr(2));
  EXPECT_EQ(Open("one.arr"), (Boxes{{48, "one.arr", "File already open"}}));
  EXPECT_EQ(program.toolkit.active_child(), program.Arr(1));
  EXPECT_EQ(Open("two.arr", 7), (Boxes{{48, "two.arr", "File already open"}}));
  EXPECT_EQ(program.toolkit.active_child(), program.Arr(2));
  EXPECT_EQ(OpenWindows(), 2);
}

TEST_F(Opening, AFileThatIsOpenIsNotOpenedAgain) {
  folder.Put("song.arr", Mark("x"));
  Open("song.arr");
  EXPECT_EQ(Open("song.arr"), (Boxes{{48, "song.arr", "File already open"}}));
  EXPECT_EQ(OpenWindows(), 1);
  EXPECT_TRUE(program.app.main->mnuRecentFile(0).UserPress());
  EXPECT_EQ(program.Boxes(), (Boxes{{48, "song.arr", "File already open"}}));
  program.Press(mnuChiudi);
  EXPECT_TRUE(Open("song.arr").empty());
}

TEST_F(Opening, ANinthFileCannotBeOpenedUntilAWindowIsClosed) {
  for (int i = 1; i <= 9; ++i) folder.Put("song" + std::to_string(i) + ".arr", Mark("x"));
  for (int i = 1; i <= 8; ++i) {
    EXPECT_TRUE(program.Enabled(mnuApriArr));
    EXPECT_TRUE(Open("song" + std::to_string(i) + ".arr").empty());
    EXPECT_EQ(program.Caption(i), "File Arr - song" + std::to_string(i) + ".arr (" + std::to_string(i) + ")");
  }
  EXPECT_FALSE(program.Enabled(mnuApriArr));
  OpenPath(program.app, Path("song9.arr"));
  EXPECT_EQ(OpenWindows(), 8);
  EXPECT_TRUE(program.Boxes().empty());
  program.Arr(5)->UserClose();
  EXPECT_TRUE(program.Enabled(mnuApriArr));
  EXPECT_TRUE(Open("song9.arr").empty());
  EXPECT_EQ(program.Caption(5), "File Arr - song9.arr (5)");
  EXPECT_FALSE(program.Enabled(mnuApriArr));
}

// --- Names ---

TEST_F(Opening, APathOf238BytesWithoutItsExtensionIsTakenAndOneOf239Refused) {
  const std::size_t room = 238 - folder.Path().size() - 1;
  const std::string longest = std::string(room, 'n');
  folder.Put(longest + ".arr", Mark("x"));
  folder.Put(longest + "n.arr", Mark("x"));
  EXPECT_EQ(Path(longest).size(), 238u);
  EXPECT_EQ(Open(longest + "n.arr"), (Boxes{{48, longest + "n.arr", "File name not valid"}}));
  EXPECT_EQ(OpenWindows(), 0);
  EXPECT_TRUE(Open(longest + ".arr").empty());
  EXPECT_EQ(program.app.core.ArrWindows[1].path, Path(longest));
  ASSERT_TRUE(program.Quit());
  TestProgram next(folder);
  ASSERT_TRUE(next.Start());
  EXPECT_EQ(next.Caption(1), "File Arr - " + longest + ".arr (1)");
}

TEST_F(Opening, NamesOfBytesAbove127AreShownAndComeBack) {
  const std::string utf8 = "perch\xC3\xA9 no";
  const std::string bytes = "perch\xE9 s\xEC";
  folder.Put(utf8 + ".arr", Mark("x"));
  folder.Put(bytes + ".arr", Mark("y"));
  EXPECT_TRUE(Open(utf8 + ".arr").empty());
  EXPECT_TRUE(Open(bytes + ".arr").empty());
  EXPECT_EQ(program.Caption(1), "File Arr - perché no.arr (1)");
  EXPECT_EQ(program.Caption(2), "File Arr - perché sì.arr (2)");
  EXPECT_EQ(program.app.core.ArrWindows[2].path, Path(bytes));
  ASSERT_TRUE(program.Quit());
  TestProgram next(folder);
  ASSERT_TRUE(next.Start());
  EXPECT_TRUE(next.Boxes().empty());
  EXPECT_EQ(next.Caption(1), "File Arr - perché no.arr (1)");
  EXPECT_EQ(next.Caption(2), "File Arr - perché sì.arr (2)");
}

TEST_F(Opening, ANameThatEndsInABlankCannotBeKeptAndIsRefused) {
  // Paths are padded with blanks wherever they are stored: it would be taken for the file beside it, and saved over it.
  folder.Put("song.arr", Mark("one"));
  folder.Put("song .arr", Mark("other"));
  EXPECT_EQ(Open("song .arr"), (Boxes{{48, "song .arr", "File name not valid"}}));
  EXPECT_EQ(OpenWindows(), 0);
  EXPECT_TRUE(Open("song.arr").empty());
}

TEST_F(Opening, BlanksAndDotsElsewhereInANameAreKept) {
  for (const char* name : {" song", "my song", "v1.2 final", ".hidden"}) {
    folder.Put(std::string(name) + ".arr", Mark("x"));
    EXPECT_TRUE(Open(std::string(name) + ".arr").empty()) << name;
  }
  ASSERT_TRUE(program.Quit());
  TestProgram next(folder);
  ASSERT_TRUE(next.Start());
  EXPECT_TRUE(next.Boxes().empty());
  EXPECT_EQ(next.Caption(1), "File Arr -  song.arr (1)");
  EXPECT_EQ(next.Caption(3), "File Arr - v1.2 final.arr (3)");
  EXPECT_EQ(next.Caption(4), "File Arr - .hidden.arr (4)");
}

// Disks of the instrument's time have names in capitals.
TEST_F(Opening, AnExtensionInOtherLettersIsFoundAgainAndSoAreItsSiblings) {
  const Bytes styles("KORG\x4D\x00\x04\x01", 8);
  folder.Put("SONG.ARR", Mark("x"));
  folder.Put("SONG.STY", styles + Bytes(216, '\0'));
  folder.Put("Song.Arr", Mark("y"));
  EXPECT_TRUE(Open("SONG.ARR").empty());
  EXPECT_TRUE(Open("Song.Arr").empty());
  EXPECT_EQ(program.Caption(1), "File Arr - SONG.arr (1)");
  EXPECT_EQ(program.Caption(2), "File Arr - Song.arr (2)");
  EXPECT_EQ(ByteAt(program.Arr(1)->window_image(), 9), 2);
  EXPECT_EQ(ByteAt(program.Arr(2)->window_image(), 9), 1);
  program.Arr(1)->UserClose();
  EXPECT_TRUE(program.app.main->mnuRecentFile(0).UserPress());
  EXPECT_TRUE(program.Boxes().empty());
  ASSERT_NE(program.Arr(1), nullptr);
  ASSERT_TRUE(program.Quit());
  TestProgram next(folder);
  ASSERT_TRUE(next.Start());
  ASSERT_NE(next.Arr(1), nullptr);
  ASSERT_NE(next.Arr(2), nullptr);
  // Saved where it came from, not beside it.
  const long count = folder.Count();
  for (const int number : {1, 2}) {
    next.Arr(number)->UserActivate();
    PutByte(ImageFor(*next.Arr(number)), 4, 1);
    PutByte(ImageFor(*next.Arr(number)), 303, 'Z');
    next.app.main->RefreshMenus();
    EXPECT_TRUE(next.Press(mnuSalva));
  }
  EXPECT_EQ(folder.Get("SONG.ARR")[32], 'Z');
  EXPECT_EQ(folder.Get("Song.Arr")[32], 'Z');
  EXPECT_EQ(folder.Count(), count);
}

TEST_F(Opening, AnExtensionInSmallLettersComesFirst) {
  folder.Put("song.ARR", Mark("x"));
  folder.Put("song.arr", Mark("y"));
  EXPECT_TRUE(Open("song.arr").empty());
  EXPECT_EQ(Row(1, 0), "11  y               ");
}

// --- Filters that are left selected ---

TEST_F(Opening, TheFilterThatIsLeftSelectedDecidesWhatIsDone) {
  folder.Put("song.arr", Mark("x"));
  // All files: by the extension.
  EXPECT_TRUE(Open("song.arr", 7).empty());
  EXPECT_EQ(program.Caption(1), "File Arr - song.arr (1)");
  EXPECT_EQ(Open("song.arr", 7), (Boxes{{48, "song.arr", "File already open"}}));
  for (const char* name : {"a.pcg", "a.PCC"}) {
    folder.Put(name, "KORG");
    EXPECT_EQ(Open(name, 7), (Boxes{{48, name, "Data format error"}})) << name;
  }
  // Filters that want their extension.
  folder.Put("b.txt", Mark("x"));
  for (const int filter : {3, 4, 6}) {
    EXPECT_EQ(Open("b.txt", filter), (Boxes{{48, "b.txt", "Data format error"}})) << filter;
  }
  EXPECT_EQ(OpenWindows(), 1);
}

TEST_F(Opening, OtherFormatsAreTestedByTheirOwnHeaders) {
  const Bytes gbl = Bytes("KORG\x4D\x00\x06\x01", 8) + Bytes(440, '\0');
  folder.Put("short.gbl", gbl.substr(0, 447));
  folder.Put("long.gbl", gbl + "x");
  folder.Put("other.gbl", Bytes(448, 'x'));
  for (const char* name : {"short.gbl", "long.gbl", "other.gbl"}) {
    EXPECT_EQ(Open(name, 4), (Boxes{{48, std::string("Opening ") + name, std::string("Error reading ") + name}}));
  }
  folder.Put("other.bsq", "KORG\x4D");
  EXPECT_EQ(Open("other.bsq", 5), (Boxes{{48, "Reading other.bsq", "Error reading other.bsq"}}));
  folder.Put("other.pcg", "KOR");
  EXPECT_EQ(Open("other.pcg", 6), (Boxes{{48, "Opening other.pcg", "Error reading other.pcg"}}));
  folder.Put("good.prg", Bytes("KORG\x4D\x00\x00", 7) + Bytes(30473, '\0'));
  EXPECT_EQ(Open("good.prg", 3), (Boxes{{48, "Opening good.prg", "Error reading good.prg"}}));
  for (const char* name : {"empty.gbl", "empty.bsq", "empty.pcg", "empty.prg"}) folder.Put(name, "");
  EXPECT_EQ(Open("empty.gbl", 4), (Boxes{{48, "empty.gbl", "File not found"}}));
  EXPECT_EQ(Open("empty.bsq", 5), (Boxes{{48, "empty.bsq", "File not found"}}));
  EXPECT_EQ(Open("empty.pcg", 6), (Boxes{{48, "empty.pcg", "File not found"}}));
  EXPECT_EQ(Open("empty.prg", 3), (Boxes{{48, "empty.prg", "File not found"}}));
  EXPECT_EQ(OpenWindows(), 0);
}

// A file of another kind gives success and reads nothing into the caller's buffer: kept as it is.
TEST_F(Opening, AnotherKindLeavesTheWindowToWhatTheBufferHolds) {
  folder.Put("first.arr", Mark("Bossa"));
  folder.Put("text.txt", "text");
  EXPECT_TRUE(Open("text.txt", 7).empty());
  EXPECT_EQ(program.Caption(1), "File Arr - text.arr (1)");
  EXPECT_TRUE(Open("first.arr").empty());
  EXPECT_TRUE(Open("other.gbl.txt", 7).empty());
  EXPECT_EQ(Row(3, 0), "11  Bossa           ");
  EXPECT_EQ(folder.Get("text.txt"), "text");
  EXPECT_FALSE(std::filesystem::exists(Path("other.gbl.txt")));
  // None of them is remembered, since its type is none.
  EXPECT_EQ(RecentText(0), ShortenedPath(Path("first.arr")));
  EXPECT_EQ(RecentText(1), "");
}

// --- Files from outside ---

TEST_F(Opening, FilesThatAreDroppedOrNamedAtStartAreOpened) {
  for (const char* name : {"a.arr", "b.ARR"}) folder.Put(name, Mark("x"));
  folder.Put("text.txt", "x");
  folder.Put("empty.arr", "");
  program.app.main->FilesDropped({Path("a.arr"), Path("text.txt"), Path("b.ARR"), Path("none.arr"), Path("empty.arr"),
                                  Path("a.arr"), "", ".arr", "/"});
  EXPECT_EQ(program.Caption(1), "File Arr - a.arr (1)");
  EXPECT_EQ(program.Caption(2), "File Arr - b.arr (2)");
  EXPECT_EQ(OpenWindows(), 2);
  const Boxes boxes = program.Boxes();
  ASSERT_EQ(boxes.size(), 7u);
  EXPECT_EQ(boxes[0], (ShownBox{48, "text.txt", "Data format error"}));
  EXPECT_EQ(boxes[1], (ShownBox{48, "Opening none.arr", "File not found"}));
  EXPECT_EQ(boxes[2], (ShownBox{48, "Opening empty.arr", "File not found"}));
  EXPECT_EQ(boxes[3], (ShownBox{48, "a.arr", "File already open"}));
}

TEST(OpeningAtStart, FilesNamedAtStartWaitForTheWindowsOfTheLastRun) {
  const ScratchFolder folder;
  folder.Put("last.arr", ArrFile());
  folder.Put("named.arr", ArrFile());
  ConfigFile config = ConfigFile::English();
  config.Entry(6, folder.Path("last"), 1, 0, 0, 480, 360);
  folder.Put("Zentaline.ini", config.bytes);
  TestProgram program(folder);
  ASSERT_TRUE(program.app.Start());
  program.app.main->OpenWhenReady({folder.Path("named.arr")});
  EXPECT_EQ(program.Arr(1), nullptr);
  program.toolkit.RunChain([&program] { return program.app.Starting(); });
  EXPECT_EQ(program.Caption(1), "File Arr - last.arr (1)");
  EXPECT_EQ(program.Caption(2), "File Arr - named.arr (2)");
}

}  // namespace
}  // namespace zentaline::test
