#pragma once

#include <memory>
#include <string>

#include "host/link/Link.h"
#include "host/link/LinkClock.h"
#include "host/link/LinkUrl.h"
#include "host/link/trace/ReplayPeer.h"
#include "platform/files/FileSystem.h"

namespace tarnlog::host {

/// Makes the link that a URL names, not open yet:
///
///     elm327:///dev/ttyUSB0?baud=38400               an ELM327 adapter on a serial port; "?fast=0" leaves it
///                                                    at this rate
///     elm327://192.168.0.10:35000                    the same over TCP; "?protocol=6" spares it the search
///                                                    for the car's bus (the digit that ATSP takes)
///     doip://192.168.1.10?ecu=0x1001&tester=0x0E00   a car on Ethernet; "doip://*" looks for one
///     isotp://can0?tx=7E0&rx=7E8                     a CAN interface of Linux; without tx and rx each ECU's
///                                                    address gives its identifiers
///     replay:drive.trace                             the answers of a trace
///
/// The kind of an adapter may be left out: "/dev/ttyUSB0", "192.168.0.10:35000".
///
/// "parallel=0" lets them ask one ECU after the other, "bundle=0" one PID or data identifier at a time.
///
/// After a failure the links keep further attempts to open them apart. A TarnError names the URL, the place
/// and what was expected there. The clock must outlive the link. `pidBytes` is for a replay: see ReplayPeer.
std::unique_ptr<Link> openLink(const std::string& url, LinkClock& clock, const FileSystem& files,
                               const PidBytes& pidBytes = {});

/// How a link asks, by the options "parallel" and "bundle" of its URL (0 or 1; both are on without them).
LinkHabits linkHabits(const LinkUrl& url);

}  // namespace tarnlog::host
