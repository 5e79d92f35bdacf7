// The guide's window and what it does with files that are no guide.
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

constexpr char kEnglish[] = "Zentaline-UserGuide.txt";
constexpr char kItalian[] = "Zentaline-GuidaUtente.txt";

// "Line 1" to "Line n".
std::string Lines(int n) {
  std::string text;
  for (int i = 1; i <= n; ++i) text += "Line " + std::to_string(i) + "\r\n";
  return text;
}

class Guide : public ::testing::Test {
 protected:
  bool Open() { return desk_.program.toolkit.FindForm("frmGuida") != nullptr; }
  std::string Text() { return desk_.Text("frmGuida.Text1"); }
  Boxes Told() { return desk_.program.Boxes(); }
  int Top() { return desk_.Find<ui::TextBox>("frmGuida.Text1")->top_line(); }
  void Key(ui::Key::Name name) { desk_.Find<ui::TextBox>("frmGuida.Text1")->UserKey({name, {}}); }
  const AidsState& aids() { return desk_.program.app.aids; }

  StyDesk desk_;
};

TEST_F(Guide, IsShownUnderItsCaptionReadOnlyAndWithItsLengthKept) {
  desk_.Put(kEnglish, "The guide\r\nSecond line\r\n");
  desk_.Press("mnuGuida");
  EXPECT_EQ(desk_.CaptionOf("frmGuida"), "Zentaline - User's Guide");
  EXPECT_EQ(Text(), "The guide\r\nSecond line\r\n");
  EXPECT_FALSE(desk_.Find<ui::TextBox>("frmGuida.Text1")->UserType("mine"));
  EXPECT_EQ(aids().GuideLength, 24);
  EXPECT_EQ(aids().GuideText, "The guide\r\nSecond line\r\n" + Zeros(35400 - 24));
  EXPECT_THAT(Told(), IsEmpty());
}

TEST_F(Guide, HasTheFocusOnItsTextAfterATick) {
  desk_.Put(kEnglish, "The guide\r\n");
  desk_.Press("mnuGuida");
  EXPECT_FALSE(desk_.Find<ui::TextBox>("frmGuida.Text1")->HasFocus());
  EXPECT_EQ(desk_.Find<ui::Timer>("frmGuida.Timer1")->interval(), 1);
  desk_.Wait(1);
  EXPECT_TRUE(desk_.Find<ui::TextBox>("frmGuida.Text1")->HasFocus());
}

TEST_F(Guide, HasAWholeLineEndAtEachLine) {
  desk_.Put(kEnglish, "one\ntwo\r\nthree");
  desk_.Press("mnuGuida");
  EXPECT_EQ(Text(), "one\r\ntwo\r\nthree");
}

TEST_F(Guide, ShowsTheCharactersOfItsBytes) {
  desk_.Put(kEnglish, "caf\xE9 \x80\x81");
  desk_.Press("mnuGuida");
  EXPECT_EQ(Text(), "caf\xC3\xA9 \xE2\x82\xAC\xC2\x81");
}

TEST_F(Guide, IsMadeAnewEachTimeItIsOpened) {
  desk_.Put(kEnglish, "old");
  desk_.Press("mnuGuida");
  desk_.Put(kEnglish, "newer");
  desk_.Press("mnuGuida");
  EXPECT_EQ(Text(), "newer");
  EXPECT_EQ(desk_.program.app.core.OpenChildCount, 1);
}

TEST_F(Guide, OfTheLongestLengthIsShownAndOneByteMoreIsRefused) {
  desk_.Put(kEnglish, std::string(35400, 'x'));
  desk_.Press("mnuGuida");
  EXPECT_EQ(Text().size(), 35400u);
  desk_.CloseForm("frmGuida");
  desk_.Put(kEnglish, std::string(35401, 'y'));
  desk_.Press("mnuGuida");
  EXPECT_FALSE(Open());
  EXPECT_THAT(Told(), ElementsAre(ShownBox{48, "Opening Zentaline-UserGuide.txt", "Disk reading error"}));
  EXPECT_EQ(aids().GuideLength, 35400);
}

TEST_F(Guide, ThatIsAbsentOrEmptyIsToldOfAndNoWindowOpens) {
  desk_.Press("mnuGuida");
  EXPECT_FALSE(Open());
  desk_.Put(kEnglish, "");
  desk_.Press("mnuGuida");
  EXPECT_FALSE(Open());
  const ShownBox box{48, "Opening Zentaline-UserGuide.txt", "Disk reading error"};
  EXPECT_THAT(Told(), ElementsAre(box, box));
}

TEST_F(Guide, ThatIsAFolderOrCantBeReadIsToldOf) {
  std::filesystem::create_directory(desk_.folder.Path(kEnglish));
  desk_.Press("mnuGuida");
  std::filesystem::remove(desk_.folder.Path(kEnglish));
  desk_.Put(kEnglish, "text");
  for (const char* error : {"EACCES", "EIO", "EMFILE"}) {
    desk_.program.disk.Fail("read", error);
    desk_.Press("mnuGuida");
  }
  EXPECT_FALSE(Open());
  const std::string title = "Opening Zentaline-UserGuide.txt";
  EXPECT_THAT(Told(), ElementsAre(ShownBox{48, title, "Read only file"}, ShownBox{48, title, "Read only file"},
                                  ShownBox{48, title, "Error I/O device"}, ShownBox{48, title, "Disk reading error"}));
}

TEST_F(Guide, OfAnyBytesIsShown) {
  std::string bytes;
  for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
  desk_.Put(kEnglish, bytes);
  desk_.Press("mnuGuida");
  ASSERT_TRUE(Open());
  EXPECT_EQ(aids().GuideText.substr(0, 256), bytes);
  for (const auto name : {ui::Key::kDown, ui::Key::kPageDown, ui::Key::kEnd, ui::Key::kUp}) Key(name);
}

// The window of the console is as high as so many lines of 16.
TEST_F(Guide, MovesByLinesAndPagesWithinItsEnds) {
  desk_.Put(kEnglish, Lines(100));
  desk_.Press("mnuGuida");
  const int page = desk_.program.toolkit.FindForm("frmGuida")->inner_size().height / 16;
  ASSERT_EQ(page, 32);
  Key(ui::Key::kUp);
  EXPECT_EQ(Top(), 0);
  Key(ui::Key::kDown);
  EXPECT_EQ(Top(), 1);
  Key(ui::Key::kPageDown);
  EXPECT_EQ(Top(), 32);
  Key(ui::Key::kSpace);
  EXPECT_EQ(Top(), 63);
  Key(ui::Key::kPageDown);
  EXPECT_EQ(Top(), 68);
  Key(ui::Key::kDown);
  EXPECT_EQ(Top(), 68);
  Key(ui::Key::kPageUp);
  EXPECT_EQ(Top(), 37);
  Key(ui::Key::kEnd);
  EXPECT_EQ(Top(), 68);
  Key(ui::Key::kHome);
  EXPECT_EQ(Top(), 0);
}

TEST_F(Guide, ShorterThanAPageStaysWhereItIs) {
  desk_.Put(kEnglish, Lines(3));
  desk_.Press("mnuGuida");
  for (const auto name : {ui::Key::kDown, ui::Key::kPageDown, ui::Key::kEnd}) {
    Key(name);
    EXPECT_EQ(Top(), 0);
  }
}

TEST_F(Guide, KeepsItsPlaceInEntry34AndDoesNotComeBackByItself) {
  desk_.Put(kEnglish, "text");
  desk_.Press("mnuGuida");
  auto* form = desk_.program.toolkit.FindForm("frmGuida");
  desk_.program.toolkit.UserPlaces(*form, {30, 40, 500, 300, ui::WindowState::kNormal});
  EXPECT_EQ(desk_.program.app.core.FormStates[34].state, 1);
  desk_.program.Quit();
  ConfigFile stored;
  stored.bytes = desk_.folder.Get("Zentaline.ini");
  // The twentieth entry of nine bytes from position 51 on.
  const int entry = 51 + 9 * 19;
  EXPECT_EQ(stored.At(1, entry) * 256 + stored.At(1, entry + 1), 16030);
  EXPECT_EQ(stored.At(1, entry + 2) * 256 + stored.At(1, entry + 3), 16040);
  EXPECT_EQ(stored.At(1, entry + 4) * 256 + stored.At(1, entry + 5), 500);
  EXPECT_EQ(stored.At(1, entry + 6) * 256 + stored.At(1, entry + 7), 300);
  TestProgram next(desk_.folder);
  ASSERT_TRUE(next.Start());
  EXPECT_EQ(next.toolkit.FindForm("frmGuida"), nullptr);
  next.Press(MenuId::mnuGuida);
  EXPECT_EQ(next.toolkit.FindForm("frmGuida")->placement(),
            (ui::Placement{30, 40, 500, 300, ui::WindowState::kNormal}));
}

TEST(ItalianGuide, IsTheOneOfItsLanguage) {
  ScratchFolder folder;
  folder.Put(kItalian, "La guida");
  folder.Put(kEnglish, "The guide");
  TestProgram program(folder);
  ASSERT_TRUE(program.Start(1));
  program.Press(MenuId::mnuGuida);
  const ui::Form* form = program.toolkit.FindForm("frmGuida");
  ASSERT_NE(form, nullptr);
  EXPECT_EQ(form->caption(), "Zentaline - Guida Utente");
  EXPECT_EQ(static_cast<ui::TextBox*>(form->Find("Text1"))->text(), "La guida");
}

}  // namespace
}  // namespace zentaline::test
