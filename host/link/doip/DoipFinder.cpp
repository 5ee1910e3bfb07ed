#include "host/link/doip/DoipFinder.h"

#include <ifaddrs.h>
#include <net/if.h>
#include <netdb.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <set>
#include <span>
#include <vector>

#include "host/link/doip/DoipMessage.h"
#include "host/link/stream/DescriptorStream.h"

namespace tarnlog::host {
namespace {

/// A vehicle lets a random time of up to half a second pass before it answers.
constexpr std::chrono::seconds kPatience{2};

/// Where a question goes: an address, and the network interface through which (0: as the system decides).
struct Destination {
  sockaddr_storage address{};
  socklen_t size = 0;
  unsigned interface = 0;

  template <class Address>
  static Destination of(const Address& address, unsigned interface) {
    Destination destination;
    std::memcpy(&destination.address, &address, sizeof address);
    destination.size = sizeof address;
    destination.interface = interface;
    return destination;
  }
};

/// A UDP socket of one address family, that reads one datagram at a time.
class Datagrams : public DescriptorStream {
 public:
  Datagrams(int family, const std::string& name, LinkClock& clock)
      : DescriptorStream(name, clock), family_(family) {}

  void open() override {
    setDescriptor(Descriptor(::socket(family_, SOCK_DGRAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0)));
    const int on = 1;
    ::setsockopt(descriptor(), SOL_SOCKET, SO_BROADCAST, &on, sizeof on);
  }

  /// False when it could not be sent (another address family, no network yet): nobody will answer it.
  bool sendTo(const Destination& to, std::span<const std::uint8_t> bytes) {
    if (to.address.ss_family != family_) return false;
    sockaddr_storage address = to.address;
    iovec content{const_cast<std::uint8_t*>(bytes.data()), bytes.size()};
    alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(in_pktinfo))> control{};
    msghdr message{};
    message.msg_name = &address;
    message.msg_namelen = to.size;
    message.msg_iov = &content;
    message.msg_iovlen = 1;
    if (family_ == AF_INET && to.interface != 0) {
      message.msg_control = control.data();
      message.msg_controllen = control.size();
      cmsghdr* const through = CMSG_FIRSTHDR(&message);
      through->cmsg_level = IPPROTO_IP;
      through->cmsg_type = IP_PKTINFO;
      through->cmsg_len = CMSG_LEN(sizeof(in_pktinfo));
      in_pktinfo interface {};
      interface.ipi_ifindex = static_cast<int>(to.interface);
      std::memcpy(CMSG_DATA(through), &interface, sizeof interface);
    }
    return ::sendmsg(descriptor(), &message, MSG_NOSIGNAL) >= 0;
  }

  /// None when no datagram came in time.
  std::optional<std::span<const std::uint8_t>> receive(Moment deadline, std::string& sender) {
    if (!wait(POLLIN, deadline)) return {};
    sockaddr_storage address{};
    socklen_t size = sizeof address;
    const ssize_t count = ::recvfrom(descriptor(), buffer_.data(), buffer_.size(), 0,
                                     reinterpret_cast<sockaddr*>(&address), &size);
    std::array<char, NI_MAXHOST> text{};
    const bool known = count >= 0 && ::getnameinfo(reinterpret_cast<const sockaddr*>(&address), size,
                                                   text.data(), text.size(), nullptr, 0, NI_NUMERICHOST) == 0;
    sender = known ? text.data() : "";
    return std::span<const std::uint8_t>(buffer_).first(
        static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
  }

 private:
  int family_;
  std::array<std::uint8_t, 2048> buffer_{};
};

Destination everybodyOnIpv4(unsigned interface, std::uint16_t port) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(port);
  address.sin_addr.s_addr = htonl(INADDR_BROADCAST);
  return Destination::of(address, interface);
}

/// FF02::1, all nodes of a link.
Destination everybodyOnIpv6(unsigned interface, std::uint16_t port) {
  sockaddr_in6 address{};
  address.sin6_family = AF_INET6;
  address.sin6_port = htons(port);
  address.sin6_addr.s6_addr[0] = 0xFF;
  address.sin6_addr.s6_addr[1] = 0x02;
  address.sin6_addr.s6_addr[15] = 0x01;
  address.sin6_scope_id = interface;
  return Destination::of(address, interface);
}

/// Each interface is asked by itself: one car hangs on one of them, and the system would take the one that
/// leads to the internet.
std::vector<Destination> everybody(std::uint16_t port) {
  ifaddrs* first = nullptr;
  if (::getifaddrs(&first) != 0) return {};
  const std::unique_ptr<ifaddrs, decltype(&::freeifaddrs)> all(first, &::freeifaddrs);
  std::vector<Destination> destinations;
  std::set<std::pair<unsigned, int>> known;
  for (const ifaddrs* each = first; each != nullptr; each = each->ifa_next) {
    if (each->ifa_addr == nullptr || (each->ifa_flags & IFF_UP) == 0 || (each->ifa_flags & IFF_LOOPBACK) != 0)
      continue;
    const int family = each->ifa_addr->sa_family;
    const unsigned interface = ::if_nametoindex(each->ifa_name);
    if ((family != AF_INET && family != AF_INET6) || !known.emplace(interface, family).second) continue;
    destinations.push_back(family == AF_INET ? everybodyOnIpv4(interface, port)
                                             : everybodyOnIpv6(interface, port));
  }
  return destinations;
}

std::vector<Destination> destinationsOf(const std::string& host, std::uint16_t port) {
  if (host == "*") return everybody(port);
  addrinfo wanted{};
  wanted.ai_socktype = SOCK_DGRAM;
  wanted.ai_flags = AI_NUMERICHOST;
  addrinfo* found = nullptr;
  if (::getaddrinfo(host.c_str(), std::to_string(port).c_str(), &wanted, &found) != 0) return {};
  const std::unique_ptr<addrinfo, decltype(&::freeaddrinfo)> addresses(found, &::freeaddrinfo);
  Destination destination;
  std::memcpy(&destination.address, found->ai_addr, found->ai_addrlen);
  destination.size = found->ai_addrlen;
  return {destination};
}

std::optional<DoipEntity> firstEntity(Datagrams& datagrams, Moment deadline) {
  constexpr int kMost = 1000;  // whoever floods must not hold the caller
  std::string sender;
  for (int i = 0; i < kMost; ++i) {
    const auto datagram = datagrams.receive(deadline, sender);
    if (!datagram) break;
    if (auto entity = readDoipAnnouncement(*datagram, sender)) return entity;
  }
  return {};
}

}  // namespace

/// Behind VIN and address stands more that is of no use here.
std::optional<DoipEntity> readDoipAnnouncement(std::span<const std::uint8_t> datagram,
                                               const std::string& sender) {
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

std::optional<DoipEntity> findDoipEntity(const std::string& host, std::uint16_t port, LinkClock& clock,
                                         const std::function<void()>& idleHook) {
  Datagrams ipv4(AF_INET, host, clock);
  Datagrams ipv6(AF_INET6, host, clock);
  std::vector<Datagrams*> asked;
  for (Datagrams* const datagrams : {&ipv4, &ipv6}) {
    datagrams->setIdleHook(idleHook);
    datagrams->open();
    bool sent = false;
    for (const Destination& destination : destinationsOf(host, port))
      sent = datagrams->sendTo(destination, doipIdentificationRequest()) || sent;
    if (sent) asked.push_back(datagrams);
  }
  const Moment deadline = clock.now() + kPatience;
  for (Datagrams* const datagrams : asked)
    if (auto entity = firstEntity(*datagrams, deadline)) return entity;
  return {};
}

}  // namespace tarnlog::host
