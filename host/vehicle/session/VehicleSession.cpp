#include "host/vehicle/session/VehicleSession.h"

#include <utility>

#include "host/vehicle/session/VehicleAcquisitionList.h"
#include "host/vehicle/session/VehicleRawBuffer.h"
#include "platform/base/TarnError.h"

namespace tarnlog::host {

VehicleSession::VehicleSession(const VehicleDescription& description, Link& link, LinkClock& clock,
                               UserLocale locale)
    : locale_(std::move(locale)),
      conversation_(link, clock, description.pendingTimeout),
      keeper_(conversation_, clock),
      polling_{keeper_, clock} {
  ecus_.reserve(description.ecus.size());
  for (const EcuDescription& ecu : description.ecus) {
    ecus_.push_back(std::make_unique<VehicleEcu>(
        ecu, keeper_, [this](const std::string& name) { return deviceOf(name); }, locale_));
    byFunction_.emplace(ecu.function, ecus_.back().get());
  }
}

VehicleSession::~VehicleSession() {
  skipOnFailure([this] { keeper_.end(); });
}

ferrox3::Ecu* VehicleSession::findEcuByFunction(std::string_view functionName) const {
  const auto found = byFunction_.find(functionName);
  return found == byFunction_.end() ? nullptr : found->second;
}

std::unique_ptr<ferrox3::AcquisitionList> VehicleSession::createAcquisitionList() {
  return std::make_unique<VehicleAcquisitionList>(polling_);
}

std::unique_ptr<ferrox3::RawBuffer> VehicleSession::createRawBuffer() {
  return std::make_unique<VehicleRawBuffer>();
}

const VehicleDevice* VehicleSession::deviceOf(const std::string& name) {
  if (name.empty()) return nullptr;
  auto& device = devices_[name];
  if (!device) device = std::make_unique<VehicleDevice>(name);
  return device.get();
}

}  // namespace tarnlog::host
