#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "host/link/Link.h"
#include "host/vehicle/description/VehicleDescription.h"
#include "host/vehicle/session/EcuChannel.h"

namespace tarnlog::host {

/// Up to six PIDs of service 01 that one request asks for at once, as ISO 15031-5 allows on CAN. The first
/// member that is sent requests all PIDs; each other member then uses its part of that response, once. A PID
/// that keeps missing is requested by itself, and so are all if the ECU does not support several PIDs per
/// request.
class PidBundle {
 public:
  /// Whether the request asks for one PID that ObdPids.h knows, and nothing else.
  static bool canHold(const RequestDescription& request);

  /// At most `kMostPidsAtOnce` requests that it can hold; all must outlive the bundle.
  PidBundle(EcuChannel& ecu, const std::vector<const RequestDescription*>& members);

  enum class Taken : std::uint8_t {
    taken,       ///< the response is what it would be if the member had been asked for alone
    alone,       ///< the member has to be asked for alone
    unreachable  ///< nothing reaches the ECU
  };
  /// The response to a member. Failures of the link are TarnErrors.
  Taken take(const RequestDescription& request, Link::Bytes& response);
  /// The member will be asked for: tells the ECU's conversation so, once for all members. False where it has
  /// to be asked for alone.
  bool askAhead(const RequestDescription& request);
  /// Of the request that asked for all of them.
  const Conversation::Times& times() const { return times_; }
  /// Drops the parts of the last response that were not used.
  void forget();

 private:
  enum class Share : std::uint8_t { due, arrived, missing };
  struct Member {
    const RequestDescription* request;
    std::uint8_t pid;
    std::size_t bytes;  ///< of data, without the PID
    Share share = Share::due;
    std::size_t place = 0;  ///< offset of the PID in the response, when it arrived
    bool cameBefore = false;
    int missed = 0;      ///< in a row
    bool apart = false;  ///< requested by itself from now on
  };

  Member* memberOf(const RequestDescription& request);
  /// False when nothing reaches the ECU.
  bool ask();
  std::size_t split();
  void judge(std::size_t came);
  void noteMissing();
  void makeFrame();

  EcuChannel& ecu_;
  std::vector<Member> members_;
  Link::Bytes frame_;
  Link::Bytes response_;
  Conversation::Times times_;
  bool toldAhead_ = false;
  bool worked_ = false;
  int failures_ = 0;
  bool usable_ = true;
};

}  // namespace tarnlog::host
