#include "host/vehicle/session/LateAnswers.h"

#include <algorithm>
#include <utility>

#include "host/service/ResponseCheck.h"
#include "host/service/Services.h"

namespace tarnlog::host {
namespace {

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

std::optional<LateAnswers::Verification> LateAnswers::before(Protocol protocol,
                                                             std::span<const std::uint8_t> request,
                                                             Moment now, milliseconds timeout) {
  if (std::exchange(surplus_, false)) distrustDoubled();
  if (now > givenUp_ + kForgotten) settle();
  const bool doubled = distrusted_ > 0 && !unprovable_;
  const bool unclear = provable_ && owed_.test(service::kTesterPresent);
  const bool doubtful = doubled || unclear || owed_.test(request[0]);
  const bool unproven = isUnproven(request);
  if (!doubtful && !unproven) return {};
  return Verification{harmlessRequest(protocol, owesPids_ && owed_.any()),
                      doubtful ? timeout : std::min(timeout, kProofTime), doubtful};
}

void LateAnswers::sent(std::span<const std::uint8_t> request, Moment now, milliseconds timeout) {
  distrusted_ -= distrusted_ > 0 ? 1 : 0;
  service_ = request[0];
  owesPids_ = (owesPids_ && owed_.any()) || std::ranges::equal(request, kSupportedPids);
  owed_.set(request[0]);
  strayed_ = aside_;
  givenUp_ = now + timeout;
}

/// Once a duplicate was taken for the response to the next equal request, every later response belongs to the
/// request before. One response comes per request, so none looks unexpected: only another request tells.
bool LateAnswers::isUnproven(std::span<const std::uint8_t> request) {
  if (!std::ranges::equal(request_, request)) {
    request_.assign(request.begin(), request.end());
    alike_ = 0;
  }
  if (++alike_ <= kUnproven) return false;
  alike_ = 1;
  return !unprovable_;
}

/// Where nothing is owed, the answer before came twice.
void LateAnswers::distrustDoubled() {
  if (owed_.none()) distrusted_ = kDistrusted;
}

void LateAnswers::answered() {
  provable_ = provable_ || service_ == service::kTesterPresent;
  settle();
}

/// An ECU that owes nothing, and has never answered such requests, does not know them: waiting for its answer
/// would never end.
void LateAnswers::notVerified(const Verification& verification) {
  constexpr int kMostUnverified = 3;
  if (provable_ || (verification.required && owed_.any())) return;
  unprovable_ = unprovable_ || !verification.required || ++unverified_ >= kMostUnverified;
}

/// All that it was asked before is through.
void LateAnswers::settle() {
  owed_.reset();
  aside_ = strayed_ = 0;
}

/// A negative response names the service only, so it may belong to an outstanding request. A positive one may
/// belong to an earlier verification request, which says nothing about requests after that. "Response
/// pending" is no response yet: counted as one, it would let an older response pass for this one's.
bool LateAnswers::isVerifiedBy(std::span<const std::uint8_t> verification,
                               std::span<const std::uint8_t> response) {
  const ResponseClass kind = classifyResponse(verification, response);
  if (kind == ResponseClass::pending) return false;
  if (kind != ResponseClass::positive &&
      (kind == ResponseClass::foreign || verification[0] != service::kTesterPresent)) {
    distrustDoubled();
    return false;
  }
  provable_ = true;
  unprovable_ = false;
  --aside_;
  if (strayed_ == 0) {
    owed_.reset();
    return true;
  }
  --strayed_;
  return false;
}

}  // namespace tarnlog::host
