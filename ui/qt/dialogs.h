// Message boxes and file dialogs.
#pragma once

#include <QFileDialog>
#include <QMessageBox>

#include "ui/qt/words.h"
#include "ui/types.h"

namespace zentaline::ui::qt {

BoxAnswer RunBox(QWidget* parent, const Words& words, BoxStyle style, const std::string& title,
                 const std::string& text);
FileDialogAnswer RunFileDialog(QWidget* parent, const Words& words, const FileDialogRequest& request);

}  // namespace zentaline::ui::qt
