#include "host/link/doip/DoipLink.h"

#include <array>
#include <utility>

#include "host/link/doip/DoipFinder.h"
#include "host/service/ResponseCheck.h"
#include "platform/base/TarnError.h"

namespace tarnlog::host {

using namespace std::chrono_literals;

namespace {

constexpr auto kActivationTime = 2s;
constexpr auto kGroupTime = 1s;         ///< for the answers to a request to all ECUs
constexpr auto kNeighbourTime = 300ms;  ///< for one address; a gateway refuses unknown ones at once
constexpr auto kNeighboursTime = 10s;   ///< for all of them
constexpr auto kRestTime = 500ms;       ///< for the rest of a message that has begun
constexpr int kMostMisjudged = 2;       ///< responses that were dropped although they were the right ones

/// A functional address: responses carry the address of each ECU.
bool isGroup(std::uint16_t address) { return address >= 0xE000 && address <= 0xEFFF; }

/// A positive response to service 01, PID 00, or "response pending".
bool offersObd(std::span<const std::uint8_t> response) {
  if (response.empty()) return false;
  const ResponseClass kind = classifyResponse(kSupportedPids, response);
  return kind == ResponseClass::positive || kind == ResponseClass::pending;
}

}  // namespace

DoipLink::DoipLink(DoipSettings settings, Connect connect, LinkClock& clock)
    : settings_(std::move(settings)), connect_(std::move(connect)), clock_(clock) {}

void DoipLink::fail(const std::string& text) const {
  throw TarnError(1, "DoipLink", settings_.host + ": " + text);
}

std::string DoipLink::findHost() {
  if (settings_.host != "*") return settings_.host;
  const auto entity = findDoipEntity(settings_.host, settings_.port, clock_, waitHook_);
  if (!entity) fail("no vehicle answers on the local networks; is the cable plugged in and the ignition on?");
  gateway_ = entity->address;
  return entity->host;
}

void DoipLink::connect(const std::string& host) {
  doClose();
  stream_ = connect_(host, settings_.port);
  stream_->setIdleHook(waitHook_);
  stream_->open();
}

void DoipLink::doOpen() {
  patience_.begin();
  const std::string host = findHost();
  connect(host);
  if (activateRouting()) return;
  // After a negative acknowledgement of the version the gateway closes the connection (ISO 13400-2).
  connect(host);
  if (!activateRouting()) fail("the gateway did not understand a message");
}

void DoipLink::doClose() {
  if (stream_) stream_->close();
  stream_.reset();
  messages_.clear();
  ecus_.clear();
  groupAsked_ = false;
}

/// False when the gateway rejected the version of the protocol; `version_` is its own then.
bool DoipLink::activateRouting() {
  stream_->write(doipRoutingActivation(settings_.tester, version_));
  const Moment deadline = clock_.now() + kActivationTime;
  bool pending = false;
  do {
    const auto message = nextMessage(deadline);
    if (!message) break;
    if (speaksOtherVersion(*message)) {
      version_ = message->version;
      return false;
    }
    if (message->type != DoipType::routingActivationResponse) continue;
    if (isGranted(message->payload)) {
      gateway_ = doipNumber(message->payload, 2).value_or(gateway_);
      return true;
    }
    pending = true;
  } while (clock_.now() < deadline);
  fail(pending ? "the gateway waits until the connection is confirmed in the car"
               : "the gateway does not answer the activation of the connection");
}

bool DoipLink::speaksOtherVersion(const DoipMessage& refusal) const {
  constexpr std::uint8_t kIncorrectPattern = 0x00;
  return refusal.type == DoipType::refused && !refusal.payload.empty() &&
         refusal.payload[0] == kIncorrectPattern && refusal.version != version_;
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

std::uint16_t DoipLink::ecuOf(const LinkTarget& target) const {
  const auto own = static_cast<std::uint16_t>(target.address);
  return settings_.ecu.value_or(target.address > 0 && target.address <= 0xFFFF ? own : gateway_);
}

bool DoipLink::doSend(const LinkTarget& target, std::span<const std::uint8_t> request) {
  patience_.begin();
  post(ecuOf(target), request);
  return true;
}

/// After two requests without an answer in which a response was dropped, the order is not relied on any more.
void DoipLink::post(std::uint16_t address, std::span<const std::uint8_t> request) {
  Ecu& ecu = ecus_[address];
  if (ecu.open && ecu.early && ++ecu.misjudged >= kMostMisjudged) ecu.acknowledgesFirst = false;
  ecu.open = true;
  ecu.sequence = ++sequence_;
  ecu.acknowledged = ecu.early = false;
  groupAsked_ = groupAsked_ || isGroup(address);
  doipDiagnostic(settings_.tester, address, request, version_, frame_);
  stream_->write(frame_);
  noteSent(request);
}

Link::Received DoipLink::doReceive(Bytes& response, std::chrono::milliseconds timeout) {
  constexpr int kMost = 1000;  // a gateway that floods must not hold the caller for ever
  const Moment deadline = clock_.now() + timeout;
  for (int late = 0;;) {
    auto message = nextMessage(deadline);
    if (!message && timeout.count() == 0 && messages_.hasBegun()) {
      // Otherwise the next one would be appended to it.
      message = nextMessage(heard_ + kRestTime);
      if (!message) fail("the gateway broke off in the middle of a message");
    }
    if (!message) return Received::nothing;
    if (isAnswer(*message)) {
      if (const auto ecu = answererIn(*message); ecu != ecus_.end()) {
        setAnswerer(ecu->first);
        return take(*message, ecu->second, response);
      }
    }
    if (clock_.now() >= deadline && (timeout.count() > 0 || ++late > kMost)) return Received::nothing;
  }
}

/// A gateway acknowledges a request before its ECU can answer. A response before that is late or a duplicate,
/// if this gateway always acknowledges first.
Link::Received DoipLink::take(const DoipMessage& message, Ecu& ecu, Bytes& response) {
  if (ecu.acknowledgesFirst && !ecu.acknowledged) {
    ecu.early = true;
    return Received::unasked;
  }
  const auto bytes = message.payload.subspan(4);
  response.assign(bytes.begin(), bytes.end());
  ecu.open = false;
  if (ecu.misjudged < kMostMisjudged) {
    ecu.acknowledgesFirst = ecu.acknowledged;
    ecu.misjudged = 0;
  }
  return Received::response;
}

bool DoipLink::isAnswer(const DoipMessage& message) const {
  return message.type == DoipType::diagnostic && message.payload.size() > 4 &&
         doipNumber(message.payload, 2) == settings_.tester;
}

/// Who answers. Answers to a functional address come from any ECU, the first of them counts.
DoipLink::Ecus::iterator DoipLink::answererIn(const DoipMessage& message) {
  const auto known = ecus_.find(doipNumber(message.payload, 0).value_or(0));
  if (known != ecus_.end() && known->second.open) return known;
  const auto group =
      std::ranges::find_if(ecus_, [](const auto& ecu) { return isGroup(ecu.first) && ecu.second.open; });
  return group != ecus_.end() ? group : known;
}

/// Whose request is acknowledged or refused. Some gateways say that in their own name: then it is the oldest
/// request that waits for it.
DoipLink::Ecus::iterator DoipLink::waiterFor(const DoipMessage& message) {
  const std::uint16_t source = doipNumber(message.payload, 0).value_or(0);
  const auto waits = [](const Ecu& ecu) { return ecu.open && !ecu.acknowledged; };
  const auto known = ecus_.find(source);
  if (known != ecus_.end() && (waits(known->second) || source != gateway_)) return known;
  auto oldest = ecus_.end();
  for (auto ecu = ecus_.begin(); ecu != ecus_.end(); ++ecu)
    if (waits(ecu->second) && (oldest == ecus_.end() || ecu->second.sequence < oldest->second.sequence))
      oldest = ecu;
  return oldest;
}

/// The next message, after what the protocol itself asks for; none when none came in time.
std::optional<DoipMessage> DoipLink::nextMessage(Moment deadline) {
  std::array<std::uint8_t, 4096> bytes;
  for (;;) {
    if (const auto message = messages_.next()) {
      handle(*message);
      return message;
    }
    if (messages_.broken()) fail("what answers at this port does not speak diagnostics over IP");
    const std::size_t count = stream_->read(bytes, deadline);
    if (count == 0) return {};
    heard_ = clock_.now();
    messages_.append(std::span(bytes).first(count));
  }
}

void DoipLink::handle(const DoipMessage& message) {
  switch (message.type) {
    case DoipType::aliveCheckRequest:
      stream_->write(doipAliveResponse(settings_.tester, version_));
      break;
    case DoipType::refused:
      if (!speaksOtherVersion(message)) discarded(message);
      break;
    case DoipType::diagnosticAcknowledged:
      if (const auto ecu = waiterFor(message); ecu != ecus_.end()) ecu->second.acknowledged = true;
      break;
    case DoipType::diagnosticRefused:
      refused(message);
      break;
    default:
      break;
  }
}

void DoipLink::refused(const DoipMessage& message) {
  if (message.payload.size() > 4) turnAway(message, message.payload[4]);
}

/// By its header. A gateway reads on behind what is too long, or more than it has room for: then it was the
/// oldest request that is not acknowledged.
void DoipLink::discarded(const DoipMessage& message) {
  constexpr std::uint8_t kTooLarge = 0x02;
  constexpr std::uint8_t kOutOfMemory = 0x03;
  const int code = message.payload.empty() ? -1 : message.payload[0];
  if (code != kTooLarge && code != kOutOfMemory) fail("the gateway did not understand a message");
  turnAway(message, code == kTooLarge ? kDoipTooLarge : kDoipOutOfMemory);
}

void DoipLink::turnAway(const DoipMessage& message, std::uint8_t code) {
  const auto ecu = waiterFor(message);
  if (ecu == ecus_.end() || !ecu->second.open) return;
  ecu->second.open = false;
  setAnswerer(ecu->first);
  throw TurnedAway(1, "DoipLink", settings_.host + ": " + doipRefusalText(code));
}

std::vector<LinkTarget> DoipLink::doFindEcus() {
  patience_.begin();
  // Functional addresses: of ISO 27145 (OBD), and the usual one of manufacturers.
  constexpr std::uint16_t kGroups[] = {0xE000, 0xE400};
  if (settings_.ecu) return {LinkTarget{*settings_.ecu, std::string(kObdName)}};
  std::set<std::uint16_t> found;
  for (const std::uint16_t group : kGroups)
    if (found.empty()) askForObd(group, clock_.now() + kGroupTime, found);
  if (found.empty()) askNeighbours(found);
  groupAsked_ = false;
  if (found.empty())
    throw EcuUnreachable(1, "DoipLink",
                         settings_.host +
                             ": the gateway knows no ECU that offers OBD data; is the ignition "
                             "on? ?ecu= in the link names the address of one");
  std::vector<LinkTarget> ecus;
  ecus.reserve(found.size());
  for (const std::uint16_t address : found) ecus.push_back({address, std::string(kObdName)});
  return ecus;
}

/// Asks one ECU, or a group, and notes who answers.
void DoipLink::askForObd(std::uint16_t address, Moment deadline, std::set<std::uint16_t>& found) {
  post(address, kSupportedPids);  // nothing is discarded: a late response names an ECU, too
  try {
    do {
      const auto message = nextMessage(deadline);
      if (!message) break;
      if (message->type != DoipType::diagnostic || message->payload.size() <= 4) continue;
      const std::uint16_t source = doipNumber(message->payload, 0).value_or(0);
      if (offersObd(message->payload.subspan(4))) found.insert(source);
      if (source == address) break;
    } while (clock_.now() < deadline);
  } catch (const EcuUnreachable&) {
    // There is none at this address.
  }
  ecus_.erase(address);
}

/// The addresses that share the upper byte with the gateway's, its own first.
void DoipLink::askNeighbours(std::set<std::uint16_t>& found) {
  const Moment last = clock_.now() + kNeighboursTime;
  for (unsigned i = 0; i < 0x100 && clock_.now() < last; ++i) {
    const auto address = static_cast<std::uint16_t>((gateway_ & 0xFF00) | ((gateway_ + i) & 0xFF));
    if (address != 0 && address != settings_.tester) askForObd(address, clock_.now() + kNeighbourTime, found);
  }
}

}  // namespace tarnlog::host
