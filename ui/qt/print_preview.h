// A printed page before it is printed: from here it goes to a printer, through the system's own dialog, or into a file.
#pragma once

#include <QPrinter>
#include <QWidget>
#include <functional>

#include "ui/qt/words.h"

namespace zentaline::ui::qt {

// Returns when the user has closed it. `paint` puts the document on a printer, as often as it is asked to.
void RunPrintPreview(QWidget* parent, const Words& words, QPrinter& printer,
                     const std::function<void(QPrinter*)>& paint);

}  // namespace zentaline::ui::qt
