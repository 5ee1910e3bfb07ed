#include "acquisition/AcquisitionItems.h"

#include <string_view>
#include <utility>

#include "display/DisplayFilling.h"

namespace tarnlog {

namespace {

ferrox3::DataItem* findItem(const ferrox3::Session& session, const oTarnScope& scope) {
  const ferrox3::Ecu* const ecu = session.findEcuByFunction(scope.FunctionName);
  if (ecu == nullptr) return nullptr;
  const ferrox3::Request* const request = ecu->findRequest(scope.RequestName);
  return request == nullptr ? nullptr : request->findData(scope.DataName);
}

bool watches(const oTarnTrigger& trigger, const oTarnScope& scope) {
  return trigger.typeTrigger == oTarnTrigger::kChannel && trigger.DataIndex == scope.index;
}

}  // namespace

AcquisitionItems::~AcquisitionItems() { release(); }

std::int32_t AcquisitionItems::BuildAcquisitionList(ferrox3::Session& session,
                                                    const oTarnParameters& parameters, AcqScreen& screen,
                                                    GrapheItems& display) {
  release();
  list_ = session.createAcquisitionList();
  screen.clearValueRows();
  for (const oTarnScope& scope : parameters) {
    ferrox3::DataItem* const item = findItem(session, scope);
    if (item == nullptr) continue;
    watch(parameters, scope, *item);
    screen.addValueRow(scope.EcuName + " : " + scope.DataName, item->unit());
    items_.push_back(item);
    addScopeToDisplay(display, scope, *item);
    list_->add(*item);
  }
  pollSet_ = list_->pollSet();
  return static_cast<std::int32_t>(items_.size());
}

/// Of two items with the watched index the later one is watched.
void AcquisitionItems::watch(const oTarnParameters& parameters, const oTarnScope& scope,
                             const ferrox3::DataItem& item) {
  const auto trigger = [&](const oTarnTrigger& settings) {
    return LevelTrigger(&item, settings.edge, settings.level);
  };
  if (watches(*parameters.startTrigger, scope)) start_ = trigger(*parameters.startTrigger);
  if (watches(*parameters.stopTrigger, scope)) stop_ = trigger(*parameters.stopTrigger);
}

void AcquisitionItems::release() {
  if (pollSet_ != nullptr) skipOnFailure([&] { pollSet_->finish(); });
  if (list_ != nullptr) skipOnFailure([&] { list_->finish(); });
  pollSet_.reset();
  list_.reset();
  items_.clear();
  start_ = stop_ = LevelTrigger();
}

}  // namespace tarnlog
