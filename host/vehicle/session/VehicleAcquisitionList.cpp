#include "host/vehicle/session/VehicleAcquisitionList.h"

#include "host/vehicle/session/VehiclePollSet.h"
#include "platform/base/TarnError.h"

namespace tarnlog::host {

void VehicleAcquisitionList::add(ferrox3::DataItem& item) {
  auto* const request = dynamic_cast<VehicleRequest*>(&item.request());
  if (request == nullptr)
    throw TarnError(5, "VehicleAcquisitionList.add", item.name() + " does not come from this session");
  if (known_.insert(request).second) requests_.push_back(request);
  auto* const ecu = dynamic_cast<VehicleEcu*>(&request->ecu());
  if (known_.insert(ecu).second) ecus_.push_back(ecu);
}

std::unique_ptr<ferrox3::PollSet> VehicleAcquisitionList::pollSet() {
  return std::make_unique<VehiclePollSet>(requests_, ecus_, polling_);
}

void VehicleAcquisitionList::finish() {
  requests_.clear();
  ecus_.clear();
  known_.clear();
}

}  // namespace tarnlog::host
