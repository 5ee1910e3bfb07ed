#pragma once

#include "host/link/stream/DescriptorStream.h"

namespace tarnlog::host {

/// A serial port: 8 data bits, no parity, one stop bit, no flow control, every byte as it is.
class SerialStream : public DescriptorStream {
 public:
  /// `baud` is a rate that `isBaudRate` accepts.
  SerialStream(std::string path, int baud, LinkClock& clock)
      : DescriptorStream(path, clock), path_(std::move(path)), baud_(baud) {}
  static bool isBaudRate(std::int64_t baud);

  void open() override;
  void close() override;
  /// 0 for Bluetooth, which carries bytes as fast as it can.
  int rate() const override;
  bool setRate(int bitsPerSecond) override;

 private:
  bool awaitSent();

  std::string path_;
  int baud_;
};

}  // namespace tarnlog::host
