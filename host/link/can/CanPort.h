#pragma once

#include <cstdint>
#include <functional>
#include <span>

#include "host/link/LinkClock.h"
#include "host/link/can/IsoTp.h"

namespace tarnlog::host {

/// The pair of CAN identifiers over which one ECU is asked (`transmit`) and answers (`receive`). Above 0x7FF
/// an identifier is one of 29 bits.
struct CanPair {
  std::uint32_t transmit = 0;
  std::uint32_t receive = 0;

  /// Of an ECU's diagnostic address: 0x700 to 0x7F7 is the identifier of its requests, with the answers 8
  /// above it (ISO 15765-4); a byte is the ECU's address in identifiers of 29 bits, asked by tester F1; so
  /// is 0x18DAxxF1, which is that identifier itself. EcuUnreachable for others.
  static CanPair ofEcu(std::int32_t address);

  /// Functional addressing: requests go to all ECUs (7DF, or 18DBxxF1 with 29 bits), answers come from one.
  bool isFunctional() const { return transmit == 0x7DF || (transmit & 0x1FFF0000) == 0x18DB0000; }
  /// The identifier of that one ECU's own requests: where its flow control goes (ISO 15765-4).
  std::uint32_t ownRequests() const;
  bool operator==(const CanPair&) const = default;
};

/// A CAN bus: frames out, and those in that are listened to.
class CanPort {
 public:
  virtual ~CanPort() = default;
  virtual void open() = 0;
  virtual void close() = 0;
  /// Frames with these identifiers, and no others, are received from now on.
  virtual void listenTo(std::span<const std::uint32_t> identifiers) = 0;
  virtual void send(std::uint32_t identifier, const CanPayload& payload) = 0;
  /// The next frame; false when none came before `deadline`.
  virtual bool receive(std::uint32_t& identifier, CanPayload& payload, Moment deadline) = 0;
  virtual void setIdleHook(std::function<void()> hook) = 0;
};

}  // namespace tarnlog::host
