#include "host/vehicle/VehiclePollSet.h"

#include <utility>

namespace tarnlog::host {
namespace {

std::vector<std::unique_ptr<PidBundle>> bundlesOf(const std::vector<ferrox3::Request*>& requests) {
  std::vector<VehicleRequest*> own;
  for (ferrox3::Request* const request : requests)
    if (auto* const known = dynamic_cast<VehicleRequest*>(request)) own.push_back(known);
  return PidBundle::of(own);
}

}  // namespace

VehiclePollSet::VehiclePollSet(std::vector<ferrox3::Request*> requests, std::vector<VehicleEcu*> ecus)
    : requests_(std::move(requests)),
      ecus_(std::move(ecus)),
      bundles_(bundlesOf(requests_)),
      protocol_(ecus_, [this] {
        for (const auto& bundle : bundles_) bundle->forget();
      }) {}

void VehiclePollSet::finish() {
  bundles_.clear();
  requests_.clear();
  ecus_.clear();
  protocol_.forgetEcus();
}

}  // namespace tarnlog::host
