#include "midi/alsa/thru_guard.h"

#include <fcntl.h>
#include <sound/asequencer.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

namespace zentaline {

namespace {

// Runs in a fork of a program that may have threads: system calls only.
[[noreturn]] void Watch(int pipe, snd_seq_port_subscribe subscription) {
  sigset_t all;
  sigfillset(&all);
  sigprocmask(SIG_BLOCK, &all, nullptr);
  if (chdir("/") != 0) _exit(1);
  if (pipe > 0) close_range(0, static_cast<unsigned>(pipe) - 1, 0);
  close_range(static_cast<unsigned>(pipe) + 1, ~0U, 0);
  char byte = 0;
  ssize_t count = 0;
  do count = read(pipe, &byte, 1);
  while (count < 0 && errno == EINTR);
  if (count == 0) {
    const int sequencer = open("/dev/snd/seq", O_RDWR | O_NONBLOCK);
    if (sequencer >= 0) ioctl(sequencer, SNDRV_SEQ_IOCTL_UNSUBSCRIBE_PORT, &subscription);
  }
  _exit(0);
}

snd_seq_addr Address(PortAddress address) {
  return {static_cast<unsigned char>(address.client), static_cast<unsigned char>(address.port)};
}

}  // namespace

ThruGuard::ThruGuard(PortAddress from, PortAddress to) {
  snd_seq_port_subscribe subscription{};
  subscription.sender = Address(from);
  subscription.dest = Address(to);
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) return;
  const pid_t child = fork();
  if (child == 0) {
    // Out of the program's session, so that what ends the program by its terminal leaves this process alone; twice
    // forked, so that the program has no child to wait for.
    setsid();
    if (fork() != 0) _exit(0);
    Watch(ends[0], subscription);
  }
  close(ends[0]);
  if (child < 0) {
    close(ends[1]);
    return;
  }
  while (waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
  }
  pipe_ = ends[1];
}

ThruGuard::~ThruGuard() {
  if (pipe_ < 0) return;
  // A guard that is gone must not end the program by a signal.
  struct sigaction ignore {};
  struct sigaction before {};
  ignore.sa_handler = SIG_IGN;
  sigaction(SIGPIPE, &ignore, &before);
  [[maybe_unused]] const ssize_t written = write(pipe_, "", 1);
  sigaction(SIGPIPE, &before, nullptr);
  close(pipe_);
}

}  // namespace zentaline
