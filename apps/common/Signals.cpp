#include "apps/common/Signals.h"

#include <csignal>

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>

#include "apps/common/BadInput.h"

namespace tarnlog {

namespace {

volatile std::sig_atomic_t stops = 0;
volatile std::sig_atomic_t events = 0;

volatile std::sig_atomic_t wakeEnd = -1;  ///< written to by handlers; -1 when nobody waits there
int readEnd = -1;

void wake() {
  if (wakeEnd < 0) return;
  const int before = errno;
  [[maybe_unused]] const ssize_t written = write(wakeEnd, "", 1);  // a full pipe wakes as well
  errno = before;
}

void onStop(int) {
  if (stops != 0) _exit(kFailed);
  stops = 1;
  wake();
}

void onEvent(int) {
  events = 1;
  wake();
}

void handle(int signal, void (*handler)(int)) {
  struct sigaction action {};
  action.sa_handler = handler;
  sigemptyset(&action.sa_mask);
  sigaction(signal, &action, nullptr);
}

/// As under nohup.
bool ignored(int signal) {
  struct sigaction action {};
  return sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

}  // namespace

void Signals::install() {
  handle(SIGINT, onStop);
  handle(SIGTERM, onStop);
  handle(SIGUSR1, onEvent);
  if (!ignored(SIGHUP)) handle(SIGHUP, onStop);
  // A reader of standard output that goes away must not end the recording, nor a limit on the size of files:
  // both are failed writes.
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
}

bool Signals::stopRequested() { return stops != 0; }

bool Signals::takeEvent() {
  if (events == 0) return false;
  events = 0;
  return true;
}

int Signals::wakeDescriptor() {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0)
    throw std::system_error(errno, std::generic_category(), "pipe");
  readEnd = ends[0];
  wakeEnd = ends[1];
  return readEnd;
}

void Signals::clearWake() {
  std::array<char, 64> bytes{};
  while (read(readEnd, bytes.data(), bytes.size()) > 0) {
  }
}

}  // namespace tarnlog
