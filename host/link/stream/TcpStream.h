#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "host/link/stream/DescriptorStream.h"

struct addrinfo;

namespace tarnlog::host {

/// A TCP connection to a host's port.
class TcpStream : public DescriptorStream {
 public:
  TcpStream(std::string host, std::uint16_t port, LinkClock& clock);
  void open() override;
  std::size_t read(std::span<std::uint8_t> into, Moment deadline) override;

 protected:
  std::ptrdiff_t writeSome(std::span<const std::uint8_t> bytes) override;
  std::ptrdiff_t readSome(std::span<std::uint8_t> into) override;

 private:
  struct FreeAddresses {
    void operator()(addrinfo* addresses) const;
  };
  using Addresses = std::unique_ptr<addrinfo, FreeAddresses>;
  struct Found {
    int problem = 0;  ///< of getaddrinfo
    Addresses addresses;
  };

  static Found find(const std::string& host, std::uint16_t port, int flags);
  Addresses lookUp();
  /// The system's error number, 0 when connected.
  int connectTo(const addrinfo& address);
  void waitInReads();
  void acknowledgeAtOnce();

  std::string host_;
  std::uint16_t port_;
  bool heard_ = false;  ///< bytes that no request has followed yet
};

}  // namespace tarnlog::host
