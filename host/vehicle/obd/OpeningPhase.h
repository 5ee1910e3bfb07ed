#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/text/Told.h"

namespace tarnlog::host {

/// What is done while a car is opened, in this order. After a failure that may be mended by itself it begins
/// again with the first.
enum class OpeningPhase : std::uint8_t {
  adapter,  ///< the link is opened: an adapter, a gateway, a CAN interface
  bus,      ///< the bus is looked for over which the car's ECUs answer
  ecus,     ///< the ECUs are asked what they offer
  data      ///< what they offer is tried
};

/// Told when a phase begins. It may do anything but use the vehicle that is being opened.
using PhaseHook = std::function<void(OpeningPhase)>;

/// "looking for the car's bus", in the user's language.
inline std::string openingPhaseText(OpeningPhase phase) {
  switch (phase) {
    case OpeningPhase::adapter:
      return Told::tr("waiting for the adapter");
    case OpeningPhase::bus:
      return Told::tr("looking for the car's bus");
    case OpeningPhase::ecus:
      return Told::tr("asking the ECUs what they offer");
    case OpeningPhase::data:
      return Told::tr("trying the data");
  }
  return {};
}

}  // namespace tarnlog::host
