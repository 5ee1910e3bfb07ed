#include "config/SessionLoad.h"

#include <cstdint>
#include <utility>

#include "config/LoadReport.h"
#include "config/StoredReferences.h"

namespace tarnlog {

namespace {

std::string pathOf(const std::string& ecu, const std::string& request, const std::string& data) {
  return ecu + "/" + request + (data.empty() ? "" : "/" + data);
}

void addData(std::vector<Lack>& lacks, const LoadReport& report) {
  for (const LoadReport::Dropped& data : report.data)
    lacks.push_back({data.duplicate ? Lack::Kind::Duplicate : Lack::Kind::Data,
                     pathOf(data.ecu, data.request, data.data)});
}

/// Acquisition finds an ECU by its function, which the loader takes from the file unchecked.
void addWrongFunctions(std::vector<Lack>& lacks, const oTarnParameters& parameters,
                       const SessionDocument& session) {
  for (const oTarnScope& scope : parameters) {
    const XmlElement data =
        FindSessionData(session, scope.EcuName, scope.RequestName, scope.DataName, oTarnScope::kNoAddress);
    if (data.parent().parent().attributeOrEmpty("function") != scope.FunctionName)
      lacks.push_back({Lack::Kind::WrongFunction, pathOf(scope.EcuName, scope.RequestName, scope.DataName)});
  }
}

}  // namespace

SessionLoad loadForSession(oTarnParameters& parameters, const FileSystem& files, const std::string& fileName,
                           const SessionDocument& session) {
  parameters.RemoveAll();
  LoadReport report;
  parameters.LoadXmlConfiguration(files, fileName, session, &report);
  const std::int32_t start = parameters.startTrigger->typeTrigger;
  const std::int32_t stop = parameters.stopTrigger->typeTrigger;
  mapStoredReferences(parameters);
  parameters.CheckAndCorrect();

  std::vector<Lack> lacks;
  if (report.noParameters) lacks.push_back({Lack::Kind::Parameters, {}});
  addData(lacks, report);
  addWrongFunctions(lacks, parameters, session);
  for (const LoadReport::Dropped& request : report.scenarioRequests)
    lacks.push_back({Lack::Kind::ScenarioRequest, pathOf(request.ecu, request.request, {})});
  if (parameters.startTrigger->typeTrigger != start) lacks.push_back({Lack::Kind::StartTrigger, {}});
  if (parameters.stopTrigger->typeTrigger != stop) lacks.push_back({Lack::Kind::StopTrigger, {}});
  return {std::move(lacks), report.record};
}

}  // namespace tarnlog
