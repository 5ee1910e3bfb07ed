#include "host/vehicle/session/VehicleRequest.h"

#include "host/service/HexText.h"

namespace tarnlog::host {

VehicleRequest::VehicleRequest(const RequestDescription& description, ferrox3::Ecu& ecu, EcuChannel& channel,
                               const Devices& devices, const UserLocale& locale)
    : description_(description), ecu_(ecu), channel_(channel) {
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

void VehicleRequest::send() {
  const auto outcome = ask(Asking::patiently);
  if (outcome != Conversation::Outcome::answered) throw failure(outcome);
}

Conversation::Outcome VehicleRequest::ask(Asking how) {
  sent_ = true;
  exchange_.reset();
  const auto outcome = exchange(how);
  if (outcome == Conversation::Outcome::answered)
    for (VehicleDataItem& item : data_) item.decode(received_);
  return outcome;
}

void VehicleRequest::askAhead(Asking how) const {
  if (how != Asking::usual || bundle_ == nullptr || !bundle_->askAhead(description_))
    channel_.askAhead(description_.frame, timeout(how));
}

std::chrono::milliseconds VehicleRequest::timeout(Asking how) const {
  return how == Asking::onTrial ? channel_.trialTime(description_.timeout) : description_.timeout;
}

Conversation::Outcome VehicleRequest::exchange(Asking how) {
  using Taken = IdentifierBundle::Taken;
  const Taken taken =
      how != Asking::usual || bundle_ == nullptr ? Taken::alone : bundle_->take(description_, received_);
  if (taken == Taken::unreachable) return Conversation::Outcome::unreachable;
  if (taken == Taken::silent) {
    received_.clear();
    note(Conversation::Outcome::silent, bundle_->times());
    return Conversation::Outcome::silent;
  }
  if (taken == Taken::taken) {
    note(Conversation::Outcome::answered, bundle_->times());
    return Conversation::Outcome::answered;
  }
  const auto outcome = channel_.converse(description_.frame, timeout(how), received_);
  if (bundle_ != nullptr) bundle_->askedAlone(description_, outcome, received_);
  if (outcome != Conversation::Outcome::unreachable) note(outcome, channel_.times());
  return outcome;
}

void VehicleRequest::note(Conversation::Outcome outcome, const Conversation::Times& times) {
  using Shown = ferrox3::Exchange::Outcome;
  const Shown unanswered = outcome == Conversation::Outcome::refused ? Shown::Refused : Shown::Silent;
  exchange_ = {outcome == Conversation::Outcome::answered ? Shown::Answered : unanswered, times.sent.count(),
               times.received.count()};
}

TarnError VehicleRequest::failure(Conversation::Outcome outcome) const {
  return channel_.failure(outcome, description_.frame, received_);
}

void VehicleRequest::setNotAvailable() {
  for (VehicleDataItem& item : data_) item.setNotAvailable();
}

std::string VehicleRequest::sentText() const { return sent_ ? hexText(description_.frame) : std::string(); }

std::string VehicleRequest::receivedText() const { return hexText(received_); }

}  // namespace tarnlog::host
