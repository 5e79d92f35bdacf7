#include "app/end_signals.h"

#include <poll.h>
#include <signal.h>
#include <sys/signalfd.h>

namespace zentaline {

EndSignals::EndSignals() {
  // A file that would grow too large is an error of the write, and no end.
  signal(SIGXFSZ, SIG_IGN);
  sigset_t wanted;
  sigemptyset(&wanted);
  for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
    struct sigaction present {};
    if (sigaction(number, nullptr, &present) == 0 && present.sa_handler != SIG_IGN) sigaddset(&wanted, number);
  }
  descriptor_ = Descriptor(signalfd(-1, &wanted, SFD_NONBLOCK | SFD_CLOEXEC));
  if (descriptor_.Valid()) sigprocmask(SIG_BLOCK, &wanted, nullptr);
}

int EndSignals::Take() {
  signalfd_siginfo info{};
  if (!descriptor_.Valid() || read(descriptor_.Number(), &info, sizeof info) != sizeof info) return 0;
  ending_ = true;
  return static_cast<int>(info.ssi_signo);
}

bool EndSignals::Pending() const {
  if (ending_) return true;
  pollfd waits = {descriptor_.Number(), POLLIN, 0};
  return poll(&waits, 1, 0) > 0;
}

}  // namespace zentaline
