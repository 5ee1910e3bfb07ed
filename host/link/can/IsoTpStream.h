#pragma once

#include <memory>

#include "host/link/LinkClock.h"
#include "host/link/can/CanPort.h"

namespace tarnlog::host {

/// Messages of one pair over single CAN frames: each write is one request, each read one whole response. The
/// deadline is one for the first frame of a response; the others may take up to 5 s more; EcuUnreachable when
/// they do not come. A request to all ECUs has to fit into one frame; EcuUnreachable else.
class IsoTpStream : public ByteStream {
 public:
  /// The clock must outlive the stream.
  IsoTpStream(std::unique_ptr<CanPort> port, CanPair pair, LinkClock& clock);

  void open() override;
  void close() override;
  void write(std::span<const std::uint8_t> bytes) override;
  std::size_t read(std::span<std::uint8_t> into, Moment deadline) override;

 private:
  void awaitFlowControl();

  std::unique_ptr<CanPort> port_;
  CanPair pair_;
  LinkClock& clock_;
  IsoTpSender sender_;
  IsoTpReceiver receiver_;
};

}  // namespace tarnlog::host
