#include "host/vehicle/session/PolledRequest.h"

#include <utility>

#include "host/service/ResponseCheck.h"
#include "platform/text/Told.h"

namespace tarnlog::host {
namespace {

constexpr std::chrono::seconds kAskAgain{5};
constexpr int kMostSilences = 3;

using Outcome = Conversation::Outcome;

}  // namespace

/// No interval is stretched by the length of a cycle; what was missed is not made up for.
void PolledRequest::plan(Moment now, Moment first) {
  const Moment interval = request_.description().interval;
  asked_ = now >= due_;
  trials_ += asked_ && leftOut_ ? 1 : 0;
  if (!asked_ || leftOut_) return;
  due_ = interval > Moment{} ? first + ((now - first) / interval + 1) * interval : now;
}

/// Trials are short, so that they hold up nobody, but now and then: its answers may be slower than others.
VehicleRequest::Asking PolledRequest::asking() const {
  constexpr int kPatientTrial = 6;
  using Asking = VehicleRequest::Asking;
  if (!leftOut_) return Asking::usual;
  return trials_ % kPatientTrial == 0 ? Asking::patiently : Asking::onTrial;
}

void PolledRequest::askNext() {
  if (!leftOut_) due_ = {};
}

void PolledRequest::send() {
  cycle_.reach(position_);
  if (!asked_) return;
  const Outcome outcome = request_.ask(asking());
  if (outcome == Outcome::answered)
    takeBack();
  else if (request_.description().refusalIsError)
    throw request_.failure(outcome);
  else if (outcome == Outcome::refused && !isBusy(request_.received()))
    leaveOut(Told::tr("{} is refused ({}): left out, and asked again every 5 s", subject(),
                      refusalText(request_.received())));
  else if ((outcome == Outcome::silent || outcome == Outcome::onlyPending) && isLeftOutBySilence())
    leaveOut(Told::tr("{} is not answered: left out, and asked again every 5 s", subject()));
  else
    throw request_.failure(outcome);
}

std::optional<ferrox3::Exchange> PolledRequest::lastExchange() const {
  if (!asked_) return ferrox3::Exchange{.outcome = ferrox3::Exchange::Outcome::NotAsked};
  return request_.lastExchange();
}

/// False, so that the caller raises and the ECUs are initialised again, when this ECU gave no response at
/// all; for a request that is left out already, when no ECU did.
bool PolledRequest::isLeftOutBySilence() {
  const std::uint64_t ofEcu = request_.channel().answers();
  const std::uint64_t ofAll = polling_.conversation.answers();
  const bool ecuLives = std::exchange(ecuAnswers_, ofEcu) != ofEcu;
  const bool carLives = std::exchange(allAnswers_, ofAll) != ofAll;
  if (leftOut_) {
    due_ = polling_.clock.now() + kAskAgain;
    return carLives;
  }
  silences_ = ecuLives ? silences_ + 1 : 1;
  return silences_ >= kMostSilences;
}

void PolledRequest::takeBack() {
  silences_ = 0;
  if (!std::exchange(leftOut_, false)) return;
  due_ = {};
  tell(Told::tr("{} is answered again", subject()), true);
}

void PolledRequest::leaveOut(const std::string& notice) {
  due_ = polling_.clock.now() + kAskAgain;
  request_.setNotAvailable();
  if (leftOut_) return;
  leftOut_ = true;
  trials_ = 0;
  tell(notice, false);
}

std::string PolledRequest::subject() const { return request_.ecu().name() + ": " + request_.name(); }

void PolledRequest::tell(const std::string& text, bool over) const {
  if (polling_.notify) polling_.notify({subject(), text, over});
}

}  // namespace tarnlog::host
