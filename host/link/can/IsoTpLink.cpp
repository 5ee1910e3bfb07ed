#include "host/link/can/IsoTpLink.h"

#include <algorithm>
#include <utility>

#include "host/service/Protocol.h"
#include "platform/base/TarnError.h"

namespace tarnlog::host {
namespace {

CanPair ownPairOf(const LinkTarget& target) {
  CanPair pair{static_cast<std::uint32_t>(target.address),
               static_cast<std::uint32_t>(target.response.value_or(0))};
  return target.response && !pair.isFunctional() ? pair : CanPair::ofEcu(target.address);
}

}  // namespace

IsoTpLink::IsoTpLink(std::optional<CanPair> pair, Connect connect, LinkClock& clock, bool sideBySide)
    : pair_(pair), connect_(std::move(connect)), clock_(clock), sideBySide_(sideBySide) {}

void IsoTpLink::doOpen() {
  patience_.begin();
  doClose();
  port_ = connect_();
  port_->setIdleHook([this] {
    idle();
    patience_.check();
  });
  port_->open();
  if (pair_) channelOf(*pair_);
}

void IsoTpLink::doClose() {
  complete_ = nullptr;
  channels_.clear();
  port_.reset();
}

CanPair IsoTpLink::pairOf(const LinkTarget& target) const { return pair_ ? *pair_ : ownPairOf(target); }

/// An address that is none on CAN has a number, too: the request itself tells what is wrong with it.
std::int64_t IsoTpLink::answererOf(const LinkTarget& target) const {
  try {
    return pairOf(target).receive;
  } catch (const EcuUnreachable&) {
    return -1 - static_cast<std::int64_t>(static_cast<std::uint32_t>(target.address));
  }
}

IsoTpChannel* IsoTpLink::knownChannel(std::uint32_t receive) {
  for (IsoTpChannel& channel : channels_)
    if (channel.pair().receive == receive) return &channel;
  return nullptr;
}

IsoTpChannel& IsoTpLink::channelOf(CanPair pair) {
  IsoTpChannel* const known = knownChannel(pair.receive);
  if (known != nullptr && known->pair() == pair) return *known;
  std::erase_if(channels_, [&](const IsoTpChannel& channel) { return &channel == known; });
  IsoTpChannel& channel = channels_.emplace_back(*port_, pair);
  listen();
  return channel;
}

void IsoTpLink::listen() {
  std::vector<std::uint32_t> identifiers;
  for (const IsoTpChannel& channel : channels_) identifiers.push_back(channel.pair().receive);
  port_->listenTo(identifiers);
}

bool IsoTpLink::doSend(const LinkTarget& target, std::span<const std::uint8_t> request) {
  patience_.begin();
  channelOf(pairOf(target)).send(request, clock_.now());
  noteSent(request);
  return true;
}

bool IsoTpLink::isComing(std::int64_t answerer) const {
  return std::ranges::any_of(channels_, [&](const IsoTpChannel& channel) {
    return channel.pair().receive == answerer && channel.isUnderWay();
  });
}

/// Passes on one frame, or the time. A whole response is `complete_`'s.
IsoTpLink::Step IsoTpLink::step(Moment deadline) {
  for (const IsoTpChannel& channel : channels_)
    if (const auto due = channel.due()) deadline = std::min(deadline, *due);
  std::uint32_t identifier = 0;
  CanPayload frame;
  const bool came = port_->receive(identifier, frame, deadline);
  const Moment now = clock_.now();
  if (IsoTpChannel* const channel = came ? knownChannel(identifier) : nullptr) {
    setAnswerer(channel->pair().receive);
    complete_ = channel;
    if (channel->accept(frame.bytes(), now)) return Step::message;
  }
  for (IsoTpChannel& channel : channels_) {
    setAnswerer(channel.pair().receive);
    channel.passTime(now);
  }
  return came ? Step::frame : Step::nothing;
}

/// Where one ECU is asked at a time, a long message that has begun may take longer.
Link::Received IsoTpLink::doReceive(Bytes& response, std::chrono::milliseconds timeout) {
  constexpr int kMost = 1000;  // a bus full of frames must not hold the caller for ever
  const Moment deadline = clock_.now() + timeout;
  const bool patient = timeout.count() > 0 && !sideBySide_;
  Moment limit = deadline;
  for (int late = 0;;) {
    const Step done = step(limit);
    if (done == Step::message) break;
    if (clock_.now() < deadline) continue;
    if (patient && std::ranges::any_of(channels_, &IsoTpChannel::isUnderWay))
      limit = Moment::max();
    else if (timeout.count() > 0 || done == Step::nothing || ++late > kMost)
      return Received::nothing;
  }
  response.assign(complete_->message().begin(), complete_->message().end());
  return Received::response;
}

std::vector<LinkTarget> IsoTpLink::doFindEcus() {
  patience_.begin();
  if (!pair_) {
    // ISO 15765-4: eight ECUs with 11 bits. SAE J2178: engine and transmission controllers.
    auto ecus = askAll(0x7DF, 0x7E0, 8);
    return ecus.empty() ? askAll(0x18DB33F1, 0x10, 16) : ecus;
  }
  return {LinkTarget{static_cast<std::int32_t>(pair_->ownRequests()), std::string(kObdName)}};
}

/// All ears are open before the question is asked.
std::vector<LinkTarget> IsoTpLink::askAll(std::uint32_t everybody, std::int32_t first, int count) {
  constexpr std::chrono::milliseconds kPatience{500};  // ten times P2
  channels_.clear();
  for (std::int32_t address = first; address < first + count; ++address)
    channels_.emplace_back(*port_, CanPair{everybody, CanPair::ofEcu(address).receive});
  listen();
  channels_.front().send(kSupportedPids, clock_.now());
  noteSent(kSupportedPids);
  const Moment deadline = clock_.now() + kPatience;
  std::vector<LinkTarget> ecus;
  std::vector<bool> heard(static_cast<std::size_t>(count));
  while (clock_.now() < deadline) {
    // One whose answer breaks off does not keep the others from being found.
    Step done = Step::nothing;
    skipOnFailure([&] { done = step(deadline); });
    if (done != Step::message) continue;
    const auto place =
        std::ranges::find_if(channels_, [&](const IsoTpChannel& channel) { return &channel == complete_; });
    heard[static_cast<std::size_t>(std::distance(channels_.begin(), place))] = true;
  }
  for (std::int32_t i = 0; i < count; ++i)
    if (heard[static_cast<std::size_t>(i)]) ecus.push_back({first + i, std::string(kObdName)});
  channels_.clear();
  listen();
  return ecus;
}

}  // namespace tarnlog::host
