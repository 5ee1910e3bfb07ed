#pragma once

#include <bitset>
#include <chrono>
#include <cstdint>
#include <map>
#include <span>

#include "host/link/Link.h"
#include "host/link/LinkClock.h"

namespace tarnlog::host {

/// Keeps a late or doubled answer from being taken for that to a newer request, on links that know an answer
/// only by who sent it.
///
/// An ECU answers in the order in which it is asked. So an answer that can belong to the newest request alone
/// tells that all before it are through. An ECU that owes answers, or gives more than it was asked for, is
/// first asked something else than what it owes, and what comes before the answer to that is read away. So is
/// one that is asked the same again and again, now and then.
class LateAnswers {
 public:
  /// Both must outlive it.
  LateAnswers(Link& link, LinkClock& clock) : link_(link), clock_(clock) {}

  enum class Way : std::uint8_t {
    clear,       ///< the next answer belongs to the request that is to be sent
    blocked,     ///< the ECU had to be asked something else first, and did not answer within `timeout`
    unreachable  ///< that did not reach the ECU
  };

  /// To be called before each request, which is to be sent on a clear way only. Failures of the link are
  /// TarnErrors.
  Way readAway(const LinkTarget& target, std::span<const std::uint8_t> request,
               std::chrono::milliseconds timeout);
  /// The answer to that request came.
  void answered();
  /// It did not come in time.
  void givenUp();
  /// That request asked for no answer, and none came.
  void noneExpected();

 private:
  /// What one answerer may still send.
  struct Ecu {
    std::bitset<0x100> owed;   ///< services of requests that it has not answered
    bool owesPids = false;     ///< the request for the supported PIDs is among them
    std::int64_t givenUp = 0;  ///< when the newest of them was
    int distrusted = 0;        ///< requests before which it is asked something else
    std::uint8_t service = 0;  ///< of the request sent last
    int aside = 0;             ///< questions of our own that it has not answered
    int strayed = 0;           ///< those of them that are older than the request sent last
    Link::Bytes request;       ///< sent last
    int alike = 0;             ///< how often in a row
    bool unprovable = false;   ///< it did not answer something else when it owed nothing
  };

  static void settle(Ecu& ecu);
  static void distrustDoubled(Ecu& ecu);
  static bool isUnproven(Ecu& ecu, std::span<const std::uint8_t> request);
  Way catchUp(Ecu& ecu, const LinkTarget& target, std::chrono::milliseconds timeout);

  Link& link_;
  LinkClock& clock_;
  std::map<std::int64_t, Ecu> ecus_;
  Ecu* asked_ = nullptr;  ///< of the request sent last; none where the link finds the requests itself
  Link::Bytes came_;      ///< kept for its capacity
};

}  // namespace tarnlog::host
