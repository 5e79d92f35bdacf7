// Whose Ctrl+Z is: that of a text box of its own, or the program's.
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>

#include "arrangement/db_format.h"
#include "tests/desktop/program.h"

namespace zentaline::ui::qt {
namespace {

class TakingBack : public ::testing::Test {
 protected:
  // An editor in which one thing has been changed already: the tempo, by a key.
  void SetUp() override {
    desk.Put("i40DBArr", NewDatabase());
    ASSERT_TRUE(desk.Start());
    Form* arrangements = desk.Open("First Steps.arr", 0);
    ASSERT_NE(arrangements, nullptr);
    editor = Opened([&] { static_cast<ListBox*>(arrangements->Find("List1"))->UserDouble(0); });
    ASSERT_NE(editor, nullptr);
    tempo = static_cast<ScrollBar*>(editor->Find("VScroll1", 0));
    tempo_before = tempo->value();
    Focus(test::WidgetOf(*tempo));
    QTest::keyClick(test::WidgetOf(*tempo), Qt::Key_Right);
    ASSERT_EQ(tempo->value(), tempo_before + 1);
    ASSERT_EQ(Steps(), 1);
  }

  Form* Opened(const std::function<void()>& act) {
    const std::size_t before = desk.toolkit.forms().size();
    act();
    if (!test::WaitUntil([&] { return desk.toolkit.forms().size() == before + 1; })) return nullptr;
    test::Settle();
    return desk.toolkit.forms().back();
  }
  Form* OpenedBy(const char* entry) {
    return Opened([&] { static_cast<MenuEntry*>(desk.program.main->Find(entry))->UserPress(); });
  }
  static void Focus(QWidget* widget) {
    widget->setFocus(Qt::MouseFocusReason);
    test::Settle();
  }
  static void CtrlZ(QWidget* widget) {
    QTest::keyClick(widget, Qt::Key_Z, Qt::ControlModifier);
    test::Settle();
  }
  static void CtrlShiftZ(QWidget* widget) {
    QTest::keyClick(widget, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    test::Settle();
  }
  int Steps() const { return static_cast<int>(desk.program.edits.BackCount()); }
  int StepsForth() const { return static_cast<int>(desk.program.edits.ForwardCount()); }
  QComboBox* List(int index) { return static_cast<QComboBox*>(test::WidgetOf(*editor->Find("Combo1", index))); }

  test::Desktop desk;
  Form* editor = nullptr;
  ScrollBar* tempo = nullptr;
  int tempo_before = 0;
};

TEST_F(TakingBack, OnABarItIsThePrograms) {
  CtrlZ(test::WidgetOf(*tempo));
  EXPECT_EQ(tempo->value(), tempo_before);
  EXPECT_EQ(StepsForth(), 1);
  CtrlShiftZ(test::WidgetOf(*tempo));
  EXPECT_EQ(tempo->value(), tempo_before + 1);
}

TEST_F(TakingBack, InTheNotebookItIsTheNotebooksAlone) {
  const Form* notebook = OpenedBy("mnuBloccoNote");
  ASSERT_NE(notebook, nullptr);
  auto* text = static_cast<QPlainTextEdit*>(test::WidgetOf(*notebook->Find("Text1")));
  Focus(text);
  QTest::keyClicks(text, "Bring the sax");
  CtrlZ(text);
  EXPECT_EQ(text->toPlainText(), "");
  EXPECT_EQ(static_cast<TextBox*>(notebook->Find("Text1"))->text(), "");
  CtrlShiftZ(text);
  EXPECT_EQ(text->toPlainText(), "Bring the sax");
  // Also where it has nothing left to take back.
  CtrlZ(text);
  CtrlZ(text);
  CtrlZ(text);
  EXPECT_EQ(tempo->value(), tempo_before + 1);
  EXPECT_EQ(Steps(), 1);
}

TEST_F(TakingBack, InTheSearchItIsTheSearchsAlone) {
  const Form* search = OpenedBy("mnuWFindID");
  ASSERT_NE(search, nullptr);
  auto* text = static_cast<QLineEdit*>(test::WidgetOf(*search->Find("Text1")));
  Focus(text);
  QTest::keyClicks(text, "12");
  CtrlZ(text);
  EXPECT_EQ(text->text(), "");
  CtrlZ(text);
  EXPECT_EQ(tempo->value(), tempo_before + 1);
  EXPECT_EQ(Steps(), 1);
}

TEST_F(TakingBack, WhatIsTypedIntoAListIsTakenBackByTheList) {
  QComboBox* list = List(1);
  ASSERT_TRUE(list->isEditable());
  const QString before = list->lineEdit()->text();
  Focus(list->lineEdit());
  list->lineEdit()->selectAll();
  QTest::keyClicks(list->lineEdit(), "x");
  CtrlZ(list->lineEdit());
  EXPECT_EQ(list->lineEdit()->text(), before);
  EXPECT_EQ(static_cast<ComboBox*>(editor->Find("Combo1", 1))->text(), before.toStdString());
  EXPECT_EQ(tempo->value(), tempo_before + 1);
  EXPECT_EQ(StepsForth(), 0);
}

TEST_F(TakingBack, WhatIsChosenFromAListIsTakenBackByTheProgram) {
  QComboBox* list = List(1);
  const QString before = list->lineEdit()->text();
  Focus(list->lineEdit());
  QTest::keyClick(list->lineEdit(), Qt::Key_Down);
  const QString chosen = list->lineEdit()->text();
  ASSERT_NE(chosen, before);
  ASSERT_EQ(Steps(), 2);
  CtrlZ(list->lineEdit());
  EXPECT_EQ(list->lineEdit()->text(), before);
  EXPECT_EQ(Steps(), 1);
  CtrlShiftZ(list->lineEdit());
  EXPECT_EQ(list->lineEdit()->text(), chosen);
  EXPECT_EQ(tempo->value(), tempo_before + 1);
}

TEST_F(TakingBack, InTheNameOfARecordItIsThePrograms) {
  auto* name = static_cast<QLineEdit*>(test::WidgetOf(*editor->Find("Text1", 0)));
  const QString before = name->text();
  Focus(name);
  name->end(false);
  QTest::keyClicks(name, "II");
  ASSERT_EQ(name->text(), before + "II");
  ASSERT_EQ(Steps(), 2);
  CtrlZ(name);
  EXPECT_EQ(name->text(), before);
  EXPECT_EQ(Steps(), 1) << "what was typed is one step";
  CtrlShiftZ(name);
  EXPECT_EQ(name->text(), before + "II");
  CtrlZ(name);
  CtrlZ(name);
  EXPECT_EQ(tempo->value(), tempo_before) << "and the one before it follows";
}

}  // namespace
}  // namespace zentaline::ui::qt
