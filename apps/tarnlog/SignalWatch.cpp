#include "apps/tarnlog/SignalWatch.h"

#include <QObject>
#include <QTimer>
#include <utility>

#include "apps/common/Signals.h"

namespace tarnlog {

SignalWatch::SignalWatch(std::function<void()> stop, std::function<void()> event)
    : stop_(std::move(stop)),
      event_(std::move(event)),
      notifier_(Signals::wakeDescriptor(), QSocketNotifier::Read) {
  QObject::connect(&notifier_, &QSocketNotifier::activated, &notifier_, [this] { look(); });
  // One may have come before there was anybody to wake.
  QTimer::singleShot(0, &notifier_, [this] { look(); });
}

void SignalWatch::look() {
  Signals::clearWake();
  if (Signals::takeEvent()) event_();
  if (Signals::stopRequested()) stop_();
}

}  // namespace tarnlog
