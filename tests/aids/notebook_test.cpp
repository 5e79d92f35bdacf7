// The notebook's window and its file.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/style/style_desk.h"
#include "tests/support/config.h"

namespace zentaline::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Boxes = std::vector<ShownBox>;

constexpr char kFile[] = "Zentaline-Notebook.txt";
constexpr char kTitle[] = "Opening Zentaline-Notebook.txt";

class Notebook : public ::testing::Test {
 protected:
  // mnuWindow is off as long as no window is open.
  void SetUp() override { desk_.Press("mnuMsgEx"); }

  bool Open() { return desk_.program.toolkit.FindForm("frmBloccoNote") != nullptr; }
  ui::TextBox& Box() { return *desk_.Find<ui::TextBox>("frmBloccoNote.Text1"); }
  void Close() { desk_.CloseForm("frmBloccoNote"); }
  Boxes Told() { return desk_.program.Boxes(); }
  std::string File() { return desk_.folder.Get(kFile); }
  const AidsState& aids() { return desk_.program.app.aids; }

  StyDesk desk_;
};

TEST_F(Notebook, MakesItsFileAndShowsNothingYet) {
  desk_.Press("mnuBloccoNote");
  EXPECT_EQ(desk_.CaptionOf("frmBloccoNote"), "Notebook");
  EXPECT_EQ(Box().text(), "");
  EXPECT_EQ(File(), Blanks(32000));
  EXPECT_EQ(Box().font(), (ui::Font{.points = 10}));
  EXPECT_FALSE(desk_.Enabled("mnuBloccoNote"));
  EXPECT_THAT(Told(), IsEmpty());
}

TEST_F(Notebook, IsOffWithItsMenuWhenNoWindowIsOpen) {
  desk_.CloseForm("frmMsgEx");
  EXPECT_FALSE(desk_.Press("mnuBloccoNote"));
  EXPECT_FALSE(Open());
}

TEST_F(Notebook, EveryChangeIsInTheTextAtOnceAndInTheFileAtTheClosing) {
  desk_.Press("mnuBloccoNote");
  EXPECT_TRUE(Box().UserType("Caf\xC3\xA9"));
  EXPECT_EQ(aids().NoteText, "Caf\xE9" + Blanks(31996));
  EXPECT_EQ(File(), Blanks(32000));
  Close();
  EXPECT_FALSE(Open());
  EXPECT_EQ(File(), "Caf\xE9" + Blanks(31996));
  EXPECT_TRUE(desk_.Enabled("mnuBloccoNote"));
}

TEST_F(Notebook, TrimsTheBlanksBehindTheTextAndPadsThem) {
  desk_.Put(kFile, "Songs for Sunday  ");
  desk_.Press("mnuBloccoNote");
  EXPECT_EQ(Box().text(), "Songs for Sunday");
  EXPECT_EQ(aids().NoteText, Field("Songs for Sunday", 32000));
  Close();
  EXPECT_EQ(File(), Field("Songs for Sunday", 32000));
}

TEST_F(Notebook, ATextOf32000CharactersIsStoredWholeAndALongerOneCantBeTyped) {
  desk_.Press("mnuBloccoNote");
  const std::string full = std::string(31999, 'n') + "\xE2\x82\xAC";
  EXPECT_TRUE(Box().UserType(full));
  EXPECT_FALSE(Box().UserType(full + "x"));
  EXPECT_EQ(Box().text(), full);
  Close();
  EXPECT_EQ(File(), std::string(31999, 'n') + "\x80");
}

TEST_F(Notebook, ACharacterThatHasNoByteCantBeTyped) {
  desk_.Press("mnuBloccoNote");
  EXPECT_FALSE(Box().UserType("\xE2\x99\xAF"));
  EXPECT_EQ(Box().text(), "");
}

TEST_F(Notebook, OfALongerFileOnlyTheFirst32000BytesChange) {
  desk_.Put(kFile, std::string(32000, 'a') + "the rest");
  desk_.Press("mnuBloccoNote");
  EXPECT_EQ(Box().text(), std::string(32000, 'a'));
  EXPECT_TRUE(Box().UserType("short"));
  Close();
  EXPECT_EQ(File(), Field("short", 32000) + "the rest");
}

TEST_F(Notebook, AnyBytesComeBackUnchanged) {
  std::string bytes;
  for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
  desk_.Put(kFile, bytes);
  desk_.Press("mnuBloccoNote");
  ASSERT_TRUE(Open());
  const std::string text = Box().text();
  EXPECT_TRUE(Box().UserType(text + "!"));
  EXPECT_TRUE(Box().UserType(text));
  Close();
  EXPECT_EQ(File(), Field(bytes, 32000));
}

TEST_F(Notebook, AWriteThatFailsKeepsItOpenAndTheFileAsItWas) {
  desk_.Put(kFile, "old");
  desk_.Press("mnuBloccoNote");
  Box().UserType("new");
  desk_.program.disk.Fail("write", "ENOSPC");
  Close();
  EXPECT_TRUE(Open());
  EXPECT_THAT(Told(), ElementsAre(ShownBox{48, kTitle, "Disk full"}));
  EXPECT_EQ(File(), "old");
  EXPECT_EQ(Box().text(), "new");
  Close();
  EXPECT_FALSE(Open());
  EXPECT_EQ(File(), Field("new", 32000));
}

TEST_F(Notebook, IsWrittenAtTheProgramsEndWhichAFailureHoldsUp) {
  desk_.Press("mnuBloccoNote");
  Box().UserType("kept");
  desk_.program.disk.Fail("write", "EIO");
  EXPECT_FALSE(desk_.program.Quit());
  EXPECT_TRUE(Open());
  EXPECT_THAT(Told(), ElementsAre(ShownBox{48, kTitle, "Error I/O device"}));
  EXPECT_TRUE(desk_.program.Quit());
  EXPECT_EQ(File(), Field("kept", 32000));
}

// One that may only be read can be read and closed, and the program ends.
TEST_F(Notebook, AFileThatHoldsTheTextAlreadyIsNotWritten) {
  desk_.Put(kFile, Field("read me", 32000));
  desk_.program.disk.Fail("write", "EACCES", 0);
  desk_.Press("mnuBloccoNote");
  EXPECT_EQ(Box().text(), "read me");
  Close();
  EXPECT_FALSE(Open());
  EXPECT_THAT(Told(), IsEmpty());
}

TEST_F(Notebook, AFileThatIsTakenAwayMeanwhileIsMadeAgain) {
  desk_.Put(kFile, Field("text", 32000));
  desk_.Press("mnuBloccoNote");
  std::filesystem::remove(desk_.folder.Path(kFile));
  Close();
  EXPECT_EQ(File(), Field("text", 32000));
}

TEST_F(Notebook, ThatCantBeReadOrMadeIsToldOfAndNoWindowOpens) {
  std::filesystem::create_directory(desk_.folder.Path(kFile));
  desk_.Press("mnuBloccoNote");
  std::filesystem::remove(desk_.folder.Path(kFile));
  desk_.program.disk.Fail("write", "EROFS");
  desk_.Press("mnuBloccoNote");
  desk_.Put(kFile, "text");
  desk_.program.disk.Fail("read", "EIO");
  desk_.Press("mnuBloccoNote");
  desk_.Put(kFile, std::string((1 << 24) + 1, 'x'));
  desk_.Press("mnuBloccoNote");
  EXPECT_FALSE(Open());
  EXPECT_TRUE(desk_.Enabled("mnuBloccoNote"));
  EXPECT_THAT(Told(),
              ElementsAre(ShownBox{48, kTitle, "Read only file"}, ShownBox{48, kTitle, "Read only file"},
                          ShownBox{48, kTitle, "Error I/O device"}, ShownBox{48, kTitle, "Disk reading error"}));
}

TEST_F(Notebook, ComesBackAtTheNextStartInItsPlaceAlsoAsTheOnlyWindow) {
  desk_.Put(kFile, "still here");
  desk_.Press("mnuBloccoNote");
  desk_.CloseForm("frmMsgEx");
  auto* form = desk_.program.toolkit.FindForm("frmBloccoNote");
  desk_.program.toolkit.UserPlaces(*form, {11, 22, 333, 222, ui::WindowState::kMaximised});
  EXPECT_EQ(desk_.program.app.core.FormStates[32].state, 2);
  desk_.program.toolkit.UserPlaces(*form, {11, 22, 333, 222, ui::WindowState::kNormal});
  desk_.program.Quit();
  TestProgram next(desk_.folder);
  ASSERT_TRUE(next.Start());
  const ui::Form* back = next.toolkit.FindForm("frmBloccoNote");
  ASSERT_NE(back, nullptr);
  EXPECT_EQ(back->placement(), (ui::Placement{11, 22, 333, 222, ui::WindowState::kNormal}));
  EXPECT_EQ(static_cast<ui::TextBox*>(back->Find("Text1"))->text(), "still here");
  EXPECT_FALSE(next.app.main->Menu(MenuId::mnuBloccoNote).enabled());
  next.toolkit.FindForm("frmBloccoNote")->UserClose();
  next.Quit();
  TestProgram third(desk_.folder);
  ASSERT_TRUE(third.Start());
  EXPECT_EQ(third.toolkit.FindForm("frmBloccoNote"), nullptr);
}

TEST(ItalianNotebook, IsCalledSo) {
  ScratchFolder folder;
  TestProgram program(folder);
  ASSERT_TRUE(program.Start(1));
  program.Press(MenuId::mnuMsgEx);
  program.Press(MenuId::mnuBloccoNote);
  EXPECT_EQ(program.toolkit.FindForm("frmBloccoNote")->caption(), "Blocco Note");
}

}  // namespace
}  // namespace zentaline::test
