#pragma once

#include <chrono>
#include <cstdint>
#include <span>
#include <vector>

#include "host/link/Link.h"
#include "host/link/LinkClock.h"

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
  };

  /// `pendingTimeout` limits an exchange in which the ECU says "response pending".
  Conversation(Link& link, LinkClock& clock, std::chrono::milliseconds pendingTimeout);

  /// Sends and waits for the response that belongs to it; responses to other requests are passed over. An ECU
  /// that is busy is asked again until `timeout` is over; a request that asks for no answer counts as
  /// answered when none came within 0.1 s. The link's failures are TarnErrors, and so is an exchange begun
  /// while one is under way (by the idle hook).
  Outcome exchange(const LinkTarget& target, std::span<const std::uint8_t> request,
                   std::chrono::milliseconds timeout, Link::Bytes& response);

  /// As the link's.
  std::vector<LinkTarget> findEcus();
  bool takesSeveralPids(const LinkTarget& target) const { return link_.takesSeveralPids(target); }
  bool busy() const { return busy_; }
  std::chrono::milliseconds pendingTimeout() const { return pendingTimeout_; }

  /// Closes the link; during an exchange, as soon as it is over.
  void end();

 private:
  class Busy;

  Outcome ask(const LinkTarget& target, std::span<const std::uint8_t> request,
              std::chrono::milliseconds timeout, Link::Bytes& response);
  Outcome waitForResponse(std::span<const std::uint8_t> request, std::chrono::milliseconds timeout,
                          Link::Bytes& response);
  void open();
  void close();

  Link& link_;
  LinkClock& clock_;
  std::chrono::milliseconds pendingTimeout_;
  bool open_ = false;
  bool busy_ = false;
  bool endRequested_ = false;
};

}  // namespace tarnlog::host
