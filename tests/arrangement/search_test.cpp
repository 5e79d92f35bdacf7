// The field of the search, and the way from an id to the arrangement on the instrument.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "arrangement/api.h"
#include "tests/arrangement/db_desk.h"

namespace zentaline::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr char kTitle[] = "Find Arrangement (ID)";

class FindId : public ::testing::Test {
 protected:
  void SetUp() override {
    desk_.Put("i40ArrA.arr", ArrBytes({{"First", 5, false, {}}}));
    desk_.Put("i40ArrB.arr", ArrBytes({{"Bee", 5, false, {}}}).replace(32 + 164 * 63, 4, "Last"));
    desk_.Put("Song.arr", ArrBytes({{"One", 5, false, {}}, {"Two", 2, true, {}}}));
    desk_.Put("Other.arr", ArrBytes({{"Else", 5, false, {}}, {"More", 6, false, {}}}));
    desk_.Put("i40DBArr", DatabaseBytes({{"Gone", 40}, {"Other", 9}, {"Song", 30}}, desk_.folder.Path()));
    desk_.Start();
    ASSERT_TRUE(desk_.Press("mnuWFindID"));
    desk_.Log();
  }
  ArrangementState& state() { return desk_.program.app.arrangement; }
  Settings& settings() { return desk_.program.app.core.settings; }
  // Types an id, presses OK, and lets the search's timer run.
  void Find(const std::string& id) {
    ASSERT_TRUE(desk_.Find<ui::TextBox>("frmFindID.Text1")->UserType(id));
    ASSERT_TRUE(desk_.Press("frmFindID.CommOK"));
    desk_.Wait(10);
  }
  std::vector<ShownBox> BoxesOf(const std::string& id) {
    Find(id);
    EXPECT_FALSE(state().FindActive) << id;
    EXPECT_EQ(desk_.Text("frmMain.Label1"), "") << id;
    return desk_.program.Boxes();
  }
  std::string Front() { return desk_.program.toolkit.active_child()->FullName(); }

  ArrDesk desk_{false};
};

TEST_F(FindId, TheFieldIsThereOnceAndStays) {
  EXPECT_EQ(desk_.program.toolkit.FindForm("frmFindID")->caption(), kTitle);
  EXPECT_EQ(desk_.Text("frmFindID.Text1"), "");
  EXPECT_FALSE(desk_.Enabled("mnuWFindID"));
  EXPECT_EQ(desk_.program.app.core.OpenChildCount, 1);
  const Bytes image = static_cast<ChildWindow*>(desk_.program.toolkit.FindForm("frmFindID"))->window_image();
  EXPECT_EQ(image, Hand({11, 0}));
  Find("3011");
  desk_.Wait(100);
  EXPECT_EQ(desk_.Text("frmFindID.Text1"), "3011");
  EXPECT_NE(desk_.program.toolkit.FindForm("frmFindID"), nullptr);
  desk_.program.toolkit.FindForm("frmFindID")->UserClose();
  EXPECT_TRUE(desk_.Enabled("mnuWFindID"));
}

TEST_F(FindId, TheWaitTextNamesTheIdBeforeTheSearchRuns) {
  desk_.Find<ui::TextBox>("frmFindID.Text1")->UserType("  911 ");
  ASSERT_TRUE(desk_.Press("frmFindID.CommOK"));
  EXPECT_THAT(desk_.Log(), ElementsAre("wait 0 \"Opening ID =911\""));
  desk_.Wait(9);
  EXPECT_THAT(desk_.Log(), IsEmpty());
  desk_.Wait(100);
  EXPECT_EQ(desk_.program.Caption(1), "File Arr - Other.arr (1)");
}

TEST_F(FindId, WhatIsNoIdIsRefused) {
  const ShownBox error{48, kTitle, "ID error"};
  for (const char* id :
       {"", " ", "1", "11", "319", "301", "190", "3010", "3001", "3098", "12x", "x11", "-111", "+111", "1 11", "11.1",
        "1\xC3\xA8"
        "11",
        "\xEF\xBC\x91\xEF\xBC\x91\xEF\xBC\x91", "999999999999999999999999999990"}) {
    EXPECT_THAT(BoxesOf(id), ElementsAre(error)) << id;
  }
}

// Of any text: at least three digits, of which the last two are a row's label, and nothing else but blanks around them.
TEST_F(FindId, OfAnyTextOnlyWhatIsAnIdIsLookedFor) {
  std::mt19937 random(7);
  const std::string signs = "0123456789123456781234567812345678 -+.,xO\t\"%\\";
  for (int round = 0; round < 600; ++round) {
    std::string id;
    for (int length = RandomNumber(random, 0, 7); length > 0; --length) {
      id += signs[static_cast<std::size_t>(RandomNumber(random, 0, static_cast<int>(signs.size()) - 1))];
    }
    const std::size_t first = id.find_first_not_of(' ');
    const std::string digits = first == std::string::npos ? "" : id.substr(first, id.find_last_not_of(' ') - first + 1);
    const auto label = [&digits](std::size_t from_end) {
      return digits[digits.size() - from_end] >= '1' && digits[digits.size() - from_end] <= '8';
    };
    const bool right =
        digits.size() >= 3 && digits.find_first_not_of("0123456789") == std::string::npos && label(1) && label(2);
    const std::vector<ShownBox> refused = {{48, kTitle, "ID error"}};
    Find(id);
    EXPECT_EQ(desk_.program.Boxes() == refused, !right) << id;
    desk_.Wait(200);
    desk_.program.Boxes();
  }
}

TEST_F(FindId, AnIdThatNoFileHasIsUnknownHoweverGreatItIs) {
  for (const std::string id : {"1011", "011", "4111", "99911", "6553611", "429496729611", "1844674407370955161611",
                               "99999999999999999999999999999999999999911"}) {
    EXPECT_THAT(BoxesOf(id), ElementsAre(ShownBox{48, kTitle, "File ID = " + id + " not found"})) << id;
  }
}

TEST_F(FindId, TheLabelsOfAllRowsLeadToTheirRows) {
  int row = 0;
  for (const char tens : std::string("12345678")) {
    for (const char units : std::string("12345678")) {
      Find(std::string("30") + tens + units);
      EXPECT_EQ(state().FindRow, row) << tens << units;
      EXPECT_EQ(state().FindFileId, 30);
      desk_.Wait(100);
      EXPECT_EQ(desk_.List(1).Row(), row);
      EXPECT_FALSE(state().FindActive);
      ++row;
    }
  }
}

// --- The banks ---

TEST_F(FindId, TheIdsOfTheBanksOpenThemAndPlayTheRow) {
  Find("111");
  EXPECT_THAT(desk_.Log(),
              ElementsAre("wait 0 \"Opening ID =111\"", "open 10 frmArrAB(2) \"Arrangements A\"", "wait 10 \"\""));
  desk_.Wait(100);
  EXPECT_THAT(desk_.Log(), ElementsAre("20 B0 00 00", "20 B0 20 00", "20 C0 00"));
  EXPECT_FALSE(state().FindActive);
  EXPECT_EQ(desk_.Text("frmArrAB(2).Text1"), "111");
  Find("288");
  desk_.Wait(100);
  EXPECT_EQ(desk_.Text("frmArrAB(3).Text1"), "288");
  EXPECT_EQ(desk_.Wire().back().substr(4), "C0 7F");
}

TEST_F(FindId, ABankThatIsOpenPlaysTheRowAtOnce) {
  desk_.Press("mnuArrB");
  desk_.program.toolkit.FindForm("frmFindID")->UserActivate();
  desk_.Log();
  Find("0211");
  EXPECT_THAT(desk_.Log(),
              ElementsAre("wait 0 \"Opening ID =0211\"", "10 B0 00 00", "10 B0 20 00", "10 C0 40", "wait 10 \"\""));
  EXPECT_EQ(Front(), "frmArrAB(3)");
  EXPECT_EQ(desk_.program.toolkit.FindForm("frmArrAB(2)"), nullptr);
}

TEST_F(FindId, ABankWithoutItsFileEndsTheSearch) {
  std::filesystem::remove(desk_.folder.Path("i40ArrA.arr"));
  EXPECT_THAT(BoxesOf("111"), ElementsAre(ShownBox{48, "Opening i40ArrA.arr", "File i40ArrA not found"}));
  desk_.Put("i40ArrB.arr", "");
  EXPECT_THAT(BoxesOf("211"), ElementsAre(ShownBox{48, "Opening i40ArrB.arr", "File i40ArrB not found"}));
}

// A search that waits in a file's window is not a bank's affair.
TEST_F(FindId, ABankIsClickedFreelyWhileTheSearchWaitsElsewhere) {
  settings().CaricaArr = true;
  desk_.Press("mnuArrA");
  desk_.program.toolkit.FindForm("frmFindID")->UserActivate();
  Find("3012");
  ASSERT_TRUE(state().FindActive);
  desk_.Find<ui::ListBox>("frmArrAB(2).List1")->UserSelect({0});
  EXPECT_TRUE(state().FindActive);
  EXPECT_EQ(desk_.Find<ui::ListBox>("frmArrAB(2).List1")->Row(), 0);
}

// --- The files ---

TEST_F(FindId, AFileOpensAndItsRowIsPlayed) {
  Find("911");
  EXPECT_THAT(desk_.Log(),
              ElementsAre("wait 0 \"Opening ID =911\"", "open 10 frmArrU(1) \"File Arr - Other.arr (1)\""));
  EXPECT_EQ(desk_.Text("frmMain.Label1"), "Opening ID =911");
  desk_.Wait(100);
  EXPECT_THAT(desk_.Log(), ElementsAre("20 B0 00 00", "20 B0 20 01", "20 C0 00", "wait 20 \"\""));
  EXPECT_EQ(desk_.Text("frmArrU(1).Text1"), "911");
  EXPECT_THAT(desk_.Text("mnuRecentFile(0)"), ::testing::EndsWith("Other.arr"));
}

TEST_F(FindId, WhatTheInstrumentLacksIsSentFirst) {
  desk_.Put("Song.sty", StyBytes(1));
  settings().CaricaArr = settings().CaricaSty = true;
  Find("3012");
  desk_.Log();
  desk_.Wait(10000);
  EXPECT_THAT(desk_.Log(), ElementsAre("wait 20 \"Loading Arrangement\"", "29 mode 06", "29 mode 0A",
                                       "29 dump 64 12002", "wait 29 \"\"", "wait 829 \"Loading Style\"",
                                       "849 dump 65 354", "wait 1849 \"\"", "1849 B0 00 00", "1849 B0 20 01",
                                       "1849 C0 01", "2669 B0 00 00", "2669 B0 20 01", "2669 C0 01"));
  EXPECT_FALSE(state().FindActive);
}

TEST_F(FindId, AnOpenWindowComesToTheFrontAndWhatTheRowNeedsIsComputedAnew) {
  desk_.Put("Song.sty", StyBytes(1));
  desk_.Open("Song.arr");
  desk_.Open("Other.arr");
  EXPECT_FALSE(state().FindUserStyle);
  desk_.program.toolkit.FindForm("frmFindID")->UserActivate();
  desk_.Log();
  Find("3012");
  EXPECT_EQ(Front(), "frmArrU(1)");
  EXPECT_TRUE(state().FindUserStyle);
  EXPECT_EQ(desk_.List(1).Row(), 1);
  EXPECT_THAT(desk_.Log(), ElementsAre("wait 0 \"Opening ID =3012\"", "wait 10 \"\"")) << "the row isn't clicked yet";
  desk_.Wait(100);
  EXPECT_THAT(desk_.Wire(), ElementsAre("20 B0 00 00", "20 B0 20 01", "20 C0 01"));
  Find("3011");
  EXPECT_FALSE(state().FindUserStyle);
}

TEST_F(FindId, TheInstrumentsOwnWindowIsLookedAtToo) {
  desk_.Open("Song.arr");
  desk_.Press("frmArrU(1).CommLoadArr");
  desk_.Wait(100);
  desk_.Press("mnuArrU");
  desk_.program.Arr(1)->UserClose();
  desk_.program.toolkit.FindForm("frmFindID")->UserActivate();
  Find("3012");
  EXPECT_EQ(Front(), "frmArrU(9)");
  EXPECT_EQ(desk_.program.Arr(1), nullptr);
  desk_.Wait(100);
  EXPECT_FALSE(state().FindActive);
}

TEST_F(FindId, AFileThatANewFilesWindowWasSavedToIsPlayedThere) {
  desk_.Press("mnuNuovoArr");
  ChildWindow* window = desk_.program.app.new_arr_windows[1];
  ImageFor(*window).replace(302, 164, ArrRecord({"New", 5, false, {}}));
  Set(ImageFor(*window), 4, 1);
  ArrRecordsChanged(*window);
  window->Activated();
  std::filesystem::remove(desk_.folder.Path("Song.arr"));
  desk_.program.toolkit.files = {{false, desk_.folder.Path("Song.arr"), 1, false}};
  ASSERT_TRUE(desk_.Press("mnuSalva"));
  desk_.Log();
  Find("3011");
  EXPECT_EQ(Front(), "frmArrNew(1)");
  EXPECT_THAT(desk_.Wire(), ElementsAre("10 B0 00 00", "10 B0 20 01", "10 C0 00"));
  EXPECT_EQ(desk_.program.Arr(1), nullptr);
  EXPECT_FALSE(state().FindActive);
}

TEST_F(FindId, AVanishedOrEmptyFileIsTold) {
  const ShownBox absent{48, kTitle, "File Arrangement not found"};
  EXPECT_THAT(BoxesOf("4011"), ElementsAre(absent));
  desk_.Put("Gone.arr", "");
  EXPECT_THAT(BoxesOf("4011"), ElementsAre(absent));
  EXPECT_EQ(desk_.program.Arr(1), nullptr);
}

TEST_F(FindId, ADamagedFileIsTold) {
  desk_.Put("Gone.arr", "KORG");
  EXPECT_THAT(BoxesOf("4011"), ElementsAre(ShownBox{48, "Opening Gone.arr", "Error reading Gone.arr"}));
}

TEST_F(FindId, WithoutADatabaseOrWithABadOneTheBoxTells) {
  for (const std::string& content : {std::string("i40DBArx"), std::string(27221, 'x')}) {
    desk_.Put("i40DBArr", content);
    EXPECT_THAT(BoxesOf("3011"), ElementsAre(ShownBox{48, kTitle, "File i40DBArrdata error"}));
    EXPECT_EQ(desk_.folder.Get("i40DBArr"), content);
  }
  desk_.Put("i40DBArr", "");
  EXPECT_THAT(BoxesOf("3011"), ElementsAre(ShownBox{48, kTitle, "File i40DBArrnot found"}));
  EXPECT_FALSE(std::filesystem::exists(desk_.folder.Path("i40DBArr")));
  EXPECT_THAT(BoxesOf("3011"), ElementsAre(ShownBox{48, kTitle, "File i40DBArrnot found"}));
}

TEST_F(FindId, ADiskThatFailsEndsTheSearchWithItsBox) {
  desk_.program.disk.Fail("read", "EIO");
  EXPECT_THAT(BoxesOf("3011"), ElementsAre(ShownBox{48, "Reading i40DBArr", "Error I/O device"}));
}

TEST_F(FindId, WithoutAFreeWindowItEndsWithoutAWord) {
  for (int i = 1; i <= 8; ++i) {
    desk_.Put("F" + std::to_string(i) + ".arr", ArrBytes({{"One", 5, false, {}}}));
    desk_.Open("F" + std::to_string(i) + ".arr");
  }
  EXPECT_FALSE(desk_.Enabled("mnuApriArr"));
  desk_.program.toolkit.FindForm("frmFindID")->UserActivate();
  EXPECT_THAT(BoxesOf("3011"), IsEmpty());
  desk_.program.Arr(4)->UserClose();
  Find("3011");
  EXPECT_EQ(desk_.program.Caption(4), "File Arr - Song.arr (4)");
  EXPECT_FALSE(desk_.Enabled("mnuApriArr"));
}

TEST_F(FindId, ANewSearchTakesOverFromOneThatWaits) {
  settings().CaricaArr = true;
  Find("3012");
  desk_.Wait(15);
  desk_.program.toolkit.FindForm("frmFindID")->UserActivate();
  Find("912");
  desk_.Wait(10000);
  const std::vector<std::string> wire = desk_.Wire();
  EXPECT_EQ(wire.back().substr(wire.back().find(' ') + 1), "C0 01");
  EXPECT_FALSE(state().FindActive);
  EXPECT_EQ(desk_.List(2).Row(), 1);
  EXPECT_EQ(desk_.Text("frmArrU(1).Text1"), "30") << "the first one never clicked its row";
  EXPECT_EQ(desk_.Text("frmArrU(2).Text1"), "912");
}

TEST_F(FindId, AWindowThatClosesUnderItsSearchEndsIt) {
  settings().CaricaArr = true;
  Find("3012");
  desk_.program.Arr(1)->UserClose();
  EXPECT_FALSE(state().FindActive);
  EXPECT_EQ(desk_.Text("frmMain.Label1"), "");
}

TEST_F(FindId, AFileThatTheUserOpensMeanwhileIsNotTakenForTheOneSearched) {
  settings().CaricaArr = true;
  settings().CaricaSty = true;
  desk_.Put("Song.sty", StyBytes(1));
  Find("3012");
  desk_.Open("Other.arr");
  EXPECT_EQ(desk_.List(2).Row(), -1);
  EXPECT_TRUE(state().FindActive);
  EXPECT_TRUE(state().FindUserStyle) << "what the search has found stays";
  desk_.Wait(10000);
  EXPECT_FALSE(state().FindActive);
}

TEST_F(FindId, AFieldThatClosesTakesItsWaitTextWithIt) {
  desk_.Find<ui::TextBox>("frmFindID.Text1")->UserType("3011");
  desk_.Press("frmFindID.CommOK");
  desk_.program.toolkit.FindForm("frmFindID")->UserClose();
  EXPECT_EQ(desk_.Text("frmMain.Label1"), "");
  desk_.Wait(100);
  EXPECT_EQ(desk_.program.Arr(1), nullptr);
}

// Two entries of one name, as only damage makes them: the look-up of the window gives the other one's id.
TEST_F(FindId, AnEntryWhoseNameStandsTwiceIsFoundAllTheSame) {
  desk_.Put("i40DBArr", DatabaseBytes({{"Song", 8}, {"Song", 30}}, desk_.folder.Path()));
  Find("3012");
  EXPECT_EQ(desk_.List(1).Row(), 1);
  desk_.Wait(100);
  EXPECT_FALSE(state().FindActive);
}

}  // namespace
}  // namespace zentaline::test
