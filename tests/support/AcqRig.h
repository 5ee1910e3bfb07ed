#pragma once

#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "acquisition/TarnAcq.h"
#include "platform/settings/SettingsStore.h"
#include "tests/support/ManualTimer.h"
#include "tests/support/MemoryFileSystem.h"
#include "tests/support/RecordingScreen.h"
#include "tests/support/Rows.h"
#include "tests/support/ScopeText.h"
#include "tests/support/ScriptedSession.h"
#include "tests/support/SteppedClock.h"

namespace tarnlog::test {

/// A recorder on a scripted vehicle: one ECU "Engine" (function "Injection") with the request "Status" and
/// its data "Speed" in km/h, recorded into /rec. The test sets `parameters`, starts, and steps polling
/// cycles.
class AcqRig {
 public:
  AcqRig() {
    add(speed);
    parameters->fileFolder = "/rec";
    parameters->recordingPeriod = 0;
    acq.setAcqStoppedHandler([this] { ++stopped; });
    acq.setFileFinishedHandler([this](const std::string& path) { finished.push_back(path); });
    acq.setSession(&session);
  }

  oTarnScope& add(const ScriptedData& data) { return addScope(*parameters, data); }

  void triggerStart(std::int32_t edge, double level) { channel(*parameters->startTrigger, edge, level); }
  void triggerStop(std::int32_t edge, double level) { channel(*parameters->stopTrigger, edge, level); }

  /// Starts and brings the ECUs up; time 0 of `run` is the start.
  void start() {
    origin = clock.milliseconds();
    acq.StartReadingData(parameters);
    tickUntil(TarnAcq::kCommunicate);
  }
  void tickUntil(TarnAcq::State state) {
    for (int i = 0; i < 20 && acq.AcqState() != state; ++i) {
      timer.fire();
      clock.step(51);
    }
  }

  /// One polling cycle for each "time:speed", in milliseconds since the start.
  void run(const std::string& timeline) {
    std::istringstream words(timeline);
    for (std::string word; words >> word;) {
      const std::size_t colon = word.find(':');
      cycleAt(static_cast<Milliseconds>(std::stoul(word.substr(0, colon))),
              std::stod(word.substr(colon + 1)));
    }
  }
  void cycleAt(Milliseconds time, double value) {
    clock.step(origin + time - clock.milliseconds());
    speed.setValue(value);
    timer.fire();
  }

  /// The rows of the newest record file.
  std::vector<std::string> recordRows() const { return rowsOf(files.files.at(acq.RecordPath())); }

  SteppedClock clock;
  ManualTimer timer;
  MemoryFileSystem files;
  RecordingScreen screen;
  MemorySettingsStore settings;
  ScriptedSession session;
  ScriptedEcu& engine = session.addEcu("Engine", "Injection", 0x10);
  ScriptedRequest& status = engine.addRequest("Status", "21 80");
  ScriptedData& speed = status.addData("Speed", ferrox3::kDouble, "km/h");
  std::shared_ptr<oTarnParameters> parameters = std::make_shared<oTarnParameters>(settings);
  int stopped = 0;
  std::vector<std::string> finished;
  Milliseconds origin = 0;
  TarnAcq acq{screen, {clock, timer, files, UserLocale{}, "tarnlog.xsl"}};

 private:
  static void channel(oTarnTrigger& trigger, std::int32_t edge, double level) {
    trigger.typeTrigger = oTarnTrigger::kChannel;
    trigger.DataIndex = 1;
    trigger.edge = edge;
    trigger.level = level;
  }
};

}  // namespace tarnlog::test
