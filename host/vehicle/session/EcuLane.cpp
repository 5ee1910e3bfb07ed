#include "host/vehicle/session/EcuLane.h"

#include <algorithm>
#include <utility>

namespace tarnlog::host {

void EcuLane::askAhead(const LinkTarget& target, std::span<const std::uint8_t> request,
                       std::chrono::milliseconds timeout) {
  if (told_ == ahead_.size()) ahead_.emplace_back();
  Ahead& ahead = ahead_[told_++];
  ahead.target = target;
  ahead.request.assign(request.begin(), request.end());
  ahead.timeout = timeout;
}

void EcuLane::forgetAhead() {
  told_ = next_ = taken_ = 0;
  isAheadOpen_ = false;
}

void EcuLane::startNext() {
  const Ahead& ahead = ahead_[next_++];
  isAheadOpen_ = true;
  exchange_.start(ahead.target, ahead.request, ahead.timeout);
}

void EcuLane::startOther(const LinkTarget& target, std::span<const std::uint8_t> request,
                         std::chrono::milliseconds timeout) {
  keepResult();
  exchange_.start(target, request, timeout);
}

void EcuLane::abandon() {
  forgetAhead();
  isOtherOpen_ = false;
  exchange_.abandon();
}

void EcuLane::storeResult() {
  isAheadOpen_ = false;
  ExchangeResult& result = ahead_[next_ - 1].result;
  std::swap(result, exchange_.result());
  if (result.outcome != ExchangeOutcome::answered && result.outcome != ExchangeOutcome::refused)
    told_ = next_;
}

void EcuLane::sendAgain() {
  if (isOtherOpen_ && !isAheadOpen_) return exchange_.repeatLater();
  exchange_.withdraw();
  if (std::exchange(isAheadOpen_, false)) --next_;
}

bool EcuLane::goesTo(std::span<const std::uint8_t> request) {
  for (std::size_t i = taken_; i < told_; ++i) {
    if (!std::ranges::equal(ahead_[i].request, request)) continue;
    taken_ = i;
    return true;
  }
  return false;
}

}  // namespace tarnlog::host
