#pragma once

#include <memory>
#include <unordered_set>
#include <vector>

#include "host/vehicle/session/PolledRequest.h"
#include "host/vehicle/session/VehicleEcu.h"
#include "platform/ferrox3/Session.h"

namespace tarnlog::host {

/// Collects data items and finds the requests that carry them, in the order of first appearance.
class VehicleAcquisitionList : public ferrox3::AcquisitionList {
 public:
  explicit VehicleAcquisitionList(const Polling& polling) : polling_(polling) {}
  /// Raises error 5 for an item of another session.
  void add(ferrox3::DataItem& item) override;
  std::unique_ptr<ferrox3::PollSet> pollSet() override;
  /// Empties the list; poll sets made from it stay.
  void finish() override;

 private:
  const Polling& polling_;
  std::vector<VehicleRequest*> requests_;
  std::vector<VehicleEcu*> ecus_;
  std::unordered_set<const void*> known_;
};

}  // namespace tarnlog::host
