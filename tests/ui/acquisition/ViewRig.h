#pragma once

#include <QApplication>
#include <QTest>
#include <memory>
#include <stdexcept>
#include <string>

#include "platform/settings/SettingsStore.h"
#include "tests/support/ManualTimer.h"
#include "tests/support/MemoryFileSystem.h"
#include "tests/support/ScopeText.h"
#include "tests/support/ScriptedSession.h"
#include "tests/support/SteppedClock.h"
#include "ui/acquisition/AcqView.h"

namespace tarnlog::test {

/// The acquisition view on a scripted vehicle: ECU "Engine" with the request "Status" and its data "Speed" in
/// km/h (a graph) and "Load" (a digital value), recorded into /rec, a row each polling cycle.
class ViewRig {
 public:
  ViewRig() {
    parameters->fileFolder = "/rec";
    parameters->recordingPeriod = 0;
    add(speed).SetGraph("", false, 0, 250, 100, 0xFF0000);
    add(load).SetNumeric("");
    view.resize(800, 500);
    view.show();
    // Shortcuts are for the active window only.
    if (!QTest::qWaitForWindowActive(&view)) throw std::runtime_error("the view does not become active");
    view.acq().setSession(&session);
  }

  /// Until values are polled, and the first row of them is there.
  void start() {
    view.acq().StartReadingData(parameters);
    for (int i = 0; i < 20 && !view.acq().hasRow(); ++i) tick(51);
  }
  void tick(Milliseconds step = 10) {
    timer.fire();
    clock.step(step);
  }

  template <class Widget = QWidget>
  Widget& child(const char* name) const {
    return *view.findChild<Widget*>(name);
  }
  /// How many files of this kind there are.
  int filesWith(const std::string& part) const {
    int count = 0;
    for (const auto& [path, bytes] : files.files)
      if (path.find(part) != std::string::npos) ++count;
    return count;
  }

  oTarnScope& add(const ScriptedData& data) { return addScope(*parameters, data); }

  SteppedClock clock;
  ManualTimer timer;
  MemoryFileSystem files;
  MemorySettingsStore settings;
  ScriptedSession session;
  ScriptedEcu& engine = session.addEcu("Engine", "Injection", 0x10);
  ScriptedRequest& status = engine.addRequest("Status", "21 80");
  ScriptedData& speed = status.addData("Speed", ferrox3::kDouble, "km/h");
  ScriptedData& load = status.addData("Load", ferrox3::kDouble, "%");
  std::shared_ptr<oTarnParameters> parameters = std::make_shared<oTarnParameters>(settings);
  AcqView view{{clock, timer, files, UserLocale{}, "tarnlog.xsl", &settings}};
};

}  // namespace tarnlog::test
