#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

/// The messages of diagnostics over IP (ISO 13400-2), as bytes.
namespace tarnlog::host {

inline constexpr std::uint16_t kDoipPort = 13400;
inline constexpr std::uint8_t kDoipVersion = 0x02;  ///< of the protocol, as of ISO 13400-2:2012

enum class DoipType : std::uint16_t {
  refused = 0x0000,  ///< generic negative acknowledgement of a header
  identificationRequest = 0x0001,
  announcement = 0x0004,  ///< also the answer to an identification request
  routingActivationRequest = 0x0005,
  routingActivationResponse = 0x0006,
  aliveCheckRequest = 0x0007,
  aliveCheckResponse = 0x0008,
  diagnostic = 0x8001,
  diagnosticAcknowledged = 0x8002,
  diagnosticRefused = 0x8003,
};

struct DoipMessage {
  DoipType type = DoipType::refused;
  std::uint8_t version = kDoipVersion;
  std::span<const std::uint8_t> payload;  ///< inside the bytes that it was read from
};

/// Cuts a stream into messages. What cannot be a header, or announces more than `kLongest` bytes, ends the
/// stream: there is no way to find the next header. The message before it was cut short then and filled up
/// with the one behind; it is not given.
class DoipStream {
 public:
  static constexpr std::size_t kLongest = 64 * 1024;  ///< bytes of a payload

  void append(std::span<const std::uint8_t> bytes);
  /// The next whole message, valid until the next call; none when more bytes are needed or the stream is
  /// broken.
  std::optional<DoipMessage> next();
  bool broken() const { return broken_; }
  /// A message has begun, and more bytes of it are to come.
  bool hasBegun() const { return used_ < bytes_.size(); }
  void clear();

 private:
  std::vector<std::uint8_t> bytes_;
  std::size_t used_ = 0;
  bool broken_ = false;
};

/// Reads one message that fills its datagram; none when it is anything else.
std::optional<DoipMessage> parseDoipDatagram(std::span<const std::uint8_t> bytes);

std::vector<std::uint8_t> doipIdentificationRequest();
/// Activation type 0, the default.
std::vector<std::uint8_t> doipRoutingActivation(std::uint16_t tester, std::uint8_t version);
std::vector<std::uint8_t> doipAliveResponse(std::uint16_t tester, std::uint8_t version);
/// Replaces what is in `out`.
void doipDiagnostic(std::uint16_t source, std::uint16_t target, std::span<const std::uint8_t> request,
                    std::uint8_t version, std::vector<std::uint8_t>& out);

/// The big-endian number at a place of a payload; none when the payload ends before.
std::optional<std::uint16_t> doipNumber(std::span<const std::uint8_t> payload, std::size_t place);

/// Why a routing activation was not granted, for a mechanic.
std::string doipActivationText(std::uint8_t code);
/// Codes of the gateway.
inline constexpr std::uint8_t kDoipTooLarge = 0x04;
inline constexpr std::uint8_t kDoipOutOfMemory = 0x05;
/// Why a diagnostic message was not delivered.
std::string doipRefusalText(std::uint8_t code);

}  // namespace tarnlog::host
