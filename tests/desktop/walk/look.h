// Looks at a window through its widgets, and tells what a user would stumble over.
#pragma once

#include <QWidget>
#include <string>
#include <vector>

namespace zentaline::ui::qt {

// What is wrong, a line each: captions that are cut off, widgets that lie over each other, texts that can hardly be
// read, widgets that the tab key doesn't reach or not in the order of reading, and those that a screen reader can't
// name or tell from another. Of pages the one in front.
std::vector<std::string> Look(QWidget& window);

}  // namespace zentaline::ui::qt
