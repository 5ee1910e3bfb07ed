#pragma once

#include <cstddef>

#include "host/link/Link.h"
#include "host/link/LinkClock.h"
#include "host/link/StopPatience.h"
#include "host/link/trace/SimulatedPeer.h"

namespace tarnlog::host {

/// A link without a car: the peer's answers arrive when their time has come, counted from the moment of the
/// request. A new request ends the wait for what is left of the one before. Clock and peer must outlive it.
class SimulatedLink : public Link {
 public:
  SimulatedLink(LinkClock& clock, SimulatedPeer& peer) : clock_(clock), peer_(peer) {}

 protected:
  void doOpen() override;
  void doClose() override;
  bool doSend(const LinkTarget& target, std::span<const std::uint8_t> request) override;
  Received doReceive(Bytes& response, std::chrono::milliseconds timeout) override;

 private:
  LinkClock& clock_;
  SimulatedPeer& peer_;
  SimulatedAnswers answers_;
  std::size_t next_ = 0;  ///< the answer that arrives next
  Moment opened_{};
  Moment sent_{};
  StopPatience patience_{*this, clock_};
  IdleHook waitHook_ = [this] {
    idle();
    patience_.check();
  };
};

}  // namespace tarnlog::host
