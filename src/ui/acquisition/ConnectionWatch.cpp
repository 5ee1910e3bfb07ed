#include "ui/acquisition/ConnectionWatch.h"

#include <algorithm>
#include <utility>

#include "acquisition/TarnAcq.h"

namespace tarnlog {

namespace {

constexpr qint64 kOld = 1000;   ///< ms
constexpr int kInOutage = 100;  ///< ms between looks: values that come back are soon seen to be fresh

}  // namespace

ConnectionWatch::ConnectionWatch(const TarnAcq& acq, QObject* parent) : QObject(parent), acq_(acq) {
  timer_.setSingleShot(true);
  connect(&timer_, &QTimer::timeout, this, &ConnectionWatch::look);
}

/// A cycle of many requests may take longer than a second: while answers come, it is no outage. An outage is
/// over with the first complete cycle, not with an answer that the next failure follows.
qint64 ConnectionWatch::seconds() const {
  const qint64 cycle = acq_.millisecondsSinceCycle().value_or(0);
  const bool answering = acq_.AcqState() == TarnAcq::kCommunicate && seconds_ == 0 &&
                         acq_.millisecondsSinceAnswer().value_or(0) < kOld;
  return cycle < kOld || answering ? 0 : cycle / 1000;
}

void ConnectionWatch::look() {
  const qint64 now = seconds();
  if (acq_.AcqState() == TarnAcq::kIdle)
    timer_.stop();
  else
    timer_.start(now > 0 ? kInOutage
                         : static_cast<int>(std::max<qint64>(
                               kOld - acq_.millisecondsSinceAnswer().value_or(0), kInOutage)));
  if (std::exchange(seconds_, now) != now) emit aged(now);
}

}  // namespace tarnlog
