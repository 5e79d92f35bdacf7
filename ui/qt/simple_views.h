// The widgets of buttons, labels, check boxes, option buttons, frames, picture boxes, tabs and scroll bars.
#pragma once

#include <QWidget>

#include "ui/controls.h"
#include "ui/qt/view.h"

namespace zentaline::ui::qt {

View* MakeButton(Button& button, Gate& gate, QWidget* parent);
View* MakeLabel(Label& label, Gate& gate, QWidget* parent);
View* MakeCheckBox(CheckBox& box, Gate& gate, QWidget* parent);
View* MakeOptionButton(OptionButton& option, Gate& gate, QWidget* parent);
View* MakeFrame(Frame& frame, Gate& gate, QWidget* parent);
View* MakePictureBox(PictureBox& box, Gate& gate, QWidget* parent);
// Its widget is a QTabWidget; the pages are put in by the builder.
View* MakeTabs(Tabs& tabs, Gate& gate, QWidget* parent);
View* MakeScrollBar(ScrollBar& bar, Gate& gate, QWidget* parent);

}  // namespace zentaline::ui::qt
