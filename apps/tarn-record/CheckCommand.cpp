#include "apps/tarn-record/CheckCommand.h"

#include <fmt/format.h>

namespace tarnlog::record {

namespace {

std::string triggerText(const oTarnParameters& parameters, const oTarnTrigger& trigger) {
  if (trigger.typeTrigger == oTarnTrigger::kTime) return fmt::format("after {} s", trigger.timeSeconde);
  const oTarnScope* const watched =
      trigger.typeTrigger == oTarnTrigger::kChannel ? parameters.ItemIndex(trigger.DataIndex) : nullptr;
  if (watched == nullptr) return "manual";
  return fmt::format("{} {} {} {}", watched->DataName, trigger.edge < 0 ? "falls to" : "rises to",
                     trigger.level, watched->Unit);
}

}  // namespace

std::string checkReport(const LoadedConfiguration& configuration) {
  const oTarnParameters& parameters = *configuration.parameters;
  std::string out =
      fmt::format("period {} s, format {}\n", parameters.recordingPeriod, parameters.fileFormat);
  out += fmt::format("start: {}, pre-trigger {} s\n", triggerText(parameters, *parameters.startTrigger),
                     -std::min(parameters.startTrigger->prepost, 0));
  out += fmt::format("stop: {}, post-trigger {} s\n", triggerText(parameters, *parameters.stopTrigger),
                     std::abs(parameters.stopTrigger->prepost));
  for (const oScenarioRequest& request : *parameters.initScenario)
    out += fmt::format("init scenario: {}/{}\n", request.EcuName, request.RequestName);
  out += fmt::format("{} data load:\n", parameters.Count());
  for (const oTarnScope& scope : parameters)
    out += fmt::format("  {}/{}/{}{}\n", scope.EcuName, scope.RequestName, scope.DataName,
                       scope.Unit.empty() ? "" : " (" + scope.Unit + ")");
  for (const std::string& line : lackingLines(configuration)) out += line + "\n";
  return out;
}

}  // namespace tarnlog::record
