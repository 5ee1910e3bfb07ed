#include "host/link/can/SocketCan.h"

#include <linux/can.h>
#include <linux/can/isotp.h>
#include <linux/can/raw.h>
#include <net/if.h>
#include <sys/socket.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <utility>

#include "host/link/Link.h"
#include "host/link/can/IsoTpStream.h"
#include "host/link/stream/DescriptorStream.h"
#include "platform/base/TarnError.h"

namespace tarnlog::host {
namespace {

canid_t identifier(std::uint32_t id) { return id > CAN_SFF_MASK ? id | CAN_EFF_FLAG : id; }

/// Any CAN socket of an interface.
class CanSocket : public DescriptorStream {
 public:
  CanSocket(std::string interface, CanPair pair, LinkClock& clock)
      : DescriptorStream(interface, clock), interface_(std::move(interface)), pair_(pair) {}

 protected:
  const CanPair& pair() const { return pair_; }
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
  /// False when the kernel lacks the protocol.
  bool openSocket(int type, int protocol) {
    Descriptor socket(::socket(PF_CAN, type | SOCK_NONBLOCK | SOCK_CLOEXEC, protocol));
    if (socket) {
      setDescriptor(std::move(socket));
      return true;
    }
    if (errno != EPROTONOSUPPORT) failWith(errno);
    return false;
  }
  void bindTo(sockaddr_can address) {
    address.can_family = AF_CAN;
    address.can_ifindex = static_cast<int>(::if_nametoindex(interface_.c_str()));
    if (address.can_ifindex == 0) fail("there is no such CAN interface; \"ip link\" lists them");
    if (::bind(descriptor(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
      failWith(errno);
    }
  }

 private:
  std::string interface_;
  CanPair pair_;
};

class RawPort : public CanPort, private CanSocket {
 public:
  using CanSocket::CanSocket;

  void open() override {
    if (!openSocket(SOCK_RAW, CAN_RAW))
      fail("the kernel lacks CAN_RAW, or \"sudo modprobe can_raw\" loads it");
    const can_filter filter{identifier(pair().receive), CAN_EFF_FLAG | CAN_RTR_FLAG | CAN_EFF_MASK};
    ::setsockopt(descriptor(), SOL_CAN_RAW, CAN_RAW_FILTER, &filter, sizeof filter);
    bindTo({});
  }
  void close() override { CanSocket::close(); }
  void setIdleHook(std::function<void()> hook) override { CanSocket::setIdleHook(std::move(hook)); }

  void send(std::uint32_t to, const CanPayload& payload) override {
    can_frame frame{};
    frame.can_id = identifier(to);
    frame.len = static_cast<std::uint8_t>(payload.bytes().size());
    std::memcpy(frame.data, payload.bytes().data(), payload.bytes().size());
    write(std::span(reinterpret_cast<const std::uint8_t*>(&frame), sizeof frame));
  }
  bool receive(CanPayload& payload, Moment deadline) override {
    can_frame frame{};
    if (read(std::span(reinterpret_cast<std::uint8_t*>(&frame), sizeof frame), deadline) == 0) return false;
    payload = CanPayload(std::span<const std::uint8_t>(frame.data, std::min<std::size_t>(frame.len, 8)));
    return true;
  }
};

class KernelStream : public CanSocket {
 public:
  using CanSocket::CanSocket;

  void open() override {
    if (!tryOpen()) fail("the kernel lacks CAN_ISOTP");
  }
  /// False when the kernel lacks the protocol.
  bool tryOpen() {
    if (!openSocket(SOCK_DGRAM, CAN_ISOTP)) return false;
    can_isotp_options options{};
    options.flags = CAN_ISOTP_TX_PADDING;
    options.txpad_content = kIsoTpPadding;
    ::setsockopt(descriptor(), SOL_CAN_ISOTP, CAN_ISOTP_OPTS, &options, sizeof options);
    sockaddr_can address{};
    address.can_addr.tp.tx_id = identifier(pair().transmit);
    address.can_addr.tp.rx_id = identifier(pair().receive);
    bindTo(address);
    return true;
  }
  void write(std::span<const std::uint8_t> bytes) override {
    // A response that comes after its time is not the answer to the next request.
    constexpr int kMost = 100;
    std::array<std::uint8_t, IsoTpReceiver::kLongest> late;
    skipOnFailure([&] {
      for (int i = 0; i < kMost && read(late, clock().now()) > 0; ++i) {
      }
    });
    CanSocket::write(bytes);
  }

 protected:
  /// What the protocol itself went wrong with says nothing about the interface.
  [[noreturn]] void failWith(int error) const override {
    switch (error) {
      case ECOMM:
        throw EcuUnreachable(1, "Link", "the ECU does not take the rest of a long request (no flow control)");
      case EMSGSIZE:
        throw EcuUnreachable(1, "Link", "the ECU refuses a request of this length");
      case ETIMEDOUT:
      case EILSEQ:
      case EBADMSG:
        throw EcuUnreachable(1, "Link", "the answer of the ECU broke off");
      default:
        CanSocket::failWith(error);
    }
  }
};

/// Decides when it is opened who cuts the messages.
class SocketCanStream : public ByteStream {
 public:
  SocketCanStream(std::string interface, CanPair pair, LinkClock& clock)
      : interface_(std::move(interface)), pair_(pair), clock_(clock) {}

  void open() override {
    auto kernel = std::make_unique<KernelStream>(interface_, pair_, clock_);
    // The kernel would send flow control to all ECUs, too.
    if (!pair_.isFunctional() && kernel->tryOpen()) {
      stream_ = std::move(kernel);
    } else {
      stream_ = std::make_unique<IsoTpStream>(makeSocketCanPort(interface_, pair_, clock_), pair_, clock_);
      stream_->open();
    }
    stream_->setIdleHook([this] { idle(); });
  }
  void close() override { stream_.reset(); }
  void write(std::span<const std::uint8_t> bytes) override { stream_->write(bytes); }
  std::size_t read(std::span<std::uint8_t> into, Moment deadline) override {
    return stream_->read(into, deadline);
  }

 private:
  std::string interface_;
  CanPair pair_;
  LinkClock& clock_;
  std::unique_ptr<ByteStream> stream_;
};

}  // namespace

std::unique_ptr<CanPort> makeSocketCanPort(const std::string& interface, CanPair pair, LinkClock& clock) {
  return std::make_unique<RawPort>(interface, pair, clock);
}

std::unique_ptr<ByteStream> makeSocketCanStream(const std::string& interface, CanPair pair,
                                                LinkClock& clock) {
  return std::make_unique<SocketCanStream>(interface, pair, clock);
}

}  // namespace tarnlog::host
