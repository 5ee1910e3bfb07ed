#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <limits>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/link/BackOff.h"
#include "host/link/Link.h"
#include "host/link/LinkClock.h"
#include "host/vehicle/session/EcuLane.h"

namespace tarnlog::host {

/// Requests and responses over a link. The link is opened by the first exchange, and again by the first one
/// after `end` or after a failure of the link.
///
/// Whoever asks waits for one exchange after the other. Where the link goes side by side, what will be asked
/// next can be told ahead: it is sent as soon as its ECU has answered what it was asked before, while other
/// ECUs are waited for, and `exchange` takes what came of it.
class Conversation {
 public:
  using Outcome = ExchangeOutcome;
  using Times = ExchangeTimes;

  /// `pendingTimeout` limits an exchange in which the ECU says "response pending".
  Conversation(Link& link, LinkClock& clock, std::chrono::milliseconds pendingTimeout);

  /// Sends and waits for the response that belongs to it (see EcuExchange). The link's failures are
  /// TarnErrors, and so is an exchange begun while one is under way (by the idle hook). A request that fails
  /// again and again raises later each time, up to two seconds after the failure before: whoever repeats it
  /// at once need not know.
  Outcome exchange(const LinkTarget& target, std::span<const std::uint8_t> request,
                   std::chrono::milliseconds timeout, Link::Bytes& response);

  /// Several ECUs can be asked at a time.
  bool goesSideBySide() const { return link_.sideBySide(); }
  /// What will be asked for by the next `exchange` with this ECU, or behind what was told before. Nothing is
  /// sent before the next `exchange`.
  void askAhead(const LinkTarget& target, std::span<const std::uint8_t> request,
                std::chrono::milliseconds timeout);
  /// What was told ahead and not asked for is over: not sent any more, or its answer passed over.
  void forgetAhead();
  /// Something told ahead to this ECU is not answered yet.
  bool isAskedAhead(const LinkTarget& target);

  /// One more response to the last exchange's request: on older buses an answer may come in several. False
  /// when none comes in time.
  bool next(std::span<const std::uint8_t> request, std::chrono::milliseconds timeout, Link::Bytes& response);
  /// Why the last exchange was silent: "no answer to 01 0C within 200 ms", "no answer to 01 0C: the adapter
  /// says NO DATA". `to` may be empty.
  std::string silence(std::string_view to) const;
  /// Why the ECU of the last exchange, or those looked for, cannot be reached; empty when they can.
  const std::string& obstacle() const { return obstacle_; }

  /// Opens the link without asking anybody.
  void connect();
  /// As the link's.
  std::vector<LinkTarget> findEcus();
  bool takesSeveralPids(const LinkTarget& target) const { return link_.takesSeveralPids(target); }
  std::size_t mostIdentifiers(const LinkTarget& target) const { return link_.mostIdentifiers(target); }
  bool busy() const { return busy_; }
  std::string adapterName() const { return link_.adapterName(); }
  const ServiceCounts& servicesSent() const { return link_.servicesSent(); }
  /// Of the last exchange.
  const Times& times() const { return times_; }
  /// How many exchanges were answered, in whatever way.
  std::uint64_t answers() const { return answers_; }
  /// Waits like an exchange; not longer than somebody wants to end.
  void pause(std::chrono::milliseconds time);
  std::chrono::milliseconds pendingTimeout() const { return pendingTimeout_; }

  /// Closes the link, whoever opened it; during an exchange, as soon as it is over.
  void end();

 private:
  static constexpr std::size_t kAnyNumber = std::numeric_limits<std::size_t>::max();
  class Busy;

  EcuLane* knownLane(std::int64_t answerer);
  EcuLane& laneOf(const LinkTarget& target);
  ExchangeResult& ask(EcuLane& lane, const LinkTarget& target, std::span<const std::uint8_t> request,
                      std::chrono::milliseconds timeout);
  void step();
  void startAhead();
  void startSome();
  void readAway();
  void readAll();
  void dispatch(Link::Received received);
  void turnedAway(EcuLane& lane);
  std::size_t openLanes() const;
  void close();
  void returnLater(const LinkTarget& target, std::span<const std::uint8_t> request);
  void noteSuccess(const LinkTarget& target, std::span<const std::uint8_t> request);
  void waitUntil(Moment moment);

  Link& link_;
  LinkClock& clock_;
  std::chrono::milliseconds pendingTimeout_;
  std::deque<EcuLane> lanes_;          ///< few: as many as ECUs were asked
  std::size_t mostOpen_ = kAnyNumber;  ///< of them at a time
  Moment oneMore_{};                   ///< when that grows, where there is a limit
  Link::Bytes came_;                   ///< kept for its capacity
  // Of the last exchange:
  std::chrono::milliseconds timeout_{};
  Link::Bytes foreign_;
  std::string obstacle_;
  Times times_;
  bool busy_ = false;
  bool endRequested_ = false;
  std::uint64_t answers_ = 0;
  std::map<std::pair<std::int32_t, Link::Bytes>, BackOff> failing_;  ///< by address and request
};

}  // namespace tarnlog::host
