#include "ui/letters.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "ui/console/console_toolkit.h"

namespace zentaline::ui {
namespace {

class Window : public Form {
 public:
  explicit Window(Toolkit& toolkit) : Form(toolkit, FormKind::kChild, "frmWindow") {}
  Button& Add(const std::string& caption) {
    buttons.push_back(std::make_unique<Button>(*this, "Comm", static_cast<int>(buttons.size())));
    buttons.back()->SetCaption(caption);
    return *buttons.back();
  }
  std::vector<std::unique_ptr<Button>> buttons;
};

class LettersOfAWindow : public testing::Test {
 protected:
  // What stands for each button, 0 for none.
  std::string Given(const std::set<char>& taken = {}) {
    const Letters letters = LettersOfControls(window, taken);
    std::string given;
    for (const auto& button : window.buttons) {
      const auto found = letters.find(button.get());
      given += found == letters.end() ? '-' : found->second;
    }
    return given;
  }

  ConsoleToolkit toolkit{ConsoleToolkit::Clock::kVirtual, [](const std::string&) {}};
  Window window{toolkit};
};

TEST_F(LettersOfAWindow, ACaptionsOwnLetterComesFirstWhereverItStands) {
  window.Add("Save");
  window.Add("Clo&se");
  EXPECT_EQ(Given(), "as");
}

TEST_F(LettersOfAWindow, OthersGetTheFirstLetterOfAWordThatIsFree) {
  window.Add("Load");
  window.Add("Load Style");
  window.Add("Load Styles Lot");
  EXPECT_EQ(Given(), "lso");
}

TEST_F(LettersOfAWindow, WhatTheMenuBarHasIsNoCommands) {
  window.Add("&File");
  EXPECT_EQ(Given({'f'}), "i");
}

TEST_F(LettersOfAWindow, OfTwoThatNameTheSameLetterTheSecondGetsAnother) {
  window.Add("&Load");
  window.Add("&List");
  EXPECT_EQ(Given(), "li");
}

TEST_F(LettersOfAWindow, MarksAndDataHaveNone) {
  window.Add("M");
  window.Add("night train.arr").literal = true;
  window.Add("+");
  EXPECT_EQ(Given(), "---");
}

TEST_F(LettersOfAWindow, WhatNoneOfItsLettersIsFreeForHasANumber) {
  window.Add("aaa");
  window.Add("aaa");
  window.Add("aaa");
  EXPECT_EQ(Given(), "a12");
  EXPECT_EQ(WithLetter("aaa", '1', false), "aaa (&1)");
}

TEST_F(LettersOfAWindow, WhoHasOthersLeavesItsLetterToOneThatHasNone) {
  window.Add("abc");
  window.Add("aaa");
  EXPECT_EQ(Given(), "ba");
}

TEST_F(LettersOfAWindow, CheckBoxesKeepWhatTheyNameAndLabelsToo) {
  CheckBox box(window, "Check");
  box.SetCaption("&Hold");
  Label label(window, "Label");
  label.SetCaption("&Octave");
  window.Add("Hook");
  const Letters letters = LettersOfControls(window, {});
  EXPECT_EQ(letters.at(&box), 'h');
  EXPECT_EQ(Given(), "k") << "h is the box's, o the label's";
}

TEST(Letters, ALetterIsShownWhereTheCaptionNamesItElseAtAWordsBeginning) {
  EXPECT_EQ(WithLetter("Clo&se", 's', false), "Clo&se");
  EXPECT_EQ(WithLetter("Load Style", 's', false), "Load &Style");
  EXPECT_EQ(WithLetter("Close", 's', false), "Clo&se");
  EXPECT_EQ(WithLetter("&Load", 'o', false), "L&oad") << "the other sign goes";
  EXPECT_EQ(WithLetter("&Load", 0, false), "Load");
}

TEST(Letters, SignsThatAreNoneStay) {
  EXPECT_EQ(WithLetter("Rock && Roll", 'o', false), "R&ock && Roll");
  EXPECT_EQ(WithLetter("Rock & Roll", 'o', false), "R&ock && Roll");
  EXPECT_EQ(WithLetter("Rock &Roll", 0, true), "Rock &&Roll");
  EXPECT_EQ(NamedLetter("Rock && &Roll"), 'r');
  EXPECT_EQ(NamedLetter("Rock & Roll"), 0);
}

}  // namespace
}  // namespace zentaline::ui
