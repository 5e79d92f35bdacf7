// File dialogs, on their real widgets.
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <QTreeView>

#include "tests/desktop/desk.h"

namespace zentaline::ui::qt {
namespace {

class Dialogs : public Desk {
 protected:
  Dialogs() {
    for (const char* name : {"song.arr", "other.ARR", "song.sty"}) {
      QFile file(folder.filePath(name));
      EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    }
    request.title = "Open";
    request.filters = {{"Programs (*.prg)", "*.prg;*.pgg"}, {"Arrangements", "*.arr"}};
    request.filter = 2;
    request.directory = QFile::encodeName(folder.path()).toStdString();
  }

  static QFileDialog* Dialog() { return dynamic_cast<QFileDialog*>(QApplication::activeModalWidget()); }
  static void Type(const QString& name) {
    auto* line = Dialog()->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    line->setText(name);
    QTest::keyClick(line, Qt::Key_Return);
  }
  std::string Path(const char* name) const { return QFile::encodeName(folder.filePath(name)).toStdString(); }
  // Runs the dialog while `user` does what he does.
  template <class User>
  FileDialogAnswer Run(User user) {
    QTimer::singleShot(0, [user] {
      if (Dialog() == nullptr) {
        ADD_FAILURE() << "no dialog is open";
      } else {
        user();
      }
    });
    return toolkit.FileDialog(request);
  }

  QTemporaryDir folder;
  FileDialogRequest request;
};

TEST_F(Dialogs, AnOpenDialogOffersItsFiltersAndGivesPathFilterAndReadOnly) {
  const FileDialogAnswer answer = Run([] {
    EXPECT_EQ(Dialog()->windowTitle(), "Open");
    EXPECT_EQ(Dialog()->nameFilters(), QStringList({"Programs (*.prg *.pgg)", "Arrangements (*.arr)"}));
    EXPECT_EQ(Dialog()->selectedNameFilter(), "Arrangements (*.arr)");
    Dialog()->findChild<QCheckBox*>("read_only")->setChecked(true);
    Type("song.arr");
  });
  EXPECT_FALSE(answer.cancelled);
  EXPECT_EQ(answer.path, Path("song.arr"));
  EXPECT_EQ(answer.filter, 2);
  EXPECT_TRUE(answer.read_only);
}

TEST_F(Dialogs, TheReadOnlyBoxIsPresetAndOnlyThereWhenAskedFor) {
  request.read_only = true;
  EXPECT_TRUE(Run([] { Type("song.arr"); }).read_only);
  request.shows_read_only = false;
  const FileDialogAnswer answer = Run([] {
    EXPECT_EQ(Dialog()->findChild<QCheckBox*>("read_only"), nullptr);
    Type("song.arr");
  });
  EXPECT_FALSE(answer.read_only);
}

TEST_F(Dialogs, EscapeCancels) {
  EXPECT_TRUE(Run([] { QTest::keyClick(Dialog(), Qt::Key_Escape); }).cancelled);
}

TEST_F(Dialogs, ASaveDialogAddsTheExtensionThatIsLacking) {
  request.save = true;
  request.name = "new";
  request.default_extension = "arr";
  const FileDialogAnswer answer = Run([] {
    auto* line = Dialog()->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    EXPECT_EQ(line->text(), "new");
    QTest::keyClick(line, Qt::Key_Return);
  });
  EXPECT_EQ(answer.path, Path("new.arr"));
}

TEST_F(Dialogs, SizesAndDatesAreShownWhole) {
  Run([] {
    const auto* list = Dialog()->findChild<QTreeView*>();
    ASSERT_NE(list, nullptr);
    ASSERT_EQ(list->header()->count(), 4);
    for (int column = 1; column < 4; ++column) {
      EXPECT_EQ(list->header()->sectionResizeMode(column), QHeaderView::ResizeToContents) << column;
    }
    Dialog()->reject();
  });
}

TEST_F(Dialogs, AFileIsReplacedOnlyAfterAYes) {
  request.save = true;
  request.default_extension = "arr";
  std::vector<std::string> asked;
  const auto answer_box = [&asked](const QString& answer) {
    QTimer::singleShot(0, [&asked, answer] {
      auto* box = dynamic_cast<QMessageBox*>(QApplication::activeModalWidget());
      ASSERT_NE(box, nullptr);
      asked.push_back(FromQt(box->text()));
      for (QAbstractButton* button : box->buttons()) {
        if (button->text() == answer) return button->click();
      }
    });
  };
  const FileDialogAnswer answer = Run([&] {
    answer_box(QStringLiteral("&No"));
    Type("song.arr");
    EXPECT_NE(Dialog(), nullptr) << "after a no the dialog stays";
    answer_box(QStringLiteral("&Yes"));
    Type("song.arr");
  });
  EXPECT_EQ(asked, std::vector<std::string>(2, "“song.arr” already exists. Replace it?"));
  EXPECT_EQ(answer.path, Path("song.arr"));
}

TEST_F(Dialogs, WhatElseAnAnswerWouldTouchIsListedAndAskedFor) {
  request.save = true;
  request.default_extension = "arr";
  std::vector<std::pair<std::string, int>> answers;
  request.also_touched = [&](const std::string& path, int filter) {
    answers.emplace_back(path, filter);
    return std::vector<std::string>{"new.sty", "new.ARR"};
  };
  std::vector<std::string> asked;
  const auto answer_box = [&asked](QMessageBox::ButtonRole role) {
    QTimer::singleShot(0, [&asked, role] {
      auto* box = dynamic_cast<QMessageBox*>(QApplication::activeModalWidget());
      ASSERT_NE(box, nullptr);
      asked.push_back(FromQt(box->text()));
      for (QAbstractButton* button : box->buttons()) {
        if (box->buttonRole(button) == role) return button->click();
      }
    });
  };
  const FileDialogAnswer answer = Run([&] {
    answer_box(QMessageBox::NoRole);
    Type("new.arr");
    EXPECT_NE(Dialog(), nullptr) << "after a no the dialog stays";
    answer_box(QMessageBox::YesRole);
    Type("new.arr");
  });
  EXPECT_EQ(asked,
            std::vector<std::string>(2, "These files would be replaced or removed as well:\nnew.sty\nnew.ARR\nGo on?"));
  EXPECT_EQ(answer.path, Path("new.arr"));
  EXPECT_EQ(answers, (std::vector<std::pair<std::string, int>>(2, {Path("new.arr"), request.filter})));
}

TEST_F(Dialogs, TheDialogSpeaksTheProgramsLanguage) {
  toolkit.SetWordSource(ItalianWords);
  const auto own_word = [] { return QCoreApplication::translate("QFileSystemModel", "Date Modified"); };
  EXPECT_EQ(own_word(), "Date Modified");
  toolkit.Open(std::make_unique<Form>(toolkit, FormKind::kChild, "frmPlain"));
  EXPECT_EQ(own_word(), "Data di modifica");
  Run([] {
    EXPECT_EQ(Dialog()->labelText(QFileDialog::Accept), "&Apri");
    EXPECT_EQ(Dialog()->findChild<QCheckBox*>("read_only")->text(), "Apri in sola &lettura");
    QTest::keyClick(Dialog(), Qt::Key_Escape);
  });
}

}  // namespace
}  // namespace zentaline::ui::qt
