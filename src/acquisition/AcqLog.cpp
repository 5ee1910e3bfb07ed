#include "acquisition/AcqLog.h"

#include "platform/text/DateText.h"

namespace tarnlog {

void AcqLog::clear() {
  screen_.clearLog();
  lines_ = 0;
}

void AcqLog::add(const std::string& text) {
  // The colons are literal whatever the user's time separator is.
  const std::string line = formatDateTime(clock_.now(), "Hh:Nn:ss ", UserLocale{}) + text;
  if (lines_ > kMostLinesBeforeAdding) {
    screen_.removeLogLine(1);
    --lines_;
  }
  screen_.appendLogLine(line);
  ++lines_;
  if (logAdded_) logAdded_(line);
}

}  // namespace tarnlog
