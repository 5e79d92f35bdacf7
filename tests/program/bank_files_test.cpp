// Banks as files: opening, new ones, saving, closing, recent files, and coming back.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/program/prg_desk.h"

namespace zentaline::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

// The template: a bank of programs with a channel of its own, and bytes of every value behind it.
std::string Template() {
  return Bank(5, 9);
}

// What a new bank holds: the template with 64 times 172 zero bytes from the header's last byte on, channel 0, and ten
// blanks at the start of each record.
std::string NewBank() {
  std::string file = Template();
  file.replace(47, 11008, Zeros(11008));
  file[15] = 0;
  for (std::size_t n = 0; n < 64; ++n) file.replace(48 + 172 * n, 10, Blanks(10));
  return file;
}

std::string WithLink(std::string file) {
  PutLink(file, 11, 0, 3, "Honky-tonk");
  return file;
}

class BankFiles : public ::testing::Test {
 protected:
  BankFiles() { desk_.Put("i40Prg", Template()); }
  void Open(const std::string& file, const std::string& name = "Bank.prg", bool read_only = false) {
    desk_.Put(name, file);
    desk_.OpenPrg(name, read_only);
  }
  bool There(const std::string& name) { return std::filesystem::exists(desk_.folder.Path(name)); }
  std::vector<std::string> Files() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(desk_.folder.Path())) {
      const std::string name = entry.path().filename().string();
      if (name.ends_with(".prg") || name.ends_with(".pgg")) names.push_back(name);
    }
    std::sort(names.begin(), names.end());
    return names;
  }
  void AnswerBox(ui::BoxAnswer answer) { desk_.program.toolkit.answers = {answer}; }
  bool Close(int number = 1) { return desk_.Prg(number)->UserClose(); }
  std::vector<ShownBox> Boxes() { return desk_.program.Boxes(); }

  PrgDesk desk_;
};

const ShownBox kFileChanged{51, "File Prg - Bank.prg (1) - MIDI Channel 1", "The file has changed\nSave changes ?"};

// --- Opening ---

TEST_F(BankFiles, WrongFilesAreRefused) {
  Open(Bank() + "x", "Long.prg");
  EXPECT_THAT(Boxes(), ElementsAre(ShownBox{48, "Opening Long.prg", "Data format error"}));
  Open(Bank().substr(1), "Short.prg");
  EXPECT_THAT(Boxes(), ElementsAre(ShownBox{48, "Opening Short.prg", "Data format error"}));
  Open("KORX" + Bank().substr(4), "Odd.prg");
  EXPECT_THAT(Boxes(), ElementsAre(ShownBox{48, "Opening Odd.prg", "Data format error"}));
  Open(Bank(), "Bank.txt");
  EXPECT_THAT(Boxes(), ElementsAre(ShownBox{48, "Bank.txt", "Data format error"}));
  Open("", "Empty.prg");
  EXPECT_THAT(Boxes(), ElementsAre(ShownBox{48, "Empty.prg", "File not found"}));
  EXPECT_FALSE(There("Empty.prg")) << "an empty file counts as absent and goes";
  EXPECT_EQ(desk_.Prg(1), nullptr);
  EXPECT_TRUE(desk_.Enabled("mnuApriPrg"));
}

TEST_F(BankFiles, TheBufferHoldsWhatWasReadAlsoOfAWrongFile) {
  const Bytes& buffer = desk_.state().ProgramFileBuffer;
  Open(Bank(3) + "x", "Long.prg");
  EXPECT_EQ(buffer, Bank(3));
  Open(Bank(4).substr(0, 100), "Short.prg");
  EXPECT_EQ(buffer, Bank(4).substr(0, 100) + Zeros(30380));
  Open("KORX" + Bank().substr(4), "Odd.prg");
  EXPECT_EQ(buffer, "KORX" + Bank().substr(4));
}

TEST_F(BankFiles, EitherSignatureIsTakenUnderEitherExtensionAndByteEightIsFree) {
  std::string file = WithLink(Bank());
  Set(file, 8, 0xE7);
  Open(file, "x.pgg");
  EXPECT_EQ(desk_.Caption(1), "File Prg - x.pgg (1) - MIDI Channel 1");
  EXPECT_EQ(desk_.Control(1, 19), 1);
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(BankFiles, AFileIsOpenOnce) {
  Open(Bank());
  desk_.OpenPrg("Bank.prg");
  EXPECT_THAT(Boxes(), ElementsAre(ShownBox{48, "Bank.prg", "File already open"}));
  EXPECT_EQ(desk_.Prg(2), nullptr);
}

TEST_F(BankFiles, EightBanksFillAllSlotsFilesAndNewOnesTogether) {
  for (int i = 1; i <= 5; ++i) Open(Bank(), "Bank" + std::to_string(i) + ".prg");
  for (int i = 6; i <= 8; ++i) {
    EXPECT_TRUE(desk_.Press("mnuNuovoPrg"));
    EXPECT_EQ(desk_.Caption(i), "New File Program - Untitled (" + std::to_string(i) + ") - MIDI Channel 1");
  }
  EXPECT_FALSE(desk_.Enabled("mnuNuovoPrg"));
  EXPECT_FALSE(desk_.Enabled("mnuApriPrg"));
  ASSERT_TRUE(Close(3));
  EXPECT_TRUE(desk_.Enabled("mnuNuovoPrg"));
  EXPECT_TRUE(desk_.Enabled("mnuApriPrg"));
  desk_.Press("mnuNuovoPrg");
  EXPECT_EQ(desk_.Caption(3), "New File Program - Untitled (3) - MIDI Channel 1");
  EXPECT_THAT(Boxes(), IsEmpty());
}

// --- New banks ---

TEST_F(BankFiles, ANewBankHasNumbersWithoutNames) {
  desk_.Press("mnuNuovoPrg");
  EXPECT_TRUE(desk_.program.toolkit.dialogs.empty());
  ASSERT_EQ(desk_.Rows().rows(), 64);
  EXPECT_EQ(desk_.Rows().RowText(0), "11");
  EXPECT_EQ(desk_.Rows().RowText(63), "88");
  EXPECT_EQ(desk_.Control(1, 1), 22);
  EXPECT_EQ(desk_.Control(1, 18), 1);
  for (const std::size_t position : {2u, 7u, 16u, 19u, 286u}) EXPECT_EQ(desk_.Control(1, position), 0) << position;
  EXPECT_EQ(desk_.Image().substr(20, 238), Field("Untitled", 238));
  EXPECT_EQ(desk_.Image().substr(270, 30480), NewBank());
  EXPECT_FALSE(desk_.Enabled("frmPrgUN(1).CommLoad"));
  EXPECT_FALSE(desk_.Enabled("mnuLoadPrg"));
  desk_.Log();
  desk_.Click(0);
  EXPECT_THAT(desk_.Wire(), IsEmpty());
}

// What its title marks as not saved is what a closing asks about.
TEST_F(BankFiles, ANewBankAndAChosenChannelHoldNothingThatCouldBeLost) {
  desk_.Press("mnuNuovoPrg");
  EXPECT_TRUE(desk_.Enabled("mnuSalvaAs"));
  EXPECT_FALSE(desk_.Prg(1)->modified());
  EXPECT_TRUE(Close());
  Open(Bank());
  EXPECT_FALSE(desk_.Prg(1)->modified());
  EXPECT_TRUE(desk_.Channel("frmPrgUN(1)", 4));
  EXPECT_TRUE(desk_.Enabled("mnuSalva"));
  EXPECT_FALSE(desk_.Prg(1)->modified());
  desk_.Click(3);
  desk_.Press("mnuCopia");
  desk_.Click(5);
  desk_.Press("mnuIncolla");
  EXPECT_TRUE(desk_.Prg(1)->modified());
  AnswerBox(ui::BoxAnswer::kNo);
  EXPECT_TRUE(Close());
  EXPECT_THAT(Boxes(), SizeIs(1));
}

TEST_F(BankFiles, ANewBankIsNamedInTheLanguageOfTheProgramAndUntitledInBoth) {
  PrgDesk italian(false);
  italian.Put("i40Prg", Template());
  italian.program.Start(1);
  italian.Press("mnuNuovoPrg");
  EXPECT_EQ(italian.Caption(1), "Nuovo File Program - Untitled (1) - Canale MIDI 1");
  EXPECT_EQ(italian.Image().substr(20, 238), Field("SenzaNome", 238));
}

TEST_F(BankFiles, WithoutAGoodTemplateThereIsNoNewBank) {
  desk_.Put("i40Prg", "KORG");
  desk_.Press("mnuNuovoPrg");
  EXPECT_THAT(Boxes(), ElementsAre(ShownBox{48, "Opening i40Prg", "Data format error"}));
  desk_.program.disk.Remove(desk_.folder.Path("i40Prg"));
  desk_.Press("mnuNuovoPrg");
  EXPECT_THAT(Boxes(), ElementsAre(ShownBox{48, "i40Prg", "File not found"}));
  EXPECT_EQ(desk_.Prg(1), nullptr);
  EXPECT_TRUE(desk_.Enabled("mnuNuovoPrg"));
}

TEST_F(BankFiles, ANewBankAsksForItsNameOnceAndIsSavedLikeAFileFromThenOn) {
  desk_.Press("mnuNuovoPrg");
  desk_.Answer("Mine.prg");
  ASSERT_TRUE(desk_.Press("mnuSalva"));
  ASSERT_EQ(desk_.program.toolkit.dialogs.size(), 1u);
  EXPECT_EQ(desk_.program.toolkit.dialogs[0].filter, 3);
  EXPECT_EQ(desk_.program.toolkit.dialogs[0].name, "Untitled.prg");
  EXPECT_EQ(desk_.program.toolkit.dialogs[0].default_extension, "prg");
  EXPECT_EQ(desk_.folder.Get("Mine.prg"), NewBank());
  EXPECT_EQ(desk_.Control(1, 1), 22);
  EXPECT_EQ(desk_.Control(1, 18), 0);
  EXPECT_EQ(desk_.Caption(1), "New File Program - Mine (1) - MIDI Channel 1");
  EXPECT_TRUE(desk_.Enabled("frmPrgUN(1).CommLoad"));
  EXPECT_TRUE(desk_.Enabled("mnuLoadPrg"));
  EXPECT_FALSE(desk_.Enabled("mnuSalva"));
  EXPECT_EQ(desk_.program.app.core.RecentFiles[0].path, desk_.folder.Path("Mine"));

  Set(ImageFor(*desk_.Prg(1)), 319, 'M');
  desk_.Change(1);
  desk_.Prg(1)->Activated();
  desk_.Press("mnuSalva");
  EXPECT_EQ(desk_.program.toolkit.dialogs.size(), 1u) << "no name is asked for any more";
  EXPECT_EQ(desk_.folder.Get("Mine.prg")[48], 'M');
}

TEST_F(BankFiles, AnUntouchedNewBankClosesWithoutAQuestionAndAChangedOneAsksForAName) {
  desk_.Press("mnuNuovoPrg");
  EXPECT_TRUE(Close());
  EXPECT_THAT(Boxes(), IsEmpty());
  desk_.Press("mnuNuovoPrg");
  desk_.Change(1);
  AnswerBox(ui::BoxAnswer::kYes);
  EXPECT_FALSE(Close()) << "the name was not given";
  desk_.Answer("Mine.prg");
  AnswerBox(ui::BoxAnswer::kYes);
  EXPECT_TRUE(Close());
  EXPECT_TRUE(There("Mine.prg"));
}

TEST_F(BankFiles, ANewBankIsHeardOnTheChannelChosenForIt) {
  desk_.Press("mnuNuovoPrg");
  desk_.Channel("frmPrgUN(1)", 8);
  EXPECT_EQ(desk_.Caption(1), "New File Program - Untitled (1) - MIDI Channel 9");
  EXPECT_EQ(desk_.Control(1, 286), 8);
  desk_.Log();
  desk_.Rows().SetRowText(4, "15  Pasted");
  desk_.Click(4);
  EXPECT_EQ(desk_.Wire(), Selection(0, 8, 3, 4));
}

// --- Saving ---

TEST_F(BankFiles, OnlyAChangedBankIsSavedAndWhatIsOnlyCarriedSurvives) {
  const std::string file = Bank();
  Open(file);
  EXPECT_FALSE(desk_.Enabled("mnuSalva"));
  EXPECT_FALSE(desk_.Enabled("mnuSalvaAs"));
  Set(ImageFor(*desk_.Prg(1)), 319 + 172, 'Q');
  desk_.Change(1);
  desk_.Prg(1)->Activated();
  ASSERT_TRUE(desk_.Press("mnuSalva"));
  std::string expected = file;
  expected[48 + 172] = 'Q';
  EXPECT_EQ(desk_.folder.Get("Bank.prg"), expected);
  EXPECT_EQ(desk_.Control(1, 7), 0);
  EXPECT_FALSE(desk_.Enabled("mnuSalva"));
  EXPECT_THAT(Files(), ElementsAre("Bank.prg")) << "no file of the other format is left behind";
}

TEST_F(BankFiles, AProgramFileWithALinkBecomesAPggAndTheOldFileGoes) {
  Open(WithLink(Bank()));
  EXPECT_EQ(desk_.Control(1, 19), 1);
  EXPECT_EQ(desk_.Caption(1), "File Prg - Bank.pgg (1) - MIDI Channel 1");
  desk_.Change(1);
  desk_.Prg(1)->Activated();
  desk_.Press("mnuSalva");
  EXPECT_THAT(Files(), ElementsAre("Bank.pgg"));
  EXPECT_EQ(desk_.folder.Get("Bank.pgg"), "KPGG" + WithLink(Bank()).substr(4));
  EXPECT_EQ(ReadProgramByName(desk_.program.app, desk_.folder.Path("Bank")), 4);
}

TEST_F(BankFiles, AFileOfTheOtherFormatThatStaysIsReportedAndTheBankIsAskedForAgain) {
  Open(WithLink(Bank()));
  desk_.Change(1);
  desk_.Prg(1)->Activated();
  desk_.program.disk.Fail("remove", "EROFS");
  desk_.Press("mnuSalva");
  EXPECT_THAT(Boxes(), ElementsAre(ShownBox{48, "Opening Bank.prg", "Read only file"}));
  EXPECT_EQ(desk_.folder.Get("Bank.pgg"), "KPGG" + WithLink(Bank()).substr(4));
  EXPECT_EQ(desk_.Control(1, 7), 1);
  desk_.Press("mnuSalva");
  EXPECT_THAT(Files(), ElementsAre("Bank.pgg"));
  EXPECT_EQ(desk_.Control(1, 7), 0);
}

TEST_F(BankFiles, APggWithoutALinkBecomesAPrg) {
  Open("KPGG" + Bank().substr(4), "Bank.pgg");
  desk_.Change(1);
  desk_.Prg(1)->Activated();
  desk_.Press("mnuSalva");
  EXPECT_THAT(Files(), ElementsAre("Bank.prg"));
  EXPECT_EQ(desk_.folder.Get("Bank.prg"), Bank());
}

TEST_F(BankFiles, SaveAsStartsFromTheFilesNameAndFormat) {
  Open("KPGG" + WithLink(Bank()).substr(4), "Bank.pgg");
  desk_.Change(1);
  desk_.Prg(1)->Activated();
  desk_.Answer("Other.prg", 3);
  ASSERT_TRUE(desk_.Press("mnuSalvaAs"));
  const ui::FileDialogRequest& request = desk_.program.toolkit.dialogs.back();
  EXPECT_EQ(request.filter, 4);
  EXPECT_EQ(request.name, "Bank.pgg");
  EXPECT_EQ(request.directory, desk_.folder.Path());
  EXPECT_EQ(request.default_extension, "pgg");
  EXPECT_THAT(Files(), ElementsAre("Bank.pgg", "Other.pgg")) << "the records settle the format";
  EXPECT_EQ(desk_.Caption(1), "File Prg - Other.pgg (1) - MIDI Channel 1");
}

TEST_F(BankFiles, ABankIsNotSavedOverOneThatAnotherWindowShows) {
  Open(Bank(), "One.prg");
  Open(Bank(), "Two.prg");
  desk_.Press("mnuNuovoPrg");
  desk_.Answer("One.prg");
  desk_.Press("mnuSalvaAs");
  EXPECT_THAT(Boxes(), ElementsAre(ShownBox{48, "One.prg", "File already open"}));
  EXPECT_EQ(desk_.folder.Get("One.prg"), Bank());
  EXPECT_EQ(desk_.Control(3, 18), 1);
}

TEST_F(BankFiles, AFailureKeepsTheChangesAndTheWindow) {
  Open(Bank());
  desk_.Change(1);
  desk_.program.disk.Fail("write", "ENOSPC", 1);
  AnswerBox(ui::BoxAnswer::kYes);
  EXPECT_FALSE(Close());
  EXPECT_EQ(desk_.Control(1, 7), 1);
  EXPECT_EQ(Boxes().size(), 2u) << "the question, and what went wrong";
  EXPECT_EQ(desk_.folder.Get("Bank.prg"), Bank());
}

// --- Closing ---

TEST_F(BankFiles, AChangedBankAsksBeforeItCloses) {
  Open(Bank());
  desk_.Change(1);
  AnswerBox(ui::BoxAnswer::kCancel);
  EXPECT_FALSE(Close());
  EXPECT_THAT(Boxes(), ElementsAre(kFileChanged));
  EXPECT_EQ(desk_.Control(1, 7), 1);
  AnswerBox(ui::BoxAnswer::kNo);
  EXPECT_TRUE(Close());
  EXPECT_THAT(Boxes(), ElementsAre(kFileChanged));
  EXPECT_EQ(desk_.folder.Get("Bank.prg"), Bank());

  desk_.OpenPrg("Bank.prg");
  Set(ImageFor(*desk_.Prg(1)), 319, 'Z');
  desk_.Change(1);
  AnswerBox(ui::BoxAnswer::kYes);
  EXPECT_TRUE(Close());
  EXPECT_EQ(desk_.folder.Get("Bank.prg")[48], 'Z');
}

TEST_F(BankFiles, AnswerNoIsRememberedWhenAnotherWindowKeepsTheProgramFromEnding) {
  Open(Bank(), "One.prg");
  Open(Bank(), "Two.prg");
  desk_.Change(1);
  desk_.Change(2);
  desk_.program.toolkit.answers = {ui::BoxAnswer::kNo, ui::BoxAnswer::kCancel};
  EXPECT_FALSE(desk_.program.Quit());
  EXPECT_EQ(desk_.Control(1, 7), 0);
  EXPECT_EQ(desk_.Control(2, 7), 1);
}

// --- Recent files ---

TEST_F(BankFiles, ARecentFileIsFoundUnderTheOtherExtension) {
  Open(Bank());
  Close();
  EXPECT_EQ(desk_.program.app.core.RecentFiles[0].path, desk_.folder.Path("Bank"));
  desk_.Put("Bank.pgg", "KPGG" + WithLink(Bank()).substr(4));
  desk_.program.disk.Remove(desk_.folder.Path("Bank.prg"));
  ASSERT_TRUE(desk_.Press("mnuRecentFile(0)"));
  EXPECT_EQ(desk_.Caption(1), "File Prg - Bank.pgg (1) - MIDI Channel 1");
  Close();
  desk_.Put("Bank.prg", Bank());
  desk_.Press("mnuRecentFile(0)");
  EXPECT_EQ(desk_.Caption(1), "File Prg - Bank.prg (1) - MIDI Channel 1") << "its own extension comes first";
  Close();
  desk_.program.disk.Remove(desk_.folder.Path("Bank.prg"));
  desk_.program.disk.Remove(desk_.folder.Path("Bank.pgg"));
  desk_.Press("mnuRecentFile(0)");
  EXPECT_THAT(Boxes(), ElementsAre(ShownBox{48, "Opening Bank.prg", "File not found"}));
  EXPECT_EQ(desk_.program.app.core.RecentFiles[0].path, desk_.folder.Path("Bank")) << "the record stays";
}

TEST_F(BankFiles, AClosingWindowPutsItsFileBackAmongTheRecentOnes) {
  const auto closed = [this] {
    for (RecentFile& recent : desk_.program.app.core.RecentFiles) recent = {};
    Close();
    return desk_.program.app.core.RecentFiles[0];
  };
  Open(Bank(), "Bank.prg", true);
  EXPECT_EQ(closed(), (RecentFile{desk_.folder.Path("Bank"), 3, true}));
  Open(WithLink(Bank()), "Linked.prg");
  EXPECT_EQ(closed(), (RecentFile{desk_.folder.Path("Linked"), 3, false})) << "it was not saved as a .pgg";
  Open("KPGG" + WithLink(Bank()).substr(4), "Links.pgg");
  EXPECT_EQ(closed(), (RecentFile{desk_.folder.Path("Links"), 4, false}));
  desk_.Press("mnuNuovoPrg");
  EXPECT_EQ(closed(), RecentFile());
}

TEST_F(BankFiles, ARecentFileOpensReadOnlyAsItWas) {
  Open(Bank(), "Bank.prg", true);
  Close();
  desk_.Press("mnuRecentFile(0)");
  EXPECT_EQ(desk_.Caption(1), "File Prg - Bank.prg (1) - MIDI Channel 1 - Read Only");
}

// --- The next start ---

class NextStart : public BankFiles {
 protected:
  // Ends the program and starts it again on the same folder.
  TestProgram& Again() {
    EXPECT_TRUE(desk_.program.Quit());
    next_ = std::make_unique<TestProgram>(desk_.folder);
    EXPECT_TRUE(next_->Start());
    return *next_;
  }
  static std::string Caption(TestProgram& program, int number) {
    const ChildWindow* window = program.app.prg_windows[static_cast<std::size_t>(number)];
    return window == nullptr ? "" : window->caption();
  }

  std::unique_ptr<TestProgram> next_;
};

TEST_F(NextStart, OpenBanksComeBackInTheLowestSlots) {
  Open(Bank(), "One.prg");
  Open("KPGG" + WithLink(Bank(2)).substr(4), "Two.pgg");
  desk_.Press("mnuNuovoPrg");
  Open(Bank(3), "Three.prg");
  ASSERT_TRUE(Close(1));
  TestProgram& next = Again();
  EXPECT_EQ(Caption(next, 1), "File Prg - Two.pgg (1) - MIDI Channel 3");
  EXPECT_EQ(Caption(next, 2), "File Prg - Three.prg (2) - MIDI Channel 4");
  EXPECT_EQ(Caption(next, 3), "") << "what was never saved doesn't come back";
  EXPECT_THAT(next.Boxes(), IsEmpty());
}

TEST_F(NextStart, ANewBankThatWasSavedComesBackAsItsFile) {
  desk_.Press("mnuNuovoPrg");
  desk_.Answer("Mine.prg");
  desk_.Press("mnuSalva");
  EXPECT_EQ(Caption(Again(), 1), "File Prg - Mine.prg (1) - MIDI Channel 1");
}

TEST_F(NextStart, AFileThatHasGoneLeavesNoWindowAndNoMessageAndABankThatChangedItsFormatIsFound) {
  Open(Bank(), "One.prg");
  Open(Bank(), "Two.prg");
  ASSERT_TRUE(desk_.program.Quit());
  desk_.program.disk.Remove(desk_.folder.Path("One.prg"));
  desk_.program.disk.Remove(desk_.folder.Path("Two.prg"));
  desk_.Put("Two.pgg", "KPGG" + WithLink(Bank()).substr(4));
  TestProgram next(desk_.folder);
  next.Start();
  EXPECT_EQ(Caption(next, 1), "File Prg - Two.pgg (1) - MIDI Channel 1");
  EXPECT_EQ(Caption(next, 2), "");
  EXPECT_THAT(next.Boxes(), IsEmpty());
}

TEST_F(NextStart, TheUserWindowComesBackWithItsFile) {
  Open(Bank(), "One.prg");
  desk_.Press("frmPrgUN(1).CommLoad");
  desk_.Wait(10);
  desk_.Press("mnuPrgU");
  TestProgram& next = Again();
  EXPECT_EQ(Caption(next, 1), "File Prg - One.prg (1) - MIDI Channel 1");
  EXPECT_EQ(Caption(next, 9), "Prg F/User - One.prg - MIDI Channel 1");
  EXPECT_FALSE(next.Enabled(MenuId::mnuPrgU));
}

TEST_F(NextStart, WhatStandsInTheInstrumentIsNamedByItsBaseNameWhichIsAllThatIsKept) {
  Open("KPGG" + WithLink(Bank()).substr(4), "Two.pgg");
  desk_.Press("frmPrgUN(1).CommLoad");
  desk_.Wait(10);
  EXPECT_EQ(desk_.program.app.main->LabelPrg.caption(), "Two.pgg");
  TestProgram& next = Again();
  EXPECT_EQ(next.app.program.PrgInInstrument, "Two");
  EXPECT_EQ(next.app.main->LabelPrg.caption(), "Two");
}

TEST_F(NextStart, TheConfigurationHoldsTheBankNumberAndTheFormat) {
  Open("KPGG" + WithLink(Bank()).substr(4), "Two.pgg");
  desk_.Press("frmPrgUN(1).CommLoad");
  desk_.Wait(10);
  desk_.Press("mnuPrgU");
  desk_.Press("mnuWProgC");
  desk_.Channel("frmPcgAE(6)", 9);
  ASSERT_TRUE(desk_.program.Quit());
  const std::string file = desk_.folder.Get("Zentaline.ini");
  const auto at = [&file](int record, int position) {
    return At(file, 250 * static_cast<std::size_t>(record - 1) + static_cast<std::size_t>(position));
  };
  for (const int record : {14, 49}) {
    EXPECT_EQ(file.substr(250 * static_cast<std::size_t>(record - 1), 238), Field(desk_.folder.Path("Two"), 238));
    EXPECT_EQ(at(record, 241), 1) << record;
    EXPECT_EQ(at(record, 242), 21) << record;
    EXPECT_EQ(at(record, 248), 1) << record;
  }
  EXPECT_EQ(at(1, 51 + 9 * 5 + 8), 0x91) << "bank C: its channel in the high four bits, open in the low ones";
  EXPECT_EQ(at(1, 51 + 9 * 3 + 8) & 15, 0) << "bank A is closed";
}

}  // namespace
}  // namespace zentaline::test
