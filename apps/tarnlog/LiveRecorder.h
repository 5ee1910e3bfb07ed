#pragma once

#include <unistd.h>

#include <optional>
#include <string>
#include <vector>

#include "apps/common/NonWaitingStream.h"
#include "apps/tarnlog/EndRecordingBox.h"
#include "apps/tarnlog/FolderSettings.h"
#include "apps/tarnlog/LivePublishing.h"
#include "host/link/SystemLinkClock.h"
#include "host/vehicle/Vehicle.h"
#include "platform/files/SystemFileSystem.h"
#include "platform/settings/FileSettingsStore.h"
#include "platform/time/SystemClock.h"
#include "ui/common/Dialogs.h"
#include "ui/common/QtTimer.h"

namespace tarnlog {

class RecorderWindow;
struct WindowEnvironment;

struct LiveOptions {
  std::string vehicle;                ///< empty: the window asks
  std::string config;                 ///< empty: none is opened
  std::optional<std::string> folder;  ///< of the files of `config` and of new configurations
  bool folderPerVehicle = false;      ///< for this time; else as the user's settings have it
  host::LinkOptions link;
  PublishOptions publish = {};  ///< else as the user's settings have it
  std::vector<std::string> files =
      {};  ///< records to be looked at, a vehicle or a configuration to be opened
};

/// The recorder in a window, on this system, as the command line wants it.
class LiveRecorder {
 public:
  explicit LiveRecorder(LiveOptions options);

  /// Shows the window until it is closed or a signal asks to stop. Needs a QApplication. Returns the exit
  /// code; raises BadInput when the folder cannot be made.
  int run();

 private:
  WindowEnvironment environment();
  void noteFailure(const std::string& text);
  void say(const std::string& text);

  LiveOptions options_;
  SystemClock clock_;
  host::SystemLinkClock linkClock_;
  NonWaitingStream paths_{STDOUT_FILENO, NonWaitingStream::kNoBound};
  NonWaitingStream errors_{STDERR_FILENO};
  SystemFileSystem files_;
  FileSettingsStore settings_{files_, FileSettingsStore::defaultPath()};
  FolderSettings folderSettings_{settings_, options_.folder};
  LivePublishing publishing_{settings_, options_.publish};
  QtTimer timer_;
  QtDialogs dialogs_;
  EndRecordingBox endQuestion_;
  bool failed_ = false;  ///< something that was to be recorded is in no file
  int attempts_ = 0;     ///< to open the vehicle that is traced
};

}  // namespace tarnlog
