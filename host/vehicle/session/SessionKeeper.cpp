#include "host/vehicle/session/SessionKeeper.h"

#include <algorithm>

#include "host/service/ResponseCheck.h"
#include "host/service/Timing.h"
#include "platform/base/TarnError.h"

namespace tarnlog::host {
namespace {

/// Well before S3 is over.
constexpr std::chrono::milliseconds kQuiet = timing::kS3 * 2 / 5;

bool isSame(const LinkTarget& a, const LinkTarget& b) {
  return a.address == b.address && a.protocol == b.protocol;
}

/// 01 is the default session of UDS (81 without an answer), 81 that of KWP2000: they need nobody to keep them
/// open.
bool isDefault(std::uint8_t session) { return session == 0x01 || session == 0x81; }

}  // namespace

Conversation::Outcome SessionKeeper::exchange(const LinkTarget& target, std::span<const std::uint8_t> request,
                                              std::chrono::milliseconds timeout, Link::Bytes& response) {
  keepOpen(&target);
  Conversation::Outcome outcome = send(target, request, timeout, response);
  times_ = conversation_.times();
  if (outcome == Conversation::Outcome::refused && isOutsideSession(response) && openAgain(target)) {
    outcome = send(target, request, timeout, response);
    times_ = conversation_.times();
  }
  if (outcome != Conversation::Outcome::unreachable) note(target, request, timeout, outcome);
  return outcome;
}

/// A failure of the link leaves nobody knowing which sessions are open; they are opened anew then.
Conversation::Outcome SessionKeeper::send(const LinkTarget& target, std::span<const std::uint8_t> request,
                                          std::chrono::milliseconds timeout, Link::Bytes& response) {
  try {
    return conversation_.exchange(target, request, timeout, response);
  } catch (const TarnError&) {
    if (!conversation_.busy()) open_.clear();
    throw;
  }
}

bool SessionKeeper::openAgain(const LinkTarget& target) {
  const auto known =
      std::ranges::find_if(open_, [&](const OpenSession& session) { return isSame(session.target, target); });
  if (known == open_.end()) return false;
  const OpenSession session = *known;
  return send(target, session.opening, session.timeout, ignored_) == Conversation::Outcome::answered;
}

void SessionKeeper::pause(std::chrono::milliseconds time) {
  keepOpen(nullptr);
  conversation_.pause(time);
}

void SessionKeeper::keepOpen(const LinkTarget* except) {
  // The end of the communication, asked for while an answer is awaited, empties the list.
  for (std::size_t i = 0; i < open_.size();) {
    OpenSession& known = open_[i++];
    if ((except != nullptr && isSame(known.target, *except)) || clock_.now() - known.lastSent < kQuiet ||
        conversation_.isAskedAhead(known.target))
      continue;
    known.lastSent = clock_.now();
    const LinkTarget target = known.target;
    // What comes of it is no matter of the request that was asked for.
    send(target, testerPresent(protocolOf(target.protocol)), known.timeout, ignored_);
  }
}

void SessionKeeper::note(const LinkTarget& target, std::span<const std::uint8_t> request,
                         std::chrono::milliseconds timeout, Conversation::Outcome outcome) {
  const auto known =
      std::ranges::find_if(open_, [&](const OpenSession& session) { return isSame(session.target, target); });
  const bool opens = request.size() >= 2 && request[0] == service::kDiagnosticSessionControl &&
                     outcome == Conversation::Outcome::answered;
  if (known == open_.end()) {
    if (opens && !isDefault(request[1]))
      open_.push_back({target, Link::Bytes(request.begin(), request.end()), timeout, clock_.now()});
  } else if (opens && isDefault(request[1])) {
    open_.erase(known);
  } else {
    known->lastSent = times_.sent;
    if (opens) known->opening.assign(request.begin(), request.end());
  }
}

void SessionKeeper::end() {
  open_.clear();
  conversation_.end();
}

}  // namespace tarnlog::host
