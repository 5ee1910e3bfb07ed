#include "host/link/can/IsoTpLink.h"

#include <array>

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

IsoTpLink::IsoTpLink(std::optional<CanPair> pair, Connect connect, LinkClock& clock)
    : pair_(pair), connect_(std::move(connect)), clock_(clock) {}

void IsoTpLink::doOpen() {
  patience_.begin();
  doClose();
  if (pair_) current_ = &streamOf(*pair_);
}

void IsoTpLink::doClose() {
  current_ = nullptr;
  streams_.clear();
}

CanPair IsoTpLink::pairOf(const LinkTarget& target) const { return pair_ ? *pair_ : ownPairOf(target); }

std::unique_ptr<ByteStream> IsoTpLink::connected(CanPair pair) {
  auto stream = connect_(pair);
  stream->setIdleHook([this] {
    idle();
    patience_.check();
  });
  stream->open();
  return stream;
}

ByteStream* IsoTpLink::knownStreamOf(CanPair pair) const {
  for (const auto& [known, stream] : streams_)
    if (known == pair) return stream.get();
  return nullptr;
}

ByteStream& IsoTpLink::streamOf(CanPair pair) {
  if (ByteStream* const known = knownStreamOf(pair)) return *known;
  return *streams_.emplace_back(pair, connected(pair)).second;
}

bool IsoTpLink::doSend(const LinkTarget& target, std::span<const std::uint8_t> request) {
  patience_.begin();
  current_ = &streamOf(pairOf(target));
  current_->write(request);
  noteSent(request);
  return true;
}

/// A message that breaks off says as little about the next request as one that is whole.
bool IsoTpLink::doReadUnasked(const LinkTarget& target) {
  constexpr int kMost = 100;  // an ECU that floods must not hold the caller
  ByteStream* const stream = knownStreamOf(pairOf(target));
  if (stream == nullptr) return false;
  patience_.begin();
  int count = 0;
  try {
    while (count < kMost && stream->read(came_, clock_.now()) > 0) ++count;
  } catch (const EcuUnreachable&) {
    ++count;
  }
  return count > 0;
}

Link::Received IsoTpLink::doReceive(Bytes& response, std::chrono::milliseconds timeout) {
  if (current_ == nullptr) throw TarnError(1, "IsoTpLink", "nothing was asked yet");
  const Moment deadline = clock_.now() + timeout;
  const std::size_t count = current_->read(came_, deadline);
  if (count > 0) response.assign(came_.begin(), came_.begin() + static_cast<std::ptrdiff_t>(count));
  return count > 0 ? Received::response : Received::nothing;
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
  struct Ear {
    std::int32_t address;
    std::unique_ptr<ByteStream> stream;
  };
  std::vector<Ear> ears;
  for (std::int32_t address = first; address < first + count; ++address)
    ears.push_back({address, connected(CanPair{everybody, CanPair::ofEcu(address).receive})});
  ears.front().stream->write(kSupportedPids);
  noteSent(kSupportedPids);
  const Moment deadline = clock_.now() + kPatience;
  std::vector<LinkTarget> ecus;
  Bytes answer(IsoTpReceiver::kLongest);
  for (const Ear& ear : ears)
    if (ear.stream->read(answer, deadline) > 0) ecus.push_back({ear.address, std::string(kObdName)});
  return ecus;
}

}  // namespace tarnlog::host
