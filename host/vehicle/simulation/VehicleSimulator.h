#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "host/link/trace/SimulatedPeer.h"
#include "host/vehicle/description/VehicleDescription.h"
#include "host/vehicle/simulation/FaultPlan.h"

namespace tarnlog::host {

/// The ECUs of a description, answering as its simulation says. The description must outlive it.
class VehicleSimulator : public SimulatedPeer {
 public:
  explicit VehicleSimulator(const VehicleDescription& description);

  void start() override;
  void answer(const LinkTarget& target, std::span<const std::uint8_t> request,
              std::chrono::microseconds sinceStart, SimulatedAnswers& answers) override;

 private:
  struct Place {
    std::size_t ecu;
    std::optional<std::size_t> request;
  };
  /// What answers at one address with one protocol: usually one ECU, several when they are functions of one
  /// box.
  struct Station {
    std::size_t firstEcu;
    std::unordered_map<std::string_view, Place> byFrame;  ///< request bytes -> request
    std::array<bool, 256> services{};                     ///< those that some request uses
  };

  void answerSeveral(const Station& station, std::span<const std::uint8_t> request,
                     std::chrono::microseconds sinceStart, SimulatedAnswers& answers);
  void deliver(const FaultDescription* fault, std::span<const std::uint8_t> request,
               const Link::Bytes& answer, std::chrono::microseconds latency, SimulatedAnswers& answers);
  const Station* findStation(const LinkTarget& target) const;
  std::chrono::microseconds latencyOf(const Place& place) const;
  void writeAnswer(const Station& station, const Place& place, std::span<const std::uint8_t> request,
                   double seconds, Link::Bytes& bytes) const;
  void writeDescribed(const Place& place, double seconds, Link::Bytes& bytes) const;
  /// Turns a good answer into the one that the fault makes of it.
  void spoil(const FaultDescription& fault, std::span<const std::uint8_t> request, Link::Bytes& bytes);

  const VehicleDescription& description_;
  std::unordered_map<std::int32_t, std::vector<std::pair<std::string, Station>>> stations_;
  FaultPlan faults_;
  Link::Bytes whole_;  ///< kept for its capacity
};

}  // namespace tarnlog::host
