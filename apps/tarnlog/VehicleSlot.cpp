#include "apps/tarnlog/VehicleSlot.h"

#include <QPointer>
#include <QScopeGuard>
#include <utility>

#include "acquisition/TarnAcq.h"
#include "apps/tarnlog/LinkAddress.h"
#include "apps/tarnlog/OpeningProgress.h"
#include "platform/base/TarnError.h"
#include "ui/common/Convert.h"
#include "ui/main/TarnMain.h"
#include "ui/main/WhenIdle.h"

namespace tarnlog {

namespace {

constexpr qint64 kMoment = 300;  // ms

}  // namespace

VehicleSlot::VehicleSlot(Opener opener, std::string usualLink, TarnMain& recorder, QWidget& window)
    : opener_(std::move(opener)),
      usualLink_(std::move(usualLink)),
      recorder_(&recorder),
      window_(window),
      whenIdle_(new WhenIdle([this] { return communicating(); }, this)) {
  // From within the loop: whoever tells it may be the tick that ended the acquisition.
  connect(&recorder, &TarnMain::acquisitionStopped, this, [this] {
    if (auto then = std::exchange(afterAcquisition_, {}))
      QMetaObject::invokeMethod(this, std::move(then), Qt::QueuedConnection);
  });
}

VehicleSlot::~VehicleSlot() = default;

std::string VehicleSlot::link() const {
  const std::string link = linkOf(connection_);
  return link.empty() && vehicle_ != nullptr ? vehicle_->description().link : link;
}

std::string VehicleSlot::linkOf(const CarConnection& connection) const {
  return connection.link.empty() ? usualLink_ : connection.link;
}

bool VehicleSlot::communicating() const {
  return opening() || (vehicle_ != nullptr && vehicle_->session().communicating());
}

void VehicleSlot::whenIdle(std::function<void()> action) {
  userWaits_.start();
  whenIdle_->run([this, action = std::move(action)] {
    userWaits_.invalidate();
    action();
  });
}

bool VehicleSlot::endWanted() const {
  const bool impatient = userWaits_.isValid() && userWaits_.hasExpired(kMoment);
  return recorder_ == nullptr || impatient || recorder_->ctlTarnAcq().endAsked();
}

bool VehicleSlot::needsOurLink(const CarConnection& connection) const {
  return vehicle_ != nullptr && shareAddress(link(), linkOf(connection));
}

void VehicleSlot::change(const CarConnection& connection, Ended ended) {
  whenIdle([this, connection, ended = std::move(ended)] {
    if (!recorder_->configurationMayBeLost()) return;
    if (!needsOurLink(connection)) return openAndReplace(connection, ended);
    endAcquisition([this, connection, ended] {
      vehicle_->session().endCommunication();
      openAndReplace(connection, ended);
    });
  });
}

/// Not inside a request: that one would have to wait for the opening.
void VehicleSlot::openAndReplace(const CarConnection& connection, const Ended& ended) {
  whenIdle([this, connection, ended] {
    QString failure;
    try {
      const Vehicle vehicle = open(connection);
      return endAcquisition([this, vehicle, connection, ended] { replace(vehicle, connection, ended); });
    } catch (const TarnError& error) {
      failure = toQString(error.description());
    } catch (const OpeningCancelled&) {
      failure = "";
    }
    ended(failure);
  });
}

/// A car that is asked what it offers takes a while. Events run meanwhile, but nobody may use what is there.
VehicleSlot::Vehicle VehicleSlot::open(const CarConnection& connection) {
  const QString place = toQString(connection.link.empty() ? connection.vehicle : connection.link);
  OpeningProgress progress(window_, tr("Connecting to %1...").arg(place));
  opening_ = &progress;
  const auto opened = qScopeGuard([this] { opening_ = nullptr; });
  const QPointer<OpeningProgress> opening(&progress);
  const LinkHooks hooks{[opening] {
                          if (opening) opening->raiseIfCancelled();
                        },
                        [this, opening] { return opening ? opening->cancelled() : endWanted(); },
                        [opening](host::OpeningPhase phase) {
                          if (opening) opening->showStep(toQString(openingPhaseText(phase)));
                        }};
  try {
    Vehicle vehicle = opener_(connection, hooks);
    progress.raiseIfCancelled();
    return vehicle;
  } catch (const TarnError&) {
    if (progress.cancelled()) throw OpeningCancelled();
    throw;
  }
}

/// The old vehicle goes when the recorder has let it go; it comes back to the recorder when that cannot read
/// the new one.
void VehicleSlot::replace(const Vehicle& vehicle, const CarConnection& connection, const Ended& ended) {
  try {
    recorder_->setSession(&vehicle->session());
  } catch (const TarnError& error) {
    const QString failure = toQString(error.description());
    skipOnFailure([this] { recorder_->setSession(vehicle_ == nullptr ? nullptr : &vehicle_->session()); });
    return ended(failure);
  }
  vehicle->session().setNoticeHandler([this](const host::Notice& notice) {
    emit noticed(toQString(notice.subject), toQString(notice.text));
  });
  vehicle_ = vehicle;
  connection_ = connection;
  ended({});
}

/// A recording is asked about first.
void VehicleSlot::endAcquisition(const std::function<void()>& then) {
  recorder_->whenRecordingMayEnd([this, then] {
    if (recorder_->ctlTarnAcq().AcqState() == TarnAcq::kIdle) return then();
    afterAcquisition_ = [this, then] { whenIdle(then); };
    recorder_->stopAcquisition();
  });
}

void VehicleSlot::cancel() {
  whenIdle_->run([] {});
  userWaits_.invalidate();
  afterAcquisition_ = {};
  if (opening_ != nullptr) opening_->cancel();
}

}  // namespace tarnlog
