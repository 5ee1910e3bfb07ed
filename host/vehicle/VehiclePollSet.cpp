#include "host/vehicle/VehiclePollSet.h"

#include <utility>

namespace tarnlog::host {

VehiclePollSet::VehiclePollSet(const std::vector<VehicleRequest*>& requests, std::vector<VehicleEcu*> ecus,
                               const Polling& polling)
    : ecus_(std::move(ecus)), bundles_(PidBundle::of(requests)), protocol_(ecus_, [this] {
        for (const auto& bundle : bundles_) bundle->forget();
      }) {
  for (VehicleRequest* const request : requests)
    if (request->description().refusalIsError)
      requests_.push_back(request);
    else
      requests_.push_back(&polled_.emplace_back(*request, polling));
}

void VehiclePollSet::finish() {
  bundles_.clear();
  requests_.clear();
  polled_.clear();
  ecus_.clear();
  protocol_.forgetEcus();
}

}  // namespace tarnlog::host
