#include "ui/param/ParamRules.h"

#include <cstdint>
#include <limits>
#include <utility>

#include "config/RegisterParameters.h"
#include "platform/base/TarnError.h"
#include "platform/text/Numbers.h"

namespace tarnlog {

void ParamRules::setParameters(std::shared_ptr<oTarnParameters> parameters) {
  parameters_ = std::move(parameters);
  listChannels();
  const std::int32_t items = parameters_ ? parameters_->Count() : 0;
  start_.refresh(parameters_ ? parameters_->startTrigger.get() : nullptr, items);
  stop_.refresh(parameters_ ? parameters_->stopTrigger.get() : nullptr, items);
  save_.refresh(parameters_.get());
}

void ParamRules::listChannels() {
  channels_.clear();
  if (!parameters_) return;
  for (const oTarnScope& item : *parameters_)
    channels_.push_back(
        {"[" + item.EcuName + "] " + item.DataName + " (" + item.RequestName + ")", item.Unit});
}

ParamRules::PeriodEntry ParamRules::setPeriod(double seconds) {
  if (!parameters_) return PeriodEntry::same;
  if (!(seconds >= 0 && seconds <= std::numeric_limits<std::int32_t>::max())) return PeriodEntry::refused;
  const std::int32_t period = roundHalfEven(seconds);
  skipOnFailure([&] { SetRegisterParameter(settings_, kRegisterPeriod, std::to_string(period)); });
  if (parameters_->recordingPeriod == period) return PeriodEntry::same;
  parameters_->recordingPeriod = period;
  return PeriodEntry::changed;
}

bool ParamRules::setComment(const std::string& comment) {
  if (!parameters_ || parameters_->userDescription == comment) return false;
  parameters_->userDescription = comment;
  return true;
}

}  // namespace tarnlog
