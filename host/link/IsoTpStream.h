#pragma once

#include <memory>

#include "host/link/CanPort.h"
#include "host/link/LinkClock.h"

namespace tarnlog::host {

/// Messages of one pair over single CAN frames: each write is one request, each read one whole response. The
/// deadline is one for the first frame of a response; the others may take up to 5 s more.
class IsoTpStream : public ByteStream {
 public:
  /// The clock must outlive the stream.
  IsoTpStream(std::unique_ptr<CanPort> port, LinkClock& clock);

  void open() override;
  void close() override;
  void write(std::span<const std::uint8_t> bytes) override;
  std::size_t read(std::span<std::uint8_t> into, std::int64_t deadline) override;

 private:
  void awaitFlowControl();

  std::unique_ptr<CanPort> port_;
  LinkClock& clock_;
  IsoTpSender sender_;
  IsoTpReceiver receiver_;
};

}  // namespace tarnlog::host
