#include "host/link/DoipFinder.h"

#include <arpa/inet.h>
#include <netdb.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>

#include <algorithm>
#include <memory>
#include <span>

#include "host/link/DescriptorStream.h"
#include "host/link/DoipMessage.h"

namespace tarnlog::host {
namespace {

constexpr std::int64_t kPatience = 500'000;  ///< microseconds

/// A UDP socket that reads one datagram at a time.
class Datagrams : public DescriptorStream {
 public:
  using DescriptorStream::DescriptorStream;
  void open() override {
    setDescriptor(Descriptor(::socket(AF_INET, SOCK_DGRAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0)));
    const int on = 1;
    ::setsockopt(descriptor(), SOL_SOCKET, SO_BROADCAST, &on, sizeof on);
  }
  void sendTo(const sockaddr_in& address, std::span<const std::uint8_t> bytes) {
    // One that cannot be sent (no network yet) is one that nobody answers.
    ::sendto(descriptor(), bytes.data(), bytes.size(), MSG_NOSIGNAL,
             reinterpret_cast<const sockaddr*>(&address), sizeof address);
  }
  /// None when no datagram came in time.
  std::optional<std::span<const std::uint8_t>> receive(std::int64_t deadline, std::string& sender) {
    if (!wait(POLLIN, deadline)) return {};
    sockaddr_in address{};
    socklen_t size = sizeof address;
    const ssize_t count = ::recvfrom(descriptor(), buffer_.data(), buffer_.size(), 0,
                                     reinterpret_cast<sockaddr*>(&address), &size);
    std::array<char, INET_ADDRSTRLEN> text{};
    sender = ::inet_ntop(AF_INET, &address.sin_addr, text.data(), text.size()) == nullptr ? "" : text.data();
    return std::span<const std::uint8_t>(buffer_).first(
        static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
  }

 private:
  std::array<std::uint8_t, 2048> buffer_{};
};

std::optional<sockaddr_in> addressOf(const std::string& host, std::uint16_t port) {
  addrinfo wanted{};
  wanted.ai_family = AF_INET;
  wanted.ai_socktype = SOCK_DGRAM;
  addrinfo* found = nullptr;
  const std::string name = host == "*" ? "255.255.255.255" : host;
  if (::getaddrinfo(name.c_str(), std::to_string(port).c_str(), &wanted, &found) != 0) return {};
  const std::unique_ptr<addrinfo, decltype(&::freeaddrinfo)> addresses(found, &::freeaddrinfo);
  return *reinterpret_cast<const sockaddr_in*>(found->ai_addr);
}

/// VIN (17 characters), logical address, and more that is of no use here.
std::optional<DoipEntity> entityIn(std::span<const std::uint8_t> datagram, const std::string& sender) {
  constexpr std::size_t kVin = 17;
  const auto message = parseDoipDatagram(datagram);
  if (!message || message->type != DoipType::announcement) return {};
  const auto address = doipNumber(message->payload, kVin);
  if (!address) return {};
  std::string vin;
  for (const std::uint8_t byte : message->payload.first(kVin))
    if (byte >= 0x20 && byte < 0x7F) vin += static_cast<char>(byte);
  return DoipEntity{sender, vin, *address};
}

}  // namespace

std::optional<DoipEntity> findDoipEntity(const std::string& host, std::uint16_t port, LinkClock& clock,
                                         const std::function<void()>& idleHook) {
  const auto address = addressOf(host, port);
  if (!address) return {};
  Datagrams datagrams(host, clock);
  datagrams.setIdleHook(idleHook);
  datagrams.open();
  datagrams.sendTo(*address, doipIdentificationRequest());
  const std::int64_t deadline = clock.microseconds() + kPatience;
  std::string sender;
  while (const auto datagram = datagrams.receive(deadline, sender))
    if (auto entity = entityIn(*datagram, sender)) return entity;
  return {};
}

}  // namespace tarnlog::host
