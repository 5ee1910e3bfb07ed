#pragma once

#include <bitset>
#include <chrono>
#include <cstdint>
#include <map>
#include <span>

#include "host/link/Link.h"
#include "host/link/LinkClock.h"

namespace tarnlog::host {

/// Prevents a late or duplicate response from being matched to a newer request, on links that identify a
/// response only by who sent it.
///
/// An ECU answers in the order in which it is asked. So a response that only fits the newest request shows
/// that no older one is still to come. Where responses are outstanding that could be mistaken, or surplus
/// ones came, a verification request is sent first (supported PIDs, or TesterPresent), and everything before
/// its response is discarded. The same is done now and then while the same request is sent again and again.
class LateAnswers {
 public:
  /// Both must outlive it.
  LateAnswers(Link& link, LinkClock& clock) : link_(link), clock_(clock) {}

  enum class Way : std::uint8_t {
    clear,       ///< the next answer belongs to the request that is to be sent
    blocked,     ///< the verification request was not answered within `timeout`
    unreachable  ///< the verification request could not be delivered
  };

  /// To be called before each request, which is to be sent only if the result is `clear`. Failures of the
  /// link are TarnErrors.
  Way readAway(const LinkTarget& target, std::span<const std::uint8_t> request,
               std::chrono::milliseconds timeout);
  /// The answer to that request came.
  void answered();
  /// It did not come in time.
  void givenUp();
  /// That request suppressed its positive response, and nothing came.
  void noneExpected();

 private:
  /// What one answerer may still send.
  struct Ecu {
    std::bitset<0x100> owed;   ///< services of requests that it has not answered
    bool owesPids = false;     ///< the request for the supported PIDs is among them
    Moment givenUp{};          ///< when the newest of them timed out, or will
    int distrusted = 0;        ///< coming requests that are still verified first
    std::uint8_t service = 0;  ///< of the request sent last
    int aside = 0;             ///< verification requests that it has not answered
    int strayed = 0;           ///< those of them that are older than the last request
    Link::Bytes request;       ///< sent last
    int alike = 0;             ///< how often in a row
    bool unprovable = false;   ///< it did not answer a verification request when nothing was outstanding
  };

  static void settle(Ecu& ecu);
  static void distrustDoubled(Ecu& ecu);
  static bool isUnproven(Ecu& ecu, std::span<const std::uint8_t> request);
  Way catchUp(Ecu& ecu, const LinkTarget& target, std::chrono::milliseconds timeout);

  Link& link_;
  LinkClock& clock_;
  std::map<std::int64_t, Ecu> ecus_;
  Ecu* asked_ = nullptr;  ///< of the last request; null where the link matches responses to requests itself
  Link::Bytes came_;      ///< kept for its capacity
};

}  // namespace tarnlog::host
