#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "host/service/Services.h"

namespace tarnlog::host {

/// The application protocol of an ECU, as far as requests differ by it.
enum class Protocol : std::uint8_t {
  other,
  obd,     ///< ISO 15031-5
  uds,     ///< ISO 14229
  kwp,     ///< a dialect of ISO 14230
  kwp2000  ///< ISO 14230 itself
};

inline constexpr std::string_view kObdName = "OBD-II";

/// By the name in a vehicle description: "KWP2000", "UDS", "OBD-II", ...
constexpr Protocol protocolOf(std::string_view name) {
  if (name == "KWP2000") return Protocol::kwp2000;
  if (name.starts_with("KWP")) return Protocol::kwp;
  if (name.starts_with("UDS")) return Protocol::uds;
  return name.starts_with("OBD") ? Protocol::obd : Protocol::other;
}

constexpr bool isKwp(Protocol protocol) { return protocol == Protocol::kwp || protocol == Protocol::kwp2000; }

/// TesterPresent with a response, so that the line is free again when it has come.
constexpr std::array<std::uint8_t, 2> testerPresent(Protocol protocol) {
  return {service::kTesterPresent, isKwp(protocol) ? std::uint8_t{0x01} : std::uint8_t{0x00}};
}

}  // namespace tarnlog::host
