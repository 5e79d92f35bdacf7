// Cut, Copy and Paste between the windows: what can be used when, what is shown afterwards, and what the boxes tell.
#include <gtest/gtest.h>

#include "core/edits.h"
#include "files/clipboard_format.h"
#include "tests/files/item_builder.h"
#include "tests/files/item_desk.h"

namespace zentaline {
namespace {

using namespace test;

using Rows = std::vector<int>;
using Texts = std::vector<std::string>;
using Boxes = std::vector<ShownBox>;

class ClipboardTest : public testing::Test {
 protected:
  ItemDesk desk;
};

// Three arrangements, the second and third with styles of the file.
std::string Song() {
  return ArrBytes({{"Plain", 0, false, {}}, {"With Two", 1, true, {}}, {"With One", 0, true, {}}});
}
std::string SongStyles() {
  return StyImage(
      {{"Style One", 100, '1'}, {"Style Two", 200, '2'}, {"Style Three", 300, '3'}, {"Style Four", 400, '4'}});
}

class TwoSongs : public ClipboardTest {
 protected:
  TwoSongs() {
    desk.Put("From.arr", Song());
    desk.Put("From.sty", SongStyles());
    desk.Put("To.arr", ArrBytes({{"Old", 70, false, {}}}));
    desk.Open("From.arr");
    desk.Open("To.arr");
    desk.Log();
  }

  // Copies rows of the first window and brings the second one to the front.
  void Copy(const Rows& rows) {
    desk.SelectRows("frmArrU(1)", rows);
    ASSERT_TRUE(desk.Press("mnuCopia"));
    desk.Front("frmArrU(2)");
  }
  ChildWindow& from() { return *desk.program.Arr(1); }
  ChildWindow& to() { return *desk.program.Arr(2); }
};

// --- What can be used when ---

TEST_F(TwoSongs, CopyAndCutNeedARowThatShowsAnItem) {
  EXPECT_EQ(desk.Entries("frmArrU(1)"), "");
  desk.SelectRows("frmArrU(1)", {0});
  EXPECT_EQ(desk.Entries(), "cut copy");
  desk.SelectRows("frmArrU(1)", {40});
  EXPECT_EQ(desk.Entries(), "");
  desk.SelectRows("frmArrU(1)", {2, 40});
  EXPECT_EQ(desk.Entries(), "cut copy");
  desk.SelectRows("frmArrU(1)", {});
  EXPECT_EQ(desk.Entries(), "");
}

TEST_F(TwoSongs, PasteNeedsOnlyAFittingClipboardAndTarget) {
  Copy({0});
  EXPECT_EQ(desk.Entries("frmArrU(2)"), "paste");
  desk.SelectRows("frmArrU(2)", {33});
  EXPECT_EQ(desk.Entries(), "paste");
  EXPECT_EQ(desk.Entries("frmArrU(1)"), "cut copy paste");
}

TEST_F(TwoSongs, AReadOnlyWindowGivesOnly) {
  desk.Put("Locked.arr", Song());
  desk.Open("Locked.arr", true);
  Copy({0});
  desk.SelectRows("frmArrU(3)", {0});
  EXPECT_EQ(desk.Entries(), "copy");
  EXPECT_EQ(desk.Entries("frmArrU(2)"), "paste");
  // The setting makes all of them so.
  desk.Press("mnuRdOnly");
  EXPECT_EQ(desk.Entries("frmArrU(2)"), "");
  EXPECT_EQ(desk.Entries("frmArrU(1)"), "copy");
}

TEST_F(ClipboardTest, EveryKindGivesAndTakesItsOwn) {
  desk.Put("Song.arr", Song());
  desk.Put("Bank.prg", PrgFile());
  desk.Put("Song.sty", SongStyles());
  desk.Open("Song.arr");
  desk.OpenPrg("Bank.prg");
  desk.OpenSty("Song.sty");
  desk.Press("mnuNuovoSty");
  desk.Press("mnuWProgB");
  desk.Press("mnuPerc");
  desk.Press("mnuStyA");
  const Texts forms = {"frmArrU(1)",  "frmPrgUN(1)", "frmStyUN(1)", "frmStyUN(n1)",
                       "frmPcgAE(5)", "frmDrum(10)", "frmStyAB(17)"};
  for (const std::string& form : forms) desk.SelectRows(form, {0});
  // By what was copied last: what each window of `forms` can do.
  const std::pair<std::string, Texts> cases[] = {
      {"frmArrU(1)", {"cut copy paste", "cut copy", "cut copy", "", "copy", "copy", ""}},
      {"frmPrgUN(1)", {"cut copy", "cut copy paste", "cut copy", "", "copy", "copy", ""}},
      {"frmPcgAE(5)", {"cut copy", "cut copy paste", "cut copy", "", "copy", "copy", ""}},
      {"frmDrum(10)", {"cut copy", "cut copy paste", "cut copy", "", "copy", "copy", ""}},
      {"frmStyUN(1)", {"cut copy", "cut copy", "cut copy paste", "paste", "copy", "copy", ""}},
  };
  for (const auto& [copied, expected] : cases) {
    desk.Front(copied);
    ASSERT_TRUE(desk.Press("mnuCopia")) << copied;
    for (std::size_t i = 0; i < forms.size(); ++i)
      EXPECT_EQ(desk.Entries(forms[i]), expected[i]) << copied << " " << forms[i];
  }
}

TEST_F(ClipboardTest, StylesOnGapsAndEmptyStylesAreNoItems) {
  desk.Put("Song.sty", StyImage({{"One", 30}, {"- empty -", 40}, {"Three", 50}, {"Four", 60}, {"Five", 70}}));
  desk.OpenSty("Song.sty");
  const std::pair<Rows, std::string> cases[] = {{{0}, "cut copy"}, {{1}, ""}, {{4}, ""},  {{5}, "cut copy"},
                                                {{6}, ""},         {{9}, ""}, {{14}, ""}, {{1, 5}, "cut copy"}};
  for (const auto& [rows, entries] : cases) {
    desk.SelectRows("frmStyUN(1)", rows);
    EXPECT_EQ(desk.Entries(), entries) << rows.front();
  }
}

TEST_F(ClipboardTest, AClickOnAnEmptyProgramRowRefreshesTheMenusToo) {
  std::string file = PrgFile();
  file.replace(48 + 172, 172, Zeros(172));
  desk.Put("Bank.prg", file);
  desk.OpenPrg("Bank.prg");
  desk.SelectRows("frmPrgUN(1)", {0});
  EXPECT_EQ(desk.Entries(), "cut copy");
  desk.SelectRows("frmPrgUN(1)", {1});
  EXPECT_EQ(desk.Entries(), "");
}

// --- Copy ---

TEST_F(TwoSongs, ACopyKeepsTheWholeImageWithItsMarks) {
  desk.SelectRows("frmArrU(1)", {0, 2});
  desk.Log();
  desk.Press("mnuCopia");
  const Bytes& kept = desk.program.app.files.ItemClipboard;
  EXPECT_EQ(kept, from().window_image());
  const std::string table = kept.substr(10798, 1344);
  EXPECT_EQ(table.substr(0, 84), "\x01" + Field("11  Plain", 20) + Zeros(1) + Field("12 +With Two", 20) + "\x01" +
                                     Field("13 +With One", 20) + Zeros(1) + Field("14", 20));
  // Nothing counts as changed, and there is nothing to take back.
  EXPECT_EQ(At(from().window_image(), 4), 0);
  EXPECT_TRUE(desk.program.app.edits.actions().empty());
  EXPECT_EQ(desk.Log(), Texts{});
}

TEST_F(ClipboardTest, ADrumKitsMarksStandAtTheImagesEnd) {
  desk.Press("mnuDrum");
  desk.SelectRows("frmDrum(9)", {15});
  desk.Press("mnuCopia");
  const Bytes& kept = desk.program.app.files.ItemClipboard;
  EXPECT_EQ(kept.size(), 1874U);
  EXPECT_EQ(At(kept, 531 + 21 * 15), 1);
  EXPECT_EQ(kept.substr(531 + 21 * 15, 4), "28  ");
}

TEST_F(ClipboardTest, ABanksTitleSurvivesACopy) {
  desk.Press("mnuWProgA");
  const std::string before = desk.CaptionOf("frmPcgAE(4)");
  desk.SelectRows("frmPcgAE(4)", {63});
  desk.Press("mnuCopia");
  desk.Channel("frmPcgAE(4)", 2);
  EXPECT_EQ(desk.CaptionOf("frmPcgAE(4)"), before.substr(0, before.size() - 1) + "3");
}

// --- Paste of arrangements ---

TEST_F(TwoSongs, APasteShowsItsRowsAndTheStylesAndSendsNothing) {
  Copy({0, 1, 2});
  desk.SelectRows("frmArrU(2)", {1});
  desk.Log();
  ASSERT_TRUE(desk.Press("mnuIncolla"));
  EXPECT_EQ(desk.Log(), Texts{});
  EXPECT_EQ(desk.List(2).RowText(0), Field("11  Old", 20));
  EXPECT_EQ(desk.List(2).RowText(1), Field("12  Plain", 20));
  EXPECT_EQ(desk.List(2).RowText(2), Field("13 +With Two", 20));
  EXPECT_EQ(desk.List(2).RowText(3), Field("14 +With One", 20));
  EXPECT_EQ(desk.List(2).RowText(4), "15");
  EXPECT_EQ(desk.List(2).SelectedRows(), Rows{1});
  EXPECT_EQ(desk.List(2).focus_row(), 1);
  EXPECT_TRUE(desk.Enabled("frmArrU(2).CommLoadArr"));
  EXPECT_TRUE(desk.Enabled("frmArrU(2).CommLoadSty"));
  // The user's styles first, then the factory ones.
  const Texts styles = desk.Rows("frmArrU(2).Combo1");
  ASSERT_EQ(styles.size(), 6U);
  EXPECT_EQ(styles[0], "Style Two (U11)");
  EXPECT_EQ(styles[1], "Style One (U12)");
  EXPECT_EQ(styles[2], "- empty - (U13)");
  EXPECT_EQ(styles[3], "- empty - (U14)");
  EXPECT_NE(styles[4].find("(B17)"), std::string::npos);
  EXPECT_NE(styles[5].find("(A11)"), std::string::npos);
  EXPECT_EQ(
      to().window_image().substr(42622),
      StyImage({{"Style Two", 200, '2'}, {"Style One", 100, '1'}, {"- empty -", 1176, 0}, {"- empty -", 1176, 0}}));
  EXPECT_TRUE(desk.Enabled("mnuSalva"));
}

TEST_F(TwoSongs, APasteIsOneActionAndACutAnother) {
  const auto& actions = desk.program.app.edits.actions();
  const Bytes before = to().window_image();
  Copy({0, 1, 2});
  desk.SelectRows("frmArrU(2)", {1});
  desk.Press("mnuIncolla");
  ASSERT_EQ(actions.size(), 1U);
  EXPECT_EQ(actions[0].words.what, "Paste");
  EXPECT_EQ(actions[0].words.of, "Arrangements");
  desk.Press("mnuTaglia");
  ASSERT_EQ(actions.size(), 2U);
  EXPECT_EQ(actions[1].words.what, "Cut");
  desk.program.app.edits.StepBack();
  desk.program.app.edits.StepBack();
  EXPECT_EQ(to().window_image().substr(0, 10798), before.substr(0, 10798));
  EXPECT_EQ(to().window_image().substr(12142), before.substr(12142));
}

TEST_F(TwoSongs, PlainRowsEnableLoadingTheFileAlone) {
  desk.Put("Empty.arr", ArrBytes({}));
  desk.Open("Empty.arr");
  EXPECT_FALSE(desk.Enabled("frmArrU(3).CommLoadArr"));
  Copy({0});
  desk.Front("frmArrU(3)");
  desk.Press("mnuIncolla");
  EXPECT_EQ(desk.List(3).RowText(0), Field("11  Plain", 20));
  EXPECT_TRUE(desk.Enabled("frmArrU(3).CommLoadArr"));
  EXPECT_FALSE(desk.Enabled("frmArrU(3).CommLoadSty"));
}

TEST_F(TwoSongs, WhatWasPastedIsSavedWithItsStyles) {
  Copy({1});
  desk.Press("mnuIncolla");
  desk.Press("mnuSalva");
  const std::string arr = desk.folder.Get("To.arr");
  EXPECT_EQ(arr.substr(32, 16), Field("With Two", 16));
  EXPECT_EQ(At(arr, 32 + 18), 0);
  EXPECT_EQ(At(arr, 32 + 19), 1);
  EXPECT_EQ(desk.folder.Get("To.sty").substr(224, 200), "Style Two" + Blanks(7) + std::string(184, '2'));
}

TEST_F(TwoSongs, TheSourceMayBeGone) {
  Copy({1});
  desk.CloseForm("frmArrU(1)");
  desk.Front("frmArrU(2)");
  desk.Press("mnuIncolla");
  EXPECT_EQ(desk.List(2).RowText(0), Field("11 +With Two", 20));
}

TEST_F(TwoSongs, AStyleOfAFileWithoutStylesIsToldInItalian) {
  desk.Put("Alone.arr", Song());
  desk.Open("Alone.arr");
  SetState(*desk.program.Arr(3), 0);
  desk.SelectRows("frmArrU(3)", {1});
  desk.Press("mnuCopia");
  desk.Front("frmArrU(2)");
  desk.program.Boxes();
  desk.Press("mnuIncolla");
  EXPECT_EQ(desk.program.Boxes(), (Boxes{{48, "File .sty assente", ""}}));
  EXPECT_EQ(desk.List(2).RowText(0), Field("11  Old", 20));
}

TEST_F(TwoSongs, TheBoxesOfAPasteHaveItsTitle) {
  desk.Put("Full.arr", ArrBytes({}));
  std::vector<Style> full(16, Style{"Full", 20});
  desk.Put("Full.sty", StyImage(full));
  desk.Open("Full.arr");
  Copy({1, 2});
  desk.Front("frmArrU(3)");
  desk.Press("mnuIncolla");
  const ShownBox no_place{48, "Paste Arrangement/s", "Not more than 4 styles per file are allowed"};
  EXPECT_EQ(desk.program.Boxes(), (Boxes{no_place, no_place}));

  desk.Put("Big.arr", ArrBytes({}));
  desk.Put("Big.sty", StyImage({{"A", 26600}, {"B", 26600}, {"C", 26650}, {"- empty -", 20}}));
  desk.Open("Big.arr");
  desk.Press("mnuIncolla");
  const ShownBox too_long{48, "Paste Arrangement/s", "The lenght of a 4 Styles group must be less than 65496 bytes"};
  EXPECT_EQ(desk.program.Boxes(), (Boxes{too_long}));
  EXPECT_EQ(desk.List(4).RowText(0), Field("11 +With One", 20));
}

TEST_F(TwoSongs, WithoutATemplateAPasteAndACutSaySo) {
  desk.program.app.style.EmptyStyleImage.clear();
  desk.Put("None.arr", ArrBytes({}));
  desk.Open("None.arr");
  Copy({1});
  desk.Front("frmArrU(3)");
  desk.Press("mnuIncolla");
  EXPECT_EQ(desk.program.Boxes(), (Boxes{{48, "Paste Arrangement/s", "File i40Sty not found"}}));
  desk.Put("Song.sty", SongStyles());
  desk.OpenSty("Song.sty");
  desk.SelectRows("frmStyUN(1)", {0});
  desk.Press("mnuTaglia");
  EXPECT_EQ(desk.program.Boxes(), (Boxes{{48, "Cut", "File i40Sty not found"}}));
}

// --- Cut of arrangements ---

TEST_F(TwoSongs, ACutTakesTheRowAndItsStyle) {
  desk.SelectRows("frmArrU(1)", {1});
  ASSERT_TRUE(desk.Enabled("frmArrU(1).CommEdit"));
  desk.Press("mnuTaglia");
  EXPECT_EQ(desk.List(1).RowText(1), "12");
  EXPECT_EQ(desk.List(1).SelectedRows(), Rows{1});
  EXPECT_FALSE(desk.Enabled("frmArrU(1).CommEdit"));
  EXPECT_TRUE(desk.Enabled("frmArrU(1).CommLoadArr"));
  EXPECT_TRUE(desk.Enabled("frmArrU(1).CommLoadSty"));
  const Texts styles = desk.Rows("frmArrU(1).Combo1");
  EXPECT_EQ(std::count(styles.begin(), styles.end(), "Style Two (U12)"), 0);
  EXPECT_EQ(std::count(styles.begin(), styles.end(), "Style One (U11)"), 1);
  EXPECT_EQ(
      from().window_image().substr(42622),
      StyImage({{"Style One", 100, '1'}, {"- empty -", 1176, 0}, {"Style Three", 300, '3'}, {"Style Four", 400, '4'}}));
  // What was cut can be pasted: its marks stand in the clipboard, and no more in the window.
  EXPECT_EQ(At(from().window_image(), 10799 + 21), 0);
  EXPECT_EQ(At(desk.program.app.files.ItemClipboard, 10799 + 21), 1);
  EXPECT_EQ(desk.Entries(), "paste");
  desk.Press("mnuIncolla");
  EXPECT_EQ(desk.List(1).RowText(1), Field("12 +With Two", 20));
}

TEST_F(TwoSongs, WithTheLastRowAndTheLastStyleTheButtonsGo) {
  desk.Put("One.arr", ArrBytes({{"Only", 70, false, {}}, {"With", 1, true, {}}}));
  desk.Put("One.sty", StyImage({{"- empty -", 50}, {"Last", 60}}));
  desk.Open("One.arr");
  desk.SelectRows("frmArrU(3)", {0, 1});
  desk.Press("mnuTaglia");
  EXPECT_FALSE(desk.Enabled("frmArrU(3).CommLoadArr"));
  EXPECT_FALSE(desk.Enabled("frmArrU(3).CommLoadSty"));
  EXPECT_FALSE(desk.Enabled("mnuLoadArr"));
  EXPECT_EQ(At(desk.program.Arr(3)->window_image(), 9), 0);
}

TEST_F(TwoSongs, DeleteIsCutWhereCutCanBeUsed) {
  desk.SelectRows("frmArrU(1)", {40});
  desk.Delete("frmArrU(1)");
  EXPECT_EQ(desk.program.app.files.ItemClipboard, "");
  desk.SelectRows("frmArrU(1)", {0});
  desk.Delete("frmArrU(1)");
  EXPECT_EQ(desk.List(1).RowText(0), "11");

  desk.Put("Locked.arr", Song());
  desk.Open("Locked.arr", true);
  desk.SelectRows("frmArrU(3)", {0});
  desk.program.Boxes();
  desk.Delete("frmArrU(3)");
  EXPECT_EQ(desk.program.Boxes(), (Boxes{{48, "Locked", "Read only file"}}));
  EXPECT_EQ(desk.List(3).RowText(0), Field("11  Plain", 20));
}

// --- Programs ---

TEST_F(ClipboardTest, AProgramOfABankTurnsAPrgIntoAPgg) {
  std::string file = PrgFile();
  Set(file, 16, 0);
  desk.Put("Bank.prg", file);
  desk.OpenPrg("Bank.prg");
  desk.Press("mnuWProgC");
  const std::string name = desk.Find<ui::ListBox>("frmPcgAE(6).List1")->RowText(10).substr(4);
  desk.SelectRows("frmPcgAE(6)", {10});
  desk.Press("mnuCopia");
  desk.SelectRows("frmPrgUN(1)", {3});
  desk.Press("mnuIncolla");
  EXPECT_EQ(desk.Find<ui::ListBox>("frmPrgUN(1).List1")->RowText(3), "14 *" + name);
  EXPECT_EQ(desk.CaptionOf("frmPrgUN(1)"), "File Prg - Bank.pgg (1) - MIDI Channel 1");
  EXPECT_EQ(PrgRecordAt(desk.Prg(1)->window_image(), 3), Hand({1, 1, 10}) + Field(name, 16) + Zeros(153));
  desk.Press("mnuTaglia");
  EXPECT_EQ(desk.Find<ui::ListBox>("frmPrgUN(1).List1")->RowText(3), "14");
  EXPECT_EQ(desk.CaptionOf("frmPrgUN(1)"), "File Prg - Bank.prg (1) - MIDI Channel 1");
}

TEST_F(ClipboardTest, AProgramMovesFromFileToFile) {
  desk.Put("Bank.prg", PrgFile());
  desk.Put("Other.prg", PrgFile(2));
  desk.OpenPrg("Bank.prg");
  desk.OpenPrg("Other.prg");
  desk.SelectRows("frmPrgUN(1)", {63, 5});
  desk.Press("mnuTaglia");
  desk.SelectRows("frmPrgUN(2)", {20});
  desk.Press("mnuIncolla");
  const auto* list = desk.Find<ui::ListBox>("frmPrgUN(2).List1");
  EXPECT_EQ(list->RowText(20), "35  " + Field("P5", 16));
  EXPECT_EQ(list->RowText(21), "36  " + Field("P63", 16));
  EXPECT_EQ(PrgRecordAt(desk.Prg(2)->window_image(), 21), PrgFile().substr(48 + 172 * 63, 172));
  EXPECT_EQ(PrgRecordAt(desk.Prg(1)->window_image(), 63), Zeros(172));
}

TEST_F(ClipboardTest, ANewBankCanBeLoadedAfterAPaste) {
  desk.Put("i40Prg", PrgFile(3));
  desk.Put("Bank.prg", PrgFile());
  desk.OpenPrg("Bank.prg");
  desk.Press("mnuNuovoPrg");
  ASSERT_FALSE(desk.Enabled("frmPrgUN(2).CommLoad"));
  desk.SelectRows("frmPrgUN(1)", {0});
  desk.Press("mnuCopia");
  desk.Front("frmPrgUN(2)");
  desk.Press("mnuIncolla");
  const auto* list = desk.Find<ui::ListBox>("frmPrgUN(2).List1");
  EXPECT_EQ(list->RowText(0), "11  " + Field("P0", 16));
  EXPECT_EQ(list->RowText(1), "12");
  EXPECT_TRUE(desk.Enabled("frmPrgUN(2).CommLoad"));
  EXPECT_TRUE(desk.Enabled("mnuLoadPrg"));
}

// --- Styles ---

TEST_F(ClipboardTest, PastedStylesShowTheirNamesAndSizes) {
  desk.Put("Song.sty", SongStyles());
  desk.OpenSty("Song.sty");
  desk.Press("mnuNuovoSty");
  desk.SelectRows("frmStyUN(1)", {1, 3});
  desk.Press("mnuCopia");
  desk.SelectRows("frmStyUN(n1)", {2});
  desk.Press("mnuIncolla");
  const auto* list = desk.Find<ui::ListBox>("frmStyUN(n1).List1");
  EXPECT_EQ(list->RowText(1), "12  - empty -");
  EXPECT_EQ(list->RowText(2), "13  Style Two");
  EXPECT_EQ(list->RowText(3), "14  Style Four");
  EXPECT_EQ(list->SelectedRows(), Rows{2});
  EXPECT_EQ(desk.Text("frmStyUN(n1).Text1(2)"), "200 ");
  EXPECT_EQ(desk.Text("frmStyUN(n1).Text1(3)"), "400 ");
  EXPECT_EQ(desk.Text("frmStyUN(n1).Text2(0)"), "2952");
  EXPECT_EQ(desk.Text("frmStyUN(n1).Text3"), "3176");
  EXPECT_FALSE(desk.Enabled("frmStyUN(n1).CommLoadStyGrp(1)"));
  // Directly behind the last one: a group of its own begins.
  desk.SelectRows("frmStyUN(n1)", {4});
  desk.Press("mnuIncolla");
  EXPECT_EQ(list->RowText(5), "15  Style Two");
  EXPECT_TRUE(desk.Enabled("frmStyUN(n1).CommLoadStyGrp(1)"));
  EXPECT_EQ(desk.Text("frmStyUN(n1).Text2(1)"), "600");

  desk.SelectRows("frmStyUN(n1)", {18});
  desk.Press("mnuIncolla");
  EXPECT_EQ(desk.program.Boxes(), (Boxes{{48, "Paste Style", "Not more than 4 styles per file are allowed"}}));
}

TEST_F(ClipboardTest, AStyleOverOneOfTheSameSizeLeavesTheSizesAsTheyWere) {
  desk.Put("Song.sty", SongStyles());
  desk.Put("Other.sty", StyImage({{"A", 50}, {"B", 200, 'b'}, {"C", 70}, {"D", 80}}));
  desk.OpenSty("Song.sty");
  desk.OpenSty("Other.sty");
  const auto sizes = [this] {
    Texts texts;
    for (const char* box :
         {"Text1(0)", "Text1(1)", "Text1(2)", "Text1(3)", "Text1(4)", "Text2(0)", "Text2(1)", "Text3"})
      texts.push_back(desk.Text(std::string("frmStyUN(1).") + box));
    return texts;
  };
  const Texts before = sizes();
  desk.SelectRows("frmStyUN(2)", {1});
  desk.Press("mnuCopia");
  desk.SelectRows("frmStyUN(1)", {1});
  desk.Press("mnuIncolla");
  EXPECT_EQ(desk.Find<ui::ListBox>("frmStyUN(1).List1")->RowText(1), "12  B");
  EXPECT_EQ(sizes(), before);
  EXPECT_EQ(before[1], "200 ");
}

TEST_F(ClipboardTest, ACutStyleIsAnEmptyOne) {
  desk.Put("Song.sty", SongStyles());
  desk.OpenSty("Song.sty");
  desk.SelectRows("frmStyUN(1)", {0});
  desk.Press("mnuTaglia");
  EXPECT_EQ(desk.Find<ui::ListBox>("frmStyUN(1).List1")->RowText(0), "11  - empty -");
  EXPECT_EQ(desk.Text("frmStyUN(1).Text1(0)"), "1176 ");
  EXPECT_EQ(desk.Entries(), "paste");
  EXPECT_TRUE(desk.Enabled("mnuSalva"));
}

// --- Windows that show the same file ---

class OneFile : public ClipboardTest {
 protected:
  OneFile() {
    desk.Put("Song.arr", Song());
    desk.Put("Song.sty", SongStyles());
    desk.Put("Other.arr", ArrBytes({{"Foreign", 0, true, {}}}));
    desk.Put("Other.sty", StyImage({{"Strange", 120, 's'}, {"B", 20}, {"C", 20}, {"D", 20}}));
    desk.Open("Song.arr");
    desk.Open("Other.arr");
  }
  Bytes ArrStyles() { return desk.program.Arr(1)->window_image().substr(42622); }
  Bytes StyStyles() { return desk.Sty(1)->window_image().substr(669); }
};

TEST_F(OneFile, ACutOfAStyleGoesToTheArrangements) {
  for (const bool shown : {true, false}) {
    if (shown) {
      desk.Front("frmArrU(1)");
      desk.Press("frmArrU(1).CommShowSty");
    } else {
      desk.OpenSty("Song.sty");
    }
    ASSERT_NE(desk.Sty(1), nullptr);
    desk.SelectRows("frmStyUN(1)", {shown ? 2 : 3});
    desk.Press("mnuTaglia");
    EXPECT_EQ(ArrStyles(), StyStyles());
    EXPECT_EQ(At(desk.program.Arr(1)->window_image(), 10), 1);
    const Texts styles = desk.Rows("frmArrU(1).Combo1");
    EXPECT_EQ(std::count(styles.begin(), styles.end(), "- empty - (U13)"), 1);
    // Both windows changed by one action.
    ASSERT_EQ(desk.program.app.edits.actions().size(), 1U);
    EXPECT_EQ(desk.program.app.edits.actions()[0].words.what, "Cut");
    desk.program.toolkit.answers.push_back(ui::BoxAnswer::kYes);
    desk.CloseForm("frmStyUN(1)");
    ASSERT_EQ(desk.Sty(1), nullptr);
  }
}

TEST_F(OneFile, APasteOfAnArrangementGoesToTheStyleWindow) {
  desk.OpenSty("Song.sty");
  desk.SelectRows("frmStyUN(1)", {2});
  desk.Press("mnuTaglia");
  desk.SelectRows("frmArrU(2)", {0});
  desk.Press("mnuCopia");
  desk.SelectRows("frmArrU(1)", {8});
  desk.Press("mnuIncolla");
  EXPECT_EQ(desk.List(1).RowText(8), Field("21 +Foreign", 20));
  EXPECT_EQ(ArrStyles(), StyStyles());
  EXPECT_EQ(desk.Find<ui::ListBox>("frmStyUN(1).List1")->RowText(2), "13  Strange");
  EXPECT_EQ(desk.Text("frmStyUN(1).Text1(2)"), "120 ");
  EXPECT_EQ(At(desk.Sty(1)->window_image(), 10), 1);
  // And a cut.
  desk.Press("mnuTaglia");
  EXPECT_EQ(ArrStyles(), StyStyles());
  EXPECT_EQ(desk.Find<ui::ListBox>("frmStyUN(1).List1")->RowText(2), "13  - empty -");
}

TEST_F(OneFile, OtherFilesStayAsTheyAre) {
  desk.OpenSty("Song.sty");
  const Bytes other = desk.program.Arr(2)->window_image();
  desk.SelectRows("frmStyUN(1)", {0});
  desk.Press("mnuTaglia");
  EXPECT_EQ(desk.program.Arr(2)->window_image(), other);
  // A new file of that name is none yet.
  desk.Press("mnuNuovoSty");
  const Bytes song = desk.program.Arr(1)->window_image();
  desk.Press("mnuIncolla");
  EXPECT_EQ(desk.program.Arr(1)->window_image(), song);
}

}  // namespace
}  // namespace zentaline
