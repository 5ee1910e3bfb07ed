#include "host/vehicle/session/VehicleSession.h"

#include <utility>

#include "host/service/ServiceNames.h"
#include "host/vehicle/session/VehicleAcquisitionList.h"
#include "host/vehicle/session/VehicleRawBuffer.h"
#include "platform/base/TarnError.h"

namespace tarnlog::host {

VehicleSession::VehicleSession(const VehicleDescription& description, Link& link, LinkClock& clock,
                               UserLocale locale)
    : description_(description),
      locale_(std::move(locale)),
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

std::vector<ferrox3::Fact> VehicleSession::facts() const {
  std::vector<ferrox3::Fact> facts{{"vehicle", description_.name},
                                   {"VIN", description_.vin},
                                   {"adapter", conversation_.adapterName()},
                                   {"link", linkText_}};
  std::erase_if(facts, [](const ferrox3::Fact& fact) { return fact.text.empty(); });
  return facts;
}

std::vector<ferrox3::ServiceCount> VehicleSession::servicesSent() const {
  const ServiceCounts& sent = conversation_.servicesSent();
  std::vector<ferrox3::ServiceCount> counts;
  for (std::size_t service = 0; service < sent.size(); ++service) {
    if (sent[service] == 0) continue;
    const auto number = static_cast<std::uint8_t>(service);
    counts.push_back({number, sent[service], serviceName(number)});
  }
  return counts;
}

const VehicleDevice* VehicleSession::deviceOf(const std::string& name) {
  if (name.empty()) return nullptr;
  auto& device = devices_[name];
  if (!device) device = std::make_unique<VehicleDevice>(name);
  return device.get();
}

}  // namespace tarnlog::host
