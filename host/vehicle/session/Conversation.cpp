#include "host/vehicle/session/Conversation.h"

#include <fmt/format.h>

#include <algorithm>

#include "host/service/HexText.h"
#include "host/service/ResponseCheck.h"
#include "host/service/Timing.h"
#include "platform/base/TarnError.h"

namespace tarnlog::host {

using std::chrono::ceil;
using std::chrono::milliseconds;

/// Marks an exchange as under way. An exchange that fails leaves the link in a state that nobody knows, so it
/// is closed like after `end`.
class Conversation::Busy {
 public:
  explicit Busy(Conversation& conversation) : conversation_(conversation) {
    if (conversation_.busy_) throw TarnError(1, "Conversation", "another request is on its way");
    conversation_.busy_ = true;
  }
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;
  ~Busy() {
    conversation_.busy_ = false;
    if (!finished_ || conversation_.endRequested_) skipOnFailure([this] { conversation_.link_.close(); });
  }
  void finish() { finished_ = true; }

 private:
  Conversation& conversation_;
  bool finished_ = false;
};

Conversation::Conversation(Link& link, LinkClock& clock, milliseconds pendingTimeout)
    : link_(link), clock_(clock), pendingTimeout_(pendingTimeout) {}

Conversation::Outcome Conversation::exchange(const LinkTarget& target, std::span<const std::uint8_t> request,
                                             milliseconds timeout, Link::Bytes& response) {
  Busy busy(*this);
  endRequested_ = false;
  response.clear();
  foreign_.clear();
  timeout_ = timeout;
  try {
    link_.open();
    const Outcome outcome = ask(target, request, timeout, response);
    busy.finish();
    if (outcome == Outcome::unreachable)
      returnLater(target, request);
    else if (outcome != Outcome::silent)
      noteSuccess(target, request);
    return outcome;
  } catch (const TarnError&) {
    returnLater(target, request);
    throw;
  }
}

void Conversation::returnLater(const LinkTarget& target, std::span<const std::uint8_t> request) {
  const auto failing =
      failing_.try_emplace({target.address, Link::Bytes(request.begin(), request.end())}, clock_).first;
  waitUntil(failing->second.due());
  failing->second.failed();
}

void Conversation::noteSuccess(const LinkTarget& target, std::span<const std::uint8_t> request) {
  ++answers_;
  if (!failing_.empty()) failing_.erase({target.address, Link::Bytes(request.begin(), request.end())});
}

void Conversation::pause(milliseconds time) {
  Busy busy(*this);
  endRequested_ = false;
  waitUntil(clock_.now() + time);
  busy.finish();
}

void Conversation::waitUntil(Moment moment) {
  constexpr milliseconds kLookAround{20};
  while (clock_.now() < moment && !link_.stopAsked() && !endRequested_)
    clock_.waitUntil(std::min(moment, clock_.now() + kLookAround), [this] { link_.idle(); });
}

Conversation::Outcome Conversation::ask(const LinkTarget& target, std::span<const std::uint8_t> request,
                                        milliseconds timeout, Link::Bytes& response) {
  constexpr milliseconds kRefusalTime = 2 * timing::kP2;
  constexpr milliseconds kBusyPause{20};
  const bool noAnswer = suppressesAnswer(protocolOf(target.protocol), request);
  const Moment last = clock_.now() + timeout;
  for (;;) {
    const LateAnswers::Way way = lateAnswers_.readAway(target, request, timeout);
    if (way == LateAnswers::Way::blocked) return Outcome::silent;
    if (way == LateAnswers::Way::unreachable || !link_.send(target, request)) return Outcome::unreachable;
    times_.sent = clock_.now();
    const Outcome outcome =
        waitForResponse(request, noAnswer ? std::min(timeout, kRefusalTime) : timeout, response);
    times_.received = clock_.now();
    if (outcome == Outcome::unreachable) return outcome;
    if (outcome == Outcome::answered || outcome == Outcome::refused)
      lateAnswers_.answered();
    else
      lateAnswers_.givenUp();
    if (outcome == Outcome::silent && noAnswer) {
      lateAnswers_.noneExpected();
      return Outcome::answered;
    }
    const Moment again = clock_.now() + kBusyPause;
    const bool askAgain = outcome == Outcome::refused && isBusy(response) && again < last;
    if (!askAgain || link_.stopAsked()) return outcome;
    clock_.waitUntil(again, {});
  }
}

bool Conversation::next(std::span<const std::uint8_t> request, milliseconds timeout, Link::Bytes& response) {
  if (!link_.isOpen()) return false;
  Busy busy(*this);
  const bool came = link_.receive(response, timeout) == Link::Received::response &&
                    classifyResponse(request, response) == ResponseClass::positive;
  busy.finish();
  return came;
}

std::string Conversation::silence(std::string_view to) const {
  const std::string what = to.empty() ? "no answer" : fmt::format("no answer to {}", to);
  if (!foreign_.empty()) return fmt::format("{}, but {}", what, shortHexText(foreign_));
  const std::string said = link_.silence();
  return said.empty() ? fmt::format("{} within {} ms", what, timeout_.count())
                      : fmt::format("{}: {}", what, said);
}

void Conversation::connect() {
  Busy busy(*this);
  endRequested_ = false;
  link_.open();
  busy.finish();
}

std::vector<LinkTarget> Conversation::findEcus() {
  Busy busy(*this);
  endRequested_ = false;
  link_.open();
  std::vector<LinkTarget> ecus = link_.findEcus();
  busy.finish();
  return ecus;
}

Conversation::Outcome Conversation::waitForResponse(std::span<const std::uint8_t> request,
                                                    milliseconds timeout, Link::Bytes& response) {
  const Moment start = clock_.now();
  Moment deadline = start + timeout;
  bool pending = false;
  for (Moment now = start; now <= deadline; now = clock_.now()) {
    const auto received = link_.receive(response, ceil<milliseconds>(deadline - now));
    if (received == Link::Received::unreachable) return Outcome::unreachable;
    if (received == Link::Received::nothing) break;
    switch (classifyResponse(request, response)) {
      case ResponseClass::positive:
        return Outcome::answered;
      case ResponseClass::negative:
        return Outcome::refused;
      case ResponseClass::pending:
        pending = true;
        deadline = start + pendingTimeout_;
        break;
      case ResponseClass::foreign:
        foreign_ = response;
        break;
    }
  }
  response.clear();
  return pending ? Outcome::onlyPending : Outcome::silent;
}

void Conversation::end() {
  if (busy_)
    endRequested_ = true;
  else
    link_.close();
}

}  // namespace tarnlog::host
