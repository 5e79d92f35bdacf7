// zentaline-desktop-script: zentaline-console with real widgets, driven by mouse and keys. The same script gives the
// same transcript.
#include <QApplication>
#include <cstdio>
#include <cstring>
#include <utility>

#include "app/console_main.h"
#include "tests/desktop/qt_driver.h"
#include "tests/desktop/scripted_desktop.h"

namespace {

using zentaline::ui::qt::QtDriver;
using zentaline::ui::qt::ScriptedDesktop;

// What a platform without a screen can't do is no fault; everything else is told.
void Tell(QtMsgType, const QMessageLogContext&, const QString& message) {
  if (message.startsWith(QLatin1String("This plugin does not support"))) return;
  if (message.startsWith(QLatin1String("QStandardPaths: "))) return;
  std::fprintf(stderr, "%s\n", message.toUtf8().constData());
}

}  // namespace

int main(int count, char** arguments) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qInstallMessageHandler(Tell);
  int qt_count = 1;
  const QApplication application(qt_count, arguments);
  QApplication::setQuitOnLastWindowClosed(false);
  const zentaline::ConsoleParts parts{
      [](ScriptedDesktop::Clock clock, zentaline::ConsoleParts::Sink sink, ScriptedDesktop::Rest rest) {
        return std::make_unique<ScriptedDesktop>(clock, std::move(sink), std::move(rest));
      },
      [](zentaline::ui::ConsoleToolkit& toolkit) {
        return std::make_unique<QtDriver>(static_cast<ScriptedDesktop&>(toolkit));
      }};
  return zentaline::RunConsole(count, arguments, parts);
}
