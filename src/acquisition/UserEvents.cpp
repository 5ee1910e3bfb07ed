#include "acquisition/UserEvents.h"

#include <utility>

#include "platform/base/TarnError.h"

namespace tarnlog {

void UserEvents::reset() {
  active_ = markPending_ = false;
  rowsLeft_ = count_ = 0;
}

void UserEvents::recordWhileIdle(RollingBuffer& history) {
  files_.openEventFile(0);
  markPending_ = false;
  Milliseconds newest = 0;
  history.GetTime(newest);
  activate(history, newest);
}

void UserEvents::recordWhileRecording(RollingBuffer& history, TimeOrigin recordStart) {
  files_.openEventFile(count_ + 1);
  ++count_;
  markPending_ = true;
  activate(history, recordStart);
}

void UserEvents::activate(RollingBuffer& history, TimeOrigin timeOrigin) {
  timeOrigin_ = timeOrigin;
  skipOnFailure([&] { files_.event()->writeBuffer(history, timeOrigin, "event"); });
  active_ = true;
  rowsLeft_ = kRowsAfter;
}

void UserEvents::addRow(RollingBuffer& current) {
  if (!active_) return;
  // The end of a recording closes an XML event file early; the remaining rows have nowhere to go.
  if (DataFile* const file = files_.event())
    skipOnFailure([&] { file->writeCurrent(current, timeOrigin_, ""); });
  if (--rowsLeft_ < 1) {
    active_ = false;
    files_.closeEventFile();
  }
}

bool UserEvents::takeMark() { return std::exchange(markPending_, false); }

void UserEvents::end() { active_ = markPending_ = false; }

}  // namespace tarnlog
