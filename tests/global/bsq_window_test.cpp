#include <gtest/gtest.h>

#include <filesystem>
#include <random>

#include "tests/arrangement/arr_desk.h"
#include "tests/global/bsq_builder.h"
#include "tests/support/config.h"
#include "ui/picture.h"

namespace zentaline::test {
namespace {

using Lines = std::vector<std::string>;
using Boxes = std::vector<ShownBox>;

class BackSequences : public ::testing::Test, public ArrDesk {
 protected:
  BackSequences() {
    BsqEvents events;
    events[0] = {3, 4, 5, 100, 0, 0, 0, 0, 1, 2, 3, 4, 5, 6, 7, 8, 2};
    events[7] = {0, 9};
    file = BsqFile(events);
    Put("Set.bsq", file);
  }

  void OpenBsq(const std::string& name, bool read_only = false) {
    program.toolkit.files.push_back({false, folder.Path(name), 5, read_only});
    Press("mnuApriBSQ");
    program.toolkit.files.clear();
  }
  ChildWindow* Window() { return program.app.bsq_window; }
  bool Choose(int row) { return Find<ui::ListBox>("frmBsq.List1")->UserSelect({row}); }
  std::string Sum(int n) { return Text("frmBsq.Label3(" + std::to_string(n) + ")"); }
  // What stands beside the tracks, from the top: ATr, CTRL, CHRD, ETr1 to ETr8, Tempo.
  Lines Counts() {
    Lines counts;
    for (int i = 0; i < 3; ++i) counts.push_back(Text("frmBsq.Label2(" + std::to_string(i) + ")"));
    for (int i = 0; i < 8; ++i) counts.push_back(Text("frmBsq.Label4(" + std::to_string(i) + ")"));
    counts.push_back(Text("frmBsq.Label2(3)"));
    return counts;
  }

  // Of each sequence the name, the sum and what its tracks have, by the bytes of the file alone.
  void ExpectShown(const std::string& bytes) {
    constexpr int kShown[] = {1, 2, 3, 9, 10, 11, 12, 13, 14, 15, 16, 17};
    const Lines names = Rows("frmBsq.List1");
    ASSERT_EQ(names.size(), 10U);
    for (int n = 0; n < 10; ++n) {
      const auto start = static_cast<std::size_t>(16 + 198 * n);
      std::string name = start < bytes.size() ? bytes.substr(start, 10) : std::string();
      name = name.substr(0, name.find('\0'));
      EXPECT_EQ(names[static_cast<std::size_t>(n)], Field(name, 10));
      int sum = 0;
      for (int track = 1; track <= 17; ++track) sum += CountedByHand(bytes, n, track);
      EXPECT_EQ(Sum(n), std::to_string(sum)) << n;
      ASSERT_TRUE(Choose(n));
      Lines counts;
      for (const int track : kShown) counts.push_back(std::to_string(CountedByHand(bytes, n, track)));
      EXPECT_EQ(Counts(), counts) << n;
    }
  }

  std::string file;
};

TEST_F(BackSequences, TheWindowListsTheTenNamesWithTheirSums) {
  OpenBsq("Set.bsq");
  ASSERT_NE(Window(), nullptr);
  EXPECT_EQ(Window()->caption(), "File Bsq - Set.bsq (1)");
  EXPECT_EQ(Rows("frmBsq.List1"), (Lines{"Song 0    ", "Song 1    ", "Song 2    ", "Song 3    ", "Song 4    ",
                                         "Song 5    ", "Song 6    ", "Song 7    ", "Song 8    ", "Song 9    "}));
  EXPECT_EQ(Sum(0), "150") << "all 17 tracks, those too that are not shown";
  EXPECT_EQ(Sum(1), "0");
  EXPECT_EQ(Sum(7), "9");
  EXPECT_EQ(Counts(), Lines(12));
  EXPECT_TRUE(program.Boxes().empty());
}

TEST_F(BackSequences, AClickShowsTheEventsOfEachTrack) {
  OpenBsq("Set.bsq");
  ASSERT_TRUE(Choose(0));
  EXPECT_EQ(Counts(), (Lines{"3", "4", "5", "1", "2", "3", "4", "5", "6", "7", "8", "2"}));
  ASSERT_TRUE(Choose(7));
  EXPECT_EQ(Counts(), (Lines{"0", "9", "0", "0", "0", "0", "0", "0", "0", "0", "0", "0"}));
  ASSERT_TRUE(Choose(3));
  EXPECT_EQ(Counts(), Lines(12, "0"));
  const Lines captions = {"ATr:", "CTRL:", "CHRD:", "Tempo:"};
  for (int i = 0; i < 4; ++i) EXPECT_EQ(Text("frmBsq.Lab2(" + std::to_string(i) + ")"), captions[i]);
  for (int i = 0; i < 8; ++i) {
    EXPECT_EQ(Text("frmBsq.Lab4(" + std::to_string(i) + ")"), "ETr" + std::to_string(i + 1) + ":");
  }
  EXPECT_EQ(Wire(), Lines()) << "looking sends nothing";
}

// Where the bar of each track ends, in thousandths of the picture; -1 without one.
std::vector<double> BarEnds(const ui::Drawing& drawing) {
  std::vector<double> ends(12, -1);
  EXPECT_EQ(drawing.size, (ui::Point{1000, 12}));
  for (const ui::Shape& shape : drawing.shapes) {
    EXPECT_EQ(shape.kind, ui::Shape::Kind::kArea);
    EXPECT_EQ(shape.points.size(), 4u);
    EXPECT_EQ(shape.points[0].x, 0);
    const int row = static_cast<int>(shape.points[0].y);
    if (shape.ink == ui::Ink::kPaper) continue;
    EXPECT_GT(shape.points[0].y, row);
    EXPECT_LT(shape.points[2].y, row + 1) << "each bar stays in its row";
    ends[static_cast<std::size_t>(row)] = shape.points[2].x;
  }
  return ends;
}

TEST_F(BackSequences, ABarBesideEachCountIsAsLongInProportionToTheGreatest) {
  OpenBsq("Set.bsq");
  auto* picture = Find<ui::Picture>("frmBsq.EventsPicture");
  ASSERT_NE(picture, nullptr);
  EXPECT_EQ(BarEnds(picture->drawing()), std::vector<double>(12, -1));
  Choose(0);
  EXPECT_EQ(BarEnds(picture->drawing()),
            (std::vector<double>{375, 500, 625, 125, 250, 375, 500, 625, 750, 875, 1000, 250}));
  Choose(7);
  std::vector<double> one(12, -1);
  one[1] = 1000;
  EXPECT_EQ(BarEnds(picture->drawing()), one) << "no bar where there are no events";
  Choose(1);
  EXPECT_EQ(BarEnds(picture->drawing()), std::vector<double>(12, -1));
  EXPECT_EQ(picture->handles(), 0);
}

TEST_F(BackSequences, TheImageIsControlBytesPathAndFile) {
  Set(file, 6, 77);
  Put("Set.bsq", file);
  OpenBsq("Set.bsq", true);
  Set(file, 6, 0);
  const Bytes& image = Window()->window_image();
  EXPECT_EQ(At(image, 1), 26);
  EXPECT_EQ(At(image, 2), 1);
  EXPECT_EQ(At(image, 15), 1);
  EXPECT_EQ(image.substr(20, 238), Field(folder.Path("Set"), 238));
  EXPECT_EQ(image.substr(270), file) << "with zero for byte 6";
  EXPECT_EQ(program.app.global.BsqBuffer, file);
  EXPECT_EQ(Window()->caption(), "File Bsq - Set.bsq (1) - Read Only");
}

TEST_F(BackSequences, SendingWaitsUntilItsTextIsSeen) {
  OpenBsq("Set.bsq");
  Log();
  ASSERT_TRUE(Press("frmBsq.CommLoadBSQ"));
  EXPECT_EQ(Log(), (Lines{"wait 0 \"Loading Back. Seq.\""}));
  Wait(10);
  EXPECT_EQ(Log(), Lines());
  Wait(1);
  const std::size_t payload = file.size() - 16;
  const std::size_t packed = payload + (payload + 6) / 7;
  EXPECT_EQ(Log(), (Lines{"11 dump 66 " + std::to_string(packed + 8), "wait 11 \"\""}));
  ASSERT_EQ(dumps.size(), 1u);
  EXPECT_EQ(DumpPayload(dumps[0], 7), file.substr(16));
  const std::size_t blocks = (payload - 2322) / 16;
  EXPECT_EQ(At(dumps[0], 6), static_cast<int>(blocks & 0x7F));
  Wait(1000);
  EXPECT_EQ(Wire(), Lines());
}

// It isn't held off, and nothing is sent twice.
TEST_F(BackSequences, ASecondPressWithinTheElevenMillisecondsSendsAtOnce) {
  OpenBsq("Set.bsq");
  Log();
  Press("frmBsq.CommLoadBSQ");
  Wait(5);
  Log();
  Press("frmBsq.CommLoadBSQ");
  const Lines log = Log();
  ASSERT_EQ(log.size(), 2u);
  EXPECT_EQ(log[0].substr(0, 10), "5 dump 66 ");
  EXPECT_EQ(log[1], "wait 5 \"\"");
  Wait(100);
  EXPECT_EQ(Log(), Lines());
  EXPECT_EQ(Find<ui::Timer>("frmBsq.TimerLoadBSQ")->interval(), 10);
}

TEST_F(BackSequences, ClosingWhileTheTextIsShownTakesItAway) {
  OpenBsq("Set.bsq");
  Press("frmBsq.CommLoadBSQ");
  Log();
  Press("frmBsq.CommClose");
  EXPECT_EQ(Log(), (Lines{"wait 0 \"\"", "close 0 frmBsq"}));
  Wait(100);
  EXPECT_EQ(Wire(), Lines());
}

TEST_F(BackSequences, WithoutAnOutputTheTextComesAndGoes) {
  OpenBsq("Set.bsq");
  Press("mnuDevMIDIOut(0)");
  Log();
  Press("frmBsq.CommLoadBSQ");
  Wait(11);
  EXPECT_EQ(Log(), (Lines{"wait 0 \"Loading Back. Seq.\"", "wait 11 \"\""}));
}

TEST_F(BackSequences, APortThatFailsIsToldOnce) {
  OpenBsq("Set.bsq");
  program.midi.Fail("midiOutLongMsg", 11, 0);
  Press("frmBsq.CommLoadBSQ");
  Wait(11);
  EXPECT_EQ(program.Boxes().size(), 1u);
  Press("frmBsq.CommLoadBSQ");
  Wait(11);
  EXPECT_TRUE(program.Boxes().empty());
  EXPECT_EQ(Text("Label1"), "");
}

TEST_F(BackSequences, TheModeButtonsSendTheirModes) {
  OpenBsq("Set.bsq");
  Log();
  for (const char* button : {"CommBSQ", "CommArrPlay", "CommSongPlay"}) {
    ASSERT_TRUE(Press(std::string("frmBsq.") + button));
    EXPECT_TRUE(Find<ui::ListBox>("frmBsq.List1")->HasFocus());
  }
  EXPECT_EQ(Wire(), (Lines{"0 mode 0B", "0 mode 0A", "0 mode 06"}));
}

// --- Opening and closing ---

TEST_F(BackSequences, ThereIsOneWindowAtATime) {
  Put("Other.bsq", file);
  EXPECT_TRUE(Enabled("mnuApriBSQ"));
  OpenBsq("Set.bsq");
  EXPECT_FALSE(Enabled("mnuApriBSQ"));
  Press("mnuChiudi");
  EXPECT_EQ(Window(), nullptr);
  EXPECT_TRUE(Enabled("mnuApriBSQ"));
  OpenBsq("Other.bsq");
  EXPECT_EQ(Window()->caption(), "File Bsq - Other.bsq (1)");
}

TEST_F(BackSequences, ClosingAsksNothingAndTheMenusOfferNothingToSave) {
  OpenBsq("Set.bsq");
  for (const char* entry : {"mnuSalva", "mnuSalvaAs", "mnuIngrandisci", "mnuLoadArr", "mnuEdit"}) {
    EXPECT_FALSE(Enabled(entry)) << entry;
  }
  EXPECT_TRUE(Enabled("mnuChiudi"));
  EXPECT_TRUE(Press("mnuChiudi"));
  EXPECT_TRUE(program.Boxes().empty());
  EXPECT_EQ(folder.Get("Set.bsq"), file);
}

TEST_F(BackSequences, TheFileIsAmongTheRecentOnesAndOpensFromThere) {
  OpenBsq("Set.bsq", true);
  const RecentFile& recent = program.app.core.RecentFiles[0];
  EXPECT_EQ(recent.path, folder.Path("Set"));
  EXPECT_EQ(recent.type, 6);
  EXPECT_TRUE(recent.read_only);
  EXPECT_TRUE(Press("mnuRecentFile(0)"));
  EXPECT_EQ(program.Boxes(), (Boxes{{48, "Set.bsq", "File already open"}}));
  Press("frmBsq.CommClose");
  EXPECT_TRUE(Press("mnuRecentFile(0)"));
  ASSERT_NE(Window(), nullptr);
  EXPECT_TRUE(Window()->ReadOnly());
  Press("frmBsq.CommClose");
  std::filesystem::remove(folder.Path("Set.bsq"));
  EXPECT_TRUE(Press("mnuRecentFile(0)"));
  EXPECT_EQ(program.Boxes(), (Boxes{{48, "Reading Set.bsq", "File not found"}}));
  EXPECT_EQ(Window(), nullptr);
  EXPECT_EQ(program.app.core.RecentFiles[0].type, 6);
}

TEST_F(BackSequences, TheDialogBeginsWhereArrangementsLie) {
  OpenBsq("Set.bsq");
  const ui::FileDialogRequest& dialog = program.toolkit.dialogs.back();
  EXPECT_EQ(dialog.filter, 5);
  EXPECT_EQ(program.app.files.LastArrDirectory, folder.Path());
  EXPECT_EQ(program.app.files.LastArrName, "Set");
  Press("frmBsq.CommClose");
  Press("mnuApriBSQ");
  EXPECT_EQ(program.toolkit.dialogs.back().directory, folder.Path());
}

TEST_F(BackSequences, AWrongSignatureIsToldWhileTheWaitTextNamesTheFile) {
  Put("Bad.bsq", Field("KORG", 4) + Hand({0x4D, 0, 4}) + Zeros(3000));
  Log();
  OpenBsq("Bad.bsq");
  const Lines log = Log();
  ASSERT_EQ(log.size(), 3u);
  EXPECT_EQ(log[0], "wait 0 \"Opening Bad.bsq\"");
  EXPECT_EQ(log[1], "box 0 48 \"Reading Bad.bsq\" \"Error reading Bad.bsq\"");
  EXPECT_EQ(log[2], "wait 0 \"\"");
  EXPECT_EQ(Window(), nullptr);
  EXPECT_TRUE(Enabled("mnuApriBSQ"));
}

TEST_F(BackSequences, AnEmptyFileIsRemovedAndCountsAsNotFound) {
  Put("Empty.bsq", "");
  OpenBsq("Empty.bsq");
  EXPECT_EQ(program.Boxes(), (Boxes{{48, "Empty.bsq", "File not found"}}));
  EXPECT_FALSE(std::filesystem::exists(folder.Path("Empty.bsq")));
  EXPECT_EQ(Window(), nullptr);
}

TEST_F(BackSequences, AFailureOfTheDiskIsToldAndNothingOpens) {
  program.disk.Fail("read", "EIO");
  OpenBsq("Set.bsq");
  EXPECT_EQ(program.Boxes(), (Boxes{{48, "Reading Set.bsq", "Error I/O device"}}));
  EXPECT_EQ(Window(), nullptr);
  OpenBsq("Set.bsq");
  EXPECT_NE(Window(), nullptr);
}

TEST_F(BackSequences, FilesOfEveryLengthOpenFromTheSignatureOn) {
  for (std::size_t length = 1; length < 7; ++length) {
    Put("Short.bsq", file.substr(0, length));
    OpenBsq("Short.bsq");
    EXPECT_EQ(program.Boxes(), (Boxes{{48, "Reading Short.bsq", "Error reading Short.bsq"}})) << length;
    ASSERT_EQ(Window(), nullptr) << length;
  }
  std::vector<std::size_t> lengths = {1996, 1997, 2030, 2338, 2339, 2340};
  for (std::size_t length = 7; length <= file.size(); length += length < 60 ? 1 : 31) lengths.push_back(length);
  for (const std::size_t length : lengths) {
    Put("Short.bsq", file.substr(0, length));
    OpenBsq("Short.bsq");
    ASSERT_NE(Window(), nullptr) << length;
    for (int row = 0; row < 10; ++row) ASSERT_TRUE(Choose(row));
    Press("frmBsq.CommLoadBSQ");
    Wait(11);
    ASSERT_TRUE(Press("frmBsq.CommClose"));
  }
  EXPECT_TRUE(program.Boxes().empty());
}

// At every length up to past the table and the events: names, counts, sums and bars are what the bytes that are left
// say, and what is sent is the file as it is.
TEST_F(BackSequences, CutAtEveryLengthTheWindowShowsWhatIsLeft) {
  BsqEvents events;
  events[0] = {3, 4, 5, 9};
  events[7] = {0, 9, 0, 0, 0, 0, 0, 0, 1};
  events[9] = {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 6};
  const std::string whole = BsqFile(events);
  for (std::size_t length = 7; length <= whole.size(); ++length) {
    SCOPED_TRACE(length);
    // Inside of the names nothing but a name changes.
    if (length > 240 && length < 1960 && length % 198 > 30) continue;
    const std::string cut = whole.substr(0, length);
    Put("Short.bsq", cut);
    OpenBsq("Short.bsq");
    ASSERT_NE(Window(), nullptr);
    ExpectShown(cut);
    if (HasFailure()) return;
    if (length % 50 == 0) {
      Press("frmBsq.CommLoadBSQ");
      Wait(11);
      Log();
      ASSERT_EQ(dumps.size(), 1U);
      EXPECT_EQ(DumpPayload(dumps[0], 7), cut.substr(16));
      dumps.clear();
    }
    ASSERT_TRUE(Press("frmBsq.CommClose"));
    Log();
  }
  EXPECT_TRUE(program.Boxes().empty());
}

// Words that point anywhere, in front of the file and behind it, backwards and over each other.
TEST_F(BackSequences, WordsThatPointAnywhereAreShownAndNothingElseIsTouched) {
  std::mt19937 random(34);
  for (int round = 0; round < 60; ++round) {
    SCOPED_TRACE(round);
    std::string wild = BsqFile({std::vector<int>{12, 7, 30}, std::vector<int>{5}}, RandomNumber(random, 0, 400));
    for (int word = RandomNumber(random, 1, 171); word > 0; --word) {
      const auto place = static_cast<std::size_t>(1997 + 2 * RandomNumber(random, 0, 170));
      constexpr int kEdges[] = {0, 1, 0x7F, 0x80, 0x7FFF, 0x8000, 0xFFFE, 0xFFFF};
      SetWord(wild, place, round % 3 == 0 ? kEdges[RandomNumber(random, 0, 7)] : RandomNumber(random, 0, round * 20));
    }
    Put("Wild.bsq", wild);
    OpenBsq("Wild.bsq");
    ASSERT_NE(Window(), nullptr);
    ExpectShown(wild);
    if (HasFailure()) return;
    EXPECT_EQ(Window()->window_image().substr(270), wild);
    EXPECT_EQ(Wire(), Lines());
    EXPECT_EQ(folder.Get("Wild.bsq"), wild);
    Press("frmBsq.CommClose");
  }
}

TEST_F(BackSequences, ALongFileIsReadUpToThreeRecordsAndKeepsItsLength) {
  const std::string start = BsqHeader();
  Put("Long.bsq", start + std::string(100000 - start.size(), 'x'));
  OpenBsq("Long.bsq");
  ASSERT_NE(Window(), nullptr);
  EXPECT_EQ(Window()->window_image().substr(270), start + std::string(96600 - start.size(), 'x') + Zeros(3400));
  Press("frmBsq.CommClose");
  Put("Huge.bsq", start + Zeros((1 << 24) - start.size() + 1));
  OpenBsq("Huge.bsq");
  EXPECT_EQ(program.Boxes(), (Boxes{{48, "Reading Huge.bsq", "Error reading Huge.bsq"}}));
  EXPECT_EQ(Window(), nullptr);
}

TEST_F(BackSequences, RandomFilesAreShownAndNotChanged) {
  std::mt19937 random(52);
  for (int round = 0; round < 20; ++round) {
    std::string bytes = BsqHeader() + RandomBytes(random, static_cast<std::size_t>(RandomNumber(random, 0, 20000)));
    Put("Random.bsq", bytes);
    OpenBsq("Random.bsq");
    ASSERT_NE(Window(), nullptr);
    const Bytes before = Window()->window_image();
    for (int row = 0; row < 10; ++row) ASSERT_TRUE(Choose(row));
    EXPECT_EQ(Window()->window_image(), before);
    EXPECT_EQ(Wire(), Lines());
    Press("frmBsq.CommClose");
  }
}

// It keeps its place as long as the program runs; at the next start it is not there.
TEST_F(BackSequences, TheWindowKeepsItsPlaceForTheRunAndDoesNotComeBack) {
  OpenBsq("Set.bsq");
  Window()->UserPlace({40, 50, 600, 400, ui::WindowState::kNormal}, {590, 380});
  Press("frmBsq.CommClose");
  OpenBsq("Set.bsq");
  EXPECT_EQ(Window()->placement(), (ui::Placement{40, 50, 600, 400, ui::WindowState::kNormal}));
  ASSERT_TRUE(program.Quit());
  TestProgram next(folder);
  next.Start();
  EXPECT_EQ(next.app.bsq_window, nullptr);
}

TEST_F(BackSequences, EachControlTellsWhatItIsInBothLanguages) {
  for (const int language : {1, 2}) {
    ScratchFolder other;
    other.Put("Set.bsq", file);
    ConfigFile config = ConfigFile::English();
    config.Byte(1, 25, language);
    other.Put("Zentaline.ini", config.bytes);
    TestProgram run(other);
    run.Start();
    run.toolkit.files.push_back({false, other.Path("Set.bsq"), 5, false});
    ASSERT_TRUE(run.Press(MenuId::mnuApriBSQ));
    for (const ui::Control* control : run.app.bsq_window->controls()) {
      if (control->kind() == ui::ControlKind::kTimer) continue;
      EXPECT_NE(control->tool_tip(), "") << control->FullName() << " language " << language;
    }
  }
}

}  // namespace
}  // namespace zentaline::test
