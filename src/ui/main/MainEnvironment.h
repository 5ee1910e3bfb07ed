#pragma once

#include <functional>
#include <string>
#include <vector>

#include "acquisition/SampleSink.h"
#include "platform/files/FileSystem.h"
#include "platform/settings/SettingsStore.h"
#include "platform/text/UserLocale.h"
#include "platform/time/Clock.h"
#include "platform/time/Timer.h"
#include "ui/common/Dialogs.h"
#include "ui/common/Guide.h"
#include "ui/main/EndQuestion.h"

namespace tarnlog {

/// What the recorder control needs from around it. All of it outlives the control.
struct MainEnvironment {
  Clock& clock;
  Timer& timer;  ///< of the acquisition, for it alone
  FileSystem& files;
  SettingsStore& settings;  ///< defaults of new configurations, and how its user wants things shown
  Dialogs& dialogs;
  UserLocale locale;
  /// Of an XSL stylesheet, written into configurations and XML records: it shows them in a browser.
  std::string stylesheetUrl = "tarnlog.xsl";
  /// Asked before a click ends a recording that runs; without one it ends at once.
  EndQuestion* endQuestion = nullptr;
  /// Looks at a configuration file before it is loaded, and raises a TarnError when this program does not
  /// take it; nothing has changed then. May be empty.
  std::function<void(const std::string& fileName)> checkConfiguration{};
  /// What the help leads to, besides the keys.
  Guide guide{};
  /// Hear what the vehicle answers.
  std::vector<SampleSink*> sinks{};
  /// Whether an acquisition that begins now gets a measurement file of its own; never, when empty.
  std::function<bool()> measureWhole{};
  /// Of the program, told in measurement files.
  std::string programVersion{};
  /// Shows a record file to the user, who clicked on its path; without it, a path is just a text.
  std::function<void(const std::string& path)> lookAtRecord{};
};

}  // namespace tarnlog
