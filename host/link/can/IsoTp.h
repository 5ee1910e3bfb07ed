#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "host/link/LinkClock.h"

/// Messages over CAN frames (ISO 15765-2, normal addressing, classic CAN): what is said, without a bus.
namespace tarnlog::host {

/// Fills the frames up; causes the fewest stuff bits on the wire.
inline constexpr std::uint8_t kIsoTpPadding = 0xCC;

/// The up to 8 bytes of a classic CAN frame.
class CanPayload {
 public:
  CanPayload() = default;
  explicit CanPayload(std::span<const std::uint8_t> bytes) { append(bytes); }

  /// Bytes beyond the eighth are dropped.
  void append(std::span<const std::uint8_t> bytes) {
    const std::size_t count = std::min(bytes.size(), bytes_.size() - size_);
    std::copy_n(bytes.begin(), count, bytes_.begin() + static_cast<std::ptrdiff_t>(size_));
    size_ += count;
  }
  void append(std::uint8_t byte) { append(std::span(&byte, 1)); }
  void pad() {
    while (size_ < bytes_.size()) append(kIsoTpPadding);
  }
  std::span<const std::uint8_t> bytes() const { return {bytes_.data(), size_}; }

 private:
  std::array<std::uint8_t, 8> bytes_{};
  std::size_t size_ = 0;
};

/// Puts the frames of one sender together. Frames that make no sense are passed over; memory is bounded.
class IsoTpReceiver {
 public:
  static constexpr std::size_t kLongest = 4095;  ///< bytes of a message

  struct Result {
    bool complete = false;            ///< `message` is whole
    std::optional<CanPayload> reply;  ///< flow control, to be sent to the sender
    std::string_view fault;           ///< why a message was given up; empty when none was
  };

  Result accept(std::span<const std::uint8_t> frame);
  const std::vector<std::uint8_t>& message() const { return message_; }
  /// A long message has begun, and more frames of it are to come.
  bool isUnderWay() const { return expected_ != 0; }
  void reset();

 private:
  Result acceptSingle(std::span<const std::uint8_t> frame);
  Result acceptFirst(std::span<const std::uint8_t> frame);
  Result acceptConsecutive(std::span<const std::uint8_t> frame);
  void take(std::span<const std::uint8_t> bytes);

  std::vector<std::uint8_t> message_;
  std::size_t expected_ = 0;  ///< length of the message under way; 0 when there is none
  std::uint8_t sequence_ = 0;
};

/// Cuts one message into frames and sends them as the receiver's flow control allows. The
/// moments may be those of any clock.
class IsoTpSender {
 public:
  /// Begins a message of 1 to 4095 bytes (TarnError otherwise); what is left of the one before is dropped.
  void start(std::span<const std::uint8_t> message);
  /// A flow-control frame came; others are passed over. TarnError when the receiver gives up.
  void flowControl(std::span<const std::uint8_t> frame, Moment now);
  /// The frame that is due; none when the message is out, the receiver is waited for, or it is too early.
  std::optional<CanPayload> next(Moment now);

  bool finished() const { return sent_ == message_.size(); }
  /// The receiver has the word; `next` gives nothing before its flow control.
  bool awaitsFlowControl() const { return blocked_; }
  /// When the next frame may be sent.
  Moment due() const { return due_; }

 private:
  CanPayload firstFrame();

  std::vector<std::uint8_t> message_;
  std::size_t sent_ = 0;
  std::uint8_t sequence_ = 0;
  bool blocked_ = false;
  int leftInBlock_ = 0;  ///< frames until the next flow control; below 0: without end
  std::chrono::microseconds separation_{};
  Moment due_{};
};

}  // namespace tarnlog::host
