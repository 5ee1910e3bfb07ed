#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarnlog {

/// Where values are published: mqtt://HOST[:PORT]/TOPIC, or mqtts:// over TLS.
struct BrokerAddress {
  bool encrypted = false;
  std::string host;
  std::uint16_t port = 1883;  ///< 8883 over TLS, where none is given
  std::string topic;          ///< what stands before all topics, without "/" at its ends

  /// With the port.
  std::string text() const;
};

/// Raises a TarnError that says what is wrong with it and what is expected there. It repeats nothing:
/// there may be a password in it.
BrokerAddress parseBrokerAddress(std::string_view url);

}  // namespace tarnlog
