#pragma once

#include <memory>
#include <string>

#include "host/link/LinkClock.h"
#include "host/link/can/CanPort.h"

namespace tarnlog::host {

/// A Linux CAN interface ("can0"), frame by frame. The clock must outlive the port.
std::unique_ptr<CanPort> makeSocketCanPort(const std::string& interface, CanPair pair, LinkClock& clock);

/// Messages of one pair over a Linux CAN interface: each write is one request, each read one whole response.
/// The kernel cuts them into frames where it can (CAN_ISOTP, from Linux 5.10), else it is done here.
std::unique_ptr<ByteStream> makeSocketCanStream(const std::string& interface, CanPair pair, LinkClock& clock);

}  // namespace tarnlog::host
