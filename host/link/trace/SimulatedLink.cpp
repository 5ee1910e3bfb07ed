#include "host/link/trace/SimulatedLink.h"

#include <algorithm>

namespace tarnlog::host {

void SimulatedLink::doOpen() {
  opened_ = clock_.now();
  peer_.start();
}

void SimulatedLink::doClose() { asked_.clear(); }

SimulatedLink::Asked& SimulatedLink::askedOf(std::int64_t answerer) {
  if (!habits_.sideBySide) answerer = 0;
  const auto known = std::ranges::find(asked_, answerer, &Asked::answerer);
  return known != asked_.end() ? *known : asked_.emplace_back(Asked{.answerer = answerer});
}

bool SimulatedLink::doSend(const LinkTarget& target, std::span<const std::uint8_t> request) {
  patience_.begin();
  Asked& asked = askedOf(answererOf(target));
  asked.sent = clock_.now();
  asked.answers.clear();
  asked.next = 0;
  noteSent(request);
  peer_.answer(target, request, asked.sent - opened_, asked.answers);
  return true;
}

SimulatedLink::Asked* SimulatedLink::nextToAnswer() {
  Asked* first = nullptr;
  for (Asked& asked : asked_)
    if (!asked.isDone() && (first == nullptr || asked.due() < first->due())) first = &asked;
  return first;
}

Link::Received SimulatedLink::doReceive(Bytes& response, std::chrono::milliseconds timeout) {
  const Moment deadline = clock_.now() + timeout;
  Asked* const asked = nextToAnswer();
  if (asked == nullptr || asked->due() > deadline) {
    clock_.waitUntil(deadline, waitHook_);
    return Received::nothing;
  }
  clock_.waitUntil(asked->due(), waitHook_);
  SimulatedAnswers::Answer& answer = asked->answers[asked->next++];
  if (habits_.sideBySide) setAnswerer(asked->answerer);
  if (answer.failure) std::rethrow_exception(answer.failure);
  if (answer.silence) return Received::silent;
  response.swap(answer.bytes);
  return Received::response;
}

}  // namespace tarnlog::host
