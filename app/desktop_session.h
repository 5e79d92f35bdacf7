// The end of the desktop's session: a closing like any other where someone can answer.
#pragma once

#include <QObject>
#include <QSessionManager>
#include <QSocketNotifier>
#include <QTimer>

#include "app/end_signals.h"
#include "core/application.h"
#include "ui/qt/toolkit.h"

namespace zentaline {

class DesktopSession {
 public:
  // All are borrowed. There is a QApplication.
  DesktopSession(Application& program, ui::qt::QtToolkit& toolkit, EndSignals& end_signals);

 private:
  // A signal asks the user as the closing of the main window does. While a box is open that is answered first; a second
  // signal ends the program at once.
  void TakeSignal();
  void AskWhenFree();
  // The desktop wants to end: it waits while the user is asked, unless it says that nobody can be.
  void LogOut(QSessionManager& manager);

  Application& program_;
  ui::qt::QtToolkit& toolkit_;
  EndSignals& signals_;
  QSocketNotifier notifier_;
  QTimer again_;
  QObject receiver_;  // its connections end with it
  bool asking_ = false;
};

}  // namespace zentaline
