#include "host/link/stream/TcpStream.h"

#include <fcntl.h>
#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>

#include <cerrno>
#include <chrono>
#include <future>
#include <thread>
#include <utility>

namespace tarnlog::host {
namespace {

constexpr std::chrono::milliseconds kIdlePeriod{20};
constexpr std::chrono::milliseconds kReceiveTime{4};       ///< that recv(2) waits
constexpr std::chrono::milliseconds kMostReceiveTime{10};  ///< that the system's slow clock makes of it

}  // namespace

void TcpStream::FreeAddresses::operator()(addrinfo* addresses) const { ::freeaddrinfo(addresses); }

TcpStream::Found TcpStream::find(const std::string& host, std::uint16_t port, int flags) {
  addrinfo wanted{};
  wanted.ai_socktype = SOCK_STREAM;
  wanted.ai_flags = flags;
  addrinfo* found = nullptr;
  const int problem = ::getaddrinfo(host.c_str(), std::to_string(port).c_str(), &wanted, &found);
  return {problem, Addresses(problem == 0 ? found : nullptr)};
}

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
  // What was sent and is not acknowledged for so long was sent into a cable that is unplugged, or to a device
  // that was switched off; the system itself would go on trying for a quarter of an hour.
  const int milliseconds = 5000;
  ::setsockopt(number, IPPROTO_TCP, TCP_USER_TIMEOUT, &milliseconds, sizeof milliseconds);
  const bool connected = ::connect(number, address.ai_addr, address.ai_addrlen) == 0;
  if (!connected && errno != EINPROGRESS) return errno;
  setDescriptor(std::move(socket));
  if (connected) return 0;
  if (!wait(POLLOUT, clock().now() + kPatience)) return ETIMEDOUT;
  int error = 0;
  socklen_t size = sizeof error;
  ::getsockopt(number, SOL_SOCKET, SO_ERROR, &error, &size);
  return error;
}

/// A device that writes a message in parts holds each back until the one before is acknowledged, which the
/// system does with the next request, or 40 ms later. Told to do it at once, it soon forgets. So it is told
/// whenever more is awaited; an answer that came whole is acknowledged by the next request, at no cost.
void TcpStream::acknowledgeAtOnce() {
  const int on = 1;
  ::setsockopt(descriptor(), IPPROTO_TCP, TCP_QUICKACK, &on, sizeof on);
}

std::ptrdiff_t TcpStream::writeSome(std::span<const std::uint8_t> bytes) {
  heard_ = false;
  // A connection that the other end closed is an error here, not a signal that ends the program.
  return ::send(descriptor(), bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
}

std::ptrdiff_t TcpStream::readSome(std::span<std::uint8_t> into) {
  return ::recv(descriptor(), into.data(), into.size(), MSG_DONTWAIT);
}

/// Waits in recv(2) while there is time: one call of the system for each answer instead of two.
std::size_t TcpStream::read(std::span<std::uint8_t> into, Moment deadline) {
  while (descriptor() >= 0 && clock().now() + kMostReceiveTime < deadline) {
    idleIfDue(kMostReceiveTime);
    if (std::exchange(heard_, false)) acknowledgeAtOnce();
    const ssize_t count = ::recv(descriptor(), into.data(), into.size(), 0);
    if (count > 0) {
      heard_ = true;
      return static_cast<std::size_t>(count);
    }
    if (count == 0) failWith(ECONNRESET);
    if (errno != EAGAIN && errno != EINTR) failWith(errno);
  }
  return DescriptorStream::read(into, deadline);
}

void TcpStream::waitInReads() {
  const timeval time{0, std::chrono::microseconds(kReceiveTime).count()};
  ::setsockopt(descriptor(), SOL_SOCKET, SO_RCVTIMEO, &time, sizeof time);
  ::fcntl(descriptor(), F_SETFL, ::fcntl(descriptor(), F_GETFL) & ~O_NONBLOCK);
  acknowledgeAtOnce();
}

/// The system may look for a name for many seconds, so that is done on a thread of its own.
TcpStream::Addresses TcpStream::lookUp() {
  if (Found numeric = find(host_, port_, AI_NUMERICHOST); numeric.problem == 0)
    return std::move(numeric.addresses);
  std::promise<Found> promise;
  std::future<Found> future = promise.get_future();
  std::thread([host = host_, port = port_, promise = std::move(promise)]() mutable {
    promise.set_value(find(host, port, 0));
  }).detach();
  const Moment deadline = clock().now() + kPatience;
  while (future.wait_for(kIdlePeriod) != std::future_status::ready) {
    idle();
    if (clock().now() >= deadline) fail("the network does not tell in time where this name is");
  }
  Found found = future.get();
  if (found.problem != 0)
    fail(std::string("the network does not know this name: ") + gai_strerror(found.problem));
  return std::move(found.addresses);
}

void TcpStream::open() {
  const Addresses addresses = lookUp();
  int error = 0;
  for (const addrinfo* address = addresses.get(); address != nullptr; address = address->ai_next) {
    error = connectTo(*address);
    if (error == 0) return waitInReads();
  }
  close();
  failWith(error);
}

}  // namespace tarnlog::host
