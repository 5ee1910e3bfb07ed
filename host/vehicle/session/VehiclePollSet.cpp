#include "host/vehicle/session/VehiclePollSet.h"

#include <map>
#include <string>
#include <utility>

#include "host/service/Services.h"
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
    : cycle_(polling.conversation, polling.clock), ecus_(std::move(ecus)), protocol_(ecus_, [this] {
        for (const auto& bundle : bundles_) bundle->forget();
        cycle_.forget();
      }) {
  bundlePids(requests);
  for (VehicleRequest* const request : requests) {
    requests_.push_back(&polled_.emplace_back(*request, polling, cycle_, polled_.size()));
    cycle_.add(polled_.back());
  }
}

VehiclePollSet::~VehiclePollSet() { unbundle(); }

/// In the order of the requests, at least two each, which are all due in the same cycles.
void VehiclePollSet::bundlePids(const std::vector<VehicleRequest*>& requests) {
  std::map<std::pair<EcuChannel*, std::chrono::milliseconds>, std::vector<VehicleRequest*>> gathered;
  for (VehicleRequest* const request : requests) {
    if (!PidBundle::canHold(request->description())) continue;
    auto& members = gathered[{&request->channel(), request->description().interval}];
    members.push_back(request);
    if (members.size() == kMostPidsAtOnce) bundle(members);
  }
  for (auto& [ecu, members] : gathered) bundle(members);
}

void VehiclePollSet::bundle(std::vector<VehicleRequest*>& members) {
  if (members.size() > 1) {
    std::vector<const RequestDescription*> descriptions;
    descriptions.reserve(members.size());
    for (const VehicleRequest* const request : members) descriptions.push_back(&request->description());
    bundles_.push_back(std::make_unique<PidBundle>(members.front()->channel(), descriptions));
    for (VehicleRequest* const request : members) request->setBundle(bundles_.back().get());
    bundled_.insert(bundled_.end(), members.begin(), members.end());
  }
  members.clear();
}

void VehiclePollSet::unbundle() {
  for (VehicleRequest* const request : bundled_) request->setBundle(nullptr);
  bundled_.clear();
  bundles_.clear();
}

void VehiclePollSet::finish() {
  unbundle();
  cycle_.clear();
  requests_.clear();
  polled_.clear();
  ecus_.clear();
  protocol_.forgetEcus();
}

}  // namespace tarnlog::host
