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

/// Passes on one frame, or the time. True when a response is whole.
bool IsoTpLink::step(Moment deadline) {
  for (const IsoTpChannel& channel : channels_)
    if (const auto due = channel.due()) deadline = std::min(deadline, *due);
  std::uint32_t identifier = 0;
  CanPayload frame;
  const bool came = port_->receive(identifier, frame, deadline);
  const Moment now = clock_.now();
  if (IsoTpChannel* const channel = came ? knownChannel(identifier) : nullptr) {
    setAnswerer(channel->pair().receive);
    complete_ = channel;
    if (channel->accept(frame.bytes(), now)) return true;
  }
  for (IsoTpChannel& channel : channels_) {
    setAnswerer(channel.pair().receive);
    channel.passTime(now);
  }
  return false;
}

/// A long message that has begun may take longer.
Link::Received IsoTpLink::doReceive(Bytes& response, std::chrono::milliseconds timeout) {
  const Moment deadline = clock_.now() + timeout;
  const bool waits = timeout.count() > 0;
  // A bus full of frames must not hold the caller for ever, so the time is looked at after each.
  for (Moment limit = deadline;;) {
    if (step(limit)) break;
    if (clock_.now() < deadline) continue;
    if (!waits || std::ranges::none_of(channels_, &IsoTpChannel::isUnderWay)) return Received::nothing;
    limit = Moment::max();
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
  while (clock_.now() < deadline && ecus.size() < heard.size()) {
    if (!step(deadline)) continue;
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
