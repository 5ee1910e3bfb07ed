#include "host/link/ReplayPeer.h"

#include <algorithm>
#include <utility>

#include "platform/base/TarnError.h"

namespace tarnlog::host {

using Kind = TraceEntry::Kind;

namespace {
constexpr std::uint8_t kCurrentData = 0x01;
}

ReplayPeer::ReplayPeer(std::vector<TraceEntry> entries, std::string file)
    : entries_(std::move(entries)), file_(std::move(file)) {}

std::size_t ReplayPeer::find(const LinkTarget& target, std::span<const std::uint8_t> request) const {
  for (std::size_t i = next_; i < entries_.size(); ++i) {
    const TraceEntry& entry = entries_[i];
    if (entry.kind == Kind::request && entry.target.address == target.address &&
        std::ranges::equal(entry.bytes, request))
      return i;
  }
  return entries_.size();
}

void ReplayPeer::answer(const LinkTarget& target, std::span<const std::uint8_t> request,
                        std::chrono::microseconds /*sinceStart*/, SimulatedAnswers& answers) {
  if (next_ >= entries_.size()) throw TarnError(1, "ReplayPeer", file_ + ": the trace has ended");
  const std::size_t found = find(target, request);
  if (found == entries_.size()) return;
  const std::chrono::microseconds asked = entries_[found].time;
  for (next_ = found + 1; next_ < entries_.size() && entries_[next_].kind != Kind::request; ++next_) {
    const TraceEntry& entry = entries_[next_];
    if (entry.kind != Kind::response) {
      if (answers.count() > 0) continue;
      ++next_;
      if (entry.kind == Kind::unreachable) throw EcuUnreachable(1, "ReplayPeer", entry.text);
      throw TarnError(1, "ReplayPeer", entry.text);
    }
    answers.add(std::max(entry.time - asked, std::chrono::microseconds(0))) = entry.bytes;
  }
}

std::vector<LinkTarget> ReplayPeer::obdEcus() const {
  std::vector<LinkTarget> ecus;
  for (const TraceEntry& entry : entries_) {
    if (entry.kind != Kind::request || entry.bytes.empty() || entry.bytes.front() != kCurrentData) continue;
    const auto same = [&](const LinkTarget& ecu) { return ecu.address == entry.target.address; };
    if (std::ranges::none_of(ecus, same)) ecus.push_back(entry.target);
  }
  return ecus;
}

bool ReplayPeer::asksSeveralPids(const LinkTarget& target) const {
  return std::ranges::any_of(entries_, [&](const TraceEntry& entry) {
    return entry.kind == Kind::request && entry.target.address == target.address && entry.bytes.size() > 2 &&
           entry.bytes.front() == kCurrentData;
  });
}

}  // namespace tarnlog::host
