// The windows of style files and of new ones: what they show, what a click does, how they are saved and closed, and how
// they come back.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/style/style_desk.h"
#include "tests/support/config.h"

namespace zentaline::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr char kForm[] = "frmStyUN(1)";

class StyleWindow : public ::testing::Test {
 protected:
  void OpenSong(const std::string& sty, bool read_only = false) {
    desk_.Put("Song.sty", sty);
    desk_.OpenSty("Song.sty", read_only);
  }
  std::string Text(const std::string& control) { return desk_.Text(std::string(kForm) + "." + control); }
  bool Enabled(const std::string& control) { return desk_.Enabled(std::string(kForm) + "." + control); }
  std::vector<std::string> Rows() { return desk_.Rows(std::string(kForm) + ".List1"); }
  std::vector<std::string> Sizes() {
    std::vector<std::string> sizes;
    for (int i = 0; i < 16; ++i) sizes.push_back(Text("Text1(" + std::to_string(i) + ")"));
    return sizes;
  }
  bool Select(int row) { return desk_.SelectIn(kForm, row); }
  std::vector<ShownBox> Boxes() { return desk_.program.Boxes(); }

  StyDesk desk_;
};

TEST_F(StyleWindow, SixteenStylesStandInGroupsWithAGapBehindEach) {
  OpenSong(StyBytes(4));
  std::vector<std::string> expected;
  int e = 0;
  for (const std::string tens : {"1", "2"}) {
    for (int units = 1; units <= 8; ++units) {
      expected.push_back(tens + std::to_string(units) + "  Style " + std::to_string(e++));
      if (e % 4 == 0 && e < 16) expected.push_back(" ");
    }
  }
  EXPECT_EQ(Rows(), expected);
  ASSERT_EQ(Rows().size(), 19U);
  for (const std::size_t gap : {4U, 9U, 14U}) EXPECT_EQ(Rows()[gap], " ");
}

TEST_F(StyleWindow, TheSizesOfStylesGroupsAndFileAreShown) {
  OpenSong(StyBytes(4));
  std::vector<std::string> expected;
  for (int e = 0; e < 16; ++e) expected.push_back(std::to_string(40 + 20 * e) + " ");
  EXPECT_EQ(Sizes(), expected);
  // 40 + 60 + 80 + 100, and 320 more from each group to the next.
  EXPECT_EQ(Text("Text2(0)"), "280");
  EXPECT_EQ(Text("Text2(1)"), "600");
  EXPECT_EQ(Text("Text2(2)"), "920");
  EXPECT_EQ(Text("Text2(3)"), "1240");
  EXPECT_EQ(Text("Text3"), "3264");
}

TEST_F(StyleWindow, AFileWithoutStylesShowsItsNumbersAlone) {
  OpenSong(StyImage({}));
  EXPECT_THAT(Rows(), ElementsAre("11", "12", "13", "14", " ", "15", "16", "17", "18", " ", "21", "22", "23", "24", " ",
                                  "25", "26", "27", "28"));
  EXPECT_EQ(Sizes(), std::vector<std::string>(16, "0 "));
  EXPECT_EQ(Text("Text3"), "224");
  EXPECT_TRUE(Enabled("CommLoadSty"));
  for (int g = 0; g < 4; ++g) EXPECT_FALSE(Enabled("CommLoadStyGrp(" + std::to_string(g) + ")")) << g;
}

TEST_F(StyleWindow, ASizeOfZeroEndsTheStylesButNotTheSumsOfItsGroup) {
  OpenSong(StyImage({{"One", 40}, {"Two", 50}, {"", 0}, {"Four", 70}, {"Five", 30}}));
  EXPECT_EQ(Rows()[0], "11  One");
  EXPECT_EQ(Rows()[2], "13");
  EXPECT_EQ(Rows()[3], "14");
  EXPECT_EQ(Rows()[5], "15");
  EXPECT_EQ(Text("Text1(3)"), "70 ");
  EXPECT_EQ(Text("Text2(0)"), "160");
  EXPECT_TRUE(Enabled("CommLoadStyGrp(0)"));
  EXPECT_TRUE(Enabled("CommLoadStyGrp(1)"));
  EXPECT_FALSE(Enabled("CommLoadStyGrp(2)"));
}

TEST_F(StyleWindow, ATableThatClaimsMoreThanTheFileHoldsIsShownAsItIs) {
  std::string sty = StyImage({{"One", 40}, {"Two", 50}, {"Three", 60}, {"Four", 70}});
  Set(sty, 25, 0xFF);
  Set(sty, 26, 0xFF);
  OpenSong(sty);
  EXPECT_EQ(Rows()[0], "11  One");
  EXPECT_EQ(Rows()[1], "12  ");
  EXPECT_EQ(Text("Text1(0)"), "65535 ");
  EXPECT_EQ(Text("Text2(0)"), "65715");
  EXPECT_EQ(Text("Text3"), "444");
  EXPECT_EQ(desk_.Sty(1)->window_image().substr(669), sty);
}

TEST_F(StyleWindow, NamesKeepEveryByteTheyHave) {
  OpenSong(StyImage({{"Caf\xE9 \x80 \x81", 40}}));
  EXPECT_EQ(Rows()[0], "11  Caf\xC3\xA9 \xE2\x82\xAC \xC2\x81");
}

TEST_F(StyleWindow, FilesOfRandomBytesBehindAGoodHeaderAreShownAndStayAsTheyAre) {
  std::mt19937 random(62);
  for (int round = 0; round < 40; ++round) {
    std::string sty = "KORG" + Hand({0x4D, 0, 4, 1});
    sty += RandomBytes(random, static_cast<std::size_t>(RandomNumber(random, 0, 4000)));
    OpenSong(sty);
    ASSERT_NE(desk_.Sty(1), nullptr);
    EXPECT_EQ(Rows().size(), 19U);
    EXPECT_EQ(desk_.Sty(1)->window_image().substr(669), sty);
    for (int row = 0; row < 19; ++row) Select(row);
    desk_.Press("frmStyUN(1).CommLoadSty");
    desk_.Wait(5000);
    desk_.CloseForm(kForm);
    EXPECT_EQ(desk_.folder.Get("Song.sty"), sty);
  }
}

// --- Opening ---

TEST_F(StyleWindow, TheImageHoldsKindNumberPathAndFile) {
  const std::string sty = StyBytes(1);
  OpenSong(sty);
  // The slot of a file opened now has kept no state yet.
  const std::string expected =
      Hand({23}) + Zeros(13) + Hand({1}) + Zeros(5) + Field(desk_.folder.Path("Song"), 250) + Zeros(399) + sty;
  EXPECT_EQ(desk_.Sty(1)->window_image(), expected);
}

TEST_F(StyleWindow, TheCaptionTellsOfReadingOnly) {
  OpenSong(StyBytes(1));
  EXPECT_EQ(desk_.CaptionOf(kForm), "File Sty - Song.sty (1)");
  desk_.Put("Other.sty", StyBytes(1));
  desk_.OpenSty("Other.sty", true);
  EXPECT_EQ(desk_.CaptionOf("frmStyUN(2)"), "File Sty - Other.sty (2) - Read Only");
  EXPECT_EQ(At(desk_.Sty(2)->window_image(), 2), 1);
}

TEST_F(StyleWindow, AFileThatIsOpenIsNotOpenedAgain) {
  OpenSong(StyBytes(1));
  desk_.OpenSty("Song.sty");
  EXPECT_THAT(Boxes(), ElementsAre(ShownBox{48, "Song.sty", "File already open"}));
  EXPECT_EQ(desk_.Sty(2), nullptr);
}

TEST_F(StyleWindow, AnEmptyFileIsRemovedAndNotFound) {
  OpenSong("");
  EXPECT_THAT(Boxes(), ElementsAre(ShownBox{48, "Song.sty", "File not found"}));
  EXPECT_FALSE(std::filesystem::exists(desk_.folder.Path("Song.sty")));
}

TEST_F(StyleWindow, AFileOfAnotherKindIsRefused) {
  OpenSong("KORG" + Hand({0x4D, 0, 4, 2}) + Zeros(300));
  EXPECT_THAT(Boxes(), ElementsAre(ShownBox{48, "Opening Song.sty", "Error reading Song.sty"}));
  EXPECT_EQ(desk_.Sty(1), nullptr);
  EXPECT_TRUE(desk_.Enabled("mnuApriSty"));
}

TEST_F(StyleWindow, AFileUnderAnotherExtensionIsNamedAsAStyleFile) {
  desk_.Put("Bank.prg", "KORG" + Hand({0x4D, 0, 0, 1}) + Zeros(300));
  desk_.Put("LOUD.STY", "KORG" + Hand({0x4D, 0, 4, 2}) + Zeros(300));
  desk_.OpenSty("Bank.prg");
  desk_.OpenSty("LOUD.STY");
  EXPECT_THAT(Boxes(), ElementsAre(ShownBox{48, "Opening Bank.prg", "Error reading Bank.sty"},
                                   ShownBox{48, "Opening LOUD.STY", "Error reading LOUD.sty"}));
}

TEST_F(StyleWindow, ANinthFileCannotBeOpenedUntilOneIsClosed) {
  for (int i = 1; i <= 8; ++i) {
    EXPECT_TRUE(desk_.Enabled("mnuApriSty")) << i;
    const std::string name = "Song" + std::to_string(i) + ".sty";
    desk_.Put(name, StyBytes(1));
    desk_.OpenSty(name);
  }
  EXPECT_FALSE(desk_.Enabled("mnuApriSty"));
  EXPECT_TRUE(desk_.Enabled("mnuNuovoSty"));
  desk_.CloseForm("frmStyUN(3)");
  EXPECT_TRUE(desk_.Enabled("mnuApriSty"));
  desk_.Put("Song9.sty", StyBytes(1));
  desk_.OpenSty("Song9.sty");
  EXPECT_EQ(desk_.CaptionOf("frmStyUN(3)"), "File Sty - Song9.sty (3)");
}

TEST_F(StyleWindow, OpenedFilesStandAmongTheRecentOnesAndComeBackFromThere) {
  OpenSong(StyBytes(1));
  EXPECT_EQ(desk_.program.app.core.RecentFiles[0], (RecentFile{desk_.folder.Path("Song"), 2, false}));
  desk_.CloseForm(kForm);
  EXPECT_TRUE(desk_.Press("mnuRecentFile(0)"));
  EXPECT_EQ(desk_.CaptionOf(kForm), "File Sty - Song.sty (1)");
}

TEST_F(StyleWindow, AClosingWindowPutsItsFileBackAmongTheRecentOnes) {
  OpenSong(StyBytes(1), true);
  for (RecentFile& recent : desk_.program.app.core.RecentFiles) recent = {};
  desk_.CloseForm(kForm);
  EXPECT_EQ(desk_.program.app.core.RecentFiles[0], (RecentFile{desk_.folder.Path("Song"), 2, true}));
}

TEST_F(StyleWindow, TheWindowOfASlotKeepsItsPlace) {
  OpenSong(StyBytes(1));
  desk_.program.toolkit.UserPlaces(*desk_.Sty(1), {40, 50, 300, 420, ui::WindowState::kNormal});
  desk_.CloseForm(kForm);
  desk_.OpenSty("Song.sty");
  EXPECT_EQ(desk_.Sty(1)->placement(), (ui::Placement{40, 50, 300, 420, ui::WindowState::kNormal}));
}

// --- The list and the menus ---

TEST_F(StyleWindow, LoadStyleFollowsTheSelectedRow) {
  OpenSong(StyImage({{"One", 40}, {"Two", 50}, {"", 0}, {"Four", 70}}));
  EXPECT_FALSE(desk_.Enabled("mnuLoadSty"));
  Select(0);
  EXPECT_TRUE(desk_.Enabled("mnuLoadSty"));
  Select(4);
  EXPECT_FALSE(desk_.Enabled("mnuLoadSty"));
  Select(1);
  EXPECT_TRUE(desk_.Enabled("mnuLoadSty"));
  Select(2);
  EXPECT_FALSE(desk_.Enabled("mnuLoadSty"));
}

TEST_F(StyleWindow, EveryGapRowTurnsLoadStyleOff) {
  OpenSong(StyBytes(4));
  for (int row = 0; row < 19; ++row) {
    Select(row);
    EXPECT_EQ(desk_.Enabled("mnuLoadSty"), row != 4 && row != 9 && row != 14) << row;
  }
}

TEST_F(StyleWindow, LoadStyleSurvivesTheChangeToAnotherWindowAndBack) {
  OpenSong(StyBytes(2));
  Select(0);
  desk_.Press("mnuStyA");
  EXPECT_FALSE(desk_.Enabled("mnuLoadSty"));
  desk_.program.toolkit.FindForm(kForm)->UserActivate();
  EXPECT_TRUE(desk_.Enabled("mnuLoadSty"));
}

TEST_F(StyleWindow, TheRightButtonOpensTheEditMenu) {
  OpenSong(StyBytes(1));
  desk_.Log();
  desk_.Find<ui::ListBox>("frmStyUN(1).List1")->UserContext();
  EXPECT_THAT(desk_.Log(), ElementsAre("popup 0 mnuModifica"));
}

TEST_F(StyleWindow, TheDeleteKeyIsRefusedInAReadOnlyWindow) {
  OpenSong(StyBytes(1), true);
  Select(0);
  const std::string before = desk_.Sty(1)->window_image();
  desk_.Find<ui::ListBox>("frmStyUN(1).List1")->UserKey({ui::Key::kDelete, ""});
  EXPECT_THAT(Boxes(), ElementsAre(ShownBox{48, "Song", "Read only file"}));
  EXPECT_EQ(desk_.Sty(1)->window_image(), before);
}

TEST_F(StyleWindow, OtherKeysDoNothingInAReadOnlyWindow) {
  OpenSong(StyBytes(1), true);
  desk_.Find<ui::ListBox>("frmStyUN(1).List1")->UserKey({ui::Key::kSpace, ""});
  EXPECT_THAT(Boxes(), IsEmpty());
}

// --- New files ---

TEST_F(StyleWindow, ANewFileHoldsTheFourEmptyStylesOfTheTemplate) {
  ASSERT_TRUE(desk_.Press("mnuNuovoSty"));
  EXPECT_EQ(desk_.CaptionOf("frmStyUN(n1)"), "New Style - Untitled.sty (1)");
  EXPECT_EQ(desk_.Rows("frmStyUN(n1).List1").at(3), "14  - empty -");
  EXPECT_EQ(desk_.Rows("frmStyUN(n1).List1").at(5), "15");
  EXPECT_EQ(desk_.Text("frmStyUN(n1).Text1(0)"), "1176 ");
  EXPECT_EQ(desk_.Text("frmStyUN(n1).Text2(0)"), "4704");
  EXPECT_EQ(desk_.Text("frmStyUN(n1).Text3"), "4928");
  const std::string& image = desk_.NewSty(1)->window_image();
  EXPECT_EQ(image.substr(0, 20), Hand({24}) + Zeros(13) + Hand({1}) + Zeros(1) + Hand({1, 1}) + Zeros(2));
  EXPECT_EQ(image.substr(20, 250), Field("Untitled (1)", 250));
  EXPECT_EQ(image.substr(669), EmptyStyles());
}

TEST_F(StyleWindow, NewFilesHaveEightPlacesOfTheirOwn) {
  OpenSong(StyBytes(1));
  for (int i = 1; i <= 8; ++i) {
    ASSERT_TRUE(desk_.Press("mnuNuovoSty")) << i;
    EXPECT_EQ(desk_.CaptionOf("frmStyUN(n" + std::to_string(i) + ")"),
              "New Style - Untitled.sty (" + std::to_string(i) + ")");
  }
  EXPECT_FALSE(desk_.Enabled("mnuNuovoSty"));
  EXPECT_TRUE(desk_.Enabled("mnuApriSty"));
  desk_.program.toolkit.answers = {ui::BoxAnswer::kNo};
  desk_.CloseForm("frmStyUN(n5)");
  EXPECT_TRUE(desk_.Enabled("mnuNuovoSty"));
  desk_.Press("mnuNuovoSty");
  EXPECT_EQ(desk_.CaptionOf("frmStyUN(n5)"), "New Style - Untitled.sty (5)");
}

TEST_F(StyleWindow, ATemplateThatIsMissingOrDamagedOpensNothing) {
  std::filesystem::remove(desk_.folder.Path("i40Sty"));
  desk_.Press("mnuNuovoSty");
  EXPECT_THAT(Boxes(), ElementsAre(ShownBox{48, "Opening i40Sty", "File i40Sty not found"}));
  desk_.Put("i40Sty", "");
  desk_.Press("mnuNuovoSty");
  EXPECT_THAT(Boxes(), ElementsAre(ShownBox{48, "Opening i40Sty", "File i40Sty not found"}));
  desk_.Put("i40Sty", "KORG" + Zeros(4924));
  desk_.Press("mnuNuovoSty");
  // One from the reader, one from the entry.
  const ShownBox wrong{48, "Opening i40Sty", "Error reading i40Sty"};
  EXPECT_THAT(Boxes(), ElementsAre(wrong, wrong));
  EXPECT_EQ(desk_.NewSty(1), nullptr);
  EXPECT_TRUE(desk_.Enabled("mnuNuovoSty"));
}

TEST_F(StyleWindow, ASavedNewFileIsAsLongAsTheTemplate) {
  desk_.Press("mnuNuovoSty");
  desk_.SaveAs("Mine.sty");
  ASSERT_TRUE(desk_.Press("mnuSalva"));
  EXPECT_EQ(desk_.folder.Get("Mine.sty").size(), 4928U);
  EXPECT_EQ(desk_.folder.Get("Mine.sty"), EmptyStyles());
  const ui::FileDialogRequest& request = desk_.program.toolkit.dialogs.back();
  EXPECT_EQ(request.name, "Untitled.sty");
  EXPECT_EQ(request.filter, 2);
  EXPECT_EQ(desk_.CaptionOf("frmStyUN(n1)"), "New Style - Mine.sty (1)");
  EXPECT_EQ(At(desk_.NewSty(1)->window_image(), 1), 24);
  EXPECT_EQ(At(desk_.NewSty(1)->window_image(), 18), 0);
  EXPECT_FALSE(desk_.Enabled("mnuSalva"));
  EXPECT_THAT(desk_.program.app.core.RecentFiles, Contains(RecentFile{desk_.folder.Path("Mine"), 2, false}));
}

TEST_F(StyleWindow, ANewFileOnceSavedIsSavedWithoutADialog) {
  desk_.Press("mnuNuovoSty");
  desk_.SaveAs("Mine.sty");
  desk_.Press("mnuSalva");
  std::string& image = ImageFor(*desk_.NewSty(1));
  Set(image, 10, 1);
  image.replace(669 + 224, 3, "Mio");
  desk_.program.toolkit.dialogs.clear();
  desk_.program.app.main->RefreshMenus();
  ASSERT_TRUE(desk_.Press("mnuSalva"));
  EXPECT_THAT(desk_.program.toolkit.dialogs, IsEmpty());
  EXPECT_EQ(desk_.folder.Get("Mine.sty").substr(224, 3), "Mio");
  desk_.CloseForm("frmStyUN(n1)");
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(StyleWindow, ANewFileOnceSavedCountsAsOpen) {
  desk_.Press("mnuNuovoSty");
  desk_.SaveAs("Mine.sty");
  desk_.Press("mnuSalva");
  desk_.OpenSty("Mine.sty");
  const ShownBox already{48, "Mine.sty", "File already open"};
  EXPECT_THAT(Boxes(), ElementsAre(already));
  desk_.Press("mnuNuovoSty");
  desk_.SaveAs("Mine.sty");
  desk_.Press("mnuSalva");
  EXPECT_THAT(Boxes(), ElementsAre(already));
  EXPECT_EQ(desk_.CaptionOf("frmStyUN(n2)"), "New Style - Untitled.sty (2)");
  desk_.program.toolkit.answers = {ui::BoxAnswer::kNo, ui::BoxAnswer::kNo};
  desk_.CloseForm("frmStyUN(n1)");
  desk_.OpenSty("Mine.sty");
  EXPECT_EQ(desk_.CaptionOf(kForm), "File Sty - Mine.sty (1)");
}

TEST_F(StyleWindow, ANewFileIsNotSavedOverOneThatIsOpen) {
  const std::string sty = StyBytes(1);
  OpenSong(sty);
  desk_.Press("mnuNuovoSty");
  desk_.SaveAs("Song.sty");
  desk_.Press("mnuSalva");
  EXPECT_THAT(Boxes(), ElementsAre(ShownBox{48, "Song.sty", "File already open"}));
  EXPECT_EQ(desk_.folder.Get("Song.sty"), sty);
}

TEST_F(StyleWindow, ALanguageChangesTheCaptionOfANewFileButNotItsName) {
  desk_.program.app.core.LanguageOffset = 0;
  desk_.Press("mnuNuovoSty");
  EXPECT_EQ(desk_.CaptionOf("frmStyUN(n1)"), "Nuovo Style - SenzaNome.sty (1)");
  EXPECT_EQ(desk_.NewSty(1)->BaseName(), "Untitled (1)");
}

// --- Closing ---

TEST_F(StyleWindow, AnUnchangedFileClosesAtOnce) {
  OpenSong(StyBytes(1));
  desk_.Press("frmStyUN(1).CommClose");
  EXPECT_EQ(desk_.Sty(1), nullptr);
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(StyleWindow, AChangedFileAsksAndTheAnswerCounts) {
  const std::string sty = StyBytes(1);
  for (const auto answer : {ui::BoxAnswer::kCancel, ui::BoxAnswer::kNo, ui::BoxAnswer::kYes}) {
    OpenSong(sty);
    std::string& image = ImageFor(*desk_.Sty(1));
    Set(image, 10, 1);
    image.replace(669 + 224, 3, "New");
    desk_.program.toolkit.answers = {answer};
    desk_.CloseForm(kForm);
    EXPECT_THAT(Boxes(), ElementsAre(ShownBox{51, "File Sty - Song.sty (1)", "The file has changed\nSave changes ?"}));
    EXPECT_EQ(desk_.Sty(1) != nullptr, answer == ui::BoxAnswer::kCancel);
    EXPECT_EQ(desk_.folder.Get("Song.sty").substr(224, 3), answer == ui::BoxAnswer::kYes ? "New" : "Sty");
    if (desk_.Sty(1) != nullptr) {
      Set(image, 10, 0);
      desk_.CloseForm(kForm);
    }
  }
}

TEST_F(StyleWindow, ANewFileAsksForANameAndStaysWhenNoneIsGiven) {
  desk_.Press("mnuNuovoSty");
  desk_.program.toolkit.answers = {ui::BoxAnswer::kYes};
  desk_.CloseForm("frmStyUN(n1)");
  ASSERT_NE(desk_.NewSty(1), nullptr);
  EXPECT_THAT(Boxes(),
              ElementsAre(ShownBox{51, "New Style - Untitled.sty (1)", "The file has changed\nSave changes ?"}));
  desk_.program.toolkit.answers = {ui::BoxAnswer::kYes};
  desk_.SaveAs("Mine.sty");
  desk_.CloseForm("frmStyUN(n1)");
  EXPECT_EQ(desk_.NewSty(1), nullptr);
  EXPECT_EQ(desk_.folder.Get("Mine.sty"), EmptyStyles());
}

TEST_F(StyleWindow, ANewFileThatWasNeverSavedLeavesNoRecentFile) {
  desk_.Press("mnuNuovoSty");
  desk_.program.toolkit.answers = {ui::BoxAnswer::kNo};
  desk_.CloseForm("frmStyUN(n1)");
  for (const RecentFile& recent : desk_.program.app.core.RecentFiles) EXPECT_EQ(recent, RecentFile());
}

TEST_F(StyleWindow, AFileThatCannotBeWrittenKeepsItsWindowOpen) {
  OpenSong(StyBytes(1));
  Set(ImageFor(*desk_.Sty(1)), 10, 1);
  desk_.program.disk.Fail("write", "ENOSPC", 1);
  desk_.program.toolkit.answers = {ui::BoxAnswer::kYes};
  desk_.CloseForm(kForm);
  ASSERT_NE(desk_.Sty(1), nullptr);
  EXPECT_EQ(At(desk_.Sty(1)->window_image(), 10), 1);
}

TEST_F(StyleWindow, SavingWritesWholeRecordsOfFourBytesAndLeavesTheImageAlone) {
  const std::string sty = StyImage({{"One", 41}, {"Two", 50}});
  OpenSong(sty);
  Set(ImageFor(*desk_.Sty(1)), 10, 1);
  desk_.program.app.main->RefreshMenus();
  ASSERT_TRUE(desk_.Press("mnuSalva"));
  // 224 + 41 + 50 = 315, rounded up.
  EXPECT_EQ(desk_.folder.Get("Song.sty"), sty + " ");
  EXPECT_EQ(desk_.Sty(1)->window_image().substr(669), sty);
}

// --- Coming back ---

TEST_F(StyleWindow, FilesOfTheLastRunComeBackWithTheirPlaces) {
  desk_.Put("A.sty", StyBytes(1));
  desk_.Put("B.sty", StyBytes(1));
  desk_.Put("C.sty", StyBytes(1));
  for (const char* name : {"A.sty", "B.sty"}) desk_.OpenSty(name);
  desk_.OpenSty("C.sty", true);
  desk_.program.toolkit.UserPlaces(*desk_.Sty(3), {11, 22, 333, 444, ui::WindowState::kNormal});
  desk_.Press("mnuNuovoSty");
  desk_.CloseForm("frmStyUN(1)");
  desk_.program.toolkit.answers = {ui::BoxAnswer::kNo};
  ASSERT_TRUE(desk_.program.Quit());
  std::filesystem::remove(desk_.folder.Path("B.sty"));

  TestProgram next(desk_.folder);
  next.Start();
  ASSERT_NE(next.app.sty_windows[1], nullptr);
  EXPECT_EQ(next.app.sty_windows[1]->caption(), "File Sty - C.sty (1) - Read Only");
  EXPECT_EQ(next.app.sty_windows[1]->placement(), (ui::Placement{11, 22, 333, 444, ui::WindowState::kNormal}));
  for (std::size_t i = 2; i <= 8; ++i) EXPECT_EQ(next.app.sty_windows[i], nullptr) << i;
  EXPECT_EQ(next.app.new_sty_windows[1], nullptr);
  for (const ShownBox& box : next.Boxes()) EXPECT_EQ(box.text.find("sty"), std::string::npos) << box.text;
}

// --- The banks ---

TEST_F(StyleWindow, TheBanksShowTheirSixtyFourNames) {
  ASSERT_TRUE(desk_.Press("mnuStyA"));
  ASSERT_TRUE(desk_.Press("mnuStyB"));
  const std::vector<std::string> a = desk_.Rows("frmStyAB(17).List1");
  const std::vector<std::string> b = desk_.Rows("frmStyAB(18).List1");
  ASSERT_EQ(a.size(), 64U);
  ASSERT_EQ(b.size(), 64U);
  EXPECT_EQ(a[0].substr(0, 4), "11  ");
  EXPECT_EQ(a[63].substr(0, 4), "88  ");
  EXPECT_EQ(b[8].substr(0, 4), "21  ");
  EXPECT_NE(a[0], b[0]);
  EXPECT_EQ(desk_.CaptionOf("frmStyAB(17)"), "Style A");
  EXPECT_EQ(desk_.CaptionOf("frmStyAB(18)"), "Style B");
  const auto* window = static_cast<ChildWindow*>(desk_.program.toolkit.FindForm("frmStyAB(18)"));
  EXPECT_EQ(window->window_image(), Hand({18, 1}) + Zeros(14) + Hand({18}) + Zeros(3) + Field("Style B", 250));
}

TEST_F(StyleWindow, ABankThatIsOpenComesToTheFront) {
  desk_.Press("mnuStyA");
  desk_.Press("mnuStyB");
  desk_.Log();
  desk_.Press("mnuStyA");
  EXPECT_EQ(desk_.program.toolkit.active_child()->FullName(), "frmStyAB(17)");
  EXPECT_THAT(desk_.Log(), IsEmpty());
}

TEST_F(StyleWindow, ABankSendsNothingButItsModes) {
  desk_.Press("mnuStyA");
  desk_.Log();
  desk_.SelectIn("frmStyAB(17)", 5);
  EXPECT_THAT(desk_.Log(), IsEmpty());
  desk_.Press("frmStyAB(17).CommSongPlay");
  desk_.Press("frmStyAB(17).CommArrPlay");
  EXPECT_THAT(desk_.Log(), ElementsAre("0 mode 06", "0 mode 0A"));
  desk_.Press("frmStyAB(17).CommClose");
  EXPECT_EQ(desk_.program.toolkit.FindForm("frmStyAB(17)"), nullptr);
}

TEST_F(StyleWindow, ABankKeepsItsPlaceFromRunToRun) {
  desk_.Press("mnuStyB");
  ui::Form* bank = desk_.program.toolkit.FindForm("frmStyAB(18)");
  desk_.program.toolkit.UserPlaces(*bank, {15, 25, 320, 400, ui::WindowState::kNormal});
  bank->UserClose();
  ASSERT_TRUE(desk_.program.Quit());
  ConfigFile file;
  file.bytes = desk_.folder.Get("Zentaline.ini");
  // The eighteenth placement of nine bytes, from position 51 on.
  const int at = 51 + 17 * 9;
  EXPECT_EQ(file.At(1, at) * 256 + file.At(1, at + 1), 16015);
  EXPECT_EQ(file.At(1, at + 4) * 256 + file.At(1, at + 5), 320);
  EXPECT_EQ(file.At(1, at + 8), 0);
  TestProgram next(desk_.folder);
  next.Start();
  next.Press(MenuId::mnuStyB);
  EXPECT_EQ(next.toolkit.FindForm("frmStyAB(18)")->placement(),
            (ui::Placement{15, 25, 320, 400, ui::WindowState::kNormal}));
}

}  // namespace
}  // namespace zentaline::test
