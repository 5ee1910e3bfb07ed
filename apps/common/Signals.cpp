#include "apps/common/Signals.h"

#include <csignal>

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>

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

void handle(int signal, void (*handler)(int)) {
  struct sigaction action {};
  action.sa_handler = handler;
  sigemptyset(&action.sa_mask);
  sigaction(signal, &action, nullptr);
}

/// The next one is the system's: it ends the process in calls, too, in which no handler runs, such as opening
/// a file on a network disk that hangs. Not so SIGHUP, which a terminal that closes may send twice, by itself
/// and through its shell: nobody is impatient then.
void onStop(int) {
  stops = 1;
  handle(SIGINT, SIG_DFL);
  handle(SIGTERM, SIG_DFL);
  wake();
}

void onEvent(int) {
  events = 1;
  wake();
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
