#pragma once

#include <cstddef>
#include <vector>

#include "host/link/LinkClock.h"
#include "host/vehicle/session/SessionKeeper.h"

namespace tarnlog::host {

class IdentifierBundle;
class PolledRequest;

/// Decides when a polling cycle begins which of its requests are sent, and tells all of them ahead where
/// several ECUs are asked and the link goes side by side.
class PollCycle {
 public:
  /// Both must outlive it.
  PollCycle(SessionKeeper& conversation, LinkClock& clock) : conversation_(conversation), clock_(clock) {}

  /// In the order in which they are sent; must outlive it.
  void add(PolledRequest& request);
  /// Requests that are asked for together; must outlive it.
  void add(IdentifierBundle& bundle) { bundles_.push_back(&bundle); }
  /// Its requests are gone.
  void clear();
  /// This one is sent now. A request that is not behind the one before is the first of a cycle. Where no
  /// request is to be sent, that cycle waits a little: cycles without an exchange would follow at full speed.
  void reach(std::size_t position);
  /// What was received or told ahead is old; the next cycle sends all requests.
  void forget();

 private:
  void begin(std::size_t position);

  SessionKeeper& conversation_;
  LinkClock& clock_;
  std::vector<PolledRequest*> requests_;
  std::vector<IdentifierBundle*> bundles_;
  std::size_t next_ = 0;  ///< what comes in this cycle
  Moment first_{};        ///< when the first cycle began
  bool begun_ = false;
  bool severalEcus_ = false;
};

}  // namespace tarnlog::host
