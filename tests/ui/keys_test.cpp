// What keys do by themselves in lists and bars, and what happens to what is typed.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "ui/console/console_toolkit.h"
#include "ui/controls.h"
#include "ui/script/driver.h"

namespace zentaline::ui {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Window : public Form {
 public:
  explicit Window(Toolkit& toolkit, const std::string& number) : Form(toolkit, FormKind::kChild, "frmWindow", number) {
    List.SetRows({"11 +Night Train", "12  Night Owl", "13  ballad", "14", "15 *Émile", "81  +8 Beat"});
    List.on_click = [this] { clicks.push_back(List.Row()); };
    List.on_double_click = [this] { clicks.push_back(1000 + List.Row()); };
    Bar.SetRange(0, 127);
    Bar.on_change = [this] { moves.push_back(Bar.value()); };
    Combo.editable = true;
    Combo.SetRows({"Off", "Jazz", "Rock"});
    Combo.ShowRow(1);
    Combo.on_click = [this] { moves.push_back(Combo.row()); };
  }
  ListBox List{*this, "List1"};
  ScrollBar Bar{*this, "Bar"};
  ComboBox Combo{*this, "Combo"};
  Button Comm{*this, "Comm"};
  std::vector<int> clicks;
  std::vector<int> moves;
};

class Keys : public testing::Test {
 protected:
  Window& Open(const std::string& number) {
    return static_cast<Window&>(toolkit.Open(std::make_unique<Window>(toolkit, number)));
  }
  void Type(Control& control, const std::string& text) {
    for (const char c : text) driver.PressKey(control, c == ' ' ? Key{Key::kSpace, {}} : Key{Key::kCharacter, {c}});
  }
  void Press(Control& control, Key::Name key) { driver.PressKey(control, {key, {}}); }

  ConsoleToolkit toolkit{ConsoleToolkit::Clock::kVirtual, [](const std::string&) {}};
  ModelDriver driver;
  Window& window = Open("1");
};

TEST_F(Keys, ALetterGoesToTheNextRowWhoseNameBeginsWithIt) {
  Type(window.List, "n");
  toolkit.Advance(1001);
  Type(window.List, "N");
  toolkit.Advance(1001);
  Type(window.List, "n");
  EXPECT_THAT(window.clicks, ElementsAre(0, 1, 0)) << "round at the end, whatever its case";
}

TEST_F(Keys, LettersWithinASecondCountTogetherFromTheSelectedRowOn) {
  Type(window.List, "night o");
  EXPECT_EQ(window.List.Row(), 1);
  EXPECT_THAT(window.clicks, ElementsAre(0, 0, 0, 0, 0, 0, 1)) << "each key selects, as a click does";
}

TEST_F(Keys, AfterASecondTheyBeginAnew) {
  Type(window.List, "n");
  toolkit.Advance(1000);
  Type(window.List, "i");
  EXPECT_EQ(window.List.Row(), 0);
  toolkit.Advance(1001);
  Type(window.List, "b");
  EXPECT_EQ(window.List.Row(), 2);
}

TEST_F(Keys, WhatNoRowBeginsWithSelectsNothing) {
  Type(window.List, "x");
  EXPECT_THAT(window.clicks, IsEmpty());
  EXPECT_EQ(window.List.Row(), -1);
}

TEST_F(Keys, TwoDigitsGoToTheRowOfThatNumber) {
  Type(window.List, "1");
  EXPECT_THAT(window.clicks, IsEmpty());
  Type(window.List, "4");
  EXPECT_THAT(window.clicks, ElementsAre(3));
  Type(window.List, "81");
  EXPECT_EQ(window.List.Row(), 5);
  Type(window.List, "99");
  EXPECT_EQ(window.List.Row(), 5) << "there is none";
}

TEST_F(Keys, NumbersOfOneAndOfThreeDigitsAreReachedToo) {
  window.List.SetRows({"4 Beguine", "12 Waltz", "120 Polka", "7 Tango"});
  Type(window.List, "7");
  EXPECT_EQ(window.List.Row(), 3);
  toolkit.Advance(1001);
  Type(window.List, "12");
  EXPECT_EQ(window.List.Row(), 1);
  Type(window.List, "0");
  EXPECT_EQ(window.List.Row(), 2);
  Type(window.List, "4");
  EXPECT_EQ(window.List.Row(), 0) << "the longest number was complete";
}

TEST_F(Keys, ADigitThatStandsAloneForASecondIsForgotten) {
  Type(window.List, "1");
  toolkit.Advance(1001);
  Type(window.List, "13");
  EXPECT_EQ(window.List.Row(), 2);
}

TEST_F(Keys, AMarkIsNoPartOfAName) {
  Type(window.List, "+");
  EXPECT_EQ(window.List.Row(), 5) << "there it stands behind the mark's place";
}

TEST_F(Keys, AccentedLettersHaveNoCaseEither) {
  driver.PressKey(window.List, {Key::kCharacter, "é"});
  EXPECT_EQ(window.List.Row(), 4);
}

TEST_F(Keys, WhereRowsHaveNoNumberTheirNamesBeginWithWhatStandsThere) {
  window.List.numbered = false;
  window.List.SetRows({"Rock", "80 Pop"});
  Type(window.List, "r");
  EXPECT_EQ(window.List.Row(), 0);
}

TEST_F(Keys, EnterIsADoubleClickWithoutTheClick) {
  Press(window.List, Key::kEnter);
  EXPECT_THAT(window.clicks, IsEmpty()) << "no row is selected";
  window.List.UserSelect({2});
  Press(window.List, Key::kEnter);
  EXPECT_THAT(window.clicks, ElementsAre(2, 1002));
}

TEST_F(Keys, AKeyWithAMeaningOfItsOwnKeepsThatAlone) {
  window.List.on_key = [](const Key& key) { return key.character == "n" || key.name == Key::kEnter; };
  window.List.UserSelect({2});
  Type(window.List, "n");
  Press(window.List, Key::kEnter);
  EXPECT_THAT(window.clicks, ElementsAre(2));
  Type(window.List, "b");
  EXPECT_THAT(window.clicks, ElementsAre(2, 2)) << "others look for rows";
}

TEST_F(Keys, DigitsOnABarAreAValueThatEnterTakes) {
  Type(window.Bar, "64");
  EXPECT_EQ(window.Bar.typed(), "64");
  EXPECT_THAT(window.moves, IsEmpty());
  Press(window.Bar, Key::kEnter);
  EXPECT_THAT(window.moves, ElementsAre(64));
  EXPECT_EQ(window.Bar.typed(), "");
  Press(window.Bar, Key::kEnter);
  EXPECT_THAT(window.moves, ElementsAre(64));
}

TEST_F(Keys, AValueOutsideTheRangeIsRefused) {
  Type(window.Bar, "128");
  Press(window.Bar, Key::kEnter);
  Type(window.Bar, "-1");
  Press(window.Bar, Key::kEnter);
  EXPECT_THAT(window.moves, IsEmpty());
}

TEST_F(Keys, EscapeAnotherKeyAndAnotherControlForgetTheDigits) {
  Type(window.Bar, "64");
  Press(window.Bar, Key::kEscape);
  Press(window.Bar, Key::kEnter);
  Type(window.Bar, "64x");
  Press(window.Bar, Key::kEnter);
  Type(window.Bar, "64");
  window.Comm.UserFocus();
  Press(window.Bar, Key::kEnter);
  EXPECT_THAT(window.moves, IsEmpty());
}

TEST_F(Keys, TheValueIsTheOneThatIsShownBeside) {
  window.Bar.SetRange(0, 48);
  window.Bar.shown = [](int value) { return (value > 24 ? "+" : "") + std::to_string(value - 24); };
  Type(window.Bar, "-12");
  Press(window.Bar, Key::kEnter);
  Type(window.Bar, "5");
  Press(window.Bar, Key::kEnter);
  EXPECT_THAT(window.moves, ElementsAre(12, 29));
  window.Bar.shown = [](int value) { return "C" + std::to_string(value); };
  Type(window.Bar, "7");
  Press(window.Bar, Key::kEnter);
  EXPECT_EQ(window.Bar.value(), 7) << "where no number is shown it is the bar's own";
}

TEST_F(Keys, ADoubleClickTakesABarBackToTheRecordsValue) {
  EXPECT_FALSE(window.Bar.UserReset()) << "it has no record";
  window.Bar.kept_value = [] { return std::optional(100); };
  window.Bar.UserSet(5);
  EXPECT_TRUE(window.Bar.UserReset());
  EXPECT_THAT(window.moves, ElementsAre(5, 100)) << "one change";
  EXPECT_TRUE(window.Bar.UserReset());
  EXPECT_THAT(window.moves, ElementsAre(5, 100)) << "it is there already";
  window.Bar.kept_value = [] { return std::optional(200); };
  window.Bar.UserReset();
  EXPECT_EQ(window.Bar.value(), 127) << "inside the range";
  window.Bar.kept_value = [] { return std::optional<int>(); };
  EXPECT_FALSE(window.Bar.UserReset());
}

TEST_F(Keys, ATypedTextThatIsNoRowGoesBackWhenTheFocusLeaves) {
  window.Combo.UserType("Ja");
  window.Combo.UserType("Jazzy");
  EXPECT_EQ(window.Combo.row(), -1);
  window.Comm.UserFocus();
  EXPECT_EQ(window.Combo.text(), "Jazz");
  EXPECT_EQ(window.Combo.row(), 1);
  EXPECT_THAT(window.moves, IsEmpty()) << "nothing is raised";
}

TEST_F(Keys, ATypedTextThatIsARowStays) {
  window.Combo.UserType("Rock");
  window.Comm.UserFocus();
  EXPECT_EQ(window.Combo.text(), "Rock");
  window.Combo.UserType("Roc");
  window.Comm.UserFocus();
  EXPECT_EQ(window.Combo.text(), "Rock") << "the row that was typed last";
}

TEST_F(Keys, ItGoesBackWhenAnotherWindowComesToTheFrontToo) {
  window.Combo.UserType("Ro");
  Open("2");
  EXPECT_EQ(window.Combo.text(), "Jazz");
}

TEST_F(Keys, WhatTheProgramShowsMeanwhileStays) {
  window.Combo.UserType("Ro");
  window.Combo.ShowText("Other");
  window.Comm.UserFocus();
  EXPECT_EQ(window.Combo.text(), "Other");
}

}  // namespace
}  // namespace zentaline::ui
