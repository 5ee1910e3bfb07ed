#include "host/link/can/IsoTpStream.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

#include "host/link/Link.h"
#include "host/service/Timing.h"

namespace tarnlog::host {

using namespace std::chrono_literals;

namespace {

constexpr auto kFlowControlTime = timing::kNBs;
constexpr auto kNextFrameTime = timing::kNCr;
constexpr auto kLongResponseTime = 5s;     ///< for all frames behind the first
constexpr std::size_t kLongestSingle = 7;  ///< bytes in a single frame
constexpr int kMostWaits = 20;             ///< flow controls that say "wait"
constexpr int kMostLate = 1000;            ///< frames that are dropped before a request

bool isWait(std::span<const std::uint8_t> frame) { return !frame.empty() && frame[0] == 0x31; }

}  // namespace

CanPair CanPair::ofEcu(std::int32_t address) {
  const auto id = static_cast<std::uint32_t>(address);
  if (CanPair{id, 0}.isFunctional())
    throw EcuUnreachable(1, "CanPair", "all ECUs listen to this address; tx and rx of the link name one");
  if (id >= 0x700 && id <= 0x7F7) return {id, id + 8};
  if (id <= 0xFF) return {0x18DA00F1 | id << 8, 0x18DAF100 | id};
  if ((id & 0xFFFF00FF) == 0x18DA00F1) return ofEcu(static_cast<std::int32_t>(id >> 8 & 0xFF));
  throw EcuUnreachable(1, "CanPair",
                       "an ECU on CAN needs an address of 0 to 255, 0x700 to 0x7F7 or 0x18DAxxF1, not " +
                           std::to_string(address));
}

std::uint32_t CanPair::ownRequests() const {
  if (!isFunctional()) return transmit;
  // Of 29 bits, the last two bytes are receiver and sender.
  return receive > 0x7FF ? (receive & 0xFFFF0000) | (receive & 0xFF) << 8 | (receive >> 8 & 0xFF)
                         : receive - 8;
}

IsoTpStream::IsoTpStream(std::unique_ptr<CanPort> port, CanPair pair, LinkClock& clock)
    : port_(std::move(port)), pair_(pair), clock_(clock) {
  port_->setIdleHook([this] { idle(); });
}

void IsoTpStream::open() {
  receiver_.reset();
  port_->open();
}

void IsoTpStream::close() { port_->close(); }

void IsoTpStream::write(std::span<const std::uint8_t> bytes) {
  receiver_.reset();
  sender_.start(bytes);
  if (pair_.isFunctional() && bytes.size() > kLongestSingle)
    throw EcuUnreachable(1, "IsoTpStream", "a request to all ECUs has 7 bytes at most");
  // What comes after its time is not the answer to this request.
  CanPayload late;
  for (int i = 0; i < kMostLate && port_->receive(late, clock_.now()); ++i) {
  }
  while (!sender_.finished()) {
    if (sender_.awaitsFlowControl()) awaitFlowControl();
    // What arrives meanwhile answers an earlier request.
    for (CanPayload old; clock_.now() < sender_.due() && port_->receive(old, sender_.due());) {
    }
    if (const auto frame = sender_.next(clock_.now())) port_->send(pair_.transmit, *frame);
  }
}

void IsoTpStream::awaitFlowControl() {
  Moment deadline = clock_.now() + kFlowControlTime;
  for (int waits = 0; waits <= kMostWaits && clock_.now() < deadline;) {
    CanPayload frame;
    if (!port_->receive(frame, deadline)) break;
    const Moment now = clock_.now();
    sender_.flowControl(frame.bytes(), now);
    if (!sender_.awaitsFlowControl()) return;
    if (!isWait(frame.bytes())) continue;
    ++waits;
    deadline = now + kFlowControlTime;
  }
  throw EcuUnreachable(1, "IsoTpStream",
                       "the ECU does not take the rest of a long request (no flow control)");
}

std::size_t IsoTpStream::read(std::span<std::uint8_t> into, Moment deadline) {
  const Moment last = deadline + kLongResponseTime;
  CanPayload frame;
  std::string_view fault;
  // A bus full of frames must not hold the caller for ever, so the time is looked at after each.
  do {
    const Moment limit = receiver_.isUnderWay() ? std::min(clock_.now() + kNextFrameTime, last) : deadline;
    if (!port_->receive(frame, limit)) break;
    const IsoTpReceiver::Result result = receiver_.accept(frame.bytes());
    if (result.reply) port_->send(pair_.ownRequests(), *result.reply);
    if (!result.fault.empty()) fault = result.fault;
    if (result.complete) {
      const auto& message = receiver_.message();
      const std::size_t count = std::min(message.size(), into.size());
      std::copy_n(message.begin(), count, into.begin());
      return count;
    }
  } while (clock_.now() < (receiver_.isUnderWay() ? last : deadline));
  if (receiver_.isUnderWay()) fault = "no more frames came";
  receiver_.reset();
  if (!fault.empty()) throw EcuUnreachable(1, "IsoTpStream", "no whole answer came: " + std::string(fault));
  return 0;
}

}  // namespace tarnlog::host
