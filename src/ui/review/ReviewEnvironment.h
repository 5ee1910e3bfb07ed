#pragma once

#include <functional>
#include <string>

#include "platform/settings/SettingsStore.h"
#include "platform/text/UserLocale.h"
#include "ui/common/Dialogs.h"
#include "ui/common/Guide.h"

namespace tarnlog {

/// What looking at records needs from around it. All of it outlives the control.
struct ReviewEnvironment {
  Dialogs& dialogs;
  SettingsStore* settings = nullptr;  ///< how its user wants things shown; there may be none
  UserLocale locale{};
  /// What the help leads to, besides the keys.
  Guide guide{};
  /// Runs what waits for the user in a loop of its own (a dialog, a drag) at a moment when that holds nobody
  /// up. Without it, that is any moment.
  std::function<void(std::function<void()> action)> whenIdle{};
  /// Whether this program is writing that file: then it is no fault that it is not closed.
  std::function<bool(const std::string& path)> isBeingRecorded{};

  void runWhenIdle(std::function<void()> action) const { whenIdle ? whenIdle(std::move(action)) : action(); }
};

}  // namespace tarnlog
