#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "host/vehicle/session/IdentifierBundle.h"
#include "host/vehicle/session/PollCycle.h"
#include "host/vehicle/session/PolledRequest.h"
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

/// Requests and ECUs in the order in which their first data item was added. Requests that can be asked for
/// together are bundled; what the car refuses is left out, unless the description wants an error.
class VehiclePollSet : public ferrox3::PollSet {
 public:
  VehiclePollSet(const std::vector<VehicleRequest*>& requests, std::vector<VehicleEcu*> ecus,
                 const Polling& polling);
  ~VehiclePollSet() override;
  VehiclePollSet(const VehiclePollSet&) = delete;
  VehiclePollSet& operator=(const VehiclePollSet&) = delete;
  std::size_t requestCount() const override { return requests_.size(); }
  ferrox3::Request& request(std::size_t position) const override { return *requests_[position]; }
  std::size_t ecuCount() const override { return ecus_.size(); }
  ferrox3::Ecu& ecu(std::size_t position) const override { return *ecus_[position]; }
  ferrox3::Protocol& protocol() override { return protocol_; }
  /// Empties the set.
  void finish() override;

 private:
  void bundle(const std::vector<VehicleRequest*>& requests);
  void unbundle();

  std::deque<PolledRequest> polled_;
  PollCycle cycle_;
  std::vector<ferrox3::Request*> requests_;
  std::vector<VehicleEcu*> ecus_;
  std::vector<std::unique_ptr<IdentifierBundle>> bundles_;
  std::vector<VehicleRequest*> bundled_;
  VehicleProtocol protocol_;
};

}  // namespace tarnlog::host
