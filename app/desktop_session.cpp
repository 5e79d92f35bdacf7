#include "app/desktop_session.h"

#include <QGuiApplication>
#include <cstdlib>

#include "core/configuration.h"
#include "core/main_window.h"

namespace zentaline {

namespace {

constexpr int kLookAgain = 50;  // milliseconds

}  // namespace

DesktopSession::DesktopSession(Application& program, ui::qt::QtToolkit& toolkit, EndSignals& end_signals)
    : program_(program),
      toolkit_(toolkit),
      signals_(end_signals),
      notifier_(end_signals.descriptor(), QSocketNotifier::Read) {
  notifier_.setEnabled(end_signals.descriptor() >= 0);
  QObject::connect(&notifier_, &QSocketNotifier::activated, &receiver_, [this] { TakeSignal(); });
  again_.setInterval(kLookAgain);
  QObject::connect(&again_, &QTimer::timeout, &receiver_, [this] { AskWhenFree(); });
  // Answered before the call returns, which is when the desktop goes on.
  QObject::connect(
      qGuiApp, &QGuiApplication::commitDataRequest, &receiver_, [this](QSessionManager& manager) { LogOut(manager); },
      Qt::DirectConnection);
}

void DesktopSession::TakeSignal() {
  const int signal = signals_.Take();
  if (signal == 0) return;
  if (asking_ || program_.main == nullptr) {
    program_.EndUnasked();
    std::_Exit(128 + signal);
  }
  asking_ = true;
  again_.start();
  AskWhenFree();
}

void DesktopSession::AskWhenFree() {
  if (toolkit_.windows().gate().held() || program_.main == nullptr || !program_.main->Reachable()) return;
  again_.stop();
  program_.main->UserClose();
  asking_ = false;
  signals_.GoOn();
}

void DesktopSession::LogOut(QSessionManager& manager) {
  if (program_.main == nullptr) return;
  const bool free = !toolkit_.windows().gate().held() && program_.main->Reachable();
  if (free && manager.allowsInteraction()) {
    const bool agreed = program_.main->QueryClose();
    manager.release();
    if (!agreed) return manager.cancel();
  }
  WriteConfiguration(program_);
}

}  // namespace zentaline
