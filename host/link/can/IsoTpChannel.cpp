#include "host/link/can/IsoTpChannel.h"

#include <algorithm>
#include <string>

#include "host/link/Link.h"
#include "host/service/Timing.h"

namespace tarnlog::host {

using namespace std::chrono_literals;

namespace {

constexpr auto kLongResponseTime = 5s;     ///< for all frames behind the first
constexpr std::size_t kLongestSingle = 7;  ///< bytes in a single frame
constexpr int kMostWaits = 20;             ///< flow controls that say "wait"

bool isFlowControl(std::span<const std::uint8_t> frame) { return !frame.empty() && frame[0] >> 4 == 3; }
bool isWait(std::span<const std::uint8_t> frame) { return frame[0] == 0x31; }

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

void IsoTpChannel::fail(std::string_view text) {
  sending_ = false;
  receiver_.reset();
  throw EcuUnreachable(1, "IsoTpChannel", std::string(text));
}

void IsoTpChannel::send(std::span<const std::uint8_t> request, Moment now) {
  receiver_.reset();
  sending_ = false;
  if (pair_.isFunctional() && request.size() > kLongestSingle)
    fail("a request to all ECUs has 7 bytes at most");
  sender_.start(request);
  sending_ = true;
  waits_ = 0;
  sendFrames(now);
}

void IsoTpChannel::sendFrames(Moment now) {
  while (const auto frame = sender_.next(now)) port_.send(pair_.transmit, *frame);
  if (sender_.awaitsFlowControl()) flowControlDue_ = now + timing::kNBs;
  sending_ = !sender_.finished();
}

void IsoTpChannel::takeFlowControl(std::span<const std::uint8_t> frame, Moment now) {
  if (!sending_ || !sender_.awaitsFlowControl()) return;
  sending_ = false;  // where it refuses
  sender_.flowControl(frame, now);
  sending_ = true;
  if (!sender_.awaitsFlowControl())
    sendFrames(now);
  else if (isWait(frame) && ++waits_ <= kMostWaits)
    flowControlDue_ = now + timing::kNBs;
}

bool IsoTpChannel::accept(std::span<const std::uint8_t> frame, Moment now) {
  if (isFlowControl(frame)) return takeFlowControl(frame, now), false;
  // What comes before the request is out answers an earlier one.
  if (sending_) return false;
  const bool begun = receiver_.isUnderWay();
  const IsoTpReceiver::Result result = receiver_.accept(frame);
  if (result.reply) port_.send(pair_.ownRequests(), *result.reply);
  if (!result.fault.empty()) fail("no whole answer came: " + std::string(result.fault));
  if (!begun) responseDue_ = now + kLongResponseTime;
  frameDue_ = now + timing::kNCr;
  return result.complete;
}

void IsoTpChannel::passTime(Moment now) {
  if (sending_) {
    if (!sender_.awaitsFlowControl()) return sendFrames(now);
    if (now >= flowControlDue_) fail("the ECU does not take the rest of a long request (no flow control)");
  } else if (receiver_.isUnderWay() && now >= std::min(frameDue_, responseDue_)) {
    fail("no whole answer came: no more frames came");
  }
}

std::optional<Moment> IsoTpChannel::due() const {
  if (sending_) return sender_.awaitsFlowControl() ? flowControlDue_ : sender_.due();
  if (receiver_.isUnderWay()) return std::min(frameDue_, responseDue_);
  return {};
}

}  // namespace tarnlog::host
