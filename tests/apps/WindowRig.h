#pragma once

#include <QAbstractButton>
#include <QTest>
#include <optional>

#include "acquisition/TarnAcq.h"
#include "apps/tarnlog/RecorderWindow.h"
#include "platform/settings/FileSettingsStore.h"
#include "tests/support/RecorderParts.h"
#include "tests/support/ScriptedDialogs.h"
#include "ui/main/TarnMain.h"

namespace tarnlog::test {

/// The program's window with files, time and the user's answers in the test's hands.
struct WindowRig : SteppedParts {
  template <class Kind>
  Kind* find(const char* name = nullptr) {
    return window->findChild<Kind*>(QLatin1String(name));
  }
  void press(const char* button) { find<QAbstractButton>(button)->click(); }
  std::string title() { return fromQString(window->windowTitle()); }
  TarnAcq& acq() { return window->recorder().ctlTarnAcq(); }

  FileSettingsStore settings{files, "/cfg/settings"};
  ScriptedDialogs dialogs;
  std::optional<RecorderWindow> window;
};

}  // namespace tarnlog::test
