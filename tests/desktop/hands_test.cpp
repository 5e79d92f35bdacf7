// What hands expect of faders, lists, keys and questions.
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>
#include <QTabWidget>
#include <QTimer>
#include <optional>

#include "tests/desktop/desk.h"
#include "ui/control_array.h"
#include "ui/qt/fader.h"
#include "ui/qt/rows_view.h"

namespace zentaline::ui::qt {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Hands : public Desk {
 protected:
  Fader* Bar() { return Widget<Fader>(child->HScroll1); }
  Fader* Upright() { return Widget<Fader>(child->VScroll1); }
  RowsView* List() { return Widget<RowsView>(child->List1); }
  static QPoint PlaceOfRow(const RowsView* list, int row) {
    return list->visualRect(list->model()->index(row, 0)).center();
  }
  static void Move(QWidget* widget, const QPoint& place, Qt::KeyboardModifiers keys) {
    QMouseEvent event(QEvent::MouseMove, place, widget->mapToGlobal(QPointF(place)), Qt::NoButton, Qt::LeftButton,
                      keys);
    QCoreApplication::sendEvent(widget, &event);
  }
  void Resize(QSize size) {
    toolkit.windows().main()->window()->resize(size + QSize(80, 160));
    Settle();
    Frame(*child)->resize(size);
    Settle();
    log.clear();
  }
};

TEST_F(Hands, AClickInTheGrooveMovesByAPage) {
  QTest::mouseClick(Bar(), Qt::LeftButton, Qt::NoModifier, {Bar()->width() - 4, Bar()->height() / 2});
  EXPECT_THAT(log, ElementsAre("bar 10"));
  log.clear();
  QTest::mouseClick(Bar(), Qt::LeftButton, Qt::NoModifier, {Bar()->width() - 4, Bar()->height() / 2});
  QTest::mouseClick(Bar(), Qt::LeftButton, Qt::NoModifier, {2, Bar()->height() / 2});
  EXPECT_THAT(log, ElementsAre("bar 20", "bar 10"));
}

TEST_F(Hands, ADragGoesWithThePointerAndWithShiftFinely) {
  Resize({1200, 800});
  QPoint place = Bar()->HandlePlace().center();
  const QPoint start = place;
  QTest::mousePress(Bar(), Qt::LeftButton, Qt::NoModifier, place);
  place += QPoint(40, 0);
  Move(Bar(), place, Qt::NoModifier);
  const int coarse = child->HScroll1.value();
  const int expected = 40 * 127 / (Bar()->width() - 14);
  EXPECT_NEAR(coarse, expected, 1);
  Move(Bar(), place + QPoint(40, 0), Qt::ShiftModifier);
  EXPECT_NEAR(child->HScroll1.value() - coarse, expected / 8.0, 1.0);
  // Beyond the end and back: the handle stays under the pointer.
  Move(Bar(), start + QPoint(-500, 0), Qt::NoModifier);
  EXPECT_EQ(child->HScroll1.value(), 0);
  QTest::mouseRelease(Bar(), Qt::LeftButton, Qt::NoModifier, start);
}

TEST_F(Hands, TheHandleOfAnUprightBarIsAtTheTopForTheGreatestValue) {
  child->VScroll1.SetValue(100);
  EXPECT_LE(Upright()->HandlePlace().top(), 2);
  child->VScroll1.SetValue(0);
  EXPECT_GE(Upright()->HandlePlace().bottom(), Upright()->height() - 4);
}

// A page of upright bars, as an editor has it.
class ToyStrips : public Form {
 public:
  explicit ToyStrips(Toolkit& the_toolkit) : Form(the_toolkit, FormKind::kChild, "frmStrips") {
    Bar.vertical = true;
    Bar.SetRange(127, 0);
    Tabs1.captions = {"Desk"};
    Layout page = Row({Column({Item(Name), Item(Bar, 1), Item(List)}, 1)}, 1);
    page.scrolls = true;
    layout = Column({Pages(Tabs1, {std::move(page)})});
  }
  Label Name{*this, "Name"};
  ScrollBar Bar{*this, "Bar"};
  ComboBox List{*this, "List"};
  Tabs Tabs1{*this, "Tabs1"};
};

TEST_F(Hands, AnUprightBarUsesTheHeightThatIsThereAndItsPageScrollsRatherThanShortenIt) {
  auto& form = static_cast<ToyStrips&>(toolkit.Open(std::make_unique<ToyStrips>(toolkit)));
  toolkit.windows().main()->window()->resize(900, 900);
  Settle();
  const auto* bar = Widget<Fader>(form.Bar);
  const auto* page = Frame(form)->findChild<QTabWidget*>()->findChild<QScrollArea*>();
  ASSERT_NE(page, nullptr);
  Frame(form)->resize(300, 700);
  Settle();
  EXPECT_GT(bar->height(), 400);
  EXPECT_EQ(page->verticalScrollBar()->maximum(), 0);
  for (const int height : {220, 200, 180}) {
    Frame(form)->resize(300, height);
    Settle();
    EXPECT_EQ(bar->height(), 120) << height;
    EXPECT_GT(page->verticalScrollBar()->maximum(), 0) << height;
  }
}

// Strips side by side, as on a mixing desk.
class ToyDesk : public Form {
 public:
  explicit ToyDesk(Toolkit& the_toolkit) : Form(the_toolkit, FormKind::kChild, "frmDesk") {
    std::vector<Layout> strips;
    for (int strip = 0; strip < 5; ++strip) {
      Box[strip].least_characters = {20, 1};
      strips.push_back(Inside(Strip[strip], Column({Item(Box[strip]), Item(Low[strip])})));
    }
    layout = Row(std::move(strips));
    layout.scrolls = true;
  }
  ControlArray<Frame> Strip{*this, "Strip", 0, 4};
  ControlArray<TextBox> Box{*this, "Box", 0, 4};
  ControlArray<TextBox> Low{*this, "Low", 0, 4};
};

TEST_F(Hands, WhatTheProgramGivesTheFocusComesIntoSight) {
  auto& form = static_cast<ToyDesk&>(toolkit.Open(std::make_unique<ToyDesk>(toolkit)));
  Frame(form)->resize(300, 200);
  Settle();
  auto* page = Frame(form)->findChild<QScrollArea*>();
  const auto in_sight = [&](const Control& control) {
    const auto* widget = Widget<QWidget>(control);
    const QPoint place = widget->mapTo(page->viewport(), QPoint());
    return page->viewport()->rect().contains(QRect(place, widget->size()));
  };
  Widget<QWidget>(form.Box[0])->setFocus(Qt::TabFocusReason);
  Settle();
  ASSERT_FALSE(in_sight(form.Box[4]));
  for (int strip = 1; strip < 5; ++strip) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right, Qt::AltModifier);
    Settle();
    EXPECT_EQ(QApplication::focusWidget(), Widget<QWidget>(form.Box[strip]));
    EXPECT_TRUE(in_sight(form.Box[strip])) << strip;
  }
  // What a hand clicks stays where it is, also where it is seen in part.
  page->horizontalScrollBar()->setValue(page->horizontalScrollBar()->maximum() - 150);
  Settle();
  const int before = page->horizontalScrollBar()->value();
  ASSERT_FALSE(in_sight(form.Low[4]));
  QTest::mouseClick(Widget<QWidget>(form.Low[4]), Qt::LeftButton, Qt::NoModifier, {3, 3});
  Settle();
  EXPECT_EQ(QApplication::focusWidget(), Widget<QWidget>(form.Low[4]));
  EXPECT_EQ(page->horizontalScrollBar()->value(), before);
  // But a step back shows what it is about.
  page->horizontalScrollBar()->setValue(0);
  Settle();
  form.Low[4].SetFocus();
  ASSERT_FALSE(in_sight(form.Low[4]));
  form.Low[4].ComeIntoSight();
  EXPECT_TRUE(in_sight(form.Low[4]));
}

class ToyRecord : public Form {
 public:
  explicit ToyRecord(Toolkit& the_toolkit) : Form(the_toolkit, FormKind::kChild, "frmRecord") {
    Bar.SetRange(0, 127);
    Bar.kept_value = [] { return std::optional(100); };
    Name.SetCaption("Volume");
    Name.bar = &Bar;
    layout = Row({Item(Name), Item(Bar, 1), Item(Other)});
  }
  Label Name{*this, "Name"};
  ScrollBar Bar{*this, "Bar"};
  TextBox Other{*this, "Other"};
};

TEST_F(Hands, ADoubleClickOnTheHandleOrTheLabelTakesABarBack) {
  auto& form = static_cast<ToyRecord&>(toolkit.Open(std::make_unique<ToyRecord>(toolkit)));
  Settle();
  auto* bar = Widget<Fader>(form.Bar);
  QTest::mouseDClick(bar, Qt::LeftButton, Qt::NoModifier, {bar->width() - 4, bar->height() / 2});
  EXPECT_EQ(form.Bar.value(), 10) << "in the groove it is a press";
  QTest::mouseRelease(bar, Qt::LeftButton);
  QTest::mouseDClick(bar, Qt::LeftButton, Qt::NoModifier, bar->HandlePlace().center());
  EXPECT_EQ(form.Bar.value(), 100);
  EXPECT_EQ(bar->value(), 100);
  form.Bar.SetValue(7);
  QTest::mouseDClick(Widget<QLabel>(form.Name), Qt::LeftButton);
  EXPECT_EQ(form.Bar.value(), 100);
}

TEST_F(Hands, DigitsTypedOnABarAreShownUntilEnterTakesThem) {
  Bar()->setFocus();
  log.clear();
  QTest::keyClicks(Bar(), "64");
  EXPECT_THAT(log, IsEmpty());
  QTest::keyClick(Bar(), Qt::Key_Return);
  EXPECT_THAT(log, ElementsAre("bar 64"));
  EXPECT_EQ(Bar()->value(), 64);
}

TEST_F(Hands, LettersTypedInAListLookForARow) {
  child->List1.on_key = nullptr;
  List()->setFocus();
  log.clear();
  QTest::keyClicks(List(), "23");
  EXPECT_THAT(log, ElementsAre("list 10"));
  QTest::keyClicks(List(), "arr");
  EXPECT_THAT(log, ElementsAre("list 10", "list 11", "list 11", "list 11"));
  log.clear();
  QTest::keyClick(List(), Qt::Key_Return);
  EXPECT_THAT(log, ElementsAre("double"));
}

TEST_F(Hands, ARightClickSelectsTheRowUnderThePointerFirst) {
  child->List1.SetRow(1);
  log.clear();
  QTest::mouseClick(List()->viewport(), Qt::RightButton, Qt::NoModifier, PlaceOfRow(List(), 3));
  EXPECT_THAT(log, ElementsAre("list 3", "list context"));
  log.clear();
  QTest::mouseClick(List()->viewport(), Qt::RightButton, Qt::NoModifier, PlaceOfRow(List(), 3));
  EXPECT_THAT(log, ElementsAre("list context")) << "it is selected";
}

TEST_F(Hands, ShiftF10OpensTheMenu) {
  List()->setFocus();
  log.clear();
  QTest::keyClick(List(), Qt::Key_F10, Qt::ShiftModifier);
  EXPECT_THAT(log, ElementsAre("list context"));
}

TEST_F(Hands, ControlWithThePageKeysTurnsThePages) {
  Bar()->setFocus();
  log.clear();
  QTest::keyClick(Bar(), Qt::Key_PageDown, Qt::ControlModifier);
  QTest::keyClick(Bar(), Qt::Key_PageDown, Qt::ControlModifier);
  List()->setFocus();
  QTest::keyClick(List(), Qt::Key_PageUp, Qt::ControlModifier);
  EXPECT_THAT(log, ElementsAre("page 1", "page 0", "page 1"));
  EXPECT_EQ(Widget<QTabWidget>(child->Tabs1)->currentIndex(), 1);
}

TEST_F(Hands, AListOf64StandsInColumnsOfEightWhereThereIsRoom) {
  child->List1.group_rows = 0;
  Resize({600, 500});
  EXPECT_EQ(List()->visualRect(List()->model()->index(8, 0)).left(),
            List()->visualRect(List()->model()->index(0, 0)).left());
  Resize({3200, 700});
  const auto place = [this](int row) { return List()->visualRect(List()->model()->index(row, 0)); };
  for (int row = 0; row < 64; ++row) {
    EXPECT_EQ(place(row).left(), place(row / 8 * 8).left()) << row;
    EXPECT_EQ(place(row).top(), place(row % 8).top()) << row;
    EXPECT_TRUE(List()->viewport()->rect().contains(place(row).center())) << row;
  }
  EXPECT_GT(place(8).left(), place(0).left());
  // No gaps: a click beside a text is on its row.
  for (const int row : {0, 9, 63}) {
    EXPECT_EQ(List()->RowAt(place(row).topLeft()), row);
    EXPECT_EQ(List()->RowAt(place(row).bottomRight()), row);
  }
  EXPECT_EQ(place(0).bottom() + 1, place(1).top());
  EXPECT_EQ(place(0).right() + 1, place(8).left());
  child->List1.SetRow(10);
  List()->setFocus();
  log.clear();
  QTest::keyClick(List(), Qt::Key_Right);
  QTest::keyClick(List(), Qt::Key_Down);
  QTest::keyClick(List(), Qt::Key_Left);
  std::erase_if(log, [](const std::string& line) { return line.starts_with("list key"); });
  EXPECT_THAT(log, ElementsAre("list 18", "list 19", "list 11"));
  child->List1.SetRow(3);
  log.clear();
  QTest::keyClick(List(), Qt::Key_Left);
  EXPECT_EQ(child->List1.Row(), 3) << "there is no column";
  // They stay as long as there is room for their texts, and come back with it.
  Resize({3000, 700});
  EXPECT_GT(place(8).left(), place(0).left());
  Resize({600, 500});
  EXPECT_EQ(place(8).left(), place(0).left());
  Resize({3000, 700});
  EXPECT_GT(place(8).left(), place(0).left());
}

TEST_F(Hands, ColumnsHaveEightRowsEachAtEverySizeAndWaitForRoomForNames) {
  std::vector<std::string> rows;
  for (int row = 0; row < 64; ++row) rows.push_back(std::to_string(row / 8 + 1) + std::to_string(row % 8 + 1));
  child->List1.SetRows(rows);
  Resize({900, 500});
  const auto place = [this](int row) { return List()->visualRect(List()->model()->index(row, 0)); };
  EXPECT_EQ(place(8).left(), place(0).left()) << "a name would have no room";
  for (int step = 0; step < 16; ++step) {
    Resize({3100 + 9 * step, 420 + 13 * step});
    ASSERT_TRUE(List()->isWrapping());
    for (int row = 0; row < 64; ++row) {
      ASSERT_EQ(place(row).left(), place(row / 8 * 8).left()) << row << " at " << step;
      ASSERT_EQ(place(row).top(), place(row % 8).top()) << row << " at " << step;
      ASSERT_TRUE(List()->viewport()->rect().contains(place(row))) << row << " at " << step;
    }
  }
}

TEST_F(Hands, ATextThatIsNoRowGoesBackWhenTheFocusLeaves) {
  auto* combo = Widget<QComboBox>(child->Combo2);
  child->Combo2.ShowRow(1);
  combo->lineEdit()->setFocus(Qt::MouseFocusReason);
  combo->lineEdit()->selectAll();
  QTest::keyClicks(combo->lineEdit(), "gamma");
  EXPECT_EQ(child->Combo2.text(), "gamma");
  Widget<QLineEdit>(child->Text1)->setFocus(Qt::TabFocusReason);
  Settle();
  EXPECT_EQ(child->Combo2.text(), "beta");
  EXPECT_EQ(combo->lineEdit()->text(), "beta");
}

class Questions : public Hands {
 protected:
  // The answer, when the user does this first and presses No if the box is still there.
  template <class User>
  BoxAnswer Ask(BoxStyle style, User user) {
    QTimer::singleShot(0, [this, user] {
      auto* box = dynamic_cast<QMessageBox*>(QApplication::activeModalWidget());
      ASSERT_NE(box, nullptr);
      user(box);
      stayed = box->isVisible();
      if (!stayed) return;
      for (QAbstractButton* button : box->buttons()) {
        if (button->text() == "&Yes") button->click();
      }
    });
    return toolkit.MessageBox(style, "Title", "Text");
  }
  bool stayed = false;
};

TEST_F(Questions, YesAndNoAloneCantBePutAway) {
  EXPECT_EQ(Ask(BoxStyle::kYesNo, [](QMessageBox* box) { QTest::keyClick(box, Qt::Key_Escape); }), BoxAnswer::kYes);
  EXPECT_TRUE(stayed);
  EXPECT_EQ(Ask(BoxStyle::kYesNo, [](QMessageBox* box) { box->close(); }), BoxAnswer::kYes);
  EXPECT_TRUE(stayed);
}

TEST_F(Questions, WithCancelEscapeAndTheFrameCancel) {
  EXPECT_EQ(Ask(BoxStyle::kYesNoCancel, [](QMessageBox* box) { QTest::keyClick(box, Qt::Key_Escape); }),
            BoxAnswer::kCancel);
  EXPECT_EQ(Ask(BoxStyle::kYesNoCancel, [](QMessageBox* box) { box->close(); }), BoxAnswer::kCancel);
  EXPECT_EQ(Ask(BoxStyle::kOk, [](QMessageBox* box) { QTest::keyClick(box, Qt::Key_Escape); }), BoxAnswer::kOk);
}

TEST_F(Hands, AWindowShowsWhatIsntSavedByTheDesktopsMark) {
  child->SetCaption("File [*] of mine");
  child->SetModified(true);
  EXPECT_TRUE(Frame(*child)->isWindowModified());
  EXPECT_EQ(child->caption(), "File [*] of mine");
  EXPECT_EQ(Frame(*child)->windowTitle(), "File [*][*] of mine[*]");
  child->SetModified(false);
  EXPECT_EQ(Frame(*child)->windowTitle(), "File [*][*] of mine");
  EXPECT_FALSE(Frame(*child)->isWindowModified());
}

TEST_F(Hands, AWindowWithoutAPlaceOpensBesideTheOneInFront) {
  toolkit.windows().main()->window()->resize(1700, 900);
  Settle();
  Frame(*child)->setGeometry(0, 0, 500, 600);
  Settle();
  auto& form = static_cast<ToyRecord&>(toolkit.Open(std::make_unique<ToyRecord>(toolkit)));
  Settle();
  EXPECT_FALSE(Frame(form)->geometry().intersects(Frame(*child)->geometry()));
}

TEST_F(Hands, AWindowOverOneThatFillsTheAreaLeavesItsTitleInReach) {
  toolkit.windows().main()->window()->resize(700, 600);
  Settle();
  QWidget* owner = Frame(*child);
  owner->setGeometry(owner->parentWidget()->rect());
  Settle();
  auto large = std::make_unique<ToyRecord>(toolkit);
  large->Other.multi_line = true;
  large->Other.least_characters = {300, 60};
  const auto& form = static_cast<ToyRecord&>(toolkit.Open(std::move(large)));
  Settle();
  const QWidget* frame = Frame(form);
  const int title = owner->style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, owner);
  EXPECT_GE(frame->y(), title);
  EXPECT_TRUE(owner->parentWidget()->rect().contains(frame->geometry()));
  EXPECT_EQ(owner->parentWidget()->childAt(40, title / 2), owner) << "a click there brings it to the front";
}

TEST_F(Hands, MaximisingAndRestoringKeepTheFocus) {
  auto* text = Widget<QLineEdit>(child->Text1);
  text->setFocus(Qt::MouseFocusReason);
  Settle();
  Frame(*child)->showMaximized();
  Settle();
  EXPECT_EQ(QApplication::focusWidget(), text);
  Frame(*child)->showNormal();
  Settle();
  EXPECT_EQ(QApplication::focusWidget(), text);
  EXPECT_TRUE(child->Text1.HasFocus());
}

TEST_F(Hands, InANarrowWindowTheProgressStandsInTheWaitTextsPlace) {
  main->wait_field = &main->Label1;
  main->LabelArr.SetCaption("A name that is to be read whole");
  MainFormWindow* window = toolkit.windows().main();
  auto* bar = window->window()->findChild<QProgressBar*>();
  auto* wait = Widget<QWidget>(main->Label1);
  auto* name = Widget<QLabel>(main->LabelArr);
  window->window()->resize(600, 500);
  Settle();
  const QRect before = name->geometry();
  window->ShowProgress(10, 100, 5);
  Settle();
  EXPECT_EQ(bar->parentWidget(), wait->parentWidget());
  EXPECT_EQ(bar->geometry(), wait->geometry());
  EXPECT_EQ(name->geometry(), before) << "the fields keep their room";
  window->HideProgress();
  window->window()->resize(1600, 500);
  Settle();
  window->ShowProgress(10, 100, 5);
  Settle();
  EXPECT_GE(bar->mapTo(window->window(), QPoint()).x(), name->mapTo(window->window(), name->rect().topRight()).x());
  EXPECT_TRUE(wait->isVisible());
  window->HideProgress();
}

}  // namespace
}  // namespace zentaline::ui::qt
