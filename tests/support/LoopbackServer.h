#pragma once

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdint>
#include <functional>
#include <span>
#include <thread>
#include <utility>
#include <vector>

namespace tarnlog::test {

/// The far end of one TCP connection, for a scripted peer; its reads block.
class LoopbackConnection {
 public:
  explicit LoopbackConnection(int socket) : socket_(socket) {}
  LoopbackConnection(const LoopbackConnection&) = delete;
  LoopbackConnection& operator=(const LoopbackConnection&) = delete;
  ~LoopbackConnection() { ::close(socket_); }

  /// False when the other side has closed.
  bool read(std::span<std::uint8_t> into) {
    return ::recv(socket_, into.data(), into.size(), MSG_WAITALL) == static_cast<ssize_t>(into.size());
  }
  /// Waits for some bytes and gives how many came; 0 when the other side has closed.
  std::size_t readSome(std::span<std::uint8_t> into) {
    const ssize_t count = ::recv(socket_, into.data(), into.size(), 0);
    return count > 0 ? static_cast<std::size_t>(count) : 0;
  }
  void write(std::span<const std::uint8_t> bytes) {
    [[maybe_unused]] const ssize_t sent = ::send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
  }

 private:
  int socket_;
};

/// Listens on a free port of this machine and gives each connection to `serve`, one after the other, on a
/// thread of its own. Clients close before it is destroyed.
class LoopbackServer {
 public:
  explicit LoopbackServer(std::function<void(LoopbackConnection&)> serve)
      : listener_(::socket(AF_INET, SOCK_STREAM, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    ::bind(listener_, reinterpret_cast<sockaddr*>(&address), sizeof address);
    ::listen(listener_, 8);
    socklen_t size = sizeof address;
    ::getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &size);
    port_ = ntohs(address.sin_port);
    thread_ = std::thread([this, serve = std::move(serve)] {
      for (int socket = ::accept(listener_, nullptr, nullptr); socket >= 0;
           socket = ::accept(listener_, nullptr, nullptr)) {
        LoopbackConnection connection(socket);
        serve(connection);
      }
    });
  }
  LoopbackServer(const LoopbackServer&) = delete;
  LoopbackServer& operator=(const LoopbackServer&) = delete;
  ~LoopbackServer() {
    ::shutdown(listener_, SHUT_RDWR);
    thread_.join();
    ::close(listener_);
  }

  std::uint16_t port() const { return port_; }

 private:
  int listener_;
  std::uint16_t port_ = 0;
  std::thread thread_;
};

}  // namespace tarnlog::test
