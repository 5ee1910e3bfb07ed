#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "host/link/Link.h"
#include "host/link/LinkClock.h"
#include "host/vehicle/session/LateAnswers.h"

namespace tarnlog::host {

/// How a request to an ECU ended.
enum class ExchangeOutcome : std::uint8_t {
  answered,     ///< with the positive response, which is empty where the request asks for none
  refused,      ///< with a negative response
  silent,       ///< no response in time
  onlyPending,  ///< "response pending" came, but not the response
  unreachable,  ///< the request cannot reach the ECU, while others can be asked
};

/// When the request had left, and when its response was there, or nobody waited for it any more. An ECU that
/// was busy was asked again: then of the last time.
struct ExchangeTimes {
  Moment sent{};
  Moment received{};
};

/// What came of a request.
struct ExchangeResult {
  ExchangeOutcome outcome = ExchangeOutcome::silent;
  ExchangeTimes times{};
  Link::Bytes response{};  ///< empty when there was none
  Link::Bytes foreign{};   ///< came meanwhile, and answers something else
  std::string obstacle{};  ///< why it could not reach the ECU
};

/// One ECU and the request that it is asked, step by step; several can be under way at a time. It sends by
/// itself; whoever drives it passes on what comes and when time is over.
///
///     over ── start ──> verifying ──> awaiting ── answer, time over ──> over
///                           ^            │ busy
///                           └── pausing <┘
///
/// Responses to other requests are passed over, late ones too (see LateAnswers). An ECU that is busy is asked
/// again until the time-out is over; a request that asks for no answer counts as answered when none came
/// within 0.1 s. An ECU of ISO 14229 that tells its P2 and P2* when a session is opened is waited for as long
/// as they say, and some for the way. Failures of the link are TarnErrors.
class EcuExchange {
 public:
  /// `pendingTimeout` limits an exchange in which the ECU says "response pending". Both must outlive it.
  EcuExchange(Link& link, LinkClock& clock, std::chrono::milliseconds pendingTimeout)
      : link_(link), clock_(clock), pendingTimeout_(pendingTimeout) {}

  /// The one before is over.
  void start(const LinkTarget& target, std::span<const std::uint8_t> request,
             std::chrono::milliseconds timeout);
  /// A response came. Its bytes may be taken away.
  void came(Link::Bytes& response);
  /// A response came that belongs to no request.
  void unasked();
  void unreachable();
  /// Nothing will come.
  void silent();
  /// To be called when time has passed.
  void passTime(Moment now);
  /// Nothing is waited for any more.
  void abandon();
  /// The same, where the request did not reach the ECU.
  void withdraw();
  /// It did not, and is sent again after a pause.
  void repeatLater();

  bool isOver() const { return state_ == State::over; }
  /// Something is to be received. Else, unless it is over, only time has to pass.
  bool awaits() const { return state_ == State::verifying || state_ == State::awaiting; }
  /// When `passTime` has to be called at the latest.
  Moment due() const { return due_; }
  /// Of the last request, when it is over. The bytes may be taken away.
  ExchangeResult& result() { return result_; }

 private:
  enum class State : std::uint8_t { over, verifying, awaiting, pausing };

  void attempt();
  void verify(const LateAnswers::Verification& verification);
  void ask();
  void finish(ExchangeOutcome outcome);
  void learnTimes();
  void doubtTimes();
  std::chrono::microseconds patience() const;

  Link& link_;
  LinkClock& clock_;
  std::chrono::milliseconds pendingTimeout_;
  LateAnswers late_;
  State state_ = State::over;
  LinkTarget target_;
  Link::Bytes request_;
  std::chrono::milliseconds timeout_{};
  Moment last_{};  ///< until when a busy ECU is asked again
  Moment due_{};
  bool noAnswer_ = false;  ///< the request asks for none
  bool pending_ = false;   ///< "response pending" came
  std::optional<LateAnswers::Verification> verification_;
  std::optional<std::chrono::milliseconds> p2_;  ///< as the ECU told them
  std::optional<std::chrono::milliseconds> p2Star_;
  std::chrono::milliseconds p2TooShort_{};
  std::chrono::milliseconds p2StarTooShort_{};
  std::chrono::microseconds slowest_{};  ///< answer so far
  ExchangeResult result_;
};

}  // namespace tarnlog::host
