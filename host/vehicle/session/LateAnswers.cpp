#include "host/vehicle/session/LateAnswers.h"

#include <algorithm>
#include <array>

#include "host/service/ResponseCheck.h"

namespace tarnlog::host {
namespace {

using std::chrono::ceil;
using std::chrono::milliseconds;

/// So long after its time-out a response is not expected any more.
constexpr std::chrono::seconds kForgotten{5};
/// After an unexpected response, so many requests are verified first.
constexpr int kDistrusted = 100;
/// After so many equal requests in a row, a verification request is sent.
constexpr int kUnproven = 100;
/// Time-out of that one; the ECU may not support it.
constexpr milliseconds kProofTime{300};

/// Something that each ECU answers and that changes nothing: what OBD asks of all, or else TesterPresent.
std::array<std::uint8_t, 2> harmlessRequest(Protocol protocol, bool owesPids) {
  if (protocol == Protocol::obd && !owesPids) return kSupportedPids;
  return testerPresent(protocol);
}

}  // namespace

LateAnswers::Way LateAnswers::readAway(const LinkTarget& target, std::span<const std::uint8_t> request,
                                       milliseconds timeout) {
  const auto answerer = link_.answererOf(target);
  asked_ = answerer ? &ecus_[*answerer] : nullptr;
  if (asked_ == nullptr) return Way::clear;
  Ecu& ecu = *asked_;
  if (link_.readUnasked(target)) distrustDoubled(ecu);
  if (clock_.now() > ecu.givenUp + kForgotten) settle(ecu);
  const bool doubtful =
      ecu.distrusted > 0 || ecu.owed.test(request[0]) || ecu.owed.test(service::kTesterPresent);
  const bool unproven = isUnproven(ecu, request);
  if (doubtful)
    if (const Way way = catchUp(ecu, target, timeout); way != Way::clear) return way;
  if (!doubtful && unproven) {
    const Way way = catchUp(ecu, target, std::min(timeout, kProofTime));
    if (way == Way::unreachable) return way;
    ecu.unprovable = way != Way::clear;
  }
  ecu.distrusted -= ecu.distrusted > 0 ? 1 : 0;
  ecu.service = request[0];
  ecu.owesPids = (ecu.owesPids && ecu.owed.any()) || std::ranges::equal(request, kSupportedPids);
  ecu.owed.set(request[0]);
  ecu.strayed = ecu.aside;
  ecu.givenUp = clock_.now() + timeout;
  return Way::clear;
}

/// Once a duplicate was taken for the response to the next equal request, every later response belongs to the
/// request before. One response comes per request, so none looks unexpected: only another request tells.
bool LateAnswers::isUnproven(Ecu& ecu, std::span<const std::uint8_t> request) {
  if (!std::ranges::equal(ecu.request, request)) {
    ecu.request.assign(request.begin(), request.end());
    ecu.alike = 0;
  }
  if (++ecu.alike <= kUnproven) return false;
  ecu.alike = 1;
  return !ecu.unprovable;
}

/// Where nothing is owed, the answer before came twice.
void LateAnswers::distrustDoubled(Ecu& ecu) {
  if (ecu.owed.none()) ecu.distrusted = kDistrusted;
}

/// All that it was asked before is through.
void LateAnswers::settle(Ecu& ecu) {
  ecu.owed.reset();
  ecu.aside = ecu.strayed = 0;
}

void LateAnswers::answered() {
  if (asked_ != nullptr) settle(*asked_);
}

void LateAnswers::givenUp() {
  if (asked_ != nullptr) asked_->givenUp = clock_.now();
}

void LateAnswers::noneExpected() {
  if (asked_ != nullptr) asked_->owed.reset(asked_->service);
}

/// A negative response names the service only, so it may belong to an outstanding request. A positive one may
/// belong to an earlier verification request, which says nothing about requests after that.
LateAnswers::Way LateAnswers::catchUp(Ecu& ecu, const LinkTarget& target, milliseconds timeout) {
  const auto request = harmlessRequest(protocolOf(target.protocol), ecu.owesPids && ecu.owed.any());
  if (!link_.send(target, request)) return Way::unreachable;
  ++ecu.aside;
  const Moment deadline = clock_.now() + timeout;
  for (Moment now = clock_.now(); now <= deadline; now = clock_.now()) {
    const auto received = link_.receive(came_, ceil<milliseconds>(deadline - now));
    if (received == Link::Received::unreachable) return Way::unreachable;
    if (received == Link::Received::nothing) return Way::blocked;
    const ResponseClass kind = classifyResponse(request, came_);
    if (kind != ResponseClass::positive &&
        (kind == ResponseClass::foreign || request[0] != service::kTesterPresent)) {
      distrustDoubled(ecu);
      continue;
    }
    --ecu.aside;
    if (ecu.strayed == 0) {
      ecu.owed.reset();
      return Way::clear;
    }
    --ecu.strayed;
  }
  return Way::blocked;
}

}  // namespace tarnlog::host
