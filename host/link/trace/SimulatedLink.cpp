#include "host/link/trace/SimulatedLink.h"

#include "platform/base/TarnError.h"

namespace tarnlog::host {

using std::chrono::microseconds;

void SimulatedLink::open() {
  opened_ = clock_.microseconds();
  open_ = true;
  peer_.start();
}

void SimulatedLink::close() {
  open_ = false;
  answers_.clear();
  next_ = 0;
}

void SimulatedLink::send(const LinkTarget& target, std::span<const std::uint8_t> request) {
  if (!open_) throw TarnError(1, "SimulatedLink.send", "the simulated link is not open");
  patience_.begin();
  sent_ = clock_.microseconds();
  answers_.clear();
  next_ = 0;
  peer_.answer(target, request, microseconds(sent_ - opened_), answers_);
}

bool SimulatedLink::receive(Bytes& response, std::chrono::milliseconds timeout) {
  const std::int64_t deadline = clock_.microseconds() + microseconds(timeout).count();
  if (next_ < answers_.count()) {
    SimulatedAnswers::Answer& answer = answers_[next_];
    const std::int64_t due = sent_ + answer.delay.count();
    if (due <= deadline) {
      clock_.waitUntil(due, waitHook_);
      ++next_;
      if (answer.failure) std::rethrow_exception(answer.failure);
      if (!answer.silence) response.swap(answer.bytes);
      return !answer.silence;
    }
  }
  clock_.waitUntil(deadline, waitHook_);
  return false;
}

}  // namespace tarnlog::host
