#pragma once

#include <string>

namespace tarnlog {

/// How a broker lets somebody in. Empty: without.
struct BrokerAccess {
  std::string user;
  std::string password;
  std::string authority;    ///< file of the certificates that may have signed the broker's; the system's
  std::string certificate;  ///< file of the client's
  std::string key;          ///< file of the key to it
};

/// Reads such a file:
///
///     { "user": "car 7", "password": "...", "ca": "ca.crt", "certificate": "car.crt", "key": "car.key" }
///
/// Paths are relative to its folder. Raises a TarnError that names the file and the place, and never repeats
/// what stands there.
BrokerAccess readBrokerAccess(const std::string& path, const std::string& text);

}  // namespace tarnlog
