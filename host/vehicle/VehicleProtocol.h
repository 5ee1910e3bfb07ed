#pragma once

#include <utility>
#include <vector>

#include "host/vehicle/VehicleEcu.h"
#include "platform/ferrox3/Session.h"

namespace tarnlog::host {

/// Asks each ECU once whether it is there.
class VehicleProtocol : public ferrox3::Protocol {
 public:
  explicit VehicleProtocol(std::vector<VehicleEcu*> ecus) : ecus_(std::move(ecus)) {}
  void initialiseAll() override;
  void forgetEcus() { ecus_.clear(); }

 private:
  std::vector<VehicleEcu*> ecus_;
};

}  // namespace tarnlog::host
