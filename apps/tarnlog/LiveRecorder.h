#pragma once

#include <memory>
#include <optional>
#include <string>

#include "apps/common/LoadedConfiguration.h"
#include "host/link/SystemLinkClock.h"
#include "host/vehicle/Vehicle.h"
#include "platform/files/SystemFileSystem.h"
#include "platform/time/SystemClock.h"
#include "ui/common/QtTimer.h"

namespace tarnlog {

class AcqWindow;

struct LiveOptions {
  std::string vehicle;
  std::string config;
  std::optional<std::string> folder;
};

/// The recorder in a window, from the files of the command line on.
class LiveRecorder {
 public:
  /// Reads the files and opens the vehicle; needs no display. Raises BadInput and TarnErrors.
  explicit LiveRecorder(LiveOptions options);

  /// Shows the window and acquires until it is closed or a signal asks to stop. Needs a QApplication. Returns
  /// the exit code; raises a TarnError when the acquisition cannot start.
  int run();

 private:
  void start(AcqWindow& window);
  void noteFailure(AcqWindow& window, const std::string& path, const std::string& why);

  LiveOptions options_;
  SystemClock clock_;
  host::SystemLinkClock linkClock_;
  SystemFileSystem files_;
  QtTimer timer_;
  std::unique_ptr<host::OpenedVehicle> vehicle_;
  LoadedConfiguration configuration_;
  std::string failedPath_;
};

}  // namespace tarnlog
