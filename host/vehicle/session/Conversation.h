#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/link/BackOff.h"
#include "host/link/Link.h"
#include "host/link/LinkClock.h"
#include "host/vehicle/session/LateAnswers.h"

namespace tarnlog::host {

/// Requests and responses over a link, one exchange at a time. The link is opened by the first exchange, and
/// again by the first one after `end` or after a failure of the link.
class Conversation {
 public:
  enum class Outcome : std::uint8_t {
    answered,     ///< `response` is the positive response, empty where the request asks for none
    refused,      ///< `response` is the negative response
    silent,       ///< no response in time
    onlyPending,  ///< "response pending" came, but not the response
    unreachable,  ///< the request cannot reach the ECU, while others can be asked: see `obstacle`
  };

  /// `pendingTimeout` limits an exchange in which the ECU says "response pending".
  Conversation(Link& link, LinkClock& clock, std::chrono::milliseconds pendingTimeout);

  /// Sends and waits for the response that belongs to it; responses to other requests, and late ones to this,
  /// are passed over. An ECU that is busy is asked again until `timeout` is over; a request that asks for no
  /// answer counts as answered when none came within 0.1 s. The link's failures are TarnErrors, and so is an
  /// exchange begun while one is under way (by the idle hook). A request that fails again and again raises
  /// later each time, up to two seconds after the failure before: whoever repeats it at once need not know.
  Outcome exchange(const LinkTarget& target, std::span<const std::uint8_t> request,
                   std::chrono::milliseconds timeout, Link::Bytes& response);

  /// One more response to the last exchange's request: on older buses an answer may come in several. False
  /// when none comes in time.
  bool next(std::span<const std::uint8_t> request, std::chrono::milliseconds timeout, Link::Bytes& response);
  /// Why the last exchange was silent: "no answer to 01 0C within 200 ms", "no answer to 01 0C: the adapter
  /// says NO DATA". `to` may be empty.
  std::string silence(std::string_view to) const;

  /// Why the ECU of the last exchange, or those looked for, cannot be reached; empty when they can.
  const std::string& obstacle() const { return link_.obstacle(); }

  /// Opens the link without asking anybody.
  void connect();
  /// As the link's.
  std::vector<LinkTarget> findEcus();
  bool takesSeveralPids(const LinkTarget& target) const { return link_.takesSeveralPids(target); }
  bool busy() const { return busy_; }
  std::string adapterName() const { return link_.adapterName(); }
  const ServiceCounts& servicesSent() const { return link_.servicesSent(); }
  /// When the request of the last exchange had left, and when its response was there, or nobody waited for it
  /// any more. An ECU that was busy was asked again: then of the last time.
  struct Times {
    Moment sent{};
    Moment received{};
  };
  const Times& times() const { return times_; }
  /// How many exchanges were answered, in whatever way.
  std::uint64_t answers() const { return answers_; }
  /// Waits like an exchange; not longer than somebody wants to end.
  void pause(std::chrono::milliseconds time);
  std::chrono::milliseconds pendingTimeout() const { return pendingTimeout_; }

  /// Closes the link, whoever opened it; during an exchange, as soon as it is over.
  void end();

 private:
  class Busy;

  Outcome ask(const LinkTarget& target, std::span<const std::uint8_t> request,
              std::chrono::milliseconds timeout, Link::Bytes& response);
  Outcome waitForResponse(std::span<const std::uint8_t> request, std::chrono::milliseconds timeout,
                          Link::Bytes& response);
  void returnLater(const LinkTarget& target, std::span<const std::uint8_t> request);
  void noteSuccess(const LinkTarget& target, std::span<const std::uint8_t> request);
  void waitUntil(Moment moment);

  Link& link_;
  LinkClock& clock_;
  std::chrono::milliseconds pendingTimeout_;
  std::chrono::milliseconds timeout_{};  ///< of the last exchange
  Link::Bytes foreign_;                  ///< came in it and answers something else
  LateAnswers lateAnswers_{link_, clock_};
  Times times_;
  bool busy_ = false;
  bool endRequested_ = false;
  std::uint64_t answers_ = 0;
  std::map<std::pair<std::int32_t, Link::Bytes>, BackOff> failing_;  ///< by address and request
};

}  // namespace tarnlog::host
