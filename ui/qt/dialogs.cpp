#include "ui/qt/dialogs.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QFileInfo>
#include <QGridLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPushButton>
#include <QTreeView>
#include <algorithm>

#include "ui/qt/convert.h"

namespace zentaline::ui::qt {

namespace {

constexpr int kTitleButtons = 120;  // pixels: the icon and the buttons beside a title
constexpr int kWidestBox = 600;
constexpr QSize kFirstSize(760, 480);  // of a file dialog: names and dates have room

// "Programs (*.prg)" and "*.prg;*.pgg" make "Programs (*.prg *.pgg)".
QString NameFilter(const FileFilter& filter) {
  QString text = ToQt(filter.text).trimmed();
  if (text.endsWith(u')')) text = text.left(text.lastIndexOf(u'(')).trimmed();
  QString patterns = ToQt(filter.patterns);
  patterns.replace(u';', u' ');
  return text + QStringLiteral(" (") + patterns + u')';
}

// Asks before files are replaced or removed, in the program's language.
class FileDialog : public QFileDialog {
 public:
  FileDialog(QWidget* parent, const Words& words, const FileDialogRequest& request)
      : QFileDialog(parent), words_(words), request_(request) {}

  void accept() override {
    const QStringList files = selectedFiles();
    if (acceptMode() == AcceptSave && !files.isEmpty()) {
      const QFileInfo file(files.front());
      if (file.isFile() && !Agreed(ToQt(words_.overwrite).arg(file.fileName()))) return;
      const QStringList others = AlsoTouched(files.front());
      if (!others.isEmpty() && !Agreed(ToQt(words_.also_touched).arg(others.join(u'\n')))) return;
    }
    QFileDialog::accept();
  }

 private:
  bool Agreed(const QString& text) {
    return RunBox(this, words_, BoxStyle::kYesNo, words_.overwrite_title, FromQt(text)) == BoxAnswer::kYes;
  }

  QStringList AlsoTouched(const QString& file) const {
    QStringList names;
    if (!request_.also_touched) return names;
    const int filter = static_cast<int>(nameFilters().indexOf(selectedNameFilter())) + 1;
    for (const std::string& name : request_.also_touched(QFile::encodeName(file).toStdString(), filter)) {
      names.append(QFile::decodeName(name.c_str()));
    }
    return names;
  }

  const Words& words_;
  const FileDialogRequest& request_;
};

// A question with Yes and No alone can't be put away: Escape and the frame's button do nothing.
class Box : public QMessageBox {
 public:
  Box(QWidget* parent, bool must_be_answered) : QMessageBox(parent), must_be_answered_(must_be_answered) {}

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (must_be_answered_ && event->matches(QKeySequence::Cancel)) return;
    QMessageBox::keyPressEvent(event);
  }
  void closeEvent(QCloseEvent* event) override {
    if (must_be_answered_) {
      event->ignore();
    } else {
      QMessageBox::closeEvent(event);
    }
  }

 private:
  bool must_be_answered_;
};

}  // namespace

BoxAnswer RunBox(QWidget* parent, const Words& words, BoxStyle style, const std::string& title,
                 const std::string& text) {
  Box box(parent, style == BoxStyle::kYesNo);
  box.setIcon(QMessageBox::Warning);
  box.setWindowTitle(ToQt(title));
  box.setTextFormat(Qt::PlainText);
  box.setText(ToQt(text));
  // A question is told by its title too: the box is wide enough for it and for the buttons beside it.
  QFont bold = box.font();
  bold.setBold(true);
  if (auto* grid = dynamic_cast<QGridLayout*>(box.layout())) {
    const int width = std::min(QFontMetrics(bold).horizontalAdvance(box.windowTitle()) + kTitleButtons, kWidestBox);
    grid->addItem(new QSpacerItem(width, 0), grid->rowCount(), 0, 1, grid->columnCount());
  }
  QPushButton* yes = nullptr;
  QPushButton* no = nullptr;
  QPushButton* last = nullptr;
  if (style == BoxStyle::kOk) {
    last = box.addButton(ToQt(words.ok), QMessageBox::AcceptRole);
    box.setDefaultButton(last);
  } else {
    yes = box.addButton(ToQt(words.yes), QMessageBox::YesRole);
    last = no = box.addButton(ToQt(words.no), QMessageBox::NoRole);
    if (style == BoxStyle::kYesNoCancel) last = box.addButton(ToQt(words.cancel), QMessageBox::RejectRole);
    box.setDefaultButton(yes);
  }
  if (style != BoxStyle::kYesNo) box.setEscapeButton(last);
  box.exec();
  const QAbstractButton* pressed = box.clickedButton();
  if (style == BoxStyle::kOk) return BoxAnswer::kOk;
  if (pressed == yes) return BoxAnswer::kYes;
  if (pressed == no) return BoxAnswer::kNo;
  return style == BoxStyle::kYesNo ? BoxAnswer::kNo : BoxAnswer::kCancel;
}

FileDialogAnswer RunFileDialog(QWidget* parent, const Words& words, const FileDialogRequest& request) {
  FileDialog dialog(parent, words, request);
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  dialog.setOption(QFileDialog::HideNameFilterDetails, false);
  dialog.setAcceptMode(request.save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(request.save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  dialog.setWindowTitle(ToQt(request.title));
  QStringList filters;
  for (const FileFilter& filter : request.filters) filters.append(NameFilter(filter));
  if (!filters.isEmpty()) dialog.setNameFilters(filters);
  if (request.filter >= 1 && request.filter <= filters.size()) dialog.selectNameFilter(filters[request.filter - 1]);
  if (!request.directory.empty()) dialog.setDirectory(QFile::decodeName(request.directory.c_str()));
  if (!request.default_extension.empty()) dialog.setDefaultSuffix(ToQt(request.default_extension));
  if (!request.name.empty()) dialog.selectFile(QFile::decodeName(request.name.c_str()));
  dialog.setLabelText(QFileDialog::LookIn, ToQt(words.look_in));
  dialog.setLabelText(QFileDialog::FileName, ToQt(words.file_name));
  dialog.setLabelText(QFileDialog::FileType, ToQt(words.files_of_type));
  dialog.setLabelText(QFileDialog::Accept, ToQt(request.save ? words.save : words.open));
  dialog.setLabelText(QFileDialog::Reject, ToQt(words.cancel));

  QCheckBox* read_only = nullptr;
  if (!request.save && request.shows_read_only) {
    read_only = new QCheckBox(ToQt(words.read_only), &dialog);
    read_only->setObjectName(QStringLiteral("read_only"));
    read_only->setChecked(request.read_only);
    if (auto* grid = dynamic_cast<QGridLayout*>(dialog.layout())) {
      grid->addWidget(read_only, grid->rowCount(), 1);
    }
  }

  // Sizes and dates are shown whole; names have their room already.
  if (const auto* list = dialog.findChild<QTreeView*>()) {
    for (int column = 1; column < list->header()->count(); ++column) {
      list->header()->setSectionResizeMode(column, QHeaderView::ResizeToContents);
    }
  }

  dialog.resize(dialog.sizeHint().expandedTo(kFirstSize));
  FileDialogAnswer answer;
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return answer;
  answer.cancelled = false;
  answer.path = QFile::encodeName(dialog.selectedFiles().front()).toStdString();
  const int chosen = static_cast<int>(filters.indexOf(dialog.selectedNameFilter()));
  answer.filter = chosen < 0 ? request.filter : chosen + 1;
  answer.read_only = read_only != nullptr && read_only->isChecked();
  return answer;
}

}  // namespace zentaline::ui::qt
