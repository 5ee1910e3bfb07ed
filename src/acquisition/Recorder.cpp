#include "acquisition/Recorder.h"

#include <utility>

#include "platform/base/TarnError.h"

namespace tarnlog {

Recorder::Recorder(AcqScreen& screen, AcqLog& log, RecordFiles& files, UserEvents& events, ValueList& values,
                   RollingBuffer& current, RollingBuffer& preTrigger, SampleFeed& samples)
    : screen_(screen),
      log_(log),
      files_(files),
      events_(events),
      values_(values),
      current_(current),
      preTrigger_(preTrigger),
      samples_(samples) {}

void Recorder::begin(const RecordingPlan& plan, const LevelTrigger& start, const LevelTrigger& stop,
                     std::shared_ptr<const oTarnTrigger> stopTrigger) {
  plan_ = plan;
  start_ = start;
  stop_ = stop;
  stopTrigger_ = std::move(stopTrigger);
  recording_ = false;
  forgetRequests();
  stopMarkPending_ = false;
  finishedRecordings_ = 0;
  rowsWritten_ = rowsInFile_ = 0;
  showEvent();
}

void Recorder::toggle() {
  if (current_.empty() || startPending_) return;
  if (recording_)
    armStop();
  else if (!stopRequested_)
    startPending_ = OpenRecordFile();
  screen_.setRecording(RecordingFact::Requested);
}

void Recorder::userEvent() {
  if (current_.empty() || events_.active()) return;
  screen_.beep();
  try {
    if (recording_) {
      events_.recordWhileRecording(current_, recordStart_);
      screen_.setEventNumber(events_.count());
    } else {
      events_.recordWhileIdle(current_);
    }
  } catch (const TarnError& error) {
    tellOpenFailed(OpenFailure::Failed, error.description());
    return;
  }
  showEvent();
  samples_.eventMarked(recording_ ? events_.count() : 0, files_.eventPath());
  log_.add("User event");
}

void Recorder::showEvent() { tellEvent({events_.active(), events_.cyclesLeft()}); }

void Recorder::tellEvent(EventProgress progress) {
  if (std::exchange(eventProgress_, progress) != progress) screen_.setEventProgress(progress);
}

bool Recorder::OpenRecordFile() {
  dropMarks();
  try {
    if (!files_.openRecordFile()) {
      tellOpenFailed(OpenFailure::NoStream, {});
      return false;
    }
  } catch (const TarnError& error) {
    tellOpenFailed(OpenFailure::Failed, error.description());
    return false;
  }
  screen_.setRecordPath(files_.recordPath());
  const Milliseconds from = historyFrom();
  const Milliseconds zero = writeFirstRows();
  samples_.recordingBegan(files_.recordPath(), zero, from);
  screen_.setRecording(RecordingFact::Opened);
  return true;
}

Milliseconds Recorder::historyFrom() const {
  Milliseconds from = 0;
  current_.GetTime(from);
  if (plan_.preTriggerPoints != 0) preTrigger_.GetOldestTime(from);
  return from;
}

void Recorder::tellOpenFailed(OpenFailure failure, const std::string& reason) {
  screen_.setOpenFailure(failure, reason);
  if (openFailed_) openFailed_(failure, reason);
}

/// With pre-trigger rows, the newest of them is time zero. Without, it is the newest polling cycle, and the
/// next row is due one period later.
Milliseconds Recorder::writeFirstRows() {
  const bool history = plan_.preTriggerPoints != 0;
  Milliseconds start = 0;
  (history ? preTrigger_ : current_).GetTime(start);
  recordStart_ = start;
  if (!history) nextSampleTime_ = start + static_cast<Milliseconds>(plan_.samplePeriod);
  const bool written = skipOnFailure([&] {
    if (history)
      files_.record()->writeBuffer(preTrigger_, recordStart_, "Start");
    else
      files_.record()->writeCurrent(current_, recordStart_, "Start");
  });
  rowsInFile_ = !written ? 0 : history ? static_cast<std::uint64_t>(preTrigger_.rows()) : 1;
  ++rowsWritten_;
  return start;
}

void Recorder::addToPreTrigger(Milliseconds pollTime) {
  preTrigger_.AddRow(pollTime);
  bool unchanged = false;
  for (std::int32_t column = 1; column <= current_.columns(); ++column)
    preTrigger_.SetData(column, current_.GetData(column, unchanged));
}

Recorder::Refresh Recorder::cycle(Milliseconds pollTime) {
  events_.addRow(current_);
  showEvent();
  return recording_ ? cycleRecording(pollTime) : cycleIdle(pollTime);
}

Recorder::Refresh Recorder::cycleIdle(Milliseconds pollTime) {
  if (rowDue(pollTime)) {
    nextSampleTime_ += static_cast<Milliseconds>(plan_.samplePeriod);
    addToPreTrigger(pollTime);
  }
  if (!startPending_ && start_.evaluate()) startPending_ = OpenRecordFile();
  if (startPending_) {
    startRecording();
    return Refresh::Nothing;
  }
  values_.refresh();
  return Refresh::Display;
}

void Recorder::startRecording() {
  startPending_ = false;
  log_.add("Start record");
  screen_.setElapsed(0);
  SetRecordingDisplay(true);
  recording_ = true;
}

Recorder::Refresh Recorder::cycleRecording(Milliseconds pollTime) {
  recordStart_.follow(pollTime);
  if (!stopRequested_ && stopFires(pollTime)) armStop();
  if (!rowDue(pollTime)) return cycleWithoutRow(pollTime);
  addToPreTrigger(pollTime);
  // From the schedule, not from now: a late row does not delay the following ones.
  nextSampleTime_ += static_cast<Milliseconds>(plan_.samplePeriod);
  writeRow(pollTime);
  values_.refresh();
  if (stopRequested_) countDown();
  return Refresh::Display;
}

Recorder::Refresh Recorder::cycleWithoutRow(Milliseconds pollTime) {
  if (millisecondsBetween(pollTime, nextSampleTime_) <= kQuietBeforeRow) return Refresh::Display;
  if (stopRequested_ && plan_.samplePeriod >= kLongPeriod) endRecording();
  values_.refresh();
  return Refresh::Display;
}

bool Recorder::stopFires(Milliseconds pollTime) {
  switch (stopTrigger_->typeTrigger) {
    case oTarnTrigger::kTime:
      return recordStart_.millisecondsTo(pollTime) > std::int64_t{stopTrigger_->timeSeconde} * 1000;
    case oTarnTrigger::kChannel:
      return stop_.evaluate();
    default:
      return false;
  }
}

void Recorder::armStop() {
  stopRequested_ = stopMarkPending_ = true;
  postCountdown_ = plan_.postTriggerPoints;
  samples_.stopMarked();
  screen_.setRecording(RecordingFact::Requested);
}

void Recorder::writeRow(Milliseconds pollTime) {
  screen_.setElapsed(recordStart_.millisecondsTo(pollTime));
  const std::string& mark = takeMark();
  if (DataFile* const file = files_.record())
    if (skipOnFailure([&] { file->writeCurrent(current_, recordStart_, mark); }))
      ++rowsWritten_, ++rowsInFile_;
}

/// Where both apply, the row is marked "Stop", and the event's mark moves to the next row, if there is one.
const std::string& Recorder::takeMark() {
  if (std::exchange(stopMarkPending_, false))
    mark_ = "Stop";
  else if (events_.takeMark())
    mark_ = "event" + std::to_string(events_.count());
  else
    mark_.clear();
  return mark_;
}

void Recorder::countDown() {
  if (--postCountdown_ < 0) endRecording();
}

void Recorder::endRecording() {
  stopRequested_ = recording_ = false;
  dropMarks();
  ++finishedRecordings_;
  SetRecordingDisplay(false);
  log_.add("Stop record");
  closeFiles();
}

void Recorder::endIfStopArmed() {
  if (!std::exchange(stopRequested_, false)) return;
  if (std::exchange(recording_, false)) ++finishedRecordings_;
  dropMarks();
  SetRecordingDisplay(false);
  closeFiles();
}

/// The file of an event may be among them.
void Recorder::closeFiles() {
  files_.CloseRecordFiles();
  showEvent();
  fileEnded();
}

void Recorder::endWithAcquisition() {
  if (std::exchange(recording_, false)) ++finishedRecordings_;
  forgetRequests();
  dropMarks();
  events_.end();
  showEvent();
}

void Recorder::closeAllFiles() {
  files_.closeAll();
  fileEnded();
}

void Recorder::suspend() {
  startPending_ = false;
  stopRequested_ = true;
  tellEvent({});  // no cycle comes that would end the event
}

void Recorder::dropMarks() {
  stopMarkPending_ = false;
  events_.dropMark();
}

}  // namespace tarnlog
