#include "host/vehicle/simulation/FaultPlan.h"

namespace tarnlog::host {

FaultPlan::FaultPlan(const SimulationDescription& simulation)
    : seed_(simulation.seed), byEcu_(simulation.requests.size()) {
  for (const FaultDescription& fault : simulation.faults) byEcu_[fault.ecu].push_back(Entry{&fault, 0, {}});
  start();
}

void FaultPlan::start() {
  garbage_.seed(seed_);
  std::uint32_t number = 0;
  for (auto& entries : byEcu_)
    for (Entry& entry : entries) {
      entry.sends = 0;
      entry.dice.seed(seed_ + ++number);
    }
}

const FaultDescription* FaultPlan::next(std::size_t ecu, std::optional<std::size_t> request, double seconds) {
  const FaultDescription* first = nullptr;
  // Every fault counts every send that concerns it, also when an earlier one happens.
  for (Entry& entry : byEcu_[ecu]) {
    const bool concerned = !entry.fault->request || entry.fault->request == request;
    if (concerned && happens(entry, seconds) && first == nullptr) first = entry.fault;
  }
  return first;
}

bool FaultPlan::happens(Entry& entry, double seconds) {
  const FaultDescription& fault = *entry.fault;
  if (seconds < fault.from || (fault.to && seconds >= *fault.to)) return false;
  if (++entry.sends < fault.every) return false;
  entry.sends = 0;
  constexpr double kDiceRange = 4294967296.0;
  return fault.probability >= 1 || static_cast<double>(entry.dice()) < fault.probability * kDiceRange;
}

}  // namespace tarnlog::host
