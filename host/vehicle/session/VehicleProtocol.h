#pragma once

#include <functional>
#include <utility>
#include <vector>

#include "host/vehicle/session/VehicleEcu.h"
#include "platform/ferrox3/Session.h"

namespace tarnlog::host {

/// Asks each ECU once whether it is there. What was received before is old then: `begins` is told.
class VehicleProtocol : public ferrox3::Protocol {
 public:
  VehicleProtocol(std::vector<VehicleEcu*> ecus, std::function<void()> begins)
      : ecus_(std::move(ecus)), begins_(std::move(begins)) {}
  void initialiseAll() override;
  void forgetEcus() { ecus_.clear(); }

 private:
  std::vector<VehicleEcu*> ecus_;
  std::function<void()> begins_;
};

}  // namespace tarnlog::host
