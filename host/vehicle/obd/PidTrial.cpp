#include "host/vehicle/obd/PidTrial.h"

#include <algorithm>
#include <array>

#include "host/service/ResponseCheck.h"
#include "host/vehicle/description/ObdPids.h"
#include "platform/base/TarnError.h"

namespace tarnlog::host {
namespace {

constexpr std::chrono::milliseconds kTimeout{1000};

bool contains(std::span<const std::uint8_t> bytes, std::uint8_t byte) {
  return std::find(bytes.begin(), bytes.end(), byte) != bytes.end();
}

}  // namespace

std::vector<std::uint8_t> PidTrial::given(std::span<const std::uint8_t> pids) {
  std::vector<std::uint8_t> kept;
  std::size_t tried = 0;
  try {
    for (; tried < pids.size(); ++tried) {
      const std::size_t first = tried / kMostPidsAtOnce * kMostPidsAtOnce;
      const auto group = pids.subspan(first, std::min(kMostPidsAtOnce, pids.size() - first));
      if (answers(group, pids[tried])) kept.push_back(pids[tried]);
    }
  } catch (const TarnError&) {
    kept.insert(kept.end(), pids.begin() + static_cast<std::ptrdiff_t>(tried), pids.end());
  }
  return kept;
}

bool PidTrial::answers(std::span<const std::uint8_t> group, std::uint8_t pid) {
  if (pid == group.front()) askTogether(group);
  return contains(came_, pid) || comesAlone(pid);
}

void PidTrial::askTogether(std::span<const std::uint8_t> group) {
  came_.clear();
  if (!together_ || group.size() < 2 || !conversation_.takesSeveralPids(target_)) return;
  std::vector<std::uint8_t> request{service::kCurrentData};
  request.insert(request.end(), group.begin(), group.end());
  if (ask(request) == Conversation::Outcome::answered)
    for (std::size_t at = 1; at < response_.size();) {
      const ObdPid* const pid = findObdPid(response_[at]);
      if (pid == nullptr || at + 1 + pid->bytes > response_.size()) break;
      came_.push_back(pid->number);
      at += 1 + pid->bytes;
    }
  together_ = came_.size() > 1;
}

bool PidTrial::comesAlone(std::uint8_t pid) {
  constexpr std::array<std::uint8_t, 2> kOnlyNow{nrc::kBusyRepeatRequest, nrc::kConditionsNotCorrect};
  const auto outcome = ask(std::array{service::kCurrentData, pid});
  if (outcome == Conversation::Outcome::refused) return contains(kOnlyNow, response_.back());
  return outcome != Conversation::Outcome::silent;
}

Conversation::Outcome PidTrial::ask(std::span<const std::uint8_t> request) {
  outcome_ = conversation_.exchange(target_, request, kTimeout, response_);
  if (outcome_ == Conversation::Outcome::unreachable)
    throw TarnError(1, "PidTrial", conversation_.obstacle());
  return outcome_;
}

}  // namespace tarnlog::host
