#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <string>

#include "host/link/Link.h"
#include "host/service/Protocol.h"
#include "host/vehicle/description/VehicleDescription.h"
#include "host/vehicle/session/SessionKeeper.h"
#include "platform/base/TarnError.h"

namespace tarnlog::host {

/// The way to one ECU: requests go out to its address, and what it turned out to be able to do is kept.
class EcuChannel {
 public:
  /// Both must outlive the channel.
  EcuChannel(const EcuDescription& description, SessionKeeper& conversation);

  /// Sends and waits for the positive response; anything else raises with a text like "Engine: request 21 80:
  /// no answer within 200 ms". What was received last stays in `response`.
  void ask(std::span<const std::uint8_t> request, std::chrono::milliseconds timeout, Link::Bytes& response);
  /// The same, telling what came instead of raising; failures of the link are TarnErrors.
  Conversation::Outcome converse(std::span<const std::uint8_t> request, std::chrono::milliseconds timeout,
                                 Link::Bytes& response);
  /// This will be asked next, or behind what was told before (see Conversation).
  void askAhead(std::span<const std::uint8_t> request, std::chrono::milliseconds timeout) {
    conversation_.askAhead(target_, request, timeout);
  }
  /// What `ask` raises when that came instead of the positive response.
  TarnError failure(Conversation::Outcome outcome, std::span<const std::uint8_t> request,
                    std::span<const std::uint8_t> response) const;
  /// Of the last exchange, as `Conversation::silence`.
  std::string silence(std::string_view to) const { return conversation_.silence(to); }
  std::chrono::milliseconds pendingTimeout() const { return conversation_.pendingTimeout(); }

  /// Of the last exchange, whoever it was with.
  const Conversation::Times& times() const { return conversation_.times(); }

  /// How often the ECU has answered, in whatever way.
  std::uint64_t answers() const { return answers_; }
  /// How long a request is waited for of which nobody knows whether the ECU answers it: no longer than three
  /// times its slowest answer, or P2.
  std::chrono::milliseconds trialTime(std::chrono::milliseconds timeout) const;
  bool takesSeveralPids() const { return !onePidOnly_ && conversation_.takesSeveralPids(target_); }
  /// It was tried, and the ECU did not.
  void setOnePidOnly() { onePidOnly_ = true; }
  /// Data identifiers that one request may ask for, as far as is known.
  std::size_t mostIdentifiers() const {
    return std::min(mostIdentifiers_, conversation_.mostIdentifiers(target_));
  }
  /// At least one.
  void setMostIdentifiers(std::size_t count) { mostIdentifiers_ = std::max<std::size_t>(count, 1); }
  Protocol protocol() const { return protocolOf(target_.protocol); }

 private:
  const std::string& name_;
  SessionKeeper& conversation_;
  LinkTarget target_;
  bool onePidOnly_ = false;
  std::size_t mostIdentifiers_ = std::numeric_limits<std::size_t>::max();
  std::uint64_t answers_ = 0;
  Moment slowest_{};  ///< answer so far, without those that were pending
};

}  // namespace tarnlog::host
