#include "host/link/IsoTpLink.h"

#include "platform/base/TarnError.h"

namespace tarnlog::host {

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
  current_ = &streamOf(pair_ ? *pair_ : CanPair::ofEcu(target.address));
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
  if (!pair_) return {};
  return {LinkTarget{static_cast<std::int32_t>(pair_->transmit), "OBD-II"}};
}

}  // namespace tarnlog::host
