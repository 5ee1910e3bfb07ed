#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "host/vehicle/session/Conversation.h"

namespace tarnlog::host {

/// Tries which current data (service 01) an ECU gives of those that it says it has. Some lists are longer
/// than what the ECU gives, and a request that nobody answers would stop the recording of all the others.
class PidTrial {
 public:
  /// Both must outlive the trial.
  PidTrial(Conversation& conversation, const LinkTarget& target)
      : conversation_(conversation), target_(target) {}

  /// Those that the ECU gives, or may give at another time. When the link fails, the rest is believed.
  std::vector<std::uint8_t> given(std::span<const std::uint8_t> pids);
  /// Why the PID tried last was not given, when the ECU was silent.
  std::string silence() const {
    return outcome_ == Conversation::Outcome::silent ? conversation_.silence({}) : std::string();
  }

 private:
  bool answers(std::span<const std::uint8_t> group, std::uint8_t pid);
  void askTogether(std::span<const std::uint8_t> group);
  bool comesAlone(std::uint8_t pid);
  Conversation::Outcome ask(std::span<const std::uint8_t> request);

  Conversation& conversation_;
  const LinkTarget& target_;
  Link::Bytes response_;
  Conversation::Outcome outcome_ = Conversation::Outcome::answered;  ///< of the newest request
  std::vector<std::uint8_t> came_;                                   ///< of the group asked together
  bool together_ = true;  ///< the car may know requests for several
};

}  // namespace tarnlog::host
