#include "apps/tarn-record/RunDirector.h"

namespace tarnlog::record {

RunDirector::RunDirector(TarnAcq& acq, const Clock& clock, RunLimits limits)
    : acq_(acq), clock_(clock), limits_(limits), countedFrom_(clock.milliseconds()) {}

void RunDirector::step(bool stopRequested, bool eventRequested) {
  if (ended_) return;
  if (eventRequested) acq_.RecordUserEvent();
  if (stopRequested || timeOver() || (limits_.recordings && acq_.finishedRecordings() >= *limits_.recordings))
    stopping_ = true;
  if (stopping_)
    stop();
  else if (limits_.startManually)
    pressStart();
}

/// Where the file of a manual start cannot be opened, nothing can come of the run any more.
void RunDirector::pressStart() {
  if (!acq_.hasRow() || acq_.AcqState() != TarnAcq::kCommunicate || acq_.Recording()) return;
  if (acq_.startPending()) return;
  acq_.ToggleRecording();
  if (!acq_.startPending()) stopping_ = true;
}

bool RunDirector::timeOver() {
  if (!dataSeen_ && acq_.hasRow()) {
    dataSeen_ = true;
    countedFrom_ = clock_.milliseconds();
  }
  const bool over = limits_.duration &&
                    millisecondsBetween(countedFrom_, clock_.milliseconds()) >= *limits_.duration * 1000;
  if (over && !dataSeen_) nothingArrived_ = true;
  return over;
}

/// A recording is stopped like with the button and keeps its post-trigger rows; the acquisition ends after
/// its end.
void RunDirector::stop() {
  if (!acq_.Recording() && !acq_.startPending()) {
    ended_ = true;
    acq_.AskStopAcqNow();
  } else if (acq_.Recording() && !stopPressed_) {
    stopPressed_ = true;
    acq_.ToggleRecording();
    // Not polling just now: no further row can come, so the recording ends here.
    if (acq_.AcqState() != TarnAcq::kCommunicate) {
      ended_ = true;
      acq_.AskStopAcqNow();
    }
  }
}

}  // namespace tarnlog::record
