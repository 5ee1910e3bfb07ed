#include "host/vehicle/VehiclePollSet.h"

#include <utility>

namespace tarnlog::host {

VehiclePollSet::VehiclePollSet(std::vector<ferrox3::Request*> requests, std::vector<VehicleEcu*> ecus)
    : requests_(std::move(requests)), ecus_(std::move(ecus)), protocol_(ecus_) {}

void VehiclePollSet::finish() {
  requests_.clear();
  ecus_.clear();
  protocol_.forgetEcus();
}

}  // namespace tarnlog::host
