#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "host/link/LinkClock.h"
#include "host/link/can/CanPort.h"

namespace tarnlog::host {

/// Messages of one ECU over CAN frames (ISO 15765-2), step by step: one request at a time out, responses in.
/// It sends by itself; whoever drives it passes on the ECU's frames and the time.
class IsoTpChannel {
 public:
  /// `port` must outlive it.
  IsoTpChannel(CanPort& port, CanPair pair) : port_(port), pair_(pair) {}

  const CanPair& pair() const { return pair_; }

  /// Begins a request; what is left of the one before is dropped, and so is the response that has begun to
  /// come. A request to all ECUs has to fit into one frame: EcuUnreachable else.
  void send(std::span<const std::uint8_t> request, Moment now);
  /// A frame came. True: `message` is a whole response.
  bool accept(std::span<const std::uint8_t> frame, Moment now);
  const std::vector<std::uint8_t>& message() const { return receiver_.message(); }
  /// A long message has begun, in either direction.
  bool isUnderWay() const { return sending_ || receiver_.isUnderWay(); }
  /// Sends what is due. To be called when `due` has come.
  void passTime(Moment now);
  /// When something has to be sent, or what has begun has taken too long: an EcuUnreachable of `passTime`.
  /// None while only the ECU has the word.
  std::optional<Moment> due() const;

 private:
  void sendFrames(Moment now);
  void takeFlowControl(std::span<const std::uint8_t> frame, Moment now);
  [[noreturn]] void fail(std::string_view text);

  CanPort& port_;
  CanPair pair_;
  IsoTpSender sender_;
  IsoTpReceiver receiver_;
  bool sending_ = false;
  int waits_ = 0;            ///< flow controls in a row that said "wait"
  Moment flowControlDue_{};  ///< until when the ECU's flow control has to come
  Moment frameDue_{};        ///< until when the next frame of a response has to come
  Moment responseDue_{};     ///< and the last one
};

}  // namespace tarnlog::host
