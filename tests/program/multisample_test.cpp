// The list of sounds: its pages, how it follows the box that waits for a sound and feeds it, and typing a name.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/multisample.h"
#include "program/windows.h"
#include "tests/program/prg_desk.h"
#include "ui/control_array.h"

namespace zentaline::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// As many of the program editor's controls as the list of sounds knows by name.
class BoxesOfAnEditor : public ChildWindow {
 public:
  explicit BoxesOfAnEditor(Application& app) : ChildWindow(app, "frmEditPrg", {}) {
    for (const int box : {1, 2}) BasText[box].on_change = [this, box] { changes.push_back(box); };
    app.edits.TakeImage(*this, Bytes(200, ' '));
  }
  ui::ControlArray<ui::TextBox> BasText{*this, "BasText", 0, 2};
  std::vector<int> changes;
};

std::string Number(int n) {
  const std::string digits = std::to_string(n);
  return std::string(3 - digits.size(), '0') + digits;
}

// "Piano 0" to "Piano 99", then "Strings 100" and so on, with "Flute" at 300 and "Flugel" at 310. Behind the number
// stand two signs that are never shown.
std::string Names() {
  std::string list;
  for (int n = 0; n < 519; ++n) {
    std::string name = (n < 100 ? "Piano " : "Str ") + std::to_string(n);
    if (n == 300) name = "Flute";
    if (n == 310) name = "Flugel";
    list += Number(n) + "::" + Field(name, 10);
  }
  return list;
}

class SoundList : public ::testing::Test {
 protected:
  SoundList() : desk_(false) {
    std::string list = Names();
    ScrambleMultisamples(list);
    Start(list);
  }
  void Start(const std::string& list) {
    desk_.Put("i40Multisample", list);
    desk_.Start();
  }
  void Show() {
    desk_.Press("mnuMultisample");
    desk_.Wait(10);
  }
  BoxesOfAnEditor& OpenEditor() {
    app().program.PrgEditorOpen = true;
    auto& editor = static_cast<BoxesOfAnEditor&>(app().toolkit.Open(std::make_unique<BoxesOfAnEditor>(app())));
    app().prg_editor = &editor;
    return editor;
  }
  Application& app() { return desk_.program.app; }
  ui::Form* Window() { return desk_.program.toolkit.FindForm("frmMultisample"); }
  ui::ListBox& List(int page) { return *desk_.Find<ui::ListBox>("frmMultisample.List1(" + std::to_string(page) + ")"); }
  int Page() { return desk_.Find<ui::Tabs>("frmMultisample.SSTab1")->page(); }
  // The sound that is selected, -1 for none; more than one is no answer.
  int Selected() {
    int selected = -1;
    for (int page = 0; page < 5; ++page) {
      if (List(page).Row() < 0) continue;
      EXPECT_EQ(selected, -1) << "two pages have a selected row";
      selected = 105 * page + List(page).Row();
    }
    return selected;
  }
  void Type(const std::string& letters) {
    for (const char letter : letters) {
      const ui::Key key = letter == ' ' ? ui::Key{ui::Key::kSpace, ""} : ui::Key{ui::Key::kCharacter, {letter}};
      List(Page()).UserKey(key);
    }
  }

  PrgDesk desk_;
};

TEST_F(SoundList, HasFivePages) {
  Show();
  const int rows[] = {105, 105, 105, 105, 99};
  for (int page = 0; page < 5; ++page) EXPECT_EQ(List(page).rows(), rows[page]) << page;
  EXPECT_EQ(List(0).RowText(0), "000  Piano 0   ");
  EXPECT_EQ(List(0).RowText(104), "104  Str 104   ");
  EXPECT_EQ(List(1).RowText(0), "105  Str 105   ");
  EXPECT_EQ(List(4).RowText(98), "518  Str 518   ");
  EXPECT_THAT(desk_.Find<ui::Tabs>("frmMultisample.SSTab1")->captions,
              ElementsAre("0 - 104", "105 - 209", "210 - 314", "315 - 419", "420 - 518"));
  EXPECT_EQ(Selected(), -1);
}

TEST_F(SoundList, WithoutABoxThatWaitsAClickOnlySelects) {
  Show();
  BoxesOfAnEditor& editor = OpenEditor();
  EXPECT_TRUE(List(1).UserSelect({3}));
  EXPECT_EQ(Selected(), 108);
  EXPECT_THAT(editor.changes, IsEmpty());
  EXPECT_EQ(editor.BasText[1].text(), "");
}

TEST_F(SoundList, FollowsTheBoxThatWaits) {
  const std::vector<std::pair<std::string, int>> cases = {
      {"105", 105}, {"518", 518}, {"000  Piano", 0}, {"104  x", 104}, {"209", 209}, {"210", 210},
      {"419", 419}, {"420", 420}, {"7", 7},          {"42 is", 42},   {"none", 0}};
  BoxesOfAnEditor& editor = OpenEditor();
  SetMultisoundTarget(app(), 2);
  for (const auto& [text, sound] : cases) {
    editor.BasText[2].SetText(text);
    ShowMultisamples(app());
    desk_.Wait(10);
    EXPECT_EQ(Selected(), sound) << text;
    EXPECT_EQ(Page(), sound / 105) << text;
  }
  editor.BasText[1].SetText("300");
  SetMultisoundTarget(app(), 1);
  ShowMultisamples(app());
  desk_.Wait(10);
  EXPECT_EQ(Selected(), 300) << "a click in the other box";
  EXPECT_EQ(desk_.program.toolkit.active_child(), Window());
}

TEST_F(SoundList, FollowingChangesNothing) {
  BoxesOfAnEditor& editor = OpenEditor();
  editor.BasText[1].SetText("105");
  editor.changes.clear();
  SetMultisoundTarget(app(), 1);
  ShowMultisamples(app());
  desk_.Wait(10);
  EXPECT_EQ(editor.BasText[1].text(), "105");
  EXPECT_THAT(editor.changes, IsEmpty());
  EXPECT_FALSE(app().core.FormLoading);
}

TEST_F(SoundList, ANumberThatIsNoSoundLeavesItWhereItIs) {
  BoxesOfAnEditor& editor = OpenEditor();
  SetMultisoundTarget(app(), 1);
  editor.BasText[1].SetText("111");
  ShowMultisamples(app());
  desk_.Wait(10);
  for (const char* text : {"519", "999"}) {
    editor.BasText[1].SetText(text);
    FollowMultisound(app());
    desk_.Wait(10);
    EXPECT_EQ(Selected(), 111) << text;
  }
}

TEST_F(SoundList, FollowingABarLeavesTheEditorInFront) {
  Show();
  BoxesOfAnEditor& editor = OpenEditor();
  SetMultisoundTarget(app(), 1);
  editor.BasText[1].SetText("211");
  FollowMultisound(app());
  desk_.Wait(10);
  EXPECT_EQ(Selected(), 211);
  EXPECT_EQ(desk_.program.toolkit.active_child(), &editor);
}

TEST_F(SoundList, AClickGivesTheSoundToTheBoxThatWaits) {
  BoxesOfAnEditor& editor = OpenEditor();
  SetMultisoundTarget(app(), 2);
  ShowMultisamples(app());
  desk_.Wait(10);
  EXPECT_TRUE(List(4).UserSelect({98}));
  EXPECT_EQ(editor.BasText[2].text(), "518  Str 518   ");
  EXPECT_THAT(editor.changes, ElementsAre(2));
  EXPECT_TRUE(List(4).UserSelect({98}));
  EXPECT_THAT(editor.changes, ElementsAre(2)) << "the same sound again is no change";
  EXPECT_TRUE(List(0).UserSelect({5}));
  EXPECT_EQ(editor.BasText[2].text(), "005  Piano 5   ");
  EXPECT_EQ(editor.BasText[1].text(), "");
  EXPECT_EQ(Selected(), 5);
}

TEST_F(SoundList, TheBoxThatWaitsShowsIt) {
  BoxesOfAnEditor& editor = OpenEditor();
  SetMultisoundTarget(app(), 1);
  EXPECT_EQ(editor.BasText[1].back_colour(), 0xFFFF00u);
  EXPECT_EQ(editor.BasText[1].fore_colour(), 0x000000u);
  EXPECT_EQ(editor.BasText[2].back_colour(), 0x000000u);
  EXPECT_EQ(editor.BasText[2].fore_colour(), 0x00FF00u);
  SetMultisoundTarget(app(), 2);
  EXPECT_EQ(editor.BasText[2].back_colour(), 0xFFFF00u);
  EXPECT_EQ(editor.BasText[1].fore_colour(), 0x00FF00u);
  ShowMultisamples(app());
  EXPECT_EQ(editor.BasText[2].back_colour(), 0xFFFF00u) << "the list isn't away";
  app().toolkit.Activate(editor);
  EXPECT_EQ(editor.BasText[2].back_colour(), 0xFFFF00u);
  // Another window comes to the front: the boxes look as ever, and the box still gets what is chosen.
  desk_.Press("mnuWProgA");
  EXPECT_EQ(editor.BasText[1].back_colour(), std::nullopt);
  EXPECT_EQ(editor.BasText[1].fore_colour(), std::nullopt);
  EXPECT_EQ(editor.BasText[2].back_colour(), std::nullopt);
  EXPECT_EQ(app().program.MultisoundTarget, 2);
  List(0).UserSelect({1});
  EXPECT_EQ(editor.BasText[2].text(), "001  Piano 1   ");
}

TEST_F(SoundList, ClosingItLeavesNoBoxWaiting) {
  BoxesOfAnEditor& editor = OpenEditor();
  SetMultisoundTarget(app(), 1);
  ShowMultisamples(app());
  EXPECT_TRUE(Window()->UserClose());
  EXPECT_EQ(app().program.MultisoundTarget, 0);
  EXPECT_EQ(editor.BasText[1].back_colour(), std::nullopt);
  EXPECT_EQ(editor.BasText[2].fore_colour(), std::nullopt);
}

TEST_F(SoundList, TheEntryBringsItToTheFront) {
  Show();
  desk_.Press("mnuWProgA");
  EXPECT_TRUE(desk_.Press("mnuMultisample"));
  EXPECT_EQ(desk_.program.toolkit.active_child(), Window());
}

// --- Typing a name ---

TEST_F(SoundList, ALetterGoesToTheNextNameThatBeginsWithIt) {
  Show();
  Type("f");
  EXPECT_EQ(Selected(), 300);
  EXPECT_EQ(Page(), 2);
  EXPECT_TRUE(List(2).HasFocus());
  Type("F");
  EXPECT_EQ(Selected(), 310) << "no name begins with FF";
  Type("f");
  EXPECT_EQ(Selected(), 300) << "round at the end";
}

TEST_F(SoundList, MoreLettersNarrowItDown) {
  Show();
  Type("flug");
  EXPECT_EQ(Selected(), 310);
  desk_.Wait(1001);
  Type("str 51");
  EXPECT_EQ(Selected(), 510);
  desk_.Wait(1001);
  Type("q");
  EXPECT_EQ(Selected(), 510) << "no name begins so";
}

TEST_F(SoundList, ATypedNameIsGivenToTheBoxThatWaits) {
  BoxesOfAnEditor& editor = OpenEditor();
  SetMultisoundTarget(app(), 1);
  ShowMultisamples(app());
  Type("f");
  EXPECT_EQ(editor.BasText[1].text(), "300  Flute     ");
}

// --- Files ---

struct ListCase {
  std::string name;
  std::string list;  // unscrambled
  std::string first;
  std::string second;
};

class SoundFile : public ::testing::TestWithParam<ListCase> {};

TEST_P(SoundFile, FillsTheListAsFarAsItGoes) {
  PrgDesk desk(false);
  std::string list = GetParam().list;
  ScrambleMultisamples(list);
  if (!list.empty()) desk.Put("i40Multisample", list);
  desk.Start();
  desk.Press("mnuMultisample");
  auto& rows = *desk.Find<ui::ListBox>("frmMultisample.List1(0)");
  ASSERT_EQ(rows.rows(), 105);
  EXPECT_EQ(rows.RowText(0), GetParam().first);
  EXPECT_EQ(rows.RowText(1), GetParam().second);
  EXPECT_EQ(desk.Find<ui::ListBox>("frmMultisample.List1(4)")->RowText(98), "518            ");
  rows.UserKey({ui::Key::kCharacter, "x"});
}

INSTANTIATE_TEST_SUITE_P(
    Short, SoundFile,
    ::testing::Values(ListCase{"Missing", "", "000            ", "001            "},
                      ListCase{"OneRecord", "000  Grand     ", "000  Grand     ", "001            "},
                      ListCase{"Cut", "000  Grand     001  Brig", "000  Grand     ", "001            "},
                      ListCase{"OtherNumbers", "077  Grand     9x9  Bright\xE9   ", "077  Grand     ",
                               "9x9  Bright\xC3\xA9   "}),
    [](const auto& test) { return test.param.name; });

}  // namespace
}  // namespace zentaline::test
