#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <random>
#include <vector>

#include "host/vehicle/description/VehicleDescription.h"

namespace tarnlog::host {

/// Decides which fault happens to which request, the same way after every start. Times are seconds since the
/// start.
class FaultPlan {
 public:
  explicit FaultPlan(const SimulationDescription& simulation);

  void start();
  /// The fault that happens to this send, or null. `request` is none for what is no request of the
  /// description.
  const FaultDescription* next(std::size_t ecu, std::optional<std::size_t> request, double seconds);
  std::uint8_t randomByte() { return static_cast<std::uint8_t>(garbage_()); }

 private:
  struct Entry {
    const FaultDescription* fault;
    std::uint32_t sends = 0;  ///< matching sends since the last one that counted
    std::mt19937 dice;
  };

  bool happens(Entry& entry, double seconds);

  std::uint32_t seed_;
  std::vector<std::vector<Entry>> byEcu_;
  std::mt19937 garbage_;
};

}  // namespace tarnlog::host
