#pragma once

#include <QPointer>
#include <functional>
#include <string>
#include <utility>

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

  /// For this control: not any more once it is gone.
  void runWhenIdle(QObject* control, std::function<void()> action) const {
    if (!whenIdle) return action();
    whenIdle([alive = QPointer(control), action = std::move(action)] {
      if (alive) action();
    });
  }
};

}  // namespace tarnlog
