#include "host/vehicle/session/PidBundle.h"

#include <algorithm>
#include <utility>

#include "host/service/ResponseCheck.h"
#include "host/vehicle/description/ObdPids.h"

namespace tarnlog::host {
namespace {

constexpr int kMostFailures = 3;

const ObdPid* pidOf(const RequestDescription& request) {
  const Frame& frame = request.frame;
  return frame.size() == 2 && frame[0] == service::kCurrentData ? findObdPid(frame[1]) : nullptr;
}

}  // namespace

bool PidBundle::canHold(const RequestDescription& request) { return pidOf(request) != nullptr; }

PidBundle::PidBundle(EcuChannel& ecu, const std::vector<const RequestDescription*>& members) : ecu_(ecu) {
  for (const RequestDescription* const request : members) {
    const ObdPid* const pid = pidOf(*request);
    members_.push_back({request, pid->number, pid->bytes});
  }
  makeFrame();
}

void PidBundle::makeFrame() {
  frame_.assign({service::kCurrentData});
  for (const Member& member : members_)
    if (!member.apart) frame_.push_back(member.pid);
}

void PidBundle::forget() {
  for (Member& member : members_) member.share = Share::due;
  toldAhead_ = false;
}

/// None where it has to be asked for alone.
PidBundle::Member* PidBundle::memberOf(const RequestDescription& request) {
  if (!usable_ || !ecu_.takesSeveralPids()) return nullptr;
  const auto member = std::ranges::find(members_, &request, &Member::request);
  return member->apart ? nullptr : &*member;
}

bool PidBundle::askAhead(const RequestDescription& request) {
  if (memberOf(request) == nullptr) return false;
  if (!std::exchange(toldAhead_, true)) ecu_.askAhead(frame_, members_.front().request->timeout);
  return true;
}

PidBundle::Taken PidBundle::take(const RequestDescription& request, Link::Bytes& response) {
  Member* const member = memberOf(request);
  if (member == nullptr) return Taken::alone;
  if (member->share == Share::due && !ask()) return Taken::unreachable;
  if (std::exchange(member->share, Share::due) != Share::arrived) return Taken::alone;
  const auto* const first = response_.data() + member->place;
  response.assign({positiveService(service::kCurrentData)});
  response.insert(response.end(), first, first + 1 + member->bytes);
  return Taken::taken;
}

bool PidBundle::ask() {
  toldAhead_ = false;
  for (Member& member : members_) member.share = Share::missing;
  const auto outcome = ecu_.converse(frame_, members_.front().request->timeout, response_);
  times_ = ecu_.times();
  if (outcome == Conversation::Outcome::unreachable) return false;
  judge(outcome == Conversation::Outcome::answered ? split() : 0);
  return true;
}

/// If the bundle worked before, a response without data may be a disturbance: a few are allowed.
void PidBundle::judge(std::size_t came) {
  if (!worked_ && came < 2) {
    usable_ = false;
    ecu_.setOnePidOnly();
  } else if (came == 0) {
    usable_ = ++failures_ < kMostFailures;
  } else {
    worked_ = true;
    failures_ = 0;
    noteMissing();
  }
}

void PidBundle::noteMissing() {
  bool changed = false;
  for (Member& member : members_) {
    if (member.share == Share::arrived) {
      member.cameBefore = true;
      member.missed = 0;
    } else if (!member.apart && (++member.missed == kMostFailures || !member.cameBefore)) {
      member.apart = changed = true;
    }
  }
  if (changed) makeFrame();
}

/// Finds each PID with its data in the response (the service, then PID and data, PID and data, ...) and tells
/// how many came. ECUs leave out what they do not have. Bytes that belong to no PID mean that the response
/// was not understood, unless all PIDs have come: then they are padding, which some ECUs count in the length.
std::size_t PidBundle::split() {
  std::size_t came = 0;
  std::size_t at = 1;
  while (at < response_.size()) {
    const auto member = std::find_if(members_.begin(), members_.end(), [&](const Member& each) {
      return each.pid == response_[at] && !each.apart && each.share == Share::missing;
    });
    if (member == members_.end() || at + 1 + member->bytes > response_.size()) break;
    member->share = Share::arrived;
    member->place = at;
    at += 1 + member->bytes;
    ++came;
  }
  if (at >= response_.size() || came == frame_.size() - 1) return came;
  for (Member& member : members_) member.share = Share::missing;
  return 0;
}

}  // namespace tarnlog::host
