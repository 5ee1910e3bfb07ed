#include "ui/init/InitRules.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>

#include "platform/base/TarnError.h"
#include "ui/init/StartSessionText.h"

namespace tarnlog {

namespace {

bool fits16Bits(std::int32_t address) {
  return address >= std::numeric_limits<std::int16_t>::min() &&
         address <= std::numeric_limits<std::int16_t>::max();
}

}  // namespace

bool InitRules::setParameters(std::shared_ptr<oTarnParameters> parameters) {
  parameters_ = std::move(parameters);
  shown_ = parameters_ != nullptr && session_ != nullptr;
  if (!parameters_) {
    offered_.clear();
    return true;
  }
  if (session_ == nullptr) return false;
  offered_ = offeredRequests(*session_);
  selection_ = {1};
  return true;
}

InitRules::Added InitRules::add(std::size_t ecu, std::size_t request) {
  if (!shown_ || ecu >= offered_.size() || request >= offered_[ecu].requests.size()) return Added::nothing;
  const OfferedEcu& from = offered_[ecu];
  if (!fits16Bits(from.address)) return Added::addressTooLarge;
  const auto address = static_cast<std::int16_t>(from.address);
  if (!skipOnFailure([&] { parameters_->initScenario->Add(from.requests[request], from.name, address); }))
    return Added::full;
  selection_ = {1};
  return Added::yes;
}

bool InitRules::remove(const Rows& rows) {
  if (!shown_ || rows.empty()) return false;
  // From the last to the first, so that the rows before keep their positions.
  std::for_each(rows.rbegin(), rows.rend(), [&](std::size_t row) { parameters_->initScenario->Remove(row); });
  selection_ = {1};
  return true;
}

bool InitRules::moveUp(const Rows& rows) {
  if (!shown_ || rows.empty() || rows.contains(1)) return false;
  oScenario& scenario = *parameters_->initScenario;
  selection_.clear();
  for (const std::size_t row : rows)
    selection_.insert(static_cast<std::size_t>(scenario.MoveUp(scenario.Item(row))));
  return true;
}

bool InitRules::moveDown(const Rows& rows) {
  if (!shown_ || rows.empty() || rows.contains(rowCount())) return false;
  oScenario& scenario = *parameters_->initScenario;
  selection_.clear();
  std::for_each(rows.rbegin(), rows.rend(), [&](std::size_t row) {
    selection_.insert(static_cast<std::size_t>(scenario.MoveDown(scenario.Item(row))));
  });
  return true;
}

bool InitRules::setStartSession(std::string_view text) {
  if (!parameters_ || parameters_->startSession == text) return false;
  parameters_->startSession = text;
  return true;
}

bool InitRules::leaveStartSession() {
  return parameters_ && setStartSession(normalisedStartSession(parameters_->startSession));
}

}  // namespace tarnlog
