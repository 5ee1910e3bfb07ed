#include "host/link/trace/SimulatedLink.h"

namespace tarnlog::host {

using std::chrono::microseconds;

void SimulatedLink::doOpen() {
  opened_ = clock_.microseconds();
  peer_.start();
}

void SimulatedLink::doClose() {
  answers_.clear();
  next_ = 0;
}

bool SimulatedLink::doSend(const LinkTarget& target, std::span<const std::uint8_t> request) {
  patience_.begin();
  sent_ = clock_.microseconds();
  answers_.clear();
  next_ = 0;
  peer_.answer(target, request, microseconds(sent_ - opened_), answers_);
  return true;
}

Link::Received SimulatedLink::doReceive(Bytes& response, std::chrono::milliseconds timeout) {
  const std::int64_t deadline = clock_.microseconds() + microseconds(timeout).count();
  if (next_ < answers_.count()) {
    SimulatedAnswers::Answer& answer = answers_[next_];
    const std::int64_t due = sent_ + answer.delay.count();
    if (due <= deadline) {
      clock_.waitUntil(due, waitHook_);
      ++next_;
      if (answer.failure) std::rethrow_exception(answer.failure);
      if (answer.silence) return Received::nothing;
      response.swap(answer.bytes);
      return Received::response;
    }
  }
  clock_.waitUntil(deadline, waitHook_);
  return Received::nothing;
}

}  // namespace tarnlog::host
