#include "apps/tarn-record/LoadedConfiguration.h"

#include <fmt/format.h>

#include "config/StoredReferences.h"

namespace tarnlog::record {

namespace {

/// Acquisition finds an ECU by its function, which the loader takes from the file unchecked.
std::vector<std::string> dataWithWrongFunction(const oTarnParameters& parameters,
                                               const SessionDocument& session) {
  std::vector<std::string> paths;
  for (const oTarnScope& scope : parameters) {
    const XmlElement data =
        FindSessionData(session, scope.EcuName, scope.RequestName, scope.DataName, oTarnScope::kNoAddress);
    if (data.parent().parent().attributeOrEmpty("function") != scope.FunctionName)
      paths.push_back(scope.EcuName + "/" + scope.RequestName + "/" + scope.DataName);
  }
  return paths;
}

}  // namespace

LoadedConfiguration loadConfiguration(const FileSystem& files, const SettingsStore& settings,
                                      const std::string& file, const SessionDocument& session) {
  LoadedConfiguration loaded;
  loaded.parameters = std::make_shared<oTarnParameters>(settings);
  loaded.parameters->LoadXmlConfiguration(files, file, session, &loaded.report);
  const auto lost = [](std::int32_t before, const oTarnTrigger& trigger) {
    return trigger.typeTrigger != before;
  };
  const std::int32_t start = loaded.parameters->startTrigger->typeTrigger;
  const std::int32_t stop = loaded.parameters->stopTrigger->typeTrigger;
  mapStoredReferences(*loaded.parameters);
  loaded.startTriggerLost = lost(start, *loaded.parameters->startTrigger);
  loaded.stopTriggerLost = lost(stop, *loaded.parameters->stopTrigger);
  loaded.parameters->CheckAndCorrect();
  loaded.wrongFunction = dataWithWrongFunction(*loaded.parameters, session);
  return loaded;
}

std::vector<std::string> lackingLines(const LoadedConfiguration& configuration) {
  std::vector<std::string> lines;
  for (const LoadReport::Dropped& data : configuration.report.data)
    lines.push_back(fmt::format(
        "{}: {}/{}/{}", data.duplicate ? "configured twice, taken once" : "not offered by this vehicle",
        data.ecu, data.request, data.data));
  for (const std::string& path : configuration.wrongFunction)
    lines.push_back("not acquired, the ECU element's function is not the one in the vehicle: " + path);
  for (const LoadReport::Dropped& request : configuration.report.scenarioRequests)
    lines.push_back(fmt::format("init scenario request not offered by this vehicle: {}/{}", request.ecu,
                                request.request));
  if (configuration.startTriggerLost)
    lines.emplace_back("the start trigger watches data that this vehicle does not offer: start is manual");
  if (configuration.stopTriggerLost)
    lines.emplace_back("the stop trigger watches data that this vehicle does not offer: stop is manual");
  return lines;
}

}  // namespace tarnlog::record
