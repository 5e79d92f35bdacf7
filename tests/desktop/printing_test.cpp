// A document without a printer, or with Shift held: it is seen first, and goes into a file if the user says so.
#include <QDialog>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QPrintPreviewWidget>
#include <QPrinterInfo>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>

#include "tests/desktop/desk.h"

namespace zentaline::ui::qt {
namespace {

constexpr Font kFont = {.fixed_pitch = true, .bold = true, .points = 8};

class PrintPreview : public Desk {
 protected:
  void SetUp() override {
    if (!QPrinterInfo::defaultPrinter().isNull()) GTEST_SKIP() << "this machine has a printer, which would print";
  }

  static QDialog* Shown() { return dynamic_cast<QDialog*>(QApplication::activeModalWidget()); }
  static void Press(const char* name) {
    QTest::mouseClick(Shown()->findChild<QPushButton*>(QString::fromLatin1(name)), Qt::LeftButton);
  }
  // As many lines as a list has, down to the foot of the page.
  void PrintLines(int lines) {
    const int height = toolkit.PrintLineHeight(kFont);
    for (int i = 0; i < lines; ++i) {
      EXPECT_TRUE(toolkit.PrintText(453, 283 + i * height, kFont, std::string(84, static_cast<char>('A' + i % 26))));
    }
  }
  template <class User>
  bool End(User user) {
    QTimer::singleShot(0, [user] {
      if (Shown() == nullptr) {
        ADD_FAILURE() << "no preview is open";
      } else {
        user();
      }
    });
    return toolkit.EndPrint();
  }
};

TEST_F(PrintPreview, ShowsThePageAndPrintsNothingWhenItIsClosed) {
  PrintLines(80);
  EXPECT_TRUE(End([] {
    EXPECT_EQ(Shown()->windowTitle(), "Print preview");
    EXPECT_EQ(Shown()->findChild<QPrintPreviewWidget*>()->pageCount(), 1);
    for (const auto* button : Shown()->findChildren<QPushButton*>()) EXPECT_FALSE(button->toolTip().isEmpty());
    Press("close");
  }));
}

TEST_F(PrintPreview, SpeaksTheProgramsLanguage) {
  toolkit.SetWordSource(ItalianWords);
  PrintLines(1);
  End([] {
    EXPECT_EQ(Shown()->windowTitle(), "Anteprima di stampa");
    EXPECT_EQ(Shown()->findChild<QPushButton*>("print")->text(), "&Stampa...");
    QTest::keyClick(Shown(), Qt::Key_Escape);
  });
}

TEST_F(PrintPreview, WritesAPdfOfOnePage) {
  QTemporaryDir folder;
  const QString path = folder.filePath("list.pdf");
  PrintLines(80);
  End([path] {
    QTimer::singleShot(0, [path] {
      auto* dialog = dynamic_cast<QFileDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      EXPECT_EQ(dialog->windowTitle(), "Print to PDF");
      auto* line = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
      line->setText(path);
      QTest::keyClick(line, Qt::Key_Return);
    });
    Press("pdf");
  });
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const QByteArray pdf = file.readAll();
  EXPECT_TRUE(pdf.startsWith("%PDF"));
  EXPECT_TRUE(pdf.contains("/Count 1"));
}

// Letter is the lower of the two papers, A4 the narrower: in 8 points the eighty lines of a list stay within both.
TEST_F(PrintPreview, AListFitsAPageOfA4AndOfLetter) {
  EXPECT_LE(283 + 80 * toolkit.PrintLineHeight(kFont), 15840 - 283);
  EXPECT_LE(453 + toolkit.PrintWidth(kFont, std::string(84, '0')), 11906 - 453);
  EXPECT_EQ(toolkit.PrintWidth(kFont, "iiii"), toolkit.PrintWidth(kFont, "WWWW"));
  EXPECT_FALSE(toolkit.EndPrint());
}

TEST_F(PrintPreview, WithoutATextThereIsNothingToShow) {
  EXPECT_FALSE(toolkit.EndPrint());
}

}  // namespace
}  // namespace zentaline::ui::qt
