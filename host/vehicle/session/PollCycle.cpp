#include "host/vehicle/session/PollCycle.h"

#include <algorithm>
#include <utility>

#include "host/vehicle/session/IdentifierBundle.h"
#include "host/vehicle/session/PolledRequest.h"

namespace tarnlog::host {

void PollCycle::add(PolledRequest& request) {
  severalEcus_ = severalEcus_ || (!requests_.empty() && &request.ecu() != &requests_.front()->ecu());
  requests_.push_back(&request);
}

void PollCycle::reach(std::size_t position) {
  if (!begun_ || position < next_) begin(position);
  next_ = position + 1;
}

void PollCycle::begin(std::size_t position) {
  constexpr std::chrono::milliseconds kLongestPause{20};
  const Moment now = clock_.now();
  Moment due = now + kLongestPause;
  bool asks = false;
  if (!std::exchange(begun_, true)) first_ = now;
  for (PolledRequest* const request : requests_) {
    request->plan(now, first_);
    asks = asks || request->isAsked();
    due = std::min(due, request->due());
  }
  for (IdentifierBundle* const bundle : bundles_) bundle->forget();
  if (!asks) return conversation_.pause(std::chrono::ceil<std::chrono::milliseconds>(due - now));
  if (!severalEcus_ || !conversation_.goesSideBySide()) return;
  conversation_.forgetAhead();
  for (std::size_t i = position; i < requests_.size(); ++i)
    if (requests_[i]->isAsked()) requests_[i]->askAhead();
}

void PollCycle::clear() {
  forget();
  requests_.clear();
  bundles_.clear();
}

void PollCycle::forget() {
  begun_ = false;
  conversation_.forgetAhead();
  for (IdentifierBundle* const bundle : bundles_) bundle->forget();
  for (PolledRequest* const request : requests_) request->askNext();
}

}  // namespace tarnlog::host
