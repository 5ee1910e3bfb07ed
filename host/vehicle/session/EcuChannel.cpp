#include "host/vehicle/session/EcuChannel.h"

#include <fmt/format.h>

#include <algorithm>

#include "host/service/HexText.h"
#include "host/service/ResponseCheck.h"
#include "host/service/Timing.h"

namespace tarnlog::host {

EcuChannel::EcuChannel(const EcuDescription& description, SessionKeeper& conversation)
    : name_(description.name),
      conversation_(conversation),
      target_{description.address, description.protocol, description.responseAddress} {}

void EcuChannel::ask(std::span<const std::uint8_t> request, std::chrono::milliseconds timeout,
                     Link::Bytes& response) {
  const auto outcome = converse(request, timeout, response);
  if (outcome != Conversation::Outcome::answered) throw failure(outcome, request, response);
}

Conversation::Outcome EcuChannel::converse(std::span<const std::uint8_t> request,
                                           std::chrono::milliseconds timeout, Link::Bytes& response) {
  const auto outcome = conversation_.exchange(target_, request, timeout, response);
  if (outcome != Conversation::Outcome::silent && outcome != Conversation::Outcome::unreachable) ++answers_;
  if (outcome == Conversation::Outcome::answered)
    slowest_ = std::max(slowest_, times().received - times().sent);
  return outcome;
}

std::chrono::milliseconds EcuChannel::trialTime(std::chrono::milliseconds timeout) const {
  if (slowest_ == Moment{}) return timeout;
  const auto usual = std::chrono::ceil<std::chrono::milliseconds>(3 * slowest_);
  return std::min(timeout, std::max(timing::kP2, usual));
}

TarnError EcuChannel::failure(Conversation::Outcome outcome, std::span<const std::uint8_t> request,
                              std::span<const std::uint8_t> response) const {
  if (outcome == Conversation::Outcome::unreachable) return {1, "Link", conversation_.obstacle()};
  std::string text;
  if (outcome == Conversation::Outcome::refused)
    text = " refused: " + refusalText(response);
  else if (outcome == Conversation::Outcome::onlyPending)
    text = fmt::format(": still pending after {} ms", pendingTimeout().count());
  else
    text = ": " + silence({});
  return {1, "VehicleEcu.ask", fmt::format("{}: request {}{}", name_, shortHexText(request), text)};
}

}  // namespace tarnlog::host
