#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>

#include "host/link/Link.h"
#include "host/link/LinkClock.h"
#include "host/link/StopPatience.h"
#include "host/link/trace/SimulatedPeer.h"

namespace tarnlog::host {

/// A link without a car: the peer's answers arrive when their time has come, counted from the moment of the
/// request. A new request to an ECU ends the wait for what is left of the one before. Clock and peer must
/// outlive it.
class SimulatedLink : public Link {
 public:
  SimulatedLink(LinkClock& clock, SimulatedPeer& peer, LinkHabits habits = {})
      : clock_(clock), peer_(peer), habits_(habits) {}

  std::size_t mostIdentifiers(const LinkTarget& /*target*/) const override {
    return habits_.bundles ? kMostIdentifiersAtOnce : 1;
  }
  bool sideBySide() const override { return habits_.sideBySide; }

 protected:
  void doOpen() override;
  void doClose() override;
  bool doSend(const LinkTarget& target, std::span<const std::uint8_t> request) override;
  Received doReceive(Bytes& response, std::chrono::milliseconds timeout) override;

 private:
  /// An ECU, and what it has still to say.
  struct Asked {
    std::int64_t answerer = 0;
    Moment sent{};
    SimulatedAnswers answers{};
    std::size_t next = 0;

    bool isDone() const { return next == answers.count(); }
    Moment due() { return sent + answers[next].delay; }
  };

  Asked& askedOf(std::int64_t answerer);
  Asked* nextToAnswer();

  LinkClock& clock_;
  SimulatedPeer& peer_;
  LinkHabits habits_;
  std::deque<Asked> asked_;
  Moment opened_{};
  StopPatience patience_{*this, clock_};
  IdleHook waitHook_ = [this] {
    idle();
    patience_.check();
  };
};

}  // namespace tarnlog::host
