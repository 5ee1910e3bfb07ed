#include "host/link/TcpStream.h"

#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>

#include <cerrno>
#include <memory>
#include <utility>

namespace tarnlog::host {

TcpStream::TcpStream(std::string host, std::uint16_t port, LinkClock& clock)
    : DescriptorStream(host + ":" + std::to_string(port), clock), host_(std::move(host)), port_(port) {}

int TcpStream::connectTo(const addrinfo& address) {
  Descriptor socket(
      ::socket(address.ai_family, address.ai_socktype | SOCK_NONBLOCK | SOCK_CLOEXEC, address.ai_protocol));
  if (!socket) return errno;
  const int number = socket.number();
  // Requests are short and each waits for its answer: nothing is gained by gathering them.
  const int on = 1;
  ::setsockopt(number, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
  ::setsockopt(number, SOL_SOCKET, SO_KEEPALIVE, &on, sizeof on);
  const bool connected = ::connect(number, address.ai_addr, address.ai_addrlen) == 0;
  if (!connected && errno != EINPROGRESS) return errno;
  setDescriptor(std::move(socket));
  if (connected) return 0;
  if (!wait(POLLOUT, clock().microseconds() + kPatience)) return ETIMEDOUT;
  int error = 0;
  socklen_t size = sizeof error;
  ::getsockopt(number, SOL_SOCKET, SO_ERROR, &error, &size);
  return error;
}

std::ptrdiff_t TcpStream::writeSome(std::span<const std::uint8_t> bytes) {
  // A connection that the other end closed is an error here, not a signal that ends the program.
  return ::send(descriptor(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
}

void TcpStream::open() {
  addrinfo wanted{};
  wanted.ai_socktype = SOCK_STREAM;
  addrinfo* found = nullptr;
  const int problem = ::getaddrinfo(host_.c_str(), std::to_string(port_).c_str(), &wanted, &found);
  if (problem != 0) fail(::gai_strerror(problem));
  const std::unique_ptr<addrinfo, decltype(&::freeaddrinfo)> addresses(found, &::freeaddrinfo);
  int error = 0;
  for (const addrinfo* address = found; address != nullptr; address = address->ai_next) {
    error = connectTo(*address);
    if (error == 0) return;
  }
  close();
  failWith(error);
}

}  // namespace tarnlog::host
