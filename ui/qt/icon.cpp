#include "ui/qt/icon.h"

#include <QApplication>
#include <QIcon>

// Outside of any namespace, as the macro asks; a static library's resources have to be called for by name.
static void LoadIcons() {
  Q_INIT_RESOURCE(icons);
}

namespace zentaline::ui::qt {

void ShowProgramIcon() {
  if (!QApplication::windowIcon().isNull()) return;
  LoadIcons();
  QIcon icon;
  for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
    icon.addFile(QStringLiteral(":/icons/zentaline-%1.png").arg(size), QSize(size, size));
  }
  QApplication::setWindowIcon(icon);
}

}  // namespace zentaline::ui::qt
