#include "ui/controls.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/ui/toy_program.h"

namespace zentaline::ui {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// A child window of the toy program, opened, and nothing in the log yet.
class Controls : public testing::Test {
 protected:
  Controls() { toy.log.clear(); }

  ToyHost host{""};
  Toy& toy = host.toy;
  ToyChild& child = (toy.Start(), toy.NewChild());
};

TEST_F(Controls, AListBoxPutOnARowAlwaysRaisesOneClick) {
  child.List1.SetRow(1);
  child.List1.SetRow(1);
  EXPECT_THAT(toy.log, ElementsAre("List1 click 1", "List1 click 1"));
}

TEST_F(Controls, AListBoxPutOnNoRowRaisesNothingAndSelectsNothing) {
  child.List1.SetRow(1);
  toy.log.clear();
  child.List1.SetRow(-1);
  EXPECT_EQ(child.List1.Row(), -1);
  EXPECT_THAT(toy.log, IsEmpty());
}

TEST_F(Controls, AListBoxRefusesRowsThatItHasNot) {
  EXPECT_FALSE(child.List1.UserSelect({3}));
  EXPECT_FALSE(child.List1.UserSelect({-1}));
  EXPECT_FALSE(child.List1.UserSelect({0, 1}));
  EXPECT_FALSE(child.List1.UserDouble(3));
  child.List1.SetRow(3);
  EXPECT_THAT(toy.log, IsEmpty());
}

TEST_F(Controls, AMultipleSelectionRaisesOneClickAndTheLastRowHasTheFocus) {
  EXPECT_TRUE(child.ListMany.UserSelect({3, 0, 2}));
  EXPECT_THAT(toy.log, ElementsAre("ListMany click"));
  EXPECT_THAT(child.ListMany.SelectedRows(), ElementsAre(0, 2, 3));
  EXPECT_EQ(child.ListMany.focus_row(), 2);
  EXPECT_EQ(child.ListMany.Row(), 2);
}

TEST_F(Controls, AListBoxKeepsItsFocusRowApartFromItsSelection) {
  child.ListMany.UserSelect({1});
  child.ListMany.UserSelect({});
  EXPECT_EQ(child.ListMany.focus_row(), 1);
  EXPECT_EQ(child.ListMany.Row(), -1);
}

TEST_F(Controls, NewRowsTakeTheSelectionAwayInSilence) {
  child.List1.SetRow(2);
  toy.log.clear();
  child.List1.SetRows({"x"});
  EXPECT_EQ(child.List1.Row(), -1);
  EXPECT_EQ(child.List1.focus_row(), -1);
  EXPECT_EQ(child.List1.RowText(0), "x");
  EXPECT_EQ(child.List1.RowText(1), "");
  EXPECT_EQ(child.List1.RowText(-1), "");
  EXPECT_THAT(toy.log, IsEmpty());
}

TEST_F(Controls, ADoubleClickClicksFirst) {
  EXPECT_TRUE(child.List1.UserDouble(2));
  EXPECT_THAT(toy.log, ElementsAre("List1 click 2", "List1 double"));
}

TEST_F(Controls, ADoubleClickIsLostWhenItsClickClosesTheWindow) {
  child.List1.on_click = [this] { child.Close(); };
  EXPECT_TRUE(child.List1.UserDouble(2));
  EXPECT_THAT(toy.log, ElementsAre("unload 1"));
}

TEST_F(Controls, AComboBoxClicksOnlyForAnotherRow) {
  EXPECT_TRUE(child.Combo1.UserSelect(1));
  EXPECT_TRUE(child.Combo1.UserSelect(1));
  child.Combo1.SetRow(1);
  child.Combo1.SetRow(0);
  EXPECT_THAT(toy.log, ElementsAre("Combo1=green", "Combo1=red"));
  EXPECT_FALSE(child.Combo1.UserSelect(2));
  EXPECT_FALSE(child.Combo1.UserSelect(-1));
}

TEST_F(Controls, AComboBoxTakesTypedTextOnlyWhenItIsEditable) {
  EXPECT_FALSE(child.Combo1.UserType("blue"));
  EXPECT_TRUE(child.ComboEdit.UserType("blue"));
  EXPECT_TRUE(child.ComboEdit.UserType("blue"));
  EXPECT_EQ(child.ComboEdit.row(), -1);
  EXPECT_TRUE(child.ComboEdit.UserType("green"));
  EXPECT_EQ(child.ComboEdit.row(), 1);
  EXPECT_THAT(toy.log, ElementsAre("ComboEdit=blue", "ComboEdit=green"));
}

TEST_F(Controls, AScrollBarChangesOnlyToAnotherValue) {
  EXPECT_TRUE(child.VScroll0.UserSet(5));
  EXPECT_TRUE(child.VScroll0.UserSet(5));
  child.VScroll0.SetValue(5);
  EXPECT_THAT(toy.log, ElementsAre("VScroll1(0)=5"));
}

TEST_F(Controls, AScrollBarLimitsTheProgramAndRefusesTheUserBeyondItsRange) {
  child.VScroll0.SetValue(1000);
  EXPECT_EQ(child.VScroll0.value(), 127);
  child.VScroll1.SetValue(-1000);
  EXPECT_EQ(child.VScroll1.value(), -5);
  EXPECT_FALSE(child.VScroll0.UserSet(128));
  EXPECT_FALSE(child.VScroll0.UserSet(-1));
  EXPECT_EQ(child.VScroll0.value(), 127);
}

TEST_F(Controls, ANarrowerRangeMovesTheValueIntoIt) {
  child.VScroll0.SetValue(100);
  toy.log.clear();
  child.VScroll0.SetRange(0, 50);
  EXPECT_THAT(toy.log, ElementsAre("VScroll1(0)=50"));
}

TEST_F(Controls, ACheckBoxClicksOnlyWhenItChanges) {
  EXPECT_TRUE(child.Check1.UserSet(true));
  EXPECT_TRUE(child.Check1.UserSet(true));
  child.Check1.SetValue(false);
  EXPECT_THAT(toy.log, ElementsAre("Check1=1", "Check1=0"));
}

TEST_F(Controls, OfTheOptionButtonsOfOneNameOneIsOn) {
  EXPECT_TRUE(child.Option0.UserPress());
  EXPECT_TRUE(child.Option1.UserPress());
  EXPECT_TRUE(child.Option1.UserPress());
  EXPECT_FALSE(child.Option0.value());
  EXPECT_TRUE(child.Option1.value());
  EXPECT_THAT(toy.log, ElementsAre("Option1(0)", "Option1(1)"));
}

// Option buttons in two frames, on two pages and in none of them, under whatever names.
class ToyChoices : public Form {
 public:
  explicit ToyChoices(Toolkit& the_toolkit) : Form(the_toolkit, FormKind::kChild, "frmChoices") {
    Pages1.captions = {"First", "Second"};
    layout =
        Column({Inside(Frame1, Row({Item(A[0]), Item(B)})), Inside(Frame2, Column({Row({Item(A[1])}), Item(A[2])})),
                Pages(Pages1, {Column({Item(A[3]), Item(A[4])}), Item(A[5])}), Item(A[6]), Item(C)});
  }
  OptionButton A[7] = {{*this, "A", 0}, {*this, "A", 1}, {*this, "A", 2}, {*this, "A", 3},
                       {*this, "A", 4}, {*this, "A", 5}, {*this, "A", 6}};
  OptionButton B{*this, "B"};
  OptionButton C{*this, "C"};
  Frame Frame1{*this, "Frame1"};
  Frame Frame2{*this, "Frame2"};
  Tabs Pages1{*this, "Pages1"};
};

TEST_F(Controls, OptionButtonsExcludeEachOtherWithinTheirFrameOrPageWhateverTheirNames) {
  ToyChoices& form = static_cast<ToyChoices&>(host.console.Open(std::make_unique<ToyChoices>(host.console)));
  for (const int on : {0, 1, 3, 5, 6}) EXPECT_TRUE(form.A[on].UserPress());
  for (const int on : {0, 1, 3, 5, 6}) EXPECT_TRUE(form.A[on].value()) << on;
  EXPECT_TRUE(form.B.UserPress());
  EXPECT_FALSE(form.A[0].value());
  EXPECT_TRUE(form.A[2].UserPress());
  EXPECT_FALSE(form.A[1].value());
  EXPECT_TRUE(form.A[4].UserPress());
  EXPECT_FALSE(form.A[3].value());
  EXPECT_TRUE(form.C.UserPress());
  EXPECT_FALSE(form.A[6].value());
  for (const OptionButton* on : {&form.B, &form.A[2], &form.A[4], &form.A[5], &form.C}) EXPECT_TRUE(on->value());
}

TEST_F(Controls, ArrowKeysStayInTheFrame) {
  ToyChoices& form = static_cast<ToyChoices&>(host.console.Open(std::make_unique<ToyChoices>(host.console)));
  form.A[0].DefaultKey({Key::kDown, {}});
  EXPECT_TRUE(form.B.value());
  form.B.DefaultKey({Key::kDown, {}});
  EXPECT_TRUE(form.A[0].value());
  form.A[5].DefaultKey({Key::kDown, {}});
  EXPECT_FALSE(form.A[5].value()) << "the only one on its page";
}

TEST_F(Controls, ArrowKeysGoThroughTheUsableOptionButtonsRoundAtTheEnds) {
  child.Option0.DefaultKey({Key::kUp, {}});
  EXPECT_TRUE(child.Option1.value());
  child.Option1.DefaultKey({Key::kDown, {}});
  EXPECT_TRUE(child.Option0.value());
  child.Option1.SetEnabled(false);
  child.Option0.DefaultKey({Key::kDown, {}});
  EXPECT_TRUE(child.Option0.value());
  EXPECT_THAT(toy.log, ElementsAre("Option1(1)", "Option1(0)"));
}

TEST_F(Controls, ATextChangesOnlyToAnotherText) {
  EXPECT_TRUE(child.Text1.UserType("abc"));
  EXPECT_TRUE(child.Text1.UserType("abc"));
  child.Text1.SetText("abc");
  EXPECT_THAT(toy.log, ElementsAre("Text1=abc"));
}

TEST_F(Controls, ATextBoxRefusesWhatIsTooLongInCharacters) {
  EXPECT_TRUE(child.Text1.UserType("\xC3\xA8\xC3\xA8\xC3\xA8\xC3\xA8\xC3\xA8\xC3\xA8\xC3\xA8\xC3\xA8"));
  EXPECT_FALSE(child.Text1.UserType("123456789"));
  child.Text1.SetText("123456789");
  EXPECT_EQ(child.Text1.text(), "123456789");
}

TEST_F(Controls, ATextBoxOfBytesRefusesWhatHasNoByte) {
  child.Text1.bytes_only = true;
  EXPECT_TRUE(child.Text1.UserType("\xE2\x82\xAC"));
  EXPECT_FALSE(child.Text1.UserType("\xE2\x99\xAB"));
  EXPECT_EQ(child.Text1.text(), "\xE2\x82\xAC");
}

TEST_F(Controls, AReadOnlyTextBoxRefusesTheUser) {
  child.Text1.read_only = true;
  EXPECT_FALSE(child.Text1.UserType("a"));
  EXPECT_THAT(toy.log, IsEmpty());
}

TEST_F(Controls, PagesChangeOnlyToAnotherPage) {
  EXPECT_TRUE(child.Tab1.UserSet(1));
  EXPECT_TRUE(child.Tab1.UserSet(1));
  EXPECT_FALSE(child.Tab1.UserSet(2));
  EXPECT_FALSE(child.Tab1.UserSet(-1));
  EXPECT_THAT(toy.log, ElementsAre("Tab1=1"));
}

TEST_F(Controls, ADisabledOrHiddenControlRefusesTheUserButNotTheProgram) {
  EXPECT_FALSE(child.CommOff.UserPress());
  EXPECT_FALSE(child.CommHidden.UserPress());
  child.Comm.SetEnabled(false);
  EXPECT_FALSE(child.Comm.UserPress());
  EXPECT_FALSE(child.Comm.UserKey({Key::kSpace, {}}));
  EXPECT_FALSE(child.Comm.UserMouse({}));
  EXPECT_FALSE(child.Comm.UserContext());
  EXPECT_FALSE(child.Comm.UserFocus());
  EXPECT_THAT(toy.log, IsEmpty());
  child.Comm.Press();
  EXPECT_THAT(toy.log, ElementsAre("Comm"));
}

TEST_F(Controls, AControlInADisabledOrHiddenFrameRefusesTheUser) {
  child.layout = Column(
      {Item(child.Text1), Pages(child.Tab1, {Item(child.Check1), Inside(child.Frame1, Row({Item(child.Comm)}))})});
  EXPECT_TRUE(child.Comm.UserPress());
  child.Frame1.SetEnabled(false);
  EXPECT_FALSE(child.Comm.UserPress());
  EXPECT_TRUE(child.Check1.UserSet(true));
  child.Frame1.SetEnabled(true);
  child.Frame1.SetVisible(false);
  EXPECT_FALSE(child.Comm.UserPress());
  child.Frame1.SetVisible(true);
  child.Tab1.SetEnabled(false);
  EXPECT_FALSE(child.Comm.UserPress());
  EXPECT_FALSE(child.Check1.UserSet(false));
  EXPECT_TRUE(child.Text1.UserType("a"));
  EXPECT_THAT(toy.log, ElementsAre("Comm", "Check1=1", "Text1=a"));
}

TEST_F(Controls, AControlOnAPageThatIsNotInFrontCanBeReached) {
  child.layout = Pages(child.Tab1, {Item(child.Check1), Item(child.Comm)});
  EXPECT_TRUE(child.Comm.UserPress());
}

TEST_F(Controls, AUsersActionGivesTheFocusAndAnotherControlLosesIt) {
  int focused = 0;
  child.Text1.on_focus = [&focused] { ++focused; };
  child.Comm.UserPress();
  EXPECT_TRUE(child.Comm.HasFocus());
  child.Text1.UserType("a");
  child.Text1.UserType("b");
  EXPECT_FALSE(child.Comm.HasFocus());
  EXPECT_TRUE(child.Text1.HasFocus());
  EXPECT_EQ(focused, 1);
}

TEST_F(Controls, AMousePressGivesTheFocusWithTheLeftButtonOnly) {
  child.Picture1.UserMouse({MouseEvent::kDown, 3, 4, true});
  EXPECT_FALSE(child.Picture1.HasFocus());
  child.Picture1.UserMouse({MouseEvent::kDown, 5, 6, false});
  EXPECT_TRUE(child.Picture1.HasFocus());
  EXPECT_THAT(toy.log, ElementsAre("Picture1 mouse 0 3 4 right", "Picture1 mouse 0 5 6"));
}

TEST_F(Controls, AMenuEntryBelowADisabledOrHiddenMenuRefusesTheUser) {
  int pressed = 0;
  toy.main->mnuBelow.on_click = [&pressed] { ++pressed; };
  EXPECT_FALSE(toy.main->mnuBelow.UserPress());
  toy.main->mnuOff.SetEnabled(true);
  EXPECT_TRUE(toy.main->mnuBelow.UserPress());
  toy.main->mnuOff.SetVisible(false);
  EXPECT_FALSE(toy.main->mnuBelow.UserPress());
  EXPECT_EQ(pressed, 1);
}

TEST_F(Controls, KeysMoveThroughAListFromItsFocusRow) {
  child.List1.SetRow(0);
  toy.log.clear();
  child.List1.DefaultKey({Key::kDown, {}});
  child.List1.DefaultKey({Key::kPageDown, {}});
  child.List1.DefaultKey({Key::kDown, {}});
  child.List1.DefaultKey({Key::kHome, {}});
  child.List1.DefaultKey({Key::kCharacter, "x"});
  EXPECT_THAT(toy.log, ElementsAre("List1 click 1", "List1 click 2", "List1 click 0"));
}

TEST_F(Controls, KeysMoveAScrollBarFromItsTop) {
  child.VScroll0.SetValue(127);
  child.VScroll0.DefaultKey({Key::kDown, {}});
  EXPECT_EQ(child.VScroll0.value(), 126);
  child.VScroll0.DefaultKey({Key::kUp, {}});
  child.VScroll0.DefaultKey({Key::kUp, {}});
  EXPECT_EQ(child.VScroll0.value(), 127);
  child.VScroll0.DefaultKey({Key::kPageDown, {}});
  EXPECT_EQ(child.VScroll0.value(), 117);
  child.VScroll0.DefaultKey({Key::kEnd, {}});
  EXPECT_EQ(child.VScroll0.value(), 0);
}

TEST_F(Controls, AControlIsFoundByItsNameAndIndex) {
  EXPECT_EQ(child.Find("VScroll1", 1), &child.VScroll1);
  EXPECT_EQ(child.Find("VScroll1"), nullptr);
  EXPECT_EQ(child.Find("Text1"), &child.Text1);
  EXPECT_EQ(child.Find("Text1", 0), nullptr);
  EXPECT_EQ(child.VScroll1.FullName(), "VScroll1(1)");
}

class ChangesOf : public ControlView {
 public:
  explicit ChangesOf(Control& control) : control_(control) { control.view = this; }
  ~ChangesOf() override { control_.view = nullptr; }
  void Show(Change change) override { changes.push_back(change); }
  std::vector<Change> changes;

 private:
  Control& control_;
};

TEST_F(Controls, AViewHearsOfRealChangesOnly) {
  ChangesOf view(child.Check1);
  child.Check1.SetEnabled(true);
  child.Check1.SetEnabled(false);
  child.Check1.SetVisible(false);
  child.Check1.SetCaption("Check");
  child.Check1.SetCaption("Other");
  child.Check1.SetBackColour(0xFF);
  child.Check1.SetBackColour(0xFF);
  child.Check1.SetValue(true);
  EXPECT_THAT(view.changes,
              ElementsAre(Change::kEnabled, Change::kVisible, Change::kText, Change::kColours, Change::kValue));
}

TEST_F(Controls, AViewIsUpToDateBeforeTheHandlerRuns) {
  ChangesOf view(child.List1);
  std::size_t seen = 0;
  child.List1.on_click = [&] { seen = view.changes.size(); };
  child.List1.SetRow(0);
  EXPECT_EQ(seen, 1U);
}

}  // namespace
}  // namespace zentaline::ui
