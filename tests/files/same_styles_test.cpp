// Windows that show the same styles: the .sty, and the arrangements of its name. Neither loses what the other holds.
#include <gtest/gtest.h>

#include <filesystem>
#include <utility>
#include <vector>

#include "tests/files/item_builder.h"
#include "tests/files/item_desk.h"

namespace zentaline {
namespace {

using namespace test;

using Boxes = std::vector<ShownBox>;

std::string SongStyles() {
  return StyImage({{"Style One", 100, '1'}, {"Style Two", 200, '2'}, {"Style Three", 300, '3'}, {"Four", 400, '4'}});
}

class SameStylesTest : public testing::Test {
 protected:
  SameStylesTest() {
    desk.Put("Song.arr", ArrBytes({{"Plain", 0, false, {}}, {"With Two", 1, true, {}}}));
    desk.Put("Song.sty", SongStyles());
    desk.Put("From.arr", ArrBytes({{"Foreign", 0, true, {}}, {"Second", 1, true, {}}}));
    desk.Put("From.sty", StyImage({{"Strange", 120, 's'}, {"Other", 130, 'o'}, {"C", 20}, {"D", 20}}));
    desk.Put("Full.sty", StyImage({{"Late", 140, 'l'}, {"B", 20}, {"C", 20}, {"D", 20}}));
  }

  // Copies an arrangement of From.arr and pastes it at row 20 or 21 of another window.
  void PasteForeign(const std::string& form, int row = 0) {
    OpenFrom();
    desk.SelectRows(from, {row});
    ASSERT_TRUE(desk.Press("mnuCopia"));
    desk.SelectRows(form, {20 + row});
    ASSERT_TRUE(desk.Press("mnuIncolla"));
  }
  void OpenFrom() {
    if (!from.empty()) return;
    desk.Open("From.arr");
    for (int number = 1; number <= 8; ++number) {
      if (desk.program.Arr(number) != nullptr && desk.program.Arr(number)->BaseName() == "From") {
        from = "frmArrU(" + std::to_string(number) + ")";
      }
    }
  }
  static Bytes StylesIn(const ChildWindow* window) {
    const Bytes& image = window->window_image();
    return image.substr(At(image, 1) == 19 || At(image, 1) == 20 ? 42622 : 669);
  }
  static int Mark(const ChildWindow* window, std::size_t position) { return At(window->window_image(), position); }
  std::string Row(const std::string& form, int row) { return desk.Find<ui::ListBox>(form + ".List1")->RowText(row); }
  // The same bytes in both, and both to be saved.
  void ExpectOneFile(int arr, int sty) {
    EXPECT_TRUE(StylesIn(desk.program.Arr(arr)) == StylesIn(desk.Sty(sty)));
    EXPECT_EQ(Mark(desk.program.Arr(arr), 9), 2);
    EXPECT_EQ(Mark(desk.program.Arr(arr), 10), 1);
    EXPECT_EQ(Mark(desk.Sty(sty), 10), 1);
  }

  void Remove(const char* name) { std::filesystem::remove(desk.folder.Path(name)); }
  bool Exists(const char* name) { return std::filesystem::exists(desk.folder.Path(name)); }

  ItemDesk desk;
  std::string from;  // the window of From.arr
};

// --- A style window opens beside arrangements that are changed ---

TEST_F(SameStylesTest, AStyleWindowShowsWhatWasPastedButNotSaved) {
  for (const bool by_button : {true, false}) {
    desk.Open("Song.arr");
    PasteForeign("frmArrU(1)");
    if (by_button) {
      desk.Front("frmArrU(1)");
      desk.Press("frmArrU(1).CommShowSty");
    } else {
      desk.OpenSty("Song.sty");
    }
    ASSERT_NE(desk.Sty(1), nullptr);
    EXPECT_EQ(Row("frmStyUN(1)", 5), "15  Strange");
    EXPECT_EQ(desk.Text("frmStyUN(1).Text1(4)"), "120 ");
    ExpectOneFile(1, 1);
    EXPECT_TRUE(desk.Enabled("mnuSalva"));
    // Both follow each other from there on, and both pastes stand at the end.
    desk.SelectRows("frmStyUN(1)", {0});
    desk.Press("mnuTaglia");
    PasteForeign("frmArrU(1)", 1);
    ExpectOneFile(1, 1);
    EXPECT_EQ(Row("frmStyUN(1)", 0), "11  Other");
    EXPECT_EQ(Row("frmStyUN(1)", 5), "15  Strange");
    desk.program.toolkit.answers = {ui::BoxAnswer::kNo, ui::BoxAnswer::kNo};
    desk.CloseForm("frmStyUN(1)");
    desk.CloseForm("frmArrU(1)");
    ASSERT_EQ(desk.program.Arr(1), nullptr);
  }
}

TEST_F(SameStylesTest, StylesThatWereNeverSavedCanBeShown) {
  Remove("Song.sty");
  desk.Open("Song.arr");
  PasteForeign("frmArrU(1)");
  desk.Front("frmArrU(1)");
  ASSERT_TRUE(desk.Press("frmArrU(1).CommShowSty"));
  EXPECT_EQ(desk.program.Boxes(), Boxes{});
  ASSERT_NE(desk.Sty(1), nullptr);
  EXPECT_EQ(desk.CaptionOf("frmStyUN(1)"), "File Sty - Song.sty (1)");
  EXPECT_EQ(Row("frmStyUN(1)", 0), "11  Strange");
  ExpectOneFile(1, 1);
  // Nothing is written before it is saved.
  EXPECT_FALSE(Exists("Song.sty"));
  desk.Press("mnuSalva");
  EXPECT_EQ(desk.folder.Get("Song.sty").substr(224, 16), Field("Strange", 16));
}

TEST_F(SameStylesTest, ADamagedFileDoesNotStandInTheWayOfThem) {
  desk.Put("Song.sty", "noise");
  desk.Open("Song.arr");
  PasteForeign("frmArrU(1)");
  desk.program.Boxes();
  desk.Front("frmArrU(1)");
  desk.Press("frmArrU(1).CommShowSty");
  EXPECT_EQ(desk.program.Boxes(), Boxes{});
  ExpectOneFile(1, 1);
}

TEST_F(SameStylesTest, UnchangedArrangementsLeaveTheFileToTheDisk) {
  desk.Open("Song.arr");
  desk.OpenSty("Song.sty");
  EXPECT_TRUE(StylesIn(desk.Sty(1)) == SongStyles());
  EXPECT_EQ(Mark(desk.Sty(1), 10), 0);
  EXPECT_EQ(Mark(desk.program.Arr(1), 10), 0);
}

TEST_F(SameStylesTest, ASavedNewFileGivesItsStylesToo) {
  desk.Press("mnuNuovoArr");
  PasteForeign("frmArrNew(1)");
  desk.program.toolkit.files.push_back({false, desk.folder.Path("Evening.arr"), 1, false});
  desk.Front("frmArrNew(1)");
  desk.Press("mnuSalvaAs");
  PasteForeign("frmArrNew(1)", 1);
  desk.OpenSty("Evening.sty");
  EXPECT_EQ(Row("frmStyUN(1)", 0), "11  Strange");
  EXPECT_EQ(Row("frmStyUN(1)", 1), "12  Other");
  EXPECT_EQ(Mark(desk.Sty(1), 10), 1);
}

// What stands in window 9 is the instrument's, whatever its file is called.
TEST_F(SameStylesTest, TheInstrumentsWindowGivesNothing) {
  desk.Open("Song.arr");
  desk.Press("frmArrU(1).CommLoadArr");
  desk.program.toolkit.Advance(5000);
  desk.CloseForm("frmArrU(1)");
  desk.Press("mnuArrU");
  ASSERT_NE(desk.program.Arr(9), nullptr);
  PasteForeign("frmArrU(9)");
  desk.OpenSty("Song.sty");
  EXPECT_TRUE(StylesIn(desk.Sty(1)) == SongStyles());
  EXPECT_EQ(Mark(desk.Sty(1), 10), 0);
}

// The path of what was imported is the source's, beside which other styles may lie.
TEST_F(SameStylesTest, ArrangementsWithoutAFileHaveNoStylesToShow) {
  desk.Put("Old.arr", "KORG" + Hand({0x49, 5, 3}) + Zeros(25) + Field("Imported", 16) + Zeros(20976));
  desk.Put("Old.sty", SongStyles());
  desk.program.toolkit.files.push_back({false, desk.folder.Path("Old.arr"), 1, false});
  desk.Press("mnuImportaArri30");
  ASSERT_NE(desk.program.Arr(1), nullptr);
  PasteForeign("frmArrU(1)");
  EXPECT_TRUE(desk.Enabled("frmArrU(1).CommLoadSty"));
  EXPECT_FALSE(desk.Enabled("frmArrU(1).CommShowSty"));
  desk.OpenSty("Old.sty");
  EXPECT_TRUE(StylesIn(desk.Sty(1)) == SongStyles());
  // With a name of its own it has.
  desk.program.toolkit.files.push_back({false, desk.folder.Path("Mine.arr"), 1, false});
  desk.Front("frmArrU(1)");
  desk.Press("mnuSalvaAs");
  EXPECT_TRUE(desk.Enabled("frmArrU(1).CommShowSty"));
  desk.Press("frmArrU(1).CommShowSty");
  EXPECT_EQ(Row("frmStyUN(2)", 0), "11  Strange");
  EXPECT_EQ(desk.CaptionOf("frmStyUN(2)"), "File Sty - Mine.sty (2)");
}

// --- Arrangements open beside a style window that is changed ---

TEST_F(SameStylesTest, ArrangementsTakeTheStylesOfAChangedWindow) {
  for (const char* on_disk : {"whole", "noise", "absent"}) {
    desk.program.Boxes();
    desk.OpenSty("Song.sty");
    desk.SelectRows("frmStyUN(1)", {2});
    desk.Press("mnuTaglia");
    if (on_disk == std::string("noise")) desk.Put("Song.sty", "noise");
    if (on_disk == std::string("absent")) Remove("Song.sty");
    desk.Open("Song.arr");
    EXPECT_EQ(desk.program.Boxes(), Boxes{}) << on_disk;
    ExpectOneFile(1, 1);
    EXPECT_EQ(Mark(desk.program.Arr(1), 4), 0);
    PasteForeign("frmArrU(1)");
    ExpectOneFile(1, 1);
    EXPECT_EQ(Row("frmStyUN(1)", 2), "13  Strange");
    desk.program.toolkit.answers = {ui::BoxAnswer::kNo, ui::BoxAnswer::kNo, ui::BoxAnswer::kNo};
    for (const std::string& form : {std::string("frmStyUN(1)"), std::string("frmArrU(1)"), std::exchange(from, {})})
      desk.CloseForm(form);
    desk.Put("Song.sty", SongStyles());
  }
}

// --- A file without attached styles, whose styles come later ---

TEST_F(SameStylesTest, APasteGoesToTheStylesOfTheWindowThatShowsThem) {
  Remove("Song.sty");
  desk.Open("Song.arr");
  desk.Put("Song.sty", SongStyles());
  desk.OpenSty("Song.sty");
  // Only arrangements with attached styles keep in step with them.
  desk.SelectRows("frmStyUN(1)", {0});
  desk.Press("mnuTaglia");
  EXPECT_EQ(Mark(desk.program.Arr(1), 9), 1);
  EXPECT_TRUE(StylesIn(desk.program.Arr(1)) == EmptyStyles());
  // Nor does a cut reach the other window.
  desk.SelectRows("frmArrU(1)", {1});
  desk.Press("mnuTaglia");
  EXPECT_EQ(Row("frmStyUN(1)", 1), "12  Style Two");

  PasteForeign("frmArrU(1)");
  ExpectOneFile(1, 1);
  EXPECT_EQ(Row("frmStyUN(1)", 0), "11  Strange");
  EXPECT_EQ(Row("frmStyUN(1)", 1), "12  Style Two");
}

TEST_F(SameStylesTest, AStyleThatIsThereAlreadyAttachesThemToo) {
  desk.Put("Song.sty", StyImage({{"First", 50, 'f'}, {"Strange", 60, 'x'}}));
  desk.Open("Song.arr");
  SetState(*desk.program.Arr(1), 0);
  desk.OpenSty("Song.sty");
  PasteForeign("frmArrU(1)");
  EXPECT_EQ(Mark(desk.program.Arr(1), 9), 2);
  EXPECT_EQ(ArrRecordAt(desk.program.Arr(1)->window_image(), 20).substr(17, 2), Hand({1, 1}));
  EXPECT_TRUE(StylesIn(desk.program.Arr(1)) == StylesIn(desk.Sty(1)));
}

TEST_F(SameStylesTest, PlainRowsAttachNothing) {
  desk.Open("Song.arr");
  SetState(*desk.program.Arr(1), 0);
  desk.OpenSty("Song.sty");
  desk.SelectRows("frmArrU(1)", {0});
  desk.Press("mnuCopia");
  desk.SelectRows("frmArrU(1)", {30});
  desk.Press("mnuIncolla");
  EXPECT_EQ(Mark(desk.program.Arr(1), 9), 0);
  EXPECT_EQ(Mark(desk.Sty(1), 10), 0);
}

// The .sty of a file without styles is set aside at saving, but not one that is open.
TEST_F(SameStylesTest, ASaveLeavesAnOpenStyleFileWhereItIs) {
  Remove("Song.sty");
  desk.Open("Song.arr");
  desk.Put("Song.sty", SongStyles());
  desk.OpenSty("Song.sty");
  desk.Front("frmArrU(1)");
  desk.SelectRows("frmArrU(1)", {0});
  desk.Press("mnuCopia");
  for (const bool shown : {true, false}) {
    desk.SelectRows("frmArrU(1)", {shown ? 5 : 6});
    desk.Press("mnuIncolla");
    ASSERT_EQ(Mark(desk.program.Arr(1), 9), 1);
    desk.Press("mnuSalva");
    if (!shown) break;
    EXPECT_TRUE(desk.folder.Get("Song.sty") == SongStyles());
    desk.CloseForm("frmStyUN(1)");
  }
  EXPECT_FALSE(Exists("Song.sty"));
  EXPECT_TRUE(desk.folder.Get("Song.sty.bak") == SongStyles());
}

// --- Undo beyond a save ---

class SavedInOne : public SameStylesTest, public testing::WithParamInterface<bool> {};

// The other window's file is the one that was saved: a step back leads away from it in both.
TEST_P(SavedInOne, AStepBackBeyondTheSaveLeavesBothChanged) {
  const std::string saving = GetParam() ? "frmArrU(1)" : "frmStyUN(1)";
  const std::string other = GetParam() ? "frmStyUN(1)" : "frmArrU(1)";
  desk.Open("Song.arr");
  desk.OpenSty("Song.sty");
  PasteForeign("frmArrU(1)");
  ExpectOneFile(1, 1);
  desk.Front(saving);
  ASSERT_TRUE(desk.Press("mnuSalva"));
  const std::string saved = desk.folder.Get("Song.sty");
  ASSERT_NE(saved, SongStyles());
  ASSERT_TRUE(desk.Press("mnuAnnulla"));
  EXPECT_TRUE(StylesIn(desk.Sty(1)) == SongStyles());
  ExpectOneFile(1, 1);
  // Each of them can bring the file to what it shows.
  desk.Front(other);
  ASSERT_TRUE(desk.Press("mnuSalva"));
  EXPECT_EQ(desk.folder.Get("Song.sty"), SongStyles());
}

INSTANTIATE_TEST_SUITE_P(Windows, SavedInOne, testing::Bool());

// A save drops the groups of styles that nothing stands in from its own window alone, also when it is passed again. The
// other window may have been open already, or have opened later and follow.
class DroppedBySave : public SameStylesTest, public testing::WithParamInterface<const char*> {};

TEST_P(DroppedBySave, StaysInTheOtherWindow) {
  const std::string later = GetParam();
  std::vector<Style> all = {{"One", 100, '1'}, {"Two", 20}, {"C", 20}, {"D", 20}, {"E", 30, 'e'}};
  all.resize(16, {"- empty -", 1176});
  desk.Put("Song.sty", StyImage(all));
  desk.Put("Song.arr", ArrBytes({{"With One", 0, true, {}}, {"With E", 4, true, {}}}));
  const std::string file = desk.folder.Get("Song.sty");
  if (later != "frmArrU(1)") desk.Open("Song.arr");
  if (later != "frmStyUN(1)") desk.OpenSty("Song.sty");
  const bool by_arrangements = later == "frmStyUN(1)";
  desk.SelectRows(by_arrangements ? "frmArrU(1)" : "frmStyUN(1)", {by_arrangements ? 1 : 5});
  ASSERT_TRUE(desk.Press("mnuTaglia"));
  if (later == "frmArrU(1)") desk.Open("Song.arr");
  if (later == "frmStyUN(1)") desk.OpenSty("Song.sty");
  ASSERT_NE(StylesIn(desk.Sty(1)), file);
  ASSERT_EQ(StylesIn(desk.Sty(1)), StylesIn(desk.program.Arr(1)));
  desk.Front("frmArrU(1)");
  ASSERT_TRUE(desk.Press("mnuSalva"));
  const Bytes styles = desk.Sty(1)->window_image();
  const Bytes arrangements = desk.program.Arr(1)->window_image();
  ASSERT_NE(StylesIn(desk.Sty(1)), StylesIn(desk.program.Arr(1)));
  for (int i = 0; i < 2; ++i) {
    ASSERT_TRUE(desk.Press("mnuAnnulla"));
    EXPECT_EQ(StylesIn(desk.Sty(1)), file);
    EXPECT_EQ(StylesIn(desk.program.Arr(1)), file);
    EXPECT_EQ(Mark(desk.program.Arr(1), 10), 1);
    EXPECT_EQ(Mark(desk.Sty(1), 10), 1);
    ASSERT_TRUE(desk.Press("mnuRipeti"));
    EXPECT_EQ(desk.Sty(1)->window_image(), styles);
    EXPECT_EQ(desk.program.Arr(1)->window_image(), arrangements);
  }
}

INSTANTIATE_TEST_SUITE_P(OpensLater, DroppedBySave, testing::Values("none", "frmArrU(1)", "frmStyUN(1)"));

// A cut in arrangements counts as a change of their styles also where it leaves these as they are; a step forth to it
// does so too, whatever was done and taken back before.
TEST_F(SameStylesTest, ACutMarksTheStylesAgainWhenItIsBroughtForth) {
  desk.OpenSty("Song.sty");
  desk.SelectRows("frmStyUN(1)", {1});
  ASSERT_TRUE(desk.Press("mnuTaglia"));
  ASSERT_TRUE(desk.Press("mnuSalva"));
  desk.Open("Song.arr");
  desk.SelectRows("frmStyUN(1)", {0});
  ASSERT_TRUE(desk.Press("mnuTaglia"));
  ASSERT_TRUE(desk.Press("mnuAnnulla"));
  const Bytes before = StylesIn(desk.Sty(1));
  desk.SelectRows("frmArrU(1)", {1});
  ASSERT_TRUE(desk.Press("mnuTaglia"));
  ASSERT_EQ(StylesIn(desk.Sty(1)), before);
  ASSERT_EQ(Mark(desk.Sty(1), 10), 1);
  const Bytes styles = desk.Sty(1)->window_image();
  const Bytes arrangements = desk.program.Arr(1)->window_image();
  ASSERT_TRUE(desk.Press("mnuAnnulla"));
  EXPECT_EQ(Mark(desk.Sty(1), 10), 0);
  EXPECT_EQ(Mark(desk.program.Arr(1), 10), 0);
  ASSERT_TRUE(desk.Press("mnuRipeti"));
  EXPECT_EQ(desk.Sty(1)->window_image(), styles);
  EXPECT_EQ(desk.program.Arr(1)->window_image(), arrangements);
}

// Arrangements whose styles another window has saved stay marked until they are saved themselves, wherever steps lead.
TEST_F(SameStylesTest, ArrangementsStayMarkedThroughStepsOverASaveOfTheirStyles) {
  desk.OpenSty("Song.sty");
  desk.SelectRows("frmStyUN(1)", {1});
  ASSERT_TRUE(desk.Press("mnuTaglia"));
  desk.Open("Song.arr");
  ASSERT_EQ(Mark(desk.program.Arr(1), 10), 1);
  desk.SelectRows("frmStyUN(1)", {0});
  ASSERT_TRUE(desk.Press("mnuSalva"));
  ASSERT_EQ(Mark(desk.Sty(1), 10), 0);
  ASSERT_EQ(Mark(desk.program.Arr(1), 10), 1);
  ASSERT_TRUE(desk.Press("mnuAnnulla"));
  EXPECT_EQ(Mark(desk.program.Arr(1), 10), 1);
  ASSERT_TRUE(desk.Press("mnuRipeti"));
  EXPECT_EQ(Mark(desk.Sty(1), 10), 0);
  EXPECT_EQ(Mark(desk.program.Arr(1), 10), 1);
}

// --- Save As ---

TEST_F(SameStylesTest, ArrangementsAreNotSavedOverStylesThatAreOpen) {
  desk.Open("Song.arr");
  PasteForeign("frmArrU(1)");
  desk.OpenSty("Full.sty");
  desk.program.toolkit.files.push_back({false, desk.folder.Path("Full.arr"), 1, false});
  desk.Front("frmArrU(1)");
  ASSERT_TRUE(desk.Press("mnuSalvaAs"));
  EXPECT_EQ(desk.program.Boxes(), (Boxes{{48, "Full.sty", "File already open"}}));
  EXPECT_FALSE(Exists("Full.arr"));
  EXPECT_EQ(desk.folder.Get("Full.sty").substr(224, 4), "Late");
  EXPECT_EQ(desk.program.Caption(1), "File Arr - Song.arr (1)");
  // Nor its styles alone.
  desk.program.toolkit.files = {{false, desk.folder.Path("Full.sty"), 2, false}};
  ASSERT_TRUE(desk.Press("mnuSalvaAs"));
  EXPECT_EQ(desk.program.Boxes(), (Boxes{{48, "Full.sty", "File already open"}}));
  EXPECT_EQ(desk.folder.Get("Full.sty").substr(224, 4), "Late");
  // Its own name is no other file.
  desk.OpenSty("Song.sty");
  desk.program.toolkit.files = {{false, desk.folder.Path("Song.arr"), 1, false}};
  desk.Front("frmArrU(1)");
  ASSERT_TRUE(desk.Press("mnuSalvaAs"));
  EXPECT_EQ(desk.program.Boxes(), Boxes{});
  EXPECT_NE(desk.folder.Get("Song.sty").find("Strange"), std::string::npos);
}

TEST_F(SameStylesTest, StylesAreNotSavedOverThoseOfArrangementsThatAreOpen) {
  desk.Open("Song.arr");
  desk.OpenSty("Full.sty");
  desk.SelectRows("frmStyUN(1)", {3});
  desk.Press("mnuTaglia");
  desk.SaveAs("Song.sty");
  ASSERT_TRUE(desk.Press("mnuSalvaAs"));
  EXPECT_EQ(desk.program.Boxes(), (Boxes{{48, "Song.sty", "File already open"}}));
  EXPECT_TRUE(desk.folder.Get("Song.sty") == SongStyles());
  EXPECT_EQ(desk.CaptionOf("frmStyUN(1)"), "File Sty - Full.sty (1)");
}

TEST_F(SameStylesTest, StylesSavedUnderTheNameOfArrangementsWithoutAnyGoToThem) {
  Remove("Song.sty");
  desk.Open("Song.arr");
  desk.OpenSty("Full.sty");
  desk.SelectRows("frmStyUN(1)", {3});
  desk.Press("mnuTaglia");
  desk.SaveAs("Song.sty");
  ASSERT_TRUE(desk.Press("mnuSalvaAs"));
  EXPECT_EQ(desk.program.Boxes(), Boxes{});
  EXPECT_TRUE(StylesIn(desk.program.Arr(1)) == StylesIn(desk.Sty(1)));
  EXPECT_EQ(Mark(desk.program.Arr(1), 9), 2);
  EXPECT_EQ(Mark(desk.program.Arr(1), 10), 0);
  EXPECT_TRUE(desk.Enabled("frmArrU(1).CommLoadSty"));
  PasteForeign("frmArrU(1)");
  ExpectOneFile(1, 1);
  EXPECT_EQ(Row("frmStyUN(1)", 0), "11  Late");
}

TEST_F(SameStylesTest, AnImportDoesNotWriteOverTheStylesOfArrangementsThatAreOpen) {
  desk.Put("Old-2.arr", ArrBytes({{"Mine", 0, true, {}}}));
  desk.Put("Old-2.sty", SongStyles());
  desk.Put("Old.sty", "KORG" + Hand({0x49, 5, 4, 0}) + Zeros(216));
  desk.Open("Old-2.arr");
  desk.program.toolkit.files.push_back({false, desk.folder.Path("Old.sty"), 2, false});
  desk.Press("mnuImportaStyi30");
  EXPECT_EQ(desk.program.Boxes(), (Boxes{{48, "Old-2.sty", "File already open"}}));
  EXPECT_TRUE(desk.folder.Get("Old-2.sty") == SongStyles());
  EXPECT_FALSE(Exists("Old-1.sty"));
}

}  // namespace
}  // namespace zentaline
