#include "host/vehicle/session/IdentifierBundle.h"

#include <algorithm>
#include <utility>

#include "host/service/ResponseCheck.h"
#include "host/vehicle/description/ObdPids.h"

namespace tarnlog::host {
namespace {

constexpr int kMostFailures = 3;
/// Until what disturbances may have limited is tried again.
constexpr std::chrono::seconds kShortestPatience{30};
constexpr std::chrono::minutes kLongestPatience{5};
/// Of all data that are asked for at once: ECUs have small buffers.
constexpr std::size_t kLongestResponse = 1024;

bool isTooMuchAtOnce(std::span<const std::uint8_t> refusal) {
  return refusal.size() == 3 &&
         (refusal[2] == nrc::kIncorrectMessageLength || refusal[2] == nrc::kResponseTooLong);
}

/// Its length is not always the same.
bool isOpenEnded(const DataDescription& data) {
  return !data.layout.isNumber() && data.layout.byteCount == 0;
}

std::optional<std::size_t> knownBytes(IdentifierBundle::Kind kind, const RequestDescription& request) {
  if (kind != IdentifierBundle::Kind::pids) return {};
  return findObdPid(request.frame[1])->bytes;
}

}  // namespace

IdentifierBundle::Kind IdentifierBundle::kindOf(const RequestDescription& request, const EcuChannel& ecu) {
  const Frame& frame = request.frame;
  if (frame.size() == 2 && frame[0] == service::kCurrentData && findObdPid(frame[1]) != nullptr)
    return Kind::pids;
  if (frame.size() == 3 && frame[0] == service::kReadDataByIdentifier && ecu.protocol() == Protocol::uds &&
      std::ranges::none_of(request.data, isOpenEnded))
    return Kind::identifiers;
  return Kind::none;
}

IdentifierBundle::IdentifierBundle(EcuChannel& ecu, Kind kind,
                                   const std::vector<const RequestDescription*>& members)
    : ecu_(ecu), kind_(kind) {
  for (const RequestDescription* const request : members)
    members_.push_back({.request = request, .bytes = knownBytes(kind, *request)});
}

IdentifierBundle::Member& IdentifierBundle::memberOf(const RequestDescription& request) {
  return *std::ranges::find(members_, &request, &Member::request);
}

bool IdentifierBundle::isUsable() const {
  return usable_ && (kind_ == Kind::identifiers || ecu_.takesSeveralPids());
}

std::size_t IdentifierBundle::most() const {
  return kind_ == Kind::pids ? kMostPidsAtOnce : ecu_.mostIdentifiers();
}

/// In the order of the members.
void IdentifierBundle::layOut() {
  changed_ = false;
  laidOutFor_ = most();
  groups_.clear();
  std::vector<Member*> together;
  std::size_t length = 1;
  std::size_t most = laidOutFor_;
  const auto close = [&] {
    if (together.size() > 1) addGroup(together);
    together.clear();
    length = 1;
    most = laidOutFor_;
  };
  for (Member& member : members_) {
    member.group.reset();
    if (member.apart || member.refused || !member.bytes) continue;
    const std::size_t part = member.identifier().size() + *member.bytes;
    if (together.size() >= std::min(most, member.most) || length + part > kLongestResponse) close();
    together.push_back(&member);
    most = std::min(most, member.most);
    length += part;
  }
  close();
}

void IdentifierBundle::addGroup(const std::vector<Member*>& together) {
  Group& group = groups_.emplace_back();
  group.frame.push_back(together.front()->request->frame[0]);
  group.members = together.size();
  for (Member* const member : together) {
    member->group = groups_.size() - 1;
    group.frame.insert(group.frame.end(), member->identifier().begin(), member->identifier().end());
    group.timeout = std::max(group.timeout, member->request->timeout);
  }
}

void IdentifierBundle::forget() {
  unreached_.reset();
  if (forgiven_ && ecu_.times().received >= *forgiven_) forgive();
  for (Member& member : members_) member.share = Share::due;
  for (Group& group : groups_) group.toldAhead = false;
  if (changed_ || most() != laidOutFor_) layOut();
}

bool IdentifierBundle::askAhead(const RequestDescription& request) {
  const Member& member = memberOf(request);
  if (!member.group || !isUsable()) return false;
  Group& group = groups_[*member.group];
  if (!std::exchange(group.toldAhead, true)) ecu_.askAhead(group.frame, group.timeout);
  return true;
}

IdentifierBundle::Taken IdentifierBundle::take(const RequestDescription& request, Link::Bytes& response) {
  Member& member = memberOf(request);
  if (!member.group || !isUsable()) return Taken::alone;
  const Group& group = groups_[*member.group];
  if (member.share == Share::due)
    if (const Taken asked = ask(*member.group); asked != Taken::taken) {
      times_ = group.times;
      return asked;
    }
  if (std::exchange(member.share, Share::due) != Share::arrived) return Taken::alone;
  times_ = group.times;
  const auto* const first = group.response.data() + member.place;
  response.assign({positiveService(request.frame[0])});
  response.insert(response.end(), first, first + member.identifier().size() + *member.bytes);
  return Taken::taken;
}

IdentifierBundle::Taken IdentifierBundle::ask(std::size_t position) {
  Group& group = groups_[position];
  for (Member& member : members_)
    if (member.group == position) member.share = Share::missing;
  const auto outcome = ecu_.converse(group.frame, group.timeout, group.response);
  group.times = ecu_.times();
  // A long request may be more than the ECU or the way to it can take: what is asked alone tells.
  if (outcome == Conversation::Outcome::unreachable && kind_ == Kind::pids) return Taken::unreachable;
  const bool wasUsable = worked_;
  judge(position, outcome, outcome == Conversation::Outcome::answered ? split(position) : 0);
  const bool silent = outcome == Conversation::Outcome::silent && kind_ == Kind::identifiers;
  return silent && wasUsable ? Taken::silent : Taken::taken;
}

/// If the bundle worked before, a response without data may be a disturbance: a few are allowed.
void IdentifierBundle::judge(std::size_t position, Conversation::Outcome outcome, std::size_t came) {
  const Group& group = groups_[position];
  const bool refused = outcome == Conversation::Outcome::refused;
  if (outcome == Conversation::Outcome::unreachable) {
    unreached_ = position;
  } else if (kind_ == Kind::identifiers && refused && isTooMuchAtOnce(group.response)) {
    halve(position);
  } else if (kind_ == Kind::pids && !worked_ && came < 2) {
    usable_ = false;
    ecu_.setOnePidOnly();
  } else if (came == 0) {
    usable_ = ++failures_ < kMostFailures;
    suspected_ = !usable_;
  } else {
    worked_ = true;
    failures_ = 0;
    if (!forgiven_) patience_ = {};
    largest_ = std::max(largest_, group.members);
    noteMissing(position);
  }
}

/// Where the ECU is silent alone, too, it was not for asking several at once.
void IdentifierBundle::judgeSuspect(bool worksAlone) {
  if (worksAlone) return limit();
  usable_ = true;
  failures_ = 0;
}

/// Where the ECU answered as many at once, their number is not what it refuses: these ones together are.
void IdentifierBundle::halve(std::size_t position) {
  const std::size_t members = groups_[position].members;
  const std::size_t half = (members + 1) / 2;
  if (members > largest_) return ecu_.setMostIdentifiers(half);
  halveMembers(position);
}

void IdentifierBundle::halveMembers(std::size_t position) {
  for (Member& member : members_)
    if (member.group == position) member.most = (groups_[position].members + 1) / 2;
  changed_ = true;
}

void IdentifierBundle::limit() {
  if (forgiven_) return;
  patience_ = std::clamp<std::chrono::seconds>(2 * patience_, kShortestPatience, kLongestPatience);
  forgiven_ = ecu_.times().received + patience_;
}

/// One more failure is enough to limit it again.
void IdentifierBundle::forgive() {
  forgiven_.reset();
  usable_ = changed_ = true;
  failures_ = std::min(failures_, kMostFailures - 1);
  for (Member& member : members_) {
    if (member.missed >= kMostFailures) member.missed = kMostFailures - 1;
    member.apart = false;
    member.most = kMostIdentifiersAtOnce;
  }
}

void IdentifierBundle::noteMissing(std::size_t position) {
  for (Member& member : members_) {
    if (member.group != position) continue;
    if (member.share == Share::arrived) {
      member.cameBefore = true;
      member.missed = 0;
    } else if (!member.apart &&
               (++member.missed == kMostFailures || (kind_ == Kind::pids && !member.cameBefore))) {
      member.apart = changed_ = true;
      limit();
    }
  }
}

void IdentifierBundle::askedAlone(const RequestDescription& request, Conversation::Outcome outcome,
                                  std::span<const std::uint8_t> response) {
  Member& member = memberOf(request);
  const bool refused = outcome == Conversation::Outcome::refused && !isBusy(response);
  const bool answered = outcome == Conversation::Outcome::answered;
  if (std::exchange(suspected_, false)) judgeSuspect(refused || answered);
  if (const auto unreached = std::exchange(unreached_, {}); unreached && (refused || answered)) {
    halveMembers(*unreached);
    limit();
  }
  if ((refused || answered) && std::exchange(member.refused, refused) != refused) {
    changed_ = true;
    if (answered) member.missed = 0;
    member.apart = member.apart && refused;  // whoever comes back is asked with the others again
  }
  const std::size_t head = 1 + member.identifier().size();
  if (!answered || kind_ == Kind::pids || response.size() <= head) return;
  changed_ = changed_ || member.bytes != response.size() - head;
  member.bytes = response.size() - head;
}

IdentifierBundle::Member* IdentifierBundle::arrivingAt(std::size_t position,
                                                       std::span<const std::uint8_t> bytes) {
  for (Member& member : members_) {
    const auto identifier = member.identifier();
    if (member.group == position && member.share == Share::missing &&
        bytes.size() >= identifier.size() + *member.bytes &&
        std::ranges::equal(bytes.first(identifier.size()), identifier))
      return &member;
  }
  return nullptr;
}

/// Finds each identifier with its data in the response (the service, then identifier and data, identifier and
/// data, ...) and tells how many came. ECUs leave out what they do not have. Bytes that belong to none mean
/// that the response was not understood, unless all PIDs have come: then they are padding, which some ECUs
/// count in the length. The lengths of identifiers that were not understood are learned anew.
std::size_t IdentifierBundle::split(std::size_t position) {
  const Group& group = groups_[position];
  const std::span<const std::uint8_t> response(group.response);
  std::size_t came = 0;
  std::size_t at = 1;
  while (at < response.size()) {
    Member* const member = arrivingAt(position, response.subspan(at));
    if (member == nullptr) break;
    member->share = Share::arrived;
    member->place = at;
    at += member->identifier().size() + *member->bytes;
    ++came;
  }
  if (at >= response.size() || (kind_ == Kind::pids && came == group.members)) return came;
  for (Member& member : members_) {
    if (member.group != position) continue;
    member.share = Share::missing;
    if (kind_ == Kind::identifiers) member.bytes.reset();
  }
  changed_ = true;
  return 0;
}

}  // namespace tarnlog::host
