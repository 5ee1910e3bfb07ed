// What peers on a wire may send: diagnostics over IP as a stream cut anywhere, CAN frames of long messages,
// and traces, by the parsers alone and by links that ask while the bytes come. The first byte chooses.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string_view>
#include <vector>

#include "host/link/can/IsoTp.h"
#include "host/link/can/IsoTpLink.h"
#include "host/link/doip/DoipFinder.h"
#include "host/link/doip/DoipLink.h"
#include "host/link/doip/DoipMessage.h"
#include "host/link/trace/Trace.h"
#include "host/service/HexText.h"
#include "platform/base/TarnError.h"
#include "tests/support/Asking.h"
#include "tests/support/ManualLinkClock.h"
#include "tests/support/PeerStream.h"

namespace {

using namespace tarnlog::host;
using Bytes = std::span<const std::uint8_t>;

/// Pieces as long as the input's own bytes say.
template <class Take>
void inPieces(Bytes bytes, std::size_t longest, Take&& take) {
  while (!bytes.empty()) {
    const std::size_t length = std::min<std::size_t>(bytes[0] % (longest + 1), bytes.size() - 1);
    take(bytes.subspan(1, length));
    bytes = bytes.subspan(1 + length);
  }
}

void readDoip(Bytes bytes) {
  DoipStream stream;
  inPieces(bytes, 64, [&](Bytes piece) {
    stream.append(piece);
    while (const auto message = stream.next())
      if (message->payload.size() > DoipStream::kLongest) std::abort();
  });
  if (const auto entity = readDoipAnnouncement(bytes, "fe80::1"); entity && entity->vin.size() > 17)
    std::abort();
}

void readFrames(Bytes bytes) {
  IsoTpReceiver receiver;
  IsoTpSender sender;
  const std::uint8_t request[40] = {0x22};
  sender.start(request);
  inPieces(bytes, 8, [&](Bytes frame) {
    receiver.accept(frame);
    if (receiver.message().size() > IsoTpReceiver::kLongest) std::abort();
    tarnlog::skipOnFailure([&] { sender.flowControl(frame, {}); });
    sender.next(std::chrono::seconds(1));
  });
}

void readTrace(Bytes bytes) {
  const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  tarnlog::skipOnFailure([&] {
    for (const TraceEntry& entry : parseTrace(text, "trace")) parseTrace(traceLine(entry) + "\n", "again");
  });
}

/// The next piece, taken off the input.
Bytes takePiece(Bytes& bytes, std::size_t longest) {
  if (bytes.empty()) return {};
  const std::size_t length = std::min<std::size_t>(bytes[0] % (longest + 1), bytes.size() - 1);
  const Bytes piece = bytes.subspan(1, length);
  bytes = bytes.subspan(1 + length);
  return piece;
}

/// Whatever comes, every step ends within two minutes of the clock, by an answer, without, or failing.
template <class Step>
bool within(const tarnlog::test::ManualLinkClock& clock, Step&& step) {
  constexpr std::chrono::minutes kTwoMinutes{2};
  const Moment before = clock.now();
  const bool done = tarnlog::skipOnFailure(step);
  if (clock.now() - before > kTwoMinutes) std::abort();
  return done;
}

void askOverDoip(Bytes bytes) {
  static const Link::Bytes kGranted = *bytesFromHex("02 FD 00 06 00 00 00 09 0E 00 10 00 10 00 00 00 00");
  tarnlog::test::ManualLinkClock clock;
  const auto answer = [&](std::string_view message) {
    const bool activation = message.size() > 3 && message[3] == 0x05;
    const Bytes piece = activation ? Bytes(kGranted) : takePiece(bytes, 255);
    return std::string(piece.begin(), piece.end());
  };
  const auto connect = [&](const std::string&, std::uint16_t) {
    return std::make_unique<tarnlog::test::PeerStream>(answer, clock);
  };
  DoipSettings settings;
  settings.host = "car";
  DoipLink link(settings, connect, clock);
  const Link::Bytes request{0x01, 0x00};
  Link::Bytes response;
  bool open = false;
  while (bytes.size() > 1)
    open = within(clock, [&] {
      if (!open) link.open();
      link.findEcus();
      link.send({0x1001, ""}, request);
      while (tarnlog::test::received(link, response, std::chrono::milliseconds(1000)))
        if (response.size() > DoipStream::kLongest) std::abort();
    });
}

/// One frame comes each millisecond, as long as there are any.
class FramePort : public CanPort {
 public:
  FramePort(Bytes& bytes, tarnlog::test::ManualLinkClock& clock) : bytes_(bytes), clock_(clock) {}
  void open() override {}
  void close() override {}
  void setIdleHook(std::function<void()> /*hook*/) override {}
  void listenTo(std::span<const std::uint32_t> identifiers) override {
    ears_.assign(identifiers.begin(), identifiers.end());
  }
  void send(std::uint32_t /*identifier*/, const CanPayload& /*payload*/) override {}
  bool receive(std::uint32_t& identifier, CanPayload& payload, Moment deadline) override {
    if (clock_.now() >= deadline || ears_.empty()) return false;
    clock_.step(bytes_.empty() ? deadline - clock_.now() : Moment(1000));
    if (bytes_.empty()) return false;
    const Bytes piece = takePiece(bytes_, 9);
    identifier = ears_[piece.empty() ? 0 : piece[0] % ears_.size()];
    payload = CanPayload(piece.empty() ? piece : piece.subspan(1));
    return true;
  }

 private:
  Bytes& bytes_;
  tarnlog::test::ManualLinkClock& clock_;
  std::vector<std::uint32_t> ears_;
};

void askOverCan(Bytes bytes) {
  tarnlog::test::ManualLinkClock clock;
  IsoTpLink link(
      {}, [&] { return std::make_unique<FramePort>(bytes, clock); }, clock);
  const Link::Bytes request(40, 0x22);
  Link::Bytes response;
  while (!bytes.empty())
    within(clock, [&] {
      link.open();
      link.send({0x7E0, ""}, request);
      link.send({0x7E1, ""}, std::span(request).first(3));
      for (int i = 0; i < 3; ++i) link.receive(response, std::chrono::milliseconds(100));
    });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const Bytes bytes(data + 1, size - 1);
  switch (data[0] % 5) {
    case 0:
      readDoip(bytes);
      break;
    case 1:
      readFrames(bytes);
      break;
    case 3:
      askOverDoip(bytes);
      break;
    case 4:
      askOverCan(bytes);
      break;
    default:
      readTrace(bytes);
  }
  return 0;
}
