#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/RecorderParts.h"
#include "tests/support/ScopeText.h"
#include "tests/support/ScriptedSession.h"

namespace tarnlog::test {

/// A scripted vehicle: one ECU "Engine" (function "Injection") with the request "Status" and its data "Speed"
/// in km/h; and what is recorded of it into /rec, a row each polling cycle.
struct ScriptedDrive : RecorderParts {
  ScriptedDrive() {
    parameters->fileFolder = "/rec";
    parameters->recordingPeriod = 0;
  }
  oTarnScope& add(const ScriptedData& data) { return addScope(*parameters, data); }

  ScriptedSession session;
  ScriptedEcu& engine = session.addEcu("Engine", "Injection", 0x10);
  ScriptedRequest& status = engine.addRequest("Status", "21 80");
  ScriptedData& speed = status.addData("Speed", ferrox3::kDouble, "km/h");
  std::shared_ptr<oTarnParameters> parameters = std::make_shared<oTarnParameters>(settings);
};

/// A recorder of the speed. The test sets `parameters`, starts, and steps polling cycles.
/// Ids of acquisitions and recordings are 1, 2, ..., behind those before.
class AcqRig : public ScriptedDrive {
 public:
  explicit AcqRig(std::vector<SampleSink*> sinks = {}, std::uint8_t idsBefore = 0)
      : acq(screen, {clock, timer, files, UserLocale{}, "tarnlog.xsl", std::move(sinks),
                     [this] { return SampleId{{++ids_}}; }}),
        ids_(idsBefore) {
    add(speed);
    hear(acq);
    acq.setSession(&session);
  }

  /// Recording starts when the speed rises to this.
  void recordFrom(double level) {
    watch(*parameters->startTrigger, 1);
    parameters->startTrigger->edge = 1;
    parameters->startTrigger->level = level;
  }

  /// Starts and brings the ECUs up; time 0 of `run` is the start.
  void start() {
    origin = clock.milliseconds();
    acq.StartReadingData(parameters);
    tickUntil(TarnAcq::kCommunicate);
  }
  void tickUntil(TarnAcq::State state) { RecorderParts::tickUntil(acq, state); }

  /// One polling cycle for each "time:speed", in milliseconds since the start.
  void run(const std::string& timeline) {
    for (const std::string& word : words(timeline)) {
      clock.step(origin + static_cast<Milliseconds>(std::stoul(word)) - clock.milliseconds());
      speed.setValue(std::stod(word.substr(word.find(':') + 1)));
      timer.fire();
    }
  }

  /// The rows of the newest record file.
  std::vector<std::string> recordRows() const { return rowsOf(files.files.at(acq.RecordPath())); }

  Milliseconds origin = 0;
  TarnAcq acq;

 private:
  std::uint8_t ids_;
};

}  // namespace tarnlog::test
