#pragma once

namespace tarnlog::record {

/// What the system asked of this process, collected by signal handlers: SIGINT, SIGTERM and a
/// closed terminal (SIGHUP) ask to stop, SIGUSR1 is the event button. A second request to stop leaves at
/// once, whatever runs.
class Signals {
 public:
  static void install();
  static bool stopRequested();
  /// True once per SIGUSR1.
  static bool takeEvent();
};

}  // namespace tarnlog::record
