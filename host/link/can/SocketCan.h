#pragma once

#include <memory>
#include <string>

#include "host/link/LinkClock.h"
#include "host/link/can/CanPort.h"

namespace tarnlog::host {

/// A Linux CAN interface ("can0"), frame by frame. The clock must outlive the port.
std::unique_ptr<CanPort> makeSocketCanPort(const std::string& interface, LinkClock& clock);

}  // namespace tarnlog::host
