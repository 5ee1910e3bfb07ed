#pragma once

#include <array>
#include <bitset>
#include <chrono>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "host/link/LinkClock.h"
#include "host/service/Protocol.h"

namespace tarnlog::host {

/// Prevents a late or duplicate response of one ECU from being matched to a newer request, on links that
/// identify a response only by who sent it. It decides; whoever asks the ECU sends and receives.
///
/// An ECU answers in the order in which it is asked. So a response that only fits the newest request shows
/// that no older one is still to come. Where responses are outstanding that could be mistaken, or surplus
/// ones came, a verification request is sent first (supported PIDs, or TesterPresent), and everything before
/// its response is discarded. The same is done now and then while the same request is sent again and again.
class LateAnswers {
 public:
  struct Verification {
    std::array<std::uint8_t, 2> request;
    std::chrono::milliseconds timeout;
    bool required;  ///< without its response, the request itself must not be sent
  };

  /// To be called before each request; none: the next response belongs to it.
  std::optional<Verification> before(Protocol protocol, std::span<const std::uint8_t> request, Moment now,
                                     std::chrono::milliseconds timeout);
  void verificationSent() { ++aside_; }
  /// It did not reach the ECU.
  void verificationLost() { --aside_; }
  /// True when this response to it shows that nothing older is to come.
  bool isVerifiedBy(std::span<const std::uint8_t> verification, std::span<const std::uint8_t> response);
  /// It was not answered in time.
  void notVerified(const Verification& verification);
  /// The request itself is sent.
  void sent(std::span<const std::uint8_t> request, Moment now, std::chrono::milliseconds timeout);
  /// The answer to that request came.
  void answered();
  /// It did not come in time.
  void givenUp(Moment now) { givenUp_ = now; }
  /// That request suppressed its positive response, and nothing came.
  void noneExpected() { owed_.reset(service_); }
  /// Something came that was not asked for, or was not waited for any more.
  void unasked() { surplus_ = true; }

 private:
  void settle();
  void distrustDoubled();
  bool isUnproven(std::span<const std::uint8_t> request);

  std::bitset<0x100> owed_;            ///< services of requests that it has not answered
  bool owesPids_ = false;              ///< the request for the supported PIDs is among them
  Moment givenUp_{};                   ///< when the newest of them timed out, or will
  bool surplus_ = false;               ///< something unasked came since the last request
  int distrusted_ = 0;                 ///< coming requests that are still verified first
  std::uint8_t service_ = 0;           ///< of the request sent last
  int aside_ = 0;                      ///< verification requests that it has not answered
  int strayed_ = 0;                    ///< those of them that are older than the last request
  std::vector<std::uint8_t> request_;  ///< sent last
  int alike_ = 0;                      ///< how often in a row
  int unverified_ = 0;                 ///< verification requests without an answer, while it owed nothing
  bool provable_ = false;              ///< it has answered one, or another TesterPresent
  bool unprovable_ = false;  ///< it did not answer a verification request when nothing was outstanding
};

}  // namespace tarnlog::host
