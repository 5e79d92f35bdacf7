// Cut, Copy and Paste in windows that are read-only, whose files are noise, or whose source is gone.
#include <gtest/gtest.h>

#include <random>

#include "tests/files/item_builder.h"
#include "tests/files/item_desk.h"

namespace zentaline {
namespace {

using namespace test;

using Boxes = std::vector<ShownBox>;

TEST(ClipboardOfReadOnlyWindows, GivesAndTakesNothing) {
  ItemDesk desk;
  const std::string arr = ArrBytes({{"One", 0, true, {}}, {"Two", 70, false, {}}});
  const std::string sty = StyImage({{"A", 40}, {"B", 50}, {"C", 60}, {"D", 70}});
  for (const char* name : {"Open", "Locked"}) {
    desk.Put(name + std::string(".arr"), arr);
    desk.Put(name + std::string(".prg"), PrgFile());
    desk.Put(name + std::string(".sty"), sty);
  }
  desk.Open("Open.arr");
  desk.Open("Locked.arr", true);
  desk.OpenPrg("Open.prg");
  desk.OpenPrg("Locked.prg", true);
  desk.OpenSty("Open.sty");
  desk.OpenSty("Locked.sty", true);
  const std::pair<const char*, const char*> windows[] = {
      {"frmArrU(1)", "frmArrU(2)"}, {"frmPrgUN(1)", "frmPrgUN(2)"}, {"frmStyUN(1)", "frmStyUN(2)"}};
  for (const auto& [open, locked] : windows) {
    SCOPED_TRACE(locked);
    desk.SelectRows(open, {0, 1});
    ASSERT_TRUE(desk.Press("mnuCopia"));
    const auto& window = static_cast<ChildWindow&>(*desk.program.toolkit.FindForm(locked));
    const Bytes before = window.window_image();
    desk.SelectRows(locked, {0});
    EXPECT_EQ(desk.Entries(), "copy");
    EXPECT_FALSE(desk.Press("mnuIncolla"));
    EXPECT_FALSE(desk.Press("mnuTaglia"));
    desk.program.Boxes();
    desk.Delete(locked);
    EXPECT_EQ(desk.program.Boxes(), (Boxes{{48, "Locked", "Read only file"}}));
    EXPECT_EQ(window.window_image(), before);
  }
}

// Styles of any bytes behind a right header, with a table that may lie.
std::string AnySty(std::mt19937& random) {
  std::string sty = "KORG" + Hand({0x4D, 0, 4, 1});
  sty += RandomBytes(random, static_cast<std::size_t>(RandomNumber(random, 216, 30000)));
  const bool lies = RandomNumber(random, 0, 2) == 0;
  for (std::size_t e = 0; !lies && e < 16; ++e) {
    const int size = RandomNumber(random, 0, 8) == 0 ? 0 : RandomNumber(random, 1, 3000);
    Set(sty, 25 + 4 * e, size % 256);
    Set(sty, 26 + 4 * e, size / 256);
  }
  return sty;
}

class ClipboardOfNoise : public testing::TestWithParam<unsigned> {
 protected:
  ClipboardOfNoise() : random_(GetParam()) {
    for (const char* name : {"Song", "Other"}) {
      desk_.Put(name + std::string(".arr"), "KORG" + Hand({0x4D, 0, 3}) + RandomBytes(random_, 10521));
      desk_.Put(name + std::string(".prg"), "KORG" + Hand({0x4D, 0, 0}) + RandomBytes(random_, 30473));
      desk_.Put(name + std::string(".sty"), AnySty(random_));
    }
  }

  int Pick(int count) { return RandomNumber(random_, 0, count - 1); }

  std::vector<ChildWindow*> Windows() {
    std::vector<ChildWindow*> windows;
    for (ui::Form* form : desk_.program.toolkit.forms()) {
      if (form->kind() == ui::FormKind::kChild) windows.push_back(static_cast<ChildWindow*>(form));
    }
    return windows;
  }

  void OpenSomething() {
    const std::string name = Pick(2) == 0 ? "Song" : "Other";
    switch (Pick(7)) {
      case 0:
      case 1:
        return desk_.Open(name + ".arr");
      case 2:
      case 3:
        return desk_.OpenSty(name + ".sty");
      case 4:
        return desk_.OpenPrg(name + ".prg");
      case 5:
        return static_cast<void>(desk_.Press(Pick(2) == 0 ? "mnuNuovoArr" : "mnuNuovoSty"));
      default:
        return static_cast<void>(desk_.Press(Pick(2) == 0 ? "mnuWProgC" : "mnuDrum"));
    }
  }

  void Act() {
    const std::vector<ChildWindow*> windows = Windows();
    if (windows.empty() || Pick(10) == 0) return OpenSomething();
    ChildWindow& window = *windows[static_cast<std::size_t>(Pick(static_cast<int>(windows.size())))];
    ui::ListBox* list = window.ItemList();
    if (list == nullptr || Pick(25) == 0) {
      desk_.program.toolkit.answers.assign(1, ui::BoxAnswer::kNo);
      return static_cast<void>(window.UserClose());
    }
    std::vector<int> rows;
    for (int i = Pick(5); i > 0; --i) rows.push_back(Pick(list->rows()));
    list->UserSelect(rows);
    const char* const entries[] = {"mnuTaglia", "mnuCopia", "mnuIncolla", "mnuIncolla"};
    const char* entry = entries[Pick(4)];
    if (desk_.Find<ui::MenuEntry>(entry)->Usable()) desk_.Press(entry);
  }

  // The windows that show the same styles show the same ones.
  void CheckStyles() {
    for (const ChildWindow* arr : Windows()) {
      if (At(arr->window_image(), 1) != 19 || At(arr->window_image(), 9) != 2) continue;
      for (const ChildWindow* sty : Windows()) {
        if (At(sty->window_image(), 1) != 23 || sty->BaseName() != arr->BaseName()) continue;
        ++pairs_;
        ASSERT_TRUE(arr->window_image().substr(42622) == sty->window_image().substr(669));
      }
    }
  }

  ItemDesk desk_;
  int pairs_ = 0;  // that were looked at

 private:
  std::mt19937 random_;
};

INSTANTIATE_TEST_SUITE_P(Seeds, ClipboardOfNoise, testing::Range(1U, 9U));

TEST_P(ClipboardOfNoise, KeepsTheWindowsInStepAndTheFilesAsTheyAre) {
  const std::string arr = desk_.folder.Get("Song.arr");
  const std::string sty = desk_.folder.Get("Song.sty");
  for (int i = 0; i < 250; ++i) {
    Act();
    CheckStyles();
    ASSERT_FALSE(HasFatalFailure()) << i;
  }
  EXPECT_GT(pairs_, 20);
  EXPECT_TRUE(desk_.folder.Get("Song.arr") == arr);
  EXPECT_TRUE(desk_.folder.Get("Song.sty") == sty);
}

}  // namespace
}  // namespace zentaline
