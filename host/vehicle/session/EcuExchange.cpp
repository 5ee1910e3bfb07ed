#include "host/vehicle/session/EcuExchange.h"

#include <algorithm>
#include <utility>

#include "host/service/Protocol.h"
#include "host/service/ResponseCheck.h"
#include "host/service/Timing.h"

namespace tarnlog::host {
namespace {

using std::chrono::milliseconds;

/// For the refusal of a request that asks for no answer.
constexpr milliseconds kRefusalTime = 2 * timing::kP2;
/// Until an ECU that is busy, or could not be reached for a moment, is asked again.
constexpr milliseconds kBusyPause{20};
/// What P2 and P2* do not count: the way there and back.
constexpr milliseconds kWay{100};

}  // namespace

void EcuExchange::start(const LinkTarget& target, std::span<const std::uint8_t> request,
                        milliseconds timeout) {
  target_ = target;
  request_.assign(request.begin(), request.end());
  timeout_ = timeout;
  last_ = Moment::max();
  noAnswer_ = suppressesAnswer(protocolOf(target.protocol), request);
  result_.response.clear();
  result_.foreign.clear();
  result_.obstacle.clear();
  attempt();
}

void EcuExchange::attempt() {
  pending_ = false;
  verification_.reset();
  if (!link_.matchesAnswers())
    verification_ = late_.before(protocolOf(target_.protocol), request_, clock_.now(), timeout_);
  if (verification_)
    verify(*verification_);
  else
    ask();
}

void EcuExchange::verify(const LateAnswers::Verification& verification) {
  if (!link_.send(target_, verification.request)) return unreachable();
  late_.verificationSent();
  due_ = clock_.now() + verification.timeout;
  state_ = State::verifying;
}

void EcuExchange::ask() {
  if (!link_.matchesAnswers()) late_.sent(request_, clock_.now(), timeout_);
  if (!link_.send(target_, request_)) return unreachable();
  result_.times.sent = clock_.now();
  last_ = std::min(last_, result_.times.sent + timeout_);
  due_ = result_.times.sent +
         (noAnswer_ ? std::min<std::chrono::microseconds>(timeout_, kRefusalTime) : patience());
  state_ = State::awaiting;
}

std::chrono::microseconds EcuExchange::patience() const {
  if (!p2_) return timeout_;
  const std::chrono::microseconds told = *p2_ + kWay + slowest_;
  return *p2_ > timeout_ ? told : std::min<std::chrono::microseconds>(timeout_, told);
}

/// DiagnosticSessionControl's positive response has P2 in milliseconds and P2* in steps of ten (ISO 14229-1).
void EcuExchange::learnTimes() {
  constexpr std::size_t kWithTimes = 6;
  const Link::Bytes& told = result_.response;
  if (request_[0] != service::kDiagnosticSessionControl || told.size() != kWithTimes ||
      protocolOf(target_.protocol) != Protocol::uds)
    return;
  const auto number = [&](std::size_t at) { return told[at] << 8 | told[at + 1]; };
  const milliseconds p2(number(2));
  const milliseconds p2Star(number(4) * 10);
  if (p2 > p2TooShort_) p2_ = p2;
  if (p2Star > p2StarTooShort_) p2Star_ = p2Star;
}

/// Times that are too short for the way, or not true, are not believed again.
void EcuExchange::doubtTimes() {
  if (!pending_ && p2_ && patience() < timeout_) p2TooShort_ = *std::exchange(p2_, {});
  if (pending_ && p2Star_ && clock_.now() < result_.times.sent + pendingTimeout_)
    p2StarTooShort_ = *std::exchange(p2Star_, {});
}

void EcuExchange::came(Link::Bytes& response) {
  if (state_ == State::verifying) {
    if (late_.isVerifiedBy(verification_->request, response)) ask();
    return;
  }
  if (state_ != State::awaiting) return late_.unasked();
  const ResponseClass kind = classifyResponse(request_, response);
  if (kind == ResponseClass::pending) {
    pending_ = true;
    due_ = result_.times.sent + pendingTimeout_;
    if (p2Star_) due_ = std::min(due_, clock_.now() + *p2Star_ + kWay + slowest_);
  } else if (kind == ResponseClass::foreign) {
    result_.foreign.swap(response);
  } else {
    result_.response.swap(response);
    if (kind == ResponseClass::positive) learnTimes();
    finish(kind == ResponseClass::positive ? ExchangeOutcome::answered : ExchangeOutcome::refused);
  }
}

void EcuExchange::unasked() { late_.unasked(); }

void EcuExchange::silent() {
  if (state_ == State::verifying) {
    late_.notVerified(*verification_);
    verification_->required ? finish(ExchangeOutcome::silent) : ask();
  } else if (state_ == State::awaiting) {
    finish(pending_ ? ExchangeOutcome::onlyPending : ExchangeOutcome::silent);
  }
}

void EcuExchange::unreachable() {
  result_.obstacle = link_.obstacle();
  result_.outcome = ExchangeOutcome::unreachable;
  result_.times.received = clock_.now();
  state_ = State::over;
}

void EcuExchange::passTime(Moment now) {
  if (isOver() || now < due_) return;
  if (state_ == State::pausing)
    attempt();
  else
    silent();
}

void EcuExchange::abandon() {
  if (!isOver()) late_.givenUp(clock_.now());
  state_ = State::over;
}

void EcuExchange::withdraw() {
  if (state_ == State::verifying) late_.verificationLost();
  if (state_ == State::awaiting) late_.noneExpected();
  state_ = State::over;
}

void EcuExchange::repeatLater() {
  withdraw();
  due_ = clock_.now() + kBusyPause;
  state_ = State::pausing;
}

void EcuExchange::finish(ExchangeOutcome outcome) {
  using Outcome = ExchangeOutcome;
  const Moment now = clock_.now();
  const bool asked = state_ == State::awaiting;
  result_.times.received = now;
  result_.outcome = outcome;
  state_ = State::over;
  if (outcome == Outcome::answered || outcome == Outcome::refused) {
    late_.answered();
    if (!pending_) slowest_ = std::max(slowest_, now - result_.times.sent);
  } else if (asked) {
    late_.givenUp(now);
    doubtTimes();
  }
  if (outcome == Outcome::silent && asked && noAnswer_) {
    late_.noneExpected();
    result_.outcome = Outcome::answered;
  }
  if (outcome != Outcome::refused || !isBusy(result_.response)) return;
  if (now + kBusyPause >= last_ || link_.stopAsked()) return;
  due_ = now + kBusyPause;
  state_ = State::pausing;
}

}  // namespace tarnlog::host
