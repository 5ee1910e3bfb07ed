#include "host/vehicle/session/Conversation.h"

#include <fmt/format.h>

#include <algorithm>

#include "host/service/HexText.h"
#include "host/service/ResponseCheck.h"
#include "platform/base/TarnError.h"

namespace tarnlog::host {

using std::chrono::ceil;
using std::chrono::milliseconds;

namespace {

constexpr milliseconds kLookAround{20};
/// Until a gateway that turned a request away is asked one more at a time.
constexpr std::chrono::seconds kOneMore{10};

}  // namespace

/// Marks an exchange as under way. An exchange that fails leaves the link in a state that nobody knows, so it
/// is closed like after `end`.
class Conversation::Busy {
 public:
  explicit Busy(Conversation& conversation) : conversation_(conversation) {
    if (conversation_.busy_) throw TarnError(1, "Conversation", "another request is on its way");
    conversation_.busy_ = true;
    conversation_.endRequested_ = false;
  }
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;
  ~Busy() {
    conversation_.busy_ = false;
    if (!finished_ || conversation_.endRequested_) skipOnFailure([this] { conversation_.close(); });
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
  response.clear();
  foreign_.clear();
  obstacle_.clear();
  timeout_ = timeout;
  try {
    link_.open();
    ExchangeResult& result = ask(laneOf(target), target, request, timeout);
    busy.finish();
    response.swap(result.response);
    foreign_.swap(result.foreign);
    obstacle_ = result.obstacle;
    times_ = result.times;
    if (result.outcome == Outcome::unreachable)
      returnLater(target, request);
    else if (result.outcome != Outcome::silent)
      noteSuccess(target, request);
    return result.outcome;
  } catch (const TarnError&) {
    returnLater(target, request);
    throw;
  }
}

EcuLane* Conversation::knownLane(std::int64_t answerer) {
  const auto known = std::ranges::find(lanes_, answerer, &EcuLane::answerer);
  return known == lanes_.end() ? nullptr : &*known;
}

EcuLane& Conversation::laneOf(const LinkTarget& target) {
  const std::int64_t answerer = link_.answererOf(target);
  EcuLane* const known = knownLane(answerer);
  return known != nullptr ? *known : lanes_.emplace_back(answerer, link_, clock_, pendingTimeout_);
}

/// What was told ahead comes in its order; anything else is asked in between.
ExchangeResult& Conversation::ask(EcuLane& lane, const LinkTarget& target,
                                  std::span<const std::uint8_t> request, milliseconds timeout) {
  if (lane.goesTo(request)) {
    startAhead();
    while (!lane.hasResult() && lane.hasAhead()) step();
    if (lane.hasResult()) return lane.takeResult();
  }
  lane.letOtherIn();
  while (!lane.exchange().isOver()) step();
  readAway();
  lane.startOther(target, request, timeout);
  startAhead();
  while (!lane.exchange().isOver()) step();
  return lane.takeOther();
}

void Conversation::askAhead(const LinkTarget& target, std::span<const std::uint8_t> request,
                            milliseconds timeout) {
  laneOf(target).askAhead(target, request, timeout);
}

void Conversation::forgetAhead() {
  for (EcuLane& lane : lanes_) lane.forgetAhead();
}

bool Conversation::isAskedAhead(const LinkTarget& target) {
  const EcuLane* const lane = knownLane(link_.answererOf(target));
  return lane != nullptr && lane->isBusyAhead();
}

/// Waits until something comes or time is over somewhere, and lets everybody go on.
void Conversation::step() {
  Moment due = Moment::max();
  bool awaits = false;
  Moment now = clock_.now();
  for (const EcuLane& lane : lanes_) {
    if (lane.exchange().isOver()) continue;
    // A long answer that has begun may take longer; its link gives it up, wanted or not.
    const bool comes = link_.isComing(lane.answerer());
    due = std::min(due, comes ? now + kLookAround : lane.exchange().due());
    awaits = awaits || comes || lane.exchange().awaits();
  }
  if (awaits) {
    const auto received = link_.receive(came_, ceil<milliseconds>(std::max(due - now, Moment(0))));
    dispatch(received);
    // Whoever was held up for long finds answers of several.
    if (now >= due) readAll();
    if (received != Link::Received::response) now = clock_.now();
  } else if (due != Moment::max()) {
    clock_.waitUntil(due, {});
    now = clock_.now();
    readAway();
  }
  for (EcuLane& lane : lanes_) {
    if (!link_.isComing(lane.answerer())) lane.exchange().passTime(now);
    lane.keepResult();
  }
  startAhead();
}

void Conversation::startAhead() {
  if (std::ranges::none_of(lanes_, &EcuLane::isReady)) return;
  readAway();
  for (EcuLane& lane : lanes_) lane.keepResult();
  if (mostOpen_ != kAnyNumber) return startSome();
  for (EcuLane& lane : lanes_) {
    if (!lane.isReady()) continue;
    lane.startNext();
    lane.keepResult();
  }
}

std::size_t Conversation::openLanes() const {
  return static_cast<std::size_t>(
      std::ranges::count_if(lanes_, [](const EcuLane& lane) { return !lane.exchange().isOver(); }));
}

/// The ECU with the most left to ask goes first, so that no single one is left over.
void Conversation::startSome() {
  if (clock_.now() >= oneMore_) {
    oneMore_ = clock_.now() + kOneMore;
    ++mostOpen_;
  }
  while (openLanes() < mostOpen_) {
    EcuLane* next = nullptr;
    for (EcuLane& lane : lanes_)
      if (lane.isReady() && (next == nullptr || lane.left() > next->left())) next = &lane;
    if (next == nullptr) return;
    next->startNext();
    next->keepResult();
  }
}

/// What has come already answers an earlier request, or one of another ECU.
void Conversation::readAway() {
  if (!link_.matchesAnswers()) readAll();
}

void Conversation::readAll() {
  constexpr int kMost = 1000;  // who floods must not hold the caller
  if (link_.matchesAnswers() && !link_.sideBySide()) return;
  for (int i = 0; i < kMost; ++i) {
    const auto received = link_.receive(came_, milliseconds(0));
    if (received == Link::Received::nothing) return;
    dispatch(received);
  }
}

void Conversation::dispatch(Link::Received received) {
  using Received = Link::Received;
  EcuLane* const known = knownLane(link_.answerer());
  if (known == nullptr) return;
  EcuLane& lane = *known;
  switch (received) {
    case Received::response:
      return lane.exchange().came(came_);
    case Received::unasked:
      return lane.exchange().unasked();
    case Received::turnedAway:
      return turnedAway(lane);
    case Received::unreachable:
      if (lane.exchange().awaits()) lane.exchange().unreachable();
      return;
    case Received::silent:
      return lane.exchange().silent();
    case Received::nothing:
      if (!link_.sideBySide()) lane.exchange().silent();
  }
}

/// A gateway that carries fewer requests at a time than there are ECUs says so only by turning one away.
void Conversation::turnedAway(EcuLane& lane) {
  if (!lane.exchange().awaits()) return;
  const std::size_t open = openLanes();
  if (open > 1) {
    mostOpen_ = open - 1;
    oneMore_ = clock_.now() + kOneMore;
    return lane.sendAgain();
  }
  if (open == 1) mostOpen_ = kAnyNumber;  // it was not for the others
  lane.exchange().withdraw();
  lane.exchange().unreachable();
}

void Conversation::close() {
  for (EcuLane& lane : lanes_) lane.abandon();
  mostOpen_ = kAnyNumber;
  link_.close();
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
  waitUntil(clock_.now() + time);
  busy.finish();
}

void Conversation::waitUntil(Moment moment) {
  while (clock_.now() < moment && !link_.stopAsked() && !endRequested_)
    clock_.waitUntil(std::min(moment, clock_.now() + kLookAround), [this] { link_.idle(); });
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
  link_.open();
  busy.finish();
}

std::vector<LinkTarget> Conversation::findEcus() {
  Busy busy(*this);
  link_.open();
  std::vector<LinkTarget> ecus = link_.findEcus();
  obstacle_ = link_.obstacle();
  busy.finish();
  return ecus;
}

void Conversation::end() {
  if (busy_)
    endRequested_ = true;
  else
    close();
}

}  // namespace tarnlog::host
