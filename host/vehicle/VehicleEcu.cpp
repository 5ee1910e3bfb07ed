#include "host/vehicle/VehicleEcu.h"

#include <fmt/format.h>

#include <array>

#include "host/link/HexText.h"
#include "host/vehicle/ResponseCheck.h"
#include "host/vehicle/VehicleRawBuffer.h"
#include "platform/base/TarnError.h"

namespace tarnlog::host {
namespace {

constexpr std::uint8_t kStartDiagnosticSession = 0x10;

const VehicleRawBuffer& ownBuffer(const ferrox3::RawBuffer& buffer) {
  if (const auto* const own = dynamic_cast<const VehicleRawBuffer*>(&buffer)) return *own;
  throw TarnError(5, "VehicleEcu.exchange", "The buffer does not come from this session");
}

}  // namespace

VehicleEcu::VehicleEcu(const EcuDescription& description, SessionKeeper& conversation,
                       const VehicleRequest::Devices& devices, const UserLocale& locale)
    : description_(description),
      conversation_(conversation),
      target_{description.address, description.protocol, description.responseAddress} {
  requests_.reserve(description.requests.size());
  for (const RequestDescription& request : description.requests) {
    requests_.push_back(std::make_unique<VehicleRequest>(request, *this, devices, locale));
    requestsByName_.emplace(request.name, requests_.back().get());
  }
  collectData();
  if (description.protocol == "KWP2000") kwp2000_.emplace(*this);
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
  ask(bytes, description_.timeout, response_);
  dynamic_cast<VehicleRawBuffer&>(response).take(response_);
}

void VehicleEcu::ask(std::span<const std::uint8_t> request, std::chrono::milliseconds timeout,
                     Link::Bytes& response) {
  const auto fail = [&](const std::string& text) {
    throw TarnError(1, "VehicleEcu.ask",
                    fmt::format("{}: request {}{}", name(), shortHexText(request), text));
  };
  switch (converse(request, timeout, response)) {
    case Conversation::Outcome::answered:
      return;
    case Conversation::Outcome::refused:
      fail(fmt::format(" refused: {} {}", shortHexText(response), negativeResponseText(response[2])));
      break;
    case Conversation::Outcome::silent:
      fail(": " + conversation_.silence({}));
      break;
    case Conversation::Outcome::onlyPending:
      fail(fmt::format(": still pending after {} ms", conversation_.pendingTimeout().count()));
      break;
  }
}

void VehicleEcu::initialise() {
  const auto frame = firstFrame();
  if (frame.empty()) return;
  const auto outcome = converse(frame, description_.timeout, response_);
  if (outcome == Conversation::Outcome::answered || outcome == Conversation::Outcome::refused) return;
  const std::string greeting = shortHexText(frame);
  throw TarnError(
      1, "VehicleEcu.initialise",
      outcome == Conversation::Outcome::silent
          ? conversation_.silence(greeting)
          : fmt::format("no answer to {} within {} ms", greeting, conversation_.pendingTimeout().count()));
}

/// The frame that the ECU is greeted with; empty when it has no request that could be sent.
std::span<const std::uint8_t> VehicleEcu::firstFrame() const {
  if (!description_.initialisation.empty()) return description_.initialisation;
  for (const RequestDescription& request : description_.requests)
    if (request.available) return request.frame;
  return {};
}

Conversation::Outcome VehicleEcu::converse(std::span<const std::uint8_t> request,
                                           std::chrono::milliseconds timeout, Link::Bytes& response) {
  return conversation_.exchange(target_, request, timeout, response);
}

void VehicleEcu::SessionStarter::startDiagnosticSession(std::uint8_t mode) {
  const std::array<std::uint8_t, 2> frame{kStartDiagnosticSession, mode};
  ecu_.ask(frame, ecu_.description_.timeout, ecu_.response_);
}

}  // namespace tarnlog::host
