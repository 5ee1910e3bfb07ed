#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/ferrox3/Session.h"

namespace tarnlog {

/// An ECU and its requests that an initialisation scenario may send.
struct OfferedEcu {
  std::string name;
  std::int32_t address = 0;
  std::vector<std::string> requests;

  bool operator==(const OfferedEcu&) const = default;
};

/// In the order of the session. ECUs at the addresses 0 and 255 (none, broadcast) are left out, and so are
/// requests with a data item that must not be read. An ECU that fails while it is asked ends with what it
/// gave.
std::vector<OfferedEcu> offeredRequests(const ferrox3::Session& session);

}  // namespace tarnlog
