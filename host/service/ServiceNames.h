#pragma once

#include <cstdint>
#include <string>

namespace tarnlog::host {

/// The name of a diagnostic service: that of ISO 14229-1, else of ISO 14230-3; for the services of ISO
/// 15031-5, which have none, what they are about. "service BA" for one that the standards do not have.
std::string serviceName(std::uint8_t service);

}  // namespace tarnlog::host
