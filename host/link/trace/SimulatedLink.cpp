#include "host/link/trace/SimulatedLink.h"

namespace tarnlog::host {

void SimulatedLink::doOpen() {
  opened_ = clock_.now();
  peer_.start();
}

void SimulatedLink::doClose() {
  answers_.clear();
  next_ = 0;
}

bool SimulatedLink::doSend(const LinkTarget& target, std::span<const std::uint8_t> request) {
  patience_.begin();
  sent_ = clock_.now();
  answers_.clear();
  next_ = 0;
  noteSent(request);
  peer_.answer(target, request, sent_ - opened_, answers_);
  return true;
}

Link::Received SimulatedLink::doReceive(Bytes& response, std::chrono::milliseconds timeout) {
  const Moment deadline = clock_.now() + timeout;
  if (next_ < answers_.count()) {
    SimulatedAnswers::Answer& answer = answers_[next_];
    const Moment due = sent_ + answer.delay;
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
