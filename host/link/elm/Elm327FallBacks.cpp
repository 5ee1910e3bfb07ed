#include <algorithm>
#include <array>

#include "host/link/elm/Elm327Link.h"
#include "host/link/elm/ElmSetup.h"
#include "host/service/Services.h"
#include "platform/base/TarnError.h"

/// What an adapter's link tries instead when a request is not answered: the table, when each row helps, and
/// what it does.
namespace tarnlog::host {
namespace {

constexpr int kMostRepeats = 4;
constexpr int kMostTroubles = 3;

}  // namespace

/// What came, and what is done instead: the first row that applies. Then the request is sent again, where
/// that may be done.
const std::array<Elm327Link::FallBack, Elm327Link::kFallBackCount> Elm327Link::kFallBacks{{
    // The ECU seems silent. The adapter was told to wait less than usual.
    {Came::silence, usualTimeout, &Elm327Link::wasShortened, &Elm327Link::lengthenTimeout},
    // The number of frames that the adapter was told may have been the fault.
    {Came::silence, withoutFrameCount, &Elm327Link::wasCounted, &Elm327Link::justAsk},
    // It may accept functional addressing only.
    {Came::silence, functionalAddressing, &Elm327Link::mayAskFunctionally, &Elm327Link::askFunctionally},
    // Some adapters work with their default header only; a reset restores it.
    {Came::silence, noAddress, &Elm327Link::mayForgetAddress, &Elm327Link::forgetAddress},
    // On the K line it may have ended the communication.
    {Came::silence, newCommunication, &Elm327Link::mayNeedCommunication, &Elm327Link::startCommunication},
    // It may need more time than the adapter gives it.
    {Came::silence, longerTimeout, &Elm327Link::mayNeedTime, &Elm327Link::giveTime},
    // One that has answered before may have been disturbed.
    {Came::silence, onceMore, &Elm327Link::mayBeDisturbed, &Elm327Link::justAsk},
    // The adapter does not understand. It may not support a frame count ...
    {Came::unknownCommand, neverFrameCounts, &Elm327Link::wasCounted, &Elm327Link::stopCounting},
    // ... or a character was lost.
    {Came::unknownCommand, again, &Elm327Link::isFirst, &Elm327Link::justAsk},
    {Came::busTrouble, untilBusWorks, &Elm327Link::mayBusRecover, &Elm327Link::noteTrouble},
    // Not even the adapter's words come whole: the raised rate may be too much for the line.
    {Came::damage, slowerLine, &Elm327Link::mayBeTooFast, &Elm327Link::slowDown},
    {Came::damage, distrustFrameCount, &Elm327Link::always, &Elm327Link::distrustCount},
}};

bool Elm327Link::retry(Moment deadline) {
  if (exchange_.attempt.answered || clock_.now() >= deadline || stopAsked()) return false;
  const Came came = whatCame();
  const auto row = std::find_if(kFallBacks.begin(), kFallBacks.end(), [&](const FallBack& each) {
    return each.came == came && (this->*each.helps)(deadline);
  });
  if (row != kFallBacks.end()) {
    exchange_.tried.set(row->instead);
    (this->*row->prepare)(deadline);
    if (repeat()) return true;
  }
  giveUp(came);
  return false;
}

Elm327Link::Came Elm327Link::whatCame() const {
  const Attempt& attempt = exchange_.attempt;
  switch (attempt.notice ? attempt.notice->notice : ElmNotice::none) {
    case ElmNotice::noData:
      return Came::silence;
    case ElmNotice::unknownCommand:
      return Came::unknownCommand;
    case ElmNotice::busTrouble:
      return Came::busTrouble;
    case ElmNotice::none:
      return attempt.others ? Came::silence : Came::damage;
    default:
      return Came::damage;
  }
}

/// Nothing helps any more. The caller reports a missing response.
void Elm327Link::giveUp(Came came) {
  if (came == Came::busTrouble) failWithoutEcu(console_, exchange_.attempt.notice->text);
  // Some adapters know only a few requests, such as those for one PID.
  const bool understands = came != Came::unknownCommand || isObdRequest(exchange_.request);
  if (understands || wasCounted({}) || isFirst({})) return;
  throw EcuUnreachable(1, "Elm327Link", "the adapter does not understand the request " + text_);
}

bool Elm327Link::repeat() {
  if (!mayBeRepeated(exchange_.request) || exchange_.repeats >= kMostRepeats) return false;
  ++exchange_.repeats;
  ask(false);
  return true;
}

// --- when a fall-back helps

bool Elm327Link::wasShortened(Moment /*deadline*/) const { return adapter_.timeout() < kElmDefaultTimeout; }

bool Elm327Link::wasCounted(Moment /*deadline*/) const { return exchange_.attempt.expectedFrames > 0; }

/// This ECU has answered nothing yet, and functional addressing may be used.
bool Elm327Link::neverAnswered() const {
  if (exchange_.target.address == kFunctionalAddress || unnamed_ == Unnamed::several) return false;
  const auto reach = reach_.find(exchange_.target.address);
  return (reach == reach_.end() || !reach->second.answered) && isObdRequest(exchange_.request);
}

bool Elm327Link::mayAskFunctionally(Moment /*deadline*/) const {
  const auto reach = reach_.find(exchange_.target.address);
  const bool tried = reach != reach_.end() && reach->second.triedFunctional;
  return neverAnswered() && !tried && !exchange_.address.functional;
}

bool Elm327Link::mayForgetAddress(Moment /*deadline*/) const {
  return neverAnswered() && !triedByDefault_ && !adapter_.asksByDefault();
}

bool Elm327Link::mayNeedCommunication(Moment /*deadline*/) const {
  return adapter_.bus() == ElmBus::kwp && !exchange_.address.functional &&
         !exchange_.tried.test(newCommunication);
}

bool Elm327Link::mayNeedTime(Moment deadline) const { return stepsUntil(deadline) > adapter_.timeout(); }

bool Elm327Link::mayBeDisturbed(Moment /*deadline*/) const {
  const auto reach = reach_.find(exchange_.target.address);
  return reach != reach_.end() && reach->second.answered && !exchange_.tried.test(onceMore);
}

bool Elm327Link::isFirst(Moment /*deadline*/) const { return exchange_.repeats == 0; }

bool Elm327Link::mayBusRecover(Moment /*deadline*/) const { return exchange_.troubles + 1 < kMostTroubles; }

bool Elm327Link::mayBeTooFast(Moment /*deadline*/) const { return adapter_.isRaised() && isLineTooFast(); }

bool Elm327Link::always(Moment /*deadline*/) const { return true; }

// --- what is done before the request is sent again

void Elm327Link::lengthenTimeout(Moment /*deadline*/) { adapter_.setTimeout(kElmDefaultTimeout); }

void Elm327Link::justAsk(Moment /*deadline*/) {}

void Elm327Link::askFunctionally(Moment /*deadline*/) {
  reach_[exchange_.target.address].triedFunctional = true;
  exchange_.address = elmFunctional(exchange_.address, adapter_.bus());
}

void Elm327Link::forgetAddress(Moment /*deadline*/) {
  triedByDefault_ = byDefault_ = true;
  adapterName_ = adapter_.setUp();
  adapter_.selectBus(exchange_.target, exchange_.request);
  exchange_.address = elmFunctional(exchange_.address, adapter_.bus());
}

void Elm327Link::startCommunication(Moment /*deadline*/) { adapter_.restartCommunication(); }

void Elm327Link::giveTime(Moment deadline) { adapter_.setTimeout(static_cast<int>(stepsUntil(deadline))); }

/// The time left, in steps of the adapter's time-out.
std::int64_t Elm327Link::stepsUntil(Moment deadline) const {
  const auto given = deadline - kAdapterTime - exchange_.attempt.asked;
  return std::min<std::int64_t>(given / kElmTimeoutStep, kElmLongestTimeout);
}

void Elm327Link::stopCounting(Moment /*deadline*/) { frameCounts_.giveUp(); }

void Elm327Link::noteTrouble(Moment /*deadline*/) { ++exchange_.troubles; }

void Elm327Link::slowDown(Moment /*deadline*/) {
  distrustLine();
  adapterName_ = adapter_.setUp();
  adapter_.selectBus(exchange_.target, exchange_.request);
}

void Elm327Link::distrustCount(Moment deadline) {
  if (wasCounted(deadline)) frameCounts_.distrust(exchange_.target.address, exchange_.request);
}

}  // namespace tarnlog::host
