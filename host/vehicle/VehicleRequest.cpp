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
  const auto outcome = ask(false);
  if (outcome != Conversation::Outcome::answered) throw failure(outcome);
}

Conversation::Outcome VehicleRequest::ask(bool alone) {
  sent_ = true;
  auto outcome = Conversation::Outcome::answered;
  if (alone || bundle_ == nullptr || !bundle_->take(*this, received_))
    outcome = ecu_.converse(description_.frame, description_.timeout, received_);
  if (outcome == Conversation::Outcome::answered)
    for (VehicleDataItem& item : data_) item.decode(received_);
  return outcome;
}

TarnError VehicleRequest::failure(Conversation::Outcome outcome) const {
  return ecu_.failure(outcome, description_.frame, received_);
}

void VehicleRequest::setNotAvailable() {
  for (VehicleDataItem& item : data_) item.setNotAvailable();
}

std::string VehicleRequest::sentText() const { return sent_ ? hexText(description_.frame) : std::string(); }

std::string VehicleRequest::receivedText() const { return hexText(received_); }

}  // namespace tarnlog::host
