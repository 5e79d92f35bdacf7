// What comes back after a crash where a style window and the arrangements of its name showed the same styles.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/journal.h"
#include "style/sty_format.h"
#include "tests/files/item_builder.h"
#include "tests/files/recovery_desk.h"

namespace zentaline::test {
namespace {

using enum MenuId;
using ::testing::ElementsAre;

// A paste into a style window changes the arrangements of its name too: it is one action also when it comes back, in
// windows that the last regular end had left open, or that open for it.
class OfTwoWindows : public Recovery, public ::testing::WithParamInterface<bool> {};

TEST_P(OfTwoWindows, StylesComeBackByOneAction) {
  folder.Put("song.sty", StyImage({{"One", 120, 'a'}, {"Two", 40, 'b'}, {"C", 20}, {"D", 20}}));
  const auto open = [this](TestProgram& program) {
    program.OpenArr(Path("song.arr"));
    OpenBy(program, mnuApriSty, Path("song.sty"), 2);
  };
  if (GetParam()) {
    auto program = Run();
    open(*program);
    ASSERT_TRUE(program->Quit());
  }
  {
    auto program = Run();
    if (!GetParam()) open(*program);
    ChildWindow& styles = *program->app.sty_windows[1];
    const Bytes before(StylePart(program->Arr(1)->window_image()));
    List(styles).UserSelect({0});
    ASSERT_TRUE(program->Press(mnuCopia));
    List(styles).UserSelect({1});
    ASSERT_TRUE(program->Press(mnuIncolla));
    ASSERT_NE(StylePart(program->Arr(1)->window_image()).size(), before.size());
    ASSERT_EQ(StylePart(program->Arr(1)->window_image()), StylePart(styles.window_image()));
    Rename(*program, 1, 'X');
  }
  auto next = Run({ui::BoxAnswer::kYes});
  EXPECT_THAT(next->Boxes(), ElementsAre(Question(2, 2)));
  EXPECT_EQ(next->Arr(2), nullptr);
  EXPECT_EQ(next->app.sty_windows[2], nullptr);
  ChildWindow& styles = *next->app.sty_windows[1];
  const Bytes arrangements_pasted = next->Arr(1)->window_image();
  const Bytes styles_pasted = styles.window_image();
  EXPECT_EQ(Letter(*next, 1), 'X');
  EXPECT_EQ(StylePart(arrangements_pasted), StylePart(styles_pasted));
  ASSERT_EQ(next->app.edits.BackCount(), 2);
  ASSERT_TRUE(next->Press(mnuAnnulla));
  EXPECT_EQ(Letter(*next, 1), 'S');
  EXPECT_EQ(StylePart(next->Arr(1)->window_image()), StylePart(styles_pasted));
  ASSERT_TRUE(next->Press(mnuAnnulla));
  EXPECT_EQ(StylePart(next->Arr(1)->window_image()), folder.Get("song.sty"));
  EXPECT_EQ(StylePart(styles.window_image()), folder.Get("song.sty"));
  EXPECT_FALSE(next->Enabled(mnuSalva));
  for (int i = 0; i < 2; ++i) ASSERT_TRUE(next->Press(mnuRipeti));
  EXPECT_EQ(next->Arr(1)->window_image(), arrangements_pasted);
  EXPECT_EQ(styles.window_image(), styles_pasted);
}

INSTANTIATE_TEST_SUITE_P(Open, OfTwoWindows, ::testing::Bool());

// The journal that has grown holds what became of each window by itself: they have steps of their own, and neither
// spoils the other.
TEST_F(Recovery, StylesOfTwoWindowsGoBackAndForthEachByItsOwnStep) {
  folder.Put("song.sty", StyImage({{"One", 120, 'a'}, {"Two", 40, 'b'}, {"C", 20}, {"D", 20}}));
  {
    auto program = Run();
    program->app.journal->SetLimit(1);
    program->OpenArr(Path("song.arr"));
    OpenBy(*program, mnuApriSty, Path("song.sty"), 2);
    List(*program->app.sty_windows[1]).UserSelect({1});
    ASSERT_TRUE(program->Press(mnuTaglia));
  }
  auto next = Run({ui::BoxAnswer::kYes});
  ChildWindow& styles = *next->app.sty_windows[1];
  const Bytes arrangements_cut = next->Arr(1)->window_image();
  const Bytes styles_cut = styles.window_image();
  ASSERT_NE(StylePart(styles_cut), folder.Get("song.sty"));
  EXPECT_EQ(StylePart(arrangements_cut), StylePart(styles_cut));
  EXPECT_EQ(next->Arr(2), nullptr);
  const int steps = next->app.edits.BackCount();
  for (int i = 0; i < steps; ++i) ASSERT_TRUE(next->Press(mnuAnnulla));
  EXPECT_EQ(StylePart(next->Arr(1)->window_image()), folder.Get("song.sty"));
  EXPECT_EQ(StylePart(styles.window_image()), folder.Get("song.sty"));
  for (int i = 0; i < steps; ++i) ASSERT_TRUE(next->Press(mnuRipeti));
  EXPECT_EQ(next->Arr(1)->window_image(), arrangements_cut);
  EXPECT_EQ(styles.window_image(), styles_cut);
}

// A style file's changes come back while the arrangements of its name are open, as at any start: these show them too,
// before and after steps back and forth.
TEST_F(Recovery, ArrangementsShowTheStylesThatComeBack) {
  folder.Put("song.sty", StyImage({{"One", 120, 'a'}, {"Two", 40, 'b'}, {"C", 20}, {"D", 20}}));
  {
    auto program = Run();
    program->OpenArr(Path("song.arr"));
    ASSERT_TRUE(program->Quit());
  }
  {
    auto program = Run();
    ASSERT_TRUE(program->Arr(1)->UserClose());
    OpenBy(*program, mnuApriSty, Path("song.sty"), 2);
    List(*program->app.sty_windows[1]).UserSelect({1});
    ASSERT_TRUE(program->Press(mnuTaglia));
  }
  auto next = Run({ui::BoxAnswer::kYes});
  EXPECT_THAT(next->Boxes(), ElementsAre(Question(1, 1)));
  ASSERT_NE(next->Arr(1), nullptr);
  ASSERT_NE(next->app.sty_windows[1], nullptr);
  const auto styles = [&] { return Bytes(StylePart(next->app.sty_windows[1]->window_image())); };
  const auto beside = [&] { return Bytes(StylePart(next->Arr(1)->window_image())); };
  const Bytes cut = styles();
  EXPECT_NE(cut, folder.Get("song.sty"));
  EXPECT_EQ(beside(), cut);
  ASSERT_TRUE(next->Press(mnuAnnulla));
  EXPECT_EQ(styles(), folder.Get("song.sty"));
  EXPECT_EQ(beside(), folder.Get("song.sty"));
  ASSERT_TRUE(next->Press(mnuRipeti));
  EXPECT_EQ(styles(), cut);
  EXPECT_EQ(beside(), cut);
  // Saved there, the styles are saved; what counts as changed is the same after steps back and forth.
  List(*next->Arr(1)).UserSelect({0});
  ASSERT_TRUE(next->Press(mnuSalva));
  const Bytes saved = next->Arr(1)->window_image();
  EXPECT_EQ(saved[kStyChangedPosition - 1], 0);
  ASSERT_TRUE(next->Press(mnuAnnulla));
  EXPECT_EQ(next->Arr(1)->window_image()[kStyChangedPosition - 1], 1);
  ASSERT_TRUE(next->Press(mnuRipeti));
  EXPECT_EQ(next->Arr(1)->window_image(), saved);
}

// They had been opened on styles that were changed already.
TEST_F(Recovery, ArrangementsThatWereOpenedOnChangedStylesComeBackIntoTheirFile) {
  folder.Put("song.sty", StyImage({{"One", 120, 'a'}, {"Two", 40, 'b'}, {"C", 20}, {"D", 20}}));
  {
    auto program = Run();
    OpenBy(*program, mnuApriSty, Path("song.sty"), 2);
    List(*program->app.sty_windows[1]).UserSelect({1});
    ASSERT_TRUE(program->Press(mnuTaglia));
    program->OpenArr(Path("song.arr"));
    ASSERT_EQ(StylePart(program->Arr(1)->window_image()), StylePart(program->app.sty_windows[1]->window_image()));
    Rename(*program, 0, 'X');
  }
  auto next = Run({ui::BoxAnswer::kYes});
  EXPECT_THAT(next->Boxes(), ElementsAre(Question(2, 2)));
  ASSERT_NE(next->Arr(1), nullptr);
  EXPECT_EQ(next->Arr(2), nullptr);
  EXPECT_EQ(next->Caption(1), "File Arr - song.arr (1)");
  EXPECT_EQ(Letter(*next, 0), 'X');
  EXPECT_NE(StylePart(next->Arr(1)->window_image()), folder.Get("song.sty"));
  EXPECT_EQ(StylePart(next->Arr(1)->window_image()), StylePart(next->app.sty_windows[1]->window_image()));
  EXPECT_EQ(next->app.edits.BackCount(), 2);
  for (int i = 0; i < 2; ++i) ASSERT_TRUE(next->Press(mnuAnnulla));
  EXPECT_EQ(StylePart(next->Arr(1)->window_image()), folder.Get("song.sty"));
  EXPECT_EQ(Letter(*next, 0), 'F');
}

}  // namespace
}  // namespace zentaline::test
