// The widget of a picture.
#pragma once

#include <QWidget>

#include "ui/picture.h"
#include "ui/qt/view.h"

namespace zentaline::ui::qt {

View* MakePicture(Picture& picture, Gate& gate, QWidget* parent);

// The colour of an ink on a widget with this palette.
QColor ColourOf(Ink ink, const QPalette& palette, QPalette::ColorGroup group);

}  // namespace zentaline::ui::qt
