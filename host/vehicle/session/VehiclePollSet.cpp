#include "host/vehicle/session/VehiclePollSet.h"

#include <map>
#include <string>
#include <tuple>
#include <utility>

#include "platform/base/TarnError.h"

namespace tarnlog::host {

void VehicleProtocol::initialiseAll() {
  begins_();
  // A copy: what the reports set off may finish the poll set.
  const std::vector<VehicleEcu*> ecus = ecus_;
  for (VehicleEcu* const ecu : ecus) {
    std::string error;
    try {
      ecu->initialise();
    } catch (const TarnError& failure) {
      error = failure.description();
    }
    report(*ecu, !error.empty(), {}, error);
  }
}

VehiclePollSet::VehiclePollSet(const std::vector<VehicleRequest*>& requests, std::vector<VehicleEcu*> ecus,
                               const Polling& polling)
    : cycle_(polling.conversation, polling.clock),
      ecus_(std::move(ecus)),
      protocol_(ecus_, [this] { cycle_.forget(); }) {
  bundle(requests);
  for (VehicleRequest* const request : requests) {
    requests_.push_back(&polled_.emplace_back(*request, polling, cycle_, polled_.size()));
    cycle_.add(polled_.back());
  }
}

VehiclePollSet::~VehiclePollSet() {
  cycle_.clear();
  unbundle();
}

/// In the order of the requests, at least two each, which are all due in the same cycles.
void VehiclePollSet::bundle(const std::vector<VehicleRequest*>& requests) {
  using Kind = IdentifierBundle::Kind;
  std::map<std::tuple<EcuChannel*, Kind, std::chrono::milliseconds>, std::vector<VehicleRequest*>> gathered;
  for (VehicleRequest* const request : requests) {
    const Kind kind = IdentifierBundle::kindOf(request->description(), request->channel());
    if (kind == Kind::none) continue;
    gathered[{&request->channel(), kind, request->description().interval}].push_back(request);
  }
  for (const auto& [key, members] : gathered) {
    if (members.size() < 2) continue;
    std::vector<const RequestDescription*> descriptions;
    descriptions.reserve(members.size());
    for (const VehicleRequest* const request : members) descriptions.push_back(&request->description());
    bundles_.push_back(std::make_unique<IdentifierBundle>(*std::get<0>(key), std::get<1>(key), descriptions));
    for (VehicleRequest* const request : members) request->setBundle(bundles_.back().get());
    bundled_.insert(bundled_.end(), members.begin(), members.end());
    cycle_.add(*bundles_.back());
  }
}

void VehiclePollSet::unbundle() {
  for (VehicleRequest* const request : bundled_) request->setBundle(nullptr);
  bundled_.clear();
  bundles_.clear();
}

void VehiclePollSet::finish() {
  cycle_.clear();
  unbundle();
  requests_.clear();
  polled_.clear();
  ecus_.clear();
  protocol_.forgetEcus();
}

}  // namespace tarnlog::host
