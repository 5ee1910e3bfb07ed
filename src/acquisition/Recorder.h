#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "acquisition/AcqLog.h"
#include "acquisition/AcqScreen.h"
#include "acquisition/LevelTrigger.h"
#include "acquisition/RecordFiles.h"
#include "acquisition/RecordingPlan.h"
#include "acquisition/RollingBuffer.h"
#include "acquisition/SampleFeed.h"
#include "acquisition/TimeOrigin.h"
#include "acquisition/UserEvents.h"
#include "acquisition/ValueList.h"
#include "config/oTarnTrigger.h"

namespace tarnlog {

/// Controls one recording after the other: start, rows at the sample period, stop, end. To be called once per
/// polling cycle. A start by the button is pending until the next cycle; one by a trigger is not. A stop is
/// armed: the next row is marked "Stop", then the post-trigger rows follow.
class Recorder {
 public:
  enum class Refresh { Nothing, Display };
  using OpenFailed = std::function<void(OpenFailure failure, const std::string& reason)>;

  /// So many milliseconds before a due row the value list is not refreshed, which could delay the row.
  static constexpr std::int32_t kQuietBeforeRow = 250;
  /// From this sample period (milliseconds) on, a stop ends the recording at once, without a "Stop" row and
  /// without post-trigger rows, unless the next row is due within `kQuietBeforeRow`.
  static constexpr std::int32_t kLongPeriod = 10000;

  Recorder(AcqScreen& screen, AcqLog& log, RecordFiles& files, UserEvents& events, ValueList& values,
           RollingBuffer& current, RollingBuffer& preTrigger, SampleFeed& samples);

  /// Starts an acquisition: nothing is recorded, pending or counted.
  void begin(const RecordingPlan& plan, const LevelTrigger& start, const LevelTrigger& stop,
             std::shared_ptr<const oTarnTrigger> stopTrigger);
  /// Sets when the first row is due.
  void setFirstRowDue(Milliseconds now) { nextSampleTime_ = now; }

  /// The start/stop button. Ignored before the first polling cycle, and while a start is pending.
  void toggle();
  /// The event button. Ignored before the first polling cycle, and while an event file is open.
  void userEvent();

  /// To be called after each polling cycle, when its values are the newest row of the current buffer. Tells
  /// whether the caller is to refresh the display.
  Refresh cycle(Milliseconds pollTime);

  /// Ends the recording if a stop is armed: to be called when the ECUs have to be initialised again.
  void endIfStopArmed();
  /// Ends whatever runs, with the acquisition. Its files are then closed by `closeAllFiles`.
  void endWithAcquisition();
  void closeAllFiles();
  /// The window that shows the acquisition was hidden: a pending start is dropped, a stop is requested, and
  /// files stay open until the next start.
  void suspend();
  /// Forgets a pending start or stop.
  void forgetRequests() { startPending_ = stopRequested_ = false; }

  /// Sets what is called when a record or event file cannot be opened.
  void setOpenFailed(OpenFailed handler) { openFailed_ = std::move(handler); }

  /// The time of the first row that a recording would have if it started now.
  Milliseconds historyFrom() const;
  bool recording() const { return recording_; }
  bool startPending() const { return startPending_; }
  std::int32_t finishedRecordings() const { return finishedRecordings_; }
  std::uint64_t rowsWritten() const { return rowsWritten_; }

  void SetRecordingDisplay(bool on) { screen_.setRecording(on ? RecordingFact::On : RecordingFact::Off); }

 private:
  void showEvent();
  void tellEvent(EventProgress progress);
  bool OpenRecordFile();
  void fileEnded() { samples_.recordingEnded(rowsInFile_); }
  void tellOpenFailed(OpenFailure failure, const std::string& reason);
  /// Returns the time from which the file's times count.
  Milliseconds writeFirstRows();
  void addToPreTrigger(Milliseconds pollTime);
  /// With period 0 every cycle writes a row. The schedule does not advance then, and the millisecond counter
  /// would pass half of its range.
  bool rowDue(Milliseconds pollTime) const {
    return plan_.samplePeriod == 0 || millisecondsBetween(nextSampleTime_, pollTime) >= 0;
  }

  Refresh cycleIdle(Milliseconds pollTime);
  Refresh cycleRecording(Milliseconds pollTime);
  Refresh cycleWithoutRow(Milliseconds pollTime);
  void startRecording();
  bool stopFires(Milliseconds pollTime);
  void armStop();
  void writeRow(Milliseconds pollTime);
  const std::string& takeMark();
  void countDown();
  void endRecording();
  void closeFiles();
  void dropMarks();

  AcqScreen& screen_;
  AcqLog& log_;
  RecordFiles& files_;
  UserEvents& events_;
  ValueList& values_;
  RollingBuffer& current_;
  RollingBuffer& preTrigger_;
  SampleFeed& samples_;

  RecordingPlan plan_;
  LevelTrigger start_;
  LevelTrigger stop_;
  std::shared_ptr<const oTarnTrigger> stopTrigger_;

  bool recording_ = false;
  bool startPending_ = false;
  bool stopRequested_ = false;
  bool stopMarkPending_ = false;
  std::int32_t postCountdown_ = 0;
  EventProgress eventProgress_;  ///< as the screen was told last
  Milliseconds nextSampleTime_ = 0;
  TimeOrigin recordStart_;
  std::int32_t finishedRecordings_ = 0;
  std::uint64_t rowsWritten_ = 0;
  std::uint64_t rowsInFile_ = 0;  ///< of the newest recording, those before its start included
  OpenFailed openFailed_;
  std::string mark_;  ///< scratch, kept for its capacity
};

}  // namespace tarnlog
