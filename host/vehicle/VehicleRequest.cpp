#include "host/vehicle/VehicleRequest.h"

#include "host/link/HexText.h"
#include "host/vehicle/PidBundle.h"
#include "host/vehicle/VehicleEcu.h"

namespace tarnlog::host {

VehicleRequest::VehicleRequest(const RequestDescription& description, VehicleEcu& ecu, const Devices& devices,
                               const UserLocale& locale)
    : description_(description), ecu_(ecu) {
  byName_.reserve(description.data.size());
  for (const DataDescription& data : description.data) {
    VehicleDataItem& item = data_.emplace_back(data, devices(data.device), *this, locale);
    items_.push_back(&item);
    byName_.emplace(data.name, &item);
  }
}

std::string VehicleRequest::frameText(bool sent) const {
  return hexText(sent ? description_.frame : received_);
}

ferrox3::DataItem* VehicleRequest::findData(std::string_view name) const {
  const auto found = byName_.find(name);
  return found == byName_.end() ? nullptr : found->second;
}

ferrox3::Ecu& VehicleRequest::ecu() const { return ecu_; }

void VehicleRequest::send() {
  sent_ = true;
  if (bundle_ == nullptr || !bundle_->take(*this, received_))
    ecu_.ask(description_.frame, description_.timeout, received_);
  for (VehicleDataItem& item : data_) item.decode(received_);
}

std::string VehicleRequest::sentText() const { return sent_ ? hexText(description_.frame) : std::string(); }

std::string VehicleRequest::receivedText() const { return hexText(received_); }

}  // namespace tarnlog::host
