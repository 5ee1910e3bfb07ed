#include "host/link/IsoTpLink.h"

#include <array>

#include "platform/base/TarnError.h"

namespace tarnlog::host {
namespace {

CanPair pairOf(const LinkTarget& target) {
  CanPair pair{static_cast<std::uint32_t>(target.address),
               static_cast<std::uint32_t>(target.response.value_or(0))};
  return target.response && !pair.isForAll() ? pair : CanPair::ofEcu(target.address);
}

}  // namespace

IsoTpLink::IsoTpLink(std::optional<CanPair> pair, Connect connect, LinkClock& clock)
    : pair_(pair), connect_(std::move(connect)), clock_(clock) {}

void IsoTpLink::open() {
  close();
  if (pair_) current_ = &streamOf(*pair_);
}

void IsoTpLink::close() {
  current_ = nullptr;
  streams_.clear();
}

ByteStream& IsoTpLink::streamOf(CanPair pair) {
  for (const auto& [known, stream] : streams_)
    if (known == pair) return *stream;
  auto stream = connect_(pair);
  stream->setIdleHook([this] { idle(); });
  stream->open();
  return *streams_.emplace_back(pair, std::move(stream)).second;
}

void IsoTpLink::send(const LinkTarget& target, std::span<const std::uint8_t> request) {
  current_ = &streamOf(pair_ ? *pair_ : pairOf(target));
  current_->write(request);
}

bool IsoTpLink::receive(Bytes& response, std::chrono::milliseconds timeout) {
  if (current_ == nullptr) throw TarnError(1, "IsoTpLink", "nothing was asked yet");
  response.resize(IsoTpReceiver::kLongest);
  const std::int64_t deadline = clock_.microseconds() + std::chrono::microseconds(timeout).count();
  response.resize(current_->read(response, deadline));
  return !response.empty();
}

std::vector<LinkTarget> IsoTpLink::findEcus() {
  if (!pair_) {
    // ISO 15765-4: eight ECUs with 11 bits. SAE J2178: engine and transmission controllers.
    auto ecus = findEcus(0x7DF, 0x7E0, 8);
    return ecus.empty() ? findEcus(0x18DB33F1, 0x10, 16) : ecus;
  }
  return {LinkTarget{static_cast<std::int32_t>(pair_->ownRequests()), "OBD-II"}};
}

/// All ears are open before the question is asked.
std::vector<LinkTarget> IsoTpLink::findEcus(std::uint32_t everybody, std::int32_t first, int count) {
  constexpr std::int64_t kPatience = 500'000;  // microseconds; ISO 15765-4 gives an ECU 50 ms
  constexpr std::array<std::uint8_t, 2> kSupportedPids{0x01, 0x00};
  struct Ear {
    std::int32_t address;
    std::unique_ptr<ByteStream> stream;
  };
  std::vector<Ear> ears;
  for (std::int32_t address = first; address < first + count; ++address) {
    ears.push_back({address, connect_(CanPair{everybody, CanPair::ofEcu(address).receive})});
    ears.back().stream->setIdleHook([this] { idle(); });
    ears.back().stream->open();
  }
  ears.front().stream->write(kSupportedPids);
  const std::int64_t deadline = clock_.microseconds() + kPatience;
  std::vector<LinkTarget> ecus;
  Bytes answer(IsoTpReceiver::kLongest);
  for (const Ear& ear : ears)
    if (ear.stream->read(answer, deadline) > 0) ecus.push_back({ear.address, "OBD-II"});
  return ecus;
}

}  // namespace tarnlog::host
