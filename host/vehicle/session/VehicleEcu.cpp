#include "host/vehicle/session/VehicleEcu.h"

#include <fmt/format.h>

#include <array>

#include "host/service/HexText.h"
#include "host/service/Protocol.h"
#include "host/vehicle/session/VehicleRawBuffer.h"
#include "platform/base/TarnError.h"

namespace tarnlog::host {
namespace {

const VehicleRawBuffer& ownBuffer(const ferrox3::RawBuffer& buffer) {
  if (const auto* const own = dynamic_cast<const VehicleRawBuffer*>(&buffer)) return *own;
  throw TarnError(5, "VehicleEcu.exchange", "The buffer does not come from this session");
}

}  // namespace

VehicleEcu::VehicleEcu(const EcuDescription& description, SessionKeeper& conversation,
                       const VehicleRequest::Devices& devices, const UserLocale& locale)
    : description_(description), channel_(description, conversation) {
  requests_.reserve(description.requests.size());
  for (const RequestDescription& request : description.requests) {
    requests_.push_back(std::make_unique<VehicleRequest>(request, *this, channel_, devices, locale));
    requestsByName_.emplace(request.name, requests_.back().get());
  }
  collectData();
  while (greeting_ < requests_.size() && !requests_[greeting_]->available()) ++greeting_;
  if (protocolOf(description.protocol) == Protocol::kwp2000) kwp2000_.emplace(*this);
}

void VehicleEcu::collectData() {
  for (const auto& request : requests_) {
    const auto& descriptions = request->description().data;
    for (std::size_t i = 0; i < descriptions.size(); ++i) {
      if (descriptions[i].reference)
        dataByName_[descriptions[i].name] = &request->data(i);
      else
        dataByName_.emplace(descriptions[i].name, &request->data(i));
    }
  }
}

ferrox3::Request* VehicleEcu::findRequest(std::string_view name) const {
  const auto found = requestsByName_.find(name);
  return found == requestsByName_.end() ? nullptr : found->second;
}

ferrox3::DataItem* VehicleEcu::findData(std::string_view name) const {
  const auto found = dataByName_.find(name);
  return found == dataByName_.end() ? nullptr : found->second;
}

void VehicleEcu::exchange(const ferrox3::RawBuffer& request, ferrox3::RawBuffer& response) {
  const auto bytes = ownBuffer(request).bytes();
  ownBuffer(response);
  if (bytes.empty()) throw TarnError(1, "VehicleEcu.exchange", name() + ": the request has no bytes");
  channel_.ask(bytes, description_.timeout, response_);
  dynamic_cast<VehicleRawBuffer&>(response).take(response_);
}

void VehicleEcu::initialise() {
  const auto frame = greetingFrame();
  if (frame.empty()) return;
  const auto outcome = channel_.converse(frame, description_.timeout, response_);
  if (outcome == Conversation::Outcome::answered || outcome == Conversation::Outcome::refused) return;
  if (outcome == Conversation::Outcome::unreachable) throw channel_.failure(outcome, frame, response_);
  if (outcome == Conversation::Outcome::silent) changeGreeting();
  const std::string greeting = shortHexText(frame);
  throw TarnError(
      1, "VehicleEcu.initialise",
      outcome == Conversation::Outcome::silent
          ? channel_.silence(greeting)
          : fmt::format("no answer to {} within {} ms", greeting, channel_.pendingTimeout().count()));
}

/// Empty when the ECU has no request that could be sent.
std::span<const std::uint8_t> VehicleEcu::greetingFrame() const {
  if (!description_.initialisation.empty()) return description_.initialisation;
  if (greeting_ == description_.requests.size()) return {};
  return description_.requests[greeting_].frame;
}

/// To the next request that only reads something.
void VehicleEcu::changeGreeting() {
  const auto& requests = description_.requests;
  for (std::size_t step = 1; step < requests.size(); ++step) {
    const std::size_t next = (greeting_ + step) % requests.size();
    if (!requests[next].available || requests[next].data.empty()) continue;
    greeting_ = next;
    return;
  }
}

void VehicleEcu::SessionStarter::startDiagnosticSession(std::uint8_t mode) {
  const std::array<std::uint8_t, 2> frame{service::kDiagnosticSessionControl, mode};
  ecu_.channel_.ask(frame, ecu_.description_.timeout, ecu_.response_);
}

}  // namespace tarnlog::host
