#pragma once

namespace tarnlog {

/// What the system asked of this process, collected by signal handlers: SIGINT, SIGTERM and a
/// closed terminal (SIGHUP) ask to stop, SIGUSR1 is the event button. A further SIGINT or SIGTERM ends the
/// process at once, as if there were no handler, whatever runs.
class Signals {
 public:
  static void install();
  static bool stopRequested();
  /// True once per SIGUSR1.
  static bool takeEvent();

  /// For a loop that waits: a descriptor that can be read from as soon as a signal has come. To be made after
  /// `install`, once. Raises a std::system_error.
  static int wakeDescriptor();
  /// Empties it.
  static void clearWake();
};

}  // namespace tarnlog
