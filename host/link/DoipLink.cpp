#include "host/link/DoipLink.h"

#include <array>
#include <utility>

#include "host/link/DoipFinder.h"
#include "platform/base/TarnError.h"

namespace tarnlog::host {
namespace {

constexpr std::int64_t kActivationTime = 2'000'000;  ///< microseconds

/// Requests to a group of ECUs are answered by each in its own name.
bool isGroup(std::uint16_t address) { return address >= 0xE000 && address <= 0xEFFF; }

}  // namespace

DoipLink::DoipLink(DoipSettings settings, Connect connect, LinkClock& clock)
    : settings_(std::move(settings)), connect_(std::move(connect)), clock_(clock) {}

void DoipLink::fail(const std::string& text) const {
  throw TarnError(1, "DoipLink", settings_.host + ": " + text);
}

std::string DoipLink::findHost() {
  if (settings_.host != "*") return settings_.host;
  const auto entity = findDoipEntity(settings_.host, settings_.port, clock_, idleHook());
  if (!entity) fail("no vehicle answers on the local networks; is the cable plugged in and the ignition on?");
  gateway_ = entity->address;
  return entity->host;
}

void DoipLink::open() {
  close();
  stream_ = connect_(findHost(), settings_.port);
  stream_->setIdleHook([this] { idle(); });
  stream_->open();
  activateRouting();
}

void DoipLink::close() {
  if (stream_) stream_->close();
  stream_.reset();
  messages_.clear();
}

void DoipLink::activateRouting() {
  stream_->write(doipRoutingActivation(settings_.tester));
  const std::int64_t deadline = clock_.microseconds() + kActivationTime;
  do {
    const auto message = nextMessage(deadline);
    if (!message) break;
    if (message->type == DoipType::routingActivationResponse && isGranted(message->payload)) {
      gateway_ = doipNumber(message->payload, 2).value_or(gateway_);
      return;
    }
  } while (clock_.microseconds() < deadline);
  fail("the gateway does not answer the activation of the connection");
}

/// False while somebody in the car is asked; a refusal is raised.
bool DoipLink::isGranted(std::span<const std::uint8_t> activation) const {
  constexpr std::size_t kCode = 4;
  constexpr std::uint8_t kGranted = 0x10;
  constexpr std::uint8_t kConfirmationPending = 0x11;
  if (activation.size() <= kCode) fail("the gateway's answer to the activation is cut off");
  const std::uint8_t code = activation[kCode];
  if (code != kGranted && code != kConfirmationPending) fail(doipActivationText(code));
  return code == kGranted;
}

void DoipLink::send(const LinkTarget& target, std::span<const std::uint8_t> request) {
  if (!stream_) fail("the connection is not open");
  const auto own = static_cast<std::uint16_t>(target.address);
  target_ = settings_.ecu.value_or(target.address > 0 && target.address <= 0xFFFF ? own : gateway_);
  doipDiagnostic(settings_.tester, target_, request, frame_);
  stream_->write(frame_);
}

bool DoipLink::receive(Bytes& response, std::chrono::milliseconds timeout) {
  if (!stream_) fail("the connection is not open");
  const std::int64_t deadline = clock_.microseconds() + std::chrono::microseconds(timeout).count();
  // A gateway that floods must not hold the caller for ever, so the time is looked at after each message.
  do {
    const auto message = nextMessage(deadline);
    if (!message) return false;
    if (isAnswer(*message)) {
      const auto bytes = message->payload.subspan(4);
      response.assign(bytes.begin(), bytes.end());
      return true;
    }
  } while (clock_.microseconds() < deadline);
  return false;
}

bool DoipLink::isAnswer(const DoipMessage& message) const {
  if (message.type != DoipType::diagnostic || message.payload.size() <= 4) return false;
  const auto source = doipNumber(message.payload, 0);
  const auto receiver = doipNumber(message.payload, 2);
  return receiver == settings_.tester && (source == target_ || isGroup(target_));
}

/// The next message, after what the protocol itself asks for; none when none came in time.
std::optional<DoipMessage> DoipLink::nextMessage(std::int64_t deadline) {
  std::array<std::uint8_t, 4096> bytes;
  for (;;) {
    if (const auto message = messages_.next()) {
      handle(*message);
      return message;
    }
    if (messages_.broken()) fail("what answers at this port does not speak diagnostics over IP");
    const std::size_t count = stream_->read(bytes, deadline);
    if (count == 0) return {};
    messages_.append(std::span(bytes).first(count));
  }
}

void DoipLink::handle(const DoipMessage& message) {
  switch (message.type) {
    case DoipType::aliveCheckRequest:
      stream_->write(doipAliveResponse(settings_.tester));
      break;
    case DoipType::refused:
      fail("the gateway did not understand a message");
    case DoipType::diagnosticRefused:
      if (message.payload.size() > 4 && doipNumber(message.payload, 0) == target_)
        fail(doipRefusalText(message.payload[4]));
      break;
    default:
      break;
  }
}

std::vector<LinkTarget> DoipLink::findEcus() {
  if (!settings_.ecu) return {};
  return {LinkTarget{*settings_.ecu, "OBD-II"}};
}

}  // namespace tarnlog::host
