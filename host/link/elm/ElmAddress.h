#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "host/link/Link.h"
#include "host/link/elm/ElmFrames.h"

namespace tarnlog::host {

/// Stands for all ECUs in a LinkTarget's address.
inline constexpr std::int32_t kFunctionalAddress = -1;

/// How an adapter is told whom a request is for.
struct ElmAddress {
  std::string header;    ///< for ATSH
  std::string priority;  ///< for ATCP: the upper bits of a 29-bit identifier; empty where there are none
  std::optional<std::uint32_t> source;  ///< who answers; none: anybody may
  bool ownFilter = false;               ///< the adapter must be told what to listen to
  /// The CAN identifiers are none of ISO 15765-4: the adapter does not know whom to send flow control to.
  bool ownFlowControl = false;
  bool functional = false;  ///< all ECUs receive the request

  bool operator==(const ElmAddress&) const = default;
};

/// The address of an ECU. OBD requests (services 01 to 0A) to an address that the bus does not know, and all
/// of them on buses other than CAN, go to all ECUs, as ISO 15031-5 lets them; other services never do:
/// TarnError with what address was expected.
ElmAddress elmAddress(const LinkTarget& target, std::span<const std::uint8_t> request, ElmBus bus);

/// The same, sent to all ECUs; who answers stays.
ElmAddress elmFunctional(const ElmAddress& address, ElmBus bus);

/// The ECU's address in a LinkTarget, from the source of its answers.
std::int32_t ecuAddressOf(std::optional<std::uint32_t> source, ElmBus bus);

}  // namespace tarnlog::host
