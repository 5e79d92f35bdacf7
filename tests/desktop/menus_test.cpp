#include <QMenu>
#include <QMenuBar>
#include <QPushButton>

#include "tests/desktop/desk.h"
#include "ui/qt/menus.h"

namespace zentaline::ui::qt {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Menus : public Desk {
 protected:
  QAction* Action(const char* name) { return toolkit.windows().main()->window()->findChild<QAction*>(name); }
};

TEST_F(Menus, TheBarHoldsTheMenusWithTheirEntries) {
  const QList<QAction*> bar = toolkit.windows().main()->window()->menuBar()->actions();
  ASSERT_EQ(bar.size(), 2);
  EXPECT_EQ(bar[0]->text(), "&File");
  const QList<QAction*> entries = bar[0]->menu()->actions();
  ASSERT_EQ(entries.size(), 3);
  EXPECT_EQ(entries[0]->text(), "&Open");
  EXPECT_EQ(entries[0]->shortcut(), QKeySequence("Ctrl+O"));
  EXPECT_TRUE(entries[1]->isSeparator());
  EXPECT_FALSE(entries[2]->isEnabled());
}

TEST_F(Menus, AnEntryIsPressedByItsShortcutFromAChildWindow) {
  child->List1.SetFocus();
  QTest::keyClick(Widget<QWidget>(child->List1), Qt::Key_O, Qt::ControlModifier);
  EXPECT_THAT(log, ElementsAre("open"));
}

TEST_F(Menus, OfTwoMnemonicsThatAreAlikeTheMenuBarsIsDone) {
  child->Comm1.on_click = [this] { log.push_back("fire"); };
  child->Comm1.SetCaption("Fi&re");
  QTest::keyClick(Widget<QWidget>(child->List1), Qt::Key_R, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([this] { return !log.empty(); }, 60000));
  EXPECT_THAT(log, ElementsAre("fire"));
  child->Comm1.SetCaption("&Fire && forget");
  EXPECT_EQ(Widget<QPushButton>(child->Comm1)->text(), "Fire && forget");
  QTest::keyClick(Widget<QWidget>(child->List1), Qt::Key_F, Qt::AltModifier);
  EXPECT_TRUE(MenuOf(main->mnuFile)->isVisible());
}

// A key goes to the menu that is open, else to who has the focus.
void Type(int key, Qt::KeyboardModifiers with = Qt::NoModifier) {
  QWidget* const popup = QApplication::activePopupWidget();
  QTest::keyClick(popup != nullptr ? popup : QApplication::focusWidget(), static_cast<Qt::Key>(key), with);
  for (int i = 0; i < 20; ++i) QApplication::processEvents();
}

TEST_F(Menus, WhoLeavesTheBarByEscapeIsWhereHeWas) {
  auto* list = Widget<QWidget>(child->List1);
  list->setFocus();
  Settle();
  Type(Qt::Key_F, Qt::AltModifier);
  ASSERT_TRUE(MenuOf(main->mnuFile)->isVisible());
  Type(Qt::Key_Escape);
  // From the bar into another menu, and out of it.
  Type(Qt::Key_E, Qt::AltModifier);
  ASSERT_TRUE(MenuOf(main->mnuEdit)->isVisible());
  Type(Qt::Key_Escape);
  Type(Qt::Key_Escape);
  EXPECT_EQ(QApplication::focusWidget(), list);
}

TEST_F(Menus, MarksAreTheModels) {
  QAction* mark = Action("mnuMark");
  EXPECT_FALSE(mark->isCheckable());
  mark->trigger();
  EXPECT_TRUE(mark->isChecked());
  mark->trigger();
  EXPECT_FALSE(mark->isChecked());
  EXPECT_THAT(log, ElementsAre("mark", "mark"));
}

TEST_F(Menus, CaptionEnablingAndHidingFollowTheModel) {
  QAction* off = Action("mnuOff");
  main->mnuOff.SetEnabled(true);
  EXPECT_TRUE(off->isEnabled());
  main->mnuOff.SetCaption("&On");
  EXPECT_EQ(off->text(), "&On");
  main->mnuOff.SetVisible(false);
  EXPECT_FALSE(off->isVisible());
}

TEST_F(Menus, AnEntryThatShowsDataShowsEachOfItsSigns) {
  main->mnuOff.literal = true;
  main->mnuOff.SetCaption("R&B && Soul.arr");
  EXPECT_EQ(Action("mnuOff")->text(), "R&&B &&&& Soul.arr");
}

TEST_F(Menus, APopupOpensAtOnceAndHoldsNothingUp) {
  toolkit.PopupMenu(main->mnuFile);
  QMenu* menu = MenuOf(main->mnuFile);
  EXPECT_TRUE(menu->isVisible());
  QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier, menu->actionGeometry(Action("mnuOpen")).center());
  EXPECT_THAT(log, ElementsAre("open"));
  EXPECT_FALSE(menu->isVisible());
}

TEST_F(Menus, AnEntryIsRefusedWhileAModalWindowIsOpen) {
  toolkit.Open(std::make_unique<ToyModal>(toolkit, log));
  Action("mnuOpen")->trigger();
  EXPECT_THAT(log, IsEmpty());
}

}  // namespace
}  // namespace zentaline::ui::qt
