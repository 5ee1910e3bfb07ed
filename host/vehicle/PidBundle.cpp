#include "host/vehicle/PidBundle.h"

#include <algorithm>
#include <map>

#include "host/vehicle/ObdPids.h"
#include "host/vehicle/ResponseCheck.h"
#include "host/vehicle/VehicleEcu.h"
#include "host/vehicle/VehicleRequest.h"

namespace tarnlog::host {
namespace {

constexpr std::uint8_t kCurrentData = 0x01;
constexpr std::size_t kMostPids = 6;
constexpr int kMostFailures = 3;

/// The PID of a request that asks for one PID of the table.
const ObdPid* pidOf(const VehicleRequest& request) {
  const Frame& frame = request.description().frame;
  return frame.size() == 2 && frame[0] == kCurrentData ? findObdPid(frame[1]) : nullptr;
}

}  // namespace

std::vector<std::unique_ptr<PidBundle>> PidBundle::of(std::span<VehicleRequest* const> requests) {
  std::vector<std::unique_ptr<PidBundle>> bundles;
  std::map<VehicleEcu*, std::vector<VehicleRequest*>> gathered;
  const auto bundle = [&](VehicleEcu* ecu, std::vector<VehicleRequest*>& members) {
    if (members.size() > 1) bundles.push_back(std::make_unique<PidBundle>(*ecu, members));
    members.clear();
  };
  for (VehicleRequest* const request : requests) {
    if (pidOf(*request) == nullptr) continue;
    auto& members = gathered[&request->vehicleEcu()];
    members.push_back(request);
    if (members.size() == kMostPids) bundle(&request->vehicleEcu(), members);
  }
  for (auto& [ecu, members] : gathered) bundle(ecu, members);
  return bundles;
}

PidBundle::PidBundle(VehicleEcu& ecu, const std::vector<VehicleRequest*>& members)
    : ecu_(ecu), frame_{kCurrentData} {
  for (VehicleRequest* const request : members) {
    const ObdPid* const pid = pidOf(*request);
    members_.push_back({request, pid->number, pid->bytes});
    frame_.push_back(pid->number);
    request->setBundle(this);
  }
}

PidBundle::~PidBundle() {
  for (const Member& member : members_) member.request->setBundle(nullptr);
}

void PidBundle::forget() {
  for (Member& member : members_) member.place.reset();
}

bool PidBundle::take(const VehicleRequest& request, Link::Bytes& response) {
  if (!usable_ || !ecu_.takesSeveralPids()) return false;
  const auto member = std::find_if(members_.begin(), members_.end(),
                                   [&](const Member& each) { return each.request == &request; });
  if (!member->place) ask();
  if (!member->place) return false;
  const auto* const first = response_.data() + *member->place;
  response.assign({positiveService(kCurrentData)});
  response.insert(response.end(), first, first + 1 + member->bytes);
  member->place.reset();
  return true;
}

void PidBundle::ask() {
  forget();
  const auto outcome = ecu_.converse(frame_, members_.front().request->description().timeout, response_);
  if (outcome == Conversation::Outcome::answered && split()) {
    worked_ = true;
    failures_ = 0;
    return;
  }
  const auto understood = std::count_if(members_.begin(), members_.end(),
                                        [](const Member& each) { return each.place.has_value(); });
  forget();
  // What worked before may only have been disturbed.
  usable_ = worked_ && ++failures_ < kMostFailures;
  if (!worked_ && understood <= 1) ecu_.setOnePidOnly();
}

/// Finds each PID with its data in the response: the service, then PID and data, PID and data, ...
bool PidBundle::split() {
  std::size_t at = 1;
  while (at < response_.size()) {
    const auto member = std::find_if(members_.begin(), members_.end(),
                                     [&](const Member& each) { return each.pid == response_[at]; });
    // Fill bytes behind the last PID are none of the message, but not every car keeps to that.
    if (member == members_.end() || member->place || at + 1 + member->bytes > response_.size()) break;
    member->place = at;
    at += 1 + member->bytes;
  }
  return std::all_of(members_.begin(), members_.end(),
                     [](const Member& each) { return each.place.has_value(); });
}

}  // namespace tarnlog::host
