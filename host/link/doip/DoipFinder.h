#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>

#include "host/link/LinkClock.h"

namespace tarnlog::host {

/// A vehicle or gateway that answered to "who is there?".
struct DoipEntity {
  std::string host;           ///< its address in numbers
  std::string vin;            ///< vehicle identification number
  std::uint16_t address = 0;  ///< its logical address
};

/// What a datagram from `sender` (an address in numbers) announces; none when it announces nothing.
std::optional<DoipEntity> readDoipAnnouncement(std::span<const std::uint8_t> datagram,
                                               const std::string& sender);

/// Asks one host (its address in numbers), or with "*" everybody on the networks of all interfaces, for a
/// vehicle, and waits two seconds at most. None when nobody answered.
std::optional<DoipEntity> findDoipEntity(const std::string& host, std::uint16_t port, LinkClock& clock,
                                         const std::function<void()>& idleHook);

}  // namespace tarnlog::host
