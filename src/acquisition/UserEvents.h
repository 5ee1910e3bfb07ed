#pragma once

#include <cstdint>

#include "acquisition/RecordFiles.h"
#include "acquisition/RollingBuffer.h"
#include "acquisition/TimeOrigin.h"

namespace tarnlog {

/// User events: each has a file of its own with the polling cycles around it, and marks the next row of the
/// record file.
class UserEvents {
 public:
  static constexpr std::int32_t kRowsAfter = 20;

  explicit UserEvents(RecordFiles& files) : files_(files) {}

  /// Forgets everything; event numbers run over all recordings of one acquisition.
  void reset();
  bool active() const { return active_; }
  /// Polling cycles until the file is complete; 0 when none is open.
  std::int32_t cyclesLeft() const { return active_ && files_.event() != nullptr ? rowsLeft_ : 0; }
  /// Number of the last event that belongs to a record file.
  std::int32_t count() const { return count_; }

  /// Opens the event file and writes the history. While recording, `recordStart` is its time origin; while
  /// not, times count from the newest row. Raises when the file cannot be opened; nothing is activated then.
  void recordWhileIdle(RollingBuffer& history);
  void recordWhileRecording(RollingBuffer& history, TimeOrigin recordStart);

  /// After each polling cycle: one more row, and the end of the file after the last.
  void addRow(RollingBuffer& current);

  /// The record row that is being written carries the mark; true at most once per event.
  bool takeMark();
  void dropMark() { markPending_ = false; }
  void end();

 private:
  void activate(RollingBuffer& history, TimeOrigin timeOrigin);

  RecordFiles& files_;
  bool active_ = false;
  bool markPending_ = false;
  std::int32_t rowsLeft_ = 0;
  std::int32_t count_ = 0;
  TimeOrigin timeOrigin_;
};

}  // namespace tarnlog
