// mnuImporta: from the source in the dialog to the windows, and all that can go wrong between them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "files/import_format.h"
#include "style/sty_format.h"
#include "tests/program/prg_desk.h"
#include "tests/style/style_desk.h"
#include "tests/support/config.h"

namespace zentaline::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Boxes = std::vector<ShownBox>;

std::string Noise(unsigned seed, std::size_t length) {
  std::mt19937 random(seed);
  return RandomBytes(random, length);
}

std::string I30Arr() {
  return "KORG" + Hand({0x49, 5, 3}) + Noise(1, 21017);
}
std::string I30Prg() {
  // No record begins with the mark of a link.
  std::string file = "KORG" + Hand({0x49, 5, 0}) + Noise(2, 30473);
  for (std::size_t i = 0; i < 128; ++i) file[48 + 172 * i] = 'P';
  return file;
}
std::string OldArr() {
  return "KORG" + Hand({0x39, 1, 3, 0}) + Noise(3, 9048);
}
std::string OldPrg() {
  std::string file = "KORG" + Noise(4, 15000);
  for (std::size_t i = 0; i < 64; ++i) file[3431 + 164 * i] = 'O';
  return file;
}
// Forty-eight styles of 20 bytes each, "S0" to "S47".
std::string I30Sty() {
  std::string file = "KORG" + Hand({0x49, 5, 4, 0}) + Zeros(216);
  for (std::size_t e = 0; e < 48; ++e) {
    file[24 + 4 * e] = 20;
    file += Field("S" + std::to_string(e), 16) + "data";
  }
  return file;
}
// Part n of it, 0 to 2.
std::string StyPart(int n) {
  std::string file = "KORG" + Hand({0x4D, 0, 4, 1}) + Zeros(12) + Hand({0, 0x1E}) + Zeros(202);
  for (std::size_t e = 0; e < 16; ++e) {
    file[24 + 4 * e] = 20;
    file += Field("S" + std::to_string(16 * static_cast<std::size_t>(n) + e), 16) + "data";
  }
  return file;
}

class Importing : public ::testing::Test {
 protected:
  // Answers the dialog with a file of the folder.
  Boxes Import(const std::string& entry, const std::string& name, int filter, bool read_only = false) {
    desk_.program.Boxes();
    desk_.program.toolkit.files.push_back({false, desk_.folder.Path(name), filter, read_only});
    EXPECT_TRUE(desk_.Press(entry));
    desk_.program.toolkit.files.clear();
    return desk_.program.Boxes();
  }
  Boxes ImportBytes(const std::string& entry, const std::string& name, int filter, const std::string& bytes) {
    desk_.Put(name, bytes);
    return Import(entry, name, filter);
  }
  ChildWindow* Arr(int number) { return desk_.program.Arr(number); }
  ChildWindow* Prg(int number) { return desk_.Prg(number); }
  ChildWindow* Sty(int number) { return desk_.program.app.sty_windows[static_cast<std::size_t>(number)]; }
  std::string ArrBytesOf(int number) { return Arr(number)->window_image().substr(270, 10528); }
  std::string PrgBytesOf(int number) { return Prg(number)->window_image().substr(270, 30480); }
  bool Can(const std::string& entry) { return desk_.Find<ui::MenuEntry>(entry)->Usable(); }
  int Recent() {
    int count = 0;
    for (const RecentFile& recent : desk_.program.app.core.RecentFiles) count += recent.type == 0 ? 0 : 1;
    return count;
  }
  long Windows() { return desk_.program.app.core.OpenChildCount; }

  PrgDesk desk_;
};

// --- What comes of the sources ---

TEST_F(Importing, I30ArrangementsFillTwoWindowsThatWereNeverSaved) {
  const long files = desk_.folder.Count();
  EXPECT_THAT(ImportBytes("mnuImportaArri30", "Song.arr", 1, I30Arr()), IsEmpty());
  EXPECT_EQ(desk_.folder.Count(), files + 1);
  EXPECT_EQ(desk_.folder.Get("Song.arr"), I30Arr());
  ASSERT_EQ(Windows(), 2);
  const std::vector<Bytes> expected = ArrFilesOfI30(I30Arr());
  for (int number = 1; number <= 2; ++number) {
    EXPECT_EQ(Arr(number)->caption(), "File Arr - Song.arr (" + std::to_string(number) + ")");
    EXPECT_EQ(ArrBytesOf(number), expected[static_cast<std::size_t>(number - 1)]);
    const std::pair<std::size_t, int> control[] = {{1, 19}, {2, 0}, {4, 1}, {9, 0}, {11, 1}, {15, number}};
    for (const auto& [position, value] : control) EXPECT_EQ(desk_.Byte(number, position), value) << position;
  }
  EXPECT_EQ(Recent(), 0);
  EXPECT_EQ(desk_.program.app.files.LastArrDirectory, desk_.folder.Path());
}

// The source's neighbours are of the earlier instrument too.
TEST_F(Importing, TheSourcesSiblingsAreLeftAlone) {
  desk_.Put("Song.sty", I30Sty());
  desk_.Put("Song.prg", I30Prg());
  EXPECT_THAT(ImportBytes("mnuImportaArri30", "Song.arr", 1, I30Arr()), IsEmpty());
  EXPECT_EQ(desk_.Byte(1, 6), 0);
  EXPECT_EQ(desk_.Byte(1, 9), 0);
}

TEST_F(Importing, I30ProgramsFillTwoWindows) {
  EXPECT_THAT(ImportBytes("mnuImportaPrgi30", "Band.prg", 3, I30Prg()), IsEmpty());
  ASSERT_EQ(Windows(), 2);
  const std::vector<Bytes> expected = PrgFilesOfI30(I30Prg());
  for (int number = 1; number <= 2; ++number) {
    EXPECT_EQ(desk_.Caption(number).substr(0, 23), "File Prg - Band.prg (" + std::to_string(number) + ")");
    EXPECT_EQ(PrgBytesOf(number), expected[static_cast<std::size_t>(number - 1)]);
    const std::pair<std::size_t, int> control[] = {{1, 21}, {6, 2}, {7, 1}, {11, 3}, {15, number}, {18, 0}, {19, 0}};
    for (const auto& [position, value] : control) EXPECT_EQ(desk_.Control(number, position), value) << position;
  }
}

TEST_F(Importing, OldArrangementsFillOneWindow) {
  EXPECT_THAT(ImportBytes("mnuImportaArri5", "Old.arr", 1, OldArr()), IsEmpty());
  ASSERT_EQ(Windows(), 1);
  EXPECT_EQ(ArrBytesOf(1), ArrFileOfOld(OldArr()));
  EXPECT_EQ(desk_.Byte(1, 4), 1);
  EXPECT_EQ(desk_.Byte(1, 11), 1);
}

TEST_F(Importing, OldProgramsFillOneWindowWithWhatTheTemplateHasBesides) {
  const std::string bank = Bank();
  desk_.Put("i40Prg", bank);
  EXPECT_THAT(ImportBytes("mnuImportaPcgi5", "Old.pcg", 6, OldPrg()), IsEmpty());
  ASSERT_EQ(Windows(), 1);
  EXPECT_EQ(PrgBytesOf(1), PrgFileOfOld(OldPrg(), bank));
  EXPECT_EQ(desk_.Control(1, 7), 1);
  EXPECT_EQ(desk_.Control(1, 11), 6);
  EXPECT_EQ(desk_.program.toolkit.dialogs.back().filter, 6);
}

TEST_F(Importing, WithoutATemplateOldProgramsCantBeMadeWhole) {
  EXPECT_THAT(ImportBytes("mnuImportaPcgi5", "Old.pcg", 6, OldPrg()),
              ElementsAre(ShownBox{48, "Opening i40Prg", "File i40Prg not found"}));
  desk_.Put("i40Prg", "no bank");
  EXPECT_THAT(Import("mnuImportaPcgi5", "Old.pcg", 6),
              ElementsAre(ShownBox{48, "Opening i40Prg", "Data format error"}));
  EXPECT_EQ(Windows(), 0);
}

TEST_F(Importing, I30StylesAreWrittenInThreeFilesAndOpened) {
  desk_.Put("Song-2.sty", "what stood there before");
  desk_.Log();
  EXPECT_THAT(ImportBytes("mnuImportaStyi30", "Song.sty", 2, I30Sty()), IsEmpty());
  for (int n = 0; n < 3; ++n) {
    const std::string name = "Song-" + std::to_string(n + 1);
    EXPECT_EQ(desk_.folder.Get(name + ".sty"), StyPart(n));
    ASSERT_NE(Sty(n + 1), nullptr);
    EXPECT_EQ(Sty(n + 1)->caption(), "File Sty - " + name + ".sty (" + std::to_string(n + 1) + ")");
    EXPECT_EQ(Sty(n + 1)->window_image().substr(669), StyPart(n));
    EXPECT_EQ(At(Sty(n + 1)->window_image(), 11), 0);
  }
  const std::vector<std::string> log = desk_.Log();
  EXPECT_EQ(log.front(), "wait 0 \"Processing file sty i30\"");
  EXPECT_EQ(log.back(), "wait 0 \"\"");
  EXPECT_EQ(desk_.folder.Get("Song.sty"), I30Sty());
}

// --- Saving ---

TEST_F(Importing, SavingAsksForANameAndLeavesTheSourceAlone) {
  ImportBytes("mnuImportaArri30", "Song.arr", 1, I30Arr());
  EXPECT_TRUE(desk_.Press("mnuSalva"));
  EXPECT_TRUE(desk_.program.toolkit.dialogs.back().save);
  EXPECT_EQ(desk_.program.toolkit.dialogs.back().name, desk_.folder.Path("Song.arr"));
  EXPECT_EQ(desk_.folder.Get("Song.arr"), I30Arr());
  desk_.program.toolkit.files.push_back({false, desk_.folder.Path("Second.arr"), 1, false});
  EXPECT_TRUE(desk_.Press("mnuSalva"));
  EXPECT_EQ(desk_.folder.Get("Second.arr"), ArrFilesOfI30(I30Arr())[1]);
  EXPECT_EQ(Arr(2)->caption(), "File Arr - Second.arr (2)");
  EXPECT_EQ(desk_.Byte(2, 4), 0);
  EXPECT_EQ(desk_.Byte(2, 11), 0);
  EXPECT_EQ(Recent(), 1);
}

// The other window of the same source has no file that would be open.
TEST_F(Importing, OneOfTheTwoCanTakeTheNameOfTheSource) {
  ImportBytes("mnuImportaPrgi30", "Band.prg", 3, I30Prg());
  desk_.program.toolkit.files.push_back({false, desk_.folder.Path("Band.prg"), 3, false});
  EXPECT_TRUE(desk_.Press("mnuSalva"));
  EXPECT_THAT(desk_.program.Boxes(), IsEmpty());
  EXPECT_EQ(desk_.folder.Get("Band.prg"), PrgFilesOfI30(I30Prg())[1]);
  desk_.program.toolkit.Activate(*Prg(1));
  desk_.program.toolkit.files.push_back({false, desk_.folder.Path("Band.prg"), 3, false});
  EXPECT_TRUE(desk_.Press("mnuSalva"));
  EXPECT_THAT(desk_.program.Boxes(), ElementsAre(ShownBox{48, "Band.prg", "File already open"}));
}

// The path is the source's, which the instrument's own window couldn't read; what was never saved stays out of the
// configuration.
TEST_F(Importing, WhatHasNoFileLeavesTheInstrumentsEntriesAsTheyAre) {
  CoreState& core = desk_.program.app.core;
  desk_.Put("Own.arr", ArrBytes({{"Mine", 0, false, {}}}));
  desk_.Put("Own.prg", PrgFile());
  desk_.Open("Own.arr");
  desk_.Press("frmArrU(1).CommLoadArr");
  desk_.Wait(5000);
  desk_.Press("frmArrU(1).CommShowPrg");
  desk_.Press("frmPrgUN(1).CommLoad");
  desk_.Wait(5000);
  ASSERT_EQ(core.ArrWindows[9].path, desk_.folder.Path("Own"));
  ASSERT_EQ(core.PrgWindows[9].path, desk_.folder.Path("Own"));

  ImportBytes("mnuImportaArri30", "Song.arr", 1, I30Arr());
  ASSERT_TRUE(desk_.Press("frmArrU(2).CommLoadArr"));
  desk_.Wait(5000);
  EXPECT_EQ(desk_.Text("LabelArr"), "Song");
  EXPECT_EQ(core.ArrWindows[9].path, desk_.folder.Path("Own"));
  ImportBytes("mnuImportaPrgi30", "Song.prg", 3, I30Prg());
  ASSERT_TRUE(desk_.Press("frmPrgUN(2).CommLoad"));
  desk_.Wait(5000);
  EXPECT_EQ(desk_.Text("LabelPrg"), "Song.prg");
  EXPECT_EQ(core.PrgWindows[9].path, desk_.folder.Path("Own"));
  EXPECT_THAT(desk_.program.Boxes(), IsEmpty());
  // Under a name of its own it goes there.
  desk_.program.toolkit.files.push_back({false, desk_.folder.Path("Named.arr"), 1, false});
  desk_.program.toolkit.FindForm("frmArrU(2)")->UserActivate();
  desk_.Press("mnuSalvaAs");
  desk_.Press("frmArrU(2).CommLoadArr");
  desk_.Wait(5000);
  EXPECT_EQ(core.ArrWindows[9].path, desk_.folder.Path("Named"));
}

TEST_F(Importing, WhatWasNeverSavedComesNeitherBackNorAmongTheRecentFiles) {
  ImportBytes("mnuImportaArri30", "Song.arr", 1, I30Arr());
  ImportBytes("mnuImportaPrgi30", "Band.prg", 3, I30Prg());
  desk_.program.toolkit.answers.assign(1, ui::BoxAnswer::kNo);
  Arr(1)->UserClose();
  desk_.program.toolkit.answers.assign(1, ui::BoxAnswer::kNo);
  Prg(1)->UserClose();
  EXPECT_EQ(Recent(), 0);
  desk_.program.toolkit.answers.assign(2, ui::BoxAnswer::kNo);
  ASSERT_TRUE(desk_.program.Quit());
  ConfigFile stored;
  stored.bytes = desk_.folder.Get("Zentaline.ini");
  for (const int record : {6, 7, 14, 15}) EXPECT_EQ(stored.Record(record), Zeros(250)) << record;
}

// --- What is refused ---

struct Source {
  const char* entry;
  const char* name;
  int filter;
  std::string (*bytes)();
  std::vector<std::size_t> wrong_lengths;
};
const Source kSources[] = {
    {"mnuImportaArri30", "Song.arr", 1, I30Arr, {1, 7, 32, 10528, 21023}},
    {"mnuImportaPrgi30", "Song.prg", 3, I30Prg, {1, 7, 48, 11056, 30479}},
    {"mnuImportaArri5", "Song.arr", 1, OldArr, {1, 8, 672, 803, 9055}},
    {"mnuImportaPcgi5", "Song.pcg", 6, OldPrg, {1, 4, 3431, 13927, 14254}},
    {"mnuImportaStyi30", "Song.sty", 2, I30Sty, {1, 4, 7}},
};

class WrongSources : public Importing, public ::testing::WithParamInterface<Source> {};

TEST_P(WrongSources, AreToldOfByTheirNamesAndOpenNothing) {
  const Source& source = GetParam();
  const std::string name = source.name;
  const Boxes box = {{48, "Opening " + name, "Error reading " + name}};
  const std::string right = source.bytes();
  for (const std::size_t length : source.wrong_lengths) {
    EXPECT_EQ(ImportBytes(source.entry, name, source.filter, right.substr(0, length)), box) << length;
  }
  EXPECT_EQ(ImportBytes(source.entry, name, source.filter, Noise(9, right.size())), box);
  EXPECT_EQ(ImportBytes(source.entry, name, source.filter, std::string((1 << 24) + 1, 'K')), box);
  // This instrument's own files aren't the earlier ones'.
  const std::string own = std::string(source.name).ends_with("arr") ? ArrBytes({})
                          : name.ends_with("prg")                   ? Bank()
                                                                    : StyBytes(1);
  if (!name.ends_with("pcg")) {
    EXPECT_EQ(ImportBytes(source.entry, name, source.filter, own), box);
  }
  if (!name.ends_with("pcg") && !name.ends_with("sty")) {
    EXPECT_EQ(ImportBytes(source.entry, name, source.filter, right + "x"), box);
  }
  EXPECT_EQ(Windows(), 0);
}

TEST_P(WrongSources, ThatAreEmptyAbsentOrUnreadableOpenNothing) {
  const Source& source = GetParam();
  const std::string name = source.name;
  const Boxes absent = {{48, name, "File not found"}};
  EXPECT_EQ(ImportBytes(source.entry, name, source.filter, ""), absent);
  EXPECT_FALSE(desk_.program.disk.Exists(desk_.folder.Path(name)));
  EXPECT_EQ(Import(source.entry, name, source.filter), absent);
  desk_.Put(name, source.bytes());
  desk_.program.disk.Fail("read", "EIO");
  EXPECT_EQ(Import(source.entry, name, source.filter), (Boxes{{48, "Opening " + name, "Error I/O device"}}));
  EXPECT_THAT(Import(source.entry, "", source.filter), ::testing::_);
  EXPECT_EQ(Windows(), 0);
}

TEST_P(WrongSources, ACancelledDialogDoesNothing) {
  EXPECT_TRUE(desk_.Press(GetParam().entry));
  EXPECT_THAT(desk_.program.Boxes(), IsEmpty());
  EXPECT_EQ(Windows(), 0);
  // The dialog of an ordinary file is none of an import's.
  desk_.Press("mnuApriPrg");
  EXPECT_EQ(desk_.program.toolkit.dialogs.back().filter, 3);
}

INSTANTIATE_TEST_SUITE_P(Entries, WrongSources, ::testing::ValuesIn(kSources),
                         [](const auto& each) { return std::string(each.param.entry); });

TEST_F(Importing, ASourceThatIsOpenIsNotImportedAgain) {
  ImportBytes("mnuImportaArri30", "Song.arr", 1, I30Arr());
  EXPECT_THAT(Import("mnuImportaArri30", "Song.arr", 1), ElementsAre(ShownBox{48, "Song.arr", "File already open"}));
  EXPECT_EQ(Windows(), 2);
}

TEST_F(Importing, AnotherFilterThatReadsSomethingElseOpensNothing) {
  desk_.Put("Song.gbl", "KORG" + Hand({0x4D, 0, 6, 1}) + Zeros(440));
  desk_.Put("Song.prg", I30Prg());
  desk_.Put("Own.prg", Bank());
  desk_.Put("Song.txt", "text");
  ImportBytes("mnuImportaArri30", "First.arr", 1, I30Arr());
  desk_.program.toolkit.answers.assign(2, ui::BoxAnswer::kNo);
  Arr(1)->UserClose();
  Arr(2)->UserClose();
  for (const char* entry : {"mnuImportaArri30", "mnuImportaArri5"}) {
    for (const auto& [name, filter] : {std::pair("Song.gbl", 4), {"Song.prg", 3}, {"Song.txt", 7}, {"Song.txt", 2}}) {
      EXPECT_THAT(Import(entry, name, filter), IsEmpty()) << entry << " " << name;
      EXPECT_EQ(Windows(), 0) << entry << " " << name;
    }
  }
  EXPECT_THAT(Import("mnuImportaPcgi5", "Own.prg", 3), IsEmpty());
  EXPECT_THAT(Import("mnuImportaPrgi30", "Song.txt", 1), IsEmpty());
  EXPECT_EQ(Windows(), 0);
}

TEST_F(Importing, UnderAllFilesAnArrangementIsKnownByItsExtension) {
  EXPECT_THAT(ImportBytes("mnuImportaArri30", "Song.ARR", 7, I30Arr()), IsEmpty());
  EXPECT_EQ(Windows(), 2);
}

TEST_F(Importing, AReadOnlyAnswerMakesReadOnlyWindowsThatCanBeSavedUnderAnotherName) {
  desk_.Put("Song.arr", I30Arr());
  Import("mnuImportaArri30", "Song.arr", 1, true);
  EXPECT_EQ(Arr(1)->caption(), "File Arr - Song.arr (1) - Read Only");
  EXPECT_FALSE(Can("mnuSalva"));
  EXPECT_TRUE(Can("mnuSalvaAs"));
}

// --- Slots ---

TEST_F(Importing, EntriesAreOffWithoutRoomForTheirWindows) {
  for (int i = 1; i <= 7; ++i) {
    const std::string name = "File" + std::to_string(i);
    desk_.Put(name + ".arr", ArrBytes({}));
    desk_.Open(name + ".arr");
    desk_.Put(name + ".prg", Bank());
    desk_.OpenPrg(name + ".prg");
    if (i == 6) {
      EXPECT_TRUE(Can("mnuImportaArri30"));
      EXPECT_TRUE(Can("mnuImportaPrgi30"));
    }
  }
  EXPECT_FALSE(Can("mnuImportaArri30"));
  EXPECT_FALSE(Can("mnuImportaPrgi30"));
  EXPECT_TRUE(Can("mnuImportaArri5"));
  EXPECT_TRUE(Can("mnuImportaPcgi5"));
  EXPECT_TRUE(Can("mnuImportaStyi30"));
  ImportBytes("mnuImportaArri5", "Old.arr", 1, OldArr());
  EXPECT_FALSE(Can("mnuImportaArri5"));
  EXPECT_FALSE(Can("mnuApriArr"));
  desk_.program.toolkit.answers.assign(1, ui::BoxAnswer::kNo);
  Arr(8)->UserClose();
  EXPECT_TRUE(Can("mnuImportaArri5"));
  Arr(7)->UserClose();
  EXPECT_TRUE(Can("mnuImportaArri30"));
}

TEST_F(Importing, StylesWithoutRoomStayOnTheDisk) {
  for (int i = 1; i <= 6; ++i) {
    const std::string name = "File" + std::to_string(i) + ".sty";
    desk_.Put(name, StyBytes(1));
    desk_.program.toolkit.files.push_back({false, desk_.folder.Path(name), 2, false});
    desk_.Press("mnuApriSty");
  }
  EXPECT_THAT(ImportBytes("mnuImportaStyi30", "Song.sty", 2, I30Sty()), IsEmpty());
  EXPECT_EQ(Sty(8)->BaseName(), "Song-2");
  EXPECT_EQ(desk_.folder.Get("Song-3.sty"), StyPart(2));
  EXPECT_FALSE(Can("mnuImportaStyi30"));
}

// --- Styles on a disk that fails ---

TEST_F(Importing, StylesAreRefusedWhileOneOfTheThreeFilesIsOpen) {
  desk_.Put("Song-3.sty", StyBytes(1));
  desk_.program.toolkit.files.push_back({false, desk_.folder.Path("Song-3.sty"), 2, false});
  desk_.Press("mnuApriSty");
  EXPECT_THAT(ImportBytes("mnuImportaStyi30", "Song.sty", 2, I30Sty()),
              ElementsAre(ShownBox{48, "Song-3.sty", "File already open"}));
  EXPECT_FALSE(desk_.program.disk.Exists(desk_.folder.Path("Song-1.sty")));
  EXPECT_EQ(desk_.folder.Get("Song-3.sty"), StyBytes(1));
}

TEST_F(Importing, AFullDiskLeavesNoHalfFileAndTheBoxSaysWhich) {
  desk_.Put("Song.sty", I30Sty());
  for (int failing = 1; failing <= 3; ++failing) {
    for (int n = 1; n <= 3; ++n) desk_.Put("Song-" + std::to_string(n) + ".sty", "old");
    desk_.program.disk.Fail("write", "ENOSPC", 1, failing - 1);
    const std::string name = "Song-" + std::to_string(failing) + ".sty";
    EXPECT_THAT(Import("mnuImportaStyi30", "Song.sty", 2), ElementsAre(ShownBox{48, "Opening " + name, "Disk full"}));
    for (int n = 1; n <= 3; ++n) {
      const std::string part = desk_.folder.Get("Song-" + std::to_string(n) + ".sty");
      EXPECT_EQ(part, n < failing ? StyPart(n - 1) : "old") << failing << " " << n;
    }
    EXPECT_EQ(Windows(), 0);
  }
  EXPECT_EQ(desk_.Text("Label1"), "");
}

// Part n of a source of which nothing is known but its header: what it lacks is zero, and the three go on one behind
// the other in its data.
std::string AnyStyPart(const std::string& source, std::size_t n) {
  const auto sum = [&source](std::size_t part) {
    std::size_t bytes = 0;
    for (std::size_t e = 16 * part; e < 16 * part + 16; ++e) {
      const std::size_t at = 24 + 4 * e;
      const auto byte = [&source](std::size_t i) {
        return i < source.size() ? static_cast<unsigned char>(source[i]) : 0U;
      };
      bytes += byte(at) + 256U * byte(at + 1);
    }
    return bytes / 4 * 4;
  };
  std::size_t begin = 224;
  for (std::size_t part = 0; part < n; ++part) begin += sum(part);
  const std::string whole = source + Zeros(begin + sum(n) + 300);
  return "KORG" + Hand({0x4D, 0, 4, 1}) + Zeros(12) + Hand({0, 0x1E}) + whole.substr(22 + 64 * n, 64) + Zeros(138) +
         whole.substr(begin, sum(n));
}

TEST_F(Importing, StylesCutAnywhereOrOfNoiseBehindTheirHeaderGiveThreeFilesAllTheSame) {
  std::vector<std::string> sources;
  for (const std::size_t length : {8,   9,   20,  21,  22,  23,  24,  25,  26,  85,  86,  87,  88,  151, 152, 214,
                                   215, 216, 223, 224, 225, 239, 240, 243, 244, 543, 544, 545, 863, 864, 865, 1183}) {
    sources.push_back(I30Sty().substr(0, length));
  }
  sources.push_back(I30Sty() + "more");
  for (unsigned seed = 1; seed <= 4; ++seed) sources.push_back(I30Sty().substr(0, 8) + Noise(seed, 300 + 20000 * seed));
  for (const std::string& source : sources) {
    SCOPED_TRACE(std::to_string(source.size()));
    EXPECT_THAT(ImportBytes("mnuImportaStyi30", "Song.sty", 2, source), IsEmpty());
    for (std::size_t n = 0; n < 3; ++n) {
      const std::string name = "Song-" + std::to_string(n + 1);
      EXPECT_TRUE(desk_.folder.Get(name + ".sty") == AnyStyPart(source, n)) << name;
      ChildWindow* window = Sty(static_cast<int>(n) + 1);
      ASSERT_NE(window, nullptr) << name;
      EXPECT_TRUE(window->window_image().substr(669, 224) == AnyStyPart(source, n).substr(0, 224)) << name;
      window->UserClose();
    }
    EXPECT_EQ(desk_.folder.Get("Song.sty"), source);
  }
}

TEST_F(Importing, AFailedReadOfAStyleFileEndsTheWork) {
  desk_.Put("Song.sty", I30Sty());
  // The source is read, then each of the three.
  desk_.program.disk.Fail("read", "EIO", 1, 2);
  EXPECT_THAT(Import("mnuImportaStyi30", "Song.sty", 2),
              ElementsAre(ShownBox{48, "Opening Song-2.sty", "Error I/O device"}));
  EXPECT_EQ(Windows(), 1);
  EXPECT_EQ(desk_.Text("Label1"), "");
}

TEST_F(Importing, APathWithoutRoomForTheNumbersIsRefused) {
  // 238 bytes without the extension are what can be kept.
  const std::string name(238 - desk_.folder.Path().size() - 1 - 1, 's');
  EXPECT_THAT(ImportBytes("mnuImportaStyi30", name + ".sty", 2, I30Sty()),
              ElementsAre(ShownBox{48, name + "-1.sty", "File name not valid"}));
  EXPECT_FALSE(desk_.program.disk.Exists(desk_.folder.Path(name + "-1.sty")));
}

// --- A window that came about by the last filter ---

TEST_F(Importing, AWindowOnWhatTheBufferHeldIsSavedOnlyUnderAName) {
  desk_.Put("Good.arr", ArrBytes({{.name = "Waltz"}}));
  desk_.Open("Good.arr");
  desk_.Put("Song.txt", "text");
  desk_.Put("Song.arr", "a good file that must stay");
  desk_.program.OpenArr(desk_.folder.Path("Song.txt"), 7);
  ASSERT_NE(Arr(2), nullptr);
  EXPECT_EQ(desk_.Byte(2, 11), 5);
  EXPECT_EQ(desk_.Byte(1, 11), 0);
  Set(ImageFor(*Arr(2)), 4, 1);
  Arr(2)->Activated();
  desk_.program.toolkit.files.push_back({false, desk_.folder.Path("New.arr"), 1, false});
  EXPECT_TRUE(desk_.Press("mnuSalva"));
  EXPECT_EQ(desk_.folder.Get("Song.arr"), "a good file that must stay");
  EXPECT_EQ(desk_.folder.Get("New.arr"), ArrBytes({{.name = "Waltz"}}));
}

}  // namespace
}  // namespace zentaline::test
