// The window of an arrangement file as it opens: rows, styles, id, sibling files, and what the rows show when they are
// clicked.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/arrangement/arr_desk.h"

namespace zentaline::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// A database of one entry, by its layout: file `name` has the id 12.
std::string Database(const std::string& name, const std::string& directory) {
  std::string db = "i40DBArr" + Zeros(44);
  db += Field(name, 24) + Hand({12, 0});
  for (int i = 4; i <= 999; ++i) db += Zeros(1) + Blanks(23) + Zeros(2);
  std::string map = Zeros(997);
  map[9] = 1;
  return db + map + Field(directory, 250);
}

class Window : public ::testing::Test {
 protected:
  void OpenSong(const std::string& arr, bool read_only = false) {
    desk_.Put("Song.arr", arr);
    desk_.Open("Song.arr", read_only);
  }
  std::string Text(const std::string& control) { return desk_.Text("frmArrU(1)." + control); }
  bool Enabled(const std::string& control) { return desk_.Enabled("frmArrU(1)." + control); }
  // What Text2 shows of a record with these parts.
  std::string Program(const std::vector<std::pair<int, int>>& parts) {
    OpenSong(ArrBytes({{"One", 0, false, parts}}));
    desk_.Select(0);
    std::string text = Text("Text2");
    desk_.program.Arr(1)->UserClose();
    return text;
  }

  ArrDesk desk_;
};

TEST_F(Window, TheRowsCarryTheLabelsOfThePanel) {
  std::vector<Arr> all;
  for (int i = 0; i < 64; ++i) all.push_back({"Name " + std::to_string(i), i % 128, i % 3 == 0, {}});
  OpenSong(ArrBytes(all));
  const std::vector<std::string> rows = desk_.Rows("frmArrU(1).List1");
  ASSERT_EQ(rows.size(), 64U);
  int i = 0;
  for (const char tens : std::string("12345678")) {
    for (const char units : std::string("12345678")) {
      EXPECT_EQ(rows[static_cast<std::size_t>(i)],
                std::string() + tens + units + (i % 3 == 0 ? " +" : "  ") + Field("Name " + std::to_string(i), 16));
      ++i;
    }
  }
  EXPECT_EQ(desk_.program.Caption(1), "File Arr - Song.arr (1)");
}

TEST_F(Window, ARowThatWasNeverWrittenIsItsLabelAloneAndANameOfBlanksIsNot) {
  std::string arr = ArrBytes({{"One", 1, false, {}}, {" ", 2, false, {}}, {" ", 3, true, {}}});
  OpenSong(arr);
  const std::vector<std::string> rows = desk_.Rows("frmArrU(1).List1");
  EXPECT_EQ(rows[0], "11  One             ");
  EXPECT_EQ(rows[1], "12" + Blanks(18));
  EXPECT_EQ(rows[2], "13 +" + Blanks(16));
  EXPECT_EQ(rows[3], "14");
  EXPECT_EQ(rows[63], "88");
  // The blank name counts as written, so its style is among the file's; its row counts as empty when it is clicked.
  EXPECT_THAT(desk_.Rows("frmArrU(1).Combo1"), ElementsAre("8 Beat 2 (A12)", "8 Beat 3 (A13)"));
  desk_.Select(2);
  EXPECT_EQ(Text("Combo1"), "- empty - (U14)");
  desk_.Select(1);
  EXPECT_EQ(Text("Combo1"), "");
}

TEST_F(Window, SixtyFourEmptyRecordsLeaveNothingToSend) {
  OpenSong(ArrBytes({}));
  EXPECT_FALSE(Enabled("CommLoadArr"));
  EXPECT_FALSE(desk_.Enabled("mnuLoadArr"));
  EXPECT_THAT(desk_.Rows("frmArrU(1).Combo1"), IsEmpty());
}

TEST_F(Window, OneWrittenRecordIsEnoughToSend) {
  OpenSong(ArrBytes({{"", 0, false, {}}}).replace(32 + 164 * 63, 4, "Last"));
  EXPECT_TRUE(Enabled("CommLoadArr"));
  EXPECT_TRUE(desk_.Enabled("mnuLoadArr"));
}

TEST_F(Window, EveryByteOfANameIsShownAndComesBackUnchanged) {
  for (int first = 0; first < 256; first += 16) {
    std::string name;
    for (int b = first; b < first + 16; ++b) name += static_cast<char>(b == 0 ? 'x' : b);
    std::string arr = ArrBytes({});
    arr.replace(32, 16, name);
    OpenSong(arr);
    const std::string row = desk_.Rows("frmArrU(1).List1").at(0);
    Bytes back;
    ASSERT_TRUE(BytesFromUtf8(row.substr(4), back));
    EXPECT_EQ(back, name) << first;
    desk_.program.Arr(1)->UserClose();
    EXPECT_EQ(desk_.folder.Get("Song.arr"), arr);
  }
}

TEST_F(Window, TheStylesOfTheFileAreListedOnceInTheOrderOfTheRows) {
  desk_.Put("Song.sty", StyImage({{"Mine", 20}, {"Yours", 24}, {"- empty -", 16}, {"Last", 40}}));
  OpenSong(ArrBytes({{"A", 127, false, {}},
                     {"B", 0, false, {}},
                     {"C", 127, false, {}},
                     {"D", 5, true, {}},
                     {"E", 64, false, {}},
                     {"F", 63, false, {}}}));
  EXPECT_THAT(desk_.Rows("frmArrU(1).Combo1"),
              ElementsAre("New Age (B88)", "8 Beat 1 (A11)", "I. Waltz (B11)", "Disco Samba (A88)", "Mine (U11)",
                          "Yours (U12)", "- empty - (U13)", "Last (U14)"));
}

TEST_F(Window, UserStylesAreNumberedInTwoDecades) {
  std::vector<Style> styles;
  for (int e = 0; e < 16; ++e) styles.push_back({"S" + std::to_string(e), 16});
  desk_.Put("Song.sty", StyImage(styles));
  OpenSong(ArrBytes({{"A", 7, true, {}}, {"B", 8, true, {}}, {"C", 15, true, {}}, {"D", 16, true, {}}}));
  const std::vector<std::string> rows = desk_.Rows("frmArrU(1).Combo1");
  EXPECT_EQ(rows.at(7), "S7 (U18)");
  EXPECT_EQ(rows.at(8), "S8 (U21)");
  EXPECT_EQ(rows.at(15), "S15 (U28)");
  desk_.Select(0);
  EXPECT_EQ(Text("Combo1"), "S7 (U18)");
  desk_.Select(1);
  EXPECT_EQ(Text("Combo1"), "S8 (U21)");
  desk_.Select(2);
  EXPECT_EQ(Text("Combo1"), "S15 (U28)");
  // Nothing clips a number above 15: the next decade, and what the sizes behind the table lead to.
  desk_.Select(3);
  EXPECT_THAT(Text("Combo1"), ::testing::EndsWith(" (U31)"));
}

TEST_F(Window, AnyStyleLocationButOneIsAFactoryStyle) {
  std::string arr = ArrBytes({{"A", 10, false, {}}, {"B", 10, false, {}}, {"C", 10, false, {}}});
  Set(arr, 32 + 19, 0);
  Set(arr, 32 + 164 + 19, 2);
  Set(arr, 32 + 328 + 19, 255);
  OpenSong(arr);
  for (int row = 0; row < 3; ++row) {
    desk_.Select(row);
    EXPECT_EQ(Text("Combo1"), "16 Beat 3 (A23)") << row;
    EXPECT_EQ(desk_.List().RowText(row).substr(2, 2), "  ") << row;
  }
}

TEST_F(Window, TheNamesOfStylesAreShownWithTheirAccents) {
  OpenSong(ArrBytes({{"A", 61, false, {}}}));
  EXPECT_THAT(desk_.Rows("frmArrU(1).Combo1"), ElementsAre("Tikytikit\xC3\xA0 (A86)"));
}

TEST_F(Window, TheProgramOfUpper1IsNamedByItsBank) {
  const auto upper1 = [](int program, int bank) {
    std::vector<std::pair<int, int>> parts(9, {0, 0});
    parts[6] = {program, bank};
    return parts;
  };
  EXPECT_EQ(Program(upper1(0, 0)), "Piano 1 (A11)");
  EXPECT_EQ(Program(upper1(63, 0)), "Syn.Brass2 (A88)");
  EXPECT_EQ(Program(upper1(64, 0)), "SopranoSax (B11)");
  EXPECT_EQ(Program(upper1(127, 0)), "Gun Shot (B88)");
  EXPECT_EQ(Program(upper1(63, 1)), "Stz<Brass (C88)");
  EXPECT_EQ(Program(upper1(64, 1)), "AltoBreath (D11)");
  EXPECT_EQ(Program(upper1(127, 1)), "Explosion (D88)");
  EXPECT_EQ(Program(upper1(0, 2)), "Piano&Strgs (E11)");
  EXPECT_EQ(Program(upper1(9, 2)), "70' Organ (E22)");
  EXPECT_EQ(Program(upper1(0, 4)), "GM Kit 1");
  EXPECT_EQ(Program(upper1(15, 4)), "(User 2)");
  EXPECT_EQ(Program(upper1(16, 4)), "Drum");
  EXPECT_EQ(Program(upper1(127, 4)), "Drum");
  EXPECT_EQ(Program(upper1(64, 3)), "F/User");
  EXPECT_EQ(Program(upper1(0, 5)), "");
  EXPECT_EQ(Program(upper1(0, 255)), "");
}

TEST_F(Window, AnyPartWithAProgramOfTheUsersShowsUser) {
  for (std::size_t part = 0; part < 9; ++part) {
    std::vector<std::pair<int, int>> parts(9, {0, 0});
    parts[part] = {63, 3};
    EXPECT_EQ(Program(parts), "User") << part;
    parts[part] = {64, 3};
    EXPECT_EQ(Program(parts), part == 6 ? "F/User" : "Piano 1 (A11)") << part;
  }
}

// --- Sibling files ---

TEST_F(Window, WithoutSiblingsTheirButtonsAreOffAndTheEmptyStylesAreAttached) {
  OpenSong(ArrBytes({{"A", 2, true, {}}}));
  EXPECT_EQ(desk_.Byte(1, 9), 1);
  EXPECT_EQ(desk_.Byte(1, 6), 0);
  for (const char* name : {"CommLoadSty", "CommShowSty", "CommLoadPrg", "CommShowPrg"}) EXPECT_FALSE(Enabled(name));
  EXPECT_FALSE(desk_.Enabled("mnuLoadSty"));
  EXPECT_FALSE(desk_.Enabled("mnuLoadPrg"));
  EXPECT_EQ(desk_.program.Arr(1)->window_image().substr(42622), EmptyStyles());
  EXPECT_THAT(desk_.program.Boxes(), IsEmpty());
  EXPECT_EQ(desk_.folder.Count(), 3);  // nothing was made by looking
}

TEST_F(Window, SiblingsAreAttachedByteForByte) {
  const std::string sty = StyBytes(2);
  const std::string prg = PrgFile();
  desk_.Put("Song.sty", sty);
  desk_.Put("Song.prg", prg);
  OpenSong(ArrBytes({{"A", 2, true, {}}}));
  const Bytes& image = desk_.program.Arr(1)->window_image();
  EXPECT_EQ(image.substr(42622), sty);
  EXPECT_EQ(image.substr(12142, 30480), prg);
  EXPECT_EQ(desk_.Byte(1, 9), 2);
  EXPECT_EQ(desk_.Byte(1, 6), 1);
  EXPECT_EQ(desk_.Byte(1, 19), 0);
  EXPECT_TRUE(Enabled("CommLoadSty"));
  EXPECT_TRUE(Enabled("CommLoadPrg"));
  EXPECT_TRUE(desk_.Enabled("mnuLoadSty"));
  EXPECT_TRUE(desk_.Enabled("mnuLoadPrg"));
}

TEST_F(Window, APggIsFoundWhereThereIsNoPrgAndAPrgGoesFirst) {
  std::string pgg = PrgFile(2);
  pgg.replace(0, 4, "KPGG");
  desk_.Put("Song.pgg", pgg);
  OpenSong(ArrBytes({{"A", 2, false, {}}}));
  EXPECT_EQ(desk_.Byte(1, 6), 1);
  EXPECT_EQ(desk_.Byte(1, 19), 1);
  EXPECT_EQ(desk_.program.Arr(1)->window_image().substr(12142, 30480), pgg);
  desk_.program.Arr(1)->UserClose();
  const std::string prg = PrgFile(1);
  desk_.Put("Song.prg", prg);
  desk_.Open("Song.arr");
  EXPECT_EQ(desk_.Byte(1, 19), 0);
  EXPECT_EQ(desk_.program.Arr(1)->window_image().substr(12142, 30480), prg);
}

TEST_F(Window, ADamagedPrgShowsItsBoxAndThePggIsLookedForAllTheSame) {
  std::string pgg = PrgFile(2);
  pgg.replace(0, 4, "KPGG");
  desk_.Put("Song.pgg", pgg);
  desk_.Put("Song.prg", PrgFile().substr(0, 30479));
  OpenSong(ArrBytes({{"A", 2, false, {}}}));
  EXPECT_THAT(desk_.program.Boxes(), ElementsAre(ShownBox{48, "Opening Song.prg", "Data format error"}));
  EXPECT_EQ(desk_.Byte(1, 6), 1);
  EXPECT_EQ(desk_.Byte(1, 19), 1);
}

TEST_F(Window, ProgramFilesOfAnotherSizeOrSignatureAreRefused) {
  std::string wrong_model = PrgFile();
  wrong_model[4] = 'N';
  std::string wrong_seventh = PrgFile();
  wrong_seventh[6] = 1;
  for (const std::string& bad : {wrong_model, wrong_seventh, PrgFile() + Zeros(1), PrgFile().substr(0, 1),
                                 PrgFile() + PrgFile(), PrgFile().substr(0, 30479)}) {
    desk_.Put("Song.prg", bad);
    OpenSong(ArrBytes({{"A", 2, false, {}}}));
    EXPECT_THAT(desk_.program.Boxes(), ElementsAre(ShownBox{48, "Opening Song.prg", "Data format error"}));
    EXPECT_EQ(desk_.Byte(1, 6), 0);
    EXPECT_FALSE(Enabled("CommLoadPrg"));
    EXPECT_EQ(desk_.folder.Get("Song.prg"), bad);
    desk_.program.Arr(1)->UserClose();
  }
  std::string any_eighth = PrgFile();
  any_eighth[7] = 77;
  desk_.Put("Song.prg", any_eighth);
  desk_.Open("Song.arr");
  EXPECT_EQ(desk_.Byte(1, 6), 1);
}

TEST_F(Window, ADamagedStyShowsTheReadersBoxAndTheWindowsBox) {
  for (const std::size_t byte : {0U, 3U, 4U, 5U, 6U, 7U}) {
    std::string sty = StyBytes(1);
    sty[byte] = '?';
    desk_.Put("Song.sty", sty);
    OpenSong(ArrBytes({{"A", 2, true, {}}}));
    EXPECT_THAT(desk_.program.Boxes(), ElementsAre(ShownBox{48, "Opening Song.sty", "Error reading Song.sty"},
                                                   ShownBox{48, "Opening Song.sty", "Error reading Song"}))
        << byte;
    EXPECT_EQ(desk_.Byte(1, 9), 1);
    EXPECT_FALSE(Enabled("CommLoadSty"));
    EXPECT_EQ(desk_.program.Arr(1)->window_image().substr(42622), EmptyStyles());
    EXPECT_EQ(desk_.folder.Get("Song.sty"), sty);
    desk_.program.Arr(1)->UserClose();
  }
}

TEST_F(Window, TheBytesOfAStyBehindItsEighthAreNotLookedAt) {
  std::string sty = StyBytes(1);
  for (std::size_t i = 8; i < 22; ++i) sty[i] = '?';
  desk_.Put("Song.sty", sty);
  OpenSong(ArrBytes({{"A", 2, true, {}}}));
  EXPECT_EQ(desk_.Byte(1, 9), 2);
  EXPECT_EQ(desk_.program.Arr(1)->window_image().substr(42622), sty);
}

TEST_F(Window, AnEmptyStyIsRemovedAndCountsAsNone) {
  desk_.Put("Song.sty", "");
  desk_.Put("Song.prg", "");
  desk_.Put("Song.pgg", "");
  OpenSong(ArrBytes({{"A", 2, true, {}}}));
  EXPECT_THAT(desk_.program.Boxes(), IsEmpty());
  EXPECT_EQ(desk_.Byte(1, 9), 1);
  EXPECT_EQ(desk_.Byte(1, 6), 0);
  EXPECT_EQ(desk_.folder.Count(), 3);
}

TEST_F(Window, AStyWhoseTableClaimsMoreThanItHoldsIsShownAndSentAsFarAsItGoes) {
  std::string sty = StyBytes(1);
  for (std::size_t e = 0; e < 16; ++e) {
    Set(sty, 25 + 4 * e, 0xFF);
    Set(sty, 26 + 4 * e, 0xFF);
  }
  desk_.Put("Song.sty", sty);
  OpenSong(ArrBytes({{"A", 15, true, {}}}));
  EXPECT_EQ(desk_.Rows("frmArrU(1).Combo1").size(), 16U);
  desk_.Select(0);
  EXPECT_THAT(Text("Combo1"), ::testing::EndsWith(" (U28)"));
  desk_.Press("frmArrU(1).CommLoadSty");
  desk_.Wait(10000);
  const std::vector<std::string> log = desk_.Log();
  ASSERT_FALSE(desk_.dumps.empty());
  const std::string payload = DumpPayload(desk_.dumps[0]);
  // Descriptors by the table, then what there is of 4 * 65535 bytes, and zero bytes for what is missing.
  EXPECT_EQ(payload.size(), 24U + 4 * 65535);
  EXPECT_EQ(payload.substr(24, sty.size() - 224), sty.substr(224));
  EXPECT_EQ(payload.substr(24 + sty.size() - 224), Zeros(4 * 65535 - (sty.size() - 224)));
}

TEST_F(Window, AStyOfItsHeaderAloneHasNoStyles) {
  desk_.Put("Song.sty", StyImage({}));
  OpenSong(ArrBytes({{"A", 2, true, {}}}));
  EXPECT_EQ(desk_.Byte(1, 9), 2);
  EXPECT_TRUE(Enabled("CommLoadSty"));
  EXPECT_THAT(desk_.Rows("frmArrU(1).Combo1"), IsEmpty());
  desk_.Log();
  desk_.Press("frmArrU(1).CommLoadSty");
  desk_.Wait(5000);
  EXPECT_THAT(desk_.Log(), IsEmpty());
}

TEST_F(Window, ASiblingThatCantBeReadShowsTheErrorOfTheSystem) {
  desk_.Put("Song.arr", ArrBytes({{"A", 2, true, {}}}));
  std::filesystem::create_directory(desk_.folder.Path("Song.sty"));
  std::filesystem::create_directory(desk_.folder.Path("Song.prg"));
  desk_.Open("Song.arr");
  EXPECT_THAT(desk_.program.Boxes(), ElementsAre(ShownBox{48, "Opening Song.sty", "Read only file"},
                                                 ShownBox{48, "Opening Song.sty", "Error reading Song"},
                                                 ShownBox{48, "Opening Song.prg", "Read only file"}));
  EXPECT_NE(desk_.program.Arr(1), nullptr);
  EXPECT_TRUE(std::filesystem::is_directory(desk_.folder.Path("Song.sty")));
}

// --- The id ---

TEST_F(Window, TheIdOfTheFileIsFollowedByTheRow) {
  desk_.Put("i40DBArr", Database("SONG", desk_.folder.Path()));
  OpenSong(ArrBytes({{"A", 1, false, {}}}).replace(32 + 164 * 18, 4, "Then"));
  EXPECT_EQ(Text("Text1"), "12");
  desk_.Select(0);
  EXPECT_EQ(Text("Text1"), "1211");
  desk_.Select(18);
  EXPECT_EQ(Text("Text1"), "1233");
  desk_.Select(1);
  EXPECT_EQ(Text("Text1"), "");
}

TEST_F(Window, WithoutAnIdNothingIsShown) {
  desk_.Put("i40DBArr", Database("Other", desk_.folder.Path()));
  OpenSong(ArrBytes({{"A", 1, false, {}}}));
  EXPECT_EQ(Text("Text1"), "");
  desk_.Select(0);
  EXPECT_EQ(Text("Text1"), "");
}

TEST_F(Window, WindowNineHidesTheIdAndItsButton) {
  desk_.Put("i40DBArr", Database("Song", desk_.folder.Path()));
  OpenSong(ArrBytes({{"A", 1, false, {}}}));
  desk_.Press("frmArrU(1).CommLoadArr");
  desk_.Wait(100);
  ASSERT_TRUE(desk_.Press("mnuArrU"));
  for (const char* name : {"Text1", "Label1(0)", "Label1(1)", "CommAdd"}) {
    EXPECT_FALSE(desk_.Find<ui::Control>(std::string("frmArrU(9).") + name)->visible()) << name;
  }
  EXPECT_TRUE(desk_.Find<ui::Control>("frmArrU(9).Text2")->visible());
  EXPECT_FALSE(desk_.Enabled("mnui40DBArr"));
  desk_.Select(0, 9);
  EXPECT_EQ(desk_.Text("frmArrU(9).Text1"), "");
  EXPECT_EQ(desk_.Text("frmArrU(9).Combo1"), "8 Beat 2 (A12)");
  EXPECT_EQ(desk_.program.Caption(9), "Arr User - Song.arr");
}

// --- Keys, popup, closing ---

TEST_F(Window, DeleteInAReadOnlyWindowIsRefused) {
  OpenSong(ArrBytes({{"A", 1, false, {}}}), true);
  EXPECT_EQ(desk_.program.Caption(1), "File Arr - Song.arr (1) - Read Only");
  EXPECT_EQ(desk_.Byte(1, 2), 1);
  desk_.Select(0);
  desk_.List().UserKey({ui::Key::kDelete, ""});
  EXPECT_THAT(desk_.program.Boxes(), ElementsAre(ShownBox{48, "Song", "Read only file"}));
  EXPECT_EQ(desk_.program.Arr(1)->window_image().substr(270, 10528), ArrBytes({{"A", 1, false, {}}}));
}

TEST_F(Window, ARightClickOpensTheArrangementMenu) {
  OpenSong(ArrBytes({{"A", 1, false, {}}}));
  desk_.Log();
  desk_.List().UserContext();
  EXPECT_THAT(desk_.Log(), ElementsAre("popup 0 mnuModifica"));
}

TEST_F(Window, AChangedFileIsAskedForBeforeItCloses) {
  const std::string arr = ArrBytes({{"A", 1, false, {}}});
  const ShownBox question{51, "File Arr - Song.arr (1)", "The file has changed\nSave changes ?"};
  OpenSong(arr);
  Set(ImageFor(*desk_.program.Arr(1)), 303, 'B');
  Set(ImageFor(*desk_.program.Arr(1)), 4, 1);
  desk_.program.toolkit.answers = {ui::BoxAnswer::kCancel};
  EXPECT_FALSE(desk_.program.Arr(1)->UserClose());
  EXPECT_THAT(desk_.program.Boxes(), ElementsAre(question));
  EXPECT_EQ(desk_.folder.Get("Song.arr"), arr);
  desk_.program.disk.Fail("write", "ENOSPC");
  desk_.program.toolkit.answers = {ui::BoxAnswer::kYes};
  EXPECT_FALSE(desk_.program.Arr(1)->UserClose()) << "what could not be saved stays open";
  EXPECT_THAT(desk_.program.Boxes(), ElementsAre(question, ::testing::Field(&ShownBox::title, "Opening Song.arr")));
  EXPECT_EQ(desk_.folder.Get("Song.arr"), arr);
  desk_.program.toolkit.answers = {ui::BoxAnswer::kYes};
  EXPECT_TRUE(desk_.program.Arr(1)->UserClose());
  EXPECT_EQ(desk_.folder.Get("Song.arr"), ArrBytes({{"B", 1, false, {}}}));
}

TEST_F(Window, ARefusedSaveLosesNothing) {
  const std::string arr = ArrBytes({{"A", 1, false, {}}});
  OpenSong(arr);
  Set(ImageFor(*desk_.program.Arr(1)), 4, 1);
  Set(ImageFor(*desk_.program.Arr(1)), 303, 'B');
  desk_.program.toolkit.answers = {ui::BoxAnswer::kNo};
  EXPECT_TRUE(desk_.program.Arr(1)->UserClose());
  EXPECT_EQ(desk_.folder.Get("Song.arr"), arr);
}

// Styles alone can have been changed, by a paste.
TEST_F(Window, StylesThatAreChangedAreAskedForAsArrangementsAre) {
  const std::string arr = ArrBytes({{"A", 1, false, {}}});
  const ShownBox question{51, "File Arr - Song.arr (1)", "The file has changed\nSave changes ?"};
  for (const int arrangements : {0, 1}) {
    for (const int styles : {0, 1}) {
      desk_.Put("Song.sty", StyBytes(1));
      OpenSong(arr);
      Bytes& image = ImageFor(*desk_.program.Arr(1));
      image.replace(42622 + 229, 1, "x");  // in the data of the first style
      Set(image, 4, arrangements);
      Set(image, 10, styles);
      desk_.program.Boxes();
      const bool changed = arrangements == 1 || styles == 1;
      desk_.program.toolkit.answers = {ui::BoxAnswer::kCancel};
      EXPECT_EQ(desk_.program.Arr(1)->UserClose(), !changed) << arrangements << styles;
      EXPECT_EQ(desk_.program.Boxes(), changed ? std::vector<ShownBox>{question} : std::vector<ShownBox>());
      if (!changed) continue;
      desk_.program.toolkit.answers = {ui::BoxAnswer::kYes};
      EXPECT_TRUE(desk_.program.Arr(1)->UserClose());
      const std::string saved = desk_.folder.Get("Song.sty");
      EXPECT_EQ(saved.at(229), styles == 1 ? 'x' : StyBytes(1)[229]) << "what is marked is written";
    }
  }
}

TEST_F(Window, AWindowMadeInMemoryIsSavedUnderANameThatIsAskedFor) {
  OpenSong(ArrBytes({{"A", 1, false, {}}}));
  Set(ImageFor(*desk_.program.Arr(1)), 4, 1);
  Set(ImageFor(*desk_.program.Arr(1)), 11, 1);
  desk_.program.toolkit.answers = {ui::BoxAnswer::kYes};
  EXPECT_FALSE(desk_.program.Arr(1)->UserClose()) << "a dialog that is cancelled keeps it open";
  desk_.program.toolkit.answers = {ui::BoxAnswer::kYes};
  desk_.program.toolkit.files = {{false, desk_.folder.Path("New.arr"), 1, false}};
  EXPECT_TRUE(desk_.program.Arr(1)->UserClose());
  EXPECT_EQ(desk_.folder.Get("New.arr"), ArrBytes({{"A", 1, false, {}}}));
}

TEST_F(Window, AFileThatHasLeftTheRecentFilesComesBackAmongThemWhenItsWindowCloses) {
  OpenSong(ArrBytes({{"A", 1, false, {}}}), true);
  auto& recent = desk_.program.app.core.RecentFiles;
  recent = {};
  desk_.program.Arr(1)->UserClose();
  EXPECT_EQ(recent[0].path, desk_.folder.Path("Song"));
  EXPECT_EQ(recent[0].type, 1);
  EXPECT_TRUE(recent[0].read_only);
}

TEST_F(Window, OnlyEightFilesOpenAndTheNinthWaitsForAPlace) {
  for (int i = 1; i <= 9; ++i) desk_.Put("S" + std::to_string(i) + ".arr", ArrBytes({{"A", i, false, {}}}));
  for (int i = 1; i <= 8; ++i) desk_.Open("S" + std::to_string(i) + ".arr");
  EXPECT_FALSE(desk_.Enabled("mnuApriArr"));
  desk_.program.Arr(5)->UserClose();
  ASSERT_TRUE(desk_.Enabled("mnuApriArr"));
  desk_.Open("S9.arr");
  EXPECT_EQ(desk_.program.Caption(5), "File Arr - S9.arr (5)");
}

}  // namespace
}  // namespace zentaline::test
