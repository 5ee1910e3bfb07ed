#pragma once

#include <cstdint>

#include "host/link/DescriptorStream.h"

struct addrinfo;

namespace tarnlog::host {

/// A TCP connection to a host's port.
class TcpStream : public DescriptorStream {
 public:
  TcpStream(std::string host, std::uint16_t port, LinkClock& clock);
  void open() override;

 protected:
  std::ptrdiff_t writeSome(std::span<const std::uint8_t> bytes) override;

 private:
  /// The system's error number, 0 when connected.
  int connectTo(const addrinfo& address);

  std::string host_;
  std::uint16_t port_;
};

}  // namespace tarnlog::host
