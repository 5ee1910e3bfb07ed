#include "host/link/trace/ReplayPeer.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "host/service/Services.h"
#include "platform/base/TarnError.h"

namespace tarnlog::host {

using Kind = TraceEntry::Kind;
using Span = std::span<const std::uint8_t>;

namespace {

/// Bytes of each identifier in a request of this service; 0 where the request is one whole.
std::size_t identifierSize(Span request) {
  if (request[0] == service::kCurrentData && request.size() > 1) return 1;
  return request[0] == service::kReadDataByIdentifier && request.size() > 1 && request.size() % 2 == 1 ? 2
                                                                                                       : 0;
}

std::vector<Span> identifiersIn(Span request) {
  const std::size_t size = identifierSize(request);
  std::vector<Span> identifiers;
  if (size == 0) return {request.subspan(1)};
  for (std::size_t at = 1; at < request.size(); at += size) identifiers.push_back(request.subspan(at, size));
  return identifiers;
}

bool beginsWith(Span bytes, Span beginning) {
  return bytes.size() >= beginning.size() && std::ranges::equal(bytes.first(beginning.size()), beginning);
}

bool isSame(const LinkTarget& a, const LinkTarget& b) {
  return a.address == b.address && a.protocol == b.protocol;
}

/// Where in the answer's data the next of these identifiers stands.
std::size_t nextOf(const std::vector<Span>& identifiers, Span answer, std::size_t from) {
  for (; from < answer.size(); ++from)
    for (const Span identifier : identifiers)
      if (beginsWith(answer.subspan(from), identifier)) return from;
  return answer.size();
}

}  // namespace

ReplayPeer::ReplayPeer(std::vector<TraceEntry> entries, std::string file, const PidBytes& pidBytes)
    : entries_(std::move(entries)), file_(std::move(file)) {
  for (std::size_t place = 0; place < entries_.size(); ++place)
    if (entries_[place].kind == Kind::request) learn(place, pidBytes);
}

std::string ReplayPeer::key(const LinkTarget& target, std::uint8_t service, Span identifier) {
  std::string text = std::to_string(target.address) + ' ';
  text += static_cast<char>(service);
  text.append(identifier.begin(), identifier.end());
  return text;
}

void ReplayPeer::learn(std::size_t place, const PidBytes& pidBytes) {
  const TraceEntry& request = entries_[place];
  const auto identifiers = identifiersIn(request.bytes);
  for (const Span identifier : identifiers) {
    Datum& datum = data_[key(request.target, request.bytes[0], identifier)];
    datum.asked.push_back(place);
    if (datum.bytes == 0 && request.bytes[0] == service::kCurrentData && identifier.size() == 1 && pidBytes)
      datum.bytes = pidBytes(identifier[0]);
    const TraceEntry* const answer = identifiers.size() == 1 ? positiveAnswer(place) : nullptr;
    if (datum.bytes == 0 && answer != nullptr && answer->bytes.size() > 1 + identifier.size())
      datum.bytes = answer->bytes.size() - 1 - identifier.size();
  }
}

std::optional<std::size_t> ReplayPeer::find(const Datum& datum) const {
  constexpr std::chrono::seconds kBehind{5};  // longer than ECUs that are asked side by side lie apart
  const auto latest =
      std::ranges::lower_bound(entries_, entries_[farthest_].time - kBehind, {}, &TraceEntry::time);
  const auto own = places_.find(entries_[datum.asked.front()].target.address);
  const std::size_t from =
      std::max(own == places_.end() ? 0 : own->second, static_cast<std::size_t>(latest - entries_.begin()));
  const auto first = datum.asked.begin() + static_cast<std::ptrdiff_t>(datum.next);
  const auto found = std::lower_bound(first, datum.asked.end(), from);
  return found == datum.asked.end() ? std::nullopt : std::optional(*found);
}

bool ReplayPeer::hasEnded() const {
  const auto wasAnswered = [](const auto& entry) { return entry.second.next > 0; };
  return std::ranges::any_of(data_, wasAnswered) && std::ranges::none_of(data_, [&](const auto& entry) {
           return wasAnswered(entry) && find(entry.second);
         });
}

void ReplayPeer::answer(const LinkTarget& target, Span request, std::chrono::microseconds /*sinceStart*/,
                        SimulatedAnswers& answers) {
  std::vector<Found> found;
  for (const Span identifier : identifiersIn(request)) {
    const auto datum = data_.find(key(target, request[0], identifier));
    if (datum == data_.end()) continue;
    if (const auto place = find(datum->second)) found.push_back({&datum->second, identifier, *place});
  }
  if (found.empty() && hasEnded()) throw TarnError(1, "ReplayPeer", file_ + ": the trace has ended");
  if (found.empty()) return;
  // What is asked for together is best of one moment.
  const std::size_t newest = std::ranges::max_element(found, {}, &Found::place)->place;
  for (Found& each : found)
    if (std::ranges::binary_search(each.datum->asked, newest)) each.place = newest;
  const std::size_t first = std::ranges::min_element(found, {}, &Found::place)->place;
  if (std::ranges::equal(entries_[first].bytes, request) || !replayParts(found, answers))
    replayWhole(first, answers);
  for (const Found& each : found) {
    const auto& asked = each.datum->asked;
    each.datum->next =
        static_cast<std::size_t>(std::upper_bound(asked.begin(), asked.end(), each.place) - asked.begin());
    std::size_t& own = places_[target.address];
    own = std::max(own, each.place);
    farthest_ = std::max(farthest_, each.place);
  }
}

std::optional<std::size_t> ReplayPeer::nextRequestAfter(std::size_t place) const {
  for (std::size_t next = place + 1; next < entries_.size(); ++next)
    if (entries_[next].kind == Kind::request && isSame(entries_[next].target, entries_[place].target))
      return next;
  return {};
}

/// What this ECU said behind the request, up to the next one; and where the link failed before that.
std::vector<const TraceEntry*> ReplayPeer::answersTo(std::size_t place) const {
  std::vector<const TraceEntry*> answers;
  for (std::size_t i = place + 1; i < entries_.size(); ++i) {
    const TraceEntry& entry = entries_[i];
    const bool own = isSame(entry.target, entries_[place].target);
    if (entry.kind == Kind::request && own) break;
    if (entry.kind == Kind::failure || (own && entry.kind != Kind::request)) answers.push_back(&entry);
    if (entry.kind == Kind::failure) break;
  }
  return answers;
}

const TraceEntry* ReplayPeer::positiveAnswer(std::size_t place) const {
  const std::uint8_t positive = positiveService(entries_[place].bytes[0]);
  for (const TraceEntry* const entry : answersTo(place))
    if (entry->kind == Kind::response && !entry->bytes.empty() && entry->bytes[0] == positive) return entry;
  return nullptr;
}

std::chrono::microseconds ReplayPeer::delayOf(const TraceEntry& entry, std::size_t place) const {
  return std::max(entry.time - entries_[place].time, std::chrono::microseconds(0));
}

/// Where nothing came, the next request tells how long that took.
void ReplayPeer::replayWhole(std::size_t place, SimulatedAnswers& answers) const {
  for (const TraceEntry* const entry : answersTo(place)) {
    const auto delay = delayOf(*entry, place);
    if (entry->kind == Kind::response)
      answers.add(delay) = entry->bytes;
    else if (entry->kind == Kind::unreachable)
      return answers.addFailure(delay, std::make_exception_ptr(EcuUnreachable(1, "ReplayPeer", entry->text)));
    else
      return answers.addFailure(delay, std::make_exception_ptr(TarnError(1, "ReplayPeer", entry->text)));
  }
  if (const auto next = nextRequestAfter(place)) answers.addSilence(delayOf(entries_[*next], place));
}

/// One answer from the parts of several, or from a part of one. False when there is none.
bool ReplayPeer::replayParts(const std::vector<Found>& found, SimulatedAnswers& answers) const {
  Link::Bytes joined;
  std::chrono::microseconds delay{0};
  for (const Found& each : found) {
    const TraceEntry* const answer = positiveAnswer(each.place);
    const Span bytes = part(each.place, each.identifier);
    if (bytes.empty()) continue;
    if (joined.empty()) joined.push_back(answer->bytes[0]);
    joined.insert(joined.end(), bytes.begin(), bytes.end());
    delay = std::max(delay, delayOf(*answer, each.place));
  }
  if (joined.empty()) return false;
  answers.add(delay) = std::move(joined);
  return true;
}

Span ReplayPeer::part(std::size_t place, Span identifier) const {
  const TraceEntry& request = entries_[place];
  const TraceEntry* const positive = positiveAnswer(place);
  if (positive == nullptr) return {};
  const Span answer = positive->bytes;
  auto left = identifiersIn(request.bytes);
  for (std::size_t at = 1; at < answer.size();) {
    const auto here =
        std::ranges::find_if(left, [&](const Span each) { return beginsWith(answer.subspan(at), each); });
    if (here == left.end()) return {};
    const Span known = *here;
    left.erase(here);
    const std::size_t data = data_.at(key(request.target, request.bytes[0], known)).bytes;
    const std::size_t behind = at + known.size();
    const std::size_t end =
        data > 0 ? std::min(behind + data, answer.size()) : nextOf(left, answer, behind + 1);
    if (std::ranges::equal(known, identifier)) return answer.subspan(at, end - at);
    at = end;
  }
  return {};
}

std::vector<LinkTarget> ReplayPeer::obdEcus() const {
  std::vector<LinkTarget> ecus;
  for (const TraceEntry& entry : entries_) {
    if (entry.kind != Kind::request || entry.bytes.empty() || entry.bytes.front() != service::kCurrentData)
      continue;
    const auto same = [&](const LinkTarget& ecu) { return ecu.address == entry.target.address; };
    if (std::ranges::none_of(ecus, same)) ecus.push_back(entry.target);
  }
  return ecus;
}

bool ReplayPeer::asksSeveral(const LinkTarget& target, std::uint8_t service, std::size_t bytes) const {
  return std::ranges::any_of(entries_, [&](const TraceEntry& entry) {
    return entry.kind == Kind::request && entry.target.address == target.address &&
           entry.bytes.size() > bytes && entry.bytes.front() == service;
  });
}

}  // namespace tarnlog::host
