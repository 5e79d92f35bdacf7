// Every kind of control on its real widget: what the model holds is shown, and what the user does reaches the model.
#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTabBar>
#include <QTabWidget>
#include <QWheelEvent>

#include "tests/desktop/desk.h"
#include "ui/qt/fader.h"

namespace zentaline::ui::qt {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

class Controls : public Desk {
 protected:
  QListView* List() { return Widget<QListView>(child->List1); }
  QListView* List2() { return Widget<QListView>(child->List2); }
  static QPoint PlaceOfRow(QListView* list, int row) { return list->visualRect(list->model()->index(row, 0)).center(); }
  static void ClickRow(QListView* list, int row, Qt::KeyboardModifiers held = Qt::NoModifier) {
    QTest::mouseClick(list->viewport(), Qt::LeftButton, held, PlaceOfRow(list, row));
  }
  static std::vector<int> ShownSelection(QListView* list) {
    std::vector<int> rows;
    for (const QModelIndex& index : list->selectionModel()->selectedIndexes()) rows.push_back(index.row());
    std::sort(rows.begin(), rows.end());
    return rows;
  }
};

TEST_F(Controls, AButtonShowsItsCaptionAndIsPressedByMouseSpaceAndEnter) {
  auto* button = Widget<QPushButton>(child->Comm1);
  EXPECT_EQ(button->text(), "&Press me");
  child->Comm1.SetCaption("&Other");
  EXPECT_EQ(button->text(), "&Other");
  QTest::mouseClick(button, Qt::LeftButton);
  EXPECT_TRUE(child->Comm1.HasFocus());
  QTest::keyClick(button, Qt::Key_Space);
  QTest::keyClick(button, Qt::Key_Return);
  EXPECT_THAT(log, ElementsAre("press", "press", "press"));
}

TEST_F(Controls, ADisabledButtonLooksSoAndIsNotPressed) {
  auto* button = Widget<QPushButton>(child->Comm1);
  child->Comm1.SetEnabled(false);
  EXPECT_FALSE(button->isEnabled());
  QTest::mouseClick(button, Qt::LeftButton);
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(Controls, AHiddenControlIsNotShown) {
  child->Comm1.SetVisible(false);
  EXPECT_FALSE(Widget<QWidget>(child->Comm1)->isVisible());
  child->Comm1.SetVisible(true);
  EXPECT_TRUE(Widget<QWidget>(child->Comm1)->isVisible());
}

TEST_F(Controls, AFormClosedByItsOwnButtonIsGoneWhenTheClickHasEnded) {
  QPointer<QWidget> frame = Frame(*child);
  QTest::mouseClick(Widget<QPushButton>(child->CommClose), Qt::LeftButton);
  EXPECT_THAT(log, ElementsAre("closing", "unload 1", "still here"));
  EXPECT_EQ(toolkit.FindForm("frmToy(1)"), nullptr);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  Settle();
  EXPECT_TRUE(frame.isNull());
}

TEST_F(Controls, AClickOnARowSelectsItAndSoDoesAnotherOneOnTheSameRow) {
  ClickRow(List(), 3);
  ClickRow(List(), 3);
  EXPECT_THAT(log, ElementsAre("list 3", "list 3"));
  EXPECT_THAT(ShownSelection(List()), ElementsAre(3));
  EXPECT_EQ(List()->currentIndex().row(), 3);
  EXPECT_TRUE(child->List1.HasFocus());
}

TEST_F(Controls, TheProgramsSelectionIsShownAndScrolledToWithoutAnEcho) {
  child->List1.SetRow(60);
  EXPECT_THAT(log, ElementsAre("list 60"));
  EXPECT_THAT(ShownSelection(List()), ElementsAre(60));
  EXPECT_TRUE(List()->viewport()->rect().contains(PlaceOfRow(List(), 60)));
}

TEST_F(Controls, ARowThatIsRefusedIsNotShownAsSelected) {
  child->List1.SetRow(1);
  child->List1.on_click = [this] {
    if (child->List1.Row() == 4) child->List1.SetRow(1);
  };
  ClickRow(List(), 4);
  EXPECT_THAT(ShownSelection(List()), ElementsAre(1));
}

TEST_F(Controls, ADoubleClickIsOneClickAndOneDoubleClick) {
  const QPoint place = PlaceOfRow(List(), 2);
  QTest::mouseClick(List()->viewport(), Qt::LeftButton, Qt::NoModifier, place);
  QTest::mouseDClick(List()->viewport(), Qt::LeftButton, Qt::NoModifier, place);
  EXPECT_THAT(log, ElementsAre("list 2", "double"));
}

TEST_F(Controls, ArrowsMoveTheSelectionAfterTheKeyHandler) {
  child->List1.SetRow(0);
  child->List1.SetFocus();
  log.clear();
  QTest::keyClick(List(), Qt::Key_Down);
  QTest::keyClick(List(), Qt::Key_End);
  QTest::keyClick(List(), Qt::Key_Up);
  QTest::keyClick(List(), Qt::Key_PageUp);
  EXPECT_THAT(log, ElementsAre("list key 6", "list 1", "list key 10", "list 63", "list key 5", "list 62", "list key 7",
                               "list 52"));
}

TEST_F(Controls, ADigitASpaceAndDeleteCallTheKeyHandlerAndSelectNothing) {
  child->List1.SetRow(0);
  child->List1.SetFocus();
  log.clear();
  QTest::keyClick(List(), Qt::Key_2);
  QTest::keyClick(List(), Qt::Key_Space);
  QTest::keyClick(List(), Qt::Key_Delete);
  EXPECT_THAT(log, ElementsAre("list key 2", "list key 2", "list key 1"));
  EXPECT_EQ(child->List1.Row(), 0);
}

TEST_F(Controls, AListThatOutlivesItsWindowReadsItNoMore) {
  const QPointer<QListView> list = List();
  toolkit.windows().gate().UserNow([&] {
    const UserEvent event(*main);
    ASSERT_TRUE(child->Close());
    ASSERT_FALSE(list.isNull());
    EXPECT_EQ(list->model()->index(0, 0).data().toString(), "");
  });
}

TEST_F(Controls, ARightClickOnAListSelectsTheRowUnderItAndOpensTheMenuOnRelease) {
  QTest::mousePress(List()->viewport(), Qt::RightButton, Qt::NoModifier, PlaceOfRow(List(), 2));
  EXPECT_THAT(log, IsEmpty());
  QTest::mouseRelease(List()->viewport(), Qt::RightButton, Qt::NoModifier, PlaceOfRow(List(), 2));
  EXPECT_THAT(log, ElementsAre("list 2", "list context"));
  EXPECT_EQ(child->List1.Row(), 2);
}

TEST_F(Controls, SeveralRowsAreSelectedWithCtrlAndShift) {
  ClickRow(List2(), 1);
  ClickRow(List2(), 3, Qt::ControlModifier);
  EXPECT_THAT(ShownSelection(List2()), ElementsAre(1, 3));
  ClickRow(List2(), 1, Qt::ControlModifier);
  EXPECT_THAT(ShownSelection(List2()), ElementsAre(3));
  ClickRow(List2(), 0);
  ClickRow(List2(), 2, Qt::ShiftModifier);
  EXPECT_THAT(ShownSelection(List2()), ElementsAre(0, 1, 2));
  EXPECT_THAT(log, ElementsAre("list2 1 focus 1", "list2 1 3 focus 3", "list2 3 focus 3", "list2 0 focus 0",
                               "list2 0 1 2 focus 2"));
}

TEST_F(Controls, RowsPutInAndTakenOutAreShown) {
  child->List2.AddRow("six");
  EXPECT_EQ(List2()->model()->rowCount(), 6);
  child->List2.SetRowText(0, "uno");
  EXPECT_EQ(List2()->model()->index(0, 0).data().toString(), "uno");
  child->List2.SetRow(2);
  child->List2.RemoveRow(0);
  EXPECT_EQ(List2()->model()->rowCount(), 5);
  EXPECT_EQ(ShownSelection(List2()), child->List2.SelectedRows());
  child->List2.Clear();
  EXPECT_EQ(List2()->model()->rowCount(), 0);
  EXPECT_THAT(ShownSelection(List2()), IsEmpty());
}

TEST_F(Controls, TypingReachesTheModelKeyByKey) {
  auto* line = Widget<QLineEdit>(child->Text1);
  QTest::keyClicks(line, "abc");
  EXPECT_THAT(log, ElementsAre("text focus", "text a", "text ab", "text abc"));
}

TEST_F(Controls, ATextBoxShowsTheModelsTextAndRefusesWhatTheModelRefuses) {
  auto* line = Widget<QLineEdit>(child->Text1);
  child->Text1.SetText("Song");
  EXPECT_EQ(line->text(), "Song");
  log.clear();
  line->setCursorPosition(2);
  // Not in the byte set of the data files.
  QTest::sendKeyEvent(QTest::Click, line, Qt::Key_unknown, QStringLiteral("\u4e00"), Qt::NoModifier);
  EXPECT_EQ(line->text(), "Song");
  EXPECT_EQ(line->cursorPosition(), 2);
  EXPECT_THAT(log, Not(Contains(::testing::StartsWith("text S"))));
  QTest::keyClicks(line, "123456");
  EXPECT_EQ(line->text(), "So1234ng");
  EXPECT_EQ(child->Text1.text(), "So1234ng");
  child->Text1.read_only = true;
  QTest::keyClicks(line, "x");
  EXPECT_EQ(line->text(), "So1234ng");
}

TEST_F(Controls, ATextBoxTellsItsMouseEvents) {
  auto* line = Widget<QLineEdit>(child->Text1);
  QTest::mousePress(line, Qt::LeftButton);
  QTest::mouseRelease(line, Qt::LeftButton);
  EXPECT_THAT(log, ElementsAre("text focus", "text mouse 0", "text mouse 2"));
}

TEST_F(Controls, ATextOfManyLinesIsTypedAndShown) {
  auto* text = Widget<QPlainTextEdit>(child->Text2);
  child->Text2.SetText("one\r\ntwo");
  EXPECT_EQ(text->toPlainText(), "one\ntwo");
  log.clear();
  text->moveCursor(QTextCursor::End);
  QTest::keyClick(text, Qt::Key_Return);
  QTest::keyClicks(text, "x");
  EXPECT_EQ(child->Text2.text(), "one\ntwo\nx");
  child->Text2.keeps_line_ends = true;
  child->Text2.SetText("one\r\ntwo");
  text->moveCursor(QTextCursor::End);
  QTest::keyClick(text, Qt::Key_Return);
  EXPECT_EQ(child->Text2.text(), "one\r\ntwo\r\n");
}

TEST_F(Controls, AComboBoxShowsATextThatIsNoRowAndTakesTheUsersRow) {
  auto* combo = Widget<QComboBox>(child->Combo1);
  child->Combo1.ShowText("Elsewhere (B22)");
  EXPECT_EQ(combo->currentIndex(), -1);
  EXPECT_EQ(combo->accessibleDescription(), "Elsewhere (B22)");
  QTest::keyClick(combo, Qt::Key_Down);
  QTest::keyClick(combo, Qt::Key_Down);
  EXPECT_THAT(log, ElementsAre("combo 0", "combo 1"));
  EXPECT_EQ(combo->currentIndex(), 1);
  child->Combo1.SetRow(2);
  EXPECT_EQ(combo->currentIndex(), 2);
}

TEST_F(Controls, AnEditableComboBoxIsTypedInto) {
  auto* combo = Widget<QComboBox>(child->Combo2);
  QTest::keyClicks(combo->lineEdit(), "be");
  EXPECT_THAT(log, ElementsAre("combo2 b", "combo2 be"));
  EXPECT_EQ(child->Combo2.row(), -1);
}

TEST_F(Controls, NothingIsCompletedWhileTyping) {
  auto* box = Widget<QComboBox>(child->Combo2);
  box->lineEdit()->clear();
  QTest::keyClicks(box->lineEdit(), "al");
  EXPECT_EQ(box->lineEdit()->text(), "al");
  EXPECT_EQ(child->Combo2.text(), "al");
}

TEST_F(Controls, ACheckBoxIsClickedAndShown) {
  auto* box = Widget<QCheckBox>(child->Check1);
  QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, {8, box->height() / 2});
  QTest::keyClick(box, Qt::Key_Space);
  EXPECT_THAT(log, ElementsAre("check on", "check off"));
  child->Check1.SetValue(true);
  EXPECT_TRUE(box->isChecked());
}

TEST_F(Controls, ACheckThatItsHandlerTakesBackIsShownOff) {
  child->Check1.on_click = [this] { child->Check1.SetValue(false); };
  auto* box = Widget<QCheckBox>(child->Check1);
  QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, {8, box->height() / 2});
  EXPECT_FALSE(box->isChecked());
}

TEST_F(Controls, OfOptionButtonsOneIsOn) {
  auto* first = Widget<QRadioButton>(child->Option0);
  auto* second = Widget<QRadioButton>(child->Option1);
  EXPECT_TRUE(first->isChecked());
  QTest::mouseClick(second, Qt::LeftButton, Qt::NoModifier, {8, second->height() / 2});
  EXPECT_THAT(log, ElementsAre("option 1"));
  EXPECT_FALSE(first->isChecked());
  EXPECT_TRUE(second->isChecked());
  // Pressing it again must not take it off.
  QTest::mouseClick(second, Qt::LeftButton, Qt::NoModifier, {8, second->height() / 2});
  EXPECT_TRUE(second->isChecked());
  EXPECT_THAT(log, ElementsAre("option 1"));
}

TEST_F(Controls, ArrowKeysGoThroughTheOptionButtonsRoundAtTheEnds) {
  auto* first = Widget<QRadioButton>(child->Option0);
  auto* second = Widget<QRadioButton>(child->Option1);
  first->setFocus();
  QTest::keyClick(first, Qt::Key_Down);
  EXPECT_TRUE(second->isChecked());
  EXPECT_EQ(child->focus(), &child->Option1);
  QTest::keyClick(second, Qt::Key_Down);
  EXPECT_TRUE(first->isChecked());
  QTest::keyClick(first, Qt::Key_Up);
  EXPECT_THAT(log, ElementsAre("option 1", "option 0", "option 1"));
}

TEST_F(Controls, TheFocusIsDrawnWhereAKeyHasTakenIt) {
  auto* first = Widget<QRadioButton>(child->Option0);
  first->setFocus(Qt::MouseFocusReason);
  first->window()->setAttribute(Qt::WA_KeyboardFocusChange, false);
  QTest::keyClick(first, Qt::Key_Down);
  auto* second = Widget<QRadioButton>(child->Option1);
  EXPECT_TRUE(second->hasFocus());
  EXPECT_TRUE(second->window()->testAttribute(Qt::WA_KeyboardFocusChange));
}

TEST_F(Controls, AFixedPitchIsOneAlsoWhereTheDesktopHasNoneSet) {
  Font fixed;
  fixed.fixed_pitch = true;
  EXPECT_TRUE(QFontInfo(ToQt(fixed)).fixedPitch());
}

TEST_F(Controls, AScrollBarMovesByKeysAndShowsItsValue) {
  auto* bar = Widget<Fader>(child->HScroll1);
  QTest::keyClick(bar, Qt::Key_PageDown);
  QTest::keyClick(bar, Qt::Key_Down);
  QTest::keyClick(bar, Qt::Key_End);
  EXPECT_THAT(log, ElementsAre("bar 10", "bar 11", "bar 127"));
  EXPECT_EQ(bar->value(), 127);
  child->HScroll1.SetValue(64);
  EXPECT_EQ(bar->value(), 64);
}

TEST_F(Controls, ANotchOfTheWheelMovesABarWithTheFocusByOneStep) {
  auto* bar = Widget<Fader>(child->VScroll1);
  child->VScroll1.SetValue(64);
  log.clear();
  const auto turn = [bar](int eighths) {
    const QPointF place = QRectF(bar->rect()).center();
    QWheelEvent event(place, bar->mapToGlobal(place), {}, {0, eighths}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                      false);
    QCoreApplication::sendEvent(bar, &event);
  };
  // On a page that is too small for what it holds the wheel scrolls, but where the focus is.
  Frame(*child)->resize(Frame(*child)->minimumSizeHint());
  Settle();
  log.clear();
  turn(120);
  EXPECT_THAT(log, IsEmpty());
  bar->setFocus();
  log.clear();
  turn(120);
  turn(-240);
  turn(-60);
  turn(-60);
  EXPECT_THAT(log, ElementsAre("vbar 65", "vbar 63", "vbar 62"));
}

TEST_F(Controls, WhereNothingScrollsTheWheelMovesTheBarUnderThePointer) {
  auto* bar = Widget<Fader>(child->HScroll1);
  Frame(*child)->resize(Frame(*child)->sizeHint() + QSize(100, 100));
  Settle();
  child->List1.SetFocus();
  log.clear();
  const QPointF place = QRectF(bar->rect()).center();
  QWheelEvent event(place, bar->mapToGlobal(place), {}, {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                    false);
  QCoreApplication::sendEvent(bar, &event);
  EXPECT_THAT(log, ElementsAre("bar 1"));
}

// Turns the wheel as the one of a mouse does, which may take the focus along.
void TurnWheel(QWidget* widget) {
  const QPointF place = QRectF(widget->rect()).center();
  QWheelEvent event(place, widget->mapToGlobal(place), {}, {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                    false);
  QSpontaneKeyEvent::setSpontaneous(&event);
  qApp->notify(widget, &event);
}

TEST_F(Controls, TheWheelThatScrollsAPageTakesNoFocusAndChoosesNoRow) {
  child->Combo1.ShowRow(0);
  child->Combo2.ShowRow(0);
  auto* text = Widget<QLineEdit>(child->Text1);
  text->setFocus();
  Settle();
  log.clear();
  auto* typed = Widget<QComboBox>(child->Combo2);
  for (QWidget* widget : {static_cast<QWidget*>(Widget<QComboBox>(child->Combo1)), static_cast<QWidget*>(typed),
                          static_cast<QWidget*>(typed->lineEdit())}) {
    TurnWheel(widget);
    TurnWheel(widget);
    Settle();
    EXPECT_EQ(QApplication::focusWidget(), text);
  }
  EXPECT_THAT(log, IsEmpty());
  // Where the focus is it does.
  Widget<QComboBox>(child->Combo1)->setFocus();
  log.clear();
  TurnWheel(Widget<QComboBox>(child->Combo1));
  EXPECT_THAT(log, ElementsAre("combo 1"));
}

// A bar that says more than its number.
class ToyShown : public ToyChild {
 public:
  ToyShown(Toolkit& the_toolkit, Log& the_log) : ToyChild(the_toolkit, the_log, "shown") {
    HScroll1.shown = [](int value) { return value == 64 ? std::string("CNT") : std::to_string(value); };
  }
};

QAccessibleInterface* Spoken(QWidget* widget) {
  return QAccessible::queryAccessibleInterface(widget);
}

TEST_F(Controls, AScreenReaderHearsTheValueThatABarShows) {
  child->VScroll1.SetValue(30);
  QAccessibleInterface* bar = Spoken(Widget<Fader>(child->VScroll1));
  ASSERT_NE(bar->valueInterface(), nullptr);
  EXPECT_EQ(bar->role(), QAccessible::Slider);
  EXPECT_EQ(bar->valueInterface()->currentValue().toInt(), 30) << "not the way from the top, where 100 is";
  EXPECT_EQ(bar->valueInterface()->minimumValue().toInt(), 0);
  EXPECT_EQ(bar->valueInterface()->maximumValue().toInt(), 100);
  EXPECT_EQ(bar->text(QAccessible::Value), "30");
  log.clear();
  bar->valueInterface()->setCurrentValue(70);
  bar->valueInterface()->setCurrentValue(101);
  EXPECT_THAT(log, ElementsAre("vbar 70"));
  EXPECT_EQ(child->VScroll1.value(), 70);
}

TEST_F(Controls, AScreenReaderHearsWhatStandsForANumber) {
  auto& form = static_cast<ToyChild&>(toolkit.Open(std::make_unique<ToyShown>(toolkit, log)));
  form.HScroll1.SetToolTip("Left and right");
  form.HScroll1.SetValue(64);
  QAccessibleInterface* bar = Spoken(Widget<Fader>(form.HScroll1));
  EXPECT_EQ(bar->text(QAccessible::Value), "CNT");
  EXPECT_EQ(bar->text(QAccessible::Description), "CNT: Left and right");
  form.HScroll1.SetValue(65);
  EXPECT_EQ(bar->text(QAccessible::Description), "Left and right");
}

// A field that is pressed by Enter.
class ToyField : public Form {
 public:
  ToyField(Toolkit& the_toolkit, Log& log) : Form(the_toolkit, FormKind::kChild, "frmField") {
    Field.sunken = true;
    Field.SetCaption("Out: Port A");
    Field.on_key = [&log](const Key& key) {
      if (key.name == Key::kEnter) log.push_back("enter");
      return true;
    };
    Plain.SetCaption("Volume");
    layout = Row({Item(Plain), Item(Field, 1)});
  }
  Label Plain{*this, "Plain"};
  Label Field{*this, "Field"};
};

TEST_F(Controls, AFieldThatCanBePressedIsAButtonToAScreenReader) {
  auto& form = static_cast<ToyField&>(toolkit.Open(std::make_unique<ToyField>(toolkit, log)));
  Settle();
  log.clear();
  QAccessibleInterface* field = Spoken(Widget<QLabel>(form.Field));
  EXPECT_EQ(field->role(), QAccessible::Button);
  EXPECT_EQ(field->text(QAccessible::Name), "Out: Port A");
  field->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_THAT(log, Contains("enter"));
  EXPECT_EQ(Spoken(Widget<QLabel>(form.Plain))->role(), QAccessible::StaticText);
}

TEST_F(Controls, AScreenReaderHearsOfOptionsAndTypedLists) {
  QAccessibleInterface* first = Spoken(Widget<QRadioButton>(child->Option0));
  QAccessibleInterface* second = Spoken(Widget<QRadioButton>(child->Option1));
  EXPECT_EQ(first->role(), QAccessible::RadioButton);
  EXPECT_EQ(first->text(QAccessible::Name), "Option 0");
  EXPECT_TRUE(first->state().checkable);
  EXPECT_TRUE(first->state().checked);
  EXPECT_FALSE(second->state().checked);
  log.clear();
  second->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_THAT(log, ElementsAre("option 1"));
  EXPECT_TRUE(second->state().checked);
  EXPECT_FALSE(first->state().checked);
  auto* list = Widget<QComboBox>(child->Combo2);
  EXPECT_NE(Spoken(list)->text(QAccessible::Name), "");
  EXPECT_EQ(Spoken(list->lineEdit())->text(QAccessible::Name), Spoken(list)->text(QAccessible::Name));
}

TEST_F(Controls, AScrollBarWhoseGreaterValueIsAtTheTopRunsDownwards) {
  auto* bar = Widget<Fader>(child->VScroll1);
  child->VScroll1.SetValue(100);
  EXPECT_EQ(bar->value(), 0);
  log.clear();
  bar->setSliderPosition(30);
  EXPECT_THAT(log, ElementsAre("vbar 70"));
}

TEST_F(Controls, APageIsTurnedByItsTab) {
  auto* tabs = Widget<QTabWidget>(child->Tabs1);
  EXPECT_EQ(tabs->tabText(1), "Effects");
  QTest::mouseClick(tabs->tabBar(), Qt::LeftButton, Qt::NoModifier, tabs->tabBar()->tabRect(1).center());
  EXPECT_THAT(log, ElementsAre("page 1"));
  child->Tabs1.SetPage(0);
  EXPECT_EQ(tabs->currentIndex(), 0);
}

class ToyPages : public Form {
 public:
  explicit ToyPages(Toolkit& the_toolkit) : Form(the_toolkit, FormKind::kChild, "frmPages") {
    for (int page = 1; page <= 9; ++page) Tabs1.captions.push_back("User Scale &" + std::to_string(page));
    Plus.SetCaption("+");
    Plus.least_characters = {3, 1};
    Words.SetCaption("+");
    layout = Column({Pages(Tabs1, std::vector<Layout>(9)), Row({Item(Plus), Item(Words), Space()})});
  }
  Tabs Tabs1{*this, "Tabs1"};
  Button Plus{*this, "Plus"};
  Button Words{*this, "Words"};
};

TEST_F(Controls, AllTabsAreInSightWhereThereIsRoomAndNoneMakesTheWindowLarger) {
  auto& form = static_cast<ToyPages&>(toolkit.Open(std::make_unique<ToyPages>(toolkit)));
  Settle();
  auto* tabs = Widget<QTabWidget>(form.Tabs1);
  EXPECT_GE(tabs->sizeHint().width(), tabs->tabBar()->tabRect(8).right());
  EXPECT_LT(tabs->minimumSizeHint().width(), tabs->tabBar()->tabRect(8).right());
  EXPECT_EQ(tabs->tabText(4), "User Scale &5") << "its letter turns to it";
}

TEST_F(Controls, AButtonThatIsToldItsCharactersIsNoWider) {
  auto& form = static_cast<ToyPages&>(toolkit.Open(std::make_unique<ToyPages>(toolkit)));
  Settle();
  EXPECT_LT(Widget<QWidget>(form.Plus)->width(), Widget<QWidget>(form.Words)->width());
  EXPECT_EQ(Widget<QWidget>(form.Plus)->height(), Widget<QWidget>(form.Words)->height());
}

TEST_F(Controls, FocusSetByTheProgramAndByTheTabKeyAgreeWithTheModel) {
  child->Text1.SetFocus();
  EXPECT_TRUE(Widget<QWidget>(child->Text1)->hasFocus());
  QTest::keyClick(Widget<QWidget>(child->Text1), Qt::Key_Tab);
  EXPECT_EQ(child->focus(), &child->Combo1);
}

TEST_F(Controls, AMnemonicOfALabelLeadsToTheControlBehindIt) {
  EXPECT_EQ(Widget<QLabel>(child->LabelName)->buddy(), Widget<QWidget>(child->Text1));
}

TEST_F(Controls, ColoursFollowTheModelAndTheWindowsOwnColourIsTheDesktops) {
  QWidget* line = Widget<QWidget>(child->Text1);
  const QColor own = line->palette().color(QPalette::Base);
  child->Text1.SetBackColour(0x00FFFF);
  EXPECT_EQ(line->palette().color(QPalette::Base), QColor(255, 255, 0));
  EXPECT_EQ(line->palette().color(QPalette::Text), QColor(Qt::black));
  child->Text1.SetBackColour(0x400000);
  EXPECT_EQ(line->palette().color(QPalette::Text), QColor(Qt::white));
  // On plain red black is the easier to read.
  child->Text1.SetBackColour(0x0000FF);
  EXPECT_EQ(line->palette().color(QPalette::Text), QColor(Qt::black));
  child->Text1.SetBackColour(kWindowColour);
  EXPECT_EQ(line->palette().color(QPalette::Base), own);
}

TEST_F(Controls, ToolTipsAreShownAsPlainText) {
  child->Comm1.SetToolTip("a <b> c");
  EXPECT_EQ(Widget<QWidget>(child->Comm1)->toolTip(), "<p>a &lt;b&gt; c</p>");
  child->Comm1.SetToolTip("Sends it");
  EXPECT_EQ(Widget<QWidget>(child->Comm1)->toolTip(), "Sends it");
}

TEST_F(Controls, ANameWithAnAmpersandIsShownAsItIs) {
  main->LabelArr.SetCaption("Rock & Roll");
  EXPECT_EQ(Widget<QLabel>(main->LabelArr)->text(), "Rock & Roll");
  main->LabelArr.literal = true;
  main->LabelArr.SetCaption("R&B");
  EXPECT_EQ(Widget<QLabel>(main->LabelArr)->text(), "R&B");
}

}  // namespace
}  // namespace zentaline::ui::qt
