#include "host/link/can/SocketCan.h"

#include <linux/can.h>
#include <linux/can/raw.h>
#include <net/if.h>
#include <sys/socket.h>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "host/link/stream/DescriptorStream.h"

namespace tarnlog::host {
namespace {

canid_t identifier(std::uint32_t id) { return id > CAN_SFF_MASK ? id | CAN_EFF_FLAG : id; }

class RawPort : public CanPort, private DescriptorStream {
 public:
  RawPort(std::string interface, LinkClock& clock)
      : DescriptorStream(interface, clock), interface_(std::move(interface)) {}

  void open() override {
    Descriptor socket(::socket(PF_CAN, SOCK_RAW | SOCK_NONBLOCK | SOCK_CLOEXEC, CAN_RAW));
    if (!socket && errno == EPROTONOSUPPORT)
      fail("the kernel lacks CAN_RAW, or \"sudo modprobe can_raw\" loads it");
    if (!socket) failWith(errno);
    setDescriptor(std::move(socket));
    listenTo({});
    sockaddr_can address{};
    address.can_family = AF_CAN;
    address.can_ifindex = static_cast<int>(::if_nametoindex(interface_.c_str()));
    if (address.can_ifindex == 0) fail("there is no such CAN interface; \"ip link\" lists them");
    if (::bind(descriptor(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
      failWith(errno);
  }
  void close() override { DescriptorStream::close(); }
  void setIdleHook(std::function<void()> hook) override { DescriptorStream::setIdleHook(std::move(hook)); }

  void listenTo(std::span<const std::uint32_t> identifiers) override {
    std::vector<can_filter> filters;
    for (const std::uint32_t each : identifiers)
      filters.push_back({identifier(each), CAN_EFF_FLAG | CAN_RTR_FLAG | CAN_EFF_MASK});
    ::setsockopt(descriptor(), SOL_CAN_RAW, CAN_RAW_FILTER, filters.data(),
                 static_cast<socklen_t>(filters.size() * sizeof(can_filter)));
  }
  void send(std::uint32_t to, const CanPayload& payload) override {
    can_frame frame{};
    frame.can_id = identifier(to);
    frame.len = static_cast<std::uint8_t>(payload.bytes().size());
    std::memcpy(frame.data, payload.bytes().data(), payload.bytes().size());
    write(std::span(reinterpret_cast<const std::uint8_t*>(&frame), sizeof frame));
  }
  bool receive(std::uint32_t& from, CanPayload& payload, Moment deadline) override {
    can_frame frame{};
    if (read(std::span(reinterpret_cast<std::uint8_t*>(&frame), sizeof frame), deadline) == 0) return false;
    from = frame.can_id & CAN_EFF_MASK;
    payload = CanPayload(std::span<const std::uint8_t>(frame.data, std::min<std::size_t>(frame.len, 8)));
    return true;
  }

 protected:
  /// The interface's own queue is short: a long request fills it until the bus has taken some frames.
  std::ptrdiff_t writeSome(std::span<const std::uint8_t> bytes) override {
    constexpr std::chrono::milliseconds kQueueTime{100};
    const Moment last = clock().now() + kQueueTime;
    for (;;) {
      const std::ptrdiff_t written = DescriptorStream::writeSome(bytes);
      if (written >= 0 || errno != ENOBUFS || clock().now() >= last) return written;
      clock().waitUntil(clock().now() + std::chrono::milliseconds(1), {});
    }
  }
  [[noreturn]] void failWith(int error) const override {
    switch (error) {
      case ENOBUFS:
        fail(
            "nobody on the CAN bus takes the frames; is it plugged in, the ignition on, the bit rate right?");
      case ENETDOWN:
        fail("the CAN interface is down; \"sudo ip link set " + interface_ +
             " up type can bitrate 500000\" starts it");
      case ENODEV:
      case ENXIO:
        fail("the CAN interface is gone; is its adapter plugged in?");
      case EAFNOSUPPORT:
        fail("this system has no CAN: the kernel lacks SocketCAN, or \"sudo modprobe can_raw\" loads it");
      default:
        DescriptorStream::failWith(error);
    }
  }

 private:
  std::string interface_;
};

}  // namespace

std::unique_ptr<CanPort> makeSocketCanPort(const std::string& interface, LinkClock& clock) {
  return std::make_unique<RawPort>(interface, clock);
}

}  // namespace tarnlog::host
