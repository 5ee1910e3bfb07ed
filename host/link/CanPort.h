#pragma once

#include <cstdint>

#include "host/link/ByteStream.h"
#include "host/link/IsoTp.h"

namespace tarnlog::host {

/// The pair of CAN identifiers over which one ECU is asked (`transmit`) and answers (`receive`). Above 0x7FF
/// an identifier is one of 29 bits.
struct CanPair {
  std::uint32_t transmit = 0;
  std::uint32_t receive = 0;

  /// Of an ECU's diagnostic address: 0x700 to 0x7F7 is the identifier of its requests, with the answers 8
  /// above it (ISO 15765-4); a byte is the ECU's address in identifiers of 29 bits, asked by tester F1; so
  /// is 0x18DAxxF1, which is that identifier itself.
  static CanPair ofEcu(std::int32_t address);
  bool operator==(const CanPair&) const = default;
};

/// Frames of one pair, out and in.
class CanPort {
 public:
  virtual ~CanPort() = default;
  virtual void open() = 0;
  virtual void close() = 0;
  virtual void send(const CanPayload& payload) = 0;
  /// The next frame of the ECU; false when none came before `deadline`, in microseconds of the link clock.
  virtual bool receive(CanPayload& payload, std::int64_t deadline) = 0;
  virtual void setIdleHook(std::function<void()> hook) = 0;
};

}  // namespace tarnlog::host
