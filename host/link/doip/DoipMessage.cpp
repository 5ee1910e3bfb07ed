#include "host/link/doip/DoipMessage.h"

#include <fmt/format.h>

namespace tarnlog::host {
namespace {

constexpr std::size_t kHeader = 8;
constexpr std::uint8_t kAnyVersion = 0xFF;  ///< of requests for identification

std::size_t lengthIn(std::span<const std::uint8_t> header) {
  std::size_t length = 0;
  for (std::size_t i = 4; i < kHeader; ++i) length = length << 8 | header[i];
  return length;
}

/// So far as it has come.
bool isHeader(std::span<const std::uint8_t> header) {
  if (header.size() >= 2 && static_cast<std::uint8_t>(~header[0]) != header[1]) return false;
  return header.size() < kHeader || lengthIn(header) <= DoipStream::kLongest;
}

DoipType typeIn(std::span<const std::uint8_t> header) {
  return static_cast<DoipType>(header[2] << 8 | header[3]);
}

void appendNumber(std::vector<std::uint8_t>& out, std::uint16_t number) {
  out.push_back(static_cast<std::uint8_t>(number >> 8));
  out.push_back(static_cast<std::uint8_t>(number));
}

void appendHeader(std::vector<std::uint8_t>& out, DoipType type, std::size_t length, std::uint8_t version) {
  out.push_back(version);
  out.push_back(static_cast<std::uint8_t>(~version));
  appendNumber(out, static_cast<std::uint16_t>(type));
  appendNumber(out, static_cast<std::uint16_t>(length >> 16));
  appendNumber(out, static_cast<std::uint16_t>(length));
}

}  // namespace

void DoipStream::append(std::span<const std::uint8_t> bytes) {
  if (broken_) return;
  bytes_.erase(bytes_.begin(), bytes_.begin() + static_cast<std::ptrdiff_t>(used_));
  used_ = 0;
  bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
}

std::optional<DoipMessage> DoipStream::next() {
  const std::span<const std::uint8_t> rest = std::span<const std::uint8_t>(bytes_).subspan(used_);
  if (broken_ || rest.size() < kHeader) return {};
  const std::size_t size = isHeader(rest) ? kHeader + lengthIn(rest) : 0;
  if (rest.size() < size) return {};
  if (size == 0 || !isHeader(rest.subspan(size))) {
    clear();
    broken_ = true;
    return {};
  }
  used_ += size;
  return DoipMessage{typeIn(rest), rest[0], rest.subspan(kHeader, size - kHeader)};
}

void DoipStream::clear() {
  bytes_.clear();
  used_ = 0;
  broken_ = false;
}

std::optional<DoipMessage> parseDoipDatagram(std::span<const std::uint8_t> bytes) {
  if (bytes.size() < kHeader || !isHeader(bytes) || bytes.size() != kHeader + lengthIn(bytes)) return {};
  return DoipMessage{typeIn(bytes), bytes[0], bytes.subspan(kHeader)};
}

std::vector<std::uint8_t> doipIdentificationRequest() {
  std::vector<std::uint8_t> out;
  appendHeader(out, DoipType::identificationRequest, 0, kAnyVersion);
  return out;
}

std::vector<std::uint8_t> doipRoutingActivation(std::uint16_t tester, std::uint8_t version) {
  std::vector<std::uint8_t> out;
  appendHeader(out, DoipType::routingActivationRequest, 7, version);
  appendNumber(out, tester);
  out.insert(out.end(), 5, 0);
  return out;
}

std::vector<std::uint8_t> doipAliveResponse(std::uint16_t tester, std::uint8_t version) {
  std::vector<std::uint8_t> out;
  appendHeader(out, DoipType::aliveCheckResponse, 2, version);
  appendNumber(out, tester);
  return out;
}

void doipDiagnostic(std::uint16_t source, std::uint16_t target, std::span<const std::uint8_t> request,
                    std::uint8_t version, std::vector<std::uint8_t>& out) {
  out.clear();
  appendHeader(out, DoipType::diagnostic, 4 + request.size(), version);
  appendNumber(out, source);
  appendNumber(out, target);
  out.insert(out.end(), request.begin(), request.end());
}

std::optional<std::uint16_t> doipNumber(std::span<const std::uint8_t> payload, std::size_t place) {
  if (payload.size() < place + 2) return {};
  return static_cast<std::uint16_t>(payload[place] << 8 | payload[place + 1]);
}

std::string doipActivationText(std::uint8_t code) {
  switch (code) {
    case 0x00:
      return "the gateway does not know this tester address";
    case 0x01:
      return "all connections of the gateway are taken by other testers";
    case 0x02:
      return "this connection is already in use for another tester address";
    case 0x03:
      return "this tester address is in use on another connection";
    case 0x04:
      return "the gateway asks for authentication";
    case 0x05:
      return "the connection was not confirmed in the car";
    case 0x06:
      return "the gateway does not support this kind of activation";
    case 0x07:
      return "the gateway asks for an encrypted connection (TLS)";
    default:
      return fmt::format("the gateway refuses the connection (code {:02X})", code);
  }
}

std::string doipRefusalText(std::uint8_t code) {
  switch (code) {
    case 0x02:
      return "the gateway does not accept this tester address";
    case 0x03:
      return "the gateway knows no ECU of this address";
    case kDoipTooLarge:
      return "the request is too long for the gateway";
    case kDoipOutOfMemory:
      return "the gateway is out of memory";
    case 0x06:
      return "the ECU cannot be reached; is the ignition on?";
    case 0x07:
      return "the network of this ECU is unknown to the gateway";
    case 0x08:
      return "the gateway's link to the ECU failed";
    default:
      return fmt::format("the gateway did not deliver the request (code {:02X})", code);
  }
}

}  // namespace tarnlog::host
