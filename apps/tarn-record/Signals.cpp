#include "apps/tarn-record/Signals.h"

#include <csignal>

#include <unistd.h>

#include "apps/tarn-record/BadInput.h"

namespace tarnlog::record {

namespace {

volatile std::sig_atomic_t stops = 0;
volatile std::sig_atomic_t events = 0;

void onStop(int) {
  if (stops != 0) _exit(kFailed);
  stops = 1;
}

void onEvent(int) { events = 1; }

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

}  // namespace tarnlog::record
