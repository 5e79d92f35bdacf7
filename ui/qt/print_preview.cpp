#include "ui/qt/print_preview.h"

#include <QDialog>
#include <QFile>
#include <QHBoxLayout>
#include <QPrintDialog>
#include <QPrintPreviewWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/qt/convert.h"
#include "ui/qt/dialogs.h"

namespace zentaline::ui::qt {

namespace {

constexpr QSize kSize(760, 900);

// The page as it is seen, and its printing under the format that was chosen.
class Preview : public QDialog {
 public:
  Preview(QWidget* parent, const Words& words, QPrinter& printer, const std::function<void(QPrinter*)>& paint)
      : QDialog(parent), words_(words), printer_(printer), page_(new QPrintPreviewWidget(&printer, this)) {
    setWindowTitle(ToQt(words.print_preview));
    connect(page_, &QPrintPreviewWidget::paintRequested, this, paint);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    AddButton(buttons, "print", words.print, words.print_tool_tip, [this] { Print(); })->setDefault(true);
    AddButton(buttons, "pdf", words.print_pdf, words.print_pdf_tool_tip, [this] { PrintToFile(); });
    AddButton(buttons, "close", words.close, words.print_close_tool_tip, [this] { reject(); });
    auto* column = new QVBoxLayout(this);
    column->addWidget(page_, 1);
    column->addLayout(buttons);
    resize(kSize);
  }

 private:
  QPushButton* AddButton(QHBoxLayout* row, const char* name, const std::string& text, const std::string& tool_tip,
                         const std::function<void()>& press) {
    auto* button = new QPushButton(ToQt(text), this);
    button->setObjectName(QString::fromLatin1(name));
    button->setToolTip(ToToolTip(tool_tip));
    connect(button, &QPushButton::clicked, this, press);
    row->addWidget(button);
    return button;
  }

  void Print() {
    QPrintDialog dialog(&printer_, this);
    if (dialog.exec() != QDialog::Accepted) return;
    page_->print();
    accept();
  }

  void PrintToFile() {
    FileDialogRequest request;
    request.save = true;
    request.title = words_.print_pdf_title;
    request.filters = {{"PDF (*.pdf)", "*.pdf"}};
    request.name = "Zentaline.pdf";
    request.default_extension = "pdf";
    const FileDialogAnswer answer = RunFileDialog(this, words_, request);
    if (answer.cancelled) return;
    printer_.setOutputFormat(QPrinter::PdfFormat);
    printer_.setOutputFileName(QFile::decodeName(answer.path.c_str()));
    page_->print();
    accept();
  }

  const Words& words_;
  QPrinter& printer_;
  QPrintPreviewWidget* page_;
};

}  // namespace

void RunPrintPreview(QWidget* parent, const Words& words, QPrinter& printer,
                     const std::function<void(QPrinter*)>& paint) {
  Preview(parent, words, printer, paint).exec();
}

}  // namespace zentaline::ui::qt
