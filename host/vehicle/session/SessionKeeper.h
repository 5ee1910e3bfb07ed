#pragma once

#include <chrono>
#include <cstdint>
#include <span>
#include <vector>

#include "host/vehicle/session/Conversation.h"

namespace tarnlog::host {

/// A conversation in which diagnostic sessions stay open: an ECU whose session was opened (service 10) and
/// that nothing was sent to for two seconds gets TesterPresent (3E) before the next request to another one;
/// left alone, it would fall back to its default session after S3. One that fell
/// back nevertheless, and refuses a request therefore, gets its session opened again. The end of the
/// communication and a failure of the link forget all sessions.
class SessionKeeper {
 public:
  /// Both must outlive the keeper.
  SessionKeeper(Conversation& conversation, LinkClock& clock) : conversation_(conversation), clock_(clock) {}

  /// As `Conversation::exchange`.
  Conversation::Outcome exchange(const LinkTarget& target, std::span<const std::uint8_t> request,
                                 std::chrono::milliseconds timeout, Link::Bytes& response);
  /// As the conversation's.
  bool goesSideBySide() const { return conversation_.goesSideBySide(); }
  void askAhead(const LinkTarget& target, std::span<const std::uint8_t> request,
                std::chrono::milliseconds timeout) {
    conversation_.askAhead(target, request, timeout);
  }
  void forgetAhead() { conversation_.forgetAhead(); }
  /// Of the target's exchange, as `Conversation::silence`.
  std::string silence(std::string_view to) const { return conversation_.silence(to); }
  /// As `Conversation::obstacle`.
  const std::string& obstacle() const { return conversation_.obstacle(); }
  void end();
  bool takesSeveralPids(const LinkTarget& target) const { return conversation_.takesSeveralPids(target); }
  std::size_t mostIdentifiers(const LinkTarget& target) const {
    return conversation_.mostIdentifiers(target);
  }
  std::uint64_t answers() const { return conversation_.answers(); }
  /// Of the last `exchange`, not of what was sent around it.
  const Conversation::Times& times() const { return times_; }
  /// As `Conversation::pause`.
  void pause(std::chrono::milliseconds time);
  std::chrono::milliseconds pendingTimeout() const { return conversation_.pendingTimeout(); }

 private:
  struct OpenSession {
    LinkTarget target;
    Link::Bytes opening;  ///< the request that opened it
    std::chrono::milliseconds timeout;
    Moment lastSent;
  };

  Conversation::Outcome send(const LinkTarget& target, std::span<const std::uint8_t> request,
                             std::chrono::milliseconds timeout, Link::Bytes& response);
  void keepOpen(const LinkTarget* except);
  bool openAgain(const LinkTarget& target);
  void note(const LinkTarget& target, std::span<const std::uint8_t> request,
            std::chrono::milliseconds timeout, Conversation::Outcome outcome);

  Conversation& conversation_;
  LinkClock& clock_;
  std::vector<OpenSession> open_;
  Link::Bytes ignored_;
  Conversation::Times times_;
};

}  // namespace tarnlog::host
