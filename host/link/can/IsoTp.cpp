#include "host/link/can/IsoTp.h"

#include "host/link/Link.h"

namespace tarnlog::host {

using namespace std::chrono_literals;

namespace {

// The upper half of a frame's first byte.
constexpr int kSingle = 0;
constexpr int kFirst = 1;
constexpr int kConsecutive = 2;
constexpr int kFlowControl = 3;

constexpr std::uint8_t kContinue = 0x30;
constexpr std::uint8_t kOverflow = 0x32;

int kindOf(std::span<const std::uint8_t> frame) { return frame.empty() ? -1 : frame[0] >> 4; }

CanPayload flowControlFrame(std::uint8_t status) {
  CanPayload frame;
  for (const std::uint8_t byte : {status, std::uint8_t{0}, std::uint8_t{0}}) frame.append(byte);
  frame.pad();
  return frame;
}

/// Reserved codes stand for the longest time.
std::chrono::microseconds separationTime(std::uint8_t code) {
  if (code <= 0x7F) return code * 1ms;
  if (code >= 0xF1 && code <= 0xF9) return (code - 0xF0) * 100us;
  return 0x7F * 1ms;
}

}  // namespace

void IsoTpReceiver::reset() {
  message_.clear();
  expected_ = 0;
}

IsoTpReceiver::Result IsoTpReceiver::accept(std::span<const std::uint8_t> frame) {
  switch (kindOf(frame)) {
    case kSingle:
      return acceptSingle(frame);
    case kFirst:
      return acceptFirst(frame);
    case kConsecutive:
      return acceptConsecutive(frame);
    default:
      return {};
  }
}

IsoTpReceiver::Result IsoTpReceiver::acceptSingle(std::span<const std::uint8_t> frame) {
  const std::size_t length = frame[0] & 0x0F;
  if (length == 0 || length >= frame.size()) return {};
  reset();
  take(frame.subspan(1, length));
  return {.complete = true, .reply = {}, .fault = {}};
}

IsoTpReceiver::Result IsoTpReceiver::acceptFirst(std::span<const std::uint8_t> frame) {
  if (frame.size() < 8) return {};
  const std::size_t length = static_cast<std::size_t>(frame[0] & 0x0F) << 8 | frame[1];
  reset();
  // Length 0 announces a message longer than any that a diagnostic service of this car has.
  if (length == 0) return {.complete = false, .reply = flowControlFrame(kOverflow), .fault = "too long"};
  if (length < 8) return {};
  expected_ = length;
  sequence_ = 1;
  take(frame.subspan(2));
  return {.complete = false, .reply = flowControlFrame(kContinue), .fault = {}};
}

IsoTpReceiver::Result IsoTpReceiver::acceptConsecutive(std::span<const std::uint8_t> frame) {
  if (expected_ == 0) return {};
  if ((frame[0] & 0x0F) != sequence_) {
    reset();
    return {.complete = false, .reply = {}, .fault = "a frame was lost"};
  }
  const std::size_t count = std::min<std::size_t>(7, expected_ - message_.size());
  if (frame.size() < 1 + count) {
    reset();
    return {.complete = false, .reply = {}, .fault = "a frame was cut short"};
  }
  sequence_ = (sequence_ + 1) & 0x0F;
  take(frame.subspan(1, count));
  if (message_.size() < expected_) return {};
  expected_ = 0;
  return {.complete = true, .reply = {}, .fault = {}};
}

void IsoTpReceiver::take(std::span<const std::uint8_t> bytes) {
  message_.insert(message_.end(), bytes.begin(), bytes.end());
}

void IsoTpSender::start(std::span<const std::uint8_t> message) {
  if (message.empty() || message.size() > IsoTpReceiver::kLongest)
    throw TarnError(1, "IsoTpSender.start",
                    "a request of " + std::to_string(message.size()) + " bytes; 1 to 4095 are expected");
  message_.assign(message.begin(), message.end());
  sent_ = 0;
  sequence_ = 0;
  blocked_ = false;
  leftInBlock_ = -1;
  separation_ = {};
  due_ = {};
}

void IsoTpSender::flowControl(std::span<const std::uint8_t> frame, Moment now) {
  if (!blocked_ || finished() || kindOf(frame) != kFlowControl || frame.size() < 3) return;
  const int status = frame[0] & 0x0F;
  if (status == 1) return;  // wait: another flow control follows
  if (status != 0) throw EcuUnreachable(1, "IsoTpSender", "the ECU refuses a request of this length");
  blocked_ = false;
  leftInBlock_ = frame[1] == 0 ? -1 : frame[1];
  separation_ = separationTime(frame[2]);
  due_ = now;
}

CanPayload IsoTpSender::firstFrame() {
  const std::span<const std::uint8_t> message(message_);
  CanPayload frame;
  if (message.size() <= 7) {
    frame.append(static_cast<std::uint8_t>(message.size()));
    sent_ = message.size();
  } else {
    frame.append(static_cast<std::uint8_t>(kFirst << 4 | message.size() >> 8));
    frame.append(static_cast<std::uint8_t>(message.size()));
    sent_ = 6;
    sequence_ = 1;
    blocked_ = true;
  }
  frame.append(message.first(sent_));
  return frame;
}

std::optional<CanPayload> IsoTpSender::next(Moment now) {
  if (finished() || blocked_) return {};
  CanPayload frame;
  if (sent_ == 0) {
    frame = firstFrame();
  } else {
    if (now < due_) return {};
    const std::size_t count = std::min<std::size_t>(7, message_.size() - sent_);
    frame.append(static_cast<std::uint8_t>(kConsecutive << 4 | sequence_));
    frame.append(std::span<const std::uint8_t>(message_).subspan(sent_, count));
    sent_ += count;
    sequence_ = (sequence_ + 1) & 0x0F;
    due_ = now + separation_;
    blocked_ = !finished() && leftInBlock_ > 0 && --leftInBlock_ == 0;
  }
  frame.pad();
  return frame;
}

}  // namespace tarnlog::host
