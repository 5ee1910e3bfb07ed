#include "apps/tarnlog/Display.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QGuiApplication>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>

namespace tarnlog {

namespace {

bool displayNamed() {
  for (const char* const name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
    if (const char* const value = std::getenv(name); value != nullptr && *value != '\0') return true;
  return false;
}

/// Ends with 0 when the toolkit could start.
[[noreturn]] void tryToolkit() {
  // What it says when it cannot is for the one who tries next.
  dup2(open("/dev/null", O_WRONLY | O_CLOEXEC), STDERR_FILENO);
  std::signal(SIGABRT, [](int) { _exit(1); });
  std::array<char, 8> name{"tarnlog"};
  std::array<char*, 2> arguments{name.data(), nullptr};
  int count = 1;
  const QGuiApplication application(count, arguments.data());
  _exit(0);
}

bool childSucceeds() {
  const pid_t child = fork();
  if (child == 0) tryToolkit();
  int status = 0;
  pid_t ended = 0;
  do {
    ended = waitpid(child, &status, 0);
  } while (ended < 0 && errno == EINTR);
  return ended == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

}  // namespace

bool displayUsable() {
  static const bool usable = displayNamed() && childSucceeds();
  return usable;
}

}  // namespace tarnlog
