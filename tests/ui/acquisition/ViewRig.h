#pragma once

#include <QApplication>
#include <QTest>
#include <algorithm>
#include <memory>
#include <string>

#include "platform/settings/SettingsStore.h"
#include "tests/support/ManualTimer.h"
#include "tests/support/MemoryFileSystem.h"
#include "tests/support/ScopeText.h"
#include "tests/support/ScriptedSession.h"
#include "tests/support/SteppedClock.h"
#include "tests/support/WidgetText.h"
#include "ui/acquisition/AcqView.h"

namespace tarnlog::test {

/// The acquisition view on a scripted vehicle: ECU "Engine" with the request "Status" and its data "Speed" in
/// km/h (a graph) and "Load" (a digital value), recorded into /rec, a row each polling cycle.
struct ViewRig {
  ViewRig() {
    parameters->fileFolder = "/rec";
    parameters->recordingPeriod = 0;
    add(speed).SetGraph("", false, 0, 250, 100, 0xFF0000);
    add(load).SetNumeric("");
    view.resize(800, 500);
    view.show();
    QApplication::setActiveWindow(&view);  // only it has shortcuts
    acq.setSession(&session);
  }

  /// Until values are polled, and the first row of them is there.
  void start() {
    acq.StartReadingData(parameters);
    for (int i = 0; i < 20 && !acq.hasRow(); ++i) tick(51);
  }
  void tick(Milliseconds step = 10) {
    timer.fire();
    clock.step(step);
  }

  template <class Widget = QWidget>
  Widget& child(const char* name) const {
    return childOf<Widget>(view, name);
  }
  /// How many files have this in their names.
  std::ptrdiff_t filesWith(const std::string& part) const {
    return std::count_if(files.files.begin(), files.files.end(),
                         [&](const auto& file) { return file.first.find(part) != std::string::npos; });
  }
  void key(const char* widget, int key) const { QTest::keyClick(&child(widget), Qt::Key(key)); }

  oTarnScope& add(const ScriptedData& data) { return addScope(*parameters, data); }
  /// Makes the list and the graphs longer than the window.
  void addMore(int count) {
    for (int i = 0; i < count; ++i)
      add(status.addData("More " + std::to_string(i))).SetGraph("", false, 0, 100, 100, 0xFF0000);
  }

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
  AcqView view{{clock, timer, files, UserLocale{}, "tarnlog.xsl"}, &settings};
  TarnAcq& acq = view.acq();
};

}  // namespace tarnlog::test
