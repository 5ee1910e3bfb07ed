#include "host/link/elm/ElmFrames.h"

#include <algorithm>
#include <numeric>

namespace tarnlog::host {
namespace {

constexpr std::size_t kMostSenders = 64;
constexpr std::size_t kLongestNumbered = 4095;

std::uint32_t hexNumber(std::string_view digits) {
  std::uint32_t number = 0;
  for (const char c : digits)
    number = number << 4 | static_cast<std::uint32_t>(c <= '9' ? c - '0' : c - 'A' + 10);
  return number;
}

/// Bytes of an even number of digits.
std::vector<std::uint8_t> hexBytes(std::string_view digits) {
  std::vector<std::uint8_t> bytes;
  bytes.reserve(digits.size() / 2);
  for (std::size_t i = 0; i + 1 < digits.size(); i += 2)
    bytes.push_back(static_cast<std::uint8_t>(hexNumber(digits.substr(i, 2))));
  return bytes;
}

using Frame = std::span<const std::uint8_t>;

/// ISO 9141-2 and ISO 14230-2: the sum of all bytes before it.
bool sumIsRight(Frame frame) {
  const unsigned sum = std::accumulate(frame.begin(), frame.end() - 1, 0U);
  return (sum & 0xFFU) == frame.back();
}

/// SAE J1850: polynomial 0x1D, started with and inverted by 0xFF.
bool crcIsRight(Frame frame) {
  unsigned crc = 0xFF;
  for (const std::uint8_t byte : frame.first(frame.size() - 1)) {
    crc ^= byte;
    for (int bit = 0; bit < 8; ++bit) crc = (crc & 0x80U) != 0 ? (crc << 1 ^ 0x1DU) & 0xFFU : crc << 1;
  }
  return (crc ^ 0xFFU) == frame.back();
}

/// Position of a KWP2000 frame's service byte, 0 when lengths do not fit. The format byte has the length in
/// its low six bits; zero there means a length byte of its own behind the addresses.
std::size_t kwpDataStart(Frame frame) {
  const bool hasAddresses = (frame[0] & 0xC0) != 0;
  std::size_t start = hasAddresses ? 3 : 1;
  std::size_t length = frame[0] & 0x3F;
  if (length == 0) {
    if (start >= frame.size()) return 0;
    length = frame[start++];
  }
  return length > 0 && start + length + 1 == frame.size() ? start : 0;
}

/// Format, target (F1, the tester; 6B, all testers) and sender of a K-line or J1850 frame.
bool looksHeaded(ElmBus bus, Frame frame) {
  if (frame.size() < 4) return false;
  const bool j1850 = bus == ElmBus::j1850 || bus == ElmBus::unknown;
  // On the K line the format byte's upper bit tells that addresses follow; services' answers lack it.
  if (frame[1] == 0xF1) return j1850 || (frame[0] & 0x80) != 0;
  return frame[1] == 0x6B && bus != ElmBus::kwp && (frame[0] == 0x48 || (frame[0] == 0x41 && j1850));
}

/// 0 when this is no frame with header.
std::size_t dataStart(ElmBus bus, Frame frame) {
  if (frame.size() < 3) return 0;
  const bool three = frame.size() >= 5 && looksHeaded(bus, frame);
  switch (bus) {
    case ElmBus::kwp: {
      const bool withoutAddresses = (frame[0] & 0xC0) == 0;
      return (three || withoutAddresses) && sumIsRight(frame) ? kwpDataStart(frame) : 0;
    }
    case ElmBus::iso9141:
      return three && sumIsRight(frame) ? 3 : 0;
    case ElmBus::j1850:
      return three && crcIsRight(frame) ? 3 : 0;
    default:
      return 0;
  }
}

/// A frame of the K line or of J1850 whose checksum says nothing.
std::optional<ElmMessage> parseUnsummed(Frame frame) {
  constexpr std::size_t kHeader = 3;
  if (!looksHeaded(ElmBus::unknown, frame) || frame.size() < kHeader + 2) return std::nullopt;
  const bool lengthShown = frame[1] == 0xF1;
  const std::size_t length = lengthShown ? frame[0] & 0x3FU : frame.size() - kHeader - 1;
  const std::size_t rest = frame.size() - kHeader;
  if (length == 0 || rest < length || rest > length + 1) return std::nullopt;
  const Frame data = frame.subspan(kHeader, length);
  return ElmMessage{frame[2], {data.begin(), data.end()}, true};
}

ElmBus recognise(Frame frame) {
  if (!looksHeaded(ElmBus::unknown, frame)) return ElmBus::unknown;
  for (const ElmBus bus : {ElmBus::kwp, ElmBus::iso9141, ElmBus::j1850})
    if (dataStart(bus, frame) != 0) return bus;
  if (!parseUnsummed(frame)) return ElmBus::unknown;
  return frame[1] == 0xF1 ? ElmBus::kwp : ElmBus::iso9141;
}

constexpr std::size_t kLongestFrame = 8;

/// Bytes that a message's last CAN frame needs (ISO 15765-2).
std::size_t lastFrameLength(std::size_t length) {
  constexpr std::size_t kInFirst = 6;
  constexpr std::size_t kInOthers = 7;
  if (length <= kInOthers) return 1 + length;
  return 2 + (length - kInFirst - 1) % kInOthers;
}

bool mayBe29(ElmBus bus, std::string_view digits) {
  if (digits.size() % 2 != 0 || digits.size() < 10) return false;
  if (bus == ElmBus::can29) return digits[0] <= '1' && hexNumber(digits.substr(0, 2)) < 0x20;
  return (bus == ElmBus::unknown || isCan(bus)) && digits.starts_with("18DAF1");
}

}  // namespace

std::optional<ElmMessage> parseHeadedFrame(ElmBus bus, Frame frame) {
  const std::size_t start = dataStart(bus, frame);
  if (start == 0) return std::nullopt;
  ElmMessage message;
  message.headed = true;
  if (start >= 3) message.source = frame[2];
  message.bytes.assign(frame.begin() + static_cast<std::ptrdiff_t>(start), frame.end() - 1);
  return message;
}

void ElmAssembler::reset() {
  for (Sender& sender : senders_) {
    sender.open = false;
    sender.receiver.reset();
  }
  numbered_.clear();
  frames_ = 0;
}

void ElmAssembler::forget() {
  senders_.clear();
  reset();
  headers_ = Headers::unknown;
  wrongSums_ = 0;
}

void ElmAssembler::confirm(const ElmMessage& message) {
  if (headers_ != Headers::shown) headers_ = message.headed ? Headers::shown : Headers::hidden;
}

bool ElmAssembler::incomplete() const {
  return !numbered_.empty() ||
         std::any_of(senders_.begin(), senders_.end(), [](const Sender& each) { return each.open; });
}

std::optional<ElmMessage> ElmAssembler::accept(const ElmLine& line) {
  if (!line.isData()) return std::nullopt;
  const std::string_view digits = line.digits;
  const bool numbered = line.number || digits.size() == 3;
  if (numbered && headers_ == Headers::shown) return std::nullopt;
  if (line.number) return acceptNumbered(*line.number, digits);
  if (digits.size() == 3) {
    announce(digits);
    return std::nullopt;
  }
  // Three digits of an identifier, and whole bytes behind them.
  if (digits.size() % 2 != 0) {
    const bool may11 = bus_ == ElmBus::can11 || bus_ == ElmBus::unknown;
    return may11 && digits.size() >= 5 && digits[0] <= '7'
               ? acceptCan(hexNumber(digits.substr(0, 3)), digits.substr(3))
               : std::nullopt;
  }
  if (mayBe29(bus_, digits)) return acceptCan(hexNumber(digits.substr(0, 8)), digits.substr(8));
  return acceptBytes(hexBytes(digits));
}

ElmAssembler::Sender* ElmAssembler::senderOf(std::uint32_t identifier) {
  const auto found = std::find_if(senders_.begin(), senders_.end(),
                                  [&](const Sender& each) { return each.identifier == identifier; });
  if (found != senders_.end()) return &*found;
  if (senders_.size() >= kMostSenders) return nullptr;
  senders_.emplace_back().identifier = identifier;
  return &senders_.back();
}

std::optional<ElmMessage> ElmAssembler::acceptCan(std::uint32_t identifier, std::string_view digits) {
  constexpr int kFirstFrame = 1;
  constexpr int kFlowControl = 3;
  const std::vector<std::uint8_t> frame = hexBytes(digits);
  Sender* const sender = senderOf(identifier);
  if (sender == nullptr || frame.empty() || frame[0] >> 4 >= kFlowControl) return std::nullopt;
  if (frame.size() > kLongestFrame || (sender->pads && frame.size() < kLongestFrame)) return std::nullopt;
  if (bus_ == ElmBus::unknown) bus_ = identifier > 0x7FF ? ElmBus::can29 : ElmBus::can11;
  ++frames_;
  const auto result = sender->receiver.accept(frame);
  if (frame[0] >> 4 == kFirstFrame) sender->open = true;
  if (!result.complete) return std::nullopt;
  sender->open = false;
  const auto& message = sender->receiver.message();
  if (frame.size() == kLongestFrame && lastFrameLength(message.size()) < kLongestFrame) sender->pads = true;
  return ElmMessage{identifier, message, true};
}

std::optional<ElmMessage> ElmAssembler::acceptBytes(Frame frame) {
  if (frame.empty()) return std::nullopt;
  if (headers_ != Headers::hidden) {
    if (auto message = acceptOnWire(frame)) return message;
    const bool headed = !isCan(bus_) && bus_ != ElmBus::unknown && looksHeaded(bus_, frame);
    if (headed || headers_ == Headers::shown) return std::nullopt;
  }
  ++frames_;
  return ElmMessage{std::nullopt, {frame.begin(), frame.end()}, false};
}

std::optional<ElmMessage> ElmAssembler::acceptOnWire(Frame frame) {
  const bool found = bus_ == ElmBus::unknown;
  if (found) bus_ = recognise(frame);
  if (auto message = parseHeadedFrame(bus_, frame)) {
    ++frames_;
    wrongSums_ = kNeverTrusted;
    return message;
  }
  // A header with a wrong checksum is a damaged frame, not the bytes of a service, unless the adapter never
  // shows a right one: it has looked at it itself.
  const bool headed = !isCan(bus_) && bus_ != ElmBus::unknown && looksHeaded(bus_, frame);
  auto unsummed = headed ? parseUnsummed(frame) : std::nullopt;
  if (!unsummed || wrongSums_ == kNeverTrusted || (!found && ++wrongSums_ <= kTrustedAfter))
    return std::nullopt;
  ++frames_;
  return unsummed;
}

void ElmAssembler::announce(std::string_view digits) {
  const std::size_t length = hexNumber(digits);
  if (length == 0 || length > kLongestNumbered || numbered_.size() >= kMostSenders) return;
  numbered_.emplace_back().length = length;
}

/// The line belongs to the first message that waits for this number: messages of several ECUs may mix.
std::optional<ElmMessage> ElmAssembler::acceptNumbered(int number, std::string_view digits) {
  const auto found = std::find_if(numbered_.begin(), numbered_.end(),
                                  [&](const Numbered& each) { return each.next == number; });
  if (found == numbered_.end() || digits.size() % 2 != 0) return std::nullopt;
  ++frames_;
  const auto bytes = hexBytes(digits);
  found->bytes.insert(found->bytes.end(), bytes.begin(), bytes.end());
  found->next = (found->next + 1) & 0x0F;
  if (found->bytes.size() < found->length) return std::nullopt;
  found->bytes.resize(found->length);
  ElmMessage message{std::nullopt, std::move(found->bytes), false};
  numbered_.erase(found);
  return message;
}

}  // namespace tarnlog::host
